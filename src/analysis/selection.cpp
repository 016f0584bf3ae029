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

std::string MotACompleter(std::string_view avant) {
  char quote = 0;
  for (const char c : avant) {
    if (quote == 0 && (c == '\'' || c == '"')) {
      quote = c;
    } else if (c == quote) {
      quote = 0;
    }
  }
  if (quote != 0) return {};
  constexpr std::string_view letters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
  const std::size_t last = avant.find_last_not_of(letters);
  const std::string_view word = last == std::string_view::npos ? avant : avant.substr(last + 1);
  const bool number = !word.empty() && word.front() >= '0' && word.front() <= '9';
  return number ? std::string() : std::string(word);
}

}  // namespace talpena
