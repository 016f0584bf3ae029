#include "platform/foreign/code_page.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <array>
#include <string>
#include <string_view>

#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

using namespace std::string_view_literals;

struct PageCase {
  int number;
  const char* name;
};

// clang-format off
constexpr PageCase pageCases[] = {
    {437, "CP437"}, {737, "CP737"}, {850, "CP850"}, {852, "CP852"}, {857, "CP857"},
    {860, "CP860"}, {861, "CP861"}, {863, "CP863"}, {865, "CP865"}, {866, "CP866"},
    {869, "CP869"}, {1250, "CP1250"},
    {1251, "CP1251"}, {1252, "CP1252"}, {1253, "CP1253"}, {1254, "CP1254"},
};
// clang-format on

/// One byte through the C library's tables; U+FFFD when it has no meaning there.
std::string ParIconv(const char* page, char byte) {
  const iconv_t converter = iconv_open("UTF-8", page);
  std::array<char, 8> out{};
  char* from = &byte;
  char* into = out.data();
  std::size_t left = 1, room = out.size();
  const bool known = iconv(converter, &from, &left, &into, &room) != std::size_t(-1);
  iconv_close(converter);
  return known ? std::string(out.data(), into) : "\xEF\xBF\xBD";
}

// Expected: the tables of the C library, which have nothing to do with ours.
TEST(CodePage, AgreesWithAnUnrelatedTableOnEveryByte) {
  for (const PageCase& c : pageCases) {
    SCOPED_TRACE(c.name);
    const CodePage page(c.number);
    for (int value = 0; value < 256; ++value) {
      const char byte = static_cast<char>(value);
      EXPECT_EQ(page.EnUtf8({&byte, 1}), ParIconv(c.name, byte)) << value;
    }
  }
}

TEST(CodePage, KnowsTheEuroWhereItWasAdded) {
  EXPECT_EQ(CodePage(1250).EnUtf8("\x80"), "€");
  EXPECT_EQ(CodePage(1251).EnUtf8("\x88"), "€");
  EXPECT_EQ(CodePage(1252).EnUtf8("Caf\xE9 \x9C \x80"), "Café œ €");
}

TEST(CodePage, TurnsBytesWithoutAMeaningIntoTheReplacement) {
  EXPECT_EQ(CodePage(1252).EnUtf8("a\x81z"), "a\uFFFDz");
  EXPECT_EQ(CodePage(CodePage::utf8).EnUtf8("a\xC3z\xF0\x9F"), "a\uFFFDz\uFFFD\uFFFD");
}

TEST(CodePage, KeepsUtf8AsItIs) {
  EXPECT_EQ(CodePage(CodePage::utf8).EnUtf8("Łódź, 日本"), "Łódź, 日本");
}

TEST(CodePage, AddsBehindWhatIsThere) {
  std::string out = "x";
  CodePage(866).Ajoute(out, "\x8C\xAE\xE1");
  EXPECT_EQ(out, "xМос");
}

TEST(CodePage, KnowsNoOthers) {
  EXPECT_FALSE(CodePage::Connue(0));
  EXPECT_FALSE(CodePage::Connue(932));
  EXPECT_TRUE(CodePage::Connue(852));
  EXPECT_THROW(CodePage(932), TalpenaError);
}

TEST(AjouteEn1252, IsTheInverse) {
  const CodePage page(1252);
  for (int value = 1; value < 256; ++value) {
    const char byte = static_cast<char>(value);
    const std::string text = page.EnUtf8({&byte, 1});
    if (text == "\uFFFD") continue;
    std::string back = "x";
    AjouteEn1252(back, text);
    EXPECT_EQ(back, std::string("x") + byte);
  }
}

struct RefusedCase {
  const char* text;
  const char* named;
};

constexpr RefusedCase refusedCases[] = {
    {"Łódź", "Ł"}, {"Lärche \u0081", "U+0081"}, {"日", "日"}, {"\uFFFD", "\uFFFD"}};

TEST(AjouteEn1252, NamesTheCharacterThatItRefuses) {
  for (const RefusedCase& c : refusedCases) {
    SCOPED_TRACE(c.text);
    std::string out = "before";
    try {
      AjouteEn1252(out, c.text);
      ADD_FAILURE();
    } catch (const TalpenaError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::NotInCodePage);
      EXPECT_EQ(error.words().about, std::vector<std::string>{c.named});
    }
    EXPECT_EQ(out, "before");
  }
}

}  // namespace
}  // namespace talpena
