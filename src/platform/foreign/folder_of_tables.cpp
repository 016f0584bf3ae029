#include "platform/foreign/folder_of_tables.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;

fs::path Chemin(const std::string& utf8) {
  return fs::path(reinterpret_cast<const char8_t*>(utf8.c_str()));
}

std::string Texte(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {reinterpret_cast<const char*>(text.data()), text.size()};
}

/// Pipes and devices are no tables.
bool EstFichier(const std::string& path) {
  std::error_code ignored;
  return fs::is_regular_file(Chemin(path), ignored);
}

/// A name without an ending, if it has this one.
std::optional<std::string_view> SansFin(std::string_view name, std::string_view extension) {
  if (name.size() <= extension.size()) return {};
  const std::size_t length = name.size() - extension.size();
  if (!EgalSansCasse(name.substr(length), extension)) return {};
  return name.substr(0, length);
}

std::string_view SansFin(std::string_view name) {
  const std::size_t point = name.rfind('.');
  return point == std::string_view::npos || point == 0 ? name : name.substr(0, point);
}

/// What is in a folder, in the order of the names. A name that is no UTF-8 is left out.
std::vector<std::string> Noms(const std::string& folder, std::error_code& failed) {
  std::vector<std::string> names;
  fs::directory_iterator entry(Chemin(folder), failed);
  while (!failed && entry != fs::directory_iterator()) {
    std::string name = Texte(entry->path().filename());
    if (EstUtf8(name)) names.push_back(std::move(name));
    entry.increment(failed);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> NomsExiges(const std::string& folder) {
  std::error_code failed;
  std::vector<std::string> names = Noms(folder, failed);
  if (failed == std::errc::permission_denied) {
    throw TalpenaError(ErrorNumber::PermissionDenied, "Permission denied: '" + folder + "'.",
                       {.about = {folder}});
  }
  if (failed) {
    throw TalpenaError(ErrorNumber::DatabaseNotFound, "Could not find file '" + folder + "'.",
                       {.about = {folder}});
  }
  return names;
}

std::string DossierDuFichier(const std::string& path) {
  const fs::path folder = Chemin(path).parent_path();
  return folder.empty() ? "." : Texte(folder);
}

std::string NomDuFichier(const std::string& path) { return Texte(Chemin(path).filename()); }

std::string Dans(const std::string& folder, std::string_view name) {
  return Texte(Chemin(folder) / Chemin(std::string(name)));
}

}  // namespace

void VerifieNomDeTable(const std::string& name) {
  const bool refused = name.empty() || name.front() == ' ' || !EstUtf8(name) ||
                       std::ranges::any_of(name, [](char c) {
                         return static_cast<unsigned char>(c) < ' ' || c == '/' || c == '\\';
                       });
  if (!refused) return;
  throw TalpenaError(ErrorNumber::InvalidName, "'" + name + "' is not a valid name of a table.",
                     {.text = MsgId::EchecNomDeFichier, .about = {name}});
}

FolderOfTables::FolderOfTables(const std::string& path, std::string_view extension)
    : extension_(extension) {
  std::error_code ignored;
  if (fs::is_directory(Chemin(path), ignored)) {
    folder_ = path;
  } else {
    folder_ = DossierDuFichier(path);
    named_ = path;
  }
}

std::vector<TableFile> FolderOfTables::Tables() const {
  if (!named_.empty()) {
    const std::string name = NomDuFichier(named_);
    return {{std::string(SansFin(name)), named_}};
  }
  std::vector<TableFile> tables;
  std::set<std::string> seen;
  for (const std::string& name : NomsExiges(folder_)) {
    const auto table = SansFin(name, extension_);
    const std::string path = Dans(folder_, name);
    if (!table || !EstFichier(path) || !seen.insert(Minuscules(*table)).second) continue;
    tables.push_back({std::string(*table), path});
  }
  return tables;
}

std::optional<std::string> FolderOfTables::FichierDe(std::string_view table) const {
  for (const std::string& name : NomsExiges(folder_)) {
    const auto found = SansFin(name, extension_);
    if (found && EgalSansCasse(*found, table)) return Dans(folder_, name);
  }
  return {};
}

std::string FolderOfTables::Place(std::string_view table, std::string_view extension) const {
  return Dans(folder_, std::string(table) + std::string(extension));
}

std::optional<std::string> FichierVoisin(const std::string& path, std::string_view extension) {
  const std::string folder = DossierDuFichier(path);
  const std::string name = NomDuFichier(path);
  const std::string_view stem = SansFin(name);
  for (const std::string& end : {Minuscules(extension), Majuscules(extension)}) {
    std::string exact = Dans(folder, std::string(stem) + end);
    if (EstFichier(exact)) return exact;
  }
  std::error_code ignored;
  for (const std::string& other : Noms(folder, ignored)) {
    const auto found = SansFin(other, extension);
    if (!found || !EgalSansCasse(*found, stem)) continue;
    std::string beside = Dans(folder, other);
    if (EstFichier(beside)) return beside;
  }
  return {};
}

}  // namespace talpena
