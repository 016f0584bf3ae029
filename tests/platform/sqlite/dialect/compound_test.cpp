// Queries of several SELECTs, the first rows of one, and what saved queries say besides.
#include "platform/sqlite/drawer.h"
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

/// A maker's file with a table; each SELECT is run as a saved query.
class CompoundTest : public EngineTest {
 protected:
  CompoundTest() {
    drawer.tables = {{.name = "TALPENA",
                      .fields = {{"PERIOD", FieldType::Integer},
                                 {"LATITUDE", FieldType::Single},
                                 {"N1", FieldType::Long},
                                 {"N2", FieldType::Long},
                                 {"SEX", FieldType::Text, 1},
                                 {"DATUM", FieldType::Text, 5},
                                 {"DATE", FieldType::Text, 10}},
                      .indexes = {}},
                     {.name = "Votes", .fields = {{"No", FieldType::Long}}, .indexes = {}}};
    drawer.rows["TALPENA"] = {{1, 4.1, 1, 0, "M", "WGS84", "1987/05/12"},
                              {1, 0.1, 2, 0, "f", "EUR-M", "1990/01/02"},
                              {2, -4.1, 3, 0, "m", "WGS84", ""},
                              {2, 45, 4, 0, Value(), Value(), Value()},
                              {3, Value(), 5, 0, "", "BEL72", "2001/12/31"}};
    drawer.rows["Votes"] = {{7}};
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(std::make_unique<DrawerFormat>(drawer));
    makers = CreeMoteurSqlite(std::move(formats));
  }

  std::unique_ptr<Recordset> Lance(const std::string& select) {
    drawer.queries = {{.name = "Saved", .sql = select, .fields = {}}};
    opened = makers->OpenDatabase(folder.path().string(), true, Connect::DBase4);
    return opened->OpenRecordset("Saved");
  }

  /// The first column of a SELECT, with blanks between; Null as "-".
  std::string Valeurs(const std::string& select) {
    const auto rows = Lance(select);
    std::string all;
    for (; !rows->EOF_(); rows->MoveNext()) {
      const Cell cell = rows->Get(0);
      all += (all.empty() ? "" : " ") + (cell.EstNull() ? "-" : cell.Texte());
    }
    return all;
  }

  Drawer drawer;
  std::unique_ptr<TableEngine> makers;
  std::unique_ptr<Database> opened;
};

struct SelectCase {
  const char* select;
  const char* values;
};

// clang-format off
constexpr SelectCase selectCases[] = {
    {"SELECT N1 FROM TALPENA WHERE N1 < 3 UNION ALL SELECT N1 FROM TALPENA WHERE N1 < 2", "1 2 1"},
    {"SELECT N1 FROM TALPENA WHERE N1 < 3 UNION SELECT N1 FROM TALPENA WHERE N1 < 2 ORDER BY N1", "1 2"},
    {"SELECT N1 FROM TALPENA UNION ALL SELECT PERIOD FROM TALPENA WHERE N1 = 5 ORDER BY N1 DESC, 1;", "5 4 3 3 2 1"},
    {"SELECT SEX AS s FROM TALPENA WHERE N1 < 4 UNION ALL SELECT DATUM FROM TALPENA WHERE N1 = 5 ORDER BY s", "BEL72 f M m"},
    {"SELECT N1 FROM TALPENA WHERE N1 = 1 UNION SELECT Count(*) FROM TALPENA GROUP BY SEX HAVING Count(*) > 1 UNION ALL SELECT 9 FROM TALPENA WHERE N1 = 1", "1 2 9"},
    {"SELECT TOP 2 N1 FROM TALPENA ORDER BY N1 DESC", "5 4"},
    {"SELECT TOP 1 N1 FROM TALPENA ORDER BY PERIOD", "1 2"},
    {"SELECT TOP 3 N1 FROM TALPENA", "1 2 3"},
    {"SELECT TOP 0 N1 FROM TALPENA", ""},
    {"SELECT TOP 99 N1 FROM TALPENA", "1 2 3 4 5"},
    {"SELECT TOP 41 PERCENT N1 FROM TALPENA ORDER BY N1", "1 2 3"},
    {"SELECT TOP 40 PERCENT N1 FROM TALPENA ORDER BY N1", "1 2"},
    {"SELECT TOP 100 PERCENT N1 FROM TALPENA ORDER BY N1", "1 2 3 4 5"},
    {"SELECT DISTINCT TOP 2 PERIOD FROM TALPENA ORDER BY PERIOD DESC", "3 2"},
    {"SELECT TOP 1 SEX FROM TALPENA WHERE SEX > '' ORDER BY SEX DESC", "M m"},
    {"SELECT TOP 1 SEX FROM TALPENA GROUP BY SEX ORDER BY Count(*) DESC", "M"},
    {"SELECT TOP 2 * FROM TALPENA ORDER BY N1 DESC", "3 2"},
    {"SELECT TOP 2 N1 FROM TALPENA UNION ALL SELECT TOP 1 N1 FROM TALPENA", "1 2 1"},
    {"SELECT N1 FROM TALPENA WHERE (N1 = 2) = Yes", "2"},
    {"SELECT No & Off & On FROM TALPENA WHERE N1 = 1", "00-1"},
    {"SELECT CCur(1.23456) FROM TALPENA WHERE N1 = 1", "1.2346"},
    {"SELECT CCur(1E15) FROM TALPENA WHERE N1 = 1", "-"},
    {"SELECT Format(LATITUDE, '0.00') FROM TALPENA", "4.10 0.10 -4.10 45.00 "},
    {"SELECT Format([DATE], 'dd.mm.yyyy') FROM TALPENA WHERE N1 < 4", "12.05.1987 02.01.1990 "},
    {"SELECT Format(#1987-05-12#, 'Short Date') FROM TALPENA WHERE N1 = 1", "1987/05/12"},
    {"SELECT Format(SEX, '>') & Format(N1) & Format('12', '000') FROM TALPENA WHERE N1 = 2", "F2012"},
    {"SELECT Format(1E308 * 10, '0') & Format(-1E308 * 10, 'c') FROM TALPENA WHERE N1 = 1", ""},
    {"SELECT Format(31909, 'd/m/yy') FROM TALPENA WHERE N1 = 1", "12/5/87"},
};
// clang-format on

TEST_F(CompoundTest, SelectsGiveTheirRows) {
  for (const SelectCase& c : selectCases) {
    SCOPED_TRACE(c.select);
    EXPECT_NO_THROW(EXPECT_EQ(Valeurs(c.select), c.values));
  }
}

struct Mistake {
  const char* select;
  int number;
};

constexpr Mistake mistakes[] = {
    {"SELECT N1 FROM TALPENA UNION SELECT N1, N2 FROM TALPENA", 3075},
    {"SELECT N1 FROM TALPENA ORDER BY N1 UNION SELECT N1 FROM TALPENA", 3075},
    {"SELECT N1 FROM TALPENA UNION DELETE FROM TALPENA", 3075},
    {"SELECT N1 FROM TALPENA UNION SELECT N1 FROM TALPENA ORDER BY N2", 3061},
    {"SELECT N1 FROM TALPENA UNION", 3075},
    {"SELECT TOP 1.5 N1 FROM TALPENA", 3075},
    {"SELECT TOP 101 PERCENT N1 FROM TALPENA", 3075},
    {"SELECT Format(N1, '0', 1) FROM TALPENA", 3075},
    {"SELECT N1 FROM TALPENA WHERE N1 IN (SELECT N1 FROM TALPENA)", 3075},
    {"SELECT Forms!a!b FROM TALPENA", 3061},
    {"SELECT [Which year] FROM TALPENA", 3061},
};

TEST_F(CompoundTest, MistakesAreNamed) {
  for (const Mistake& m : mistakes) {
    EXPECT_EQ(FailureOf([&] { Lance(m.select); }).number, m.number) << m.select;
  }
}

TEST_F(CompoundTest, ColumnsOfAUnionHoldWhatBothGive) {
  const auto rows = Lance(
      "SELECT N1 AS a, SEX AS b, N1 AS c, PERIOD AS d FROM TALPENA UNION ALL "
      "SELECT LATITUDE, DATUM, SEX, PERIOD FROM TALPENA");
  std::vector<FieldType> types;
  for (const FieldDef& field : rows->Fields()) types.push_back(field.type);
  EXPECT_EQ(types, (std::vector<FieldType>{FieldType::Double, FieldType::Text, FieldType::Memo,
                                           FieldType::Integer}));
  EXPECT_EQ(rows->Fields()[1].size, 5);
}

TEST_F(CompoundTest, AColumnOfTheListIsKnownByItsNameBehindIt) {
  const auto rows = Lance(
      "SELECT N1 * 2 AS twice, twice + 1 AS more, N1 AS SEX, SEX AS s FROM TALPENA WHERE N1 = 2");
  EXPECT_EQ(rows->Get("more").Texte(), "5");
  EXPECT_EQ(rows->Get("s").Texte(), "f") << "a column of the table goes before";
  EXPECT_EQ(FailureOf([&] { Lance("SELECT N1 * 2 AS twice FROM TALPENA WHERE twice = 4"); }).number,
            3061);
}

TEST_F(CompoundTest, NamesOfNamesDoNotGrowWithoutEnd) {
  std::string select = "SELECT SEX AS a0";
  for (int i = 1; i < 200; ++i) {
    const std::string before = "a" + std::to_string(i - 1);
    select += ", " + before + " & " + before + " AS a" + std::to_string(i);
  }
  EXPECT_EQ(FailureOf([&] { Lance(select + " FROM TALPENA"); }).number, 3360);
}

TEST_F(CompoundTest, AColumnGoesBeforeAWord) {
  EXPECT_EQ(Valeurs("SELECT No FROM Votes WHERE Votes.No > 0"), "7");
}

// What a user types goes behind a WHERE: nothing may follow there that is not his condition.
TEST_F(CompoundTest, OnlySavedQueriesAreUnions) {
  const char* select = "SELECT N1 FROM TALPENA UNION ALL SELECT N1 FROM TALPENA";
  EXPECT_EQ(Lance(select)->RecordCount(), 10);
  EXPECT_EQ(FailureOf([&] { opened->OpenRecordset(select); }).number, 3075);
}

TEST_F(CompoundTest, AUnionComparesAsTheTablesDo) {
  EXPECT_EQ(Lance("SELECT SEX FROM TALPENA WHERE N1 = 1 UNION SELECT SEX FROM TALPENA WHERE N1 = 3")
                ->RecordCount(),
            1);
}

}  // namespace
}  // namespace talpena::enginetest
