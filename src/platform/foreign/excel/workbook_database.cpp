#include "platform/foreign/excel/workbook_database.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "common/text.h"
#include "platform/foreign/errors.h"
#include "platform/foreign/excel/sheet_table.h"

namespace talpena::excel {
namespace {

class WorkbookDatabase final : public ForeignDatabase {
 public:
  explicit WorkbookDatabase(std::unique_ptr<Workbook> workbook) : workbook_(std::move(workbook)) {
    const std::vector<SheetInfo>& sheets = workbook_->Feuilles();
    for (std::size_t i = 0; i < sheets.size(); ++i) Decrit(sheets[i], i);
  }

  std::vector<TableDef> Tables() override {
    std::vector<TableDef> definitions;
    for (const Entry& entry : tables_) definitions.push_back(entry.table.definition);
    return definitions;
  }
  std::unique_ptr<RowSource> Rows(std::string_view table) override {
    const Entry& entry = Trouve(table);
    return LignesDeTable(entry.table, workbook_->Lignes(entry.sheet));
  }
  std::int64_t NombreLignes(std::string_view table) override { return Trouve(table).table.rows; }

 private:
  struct Entry {
    SheetTable table;
    std::size_t sheet;
  };

  void Decrit(const SheetInfo& sheet, std::size_t number) {
    const bool twice = std::ranges::any_of(tables_, [&](const Entry& entry) {
      return EgalSansCasse(entry.table.definition.name, sheet.name);
    });
    if (twice || sheet.name.empty()) workbook_->Refuse();
    const auto rows = workbook_->Lignes(number);
    SheetTable table = DecritFeuille(sheet, *rows);
    if (!table.definition.fields.empty()) tables_.push_back({std::move(table), number});
  }

  const Entry& Trouve(std::string_view name) const {
    const auto found = std::ranges::find_if(tables_, [&](const Entry& entry) {
      return EgalSansCasse(entry.table.definition.name, name);
    });
    if (found != tables_.end()) return *found;
    throw foreign::TableIntrouvable(name);
  }

  std::unique_ptr<Workbook> workbook_;
  std::vector<Entry> tables_;
};

}  // namespace

std::unique_ptr<ForeignDatabase> CreeBaseDeClasseur(std::unique_ptr<Workbook> workbook) {
  return std::make_unique<WorkbookDatabase>(std::move(workbook));
}

}  // namespace talpena::excel
