// Number of periods and their pivot years.
#pragma once
#include <cstdint>
#include <string>

#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

/// What the periods dialog shows and the user typed.
struct PeriodsForm {
  int OptionPivot = 0;  ///< 0 one period, 1 two, 2 three
  std::string TxtPivot1;
  std::string TxtPivot21;
  std::string TxtPivot22;
};

/// Where the dialog goes after OK.
enum class PeriodsFocus { None, TxtPivot1, TxtPivot21, TxtPivot22 };
struct PeriodsOutcome {
  bool ferme = false;  ///< the dialog closes
  PeriodsFocus focus = PeriodsFocus::None;
};

/// The form as the dialog opens.
PeriodsForm RempliPeriodes(const StoreState& state);

/// OK. A refusal changes nothing in table and state; `form` gets the old option back when the
/// user cancels the warning.
PeriodsOutcome ValidePeriodes(StoreState& state, Platform& io, PeriodsForm& form);

/// 1 when the boxes of the current mode do not pass, 0 otherwise; shows why and says where the
/// focus goes.
int VerifPivots(const StoreState& state, Platform& io, const PeriodsForm& form,
                PeriodsFocus& focus);

}  // namespace talpena
