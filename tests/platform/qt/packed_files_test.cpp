#include "platform/qt/packed_files.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

const PackedFiles files = {{"en/index.html", "<html/>"},
                           {"pictures/é.png", QByteArray("\0\1\xFF\n", 4)},
                           {"empty", QByteArray()}};

TEST(PackedFiles, ComeBackAsTheyWere) {
  const auto back = Deballe(Emballe(files));
  ASSERT_TRUE(back.has_value());
  EXPECT_EQ(*back, files);
  EXPECT_EQ(Deballe(Emballe({})), PackedFiles());
}

TEST(PackedFiles, ArePackedTheSameEveryTime) { EXPECT_EQ(Emballe(files), Emballe(files)); }

TEST(PackedFiles, AreRefusedWhenCut) {
  const QByteArray whole = Emballe(files);
  for (qsizetype length = 0; length < whole.size(); ++length) {
    EXPECT_FALSE(Deballe(whole.left(length)).has_value()) << length;
  }
}

TEST(PackedFiles, AreRefusedWhenAByteIsAnother) {
  const QByteArray whole = Emballe(files);
  for (qsizetype at = 0; at < whole.size(); ++at) {
    QByteArray changed = whole;
    changed[at] = static_cast<char>(changed[at] ^ 1);
    EXPECT_FALSE(Deballe(changed).has_value()) << at;
  }
}

TEST(PackedFiles, AreRefusedWithMoreBehindThem) {
  EXPECT_FALSE(Deballe(Emballe(files) + "x").has_value());
}

}  // namespace
}  // namespace talpena
