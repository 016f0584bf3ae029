// What the record form asks of a reference before the arithmetic sees it.
#include <algorithm>

#include "coords/ifbl.h"
#include "coords/national_grids.h"
#include "coords/notations.h"

namespace talpena {
namespace {

/// An even number of digits, as many as a reference can have.
bool SontChiffresDeGrille(std::string_view digits) {
  constexpr std::size_t most = 10;
  return !digits.empty() && digits.size() <= most && digits.size() % 2 == 0 &&
         std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool NommeCarre(Grille grid, std::span<const std::string> tokens) {
  return EstCarreNational(grid, tokens[0]) && SontChiffresDeGrille(tokens[1]);
}

}  // namespace

bool NommeCarreBritish(std::span<const std::string> tokens) {
  return NommeCarre(Grille::British, tokens);
}

bool NommeCarreIrish(std::span<const std::string> tokens) {
  return NommeCarre(Grille::Irish, tokens);
}

bool NommeCarreBelge(std::span<const std::string> tokens) { return NommeCarreIfbl(tokens[0]); }

}  // namespace talpena
