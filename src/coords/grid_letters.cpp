// Letters of the 100 km squares, read by the tables that the grids' references were made with.
#include <optional>

#include "coords/national_grids.h"

namespace talpena {
namespace {

/// Columns eastward and rows northward of a square in the block that holds it.
struct Square {
  int east = 0;
  int north = 0;
};

/// Index of a letter in a table that lists the letters row by row.
std::optional<int> Indice(std::string_view table, char letter, int modulus) {
  const std::size_t position = table.find(letter);
  if (position == std::string_view::npos) return std::nullopt;
  return static_cast<int>(position) % modulus;
}

/// Place of a 500 km square in the British grid.
std::optional<Square> Carre500(char letter) {
  const auto east = Indice("STNOHJ", letter, 2);
  const auto north = Indice("SNHTOJ", letter, 3);
  if (!east || !north) return std::nullopt;
  return Square{*east, *north};
}

/// Place of a 100 km square in its 500 km square.
std::optional<Square> Carre100(char letter) {
  const auto east = Indice("VWXYZQRSTULMNOPFGHJKABCDE", letter, 5);
  const auto north = Indice("VQLFAWRMGBXSNHCYTOJDZUPKE", letter, 5);
  if (!east || !north) return std::nullopt;
  return Square{*east, *north};
}

}  // namespace

void LettresVersBritish(std::string_view letters, double eastKm, double northKm, double& easting,
                        double& northing) {
  easting = northing = 0;
  if (letters.size() < 2) return;
  const auto block = Carre500(letters[0]);
  const auto square = Carre100(letters[1]);
  if (!block || !square) return;
  easting = (500 * block->east + 100 * square->east) * 1000 + eastKm * 1000 + 100000;
  northing = (500 * block->north + 100 * square->north) * 1000 + northKm * 1000 + 5527063.816;
}

void LettresVersIrish(std::string_view letters, double northKm, double eastKm, double& northing,
                      double& easting) {
  Square square;
  if (letters.size() >= 2) square = Carre100(letters[1]).value_or(Square{});
  easting = (100 * square.east + eastKm) * 1000 + 300000;
  // The forward's offset without its decimals: Irish references decode 0.4339 m south.
  // Held by IrishLetters.CountFromTheOffsetWithoutItsDecimals.
  northing = (100 * square.north + northKm) * 1000 + 5680030.0;
}

}  // namespace talpena
