// Pages of written Access files, byte by byte, against those of existing ones.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "platform/foreign/jet/index_keys.h"
#include "platform/foreign/jet/text.h"
#include "platform/foreign/jet_values.h"
#include "platform/foreign/written_files.h"

namespace talpena {
namespace {

using namespace test;
using namespace std::string_view_literals;

constexpr std::size_t pageBytes = 4096;

std::uint32_t Nombre(std::string_view bytes, std::size_t at, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  }
  return value;
}

std::string Page(const std::string& file, std::size_t number) {
  return file.substr(number * pageBytes, pageBytes);
}

/// An entry of a leaf: the key, and the row of the catalogue that it stands for.
struct Entry {
  std::string key;
  std::uint32_t parent = 0;
  std::string name;
};

/// The row of the catalogue at a place: its parent and its name.
Entry Objet(const std::string& file, std::string_view place) {
  const auto byte = [&](std::size_t i) -> std::size_t {
    return static_cast<unsigned char>(place[i]);
  };
  const std::string rows = Page(file, byte(0) << 16U | byte(1) << 8U | byte(2));
  constexpr std::uint32_t offsets = 0x1FFF;
  const std::size_t row = byte(3);
  const std::size_t start = Nombre(rows, 14 + 2 * row, 2) & offsets;
  const std::size_t end = row == 0 ? pageBytes : Nombre(rows, 12 + 2 * row, 2) & offsets;
  const std::string_view bytes = std::string_view(rows).substr(start, end - start);
  const std::size_t ends = bytes.size() - (Nombre(bytes, 0, 2) + 7) / 8 - 4;
  const std::size_t from = Nombre(bytes, ends, 2);
  const std::string_view name = bytes.substr(from, Nombre(bytes, ends - 2, 2) - from);
  return {{}, Nombre(bytes, 6, 4), TexteJet(JetVersion::Jet4, name)};
}

/// The entries of the index over parents and names, in their order.
std::vector<Entry> IndexDesNoms(const std::string& file) {
  std::vector<Entry> entries;
  const std::string leaf = Page(file, 7);
  EXPECT_EQ(leaf.substr(0, 2), "\4\1"sv);
  EXPECT_EQ(Nombre(leaf, 20, 2), 0U) << "prefixes are not looked at here";
  std::size_t start = 0;
  for (std::size_t i = 1; i < (0x1E0 - 0x1B) * 8; ++i) {
    if ((static_cast<unsigned char>(leaf[0x1B + i / 8]) >> i % 8 & 1) == 0) continue;
    const std::string bytes = leaf.substr(0x1E0 + start, i - start);
    Entry entry = Objet(file, std::string_view(bytes).substr(bytes.size() - 4));
    entry.key = bytes.substr(0, bytes.size() - 4);
    entries.push_back(std::move(entry));
    start = i;
  }
  return entries;
}

std::string Cle(const Entry& entry) {
  std::string key;
  jet::AjouteCle(key, static_cast<std::int32_t>(entry.parent));
  jet::AjouteCle(key, std::string_view(entry.name));
  return key;
}

std::vector<std::string> FichiersJet4() {
  std::vector<std::string> files;
  for (const char* name : {"fixedTextTestV2000.mdb", "compIndexTestV2000.mdb", "test2V2000.mdb",
                           "testIndexPropertiesV2000.mdb", "indexTestV2003.mdb",
                           "queryTestV2003.mdb", "DateTestDatabase.mdb"}) {
    files.push_back((mdbFolder / name).string());
  }
  return files;
}

TEST(JetIndexKeys, AreThoseOfExistingFiles) {
  NEEDS_SHARED_DATA();
  std::size_t entries = 0;
  std::set<char> letters;
  for (const std::string& path : FichiersJet4()) {
    for (const Entry& entry : IndexDesNoms(Lis(path))) {
      EXPECT_EQ(Cle(entry), entry.key) << entry.name << " in " << path;
      letters.insert(entry.name.begin(), entry.name.end());
      ++entries;
    }
  }
  EXPECT_GT(entries, 100U);
  EXPECT_GT(letters.size(), 50U);
}

struct IndexedText {
  const char* file;
  std::string_view text;
};

// Texts of indexed columns of tables and of the relationships: blanks, a hyphen, no weight at all.
constexpr IndexedText indexedTexts[] = {
    {"fixedTextTestV2000.mdb", "admin"},      {"fixedTextTestV2000.mdb", "CORE USER"},
    {"fixedTextTestV2000.mdb", "Admin User"}, {"fixedTextTestV2000.mdb", "-1"},
    {"fixedTextTestV2000.mdb", "N"},          {"indexTestV2003.mdb", "Table2Table1"},
    {"indexTestV2003.mdb", "Table3Table1"},   {"DateTestDatabase.mdb", "MSysNavPaneGroups"},
};

/// The keys of all leaves of indexes.
std::set<std::string> Cles(const std::string& file) {
  std::set<std::string> keys;
  for (std::size_t number = 0; number < file.size() / pageBytes; ++number) {
    const std::string leaf = Page(file, number);
    if (!leaf.starts_with("\4\1"sv) || Nombre(leaf, 20, 2) != 0) continue;
    std::size_t start = 0;
    for (std::size_t i = 1; i < (0x1E0 - 0x1B) * 8; ++i) {
      if ((static_cast<unsigned char>(leaf[0x1B + i / 8]) >> i % 8 & 1) == 0) continue;
      if (i > start + 4) keys.insert(leaf.substr(0x1E0 + start, i - start - 4));
      start = i;
    }
  }
  return keys;
}

TEST(JetIndexKeys, AreThoseOfIndexedColumns) {
  NEEDS_SHARED_DATA();
  for (const IndexedText& c : indexedTexts) {
    std::string key;
    jet::AjouteCle(key, c.text);
    EXPECT_TRUE(Cles(Lis(mdbFolder / c.file)).contains(key)) << c.text << " in " << c.file;
  }
}

struct KeyCase {
  const char* name;
  std::string_view text;
  std::string_view key;
};

// By the published weights of the order "General": letters, then accents, then hyphens.
// clang-format off
constexpr KeyCase keyCases[] = {
    {"empty",                "",     "\x7F\x01\x00"sv},
    {"no regard to case",    "aAœŒ", "\x7F\x4A\x4A\x64\x51\x64\x51\x01\x00"sv},
    {"an accent",            "é",    "\x7F\x51\x01\x0E\x00"sv},
    {"an accent behind",     "abé",  "\x7F\x4A\x4C\x51\x01\x02\x02\x0E\x00"sv},
    {"nothing behind it",    "éab",  "\x7F\x51\x4A\x4C\x01\x0E\x00"sv},
    {"two letters in one",   "æ",    "\x7F\x4A\x51\x01\x00"sv},
    {"one character to the accents", "æé", "\x7F\x4A\x51\x51\x01\x02\x0E\x00"sv},
    {"a hyphen",             "a-b",  "\x7F\x4A\x4C\x01\x01\x01\x01\x80\x0B\x06\x82\x00"sv},
    {"two of them",          "a-'b", "\x7F\x4A\x4C\x01\x01\x01\x01\x80\x0B\x06\x82\x80\x0B\x06\x80\x00"sv},
    {"an accent and a dash", "é–",   "\x7F\x51\x01\x0E\x01\x01\x01\x80\x0B\x06\x89\x00"sv},
    {"capital y diaeresis",  "ÿŸ",   "\x7F\x76\x76\x01\x13\x13\x00"sv},
    {"thorn and eth",        "þÐ",   "\x7F\x6D\x57\x4F\x01\x02\x68\x00"sv},
    {"signs",                "€™ƒ",  "\x7F\x35\xA1\x6E\x04\x53\x01\x02\x02\x7B\x00"sv},
    {"blanks at the end",    "a b  ", "\x7F\x4A\x07\x4C\x01\x00"sv},
    {"beyond the code page", "Ł?",   "\x7F\x24\x24\x01\x00"sv},
};
// clang-format on

TEST(JetIndexKeys, SortAsTheTextsDo) {
  for (const KeyCase& c : keyCases) {
    std::string key;
    jet::AjouteCle(key, c.text);
    EXPECT_EQ(key, c.key) << c.name;
  }
  std::string before;
  jet::AjouteCle(before, std::int32_t{-1});
  std::string after;
  jet::AjouteCle(after, std::int32_t{1});
  EXPECT_LT(before, after);
}

TEST(JetIndexKeys, EveryCharacterOfTheCodePageCounts) {
  constexpr std::string_view none = "\x7F\x01\x00"sv;
  constexpr std::string_view undefined = "\x7F\x81\x8D\x8F\x90\x9D";
  for (int code = '!'; code <= 0xFF; ++code) {
    const char byte = static_cast<char>(code);
    if (undefined.find(byte) != std::string_view::npos) continue;
    std::string key;
    jet::AjouteCle(key, Cp1252VersUtf8(std::string_view(&byte, 1)));
    EXPECT_NE(key, none) << code;
  }
}

TEST(JetCatalogue, IsIndexedInOrder) {
  const TempFolder folder;
  const WrittenFile file(folder / "tables.mdb");
  for (const char* name : {"Zebra", "émeu", "Ant 2", "ant"}) {
    file.database->CreeTable(
        {.name = name, .fields = {Champ("N", FieldType::Long)}, .indexes = {}});
  }
  const std::vector<Entry> entries = IndexDesNoms(Lis(file.path));
  EXPECT_EQ(entries.size(), 12U);
  std::vector<std::string> tables;
  for (const Entry& entry : entries) {
    EXPECT_EQ(Cle(entry), entry.key) << entry.name;
    if (entry.parent == 0x0F000001 && !entry.name.starts_with("MSys")) tables.push_back(entry.name);
  }
  EXPECT_EQ(tables, (std::vector<std::string>{"ant", "Ant 2", "émeu", "Zebra"}));
  EXPECT_TRUE(std::is_sorted(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
    return std::string_view(a.key) < std::string_view(b.key);
  }));
}

// The numbers of rows differ; everything else of these two definitions is the same everywhere.
TEST(JetCatalogue, IsDefinedAsInExistingFiles) {
  NEEDS_SHARED_DATA();
  const TempFolder folder;
  const WrittenFile file(folder / "empty.mdb");
  const std::string ours = Lis(file.path);
  const std::string theirs = Lis(mdbFolder / "fixedTextTestV2000.mdb");
  for (const std::size_t number : {2U, 5U}) {
    std::string mine = Page(ours, number);
    std::string other = Page(theirs, number);
    const std::size_t length = Nombre(other, 8, 4);
    for (const std::size_t count : {0x10U, 0x43U, 0x4FU}) {
      if (number == 2) mine[count] = other[count] = 0;
    }
    EXPECT_EQ(mine.substr(0, length), other.substr(0, length)) << "page " << number;
  }
}

struct TextCase {
  const char* name;
  std::string_view text;
  std::string_view bytes;
};

// clang-format off
constexpr TextCase textCases[] = {
    {"short",                    "bee",          "\xFF\xFE" "bee"sv},
    {"too short for it",         "be",           "b\0e\0"sv},
    {"Latin",                    "été",          "\xFF\xFE\xE9t\xE9"sv},
    {"beyond Latin",             "aŁb",          "a\0\x41\1b\0"sv},
    {"two units",                "🦔",           "\x3E\xD8\x94\xDD"sv},
    {"what looks like the mark", "\uFEFFb",      "\xFF\xFE\0\xFF\xFE" "b\0"sv},
};
// clang-format on

TEST(JetText, IsShortWhereThatIsShorter) {
  for (const TextCase& c : textCases) {
    std::string bytes;
    jet::AjouteTexte(bytes, c.text, jet::TextForm::Short);
    EXPECT_EQ(bytes, c.bytes) << c.name;
    EXPECT_EQ(TexteJet(JetVersion::Jet4, bytes), c.text) << c.name;
  }
}

}  // namespace
}  // namespace talpena
