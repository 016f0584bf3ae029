// Format: numbers and dates as a picture shows them.
#include "platform/sqlite/dialect/picture.h"

#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

using sqlite::EstImageDeDate;
using sqlite::FormateDate;
using sqlite::FormateNombre;

struct NumberCase {
  double value;
  const char* picture;
  const char* shown;
};

// What Format of the Office programs gives with the signs of US English.
// clang-format off
constexpr NumberCase numberCases[] = {
    {3.14159, "0.00", "3.14"},        {-3.14159, "0.00", "-3.14"},     {0.5, "0", "1"},
    {1.5, "0", "2"},                  {2.5, "0", "3"},                 {-2.5, "0", "-3"},
    {2.675, "0.00", "2.68"},          {1.005, "0.00", "1.01"},         {0.001, "0.00", "0.00"},
    {-0.001, "0.00", "0.00"},         {0, "#", ""},                    {0, "#.##", "."},
    {0.5, "#.##", ".5"},              {5, "0.##", "5."},               {7, "000", "007"},
    {1234, "0", "1234"},              {1234567.891, "#,##0.00", "1,234,567.89"},
    {999, "#,##0", "999"},            {12, "0,000", "0,012"},          {1234567, "#,##0,", "1,235"},
    {1234567, "0,,.0", "1.2"},        {0.256, "0%", "26%"},            {0.256, "0.0%", "25.6%"},
    {12345, "0.00E+00", "1.23E+04"},  {0.00012345, "0.00E-00", "1.23E-04"},
    {99999, "0.0E+0", "1.0E+5"},      {0, "0.00E+00", "0.00E+00"},     {12345, "0.0E-0", "1.2E4"},
    {5, "0;(0)", "5"},                {-5, "0;(0)", "(5)"},            {0, "0;(0);\"none\"", "none"},
    {-5, "0;;\"none\"", "-5"},        {5, "\"n = \"0", "n = 5"},       {5, "\\0 0", "0 5"},
    {5, "$0.00", "$5.00"}, {5, "0 Km", "5 Km"}, {5, "0.0e+0", "5.0E+0"},            {320012345, "000-000-000", "320-012-345"},
    {9.999, "0.00", "10.00"},         {0.999, "0.00", "1.00"},         {99.5, "0", "100"},
    {.5, ".00", ".50"},               {12.5, ".00", "12.50"},          {1e20, "0", "100000000000000000000"},
    {1e-300, "0.0", "0.0"},           {3, "Fixed", "3.00"},            {1234.5, "standard", "1,234.50"},
    {1234.5, "Currency", "1,234.50"}, {0.5, "Percent", "50.00%"},      {1234.5, "Scientific", "1.23E+03"},
    {-1, "Yes/No", "Yes"},            {0, "Yes/No", "No"},             {1, "True/False", "True"},
    {0, "On/Off", "Off"},             {1.5, "General Number", "1.5"},  {1.5, "", "1.5"},
};

struct DateCase {
  double days;
  const char* picture;
  const char* shown;
};

constexpr double mayDay = 31909;  // Tuesday, 12 May 1987

constexpr DateCase dateCases[] = {
    {mayDay, "dd/mm/yyyy", "12/05/1987"},        {mayDay, "d.m.yy", "12.5.87"},
    {mayDay, "yyyy-mm-dd", "1987-05-12"},        {mayDay, "ddd d mmm yyyy", "Tue 12 May 1987"},
    {mayDay, "dddd, mmmm d", "Tuesday, May 12"}, {mayDay, "Medium Date", "12-May-87"},
    {mayDay, "short date", "1987/05/12"},        {mayDay, "Long Date", "Tuesday, May 12, 1987"},
    {mayDay, "q", "2"}, {mayDay, "DD/MM/YYYY", "12/05/1987"}, {mayDay, "d \"Mai\" yyyy", "12 Mai 1987"},                          {mayDay, "w", "3"},
    {mayDay, "ww", "20"},                        {mayDay, "y", "132"},
    {mayDay, "\"on\" d", "on 12"},               {mayDay, "\\d d", "d 12"},
    {mayDay, "c", "1987/05/12"},                 {mayDay + .75, "General Date", "1987/05/12 18:00:00"},
    {mayDay + .75, "hh:nn", "18:00"},            {mayDay + .75, "h:nn AM/PM", "6:00 PM"},
    {mayDay + .25, "h a/p", "6 a"},              {mayDay, "hh:mm am/pm", "12:00 am"},
    {mayDay + .51, "hh:mm:ss", "12:14:24"},      {mayDay + .51, "ttttt", "12:14:24"},
    {mayDay + .75, "Medium Time", "06:00 PM"},   {mayDay + .75, "Short Time", "18:00"},
    {mayDay + .9999999, "c", "1987/05/13"},      {0, "dddd yyyy", "Saturday 1899"},
    {-1, "ddd d/m/yyyy", "Fri 29/12/1899"},      {36525, "ddd y ww", "Fri 365 53"},
};
// clang-format on

TEST(Picture, ShowsNumbers) {
  for (const NumberCase& c : numberCases) {
    EXPECT_EQ(FormateNombre(c.value, c.picture), c.shown) << c.value << ' ' << c.picture;
  }
}

TEST(Picture, ShowsDates) {
  for (const DateCase& c : dateCases) {
    EXPECT_EQ(FormateDate(c.days, c.picture), c.shown) << c.days << ' ' << c.picture;
  }
}

TEST(Picture, DatesAreToldFromNumbers) {
  for (const char* date : {"dd/mm/yyyy", "Short Date", "hh:nn", "c", "medium time"}) {
    EXPECT_TRUE(EstImageDeDate(date)) << date;
  }
  for (const char* number : {"0.00", "#,##0", "Fixed", "0.0E+00", "\"dd\"", "", ">"}) {
    EXPECT_FALSE(EstImageDeDate(number)) << number;
  }
}

}  // namespace
}  // namespace talpena::enginetest
