#include "store/duplicate_row.h"

#include <vector>

#include "common/text.h"

namespace talpena {

Bookmark DupliqueLigne(StoreState& state) {
  const auto rows = state.Data1.Clone();
  rows->SetBookmark(state.Data1.recordset().GetBookmark());

  const std::vector<FieldDef>& fields = rows->Fields();
  std::vector<Value> values;
  values.reserve(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    values.push_back(rows->Get(static_cast<int>(i)).Garde());
  }

  rows->AddNew();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (EgalSansCasse(fields[i].name, "COUNTER")) continue;
    rows->Set(static_cast<int>(i), Cell::Vue(values[i]));
  }
  rows->Update();
  return rows->LastModified();
}

}  // namespace talpena
