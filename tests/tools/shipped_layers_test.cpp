#include <cmath>
#include <map>
#include <set>

#include "fakes/fake_canvas.h"
#include "maps/layer_file.h"
#include "maps/redraw.h"
#include "tools/shipped_map.h"

namespace talpena {
namespace {

constexpr const char* layers[] = {
    "coasts_world",   "borders_world", "rivers_world", "lakes_world",     "coasts_detail",
    "borders_detail", "rivers_detail", "lakes_detail", "provinces_world", "provinces_detail"};

std::string Chemin(const std::string& layer) { return test::DansCarto(layer + ".tlp"); }

/// Calls `look` for every record of a layer with its points.
template <typename Look>
void PourChaqueArticle(const std::string& layer, Look&& look) {
  const auto disk = CreeSystemeDeFichiers();
  LayerFile file(disk->Ouvre(Chemin(layer)));
  for (LayerRecord record; file.Suivant(record);) {
    std::vector<LayerPoint> points;
    for (auto part = file.Points(); !part.empty(); part = file.Points())
      points.insert(points.end(), part.begin(), part.end());
    look(record, points);
  }
}

TEST(ShippedLayers, AreReadToTheEnd) {
  for (const char* layer : layers) {
    std::uintmax_t bytes = 116;
    PourChaqueArticle(layer, [&](const LayerRecord& record, const std::vector<LayerPoint>& points) {
      EXPECT_EQ(points.size(), record.count);
      bytes += 61 + 11 * points.size();
    });
    EXPECT_EQ(bytes, std::filesystem::file_size(Chemin(layer))) << layer;
  }
}

TEST(ShippedLayers, HaveSmallRecordsThatBeginAndEndWithThePenUp) {
  for (const char* layer : layers) {
    const bool world = std::string(layer).find("world") != std::string::npos;
    const float most = world ? 4.001F : 1.001F;
    int wrong = 0;
    PourChaqueArticle(layer, [&](const LayerRecord& r, const std::vector<LayerPoint>& points) {
      bool good = points.size() >= 4 && points.front().pen == -1 && points.back().pen == -1;
      good = good && r.east - r.west <= most && r.north - r.south <= most;
      for (const LayerPoint& p : points) {
        good = good && p.latitude <= r.north + 1e-3F && p.latitude >= r.south - 1e-3F &&
               p.longitude <= r.east && p.longitude >= r.west && p.longitude >= -180 &&
               p.longitude <= (world ? farthestEast : 180);
      }
      wrong += good ? 0 : 1;
    });
    EXPECT_EQ(wrong, 0) << layer;
  }
}

TEST(ShippedLayers, BearTheKindsOfTheirLines) {
  const std::map<char, char> kinds{{'c', 'C'}, {'b', 'U'}, {'r', 'R'}, {'l', 'L'}, {'p', 'U'}};
  for (const char* layer : layers) {
    std::set<char> found;
    PourChaqueArticle(layer, [&](const LayerRecord& record, const std::vector<LayerPoint>&) {
      found.insert(record.kind);
    });
    EXPECT_EQ(found, std::set<char>{kinds.at(layer[0])}) << layer;
  }
}

/// Ground that the strokes of a layer cover, in degrees, inside some limits.
double Longueur(const std::string& layer, const MapState& limits, bool onlyWhole) {
  double sum = 0;
  PourChaqueArticle(layer, [&](const LayerRecord& r, const std::vector<LayerPoint>& points) {
    const bool whole = r.west >= limits.LonOuest && r.east <= limits.LonEst &&
                       r.south >= limits.LatSud - 1 && r.north <= limits.LatNord + 1;
    if (onlyWhole && !whole) return;
    for (std::size_t i = 2; i + 1 < points.size(); ++i) {
      const LayerPoint a = points[i - 1], b = points[i];
      const bool inside = a.longitude >= limits.LonOuest && a.longitude <= limits.LonEst &&
                          a.latitude >= limits.LatSud && a.latitude <= limits.LatNord;
      if (inside) sum += std::hypot(b.longitude - a.longitude, b.latitude - a.latitude);
    }
  });
  return sum;
}

// A record that crosses the limits of a map is not drawn at all: small ones lose little.
TEST(ShippedLayers, KeepWhatARegionalMapNeeds) {
  test::FakeCanvas canvas;
  for (const char* name : {"france_belgium", "british_isles", "iberia", "morocco"}) {
    canvas.images[test::DansCarto(std::string(name) + ".png")] = {1000, 1000};
    test::MapDesk desk(canvas);
    ASSERT_TRUE(desk.Ouvre(name));
    for (const char* layer : {"coasts_detail", "rivers_detail"}) {
      const double all = Longueur(layer, desk.carte, false);
      EXPECT_GT(all, 5) << name << ' ' << layer;
      EXPECT_GT(Longueur(layer, desk.carte, true) / all, 0.9) << name << ' ' << layer;
    }
  }
}

/// Longest step between two pixels of a line, in parts of the picture's width.
double PlusLongPas(const std::vector<test::CanvasCall>& calls, int width) {
  double longest = 0;
  for (const test::CanvasCall& call : calls) {
    for (std::size_t i = 1; i < call.points.size(); ++i) {
      const PixelPoint a = call.points[i - 1], b = call.points[i];
      longest = std::max(
          longest, std::hypot(static_cast<double>(b.x) - a.x, static_cast<double>(b.y) - a.y));
    }
  }
  return longest / width;
}

TEST(ShippedLayers, DrawNoStreaksOnAnyMap) {
  for (const MapRow& row : Catalogue()) {
    test::FakeCanvas canvas;
    canvas.images[test::DansCarto(std::string(row.name) + ".png")] = {1000, 1000};
    test::MapDesk desk(canvas);
    ASSERT_TRUE(desk.Ouvre(row.name));
    ScreenSink ecran(desk.Contexte());
    for (const char* layer : layers) {
      canvas.calls.clear();
      AfficheTLP(desk.Contexte(), ecran, Chemin(layer));
      const std::string name = layer;
      const bool world = name.find("world") != std::string::npos;
      if (name == "coasts_world") {
        EXPECT_GT(canvas.calls.size(), row.detail == Detail::Region ? 2U : 10U) << row.name;
      }
      // Four degrees of a border on a map of eight, and a straight border is one step.
      EXPECT_LT(PlusLongPas(canvas.calls, 1000), world ? 0.35 : 0.12) << row.name << ' ' << layer;
    }
  }
}

// Beyond the antimeridian the layers of the world go on, for limits that do.
TEST(ShippedLayers, CoverTheWholeDiscOfTheGlobeOfThePacific) {
  test::FakeCanvas canvas;
  canvas.images[test::DansCarto("globe_pacific.png")] = {1000, 1000};
  test::MapDesk desk(canvas);
  ASSERT_TRUE(desk.Ouvre("globe_pacific"));
  EXPECT_EQ(desk.carte.LonEst, farthestEast);
  ScreenSink ecran(desk.Contexte());
  for (const char* layer : {"coasts_world", "rivers_world"}) {
    canvas.calls.clear();
    AfficheTLP(desk.Contexte(), ecran, Chemin(layer));
    int farEast = 0;
    for (const test::CanvasCall& call : canvas.calls) {
      for (const PixelPoint p : call.points) farEast += p.x > 600 && p.x <= 1000 ? 1 : 0;
    }
    EXPECT_GT(farEast, 20) << layer;
  }
}

TEST(ShippedLayers, CloseNoStrokeThatWouldBeFilled) {
  test::FakeCanvas listed;
  listed.images[test::DansCarto("france_belgium.png")] = {1054, 960};
  test::MapDesk desk(listed);
  ASSERT_TRUE(desk.Ouvre("france_belgium"));
  ScreenSink ecran(desk.Contexte());
  AfficheTLP(desk.Contexte(), ecran, Chemin("coasts_detail"));
  for (const test::CanvasCall& call : listed.calls) {
    if (call.name != "Polygon") continue;
    for (const PixelPoint p : call.points) {
      EXPECT_LE(std::abs(p.x - call.points.front().x), 3);
      EXPECT_LE(std::abs(p.y - call.points.front().y), 3);
    }
  }
}

}  // namespace
}  // namespace talpena
