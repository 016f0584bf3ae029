#include "interchange/export_lines.h"

#include <array>
#include <cmath>

#include "common/decimal_columns.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "interchange/export_options.h"
#include "store/deg_line_writer.h"
#include "store/row_failures.h"
#include "store/table.h"

namespace talpena {
namespace {

constexpr std::array<ExportTexts, 4> textsOfModes{{
    {"", "", "", ""},
    {"", "", "", ","},
    {"", "", "", "\t"},
    {"", "", "", " "},
}};

enum class Kind : std::uint8_t { Period, Latitude, Longitude, Number, Text };

struct ExportColumn {
  std::int16_t SettingsState::*flag;
  std::string_view word;  ///< of the header
  int field;              ///< of the table
  std::string_view name;  ///< of the field
  Kind kind;
};

/// The columns in the order of the file, behind X and Y.
// clang-format off
constexpr std::array<ExportColumn, 10> columns{{
    {&SettingsState::ExportPeriod,        "Periode",    Column::PERIOD,    "PERIOD",    Kind::Period},
    {&SettingsState::ExportLatitude,      "Latitude",   Column::LATITUDE,  "LATITUDE",  Kind::Latitude},
    {&SettingsState::ExportLongitude,     "Longitude",  Column::LONGITUDE, "LONGITUDE", Kind::Longitude},
    {&SettingsState::ExportNumber1,       "N1",         Column::N1,        "N1",        Kind::Number},
    {&SettingsState::ExportNumber2,       "N2",         Column::N2,        "N2",        Kind::Number},
    {&SettingsState::ExportEllipsoid,     "Datum",      Column::DATUM,     "DATUM",     Kind::Text},
    {&SettingsState::ExportOriginalCoord, "Coord_Orig", Column::ORIGINAL,  "ORIGINAL",  Kind::Text},
    {&SettingsState::ExportDate,          "Date",       Column::DATE,      "DATE",      Kind::Text},
    {&SettingsState::ExportSex,           "Sex",        Column::SEX,       "SEX",       Kind::Text},
    {&SettingsState::ExportFreeField,     "Comment",    Column::COMMENT,   "COMMENT",   Kind::Text},
}};
// clang-format on

constexpr DegreeColumns latitudeColumns{"+00.00000;-00.00000", 2};
constexpr DegreeColumns longitudeColumns{"+000.00000;-000.00000", 3};
constexpr std::size_t numberPlaces = 5;

float Simple(const Cell& cell) { return static_cast<float>(cell.Nombre()); }

/// Adds a value; the characters that the code page lacks come back, "" for none.
std::string AjouteValeur(std::string& bytes, Kind kind, const Cell& cell) {
  switch (kind) {
    case Kind::Period:
      AjouteEntier(bytes, static_cast<std::int64_t>(cell.Nombre()));
      break;
    case Kind::Latitude:
      AjouteDegres(bytes, std::fabs(Simple(cell)), latitudeColumns);
      break;
    case Kind::Longitude:
      AjouteDegres(bytes, Simple(cell), longitudeColumns);
      break;
    case Kind::Number:  // as a float: above 2^24 not every number can be written
      AjouteEntier(bytes, static_cast<std::int64_t>(Simple(cell)), numberPlaces);
      break;
    case Kind::Text:
      return AjouteCp1252(bytes, cell.text);
  }
  return {};
}

}  // namespace

const ExportTexts& TextesDuMode(int mode) {
  if (mode < 0 || mode >= static_cast<int>(textsOfModes.size())) {
    throw TalpenaError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  }
  return textsOfModes[static_cast<std::size_t>(mode)];
}

void ExportLines::AjouteEnTete(std::string& bytes) const {
  const std::string separator(texts_.separateur);
  if (ExporteXY(settings_)) bytes += "X" + separator + "Y";
  for (const ExportColumn& column : columns) {
    if (settings_.*column.flag == 0) continue;
    bytes += separator;
    bytes += column.word;
  }
  bytes += "\r\n";
}

void ExportLines::Verifie(std::span<const Cell> cells, std::int64_t row) {
  for (const ExportColumn& column : columns) {
    const bool null = cells[static_cast<std::size_t>(column.field)].EstNull();
    if (null && column.field != Column::SEX) throw RangeeSansValeur(row, column.name);
  }
}

void ExportLines::AjouteLigne(std::string& bytes, std::span<const Cell> cells, std::int64_t row,
                              const std::optional<LambertPoint>& point) const {
  bool first = true;
  const auto champ = [&](auto&& ajouteValeur) {
    bytes += first ? texts_.premier : texts_.separateur;
    first = false;
    bytes += texts_.avant;
    ajouteValeur();
    bytes += texts_.apres;
  };
  if (point) {
    champ([&] { AjouteEntier(bytes, point->x); });
    champ([&] { AjouteEntier(bytes, point->y); });
  }
  for (const ExportColumn& column : columns) {
    if (settings_.*column.flag == 0) continue;
    champ([&] {
      const Cell& cell = cells[static_cast<std::size_t>(column.field)];
      const std::string lacking = AjouteValeur(bytes, column.kind, cell);
      if (!lacking.empty()) throw RangeeHorsPage(row, column.name, lacking);
    });
  }
  bytes += "\r\n";
}

}  // namespace talpena
