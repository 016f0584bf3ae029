#include "platform/foreign/excel/sheet_writer.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/errors.h"
#include "platform/foreign/rows_of_file.h"

namespace talpena::excel {
namespace {

constexpr int mostSize = 255;  // of a Text column

void VerifieDefinition(const TableDef& table, const SheetLimits& limits) {
  if (table.name.empty()) throw foreign::NomRefuse(table.name);
  if (!table.indexes.empty()) throw foreign::NonEcrit("an index of a sheet");
  if (table.fields.size() > limits.columns) throw foreign::TropDeColonnes();
  std::set<std::string> names;
  for (const FieldDef& field : table.fields) {
    const bool sized = field.type != FieldType::Text || (field.size >= 1 && field.size <= mostSize);
    if (field.type == FieldType::Binary) throw foreign::NonEcrit("a binary column of a sheet");
    if (field.name.empty() || !sized || !names.insert(Minuscules(field.name)).second) {
      throw foreign::DefinitionRefusee();
    }
  }
  if (names.empty()) throw foreign::DefinitionRefusee();
}

[[noreturn]] void RefuseLignes(std::int64_t leftOut) {
  throw TalpenaError(ErrorNumber::SpreadsheetFull, "Spreadsheet is full.",
                     {.about = {std::to_string(leftOut)}});
}

class SheetDatabase final : public ForeignDatabase {
 public:
  explicit SheetDatabase(SheetFormat format) : format_(std::move(format)) {}

  std::vector<TableDef> Tables() override {
    return writer_ == nullptr ? std::vector<TableDef>() : std::vector<TableDef>{table_};
  }
  std::unique_ptr<RowSource> Rows(std::string_view table) override {
    Exige(table);
    return std::make_unique<RowsOfFile>(format_.ouvre(), NomDeFeuille(table_.name));
  }
  std::int64_t NombreLignes(std::string_view table) override {
    Exige(table);
    return rows_;
  }

  void CreeTable(const TableDef& table) override;
  std::int64_t InsereLignes(std::string_view table, RowSource& rows) override;

 private:
  void Exige(std::string_view table) const {
    if (writer_ == nullptr || !EgalSansCasse(table, table_.name)) {
      throw foreign::TableIntrouvable(table);
    }
  }
  void Verifie(const std::vector<Cell>& cells) const;
  void Ecrit(RowSource& rows);

  SheetFormat format_;
  TableDef table_;
  std::unique_ptr<SheetWriter> writer_;
  std::int64_t rows_ = 0;
};

void SheetDatabase::CreeTable(const TableDef& table) {
  if (writer_ != nullptr) {
    if (EgalSansCasse(table.name, table_.name)) throw foreign::TableExiste(table.name);
    throw foreign::NonEcrit("a second table in a workbook");
  }
  VerifieDefinition(table, format_.limits);
  try {
    writer_ = format_.cree(table, NomDeFeuille(table.name));
  } catch (const TalpenaError& error) {
    if (error.number() == ErrorNumber::FileExists) throw foreign::TableExiste(table.name);
    throw;
  }
  table_ = table;
}

/// That no text is longer than its column or any cell.
void SheetDatabase::Verifie(const std::vector<Cell>& cells) const {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const FieldDef& field = table_.fields[i];
    const bool memo = field.type == FieldType::Memo;
    if (cells[i].kind != Cell::Kind::Text || (!memo && field.type != FieldType::Text)) continue;
    const std::size_t most =
        memo ? format_.limits.characters : static_cast<std::size_t>(field.size);
    if (cells[i].text.size() > most && CompteCaracteres(cells[i].text) > most) {
      throw foreign::TexteTropLong(field.name);
    }
  }
}

void SheetDatabase::Ecrit(RowSource& rows) {
  std::vector<Cell> cells(table_.fields.size());
  std::int64_t leftOut = 0;
  while (rows.Suivante(cells)) {
    if (rows_ == format_.limits.rows) {
      ++leftOut;
      continue;
    }
    Verifie(cells);
    writer_->Ajoute(cells);
    ++rows_;
  }
  if (leftOut > 0) RefuseLignes(leftOut);
}

std::int64_t SheetDatabase::InsereLignes(std::string_view table, RowSource& rows) {
  Exige(table);
  try {
    Ecrit(rows);
  } catch (...) {
    writer_->Acheve();
    throw;
  }
  writer_->Acheve();
  return rows_;
}

}  // namespace

std::unique_ptr<ForeignDatabase> CreeBaseDeFeuille(SheetFormat format) {
  return std::make_unique<SheetDatabase>(std::move(format));
}

std::string NomDeFeuille(std::string_view table) {
  constexpr std::size_t longest = 31;
  std::string name(PremiersCaracteres(table, longest));
  for (char& c : name) {
    const bool control = static_cast<unsigned char>(c) < ' ';
    if (control || std::string_view(":\\/?*[]").find(c) != std::string_view::npos) c = '_';
  }
  // At its ends it would part the name from what stands beside it in a formula.
  for (char* const end : {&name.front(), &name.back()}) {
    if (*end == '\'') *end = '_';
  }
  return name;
}

}  // namespace talpena::excel
