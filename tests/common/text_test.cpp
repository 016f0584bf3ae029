#include "common/text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace talpena {
namespace {

// Bytes 80 to 9F of the code page; the rest of its upper half is Latin-1.
constexpr const char* middle[] = {
    "\u20AC", "\u0081", "\u201A", "\u0192", "\u201E", "\u2026", "\u2020", "\u2021",
    "\u02C6", "\u2030", "\u0160", "\u2039", "\u0152", "\u008D", "\u017D", "\u008F",
    "\u0090", "\u2018", "\u2019", "\u201C", "\u201D", "\u2022", "\u2013", "\u2014",
    "\u02DC", "\u2122", "\u0161", "\u203A", "\u0153", "\u009D", "\u017E", "\u0178"};

std::string ExpectedCharacter(int byte) {
  if (byte < 0x80) return std::string(1, static_cast<char>(byte));
  if (byte < 0xA0) return middle[byte - 0x80];
  return {static_cast<char>(byte < 0xC0 ? 0xC2 : 0xC3), static_cast<char>(0x80 | (byte & 0x3F))};
}

TEST(CodePage, GivesEveryByteItsCharacter) {
  for (int byte = 0; byte < 256; ++byte) {
    SCOPED_TRACE(byte);
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(Cp1252VersUtf8(bytes), ExpectedCharacter(byte));
    EXPECT_EQ(Utf8VersCp1252(ExpectedCharacter(byte)), bytes);
    EXPECT_EQ(Utf8VersCp1252AvecManques(ExpectedCharacter(byte)), bytes);
    EXPECT_EQ(CompteCaracteres(ExpectedCharacter(byte)), 1U);
  }
}

TEST(CodePage, BringsRandomBytesBack) {
  std::mt19937 random(6);
  std::uniform_int_distribution<int> byte(0, 255);
  for (int i = 0; i < 500; ++i) {
    std::string bytes;
    for (int n = 0; n < 60; ++n) bytes += static_cast<char>(byte(random));
    const std::string text = Cp1252VersUtf8(bytes);
    EXPECT_EQ(Utf8VersCp1252(text), bytes);
    EXPECT_EQ(CompteCaracteres(text), bytes.size());
  }
}

struct MissingCharacter {
  const char* text;
  const char* missing;
  const char* withMarks;
};

TEST(CodePage, NamesTheFirstCharacterThatItLacks) {
  constexpr MissingCharacter cases[] = {
      {"Bombus \u0431\u0432", "\u0431", "Bombus ??"},  // Cyrillic
      {"Lovi\u010D", "\u010D", "Lovi?"},               // c with caron
      {"\u20AC\u4E2D", "\u4E2D", "\x80?"},             // behind one that it has
      {"a\U0001F41D", "\U0001F41D", "a?"},             // four bytes
      {"\u0080", "\u0080", "?"},                       // U+0080 is no byte of it
      {"x\xFFy", "\xFF", "x?y"},                       // no UTF-8
      {"x\xC3", "\xC3", "x?"},                         // cut in two
      {"\xC0\x80", "\xC0", "??"},                      // a form longer than needed
      {"\xED\xA0\x80", "\xED", "???"},                 // half a pair
      {"\xF4\x90\x80\x80", "\xF4", "????"},            // beyond the last character
  };
  for (const MissingCharacter& c : cases) {
    SCOPED_TRACE(c.withMarks);
    std::string missing = "untouched";
    EXPECT_EQ(Utf8VersCp1252(c.text, &missing), std::nullopt);
    EXPECT_EQ(missing, c.missing);
    EXPECT_EQ(Utf8VersCp1252(c.text), std::nullopt);
    EXPECT_EQ(Utf8VersCp1252AvecManques(c.text), c.withMarks);
  }
}

TEST(CodePage, LeavesTheMissingCharacterAloneWhenThereIsNone) {
  std::string missing = "untouched";
  EXPECT_EQ(Utf8VersCp1252("\u00E9t\u00E9", &missing), "\xE9t\xE9");
  EXPECT_EQ(missing, "untouched");
  EXPECT_EQ(Utf8VersCp1252(""), "");
  EXPECT_EQ(Utf8VersCp1252(std::string_view("a\0b", 3)), std::string("a\0b", 3));
}

struct CountCase {
  std::string text;
  std::size_t count;
};

TEST(Characters, AreCountedAsCodePoints) {
  const CountCase cases[] = {
      {"", 0},
      {"abc", 3},
      {"\u00E9t\u00E9", 3},
      {"\u20AC", 1},
      {"\U0001F41D", 1},
      {"e\u0301", 2},
      {"\xFF\xFE", 2},
      {"\xC3", 1},
      {"\xE2\x82", 2},
      {"a\xE2\x82z", 4},
      {std::string("\0a", 2), 2},
  };
  for (const CountCase& c : cases) EXPECT_EQ(CompteCaracteres(c.text), c.count) << c.text;
}

TEST(Characters, AreNeverCutInTwo) {
  const std::string text = "a\u00E9\u20AC\U0001F41Dz";
  EXPECT_EQ(PremiersCaracteres(text, 0), "");
  EXPECT_EQ(PremiersCaracteres(text, 1), "a");
  EXPECT_EQ(PremiersCaracteres(text, 2), "a\u00E9");
  EXPECT_EQ(PremiersCaracteres(text, 3), "a\u00E9\u20AC");
  EXPECT_EQ(PremiersCaracteres(text, 4), "a\u00E9\u20AC\U0001F41D");
  EXPECT_EQ(PremiersCaracteres(text, 5), text);
  EXPECT_EQ(PremiersCaracteres(text, 6), text);
  EXPECT_EQ(PremiersCaracteres("\xC3", 1), "\xC3");
  EXPECT_EQ(PremiersCaracteres("", 3), "");
}

struct CaseCase {
  const char* lower;
  const char* upper;
};

// clang-format off
constexpr CaseCase caseCases[] = {
    {"", ""}, {"abcxyz", "ABCXYZ"}, {"i", "I"}, {"istanbul", "ISTANBUL"},
    {"\u00E0\u00E2\u00E4\u00E7\u00E9\u00E8\u00EA\u00EB", "\u00C0\u00C2\u00C4\u00C7\u00C9\u00C8\u00CA\u00CB"},
    {"\u00EF\u00F1\u00F6\u00F8\u00FC\u00FE\u00FF", "\u00CF\u00D1\u00D6\u00D8\u00DC\u00DE\u0178"},
    {"\u0153\u0161\u017E", "\u0152\u0160\u017D"},
    {"\u0101\u010D\u0119\u0142\u0151\u017C", "\u0100\u010C\u0118\u0141\u0150\u017B"},
    {"stat.topo", "STAT.TOPO"}, {"<end>", "<END>"},
};
// clang-format on

TEST(Case, ChangesTheLettersOfWesternAndCentralEurope) {
  for (const CaseCase& c : caseCases) {
    EXPECT_EQ(Majuscules(c.lower), c.upper);
    EXPECT_EQ(Minuscules(c.upper), c.lower);
    EXPECT_EQ(Majuscules(c.upper), c.upper);
    EXPECT_EQ(Minuscules(c.lower), c.lower);
    EXPECT_TRUE(EgalSansCasse(c.lower, c.upper));
  }
}

TEST(Case, LeavesWhatHasNoOtherCase) {
  // Sharp s, the signs among the letters, the Turkish i letters, Greek, bytes that are no UTF-8.
  for (const char* text : {"\u00DF", "\u00D7\u00F7", "\u0130", "\u0131", "\u00B5", "\u0138",
                           "\u0149", "\u017F", "\u03B1", "\u0410", "12-./ ", "\xFF", "\xE9"}) {
    EXPECT_EQ(Majuscules(text), text);
    EXPECT_EQ(Minuscules(text), text);
  }
}

TEST(Case, BringsEveryLetterOfTheCodePageBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text = ExpectedCharacter(byte);
    const std::string upper = Majuscules(text);
    EXPECT_EQ(CompteCaracteres(upper), 1U) << byte;
    EXPECT_TRUE(Utf8VersCp1252(upper).has_value()) << byte;  // a file stays writable
    if (upper != text) {
      EXPECT_EQ(Minuscules(upper), text) << byte;
    }
    const std::string lower = Minuscules(text);
    if (lower != text) {
      EXPECT_EQ(Majuscules(lower), text) << byte;
    }
  }
}

TEST(Case, KeepsAccentsApartInComparisons) {
  EXPECT_TRUE(EgalSansCasse("Br\u00FBl\u00E9", "BR\u00DBL\u00C9"));
  EXPECT_TRUE(EgalSansCasse("", ""));
  EXPECT_FALSE(EgalSansCasse("e", "\u00E9"));
  EXPECT_FALSE(EgalSansCasse("a", "ab"));
  EXPECT_FALSE(EgalSansCasse("a", ""));
  EXPECT_FALSE(EgalSansCasse("I", "\u0131"));
  EXPECT_FALSE(EgalSansCasse("i", "\u0130"));
}

struct TrimCase {
  const char* text;
  const char* left;
  const char* right;
  const char* both;
};

TEST(Trim, TakesBlanksOnly) {
  constexpr TrimCase cases[] = {
      {"", "", "", ""},
      {" ", "", "", ""},
      {"   ", "", "", ""},
      {"a", "a", "a", "a"},
      {"  a b  ", "a b  ", "  a b", "a b"},
      {"a  ", "a  ", "a", "a"},
      {"  a", "a", "  a", "a"},
      {"\ta\n", "\ta\n", "\ta\n", "\ta\n"},
      {" \ta\r ", "\ta\r ", " \ta\r", "\ta\r"},
      {"\u00A0a\u00A0", "\u00A0a\u00A0", "\u00A0a\u00A0", "\u00A0a\u00A0"},
  };
  for (const TrimCase& c : cases) {
    EXPECT_EQ(RogneGauche(c.text), c.left) << c.text;
    EXPECT_EQ(RogneDroite(c.text), c.right) << c.text;
    EXPECT_EQ(Rogne(c.text), c.both) << c.text;
  }
}

using Pieces = std::vector<std::string>;

TEST(Decoupe, GivesThePiecesBetweenSeparators) {
  EXPECT_EQ(Decoupe("", ','), Pieces{""});
  EXPECT_EQ(Decoupe("a", ','), Pieces{"a"});
  EXPECT_EQ(Decoupe("a,b,c", ','), (Pieces{"a", "b", "c"}));
  EXPECT_EQ(Decoupe(",", ','), (Pieces{"", ""}));
  EXPECT_EQ(Decoupe("a,,b,", ','), (Pieces{"a", "", "b", ""}));
  EXPECT_EQ(Decoupe("COND.MICR , Microsituation, Microsituation, 5", ','),
            (Pieces{"COND.MICR ", " Microsituation", " Microsituation", " 5"}));
  EXPECT_EQ(Decoupe("a/b", ','), Pieces{"a/b"});
}

TEST(Decoupe, IsUndoneByJoining) {
  std::mt19937 random(8);
  std::uniform_int_distribution<int> letter(0, 3);
  for (int i = 0; i < 500; ++i) {
    std::string text;
    for (int n = 0; n < 12; ++n) text += "/ab "[letter(random)];
    std::string joined;
    const Pieces pieces = Decoupe(text, '/');
    for (const std::string& piece : pieces) joined += (&piece == &pieces[0] ? "" : "/") + piece;
    EXPECT_EQ(joined, text);
  }
}

struct ReplaceCase {
  const char* text;
  const char* search;
  const char* replacement;
  const char* result;
};

TEST(Remplace, ChangesEveryOccurrence) {
  constexpr ReplaceCase cases[] = {
      {"", "a", "b", ""},
      {"aaa", "a", "b", "bbb"},
      {"aaa", "a", "", ""},
      {"50,5", ",", ".", "50.5"},
      {"abc", "x", "y", "abc"},
      {"abc", "", "y", "abc"},
      {"a\nb", "\n", "\r\n", "a\r\nb"},
      {"aa", "a", "aa", "aaaa"},
      {"aaa", "aa", "b", "ba"},
      {"\u00E9", "\u00E9", "e", "e"},
      {"a--b", "-", "--", "a----b"},
  };
  for (const ReplaceCase& c : cases) {
    EXPECT_EQ(Remplace(c.text, c.search, c.replacement), c.result) << c.text;
  }
}

TEST(EstUtf8, TellsWholeSequencesFromAllOthers) {
  const std::string long64(200, 'a');
  for (const std::string_view text :
       {"", "plain", "\xC3\xA9t\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\xA6\x94", "\xEF\xBB\xBF"}) {
    EXPECT_TRUE(EstUtf8(text)) << text;
    EXPECT_TRUE(EstUtf8(long64 + std::string(text) + long64)) << text;
  }
  for (const std::string_view text : {"\xE9t\xE9", "\xC3", "\xE2\x82", "\xC0\x80", "\xED\xA0\x80",
                                      "\xF4\x90\x80\x80", "\x80", "\xFF"}) {
    EXPECT_FALSE(EstUtf8(text)) << text;
    EXPECT_FALSE(EstUtf8(long64 + std::string(text) + long64)) << text;
    EXPECT_FALSE(EstUtf8(long64 + std::string(text))) << text;
  }
  EXPECT_TRUE(EstUtf8(std::string_view("a\0b", 3)));
}

TEST(EstAscii, FindsTheOneByteThatIsNot) {
  for (std::size_t length = 1; length < 40; ++length) {
    std::string bytes(length, 'a');
    EXPECT_TRUE(EstAscii(bytes));
    for (std::size_t at = 0; at < length; ++at) {
      bytes[at] = '\x80';
      EXPECT_FALSE(EstAscii(bytes)) << at << " of " << length;
      bytes[at] = 'a';
    }
  }
}

}  // namespace
}  // namespace talpena
