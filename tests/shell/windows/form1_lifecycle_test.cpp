// Commands in turn, the automatic save, the close box, and the window's place.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>

#include "fakes/document_states.h"
#include "form1_machine.h"
#include "shell/windows/start.h"
#include "store/deg_reader.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

using test::Form1Machine;

std::string Contenu(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Tape(TDBGrid& grid, int row, int column, const QString& text) {
  grid.setCurrentIndex(grid.model()->index(row, column));
  QTest::keyClick(&grid, Qt::Key_F2);
  auto* editor = grid.findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  editor->selectAll();
  QTest::keyClicks(editor, text);
}

TEST(Form1, SavesWhatIsStillBeingTyped) {
  Form1Machine m;
  const std::string path = m.Fichier(Form1Machine::Lignes(2));
  m.form->Charge(path);
  Tape(*m.Controle<TDBGrid>("TDBGrid1"), 1, 3, "77");
  m.Entree("MnuEnregistrer")->trigger();
  EXPECT_NE(Contenu(path).find("   77    0"), std::string::npos);
  EXPECT_FALSE(m.state.document.FichierModifie());
}

TEST(Form1, ACommandDoesNotRunOverARefusedValue) {
  Form1Machine m;
  const std::string path = m.Fichier(Form1Machine::Lignes(2));
  m.form->Charge(path);
  const std::string before = Contenu(path);
  Tape(*m.Controle<TDBGrid>("TDBGrid1"), 1, 3, "many");
  m.Entree("MnuEnregistrer")->trigger();
  QApplication::processEvents();
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text.rfind("Value not accepted", 0), 0U);
  EXPECT_EQ(Contenu(path), before);
}

TEST(Form1, QuitAsksAndCancelStays) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  test::MarqueModifie(m.state.document);
  m.dialogues.answers = {Answer::Cancel};
  m.Entree("MnuQuitter")->trigger();
  EXPECT_TRUE(m.form->isVisible());
  EXPECT_TRUE(m.settings.written.empty() ||
              m.settings.values.count("TALPENA/LANGUAGE/LANGUAGE") == 0);
}

TEST(Form1, QuitWithYesSavesFirst) {
  Form1Machine m;
  const std::string path = m.Fichier(Form1Machine::Lignes(1));
  m.form->Charge(path);
  QTest::keyClicks(m.Controle<QLineEdit>("BoxTitre"), "!");
  m.dialogues.answers = {Answer::Yes};
  m.Entree("MnuQuitter")->trigger();
  EXPECT_NE(Contenu(path).find("!"), std::string::npos);
  EXPECT_FALSE(m.form->isVisible());
}

TEST(Form1, TheCloseBoxClosesWhateverTheAnswer) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  test::MarqueModifie(m.state.document);
  m.dialogues.answers = {Answer::Cancel};
  EXPECT_TRUE(m.form->close());
  EXPECT_FALSE(m.form->isVisible());
  EXPECT_EQ(m.settings.values.count("TALPENA/LANGUAGE/LANGUAGE"), 0U) << "no settings saved";
}

TEST(Form1, TheCloseBoxAsksOnce) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  test::MarqueModifie(m.state.document);
  m.dialogues.answers = {Answer::No};
  m.form->close();
  EXPECT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.settings.values.count("TALPENA/LANGUAGE/LANGUAGE"), 1U);
}

/// Boxes during which something else happens.
class MeanwhileDialogues : public test::FakeDialogues {
 public:
  std::function<void()> meanwhile;
  Answer Demande(const MessageBox& box) override {
    if (meanwhile) std::exchange(meanwhile, nullptr)();
    return FakeDialogues::Demande(box);
  }
};

TEST(Form1, ATickInsideACommandWaitsUntilItHasEnded) {
  Form1Machine m;
  MeanwhileDialogues dialogues;
  Platform io{*m.engine, *m.files, m.settings, dialogues, m.clock, m.environment, m.sound};
  m.form = std::make_unique<Form1>(m.state, io);
  const std::string path = m.Fichier(Form1Machine::Lignes(1));
  m.form->Charge(path);
  m.state.AutoSave = true;
  m.state.SaveInterval = 1;
  test::MarqueModifie(m.state.document);
  const std::string before = Contenu(path);
  dialogues.answers = {Answer::Cancel};
  dialogues.meanwhile = [&] {
    QMetaObject::invokeMethod(m.Controle<QTimer>("Timer1"), "timeout", Qt::DirectConnection,
                              QGenericArgument());
    EXPECT_EQ(Contenu(path), before) << "the command has the rows to itself";
    EXPECT_TRUE(m.state.document.FichierModifie());
  };
  m.Entree("MnuQuitter")->trigger();
  EXPECT_TRUE(m.state.document.FichierModifie());
  QApplication::processEvents();
  EXPECT_FALSE(m.state.document.FichierModifie()) << "saved by the tick that waited";
  m.form.reset();  // before the platform that it is made of
}

TEST(Form1, TheCloseBoxInsideACommandWaitsToo) {
  Form1Machine m;
  MeanwhileDialogues dialogues;
  Platform io{*m.engine, *m.files, m.settings, dialogues, m.clock, m.environment, m.sound};
  m.form = std::make_unique<Form1>(m.state, io);
  m.form->Charge({});
  dialogues.meanwhile = [&] { EXPECT_FALSE(m.form->close()); };
  m.Entree("MnuLang_2")->trigger();
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "Feature unavailable in this version");
  EXPECT_TRUE(m.form->isVisible());
  QApplication::processEvents();
  EXPECT_FALSE(m.form->isVisible());
  m.form.reset();  // before the platform that it is made of
}

TEST(Form1, TakesItsPlaceFromTheSettingsAndGivesItBack) {
  Form1Machine m;
  m.settings.values["TALPENA/GRID/LEFT"] = "300";
  m.settings.values["TALPENA/GRID/TOP"] = "450";
  m.settings.values["TALPENA/GRID/WIDTH"] = "10500";
  m.settings.values["TALPENA/GRID/HEIGHT"] = "7500";
  m.form->Charge({});
  QApplication::processEvents();
  EXPECT_EQ(m.form->pos(), QPoint(20, 30)) << "15 twips a pixel";
  EXPECT_EQ(m.state.EtatFenetre, 0);
  m.Entree("MnuQuitter")->trigger();
  EXPECT_EQ(m.settings.values["TALPENA/GRID/LEFT"], "300");
  EXPECT_EQ(m.settings.values["TALPENA/GRID/TOP"], "450");
  EXPECT_EQ(m.settings.values["TALPENA/GRID/HEIGHT"], "7500");
  EXPECT_EQ(m.settings.values["TALPENA/GRID/WINDOWSTATE"], "0");
}

TEST(Form1, APlaceOffEveryScreenIsBroughtBack) {
  Form1Machine m;
  m.settings.values["TALPENA/GRID/LEFT"] = "900000";
  m.settings.values["TALPENA/GRID/TOP"] = "-900000";
  m.form->Charge({});
  EXPECT_TRUE(QGuiApplication::primaryScreen()->geometry().contains(m.form->geometry().center()));
}

TEST(Form1, EndsWithoutADatumCatalogue) {
  Form1Machine m;
  m.state.AppDir = m.folder.path().string();
  m.dialogues.paths = {""};
  EXPECT_FALSE(m.form->Charge({}));
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "The file DATUM.MDB cannot be found!");
  EXPECT_FALSE(m.form->isVisible());
}

TEST(Start, TellsASecondInstance) {
  test::FakeDialogues dialogues;
  EXPECT_TRUE(EstSeuleInstance([] { return true; }, dialogues));
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_FALSE(EstSeuleInstance([] { return false; }, dialogues));
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "TLP is already running!");
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Stop);
}

// ---- title and comment are the document's

TEST(Form1, WhatAnAidPutsIntoTheTitleIsSavedThoughNobodyTyped) {
  Form1Machine m;
  ASSERT_TRUE(m.form->Charge(m.Fichier(Form1Machine::Lignes(2))));
  m.Controle<QLineEdit>("BoxTitre")->setText(QStringLiteral("Dictated"));
  EXPECT_EQ(m.state.document.Entete().BoxTitre, "Dictated");
  EXPECT_FALSE(m.state.document.FichierModifie());
}

TEST(Form1, TypingIntoTheMiddleOfTheTitleLeavesTheCursorThere) {
  Form1Machine m;
  ASSERT_TRUE(m.form->Charge(m.Fichier(Form1Machine::Lignes(2))));
  auto* box = m.Controle<QLineEdit>("BoxTitre");
  box->setCursorPosition(2);
  QTest::keyClicks(box, "ab");
  EXPECT_EQ(box->text(), "Moables");
  EXPECT_EQ(box->cursorPosition(), 4);
  EXPECT_EQ(m.state.document.Entete().BoxTitre, "Moables");
  EXPECT_TRUE(m.state.document.FichierModifie());
}

TEST(Form1, AnUndoInTheTitleBringsNothingOfTheFileBefore) {
  Form1Machine m;
  const std::string path = m.Fichier(Form1Machine::Lignes(2));
  ASSERT_TRUE(m.form->Charge(path));
  auto* box = m.Controle<QLineEdit>("BoxTitre");
  QTest::keyClicks(box, "x");
  QTest::keyClick(box, Qt::Key_Backspace);
  ASSERT_EQ(box->text(), "Moles");
  LitDeg(m.form->Contexte().Commandes(), path, MergeMode::Replace);
  EXPECT_EQ(box->text(), "Moles");
  EXPECT_FALSE(box->isUndoAvailable());
}

TEST(Form1, ATitleAsLongAsAFileCanHaveIsKeptWhole) {
  Form1Machine m;
  ASSERT_TRUE(m.form->Charge(m.Fichier(Form1Machine::Lignes(2))));
  const std::string title(100000, 't');
  Edition(m.state.document, "a test").Entete().BoxTitre = title;
  EXPECT_EQ(m.Controle<QLineEdit>("BoxTitre")->text().size(), 100000);
  EXPECT_EQ(m.state.document.Entete().BoxTitre, title);
}

TEST(Form1, SaysThatAnotherWorkingFolderIsUsed) {
  Form1Machine m;
  m.environment.variables["TEMP"] = m.folder / "none";
  m.environment.prive = m.folder.path().string();
  EXPECT_TRUE(m.form->Charge({}));
  const auto* panel = m.Controle<QLabel>("StatusBar1_Panel_2");
  const QString note = "The working folder cannot be used; a private one takes its place for now";
  EXPECT_EQ(panel->text(), note);
  EXPECT_TRUE(panel->toolTip().contains(QString::fromStdString(m.folder / "none")));
  EXPECT_TRUE(panel->toolTip().contains(QString::fromStdString(m.state.WorkingDir)));
  LitDeg(m.form->Commandes(), m.Fichier(Form1Machine::Lignes(2)), MergeMode::Replace);
  EXPECT_EQ(panel->text(), note) << "while a file is open too";
  m.Entree("MnuLang_0")->trigger();
  EXPECT_TRUE(panel->text().startsWith("Le dossier de travail"));
  EXPECT_EQ(m.settings.values.count("TALPENA/CONFIG/WORKINGDIR"), 0U);
}

TEST(Form1, WithoutAnyWorkingFolderItSaysWhyAndEnds) {
  Form1Machine m;
  m.environment.variables["TEMP"] = m.folder / "none";
  m.environment.prive.clear();
  bool ended = false;
  QObject::connect(m.form.get(), &Form1::Fini, [&] { ended = true; });
  EXPECT_FALSE(m.form->Charge({}));
  EXPECT_TRUE(ended);
  EXPECT_FALSE(m.form->isVisible());
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text.rfind("Talpena cannot start, because no folder", 0), 0U);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "no hourglass is left";
}

}  // namespace
}  // namespace talpena
