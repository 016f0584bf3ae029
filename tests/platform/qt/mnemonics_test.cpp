#include "platform/qt/mnemonics.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

TEST(Mnemonics, TakeTheFirstFreeLetterOfAWord) {
  Mnemonics letters;
  EXPECT_EQ(letters.Marque("One period"), u"&One period");
  EXPECT_EQ(letters.Marque("Only points"), u"Only &points");
  EXPECT_EQ(letters.Marque("open"), u"op&en");
}

TEST(Mnemonics, KeepAMarkThatIsThere) {
  Mnemonics letters;
  EXPECT_EQ(letters.Marque("C&hange..."), u"C&hange...");
  EXPECT_EQ(letters.Marque("Help"), u"H&elp");
  EXPECT_EQ(letters.Marque("R && D"), u"&R && D") << "a doubled sign is no mark";
}

TEST(Mnemonics, CaseAndAccentsAreOneLetterEach) {
  Mnemonics letters;
  EXPECT_EQ(letters.Marque("\u00c9t\u00e9"), u"&\u00c9t\u00e9");
  EXPECT_EQ(letters.Marque("\u00e9t"), u"\u00e9&t");
}

TEST(Mnemonics, WithoutAFreeLetterThereIsNone) {
  Mnemonics letters;
  EXPECT_EQ(letters.Marque("a"), u"&a");
  EXPECT_EQ(letters.Marque("A!"), u"A!");
  EXPECT_EQ(letters.Marque(""), u"");
}

}  // namespace
}  // namespace talpena
