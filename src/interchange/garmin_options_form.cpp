#include "interchange/garmin_options_form.h"

#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "interchange/garmin_samples.h"

namespace talpena {
namespace {

std::string Entier(std::int16_t value) { return Str(static_cast<std::int64_t>(value)); }

std::int16_t LitEntier(const std::string& text) {
  if (!EstNumerique(text)) {
    throw TalpenaError(ErrorNumber::TypeMismatch, "\"" + text + "\" is no number",
                       {.about = {text}});
  }
  return Arrondi16(Val(text));
}

/// A line of the file has one digit for it.
std::int16_t LitPeriode(const std::string& text) {
  const std::int16_t period = LitEntier(text);
  if (period >= 0 && period <= 9) return period;
  throw TalpenaError(ErrorNumber::Overflow, "period " + text,
                     {.text = MsgId::PeriodeSansPlace, .about = {text}});
}

/// A place in a column, of which the import makes use or not.
std::int16_t LitPlace(const std::string& text, GarminSource source, std::int16_t before) {
  if (source == GarminSource::Column) return LitEntier(text);
  try {
    return LitEntier(text);
  } catch (const TalpenaError&) {
    return before;
  }
}

}  // namespace

GarminOptionsForm RempliOptionsGarmin(const objGraminImport& options) {
  return {Entier(options.Period),
          {GarminSource{options.DateImport}, DateFixeMontree(options.DateFixed), options.DateField,
           Entier(options.DateBegin), Entier(options.DateLength)},
          {GarminSource{options.AltitudeImport}, options.AltitudeFixed, options.AltitudeField,
           Entier(options.AltitudeBegin), Entier(options.AltitudeLength)}};
}

objGraminImport LitOptionsGarmin(const GarminOptionsForm& form, const objGraminImport& before,
                                 GarminFocus& focus) {
  const auto place = [&focus](const std::string& text, GarminSource source, std::int16_t former,
                              GarminFocus box) {
    focus = box;
    return LitPlace(text, source, former);
  };
  const auto& [period, date, altitude] = form;
  objGraminImport options = before;
  focus = GarminFocus::Period;
  options.Period = LitPeriode(period);
  options.DateImport = static_cast<std::int16_t>(date.source);
  options.DateFixed = DateFixeGardee(date.fixe);
  options.DateField = date.colonne;
  options.DateBegin = place(date.begin, date.source, before.DateBegin, GarminFocus::DateBegin);
  options.DateLength = place(date.length, date.source, before.DateLength, GarminFocus::DateLength);
  options.AltitudeImport = static_cast<std::int16_t>(altitude.source);
  options.AltitudeFixed = altitude.fixe;
  options.AltitudeField = altitude.colonne;
  options.AltitudeBegin =
      place(altitude.begin, altitude.source, before.AltitudeBegin, GarminFocus::AltitudeBegin);
  options.AltitudeLength =
      place(altitude.length, altitude.source, before.AltitudeLength, GarminFocus::AltitudeLength);
  focus = GarminFocus::None;
  return options;
}

}  // namespace talpena
