#include "platform/sqlite/rows/memory_recordset.h"

#include <algorithm>
#include <limits>

#include "platform/sqlite/dialect/dialect.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/source_table.h"

namespace talpena::sqlite {
namespace {

/// Rows of an arena, from one on, for a condition to run over.
class ArenaRows final : public SourceRows {
 public:
  ArenaRows(const RowArena& rows, std::size_t from)
      : rows_(rows), next_(from), cells_(rows.Colonnes()) {}

  bool Suivante(std::span<const Cell>& cells) override {
    if (next_ >= rows_.Lignes()) return false;
    rows_.Lit(next_++, cells_);
    cells = cells_;
    return true;
  }

 private:
  const RowArena& rows_;
  std::size_t next_;
  std::vector<Cell> cells_;
};

}  // namespace

MemoryRecordset::MemoryRecordset(std::shared_ptr<Connection> connection,
                                 std::shared_ptr<const MemoryRows> data)
    : connection_(std::move(connection)), data_(std::move(data)), cells_(data_->fields.size()) {
  MemoryRecordset::MoveFirst();
}

int MemoryRecordset::FieldIndex(std::string_view name) const {
  const auto& fields = data_->fields;
  const auto found = std::find_if(fields.begin(), fields.end(), [name](const FieldDef& field) {
    return MemeNom(field.name, name);
  });
  if (found == fields.end()) throw ChampIntrouvable();
  return static_cast<int>(found - fields.begin());
}

void MemoryRecordset::Refuse() { throw LectureSeule(); }

void MemoryRecordset::Va(std::int64_t position) { position_ = position; }

void MemoryRecordset::MoveNext() {
  if (EOF_()) throw PasDeLigne();
  Va(position_ + 1);
}

void MemoryRecordset::MovePrevious() {
  if (BOF()) throw PasDeLigne();
  Va(position_ - 1);
}

Bookmark MemoryRecordset::GetBookmark() const {
  if (!SurLigne()) throw PasDeLigne();
  return position_ + 1;
}

void MemoryRecordset::SetBookmark(Bookmark bookmark) {
  if (bookmark < 1 || bookmark > Nombre()) throw SignetInvalide();
  Va(bookmark - 1);
}

void MemoryRecordset::SetAbsolutePosition(std::int64_t position) {
  if (position < 0 || position >= Nombre()) throw ArgumentInvalide();
  Va(position);
}

Cell MemoryRecordset::Get(int field) {
  if (field < 0 || static_cast<std::size_t>(field) >= cells_.size()) throw ChampIntrouvable();
  if (!SurLigne()) throw PasDeLigne();
  if (cellsOf_ != position_) {
    data_->rows.Lit(static_cast<std::size_t>(position_), cells_);
    cellsOf_ = position_;
  }
  return cells_[static_cast<std::size_t>(field)];
}

bool MemoryRecordset::Cherche(std::string_view condition, std::int64_t from) {
  ArenaRows rows(data_->rows, static_cast<std::size_t>(std::max<std::int64_t>(from, 0)));
  Statement statement =
      connection_->Prepare(std::string("SELECT rowid FROM ") + SourceTable + "(?1) WHERE " +
                               TraduitCondition(condition, data_->fields),
                           Access::Read);
  statement.LiePointeur(0, static_cast<SourceRows*>(&rows), SourcePointer);
  if (!statement.Avance()) return false;
  Va(std::max<std::int64_t>(from, 0) + statement.Entier(0));
  return true;
}

void MemoryRecordset::LitLignes(std::span<const Bookmark> rows, const RowVisitor& visit) {
  std::vector<Bookmark> chosen(rows.begin(), rows.end());
  std::sort(chosen.begin(), chosen.end());
  chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
  std::vector<Cell> cells(data_->fields.size());
  for (const Bookmark row : chosen) {
    if (PositionDe(row) < 0) continue;
    data_->rows.Lit(static_cast<std::size_t>(row - 1), cells);
    visit(row, cells);
  }
}

// One row a block: nothing draws from such rows by the thousand.
void MemoryRecordset::LitNombres(std::span<const int> fields, const std::vector<Bookmark>* only,
                                 const NumberVisitor& visit) {
  std::vector<Cell> cells(data_->fields.size());
  for (const int field : fields) {
    if (field < 0 || static_cast<std::size_t>(field) >= cells.size()) throw ChampIntrouvable();
  }
  std::vector<double> numbers;
  const auto count = only == nullptr ? data_->rows.Lignes() : only->size();
  for (std::size_t i = 0; i < count; ++i) {
    const std::int64_t position =
        only == nullptr ? static_cast<std::int64_t>(i) : PositionDe((*only)[i]);
    if (position < 0) continue;
    data_->rows.Lit(static_cast<std::size_t>(position), cells);
    numbers.clear();
    for (const int field : fields) {
      const Cell& cell = cells[static_cast<std::size_t>(field)];
      if (cell.kind == Cell::Kind::Text) throw ConversionImpossible();
      numbers.push_back(cell.EstNull() ? std::numeric_limits<double>::quiet_NaN() : cell.Nombre());
    }
    visit({1, fields.size(), numbers});
  }
}

std::unique_ptr<Recordset> MemoryRecordset::Clone() {
  return std::make_unique<MemoryRecordset>(connection_, data_);
}

}  // namespace talpena::sqlite
