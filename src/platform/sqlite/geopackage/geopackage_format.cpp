#include "platform/sqlite/geopackage/geopackage_format.h"

#include <array>
#include <fstream>
#include <string_view>

#include "platform/sqlite/geopackage/geopackage_reader.h"
#include "platform/sqlite/geopackage/geopackage_writer.h"

namespace talpena {
namespace {

using namespace std::literals;

/// Files of SQLite say in their heads whose they are.
bool EstGeoPackage(const std::string& path) {
  constexpr std::size_t headBytes = 72, idPlace = 68;
  std::array<char, headBytes> head{};
  std::ifstream file(path, std::ios::binary);
  if (!file.read(head.data(), head.size())) return false;
  const std::string_view bytes(head.data(), head.size());
  return bytes.starts_with("SQLite format 3\0"sv) && bytes.substr(idPlace) == "GPKG";
}

class FormatGeoPackage final : public ForeignFormat {
 public:
  bool Reconnait(const std::string& path, std::string_view connect) override {
    return EstEcrit(connect) && EstGeoPackage(path);
  }
  std::unique_ptr<ForeignDatabase> Ouvre(const std::string& path) override {
    return sqlite::LitGeoPackage(path);
  }
  bool EstEcrit(std::string_view connect) const override {
    return MemeFormat(connect, Connect::GeoPackage);
  }
  std::unique_ptr<ForeignDatabase> Cree(const std::string& path, const NewDatabase&) override {
    return sqlite::EcritGeoPackage(path);
  }
};

}  // namespace

std::unique_ptr<ForeignFormat> CreeFormatGeoPackage() {
  return std::make_unique<FormatGeoPackage>();
}

}  // namespace talpena
