#include "platform/sqlite/kept_copies.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view copyExtension = ".copy";
constexpr std::string_view newExtension = ".new";

fs::path EnChemin(const std::string& utf8) {
  return fs::path(reinterpret_cast<const char8_t*>(utf8.c_str()));
}

std::string EnUtf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

/// FNV-1a of a text behind a seed.
std::uint64_t Empreinte(std::string_view text, std::uint64_t seed) {
  std::uint64_t hash = 0xcbf29ce484222325U ^ seed;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
  return hash;
}

std::string EnHexadecimal(std::uint64_t number) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (int shift = 60; shift >= 0; shift -= 4) text += digits[number >> shift & 15U];
  return text;
}

/// The stamp itself stands in the copy: two of one name do not pass for one another.
std::string NomDeCopie(const KeptTable& kept) {
  return EnHexadecimal(Empreinte(kept.stamp, 0)) + EnHexadecimal(Empreinte(kept.stamp, 1));
}

struct Copy {
  fs::path path;
  std::int64_t size = 0;
  fs::file_time_type read;
};

/// All copies, the youngest first. What a killed program left a day ago is taken away.
std::vector<Copy> Copies(const fs::path& folder) {
  constexpr auto abandoned = std::chrono::hours(24);
  std::vector<Copy> copies;
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    std::error_code gone;
    const fs::path& path = entry->path();
    const auto read = entry->last_write_time(gone);
    if (gone) continue;
    if (path.extension() == copyExtension) {
      copies.push_back({path, static_cast<std::int64_t>(entry->file_size(gone)), read});
    } else if (EnUtf8(path.filename()).find(newExtension) != std::string::npos &&
               fs::file_time_type::clock::now() - read > abandoned) {
      fs::remove(path, gone);
    }
  }
  std::sort(copies.begin(), copies.end(),
            [](const Copy& a, const Copy& b) { return a.read > b.read; });
  return copies;
}

void Limite(const KeptTable& kept) {
  std::int64_t bytes = 0;
  for (const Copy& copy : Copies(EnChemin(kept.folder))) {
    bytes += copy.size;
    if (bytes > kept.most) OteCopie(EnUtf8(copy.path));
  }
}

}  // namespace

std::string CheminCopie(const KeptTable& kept) {
  return EnUtf8(EnChemin(kept.folder) / (NomDeCopie(kept) + std::string(copyExtension)));
}

std::string CheminNouvelleCopie(const KeptTable& kept) {
  const fs::path folder = EnChemin(kept.folder);
  std::error_code failed;
  fs::create_directories(folder, failed);
  if (!failed) fs::permissions(folder, fs::perms::owner_all, fs::perm_options::replace, failed);
  if (failed || !fs::is_directory(folder, failed)) throw AccesRefuse(kept.folder);
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  return EnUtf8(folder /
                (NomDeCopie(kept) + "." + std::to_string(now) + std::string(newExtension)));
}

bool PlaceCopie(const KeptTable& kept, const std::string& made) {
  const std::string copy = CheminCopie(kept);
  std::error_code failed;
  fs::rename(EnChemin(made), EnChemin(copy), failed);
  if (failed) return false;
  NoteLecture(copy);
  Limite(kept);
  return true;
}

void NoteLecture(const std::string& copy) {
  std::error_code ignored;
  fs::last_write_time(EnChemin(copy), fs::file_time_type::clock::now(), ignored);
}

void OteCopie(const std::string& copy) {
  for (const char* suffix : {"", "-journal"}) {
    std::error_code ignored;
    fs::remove(EnChemin(copy + suffix), ignored);
  }
}

}  // namespace talpena::sqlite
