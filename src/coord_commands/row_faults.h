// Rows that a command leaves as they are because their numbers name no place.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "coord_commands/adjust_row.h"
#include "platform/table_engine.h"
#include "store/command_context.h"

namespace talpena {

/// What is wrong with a row.
struct FauteDeLigne {
  enum class Cause : std::uint8_t {
    Latitude,   ///< beyond 90 degrees
    Longitude,  ///< beyond 180 degrees
    Minutes,    ///< or seconds, of 60 and more
    Carre,      ///< letters and digits that no square of the grid has
    Nombres,    ///< outside what the system covers
    SansPlace   ///< on the datum or the grid that was asked for
  };
  Cause cause = Cause::SansPlace;
  double degres = 0;  ///< of Latitude and Longitude
};

/// True for a failure of the arithmetic, which concerns one row; any other ends the command.
bool EstFauteDeCalcul(const TalpenaError& error);

/// Empty for a point on the globe, decimal degrees.
std::optional<FauteDeLigne> FauteDuPoint(double latitude, double longitude);

/// Why the ORIGINAL of a row was read as no point of the globe.
FauteDeLigne FauteDeLecture(const RowPoint& row);

/// "the latitude 5041.234° lies beyond 90°", in the language of the interface.
std::string TexteDeFaute(std::int16_t langue, const FauteDeLigne& fault);

class LignesFautives {
 public:
  void Note(Bookmark row, FauteDeLigne fault) { rows_.emplace_back(row, fault); }

  /// Chooses the rows in the grid and tells their number and the first ten of them in one box:
  /// their place in the grid, ORIGINAL, what is wrong. Nothing where there is none. For when the
  /// grid shows the rows that it goes on showing.
  void Dit(CommandContext c) const;

 private:
  std::vector<std::pair<Bookmark, FauteDeLigne>> rows_;
};

}  // namespace talpena
