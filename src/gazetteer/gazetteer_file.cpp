#include "gazetteer/gazetteer_file.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>
#include <vector>

#include "common/paths.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign_format.h"

namespace talpena {
namespace {

constexpr std::string_view DefaultName = "tlpgazet.mdb";

/// The files that a table of a folder is made of.
struct FolderTable {
  std::string_view connect;
  std::array<std::string_view, 3> extensions;
};
constexpr std::array folderTables{
    FolderTable{Connect::DBase4, {".dbf", ".dbt", ".fpt"}},
    FolderTable{Connect::FoxPro25, {".dbf", ".dbt", ".fpt"}},
    FolderTable{Connect::Paradox3, {".db", ".mb", ".mb"}},
    FolderTable{Connect::Paradox4, {".db", ".mb", ".mb"}},
};

const FolderTable* FormatDeDossier(std::string_view connect) {
  const auto found = std::find_if(folderTables.begin(), folderTables.end(),
                                  [&](const auto& t) { return MemeFormat(t.connect, connect); });
  return found == folderTables.end() ? nullptr : &*found;
}

bool FinitPar(std::string_view path, std::string_view extension) {
  return path.size() > extension.size() &&
         EgalSansCasse(path.substr(path.size() - extension.size()), extension);
}

/// A folder without the separator behind it, but for a root.
std::string SansSeparateur(std::string folder) {
  if (folder.size() > 1 && folder[folder.size() - 2] != ':') folder.pop_back();
  return folder;
}

std::string Empreinte(FileSystem& files, const std::string& path) {
  const auto stamp = files.Empreinte(path);
  if (!stamp) return {};
  return path + '|' + std::to_string(stamp->size) + '|' + std::to_string(stamp->modifiedNs) + '|' +
         std::to_string(stamp->identity) + '\n';
}

std::string EmpreinteTable(FileSystem& files, const std::string& folder, const std::string& table,
                           const FolderTable& format) {
  std::string stamps;
  for (const std::string_view extension : format.extensions) {
    const auto path = TrouveChemin(AvecSeparateur(folder) + table + std::string(extension));
    if (path) stamps += Empreinte(files, *path);
  }
  return stamps;
}

}  // namespace

std::optional<std::string> GazetierFourni(const SharedState& state, Platform& io) {
  const bool first = state.GeoFile == io.environment.LecteurCD() + std::string(DefaultName);
  if (!first || TrouveChemin(state.GeoFile)) return {};
  return TrouveChemin(AvecSeparateur(state.AppDir) + std::string(DefaultName));
}

std::string FichierGazetier(const SharedState& state, Platform& io) {
  const std::string& file = state.GeoFile;
  if (const FolderTable* format = FormatDeDossier(state.GeoDbType);
      format != nullptr && FinitPar(file, format->extensions[0])) {
    return RendNatif(SansSeparateur(DossierDe(file)));
  }
  return GazetierFourni(state, io).value_or(RendNatif(file));
}

std::string EmpreinteGazetier(const SharedState& state, FileSystem& files,
                              const std::string& path) {
  const FolderTable* format = FormatDeDossier(state.GeoDbType);
  const std::string stamp = format == nullptr
                                ? Empreinte(files, path)
                                : EmpreinteTable(files, path, state.GeoTable, *format);
  if (stamp.empty()) return {};
  return stamp + state.GeoDbType + '\n' + state.GeoTable + '\n' + state.GeoResearchField;
}

Database& OpenGazetteer::Ouvre(const SharedState& state, Platform& io) {
  const std::string path = FichierGazetier(state, io);
  const std::string stamp = EmpreinteGazetier(state, io.files, path);
  if (base_ != nullptr && !stamp.empty() && stamp == stamp_) return *base_;
  Ferme();
  const std::string folder = stamp.empty() ? std::string() : DossierDesCopies(io);
  base_ = folder.empty() ? io.engine.OpenDatabase(path, true, state.GeoDbType)
                         : io.engine.OpenKept(path, state.GeoDbType,
                                              {.folder = folder,
                                               .stamp = stamp,
                                               .table = state.GeoTable,
                                               .field = state.GeoResearchField});
  stamp_ = stamp;
  return *base_;
}

std::string OpenGazetteer::DossierDesCopies(Platform& io) const {
  if (withoutCopy_) return {};
  try {
    return io.environment.DossierPrive() + SeparateurChemin() + "gazetteer";
  } catch (const TalpenaError&) {  // the table is read at each opening
    return {};
  }
}

/// True when the failure is that of a copy, which is out of the way now.
bool OpenGazetteer::Recommence(const TalpenaError& error) {
  const int number = error.number();
  const bool noRoom = number == ErrorNumber::DiskFull || number == ErrorNumber::DeviceFault;
  if (number != ErrorNumber::UnrecognizedFormat && (!noRoom || withoutCopy_)) return false;
  Ferme();
  withoutCopy_ = withoutCopy_ || noRoom;
  return true;
}

void OpenGazetteer::Ferme() {
  base_.reset();
  stamp_.clear();
}

}  // namespace talpena
