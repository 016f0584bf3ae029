// What each type of column takes, changes and refuses, by every way into a table.
#include <cmath>
#include <limits>

#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

using namespace std::literals;

const std::string overflow = "Overflow";
const std::string conversion = "Data type conversion error.";
const std::string tooSmall =
    "The field is too small to accept the amount of data you attempted to add. Try inserting or "
    "pasting less data.";

TableDef Types() {
  TableDef table;
  table.name = "TYPES";
  table.fields = {{"Flag", FieldType::Boolean},
                  {"Tiny", FieldType::Byte},
                  {"Small", FieldType::Integer},
                  {"Big", FieldType::Long},
                  {"Money", FieldType::Currency},
                  {"Real", FieldType::Single},
                  {"Wide", FieldType::Double},
                  {"Day", FieldType::Date},
                  {"Word", FieldType::Text, 5, false},
                  {"Note", FieldType::Text, 5, true},
                  {"Long text", FieldType::Memo, 0, false},
                  {"Bytes", FieldType::Binary},
                  {"Must", FieldType::Integer, 0, false, false, true}};
  return table;
}

struct TypeCase {
  const char* name;
  const char* field;
  Value given;
  Value stored;
  int error = 0;
  std::string description = {};
};

std::string SqlLiteral(const Value& value) {
  if (const auto* i = std::get_if<std::int64_t>(&value)) return std::to_string(*i);
  if (const auto* d = std::get_if<double>(&value)) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.17g", *d);
    return text.data();
  }
  if (const auto* s = std::get_if<std::string>(&value)) {
    std::string quoted = "'";
    for (const char c : *s) quoted += c == '\'' ? "''" : std::string(1, c);
    return quoted + "'";
  }
  return "Null";
}

const double inf = std::numeric_limits<double>::infinity();
const double fourPointOne = static_cast<double>(4.1f);

Value I(std::int64_t v) { return v; }
Value T(std::string v) { return v; }

// Ranges: those of the types. 45623.5 is noon of 27 November 2024, counted from 30 December 1899.
const std::vector<TypeCase> typeCases = {
    {"flag true", "Flag", I(5), I(-1)},
    {"flag false", "Flag", 0.0, I(0)},
    {"flag of a text", "Flag", T("-1"), I(-1)},
    {"flag of no number", "Flag", T("yes"), {}, 3421, conversion},
    {"byte top", "Tiny", I(255), I(255)},
    {"byte above", "Tiny", I(256), {}, 6, overflow},
    {"byte below", "Tiny", I(-1), {}, 6, overflow},
    {"16 bits top", "Small", I(32767), I(32767)},
    {"16 bits bottom", "Small", I(-32768), I(-32768)},
    {"16 bits above", "Small", I(32768), {}, 6, overflow},
    {"16 bits below", "Small", I(-32769), {}, 6, overflow},
    {"16 bits far above", "Small", 1e10, {}, 6, overflow},
    {"16 bits from a half, to even", "Small", 2.5, I(2)},
    {"16 bits from a half, to even upward", "Small", 3.5, I(4)},
    {"16 bits rounded into range", "Small", 32767.4, I(32767)},
    {"16 bits rounded out of range", "Small", 32767.5, {}, 6, overflow},
    {"16 bits from text", "Small", T(" 12 "), I(12)},
    {"16 bits from text with a comma", "Small", T("2,6"), I(3)},
    {"16 bits from words", "Small", T("12 km"), {}, 3421, conversion},
    {"16 bits from the empty text", "Small", T(""), {}, 3421, conversion},
    {"16 bits Null", "Small", {}, {}},
    {"32 bits top", "Big", I(2147483647), I(2147483647)},
    {"32 bits bottom", "Big", I(-2147483648LL), I(-2147483648LL)},
    {"32 bits above", "Big", I(2147483648LL), {}, 6, overflow},
    {"32 bits below", "Big", I(-2147483649LL), {}, 6, overflow},
    {"32 bits from a large text", "Big", T("1E+20"), {}, 6, overflow},
    {"money rounded to four places, halves to even", "Money", 1.03125, 1.0312},
    {"money from a whole number", "Money", I(7), 7.0},
    {"money above", "Money", 1e15, {}, 6, overflow},
    {"single is rounded", "Real", 4.1, fourPointOne},
    {"single from text", "Real", T("4.1"), fourPointOne},
    {"single from text with a comma", "Real", T("4,1"), fourPointOne},
    {"single from a whole number", "Real", I(16777217), 16777216.0},
    {"single above", "Real", 1e39, {}, 6, overflow},
    {"single of words", "Real", T("north"), {}, 3421, conversion},
    {"double keeps all digits", "Wide", 0.1, 0.1},
    {"double from text", "Wide", T("6378137.0"), 6378137.0},
    {"double infinite", "Wide", inf, {}, 6, overflow},
    {"double no number", "Wide", std::nan(""), {}, 3421, conversion},
    {"date from its number", "Day", 45623.5, 45623.5},
    {"date from text", "Day", T("2024-11-27 12:00:00"), 45623.5},
    {"date from text with slashes", "Day", T("1899/12/30"), 0.0},
    {"date from no day", "Day", T("2023-02-29"), {}, 3421, conversion},
    {"text", "Word", T("EUR-M"), T("EUR-M")},
    {"text of five characters in ten bytes", "Word", T("éèàùç"), T("éèàùç")},
    {"text too long", "Word", T("EUR-M7"), {}, 3163, tooSmall},
    {"text too long in characters", "Word", T("éèàùçô"), {}, 3163, tooSmall},
    {"text empty", "Word", T(""), {}, 3315, "Field 'TYPES.Word' cannot be a zero-length string."},
    {"text Null", "Word", {}, {}},
    {"text of a number", "Word", I(12), T("12")},
    {"text of a long number", "Word", I(123456), {}, 3163, tooSmall},
    {"text empty where allowed", "Note", T(""), T("")},
    {"text of blanks is not empty", "Word", T(" "), T(" ")},
    {"memo of any length", "Long text", T(std::string(70000, 'x')), T(std::string(70000, 'x'))},
    {"memo empty",
     "Long text",
     T(""),
     {},
     3315,
     "Field 'TYPES.Long text' cannot be a zero-length string."},
    {"required", "Must", I(1), I(1)},
    {"required Null",
     "Must",
     {},
     {},
     3314,
     "The field 'TYPES.Must' cannot contain a Null value because the Required property for this "
     "field is set to True. Enter a value in this field."},
};

class ColumnsTest : public EngineTest {
 protected:
  ColumnsTest() { database->CreateTable(Types()); }

  static void Compare(const Cell& cell, const Value& expected) {
    EXPECT_EQ(cell.Garde(), expected) << cell.Texte();
  }

  void Verifie(const TypeCase& c, const Failure& failure) {
    EXPECT_EQ(failure.number, c.error);
    EXPECT_EQ(failure.description, c.description);
    const auto rows = database->OpenRecordset("TYPES");
    rows->MoveLast();
    if (c.error == 0) Compare(rows->Get(c.field), c.stored);
  }
};

TEST_F(ColumnsTest, SetTakesOrRefuses) {
  for (const TypeCase& c : typeCases) {
    SCOPED_TRACE(c.name);
    const auto rows = database->OpenRecordset("TYPES");
    const Failure failure = FailureOf([&] {
      rows->AddNew();
      rows->Set("Must", Cell::Of(std::int64_t{1}));
      rows->Set(c.field, Cell::Vue(c.given));
      rows->Update();
    });
    Verifie(c, failure);
  }
}

TEST_F(ColumnsTest, InsertRowsTakesOrRefuses) {
  for (const TypeCase& c : typeCases) {
    SCOPED_TRACE(c.name);
    const bool must = c.field == "Must"sv;
    std::vector<std::string_view> columns{"Must"};
    std::vector<Value> row{must ? c.given : I(1)};
    if (!must) {
      columns.push_back(c.field);
      row.push_back(c.given);
    }
    ListSource source({row});
    Verifie(c, FailureOf([&] { database->InsertRows("TYPES", columns, source); }));
  }
}

TEST_F(ColumnsTest, StatementsCannotBreakTheTypesEither) {
  for (const TypeCase& c : typeCases) {
    if (const auto* d = std::get_if<double>(&c.given); d != nullptr && !std::isfinite(*d)) continue;
    const auto* text = std::get_if<std::string>(&c.given);
    if (text != nullptr && text->size() > 60000) continue;  // longer than a statement may be
    SCOPED_TRACE(c.name);
    database->Execute("DELETE FROM TYPES");
    database->Execute("INSERT INTO TYPES (Must) VALUES (0)");
    Verifie(c, FailureOf([&] {
              database->Execute("UPDATE TYPES SET [" + std::string(c.field) +
                                "] = " + SqlLiteral(c.given));
            }));
    database->Execute("DELETE FROM TYPES");
    const std::string columns = c.field == "Must"sv ? "" : "Must, ";
    const std::string values = c.field == "Must"sv ? "" : "1, ";
    Verifie(c, FailureOf([&] {
              database->Execute("INSERT INTO TYPES (" + columns + "[" + c.field + "]) VALUES (" +
                                values + SqlLiteral(c.given) + ")");
            }));
  }
}

TEST_F(ColumnsTest, BytesAreKeptAsTheyStand) {
  const std::string bytes("\0\xff\x01 '\n", 6);
  const auto rows = database->OpenRecordset("TYPES");
  rows->AddNew();
  rows->Set("Must", Cell::Of(std::int64_t{1}));
  rows->Set("Bytes", Cell::Of(std::string_view(bytes)));
  rows->Update();
  ListSource source({{I(1), bytes}});
  const std::string_view columns[] = {"Must", "Bytes"};
  database->InsertRows("TYPES", columns, source);
  const auto all = database->OpenRecordset("TYPES");
  for (; !all->EOF_(); all->MoveNext()) EXPECT_EQ(all->Get("Bytes").text, bytes);
  EXPECT_EQ(FailureOf([&] {
              all->AddNew();
              all->Set("Bytes", Cell::Of(1.5));
            }).number,
            3421);
}

TEST_F(ColumnsTest, ARequiredColumnLeftOutIsRefused) {
  const auto rows = database->OpenRecordset("TYPES");
  rows->AddNew();
  EXPECT_EQ(FailureOf([&] { rows->Update(); }).number, 3314);
  rows->CancelUpdate();
  EXPECT_EQ(FailureOf([&] { database->Execute("INSERT INTO TYPES (Big) VALUES (1)"); }).number,
            3314);
  ListSource source({{I(1)}});
  const std::string_view columns[] = {"Big"};
  EXPECT_EQ(FailureOf([&] { database->InsertRows("TYPES", columns, source); }).number, 3314);
  EXPECT_EQ(rows->RecordCount(), 0);
}

TEST_F(ColumnsTest, ARefusedValueLeavesTheOldOneInTheEdit) {
  const auto rows = database->OpenRecordset("TYPES");
  rows->AddNew();
  rows->Set("Must", Cell::Of(std::int64_t{1}));
  rows->Set("Small", Cell::Of(std::int64_t{7}));
  EXPECT_EQ(FailureOf([&] { rows->Set("Small", Cell::Of(std::int64_t{70000})); }).number, 6);
  EXPECT_EQ(rows->Get("Small").integer, 7);
  rows->Update();
  rows->MoveFirst();
  EXPECT_EQ(rows->Get("Small").integer, 7);
}

TEST_F(ColumnsTest, TheTalpenaTableHasItsRules) {
  CreeTalpena();
  const auto rows = database->OpenRecordset("TALPENA");
  rows->AddNew();
  EXPECT_EQ(FailureOf([&] { rows->Set("Datum", Cell::Of(""sv)); }).description,
            "Field 'TALPENA.DATUM' cannot be a zero-length string.");
  EXPECT_EQ(FailureOf([&] { rows->Set("Original", Cell::Of(""sv)); }).number, 3315);
  EXPECT_EQ(FailureOf([&] { rows->Set("Sex", Cell::Of("MF"sv)); }).number, 3163);
  EXPECT_EQ(FailureOf([&] { rows->Set("Counter", Cell::Of(std::int64_t{9})); }).number, 3164);
  EXPECT_EQ(FailureOf([&] { rows->Set("Counter", Cell::Null()); }).description,
            "Field cannot be updated.");
  for (const char* field : {"Sex", "Date", "comment"}) rows->Set(field, Cell::Of(""sv));
  rows->Set("comment", Cell::Of(std::string_view(std::string(300, 'c'))));
  rows->Update();
  rows->MoveFirst();
  EXPECT_EQ(rows->Get("COMMENT").text.size(), 300u);
}

}  // namespace
}  // namespace talpena::enginetest
