#include "interchange/database_targets.h"

#include <array>
#include <utility>

#include "common/msg_id_export.h"
#include "common/paths.h"
#include "common/talpena_error.h"
#include "platform/foreign_format.h"

namespace talpena {
namespace {

// The file of code pages too: it would tell readers a wrong one.
constexpr std::array<std::string_view, 4> foxProFiles{".dbf", ".fpt", ".dbt", ".cpg"};
constexpr std::array<std::string_view, 4> dBaseFiles{".dbf", ".dbt", ".fpt", ".cpg"};
constexpr std::array<std::string_view, 2> paradoxFiles{".db", ".mb"};
constexpr std::array<std::string_view, 3> sqliteJournals{"-wal", "-shm", "-journal"};

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
     .place = TargetPlace::NewFile, .style = ColumnStyle::Geographic,
     .journals = sqliteJournals},
    {.filter = "Excel (*.xlsx)|*.xlsx", .connect = Connect::Excel12,
     .place = TargetPlace::NewFile, .style = ColumnStyle::Headings,
     .longestMemo = longestXlsxText},
}};
// clang-format on

TalpenaError EnUsage(const std::string& path, ErrorWords words) {
  return {ErrorNumber::FileInUse, "Could not use '" + path + "'; file already in use.",
          std::move(words)};
}

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

void VerifieSansUsager(const DatabaseTarget& target, const DatabasePlace& place,
                       FileSystem& files) {
  for (const std::string_view ending : target.journals) {
    const std::string journal = files.SansLiens(place.Chemin()) + std::string(ending);
    if (!files.Existe(journal)) continue;
    throw EnUsage(place.Chemin(), {.text = MsgId::JournalACote, .about = {journal}});
  }
  for (const std::string& path : FichiersRemplaces(target, place, files)) {
    if (files.EstVerrouille(path)) throw EnUsage(path, {.about = {path}});
  }
}

}  // namespace talpena
