#include "platform/qt/legible_palette.h"

#include <array>
#include <vector>

#include "platform/qt/contrast.h"

namespace talpena {
namespace {

using Group = QPalette::ColorGroup;
using Role = QPalette::ColorRole;

constexpr std::array colourGroups = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

/// What a window may paint any text on.
constexpr std::array surfaces = {QPalette::Window, QPalette::Base, QPalette::AlternateBase,
                                 QPalette::Button};

/// A text and the background that is its own.
struct TextRole {
  Role text;
  Role background;
};
constexpr std::array textRoles = {TextRole{QPalette::WindowText, QPalette::Window},
                                  TextRole{QPalette::Text, QPalette::Base},
                                  TextRole{QPalette::ButtonText, QPalette::Button},
                                  TextRole{QPalette::Link, QPalette::Base},
                                  TextRole{QPalette::LinkVisited, QPalette::Base},
                                  TextRole{QPalette::PlaceholderText, QPalette::Base}};

class Correction {
 public:
  Correction(QPalette& palette, Group group)
      : palette_(palette),
        group_(group),
        contrast_(group == QPalette::Disabled ? ContrasteInactif : ContrasteLisible) {}

  void Execute() {
    for (const TextRole& role : textRoles) CorrigeTexte(role);
    Eloigne(QPalette::ToolTipText, {Couleur(QPalette::ToolTipBase)});
    // White on a strong colour is what users know: the colour gives way.
    Eloigne(QPalette::Highlight, {Couleur(QPalette::HighlightedText)});
  }

 private:
  QColor Couleur(Role role) const { return palette_.color(group_, role); }

  void Eloigne(Role role, const std::vector<QColor>& backgrounds) {
    const QColor moved = talpena::Eloigne(Couleur(role), backgrounds, contrast_);
    if (moved != Couleur(role)) palette_.setColor(group_, role, moved);
  }

  /// Legible on everything; on its own background where a desktop mixes light and dark.
  void CorrigeTexte(const TextRole& role) {
    std::vector<QColor> all{Couleur(role.background)};
    for (const Role surface : surfaces) all.push_back(Couleur(surface));
    const QColor moved = talpena::Eloigne(Couleur(role.text), all, contrast_);
    const bool enough = MoindreContraste(moved, all) >= contrast_;
    Eloigne(role.text, enough ? all : std::vector<QColor>{Couleur(role.background)});
  }

  QPalette& palette_;
  Group group_;
  double contrast_;
};

}  // namespace

QPalette PaletteLisible(const QPalette& desktop) {
  QPalette legible = desktop;
  for (const Group group : colourGroups) Correction(legible, group).Execute();
  return legible;
}

}  // namespace talpena
