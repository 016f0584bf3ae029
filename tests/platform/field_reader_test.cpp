// Comma-separated fields.
#include "platform/field_reader.h"

#include <gtest/gtest.h>

#include <random>

#include "common/msg_id_errors.h"
#include "fakes/import_texts.h"

namespace talpena {
namespace {

using test::Faute;
using test::FauteDe;
using test::Fichier;
using Texts = std::vector<std::string>;
using enum FieldReader::Vide;

Texts TousLesTextes(const std::string& bytes, std::size_t block = 1 << 20) {
  FieldReader reader(Fichier(bytes, block));
  Texts texts;
  while (reader.Reste()) texts.emplace_back(reader.Texte());
  return texts;
}

struct TextCase {
  const char* name;
  std::string bytes;
  Texts expected;
};

// clang-format off
const TextCase textCases[] = {
    {"nothing", "", {}},
    {"one", "a", {"a"}},
    {"a comma ends a field", "a,b", {"a", "b"}},
    {"a comma at the end opens another", "a,", {"a", ""}},
    {"CR LF, LF and CR end a line", "a\r\nb\nc\rd", {"a", "b", "c", "d"}},
    {"an empty line is a field", "a\r\n\r\nb", {"a", "", "b"}},
    {"blanks ahead are skipped", "   a,  b", {"a", "b"}},
    {"trailing blanks stay", "a  ,b ", {"a  ", "b "}},
    {"a tab is no blank", "\ta,\t", {"\ta", "\t"}},
    {"quotes may hold commas", "\"a,b\",c", {"a,b", "c"}},
    {"blanks ahead of quotes", "  \"a \",c", {"a ", "c"}},
    {"text behind a closing quote is dropped", "\"a\"xyz \"q\",c", {"a", "c"}},
    {"to the end of the line too", "\"a\"xyz\r\nc", {"a", "c"}},
    {"a doubled quote is no escape", "\"a\"\"b\",c", {"a", "c"}},
    {"a quote within a text is a character", "a\"b\",c", {"a\"b\"", "c"}},
    {"empty quotes", "\"\",c", {"", "c"}},
    {"quotes over several lines", "\"a\r\nb\rc\n\nd\",e", {"a\nb\nc\n\nd", "e"}},
    {"1A ends the file", "a,b\x1A,c\r\nd", {"a", "b"}},
    {"UTF-8", "\xC3\xA9,b", {"\xC3\xA9", "b"}},
    {"code page 1252", "\xE9,\x80", {"\xC3\xA9", "\xE2\x82\xAC"}},
    {"mark of UTF-8", "\xEF\xBB\xBF" "a,b", {"a", "b"}},
    {"NUL is a character", std::string("a\0b,c", 5), {std::string("a\0b", 3), "c"}},
};
// clang-format on

TEST(FieldReader, ReadsTexts) {
  for (const TextCase& c : textCases) {
    for (const std::size_t block : {1U, 2U, 1000U}) {
      SCOPED_TRACE(c.name + (" " + std::to_string(block)));
      EXPECT_EQ(TousLesTextes(c.bytes, block), c.expected);
    }
  }
}

struct NumberCase {
  const char* name;
  const char* bytes;
  std::vector<int> expected;
};

// clang-format off
const NumberCase numberCases[] = {
    {"commas", "1,2,3", {1, 2, 3}},
    {"lines", "1\r\n2\n3\r4", {1, 2, 3, 4}},
    {"a blank ends a number", "1 2  3", {1, 2, 3}},
    {"and takes a comma behind it along", "1 ,2  ,  3", {1, 2, 3}},
    {"and the end of the line", "1  \r\n2", {1, 2}},
    {"but not behind other text", "1 2 ,3", {1, 2, 3}},
    {"nothing is 0", ",,5", {0, 0, 5}},
    {"blanks are nothing", "  ,5", {0, 5}},
    {"an empty line is 0", "\r\n5", {0, 5}},
    {"signs", "-7,+8", {-7, 8}},
    {"halves to even", "2.5,3.5,-0.5", {2, 4, 0}},
    {"exponents", "1e3,2D+1,5.E0", {1000, 20, 5}},
};
// clang-format on

TEST(FieldReader, ReadsNumbers) {
  for (const NumberCase& c : numberCases) {
    SCOPED_TRACE(c.name);
    FieldReader narrow(Fichier(c.bytes)), wide(Fichier(c.bytes)), single(Fichier(c.bytes));
    for (const int expected : c.expected) {
      EXPECT_EQ(narrow.Entier16(), expected);
      EXPECT_EQ(wide.Entier32(), expected);
    }
    EXPECT_FALSE(narrow.Reste());
    EXPECT_EQ(std::lround(single.Simple()) / 4, c.expected[0] / 4) << "unrounded";
  }
}

TEST(FieldReader, SinglesLoseTheDigitsBehindTheSeventh) {
  FieldReader reader(Fichier("50.123456789,3.40282346e38"));
  EXPECT_EQ(reader.Simple(), 50.123456789F);
  EXPECT_EQ(reader.Simple(), 3.40282346e38F);
}

TEST(FieldReader, TextsAndNumbersTakeTurns) {
  FieldReader reader(Fichier("1 some text, \"x\" ,2"));
  EXPECT_EQ(reader.Entier16(), 1);
  EXPECT_EQ(reader.Texte(), "some text");
  EXPECT_EQ(reader.Texte(), "x");
  EXPECT_EQ(reader.Entier16(), 2);
}

struct RefusedCase {
  const char* name;
  const char* bytes;
  Faute expected;
};

// clang-format off
const RefusedCase refusedCases[] = {
    {"a word", "\r\n1,abc", {ErrorNumber::TypeMismatch, 2, MsgId::ChampSansNombre, {"2", "abc"}}},
    {"a number with a tail", "1,2x", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"2", "2x"}}},
    {"a tab", "1,2\t", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"2", "2→"}}},
    {"a quoted number", "1,\"2\"", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"2", "\"2\""}}},
    {"a sign alone", "1,-", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"2", "-"}}},
    {"a point alone", "1,.", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"2", "."}}},
    {"two points", "1,1.2.3", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"2", "1.2.3"}}},
    {"an exponent without digits", "1,1e", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"2", "1e"}}},
    {"an accent", "1,\xE9", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"2", "\xC3\xA9"}}},
    {"above 16 bits", "1,32768", {ErrorNumber::Overflow, 1, MsgId::ChampTropGrand, {"2", "32768"}}},
    {"below 16 bits", "1,-32769", {ErrorNumber::Overflow, 1, MsgId::ChampTropGrand, {"2", "-32769"}}},
    {"beyond all numbers", "1,1e999", {ErrorNumber::Overflow, 1, MsgId::ChampTropGrand, {"2", "1e999"}}},
    {"the end of the file", "1\r\n", {ErrorNumber::InputPastEnd, 1, MsgId::FicheCoupee, {"2"}}},
};
// clang-format on

TEST(FieldReader, NamesLineAndFieldOfWhatItRefuses) {
  for (const RefusedCase& c : refusedCases) {
    SCOPED_TRACE(c.name);
    FieldReader reader(Fichier(c.bytes));
    reader.SauteLigneVide();
    reader.CommenceFiche();
    EXPECT_EQ(reader.Entier16(), 1);
    EXPECT_EQ(FauteDe([&] { reader.Entier16(); }), c.expected);
  }
}

TEST(FieldReader, TakesTheLimitsOfEachWidth) {
  FieldReader reader(Fichier("32767,-32768,2147483647,-2147483648"));
  EXPECT_EQ(reader.Entier16(), 32767);
  EXPECT_EQ(reader.Entier16(), -32768);
  EXPECT_EQ(reader.Entier32(), 2147483647);
  EXPECT_EQ(reader.Entier32(), INT32_MIN);
  FieldReader wide(Fichier("2147483648,1e39"));
  EXPECT_EQ(FauteDe([&] { wide.Entier32(); }).number, ErrorNumber::Overflow);
  EXPECT_EQ(FauteDe([&] { wide.Simple(); }).number, ErrorNumber::Overflow);
}

TEST(FieldReader, AnEmptyNumberIsRefusedWhereItMayNotBe) {
  FieldReader reader(Fichier("1, ,3"));
  reader.Entier16();
  EXPECT_EQ(FauteDe([&] { reader.Simple(Refuse); }),
            (Faute{ErrorNumber::TypeMismatch, 1, MsgId::ChampVide, {"2"}}));
}

TEST(FieldReader, ALongFieldIsShownShort) {
  const std::string digits(5000, 'x');
  FieldReader reader(Fichier(digits));
  const Faute fault = FauteDe([&] { reader.Entier16(); });
  EXPECT_EQ(fault.about, (Texts{"1", std::string(40, 'x') + "..."}));

  std::string accents;
  for (int i = 0; i < 100; ++i) accents += "\xC3\xA9";
  FieldReader utf8(Fichier(accents));
  EXPECT_EQ(FauteDe([&] { utf8.Entier16(); }).about, (Texts{"1", accents.substr(0, 80) + "..."}));
}

TEST(FieldReader, ANulIsShownByItsSign) {
  FieldReader reader(Fichier(std::string("1\0", 2)));
  EXPECT_EQ(FauteDe([&] { reader.Entier16(); }).about, (Texts{"1", "1\u2400"}));
}

TEST(FieldReader, AQuoteThatIsNotClosedIsNamedWhereItOpens) {
  FieldReader reader(Fichier("a\r\nb,\"c\r\nd\r\n"));
  reader.Texte();
  reader.CommenceFiche();
  reader.Texte();
  EXPECT_EQ(FauteDe([&] { reader.Texte(); }),
            (Faute{ErrorNumber::InputPastEnd, 2, MsgId::GuillemetOuvert, {"2"}}));
}

TEST(FieldReader, ALineOfAHundredMegabytesIsRefused) {
  FieldReader reader(Fichier("a\r\n" + std::string(std::size_t{100} << 20, 'x')));
  reader.Texte();
  EXPECT_EQ(FauteDe([&] { reader.Texte(); }),
            (Faute{ErrorNumber::Overflow, 2, MsgId::LigneImportTropLongue, {"16"}}));
}

TEST(FieldReader, QuotesOverMoreThanSixteenMegabytesAreRefused) {
  std::string text = "\"";
  for (int line = 0; line < 20; ++line) text += std::string(std::size_t{1} << 20, 'x') + "\n";
  FieldReader reader(Fichier(text + "\""));
  EXPECT_EQ(FauteDe([&] { reader.Texte(); }),
            (Faute{ErrorNumber::Overflow, 1, MsgId::ChampTropLong, {"1", "16"}}));
}

TEST(FieldReader, AMillionCommasAreAMillionFields) {
  FieldReader reader(Fichier(std::string(1000000, ',')));
  int fields = 0;
  for (; reader.Reste(); ++fields) EXPECT_EQ(reader.Texte(), "");
  EXPECT_EQ(fields, 1000001);
}

TEST(FieldReader, PassesOverBlankLinesAndMarkedOnes) {
  FieldReader reader(Fichier("  \r\n*x,y\r\n *z\r\na,*b\r\nc"));
  EXPECT_FALSE(reader.SauteLigneDe('*'));
  EXPECT_TRUE(reader.SauteLigneVide());
  EXPECT_TRUE(reader.SauteLigneDe('*'));
  EXPECT_FALSE(reader.SauteLigneDe('*')) << "a blank is not skipped";
  EXPECT_EQ(reader.Texte(), "*z");
  EXPECT_EQ(reader.Texte(), "a");
  EXPECT_TRUE(reader.SauteLigneDe('*')) << "the rest of a line";
  EXPECT_EQ(reader.Texte(), "c");
  EXPECT_FALSE(reader.SauteLigneVide());
  EXPECT_EQ(reader.Ligne(), 5);
}

TEST(FieldReader, TellsHowFarItCame) {
  FieldReader reader(Fichier("aaaa\r\nbbbb\r\n"));
  EXPECT_EQ(reader.Part(), 0);
  reader.Texte();
  EXPECT_EQ(reader.Part(), 0.5);
  reader.Texte();
  EXPECT_EQ(reader.Part(), 1);
}

/// A field as the form asks for it: in quotes where it needs them.
std::string Ecrit(const std::string& text) {
  const bool quotes = text.find_first_of(",\n") != std::string::npos || text.starts_with(' ');
  return quotes ? '"' + text + '"' : text;
}

TEST(FieldReader, ReadsBackAnyFieldThatCanBeWritten) {
  std::mt19937 random(7);
  const std::string letters = "ab ,\n\t*'1-.\xC3\xA9";
  for (int round = 0; round < 500; ++round) {
    Texts written;
    std::string bytes;
    for (unsigned i = 0; i < 1 + random() % 6; ++i) {
      std::string text;
      for (unsigned n = random() % 8; n > 0; --n) {
        const std::size_t at = random() % 12;
        text += at == 11 ? std::string("\xC3\xA9") : std::string(1, letters[at]);
      }
      if (i > 0) bytes += random() % 2 == 0 ? "," : "\r\n";
      bytes += Ecrit(text);
      written.push_back(text);
    }
    if (written.back().empty()) bytes += "\r\n";
    EXPECT_EQ(TousLesTextes(bytes, 1 + random() % 9), written) << bytes;
  }
}

}  // namespace
}  // namespace talpena
