// Tables made at random, the same ones each time, come back as they went in.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "common/text.h"
#include "platform/foreign/excel/workbooks.h"

namespace talpena {
namespace {

using namespace test;

class RandomTable {
 public:
  RandomTable(unsigned seed, bool unicode) : random_(seed), unicode_(unicode) {
    table_.name = "Table " + std::to_string(seed);
    const std::size_t columns = 1 + Moins(seed % 10 == 0 ? 256 : 12);
    for (std::size_t i = 0; i < columns; ++i) table_.fields.push_back(Colonne(i));
  }

  const TableDef& Definition() const { return table_; }

  std::vector<Row> Lignes() {
    std::vector<Row> rows(Moins(120));
    for (Row& row : rows) {
      for (const FieldDef& field : table_.fields) row.push_back(Valeur(field));
    }
    // A sheet ends with a row that holds something.
    if (!rows.empty()) rows.back()[0] = Plein(table_.fields[0]);
    return rows;
  }

 private:
  std::size_t Moins(std::size_t most) { return random_() % most; }

  FieldDef Colonne(std::size_t number) {
    static constexpr FieldType types[] = {FieldType::Boolean, FieldType::Long, FieldType::Single,
                                          FieldType::Double,  FieldType::Text, FieldType::Memo};
    const FieldType type = types[Moins(std::size(types))];
    const int size = type == FieldType::Text ? static_cast<int>(1 + Moins(255)) : 0;
    const std::string name = Texte(20) + " " + std::to_string(number);
    return Champ(name.c_str(), type, size);
  }

  /// Letters, signs and line ends; those of code page 1252 alone where the format has no others.
  std::string Texte(std::size_t most) {
    static const std::vector<std::string> narrow = {"a",  "Z", "0", " ", ",", "\"", "'",      "=",
                                                    "\n", "é", "œ", "€", "ß", "”",  "_x0041_"};
    static const std::vector<std::string> wide = {"Ł", "♀", "🦔", "\u200B", "テ"};
    std::string text;
    for (std::size_t i = most == 0 ? 0 : Moins(most); i > 0; --i) {
      const auto& from = unicode_ && Moins(4) == 0 ? wide : narrow;
      text += from[Moins(from.size())];
    }
    return std::string(PremiersCaracteres(text, most));
  }

  Value Valeur(const FieldDef& field) { return Moins(5) == 0 ? Value() : Plein(field); }

  Value Plein(const FieldDef& field) {
    switch (field.type) {
      case FieldType::Boolean:
        return -static_cast<std::int64_t>(Moins(2));
      case FieldType::Long:
        return std::int64_t{static_cast<std::int32_t>(random_())};
      case FieldType::Single:
        return static_cast<double>((static_cast<float>(random_()) - 2e9F) / 1e7F);
      case FieldType::Double:  // as many digits as every format keeps
        return static_cast<double>(static_cast<std::int32_t>(random_())) / 16;
      case FieldType::Text:
        return "x" + Texte(static_cast<std::size_t>(field.size) - 1);
      default:
        return "x" + Texte(250);
    }
  }

  std::mt19937 random_;
  bool unicode_;
  TableDef table_;
};

/// That a value came back: an empty text is no cell, and every number a double.
void VerifieValeur(const FieldDef& field, const Value& given, const Value& read) {
  if (field.type == FieldType::Single && given != Value()) {
    EXPECT_EQ(static_cast<float>(std::get<double>(read)),
              static_cast<float>(std::get<double>(given)));
  } else if (field.type == FieldType::Long && given != Value()) {
    EXPECT_EQ(read, Value(static_cast<double>(std::get<std::int64_t>(given))));
  } else {
    EXPECT_EQ(read, given);
  }
}

void VerifieTables(std::unique_ptr<ForeignFormat> (*format)(const LimitesExcel&), bool unicode) {
  const TempFolder folder;
  for (unsigned seed = 0; seed < 60; ++seed) {
    SCOPED_TRACE(seed);
    RandomTable made(seed, unicode);
    const TableDef& table = made.Definition();
    const std::vector<Row> rows = made.Lignes();
    const WrittenSheet sheet(format({}), folder / (std::to_string(seed) + ".book"));
    MadeRows source = Source(rows);
    ASSERT_EQ(sheet.Ecrit(table, source), static_cast<std::int64_t>(rows.size()));
    const auto read = sheet.format->Ouvre(sheet.path);
    const TableDef found = TableDe(*read, table.name);
    ASSERT_EQ(found.fields.size(), table.fields.size());
    for (std::size_t f = 0; f < table.fields.size(); ++f) {
      EXPECT_EQ(found.fields[f].name,
                std::string(Rogne(Remplace(table.fields[f].name, "\n", " "))));
    }
    const std::vector<Row> back = LitLignes(*read, table.name, table.fields.size());
    ASSERT_EQ(back.size(), rows.size());
    for (std::size_t r = 0; r < rows.size(); ++r) {
      for (std::size_t f = 0; f < table.fields.size(); ++f) {
        VerifieValeur(table.fields[f], rows[r][f], back[r][f]);
      }
    }
  }
}

TEST(ExcelProperty, TablesOfExcel5ComeBack) { VerifieTables(CreeFormatExcel, false); }
TEST(ExcelProperty, TablesOfXlsxFilesComeBack) { VerifieTables(CreeFormatXlsx, true); }

}  // namespace
}  // namespace talpena
