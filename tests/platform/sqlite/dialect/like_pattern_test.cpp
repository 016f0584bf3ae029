#include "platform/sqlite/dialect/like_pattern.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>

#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

struct LikeCase {
  const char* text;
  const char* pattern;
  bool matches;
};

// clang-format off
constexpr LikeCase likeCases[] = {
    {"", "", true},              {"a", "", false},             {"", "*", true},
    {"", "?", false},            {"abc", "abc", true},         {"ABC", "abc", true},
    {"abc", "ABC", true},        {"abc", "ab", false},         {"ab", "abc", false},
    {"abc", "a*", true},         {"abc", "*c", true},          {"abc", "*b*", true},
    {"abc", "*B*", true},        {"aBc", "*b*", true},         {"abc", "*d*", false},
    {"abc", "**", true},         {"abc", "a**c", true},        {"abc", "*bc*", true},
    {"aab", "*ab*", true},       {"aaab", "*aab*", true},      {"ab", "*abc*", false},
    {"abc", "???", true},        {"abc", "??", false},         {"été", "???", true},
    {"été", "ÉTÉ", true},        {"été", "ete", false},        {"ete", "été", false},
    {"Évêque", "*VÊQ*", true},   {"a1b", "a#b", true},         {"axb", "a#b", false},
    {"31U", "##?", true},        {"a", "[abc]", true},         {"B", "[abc]", true},
    {"d", "[abc]", false},       {"d", "[a-z]", true},         {"D", "[a-z]", true},
    {"5", "[a-z]", false},       {"é", "[a-z]", true},         {"5", "[!a-z]", true},
    {"e", "[!a-z]", false},      {"-", "[a-]", true},          {"-", "[-a]", true},
    {"b", "[a-]", false},        {"!", "[!]", true},           {"a", "[!]", false},
    {"!", "[a!]", true},         {"*", "[*]", true},           {"x", "[*]", false},
    {"?", "[?]", true},          {"#", "[#]", true},           {"[", "[[]", true},
    {"]", "]", true},            {"ab", "a[]b", true},         {"a%b", "a%b", true},
    {"axb", "a%b", false},       {"axb", "a_b", false},        {"STAT.TOPO", "stat?topo", true},
    {"utm 31U ES 1 2", "utm*#",  true},                        {"a.b", "a.b", true},
    {"\xE2\x84\xAA", "k", false},                              {"straße", "STRASSE", false},
    {"x\ny", "x*y", true},       {"mississippi", "*iss*ip*", true},
    {"mississippi", "*iss*iss*iss*", false},
    {"un évêque", "*É*", true},  {"un eveque", "*é*", false},  {"é", "*éé*", false},
    {"ééé", "*éé*", true},       {"aéaéb", "*AÉB*", true},     {"aéaéc", "*aéb*", false},
    {"", "*é*", false},          {"plain text of ASCII only", "*ö*", false},
    {"eight by\xC3\xA9", "*É*", true},                        {"\xC3", "*é*", false},
};
// clang-format on

TEST(LikePattern, MatchesAsListed) {
  const Collation collation;
  for (const LikeCase& c : likeCases) {
    EXPECT_EQ(LikePattern(c.pattern, collation).Correspond(c.text), c.matches)
        << "<" << c.text << "> like <" << c.pattern << ">";
  }
}

TEST(LikePattern, RefusesAnOpenListAndAFallingRange) {
  const Collation collation;
  for (const char* pattern : {"[", "a[bc", "*[!", "[z-a]"}) {
    try {
      LikePattern(pattern, collation);
      ADD_FAILURE() << pattern;
    } catch (const TalpenaError& error) {
      EXPECT_EQ(error.number(), 93);
      EXPECT_EQ(error.description(), "Invalid pattern string");
    }
  }
}

/// The plainest matcher there is: one that tries everything. Literals, * and ? only.
bool Naif(std::string_view pattern, std::string_view text) {
  if (pattern.empty()) return text.empty();
  if (pattern[0] == '*') {
    return Naif(pattern.substr(1), text) || (!text.empty() && Naif(pattern, text.substr(1)));
  }
  if (text.empty()) return false;
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return (pattern[0] == '?' || lower(pattern[0]) == lower(text[0])) &&
         Naif(pattern.substr(1), text.substr(1));
}

TEST(LikePattern, AgreesWithTryingEverything) {
  const Collation collation;
  std::mt19937 random(5);
  for (int i = 0; i < 50000; ++i) {
    std::string pattern;
    std::string text;
    for (auto n = random() % 7; n > 0; --n) pattern.push_back("ab*?AB"[random() % 6]);
    for (auto n = random() % 9; n > 0; --n) text.push_back("abABc"[random() % 5]);
    if (i % 3 == 0) pattern = "*" + pattern + "*";
    EXPECT_EQ(LikePattern(pattern, collation).Correspond(text), Naif(pattern, text))
        << "<" << text << "> like <" << pattern << ">";
  }
}

/// The same with accents: each letter is mapped to one of ASCII and back.
TEST(LikePattern, AgreesWithTryingEverythingBeyondAscii) {
  const Collation collation;
  const auto accented = [](const std::string& ascii) {
    std::string text;
    for (const char c : ascii) {
      text += c == 'a' ? "é" : c == 'A' ? "É" : c == 'b' ? "x" : c == 'B' ? "X" : std::string(1, c);
    }
    return text;
  };
  std::mt19937 random(6);
  for (int i = 0; i < 20000; ++i) {
    std::string pattern = "*";
    std::string text;
    for (auto n = 1 + random() % 4; n > 0; --n) pattern.push_back("abAB"[random() % 4]);
    for (auto n = random() % 12; n > 0; --n) text.push_back("abABc"[random() % 5]);
    pattern += "*";
    EXPECT_EQ(LikePattern(accented(pattern), collation).Correspond(accented(text)),
              Naif(pattern, text))
        << "<" << accented(text) << "> like <" << accented(pattern) << ">";
  }
}

TEST(LikePattern, ManyStarsCostLittle) {
  const Collation collation;
  std::string pattern;
  for (int i = 0; i < 200; ++i) pattern += "*a?";
  const LikePattern like(pattern + "b", collation);
  const std::string text(20000, 'a');
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(like.Correspond(text));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace talpena::sqlite
