#include "coord_commands/row_walk.h"

#include "common/text.h"
#include "coords/datum.h"
#include "platform/busy.h"
#include "platform/commands.h"

namespace talpena {
namespace {

/// Shows how far a change came.
class ShownWalk final : public RowChange {
 public:
  ShownWalk(RowChange& change, Busy& busy) : change_(change), busy_(busy) {}
  bool Modifie(Bookmark row, std::span<const Cell> given, std::span<Cell> changed) override {
    return change_.Modifie(row, given, changed);
  }
  void Avance(std::int64_t done, std::int64_t total) override { busy_.Avance(done, total); }

 private:
  RowChange& change_;
  Busy& busy_;
};

}  // namespace

void ModifieEnMontrant(CommandContext c, Edition& edition, const RowPass& pass, RowChange& change) {
  Busy busy(c.attente);
  busy.GrilleGelee().Barre();
  ShownWalk walk(change, busy);
  edition.ModifieLignes(pass, walk);
}

void ParcourtLignes(CommandContext c, Edition& edition, const RowPass& pass, RowChange& change) {
  if (!c.document().Data1.EstLie()) return edition.Valide();
  ModifieEnMontrant(c, edition, pass, change);
  edition.Valide();
  Bip(c.state, c.io);
}

void ParcourtLignes(CommandContext c, const std::string& name, const RowPass& pass,
                    RowChange& change) {
  Edition edition(c.document(), name, Edition::Etendue::Entiere);
  ParcourtLignes(c, edition, pass, change);
}

std::int16_t DatumsDesLignes::Indice(std::string_view stored) {
  if (hasLast_ && stored == last_) return lastIndex_;
  std::string code(Rogne(stored));
  if (codes_ == DatumCodes::AnyCase) code = code.empty() ? "WGS84" : Majuscules(code);
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
