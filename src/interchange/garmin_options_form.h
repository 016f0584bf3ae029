// What stands in the controls of frmGarminOptions, and the options that it makes.
#pragma once
#include <string>

#include "interchange/garmin_options.h"

namespace talpena {

/// The half of the date, and that of the altitude.
struct GarminFieldForm {
  GarminSource source = GarminSource::None;
  std::string fixe;     ///< for all rows
  std::string colonne;  ///< caption of the column; "" for none
  std::string begin;    ///< first character, from 1
  std::string length;   ///< characters
};

struct GarminOptionsForm {
  std::string period;
  GarminFieldForm date;  ///< its fixed text is that of the mask
  GarminFieldForm altitude;
};

/// A box that holds no number, or one that it cannot hold.
enum class GarminFocus { None, Period, DateBegin, DateLength, AltitudeBegin, AltitudeLength };

GarminOptionsForm RempliOptionsGarmin(const objGraminImport& options);

/// The form as options. TypeMismatch (13) for a text that is no number and Overflow (6) for one
/// beyond 16 bits and for a period that is no digit, with `focus` on its box; places in a column
/// that is not asked for stay as they are in `before` then.
objGraminImport LitOptionsGarmin(const GarminOptionsForm& form, const objGraminImport& before,
                                 GarminFocus& focus);

}  // namespace talpena
