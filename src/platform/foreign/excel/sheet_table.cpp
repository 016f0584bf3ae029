#include "platform/foreign/excel/sheet_table.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/foreign/errors.h"

namespace talpena::excel {
namespace {

constexpr std::uint32_t mostColumns = 1024;
constexpr std::size_t longestText = 255, longestName = 64;

using Kind = SheetCell::Kind;

/// What the cells of a column below its heading are.
struct ColumnContent {
  bool used = false, number = false, boolean = false, text = false, longText = false;

  void Compte(const SheetCell& cell) {
    used = true;
    number = number || cell.kind == Kind::Number;
    boolean = boolean || cell.kind == Kind::Boolean;
    if (cell.kind != Kind::Text || cell.text.empty()) return;
    text = true;
    longText = longText || CompteCaracteres(cell.text) > longestText;
  }

  FieldDef Champ() const {
    FieldDef field{.name = {}, .size = static_cast<int>(longestText), .allowZeroLength = true};
    if (longText) field.type = FieldType::Memo;
    if (number && !text && !boolean) field.type = FieldType::Double;
    if (boolean && !text && !number) field.type = FieldType::Boolean;
    if (field.type != FieldType::Text) field.size = 0;
    return field;
  }
};

std::string TexteDe(const SheetCell& cell) {
  switch (cell.kind) {
    case Kind::Text:
      return cell.text;
    case Kind::Boolean:
      return cell.number != 0 ? "TRUE" : "FALSE";
    case Kind::Number:
      break;
  }
  return Str(cell.number);
}

/// A heading as the name of a column: blanks for the ends of its lines.
std::string NomDeColonne(const SheetCell& cell) {
  std::string name = TexteDe(cell);
  std::ranges::replace_if(
      name, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  name = Rogne(name);
  return CompteCaracteres(name) > longestName ? std::string() : name;
}

bool Presente(const std::vector<FieldDef>& fields, std::string_view name) {
  return std::ranges::any_of(
      fields, [&](const FieldDef& field) { return EgalSansCasse(field.name, name); });
}

/// F1 and so on by the place of a column, and more of it where another has that name as well.
std::string NomDePlace(const std::vector<FieldDef>& fields, std::size_t column) {
  std::string name = "F" + std::to_string(column + 1);
  while (Presente(fields, name)) name += "_";
  return name;
}

void NommeColonnes(std::vector<FieldDef>& fields, const SheetRow& headings,
                   std::uint32_t firstColumn) {
  for (const SheetCell& cell : headings.cells) {
    const std::string name = NomDeColonne(cell);
    FieldDef& field = fields[cell.column - firstColumn];
    if (field.name.empty() && !name.empty() && !Presente(fields, name)) field.name = name;
  }
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].name.empty()) fields[i].name = NomDePlace(fields, i);
  }
}

class SheetDescriber {
 public:
  void Ajoute(const SheetRow& row) {
    if (row.cells.empty()) return;
    if (headings_.cells.empty()) {
      headings_ = row;
      for (const SheetCell& cell : row.cells) Colonne(cell).used = true;
    } else {
      for (const SheetCell& cell : row.cells) Colonne(cell).Compte(cell);
    }
    last_ = row.number;
  }

  SheetTable Table(const SheetInfo& sheet) const {
    SheetTable table;
    table.definition.name = sheet.name;
    table.definition.attributes = sheet.hidden ? TableAttribute::Hidden : 0;
    if (headings_.cells.empty()) return table;
    const auto first = std::ranges::find(columns_, true, &ColumnContent::used);
    table.firstColumn = static_cast<std::uint32_t>(first - columns_.begin());
    for (auto column = first; column != columns_.end(); ++column) {
      table.definition.fields.push_back(column->Champ());
    }
    NommeColonnes(table.definition.fields, headings_, table.firstColumn);
    table.headings = headings_.number;
    table.rows = std::int64_t{last_} - headings_.number;
    return table;
  }

 private:
  ColumnContent& Colonne(const SheetCell& cell) {
    if (cell.column >= mostColumns) {
      throw foreign::TropDeColonnes();
    }
    if (cell.column >= columns_.size()) columns_.resize(cell.column + 1);
    return columns_[cell.column];
  }

  SheetRow headings_;
  std::vector<ColumnContent> columns_;
  std::uint32_t last_ = 0;
};

class TableRows final : public RowSource {
 public:
  TableRows(const SheetTable& table, std::unique_ptr<SheetRows> rows)
      : table_(table), rows_(std::move(rows)), texts_(table.definition.fields.size()) {}

  bool Suivante(std::span<Cell> cells) override {
    if (given_ == table_.rows) return false;
    ++given_;
    std::ranges::fill(cells, Cell::Null());
    const std::int64_t wanted = table_.headings + given_;
    while (more_ && ahead_ < wanted) {
      more_ = rows_->Suivante(row_);
      ahead_ = row_.number;
    }
    if (more_ && ahead_ == wanted) Remplit(cells);
    return true;
  }

 private:
  void Remplit(std::span<Cell> cells) {
    for (const SheetCell& cell : row_.cells) {
      const std::size_t column = std::size_t{cell.column} - table_.firstColumn;
      // A file that another program changes meanwhile may have more than it had.
      if (cell.column < table_.firstColumn || column >= cells.size()) continue;
      cells[column] = Valeur(cell, column);
    }
  }

  Cell Valeur(const SheetCell& cell, std::size_t column) {
    const FieldType type = table_.definition.fields[column].type;
    if (type == FieldType::Double || type == FieldType::Boolean) {
      if (cell.kind == Kind::Text) return Cell::Null();
      if (type == FieldType::Double) return Cell::Of(cell.number);
      return Cell::Of(std::int64_t{cell.number != 0 ? -1 : 0});
    }
    texts_[column] = TexteDe(cell);
    if (texts_[column].empty()) return Cell::Null();  // as where there is no cell
    return Cell::Of(std::string_view(texts_[column]));
  }

  SheetTable table_;
  std::unique_ptr<SheetRows> rows_;
  std::vector<std::string> texts_;
  SheetRow row_;
  std::int64_t ahead_ = -1;  ///< number of the row that was read last
  std::int64_t given_ = 0;
  bool more_ = true;
};

}  // namespace

SheetTable DecritFeuille(const SheetInfo& sheet, SheetRows& rows) {
  SheetDescriber describer;
  SheetRow row;
  while (rows.Suivante(row)) describer.Ajoute(row);
  return describer.Table(sheet);
}

std::unique_ptr<RowSource> LignesDeTable(const SheetTable& table, std::unique_ptr<SheetRows> rows) {
  return std::make_unique<TableRows>(table, std::move(rows));
}

}  // namespace talpena::excel
