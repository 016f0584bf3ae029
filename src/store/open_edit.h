// A change of one row that is whole or not at all.
#pragma once
#include "common/talpena_error.h"
#include "platform/table_engine.h"

namespace talpena {

/// Edits the current row and puts it back as it was unless the change went through.
class OpenEdit {
 public:
  explicit OpenEdit(Recordset& rows) : rows_(&rows) { rows.Edit(); }
  OpenEdit(const OpenEdit&) = delete;
  OpenEdit& operator=(const OpenEdit&) = delete;
  ~OpenEdit() {
    if (rows_ == nullptr) return;
    try {
      rows_->CancelUpdate();
    } catch (const TalpenaError&) {  // the failure under way is the one to report
    }
  }
  void Valide() {
    rows_->Update();
    rows_ = nullptr;
  }

 private:
  Recordset* rows_;
};

}  // namespace talpena
