#include "analysis/selection.h"

#include "common/text.h"
#include "platform/commands.h"

namespace talpena {

SelectionForm RempliSelection(const StoreState& state) {
  if (state.document.FiltreActif()) return {1, state.document.LignesMontrees().Condition()};
  return {0, state.DerniereCondition};
}

bool ValideSelection(StoreState& state, Platform& io, const SelectionForm& form) {
  const bool filtered = form.OptSelect == 1;
  if (filtered && Rogne(form.TxtSelect).empty()) {
    Bip(state, io);
    return false;
  }
  state.document.MontreLignes(filtered ? RowsShown::Filtrees(form.TxtSelect) : RowsShown::Toutes());
  if (filtered) state.DerniereCondition = form.TxtSelect;
  return true;
}

}  // namespace talpena
