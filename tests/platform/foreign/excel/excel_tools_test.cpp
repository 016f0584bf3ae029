// Workbooks that we have written, read by programs that know nothing of us; and the other way.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/foreign/excel/workbooks.h"

namespace talpena {
namespace {

using namespace test;

/// The table that an export makes, but for X and y.
TableDef TableExportee() {
  return {.name = "my bees",
          .fields = {Champ("Period", FieldType::Text, 1), Champ("Latitude", FieldType::Single),
                     Champ("Longitude", FieldType::Single), Champ("Number 1", FieldType::Long),
                     Champ("Ellipsoid", FieldType::Text, 5), Champ("Date", FieldType::Text, 10),
                     Champ("Sex", FieldType::Text, 1), Champ("Free text", FieldType::Text, 150),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

Row LigneExportee(std::size_t i) {
  const auto number = static_cast<std::int64_t>(i);
  return {std::to_string(i % 9),
          static_cast<double>(static_cast<float>(number % 180) / 2 - 45.41234F),
          static_cast<double>(static_cast<float>(number % 360) - 180.12346F),
          number * 1000,
          "WGS84",
          "2003-05-0" + std::to_string(i % 9 + 1),
          i % 2 == 0 ? "m" : "f",
          "Pâturage no " + std::to_string(i) + "\nœ € \"quoted\", 'x' " + std::string(i % 100, 'x'),
          "Bees / 00" + std::to_string(i)};
}

std::string Ecrit(std::unique_ptr<ForeignFormat> format, const std::string& path,
                  std::size_t count) {
  const WrittenSheet file(std::move(format), path);
  MadeRows source(count, LigneExportee);
  EXPECT_EQ(file.Ecrit(TableExportee(), source), static_cast<std::int64_t>(count));
  return path;
}

std::string CellulesDeXlsx(const std::string& path) {
  return Cellules(*excel::OuvreClasseurXlsx(std::make_shared<excel::FileBytes>(path, 1UL << 30)));
}

/// CSV with the digits that a program shows of floats cut to those that count.
std::string SansChiffresVains(const std::string& csv) {
  static const std::regex number("-?[0-9]+\\.[0-9]{5,}");
  std::string out;
  std::size_t from = 0;
  for (std::sregex_iterator found(csv.begin(), csv.end(), number), end; found != end; ++found) {
    out += csv.substr(from, static_cast<std::size_t>(found->position()) - from);
    out += Str(EnSimple(Val(found->str())));
    from = static_cast<std::size_t>(found->position() + found->length());
  }
  return out + csv.substr(from);
}

/// A workbook as ssconvert reads it.
std::string LuParSsconvert(const std::string& path) {
  const std::string out = path + ".csv";
  Sortie("LC_ALL=C.UTF-8 ssconvert " + EntreQuotes(path) + " " + EntreQuotes(out) + " 2>&1");
  return SansChiffresVains(LitFichier(out));
}

/// The values of the table as lines of CSV.
std::string EnCsv(std::size_t count) {
  std::string csv;
  const TableDef table = TableExportee();
  const auto add = [&](const std::string& text, char end) {
    const bool quoted = text.find_first_of("\", \n'") != std::string::npos;
    csv += quoted ? '"' + Remplace(text, "\"", "\"\"") + '"' : text;
    csv += end;
  };
  const std::size_t columns = table.fields.size();
  for (std::size_t f = 0; f < columns; ++f) {
    add(table.fields[f].name, f + 1 == columns ? '\n' : ',');
  }
  for (std::size_t i = 0; i < count; ++i) {
    const Row row = LigneExportee(i);
    for (std::size_t f = 0; f < columns; ++f) {
      const auto* real = std::get_if<double>(&row[f]);
      add(real != nullptr ? Str(static_cast<float>(*real)) : Cell::Vue(row[f]).Texte(),
          f + 1 == columns ? '\n' : ',');
    }
  }
  return csv;
}

/// What the two begin to differ with; empty when they do not.
std::string PremiereDifference(const std::string& a, const std::string& b) {
  std::size_t at = 0;
  while (at < a.size() && at < b.size() && a[at] == b[at]) ++at;
  if (at == a.size() && at == b.size()) return {};
  const std::size_t from = at < 40 ? 0 : at - 40;
  return "at " + std::to_string(at) + ": " + a.substr(from, 80) + "\ninstead of " +
         b.substr(from, 80);
}

TEST(ExcelTools, XlrdReadsEveryValueThatWeWrite) {
  NEEDS_PYTHON("xlrd");
  const TempFolder folder;
  for (const std::size_t count : {0U, 1U, 3000U}) {
    const std::string path =
        Ecrit(CreeFormatExcel(), folder / (std::to_string(count) + ".xls"), count);
    const std::string cells = CellulesSelon("xlrd", path);
    EXPECT_EQ(PremiereDifference(CellulesDeBiff(path), cells), "");
    EXPECT_TRUE(cells.ends_with("sheets " + Hexa("my bees") + '\n')) << cells.substr(0, 200);
  }
}

TEST(ExcelTools, OpenpyxlReadsEveryValueThatWeWrite) {
  NEEDS_PYTHON("openpyxl");
  const TempFolder folder;
  for (const std::size_t count : {0U, 1U, 3000U}) {
    const std::string path =
        Ecrit(CreeFormatXlsx(), folder / (std::to_string(count) + ".xlsx"), count);
    EXPECT_EQ(PremiereDifference(CellulesDeXlsx(path), CellulesSelon("openpyxl", path)), "");
  }
}

TEST(ExcelTools, SsconvertReadsEveryValueThatWeWrite) {
  NEEDS_TOOL("ssconvert");
  const TempFolder folder;
  for (const std::size_t count : {1U, 500U}) {
    const std::string xls =
        Ecrit(CreeFormatExcel(), folder / (std::to_string(count) + ".xls"), count);
    EXPECT_EQ(PremiereDifference(LuParSsconvert(xls), EnCsv(count)), "");
    const std::string xlsx =
        Ecrit(CreeFormatXlsx(), folder / (std::to_string(count) + ".xlsx"), count);
    EXPECT_EQ(PremiereDifference(LuParSsconvert(xlsx), EnCsv(count)), "");
  }
}

TEST(ExcelTools, OgrReadsEveryRowThatWeWrite) {
  NEEDS_TOOL("ogrinfo");
  const TempFolder folder;
  const std::string path = Ecrit(CreeFormatXlsx(), folder / "bees.xlsx", 3000);
  const std::string said =
      Sortie("OGR_XLSX_HEADERS=FORCE ogrinfo -so -al " + EntreQuotes(path)).value_or("failed");
  for (const char* part : {"Layer name: my bees", "Feature Count: 3000", "Period: String",
                           "Latitude: Real", "Date: String", "Memo: String"}) {
    EXPECT_NE(said.find(part), std::string::npos) << part << " in " << said;
  }
}

// What gnumeric writes has shared texts over many records, formulas and truth values.
TEST(ExcelTools, WeReadEveryValueThatSsconvertWrites) {
  NEEDS_TOOL("ssconvert");
  NEEDS_PYTHON("xlrd");
  NEEDS_PYTHON("openpyxl");
  const TempFolder folder;
  std::string csv = "Name,Number,Formula,Text,Long\n";
  for (std::size_t i = 0; i < 400; ++i) {
    const std::string n = std::to_string(i);
    csv += "ł" + n + "," + n + ".5,=B" + std::to_string(i + 2) + "*2,\"=A" + std::to_string(i + 2) +
           "&\"\"é\"\"\"," + std::string(i % 7 * 100, 'z') + n + "♀\n";
  }
  csv += "TRUE,=1=1,=1/0,12,1e300\n";
  EcritFichier(folder / "a.csv", csv);
  for (const char* kind : {"excel_biff7", "excel_biff8", "excel_dsf"}) {
    const std::string path = folder / (std::string(kind) + ".xls");
    Sortie("LC_ALL=C.UTF-8 ssconvert -T Gnumeric_Excel:" + std::string(kind) + " " +
           EntreQuotes(folder / "a.csv") + " " + EntreQuotes(path) + " 2>&1");
    const std::string cells = CellulesSelon("xlrd", path);
    EXPECT_GT(cells.size(), 50000U) << kind;
    EXPECT_EQ(PremiereDifference(CellulesDeBiff(path), cells), "") << kind;
  }
  const std::string xlsx = folder / "a.xlsx";
  Sortie("LC_ALL=C.UTF-8 ssconvert " + EntreQuotes(folder / "a.csv") + " " + EntreQuotes(xlsx) +
         " 2>&1");
  EXPECT_GT(CellulesDeXlsx(xlsx).size(), 50000U);
}

}  // namespace
}  // namespace talpena
