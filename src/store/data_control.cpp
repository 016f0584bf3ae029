#include "store/data_control.h"

#include "common/talpena_error.h"

namespace talpena {

void DataControl::Refresh() {
  if (database_ == nullptr) throw TalpenaError(ErrorNumber::NoCurrentRecord, "No current record.");
  recordset_ = database_->OpenRecordset(RecordSource);
  Signale(Change::Rows);
}

void DataControl::SignaleLignes() { Signale(Change::Rows); }

void DataControl::SignaleValeurs() { Signale(Change::Values); }

void DataControl::SignalePosition() { Signale(Change::Position); }

Recordset& DataControl::recordset() {
  if (!recordset_) throw TalpenaError(ErrorNumber::NoCurrentRecord, "No current record.");
  return *recordset_;
}

void DataControl::Signale(Change change) {
  for (const Listener& listener : listeners_) listener(change);
}

}  // namespace talpena
