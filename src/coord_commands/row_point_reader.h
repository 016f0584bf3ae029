// Where rows lie, anew from their DATUM and ORIGINAL: what the adjust commands store and what a
// rehearsal of an import shows.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "coord_commands/adjust_row.h"
#include "coord_commands/row_faults.h"
#include "coord_commands/row_walk.h"

namespace talpena {

/// Moves a point that was read to the datum of the file; false when the row is to stay as it is.
using AjustePoint = std::function<bool(RowPoint&)>;

/// What came of a row. It has a point in the first case alone.
struct ReadPoint {
  enum class Outcome : std::uint8_t {
    Point,
    SansOriginal,
    DatumInconnu,  ///< the catalogue lacks its code
    Illisible,     ///< ORIGINAL is no text of a notation, or names no place
    Faute,         ///< its numbers have no place: `faute` says why
    Laisse         ///< the adjustment left it
  };
  Outcome outcome = Outcome::Point;
  double latitude = 0;  ///< decimal degrees on the datum of the file, as they are stored
  double longitude = 0;
  FauteDeLigne faute = {};
};

class RowPointReader {
 public:
  /// @param state  its current ellipsoid changes with every row
  RowPointReader(CoordState& state, AjustePoint adjust)
      : state_(state), adjust_(std::move(adjust)), datums_(state.Catalogue) {}

  /// @param original  as it is stored; empty for Null
  ReadPoint Lit(std::string_view datum, std::optional<std::string_view> original);
  /// Codes that the catalogue lacks, each once.
  const std::vector<std::string>& DatumsInconnus() const { return datums_.Inconnus(); }

 private:
  ReadPoint Place();

  CoordState& state_;
  AjustePoint adjust_;
  DatumsDesLignes datums_;
  RowPoint row_;
  std::string original_;
  std::string code_;
};

}  // namespace talpena
