#include "interchange/garmin_options_form.h"

#include <gtest/gtest.h>

#include "common/error_words.h"
#include "common/numbers.h"
#include "common/talpena_error.h"

namespace talpena {
namespace {

objGraminImport Exemple() {
  objGraminImport options;
  options.Period = 3;
  options.DateImport = 2;
  options.DateFixed = "1998/07/14";
  options.DateBegin = 2;
  options.DateLength = 9;
  options.DateField = "Description";
  options.AltitudeImport = 1;
  options.AltitudeFixed = "120";
  options.AltitudeBegin = 4;
  options.AltitudeLength = 5;
  options.AltitudeField = "Altitude";
  return options;
}

TEST(GarminOptionsForm, ShowsEveryOptionAndTakesItBack) {
  const objGraminImport options = Exemple();
  const GarminOptionsForm form = RempliOptionsGarmin(options);
  EXPECT_EQ(form.period, "3");
  EXPECT_EQ(form.date.source, GarminSource::Column);
  EXPECT_EQ(form.date.fixe, "1998/07/14");
  EXPECT_EQ(form.date.begin, "2");
  EXPECT_EQ(form.altitude.source, GarminSource::Fixed);
  EXPECT_EQ(form.altitude.length, "5");
  GarminFocus focus = GarminFocus::Period;
  EXPECT_EQ(LitOptionsGarmin(form, {}, focus), options);
  EXPECT_EQ(focus, GarminFocus::None);
}

TEST(GarminOptionsForm, ShowsTheMaskWhereNoDateIsFixed) {
  EXPECT_EQ(RempliOptionsGarmin({}).date.fixe, "____/__/__");
}

TEST(GarminOptionsForm, KeepsBlanksForPlacesThatWereNotFilled) {
  GarminFocus focus{};
  GarminOptionsForm form = RempliOptionsGarmin({});
  EXPECT_EQ(LitOptionsGarmin(form, {}, focus).DateFixed, "") << "nothing was typed";
  form.date.fixe = "1998/__/__";
  EXPECT_EQ(LitOptionsGarmin(form, {}, focus).DateFixed, "1998/  /  ");
}

// clang-format off
struct RefusedCase { const char* name; std::string GarminOptionsForm::*period; std::string GarminFieldForm::*date; std::string GarminFieldForm::*altitude; GarminFocus focus; };
const RefusedCase refusedCases[] = {
    {"period", &GarminOptionsForm::period, nullptr, nullptr, GarminFocus::Period},
    {"first character of the date", nullptr, &GarminFieldForm::begin, nullptr, GarminFocus::DateBegin},
    {"length of the date", nullptr, &GarminFieldForm::length, nullptr, GarminFocus::DateLength},
    {"first character of the altitude", nullptr, nullptr, &GarminFieldForm::begin, GarminFocus::AltitudeBegin},
    {"length of the altitude", nullptr, nullptr, &GarminFieldForm::length, GarminFocus::AltitudeLength},
};
// clang-format on

TEST(GarminOptionsForm, NamesTheBoxThatHoldsNoNumberOfSixteenBits) {
  for (const RefusedCase& c : refusedCases) {
    for (const auto& [text, number] :
         {std::pair{"", ErrorNumber::TypeMismatch}, std::pair{"two", ErrorNumber::TypeMismatch},
          std::pair{"40000", ErrorNumber::Overflow}}) {
      SCOPED_TRACE(std::string(c.name) + ": " + text);
      GarminOptionsForm form = RempliOptionsGarmin(Exemple());
      form.altitude.source = GarminSource::Column;
      if (c.period != nullptr) form.*c.period = text;
      if (c.date != nullptr) form.date.*c.date = text;
      if (c.altitude != nullptr) form.altitude.*c.altitude = text;
      GarminFocus focus = GarminFocus::None;
      try {
        LitOptionsGarmin(form, Exemple(), focus);
        ADD_FAILURE() << "it was taken";
      } catch (const TalpenaError& e) {
        EXPECT_EQ(e.number(), number);
        EXPECT_EQ(focus, c.focus);
      }
    }
  }
}

TEST(GarminOptionsForm, PlacesThatNobodyAsksForMayHoldAnything) {
  GarminOptionsForm form = RempliOptionsGarmin(Exemple());
  form.altitude.begin = "somewhere";  // the altitude is the same for all
  GarminFocus focus{};
  EXPECT_EQ(LitOptionsGarmin(form, Exemple(), focus).AltitudeBegin, 4);
}

TEST(GarminOptionsForm, TakesPeriodsThatALineOfTheFileHasRoomFor) {
  GarminFocus focus{};
  GarminOptionsForm form = RempliOptionsGarmin({});
  for (const char* digit : {"0", "9"}) {
    form.period = digit;
    EXPECT_EQ(Str(std::int64_t{LitOptionsGarmin(form, {}, focus).Period}), digit);
  }
  for (const char* period : {"10", "-1"}) {
    form.period = period;
    try {
      LitOptionsGarmin(form, {}, focus);
      ADD_FAILURE() << "it was taken";
    } catch (const TalpenaError& e) {
      EXPECT_EQ(DescriptionErreur(1000, e),
                std::string("The period “") + period +
                    "” has no room in a line of the file, which takes one digit; write a number "
                    "from 0 to 9.");
      EXPECT_EQ(focus, GarminFocus::Period);
    }
  }
}

}  // namespace
}  // namespace talpena
