// The table of commands of the map window.
#include "maps/windows/carte_menus.h"

#include <array>
#include <type_traits>

#include "common/msg_id.h"
#include "common/msg_id_menus.h"
#include "maps/eps.h"
#include "maps/print_map.h"
#include "maps/redraw.h"
#include "maps/windows/frm_carte.h"

namespace talpena {
namespace {

/// A command as nearly all are: one at a time, its failure shown. A procedure over the context of
/// the map gets the index behind it if it wants to know.
template <auto Procedure>
void Lance(frmCarte& form, int index) {
  form.Commande([&] {
    if constexpr (std::is_invocable_v<decltype(Procedure), MapContext, int>) {
      Procedure(form.Contexte(), index);
    } else {
      Procedure(form.Contexte());
    }
  });
}

/// One that the window sees to itself.
template <auto Member>
void Directement(frmCarte& form, int) {
  (form.*Member)();
}

void ExporteEps(MapContext c, int index) { Imprime(c, index == 0 ? 1 : 0); }

// clang-format off
constexpr std::array menuFichier = {
    CarteEntree{.control = "mnuFichier", .index = 0, .base = MsgId::CarteOuvrir, .key = "Ctrl+O",
                .icon = "open", .run = Directement<&frmCarte::OuvreCarte>},
    CarteEntree{.control = "mnuFichier", .index = 1, .base = MsgId::CarteSauveImage,
                .key = "Ctrl+S", .icon = "save", .condition = CarteCondition::Picture,
                .run = Lance<SauveImage>},
    CarteEntree{.control = "mnuFichier", .index = 2, .caption = "-"},
    CarteEntree{.control = "mnuFichier", .index = 3, .base = MsgId::CarteApercu,
                .key = "Ctrl+Shift+P", .condition = CarteCondition::Picture,
                .run = Lance<MontreApercu>},
    CarteEntree{.control = "mnuFichier", .index = 4, .base = MsgId::CarteImprime, .key = "Ctrl+P",
                .icon = "print", .condition = CarteCondition::Picture,
                .run = Lance<ImprimeSurPapier>},
    CarteEntree{.control = "mnuFichier", .index = 5, .caption = "-"},
    CarteEntree{.control = "mnuFichier", .index = 6, .base = MsgId::CarteRetour, .key = "Ctrl+M",
                .icon = "table", .run = Directement<&frmCarte::reject>},
};
constexpr std::array menuAffichage = {
    CarteEntree{.control = "mnuAffichage", .index = 0, .base = MsgId::CarteRedessine, .key = "F5",
                .condition = CarteCondition::Picture, .run = Lance<RedrawMap>},
    CarteEntree{.control = "mnuAffichage", .index = 1, .base = MsgId::CarteTraceMaille,
                .key = "Ctrl+G", .icon = "grid", .condition = CarteCondition::Picture,
                .run = Directement<&frmCarte::MontreMaille>},
};
constexpr std::array menuOptions = {
    CarteEntree{.control = "mnuOptions", .index = 0, .base = MsgId::CarteCouches, .key = "Ctrl+L",
                .run = Directement<&frmCarte::ChoisitCouches>},
    CarteEntree{.control = "mnuOptions", .index = 1, .base = MsgId::CarteSymboles, .key = "Ctrl+,",
                .icon = "properties", .run = Directement<&frmCarte::ChoisitSymboles>},
};
constexpr std::array menuEps = {
    CarteEntree{.control = "mnuEPS", .index = 0, .caption = "&Couleur", .key = "Ctrl+E",
                .condition = CarteCondition::Georeference, .run = Lance<ExporteEps>},
    CarteEntree{.control = "mnuEPS", .index = 1, .caption = "&Noir et blanc",
                .key = "Ctrl+Shift+E", .condition = CarteCondition::Georeference,
                .run = Lance<ExporteEps>},
};
constexpr std::array menuCache = {
    CarteEntree{.control = "mnuCache", .index = 0, .base = MsgId::CarteRedessine,
                .same = "mnuAffichage_0"},
    CarteEntree{.control = "mnuCache", .index = 1, .base = MsgId::CarteChoisitOptions,
                .icon = "properties", .same = "mnuOptions_1"},
};
constexpr std::array menusCarte = {
    CarteEntree{.control = "mnuFichier", .base = MsgId::MenuFichier, .children = menuFichier},
    CarteEntree{.control = "mnuAffichage", .base = MsgId::MenuVisualiser,
                .children = menuAffichage},
    CarteEntree{.control = "mnuOptions", .base = MsgId::MenuOptions, .children = menuOptions},
    CarteEntree{.control = "mnuEPS", .caption = "E&PS",
                .condition = CarteCondition::Georeference, .children = menuEps},
    CarteEntree{.control = "mnuCache", .base = MsgId::MenuOptions, .children = menuCache},
};
constexpr std::array outilsCarte = {
    CarteEntree{.control = "open", .base = MsgId::CmdOuvrir, .icon = "open",
                .same = "mnuFichier_0", .help = MsgId::CarteOuvrir},
    CarteEntree{.control = "save", .base = MsgId::CmdSauver, .icon = "save",
                .same = "mnuFichier_1", .help = MsgId::CarteSauveImage},
    CarteEntree{.control = "print", .base = MsgId::CarteImprimer, .icon = "print",
                .same = "mnuFichier_4", .help = MsgId::CarteImprime},
    CarteEntree{.control = "eps", .caption = "EPS", .icon = "eps", .same = "mnuEPS",
                .help = MsgId::CarteEps},
    CarteEntree{.control = "properties", .base = MsgId::CarteOptions, .icon = "properties",
                .same = "mnuOptions_1", .help = MsgId::CartesOptionsFenetre},
    CarteEntree{.control = "grid", .base = MsgId::CarteMaille, .icon = "grid",
                .same = "mnuAffichage_1", .help = MsgId::CarteTraceMaille},
    CarteEntree{.control = "distri", .base = MsgId::CarteTableau, .icon = "table",
                .same = "mnuFichier_6", .help = MsgId::CarteRetour},
    // The key is that of every dialog.
    CarteEntree{.control = "stop", .base = MsgId::CarteFermer, .key = "Esc", .icon = "close",
                .run = Directement<&frmCarte::reject>, .help = MsgId::CarteFermerAide},
};
// clang-format on

}  // namespace

std::span<const CarteEntree> MenusCarte() { return menusCarte; }

std::span<const CarteEntree> OutilsCarte() { return outilsCarte; }

bool EstActif(const CarteEntree& entry, const CarteEtat& etat) {
  const CarteEntree& runs = RangeeDe(MenusCarte(), entry);
  const bool picture = runs.condition == CarteCondition::Always || etat.picture;
  const bool georeference = runs.condition != CarteCondition::Georeference || etat.georeference;
  return picture && georeference && AUneCommande(runs);
}

}  // namespace talpena
