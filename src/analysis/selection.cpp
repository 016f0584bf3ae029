#include "analysis/selection.h"

#include "common/text.h"
#include "platform/commands.h"
#include "store/filter.h"

namespace talpena {

SelectionForm RempliSelection(const StoreState& state) {
  if (FiltreActif(state.Data1)) return {1, ConditionDuFiltre(state.Data1)};
  return {0, state.DerniereCondition};
}

bool ValideSelection(StoreState& state, Platform& io, const SelectionForm& form) {
  const bool filtered = form.OptSelect == 1;
  if (filtered && Rogne(form.TxtSelect).empty()) {
    Bip(state, io);
    return false;
  }
  if (!state.Data1.EstLie()) state.Data1.Lie(*state.WorkingDb);
  state.Data1.ChangeSource(filtered ? SourceFiltree(form.TxtSelect) : std::string(TouteLaTable));
  if (filtered) state.DerniereCondition = form.TxtSelect;
  return true;
}

}  // namespace talpena
