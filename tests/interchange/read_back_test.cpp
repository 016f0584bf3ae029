// What was written is read again: nothing that comes back otherwise is passed over.
#include "interchange/database_fixture.h"

namespace talpena::test {
namespace {

/// Each target by a maker that keeps everything, but for what a test changes.
class ReadBackTest : public DatabaseExportTest {
 protected:
  ReadBackTest() {
    state.ExportPeriod = state.ExportLatitude = state.ExportNumber1 = state.ExportDate = 1;
    for (int i = 0; i < 2000; ++i) Ajoute(Ligne());
    Cible(DBase);
  }

  void Cible(int target) {
    const DatabaseTarget& kind = CibleBase(target);
    rules = {.connect = std::string(kind.connect)};
    for (const std::string_view ending : kind.endings) rules.endings.emplace_back(ending);
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(std::make_unique<FakeMaker>(rules));
    Prend(std::move(formats));
    chosen = kind.endings.empty() ? "deg.file" : "deg" + std::string(kind.endings.front());
  }
  void Exporte(int target) { ExporteVers(target, folder / chosen); }
  void Oublie() {
    dialogues.boxes.clear();
    for (const std::string& name : folder.Noms()) std::filesystem::remove(folder / name);
  }

  MakerRules rules;
  std::string chosen;
};

TEST_F(ReadBackTest, NoTargetGoesWithoutIt) {
  for (int target = Access; target <= Workbook; ++target) {
    SCOPED_TRACE(target);
    Cible(target);
    int opened = 0;
    rules.avantLecture = [&] { ++opened; };
    Exporte(target);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(Avis(), "2,000 rows written and read back");
    rules.plie = [](std::int64_t row, std::size_t column, std::string& value) {
      if (row == 1234 && column == 0) value = "7";
    };
    Oublie();
    Exporte(target);
    ASSERT_EQ(Boites().size(), 1U);
    EXPECT_TRUE(Boites()[0].starts_with("Error 57\nRow 1,234, column “")) << Boites()[0];
    EXPECT_EQ(Avis(), "");
    Oublie();
  }
}

TEST_F(ReadBackTest, ATableMayBeCalledAsAStatementIs) {
  for (const char* name : {"select", "Select it", "[all]", "select (2)"}) {
    SCOPED_TRACE(name);
    chosen = std::string(name) + ".dbf";
    Exporte(DBase);
    EXPECT_EQ(Avis(), "2,000 rows written and read back");
    Oublie();
  }
}

TEST_F(ReadBackTest, AFileOfAnotherNameThanTheOneTypedIsNamed) {
  for (const char* typed : {"my.file.dbf", "my.txt"}) {
    chosen = typed;
    Exporte(DBase);
    EXPECT_EQ(Avis(), "2,000 rows written and read back (my.dbf)") << typed;
    Oublie();
  }
}

struct BentCase {
  const char* name;
  std::size_t column;
  const char* value;
  const char* words;
};

// clang-format off
constexpr BentCase bentCases[] = {
    {"a text",             0, "4",          "column “Period”: the file gives back “4” where “3” was written"},
    {"the last bit",       1, "50.412342",  "column “Latitude”: the file gives back “50.412342” where “50.41234” was written"},
    {"a sign",             2, "-7",         "column “Number 1”: the file gives back “-7” where “7” was written"},
    {"a cut text",         3, "1990/01/3",  "column “Date”: the file gives back “1990/01/3” where “1990/01/31” was written"},
    {"a number for Null",  2, "null",       "column “Number 1”: the file gives back “” where “7” was written"},
    {"a blank in front",   3, " 1990/01/31", "column “Date”: the file gives back “ 1990/01/31” where “1990/01/31” was written"},
    {"letter case",        4, "MOLES / of Mons", "column “Memo”: the file gives back “MOLES / of Mons” where “Moles / of Mons” was written"},
};
// clang-format on

TEST_F(ReadBackTest, ADifferenceIsToldWithRowAndColumn) {
  for (const BentCase& c : bentCases) {
    SCOPED_TRACE(c.name);
    rules.plie = [&](std::int64_t row, std::size_t column, std::string& value) {
      if (row == 1999 && column == c.column) value = c.value;
    };
    Exporte(DBase);
    EXPECT_EQ(Boites(), Texts{"Error 57\nRow 1,999, " + std::string(c.words) +
                              "; export again, to another disk if it happens again."});
    Oublie();
  }
}

TEST_F(ReadBackTest, RowsThatAreMissingAreTold) {
  rules.oublie = 2;
  Exporte(DBase);
  EXPECT_EQ(Boites(), Texts{"Error 57\nThe file gives back 1,998 rows where 2,000 were written; "
                            "export again, to another disk if it happens again."});
}

TEST_F(ReadBackTest, AFileThatCannotBeReadIsTold) {
  rules.avantLecture = [] {
    throw TalpenaError(ErrorNumber::UnrecognizedFormat, "no database", {});
  };
  Exporte(DBase);
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Boites()[0].starts_with("Error 3343\n")) << Boites()[0];
  EXPECT_TRUE(
      Boites()[0].ends_with("\nThe rows were written, but the file could not be read back."))
      << Boites()[0];
}

struct KeptCase {
  const char* name;
  Target target;
  std::size_t column;
  const char* value;
  bool same;
};

// clang-format off
constexpr KeptCase keptCases[] = {
    {"a float as its decimals",         DBase,  1, "50.41234000000000", true},
    {"blanks that fill a field",        DBase,  3, "1990/01/31   ",     true},
    {"blanks where none are added",     Access, 3, "1990/01/31   ",     false},
    {"a whole number with decimals",    DBase,  2, "7.0",               true},
};
// clang-format on

TEST_F(ReadBackTest, WhatAFormatStoresOtherwiseIsTheSame) {
  for (const KeptCase& c : keptCases) {
    SCOPED_TRACE(c.name);
    Cible(c.target);
    rules.plie = [&](std::int64_t, std::size_t column, std::string& value) {
      if (column == c.column) value = c.value;
    };
    Exporte(c.target);
    EXPECT_EQ(Boites().empty(), c.same);
    Oublie();
  }
}

TEST_F(ReadBackTest, AnEmptyTextMayComeBackAsNull) {
  Ajoute({});
  rules.plie = [](std::int64_t, std::size_t, std::string& value) {
    if (value.empty()) value = "null";
  };
  Exporte(DBase);
  EXPECT_TRUE(Boites().empty());
}

}  // namespace
}  // namespace talpena::test
