#include "platform/qt/picture_file.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <string>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "fakes/temp_folder.h"
#include "platform/qt/qt_canvas.h"

namespace talpena {
namespace {

/// A bitmap of 33 x 20 points on disk, cut by so many bytes.
std::string Bitmap(const test::TempFolder& folder, QImage::Format format, qint64 cut) {
  QImage picture(33, 20, format);
  if (format == QImage::Format_Indexed8) picture.setColorTable({0xFF000000, 0xFFFF0000});
  picture.fill(1);
  const std::string path = folder / "a.bmp";
  const QString name = QString::fromStdString(path);
  EXPECT_TRUE(picture.save(name, "BMP"));
  QFile file(name);
  EXPECT_TRUE(file.resize(file.size() - cut));
  return path;
}

constexpr QImage::Format formats[] = {QImage::Format_Mono, QImage::Format_Indexed8,
                                      QImage::Format_RGB888, QImage::Format_RGB32};

TEST(PictureFile, ReadsWholeBitmaps) {
  for (const QImage::Format format : formats) {
    const test::TempFolder folder;
    const QImage read = LitImage(QString::fromStdString(Bitmap(folder, format, 0)));
    EXPECT_EQ(read.size(), QSize(33, 20)) << format;
  }
}

TEST(PictureFile, ABitmapThatEndsBeforeItsLastRowIsNone) {
  for (const QImage::Format format : formats) {
    for (const qint64 cut : {1, 40}) {
      const test::TempFolder folder;
      EXPECT_TRUE(LitImage(QString::fromStdString(Bitmap(folder, format, cut))).isNull()) << format;
    }
  }
}

TEST(PictureFile, ADamagedPictureIsToldAsThat) {
  const test::TempFolder folder;
  const std::string path = Bitmap(folder, QImage::Format_RGB888, 300);
  QtCanvas canvas;
  try {
    canvas.ChargeImage(path);
    FAIL();
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(e.words().text, MsgId::EchecImage);
    EXPECT_EQ(e.words().about, std::vector<std::string>{path});
  }
}

TEST(PictureFile, WildHeadersAreNoPicture) {
  const test::TempFolder folder;
  const QString name = QString::fromStdString(folder / "w.bmp");
  for (const char byte : {'\0', '\x7F', '\xFF'}) {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("BM" + QByteArray(200, byte));
    file.close();
    EXPECT_TRUE(LitImage(name).isNull());
  }
  EXPECT_TRUE(LitImage(name + QStringLiteral("x")).isNull());
}

}  // namespace
}  // namespace talpena
