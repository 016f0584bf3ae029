// The record form by its keys: from row to row, saving, leaving.
#include "store/windows/edit_form.h"

#include "common/msg_id.h"
#include "common/string_table.h"
#include "fakes/dialog_driver.h"
#include "store/windows/edit_form_machine.h"

namespace talpena::test {
namespace {

struct KeyCase {
  const char* name;
  int key;
  Qt::KeyboardModifiers modifiers;
  const char* position;  ///< from row 2 of 3
};

TEST(EditForm, KeysGoFromRowToRow) {
  const KeyCase cases[] = {{"Page Down", Qt::Key_PageDown, {}, "3/3"},
                           {"Page Up", Qt::Key_PageUp, {}, "1/3"},
                           {"Ctrl+Down", Qt::Key_Down, Qt::ControlModifier, "3/3"},
                           {"Ctrl+Up", Qt::Key_Up, Qt::ControlModifier, "1/3"},
                           {"Ctrl+N", Qt::Key_N, Qt::ControlModifier, "4/4"},
                           {"Ctrl+D", Qt::Key_D, Qt::ControlModifier, "4/4"}};
  // From each kind of field: none of them keeps these keys to itself.
  for (const char* from : {"ChampCh1", "ChampAnnee", "cmbSystem", "Grid", "ChampLibre", "ButNew"}) {
    for (const KeyCase& c : cases) {
      SCOPED_TRACE(std::string(c.name) + " in " + from);
      FormMachine m;
      m.state.document.Data1.recordset().MoveNext();
      m.Ouvre();
      m.PlaceFocus(from);
      FormMachine::Touche(c.key, c.modifiers);
      EXPECT_EQ(m.Libelle("lblCpt"), c.position);
      EXPECT_NE(m.form->windowTitle().indexOf(QLatin1String(c.position)), -1);
    }
  }
}

TEST(EditForm, TheNextRowKeepsTheFieldAndSelectsIt) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("ChampCh1");
  m.state.document.WorkingDb->Execute("UPDATE TALPENA SET N1 = 77 WHERE Counter = 2");
  FormMachine::Touche(Qt::Key_PageDown);
  EXPECT_EQ(FormMachine::Focus(), "ChampCh1");
  EXPECT_EQ(m.Champ("ChampCh1")->selectedText(), "77");
  EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
}

struct BeginCase {
  const char* begun;
  const char* typed;
  const char* system;  ///< ORIGINAL of the row that comes next
  const char* focus;   ///< there
};

TEST(EditForm, TheNextRowGetsTheKeysWhereTheLastOneWasBegun) {
  constexpr BeginCase cases[] = {{"ChampPeriode", "2", "mgr 31 U FR1664", "ChampPeriode"},
                                 {"EditBox_2", "FS1234", "mgr 31 U FR1664", "EditBox_0"},
                                 {"EditBox_0", "31", "ifb G336", "EditBox_2"},
                                 {"EditBox_2", "FS1234", "deg +50.1 +4.2", "EditBox_1"},
                                 {"ChampCh1", "7", "mgr 31 U FR1664", "ChampCh1"},
                                 {"Grid", "Wood", "mgr 31 U FR1664", "Grid"}};
  for (const auto& [begun, typed, system, focus] : cases) {
    for (const int key : {Qt::Key_PageDown, Qt::Key_PageUp}) {
      SCOPED_TRACE(std::string(begun) + ", then " + system);
      FormMachine m({Rangee(system), Rangee(), Rangee(system)});
      m.state.document.Data1.recordset().MoveNext();
      m.Ouvre();
      m.PlaceFocus(begun);
      FormMachine::Tape(typed);
      m.PlaceFocus("ChampCh2");
      FormMachine::Tape("3");
      m.PlaceFocus("ChampLibre");
      FormMachine::Tape("end of the record");
      FormMachine::Touche(key);
      EXPECT_EQ(FormMachine::Focus(), focus);
    }
  }
}

TEST(EditForm, TheNextRowGetsTheKeysInTheFreeFieldInWhichTheLastOneWasBegun) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("Grid");
  for (const char* text : {"Wood", "Smith"}) {
    FormMachine::Tape(text);
    FormMachine::Touche(Qt::Key_Tab);
  }
  EXPECT_EQ(FormMachine::Focus(), "ChampLibre");
  FormMachine::Touche(Qt::Key_PageDown);
  EXPECT_EQ(FormMachine::Focus(), "Grid");
  EXPECT_EQ(m.Controle<FreeFieldsGrid>("Grid")->currentIndex().row(), 0);
}

TEST(EditForm, TheNextRowNeverHasTheKeysInItsRemark) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("ChampLibre");
  FormMachine::Touche(Qt::Key_PageDown);
  EXPECT_EQ(FormMachine::Focus(), "ChampPeriode") << "only looked at";
  m.PlaceFocus("ChampLibre");
  FormMachine::Tape("one");
  FormMachine::Touche(Qt::Key_PageDown);
  EXPECT_EQ(FormMachine::Focus(), "ChampPeriode") << "nothing but a remark";
  EXPECT_EQ(m.Commentaires()[1], "a/b/oneremark");
}

TEST(EditForm, ARowThatCannotBeSavedKeepsTheKeysInTheWrongField) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("ChampCh1");
  FormMachine::Tape("7");
  m.PlaceFocus("ChampPeriode");
  FormMachine::Tape("9");
  FormMachine::Touche(Qt::Key_PageDown);
  EXPECT_EQ(m.Libelle("lblCpt"), "1/3");
  EXPECT_EQ(FormMachine::Focus(), "ChampPeriode");
  EXPECT_EQ(m.Boites(), Lines{"Period must be comprise between 1 and 3"});
}

TEST(EditForm, ATypedBoxIsComputedBeforeTheNextRowIsShown) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("EditBox_2");
  FormMachine::Tape("FS1234");
  FormMachine::Touche(Qt::Key_PageDown);
  EXPECT_EQ(m.Libelle("lblCpt"), "2/3");
  EXPECT_TRUE(m.dialogues.boxes.empty());
  EXPECT_TRUE(m.Points()[0].starts_with("50.8")) << m.Points()[0];
  EXPECT_EQ(m.Points()[1], "50.3 3.9");
  FormMachine::Touche(Qt::Key_Tab);
  EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
}

TEST(EditForm, TheButtonsDoAsTheirKeys) {
  FormMachine m;
  m.Ouvre();
  m.Bouton("cmdNavig_0")->click();
  EXPECT_EQ(m.Libelle("lblCpt"), "2/3");
  m.Bouton("cmdNavig_1")->click();
  EXPECT_EQ(m.Libelle("lblCpt"), "1/3");
  m.Bouton("ButDupl")->click();
  EXPECT_EQ(m.Libelle("lblCpt"), "4/4");
  EXPECT_EQ(m.Texte("ChampCh2"), "6");
  m.Bouton("ButNew")->click();
  EXPECT_EQ(m.Libelle("lblCpt"), "5/5");
  EXPECT_EQ(m.Texte("ChampCh2"), "");
  EXPECT_TRUE(m.state.document.FichierModifie());
  m.PlaceFocus("cmdNavig_1");
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(m.Libelle("lblCpt"), "4/5");
}

TEST(EditForm, TellsTheKeysInTheToolTips) {
  FormMachine m;
  m.Ouvre();
  const std::pair<const char*, const char*> tips[] = {
      {"ButOk", "Ok (Ctrl+S, Ctrl+Return, Ctrl+Enter)"},
      {"ButNew", "New (Ctrl+N)"},
      {"ButDupl", "Duplicate (Ctrl+D)"},
      {"cmdNavig_0", "Next (PgDown, Ctrl+Down)"},
      {"cmdNavig_1", "Previous (PgUp, Ctrl+Up)"},
      {"cmdChangeDatum", "Change... (F4)"},
      {"cmdSearch", "Takes coordinates and name of a place from the gazetteer. (F3)"},
      {"ButEsc", "Close (Esc)"}};
  for (const auto& [name, tip] : tips) EXPECT_EQ(m.Bouton(name)->toolTip().toStdString(), tip);
}

TEST(EditForm, SavesByTheKeysAndWaitsForTheNextChange) {
  for (const int key : {static_cast<int>(Qt::Key_S), static_cast<int>(Qt::Key_Return),
                        static_cast<int>(Qt::Key_Enter)}) {
    FormMachine m;
    m.Ouvre();
    FormMachine::Tape("3");
    FormMachine::Touche(key, Qt::ControlModifier);
    EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
    EXPECT_FALSE(m.form->isWindowModified());
    EXPECT_TRUE(m.state.document.FichierModifie());
    EXPECT_TRUE(m.Lignes()[0].starts_with("3|")) << m.Lignes()[0];
    EXPECT_EQ(FormMachine::Focus(), "ChampPeriode");
    FormMachine::Tape("2");
    EXPECT_TRUE(m.Bouton("ButOk")->isEnabled());
  }
}

TEST(EditForm, TheRemarkTakesEnterAndIsLeftByCtrlEnterAndByTab) {
  FormMachine m({Rangee("mgr 31 U FR1664", "a/b/")});
  m.Ouvre();
  m.PlaceFocus("ChampLibre");
  FormMachine::Tape("one");
  FormMachine::Touche(Qt::Key_Return);
  FormMachine::Tape("two");
  EXPECT_EQ(FormMachine::Focus(), "ChampLibre");
  FormMachine::Touche(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(FormMachine::Focus(), "ButNew");
  EXPECT_EQ(m.Commentaires(), Lines{"a/b/one\ntwo"});
  m.PlaceFocus("ChampLibre");
  FormMachine::Touche(Qt::Key_Tab);
  EXPECT_EQ(FormMachine::Focus(), "ButNew");
}

TEST(EditForm, TheRemarkKeepsEveryCharacter) {
  FormMachine m({Rangee("mgr 31 U FR1664", "a/b/10\u00A0km\nx")});
  m.Ouvre();
  m.PlaceFocus("ChampLibre");
  FormMachine::Touche(Qt::Key_End, Qt::ControlModifier);
  FormMachine::Tape("y");
  FormMachine::Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(m.Commentaires(), Lines{"a/b/10\u00A0km\nxy"});
}

TEST(EditForm, EscapeClosesAnUnchangedFormWithoutAQuestion) {
  for (const char* from :
       {"ChampPeriode", "ChampAnnee", "cmbSystem", "EditBox_2", "Grid", "ChampLibre", "ButNew"}) {
    SCOPED_TRACE(from);
    FormMachine m;
    m.Ouvre();
    m.PlaceFocus(from);
    FormMachine::Touche(Qt::Key_Escape);
    EXPECT_FALSE(m.form->isVisible());
    EXPECT_TRUE(m.dialogues.boxes.empty());
  }
}

TEST(EditForm, TheCloseBoxAsksAndStaysOnCancel) {
  FormMachine m;
  m.Ouvre();
  FormMachine::Tape("2");
  m.dialogues.answers = {Answer::Cancel, Answer::Yes};
  EXPECT_FALSE(m.form->close());
  EXPECT_TRUE(m.form->isVisible());
  EXPECT_TRUE(m.Lignes()[0].starts_with("1|"));
  EXPECT_TRUE(m.form->close());
  EXPECT_TRUE(m.Lignes()[0].starts_with("2|"));
  EXPECT_EQ(m.Boites(), (Lines{"Save before closing?", "Save before closing?"}));
}

TEST(EditForm, ClosingWithNoDropsWhatWasTyped) {
  FormMachine m;
  m.Ouvre();
  FormMachine::Tape("2");
  m.dialogues.answers = {Answer::No};
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_FALSE(m.form->isVisible());
  EXPECT_TRUE(m.Lignes()[0].starts_with("1|"));
  EXPECT_FALSE(m.state.document.FichierModifie());
}

TEST(EditForm, ARefusedSaveStaysOpen) {
  FormMachine m;
  m.Ouvre();
  FormMachine::Tape("9");
  m.dialogues.answers = {Answer::Yes};
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_TRUE(m.form->isVisible());
  EXPECT_EQ(FormMachine::Focus(), "ChampPeriode");
  EXPECT_EQ(m.Boites(), (Lines{"Save before closing?", "Period must be comprise between 1 and 3"}));
}

}  // namespace
}  // namespace talpena::test
