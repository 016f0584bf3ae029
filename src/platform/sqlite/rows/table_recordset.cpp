#include "platform/sqlite/rows/table_recordset.h"

#include <algorithm>

#include "platform/sqlite/dialect/dialect.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/packed_cells.h"
#include "platform/sqlite/rows/row_blocks.h"

namespace talpena::sqlite {
namespace {

constexpr std::int64_t LargestGap = 32;  // keys that a walk through the table passes over

}  // namespace

TableRecordset::TableRecordset(std::shared_ptr<Connection> connection,
                               std::shared_ptr<TableState> table, std::shared_ptr<RowList> rows,
                               bool readOnly)
    : connection_(std::move(connection)),
      table_(std::move(table)),
      rows_(std::move(rows)),
      readOnly_(readOnly),
      values_(Fields().size()),
      set_(Fields().size()) {
  connection_->Inscrit(this);
  rows_->Inscrit(&slot_);
  TableRecordset::MoveFirst();
}

TableRecordset::~TableRecordset() {
  rows_->Raye(&slot_);
  connection_->Raye(this);
}

int TableRecordset::FieldIndex(std::string_view name) const {
  const int field = table_->Champ(name);
  if (field < 0) throw ChampIntrouvable();
  return field;
}

bool TableRecordset::BOF() const {
  return place_ == Place::Before || (place_ == Place::After && rows_->Vivants() == 0);
}

bool TableRecordset::EOF_() const {
  return place_ == Place::After || (place_ == Place::Before && rows_->Vivants() == 0);
}

void TableRecordset::VaA(std::optional<std::size_t> slot, Place otherwise) {
  FinEdition();
  place_ = slot ? Place::On : otherwise;
  slot_ = slot.value_or(0);
}

void TableRecordset::MoveFirst() { VaA(rows_->Suivant(0), Place::Before); }

void TableRecordset::MoveLast() { VaA(rows_->Precedent(rows_->Slots()), Place::After); }

void TableRecordset::MoveNext() {
  if (EOF_()) throw PasDeLigne();
  VaA(rows_->Suivant(place_ == Place::Before ? 0 : slot_ + 1), Place::After);
}

void TableRecordset::MovePrevious() {
  if (BOF()) throw PasDeLigne();
  if (place_ == Place::After) return VaA(rows_->Precedent(rows_->Slots()), Place::Before);
  VaA(slot_ == 0 ? std::nullopt : rows_->Precedent(slot_ - 1), Place::Before);
}

RowKey TableRecordset::CleCourante() const {
  if (place_ != Place::On) throw PasDeLigne();
  if (!rows_->Vivant(slot_)) throw LigneSupprimee();
  return rows_->Cle(slot_);
}

Bookmark TableRecordset::GetBookmark() const {
  if (!SurLigne()) throw PasDeLigne();
  return rows_->Cle(slot_);
}

std::optional<std::size_t> TableRecordset::SlotDe(Bookmark row) const {
  const auto key = CleDe(row);
  const auto slot = key ? rows_->Place(*key) : std::nullopt;
  return slot && rows_->Vivant(*slot) ? slot : std::nullopt;
}

void TableRecordset::SetBookmark(Bookmark bookmark) {
  const auto slot = SlotDe(bookmark);
  if (!slot) throw SignetInvalide();
  VaA(slot, Place::Before);
}

std::int64_t TableRecordset::AbsolutePosition() const {
  return SurLigne() ? rows_->Rang(slot_) : -1;
}

std::int64_t TableRecordset::PositionDe(Bookmark row) const {
  const auto slot = SlotDe(row);
  return slot ? rows_->Rang(*slot) : -1;
}

void TableRecordset::SetAbsolutePosition(std::int64_t position) {
  const auto slot = rows_->SlotDuRang(position);
  if (!slot) throw ArgumentInvalide();
  VaA(slot, Place::Before);
}

void TableRecordset::ExigeChamp(int field) const {
  if (field < 0 || static_cast<std::size_t>(field) >= Fields().size()) throw ChampIntrouvable();
}

void TableRecordset::ExigeEcriture() const {
  if (readOnly_) throw LectureSeule();
}

Cell TableRecordset::Get(int field) {
  ExigeChamp(field);
  const auto index = static_cast<std::size_t>(field);
  if (editing_ != Editing::None && set_[index]) return Cell::Vue(values_[index]);
  if (editing_ == Editing::Add) return Cell::Null();
  ChargeLigne();
  if (packed_ == nullptr) return row_->Cellule(field);
  std::vector<Cell> cells(index + 1);
  Deballe(packed_, cells);
  return cells.back();
}

void TableRecordset::LitLigne(std::span<Cell> cells) {
  if (editing_ != Editing::None || cells.size() > Fields().size()) {
    Recordset::LitLigne(cells);
    return;
  }
  ChargeLigne();
  if (packed_ != nullptr) return Deballe(packed_, cells);
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = row_->Cellule(static_cast<int>(i));
}

void TableRecordset::ChargeLigne() {
  const RowKey key = CleCourante();
  const bool loaded = row_ != nullptr || packed_ != nullptr;
  if (loaded && rowKey_ == key && rowVersion_ == table_->Version()) return;
  OublieLigne();
  if (!LitDAvance()) LitDeLaTable(key);
  rowKey_ = key;
  rowVersion_ = table_->Version();
}

void TableRecordset::AnnonceParcours(const Progress& avance) {
  OublieLigne();
  ahead_.reset();
  ahead_ = RowsAhead::Lit(*connection_, *table_, *rows_, avance);
}

/// False when the row was not read ahead.
bool TableRecordset::LitDAvance() {
  if (ahead_ && !ahead_->EstActuel()) ahead_.reset();
  if (ahead_) packed_ = ahead_->Ligne(slot_);
  return packed_ != nullptr;
}

void TableRecordset::LitDeLaTable(RowKey key) {
  const std::int64_t gap = std::int64_t{key} - lastFetched_;
  if (gap != 0)
    inSequence_ = rows_->Croissant() && gap > 0 && gap <= LargestGap ? inSequence_ + 1 : 0;
  lastFetched_ = key;
  if (gap == 0 || inSequence_ < 2 || !LitEnSuite(key)) LitUne(key);
}

// Goes on with the statement that walks through the table. False when the row is not there.
bool TableRecordset::LitEnSuite(RowKey key) {
  if (!stream_) {
    stream_ = connection_->Prepare("SELECT " + table_->TousLesChamps() + ", " + table_->CleSql() +
                                   " FROM " + table_->NomSql() + " WHERE " + table_->CleSql() +
                                   " >= ?1 ORDER BY " + table_->CleSql());
  }
  if (!streaming_ || streamKey_ >= key || std::int64_t{key} - streamKey_ > LargestGap) {
    stream_.Rembobine();
    stream_.Lie(0, std::int64_t{key});
    streaming_ = true;
  }
  const int keyColumn = static_cast<int>(Fields().size());
  while (stream_.Avance()) {
    streamKey_ = static_cast<RowKey>(stream_.Entier(keyColumn));
    if (streamKey_ < key) continue;
    if (streamKey_ == key) {
      row_ = &stream_;
      return true;
    }
    break;
  }
  stream_.Rembobine();
  streaming_ = false;
  return false;
}

void TableRecordset::LitUne(RowKey key) {
  if (!one_) {
    one_ = connection_->Prepare("SELECT " + table_->TousLesChamps() + " FROM " + table_->NomSql() +
                                " WHERE " + table_->CleSql() + " = ?1");
  }
  one_.Rembobine();
  one_.Lie(0, std::int64_t{key});
  if (!one_.Avance()) {
    one_.Rembobine();
    throw LigneSupprimee();
  }
  row_ = &one_;
}

void TableRecordset::OublieLigne() {
  row_ = nullptr;
  packed_ = nullptr;
}

void TableRecordset::ArreteLecture() {
  OublieLigne();
  one_.Rembobine();
  stream_.Rembobine();
  streaming_ = false;
}

std::unique_ptr<Recordset> TableRecordset::Clone() {
  return std::make_unique<TableRecordset>(connection_, table_, rows_, readOnly_);
}

}  // namespace talpena::sqlite
