// Mnemonic letters: within one menu, and within one dialog, each leads to one entry.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "common/string_table.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr std::int16_t English = 1000;
constexpr std::int16_t translated[] = {0, 3000, 4000, 5000};

/// What stands together: texts of the table, and captions that are the same in every language.
struct Group {
  const char* name;
  std::vector<int> ids;
  std::vector<std::string> fixed;
};

const std::vector<Group>& Groups() {
  static const std::vector<Group> groups = {
      {"menu bar and the Edit button", {1, 30, 50, 70, 90, 760}, {"Anal&yse", "Grille"}},
      {"File", {2, 3, 4, 5, 19, 6, 7, 8, 18}, {"&1 a.deg", "&2 b.deg", "&3 c.deg", "&4 d.deg"}},
      {"Export", {9, 14, 15, 16, 17}, {"Fichier Excel"}},
      {"Ascii file", {10, 11, 12, 13}, {}},
      {"Edit", {31, 46, 32, 45, 33, 34, 35, 42}, {"Sélection a&vancée..."}},
      {"Insert in free field", {36, 37, 38, 44, 39, 40, 314, 315, 41}, {"&IFBL"}},
      {"View", {51, 52, 60, 61, 62, 63, 64, 65, 968}, {}},
      {"Europe", {52, 53, 54, 55, 56, 57, 58, 59}, {}},
      {"Options", {71, 85, 72, 75, 76, 960}, {}},
      {"Coordinate tools", {961, 962, 963, 964}, {}},
      {"Display", {73, 74}, {}},
      {"Language", {77, 78, 79, 80, 81, 82}, {}},
      {"Analysis", {283, 284, 285}, {"P&hénologie"}},
      {"chart", {209, 279, 280, 281, 282}, {}},
      {"summary", {209, 279, 281}, {}},
      {"Help", {90, 91}, {}},
      {"map: menu bar", {1, 50, 70}, {"E&PS"}},
      {"map: File", {410, 411, 412, 413, 414}, {}},
      {"map: View", {415, 416}, {}},
      {"map: Options", {417, 418}, {}},
      {"map: pop-up", {415, 419}, {}},
      {"record editor", {208, 209, 210, 211, 767, 771, 772, 793}, {}},
      {"gazetteer set-up", {793, 794, 795, 796, 797}, {"&Change", "&Help", "Fonts"}},
  };
  return groups;
}

/// The letter behind the mark, in upper case; empty without one.
std::string Mnemonic(std::string_view caption) {
  for (std::size_t at = 0; (at = caption.find('&', at)) != std::string_view::npos; at += 2) {
    const std::string_view behind = caption.substr(at + 1);
    if (!behind.starts_with('&')) return Majuscules(PremiersCaracteres(behind, 1));
  }
  return {};
}

void ExpectNoCollision(const Group& group, std::int16_t langue) {
  SCOPED_TRACE(std::string(group.name) + ", " + std::to_string(langue));
  std::map<std::string, std::string> owners;
  const auto take = [&owners](const std::string& caption) {
    const std::string letter = Mnemonic(caption);
    if (letter.empty()) return;
    const auto [owner, isNew] = owners.try_emplace(letter, caption);
    EXPECT_TRUE(isNew) << caption << " and " << owner->second << " share " << letter;
  };
  for (const std::string& caption : group.fixed) take(caption);
  for (const int id : group.ids) take(Texte(langue, id));
}

TEST(Mnemonics, AreUniqueWithinEveryMenuAndDialog) {
  for (const Group& group : Groups()) {
    for (const std::int16_t langue : translated) ExpectNoCollision(group, langue);
  }
}

TEST(Mnemonics, StandWhereTheEnglishTextHasOne) {
  for (const std::int16_t langue : translated) {
    for (const StringEntry& entry : BlocDeTextes(langue)) {
      EXPECT_EQ(Mnemonic(entry.text).empty(), Mnemonic(Texte(English, entry.id)).empty())
          << langue << " + " << entry.id << " " << entry.text;
    }
  }
}

// Letters with an accent are not on every keyboard that the language is typed on.
TEST(Mnemonics, AreLettersOfEveryKeyboard) {
  for (const std::int16_t langue : translated) {
    for (const StringEntry& entry : BlocDeTextes(langue)) {
      const std::string letter = Mnemonic(entry.text);
      if (letter.empty()) continue;
      EXPECT_TRUE(letter.size() == 1 && letter[0] >= 'A' && letter[0] <= 'Z')
          << langue << " + " << entry.id << " " << entry.text;
    }
  }
}

TEST(Mnemonics, OfEveryCaptionAreCheckedInSomeGroup) {
  for (const StringEntry& entry : BlocDeTextes(English)) {
    if (Mnemonic(entry.text).empty()) continue;
    bool grouped = false;
    for (const Group& group : Groups()) {
      for (const int id : group.ids) grouped = grouped || id == entry.id;
    }
    EXPECT_TRUE(grouped) << entry.id << " " << entry.text;
  }
}

}  // namespace
}  // namespace talpena
