// The SQL dialect: conditions as users type them, statements as the program sends them.
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

using namespace std::literals;

/// Six observations, told apart by N1.
class DialectTest : public EngineTest {
 protected:
  DialectTest() {
    CreeTalpena();
    const Value null;
    ListSource source({
        {1, 4.1, 50.5, 1, 10, "M", "WGS84", "utm 31U ES 12345 12345", "1987/05/12", "Bruxelles"},
        {1, 0.1, -5.77569, 2, 20, "F", "EUR-M", "UTM 31U FS 1 2", "1990/01/02", "Été à Liège"},
        {2, -4.1, 4.35694, 3, 12, "m", "WGS84", "mgr 31UES1212", "1990/  /  ", "12 km N"},
        {2, 45, 90, 4, null, null, null, null, null, null},
        {3, null, null, 5, -7, "", "BEL72", "lmb 150000 160000", "", "it's \"here\""},
        {null, 4.1, 50.5, 12, 3, "5", "5", "deg +50.5 +4.1", "2001/12/31", "a*b[c]#1"},
    });
    const std::string_view columns[] = {"PERIOD", "LATITUDE", "LONGITUDE", "N1",   "N2",
                                        "SEX",    "DATUM",    "ORIGINAL",  "DATE", "COMMENT"};
    database->InsertRows("TALPENA", columns, source);
  }

  /// N1 of the rows that a condition selects, with blanks between.
  std::string Lignes(const std::string& condition) {
    std::string found;
    for (const std::string& n : Colonne("SELECT * FROM TALPENA WHERE " + condition, "N1")) {
      found += (found.empty() ? "" : " ") + n;
    }
    return found;
  }

  /// The only value of a SELECT of one column.
  std::string Valeur(const std::string& expression) {
    const auto rows =
        database->OpenRecordset("SELECT " + expression + " AS v FROM TALPENA WHERE N1 = 1");
    const Cell cell = rows->Get("V");
    return cell.EstNull() ? "Null" : cell.Texte();
  }
};

struct ConditionCase {
  const char* condition;
  const char* rows;
};

// clang-format off
constexpr ConditionCase conditionCases[] = {
    // Numbers; a 32-bit float is compared as one.
    {"LATITUDE = 4.1", "1 12"},            {"latitude=-4.1", "3"},
    {"[LATITUDE] = 0.1", "2"},             {"4.1 = LATITUDE", "1 12"},
    {"LATITUDE <> 4.1", "2 3 4"},          {"LATITUDE >= 4.1", "1 4 12"},
    {"LATITUDE > 4.1", "4"},               {"LATITUDE < 4.1", "2 3"},
    {"LATITUDE <= 0.1", "2 3"},            {"LATITUDE BETWEEN 0.1 AND 4.1", "1 2 12"},
    {"LATITUDE NOT BETWEEN 0.1 AND 4.1", "3 4"},
    {"LATITUDE IN (4.1, 45)", "1 4 12"},   {"LATITUDE NOT IN (4.1, 45)", "2 3"},
    {"LONGITUDE = -5.77569", "2"},         {"LATITUDE = - 4.1", "3"},
    {"LATITUDE = 4.1E0", "1 12"},          {"LATITUDE = 41D-1", "1 12"},
    {"LATITUDE = .1", "2"},                {"LATITUDE = 45.", "4"},
    {"LATITUDE = 1E300", ""},              {"LATITUDE = '4.1'", "1 12"},
    {"LATITUDE = '4,1'", "1 12"},          {"N1 = 12", "12"},
    {"N1 = '12'", "12"},                   {"N1 = 'twelve'", ""},
    {"N1 < 'twelve'", ""},                 {"N1 => 5", "5 12"},
    {"N1 =< 2", "1 2"},                    {"N1 >< 1 AND N1 < 4", "2 3"},
    {"PERIOD = 4.5", ""},                  {"N1 = N2 + 9", "12"},
    {"N1 = 99999999999999999999", ""},
    // Texts: case does not count, accents do.
    {"SEX = 'M'", "1 3"},                  {"sex = \"m\"", "1 3"},
    {"DATUM <> 'wgs84'", "2 5 12"},        {"COMMENT = 'été à liège'", "2"},
    {"COMMENT = 'ete a liege'", ""},       {"SEX = ''", "5"},
    {"COMMENT = 'it''s \"here\"'", "5"},   {"COMMENT = \"it's \"\"here\"\"\"", "5"},
    {"DATUM IN ('wgs84', 'bel72')", "1 3 5"}, {"DATUM BETWEEN 'a' AND 'F'", "2 5"},
    {"DATUM > 'f'", "1 3"},                {"Left([ORIGINAL],3) = 'utm'", "1 2"},
    {"Left$(ORIGINAL, 3) IN ('UTM', 'MGR')", "1 2 3"},
    {"UCase(SEX) = 'm'", "1 3"},           {"'UTM' = Left(ORIGINAL,3)", "1 2"},
    // A text is no number.
    {"SEX = 5", ""},                       {"SEX <> 5", "1 2 3 5 12"},
    {"SEX > 5", ""},                       {"SEX IN (5, 'm')", "1 3"},
    {"DATUM BETWEEN 1 AND 9", ""},         {"Val(SEX) = 5", "12"},
    {"NOT SEX = 5", "1 2 3 5 12"},
    // LIKE.
    {"ORIGINAL LIKE 'utm*'", "1 2"},       {"ORIGINAL like '*12345'", "1"},
    {"COMMENT LIKE '*12*'", "3"},          {"COMMENT LIKE '*LIÈGE'", "2"},
    {"COMMENT LIKE '*liege'", ""},         {"COMMENT LIKE 'a[*]b[[]c][#]#'", "12"},
    {"DATE LIKE '####/##/##'", "1 2 12"},  {"DATE NOT LIKE '19*'", "5 12"},
    {"NOT DATE LIKE '19*'", "5 12"},       {"SEX LIKE '[a-g]'", "2"},
    {"SEX LIKE '[!a-g]'", "1 3 12"},       {"SEX LIKE '?'", "1 2 3 12"},
    {"ORIGINAL LIKE '%utm%'", ""},         {"N1 LIKE '1*'", "1 12"},
    {"LATITUDE LIKE '*4.1'", "1 3 12"},    {"COMMENT LIKE '*' & 'km' & '*'", "3"},
    // Null.
    {"SEX IS NULL", "4"},                  {"SEX Is Not Null", "1 2 3 5 12"},
    {"IsNull(LATITUDE)", "5"},             {"NOT IsNull(LATITUDE)", "1 2 3 4 12"},
    {"SEX = Null", ""},                    {"Nz(N2) = 0", "4"},
    {"Nz(SEX) = ''", "4 5"},               {"Nz(N2, 99) = 99", "4"},
    {"N2 & '' = ''", "4"},                 {"SEX & DATUM = 'MWGS84'", "1 3"},
    {"SEX + DATUM = 'MWGS84'", "1 3"},     {"SEX + DATUM IS NULL", "4"},
    // Logic.
    {"N1 = 1 OR N1 = 2 AND PERIOD = 2", "1"},
    {"(N1 = 1 OR N1 = 3) AND PERIOD = 2", "3"},
    {"NOT N1 = 1 AND PERIOD = 1", "2"},    {"NOT (N1 = 1 OR PERIOD = 2)", "2 5"},
    {"N1 = 1 XOR PERIOD = 1", "2"},        {"True", "1 2 3 4 5 12"},
    {"False", ""},                         {"(N1 = 1) = True", "1"},
    {"(N1 = 1) = -1", "1"},                {"N1 - 1", "2 3 4 5 12"},
    {"(PERIOD = 2) + (N1 > 3) = -2", "4"}, {"N1 < 3 = True", "1 2"},
    {"N1 = 1 EQV PERIOD = 1", "1 3 4 5"},  {"N1 < 3 IMP PERIOD = 1", "1 2 3 4 5 12"},
    {"IIf(PERIOD = 1, N1, 0) = 2", "2"},   {"IIf(N1 = 1, LATITUDE, 4.1) = 4.1", "1 2 3 4 5 12"},
    // Arithmetic and its order.
    {"2 + 3 * 4 = 14 AND N1 = 1", "1"},    {"-2 ^ 2 = -4 AND N1 = 1", "1"},
    {"2 ^ -1 = 0.5 AND N1 = 1", "1"},      {"7 \\ 2 = 3 AND N1 = 1", "1"},
    {"7 / 2 = 3.5 AND N1 = 1", "1"},       {"N1 Mod 2 = 0", "2 4 12"},
    {"10 - 4 - 3 = 3 AND N1 = 1", "1"},    {"1 & 2 + 3 = '15' AND N1 = 1", "1"},
    {"12 \\ 5 Mod 2 = 0 AND N1 = 1", "1"}, {"N2 / 0 = 1", ""},
    {"N2 / (N1 - 1) > 0", "2 3 12"},       {"Sqr(N2) = 2", ""},
    {"--N1 = 1", "1"},                     {"+N1 = 1", "1"},
    // Dates; the column holds texts.
    {"[DATE] > #1990-01-01#", "2 12"},     {"DATE = #05/12/1987#", "1"},
    {"[DATE] BETWEEN #1/1/1987# AND #12/31/1990#", "1 2 3"},
    {"Year(DATE) = 1990", "2 3"},          {"Month([DATE]) = 12", "12"},
    {"Day(DATE) = 2", "2"},                {"Month(DATE) IS NULL", "3 4 5"},
    // Names.
    {"TALPENA.N1 = 1", "1"},               {"[TALPENA]![N1] = 1", "1"},
    {"talpena.[n1] = 1;", "1"},            {" [ N1 ] = 1 ", "1"},
    {"\tN1\r\n=\r\n1", "1"},
    {"Choose(PERIOD, 'a', 'b') = 'B'", "3 4"},
    {"Switch(N1 = 1, 'one', N1 = 2, 'two') = 'two'", "2"},
};
// clang-format on

TEST_F(DialectTest, ConditionsSelect) {
  for (const ConditionCase& c : conditionCases) {
    SCOPED_TRACE(c.condition);
    std::string rows;
    const Failure failure = FailureOf([&] { rows = Lignes(c.condition); });
    EXPECT_EQ(failure.number, 0) << failure.description;
    EXPECT_EQ(rows, c.rows);
  }
}

struct ValueCase {
  const char* expression;
  const char* value;
};

// clang-format off
constexpr ValueCase valueCases[] = {
    {"UCase('été')", "ÉTÉ"},       {"LCase('ÉTÉ')", "été"},        {"Left('été', 2)", "ét"},
    {"Left('ab', 9)", "ab"},       {"Right('été', 2)", "té"},      {"Right('ab', 9)", "ab"},
    {"Left('ab', 0)", ""},         {"Left('ab', -1)", "Null"},     {"Mid('abcd', 2)", "bcd"},
    {"Mid('abcd', 2, 2)", "bc"},   {"Mid('abcd', 9)", ""},         {"Mid('abcd', 0)", "Null"},
    {"Len('été')", "3"},           {"Len(Null)", "Null"},          {"Len(12)", "2"},
    {"Trim('  a b ')", "a b"},     {"LTrim('  a ')", "a "},        {"RTrim(' a  ')", " a"},
    {"InStr('abcabc', 'C')", "3"}, {"InStr(4, 'abcabc', 'c')", "6"}, {"InStr('abc', 'x')", "0"},
    {"InStr(9, 'abc', 'c')", "0"}, {"InStr('abc', '')", "1"},      {"InStr(1, 'aBc', 'b', 1)", "2"},
    {"Replace('a-b-c', '-', '+')", "a+b+c"}, {"Replace('abc', '', 'x')", "abc"},
    {"Val(' 1 2.5 km')", "12.5"},  {"Val('km')", "0"},             {"Str(5)", " 5"},
    {"Str(-5)", "-5"},             {"CStr(5)", "5"},               {"CStr(LATITUDE)", "4.1"},
    {"CStr(0.1 + 0.2)", "0.30000000000000004"},                    {"CInt(2.5)", "2"},
    {"CInt(3.5)", "4"},            {"CInt(40000)", "Null"},        {"CLng(40000.4)", "40000"},
    {"CDbl('2,5')", "2.5"},        {"CDbl('two')", "Null"},        {"Int(-2.5)", "-3"},
    {"Fix(-2.5)", "-2"},           {"Abs(-2.5)", "2.5"},           {"Sgn(-3)", "-1"},
    {"Sgn(0)", "0"},               {"Sqr(9)", "3"},                {"Sqr(-1)", "Null"},
    {"Round(2.125, 2)", "2.12"},   {"Round(2.5)", "2"},            {"Round(-2.5)", "-2"},
    {"Round(1, -1)", "Null"},      {"Log(1)", "0"},                {"Log(0)", "Null"},
    {"Exp(0)", "1"},               {"Exp(1000)", "Null"},          {"Sin(0)", "0"},
    {"Cos(0)", "1"},               {"Tan(0)", "0"},                {"Atn(0)", "0"},
    {"IIf(1 > 2, 'a', 'b')", "b"}, {"IIf(Null, 'a', 'b')", "b"},   {"Nz(Null, 7)", "7"},
    {"Chr(233)", "é"},             {"Chr(300)", "Null"},           {"Asc('é')", "233"},
    {"Asc('')", "Null"},           {"Asc('A')", "65"},             {"Space(3) & '.'", "   ."},
    {"String(3, 'ab')", "aaa"},    {"String(70000, 'a')", "Null"}, {"1 = 1", "-1"},
    {"1 = 2", "0"},                {"Not True", "0"},              {"1 & Null & 2", "12"},
    {"LATITUDE & ''", "4.1"},      {"'5' + 1", "6"},               {"'a' + 'b'", "ab"},
    {"5 Mod 0", "Null"},           {"-7 \\ 2", "-3"},              {"-7 Mod 2", "-1"},
    {"2 ^ 0.5 > 1.41", "-1"},      {"#2024-11-27 12:00:00# - 45623", "0.5"},
    {"#1987-05-12# & ''", "1987/05/12"}, {"Year(#12/31/1999#)", "1999"},
    {"CSng(0.1) & ''", "0.1"},     {"Choose(3, 'a', 'b')", "Null"},
    {"IsNull(Null)", "-1"},
};
// clang-format on

TEST_F(DialectTest, ExpressionsHaveTheirValue) {
  for (const ValueCase& c : valueCases) {
    SCOPED_TRACE(c.expression);
    std::string value;
    const Failure failure = FailureOf([&] { value = Valeur(c.expression); });
    EXPECT_EQ(failure.number, 0) << failure.description;
    EXPECT_EQ(value, c.value);
  }
}

struct RefusedCase {
  const char* condition;
  int number;
  const char* description;
};

// clang-format off
constexpr RefusedCase refusedCases[] = {
    {"SEX = '", 3075, "Syntax error (missing operator) in query expression 'SEX = ''."},
    {"SEX = 'it's'", 3075, "Syntax error (missing operator) in query expression 'SEX = 'it's''."},
    {"SEX LIKE '*O'Brien*'", 3075, "Syntax error (missing operator) in query expression 'SEX LIKE '*O'Brien*''."},
    {"N1 = ", 3075, "Syntax error (missing operator) in query expression 'N1 ='."},
    {"N1 1", 3075, "Syntax error (missing operator) in query expression 'N1 1'."},
    {"N1 = 4,5", 3075, "Syntax error (missing operator) in query expression 'N1 = 4,5'."},
    {"(N1 = 1", 3075, "Syntax error (missing operator) in query expression '(N1 = 1'."},
    {"N1 = 1)", 3075, "Syntax error (missing operator) in query expression 'N1 = 1)'."},
    {"N1 IN ()", 3075, "Syntax error (missing operator) in query expression 'N1 IN ()'."},
    {"N1 = #1987-13-40#", 3075, "Syntax error (missing operator) in query expression 'N1 = #1987-13-40#'."},
    {"N1 = 1 AND", 3075, "Syntax error (missing operator) in query expression 'N1 = 1 AND'."},
    {"[N1 = 1", 3075, "Syntax error (missing operator) in query expression '[N1 = 1'."},
    {"", 3075, "Syntax error (missing operator) in query expression ''."},
    {"N1 BETWEEN 1", 3075, "Syntax error (missing operator) in query expression 'N1 BETWEEN 1'."},
    {"N1 = 12km", 3075, "Syntax error (missing operator) in query expression 'N1 = 12km'."},
    {"Left(SEX) = 'a'", 3075, "Syntax error (missing operator) in query expression 'Left(SEX) = 'a''."},
    {"N1 = 1 -- x", 3061, "Too few parameters. Expected 1: there is no field 'x'."},
    {"N1 = 1 UNION SELECT 1", 3075, "Syntax error (missing operator) in query expression 'N1 = 1 UNION SELECT 1'."},
    {"ALTITUDE > 5", 3061, "Too few parameters. Expected 1: there is no field 'ALTITUDE'."},
    {"OTHER.N1 = 1", 3061, "Too few parameters. Expected 1: there is no field 'N1'."},
    {"rowid = 1", 3061, "Too few parameters. Expected 1: there is no field 'rowid'."},
    {"SEX = M", 3061, "Too few parameters. Expected 1: there is no field 'M'."},
    {"Upper(SEX) = 'M'", 3085, "Undefined function 'Upper' in expression."},
    {"tlp_ucase(SEX) = 'M'", 3085, "Undefined function 'tlp_ucase' in expression."},
    {"load_extension('x')", 3085, "Undefined function 'load_extension' in expression."},
    {"Max(N1) = 5", 3096, "Cannot have aggregate function in WHERE clause."},
    {"SEX LIKE '['", 93, "Invalid pattern string"},
    {"N1 = 1; DELETE FROM TALPENA", 3142, "Characters found after end of SQL statement."},
    {"N1 = 1;;", 3142, "Characters found after end of SQL statement."},
};
// clang-format on

TEST_F(DialectTest, MistakesAreNamed) {
  for (const RefusedCase& c : refusedCases) {
    SCOPED_TRACE(c.condition);
    const Failure failure = FailureOf([&] { Lignes(c.condition); });
    EXPECT_EQ(failure.number, c.number);
    EXPECT_EQ(failure.description, c.description);
    const auto rows = database->OpenRecordset("TALPENA");
    const Failure found = FailureOf([&] { rows->FindFirst(c.condition); });
    EXPECT_EQ(found.number, c.number);
    EXPECT_EQ(found.description, c.description);
  }
}

TEST_F(DialectTest, ALongMistakeIsQuotedInPart) {
  const Failure failure = FailureOf([&] { Lignes("'" + std::string(5000, 'x')); });
  EXPECT_EQ(failure.number, 3075);
  EXPECT_LT(failure.description.size(), 400u);
  EXPECT_NE(failure.description.find("..."), std::string::npos);
}

TEST_F(DialectTest, TheStatementsOfTheProgram) {
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY Counter", "N1").size(), 6u);
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY  [LONGITUDE] DESC", "N1").front(), "4");
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY [PERIOD], [LATITUDE], [LONGITUDE]", "N1"),
            (Strings{"12", "2", "1", "3", "4", "5"}));
  EXPECT_EQ(Colonne("SELECT AVG(N1) as AVG1 from TALPENA", "AVG1"), (Strings{"4.5"}));
  EXPECT_NEAR(std::stod(Colonne("SELECT stdev(N1) as STD1 from TALPENA", "std1")[0]),
              3.937003937005906, 1e-12);  // of 1, 2, 3, 4, 5, 12
  EXPECT_EQ(Colonne("SELECT MAX(N1) AS Maximum FROM TALPENA", "maximum"), (Strings{"12"}));
  EXPECT_EQ(
      Colonne("SELECT N2,Latitude,Longitude FROM TALPENA ORDER BY N2,Latitude,Longitude", "N2"),
      (Strings{"", "-7", "3", "10", "12", "20"}));
}

TEST_F(DialectTest, AggregatesOfAnEmptyTableAreNull) {
  database->Execute("DELETE FROM TALPENA WHERE N1 > 1");
  EXPECT_EQ(Colonne("SELECT stdev(N1) AS s FROM TALPENA", "s"), (Strings{""}));
  EXPECT_EQ(Colonne("SELECT stdevp(N1) AS s FROM TALPENA", "s"), (Strings{"0"}));
  database->Execute("DELETE FROM TALPENA");
  for (const char* function : {"MAX", "MIN", "AVG", "SUM", "stdev", "stdevp", "var", "varp"}) {
    const auto rows = database->OpenRecordset("SELECT "s + function + "(N1) AS v FROM TALPENA");
    ASSERT_EQ(rows->RecordCount(), 1);
    EXPECT_TRUE(rows->Get("v").EstNull()) << function;
  }
  EXPECT_EQ(Colonne("SELECT COUNT(*) AS n FROM TALPENA", "n"), (Strings{"0"}));
}

TEST_F(DialectTest, OtherSelects) {
  EXPECT_EQ(Colonne("SELECT DISTINCT UCase(SEX) AS s FROM TALPENA ORDER BY s", "s"),
            (Strings{"", "", "5", "F", "M"}));
  EXPECT_EQ(Colonne("SELECT DISTINCT SEX FROM TALPENA WHERE SEX LIKE 'm'", "SEX").size(), 1u);
  EXPECT_EQ(Colonne("SELECT PERIOD, COUNT(*) AS n FROM TALPENA GROUP BY PERIOD "
                    "HAVING COUNT(*) > 1 ORDER BY PERIOD DESC",
                    "PERIOD"),
            (Strings{"2", "1"}));
  EXPECT_EQ(Colonne("SELECT SEX, SUM(N1) AS s FROM TALPENA GROUP BY SEX ORDER BY 2 DESC", "s"),
            (Strings{"12", "5", "4", "4", "2"}));
  EXPECT_EQ(Colonne("SELECT 0 AS zero, N1 FROM TALPENA ORDER BY 1, 1", "zero").size(),
            Colonne("SELECT N1 FROM TALPENA", "N1").size());
  EXPECT_EQ(Colonne("SELECT 2 AS two, N1 FROM TALPENA ORDER BY two, N1 DESC", "N1"),
            Colonne("SELECT N1 FROM TALPENA ORDER BY N1 DESC", "N1"));
  EXPECT_EQ(Colonne("SELECT N1 + 1 FROM TALPENA WHERE N1 = 1", "Expr1000"), (Strings{"2"}));
  EXPECT_EQ(Colonne("SELECT T.N1 FROM TALPENA AS T WHERE T.N1 < 3 ORDER BY T.N1 DESC", "N1"),
            (Strings{"2", "1"}));
  EXPECT_EQ(Colonne("SELECT TALPENA.* FROM TALPENA WHERE N1 = 1", "N1"), (Strings{"1"}));
}

TEST_F(DialectTest, AggregatesStandWhereRowsAreGrouped) {
  const auto failure = [&](const std::string& sql) {
    return FailureOf([&] { database->OpenRecordset(sql); });
  };
  EXPECT_EQ(failure("SELECT * FROM TALPENA ORDER BY Max(N1)").description,
            "Cannot have aggregate function in ORDER BY clause.");
  EXPECT_EQ(failure("SELECT PERIOD FROM TALPENA GROUP BY Max(N1)").number, 3096);
  EXPECT_EQ(failure("SELECT Max(Min(N1)) FROM TALPENA").number, 3096);
  EXPECT_EQ(failure("SELECT PERIOD FROM TALPENA GROUP BY 1").number, 3075);
  EXPECT_EQ(failure("SELECT PERIOD FROM TALPENA HAVING Max(N1) > 1").number, 3075);
  EXPECT_EQ(failure("SELECT PERIOD FROM TALPENA ORDER BY 2").number, 3075);
  EXPECT_EQ(Colonne("SELECT PERIOD FROM TALPENA GROUP BY PERIOD ORDER BY Max(N1) DESC", "PERIOD"),
            (Strings{"", "3", "2", "1"}));
}

TEST_F(DialectTest, JoinsOfTables) {
  TableDef ellipsoids;
  ellipsoids.name = "ELLI";
  ellipsoids.fields = {{"CODE", FieldType::Text, 5}, {"A", FieldType::Double}};
  database->CreateTable(ellipsoids);
  database->Execute("INSERT INTO ELLI (CODE, A) VALUES ('wgs84', 6378137)");
  database->Execute("INSERT INTO ELLI VALUES ('EUR-M', 6378388)");
  EXPECT_EQ(Colonne("SELECT N1, A FROM TALPENA INNER JOIN ELLI ON TALPENA.DATUM = ELLI.CODE "
                    "ORDER BY N1",
                    "N1"),
            (Strings{"1", "2", "3"}));
  EXPECT_EQ(
      Colonne("SELECT N1, A FROM TALPENA LEFT JOIN ELLI ON DATUM = CODE WHERE A IS NULL", "N1"),
      (Strings{"4", "5", "12"}));
  EXPECT_EQ(Colonne("SELECT N1 FROM TALPENA, ELLI WHERE DATUM = CODE AND A = 6378388", "N1"),
            (Strings{"2"}));
  EXPECT_EQ(Colonne("SELECT x.N1 FROM (TALPENA AS x INNER JOIN TALPENA AS y ON x.N1 = y.N2) "
                    "INNER JOIN ELLI ON x.DATUM = ELLI.CODE",
                    "N1"),
            (Strings{"3"}));
  EXPECT_EQ(
      FailureOf([&] { database->OpenRecordset("SELECT N1 FROM TALPENA, TALPENA AS B"); }).number,
      3079);
}

TEST_F(DialectTest, UnknownTablesAreNamed) {
  for (const char* source : {"ELLI", "SELECT * FROM ELLI", "SELECT * FROM TALPENA, ELLI",
                             "SELECT ELLI.* FROM TALPENA", "DROP TABLE TALPENA", ""}) {
    EXPECT_EQ(FailureOf([&] { database->OpenRecordset(source); }).number, 3078) << source;
  }
  EXPECT_EQ(FailureOf([&] { database->OpenRecordset("ELLI"); }).description,
            "The database engine cannot find the input table or query 'ELLI'. Make sure it exists "
            "and that its name is spelled correctly.");
  EXPECT_EQ(FailureOf([&] { database->Execute("DELETE FROM ELLI"); }).number, 3078);
  EXPECT_EQ(database->OpenRecordset("[TALPENA]")->RecordCount(), 6);
}

TEST_F(DialectTest, StatementsThatChangeRows) {
  EXPECT_EQ(database->Execute("UPDATE TALPENA SET N2 = N1 * 2, SEX = 'F' WHERE N1 < 3"), 2);
  EXPECT_EQ(Lignes("N2 = N1 * 2 AND SEX = 'f'"), "1 2");
  EXPECT_EQ(database->Execute("UPDATE TALPENA SET COMMENT = LATITUDE WHERE N1 = 1"), 1);
  EXPECT_EQ(Lignes("COMMENT = '4.1'"), "1");
  EXPECT_EQ(database->Execute("UPDATE TALPENA SET [DATE] = #1/2/2003# WHERE N1 = 1"), 1);
  EXPECT_EQ(Lignes("DATE = '2003/01/02'"), "1");
  EXPECT_EQ(database->Execute("DELETE FROM TALPENA WHERE N1 = 5"), 1);
  EXPECT_EQ(database->Execute("DELETE FROM TALPENA WHERE TALPENA.N1 = 4;"), 1);
  EXPECT_EQ(database->Execute("INSERT INTO TALPENA (Counter, N1) VALUES (50, 50)"), 1);
  EXPECT_EQ(Lignes("Counter = 50"), "50");
}

TEST_F(DialectTest, StatementsThatAreRefused) {
  struct Case {
    const char* statement;
    int number;
  };
  for (const Case& c :
       {Case{"SELECT * FROM TALPENA", 3065}, Case{"DROP TABLE TALPENA", 3129}, Case{"", 3129},
        Case{"PRAGMA user_version = 1", 3129}, Case{"UPDATE TALPENA SET Counter = 1", 3164},
        Case{"UPDATE TALPENA SET FOO = 1", 3061},
        Case{"UPDATE TALPENA SET N1 = CInt(99999) WHERE N1 = 1", 6},
        Case{"UPDATE TALPENA SET N1 = N2 / 0", 11}, Case{"UPDATE TALPENA SET N1 = Sqr(-1)", 5},
        Case{"UPDATE TALPENA SET LATITUDE = Exp(1000)", 6},
        Case{"INSERT INTO TALPENA (N1) VALUES (1, 2)", 3075},
        Case{"INSERT INTO TALPENA (N1, N1) VALUES (1, 2)", 3075},
        Case{"INSERT INTO TALPENA (Counter) VALUES (1)", 3022}, Case{"DELETE * FROM TALPENA", 3075},
        Case{"DELETE TALPENA.* FROM TALPENA", 3075},
        Case{"INSERT INTO TALPENA (N1) SELECT N2 FROM TALPENA", 3075},
        Case{"DELETE FROM TALPENA; DELETE FROM TALPENA", 3142}, Case{"DELETE TALPENA", 3075},
        Case{"UPDATE TALPENA", 3075}}) {
    EXPECT_EQ(FailureOf([&] { database->Execute(c.statement); }).number, c.number) << c.statement;
  }
  EXPECT_EQ(database->OpenRecordset("TALPENA")->RecordCount(), 6);
}

// A statement that fails on some row changes none.
TEST_F(DialectTest, AStatementIsDoneWholeOrNotAtAll) {
  EXPECT_EQ(FailureOf([&] { database->Execute("UPDATE TALPENA SET PERIOD = 10000 * N1"); }).number,
            6);
  EXPECT_EQ(Lignes("PERIOD >= 10000"), "");
}

TEST_F(DialectTest, LongChainsAndListsAreTaken) {
  std::string chain = "N1 = 1";
  std::string list = "N1 IN (1";
  std::string sum = "N1 = 1";
  std::string text = "'1'";
  for (int i = 0; i < 400; ++i) {
    chain += i % 2 == 0 ? " OR N1 = 1000" : " AND N2 > 0";
    list += ", " + std::to_string(1000 + i);
    sum += " + 0";
    text += " & '0'";
  }
  EXPECT_EQ(Lignes(chain), "1");
  EXPECT_EQ(Lignes(list + ")"), "1");
  EXPECT_EQ(Lignes(sum), "1");
  EXPECT_EQ(Lignes("N1 = 1 AND " + text + " > ''"), "1");
  std::string nested;
  for (int i = 0; i < 40; ++i) nested += "(";
  EXPECT_EQ(Lignes(nested + "N1 = 1" + std::string(40, ')')), "1");
}

TEST_F(DialectTest, WhatIsTooComplexIsRefused) {
  const auto number = [&](const std::string& condition) {
    return FailureOf([&] { Lignes(condition); }).number;
  };
  const auto repeat = [](const std::string& piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += piece;
    return text;
  };
  EXPECT_EQ(number(repeat("(", 5000) + "1" + repeat(")", 5000)), 3360);
  EXPECT_EQ(number(repeat("NOT ", 5000) + "1"), 3360);
  EXPECT_EQ(number(repeat("-", 5000) + "1"), 3360);
  EXPECT_EQ(number(repeat("UCase(", 5000) + "SEX" + repeat(")", 5000)), 3360);
  EXPECT_EQ(number(repeat("N1=1 OR ", 7000) + "1"), 3360);
  EXPECT_EQ(number("N1 = 1" + std::string(70000, ' ')), 3360);
  EXPECT_EQ(FailureOf([&] { Lignes(repeat("(", 5000)); }).description, "Query is too complex.");
}

TEST_F(DialectTest, OtherSelectsAreForReading) {
  const auto rows = database->OpenRecordset("SELECT N1, SEX FROM TALPENA");
  for (const Failure& failure :
       {FailureOf([&] { rows->AddNew(); }), FailureOf([&] { rows->Edit(); }),
        FailureOf([&] { rows->Delete(); }), FailureOf([&] { rows->Update(); }),
        FailureOf([&] { rows->Set(0, Cell::Null()); }), FailureOf([&] { rows->CancelUpdate(); })}) {
    EXPECT_EQ(failure.number, 3027);
    EXPECT_EQ(failure.description, "Cannot update. Database or object is read-only.");
  }
}

TEST_F(DialectTest, RowsInMemoryAreACursorToo) {
  const auto rows = database->OpenRecordset("SELECT N1, LATITUDE, COMMENT FROM TALPENA");
  EXPECT_EQ(rows->RecordCount(), 6);
  EXPECT_EQ(rows->AbsolutePosition(), 0);
  rows->MoveLast();
  EXPECT_EQ(rows->Get("n1").integer, 12);
  EXPECT_EQ(rows->Get("COMMENT").text, "a*b[c]#1");
  const Bookmark last = rows->GetBookmark();
  rows->MoveNext();
  EXPECT_TRUE(rows->EOF_());
  EXPECT_EQ(FailureOf([&] { rows->MoveNext(); }).number, 3021);
  EXPECT_EQ(FailureOf([&] { rows->Get(0); }).number, 3021);
  rows->MovePrevious();
  rows->SetBookmark(1);
  EXPECT_TRUE(rows->FindFirst("LATITUDE = 4.1"));
  EXPECT_EQ(rows->Get("N1").integer, 1);
  EXPECT_TRUE(rows->FindNext("LATITUDE = 4.1"));
  EXPECT_EQ(rows->GetBookmark(), last);
  EXPECT_FALSE(rows->FindNext("LATITUDE = 4.1"));
  EXPECT_EQ(rows->GetBookmark(), last);
  EXPECT_TRUE(rows->FindFirst("COMMENT LIKE '*LIÈGE*'"));
  EXPECT_EQ(rows->Clone()->AbsolutePosition(), 0);
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_EQ(FailureOf([&] { rows->SetBookmark(7); }).number, 3159);
  EXPECT_EQ(FailureOf([&] { rows->SetAbsolutePosition(6); }).number, 3001);
  EXPECT_EQ(FailureOf([&] { rows->FieldIndex("SEX"); }).number, 3265);
  EXPECT_EQ(FailureOf([&] { rows->FindFirst("SEX = 'M'"); }).number, 3061);
}

}  // namespace
}  // namespace talpena::enginetest
