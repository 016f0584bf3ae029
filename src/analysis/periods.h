// Number of periods and their pivot years.
#pragma once
#include <string>

#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

/// What the periods dialog shows and the user typed.
struct PeriodsForm {
  int OptionPivot = 0;  ///< 0 one period, 1 two, 2 three
  std::string TxtPivot1 = {};
  std::string TxtPivot21 = {};
  std::string TxtPivot22 = {};
};

/// Where the dialog goes after OK.
enum class PeriodsFocus { None, TxtPivot1, TxtPivot21, TxtPivot22 };
struct PeriodsOutcome {
  bool ferme = false;  ///< the dialog closes
  PeriodsFocus focus = PeriodsFocus::None;
};

/// The form as the dialog opens: the current mode and the years that belong to it.
PeriodsForm RempliPeriodes(const StoreState& state);

/// OK. Going down to one period sets PERIOD to 1 in every row of the data control (not while
/// New is under way), going from three to two turns 3 into 2; both ask first, and both run in
/// one transaction. The years are rounded to whole ones, halves to even; their order is not
/// looked at. Sets FichierModifie when rows or the layout changed, except for New. A refusal
/// changes nothing in table and state; `form` gets the old option back when the user cancels the
/// warning. Failures are shown, not thrown.
PeriodsOutcome ValidePeriodes(StoreState& state, Platform& io, PeriodsForm& form);

/// 1 when the boxes of the current mode (that of the state) do not pass, 0 otherwise; shows why
/// and says where the focus goes. The one procedure that compares the two years; OK does not
/// call it.
int VerifPivots(const StoreState& state, Platform& io, const PeriodsForm& form,
                PeriodsFocus& focus);

}  // namespace talpena
