// The wiring of frmFonts.
#include "gazetteer/windows/frm_fonts.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <memory>
#include <optional>
#include <string>

#include "gazetteer/setup_world.h"

namespace talpena {
namespace {

struct FrmFonts : testing::Test, test::SetupWorld {
  GazetteerState gazetteer;
  std::unique_ptr<frmFonts> form;

  void Ouvre() { form = std::make_unique<frmFonts>(state, io, gazetteer); }
  QString Montre(const char* label) const {
    return form->findChild<QLabel*>(QLatin1String(label))->text();
  }
  void Clique(const char* button) const {
    form->findChild<QPushButton*>(QLatin1String(button))->click();
  }
};

TEST_F(FrmFonts, ShowsTheRegionsAndTheTable) {
  settings.Ecrit("TALPENA", "Polices", "Name6", "Vietnamese Sans");
  settings.Ecrit("TALPENA", "Polices", "Size6", "14");
  Ouvre();
  EXPECT_EQ(Montre("lblRegion_0"), "1. Western Europe and the Americas");
  EXPECT_EQ(Montre("lblRegion_5"), "6. Vietnam");
  EXPECT_EQ(Montre("lblFont_0"), "Courier New");
  EXPECT_EQ(Montre("lblSize_0"), "10");
  EXPECT_EQ(Montre("lblFont_5"), "Vietnamese Sans");
  EXPECT_EQ(Montre("lblSize_5"), "14");
}

TEST_F(FrmFonts, AFontThatTheComputerLacksIsKeptAndItsSubstituteNamed) {
  settings.Ecrit("TALPENA", "Polices", "Name6", "No Such Font At All");
  Ouvre();
  EXPECT_TRUE(Montre("lblSubstitut_5").startsWith("not on this computer: shown in "));
  Clique("cmdFont_0");
  EXPECT_EQ(settings.Lit("TALPENA", "Polices", "Name6", ""), "No Such Font At All");
}

TEST_F(FrmFonts, OkKeepsAllSix) {
  Ouvre();
  Clique("cmdFont_0");
  for (int i = 1; i <= 6; ++i) {
    const std::string number = std::to_string(i);
    EXPECT_EQ(settings.Lit("TALPENA", "Polices", "Name" + number, "none"), "Courier New");
    EXPECT_EQ(settings.Lit("TALPENA", "Polices", "Size" + number, "none"), "10");
  }
}

TEST_F(FrmFonts, TheFontDialogBeginsAtTheEntryAndGivesAnother) {
  settings.Ecrit("TALPENA", "Polices", "Name2", "Serif");
  settings.Ecrit("TALPENA", "Polices", "Size2", "12");
  Ouvre();
  dialogues.polices = {Font{.family = "Sans", .sizePoints = 14.4}};
  Clique("cmdOpen_1");
  EXPECT_EQ(dialogues.policesVues[0].family, "Serif");
  EXPECT_EQ(dialogues.policesVues[0].sizePoints, 12);
  EXPECT_EQ(Montre("lblFont_1"), "Sans");
  EXPECT_EQ(Montre("lblSize_1"), "14");
  EXPECT_EQ(Montre("lblFont_0"), "Courier New") << "the others stay";
  EXPECT_EQ(settings.Lit("TALPENA", "Polices", "Name2", ""), "Serif") << "until Ok";
  Clique("cmdFont_0");
  EXPECT_EQ(settings.Lit("TALPENA", "Polices", "Name2", ""), "Sans");
  EXPECT_EQ(gazetteer.Polices[1].Nom, "Sans") << "the table that names are shown by";
}

TEST_F(FrmFonts, CancelInTheFontDialogLeavesTheEntryInSilence) {
  Ouvre();
  dialogues.polices = {std::nullopt};
  Clique("cmdOpen_1");
  EXPECT_EQ(Montre("lblFont_1"), "Courier New");
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(FrmFonts, CancelKeepsNothing) {
  Ouvre();
  Clique("cmdFont_1");
  EXPECT_TRUE(settings.written.empty());
}

}  // namespace
}  // namespace talpena
