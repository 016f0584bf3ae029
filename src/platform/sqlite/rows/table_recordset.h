// A recordset over rows of one table: a list of their keys, rows fetched when looked at.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/rows/row_list.h"
#include "platform/sqlite/rows/rows_ahead.h"
#include "platform/sqlite/table_state.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

class TableRecordset final : public Recordset, private RunningReader {
 public:
  TableRecordset(std::shared_ptr<Connection> connection, std::shared_ptr<TableState> table,
                 std::shared_ptr<RowList> rows, bool readOnly);
  ~TableRecordset() override;

  const std::vector<FieldDef>& Fields() const override { return table_->Definition().fields; }
  int FieldIndex(std::string_view name) const override;

  bool BOF() const override;
  bool EOF_() const override;
  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  std::int64_t RecordCount() override { return rows_->Vivants(); }

  Bookmark GetBookmark() const override;
  void SetBookmark(Bookmark bookmark) override;
  std::int64_t AbsolutePosition() const override;
  void SetAbsolutePosition(std::int64_t position) override;
  std::int64_t PositionDe(Bookmark row) const override;
  void AnnonceParcours(const Progress& avance) override;

  Cell Get(int field) override;
  void LitLigne(std::span<Cell> cells) override;
  void AddNew() override;
  void Edit() override;
  void Set(int field, Cell value) override;
  void Update() override;
  void CancelUpdate() override;
  std::int64_t ModifieLignes(const RowPass& pass, RowChange& change) override;
  Bookmark LastModified() const override;
  std::int64_t AjouteLignes(std::span<const int> fields, RowSource& source) override;
  void Delete() override;
  std::int64_t RemplitLignes(std::span<const int> fields, std::span<const Cell> values,
                             const Progress& avance) override;
  std::int64_t RemplaceValeur(int field, const Cell& before, const Cell& value,
                              const Progress& avance) override;
  std::int64_t SupprimeLignes(std::span<const Bookmark> rows) override;
  void LitNombres(std::span<const int> fields, const std::vector<Bookmark>* only,
                  const NumberVisitor& visit) override;
  void LitLignes(std::span<const Bookmark> rows, const RowVisitor& visit) override;
  void RetablitLignes(std::span<const RowPlace> places, RowSource& values) override;

  bool FindFirst(std::string_view condition) override;
  bool FindNext(std::string_view condition) override;
  std::unique_ptr<Recordset> Clone() override;

  using Recordset::Get;
  using Recordset::Set;

 private:
  enum class Place : std::uint8_t { Before, On, After };
  enum class Editing : std::uint8_t { None, Edit, Add };

  void VaA(std::optional<std::size_t> slot, Place otherwise);
  bool SurLigne() const { return place_ == Place::On && rows_->Vivant(slot_); }
  std::optional<std::size_t> SlotDe(Bookmark row) const;  ///< of a row that is shown
  RowKey CleCourante() const;  ///< RecordDeleted (3167), NoCurrentRecord (3021)
  void ExigeChamp(int field) const;
  void ExigeEcriture() const;

  void ChargeLigne();
  bool LitDAvance();
  void LitDeLaTable(RowKey key);
  bool LitEnSuite(RowKey key);
  void LitUne(RowKey key);
  void OublieLigne();
  void ArreteLecture() override;

  void ViendraEdition(Editing editing);
  void FinEdition();
  void ExecuteModification(const std::string& sql, RowKey key);
  void Insere();
  void Modifie();
  std::int64_t CleLaPlusHaute();
  void MontreAjoutees(std::int64_t before);
  void ExecuteSuppression(std::span<const RowKey> keys);
  std::int64_t Remplit(std::span<const int> fields, std::span<const Cell> values,
                       const Cell* before, const Progress& avance);
  void VerifieChampsEcrits(std::span<const int> fields) const;
  std::optional<std::pair<std::int64_t, std::int64_t>> EtendueDeToutes();
  void ReprendLignes(std::span<const RowPlace> places);

  std::optional<std::size_t> Cherche(std::string_view condition, std::size_t from);
  std::optional<std::size_t> ChercheEnSuite(const std::string& sql, std::size_t from);
  std::optional<std::size_t> ChercheDansListe(const std::string& sql, std::size_t from);

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<TableState> table_;
  std::shared_ptr<RowList> rows_;
  bool readOnly_;

  Place place_ = Place::Before;
  std::size_t slot_ = 0;

  // The row that was fetched last: by `one_`, or by `stream_`, which walks through the table, or
  // out of `ahead_`.
  Statement one_;
  Statement stream_;
  std::unique_ptr<RowsAhead> ahead_;
  const Statement* row_ = nullptr;
  const char* packed_ = nullptr;
  RowKey rowKey_ = 0;
  std::uint64_t rowVersion_ = 0;
  bool streaming_ = false;
  RowKey streamKey_ = 0;
  RowKey lastFetched_ = 0;
  int inSequence_ = 0;  ///< rows fetched one after the other

  Editing editing_ = Editing::None;
  std::vector<Value> values_;
  std::vector<bool> set_;
  RowKey editedKey_ = 0;
  Statement change_;
  std::string changeSql_;
  std::optional<RowKey> lastAdded_;

  // Slots that a condition found in a sorted list, for the searches that go on from there.
  struct Found {
    std::string condition;
    std::uint64_t version = 0;
    std::vector<std::uint32_t> slots;  ///< rising
  };
  std::optional<Found> found_;
};

}  // namespace talpena::sqlite
