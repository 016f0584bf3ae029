#include "platform/qt/qt_dialogues.h"

#include <gtest/gtest.h>

#ifdef __linux__
#include <sys/inotify.h>
#include <unistd.h>
#endif

#include <QClipboard>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <array>

#include "common/talpena_error.h"
#include "fakes/dialog_driver.h"

namespace talpena {
namespace {

using test::DialogDriver;

/// Number of the failure that a body raises; 0 when it raises none.
template <typename Body>
int Echec(Body&& body) {
  try {
    body();
  } catch (const TalpenaError& e) {
    EXPECT_STREQ(e.what(), "Cancel was selected.");
    return e.number();
  }
  return 0;
}

void ClosesBox(QDialog& dialog) { dialog.close(); }
void Rejects(QDialog& dialog) { dialog.reject(); }

// ---- Message boxes

struct BoxCase {
  Buttons buttons;
  Answer closed;
  std::vector<Answer> all;
};

const BoxCase boxCases[] = {
    {Buttons::Ok, Answer::Ok, {Answer::Ok}},
    {Buttons::OkCancel, Answer::Cancel, {Answer::Ok, Answer::Cancel}},
    {Buttons::YesNo, Answer::No, {Answer::Yes, Answer::No}},
    {Buttons::YesNoCancel, Answer::Cancel, {Answer::Yes, Answer::No, Answer::Cancel}},
};

QMessageBox::StandardButton Bouton(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return QMessageBox::Ok;
    case Answer::Cancel:
      return QMessageBox::Cancel;
    case Answer::Yes:
      return QMessageBox::Yes;
    case Answer::No:
      break;
  }
  return QMessageBox::No;
}

QMessageBox& Boite(QDialog& dialog) { return dynamic_cast<QMessageBox&>(dialog); }

TEST(QtDialogues, EveryButtonGivesItsAnswer) {
  QtDialogues dialogues;
  for (const BoxCase& c : boxCases) {
    for (const Answer answer : c.all) {
      const DialogDriver driver("MessageBox", [&](QDialog& d) {
        EXPECT_EQ(Boite(d).buttons().size(), static_cast<qsizetype>(c.all.size()));
        Boite(d).button(Bouton(answer))->click();
      });
      EXPECT_EQ(dialogues.Demande({.text = "?", .buttons = c.buttons}), answer);
    }
  }
}

TEST(QtDialogues, ButtonsSpeakTheLanguageAsItChanges) {
  std::int16_t langue = 0;
  QtDialogues dialogues;
  dialogues.SuitLangue(langue);
  const auto captions = [&] {
    QStringList all;
    const DialogDriver driver("MessageBox", [&](QDialog& d) {
      for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        all << Boite(d).button(Bouton(answer))->text();
      }
      d.close();
    });
    dialogues.Demande({.text = "?", .buttons = Buttons::YesNoCancel});
    return all;
  };
  EXPECT_EQ(captions(), QStringList({"&Oui", "&Non", "&Annuler"}));
  langue = 3000;
  EXPECT_EQ(captions(), QStringList({"&Ja", "&Nein", "&Abbrechen"}));
}

TEST(QtDialogues, ClosingABoxAndEscapeCountAsItsMildestAnswer) {
  QtDialogues dialogues;
  for (const BoxCase& c : boxCases) {
    {
      const DialogDriver driver("MessageBox", ClosesBox);
      EXPECT_EQ(dialogues.Demande({.text = "?", .buttons = c.buttons}), c.closed);
    }
    const DialogDriver driver("MessageBox",
                              [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Escape); });
    EXPECT_EQ(dialogues.Demande({.text = "?", .buttons = c.buttons}), c.closed);
  }
}

TEST(QtDialogues, ABoxMaySayWhatEscapeCountsAs) {
  QtDialogues dialogues;
  const MessageBox box{.text = "?", .buttons = Buttons::YesNo, .closing = Answer::Yes};
  {
    const DialogDriver driver("MessageBox", ClosesBox);
    EXPECT_EQ(dialogues.Demande(box), Answer::Yes);
  }
  const DialogDriver driver("MessageBox", [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Escape); });
  EXPECT_EQ(dialogues.Demande(box), Answer::Yes);
}

TEST(QtDialogues, EnterPressesTheDefaultButton) {
  QtDialogues dialogues;
  for (const BoxCase& c : boxCases) {
    for (const Answer answer : c.all) {
      const DialogDriver driver("MessageBox", [&](QDialog& d) {
        EXPECT_EQ(Boite(d).defaultButton(), Boite(d).button(Bouton(answer)));
        QTest::keyClick(&d, Qt::Key_Return);
      });
      EXPECT_EQ(dialogues.Demande({.text = "?", .buttons = c.buttons, .defaultButton = answer}),
                answer);
    }
    const DialogDriver driver("MessageBox",
                              [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Return); });
    EXPECT_EQ(dialogues.Demande({.text = "?", .buttons = c.buttons}), c.all.front())
        << "the first button when none is named";
  }
}

TEST(QtDialogues, ABoxShowsItsTextAsItStands) {
  QtDialogues dialogues;
  const DialogDriver driver("MessageBox", [](QDialog& d) {
    EXPECT_EQ(Boite(d).text(), u"<b>\u00e9 & \u00e8</b>\nb\nc\nd");
    EXPECT_EQ(Boite(d).textFormat(), Qt::PlainText);
    EXPECT_EQ(Boite(d).windowTitle(), u"Titre");
    EXPECT_EQ(Boite(d).informativeText(), u"/<i>/a.txt");
    for (const QLabel* label : d.findChildren<QLabel*>()) {
      EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
    }
    d.accept();
  });
  dialogues.Demande(
      {.text = "<b>\u00e9 & \u00e8</b>\r\nb\rc\nd", .title = "Titre", .detail = "/<i>/a.txt"});
}

TEST(QtDialogues, IconsAreThoseAskedFor) {
  QtDialogues dialogues;
  const std::pair<Icon, QMessageBox::Icon> icons[] = {
      {Icon::None, QMessageBox::NoIcon},       {Icon::Information, QMessageBox::Information},
      {Icon::Question, QMessageBox::Question}, {Icon::Exclamation, QMessageBox::Warning},
      {Icon::Stop, QMessageBox::Critical},
  };
  for (const auto& [icon, expected] : icons) {
    const DialogDriver driver("MessageBox", [wanted = expected](QDialog& d) {
      EXPECT_EQ(Boite(d).icon(), wanted);
      d.accept();
    });
    dialogues.Demande({.text = "?", .icon = icon});
  }
}

TEST(QtDialogues, AHourglassIsLaidAsideWhileABoxIsUp) {
  QtDialogues dialogues;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const DialogDriver driver("MessageBox", [](QDialog& d) {
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    d.accept();
  });
  dialogues.Demande({.text = "?"});
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  QApplication::restoreOverrideCursor();
}

TEST(QtDialogues, ABoxStandsOverTheModalWindowThatIsUp) {
  QtDialogues dialogues;
  QWidget main;
  dialogues.ChangeParent(&main);
  QDialog modal;
  modal.setModal(true);
  modal.show();
  const DialogDriver driver("MessageBox", [&](QDialog& d) {
    EXPECT_EQ(d.parentWidget(), &modal);
    d.accept();
  });
  dialogues.Demande({.text = "?"});
}

// ---- Input box

TEST(QtDialogues, AnInputBoxOffersATextAndGivesTheOneTyped) {
  QtDialogues dialogues;
  const DialogDriver driver("InputBox", [](QDialog& d) {
    auto& input = dynamic_cast<QInputDialog&>(d);
    EXPECT_EQ(input.windowTitle(), u"Talpena");
    EXPECT_EQ(input.labelText(), u"Number of lines");
    EXPECT_EQ(input.textValue(), u"10");
    auto* edit = d.findChild<QLineEdit*>();
    ASSERT_NE(edit, nullptr);
    edit->selectAll();
    QTest::keyClicks(edit, "25");
    QTest::keyClick(edit, Qt::Key_Return);
  });
  EXPECT_EQ(dialogues.Saisie({.prompt = "Number of lines", .text = "10"}), "25");
}

TEST(QtDialogues, AnInputBoxGivesOneLine) {
  QtDialogues dialogues;
  const DialogDriver driver("InputBox", [](QDialog& d) {
    QApplication::clipboard()->setText(QStringLiteral("Talpa\r\neuropaea\ragain"));
    auto* line = d.findChild<QLineEdit*>();
    line->selectAll();
    line->paste();
    d.accept();
  });
  EXPECT_EQ(dialogues.Saisie({.prompt = "?", .text = "10"}), "Talpa europaea again");
}

TEST(QtDialogues, ACancelledInputBoxGivesNoText) {
  QtDialogues dialogues;
  const DialogDriver driver("InputBox", Rejects);
  EXPECT_EQ(dialogues.Saisie({.prompt = "?", .text = "10"}), "");
}

// ---- Files

class QtDialoguesFichiers : public testing::Test {
 protected:
  void Touche(const QString& name) const {
    QFile file(Chemin(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }
  QString Chemin(const QString& name) const { return folder.filePath(name); }
  std::string Utf8(const QString& name) const { return Chemin(name).toStdString(); }
  FileDialog Demande() const {
    return {.filter = "Distribution (*.deg)|*.deg", .folder = folder.path().toStdString()};
  }

  QTemporaryDir folder;
  QtDialogues dialogues;
};

QLineEdit& Nom(QDialog& dialog) { return *dialog.findChild<QLineEdit*>("fileNameEdit"); }

/// Types a name into a file dialog and presses Enter.
void Tape(QDialog& dialog, const QString& name) {
  Nom(dialog).setText(name);
  QTest::keyClick(&Nom(dialog), Qt::Key_Return);
}

DialogDriver::Handler QuiTape(const QString& name) {
  return [name](QDialog& d) { Tape(d, name); };
}

TEST_F(QtDialoguesFichiers, OpeningGivesThePathChosen) {
  Touche(u"\u00e9t\u00e9.deg"_qs);
  const DialogDriver driver("OpenDialog", [&](QDialog& d) {
    auto& files = dynamic_cast<QFileDialog&>(d);
    EXPECT_EQ(files.nameFilters(), QStringList{"Distribution (*.deg)"});
    EXPECT_EQ(QDir(files.directory().path()), QDir(folder.path()));
    EXPECT_EQ(files.acceptMode(), QFileDialog::AcceptOpen);
    Tape(d, u"\u00e9t\u00e9.deg"_qs);
  });
  EXPECT_EQ(dialogues.OuvreFichier(Demande()), Utf8(u"\u00e9t\u00e9.deg"_qs));
}

TEST_F(QtDialoguesFichiers, NamesAreMatchedWithoutRegardToCase) {
  Touche("BOMBUS.DEG");
  Touche("other.txt");
  QStringList shown;
  const DialogDriver driver("OpenDialog", [&](QDialog& d) {
    auto* list = d.findChild<QListView*>("listView");
    ASSERT_NE(list, nullptr);
    const auto rows = [&] { return list->model()->rowCount(list->rootIndex()); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows() > 0; }));
    QTest::qWait(50);
    for (int i = 0; i < rows(); ++i) {
      shown << list->model()->index(i, 0, list->rootIndex()).data().toString();
    }
    d.reject();
  });
  EXPECT_EQ(Echec([&] { dialogues.OuvreFichier(Demande()); }), ErrorNumber::Cancelled);
  EXPECT_EQ(shown, QStringList{"BOMBUS.DEG"});
}

TEST_F(QtDialoguesFichiers, CancelIsRaisedByEveryFileDialog) {
  const auto cancels = [](const char* name, auto&& body) {
    const DialogDriver driver(name, Rejects);
    EXPECT_EQ(Echec(body), ErrorNumber::Cancelled) << name;
  };
  cancels("OpenDialog", [&] { dialogues.OuvreFichier(Demande()); });
  cancels("SaveDialog", [&] { dialogues.EnregistreFichier(Demande()); });
  cancels("FolderDialog", [&] { dialogues.ChoisitDossier("Please choose a folder", ""); });
}

#ifdef __linux__
TEST_F(QtDialoguesFichiers, OpeningReadsNoContents) {
  Touche("bees.deg");
  const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  ASSERT_GE(watch, 0);
  ASSERT_GE(inotify_add_watch(watch, Utf8("bees.deg").c_str(), IN_OPEN), 0);
  QString kind;
  const DialogDriver driver("OpenDialog", [&](QDialog& d) {
    auto* list = d.findChild<QTreeView*>("treeView");
    ASSERT_NE(list, nullptr);
    const auto rows = [&] { return list->model()->rowCount(list->rootIndex()); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows() > 0; }));
    kind = list->model()->index(0, 2, list->rootIndex()).data().toString();
    QTest::qWait(200);
    d.reject();
  });
  EXPECT_EQ(Echec([&] { dialogues.OuvreFichier(Demande()); }), ErrorNumber::Cancelled);
  EXPECT_FALSE(kind.isEmpty());
  std::array<char, 4096> events{};
  EXPECT_LT(read(watch, events.data(), events.size()), 0) << "somebody opened the file";
  close(watch);
}
#endif

TEST_F(QtDialoguesFichiers, AnOpenDialogTakesANameThatDoesNotExistYet) {
  const DialogDriver driver("OpenDialog", QuiTape("new"));
  EXPECT_EQ(dialogues.OuvreFichier(Demande()), Utf8("new"));
}

// clang-format off
struct SuffixCase { const char* typed; const char* given; };
constexpr SuffixCase suffixCases[] = {
    {"bees", "bees.deg"}, {"bees.deg", "bees.deg"}, {"bees.DEG", "bees.DEG"}, {"bees.txt", "bees.txt"},
};
// clang-format on

TEST_F(QtDialoguesFichiers, SavingAddsTheSuffixToABareName) {
  for (const SuffixCase& c : suffixCases) {
    const DialogDriver driver("SaveDialog", QuiTape(c.typed));
    EXPECT_EQ(dialogues.EnregistreFichier(Demande()), Utf8(c.given));
  }
}

TEST_F(QtDialoguesFichiers, TheSuffixFollowsTheFilter) {
  FileDialog demande = Demande();
  demande.filter = "A (*.a)|*.a|B (*.b)|*.b|All (*.*)|*.*";
  const auto chosen = [&](const QString& filter) {
    const DialogDriver driver("SaveDialog", [&](QDialog& d) {
      dynamic_cast<QFileDialog&>(d).selectNameFilter(filter);
      Q_EMIT dynamic_cast<QFileDialog&>(d).filterSelected(filter);
      Tape(d, "name");
    });
    return dialogues.EnregistreFichier(demande);
  };
  EXPECT_EQ(chosen("A (*.a)"), Utf8("name.a"));
  EXPECT_EQ(chosen("B (*.b)"), Utf8("name.b"));
  EXPECT_EQ(chosen("All (*)"), Utf8("name"));
}

TEST_F(QtDialoguesFichiers, ReplacingIsAskedWhenWanted) {
  Touche("old.deg");
  FileDialog demande = Demande();
  demande.confirmReplace = true;
  int questions = 0;
  const DialogDriver driver("SaveDialog", [&](QDialog& d) {
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
      QTimer::singleShot(50, &d, [&questions, answer] {
        auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(question, nullptr) << "no question before the file is replaced";
        ++questions;
        question->button(answer)->click();
      });
      Tape(d, "old");  // the question knows the suffix that will be added
      EXPECT_EQ(d.isVisible(), answer == QMessageBox::No);
    }
  });
  EXPECT_EQ(dialogues.EnregistreFichier(demande), Utf8("old.deg"));
  EXPECT_EQ(questions, 2);
}

TEST_F(QtDialoguesFichiers, ReplacingIsNotAskedOtherwise) {
  Touche("old.deg");
  const DialogDriver driver("SaveDialog", QuiTape("old.deg"));
  EXPECT_EQ(dialogues.EnregistreFichier(Demande()), Utf8("old.deg"));
}

TEST_F(QtDialoguesFichiers, ThePathOfferedBringsItsFolder) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("sub"));
  FileDialog demande = Demande();
  demande.name = Utf8("sub/bees.deg");
  const DialogDriver driver("SaveDialog", [&](QDialog& d) {
    EXPECT_EQ(Nom(d).text(), u"bees.deg");
    EXPECT_EQ(QDir(dynamic_cast<QFileDialog&>(d).directory().path()), QDir(Chemin("sub")));
    QTest::keyClick(&Nom(d), Qt::Key_Return);
  });
  EXPECT_EQ(dialogues.EnregistreFichier(demande), Utf8("sub/bees.deg"));
}

TEST_F(QtDialoguesFichiers, AFolderIsFoundWithOtherSeparatorsAndCase) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("Bees"));
  FileDialog demande = Demande();
  demande.folder = Utf8("BEES").append("\\");
  const DialogDriver driver("OpenDialog", [&](QDialog& d) {
    EXPECT_EQ(QDir(dynamic_cast<QFileDialog&>(d).directory().path()), QDir(Chemin("Bees")));
    Tape(d, "x.deg");
  });
  EXPECT_EQ(dialogues.OuvreFichier(demande), Utf8("Bees/x.deg"));
}

TEST_F(QtDialoguesFichiers, AFolderThatIsGoneLeavesTheDialogWhereTheProcessIs) {
  FileDialog demande = Demande();
  demande.folder = Utf8("gone");
  const DialogDriver driver("OpenDialog", [&](QDialog& d) {
    EXPECT_EQ(dynamic_cast<QFileDialog&>(d).directory().path(), QDir::currentPath());
    d.reject();
  });
  EXPECT_EQ(Echec([&] { dialogues.OuvreFichier(demande); }), ErrorNumber::Cancelled);
}

TEST_F(QtDialoguesFichiers, TheRootIsNoPlaceToLookForFiles) {
  const QString before = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(QDir::rootPath()));
  FileDialog demande = Demande();
  demande.folder.clear();
  const DialogDriver driver("OpenDialog", [&](QDialog& d) {
    EXPECT_EQ(QDir(dynamic_cast<QFileDialog&>(d).directory().path()), QDir::home());
    d.reject();
  });
  EXPECT_EQ(Echec([&] { dialogues.OuvreFichier(demande); }), ErrorNumber::Cancelled);
  QDir::setCurrent(before);
}

TEST_F(QtDialoguesFichiers, AFolderIsChosen) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("sub"));
  const DialogDriver driver("FolderDialog", [&](QDialog& d) {
    EXPECT_EQ(d.windowTitle(), u"Please choose a folder");
    Tape(d, "sub");
  });
  EXPECT_EQ(dialogues.ChoisitDossier("Please choose a folder", folder.path().toStdString()),
            Utf8("sub"));
}

TEST_F(QtDialoguesFichiers, TheToolkitsOwnDialogsSpeakTheLanguageAsItChanges) {
  std::int16_t langue = 1000;
  dialogues.SuitLangue(langue);
  const auto button = [&] {
    QString caption;
    const DialogDriver driver("OpenDialog", [&](QDialog& d) {
      caption = d.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Open)->text();
      d.reject();
    });
    EXPECT_EQ(Echec([&] { dialogues.OuvreFichier(Demande()); }), ErrorNumber::Cancelled);
    return caption.remove('&');
  };
  EXPECT_EQ(button(), u"Open");
  const std::pair<std::int16_t, QString> captions[] = {
      {3000, u"\u00d6ffnen"_qs}, {0, u"Ouvrir"_qs},  {4000, u"Apri"_qs},
      {5000, u"Openen"_qs},      {1000, u"Open"_qs}, {2000, u"Open"_qs},
  };
  for (const auto& [language, caption] : captions) {
    langue = language;
    EXPECT_EQ(button(), caption) << language;
  }
}

// ---- Colour, font, printer

TEST(QtDialogues, AColourStartsAndEndsWithBlueHigh) {
  QtDialogues dialogues;
  const DialogDriver driver("ColourDialog", [](QDialog& d) {
    auto& colours = dynamic_cast<QColorDialog&>(d);
    EXPECT_EQ(colours.currentColor(), QColor(0xFF, 0xFF, 0xE0));
    colours.setCurrentColor(QColor(0x12, 0x34, 0x56));
    d.accept();
  });
  EXPECT_EQ(dialogues.ChoisitCouleur(0xE0FFFF), 0x563412U);
}

TEST(QtDialogues, AFontIsChosenWithSizeAndStyle) {
  const QString family = QApplication::font().family();
  const bool hasBold = QFontDatabase::styles(family).contains("Bold");
  QtDialogues dialogues;
  const DialogDriver driver("FontDialog", [&](QDialog& d) {
    auto& fonts = dynamic_cast<QFontDialog&>(d);
    QFont font = fonts.currentFont();
    EXPECT_DOUBLE_EQ(font.pointSizeF(), 12);
    EXPECT_EQ(font.bold(), hasBold) << "the dialog offers the styles that the family has";
    font.setPointSizeF(14);
    fonts.setCurrentFont(font);
    d.accept();
  });
  const Font font =
      dialogues.ChoisitPolice({.family = family.toStdString(), .sizePoints = 12, .bold = true});
  EXPECT_DOUBLE_EQ(font.sizePoints, 14);
  EXPECT_EQ(font.bold, hasBold);
  EXPECT_FALSE(font.family.empty());
}

TEST(QtDialogues, CancelIsRaisedByColourFontAndPrinter) {
  QtDialogues dialogues;
  const auto cancels = [](const char* name, auto&& body) {
    const DialogDriver driver(name, Rejects);
    EXPECT_EQ(Echec(body), ErrorNumber::Cancelled) << name;
  };
  cancels("ColourDialog", [&] { dialogues.ChoisitCouleur(0); });
  cancels("FontDialog", [&] { dialogues.ChoisitPolice({}); });
  cancels("PrintDialog", [&] { dialogues.Imprime(); });
}

TEST(QtDialogues, ThePrinterIsKept) {
  QtDialogues dialogues;
  dialogues.ImprimanteNative().setCopyCount(3);
  EXPECT_EQ(dialogues.ImprimanteNative().copyCount(), 3);
}

TEST(QtDialogues, ThePreviewShowsWhatIsPrintedOnTheCurrentPrinter) {
  QtDialogues dialogues;
  dialogues.Imprimante().ChangeOrientation(true);
  int drawn = 0;
  const DialogDriver driver("PrintPreviewDialog", [](QDialog& d) { d.close(); });
  dialogues.Apercu([&](Printer& printer) {
    ++drawn;
    EXPECT_EQ(&printer, &dialogues.Imprimante());
    EXPECT_GT(printer.ZoneImprimable().width, printer.ZoneImprimable().height);
    const auto canvas = printer.CreeCanevas(2);
    canvas->ChangeEchelle({0, 0, 10, 10});
    printer.ImprimePage(*canvas, {0, 0, 100, 100});
  });
  EXPECT_GE(drawn, 1);
}

TEST(QtDialogues, AFailureOfWhatThePreviewShowsComesBack) {
  QtDialogues dialogues;
  try {
    dialogues.Apercu([](Printer&) { throw TalpenaError(ErrorNumber::FileNotFound, "gone"); });
    ADD_FAILURE() << "no failure";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::FileNotFound);
  }
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace talpena
