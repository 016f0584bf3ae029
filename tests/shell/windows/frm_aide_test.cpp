// frmAide: contents, search, the way through the pages, the language, F1 from every window.
#include "shell/windows/frm_aide.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrinter>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QToolButton>
#include <QTreeWidget>
#include <memory>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "form1_machine.h"
#include "shell/windows/help_desk.h"
#include "shell/windows/help_hit_delegate.h"
#include "shell/windows/help_page_view.h"

namespace talpena {
namespace {

using namespace Qt::StringLiterals;

constexpr std::int16_t French = 0, English = 1000, German = 3000;

/// The window by itself, over the guides that the build made.
class FrmAide : public testing::Test, protected test::FakeServices {
 protected:
  FrmAide() {
    QApplication::setQuitOnLastWindowClosed(false);
    state_.AppDir = TALPENA_RUNTIME_DIR;
    ChangeLangue(English);
  }
  void ChangeLangue(std::int16_t langue) {
    state_.Langue = langue;
    state_.FichierAide = CheminAide(state_);
    if (!form_) return;
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(form_.get(), &change);
  }
  /// Opens and shows it; the search and the page are at hand then.
  void Ouvre(const QString& target = {}) {
    form_ = std::make_unique<frmAide>(state_, io_, place_);
    ASSERT_TRUE(form_->Ouvre());
    form_->Montre(target);
    form_->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  template <typename Control>
  Control* Trouve(const char* name) const {
    auto* control = form_->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  HelpPageView* Page() const { return Trouve<HelpPageView>("page"); }
  QTreeWidget* Sommaire() const { return Trouve<QTreeWidget>("treeSommaire"); }
  QListWidget* Trouvailles() const { return Trouve<QListWidget>("lstTrouve"); }
  QLineEdit* Recherche() const { return Trouve<QLineEdit>("txtRecherche"); }
  QString Titre() const { return Sommaire()->currentItem()->text(0); }
  void Touche(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(widget, key, modifiers);
  }

  test::TempFolder folder_;
  std::unique_ptr<TableEngine> engine_ = CreeMoteurSqlite();
  std::unique_ptr<FileSystem> files_ = CreeSystemeDeFichiers();
  Platform io_{*engine_, *files_, settings, dialogues, clock, environment, sound};
  ProcessState state_;
  std::shared_ptr<HelpPlace> place_ = std::make_shared<HelpPlace>();
  std::unique_ptr<frmAide> form_;
};

TEST_F(FrmAide, OpensAtTheContents) {
  Ouvre();
  EXPECT_EQ(form_->windowTitle(), "Talpena user guide");
  EXPECT_EQ(Page()->Cible(), "index.html");
  EXPECT_TRUE(Page()->toPlainText().contains("Talpena edits distribution files"));
  EXPECT_FALSE(form_->isModal());
}

TEST_F(FrmAide, ListsChaptersAndTheirSections) {
  Ouvre();
  const QTreeWidget* tree = Sommaire();
  ASSERT_EQ(tree->topLevelItemCount(), 20);
  EXPECT_EQ(tree->topLevelItem(0)->text(0), "Talpena user guide");
  EXPECT_EQ(tree->topLevelItem(0)->childCount(), 0);
  EXPECT_EQ(tree->topLevelItem(2)->text(0), "The table");
  ASSERT_GT(tree->topLevelItem(2)->childCount(), 6);
  EXPECT_EQ(tree->topLevelItem(2)->child(0)->text(0), "Sort");
}

TEST_F(FrmAide, GoesWhereTheContentsLead) {
  Ouvre();
  QTreeWidgetItem* chapter = Sommaire()->topLevelItem(2);
  for (int i = 0; i < chapter->childCount(); ++i) {
    if (chapter->child(i)->text(0) != "Erase a column") continue;
    Sommaire()->setCurrentItem(chapter->child(i));
  }
  EXPECT_EQ(Page()->Cible(), "table.html#erase");
  const QTextCursor top = Page()->cursorForPosition({20, 10});
  EXPECT_EQ(top.block().text(), "Erase a column");
}

TEST_F(FrmAide, OpensAtAHeadingWithItsWholeHeightOnShow) {
  Ouvre("table.html#erase");
  const QTextCursor top = Page()->cursorForPosition({20, 10});
  EXPECT_EQ(top.block().text(), "Erase a column");
  EXPECT_GE(Page()->cursorRect(QTextCursor(top.block())).top(), 0);
}

TEST_F(FrmAide, ShowsInTheContentsWhereThePageIs) {
  Ouvre("record.html#date");
  EXPECT_EQ(Titre(), "The date");
  EXPECT_TRUE(Sommaire()->currentItem()->parent()->isExpanded());
  form_->Montre("files.html");
  EXPECT_EQ(Titre(), "Files");
}

TEST_F(FrmAide, GoesBackAndForwardAndHome) {
  Ouvre();
  EXPECT_FALSE(Trouve<QToolButton>("cmdRetour")->isEnabled());
  form_->Montre("files.html#save");
  form_->Montre("keys.html");
  Touche(Page(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Page()->Cible(), "files.html#save");
  EXPECT_EQ(Titre(), "Save and Save as");
  Touche(Page(), Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Page()->Cible(), "keys.html");
  Trouve<QToolButton>("cmdRetour")->click();
  EXPECT_EQ(Page()->Cible(), "files.html#save");
  EXPECT_TRUE(Trouve<QToolButton>("cmdSuite")->isEnabled());
  Touche(Page(), Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(Page()->Cible(), "index.html");
}

TEST_F(FrmAide, FollowsALinkOfThePage) {
  Ouvre("table.html");
  Page()->setSource(QUrl("files.html#group"));
  EXPECT_EQ(Page()->Cible(), "files.html#group");
  EXPECT_TRUE(Page()->toPlainText().contains("Group and save"));
  EXPECT_FALSE(Page()->openExternalLinks());
}

TEST_F(FrmAide, SearchesWhileOneTypes) {
  Ouvre();
  Touche(Page(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(Recherche()->hasFocus());
  QTest::keyClicks(Recherche(), "MASK");
  ASSERT_GT(Trouvailles()->count(), 0);
  EXPECT_TRUE(Trouvailles()->isVisible());
  EXPECT_EQ(Trouvailles()->item(0)->text(), "The date");
  EXPECT_TRUE(
      Trouvailles()->item(0)->data(HelpHitDelegate::contextRole).toString().contains("mask"));
  Recherche()->clear();
  EXPECT_TRUE(Sommaire()->isVisible());
}

TEST_F(FrmAide, EnterGoesToTheFirstHit) {
  Ouvre();
  Recherche()->setFocus();
  QTest::keyClicks(Recherche(), "mask");
  Touche(Recherche(), Qt::Key_Return);
  EXPECT_EQ(Page()->Cible(), "record.html#date");
  EXPECT_TRUE(Page()->hasFocus());
  EXPECT_GE(Page()->Place(), 0);
  EXPECT_FALSE(Page()->extraSelections().isEmpty());
}

TEST_F(FrmAide, ArrowsGoThroughTheHits) {
  Ouvre();
  Recherche()->setFocus();
  QTest::keyClicks(Recherche(), "autosave");
  ASSERT_GT(Trouvailles()->count(), 1);
  Touche(Recherche(), Qt::Key_Down);
  EXPECT_TRUE(Trouvailles()->hasFocus());
  const QString first = Page()->Cible();
  Touche(Trouvailles(), Qt::Key_Down);
  EXPECT_EQ(Trouvailles()->currentRow(), 1);
  EXPECT_NE(Page()->Cible(), first);
  EXPECT_TRUE(Trouvailles()->hasFocus());
}

TEST_F(FrmAide, F3GoesFromPlaceToPlaceRoundTheEnd) {
  Ouvre("record.html");
  Recherche()->setText("mask");
  const int count = Page()->NombreDePlaces();
  ASSERT_GE(count, 2);
  EXPECT_EQ(Page()->Place(), -1);
  for (int i = 0; i < count; ++i) {
    Touche(Page(), Qt::Key_F3);
    EXPECT_EQ(Page()->Place(), i);
    EXPECT_EQ(Trouve<QLabel>("lblPlace")->text(), u"%1 / %2"_s.arg(i + 1).arg(count));
  }
  Touche(Page(), Qt::Key_F3);
  EXPECT_EQ(Page()->Place(), 0);
  Touche(Page(), Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(Page()->Place(), count - 1);
  // The current one is marked in the colours of a selection, the others softly.
  const QPalette& colours = Page()->palette();
  const auto marks = Page()->extraSelections();
  EXPECT_EQ(marks.last().format.background().color(), colours.color(QPalette::Highlight));
  EXPECT_NE(marks.first().format.background().color(), colours.color(QPalette::Highlight));
  EXPECT_EQ(marks.first().cursor.selectedText().toLower(), "mask");
}

TEST_F(FrmAide, SaysWhenNothingIsFound) {
  Ouvre();
  Recherche()->setText("zebra");
  const auto* none = Trouve<QLabel>("lblRien");
  EXPECT_TRUE(none->isVisible());
  EXPECT_TRUE(none->text().contains("\"zebra\"")) << none->text().toStdString();
  EXPECT_FALSE(Trouve<QToolButton>("cmdTrouve_0")->isEnabled());
}

TEST_F(FrmAide, EscapeLeavesTheSearchAndThenCloses) {
  Ouvre();
  Recherche()->setFocus();
  QTest::keyClicks(Recherche(), "mask");
  Touche(Recherche(), Qt::Key_Escape);
  EXPECT_TRUE(form_->isVisible());
  EXPECT_TRUE(Recherche()->text().isEmpty());
  Touche(Recherche(), Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(FrmAide, EscapeInThePageCloses) {
  Ouvre();
  Recherche()->setText("mask");
  Page()->setFocus();
  Touche(Page(), Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(FrmAide, ZoomsWithinLimits) {
  Ouvre();
  const auto points = [this] { return Page()->document()->defaultFont().pointSizeF(); };
  const double normal = points();
  Touche(Page(), Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(points(), normal + 1);
  Touche(Page(), Qt::Key_Minus, Qt::ControlModifier);
  Touche(Page(), Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(points(), normal - 1);
  Touche(Page(), Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(points(), normal);
  for (int i = 0; i < 40; ++i) Touche(Page(), Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_GT(points(), 0);
}

TEST_F(FrmAide, KeepsItsPlaceWhileTheProgramRuns) {
  Ouvre("files.html#merge");
  form_->resize(700, 500);
  Page()->ChangeZoom(3);
  form_->close();
  EXPECT_EQ(place_->geometry.size(), QSize(700, 500));
  Ouvre();
  EXPECT_EQ(form_->size(), QSize(700, 500));
  EXPECT_EQ(Page()->Zoom(), 3);
  EXPECT_EQ(Page()->Cible(), "files.html#merge");
}

TEST_F(FrmAide, FollowsTheLanguageWhileOpen) {
  Ouvre("table.html#erase");
  Recherche()->setText("datum");
  ChangeLangue(French);
  EXPECT_EQ(form_->windowTitle(), "Guide d’utilisation de Talpena");
  EXPECT_EQ(Page()->Cible(), "table.html#erase");
  EXPECT_TRUE(Page()->toPlainText().contains("Regardez-y à deux fois"));
  EXPECT_EQ(Sommaire()->topLevelItem(2)->text(0), "La table");
  EXPECT_GT(Trouvailles()->count(), 0);
  EXPECT_TRUE(dialogues.boxes.empty());
  ChangeLangue(German);
  EXPECT_EQ(form_->windowTitle(), "Talpena-Benutzerhandbuch");
  EXPECT_TRUE(Page()->toPlainText().contains("Look twice"));
}

TEST_F(FrmAide, HasACaptionForEverythingInEveryLanguage) {
  Ouvre();
  for (const std::int16_t langue : std::initializer_list<std::int16_t>{0, 1000, 3000, 4000, 5000}) {
    SCOPED_TRACE(langue);
    ChangeLangue(langue);
    for (const auto* button : form_->findChildren<QToolButton*>()) {
      if (!button->objectName().startsWith("cmd")) continue;
      EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
      EXPECT_FALSE(button->toolTip().isEmpty());
    }
    for (const char* name : {"txtRecherche", "treeSommaire", "lstTrouve", "page"}) {
      EXPECT_FALSE(Trouve<QWidget>(name)->accessibleName().isEmpty()) << name;
    }
    EXPECT_TRUE(Trouve<QLabel>("lblRecherche")->text().contains('&'));
  }
}

TEST_F(FrmAide, NamesAGuideThatIsMissing) {
  state_.FichierAide = (folder_ / "GONE.HLP");
  form_ = std::make_unique<frmAide>(state_, io_, place_);
  EXPECT_FALSE(form_->Ouvre());
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "The user guide cannot be found: " + state_.FichierAide);
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(sound.bips, 1);
}

TEST_F(FrmAide, NamesAGuideThatIsDamaged) {
  QFile whole(QString::fromStdString(state_.FichierAide));
  ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
  state_.FichierAide = (folder_ / "HALF.HLP");
  state_.Silence = true;
  QFile half(QString::fromStdString(state_.FichierAide));
  ASSERT_TRUE(half.open(QIODevice::WriteOnly));
  half.write(whole.read(whole.size() / 2));
  half.close();
  form_ = std::make_unique<frmAide>(state_, io_, place_);
  EXPECT_FALSE(form_->Ouvre());
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "The user guide is damaged: " + state_.FichierAide);
  EXPECT_EQ(sound.bips, 0);
}

TEST_F(FrmAide, KeepsItsGuideWhenTheOtherLanguagesIsMissing) {
  Ouvre("table.html");
  state_.AppDir = folder_.path().string();
  ChangeLangue(French);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, QString::fromStdString(Texte(French, MsgId::AideIntrouvable))
                                         .arg(QString::fromStdString(state_.FichierAide))
                                         .toStdString());
  EXPECT_TRUE(Page()->toPlainText().contains("Look twice"));
}

TEST_F(FrmAide, DrawsPicturesAsWideAsThereIsRoom) {
  Ouvre("first-steps.html");
  const auto width = [this] {
    const QUrl url("../pictures/en/main.png");
    const QVariant image = Page()->document()->resource(QTextDocument::ImageResource, url);
    const auto drawn = image.value<QImage>();
    return drawn.width() / drawn.devicePixelRatio();
  };
  form_->resize(1000, 600);
  const double wide = width();
  EXPECT_GT(wide, 300);
  form_->resize(700, 600);
  EXPECT_LT(width(), wide);
  EXPECT_EQ(Page()->horizontalScrollBar()->maximum(), 0);
}

TEST_F(FrmAide, NeedsNoScrollingSideways) {
  for (const std::int16_t langue : {French, English}) {
    ChangeLangue(langue);
    Ouvre();
    for (const int width : {1020, 820}) {
      form_->resize(width, 600);
      for (int i = 0; i < Sommaire()->topLevelItemCount(); ++i) {
        Sommaire()->setCurrentItem(Sommaire()->topLevelItem(i));
        QCoreApplication::processEvents();
        EXPECT_EQ(Page()->horizontalScrollBar()->maximum(), 0)
            << Page()->Cible().toStdString() << ' ' << langue << ' ' << width;
      }
    }
  }
}

TEST_F(FrmAide, FollowsThePaletteOfTheDesktop) {
  Ouvre("table.html");
  const auto alternate = [this] { return Page()->palette().color(QPalette::AlternateBase).name(); };
  const QString style =
      Page()->loadResource(QTextDocument::StyleSheetResource, QUrl("../help.css")).toString();
  EXPECT_TRUE(style.contains(alternate()));
  EXPECT_FALSE(style.contains("palette("));
  QPalette dark(QColor(0x35, 0x37, 0x3B), QColor(0x2B, 0x2D, 0x30));
  dark.setColor(QPalette::AlternateBase, QColor(0x41, 0x44, 0x49));
  Page()->verticalScrollBar()->setValue(200);
  form_->setPalette(dark);
  EXPECT_EQ(alternate(), "#414449");
  EXPECT_TRUE(Page()
                  ->loadResource(QTextDocument::StyleSheetResource, QUrl("../help.css"))
                  .toString()
                  .contains("#414449"));
  EXPECT_EQ(Page()->verticalScrollBar()->value(), 200);
}

TEST_F(FrmAide, PrintsTheChapter) {
  Ouvre("coordinates.html");
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  const std::string path = (folder_ / "help.pdf");
  printer.setOutputFileName(QString::fromStdString(path));
  form_->Imprime(printer);
  QFile pdf(QString::fromStdString(path));
  ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
  EXPECT_TRUE(pdf.read(5) == "%PDF-");
  EXPECT_GT(pdf.size(), 20000);
  EXPECT_TRUE(Page()->PagePourImpression()->toPlainText().contains("Two descriptions"));
}

}  // namespace
}  // namespace talpena
