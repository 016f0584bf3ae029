// Letters of the 100 km squares, read by the tables that the grids' references were made with.
#include <array>
#include <optional>

#include "coords/national_grids.h"

namespace talpena {
namespace {

/// Columns eastward and rows northward of a square in the block that holds it.
struct Square {
  int east, north;  ///< negative for a letter that the tables lack
};
using Squares = std::array<Square, 128>;  ///< by letter

/// The letters row by row, once as eastings are read and once as northings are.
constexpr Squares Tables(std::string_view east, int columns, std::string_view north, int rows) {
  Squares squares{};
  squares.fill({-1, -1});
  for (std::size_t i = 0; i < east.size(); ++i) {
    squares[static_cast<unsigned char>(east[i])].east = static_cast<int>(i) % columns;
  }
  for (std::size_t i = 0; i < north.size(); ++i) {
    squares[static_cast<unsigned char>(north[i])].north = static_cast<int>(i) % rows;
  }
  return squares;
}

constexpr Squares Carres500 = Tables("STNOHJ", 2, "SNHTOJ", 3);
constexpr Squares Carres100 =
    Tables("VWXYZQRSTULMNOPFGHJKABCDE", 5, "VQLFAWRMGBXSNHCYTOJDZUPKE", 5);

/// Place of a square; empty when one of the tables lacks the letter.
std::optional<Square> Carre(const Squares& squares, char letter) {
  const auto index = static_cast<unsigned char>(letter);
  if (index >= squares.size() || squares[index].east < 0 || squares[index].north < 0) return {};
  return squares[index];
}

}  // namespace

void LettresVersBritish(std::string_view letters, double eastKm, double northKm, double& easting,
                        double& northing) {
  easting = northing = 0;
  if (letters.size() < 2) return;
  const auto block = Carre(Carres500, letters[0]);
  const auto square = Carre(Carres100, letters[1]);
  if (!block || !square) return;
  easting = (500 * block->east + 100 * square->east) * 1000 + eastKm * 1000 + 100000;
  northing = (500 * block->north + 100 * square->north) * 1000 + northKm * 1000 + 5527063.816;
}

void LettresVersIrish(std::string_view letters, double northKm, double eastKm, double& northing,
                      double& easting) {
  constexpr Square none{0, 0};
  const Square square = letters.size() < 2 ? none : Carre(Carres100, letters[1]).value_or(none);
  easting = (100 * square.east + eastKm) * 1000 + 300000;
  // The forward's offset without its decimals: Irish references decode 0.4339 m south.
  // Held by IrishLetters.CountFromTheOffsetWithoutItsDecimals.
  northing = (100 * square.north + northKm) * 1000 + 5680030.0;
}

bool EstCarreNational(Grille grid, std::string_view letters) {
  if (letters.size() != 2 || !Carre(Carres100, letters[1])) return false;
  return grid == Grille::Irish || Carre(Carres500, letters[0]).has_value();
}

}  // namespace talpena
