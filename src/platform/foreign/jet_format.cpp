#include "platform/foreign/jet_format.h"

#include <algorithm>

#include "platform/foreign/jet_reader.h"
#include "platform/foreign/jet_writer.h"

namespace talpena {
namespace {

bool EstAccess(std::string_view connect) {
  return MemeFormat(connect, Connect::Access) || MemeFormat(connect, "MS Access");
}

class FormatJet final : public ForeignFormat {
 public:
  explicit FormatJet(const LimitesJet& limits) : limites_(limits) {
    limites_.colonnes = std::min(limites_.colonnes, LimitesJet{}.colonnes);
  }

  void SuitAttente(const WorkBeat& attente) override { *attente_ = attente; }

  bool Reconnait(const std::string& path, std::string_view connect) override {
    return EstAccess(connect) && EstFichierJet(path);
  }

  std::unique_ptr<ForeignDatabase> Ouvre(const std::string& path) override {
    return OuvreJet(path, limites_, attente_);
  }

  bool EstEcrit(std::string_view connect) const override { return EstAccess(connect); }

  std::unique_ptr<ForeignDatabase> Cree(const std::string& path,
                                        const NewDatabase& settings) override {
    return CreeBaseJet(path, settings, limites_.octetsFichier,
                       [this](const std::string& file) { return Ouvre(file); });
  }

 private:
  LimitesJet limites_;
  std::shared_ptr<WorkBeat> attente_ = std::make_shared<WorkBeat>();
};

}  // namespace

std::unique_ptr<ForeignFormat> CreeFormatJet(const LimitesJet& limits) {
  return std::make_unique<FormatJet>(limits);
}

}  // namespace talpena
