#include "maps/options_dialog.h"

#include <algorithm>

#include "common/field_number.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/text.h"

namespace talpena {
namespace {

bool EstLigne(const OptionsCarte& dialogue, int row) {
  return row >= 0 && row < static_cast<int>(dialogue.couches.size());
}

}  // namespace

std::int32_t DiametreDe(std::string_view text) {
  if (Minuscules(text) == "auto") return -1;
  const std::int32_t diameter = Arrondi32(ValChamp(text, Comma::IsPoint));
  return diameter < 0 ? -1 : diameter;
}

OptionsCarte LitOptions(const MapOption& options, const MapState& carte) {
  OptionsCarte dialogue;
  for (int i = 1; i <= options.LayerCount(); ++i) dialogue.couches.push_back(options.Couche(i));
  dialogue.choisie = dialogue.couches.empty() ? -1 : 0;
  dialogue.couchesPossibles = carte.CodeProjection != 0;
  dialogue.diametre = options.SymbolDiameter == -1 ? std::string(DiametreAutomatique)
                                                   : Str(std::int64_t{options.SymbolDiameter});
  dialogue.couleur = static_cast<std::uint32_t>(options.SymbolColor);
  return dialogue;
}

void AjouteCouche(OptionsCarte& dialogue, const SharedState& state, Platform& io) {
  const std::string path = io.dialogues.OuvreFichier(
      {.filter = "Fichiers TLP (*.tlp)|*.tlp|Tous les fichiers (*.*)|*.*",
       .folder = io.settings.Lit("TALPENA", "Paths", "TLPCarto", state.AppDir)});
  dialogue.couches.push_back(path);
  dialogue.choisie = static_cast<int>(dialogue.couches.size()) - 1;
  io.settings.Ecrit("TALPENA", "Paths", "TLPCarto", DossierDe(path));
}

void RetireCouche(OptionsCarte& dialogue) {
  if (!EstLigne(dialogue, dialogue.choisie)) return;
  dialogue.couches.erase(dialogue.couches.begin() + dialogue.choisie);
  dialogue.choisie = std::min(dialogue.choisie, static_cast<int>(dialogue.couches.size()) - 1);
}

void DeplaceCouche(OptionsCarte& dialogue, int index) {
  const int from = dialogue.choisie;
  const int to = index == 0 ? from - 1 : from + 1;
  if (!EstLigne(dialogue, from) || !EstLigne(dialogue, to)) return;
  std::swap(dialogue.couches[static_cast<std::size_t>(from)],
            dialogue.couches[static_cast<std::size_t>(to)]);
  dialogue.choisie = to;
}

void ChoisitCouleurSymbole(OptionsCarte& dialogue, Platform& io) {
  dialogue.couleur = io.dialogues.ChoisitCouleur(dialogue.couleur);
}

void ValideOptions(const OptionsCarte& dialogue, MapOption& options) {
  options.SymbolDiameter = DiametreDe(dialogue.diametre);
  options.SymbolColor = static_cast<std::int32_t>(dialogue.couleur);
  options.Raz();
  for (const std::string& layer : dialogue.couches) options.Add(layer);
  options.Cancel = 0;
}

void AnnuleOptions(MapOption& options) { options.Cancel = -1; }

}  // namespace talpena
