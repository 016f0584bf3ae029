// What the user is told of a failure.
#include "common/error_words.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <set>

#include "common/msg_id.h"
#include "common/msg_id_errors.h"

namespace talpena {
namespace {

constexpr std::int16_t french = 0, english = 1000, spanish = 2000;
constexpr std::int16_t languages[] = {0, 1000, 3000, 4000, 5000};

TEST(DescriptionErreur, IsTheWordsOfTheNumber) {
  const TalpenaError error(ErrorNumber::NoCurrentRecord, "No current record.");
  EXPECT_EQ(DescriptionErreur(english, error),
            "There is no row to work on; add a row or choose one first.");
  EXPECT_EQ(DescriptionErreur(french, error),
            "Il n’y a pas de ligne à traiter\u00A0; ajoutez ou choisissez d’abord une ligne.");
}

TEST(DescriptionErreur, NamesWhatTheFailureIsAbout) {
  EXPECT_EQ(DescriptionErreur(english, {ErrorNumber::TooFewParameters, "", {.about = {"PERIODE"}}}),
            "There is no column “PERIODE”; compare it with the names of the columns.");
  EXPECT_EQ(DescriptionErreur(english, {ErrorNumber::DiskFull, "", {.about = {"/data/a.deg"}}}),
            "The disk is full; make room on it and try again.\n/data/a.deg")
      << "below, where the words have no place for it";
}

TEST(DescriptionErreur, PrefersWordsOfItsOwn) {
  EXPECT_EQ(DescriptionErreur(english, {ErrorNumber::InvalidNull,
                                        "",
                                        {.text = MsgId::LigneSansValeur, .about = {"3", "N1"}}}),
            "Row 3 has no N1; fill it in.");
}

TEST(DescriptionErreur, SaysWhatElseCanBeDone) {
  EXPECT_EQ(DescriptionErreur(english, {ErrorNumber::FileExists,
                                        "",
                                        {.about = {"a.BAK"}, .hint = MsgId::SauveSousMarche}}),
            "There is a file of this name already; choose another name.\na.BAK\n"
            "Save as works for this path.");
}

TEST(DescriptionErreur, NamesTheLineOfTheFile) {
  const TalpenaError error(ErrorNumber::Overflow, "Overflow");
  EXPECT_EQ(DescriptionErreur(english, error.SurLigne(17)),
            "Line 17 of the file: A number is too large for its place; correct it.");
  EXPECT_EQ(error.SurLigne(17).description(), "Line 17: Overflow");
  EXPECT_EQ(error.SurLigne(17).number(), ErrorNumber::Overflow);
}

TEST(DescriptionErreur, IsTheDescriptionWhereThereAreNoWords) {
  EXPECT_EQ(DescriptionErreur(english, {4711, "Something else"}), "Something else");
  EXPECT_EQ(DescriptionErreur(english, TalpenaError(4711, "Something else").SurLigne(2)),
            "Line 2: Something else");
  EXPECT_EQ(DescriptionErreur(english, {ErrorNumber::TableNotFound, "No such table"}),
            "No such table")
      << "which one is not told";
  EXPECT_EQ(DescriptionErreur(spanish, {ErrorNumber::Overflow, "Overflow"}), "Overflow")
      << "a language without texts";
}

/// The numbers in the header, by their names.
std::map<std::string, int> Numeros() {
  std::ifstream file(std::string(TALPENA_SOURCE_DIR) + "/src/common/talpena_error.h");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  const std::regex number("inline constexpr int (\\w+) = (\\d+);");
  std::map<std::string, int> numbers;
  for (std::sregex_iterator it(text.begin(), text.end(), number), end; it != end; ++it) {
    numbers[(*it)[1]] = std::stoi((*it)[2]);
  }
  return numbers;
}

TEST(DescriptionErreur, HasWordsForEveryNumberThatAUserCanMeet) {
  // Those of mistakes in the program itself, and those that end in silence or in words of their
  // own.
  const std::set<std::string> others = {
      "Cancelled",         "SystemDatabase",    "ResourceNotFound", "NotInCodePage",
      "FileAlreadyOpen",   "UpdateWithoutEdit", "NoTransaction",    "SelectNotExecutable",
      "CircularReference", "InvalidStatement",  "TooManyFields"};
  const std::map<std::string, int> numbers = Numeros();
  EXPECT_GT(numbers.size(), 45U);
  for (const auto& [name, number] : numbers) {
    SCOPED_TRACE(name);
    for (const std::int16_t language : languages) {
      const std::string words = DescriptionErreur(language, {number, "?", {.about = {"x"}}});
      EXPECT_EQ(words == "?", others.count(name) == 1) << words;
    }
  }
}

}  // namespace
}  // namespace talpena
