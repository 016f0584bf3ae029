#include "platform/foreign/jet_values.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "common/text.h"

namespace talpena {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view head3 = "\0\1\0\0Standard Jet DB\0\0\0\0\0"sv;
constexpr std::string_view head4 = "\0\1\0\0Standard Jet DB\0\1\0\0\0"sv;

TEST(VersionJet, KnowsTheTwoFormats) {
  EXPECT_EQ(VersionJet(head3), JetVersion::Jet3);
  EXPECT_EQ(VersionJet(head4), JetVersion::Jet4);
}

TEST(VersionJet, RefusesOtherHeads) {
  EXPECT_EQ(VersionJet(""), std::nullopt);
  EXPECT_EQ(VersionJet(head3.substr(0, 23)), std::nullopt);
  EXPECT_EQ(VersionJet("\0\1\0\0Standard ACE DB\0\2\0\0\0"sv), std::nullopt);
  EXPECT_EQ(VersionJet("\0\1\0\0Standard Jet DB\0\2\0\0\0"sv), std::nullopt);
  EXPECT_EQ(VersionJet("\0\1\0\0Standard Jet DB\0\1\0\0\1"sv), std::nullopt);
  EXPECT_EQ(VersionJet("\1\1\0\0Standard Jet DB\0\1\0\0\0"sv), std::nullopt);
  EXPECT_EQ(VersionJet("SQLite format 3\0........"sv), std::nullopt);
}

TEST(TexteJet, ReadsCodePage1252InJet3) {
  EXPECT_EQ(TexteJet(JetVersion::Jet3, "Cam\xE9l\xE9on \x80 \x9C"), "Caméléon € œ");
  EXPECT_EQ(TexteJet(JetVersion::Jet3, ""), "");
}

struct TextCase {
  const char* name;
  std::string_view bytes;
  const char* text;
};

constexpr TextCase textCases[] = {
    {"plain", "A\0\xE9\0\x53\x01"sv, "Aéœ"},
    {"compressed",
     "\xFF\xFE"
     "A\xE9Z"sv,
     "AéZ"},
    {"compressed, two-byte part, compressed",
     "\xFF\xFE"
     "A\0\xAC\x20\x53\x01\0Z"sv,
     "A€œZ"},
    {"compressed, nothing behind", "\xFF\xFE"sv, ""},
    {"empty", ""sv, ""},
    {"half a character", "A\0B"sv, "A"},
    {"half a character behind the switch",
     "\xFF\xFE"
     "A\0\xAC"sv,
     "A"},
    {"beyond the basic plane", "\x3D\xD8\x0A\xDE"sv, "\xF0\x9F\x98\x8A"},
    {"lone high surrogate", "\x3D\xD8\x41\0"sv,
     "\xEF\xBF\xBD"
     "A"},
    {"lone low surrogate", "\x0A\xDE"sv, "\xEF\xBF\xBD"},
    {"high surrogate at the end", "\x3D\xD8"sv, "\xEF\xBF\xBD"},
};

TEST(TexteJet, ReadsUcs2InJet4) {
  for (const TextCase& c : textCases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(TexteJet(JetVersion::Jet4, c.bytes), c.text);
  }
}

TEST(TexteJet, GivesUtf8ForAnyBytes) {
  std::uint32_t seed = 1;
  for (int i = 0; i < 20000; ++i) {
    std::string bytes = i % 2 == 0 ? "\xFF\xFE" : "";
    for (int k = 0; k < i % 23; ++k) {
      seed = seed * 1664525 + 1013904223;
      bytes += static_cast<char>(seed >> ((seed & 1) != 0 ? 24 : 16));
    }
    EXPECT_TRUE(EstUtf8(TexteJet(JetVersion::Jet4, bytes)));
    EXPECT_TRUE(EstUtf8(TexteJet(JetVersion::Jet3, bytes)));
  }
}

TEST(EntierJet, ReadsSignedLittleEndian) {
  EXPECT_EQ(EntierJet("\xFE\xFF"sv, 2), -2);
  EXPECT_EQ(EntierJet("\x01\x02"sv, 2), 0x0201);
  EXPECT_EQ(EntierJet("\0\0\0\x80"sv, 4), -2147483648LL);
  EXPECT_EQ(EntierJet("\x80"sv, 1), -128);
  EXPECT_EQ(EntierJet("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"sv, 8), 0x7FFFFFFFFFFFFFFFLL);
  EXPECT_EQ(EntierJet("\x01"sv, 2), std::nullopt);
  EXPECT_EQ(EntierJet(""sv, 1), std::nullopt);
}

TEST(RealsJet, ReadTheirWidths) {
  EXPECT_EQ(SimpleJet("\0\0\x80\x3F"sv), 1.0);
  EXPECT_EQ(SimpleJet("\0\0\x80"sv), std::nullopt);
  EXPECT_EQ(DoubleJet("\0\0\0\0\0\0\xF0\xBF"sv), -1.0);
  EXPECT_EQ(DoubleJet("\0\0\0\0\0\0\xF0"sv), std::nullopt);
}

TEST(MonnaieJet, DividesByTenThousand) {
  EXPECT_EQ(MonnaieJet("\xB8\x88\0\0\0\0\0\0"sv), 3.5);
  EXPECT_EQ(MonnaieJet("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv), -0.0001);
  EXPECT_EQ(MonnaieJet("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"sv), 922337203685477.5807);
  EXPECT_EQ(MonnaieJet("\0"sv), std::nullopt);
}

TEST(NumeriqueJet, ReadsWordsMostSignificantFirst) {
  constexpr auto small = "\0\0\0\0\0\0\0\0\0\0\0\0\0\x39\x30\0\0"sv;  // 12345
  EXPECT_EQ(NumeriqueJet(small, 0), 12345.0);
  EXPECT_EQ(NumeriqueJet(small, 2), 123.45);
  constexpr auto negative = "\x80\0\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\0"sv;  // -2^32
  EXPECT_EQ(NumeriqueJet(negative, 0), -4294967296.0);
  EXPECT_EQ(NumeriqueJet(small, 29), std::nullopt);
  EXPECT_EQ(NumeriqueJet(small, -1), std::nullopt);
  EXPECT_EQ(NumeriqueJet(small.substr(1), 0), std::nullopt);
}

TEST(GuidJet, WritesTheUsualForm) {
  EXPECT_EQ(GuidJet("\x33\x22\x11\x00\x55\x44\x77\x66\x88\x99\xAA\xBB\xCC\xDD\xEE\xFF"sv),
            "{00112233-4455-6677-8899-AABBCCDDEEFF}");
  EXPECT_EQ(GuidJet("\x33"sv), std::nullopt);
}

TEST(EstUtf8, AcceptsWellFormedTextOnly) {
  for (const auto good : {""sv, "abc"sv, "é€\xF0\x9F\x98\x8A"sv, "\0"sv, "\xEF\xBF\xBD"sv}) {
    EXPECT_TRUE(EstUtf8(good)) << good;
  }
  for (const auto bad : {"\x80"sv, "\xC3"sv, "\xC0\x80"sv, "\xE0\x80\x80"sv, "\xED\xA0\x80"sv,
                         "\xF4\x90\x80\x80"sv, "\xF0\x80\x80\x80"sv, "\xFF"sv, "a\xE9"sv}) {
    EXPECT_FALSE(EstUtf8(bad)) << testing::PrintToString(bad);
  }
}

}  // namespace
}  // namespace talpena
