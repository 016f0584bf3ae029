#include "store/sort.h"

namespace talpena {

void ChangeTri(Document& document, int index, bool descending) {
  const RowOrder order{index, descending ? Direction::Descending : Direction::Ascending};
  SelectDe(order);  // the list has it
  if (document.Data1.EstLie()) document.MontreLignes(RowsShown::Dans(order));
  document.ChangeOrdre(order);
}

}  // namespace talpena
