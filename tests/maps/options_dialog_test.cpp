// The options dialog without its window.
#include "maps/options_dialog.h"

#include <gtest/gtest.h>
#include <optional>

#include "common/talpena_error.h"
#include "fakes/fake_machine.h"

namespace talpena {
namespace {

using test::FakeMachine;
using Strings = std::vector<std::string>;

struct DiameterCase {
  const char* text;
  std::int32_t diameter;
};

TEST(DiametreDe, ReadsWhatWasTyped) {
  for (const DiameterCase& c : {DiameterCase{"Auto", -1},
                                {"auto", -1},
                                {"AUTO", -1},
                                {"-5", -1},
                                {"-0.4", 0},
                                {"-1", -1},
                                {"0", 0},
                                {"", 0},
                                {" auto ", 0},
                                {"auto5", 0},
                                {"abc", 0},
                                {"12", 12},
                                {" 12 ", 12},
                                {"12 m", 12},
                                {"2.5", 2},
                                {"3.5", 4},
                                {"2,5", 2},
                                {"3,5", 4},
                                {"1500,7", 1501},
                                {"1E3", 1000},
                                {"2147483647", 2147483647}}) {
    EXPECT_EQ(DiametreDe(c.text), c.diameter) << '"' << c.text << '"';
  }
}

TEST(DiametreDe, RefusesWhatThirtyTwoBitsCannotHold) {
  for (const char* text : {"2147483648", "1E30", "1E999"}) {
    try {
      DiametreDe(text);
      ADD_FAILURE() << text;
    } catch (const TalpenaError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::Overflow);
    }
  }
}

class OptionsDialogTest : public ::testing::Test {
 protected:
  OptionsDialogTest() {
    carte.CodeProjection = 5;
    state.AppDir = "/app";
    options.Add("/a/coasts.tlp");
    options.Add("/a/rivers.tlp");
    options.Add("/a/lakes.tlp");
  }
  FakeMachine machine;
  SharedState state;
  MapState carte;
  MapOption options;
};

TEST_F(OptionsDialogTest, ShowsTheLayersTheDiameterAndTheColour) {
  options.SymbolDiameter = 2500;
  options.SymbolColor = 0x1080FF;
  const OptionsCarte dialogue = LitOptions(options, carte);
  EXPECT_EQ(dialogue.couches, (Strings{"/a/coasts.tlp", "/a/rivers.tlp", "/a/lakes.tlp"}));
  EXPECT_EQ(dialogue.choisie, 0);
  EXPECT_EQ(dialogue.diametre, "2500");
  EXPECT_EQ(dialogue.couleur, 0x1080FFU);
  EXPECT_TRUE(dialogue.couchesPossibles);
}

TEST_F(OptionsDialogTest, ShowsAutoForAnAutomaticDiameter) {
  EXPECT_EQ(LitOptions(options, carte).diametre, "Auto");
}

TEST_F(OptionsDialogTest, AMapOfCode0TakesNoLayers) {
  carte.CodeProjection = 0;
  EXPECT_FALSE(LitOptions(MapOption(), carte).couchesPossibles);
  EXPECT_EQ(LitOptions(MapOption(), carte).choisie, -1);
}

TEST_F(OptionsDialogTest, AddsALayerAndRemembersItsFolder) {
  OptionsCarte dialogue = LitOptions(options, carte);
  machine.dialogues.paths = {"/maps/deep/borders.tlp", "C:\\carto\\x.tlp"};
  AjouteCouche(dialogue, state, machine.io);
  EXPECT_EQ(dialogue.couches.back(), "/maps/deep/borders.tlp");
  EXPECT_EQ(dialogue.choisie, 3);
  EXPECT_EQ(machine.dialogues.fileDialogs[0].filter,
            "Fichiers TLP (*.tlp)|*.tlp|Tous les fichiers (*.*)|*.*");
  EXPECT_EQ(machine.dialogues.fileDialogs[0].folder, "/app");
  EXPECT_EQ(machine.settings.values.at("TALPENA/PATHS/TLPCARTO"), "/maps/deep/");
  AjouteCouche(dialogue, state, machine.io);
  EXPECT_EQ(machine.dialogues.fileDialogs[1].folder, "/maps/deep/");
  EXPECT_EQ(machine.settings.values.at("TALPENA/PATHS/TLPCARTO"), "C:\\carto\\");
  EXPECT_EQ(options.LayerCount(), 3);
}

TEST_F(OptionsDialogTest, ACancelledFileDialogChangesNothing) {
  OptionsCarte dialogue = LitOptions(options, carte);
  machine.dialogues.paths = {""};
  EXPECT_THROW(AjouteCouche(dialogue, state, machine.io), TalpenaError);
  EXPECT_EQ(dialogue.couches.size(), 3U);
  EXPECT_TRUE(machine.settings.written.empty());
}

TEST_F(OptionsDialogTest, RemovesTheSelectedLayer) {
  OptionsCarte dialogue = LitOptions(options, carte);
  dialogue.choisie = 1;
  RetireCouche(dialogue);
  EXPECT_EQ(dialogue.couches, (Strings{"/a/coasts.tlp", "/a/lakes.tlp"}));
  EXPECT_EQ(dialogue.choisie, 1);
  RetireCouche(dialogue);
  EXPECT_EQ(dialogue.choisie, 0);
  RetireCouche(dialogue);
  EXPECT_EQ(dialogue.choisie, -1);
  RetireCouche(dialogue);
  EXPECT_TRUE(dialogue.couches.empty());
}

TEST_F(OptionsDialogTest, MovesTheSelectedLayerByOnePlaceAndNotBeyondTheEnds) {
  OptionsCarte dialogue = LitOptions(options, carte);
  DeplaceCouche(dialogue, 0);
  EXPECT_EQ(dialogue.choisie, 0);
  DeplaceCouche(dialogue, 1);
  EXPECT_EQ(dialogue.couches, (Strings{"/a/rivers.tlp", "/a/coasts.tlp", "/a/lakes.tlp"}));
  EXPECT_EQ(dialogue.choisie, 1);
  DeplaceCouche(dialogue, 1);
  DeplaceCouche(dialogue, 1);
  EXPECT_EQ(dialogue.couches, (Strings{"/a/rivers.tlp", "/a/lakes.tlp", "/a/coasts.tlp"}));
  DeplaceCouche(dialogue, 0);
  EXPECT_EQ(dialogue.couches, (Strings{"/a/rivers.tlp", "/a/coasts.tlp", "/a/lakes.tlp"}));
  dialogue.choisie = -1;
  DeplaceCouche(dialogue, 1);
  EXPECT_EQ(dialogue.choisie, -1);
}

TEST_F(OptionsDialogTest, TakesTheColourOfTheColourDialog) {
  OptionsCarte dialogue = LitOptions(options, carte);
  machine.dialogues.colours = {0x00FF00, std::nullopt};
  ChoisitCouleurSymbole(dialogue, machine.io);
  EXPECT_EQ(dialogue.couleur, 0x00FF00U);
  EXPECT_THROW(ChoisitCouleurSymbole(dialogue, machine.io), TalpenaError);
  EXPECT_EQ(dialogue.couleur, 0x00FF00U);
}

TEST_F(OptionsDialogTest, OkHandsTheChoicesToTheMap) {
  OptionsCarte dialogue = LitOptions(options, carte);
  dialogue.couches = {"/b/one.tlp", "/b/two.tlp"};
  dialogue.diametre = "1500,5";
  dialogue.couleur = 0xABCDEF;
  options.Cancel = -1;
  ValideOptions(dialogue, options);
  EXPECT_EQ(options.LayerCount(), 2);
  EXPECT_EQ(options.Couche(1), "/b/one.tlp");
  EXPECT_EQ(options.Couche(2), "/b/two.tlp");
  EXPECT_EQ(options.SymbolDiameter, 1500);
  EXPECT_EQ(options.SymbolColor, 0xABCDEF);
  EXPECT_EQ(options.Cancel, 0);
}

TEST_F(OptionsDialogTest, ADiameterThatIsRefusedLeavesTheOptionsAsTheyWere) {
  OptionsCarte dialogue = LitOptions(options, carte);
  dialogue.couches.clear();
  dialogue.couleur = 1;
  dialogue.diametre = "1E30";
  EXPECT_THROW(ValideOptions(dialogue, options), TalpenaError);
  EXPECT_EQ(options.LayerCount(), 3);
  EXPECT_EQ(options.SymbolColor, 255);
  EXPECT_EQ(options.SymbolDiameter, -1);
}

TEST_F(OptionsDialogTest, CancelSaysSoAndChangesNothingElse) {
  AnnuleOptions(options);
  EXPECT_EQ(options.Cancel, -1);
  EXPECT_EQ(options.LayerCount(), 3);
  EXPECT_EQ(options.SymbolDiameter, -1);
  EXPECT_EQ(options.SymbolColor, 255);
}

}  // namespace
}  // namespace talpena
