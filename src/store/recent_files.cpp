#include "store/recent_files.h"

#include <algorithm>

#include "common/numbers.h"
#include "common/text.h"
#include "store/file_commands.h"

namespace talpena {

void MajLastFiles(SettingsState& settings, const std::string& path) {
  auto& files = settings.LastFiles;
  auto found = std::find_if(files.begin(), files.end(),
                            [&](const std::string& entry) { return EgalSansCasse(entry, path); });
  if (found == files.end()) {
    found = files.end() - 1;
    *found = path;
  }
  std::rotate(files.begin(), found, found + 1);
}

void RetireDernierFichier(SettingsState& settings, const std::string& path) {
  auto& files = settings.LastFiles;
  const auto found = std::find_if(files.begin(), files.end(), [&](const std::string& entry) {
    return EgalSansCasse(Rogne(entry), path);
  });
  if (found == files.end()) return;
  std::rotate(found, found + 1, files.end());
  files.back().clear();
}

std::string LegendeDernierFichier(int index, std::string_view path) {
  return "&" + Str(std::int64_t{index} + 1) + " " + std::string(path);
}

std::string CheminDeLegende(std::string_view caption) {
  constexpr std::size_t head = 3;  // "&1 "
  if (caption.size() <= head) return {};
  return std::string(Rogne(caption.substr(head)));
}

}  // namespace talpena
