// The chart window: wiring, keyboard, what it copies, saves and prints.
#include "analysis/windows/frm_graphique.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <cstdlib>
#include <set>
#include <utility>

#include "common/msg_id_analysis.h"
#include "fakes/dark_palette.h"
#include "fakes/temp_folder.h"
#include "platform/qt/chart/chart_plot.h"
#include "platform/qt/qt_canvas.h"
#include "store/world.h"

namespace talpena::test {
namespace {

ChartPicture Mois() {
  ChartPicture picture;
  picture.numPoints = 12;
  picture.labels = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  picture.leftTitle = "N";
  picture.graphTitle = "Talpa/europaea";
  picture.lignes = {MsgId::LignesToutes, 3, 3};
  picture.series.push_back({"", std::vector<std::optional<double>>(12, 2.0), false});
  picture.series[0].values[4] = 7;
  return picture;
}

class ChartWindow : public testing::Test, protected World {
 protected:
  void Ouvre(const ChartPicture& picture = Mois()) {
    state.Langue = 1000;
    window = std::make_unique<frmGraphique>(state, io, picture, "/moles");
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::qWait(20);
  }
  template <typename Widget>
  Widget* Enfant(const char* name) {
    auto* widget = window->findChild<Widget*>(QString::fromLatin1(name));
    if (widget == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return widget;
  }
  ChartPlot* Graphe() { return Enfant<ChartPlot>("Graph1"); }
  std::string Ligne() { return Enfant<QLabel>("lblPoint")->text().toStdString(); }
  void Presse(const char* button) {
    QTest::mouseClick(Enfant<QPushButton>(button), Qt::LeftButton);
  }

  std::unique_ptr<frmGraphique> window;
};

TEST_F(ChartWindow, SaysWhichRowsAreCountedAndHowTheKeysLead) {
  Ouvre();
  EXPECT_EQ(Enfant<QLabel>("lblRemarque")->text(), "Rows counted: 3 (all)");
  EXPECT_TRUE(Ligne().starts_with("The arrow keys"));
  EXPECT_EQ(window->windowTitle(), "Talpa/europaea");
  EXPECT_TRUE(Graphe()->hasFocus());
}

TEST_F(ChartWindow, ArrowKeysGoFromPointToPoint) {
  Ouvre();
  QTest::keyClick(Graphe(), Qt::Key_Right);
  EXPECT_EQ(Ligne(), "Jan: 2");
  for (int i = 0; i < 4; ++i) QTest::keyClick(Graphe(), Qt::Key_Right);
  EXPECT_EQ(Ligne(), "May: 7");
  EXPECT_EQ(Graphe()->accessibleDescription(), "May: 7");
  QTest::keyClick(Graphe(), Qt::Key_End);
  QTest::keyClick(Graphe(), Qt::Key_Right);
  EXPECT_EQ(Ligne(), "Dec: 2") << "the last one";
  QTest::keyClick(Graphe(), Qt::Key_Home);
  QTest::keyClick(Graphe(), Qt::Key_Left);
  EXPECT_EQ(Ligne(), "Jan: 2") << "the first one";
}

TEST_F(ChartWindow, ThePointerTellsTheValueUnderIt) {
  Ouvre();
  QWidget* plot = Graphe()->findChild<QWidget*>();
  const int y = plot->height() / 2;
  std::vector<std::string> told;
  for (int x = 0; x < plot->width(); x += 4) {
    QTest::mouseMove(plot, QPoint(x, y));
    QCoreApplication::processEvents();
    if (Graphe()->PointCourant() != 0 && (told.empty() || told.back() != Ligne())) {
      told.push_back(Ligne());
    }
  }
  EXPECT_EQ(told.size(), 12U);
  EXPECT_NE(std::find(told.begin(), told.end(), "May: 7"), told.end());
}

TEST_F(ChartWindow, AnEmptyChartSaysThatNoRowHasAValue) {
  ChartPicture empty;
  empty.numPoints = 1;
  Ouvre(empty);
  EXPECT_EQ(Ligne(), "No row has a value for this chart.");
  EXPECT_EQ(window->windowTitle(), "Chart");
  EXPECT_FALSE(Enfant<QLabel>("lblRemarque")->isVisible());
  dialogues.paths = {""};
  Presse("cmdNombres");
  EXPECT_EQ(dialogues.fileDialogs.back().name, "Chart.csv");
}

TEST_F(ChartWindow, CopiesAPictureOnWhitePaper) {
  Ouvre();
  QTest::keyClick(Graphe(), Qt::Key_C, Qt::ControlModifier);
  const QImage copied = QApplication::clipboard()->image();
  EXPECT_EQ(copied.size(), QSize(1440, 960));
  EXPECT_EQ(copied.pixelColor(1, 1), QColor(Qt::white));
}

TEST_F(ChartWindow, PicturesAreOnWhitePaperOnADarkDesktopToo) {
  Ouvre();
  const QImage light = Graphe()->EnImage({400, 300}, 1);
  window->setPalette(PaletteSombre());
  QTest::keyClick(Graphe(), Qt::Key_Right);
  EXPECT_EQ(Graphe()->EnImage({400, 300}, 1), light);
  EXPECT_EQ(Graphe()->PointCourant(), 1) << "the mark comes back";
}

struct SavedCase {
  const char* path;
  const char* begin;
};

TEST_F(ChartWindow, SavesPngSvgAndPdfByTheNameOfTheFile) {
  Ouvre();
  for (const auto& [path, begin] :
       {SavedCase{"/out/chart.png", "\x89PNG"}, SavedCase{"/out/chart.SVG", "<?xml"},
        SavedCase{"/out/chart.pdf", "%PDF-"}, SavedCase{"/out/chart", "\x89PNG"}}) {
    dialogues.paths = {path};
    Presse("cmdEnregistrer");
    EXPECT_TRUE(files.Contenu(path).starts_with(begin)) << path;
    EXPECT_TRUE(dialogues.fileDialogs.back().confirmReplace);
    EXPECT_EQ(dialogues.fileDialogs.back().name, "Talpa europaea.png");
    EXPECT_EQ(dialogues.fileDialogs.back().folder, "/moles");
  }
}

TEST_F(ChartWindow, AnEndingThatIsNoneOfThemIsRefused) {
  Ouvre();
  dialogues.paths = {"/out/chart.jpg"};
  Presse("cmdEnregistrer");
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_NE(dialogues.boxes[0].text.find(".png, .svg"), std::string::npos);
  EXPECT_FALSE(files.Existe("/out/chart.jpg"));
}

/// Where there is ink, in eighths of a picture's width and height.
std::set<std::pair<int, int>> Encre(const QImage& picture) {
  std::set<std::pair<int, int>> cells;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (qGray(picture.pixel(x, y)) < 128) {
        cells.insert({8 * x / picture.width(), 8 * y / picture.height()});
      }
    }
  }
  return cells;
}

// Texts that are measured by another device than they are drawn on fill the page, or are lost.
TEST_F(ChartWindow, APageLooksAsThePictureDoes) {
  if (std::system("gs --version > /dev/null 2>&1") != 0) GTEST_SKIP() << "needs Ghostscript";
  Ouvre();
  const TempFolder folder;
  const std::string pdf = folder / "chart.pdf", png = folder / "chart.png";
  EcritFichier(pdf, Graphe()->EnPdf({720, 480}).toStdString());
  const std::string command =
      "gs -q -dBATCH -dNOPAUSE -dSAFER -sDEVICE=pnggray -r96 -dTextAlphaBits=4 "
      "-dGraphicsAlphaBits=4 -sOutputFile='" +
      png + "' '" + pdf + "'";
  ASSERT_EQ(std::system(command.c_str()), 0);
  const QImage page(QString::fromStdString(png));
  EXPECT_EQ(page.size(), QSize(720, 480));
  EXPECT_EQ(Encre(page), Encre(Graphe()->EnImage({720, 480}, 1)));
}

TEST_F(ChartWindow, TextsOfADrawingAreAsLargeAsOnTheScreen) {
  Ouvre();
  const int pixels = QFontInfo(Graphe()->font()).pixelSize();
  const QByteArray svg = Graphe()->EnSvg({720, 480});
  EXPECT_TRUE(svg.contains("font-size=\"" + QByteArray::number(pixels) + "\""));
  EXPECT_FALSE(svg.contains("opacity=\"0.")) << "not every reader knows half a colour";
}

TEST_F(ChartWindow, SavesTheNumbersWithCommas) {
  Ouvre();
  dialogues.paths = {"/out/chart.csv"};
  Presse("cmdNombres");
  EXPECT_TRUE(files.Contenu("/out/chart.csv").starts_with(",N\r\nJan,2\r\nFeb,2\r\n"));
  EXPECT_EQ(dialogues.fileDialogs.back().name, "Talpa europaea.csv");
}

TEST_F(ChartWindow, ASaveDialogLeftByCancelSavesNothingAndSaysNothing) {
  Ouvre();
  dialogues.paths = {"", ""};
  Presse("cmdEnregistrer");
  Presse("cmdNombres");
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(ChartWindow, PrintsOnePageLengthwise) {
  dialogues.imprimante.canevas = [] { return std::make_unique<QtCanvas>(4); };
  QImage page;
  dialogues.imprimante.surPage = [&](Canvas& canvas) {
    page = dynamic_cast<QtCanvas&>(canvas).Surface().copy();
  };
  Ouvre();
  Presse("cmdImprimer");
  ASSERT_EQ(dialogues.imprimante.pages.size(), 1U);
  EXPECT_TRUE(dialogues.imprimante.paysage);
  EXPECT_EQ(page.size(), QSize(2880, 1920));
  const PagePlace& place = dialogues.imprimante.pages[0];
  EXPECT_NEAR(place.width / place.height, 1.5, 1e-9);
  dialogues.imprimeAnnule = true;
  Presse("cmdImprimer");
  EXPECT_EQ(dialogues.imprimante.pages.size(), 1U) << "Cancel in the print dialog";
}

TEST_F(ChartWindow, FollowsTheLanguage) {
  Ouvre();
  state.Langue = 0;
  QEvent event(QEvent::LanguageChange);
  QApplication::sendEvent(window.get(), &event);
  EXPECT_EQ(Enfant<QPushButton>("cmdCopier")->accessibleName(), "Copier");
  EXPECT_EQ(Enfant<QLabel>("lblRemarque")->text(),
            QString::fromUtf8("Lignes comptées : 3 (toutes)"));
}

TEST_F(ChartWindow, ScaleAndPlaceStayWithinThePoints) {
  ChartPicture many;
  many.numPoints = 3800;
  many.labelEvery = 1000;
  many.series.push_back({"", std::vector<std::optional<double>>(3800, 1.0), false});
  Ouvre(many);
  for (int i = 0; i < 40; ++i) QTest::keyClick(Graphe(), Qt::Key_Plus);
  QTest::keyClick(Graphe(), Qt::Key_End);
  EXPECT_EQ(Ligne(), "3800: 1");
  for (int i = 0; i < 40; ++i) QTest::keyClick(Graphe(), Qt::Key_Minus);
  QTest::keyClick(Graphe(), Qt::Key_0);
  QTest::keyClick(Graphe(), Qt::Key_PageUp);
  EXPECT_EQ(Ligne(), "3420: 1");
}

}  // namespace
}  // namespace talpena::test
