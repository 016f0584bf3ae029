#include "store/duplicate_row.h"

#include <vector>

#include "common/text.h"

namespace talpena {

Bookmark DupliqueLigne(Document& document, Edition& edition) {
  Recordset& current = document.Data1.recordset();
  const std::vector<FieldDef>& fields = current.Fields();
  std::vector<Value> values;
  values.reserve(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    values.push_back(current.Get(static_cast<int>(i)).Garde());
  }
  return edition.AjouteLigne([&](Recordset& row) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (EgalSansCasse(fields[i].name, "COUNTER")) continue;
      row.Set(static_cast<int>(i), Cell::Vue(values[i]));
    }
  });
}

}  // namespace talpena
