#include "coords/tokens.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/talpena_error.h"

namespace talpena {
namespace {

std::vector<std::string> Deux(std::string_view text) {
  std::string_view first = "?", second = "?";
  DecoupeDeux(text, first, second);
  return {std::string(first), std::string(second)};
}

std::vector<std::string> Trois(std::string_view text) {
  std::string_view first = "?", second = "?", third = "?";
  DecoupeTrois(text, first, second, third);
  return {std::string(first), std::string(second), std::string(third)};
}

using Texts = std::vector<std::string>;

TEST(Decoupe, GivesTheTokensBehindTheCode) {
  EXPECT_EQ(Deux("DEG 50.5 4.25"), (Texts{"50.5", "4.25"}));
  EXPECT_EQ(Trois("UTM 31 616000 5564000"), (Texts{"31", "616000", "5564000"}));
}

TEST(Decoupe, GivesNothingWhenTheNumberOfTokensIsAnother) {
  for (const char* text : {"", "DEG", "DEG 50.5", "DEG 50.5 4.25 7"}) {
    EXPECT_EQ(Deux(text), (Texts{"", ""})) << text;
  }
  for (const char* text : {"", "UTM 31 616000", "UTM 31 616000 5564000 1"}) {
    EXPECT_EQ(Trois(text), (Texts{"", "", ""})) << text;
  }
}

TEST(Decoupe, CountsEachPairOfBlanksOnce) {
  EXPECT_EQ(Deux("DEG  50.5  4.25"), (Texts{"50.5", "4.25"}));
  EXPECT_EQ(Deux("DEG   50.5"), (Texts{"", "50.5"}));  // three: an empty token between
  EXPECT_EQ(Deux("DEG    50.5"), (Texts{"", "50.5"}));
  EXPECT_EQ(Deux("DEG     50.5"), (Texts{"", ""}));  // five: two of them
  EXPECT_EQ(Deux("DEG 50.5 "), (Texts{"50.5", ""}));
}

TEST(NombreDe, TakesAPointOrAComma) {
  EXPECT_EQ(NombreDe("50,5"), 50.5);
  EXPECT_EQ(NombreDe("-3.25"), -3.25);
  EXPECT_EQ(NombreDe("1E3"), 1000);
  EXPECT_EQ(NombreDe("12abc"), 12);
  EXPECT_EQ(NombreDe("abc"), 0);
  EXPECT_EQ(NombreDe(""), 0);
  EXPECT_EQ(NombreDe("12,5,7"), 12.5);
  EXPECT_THROW(NombreDe("1E999"), TalpenaError);
}

TEST(NombreDe, PassesOverNoBreakBlanks) {
  EXPECT_EQ(NombreDe("150\u00A0000,5"), 150000.5);
  EXPECT_EQ(NombreDe("\u202F-3\u2007"), -3);
}

TEST(OriginalLisible, HasOneByteForEachCharacter) {
  std::string text = "before";
  OriginalLisible(" bng\u00A0nn 74\u00E968\u202F ", text);
  EXPECT_EQ(text,
            "BNG NN 74\x7f"
            "68");
  OriginalLisible("  deg 1 2 ", text);
  EXPECT_EQ(text, "DEG 1 2");
  OriginalLisible("\u00A0\u2007", text);
  EXPECT_EQ(text, "");
}

TEST(RemplaceCar, ReplacesEveryOccurrence) {
  std::string text = "1,2,3";
  RemplaceCar(text, ',', '.');
  EXPECT_EQ(text, "1.2.3");
}

struct DmsRow {
  const char* text;
  float degrees, minutes, seconds;
  char sign;
};

TEST(DecoupeDms, SplitsPackedDegrees) {
  // What stands before is 7, 8, 9: what a text does not give stays.
  const DmsRow rows[] = {
      {"50.2530", 50, 25, 30, '+'},
      {"+50.25", 50, 25, 9, '+'},
      {"50.2", 50, 2, 9, '+'},
      {"-3.5512", 3, 55, 12, '-'},
      {"12.1234", 12, 12, 34, '+'},
      {"12.123456", 12, 12, 34.56F, '+'},
      {"12.123", 12, 12, 3, '+'},
      {"12.12345", 12, 12, 34.5F, '+'},
      {"50,2530", 50, 25, 30, '+'},
      {"-12", -12, 0, 0, '-'},
      {"12", 12, 0, 0, '+'},
      {"12.", 12, 0, 0, '+'},
      {"-12.", -12, 0, 0, '-'},
      {"  50.2530  ", 50, 25, 30, '+'},
      {"", 7, 8, 9, '-'},
      {"   ", 7, 8, 9, '-'},
      {".2530", 0, 25, 30, '+'},
      {"-.2530", 0, 25, 30, '-'},
      {"abc", 0, 0, 0, '+'},
      {"-0.3000", 0, 30, 0, '-'},
      {"+003.55120", 3, 55, 12, '+'},
      {"50.25307", 50, 25, 30.7F, '+'},
  };
  for (const DmsRow& row : rows) {
    Dms dms{7, 8, 9, '-'};
    DecoupeDms(row.text, dms);
    EXPECT_EQ(dms.degrees, row.degrees) << row.text;
    EXPECT_EQ(dms.minutes, row.minutes) << row.text;
    EXPECT_EQ(dms.seconds, row.seconds) << row.text;
    EXPECT_EQ(dms.sign, row.sign) << row.text;
  }
}

TEST(DmsVersDegres, AddsUpBySign) {
  EXPECT_DOUBLE_EQ(DmsVersDegres({50, 25, 30, '+'}), 50.425);
  EXPECT_DOUBLE_EQ(DmsVersDegres({3, 55, 12, '-'}), -3.92);
  EXPECT_DOUBLE_EQ(DmsVersDegres({3, 55, 12, '?'}), -3.92);
}

// The minus of "-12" stays in the degrees and is applied twice: stored data were read so.
TEST(DmsVersDegres, TurnsAWholeNegativeNumberPositive) {
  Dms dms;
  DecoupeDms("-12", dms);
  EXPECT_EQ(DmsVersDegres(dms), 12);
}

TEST(DmsVersDegres, HoldsItsPartsInSinglePrecision) {
  Dms dms;
  DecoupeDms("50.123456789", dms);
  EXPECT_EQ(dms.seconds, 34.56789F);
  const double seconds = dms.seconds;
  EXPECT_NEAR(DmsVersDegres(dms), 50 + 12 / 60.0 + seconds / 3600, 1e-14);
  EXPECT_NE(DmsVersDegres(dms), 50 + 12 / 60.0 + 34.56789 / 3600);
}

TEST(CompleteGrille, PutsAReferenceAtTheCentreOfItsCell) {
  const struct {
    const char *given, *complete;
  } rows[] = {
      {"SU1234", "SU1249934499"},
      {"31UES12", "31UES1499924999"},
      {"SU123", "SU123"},
      {"SU12", "SU1499924999"},
      {"SU123456", "SU1234945649"},
      {"SU12345678", "SU1234456784"},
      {"SU1234567890", "SU1234567890"},
      {"SU123456789012", "SU123456789012"},
      {" S U 12 34 ", "SU1249934499"},
      {"SU", "SU"},
      {"S", "S"},
      {"", ""},
      {"31UES", "31UES"},
      {"3", "3"},
      {"**12", "**1499924999"},
      {"05UES1234", "05UES1249934499"},
  };
  for (const auto& row : rows) {
    std::string text = row.given;
    CompleteGrille(text);
    EXPECT_EQ(text, row.complete) << row.given;
  }
}

TEST(NombrePourGrille, PutsBlanksForLeadingZeros) {
  const struct {
    const char *given, *shown;
  } rows[] = {
      {"+003.50000", "+  3.50000"},
      {"-003,50000", "-  3.50000"},
      {"+000.50000", "+  0.50000"},
      {"+123.50000", "+123.50000"},
      {"+0.5", "+0.5"},
      {"+000", "+  0"},
      {"", ""},
      {"+", "+"},
      {"+1,2,3", "+1.2,3"},
  };
  for (const auto& row : rows) {
    std::string text = row.given;
    NombrePourGrille(text);
    EXPECT_EQ(text, row.shown) << row.given;
  }
}

}  // namespace
}  // namespace talpena
