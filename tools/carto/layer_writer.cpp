#include "carto/layer_writer.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace talpena {
namespace {

constexpr std::size_t textLength = 50;
constexpr std::size_t nameLength = 30;
constexpr std::size_t mostPoints = 2000;
constexpr double offEquator = 1e-4;  ///< degrees
constexpr int penUp = -1;
constexpr int penDown = 1;

void AjouteTexte(std::string& out, std::string_view text, std::size_t length) {
  std::string field(text.substr(0, length));
  field.resize(length, ' ');
  out += field;
}

void AjouteOctets(std::string& out, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) out += static_cast<char>(value >> (8 * i) & 0xFFU);
}

void AjouteSimple(std::string& out, double value) {
  AjouteOctets(out, std::bit_cast<std::uint32_t>(static_cast<float>(value)), 4);
}

void AjoutePoint(std::string& out, int pen, PlanePoint p) {
  AjouteOctets(out, static_cast<std::uint32_t>(pen), 2);
  AjouteSimple(out, p.y);
  AjouteSimple(out, p.x);
  out += '\0';
}

/// (0, 0) on a map means to the view that there is no point, so that none may lie on the equator:
/// it goes to the side where the line lies, the one that a polar map shows.
Line HorsEquateur(const Line& line) {
  const double off = CadreDe(line).bottom < 0 ? -offEquator : offEquator;
  Line moved = line;
  for (PlanePoint& p : moved) {
    if (p.y == 0) p.y = off;
  }
  return moved;
}

void AjouteArticle(std::string& out, std::string_view name, const LayerLines& group,
                   const Line& line) {
  const Frame frame = CadreDe(line);
  AjouteTexte(out, name, nameLength);
  out += group.kind;
  out += group.style;
  out += ' ';
  AjouteSimple(out, static_cast<double>(line.size() + 2));
  for (const double limit : {frame.top, frame.bottom, frame.right, frame.left})
    AjouteSimple(out, limit);
  AjouteOctets(out, 0, 4);
  AjouteOctets(out, 0, 4);
  AjoutePoint(out, penUp, line.front());
  for (const PlanePoint p : line) AjoutePoint(out, penDown, p);
  AjoutePoint(out, penUp, line.back());
}

/// Pieces of a line that are small enough, each from the last point of the one before.
std::vector<Line> Morceaux(const Line& line, double degrees) {
  std::vector<Line> pieces;
  Line piece;
  Frame frame;
  for (const PlanePoint p : Densifie(line, degrees / 2)) {
    Frame wider{std::min(frame.left, p.x), std::min(frame.bottom, p.y), std::max(frame.right, p.x),
                std::max(frame.top, p.y)};
    if (piece.empty()) {
      wider = {p.x, p.y, p.x, p.y};
    } else if (wider.right - wider.left > degrees || wider.top - wider.bottom > degrees ||
               piece.size() >= mostPoints) {
      pieces.push_back(piece);
      piece = {piece.back()};
      wider = CadreDe({piece.front(), p});
    }
    piece.push_back(p);
    frame = wider;
  }
  if (piece.size() > 1) pieces.push_back(piece);
  return pieces;
}

/// A line that closes is opened: two pieces.
std::vector<Line> Ouvertes(const std::vector<Line>& pieces) {
  std::vector<Line> open;
  for (const Line& piece : pieces) {
    if (piece.front() != piece.back() || piece.size() < 4) {
      open.push_back(piece);
      continue;
    }
    const auto middle = piece.begin() + static_cast<std::ptrdiff_t>(piece.size() / 2);
    open.emplace_back(piece.begin(), middle + 1);
    open.emplace_back(middle, piece.end());
  }
  return open;
}

std::string_view NomDe(char kind) {
  switch (kind) {
    case 'C':
      return "coast";
    case 'L':
      return "lake";
    case 'R':
      return "river";
    default:
      return "border";
  }
}

}  // namespace

std::string EcritCouche(std::string_view title, const std::vector<LayerLines>& content,
                        double degrees) {
  std::string out;
  AjouteTexte(out, title, textLength);
  AjouteTexte(out, "", textLength);
  for (int i = 0; i < 4; ++i) AjouteOctets(out, 0, 4);
  for (const LayerLines& group : content) {
    for (const Line& line : group.lines) {
      for (const Line& piece : Ouvertes(Morceaux(line, degrees)))
        AjouteArticle(out, NomDe(group.kind), group, HorsEquateur(piece));
    }
  }
  return out;
}

}  // namespace talpena
