// Waypoint files with fixed columns, extension .wpt: one waypoint a line.
#pragma once
#include <array>
#include <exception>
#include <string>
#include <string_view>

#include "coords/state.h"
#include "interchange/import_lines.h"
#include "interchange/import_reader.h"
#include "interchange/waypoint_doubts.h"
#include "store/distribution_header.h"

namespace talpena {

/// Rows in decimal degrees on the default datum of spherical coordinates: the notation of the file
/// is not kept. A default datum that the catalogue lacks leaves the points on WGS84. Lines of
/// nothing but blanks are passed over; every other one is a waypoint, whatever it holds.
class WptReader final : public ImportReader {
 public:
  /// The header of the open distribution and the state must outlive the reader.
  WptReader(ImportFile file, const CoordState& state, const DistributionHeader& entete);

  /// Takes the first eleven lines, or ten where the file lacks its empty first one; to be called
  /// once, first. False when the coordinates are in another form, and nothing can be read then.
  /// InputPastEnd (62) for a file that is shorter.
  bool LitEnTete();

  bool Suivant(ImportRecord& record) override;
  double Part() const override { return lines_.Part(); }
  /// A waypoint had a date, whose century the file does not tell.
  bool ADesDates() const { return dates_; }
  /// The datum line holds its five numbers; those that it lacks count as 0.
  bool ADatum() const { return datumLine_; }
  const WaypointDoubts& Doutes() const { return doubts_; }  ///< of the records read until now

 private:
  void LitDatum(std::string_view line);
  void Remplit(std::string_view line, ImportRecord& record);
  std::string Original(std::string_view line) const;
  std::string Texte(std::string_view line, ImportRecord& record);
  std::string AvecChamps(std::string text) const;

  ImportLines lines_;
  const CoordState& state_;
  const DistributionHeader& entete_;
  std::string datum_;
  std::array<double, 5> shift_{};  ///< semi-major axis, flattening, dx, dy, dz, as in the file
  std::string date_;               ///< of the row before
  bool dates_ = false;
  bool datumLine_ = true;
  WaypointDoubts doubts_;
  std::exception_ptr failure_;
};

}  // namespace talpena
