// Header and lines of a text export, to the byte.
#include "interchange/export_lines.h"

#include <random>

#include "common/numbers.h"
#include "common/text.h"
#include "interchange/export_fixture.h"
#include "interchange/export_options.h"

namespace talpena::test {
namespace {

using Texts = std::vector<std::string>;

class ExportLinesTest : public TextExportTest {
 protected:
  void ToutesLesColonnes() {
    for (const ExportBox& box : CasesExport()) state.*box.flag = 1;
  }
};

TEST_F(ExportLinesTest, TheOrderOfTheColumnsIsTheirOwn) {
  ToutesLesColonnes();
  state.ExportCoordSystem = 7;
  Rangee row = Ligne();
  row.datum = "QQQ";
  EXPECT_EQ(LignesDe(row),
            (Texts{"X,Y,Periode,Latitude,Longitude,N1,N2,Datum,Coord_Orig,Date,Sex,Comment",
                   "0,0,3,+50.41234,+003.92120,00007,00000,QQQ,deg 50.41234 3.9212,1990/01/31,M,"
                   "Mons/wood"}));
  EXPECT_EQ(Boites().size(), 1U);
}

struct ModeCase {
  int mode;
  const char* header;
  const char* headerXY;
  const char* line;
};

// clang-format off
constexpr ModeCase modeCases[] = {
    {Fixed,  "PeriodeN1",     "XYPeriodeN1",       "300007"},
    {Commas, ",Periode,N1",   "X,Y,Periode,N1",    "3,00007"},
    {Tabs,   "\tPeriode\tN1", "X\tY\tPeriode\tN1", "3\t00007"},
    {Blanks, " Periode N1",   "X Y Periode N1",    "3 00007"},
};
// clang-format on

TEST_F(ExportLinesTest, EveryModeHasItsSeparatorAheadOfAllWordsButX) {
  state.ExportPeriod = state.ExportNumber1 = 1;
  Ajoute(Ligne());
  for (const ModeCase& c : modeCases) {
    SCOPED_TRACE(c.mode);
    std::filesystem::remove(path);
    state.ExportCoordSystem = -1;
    EXPECT_EQ(Lignes(Exporte(c.mode)), (Texts{c.header, c.line}));
    std::filesystem::remove(path);
    state.ExportCoordSystem = 7;
    EXPECT_EQ(Lignes(Exporte(c.mode))[0], c.headerXY);
  }
}

TEST_F(ExportLinesTest, NothingStandsAroundTheFieldsInAnyMode) {
  for (const int mode : {Fixed, Commas, Tabs, Blanks}) {
    EXPECT_EQ(TextesDuMode(mode).premier, "");
    EXPECT_EQ(TextesDuMode(mode).avant, "");
    EXPECT_EQ(TextesDuMode(mode).apres, "");
  }
  for (const int mode : {-1, 4}) EXPECT_THROW(TextesDuMode(mode), TalpenaError);
}

struct ColumnCase {
  std::int16_t SettingsState::*flag;
  const char* word;
  const char* value;
};

// clang-format off
constexpr ColumnCase columnCases[] = {
    {&SettingsState::ExportPeriod,        "Periode",    "3"},
    {&SettingsState::ExportLatitude,      "Latitude",   "+50.41234"},
    {&SettingsState::ExportLongitude,     "Longitude",  "+003.92120"},
    {&SettingsState::ExportNumber1,       "N1",         "00007"},
    {&SettingsState::ExportNumber2,       "N2",         "00000"},
    {&SettingsState::ExportEllipsoid,     "Datum",      "WGS84"},
    {&SettingsState::ExportOriginalCoord, "Coord_Orig", "deg 50.41234 3.9212"},
    {&SettingsState::ExportDate,          "Date",       "1990/01/31"},
    {&SettingsState::ExportFreeField,     "Comment",    "Mons/wood"},
    {&SettingsState::ExportSex,           "Sex",        "M"},
};
// clang-format on

TEST_F(ExportLinesTest, EveryColumnIsThereOnlyWhenItsSettingIsOn) {
  Ajoute(Ligne());
  for (const ColumnCase& c : columnCases) {
    SCOPED_TRACE(c.word);
    SansColonnes();
    state.*c.flag = 1;
    std::filesystem::remove(path);
    EXPECT_EQ(Lignes(Exporte()), (Texts{"," + std::string(c.word), c.value}));
  }
}

TEST_F(ExportLinesTest, WithoutAnyColumnAllLinesAreEmpty) {
  Ajoute(Ligne());
  EXPECT_EQ(Exporte(), "\r\n\r\n");
}

TEST_F(ExportLinesTest, XAndYAreOnForAnySystemAboveZero) {
  Ajoute(Ligne());
  for (const auto& [system, header] :
       {std::pair{-1, ""}, {0, ""}, {1, "X,Y"}, {7, "X,Y"}, {32767, "X,Y"}, {-32768, ""}}) {
    state.ExportCoordSystem = static_cast<std::int16_t>(system);
    std::filesystem::remove(path);
    EXPECT_EQ(Lignes(Exporte())[0], header) << system;
  }
}

struct NumberCase {
  std::int64_t n1;
  const char* text;
};

// 16777217 is the first whole number that a 32-bit float does not hold.
constexpr NumberCase numberCases[] = {{0, "00000"},   {99999, "99999"},     {123456, "123456"},
                                      {-7, "-00007"}, {-123456, "-123456"}, {16777217, "16777216"}};

TEST_F(ExportLinesTest, NumbersHaveFiveDigitsAtLeast) {
  state.ExportNumber1 = state.ExportNumber2 = 1;
  for (const NumberCase& c : numberCases) {
    Rangee row = Ligne();
    row.n1 = row.n2 = c.n1;
    Ajoute(row);
  }
  const Texts lines = Lignes(Exporte());
  ASSERT_EQ(lines.size(), std::size(numberCases) + 1);
  for (std::size_t i = 0; i < std::size(numberCases); ++i) {
    const std::string text = numberCases[i].text;
    EXPECT_EQ(lines[i + 1], text + "," + text);
  }
}

TEST_F(ExportLinesTest, PeriodsArePlainNumbers) {
  state.ExportPeriod = 1;
  for (const int period : {0, 12345, -3}) Ajoute(Ligne(period));
  EXPECT_EQ(Lignes(Exporte()), (Texts{",Periode", "0", "12345", "-3"}));
}

struct DegreeCase {
  double latitude;
  double longitude;
  const char* line;
};

// The halves are exact in a float: 1/64 is 0.015625.
constexpr DegreeCase degreeCases[] = {
    {0, 0, "+00.00000,+000.00000"},
    {-0.000001, -0.000001, "+00.00000,+000.00000"},
    {90, -180, "+90.00000,-180.00000"},
    {-90, 180, "+90.00000,+180.00000"},
    {0.015625, -0.015625, "+00.01563,-000.01563"},
    {123456, -1234567, "+123456.00000,-1234567.00000"},
};

TEST_F(ExportLinesTest, DegreesHaveFiveDecimalsAndASign) {
  state.ExportLatitude = state.ExportLongitude = 1;
  for (const DegreeCase& c : degreeCases) {
    Rangee row = Ligne();
    row.latitude = c.latitude;
    row.longitude = c.longitude;
    Ajoute(row);
  }
  const Texts lines = Lignes(Exporte());
  ASSERT_EQ(lines.size(), std::size(degreeCases) + 1);
  for (std::size_t i = 0; i < std::size(degreeCases); ++i) {
    EXPECT_EQ(lines[i + 1], degreeCases[i].line);
  }
}

TEST_F(ExportLinesTest, TextsGoOutAsTheyStandInCodePage1252) {
  state.ExportOriginalCoord = state.ExportFreeField = 1;
  Rangee row = Ligne();
  row.original = " utm 31 ";
  row.comment = "a, \"b\"\nLi\u00E8ge \u20AC\t";
  Ajoute(row);
  EXPECT_EQ(Exporte(), ",Coord_Orig,Comment\r\n utm 31 ,a, \"b\"\nLi\xE8ge \x80\t\r\n");
}

/// One line as the masks of the columns make it.
std::string Attendue(const SettingsState& s, const Rangee& row, const std::string& separator) {
  std::string line;
  bool first = true;
  const auto champ = [&](std::int16_t flag, const std::string& value) {
    if (flag == 0) return;
    line += (first ? "" : separator) + value;
    first = false;
  };
  const auto simple = [](double value) { return double{static_cast<float>(value)}; };
  champ(s.ExportPeriod, Format(static_cast<double>(*row.period), "0"));
  champ(s.ExportLatitude, Format(std::fabs(simple(*row.latitude)), "+00.00000;-00.00000"));
  champ(s.ExportLongitude, Format(simple(*row.longitude), "+000.00000;-000.00000"));
  champ(s.ExportNumber1, Format(simple(static_cast<double>(*row.n1)), "00000"));
  champ(s.ExportNumber2, Format(simple(static_cast<double>(*row.n2)), "00000"));
  champ(s.ExportEllipsoid, *row.datum);
  champ(s.ExportOriginalCoord, *row.original);
  champ(s.ExportDate, *row.date);
  champ(s.ExportSex, row.sex.value_or(""));
  champ(s.ExportFreeField, *row.comment);
  return line + "\r\n";
}

/// Rows of any values that the table takes, and texts with whatever a separator is.
class AnyRow {
 public:
  Rangee operator()() {
    std::uniform_real_distribution<double> degrees(-200, 200);
    return {.period = Entier(-40000 / 2, 30000),
            .latitude = degrees(random_),
            .longitude = degrees(random_),
            .n1 = Entier(INT32_MIN, INT32_MAX),
            .n2 = Entier(-99, 100000),
            .sex = Entier(0, 3) == 0 ? std::nullopt : std::optional(Texte(1)),
            .datum = "x" + Texte(4),
            .original = "y" + Texte(23),
            .date = Texte(10),
            .comment = Texte(300)};
  }
  std::int64_t Entier(std::int64_t least, std::int64_t most) {
    return std::uniform_int_distribution<std::int64_t>(least, most)(random_);
  }

 private:
  /// Of characters below 128, NUL and CR aside.
  std::string Texte(std::int64_t longest) {
    std::string text;
    for (std::int64_t i = Entier(longest == 1 ? 1 : 0, longest); i > 0; --i) {
      const char c = static_cast<char>(Entier(1, 127));
      text += c == '\r' ? '\n' : c;
    }
    return text;
  }
  std::mt19937 random_{20110704};
};

TEST_F(ExportLinesTest, AnyRowsComeOutToTheByte) {
  AnyRow any;
  constexpr std::array separators = {"", ",", "\t", " "};
  for (int turn = 0; turn < 40; ++turn) {
    SCOPED_TRACE(turn);
    state.document.WorkingDb->Execute("DELETE FROM TALPENA");
    Relit();
    for (const ExportBox& box : CasesExport()) {
      state.*box.flag = static_cast<std::int16_t>(any.Entier(0, 1));
    }
    std::string expected;
    const std::size_t mode = static_cast<std::size_t>(turn) % separators.size();
    for (const ColumnCase& c :
         {columnCases[0], columnCases[1], columnCases[2], columnCases[3], columnCases[4],
          columnCases[5], columnCases[6], columnCases[7], columnCases[9], columnCases[8]}) {
      if (state.*c.flag != 0) expected += separators[mode] + std::string(c.word);
    }
    expected += "\r\n";
    for (int i = 0; i < 25; ++i) {
      const Rangee row = any();
      Ajoute(row);
      expected += Attendue(state, row, separators[mode]);
    }
    std::filesystem::remove(path);
    EXPECT_EQ(Exporte(static_cast<int>(mode)), expected);
  }
}

}  // namespace
}  // namespace talpena::test
