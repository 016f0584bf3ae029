#include "interchange/garmin_samples.h"

#include <algorithm>

#include "common/numbers.h"
#include "common/text.h"
#include "interchange/column_cut.h"

namespace talpena {
namespace {

/// A box with a number of characters; what is beyond every text is all of it.
int Caracteres(std::string_view box) {
  constexpr double most = 32767;
  return Arrondi16(std::clamp(Val(Remplace(box, ",", ".")), -most, most));
}

}  // namespace

std::string TexteExemple(const MapSourceText& text, const std::vector<WaypointChoice>& items,
                         int column) {
  if (column < 0) return {};
  for (const WaypointChoice& choice : items) {
    const auto found = text.items.Texte(choice.item, static_cast<std::size_t>(column));
    if (!found.empty()) return std::string(found);
  }
  return {};
}

std::optional<std::string> Exemple(std::string_view begin, std::string_view length,
                                   std::string_view sample) {
  if (sample.empty() || !EstNumerique(begin) || !EstNumerique(length)) return {};
  return std::string(CoupeColonne(sample, Caracteres(begin), Caracteres(length)));
}

std::string DateFixeMontree(std::string_view fixed) {
  return std::string(fixed.empty() ? DateFixeVide : fixed);
}

std::string DateFixeGardee(std::string_view shown) {
  return shown == DateFixeVide ? std::string() : Remplace(shown, "_", " ");
}

}  // namespace talpena
