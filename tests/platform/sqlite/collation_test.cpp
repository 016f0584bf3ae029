// The comparison of texts against ICU's own.
#include "platform/sqlite/collation.h"

#include <gtest/gtest.h>
#include <unicode/ucol.h>

#include <random>
#include <string>
#include <vector>

#include "platform/sqlite/utf8.h"

namespace talpena::sqlite {
namespace {

int Signe(int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; }

/// ICU by itself: US English, secondary strength.
class Oracle {
 public:
  Oracle() {
    UErrorCode status = U_ZERO_ERROR;
    collator_ = ucol_open("en_US", &status);
    ucol_setStrength(collator_, UCOL_SECONDARY);
  }
  ~Oracle() { ucol_close(collator_); }
  Oracle(const Oracle&) = delete;
  Oracle& operator=(const Oracle&) = delete;

  int Compare(const std::string& a, const std::string& b) const {
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator_, a.data(), static_cast<int>(a.size()), b.data(),
                            static_cast<int>(b.size()), &status);
  }

 private:
  UCollator* collator_ = nullptr;
};

/// Characters that meet in distributions, and ones that make trouble: marks that combine,
/// letters that expand, other scripts, controls.
constexpr char32_t alphabets[][24] = {
    U"abcABC019 -/.,'\x01\t\x7f_~", U"éÉèêëeEaàÀçcCñnN\u0301\u0327\u00ad", U"ßsSæaeÆœoeŒþÞøØłŁ",
    U"\u0300\u0301\u0308\u0328aoue\U0001F98B中文ÅåÄä", U"αΑβжЖяकก\u0E40\u0345ﬁfi½№K\u212A"};

class CollationTest : public ::testing::Test {
 protected:
  std::string Texte(std::size_t alphabet) {
    std::string text;
    std::u32string_view letters(alphabets[alphabet]);
    for (auto n = random_() % 9; n > 0; --n) AjoutePoint(letters[random_() % letters.size()], text);
    return text;
  }

  void Verifie(const std::string& a, const std::string& b) {
    const int expected = Signe(oracle_.Compare(a, b));
    EXPECT_EQ(Signe(collation_.Compare(a, b)), expected) << "<" << a << "> <" << b << ">";
    std::string keyA;
    std::string keyB;
    collation_.AjouteCle(a, keyA);
    collation_.AjouteCle(b, keyB);
    EXPECT_EQ(Signe(keyA.compare(keyB)), expected) << "keys of <" << a << "> <" << b << ">";
    // Joined with what follows them, keys keep their order.
    keyA.append(2, '\0');
    keyB.append(2, '\0');
    if (expected != 0) {
      EXPECT_EQ(Signe((keyA + "\xff").compare(keyB + "\x01")), expected)
          << "joined keys of <" << a << "> <" << b << ">";
    }
  }

  Oracle oracle_;
  Collation collation_;
  std::mt19937 random_{11};
};

TEST_F(CollationTest, AgreesWithIcuOnEveryPairOfAsciiCharacters) {
  for (int a = 0; a < 128; ++a) {
    for (int b = 0; b < 128; ++b) {
      Verifie(std::string(1, static_cast<char>(a)), std::string(1, static_cast<char>(b)));
    }
  }
}

TEST_F(CollationTest, AgreesWithIcu) {
  for (int i = 0; i < 60000; ++i) {
    const std::size_t first = random_() % std::size(alphabets);
    const std::size_t second = i % 2 == 0 ? first : random_() % std::size(alphabets);
    const std::string head = Texte(random_() % 2);
    Verifie(head + Texte(first), head + Texte(second));
  }
}

TEST_F(CollationTest, AgreesWithIcuOnBytesThatAreNoText) {
  for (int i = 0; i < 20000; ++i) {
    std::string a;
    std::string b;
    for (auto n = random_() % 6; n > 0; --n) a.push_back(static_cast<char>(random_() % 256));
    for (auto n = random_() % 6; n > 0; --n) b.push_back(static_cast<char>(random_() % 256));
    Verifie(a, b);
  }
}

TEST_F(CollationTest, CaseDoesNotCountAndAccentsDo) {
  EXPECT_EQ(collation_.Compare("UTM 31U", "utm 31u"), 0);
  EXPECT_EQ(collation_.Compare("\xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89"), 0);
  EXPECT_NE(collation_.Compare("ete", "\xC3\xA9t\xC3\xA9"), 0);
  EXPECT_LT(collation_.Compare("eta", "\xC3\xA9tb"), 0);
  EXPECT_LT(collation_.Compare("", "a"), 0);
  EXPECT_LT(collation_.Compare("abc", "abcd"), 0);
}

TEST_F(CollationTest, AKeyHoldsAtMostOneZeroByte) {
  for (int i = 0; i < 5000; ++i) {
    std::string key;
    collation_.AjouteCle(Texte(random_() % std::size(alphabets)), key);
    EXPECT_LE(std::count(key.begin(), key.end(), '\0'), 1);
  }
}

TEST(SansCasse, NeverLeavesOrEntersAscii) {
  for (char32_t c = 0; c < 0x3000; ++c) {
    EXPECT_EQ(c < 128, SansCasse(c) < 128) << std::hex << static_cast<unsigned>(c);
  }
  EXPECT_EQ(SansCasse(U'É'), U'é');
  EXPECT_EQ(SansCasse(U'I'), U'i');
}

}  // namespace
}  // namespace talpena::sqlite
