#include "store/deg_row_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

/// Columns 1 to 31 of a line, then what follows.
std::string Ligne(const std::string& rest) { return "2K+ 4.50000-  3.25000   12    7" + rest; }

/// A line with date and sex, then the datum and what follows.
std::string LigneDatum(const std::string& rest) { return Ligne("2004/07/01F" + rest); }

DegRow Lit(const std::string& line, std::size_t freeFields = 0) {
  DegRowReader reader("/", freeFields);
  EXPECT_EQ(reader.Lit(line), RowKind::Row);
  return reader.Ligne();
}

TEST(DegRowReader, HoldsEveryColumn) {
  const DegRow row = Lit(LigneDatum("WGS84deg +04.50000 -003.25000a remark"));
  EXPECT_EQ(row.period, 2);
  EXPECT_EQ(row.latitude, 4.5F);
  EXPECT_EQ(row.longitude, -3.25F);
  EXPECT_EQ(row.n1, 12);
  EXPECT_EQ(row.n2, 7);
  EXPECT_EQ(row.date, "2004/07/01");
  EXPECT_EQ(row.sex, "F");
  EXPECT_EQ(row.datum, "WGS84");
  EXPECT_EQ(row.original, "deg +04.50000 -003.25000");
  EXPECT_EQ(row.comment, "a remark");
}

TEST(DegRowReader, TakesACommaForThePointOfACoordinate) {
  const DegRow row = Lit("1K+ 4,50000-  3,25000  1,9  2,9" + std::string(17, ' ') + "x");
  EXPECT_EQ(row.latitude, 4.5F);
  EXPECT_EQ(row.longitude, -3.25F);
  EXPECT_EQ(row.n1, 1) << "the numbers end at their comma";
  EXPECT_EQ(row.n2, 2);
}

TEST(DegRowReader, KeepsSinglePrecision) {
  const DegRow row = Lit("1K+48.12345-123.45678    1    1" + std::string(17, ' ') + "x");
  EXPECT_EQ(row.latitude, 48.12345F);
  EXPECT_EQ(row.longitude, -123.45678F);
}

TEST(DegRowReader, ReadsOnlyOneColumnOfThePeriod) {
  EXPECT_EQ(Lit("12K 4.50000   3.25000    1    1" + std::string(17, ' ') + "x").period, 1);
  EXPECT_EQ(Lit("-K+ 4.50000   3.25000    1    1" + std::string(17, ' ') + "x").period, 0);
}

TEST(DegRowReader, KeepsBlanksOfDateDatumAndOriginal) {
  const DegRow row =
      Lit(Ligne("2004      "
                " "
                "NTF  grp 5 3 "));
  EXPECT_EQ(row.date, "2004      ");
  EXPECT_EQ(row.sex, "");
  EXPECT_EQ(row.datum, "NTF");
  EXPECT_EQ(row.original, "grp 5 3 ");
}

struct DatumCase {
  const char* found;
  const char* stored;
};

// clang-format off
constexpr DatumCase datumCases[] = {
    {"HAYFO", "EUR-M"}, {"WGS84", "WGS84"}, {"AIRMO", "IRL"},   {"AUSTR", "AUG"},
    {"BESSE", "TOY-M"}, {"CLA66", "NAS-C"}, {"CLA80", "NTF"},   {"EVERE", "IND-B"},
    {"EVEMO", "KEA"},   {"WGS72", "WGS72"}, {"AIRY ", "AIRY "}, {"hayfo", "hayfo"},
    {"XYZ  ", "XYZ  "}, {"     ", "     "},
};
// clang-format on

TEST(DegRowReader, TurnsOldEllipsoidCodesIntoDatums) {
  for (const DatumCase& c : datumCases) {
    EXPECT_EQ(Lit(LigneDatum(std::string(c.found) + "deg 1 2")).datum, c.stored) << c.found;
  }
}

TEST(DegRowReader, KnowsAiryOnlyAtTheEndOfALineOf46Columns) {
  const DegRow row = Lit(LigneDatum("AIRY"));
  EXPECT_EQ(row.datum, "OGB-M");
  EXPECT_EQ(row.original, "");
}

constexpr DatumCase systemCases[] = {
    {"utm 31 533781 4103899", "EUR-M"},
    {"UTM 31", "EUR-M"},
    {"mgr 31 S EB33", "EUR-M"},
    {"grp 5 3", "NTF"},
    {"bng 1 2", "OGB-M"},
    {"itm 1 2", "IRL"},
    {"lmb 1 2", "BEL72"},
    {"ifb A1", "BEL72"},
    {"Ifb A1", "BEL72"},
    {"deg 1 2", "CLA6"},
    {"dms 1 2", "CLA6"},
    {" utm", "CLA6"},
    {"ut", "CLA6"},
    {"\xFFtm 1", "CLA6"},
};

TEST(DegRowReader, LetsTheCoordinateSystemOverrideTheDatum) {
  for (const DatumCase& c : systemCases) {
    EXPECT_EQ(Lit(LigneDatum("CLA6 " + std::string(c.found))).datum.substr(0, 5),
              std::string(c.stored) == "CLA6" ? "CLA6 " : c.stored)
        << c.found;
  }
}

TEST(DegRowReader, OverridesAnOldCodeToo) {
  EXPECT_EQ(Lit(LigneDatum("AIRMOutm 30 1 2")).datum, "EUR-M");
}

TEST(DegRowReader, HoldsTheCommentFromColumn72ToTheEnd) {
  const std::string original = "deg +04.50000 -003.25000";
  EXPECT_EQ(Lit(LigneDatum("WGS84" + original)).comment, "");
  EXPECT_EQ(Lit(LigneDatum("WGS84" + original + " x\ny ")).comment, " x\ny ");
  EXPECT_EQ(Lit(LigneDatum("WGS84" + original + std::string(5000, 'x'))).comment.size(), 5000U);
}

TEST(DegRowReader, MakesABarePointOfAShortLine) {
  DegRowReader reader("/", 0);
  ASSERT_EQ(reader.Lit(Ligne("")), RowKind::BarePoint);
  const DegRow& row = reader.Ligne();
  EXPECT_EQ(row.latitude, 4.5F);
  EXPECT_EQ(row.longitude, -3.25F);
  EXPECT_EQ(row.datum, "EUR-M");
  EXPECT_EQ(row.original, "deg +4.50000 -3.25000") << "each coordinate is one word";
  EXPECT_EQ(row.comment, "");
  EXPECT_EQ(row.date, "");
  EXPECT_EQ(row.sex, "");
}

TEST(DegRowReader, MakesPointsOfCommasInABarePoint) {
  DegRowReader reader("/", 0);
  ASSERT_EQ(reader.Lit("1K+ 4,50000-  3,25000"), RowKind::BarePoint);
  EXPECT_EQ(reader.Ligne().original, "deg +4.50000 -3.25000");
}

TEST(DegRowReader, MakesZerosOfAnEmptyLine) {
  DegRowReader reader("/", 2);
  ASSERT_EQ(reader.Lit(""), RowKind::BarePoint);
  const DegRow& row = reader.Ligne();
  EXPECT_EQ(row.period, 0);
  EXPECT_EQ(row.latitude, 0);
  EXPECT_EQ(row.original, "deg  ");
  EXPECT_EQ(row.comment, "//");
}

TEST(DegRowReader, ReadsADateFrom32CharactersOn) {
  DegRowReader reader("/", 0);
  ASSERT_EQ(reader.Lit(Ligne("2")), RowKind::Row);
  EXPECT_EQ(reader.Ligne().date, "2");
  EXPECT_EQ(reader.Ligne().datum, "") << "nothing to inherit from";
  EXPECT_EQ(reader.Ligne().original, "");
}

TEST(DegRowReader, InheritsWhatALineIsTooShortFor) {
  DegRowReader reader("/", 0);
  reader.Lit(LigneDatum("WGS84deg +04.50000 -003.25000old"));
  ASSERT_EQ(reader.Lit(Ligne("1999/01/02M")), RowKind::Row) << "42 characters: a date alone";
  EXPECT_EQ(reader.Ligne().date, "1999/01/02");
  EXPECT_EQ(reader.Ligne().sex, "F") << "column 42 is read from 43 characters on";
  EXPECT_EQ(reader.Ligne().datum, "WGS84");
  EXPECT_EQ(reader.Ligne().original, "deg +04.50000 -003.25000");
  EXPECT_EQ(reader.Ligne().comment, "old");
  reader.Lit(Ligne("1999/01/02MEUR-M"));
  EXPECT_EQ(reader.Ligne().sex, "M");
  EXPECT_EQ(reader.Ligne().original, "") << "43 to 47 characters empty the coordinates";
  EXPECT_EQ(reader.Ligne().comment, "old") << "and keep the comment";
}

TEST(DegRowReader, InheritsDateAndSexIntoABarePoint) {
  DegRowReader reader("/", 0);
  reader.Lit(LigneDatum("WGS84deg 1 2"));
  ASSERT_EQ(reader.Lit(Ligne("")), RowKind::BarePoint);
  EXPECT_EQ(reader.Ligne().date, "2004/07/01");
  EXPECT_EQ(reader.Ligne().sex, "F");
  EXPECT_EQ(reader.Lit(Ligne("2010")), RowKind::Row);
  EXPECT_EQ(reader.Ligne().datum, "EUR-M") << "the bare point's datum and coordinates go on";
  EXPECT_EQ(reader.Ligne().original, "deg +4.50000 -3.25000");
}

TEST(DegRowReader, StopsAtFinDuInAShortLineOnly) {
  DegRowReader reader("/", 0);
  EXPECT_EQ(reader.Lit("FIN DU FICHIER"), RowKind::End);
  EXPECT_EQ(reader.Lit("  fin du fichier"), RowKind::End);
  EXPECT_EQ(reader.Lit("FIN  DU FICHIER"), RowKind::BarePoint);
  EXPECT_EQ(reader.Lit(std::string(31 - 6, ' ') + "Fin Du"), RowKind::End);
  EXPECT_EQ(reader.Lit(std::string(32 - 6, ' ') + "Fin Du"), RowKind::Row);
}

struct PaddingCase {
  std::string comment;
  std::string padded;
};

TEST(DegRowReader, PadsTheCommentInFront) {
  const PaddingCase cases[] = {
      {"", "///"},       {"remark", "///remark"}, {"a/b", "//a/b"},
      {"a/b/", "/a/b/"}, {"a/b/c/d", "a/b/c/d"},  {"a/b/c/d/e", "a/b/c/d/e"}};
  for (const PaddingCase& c : cases) {
    const DegRow row = Lit(LigneDatum("WGS84deg +04.50000 -003.25000" + c.comment), 3);
    EXPECT_EQ(row.comment, c.padded) << c.comment;
  }
}

TEST(DegRowReader, PadsWithSeparatorsOfMoreThanOneByte) {
  DegRowReader reader("\xC2\xA7", 2);  // section sign, A7 in the file
  reader.Lit(
      LigneDatum("WGS84deg +04.50000 -003.25000a\xA7"
                 "b"));
  EXPECT_EQ(reader.Ligne().comment,
            "\xC2\xA7"
            "a\xC2\xA7"
            "b");
}

TEST(DegRowReader, RefusesSeparatorsThatNoRowCouldHold) {
  EXPECT_NO_THROW(DegRowReader("/", 32767));
  try {
    DegRowReader reader(std::string(1000, 's'), 32767);
    FAIL();
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::Overflow);
  }
}

TEST(DegRowReader, DecodesTheCodePageBehindTheCuttingOfColumns) {
  std::string bytes;
  for (int b = 0; b < 256; ++b) bytes += static_cast<char>(b);
  for (std::size_t from = 0; from + 24 <= bytes.size(); from += 8) {
    const std::string piece = bytes.substr(from, 24);
    const DegRow row = Lit(LigneDatum("WGS84" + piece + piece));
    EXPECT_EQ(row.original, Cp1252VersUtf8(piece));
    EXPECT_EQ(row.comment, Cp1252VersUtf8(piece));
  }
}

TEST(DegRowReader, RefusesNumbersThatNoColumnHolds) {
  const char* lines[] = {"1K    1E39   3.25000    1    1", "1K+ 4.50000      1E99    1    1",
                         "1K+ 4.50000   3.25000  3E9    1", "1K+ 4.50000   3.25000    1 -9E9"};
  for (const char* line : lines) {
    DegRowReader reader("/", 0);
    try {
      reader.Lit(line);
      ADD_FAILURE() << line;
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::Overflow) << line;
    }
  }
}

TEST(DegRowReader, RoundsHalvesOfNumbersToEven) {
  const DegRow row = Lit("1K+ 4.50000   3.25000  1.5  2.5" + std::string(17, ' ') + "x");
  EXPECT_EQ(row.n1, 2);
  EXPECT_EQ(row.n2, 2);
}

TEST(DegRowReader, KeepsItsBoundsForAnyBytes) {
  std::mt19937 random(3);
  DegRowReader reader("/", 4);
  for (int run = 0; run < 100'000; ++run) {
    std::string line;
    const std::size_t length = random() % 100;
    for (std::size_t i = 0; i < length; ++i) line += static_cast<char>(random() % 256);
    try {
      if (reader.Lit(line) == RowKind::End) continue;
    } catch (const TalpenaError& e) {
      ASSERT_EQ(e.number(), ErrorNumber::Overflow);
      continue;
    }
    const DegRow& row = reader.Ligne();
    ASSERT_LE(CompteCaracteres(row.original), 24U);
    ASSERT_LE(CompteCaracteres(row.date), 10U);
    ASSERT_LE(CompteCaracteres(row.datum), 5U);
    ASSERT_LE(CompteCaracteres(row.sex), 1U);
    ASSERT_GE(std::count(row.comment.begin(), row.comment.end(), '/'), 4);
    ASSERT_TRUE(Utf8VersCp1252(row.comment).has_value());
  }
}

}  // namespace
}  // namespace talpena
