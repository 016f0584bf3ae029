// A table engine that knows some statements and their answers, read-only.
#pragma once
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "common/text.h"
#include "fakes/refusing_rows.h"
#include "platform/table_engine.h"

namespace talpena::test {

/// What a statement gives: its columns and rows.
struct FakeAnswer {
  std::vector<std::string> columns;
  std::vector<std::vector<Value>> rows;
};

/// Databases by path, answers by statement, word for word. Everything opened is noted, and what
/// is still open is counted.
class FakeTables : public TableEngine {
 public:
  std::map<std::string, std::map<std::string, FakeAnswer>> bases;
  std::vector<TableDef> tables;      ///< of every database
  std::vector<QueryDef> queries;     ///< so are these
  std::vector<std::string> journal;  ///< "Open path" or "OpenReadOnly path", then statements
  int ouverts = 0;                   ///< databases and recordsets open at this moment

  std::unique_ptr<Database> CreateDatabase(const std::string&, const NewDatabase&) override {
    throw TalpenaError(ErrorNumber::PathFileAccess, "Path/File access error");
  }
  std::unique_ptr<Database> CreateForeignDatabase(const std::string&, std::string_view,
                                                  const NewDatabase&) override {
    Refuse();
  }
  std::unique_ptr<Database> OpenDatabase(const std::string& path, bool readOnly,
                                         std::string_view) override {
    journal.push_back((readOnly ? "OpenReadOnly " : "Open ") + path);
    const auto base = bases.find(path);
    if (base == bases.end()) {
      throw TalpenaError(ErrorNumber::UnrecognizedFormat,
                         "Unrecognized database format '" + path + "'.");
    }
    return std::make_unique<Base>(*this, base->second);
  }

 private:
  struct Ouvert {
    explicit Ouvert(FakeTables& owner) : owner_(owner) { ++owner_.ouverts; }
    Ouvert(const Ouvert&) = delete;
    Ouvert& operator=(const Ouvert&) = delete;
    ~Ouvert() { --owner_.ouverts; }
    FakeTables& owner_;
  };

  [[noreturn]] static void Refuse() {
    throw TalpenaError(ErrorNumber::ReadOnly, "Database or object is read-only.");
  }

  class Rows final : public RefusingRows {
   public:
    Rows(FakeTables& owner, const FakeAnswer& answer) : ouvert_(owner), answer_(answer) {
      for (const std::string& column : answer.columns) fields_.push_back({.name = column});
    }
    const std::vector<FieldDef>& Fields() const override { return fields_; }
    int FieldIndex(std::string_view name) const override {
      for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (EgalSansCasse(fields_[i].name, name)) return static_cast<int>(i);
      }
      throw TalpenaError(ErrorNumber::ItemNotFound, "Item not found in this collection.");
    }
    bool BOF() const override { return at_ < 0 || answer_.rows.empty(); }
    bool EOF_() const override { return at_ >= RowCount(); }
    void MoveFirst() override { at_ = 0; }
    void MoveLast() override { at_ = RowCount() - 1; }
    void MoveNext() override { ++at_; }
    void MovePrevious() override { --at_; }
    std::int64_t RecordCount() override { return RowCount(); }
    Bookmark GetBookmark() const override { return at_; }
    void SetBookmark(Bookmark mark) override { at_ = mark; }
    std::int64_t AbsolutePosition() const override { return at_; }
    void SetAbsolutePosition(std::int64_t position) override { at_ = position; }
    using Recordset::Get;
    Cell Get(int field) override {
      if (at_ < 0 || at_ >= RowCount()) {
        throw TalpenaError(ErrorNumber::NoCurrentRecord, "No current record.");
      }
      return Cell::Vue(
          answer_.rows[static_cast<std::size_t>(at_)].at(static_cast<std::size_t>(field)));
    }
    void AddNew() override { Refuse(); }
    void Edit() override { Refuse(); }
    using Recordset::Set;
    void Set(int, Cell) override { Refuse(); }
    void Update() override { Refuse(); }
    void CancelUpdate() override { Refuse(); }
    Bookmark LastModified() const override { return at_; }
    void Delete() override { Refuse(); }
    bool FindFirst(std::string_view) override { return false; }
    bool FindNext(std::string_view) override { return false; }
    std::unique_ptr<Recordset> Clone() override {
      return std::make_unique<Rows>(ouvert_.owner_, answer_);
    }

   private:
    std::int64_t RowCount() const { return static_cast<std::int64_t>(answer_.rows.size()); }

    Ouvert ouvert_;
    const FakeAnswer& answer_;
    std::vector<FieldDef> fields_;
    std::int64_t at_ = 0;
  };

  class Base final : public Database {
   public:
    Base(FakeTables& owner, const std::map<std::string, FakeAnswer>& answers)
        : ouvert_(owner), answers_(answers) {}
    void CreateTable(const TableDef&) override { Refuse(); }
    std::vector<std::string> TableNames() override { return {}; }
    TableDef Table(std::string_view) override { return {}; }
    std::vector<TableDef> Tables() override { return ouvert_.owner_.tables; }
    std::vector<QueryDef> Queries() override { return ouvert_.owner_.queries; }
    QueryDef Query(std::string_view) override { return {}; }
    void SuitImport(ImportProgress) override {}
    void SuitTravail(WorkBeat) override {}
    std::unique_ptr<Recordset> OpenRecordset(std::string_view source) override {
      ouvert_.owner_.journal.emplace_back(source);
      const auto answer = answers_.find(std::string(source));
      if (answer == answers_.end()) {
        throw TalpenaError(ErrorNumber::TableNotFound,
                           "The database engine cannot find the table.");
      }
      return std::make_unique<Rows>(ouvert_.owner_, answer->second);
    }
    std::int64_t Execute(std::string_view) override { Refuse(); }
    std::int64_t InsertRows(std::string_view, std::span<const std::string_view>,
                            RowSource&) override {
      Refuse();
    }
    void BeginTrans() override { Refuse(); }
    void CommitTrans() override { Refuse(); }
    void Rollback() override { Refuse(); }
    bool EnTransaction() const override { return false; }

   private:
    Ouvert ouvert_;
    const std::map<std::string, FakeAnswer>& answers_;
  };
};

}  // namespace talpena::test
