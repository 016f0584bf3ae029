// What frmGarminOptions shows of the columns that dates and altitudes are taken from.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "interchange/mapsource_reader.h"

namespace talpena {

/// The entry of cmbDateFormat.
inline constexpr std::string_view FormatDateGarmin = "17-APR-02";
/// txtDate while nothing was typed.
inline constexpr std::string_view DateFixeVide = "____/__/__";

/// DetTxtDateExemple and DetTxtAltitudeExemple: the first text of a column, in the order of the
/// list, that is not empty; "" when there is none. Column 0 is the items' own text.
std::string TexteExemple(const MapSourceText& text, const std::vector<WaypointChoice>& items,
                         int column);

/// ExempleDate and ExempleAltitude: the cut that the label shows; empty, and the label stays, when
/// one of the two boxes holds no number or there is no sample.
std::optional<std::string> Exemple(std::string_view begin, std::string_view length,
                                   std::string_view sample);

/// What txtDate shows of DateFixed, and what is kept of what it shows: places that were not filled
/// become blanks, and "" stands for none filled.
std::string DateFixeMontree(std::string_view fixed);
std::string DateFixeGardee(std::string_view shown);

}  // namespace talpena
