// The colours of the grid, chosen from the menu.
#include <gtest/gtest.h>

#include <QApplication>
#include <optional>

#include "fakes/dark_palette.h"
#include "form1_machine.h"
#include "platform/qt/colours.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

using test::Form1Machine;

TEST(Form1, TakesTheColoursOfTheDialogs) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  m.dialogues.colours = {0x112233, 0x445566, std::nullopt};
  m.Entree("MnuGrille")->trigger();
  m.Entree("MnuTxtGrille")->trigger();
  EXPECT_EQ(m.state.CouleurFondGrille, 0x112233U);
  EXPECT_EQ(m.state.CouleurTexteGrille, 0x445566U);
  const QPalette colours = m.Controle<TDBGrid>("TDBGrid1")->palette();
  EXPECT_EQ(colours.color(QPalette::Base), QColor(0x33, 0x22, 0x11));
  EXPECT_EQ(colours.color(QPalette::Text), QColor(0x66, 0x55, 0x44));
  m.Entree("MnuGrille")->trigger();  // Cancel
  EXPECT_EQ(m.state.CouleurFondGrille, 0x112233U);
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(Form1, TheColourThatIsShownChosenAgainKeepsTheStoredNumber) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(test::PaletteSombre());
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  const QPalette colours = m.Controle<TDBGrid>("TDBGrid1")->palette();
  m.dialogues.colours = {EnCouleur(colours.color(QPalette::Base)),
                         EnCouleur(colours.color(QPalette::Text))};
  m.Entree("MnuGrille")->trigger();
  m.Entree("MnuTxtGrille")->trigger();
  EXPECT_EQ(m.state.CouleurFondGrille, 0xE0FFFFU);
  EXPECT_EQ(m.state.CouleurTexteGrille, 0x80000008U);
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace talpena
