#include "platform/sqlite/geopackage/geopackage_reader.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/geopackage/geopackage_schema.h"
#include "platform/sqlite/statement.h"

namespace talpena::sqlite {
namespace {

void RefuseJournal(const std::string& path) {
  std::error_code ignored;
  const auto size = std::filesystem::file_size(path + "-wal", ignored);
  if (ignored || size == 0) return;
  throw TalpenaError(ErrorNumber::FileInUse, "Could not use '" + path + "'; file already in use.",
                     {.about = {path}});
}

/// The number between the brackets of "TEXT(24)"; 0 for none.
int LongueurDe(std::string_view type) {
  const std::size_t open = type.find('(');
  int length = 0;
  if (open == std::string_view::npos) return 0;
  std::from_chars(type.data() + open + 1, type.data() + type.size(), length);
  return length;
}

/// Clause 1.1.1.1.3 of the standard, and what other programs write besides.
FieldDef ChampDe(std::string_view name, std::string_view declared) {
  constexpr int longestText = 255;
  FieldDef field{.name = std::string(name), .type = FieldType::Binary, .allowZeroLength = true};
  const std::string type = Majuscules(declared);
  const auto est = [&](std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), type.substr(0, type.find('('))) != words.end();
  };
  if (est({"BOOLEAN"})) {
    field.type = FieldType::Boolean;
  } else if (est({"TINYINT", "SMALLINT", "MEDIUMINT"})) {
    field.type = FieldType::Long;
  } else if (est({"INT", "INTEGER", "FLOAT", "DOUBLE", "REAL", "NUMERIC"})) {
    field.type = FieldType::Double;
  } else if (est({"TEXT", "VARCHAR", "CHAR", "DATE", "DATETIME"})) {
    const int length = LongueurDe(type);
    const bool sized = length >= 1 && length <= longestText;
    field.type = sized ? FieldType::Text : FieldType::Memo;
    field.size = sized ? length : 0;
  }
  return field;
}

class Layers {
 public:
  explicit Layers(const std::string& path)
      : path_(path), connection_(path, Connection::Mode::Foreign) {}

  std::vector<TableDef> Tables() {
    std::vector<TableDef> tables;
    Statement names = connection_.Prepare(
        "SELECT m.name FROM gpkg_contents c JOIN sqlite_master m ON m.name = c.table_name COLLATE "
        "NOCASE WHERE c.data_type IN ('features', 'attributes') AND m.type = 'table' AND m.sql NOT "
        "LIKE 'CREATE VIRTUAL%' ORDER BY m.name");
    while (names.Avance()) tables.push_back(TableDe(std::string(names.Texte(0))));
    return tables;
  }

  TableDef TableDe(const std::string& name) {
    TableDef table{.name = name, .fields = {}, .indexes = {}};
    Statement columns =
        connection_.Prepare("SELECT name, type, pk FROM pragma_table_info(?1) ORDER BY cid");
    columns.Lie(0, Cell::Of(std::string_view(name)));
    while (columns.Avance()) {
      const std::string type(columns.Texte(1));
      const bool number = columns.Entier(2) > 0 && EgalSansCasse(type, "INTEGER");
      if (!number) table.fields.push_back(ChampDe(columns.Texte(0), type));
    }
    return table;
  }

  Statement Lignes(const TableDef& table) {
    std::string sql;
    for (const FieldDef& field : table.fields) {
      sql += (sql.empty() ? "SELECT " : ", ") + Entoure(field.name);
    }
    return connection_.Prepare(sql + " FROM " + Entoure(table.name));
  }

 private:
  std::string path_;
  Connection connection_;
};

bool EstDuGenre(const Cell& cell, FieldType type) {
  const bool text = cell.kind == Cell::Kind::Text;
  if (type == FieldType::Text || type == FieldType::Memo) return text && EstUtf8(cell.text);
  return text == (type == FieldType::Binary);
}

class LayerRows final : public RowSource {
 public:
  LayerRows(const std::string& path, std::string_view table)
      : path_(path), layers_(path), table_(layers_.TableDe(std::string(table))) {
    if (!table_.fields.empty()) rows_ = layers_.Lignes(table_);
  }

  bool Suivante(std::span<Cell> cells) override {
    if (!rows_) return false;
    if (!rows_.Avance()) {  // SQLite would begin anew
      rows_ = {};
      return false;
    }
    for (std::size_t i = 0; i < cells.size(); ++i) {
      cells[i] = rows_.Cellule(static_cast<int>(i));
      if (!EstDuGenre(cells[i], table_.fields[i].type)) cells[i] = Cell::Null();
    }
    return true;
  }

 private:
  std::string path_;
  Layers layers_;
  TableDef table_;
  Statement rows_;
};

class PaquetLu final : public ForeignDatabase {
 public:
  explicit PaquetLu(std::string path) : path_(std::move(path)) {
    RefuseJournal(path_);
    try {
      tables_ = Layers(path_).Tables();
    } catch (const TalpenaError& failure) {
      if (failure.number() == ErrorNumber::DeviceFault) throw;
      throw FormatInconnu(path_);
    }
  }
  std::vector<TableDef> Tables() override { return tables_; }
  std::unique_ptr<RowSource> Rows(std::string_view table) override {
    return LitLignesGeoPackage(path_, table);
  }

 private:
  std::string path_;
  std::vector<TableDef> tables_;
};

}  // namespace

std::unique_ptr<ForeignDatabase> LitGeoPackage(const std::string& path) {
  return std::make_unique<PaquetLu>(path);
}

std::unique_ptr<RowSource> LitLignesGeoPackage(const std::string& path, std::string_view table) {
  return std::make_unique<LayerRows>(path, table);
}

}  // namespace talpena::sqlite
