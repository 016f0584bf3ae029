#include "interchange/windows/frm_import_garmin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTreeView>

#include "fakes/dialog_driver.h"
#include "interchange/windows/garmin_window.h"
#include "interchange/windows/rehearsal_pane.h"

namespace talpena::test {
namespace {

class FrmImportGarmin : public GarminWindow {
 protected:
  void Ouvre(const std::string& bytes = Texte(), int type = 0) {
    files.Pose("/data/w.txt", bytes);
    Rouvre(type);
  }
  void Rouvre(int type = 0) {
    auto window = std::make_unique<frmImportGarmin>(context, interchange, "/data/w.txt", type);
    window->Charge();
    fenetre = std::move(window);
    Montre();
  }
  QTreeView& LV() { return Enfant<QTreeView>("LV"); }
  QComboBox& Grille() { return Enfant<QComboBox>("cmbGrid"); }
  QLabel& Datum() { return Enfant<QLabel>("lblDatum"); }
  QPushButton& Commande(int index) {
    return Enfant<QPushButton>(("cmdImportGarmin_" + std::to_string(index)).c_str());
  }
  InterchangeState interchange;
  std::string Notes() { return Enfant<QLabel>("lblNotes").text().toStdString(); }
  bool Cochee(int row) {
    return LV().model()->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
  }
  std::string Nom(int row) { return LV().model()->index(row, 1).data().toString().toStdString(); }
  /// PERIOD, DATUM, ORIGINAL, DATE and COMMENT of the rows.
  std::vector<std::string> Importees() {
    std::vector<std::string> rows;
    const auto all =
        state.document.WorkingDb->OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter");
    for (; !all->EOF_(); all->MoveNext()) {
      std::string row;
      for (const int field :
           {Column::PERIOD, Column::DATUM, Column::ORIGINAL, Column::DATE, Column::COMMENT}) {
        const Cell cell = all->Get(field);
        row += (row.empty() ? "" : "|") + (cell.EstNull() ? std::string("-") : cell.Texte());
      }
      rows.push_back(row);
    }
    return rows;
  }
};

TEST_F(FrmImportGarmin, BearsItsFixedCaptionsInEveryLanguage) {
  Ouvre();
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state.Langue = static_cast<std::int16_t>(langue);
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(fenetre.get(), &change);
    EXPECT_EQ(fenetre->windowTitle(), "Garmin Import");
    EXPECT_EQ(Enfant<QLabel>("lblConfirm").text(), "Please confirm all the parameters !");
    EXPECT_EQ(Enfant<QLabel>("lblHeader").text(), "File header (for information)");
    EXPECT_EQ(Enfant<QLabel>("lblGrid").text(), "Grid system :");
    EXPECT_EQ(Enfant<QLabel>("lblTitreDatum").text(), "datum:");
    EXPECT_EQ(Enfant<QPushButton>("cmdChangeDatum").text(), "&Change");
    EXPECT_EQ(Enfant<QCheckBox>("chkAll").text(), "Check &all selected lines");
    EXPECT_EQ(Commande(1).text(), "&Cancel");
    EXPECT_EQ(Commande(2).text(), "O&ptions");
  }
}

TEST_F(FrmImportGarmin, HasTheSevenGrids) {
  Ouvre();
  const char* const grids[] = {
      "Lat/Lon hddd.ddddd°",   "Lat/Lon hddd°mm.mmm'", "Lat/Lon hddd°mm'ss.s\"", "MGRS", "UTM",
      "British National Grid", "Irish National Grid"};
  ASSERT_EQ(Grille().count(), 7);
  for (int i = 0; i < 7; ++i) EXPECT_EQ(Grille().itemText(i).toStdString(), grids[i]);
}

TEST_F(FrmImportGarmin, FillsItselfFromTheFile) {
  Ouvre(Texte("MGRS", "European 1950"));
  EXPECT_EQ(Grille().currentText(), "MGRS");
  EXPECT_EQ(Datum().text(), "EUR-M");
  const QString header = Enfant<QPlainTextEdit>("txtHeader").toPlainText();
  EXPECT_TRUE(header.startsWith("/data/w.txt\nGrid\tMGRS\n")) << header.toStdString();
  EXPECT_TRUE(Enfant<QPlainTextEdit>("txtHeader").isReadOnly());
  ASSERT_EQ(LV().model()->rowCount(), 3) << "no track";
  EXPECT_EQ(Nom(0), "THREE");
  EXPECT_EQ(LV().model()->headerData(1, Qt::Horizontal).toString(), "Name");
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(Cochee(i));
}

TEST_F(FrmImportGarmin, OkImportsTheCheckedPointsInTheOrderOfTheList) {
  Ouvre();
  LV().setFocus();
  QTest::keyClick(&LV(), Qt::Key_2, Qt::ControlModifier);  // ONE, THREE, TWO
  LV().setCurrentIndex(LV().model()->index(1, 0));
  QTest::keyClick(&LV(), Qt::Key_Space);
  Commande(0).click();
  EXPECT_EQ(fenetre->result(), QDialog::Accepted);
  EXPECT_EQ(Importees(), (std::vector<std::string>{"1|WGS84|deg 50.1 4.1|-|ONE - first",
                                                   "1|WGS84|deg 50.2 -4.2|-|TWO - second"}));
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(FrmImportGarmin, StaysAfterAFailureWithTheChecksOfWhatHasNotComeIn) {
  Ouvre(Texte() + "Waypoint\tBAD\tbad\tUser\tN1\t\t\t\r\nWaypoint\tLAST\tl\tUser\tN1 E2\t\t\t\r\n");
  LV().setCurrentIndex(LV().model()->index(1, 0));
  LV().setFocus();
  QTest::keyClick(&LV(), Qt::Key_Space);  // ONE is not wanted
  Commande(0).click();
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(fenetre->isVisible());
  EXPECT_EQ(Importees().size(), 2U);
  for (int row = 0; row < 5; ++row) EXPECT_EQ(Cochee(row), row >= 3) << row;
  EXPECT_EQ(LV().currentIndex().row(), 3) << "the one that failed";
  EXPECT_EQ(Notes().rfind("Waypoints that have come in and are no longer checked: 2;", 0), 0U)
      << Notes();
  dialogues.boxes.clear();
  QTest::keyClick(&LV(), Qt::Key_Space);
  Commande(0).click();
  EXPECT_TRUE(Boites().empty());
  EXPECT_FALSE(fenetre->isVisible());
  EXPECT_EQ(Importees().size(), 3U);
}

TEST_F(FrmImportGarmin, MarksOddPositionsAndDatesInItsRehearsal) {
  settings.Ecrit("Talpena", "ImportGarmin", "DateImport", "2");
  settings.Ecrit("Talpena", "ImportGarmin", "DateField", "Seen");
  Ouvre(Texte() + "Waypoint\tNO\tno letters\tUser\t50.1 4.1\t\t17-APR-02\t\r\n");
  const auto& pane = Enfant<RehearsalPane>("RehearsalPane");
  ASSERT_TRUE(QTest::qWaitFor([&pane] { return pane.EstFinie(); }));
  const std::string date = "its date is not written as 17-APR-02";
  const std::string fates[] = {date, date, "enters, far from all others",
                               "its position has no N or S, or no E or W"};
  const QAbstractItemModel& rows = *Enfant<QTableView>("lstRepetition").model();
  ASSERT_EQ(rows.rowCount(), 4);
  for (int row = 0; row < 4; ++row) {
    EXPECT_EQ(rows.index(row, 1).data().toString().toStdString(), fates[row]);
  }
  EXPECT_TRUE(Enfant<QLabel>("lblComptes").text().endsWith("Rows that want a look: 3."));
}

TEST_F(FrmImportGarmin, TheOptionsOfTheSettingsAreThoseOfTheImport) {
  settings.Ecrit("Talpena", "ImportGarmin", "Period", "2");
  settings.Ecrit("Talpena", "ImportGarmin", "DateImport", "1");
  settings.Ecrit("Talpena", "ImportGarmin", "DateFixed", "1998/07/14");
  Ouvre();
  Commande(0).click();
  ASSERT_EQ(Importees().size(), 3U);
  EXPECT_EQ(Importees()[0], "2|WGS84|deg 50.3 4.3|1998/07/14|THREE - third");
}

TEST_F(FrmImportGarmin, TheButtonOptionsChangesThem) {
  Ouvre();
  {
    DialogDriver driver("frmGarminOptions", [](QDialog& dialog) {
      dialog.findChild<QLineEdit*>("txtPeriod")->setText("3");
      dialog.findChild<QPushButton*>("cmdOptionGarmin_0")->click();
    });
    Commande(2).click();
  }
  EXPECT_TRUE(fenetre->isVisible());
  Commande(0).click();
  ASSERT_EQ(Importees().size(), 3U);
  EXPECT_EQ(Importees()[0][0], '3');
}

TEST_F(FrmImportGarmin, CancelAndEscapeImportNothing) {
  for (const bool escape : {false, true}) {
    Ouvre();
    if (escape) {
      QTest::keyClick(&LV(), Qt::Key_Escape);
    } else {
      Commande(1).click();
    }
    EXPECT_FALSE(fenetre->isVisible());
    EXPECT_TRUE(Importees().empty());
  }
}

TEST_F(FrmImportGarmin, ChkAllGivesItsStateToTheSelectedLinesAlone) {
  Ouvre();
  auto& all = Enfant<QCheckBox>("chkAll");
  LV().selectionModel()->clearSelection();
  LV().selectionModel()->select(LV().model()->index(1, 0),
                                QItemSelectionModel::Select | QItemSelectionModel::Rows);
  all.setChecked(true);
  all.click();
  EXPECT_TRUE(Cochee(0));
  EXPECT_FALSE(Cochee(1));
  EXPECT_TRUE(Cochee(2));
  LV().selectAll();
  all.click();
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(Cochee(i));
}

TEST_F(FrmImportGarmin, ChangeTakesAnotherDatumForThisImportAlone) {
  Ouvre();
  const auto before = settings.values;
  {
    DialogDriver driver(
        "frmDatum", [](QDialog& dialog) { dialog.findChild<QPushButton*>("cmdDatum_1")->click(); });
    Enfant<QPushButton>("cmdChangeDatum").click();
  }
  EXPECT_EQ(Datum().text(), "WGS84") << "Cancel";
  {
    DialogDriver driver("frmDatum", [](QDialog& dialog) {
      QTest::keyClicks(dialog.findChild<QWidget*>("ListView1"), "bel72");
      dialog.findChild<QPushButton*>("cmdDatum_0")->click();
    });
    Enfant<QPushButton>("cmdChangeDatum").click();
  }
  EXPECT_EQ(Datum().text(), "BEL72");
  EXPECT_EQ(settings.values, before) << "that of the gazetteer stays";
  Commande(0).click();
  ASSERT_EQ(Importees().size(), 3U);
  EXPECT_NE(Importees()[0].find("|BEL72|"), std::string::npos);
}

TEST_F(FrmImportGarmin, ChangeOpensOnTheDatumOfTheLabel) {
  Ouvre(Texte("MGRS", "European 1950"));
  std::string chosen;
  DialogDriver driver("frmDatum", [&chosen](QDialog& dialog) {
    auto* list = dialog.findChild<QTreeView*>("ListView1");
    chosen = list->currentIndex().siblingAtColumn(0).data().toString().toStdString();
    dialog.reject();
  });
  Enfant<QPushButton>("cmdChangeDatum").click();
  EXPECT_EQ(chosen, "EUR-M");
}

TEST_F(FrmImportGarmin, OkAsksForADatumWhereNoneIsKnown) {
  Ouvre(Texte("MGRS", "Somewhere Else"));
  EXPECT_EQ(Datum().text(), "");
  EXPECT_TRUE(Notes().starts_with(
      "No datum is known for this file: choose one by Change; OK asks for it too."));
  {
    DialogDriver driver("frmDatum", [](QDialog& dialog) {
      QTest::keyClicks(dialog.findChild<QWidget*>("ListView1"), "eur-m");
      dialog.findChild<QPushButton*>("cmdDatum_0")->click();
    });
    Commande(0).click();
  }
  EXPECT_TRUE(fenetre->isVisible());
  EXPECT_TRUE(Importees().empty());
  EXPECT_EQ(Datum().text(), "EUR-M");
}

TEST_F(FrmImportGarmin, OkAsksForAGridWhereNoneIsChosen) {
  Ouvre(Texte("Schweizer Gitter"));
  EXPECT_EQ(Grille().currentIndex(), -1);
  Commande(0).click();
  EXPECT_TRUE(fenetre->isVisible());
  EXPECT_TRUE(Importees().empty());
  Grille().hidePopup();
  Grille().setCurrentIndex(0);
  Commande(0).click();
  EXPECT_EQ(Importees().size(), 3U);
}

TEST_F(FrmImportGarmin, RemarksTheDatumByNameAndThatGridUtmIsNotRead) {
  Ouvre();
  EXPECT_NE(Notes().find("WORLD GEODETIC SYSTEM 1984"), std::string::npos) << Notes();
  const std::string utm = "Positions on grid UTM are not read";
  EXPECT_EQ(Notes().find(utm), std::string::npos);
  Grille().setCurrentText("UTM");
  EXPECT_NE(Notes().find(utm), std::string::npos);
  Grille().setCurrentText("MGRS");
  EXPECT_EQ(Notes().find(utm), std::string::npos);
}

TEST_F(FrmImportGarmin, RemarksAColumnOfTheOptionsThatTheFileLacks) {
  settings.Ecrit("Talpena", "ImportGarmin", "DateImport", "2");
  settings.Ecrit("Talpena", "ImportGarmin", "DateField", "Date Modified");
  Ouvre();
  const std::string missing = "This file has no column “Date Modified”";
  EXPECT_NE(Notes().find(missing), std::string::npos) << Notes();
  settings.Ecrit("Talpena", "ImportGarmin", "DateField", "Seen");
  Ouvre();
  EXPECT_EQ(Notes().find(missing), std::string::npos) << Notes();
}

TEST_F(FrmImportGarmin, KeepsTheWidthsOfTheColumns) {
  Ouvre();
  for (int i = 0; i < 7; ++i) {
    EXPECT_GE(LV().header()->sectionSize(i), 66) << "1000 twips";
  }
  LV().header()->resizeSection(2, 240);
  Commande(1).click();
  EXPECT_EQ(settings.Lit("Talpena", "ImportGarmin", "Col3", ""), "3600");
  EXPECT_NE(settings.Lit("Talpena", "ImportGarmin", "Col1", ""), "");
  EXPECT_NE(settings.Lit("Talpena", "ImportGarmin", "Col7", ""), "");
  EXPECT_EQ(settings.Lit("Talpena", "ImportGarmin", "Col8", ""), "") << "of seven columns";
  settings.Ecrit("Talpena", "ImportGarmin", "Col1", "300");
  settings.Ecrit("Talpena", "ImportGarmin", "Col2", "1e30");
  Ouvre();
  EXPECT_EQ(LV().header()->sectionSize(2), 240);
  EXPECT_EQ(LV().header()->sectionSize(0), 20);
  EXPECT_LE(LV().header()->sectionSize(1), 4000);
}

TEST_F(FrmImportGarmin, GivesColumnsWithoutAWidthRoomForTheirTexts) {
  const std::string longest(200, 'x');
  Ouvre(Texte() + "Waypoint\t" + longest + "\t\tUser\tN50 27 15.10 W003 57 08.30\t\t\t\r\n");
  const QFontMetrics metrics = LV().fontMetrics();
  EXPECT_GE(LV().header()->sectionSize(4), metrics.horizontalAdvance("N50 27 15.10 W003 57 08.30"));
  EXPECT_LT(LV().header()->sectionSize(1), metrics.horizontalAdvance(longest.c_str()) / 2);
}

TEST_F(FrmImportGarmin, AFileOfAnotherKindIsToldAndOpensEmpty) {
  Ouvre("Something else\r\n\r\n\r\n\r\n\r\n");
  EXPECT_EQ(Boites(), std::vector<std::string>{"Wrong file type!"});
  EXPECT_EQ(LV().model()->rowCount(), 0);
}

TEST_F(FrmImportGarmin, AnotherTypeIsToldAndStaysEmpty) {
  Ouvre(Texte(), 1);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Information);
  EXPECT_EQ(Boites(), std::vector<std::string>{"This function is not yet abailable!"});
  EXPECT_EQ(LV().model()->rowCount(), 0);
  EXPECT_EQ(Enfant<QPlainTextEdit>("txtHeader").toPlainText(), "");
}

TEST_F(FrmImportGarmin, AFailureWhileItLoadsIsTold) {
  Ouvre("Grid\tMGRS\r\nDatum");
  const std::vector<std::string> boxes = Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].rfind("Error ", 0), 0U) << boxes[0];
  EXPECT_EQ(Grille().currentText(), "MGRS") << "what was filled until then";
}

TEST_F(FrmImportGarmin, IsWorkedByTheKeyboardAlone) {
  Ouvre();
  EXPECT_TRUE(LV().hasFocus());
  QTest::keyClick(&LV(), Qt::Key_Space);
  QTest::keyClick(fenetre->windowHandle(), Qt::Key_A, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Cochee(0); })) << "a button that is pressed so";
  EXPECT_TRUE(Enfant<QCheckBox>("chkAll").isChecked());
  LV().setFocus();
  QTest::keyClick(&LV(), Qt::Key_Space);
  QTest::keyClick(&LV(), Qt::Key_Return);
  EXPECT_FALSE(fenetre->isVisible());
  EXPECT_EQ(Importees().size(), 2U);
}

// Enter would give its rows a second time.
TEST_F(FrmImportGarmin, OverAFileThatHasComeInEnterIsCancel) {
  const std::string deja = "Waypoints of this file have been imported";
  Ouvre();
  EXPECT_FALSE(Notes().starts_with(deja));
  EXPECT_FALSE(Commande(1).hasFocus());
  Commande(0).click();
  ASSERT_EQ(Importees().size(), 3U);
  Rouvre();
  EXPECT_TRUE(Notes().starts_with(deja));
  ASSERT_TRUE(Commande(1).hasFocus());
  QTest::keyClick(&Commande(1), Qt::Key_Return);
  EXPECT_EQ(fenetre->result(), QDialog::Rejected);
  EXPECT_EQ(Importees().size(), 3U);
}

TEST_F(FrmImportGarmin, SaysThatTheNumbersStayEmpty) {
  Ouvre();
  EXPECT_NE(Notes().find("Numbers 1 and 2 of these rows stay empty"), std::string::npos);
  Ouvre("no waypoints");
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(Notes().find("Numbers 1 and 2"), std::string::npos);
}

TEST_F(FrmImportGarmin, FitsASmallScreenInEveryLanguage) {
  Ouvre(Texte("UTM"));
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    SCOPED_TRACE(langue);
    state.Langue = static_cast<std::int16_t>(langue);
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(fenetre.get(), &change);
    EXPECT_LE(fenetre->minimumSizeHint().width(), 1280);
    EXPECT_LE(fenetre->minimumSizeHint().height(), 690);
  }
  fenetre->resize(1280, 690);
  QTest::qWait(1);
  fenetre.reset();  // also while it is shown
}

}  // namespace
}  // namespace talpena::test
