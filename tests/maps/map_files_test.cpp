#include "maps/map_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "maps/map_files_world.h"
#include "maps/map_projection.h"
#include "platform/os/file_system.h"

namespace talpena {
namespace {

using test::MapFilesWorld;

const std::string europe =
    "Europe\r\neurope.ps\r\np.png\r\n1\r\n0,\"Conique\",70,30,40,-10\r\n40,60\r\n7\r\n15\r\n1,2\r\n"
    "50,60,550,800\r\n3.5\r\n";
const std::string plan = "Plan\nplan.ps\np.png\n0\n-5.5 94.5 0 200\n";

/// A world with one map file "/maps/a.dsw", loaded.
struct LoadedWorld : MapFilesWorld {
  explicit LoadedWorld(const std::string& bytes) {
    files.Pose("/maps/a.dsw", bytes);
    whole = ChargeCarte(context, "/maps/a.dsw");
  }
  bool whole = false;
};

std::string WithLf(const std::string& text) { return Remplace(text, "\r\n", "\n"); }

void ExpectEurope(const MapState& carte) {
  EXPECT_EQ(carte.DossierCarte, "/maps/");
  EXPECT_EQ(carte.FichierPS, "/maps/europe.ps");
  EXPECT_EQ(carte.FichierImage, "/maps/p.png");
  EXPECT_EQ(carte.CodeProjection, 1);
  EXPECT_EQ(carte.ParallelePrincipal, 0);
  EXPECT_EQ(carte.LatNord, 70);
  EXPECT_EQ(carte.LatSud, 30);
  EXPECT_EQ(carte.LonEst, 40);
  EXPECT_EQ(carte.LonOuest, -10);
  EXPECT_EQ(carte.Parallele1, 40);
  EXPECT_EQ(carte.Parallele2, 60);
  EXPECT_EQ(carte.MeridienCentralDeg, 15);
  EXPECT_EQ(carte.CadreEPS, (std::array<std::int16_t, 4>{50, 60, 550, 800}));
  EXPECT_EQ(carte.DecalageLongitude, 3.5F);
}

TEST(ChargeCarte, ReadsEveryItem) {
  for (const std::string& bytes : {europe, WithLf(europe), Remplace(europe, "\r\n", "\r")}) {
    const LoadedWorld w(bytes);
    EXPECT_TRUE(w.whole);
    ExpectEurope(w.carte);
  }
}

TEST(ChargeCarte, ItemsMayStandInOneLineOrEachInItsOwn) {
  const std::string head = "t\ne\np.png\n";
  for (const char* items : {"2,1,name,70,30,40,-10,0,0,0,15,0,0,1,2,3,4",
                            "2\n1\nname\n70\n30\n40\n-10\n0\n0\n0\n15\n0\n0\n1\n2\n3\n4",
                            "2 1 \"a name, quoted\" 70 30 40 -10 0 0 0 15 0 0 1 2 3 4 \n\n",
                            "2 1 \"\" 70 30 40 -10 0 0 0 15 0 0 1 2 3 4\t\r\n"}) {
    const LoadedWorld w(head + items);
    EXPECT_TRUE(w.whole) << items;
    EXPECT_EQ(w.carte.ParallelePrincipal, 1);
    EXPECT_EQ(w.carte.LonOuest, -10);
    EXPECT_EQ(w.carte.MeridienCentralDeg, 15);
    EXPECT_EQ(w.carte.CadreEPS[3], 4);
    EXPECT_EQ(w.carte.DecalageLongitude, 0);
  }
}

TEST(ChargeCarte, SetsTheConstantsTheBoxAndTheScale) {
  const LoadedWorld w(europe);
  EXPECT_NE(w.carte.lambert.n, 0);
  EXPECT_GT(w.carte.LargeurKm, 3000);
  EXPECT_EQ(w.carte.CoteKm, std::max(w.carte.LargeurKm, w.carte.HauteurKm));
  EXPECT_EQ(w.canvas.echelle.left, w.carte.XGauche);
  EXPECT_EQ(w.canvas.echelle.top, w.carte.YHaut);
  EXPECT_FLOAT_EQ(static_cast<float>(w.canvas.echelle.width), w.carte.LargeurKm);
  EXPECT_FLOAT_EQ(static_cast<float>(w.canvas.echelle.height), -w.carte.HauteurKm);
  EXPECT_TRUE(w.fenetre.eps);
}

TEST(ChargeCarte, EachCodeGetsTheConstantsOfItsOwn) {
  for (const MapProjection& projection : Projections()) {
    const int code = projection.code;
    SCOPED_TRACE(code);
    const char* limits = code == 12 ? "-20 -60" : "60 20";  // of the south pole
    const LoadedWorld w("t\ne\np.png\n" + std::to_string(code) + " 30 name," + limits +
                        " 40 -10 40 60 0 15 0 0 0 0 0 0");
    EXPECT_TRUE(w.whole);
    EXPECT_EQ(w.carte.lambert.n != 0, code == 1);
    EXPECT_EQ(w.carte.stereo.latitude != 0, code == 3);
    EXPECT_EQ(w.carte.k9 != 0, code == 9);
    EXPECT_EQ(w.carte.ortho.latitude != 0, code == 13);
    EXPECT_NE(w.carte.LargeurKm, 0);
  }
}

TEST(ChargeCarte, AMapOfCode0HasTheUnitsOfItsExtents) {
  LoadedWorld w(plan);
  EXPECT_TRUE(w.whole);
  EXPECT_EQ(w.carte.CodeProjection, 0);
  const UserScale& scale = w.canvas.echelle;
  EXPECT_EQ(scale.left, -5.5);
  EXPECT_EQ(scale.top, 200);
  EXPECT_EQ(scale.width, 100);
  EXPECT_EQ(scale.height, -200);
  EXPECT_EQ(w.carte.LargeurKm, 100);
  EXPECT_EQ(w.carte.HauteurKm, 200);
  EXPECT_EQ(w.carte.CoteKm, 200);
}

TEST(ChargeCarte, AMapOfCode0DisablesEpsAndLosesItsLayers) {
  MapFilesWorld w;
  w.options.Add("/maps/a.tlp");
  w.files.Pose("/maps/europe.dsw", europe);
  w.files.Pose("/maps/plan.dsw", plan);
  w.fenetre.eps = false;
  ASSERT_TRUE(ChargeCarte(w.context, "/maps/europe.dsw"));
  EXPECT_EQ(w.options.LayerCount(), 1) << "layers stay on a georeferenced map";
  EXPECT_TRUE(w.fenetre.eps);
  ASSERT_TRUE(ChargeCarte(w.context, "/maps/plan.dsw"));
  EXPECT_EQ(w.options.LayerCount(), 0);
  EXPECT_FALSE(w.fenetre.eps);
}

TEST(ChargeCarte, TheLastNumberChangesNothing) {
  const LoadedWorld with(europe);
  const LoadedWorld without(Remplace(europe, "3.5\r\n", ""));
  EXPECT_TRUE(without.whole);
  EXPECT_EQ(without.carte.DecalageLongitude, 0);
  EXPECT_EQ(with.carte.XGauche, without.carte.XGauche);
  EXPECT_EQ(with.carte.MeridienCentral, without.carte.MeridienCentral);
  EXPECT_EQ(with.canvas.echelle.width, without.canvas.echelle.width);
  EXPECT_EQ(with.canvas.echelle.top, without.canvas.echelle.top);
}

TEST(ChargeCarte, APathWithASeparatorIsUsedAsItStands) {
  MapFilesWorld w;
  for (const char* picture : {"..\\img\\p.png", "sub\\p.png", "C:\\maps\\p.png", "\\p.png",
                              "sub/p.png", "/other/p.png"}) {
    w.canvas.images[picture] = {10, 10};
    w.files.Pose("/maps/a.dsw", std::string("t\nps\\x.ps\n") + picture + "\n0 0 1 0 1");
    EXPECT_TRUE(ChargeCarte(w.context, "/maps/a.dsw")) << picture;
    EXPECT_EQ(w.carte.FichierImage, picture);
    EXPECT_EQ(w.carte.FichierPS, "ps\\x.ps");
  }
}

TEST(ChargeCarte, TheFolderOfAMapMayBeEmptyOrUseBackslashes) {
  MapFilesWorld w;
  w.canvas.images["p.png"] = w.canvas.images["maps\\p.png"] = {10, 10};
  w.files.Pose("a.dsw", plan);
  w.files.Pose("maps/a.dsw", plan);
  EXPECT_TRUE(ChargeCarte(w.context, "a.dsw"));
  EXPECT_EQ(w.carte.DossierCarte, "");
  EXPECT_EQ(w.carte.FichierPS, "plan.ps");
  EXPECT_TRUE(ChargeCarte(w.context, "maps\\a.dsw"));
  EXPECT_EQ(w.carte.DossierCarte, "maps\\");
  EXPECT_EQ(w.carte.FichierPS, "maps\\plan.ps");
}

TEST(ChargeCarte, FindsAFileInAnyCase) {
  MapFilesWorld w;
  const test::TempFolder folder;
  std::ofstream(folder / "Plan.dsw") << plan;
  const std::string path = folder / "PLAN.DSW";
  const auto real = CreeSystemeDeFichiers();
  Platform io{*w.engine, *real, w.settings, w.dialogues, w.clock, w.environment, w.sound};
  w.canvas.images[folder / "p.png"] = {10, 10};
  const MapContext context{w.carte, w.options, w.canvas, w.fenetre, w.state, io, w.vue, w.vue};
  EXPECT_TRUE(ChargeCarte(context, path));
  EXPECT_TRUE(ChargeCarte(context, Remplace(path, "/", "\\")) ||
              w.carte.FichierImage.find('\\') != std::string::npos);
}

TEST(ChargeCarte, KeepsTheMapForTheNextTimeAndTakesTheGridAway) {
  MapFilesWorld w;
  w.files.Pose("/maps/a.dsw", europe);
  w.carte.Grille = true;
  w.carte.Pas = 5;
  ASSERT_TRUE(ChargeCarte(w.context, "/maps/a.dsw"));
  EXPECT_FALSE(w.carte.Grille);
  EXPECT_EQ(w.carte.Pas, 5);
  EXPECT_EQ(w.settings.values.at("TALPENA/CARTO/LASTMAP"), "/maps/a.dsw");
  EXPECT_EQ(w.fenetre.ajustements, 1);
  EXPECT_EQ(w.vue.sabliers, (std::vector{true, false}));
  EXPECT_FALSE(w.vue.sablier);
}

TEST(ChargeCarte, ALineThatALayerLeftOpenDoesNotReachTheNextMap) {
  MapFilesWorld w;
  w.files.Pose("/maps/a.dsw", europe);
  w.carte.polygone.Device(w.canvas);
  w.carte.polygone.Point(1, 1);
  w.carte.polygone.Point(2, 2);
  ASSERT_TRUE(ChargeCarte(w.context, "/maps/a.dsw"));
  w.carte.polygone.DrawTLP();
  EXPECT_TRUE(w.canvas.Appels("Polyline").empty());
}

/// What a failure leaves behind: no message, the pointer back to normal, no last map.
void ExpectQuietFailure(const LoadedWorld& w) {
  EXPECT_FALSE(w.whole);
  EXPECT_TRUE(w.dialogues.boxes.empty());
  EXPECT_FALSE(w.vue.sablier);
  EXPECT_EQ(w.settings.values.count("TALPENA/CARTO/LASTMAP"), 0U);
}

TEST(ChargeCarte, AMissingFileEndsItWithoutAMessage) {
  MapFilesWorld w;
  EXPECT_FALSE(ChargeCarte(w.context, "/elsewhere/none.dsw"));
  EXPECT_FALSE(ChargeCarte(w.context, ""));
  EXPECT_TRUE(w.dialogues.boxes.empty());
  EXPECT_FALSE(w.vue.sablier);
}

TEST(ChargeCarte, AMissingPictureEndsItBeforeTheItems) {
  for (const char* picture : {"absent.png", "", "broken.png"}) {
    MapFilesWorld w;
    w.canvas.images["/maps/broken.png"] = {0, 0};
    w.files.Pose("/maps/a.dsw", std::string("t\ne.ps\n") + picture + "\n0 0 1 0 1");
    EXPECT_FALSE(ChargeCarte(w.context, "/maps/a.dsw"));
    EXPECT_EQ(w.carte.FichierPS, "/maps/e.ps") << "what was read stays";
    EXPECT_EQ(w.carte.FichierImage, std::string("/maps/") + picture);
    EXPECT_EQ(w.carte.Droite, 0);
    EXPECT_EQ(w.canvas.echelle.width, 800) << "the scale is that of before";
    EXPECT_EQ(w.fenetre.ajustements, 0);
    EXPECT_FALSE(w.vue.sablier);
  }
}

TEST(ChargeCarte, EqualParallelsEndItWithTheItemsRead) {
  const LoadedWorld w(Remplace(europe, "40,60", "40,40"));
  ExpectQuietFailure(w);
  EXPECT_EQ(w.carte.Parallele2, 40);
  EXPECT_EQ(w.carte.CadreEPS[0], 50);
  EXPECT_EQ(w.canvas.echelle.width, 800);
}

TEST(ChargeCarte, AnItemThatIsNoNumberEndsItThere) {
  const LoadedWorld w(Remplace(europe, "70,30", "70,x"));
  ExpectQuietFailure(w);
  EXPECT_EQ(w.carte.LatNord, 70);
  EXPECT_EQ(w.carte.LatSud, 0);
  EXPECT_EQ(w.carte.LonEst, 0);
}

TEST(ChargeCarte, ACodeOutOfRangeHasNoScale) {
  for (const char* code : {"14", "-1", "32767"}) {
    const LoadedWorld w(Remplace(europe, "\r\n1\r\n", std::string("\r\n") + code + "\r\n"));
    ExpectQuietFailure(w);
    EXPECT_EQ(w.carte.CodeProjection, std::stoi(code));
    EXPECT_EQ(w.carte.MeridienCentralDeg, 15);
    EXPECT_EQ(w.canvas.echelle.width, 800);
  }
  ExpectQuietFailure(LoadedWorld(Remplace(europe, "\r\n1\r\n", "\r\n32768\r\n")));
}

TEST(ChargeCarte, AMapWithoutExtentHasNoScale) {
  for (const char* extents : {"0 0 0 1", "0 1 5 5", "3 3 3 3"}) {
    ExpectQuietFailure(LoadedWorld(std::string("t\ne\np.png\n0\n") + extents));
  }
}

TEST(ChargeCarte, CutShortAtAnyByteItEndsWithoutAMessage) {
  for (const std::string& bytes : {europe, WithLf(europe), plan}) {
    const std::string last = bytes == plan ? "200" : "800";
    const std::size_t needed = bytes.find(last, 20) + 1;  // its first digit is a number too
    for (std::size_t length = 0; length < bytes.size(); ++length) {
      const LoadedWorld w(bytes.substr(0, length));
      EXPECT_EQ(w.whole, length >= needed) << length;
      EXPECT_TRUE(w.dialogues.boxes.empty());
      EXPECT_FALSE(w.vue.sablier);
      EXPECT_EQ(w.canvas.echelle.width != 800, w.whole);
    }
  }
}

TEST(ChargeCarte, NoiseEndsItWithoutAMessage) {
  std::uint32_t seed = 1;
  for (int round = 0; round < 200; ++round) {
    std::string bytes = "t\ne\np.png\n";
    for (int i = 0; i < 300; ++i) {
      seed = seed * 1664525 + 1013904223;
      bytes += round % 2 == 0 ? static_cast<char>(seed >> 24)
                              : std::string_view("0123456789., -\"E\n")[seed >> 28];
    }
    const LoadedWorld w(bytes);
    EXPECT_TRUE(w.dialogues.boxes.empty());
    EXPECT_FALSE(w.vue.sablier);
  }
}

TEST(OuvrirCarte, OpensTheChosenMapAndKeepsItsFolder) {
  MapFilesWorld w;
  w.Remplit({{45, 5}});
  w.files.Pose("/maps/a.dsw", europe);
  w.dialogues.paths = {"/maps/a.dsw"};
  OuvrirCarte(w.context);
  ASSERT_EQ(w.dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(w.dialogues.fileDialogs[0].filter,
            "Fichiers cartes (*.dsw)|*.dsw|Tous les fichiers (*.*)|*.*");
  EXPECT_EQ(w.dialogues.fileDialogs[0].folder, "/app/carto");
  EXPECT_EQ(w.settings.values.at("TALPENA/PATHS/CARTO"), "/maps/");
  EXPECT_EQ(w.carte.CodeProjection, 1);
  EXPECT_EQ(w.canvas.Appels("Cls").size(), 1U);
  EXPECT_EQ(w.canvas.Appels("Circle").size(), 1U);
  EXPECT_GT(w.fenetre.Compte("MontreCanevas"), 0);
  w.dialogues.paths = {"/elsewhere/none.dsw"};
  OuvrirCarte(w.context);
  EXPECT_EQ(w.dialogues.fileDialogs[1].folder, "/maps/");
  EXPECT_EQ(w.settings.values.at("TALPENA/PATHS/CARTO"), "/elsewhere/");
  EXPECT_EQ(w.canvas.Appels("Cls").size(), 2U) << "the map is drawn all the same";
}

TEST(OuvrirCarte, CancelLeavesTheMapAlone) {
  MapFilesWorld w;
  w.files.Pose("/maps/a.dsw", europe);
  ASSERT_TRUE(ChargeCarte(w.context, "/maps/a.dsw"));
  w.canvas.calls.clear();
  w.dialogues.paths = {""};
  EXPECT_THROW(OuvrirCarte(w.context), TalpenaError);
  ExpectEurope(w.carte);
  EXPECT_TRUE(w.canvas.calls.empty());
  EXPECT_EQ(w.settings.values.count("TALPENA/PATHS/CARTO"), 0U);
}

TEST(ChargeVue, ShowsTheMapOfTheLastTimeWithTheDistribution) {
  MapFilesWorld w;
  w.Remplit({{45, 5}, {46, 6}});
  w.files.Pose("/maps/a.dsw", europe);
  w.settings.values["TALPENA/CARTO/LASTMAP"] = "/maps/a.dsw";
  w.settings.values["TALPENA/CARTO/SYMBOLCOLOR"] = "65280";
  w.settings.values["TALPENA/CARTO/SYMBOLDIAMETER"] = "50000";
  w.options.Add("/maps/old.tlp");
  ChargeVue(w.context);
  EXPECT_EQ(w.carte.CodeProjection, 1);
  EXPECT_EQ(w.options.SymbolColor, 65280);
  EXPECT_EQ(w.options.SymbolDiameter, 50000);
  EXPECT_EQ(w.options.LayerCount(), 0);
  ASSERT_EQ(w.canvas.Appels("Circle").size(), 2U);
  EXPECT_EQ(w.canvas.Appels("Circle")[0].attributs.FillColor, 65280U);
  EXPECT_NE(w.carte.utm.c, 0);
  EXPECT_NE(w.carte.k6, 0);
  EXPECT_GT(w.fenetre.Compte("MontreCanevas"), 0);
}

TEST(ChargeVue, TheFirstTimeTakesTheWorld) {
  MapFilesWorld w;
  w.files.Pose("/app/carto/world.dsw", Remplace(europe, "p.png", "/maps/p.png"));
  ChargeVue(w.context);
  EXPECT_EQ(w.carte.DossierCarte, "/app/carto/");
  EXPECT_EQ(w.options.SymbolColor, 255);
  EXPECT_EQ(w.options.SymbolDiameter, -1);
  EXPECT_EQ(w.settings.values.at("TALPENA/CARTO/LASTMAP"), "/app/carto/world.dsw");
}

TEST(ChargeVue, SettingsThatAreNoNumberGiveTheDefaults) {
  for (const char* text : {"red", "", "1E99", "9999999999"}) {
    MapFilesWorld w;
    w.files.Pose("/app/carto/world.dsw", Remplace(europe, "p.png", "/maps/p.png"));
    w.settings.values["TALPENA/CARTO/SYMBOLCOLOR"] = text;
    w.settings.values["TALPENA/CARTO/SYMBOLDIAMETER"] = text;
    ChargeVue(w.context);
    EXPECT_EQ(w.options.SymbolColor, 255) << text;
    EXPECT_EQ(w.options.SymbolDiameter, -1) << text;
  }
}

TEST(ChargeVue, AsksForAMapWhenTheLastOneIsGone) {
  MapFilesWorld w;
  w.Remplit({{45, 5}});
  w.files.Pose("/maps/a.dsw", europe);
  w.dialogues.paths = {"/maps/a.dsw"};
  ChargeVue(w.context);
  EXPECT_EQ(w.carte.CodeProjection, 1);
  EXPECT_EQ(w.canvas.Appels("Circle").size(), 1U) << "drawn once";
}

TEST(ChargeVue, TheWindowIsOnTheScreenBeforeTheRows) {
  for (const bool last : {true, false}) {
    SCOPED_TRACE(last ? "the map of the last time" : "a map that is chosen");
    MapFilesWorld w;
    w.Remplit({{45, 5}, {46, 6}});
    w.files.Pose("/maps/a.dsw", europe);
    if (last) w.settings.values["TALPENA/CARTO/LASTMAP"] = "/maps/a.dsw";
    if (!last) w.dialogues.paths = {"/maps/a.dsw"};
    std::vector<std::size_t> drawn;
    w.fenetre.avantLignes = [&] { drawn.push_back(w.canvas.Appels("Circle").size()); };
    ChargeVue(w.context);
    EXPECT_EQ(drawn, std::vector<std::size_t>{0});
    EXPECT_EQ(w.canvas.Appels("Circle").size(), 2U);
  }
}

TEST(ChargeVue, SaysThatThereIsNoMapWhenNoneIsChosen) {
  MapFilesWorld w;
  w.Remplit({{45, 5}});
  w.dialogues.paths = {""};
  ChargeVue(w.context);
  EXPECT_EQ(w.Boites(),
            std::vector<std::string>{"This map is not georeferenced.\rMapping aborted"});
}

TEST(SauveVue, KeepsColourAndDiameter) {
  MapFilesWorld w;
  w.options.SymbolColor = 16711680;
  w.options.SymbolDiameter = 25000;
  SauveVue(w.context);
  EXPECT_EQ(w.settings.values.at("TALPENA/CARTO/SYMBOLCOLOR"), "16711680");
  EXPECT_EQ(w.settings.values.at("TALPENA/CARTO/SYMBOLDIAMETER"), "25000");
  EXPECT_EQ(w.settings.written.size(), 2U) << "the place is the window's";
}

}  // namespace
}  // namespace talpena
