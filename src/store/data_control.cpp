#include "store/data_control.h"

#include <optional>
#include <utility>

#include "common/talpena_error.h"

namespace talpena {
namespace {

/// Empty before the first row, behind the last, and on a row that another cursor deleted.
std::optional<Bookmark> LigneCourante(const Recordset& rows) {
  try {
    return rows.GetBookmark();
  } catch (const TalpenaError& e) {
    if (e.number() != ErrorNumber::NoCurrentRecord) throw;
    return std::nullopt;
  }
}

}  // namespace

void DataControl::Refresh() {
  if (database_ == nullptr) throw TalpenaError(ErrorNumber::NoCurrentRecord, "No current record.");
  recordset_ = database_->OpenRecordset(RecordSource);
  Signale(Change::Rows);
}

void DataControl::ChangeSource(const std::string& source) {
  const std::optional<Bookmark> row = EstLie() ? LigneCourante(*recordset_) : std::nullopt;
  const std::string before = std::exchange(RecordSource, source);
  try {
    Refresh();
  } catch (...) {
    RecordSource = before;
    throw;
  }
  if (row) RetourneALigne(*row);
}

void DataControl::RetourneALigne(Bookmark row) {
  try {
    recordset_->SetBookmark(row);
  } catch (const TalpenaError& e) {
    if (e.number() != ErrorNumber::InvalidBookmark) throw;
    return;
  }
  SignalePosition();
}

Recordset& DataControl::recordset() {
  if (!recordset_) throw TalpenaError(ErrorNumber::NoCurrentRecord, "No current record.");
  return *recordset_;
}

void DataControl::Signale(Change change) {
  if (tell_) tell_(change);
}

}  // namespace talpena
