// Access files that tests have written.
#pragma once
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "fakes/temp_folder.h"
#include "platform/foreign/foreign_rows.h"
#include "platform/foreign/jet_files.h"
#include "platform/foreign/jet_format.h"
#include "platform/foreign_format.h"

namespace talpena::test {

/// A column of each type.
inline TableDef TousLesTypes() {
  return {.name = "All types",
          .fields = {Champ("Flag", FieldType::Boolean), Champ("Tiny", FieldType::Byte),
                     Champ("Small", FieldType::Integer), Champ("Number 1", FieldType::Long),
                     Champ("Money", FieldType::Currency), Champ("Latitude", FieldType::Single),
                     Champ("Wide", FieldType::Double), Champ("When", FieldType::Date),
                     Champ("Sex", FieldType::Text, 1), Champ("Free text", FieldType::Text, 255),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

/// Rows of such a table at the ends of what each column can hold.
inline std::vector<Row> LignesExtremes() {
  using Single = std::numeric_limits<float>;
  using Double = std::numeric_limits<double>;
  const auto row = [](int flag, int tiny, int small, std::int64_t number, double money, double lat,
                      double wide, double when, const char* sex, std::string text,
                      std::string memo) {
    return Row{std::int64_t{flag},
               std::int64_t{tiny},
               std::int64_t{small},
               number,
               money,
               lat,
               wide,
               when,
               sex,
               std::move(text),
               std::move(memo)};
  };
  const std::string accents = "Pélodyte ponctué, œ € “ß” Ł";
  std::string animals;
  for (int i = 0; i < 127; ++i) animals += "🦔";
  return {row(-1, 255, 32767, 2147483647, 922337203685477.5, Single::max(), Double::max(), 2958465,
              "m", std::string(255, 'x'), "memo"),
          row(0, 0, -32768, -2147483648LL, -922337203685477.5, Single::lowest(), Double::lowest(),
              2, "", "", ""),
          row(0, 1, 0, 0, 0.0001, Single::denorm_min(), Double::denorm_min(), 40000.25, "é",
              accents, accents),
          row(-1, 7, -1, -1, -0.0001, 50.41234F, 1.0 / 3, 0.5, "Ł", animals, animals), Row(11)};
}

/// What a row is read back as: a Boolean is never Null.
inline Row Relue(Row row) {
  if (std::holds_alternative<std::monostate>(row[0])) row[0] = std::int64_t{0};
  return row;
}

/// A new file with one table, its rows put in; the format lasts as long as the database.
struct WrittenFile {
  explicit WrittenFile(std::string where, const LimitesJet& limits = {})
      : path(std::move(where)),
        format(CreeFormatJet(limits)),
        database(format->Cree(path, NewDatabase{})) {}

  std::int64_t Ecrit(const TableDef& table, RowSource& rows) const {
    database->CreeTable(table);
    return database->InsereLignes(table.name, rows);
  }
  /// The rows as they are read from the finished file.
  std::vector<Row> Relit(const TableDef& table) const {
    const auto read = CreeFormatJet()->Ouvre(path);
    return LitLignes(*read, table.name, table.fields.size());
  }

  std::string path;
  std::unique_ptr<ForeignFormat> format;
  std::unique_ptr<ForeignDatabase> database;
};

}  // namespace talpena::test
