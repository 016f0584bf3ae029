#include "interchange/database_targets.h"

#include <array>

#include "common/paths.h"
#include "common/talpena_error.h"
#include "platform/foreign_format.h"

namespace talpena {
namespace {

// The file of code pages too: it would tell readers a wrong one.
constexpr std::array<std::string_view, 4> foxProFiles{".dbf", ".fpt", ".dbt", ".cpg"};
constexpr std::array<std::string_view, 4> dBaseFiles{".dbf", ".dbt", ".fpt", ".cpg"};
constexpr std::array<std::string_view, 2> paradoxFiles{".db", ".mb"};

constexpr std::size_t longestExcelText = 255, longestXlsxText = 32767;

// clang-format off
constexpr std::array<DatabaseTarget, 7> targets{{
    {.filter = "Fichiers mdb (*.mdb)|*.mdb", .connect = Connect::Access,
     .place = TargetPlace::NewFile},
    {.filter = "Fichiers dbf (*.dbf)|*.dbf", .connect = Connect::FoxPro25,
     .endings = foxProFiles, .losesEndBlanks = true},
    {.filter = "Fichiers dbf (*.dbf)|*.dbf", .connect = Connect::DBase4,
     .endings = dBaseFiles, .losesEndBlanks = true},
    {.filter = "Fichiers pdx (*.db)|*.db", .connect = Connect::Paradox3,
     .endings = paradoxFiles},
    {.filter = "Fichiers Excel (*.xls)|*.xls", .connect = Connect::Excel5,
     .place = TargetPlace::File, .longestMemo = longestExcelText},
    {.filter = "GeoPackage (*.gpkg)|*.gpkg", .connect = Connect::GeoPackage,
     .place = TargetPlace::NewFile, .style = ColumnStyle::Geographic},
    {.filter = "Excel (*.xlsx)|*.xlsx", .connect = Connect::Excel12,
     .place = TargetPlace::NewFile, .style = ColumnStyle::Headings,
     .longestMemo = longestXlsxText},
}};
// clang-format on

}  // namespace

const DatabaseTarget& CibleBase(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= targets.size()) {
    throw TalpenaError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  }
  return targets[static_cast<std::size_t>(index)];
}

DatabasePlace PlaceDe(const DatabaseTarget& target, std::string_view path) {
  DatabasePlace place{DossierDe(path), NomDe(path), {}};
  place.table = place.file.substr(0, place.file.find('.'));
  if (target.place == TargetPlace::Folder) {
    place.file = place.table + std::string(target.endings.front());
  }
  return place;
}

std::vector<std::string> FichiersRemplaces(const DatabaseTarget& target, const DatabasePlace& place,
                                           FileSystem& files) {
  std::vector<std::string> standing;
  const auto ajoute = [&](const std::string& path) {
    const std::string there = TrouveChemin(path).value_or(path);
    if (files.Existe(there)) standing.push_back(place.folder + NomDe(there));
  };
  if (target.place != TargetPlace::Folder) {
    if (files.Existe(place.Chemin())) standing.push_back(place.Chemin());
    return standing;
  }
  for (const std::string_view ending : target.endings) {
    ajoute(place.folder + place.table + std::string(ending));
  }
  return standing;
}

}  // namespace talpena
