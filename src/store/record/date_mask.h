// DATE in the masked edit: "####/##/##", "_" in the empty places.
#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace talpena {

inline constexpr std::string_view MasqueDateVide = "____/__/__";

/// A stored date in the mask, blanks as "_"; one that is cut short fills its beginning. Empty when
/// the text does not fit the mask ("summer 98").
std::optional<std::string> DateEnMasque(std::string_view date);

/// What is stored for a mask, "_" as blanks; "" for the empty mask.
std::string MasqueEnDate(std::string_view mask);

/// False when the month is beyond 0 to 12 or the day beyond 0 to 31; empty places count 0.
bool EstDateValide(std::string_view mask);

}  // namespace talpena
