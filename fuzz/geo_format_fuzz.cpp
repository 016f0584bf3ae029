// A display name of a gazetteer of any bytes, cleaned, and a row of any values as the list shows
// it. The first byte chooses the values' kinds and the way coordinates are written.
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "check.h"
#include "common/plain_form.h"
#include "common/text.h"
#include "gazetteer/place_item.h"
#include "gazetteer/place_name.h"

using namespace talpena;
using fuzz::Verifie;

namespace {

/// One of the 36 tags at `at`.
bool EstBalise(std::string_view text, std::size_t at) {
  std::string_view rest = text.substr(at + 1);
  if (rest.starts_with('/')) rest.remove_prefix(1);
  return rest.size() > 2 && std::string_view("BNI").find(rest[0]) != std::string_view::npos &&
         rest[1] >= '1' && rest[1] <= '6' && rest[2] == '>';
}

bool ABalise(std::string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '<' && EstBalise(text, at)) return true;
  }
  return false;
}

// A tag that is left stood together only once another was gone from within it.
void VerifieNettoyage(std::string_view name) {
  std::string once(name);
  GeoFormat(once);
  Verifie(once.size() <= name.size() && once.find('/') == std::string::npos);
  const bool nested = name.find('<') != name.rfind('<');
  Verifie(nested || !ABalise(once));
  std::string again = once;
  GeoFormat(again);
  Verifie(again == once || ABalise(once));
}

/// The bytes as fields of eight bytes, the last one with all that is left. Texts are those of code
/// page 1252: tables give UTF-8 that is sound.
struct Champs {
  std::array<std::string, 8> texts;
  std::array<Cell, 8> cells;

  Champs(std::string_view bytes, unsigned kinds) {
    constexpr std::size_t width = 8;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const bool last = i + 1 == cells.size();
      const std::string_view part = bytes.substr(0, last ? bytes.size() : width);
      bytes.remove_prefix(part.size());
      texts[i] = Cp1252VersUtf8(part);
      const bool number = (kinds >> i & 1U) != 0 && part.size() == width;
      cells[i] = number ? Nombre(part) : Cell::Of(std::string_view(texts[i]));
    }
  }
  static Cell Nombre(std::string_view bytes) {
    double value = 0;
    std::memcpy(&value, bytes.data(), sizeof value);
    return Cell::Of(value);
  }
};

std::size_t Taille(const PlaceItem& item, PlaceColumn column) {
  return CompteCaracteres(item.Texte(column));
}

void VerifieLigne(std::string_view bytes, unsigned kinds) {
  const Champs row(bytes, kinds);
  const auto type = static_cast<std::int16_t>(kinds >> 8 & 3U);
  const PlaceItem item = FaitItem({7, 0, 1, 2, 3, 4, 5, 6, type}, row.cells);
  Verifie(Taille(item, PlaceColumn::Name) <= LongestPlaceName);
  Verifie(Taille(item, PlaceColumn::Latitude) <= 8 && Taille(item, PlaceColumn::Longitude) <= 8);
  Verifie(Taille(item, PlaceColumn::Fips) == 4 && Taille(item, PlaceColumn::Feature) <= 5);
  for (const auto& [column, width] :
       {std::pair{PlaceColumn::LatitudeDms, 10U}, {PlaceColumn::LongitudeDms, 11U}}) {
    const std::size_t size = Taille(item, column);
    Verifie(size == 0 || size == width);
    Verifie(type < 2 || size == 0);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const unsigned kinds = data[0] | unsigned{data[1]} << 8U;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
  VerifieNettoyage(bytes);
  VerifieLigne(bytes, kinds);
  const std::string plain = FormeSimple(bytes);
  Verifie(!EstUtf8(bytes) || FormeSimple(plain) == plain);
  return 0;
}
