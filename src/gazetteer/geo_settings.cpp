#include "gazetteer/geo_settings.h"

#include <array>
#include <cstddef>

#include "common/text.h"

namespace talpena {
namespace {

using S = SettingsState;

constexpr PerGeoList<std::string S::*> members{
    &S::GeoTable,          &S::GeoResearchField, &S::GeoFullNameField, &S::GeoLatitudeField,
    &S::GeoLongitudeField, &S::GeoFipsField,     &S::GeoProvinceField, &S::GeoFeatureField,
    &S::GeoCountryName,    &S::GeoProvinceName,
};

}  // namespace

std::string& NomGeo(SettingsState& state, GeoList list) {
  return state.*members[static_cast<std::size_t>(list)];
}

PerGeoList<std::string> NomsGeo(const SettingsState& state) {
  PerGeoList<std::string> names;
  for (std::size_t i = 0; i < GeoListCount; ++i) names[i] = state.*members[i];
  return names;
}

void PrendReglages(SettingsState& state, const SetupFile& setup) {
  state.GeoFile = setup.File;
  state.GeoDbType = setup.DbType;
  state.GeoDatum = setup.Datum;
  for (std::size_t i = 0; i < GeoListCount; ++i) state.*members[i] = setup.Noms[i];
}

bool ContientExtension(std::string_view path, std::string_view extension) {
  return Majuscules(path).find(extension) != std::string::npos;
}

std::string ConnectDuFichier(std::string_view path, const std::string& before) {
  if (ContientExtension(path, AccessExtension)) return std::string(Connect::Access);
  for (const FolderFormat& format : FolderFormats) {
    if (ContientExtension(path, format.extension)) return std::string(format.connect);
  }
  return before;
}

std::string ToutesLesLignes(const SettingsState& settings) {
  const std::string& table = settings.GeoTable;
  const bool bracketed = table.size() > 1 && table.front() == '[' && table.back() == ']';
  return "SELECT * FROM " + (bracketed ? table : "[" + table + "]");
}

}  // namespace talpena
