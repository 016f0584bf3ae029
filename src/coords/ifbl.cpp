#include "coords/ifbl.h"

#include <array>

#include "coords/tokens.h"

namespace talpena {
namespace {

constexpr std::string_view Rangees = "MLKJHGFEDCBA";  ///< letters of the rows, southernmost first

/// Squares of 1 km in one of 4 km, by kilometres from its south-west corner: [north][east].
constexpr int Paires[4][4] = {
    {33, 34, 43, 44},
    {31, 32, 41, 42},
    {13, 14, 23, 24},
    {11, 12, 21, 22},
};

/// The characters that count, upper case, one element each.
struct Code {
  std::array<char, 6> characters{};
  std::size_t count = 0;  ///< may exceed 6
};

Code Nettoie(std::string_view typed) {
  std::string text;
  OriginalLisible(typed, text);
  Code code;
  for (const char c : text) {
    if (c == ' ') continue;
    if (code.count < code.characters.size()) code.characters[code.count] = c;
    ++code.count;
  }
  return code;
}

/// Value of a digit, 0 for any other character.
int Chiffre(char c) { return c >= '0' && c <= '9' ? c - '0' : 0; }

struct Kilometres {
  double x, y;
};

/// Centre of the 1 km square that a pair names, from the corner of the 4 km square; a pair that
/// the table lacks moves nothing.
Kilometres CentrePaire(char first, char second) {
  for (int north = 0; north < 4; ++north) {
    for (int east = 0; east < 4; ++east) {
      const int pair = Paires[north][east];
      if (first == '0' + pair / 10 && second == '0' + pair % 10) return {east + 0.5, north + 0.5};
    }
  }
  return {0, 0};
}

/// Centre of a square, from the corner of the grid.
Kilometres Centre(const Code& code) {
  const auto& c = code.characters;
  // A sign that is no letter has position 0, one row south of "M".
  const int position = static_cast<int>(Rangees.find(c[0]) + 1);
  double x = Chiffre(c[1]) * 32;
  double y = (position - 1) * 20;
  if (code.count == 2) return {x + 16, y + 10};
  x += (Chiffre(c[3]) - 1) * 4;
  y += (5 - Chiffre(c[2])) * 4;
  if (code.count == 4) return {x + 2, y + 2};
  const Kilometres pair = CentrePaire(c[4], c[5]);
  return {x + pair.x, y + pair.y};
}

/// Number of the pair for kilometres in the 4 km square; 0 for the remainders of points south or
/// west of the grid, which are negative.
int Paire(int x, int y) {
  const int east = x % 4;
  const int north = y % 4;
  return east < 0 || north < 0 ? 0 : Paires[north][east];
}

/// Appends a number of one or two digits; no other comes up inside the bounds.
void Ajoute(std::string& code, int number) {
  if (number > 9) code += static_cast<char>('0' + number / 10);
  code += static_cast<char>('0' + number % 10);
}

}  // namespace

void IfblVersLambert(std::string_view code, double& x, double& y, std::int16_t& error) {
  error = -1;
  const Code clean = Nettoie(code);
  if (clean.count != 2 && clean.count != 4 && clean.count != 6) return;
  if (clean.characters[0] == 'I' || clean.characters[0] > 'M') return;
  const Kilometres centre = Centre(clean);
  x = centre.x * 1000 + IfblOuest;
  y = centre.y * 1000 + IfblSud;
  error = 0;
}

void LambertVersIfbl(double x, double y, std::string& code, std::int16_t& error, int level) {
  error = 1;
  if (!(x >= 0 && x < 350000 && y >= 0 && y < 270000)) return;
  error = 0;
  // Whole parts throughout, not the next lower integers: they differ south and west of the grid.
  const int xKm = static_cast<int>((x - IfblOuest) / 1000);
  const int yKm = static_cast<int>((y - IfblSud) / 1000);
  const int row = 11 - yKm / 20;
  const int column = xKm / 32;
  code.assign(1, static_cast<char>('A' + row + (row > 7 ? 1 : 0)));  // no row "I"
  Ajoute(code, column);
  if (level < 4) return;
  Ajoute(code, 5 - yKm % 20 / 4);
  Ajoute(code, xKm % 32 / 4 + 1);
  if (level < 6) return;
  Ajoute(code, Paire(xKm, yKm));
}

bool NommeCarreIfbl(std::string_view code) {
  std::string wanted;
  OriginalLisible(code, wanted);
  std::erase(wanted, ' ');
  double x = 0, y = 0;
  std::int16_t error = 0;
  IfblVersLambert(wanted, x, y, error);
  if (error != 0 || x < IfblOuest || x > IfblEst || y < IfblSud || y > IfblNord) return false;
  std::string found;
  LambertVersIfbl(x, y, found, error, static_cast<int>(wanted.size()));
  return found == wanted;
}

}  // namespace talpena
