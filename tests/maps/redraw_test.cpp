#include "maps/redraw.h"

#include <gtest/gtest.h>

#include <limits>

#include "maps/grid_overlay.h"
#include "maps/layer_bytes.h"
#include "maps/map_files.h"
#include "maps/map_files_world.h"

namespace talpena {
namespace {

using test::CanvasCall;
using test::EnTeteTlp;
using test::HeadFields;
using test::MapFilesWorld;
using test::PointTlp;
using test::TeteTlp;
using Pixels = std::vector<PixelPoint>;

/// A plate carree of the whole world on a picture of 2880 x 1440: a degree is 8 pixels.
struct PlateWorld : MapFilesWorld {
  PlateWorld() {
    canvas.images["/maps/p.png"] = {2880, 1440};
    files.Pose("/maps/a.dsw", "t\ne\np.png\n5 0 name,90 -90 180 -180 0 0 0 0 0 0 0 0 0 0");
    EXPECT_TRUE(ChargeCarte(context, "/maps/a.dsw"));
    canvas.calls.clear();
    fenetre.calls.clear();
  }
  /// Draws one layer.
  void Trace(const std::string& records, const std::string& path = "/maps/a.tlp") {
    files.Pose(path, EnTeteTlp() + records);
    ScreenSink ecran(context);
    AfficheTLP(context, ecran, path);
  }
  const std::vector<CanvasCall>& Traits() const { return canvas.calls; }
};

PixelPoint At(double latitude, double longitude) {
  return {static_cast<std::int32_t>((longitude + 180) * 8),
          static_cast<std::int32_t>((90 - latitude) * 8)};
}

/// A record of points (pen, latitude, longitude).
struct Dot {
  int pen;
  float latitude, longitude;
};
std::string Record(const std::vector<Dot>& dots, HeadFields head = {}) {
  head.count = static_cast<float>(dots.size());
  std::string bytes = TeteTlp(head);
  for (const Dot& dot : dots) bytes += PointTlp(dot.pen, dot.latitude, dot.longitude);
  return bytes;
}

const std::vector<Dot> stroke = {{-1, 1, 1}, {0, 10, 10}, {0, 20, 10}, {0, 20, 30}, {-1, 1, 1}};

TEST(AfficheTLP, DrawsAStrokeBetweenTwoPens) {
  PlateWorld w;
  w.Trace(Record(stroke));
  ASSERT_EQ(w.Traits().size(), 1U);
  EXPECT_EQ(w.Traits()[0].name, "Polyline");
  EXPECT_EQ(w.Traits()[0].points, (Pixels{At(10, 10), At(20, 10), At(20, 30)}));
}

TEST(AfficheTLP, AMissingLayerIsPassedOver) {
  PlateWorld w;
  ScreenSink ecran(w.context);
  AfficheTLP(w.context, ecran, "/maps/none.tlp");
  AfficheTLP(w.context, ecran, "");
  EXPECT_TRUE(w.canvas.calls.empty());
}

TEST(AfficheTLP, TheFirstPointOfALayerIsDropped) {
  PlateWorld w;
  w.Trace(Record({{0, 10, 10}, {0, 20, 10}, {0, 20, 30}, {-1, 1, 1}}));
  ASSERT_EQ(w.Traits().size(), 1U);
  EXPECT_EQ(w.Traits()[0].points, (Pixels{At(20, 10), At(20, 30)}));
}

TEST(AfficheTLP, APointBehindTheOriginIsDropped) {
  PlateWorld w;
  w.Trace(Record(
      {{-1, 5, 5}, {0, 10, 10}, {0, 0, 0}, {0, 20, 10}, {0, 20, 30}, {0, 25, 30}, {-1, 1, 1}}));
  ASSERT_EQ(w.Traits().size(), 2U);
  EXPECT_EQ(w.Traits()[0].points, (Pixels{At(10, 10), At(0, 0)}));
  EXPECT_EQ(w.Traits()[1].points, (Pixels{At(20, 30), At(25, 30)}));
}

TEST(AfficheTLP, TheOriginIsAPointWhereTheProjectionMarksIt) {
  PlateWorld w;
  w.carte.CodeProjection = 6;  // (0, 0) becomes (1E-13, 0)
  InitParam(w.context);
  w.canvas.calls.clear();
  w.Trace(Record({{-1, 5, 5}, {0, 10, 10}, {0, 0, 0}, {0, 20, 10}, {-1, 1, 1}}));
  ASSERT_EQ(w.Traits().size(), 1U);
  EXPECT_EQ(w.Traits()[0].points.size(), 3U);
}

TEST(AfficheTLP, TwoPensInARowDrawNothingTheSecondTime) {
  PlateWorld w;
  w.Trace(Record({{-1, 1, 1}, {0, 10, 10}, {0, 20, 10}, {-1, 1, 1}, {-1, 2, 2}, {-1, 3, 3}}));
  EXPECT_EQ(w.Traits().size(), 1U);
}

TEST(AfficheTLP, OnlyAPenOfMinusOneEndsAStroke) {
  PlateWorld w;
  w.Trace(
      Record({{-1, 1, 1}, {1, 10, 10}, {-2, 20, 10}, {32767, 20, 30}, {-32768, 5, 5}, {-1, 1, 1}}));
  ASSERT_EQ(w.Traits().size(), 1U);
  EXPECT_EQ(w.Traits()[0].points.size(), 4U);
}

TEST(AfficheTLP, AClosedStrokeIsDrawnWithTheFillOfTheCanvas) {
  PlateWorld w;
  w.canvas.Attributs.fillStyle = FillStyle::Solid;
  w.canvas.Attributs.FillColor = 0x123456;
  w.Trace(Record({{-1, 1, 1}, {0, 10, 10}, {0, 20, 10}, {0, 20, 30}, {0, 10, 10}, {-1, 1, 1}}));
  ASSERT_EQ(w.Traits().size(), 1U);
  EXPECT_EQ(w.Traits()[0].name, "Polygon");
  EXPECT_EQ(w.Traits()[0].attributs.fillStyle, FillStyle::Solid);
  EXPECT_EQ(w.Traits()[0].attributs.FillColor, 0x123456U);
}

TEST(AfficheTLP, KindsAndStylesGiveColourAndPattern) {
  struct Look {
    char kind, style;
    std::uint32_t colour;
    DrawStyle pattern;
  };
  for (const Look& look :
       {Look{'R', '1', 0xFF0000, DrawStyle::Solid}, Look{'L', '2', 0xFFFF00, DrawStyle::Solid},
        Look{'C', '3', 0, DrawStyle::Dashed}, Look{'G', '0', 0, DrawStyle::Dashed},
        Look{'A', '1', 0, DrawStyle::Solid}, Look{'U', '9', 0, DrawStyle::Dashed},
        Look{'r', '1', 0, DrawStyle::Solid}, Look{'\0', ' ', 0, DrawStyle::Dashed}}) {
    SCOPED_TRACE(look.kind);
    PlateWorld w;
    w.canvas.Attributs.ForeColor = 0x777777;
    w.canvas.Attributs.drawStyle = DrawStyle::Dotted;
    w.canvas.Attributs.DrawWidth = 7;
    w.Trace(Record(stroke, {.kind = look.kind, .style = look.style}));
    ASSERT_EQ(w.Traits().size(), 1U);
    EXPECT_EQ(w.Traits()[0].attributs.ForeColor, look.colour);
    EXPECT_EQ(w.Traits()[0].attributs.drawStyle, look.pattern);
    EXPECT_EQ(w.Traits()[0].attributs.DrawWidth, 1);
  }
}

TEST(AfficheTLP, ColourChangesBeforeAStrokeOfTheRecordBeforeIsDrawn) {
  PlateWorld w;
  w.Trace(Record({{-1, 1, 1}, {0, 10, 10}, {0, 20, 10}}, {.kind = 'R'}) +
          Record({{-1, 1, 1}}, {.kind = 'L'}));
  ASSERT_EQ(w.Traits().size(), 1U);
  EXPECT_EQ(w.Traits()[0].attributs.ForeColor, 0xFFFF00U);
}

TEST(AfficheTLP, EachLayerStartsWithoutKindAndStyle) {
  PlateWorld w;
  w.Trace(Record(stroke, {.kind = 'R'}));
  w.canvas.Attributs.ForeColor = 0x777777;
  w.Trace(Record(stroke, {.kind = 'R'}));
  EXPECT_EQ(w.Traits()[1].attributs.ForeColor, 0xFF0000U);
}

TEST(AfficheTLP, AStrokeWithoutAnEndWaitsForTheNextLayer) {
  PlateWorld w;
  w.Trace(Record({{-1, 1, 1}, {0, 10, 10}, {0, 20, 10}}, {.kind = 'R'}));
  EXPECT_TRUE(w.Traits().empty());
  w.Trace(Record({{0, 30, 30}, {0, 31, 31}, {0, 32, 32}, {-1, 1, 1}}, {.kind = 'L'}),
          "/maps/b.tlp");
  ASSERT_EQ(w.Traits().size(), 2U);
  EXPECT_EQ(w.Traits()[0].points, (Pixels{At(10, 10), At(20, 10)}));
  EXPECT_EQ(w.Traits()[0].attributs.ForeColor, 0xFFFF00U) << "in the look of the next layer";
  EXPECT_EQ(w.Traits()[1].points.size(), 2U) << "its own first point is dropped";
}

TEST(AfficheTLP, KeepsWhatIsWhollyInsideTheLimits) {
  struct Case {
    HeadFields head;
    bool drawn;
    const char* what;
  };
  // The map runs from 40 to 50 north and from 0 to 10 east.
  for (const Case& c :
       {Case{{.north = 50, .south = 40, .east = 10, .west = 0}, true, "the limits themselves"},
        Case{{.north = 51, .south = 39, .east = 10, .west = 0}, true, "a degree of latitude more"},
        Case{{.north = 51.01F, .south = 40, .east = 10, .west = 0}, false, "too far north"},
        Case{{.north = 50, .south = 38.99F, .east = 10, .west = 0}, false, "too far south"},
        Case{{.north = 50, .south = 40, .east = 10.01F, .west = 0}, false, "across the east"},
        Case{{.north = 50, .south = 40, .east = 10, .west = -0.01F}, false, "across the west"},
        Case{{.north = 80, .south = 70, .east = 100, .west = 90}, false, "elsewhere"},
        Case{{.north = std::numeric_limits<float>::quiet_NaN()}, false, "no number"},
        Case{{.west = std::numeric_limits<float>::quiet_NaN()}, false, "no number"}}) {
    SCOPED_TRACE(c.what);
    PlateWorld w;
    w.carte.LatNord = 50, w.carte.LatSud = 40, w.carte.LonEst = 10, w.carte.LonOuest = 0;
    w.Trace(Record(stroke, c.head) + Record(stroke, {.kind = 'R'}));
    ASSERT_EQ(w.Traits().size(), c.drawn ? 2U : 1U);
    EXPECT_EQ(w.Traits().back().attributs.ForeColor, 0xFF0000U) << "its points were passed over";
  }
}

TEST(AfficheTLP, ARecordPartlyOutsideShowsNoneOfItsLines) {
  PlateWorld w;
  w.carte.LonEst = 25;
  w.Trace(Record(stroke, {.north = 20, .south = 10, .east = 30, .west = 10}));
  EXPECT_TRUE(w.Traits().empty());
}

TEST(AfficheTLP, APointBehindTheGlobeIsDrawnFarAway) {
  PlateWorld w;
  w.carte.CodeProjection = 13;
  w.carte.ParallelePrincipal = 0;
  InitProjection(w.carte);
  InitParam(w.context);
  w.canvas.calls.clear();
  w.Trace(Record({{-1, 1, 1}, {0, 10, 10}, {0, 10, 170}, {0, 20, 10}, {-1, 1, 1}}));
  ASSERT_EQ(w.Traits().size(), 1U);
  const Pixels points = w.Traits()[0].points;
  ASSERT_EQ(points.size(), 3U);
  EXPECT_GT(points[1].x, 1000000);
  EXPECT_LT(points[1].y, -1000000);
}

TEST(AfficheTLP, BehindAPolarMapOnlyXGoesFarAway) {
  PlateWorld w;
  w.carte.CodeProjection = 11;
  w.carte.LatSud = 0;
  InitParam(w.context);
  w.canvas.calls.clear();
  w.Trace(Record({{-1, 50, 1}, {0, 60, 10}, {0, -10, 170}, {0, 70, 10}, {-1, 1, 1}}));
  ASSERT_EQ(w.Traits().size(), 1U);
  const Pixels points = w.Traits()[0].points;
  ASSERT_EQ(points.size(), 3U);
  EXPECT_GT(points[1].x, 1000000);
  EXPECT_EQ(points[1].y, points[0].y) << "Y is that of the point before";
}

TEST(AfficheTLP, APointThatCannotBeProjectedIsLeftOut) {
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  PlateWorld w;
  w.Trace(Record({{-1, 1, 1},
                  {0, 10, 10},
                  {0, nan, 10},
                  {0, 10, nan},
                  {0, 3e38F, 10},
                  {0, 20, 10},
                  {-1, nan, nan},
                  {0, 30, 30},
                  {0, 31, 31},
                  {-1, 1, 1}}));
  ASSERT_EQ(w.Traits().size(), 2U);
  EXPECT_EQ(w.Traits()[0].points, (Pixels{At(10, 10), At(20, 10)}));
  EXPECT_EQ(w.Traits()[1].points, (Pixels{At(30, 30), At(31, 31)}));
}

TEST(AfficheTLP, CoordinatesBeyondTheEarthAreClamped) {
  PlateWorld w;
  w.Trace(Record({{-1, 1, 1}, {0, 10, 10}, {0, 1e30F, -1e30F}, {-1, 1, 1}}));
  ASSERT_EQ(w.Traits().size(), 1U);
  EXPECT_EQ(w.Traits()[0].points[1], (PixelPoint{-(1 << 30), -(1 << 30)}));
}

TEST(AfficheTLP, CutShortAtAnyByteItDrawsWhatIsThere) {
  const std::string bytes = EnTeteTlp() + Record(stroke) + Record(stroke, {.kind = 'R'});
  std::size_t drawn = 0;
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    PlateWorld w;
    w.files.Pose("/maps/a.tlp", bytes.substr(0, length));
    ScreenSink ecran(w.context);
    AfficheTLP(w.context, ecran, "/maps/a.tlp");
    EXPECT_GE(w.Traits().size(), drawn);
    drawn = w.Traits().size();
  }
  EXPECT_EQ(drawn, 2U);
}

TEST(AfficheTLP, ACodeThatProjectsNothingDrawsNothing) {
  PlateWorld w;
  w.carte.CodeProjection = 14;
  w.Trace(Record(stroke));
  EXPECT_TRUE(w.Traits().empty());
}

TEST(AfficheTLP, DrawsARecordOfManyBatchesAsOneStroke) {
  PlateWorld w;
  std::vector<Dot> dots{{-1, 1, 1}};
  for (int i = 0; i < 10000; ++i) {
    dots.push_back({0, 10 + 0.001F * static_cast<float>(i), 10});
  }
  dots.push_back({-1, 1, 1});
  w.Trace(Record(dots));
  ASSERT_EQ(w.Traits().size(), 1U);
  EXPECT_EQ(w.Traits()[0].points.size(), 10000U);
}

TEST(RedrawMap, DrawsLayersGridAndDistributionInThisOrder) {
  PlateWorld w;
  w.Remplit({{45, 5}});
  w.files.Pose("/maps/b.tlp", EnTeteTlp() + Record(stroke, {.kind = 'R'}));
  w.files.Pose("/maps/c.tlp", EnTeteTlp() + Record(stroke, {.kind = 'L'}));
  w.options.Add("/maps/b.tlp");
  w.options.Add("/maps/c.tlp");
  w.carte.Grille = true;
  w.carte.Pas = 90;
  w.vue.sabliers.clear();
  RedrawMap(w.context);
  const auto names = w.canvas.Noms();
  ASSERT_GT(names.size(), 5U);
  EXPECT_EQ(names[0], "Cls");
  EXPECT_EQ(w.canvas.calls[1].attributs.ForeColor, 0xFF0000U) << "layers in their order";
  EXPECT_EQ(names[1], "Polyline");
  EXPECT_EQ(names[2], "Polyline");
  EXPECT_EQ(names[3], "PSet");
  EXPECT_EQ(w.canvas.calls[3].attributs.ForeColor, 0U) << "whatever the last layer was drawn in";
  EXPECT_EQ(names[names.size() - 2], "Line");
  EXPECT_EQ(names.back(), "Circle");
  EXPECT_EQ(w.fenetre.Compte("MontreCanevas"), 1);
  EXPECT_EQ(w.vue.sabliers, (std::vector{true, false}));
  EXPECT_FALSE(w.vue.sablier);
}

TEST(RedrawMap, ShowsTheHourglassForRowsAloneAndNoGridWithoutOne) {
  PlateWorld w;
  w.Remplit({{45, 5}});
  w.carte.Pas = 10;
  w.vue.sabliers.clear();
  RedrawMap(w.context);
  EXPECT_EQ(w.canvas.Noms(), (std::vector<std::string>{"Cls", "Circle"}));
  EXPECT_EQ(w.vue.sabliers, (std::vector{true, false})) << "there may be a million of them";
}

TEST(RedrawMap, DrawsTheSamePictureEveryTime) {
  PlateWorld w;
  w.Remplit({{45, 5}});
  w.files.Pose(
      "/maps/a.tlp",
      EnTeteTlp() +
          Record({{-1, 1, 1}, {0, 10, 10}, {0, 20, 10}, {0, 20, 30}, {0, 10, 10}, {-1, 1, 1}}));
  w.options.Add("/maps/a.tlp");
  RedrawMap(w.context);
  RedrawMap(w.context);
  const auto polygons = w.canvas.Appels("Polygon");
  ASSERT_EQ(polygons.size(), 2U);
  EXPECT_EQ(polygons[1].attributs.fillStyle, FillStyle::Transparent)
      << "islands are not filled with the colour of the symbols";
}

TEST(RedrawMap, AMissingLayerDoesNotStopTheOthers) {
  PlateWorld w;
  w.Remplit({{45, 5}});
  w.files.Pose("/maps/a.tlp", EnTeteTlp() + Record(stroke));
  w.options.Add("/maps/none.tlp");
  w.options.Add("\\maps\\a.tlp");
  RedrawMap(w.context);
  EXPECT_EQ(w.canvas.Noms(), (std::vector<std::string>{"Cls", "Polyline", "Circle"}));
}

TEST(RedrawMap, TakesTheHourglassAwayWhenALayerCannotBeRead) {
  PlateWorld w;
  w.files.Pose("/maps/a.tlp", EnTeteTlp() + Record(stroke));
  w.files.lectureJusqua = 120;
  w.options.Add("/maps/a.tlp");
  EXPECT_THROW(RedrawMap(w.context), TalpenaError);
  EXPECT_FALSE(w.vue.sablier);
}

TEST(MontrePosition, AMapOfCode0ShowsItsUnits) {
  MapFilesWorld w;
  w.files.Pose("/maps/a.dsw", "t\ne\np.png\n0 0 100 0 50");
  ASSERT_TRUE(ChargeCarte(w.context, "/maps/a.dsw"));
  w.fenetre.panneaux[3] = "old";
  MontrePosition(w.context, 12.5F, 0.25F);
  EXPECT_EQ(w.fenetre.panneaux,
            (std::map<int, std::string>{{1, "X: 12.5"}, {2, "Y: .25"}, {3, ""}}));
  MontrePosition(w.context, -3, 0);
  EXPECT_EQ(w.fenetre.panneaux[1], "X:-3");
  EXPECT_EQ(w.fenetre.panneaux[2], "Y: 0");
}

TEST(MontrePosition, AGeoreferencedMapShowsDegreesAndTheGridReference) {
  PlateWorld w;
  InitUtm(w.carte);
  float X = 0, Y = 0;
  Project(w.carte, radian(50.5F), radian(4.25F), X, Y);
  MontrePosition(w.context, X, Y);
  EXPECT_EQ(w.fenetre.panneaux[1], "lat=50.500");
  EXPECT_EQ(w.fenetre.panneaux[2], "lon=04.250");
  EXPECT_EQ(w.fenetre.panneaux[3].substr(0, 4), " 31U");
  Project(w.carte, radian(-7.125F), radian(-120.5F), X, Y);
  MontrePosition(w.context, X, Y);
  EXPECT_EQ(w.fenetre.panneaux[1], "lat=-07.125");
  EXPECT_EQ(w.fenetre.panneaux[2], "lon=-120.500");
}

TEST(MontrePosition, WhatCannotBeInvertedLeavesThePanelsEmpty) {
  PlateWorld w;
  const std::map<int, std::string> empty{{1, ""}, {2, ""}, {3, ""}};
  w.carte.CodeProjection = 1;
  DefConstantes(w.carte, 40, 60);
  w.fenetre.panneaux = {{1, "a"}, {2, "b"}, {3, "c"}};
  MontrePosition(w.context, 0, 0);  // y = 0 divides by 0
  EXPECT_EQ(w.fenetre.panneaux, empty);
  w.fenetre.panneaux = {{1, "a"}, {2, "b"}, {3, "c"}};
  MontrePosition(w.context, 3e38F, 3e38F);
  EXPECT_EQ(w.fenetre.panneaux, empty);
  w.fenetre.panneaux = {{1, "a"}, {2, "b"}, {3, "c"}};
  MontrePosition(w.context, std::numeric_limits<float>::quiet_NaN(), 1);
  EXPECT_EQ(w.fenetre.panneaux, empty);
}

TEST(SauveImage, AsksForAFileAndSavesTheCanvas) {
  MapFilesWorld w;
  w.settings.values["TALPENA/PATHS/DATA"] = "/data/";
  w.dialogues.paths = {"/data/map.bmp"};
  SauveImage(w.context);
  ASSERT_EQ(w.dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(w.dialogues.fileDialogs[0].filter,
            "Fichiers bitmap (*.bmp)|*.bmp|Tous les fichiers (*.*)|*.*");
  EXPECT_EQ(w.dialogues.fileDialogs[0].folder, "/data/");
  EXPECT_TRUE(w.dialogues.fileDialogs[0].confirmReplace);
  ASSERT_EQ(w.canvas.Appels("SauveBmp").size(), 1U);
  EXPECT_EQ(w.canvas.Appels("SauveBmp")[0].text, "/data/map.bmp");
  w.dialogues.paths = {""};
  EXPECT_THROW(SauveImage(w.context), TalpenaError);
  EXPECT_EQ(w.canvas.Appels("SauveBmp").size(), 1U);
}

}  // namespace
}  // namespace talpena
