// The record editor: its controls show the row and pass on what is typed.
#include "store/windows/edit_form.h"

#include "common/msg_id.h"
#include "common/string_table.h"
#include "fakes/dialog_driver.h"
#include "store/windows/edit_form_machine.h"

namespace talpena::test {
namespace {

TEST(EditForm, ShowsTheRow) {
  FormMachine m;
  m.state.document.WorkingDb->Execute("UPDATE TALPENA SET DATE = '1998/07/  '");
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
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(EditForm, APlaceThatIsChosenStandsInTheFormAndIsUnsaved) {
  FormMachine m;
  m.Ouvre();
  m.vue.lieu = [](RecordScreen& fiche) {
    EXPECT_EQ(fiche.ChampLibre, "remark") << "what is typed is taken in";
    fiche.ChampLibre = "Saint-Ghislain remark";
    fiche.modifie = fiche.ButOk = true;
  };
  QTest::mouseClick(m.Bouton("cmdSearch"), Qt::LeftButton);
  EXPECT_EQ(m.Controle<QPlainTextEdit>("ChampLibre")->toPlainText(), "Saint-Ghislain remark");
  EXPECT_TRUE(m.form->isWindowModified());
  m.vue.lieu = [](RecordScreen& fiche) { EXPECT_EQ(fiche.ChampLibre, "Saint-Ghislain remark"); };
  QTest::keyClick(m.form.get(), Qt::Key_F3);
  EXPECT_EQ(std::count(m.vue.calls.begin(), m.vue.calls.end(), "ChercheLieu"), 2);
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
  for (int i = 0; i < 21; ++i) {
    order.push_back(FormMachine::Focus());
    FormMachine::Touche(Qt::Key_Tab);
  }
  EXPECT_EQ(order,
            (Lines{"ChampPeriode", "ChampAnnee",     "cmbSystem", "EditBox_0",     "EditBox_1",
                   "EditBox_2",    "cmdChangeDatum", "cmdSearch", "ChampLatitude", "ChampLongitude",
                   "ChampCh1",     "ChampCh2",       "ChampSex",  "Grid",          "Grid",
                   "ChampLibre",   "ButNew",         "ButDupl",   "ButEsc",        "cmdNavig_1",
                   "cmdNavig_0"}))
      << "two free fields";
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
  m.state.document.WorkingDb->Execute("UPDATE TALPENA SET DATE = 'summer 98' WHERE Counter = 2");
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

}  // namespace
}  // namespace talpena::test
