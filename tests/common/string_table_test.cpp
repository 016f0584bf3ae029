// The five blocks against each other.
#include "common/string_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

#include "common/msg_id.h"
#include "common/string_blocks.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr std::int16_t French = 0;
constexpr std::int16_t English = 1000;
constexpr std::int16_t Spanish = 2000;
constexpr std::int16_t German = 3000;
constexpr std::int16_t Italian = 4000;
constexpr std::int16_t Dutch = 5000;
constexpr std::array translated = {French, German, Italian, Dutch};

std::vector<int> Ids(std::int16_t langue) {
  std::vector<int> ids;
  for (const StringEntry& entry : BlocDeTextes(langue)) ids.push_back(entry.id);
  return ids;
}

/// Runs a check of (block, id, English text, translated text) over every translation.
template <typename Check>
void ForEachTranslation(Check check) {
  for (const std::int16_t langue : translated) {
    for (const StringEntry& entry : BlocDeTextes(langue)) {
      SCOPED_TRACE(std::to_string(langue) + " + " + std::to_string(entry.id));
      check(entry.id, Texte(English, entry.id), std::string(entry.text));
    }
  }
}

std::size_t Count(std::string_view text, std::string_view what) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string_view::npos; ++at) ++count;
  return count;
}

std::string BlanksBefore(const std::string& text) {
  return text.substr(0, text.find_first_not_of(' '));
}

std::string BlanksBehind(const std::string& text) {
  return text.substr(text.find_last_not_of(' ') + 1);
}

TEST(StringTable, HasFiveBlocks) {
  EXPECT_EQ(TousLesBlocs().size(), 5U);
  for (const std::int16_t langue : {French, English, German, Italian, Dutch}) {
    EXPECT_FALSE(BlocDeTextes(langue).empty()) << langue;
  }
  EXPECT_TRUE(BlocDeTextes(Spanish).empty());
  EXPECT_TRUE(BlocDeTextes(-1000).empty());
}

TEST(StringTable, HoldsTheSameIdsInEveryBlock) {
  const std::vector<int> ids = Ids(English);
  EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end()));
  EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end());
  for (const std::int16_t langue : translated) EXPECT_EQ(Ids(langue), ids) << langue;
}

// A straight apostrophe between letters beside the curved one of the language looks careless.
TEST(StringTable, WritesEveryApostropheTheSameWay) {
  ForEachTranslation([](int, const std::string&, const std::string& text) {
    EXPECT_EQ(text.find('\''), std::string::npos) << text;
  });
}

TEST(StringTable, CallsASquareOfTheIfblByOneNameInDutch) {
  for (const StringEntry& entry : BlocDeTextes(Dutch)) {
    EXPECT_EQ(entry.text.find("kwadra"), std::string_view::npos) << entry.text;
    EXPECT_EQ(entry.text.find("IFBL hok"), std::string_view::npos) << entry.text;
  }
}

TEST(StringTable, HoldsTheIdsOfEveryRange) {
  const auto covered = [](int first, int last) {
    for (int id = first; id <= last; ++id) EXPECT_FALSE(Texte(English, id).empty()) << id;
  };
  covered(1, 19);     // File
  covered(30, 42);    // Edit
  covered(44, 46);    // Edit
  covered(50, 65);    // View
  covered(70, 82);    // Options
  covered(85, 85);    // Options
  covered(90, 91);    // Help
  covered(100, 101);  // period definition
  covered(120, 132);  // main window, period definition, grid
  covered(135, 138);  // grid
  covered(150, 168);  // adjusting
  covered(170, 171);  // find
  covered(180, 191);  // export
  covered(200, 211);  // record editor
  covered(217, 228);  // record editor
  covered(231, 231);  // raster maps
  covered(260, 260);  // preferences
  covered(262, 264);  // preferences
  covered(267, 268);  // preferences
  covered(300, 315);  // text import
  covered(410, 428);  // map view
  covered(430, 439);  // map options
  covered(690, 698);  // text import
  covered(700, 703);  // text import
  covered(720, 722);  // wait window
  covered(750, 758);  // main window
  covered(765, 772);  // record editor, gazetteer
  covered(780, 797);  // gazetteer
  covered(800, 808);  // datums
  covered(810, 814);  // preferences
  covered(820, 822);  // working folder
  covered(870, 882);  // user guide
  covered(901, 919);  // saving, status, grid
  covered(920, 930);  // names, about, saving
  covered(931, 934);  // filter
  covered(935, 939);  // preferences
  covered(940, 942);  // record editor
  covered(943, 943);  // preferences
  covered(944, 948);  // selection
  covered(950, 959);  // converter between Lambert belge and IFBL
  covered(960, 964);  // coordinate tools
  covered(970, 976);  // hints of the record editor
  covered(980, 987);  // record editor
}

TEST(StringTable, GivesTheTextOfTheLanguage) {
  EXPECT_EQ(Texte(French, MsgId::Annuler), "Annuler");
  EXPECT_EQ(Texte(English, MsgId::Annuler), "Cancel");
  EXPECT_EQ(Texte(German, MsgId::Annuler), "Abbrechen");
  EXPECT_EQ(Texte(Italian, MsgId::Annuler), "Annulla");
  EXPECT_EQ(Texte(Dutch, MsgId::Annuler), "Annuleren");
  EXPECT_EQ(Texte(English, MsgId::Ouverture), "Opening...");
}

struct MissingCase {
  std::int16_t langue;
  int base;
  const char* description;
};

TEST(StringTable, RefusesAnIdThatTheBlockLacks) {
  const MissingCase cases[] = {
      {French, 43, "Resource with identifier '43' not found."},
      {English, 43, "Resource with identifier '1043' not found."},
      {English, 0, "Resource with identifier '1000' not found."},
      {English, -5, "Resource with identifier '995' not found."},
      {English, 999, "Resource with identifier '1999' not found."},
      {English, 1721, "Resource with identifier '2721' not found."},
      {Spanish, MsgId::Ouverture, "Resource with identifier '2721' not found."},
      {721, MsgId::Ouverture, "Resource with identifier '1442' not found."},
  };
  for (const MissingCase& c : cases) {
    SCOPED_TRACE(c.description);
    try {
      Texte(c.langue, c.base);
      ADD_FAILURE() << "a text came back";
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::ResourceNotFound);
      EXPECT_EQ(e.number(), 326);
      EXPECT_EQ(e.description(), c.description);
    }
  }
}

TEST(StringTable, KeepsTheBlanksAtTheEndsOfTheEnglishText) {
  ForEachTranslation([](int, const std::string& english, const std::string& text) {
    EXPECT_EQ(BlanksBefore(text), BlanksBefore(english));
    EXPECT_EQ(BlanksBehind(text), BlanksBehind(english));
    EXPECT_EQ(Count(text, "  "), Count(english, "  "));
  });
  EXPECT_EQ(Texte(English, MsgId::PeriodeHorsLimites), "Period must be comprise between 1 and ");
}

TEST(StringTable, KeepsThePlaceholdersOfTheEnglishText) {
  ForEachTranslation([](int, const std::string& english, const std::string& text) {
    for (const char* placeholder : {"%", "%1", "%2", "..."}) {
      EXPECT_EQ(Count(text, placeholder), Count(english, placeholder)) << placeholder;
    }
  });
}

// The wait window says in full words what "..." means, in every block.
TEST(StringTable, KeepsTheFieldCountOfTheExpectedStructures) {
  ForEachTranslation([](int id, const std::string& english, const std::string& text) {
    if (id >= 690 && id <= 698) {
      EXPECT_EQ(Count(text, ","), Count(english, ","));
    }
  });
}

// A mark that was decoded with the wrong code page, or lost its bytes, shows as one of these.
TEST(StringTable, HoldsNoGarbledCharacters) {
  constexpr const char* garbled[] = {"\u00C3", "\u00C2",  "\u00E2\u20AC",
                                     "\uFFFD", "?\u00A9", "&amp;"};
  for (const StringBlock& block : TousLesBlocs()) {
    for (const StringEntry& entry : block.entries) {
      const std::string text(entry.text);
      SCOPED_TRACE(std::to_string(block.langue) + " + " + std::to_string(entry.id) + " " + text);
      for (const char* mark : garbled) EXPECT_EQ(text.find(mark), std::string::npos) << mark;
      const auto bytes = Utf8VersCp1252(text);  // five western languages fit the code page
      ASSERT_TRUE(bytes.has_value());
      EXPECT_EQ(Cp1252VersUtf8(*bytes), text);
      for (const char c : *bytes) {
        const auto byte = static_cast<unsigned char>(c);
        EXPECT_TRUE(byte >= 0x20 && byte != 0x7F) << int{byte};
      }
    }
  }
}

TEST(StringTable, IsTranslatedWhereTheWordsAreEnglish) {
  // Texts that are the same words in another language, counted once here: a block that grew
  // many more was copied, not translated.
  for (const std::int16_t langue : translated) {
    int same = 0;
    for (const StringEntry& entry : BlocDeTextes(langue))
      same += entry.text == Texte(English, entry.id);
    EXPECT_LT(same, 45) << langue;
  }
}

TEST(StringTable, PutsNoBreakBlanksBeforeFrenchMarks) {
  for (const StringEntry& entry : BlocDeTextes(French)) {
    const std::string text(entry.text);
    SCOPED_TRACE(text);
    for (const char* mark : {" !", " ?", " :", " ;", "\u00AB ", " \u00BB"}) {
      EXPECT_EQ(text.find(mark), std::string::npos);
    }
    for (const char mark : {'!', '?', ':', ';'}) {
      const std::size_t at = text.find(mark);
      if (at == std::string::npos) continue;
      ASSERT_GE(at, 2U);
      EXPECT_EQ(text.substr(at - 2, 2), "\u00A0");
    }
  }
}

TEST(StringTable, AsksAndExclaimsAsTheEnglishTextDoes) {
  ForEachTranslation([](int, const std::string& english, const std::string& text) {
    EXPECT_EQ(english.ends_with('?'), text.ends_with('?'));
    EXPECT_EQ(english.ends_with('!'), text.ends_with('!'));
    EXPECT_EQ(english.ends_with("..."), text.ends_with("..."));
    EXPECT_EQ(english.ends_with(':') || english.ends_with('='), text.ends_with(':'));
  });
}

struct CaptionCase {
  const char* caption;
  const char* text;
};

TEST(SansMnemonique, TakesTheMarksAway) {
  constexpr CaptionCase cases[] = {
      {"", ""},
      {"Open", "Open"},
      {"&Open", "Open"},
      {"Save &as...", "Save as..."},
      {"Fish && chips", "Fish & chips"},
      {"&&", "&"},
      {"&&&x", "&x"},
      {"End&", "End"},
      {"À &propos", "À propos"},
      {"Öffne&n", "Öffnen"},
  };
  for (const CaptionCase& c : cases) EXPECT_EQ(SansMnemonique(c.caption), c.text) << c.caption;
}

TEST(SansMnemonique, LeavesNoMarkInAnyText) {
  for (const StringBlock& block : TousLesBlocs()) {
    for (const StringEntry& entry : block.entries) {
      EXPECT_EQ(SansMnemonique(entry.text).find('&'), std::string::npos) << entry.text;
    }
  }
}

}  // namespace
}  // namespace talpena
