#include "carto/page_writer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "carto/map_furniture.h"
#include "carto/surface_clip.h"
#include "common/numbers.h"

namespace talpena {
namespace {

constexpr double longerSide = 500;
constexpr double leftOfPage = 50;
constexpr double topOfPage = 800;
constexpr std::size_t mostPointsOfPath = 1400;  ///< old interpreters take 1500
constexpr std::size_t mostColumns = 180;
constexpr double thinningPoints = 0.08;
constexpr double overlap = 0.15;  ///< points by which the tiles of a surface overlap, against seams
constexpr int mostHalvings = 16;
constexpr double textSize = 5.5;  ///< points

/// Rounded to so many places, without needless zeros: 12.5, .25, -3.
std::string Decimal(double value, int places) {
  long long unit = 1;
  for (int i = 0; i < places; ++i) unit *= 10;
  const long long rounded = std::llround(value * static_cast<double>(unit));
  const long long whole = std::abs(rounded) / unit, rest = std::abs(rounded) % unit;
  std::string text = rounded < 0 ? "-" : "";
  if (whole != 0 || rest == 0) text += std::to_string(whole);
  if (rest == 0) return text;
  std::string fraction = std::to_string(unit + rest).substr(1);
  fraction.resize(fraction.find_last_not_of('0') + 1);
  return text + '.' + fraction;
}

/// A length or a place on the page, in points.
std::string Centiemes(double points) { return Decimal(points, 2); }

/// A string of PostScript, in ASCII.
std::string Chaine(std::string_view latin1) {
  std::string text = "(";
  for (const char c : latin1) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x80) {
      if (c == '(' || c == ')' || c == '\\') text += '\\';
      text += c;
      continue;
    }
    text += '\\';
    for (const unsigned shift : {6U, 3U, 0U}) text += static_cast<char>('0' + (code >> shift & 7U));
  }
  return text + ')';
}

std::size_t NombrePoints(const Surface& surface) {
  std::size_t count = 0;
  for (const Ring& ring : surface) count += ring.size() + 1;
  return count;
}

/// Gathers words into lines of a bounded length.
class PageText {
 public:
  void Mot(std::string_view word) {
    if (line_.size() + word.size() > mostColumns) Ligne();
    if (!line_.empty()) line_ += ' ';
    line_ += word;
  }
  void Point(PlanePoint p, std::string_view operation) {
    Mot(Centiemes(p.x));
    Mot(Centiemes(p.y));
    Mot(operation);
  }
  void Ligne(std::string_view line = {}) {
    if (!line_.empty()) text_.append(line_) += "\r\n";
    line_.clear();
    if (!line.empty()) text_.append(line) += "\r\n";
  }
  std::string Prend() { return std::move(text_); }

 private:
  std::string text_;
  std::string line_;
};

/// Writes the layers of one drawing.
class PageWriter {
 public:
  explicit PageWriter(const MapSheet& sheet)
      : detail_(sheet.Description().detail),
        box_(sheet.Cadre()),
        page_(CadreDePage(sheet.Etat())),
        pointsPerPixel_((page_.right - page_.left) / TailleImage(sheet.Etat()).width) {}

  std::string Tout(const MapSheet& sheet, const MapDrawing& drawing) {
    text_.Ligne(std::string("% Map ") + sheet.Description().name);
    text_.Ligne("gsave 20 dict begin");
    text_.Ligne("% red green blue grey: the colour, or the grey on a page without colours");
    text_.Ligne("/ink {coul {pop setrgbcolor} {4 1 roll pop pop pop sg} ifelse} bind def");
    text_.Ligne("1 setlinejoin 0 setlinecap");
    for (const DrawnLayer& layer : drawing) Couche(layer);
    Garniture(sheet);
    TraitDeCadre();
    text_.Ligne("end grestore");
    return text_.Prend();
  }

 private:
  void Garniture(const MapSheet& sheet) {
    const double kmPerPoint = (box_.right - box_.left) / (page_.right - page_.left);
    const MapFurniture furniture = Garnit(sheet, textSize * kmPerPoint);
    text_.Ligne("/Helvetica /MapFont scandvec ReEncodeSmall");
    text_.Ligne("/MapFont findfont " + Centiemes(textSize) + " scalefont setfont");
    text_.Ligne("% x y across (text) txt: in a light ring, the place so far across the text");
    text_.Ligne("/txt {/t exch def /a exch def m t stringwidth pop a mul neg 0 rm currentpoint");
    text_.Ligne("t false charpath 1 sg 1.6 setlinewidth s m .2 sg t show} bind def");
    text_.Ligne("[] 0 setdash");
    for (const char* ink : {"1 sg 1.8 setlinewidth", ".2 sg .5 setlinewidth"}) {
      text_.Ligne(ink);
      Lignes(furniture.lines);
    }
    for (const PlacedText& text : furniture.texts) {
      const PlanePoint at = SurPage(text.at);
      for (const double number : {at.x, at.y, text.across}) text_.Mot(Centiemes(number));
      text_.Mot(Chaine(text.text));
      text_.Mot("txt");
      text_.Ligne();
    }
  }

  /// The neat line over what was drawn up to it; the page clips away its outer half.
  void TraitDeCadre() {
    text_.Ligne("0 sg 1 setlinewidth [] 0 setdash");
    text_.Point({page_.left, page_.bottom}, "m");
    text_.Point({page_.left, page_.top}, "l");
    text_.Point({page_.right, page_.top}, "l");
    text_.Point({page_.right, page_.bottom}, "l");
    text_.Ligne("c s");
  }

  PlanePoint SurPage(PlanePoint km) const {
    return {(km.x - box_.left) / (box_.right - box_.left) * (page_.right - page_.left) + page_.left,
            (km.y - box_.bottom) / (box_.top - box_.bottom) * (page_.top - page_.bottom) +
                page_.bottom};
  }

  /// On the page, without the points that say nothing there.
  Line SurPage(const Line& km) const {
    Line placed;
    for (const PlanePoint p : km) placed.push_back(SurPage(p));
    return Simplifie(placed, thinningPoints);
  }

  void Couche(const DrawnLayer& layer) {
    if (layer.surface.empty() && layer.lines.empty()) return;
    const Ink ink = EncreDe(layer.matter, detail_);
    text_.Ligne();
    for (const int part : {ink.red, ink.green, ink.blue}) text_.Mot(Decimal(part / 255.0, 3));
    text_.Mot(Centiemes(ink.grey));
    text_.Mot("ink");
    if (!layer.lines.empty()) {
      text_.Mot(Centiemes(ink.width * pointsPerPixel_));
      text_.Mot("setlinewidth [");
      if (ink.dash > 0) text_.Mot(Centiemes(ink.dash * pointsPerPixel_));
      text_.Mot("] 0 setdash");
    }
    text_.Ligne();
    Surface placed;
    for (const Ring& ring : layer.surface) {
      placed.push_back(SurPage(Ferme(ring)));
      placed.back().pop_back();
    }
    Tuile(placed, page_, 0);
    Lignes(layer.lines);
  }

  /// A surface of many points goes to the page in halves, and halves of them.
  void Tuile(const Surface& surface, const Frame& frame, int halvings) {
    if (NombrePoints(surface) <= mostPointsOfPath || halvings == mostHalvings) {
      EcritSurface(surface);
      return;
    }
    Frame first = frame, second = frame;
    if (frame.right - frame.left > frame.top - frame.bottom) {
      const double middle = (frame.left + frame.right) / 2;
      first.right = middle + overlap;
      second.left = middle - overlap;
    } else {
      const double middle = (frame.bottom + frame.top) / 2;
      first.top = middle + overlap;
      second.bottom = middle - overlap;
    }
    Tuile(RogneSurface(surface, first), first, halvings + 1);
    Tuile(RogneSurface(surface, second), second, halvings + 1);
  }

  void EcritSurface(const Surface& surface) {
    bool any = false;
    for (const Ring& ring : surface) {
      if (ring.size() < 3) continue;
      for (std::size_t i = 0; i < ring.size(); ++i) text_.Point(ring[i], i == 0 ? "m" : "l");
      text_.Mot("c");
      any = true;
    }
    if (any) text_.Mot("eofill");
    text_.Ligne();
  }

  void Lignes(const std::vector<Line>& lines) {
    std::size_t points = 0;
    for (const Line& line : lines) {
      const Line placed = SurPage(line);
      const bool closed = line.front() == line.back() && placed.size() < mostPointsOfPath;
      if (placed.size() < 2) continue;
      for (std::size_t i = 0; i < placed.size(); ++i) {
        if (points >= mostPointsOfPath) {
          text_.Mot("s");
          text_.Ligne();
          points = 0;
          if (i > 0) text_.Point(placed[i - 1], "m");
        }
        text_.Point(placed[i], i == 0 ? "m" : "l");
        ++points;
      }
      if (closed && points >= placed.size()) text_.Mot("c");
    }
    if (points > 0) text_.Mot("s");
    text_.Ligne();
  }

  Detail detail_;
  Frame box_;
  Frame page_;
  double pointsPerPixel_;
  PageText text_;
};

}  // namespace

Frame CadreDePage(const MapState& state) {
  const double width = Arrondi16(longerSide * state.LargeurKm / state.CoteKm);
  const double height = Arrondi16(longerSide * state.HauteurKm / state.CoteKm);
  return {leftOfPage, topOfPage - height, leftOfPage + width, topOfPage};
}

std::string EcritDessin(const MapSheet& sheet, const MapDrawing& drawing) {
  return PageWriter(sheet).Tout(sheet, drawing);
}

}  // namespace talpena
