#include "common/paths.h"

#include <filesystem>
#include <system_error>

#include "common/text.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;

fs::path EnChemin(std::string_view utf8) {
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string EnUtf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

bool Existe(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

std::string SeparateursNatifs(std::string_view path) {
  std::string native(path);
  for (char& c : native) {
    if (c == '/' || c == '\\') c = SeparateurChemin();
  }
  return native;
}

/// The entry of a folder that bears a name in any case; the name itself goes first.
std::optional<fs::path> TrouveEntree(const fs::path& folder, const fs::path& name) {
  if (Existe(folder / name)) return folder / name;
  const std::string wanted = Majuscules(EnUtf8(name));
  std::error_code failure;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, failure);
  std::optional<fs::path> found;
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
    const fs::path candidate = entry->path().filename();
    if (Majuscules(EnUtf8(candidate)) != wanted) continue;
    if (!found || candidate < found->filename()) found = folder / candidate;  // one answer always
  }
  return found;
}

}  // namespace

char SeparateurChemin() { return static_cast<char>(fs::path::preferred_separator); }

std::string DossierDe(std::string_view path) {
  const std::size_t last = path.find_last_of("/\\");
  return std::string(path.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

std::string NomDe(std::string_view path) {
  const std::size_t last = path.find_last_of("/\\");
  return std::string(last == std::string_view::npos ? path : path.substr(last + 1));
}

std::string AvecSeparateur(std::string_view folder) {
  std::string out(folder);
  if (!out.empty() && out.back() != '/' && out.back() != '\\') out += SeparateurChemin();
  return out;
}

std::optional<std::string> TrouveChemin(std::string_view path) {
  if (path.empty() || path.find('\0') != std::string_view::npos) return std::nullopt;
  if (Existe(EnChemin(path))) return std::string(path);
  const fs::path native = EnChemin(SeparateursNatifs(path));
  fs::path found = native.root_path();
  for (const fs::path& part : native.relative_path()) {
    if (part.empty() || part == "." || part == "..") {
      found /= part;
      continue;
    }
    const std::optional<fs::path> next = TrouveEntree(found, part);
    if (!next) return std::nullopt;
    found = *next;
  }
  if (!Existe(found)) return std::nullopt;
  return EnUtf8(found);
}

std::string RendNatif(std::string_view path) {
  return TrouveChemin(path).value_or(SeparateursNatifs(path));
}

}  // namespace talpena
