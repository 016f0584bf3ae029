#include "coord_commands/row_walk.h"

#include <algorithm>

#include "common/text.h"
#include "coords/datum.h"
#include "platform/commands.h"

namespace talpena {
namespace {

/// Notes whether any row was changed, also when the walk ends by a failure.
class Compte final : public RowChange {
 public:
  Compte(RowWalk& change, bool& modified) : change_(change), modified_(modified) {}
  bool Modifie(Bookmark row, std::span<const Cell> given, std::span<Cell> changed) override {
    const bool changes = change_.Modifie(row, given, changed);
    modified_ = modified_ || changes;
    return changes;
  }
  void Avance(std::int64_t done, std::int64_t total) override { change_.Avance(done, total); }

 private:
  RowChange& change_;
  bool& modified_;
};

}  // namespace

void ParcourtLignes(CommandContext c, const RowPass& pass, RowWalk& change) {
  if (!c.state.Data1.EstLie()) return;
  {
    const Occupe occupe(c);
    Compte compte(change, c.state.FichierModifie);
    c.state.Data1.Clone()->ModifieLignes(pass, compte);
  }
  Bip(c.state, c.io);
}

std::int16_t DatumsDesLignes::Indice(std::string_view stored) {
  if (hasLast_ && stored == last_) return lastIndex_;
  std::string code = Majuscules(Rogne(stored));
  if (code.empty()) code = "WGS84";
  auto found = known_.find(code);
  if (found == known_.end()) {
    found = known_.emplace(code, ChercheDatum(catalogue_, code)).first;
    if (found->second == 0) unknown_.push_back(code);
  }
  last_ = stored;
  hasLast_ = true;
  return lastIndex_ = found->second;
}

}  // namespace talpena
