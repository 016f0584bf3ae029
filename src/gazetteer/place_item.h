// One place as the list shows it.
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "gazetteer/gazetteer_settings.h"
#include "platform/settings_state.h"
#include "platform/table_engine.h"

namespace talpena {

/// The item's text and its sub-items 1 to 9.
enum class PlaceColumn : std::uint8_t {
  Name,
  Fips,
  Country,
  Province,
  Feature,
  LatitudeDms,
  LongitudeDms,
  Latitude,
  Longitude,
  Font
};

struct PlaceColumnTitle {
  std::string_view caption;
  std::string_view key;
};

/// The same in every language, in the order of PlaceColumn.
inline constexpr std::array<PlaceColumnTitle, PlaceColumnCount> TitresDesLieux{{
    {"Name", "Name"},
    {"FIPS", "FIPS"},
    {"Country", "Cntry"},
    {"Prov", "Prov"},
    {"Feature", "DESI"},
    {"LatDMS", "LatDMS"},
    {"LonDMS", "LonDMS"},
    {"Latitude", "Lati"},
    {"Longitude", "Longi"},
    {"L_Code", "L_Code"},
}};

/// The small pictures of a place; "" for none.
namespace PlaceIcon {
inline constexpr std::string_view Stream = "STM";
inline constexpr std::string_view Mountain = "MT";
inline constexpr std::string_view Populated = "PPL";
inline constexpr std::string_view Forest = "FRST";
inline constexpr std::string_view Farm = "FRM";
}  // namespace PlaceIcon

/// The key of the picture for a feature code, in any letter case and with blanks around it.
std::string_view IconeDe(std::string_view feature);

struct PlaceItem {
  std::array<std::string, PlaceColumnCount> texts;
  std::string_view icon;

  const std::string& Texte(PlaceColumn c) const { return texts[static_cast<std::size_t>(c)]; }
  std::string& Texte(PlaceColumn c) { return texts[static_cast<std::size_t>(c)]; }
};

/// Where the settings' fields stand in the rows of a table; -1 for a field that is not set.
struct PlaceFields {
  int name = -1;
  int latitude = -1;
  int longitude = -1;
  int fips = -1;
  int province = -1;
  int feature = -1;
  int country = -1;
  int provinceName = -1;
  std::int16_t coordType = 0;
};

/// ItemNotFound (3265) for a field that the table lacks.
PlaceFields ChampsDesLieux(const SettingsState& settings, const Recordset& rows);

/// Never fails, whatever the row holds: a coordinate that is Null, blank or beyond all numbers
/// leaves its columns empty.
PlaceItem FaitItem(const PlaceFields& fields, std::span<const Cell> row);

/// The name alone: cut, without tags, trimmed.
std::string NomDuLieu(const PlaceFields& fields, std::span<const Cell> row);

/// A coordinate as the list shows it: degrees, minutes, seconds and a letter, which has the sign.
/// @param type  of the stored value: 0 DDMMSS, 1 decimal degrees; "" for any other
/// @param letters  for a positive and a negative value
std::string TexteDmsDuLieu(double value, std::int16_t type, std::string_view letters);

}  // namespace talpena
