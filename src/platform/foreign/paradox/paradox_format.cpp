#include "platform/foreign/paradox/paradox_format.h"

#include <memory>
#include <utility>

#include "platform/foreign/paradox/paradox_folder.h"

namespace talpena {
namespace {

bool EstParadox(std::string_view connect) {
  return MemeFormat(connect, Connect::Paradox3) || MemeFormat(connect, Connect::Paradox4);
}

class FormatParadox final : public ForeignFormat {
 public:
  explicit FormatParadox(const ParadoxLimits& limits) : limites_(limits) {}

  bool Reconnait(const std::string& path, std::string_view connect) override {
    return EstParadox(connect) || (connect.empty() && paradox::EstTable(path));
  }
  std::unique_ptr<ForeignDatabase> Ouvre(const std::string& path) override {
    return paradox::OuvreDossier(path, limites_);
  }
  bool EstEcrit(std::string_view connect) const override { return EstParadox(connect); }
  std::unique_ptr<ForeignDatabase> OuvrePourEcrire(const std::string& path) override {
    return paradox::OuvreDossierPourEcrire(path, limites_);
  }

 private:
  ParadoxLimits limites_;
};

}  // namespace

std::unique_ptr<ForeignFormat> CreeFormatParadox(const ParadoxLimits& limits) {
  return std::make_unique<FormatParadox>(limits);
}

}  // namespace talpena
