// A recordset over the rows of a SELECT that shows no table whole: read once, for reading only.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/rows/row_arena.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

/// What such recordsets and their clones share.
struct MemoryRows {
  std::vector<FieldDef> fields;
  RowArena rows;
};

class MemoryRecordset final : public Recordset {
 public:
  MemoryRecordset(std::shared_ptr<Connection> connection, std::shared_ptr<const MemoryRows> data);

  const std::vector<FieldDef>& Fields() const override { return data_->fields; }
  int FieldIndex(std::string_view name) const override;

  bool BOF() const override { return position_ < 0; }
  bool EOF_() const override { return position_ >= Nombre() || Nombre() == 0; }
  void MoveFirst() override { Va(Nombre() == 0 ? -1 : 0); }
  void MoveLast() override { Va(Nombre() - 1); }
  void MoveNext() override;
  void MovePrevious() override;
  std::int64_t RecordCount() override { return Nombre(); }

  Bookmark GetBookmark() const override;  ///< the position from 1
  void SetBookmark(Bookmark bookmark) override;
  std::int64_t AbsolutePosition() const override { return SurLigne() ? position_ : -1; }
  void SetAbsolutePosition(std::int64_t position) override;
  std::int64_t PositionDe(Bookmark row) const override {
    return row >= 1 && row <= Nombre() ? row - 1 : -1;
  }

  Cell Get(int field) override;
  void AddNew() override { Refuse(); }
  void Edit() override { Refuse(); }
  void Set(int, Cell) override { Refuse(); }
  void Update() override { Refuse(); }
  void CancelUpdate() override { Refuse(); }
  Bookmark LastModified() const override { Refuse(); }
  std::int64_t AjouteLignes(std::span<const int>, RowSource&) override { Refuse(); }
  void Delete() override { Refuse(); }
  std::int64_t ModifieLignes(const RowPass&, RowChange&) override { Refuse(); }
  std::int64_t RemplitLignes(std::span<const int>, std::span<const Cell>,
                             const Progress&) override {
    Refuse();
  }
  std::int64_t RemplaceValeur(int, const Cell&, const Cell&, const Progress&) override { Refuse(); }
  std::int64_t SupprimeLignes(std::span<const Bookmark>) override { Refuse(); }
  void RetablitLignes(std::span<const RowPlace>, RowSource&) override { Refuse(); }
  void LitLignes(std::span<const Bookmark> rows, const RowVisitor& visit) override;
  void LitNombres(std::span<const int> fields, const std::vector<Bookmark>* only,
                  const NumberVisitor& visit) override;

  bool FindFirst(std::string_view condition) override { return Cherche(condition, 0); }
  bool FindNext(std::string_view condition) override { return Cherche(condition, position_ + 1); }
  std::unique_ptr<Recordset> Clone() override;

  using Recordset::Get;
  using Recordset::Set;

 private:
  [[noreturn]] static void Refuse();
  std::int64_t Nombre() const { return static_cast<std::int64_t>(data_->rows.Lignes()); }
  bool SurLigne() const { return position_ >= 0 && position_ < Nombre(); }
  void Va(std::int64_t position);
  bool Cherche(std::string_view condition, std::int64_t from);

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<const MemoryRows> data_;
  std::int64_t position_ = -1;
  std::vector<Cell> cells_;
  std::int64_t cellsOf_ = -1;  ///< the row that `cells_` holds
};

}  // namespace talpena::sqlite
