// The map on a page of a PDF file.
#include <gtest/gtest.h>

#include <QPrinter>
#include <QRegularExpression>

#include "map_machine.h"
#include "maps/map_files.h"
#include "maps/map_world.h"
#include "maps/print_map.h"
#include "platform/qt/qt_printer.h"

namespace talpena {
namespace {

/// What is printed is also looked at.
class LookedAtPrinter : public QtPrinter {
 public:
  QImage page;
  void ImprimePage(Canvas& canvas, const PagePlace& place) override {
    page = dynamic_cast<QtCanvas&>(canvas).Surface();
    QtPrinter::ImprimePage(canvas, place);
  }
};

struct PrintMachine : test::MapMachine {
  PrintMachine() {
    printer.Natif().setOutputFormat(QPrinter::PdfFormat);
    printer.Natif().setPageSize(QPageSize(QPageSize::A4));
    printer.Natif().setOutputFileName(QString::fromStdString(pdf));
  }
  MapContext Contexte() { return {map, options, canvas, window, state, reel, vue, vue}; }

  MapState map;
  MapOption options;
  QtCanvas canvas;
  test::FakeMapWindow window;
  std::string pdf = folder / "map.pdf";
  LookedAtPrinter printer;
};

TEST(PrintPdf, IsOneSharpPageAcross) {
  PrintMachine m;
  ChargeCarte(m.Contexte(), m.Carte());
  m.printer.ChangeOrientation(EstPaysage(m.canvas.LargeurTwips(), m.canvas.HauteurTwips()));
  PrintMap(m.Contexte(), m.printer);
  const std::string bytes = test::LitFichier(m.pdf);
  ASSERT_EQ(bytes.substr(0, 5), "%PDF-");
  const QString text = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
  EXPECT_TRUE(text.contains(QLatin1String("/Count 1")));
  const auto box =
      QRegularExpression(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)")).match(text);
  ASSERT_TRUE(box.hasMatch());
  EXPECT_NEAR(box.captured(1).toDouble(), 842, 1);
  EXPECT_NEAR(box.captured(2).toDouble(), 595, 1);
  // 300 dots to the inch of the printable width, up to the largest ratio of a canvas.
  EXPECT_GE(m.printer.page.width(), 300 * 7);
}

TEST(PrintPdf, HasTheDistributionAtItsPlace) {
  PrintMachine m;
  ChargeCarte(m.Contexte(), m.Carte());
  PrintMap(m.Contexte(), m.printer);
  const QImage& page = m.printer.page;
  EXPECT_EQ(page.pixelColor(page.width() / 2, page.height() / 2), QColor(255, 0, 0));
  EXPECT_EQ(page.pixel(page.width() / 20, page.height() / 20), test::sea);
}

TEST(PrintPdf, APrinterThatCannotBeOpenedIsAFailure) {
  PrintMachine m;
  ChargeCarte(m.Contexte(), m.Carte());
  m.printer.Natif().setOutputFileName(QString::fromStdString(m.folder / "no-such-folder/map.pdf"));
  try {
    PrintMap(m.Contexte(), m.printer);
    ADD_FAILURE() << "it was printed";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::DeviceFault);
  }
}

}  // namespace
}  // namespace talpena
