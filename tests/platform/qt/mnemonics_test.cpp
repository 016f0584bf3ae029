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

using Captions = std::vector<QString>;

TEST(MnemonicsOfSeveral, GiveWayWhereAnotherHasNoChoice) {
  Mnemonics letters;
  EXPECT_EQ(letters.MarqueTous({"ab", "a"}), (Captions{u"a&b"_qs, u"&a"_qs}));
  EXPECT_EQ(letters.MarqueTous({"abc", "abcd e"}), (Captions{u"ab&c"_qs, u"abcd &e"_qs}))
      << "the letters above are taken";
}

TEST(MnemonicsOfSeveral, LeaveOutAccentsAndMarks) {
  Mnemonics letters;
  letters.Marque("&Open");
  EXPECT_EQ(letters.MarqueTous({"\u00e9o1:", "o", "", "R && D"}),
            (Captions{u"\u00e9o&1:"_qs, u"o"_qs, u""_qs, u"&R && D"_qs}));
  EXPECT_EQ(letters.Marque("R"), u"R");
}

TEST(MnemonicsOfSeveral, StayWithTheFirstLettersThatAreFree) {
  Mnemonics letters;
  EXPECT_EQ(letters.MarqueTous({"Free fields", "Free text", "Sex"}),
            (Captions{u"&Free fields"_qs, u"Free &text"_qs, u"&Sex"_qs}));
}

}  // namespace
}  // namespace talpena
