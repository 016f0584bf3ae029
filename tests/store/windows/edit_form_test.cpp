// The record editor: its controls show the row and pass on what is typed.
#include "store/windows/edit_form.h"

#include <QAccessible>
#include <QClipboard>
#include <QScrollArea>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "fakes/dialog_driver.h"
#include "store/windows/edit_form_machine.h"

namespace talpena::test {
namespace {

using Lines = std::vector<std::string>;

TEST(EditForm, ShowsTheRow) {
  FormMachine m;
  m.state.WorkingDb->Execute("UPDATE TALPENA SET DATE = '1998/07/  '");
  m.Ouvre();
  EXPECT_EQ(m.Texte("ChampPeriode"), "1");
  EXPECT_EQ(m.Texte("ChampLatitude"), "+50.3");
  EXPECT_EQ(m.Texte("ChampLongitude"), "+3.9");
  EXPECT_EQ(m.Texte("ChampCh1"), "5");
  EXPECT_EQ(m.Texte("ChampCh2"), "6");
  EXPECT_EQ(m.Texte("ChampSex"), "F");
  EXPECT_EQ(m.Controle<DateEdit>("ChampAnnee")->Masque(), "1998/07/__");
  EXPECT_EQ(m.Texte("EditBox_0"), "31");
  EXPECT_EQ(m.Texte("EditBox_1"), "U");
  EXPECT_EQ(m.Texte("EditBox_2"), "FR1664");
  EXPECT_EQ(m.Controle<QComboBox>("cmbSystem")->currentIndex(), 3);
  EXPECT_EQ(m.Libelle("lblSysteme"), "mgr");
  EXPECT_EQ(m.Libelle("lblDatum"), "WGS84");
  EXPECT_EQ(m.Controle<FreeFieldsGrid>("Grid")->Textes(), (Lines{"a", "b"}));
  EXPECT_EQ(m.Controle<QPlainTextEdit>("ChampLibre")->toPlainText(), "remark");
  EXPECT_EQ(m.Libelle("lblCpt"), "1/3");
  EXPECT_EQ(m.form->windowTitle(), "Coordinates edition - 1/3[*]");
  EXPECT_TRUE(m.Libelle("ValeurDMS").starts_with("50° 18'"));
  EXPECT_TRUE(m.Libelle("ValeurUtmAlpha").starts_with("31 U "));
  EXPECT_TRUE(m.Libelle("ValeurUtmMetrique").starts_with("E="));
  EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
  EXPECT_FALSE(m.form->isWindowModified());
  EXPECT_EQ(FormMachine::Focus(), "ChampPeriode");
  EXPECT_FALSE(m.Bouton("cmdSearch")->isEnabled());
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(EditForm, HasTheCaptions) {
  FormMachine m;
  m.state.LabelNumeric1 = "Males & young";
  m.Ouvre();
  const auto caption = [&](const char* name) {
    QLabel* label = m.Controle<QLabel>(name);
    return SansMnemonique(label->text().toStdString());
  };
  EXPECT_EQ(caption("LabelPeriode"), "Period:");
  EXPECT_EQ(caption("LabelLatitude"), "Latitude:");
  EXPECT_EQ(caption("LabelLongitude"), "Longitude:");
  EXPECT_EQ(caption("LabelDate"), "Date:");
  EXPECT_EQ(caption("LabelOriginales"), "Original coordinates");
  EXPECT_EQ(caption("LabelControle"), "Control");
  EXPECT_EQ(caption("LabelLibre"), "Free text:");
  EXPECT_EQ(caption("LabelCh1"), "Males & young:");
  EXPECT_EQ(caption("LabelCh2"), "Number 2:");
  EXPECT_EQ(caption("LabelBox_0"), "Fuse (31)");
  EXPECT_EQ(caption("LabelBox_1"), "Zone (U)");
  EXPECT_EQ(caption("LabelBox_2"), "Letter+Easting+Northing (FR1664)");
  EXPECT_EQ(m.Champ("ChampCh1")->accessibleName(), "Males & young");
  EXPECT_EQ(m.Controle<QComboBox>("cmbSystem")->count(), 16);
  EXPECT_EQ(m.Controle<QComboBox>("cmbSystem")->itemText(8), "IFBL (Belgium)");
}

TEST(EditForm, ALongCaptionOfTheUserDoesNotStretchTheForm) {
  FormMachine m;
  m.state.LabelNumeric2 = std::string(400, 'w');
  m.Ouvre();
  EXPECT_LE(m.form->minimumSizeHint().width(), 1024);
  EXPECT_EQ(m.Controle<QLabel>("LabelCh2")->toolTip().size(), 400);
}

TEST(EditForm, TabFollowsALabelFromTopToBottom) {
  FormMachine m;
  m.Ouvre();
  Lines order;
  for (int i = 0; i < 19; ++i) {
    order.push_back(FormMachine::Focus());
    FormMachine::Touche(Qt::Key_Tab);
  }
  EXPECT_EQ(order, (Lines{"ChampPeriode", "ChampAnnee", "cmbSystem", "EditBox_0", "EditBox_1",
                          "EditBox_2", "cmdChangeDatum", "ChampLatitude", "ChampLongitude",
                          "ChampCh1", "ChampCh2", "ChampSex", "Grid", "ChampLibre", "ButNew",
                          "ButDupl", "ButEsc", "cmdNavig_1", "cmdNavig_0"}));
  EXPECT_EQ(FormMachine::Focus(), "ChampPeriode");
}

TEST(EditForm, EnterGoesFromFieldToFieldOverAComputedPoint) {
  FormMachine m;
  m.Ouvre();
  Lines order;
  for (int i = 0; i < 9; ++i) {
    order.push_back(FormMachine::Focus());
    FormMachine::Touche(Qt::Key_Return);
  }
  EXPECT_EQ(order, (Lines{"ChampPeriode", "ChampAnnee", "cmbSystem", "EditBox_0", "EditBox_1",
                          "EditBox_2", "ChampCh1", "ChampCh2", "ChampSex"}));
  EXPECT_EQ(FormMachine::Focus(), "Grid");
  m.PlaceFocus("ChampCh1");
  FormMachine::Touche(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(FormMachine::Focus(), "EditBox_2");
  EXPECT_FALSE(m.form->isWindowModified());
}

TEST(EditForm, EnterStopsAtAPointThatIsTyped) {
  FormMachine m({Rangee("")});
  m.Ouvre();
  m.PlaceFocus("EditBox_2");
  FormMachine::Touche(Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(FormMachine::Focus(), "ChampLatitude");
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(FormMachine::Focus(), "ChampLongitude");
}

TEST(EditForm, TypingReplacesTheFieldThatTheKeysCameTo) {
  FormMachine m;
  m.Ouvre();
  FormMachine::Touche(Qt::Key_Tab);
  FormMachine::Touche(Qt::Key_Backtab, Qt::ShiftModifier);
  FormMachine::Tape("2");
  EXPECT_EQ(m.Texte("ChampPeriode"), "2");
  EXPECT_TRUE(m.Bouton("ButOk")->isEnabled());
  EXPECT_TRUE(m.form->isWindowModified());
}

TEST(EditForm, EveryFieldCountsAsChangedWhenTheUserChangesIt) {
  for (const char* name :
       {"ChampPeriode", "ChampLatitude", "ChampLongitude", "ChampCh1", "ChampCh2", "ChampSex",
        "ChampAnnee", "EditBox_0", "EditBox_1", "EditBox_2", "ChampLibre"}) {
    SCOPED_TRACE(name);
    FormMachine m;
    m.Ouvre();
    m.PlaceFocus(name);
    EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
    FormMachine::Tape("1");
    EXPECT_TRUE(m.Bouton("ButOk")->isEnabled());
  }
}

TEST(EditForm, LeavingABoxComputesThePointAndShowsItInTheControls) {
  FormMachine m;
  m.Ouvre();
  m.Entre("EditBox_2", "fs1234");
  EXPECT_EQ(m.Texte("EditBox_2"), "FS1234");
  EXPECT_EQ(m.Libelle("ValeurUtmAlpha"), "31 U FS1249934499");
  EXPECT_EQ(m.Libelle("ValeurUtmMetrique"), "E=612499   N=5634499");
  EXPECT_TRUE(m.Texte("ChampLatitude").starts_with("+50.8"));
  EXPECT_EQ(FormMachine::Focus(), "ChampCh1");
}

TEST(EditForm, ABoxThatWasNotTypedInLeavesThePointAlone) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("EditBox_2");
  FormMachine::Touche(Qt::Key_Tab);
  EXPECT_EQ(m.Texte("ChampLatitude"), "+50.3");
  EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
}

TEST(EditForm, AnotherWindowIsNoEndOfAnEntry) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("EditBox_2");
  FormMachine::Tape("fs1");
  QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(m.Champ("EditBox_2"), &away);
  FormMachine::Traite();
  EXPECT_TRUE(m.dialogues.boxes.empty());
  EXPECT_EQ(m.Texte("EditBox_2"), "fs1");
}

TEST(EditForm, OddDigitsSendTheUserBackToTheBox) {
  FormMachine m;
  m.Ouvre();
  m.Entre("EditBox_2", "FR123");
  ASSERT_EQ(m.Boites(), Lines{"Invalid UTM"});
  EXPECT_EQ(FormMachine::Focus(), "EditBox_2");
  EXPECT_EQ(m.Champ("EditBox_2")->selectedText(), "FR123");
}

TEST(EditForm, AReferenceThatNamesNoPointIsToldUnderTheBoxes) {
  FormMachine m;
  m.Ouvre();
  const int before = m.Controle<QWidget>("ChampCh1")->y();
  m.Entre("EditBox_0", "99");
  EXPECT_FALSE(m.Libelle("lblAvis_1").empty());
  EXPECT_EQ(m.Libelle("lblAvis_0"), "");
  EXPECT_EQ(m.Controle<QWidget>("ChampCh1")->y(), before);
  EXPECT_EQ(m.Champ("EditBox_0")->accessibleDescription().toStdString(), m.Libelle("lblAvis_1"));
  m.Entre("EditBox_0", "31");
  EXPECT_EQ(m.Libelle("lblAvis_1"), "");
  EXPECT_EQ(m.Champ("EditBox_0")->accessibleDescription(), "");
}

TEST(EditForm, AFaultIsToldWhenItsFieldIsLeftAndGoesWhenItIsPutRight) {
  FormMachine m;
  m.Ouvre();
  FormMachine::Tape("7");
  EXPECT_EQ(m.Libelle("lblAvis_0"), "");
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(m.Libelle("lblAvis_0"), "Period must be comprise between 1 and 3");
  EXPECT_EQ(m.Champ("ChampPeriode")->accessibleDescription(),
            "Period must be comprise between 1 and 3");
  m.PlaceFocus("ChampPeriode");
  FormMachine::Tape("2");
  EXPECT_EQ(m.Libelle("lblAvis_0"), "");
  EXPECT_EQ(m.Champ("ChampPeriode")->accessibleDescription(), "");
}

TEST(EditForm, WhatIsOddIsToldThoughItMayBeSaved) {
  FormMachine m;
  m.state.WorkingDb->Execute("UPDATE TALPENA SET DATE = 'summer 98' WHERE Counter = 2");
  m.Ouvre();
  m.Entre("ChampCh1", "abc");
  EXPECT_EQ(m.Libelle("lblAvis_2"), "“abc” is not a number: it counts as 0.");
  m.Entre("ChampCh1", "3");
  EXPECT_EQ(m.Libelle("lblAvis_2"), "");
  m.PlaceFocus("Grid");
  FormMachine::Tape("3/4");
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_TRUE(m.Libelle("lblAvis_2").starts_with("/ separates the free fields"));
  FormMachine::Touche(Qt::Key_Up);
  FormMachine::Tape("3-4");
  FormMachine::Touche(Qt::Key_PageDown);
  EXPECT_EQ(m.Libelle("lblAvis_2"), "");
  EXPECT_TRUE(m.Libelle("lblAvis_0").starts_with("The date of this row, “summer 98”"));
}

TEST(EditForm, AnEmptyNewRowIsNotToldOfItsFaultsAtOnce) {
  FormMachine m;
  m.Ouvre();
  FormMachine::Touche(Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(m.Libelle("lblCpt"), "4/4");
  EXPECT_EQ(m.Libelle("lblAvis_0"), "");
  EXPECT_EQ(FormMachine::Focus(), "ChampPeriode");
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(m.Libelle("lblAvis_0"), "Period must be comprise between 1 and 3");
}

TEST(EditForm, ARefusedCheckBringsTheFocusToTheFieldAndSelectsItsText) {
  FormMachine m;
  m.Ouvre();
  FormMachine::Tape("9");
  m.PlaceFocus("ChampSex");
  FormMachine::Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(m.Boites(), Lines{"Period must be comprise between 1 and 3"});
  EXPECT_EQ(FormMachine::Focus(), "ChampPeriode");
  EXPECT_EQ(m.Champ("ChampPeriode")->selectedText(), "9");
  EXPECT_TRUE(m.Bouton("ButOk")->isEnabled());
}

TEST(EditForm, LatitudeAndLongitudeTypedByHandMoveTheControls) {
  FormMachine m;
  m.Ouvre();
  m.Entre("ChampLatitude", "51,5");
  EXPECT_EQ(m.Texte("ChampLatitude"), "+51.5");
  EXPECT_TRUE(m.Libelle("ValeurDMS").starts_with("51° 30'")) << m.Libelle("ValeurDMS");
}

TEST(EditForm, ChangesTheSystemByTheKeyboard) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("cmbSystem");
  FormMachine::Tape("IFBL");
  EXPECT_EQ(m.Controle<QComboBox>("cmbSystem")->currentIndex(), 8);
  EXPECT_EQ(m.Libelle("lblSysteme"), "ifb");
  EXPECT_EQ(m.Libelle("lblDatum"), "BEL72");
  EXPECT_FALSE(m.Bouton("cmdChangeDatum")->isEnabled());
  EXPECT_FALSE(m.Champ("EditBox_0")->isVisible());
  EXPECT_FALSE(m.Champ("EditBox_1")->isVisible());
  EXPECT_TRUE(m.Champ("EditBox_2")->isVisible());
  EXPECT_TRUE(m.Controle<QLabel>("ValeurLibre")->isVisible());
  EXPECT_EQ(m.state.InputMode, 8);
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(FormMachine::Focus(), "EditBox_2");
}

TEST(EditForm, EverySystemShowsItsBoxes) {
  FormMachine m;
  m.Ouvre();
  for (int system = 0; system < 16; ++system) {
    SCOPED_TRACE(system);
    auto* list = m.Controle<QComboBox>("cmbSystem");
    list->setCurrentIndex(system);
    Q_EMIT list->activated(system);
    FormMachine::Traite();
    EXPECT_EQ(m.Champ("EditBox_0")->isVisible(), system == 2 || system == 3);
    EXPECT_EQ(m.Champ("EditBox_1")->isVisible(), system != 8);
    EXPECT_TRUE(m.Champ("EditBox_2")->isVisible());
    EXPECT_FALSE(m.Libelle("LabelBox_2").empty());
    EXPECT_EQ(m.Bouton("cmdChangeDatum")->isEnabled(), system < 4);
    const auto* heading = m.Controle<QLabel>("LabelOriginales");
    EXPECT_TRUE(heading->buddy()->isVisible());
  }
}

TEST(EditForm, AWheelOverTheSystemsChangesNothing) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("cmbSystem");
  auto* list = m.Controle<QComboBox>("cmbSystem");
  QWheelEvent wheel(QPointF(5, 5), list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(list, &wheel);
  EXPECT_EQ(list->currentIndex(), 3);
}

TEST(EditForm, F4ChangesTheDatum) {
  FormMachine m;
  m.Ouvre();
  const std::string before = m.Texte("ChampLatitude");
  {
    const DialogDriver driver("frmDatum", [](QDialog& dialog) {
      QTest::keyClicks(dialog.findChild<QWidget*>("ListView1"), "EUR-M");
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    FormMachine::Touche(Qt::Key_F4);
  }
  EXPECT_EQ(m.Libelle("lblDatum"), "EUR-M");
  EXPECT_NE(m.Texte("ChampLatitude"), before);
  EXPECT_TRUE(m.Bouton("ButOk")->isEnabled());
}

TEST(EditForm, ACancelledChooserLeavesTheDatum) {
  FormMachine m;
  m.Ouvre();
  {
    const DialogDriver driver("frmDatum", [](QDialog& dialog) { dialog.reject(); });
    m.Bouton("cmdChangeDatum")->click();
  }
  EXPECT_EQ(m.Libelle("lblDatum"), "WGS84");
  EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
}

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
      m.state.Data1.recordset().MoveNext();
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
  m.state.WorkingDb->Execute("UPDATE TALPENA SET N1 = 77 WHERE Counter = 2");
  FormMachine::Touche(Qt::Key_PageDown);
  EXPECT_EQ(FormMachine::Focus(), "ChampCh1");
  EXPECT_EQ(m.Champ("ChampCh1")->selectedText(), "77");
  EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
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
  EXPECT_TRUE(m.state.FichierModifie);
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
    EXPECT_TRUE(m.state.FichierModifie);
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
  EXPECT_FALSE(m.state.FichierModifie);
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

TEST(EditForm, IsShorterWithoutFreeFields) {
  FormMachine with;
  FormMachine without({Rangee("mgr 31 U FR1664", "all/of/it")}, {});
  const int tall = with.Ouvre().height();
  without.Ouvre();
  EXPECT_LT(without.form->height(), tall);
  EXPECT_FALSE(without.Controle<QWidget>("Grid")->isVisible());
  EXPECT_FALSE(without.Controle<QWidget>("LabelGrid")->isVisible());
  EXPECT_EQ(without.Controle<QPlainTextEdit>("ChampLibre")->toPlainText(), "all/of/it");
  without.PlaceFocus("ChampSex");
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(FormMachine::Focus(), "ChampLibre");
}

TEST(EditForm, GridAndRemarkTakeTheExtraHeight) {
  FormMachine m;
  EditForm& form = m.Ouvre();
  const auto height = [&m](const char* name) { return m.Controle<QWidget>(name)->height(); };
  const int grid = height("Grid"), remark = height("ChampLibre"), period = height("ChampPeriode");
  form.resize(form.width(), form.height() + 200);
  FormMachine::Traite();
  EXPECT_GT(height("Grid") + height("ChampLibre"), grid + remark + 190);
  EXPECT_EQ(height("ChampPeriode"), period);
}

TEST(EditForm, KeepsItsPlace) {
  FormMachine m;
  m.settings.values["TLP/EDITFORM/HEIGHT"] = "9000";
  m.settings.values["TLP/EDITFORM/TOP"] = "300";
  EditForm& form = m.Ouvre();
  EXPECT_EQ(form.height(), 600);
  EXPECT_EQ(form.y(), 20);
  form.resize(760, 640);
  form.move(30, 40);
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/HEIGHT"], "9600");
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/TOP"], "600");
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/WIDTH"], "11400");
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/LEFT"], "450");
}

TEST(EditForm, APlaceOffTheScreenIsBroughtBack) {
  for (const char* top : {"900000", "-900000", "1E+300"}) {
    FormMachine m;
    m.settings.values["TLP/EDITFORM/HEIGHT"] = "900000";
    m.settings.values["TLP/EDITFORM/TOP"] = top;
    m.settings.values["TLP/EDITFORM/LEFT"] = "900000";
    const EditForm& form = m.Ouvre();
    const QRect screen = form.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(form.pos())) << top;
    EXPECT_LE(form.height(), screen.height()) << top;
    EXPECT_LE(form.x() + form.width(), screen.right() + 1) << top;
  }
}

TEST(EditForm, FollowsTheLanguageAndKeepsWhatWasTyped) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("ChampCh1");
  FormMachine::Tape("42");
  m.PlaceFocus("EditBox_2");
  FormMachine::Tape("FS12");
  m.state.Langue = 3000;
  QEvent change(QEvent::LanguageChange);
  QApplication::sendEvent(m.form.get(), &change);
  FormMachine::Traite();
  EXPECT_EQ(m.form->windowTitle(), "Koordinaten bearbeiten - 1/3[*]");
  EXPECT_EQ(m.Libelle("LabelBox_2"), "Buchstaben+Ostwert+Nordwert (FR1664)");
  EXPECT_EQ(m.Controle<QComboBox>("cmbSystem")->currentText(), "Alphanumerische UTM (MGRS)");
  EXPECT_EQ(SansMnemonique(m.Bouton("ButNew")->text().toStdString()), "Neu");
  EXPECT_EQ(m.Texte("ChampCh1"), "42");
  EXPECT_EQ(m.Texte("EditBox_2"), "FS12");
  EXPECT_TRUE(m.Bouton("ButOk")->isEnabled());
  EXPECT_EQ(FormMachine::Focus(), "EditBox_2");
}

TEST(EditForm, TheHintsSpeakTheNewLanguage) {
  FormMachine m;
  m.Ouvre();
  m.Entre("EditBox_0", "99");
  m.Entre("ChampPeriode", "9");
  const std::string english = m.Libelle("lblAvis_1");
  m.state.Langue = 0;
  m.form->AppliqueLangue();
  EXPECT_NE(m.Libelle("lblAvis_1"), english);
  EXPECT_FALSE(m.Libelle("lblAvis_1").empty());
  EXPECT_EQ(m.Libelle("lblAvis_0"), "La période doit être comprise entre 1 et 3");
}

TEST(EditForm, AnUnchangedFormStaysUnchangedInAnotherLanguage) {
  FormMachine m;
  m.Ouvre();
  m.state.Langue = 5000;
  m.form->AppliqueLangue();
  EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(EditForm, NamesEveryControlThatTheKeysReach) {
  FormMachine m;
  m.Ouvre();
  for (const int system : {2, 8}) {
    Q_EMIT m.Controle<QComboBox>("cmbSystem")->activated(system);
    FormMachine::Traite();
    for (QWidget* child : m.form->findChildren<QWidget*>()) {
      if (child->focusPolicy() == Qt::NoFocus || !child->isVisibleTo(m.form.get())) continue;
      if (child->objectName().startsWith(QLatin1String("qt_"))) continue;
      const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(child);
      ASSERT_NE(face, nullptr);
      EXPECT_FALSE(face->text(QAccessible::Name).isEmpty()) << child->objectName().toStdString();
    }
  }
  EXPECT_EQ(m.Champ("EditBox_2")->accessibleName(), "Original coordinates: G3 or G336 or G33643");
}

TEST(EditForm, GivesEveryLabelAndButtonALetterOfItsOwn) {
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    SCOPED_TRACE(langue);
    FormMachine m;
    m.state.Langue = static_cast<std::int16_t>(langue);
    m.Ouvre();
    std::map<QString, std::string> owners;
    const auto take = [&owners](const QString& text, const QString& name) {
      const QString letter = QKeySequence::mnemonic(text).toString();
      EXPECT_FALSE(letter.isEmpty()) << name.toStdString();
      const auto [owner, isNew] = owners.try_emplace(letter, name.toStdString());
      EXPECT_TRUE(isNew) << name.toStdString() << " and " << owner->second;
    };
    for (const QPushButton* button : m.form->findChildren<QPushButton*>()) {
      take(button->text(), button->objectName());
    }
    for (const char* name :
         {"LabelPeriode", "LabelDate", "LabelOriginales", "LabelSysteme", "LabelLatitude",
          "LabelLongitude", "LabelCh1", "LabelCh2", "LabelSex", "LabelGrid", "LabelLibre"}) {
      const auto* label = m.Controle<QLabel>(name);
      take(label->text(), label->objectName());
      EXPECT_NE(label->buddy(), nullptr) << name;
    }
  }
}

TEST(EditForm, AnUnknownDatumIsToldOnce) {
  FormMachine m({{"QQQ-Q", "deg +50.1 +4.2", "50.1", "4.2", ""}});
  m.Ouvre();
  EXPECT_EQ(m.Boites(), Lines{"QQQ-Q\rThis datum is absent from the available datums!"});
  EXPECT_EQ(m.Libelle("lblDatum"), "WGS84");
  m.form->AppliqueLangue();
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(EditForm, FitsASmallScreenAndScrolls) {
  FormMachine m;
  EditForm& form = m.Ouvre();
  EXPECT_LE(form.minimumSizeHint().width(), 1024);
  EXPECT_LE(form.minimumSizeHint().height(), 768);
  form.resize(form.minimumSizeHint());
  FormMachine::Traite();
  m.PlaceFocus("ChampSex");
  FormMachine::Touche(Qt::Key_Return);
  FormMachine::Touche(Qt::Key_Tab);
  const auto* area = m.Controle<QScrollArea>("Defilement");
  const auto* remark = m.Controle<QWidget>("ChampLibre");
  EXPECT_TRUE(area->viewport()->rect().intersects(
      QRect(remark->mapTo(area->viewport(), QPoint(0, 0)), remark->size())));
}

}  // namespace
}  // namespace talpena::test
