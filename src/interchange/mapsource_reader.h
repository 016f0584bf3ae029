// The rows that the chosen waypoints of a MapSource text become.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/garmin_options.h"
#include "interchange/import_reader.h"
#include "interchange/mapsource_text.h"
#include "interchange/waypoint_doubts.h"
#include "store/distribution_header.h"

namespace talpena {

/// An item of the list, as it stands in it.
struct WaypointChoice {
  std::uint32_t item = 0;  ///< of the text
  bool checked = true;
};

/// What frmImportGarmin was told.
struct MapSourceChoice {
  int grid = -1;                           ///< of cmbGrid; -1 when none is selected
  std::string datum = {};                  ///< lblDatum
  std::vector<WaypointChoice> items = {};  ///< in the order of the list
};

/// Every waypoint of a text, checked, in its order.
std::vector<WaypointChoice> TousLesPoints(const MapSourceText& text);

/// Place of the free field that takes altitudes: the first with the code ALTI or STAT.ALTI, in any
/// case.
std::optional<std::size_t> ChampAltitude(const DistributionHeader& entete);

/// Column of a caption, compared exactly; empty when no column, or no caption, is it.
std::optional<std::size_t> ColonneDe(const MapSourceText& text, std::string_view caption);

/// Lines for the dialog, about what nobody would expect of the rows: columns that the options name
/// and the text lacks, so that rows get no date or no altitude; Irish references with one letter,
/// which are computed in a wrong square.
/// @param grid  of cmbGrid
std::vector<std::string> AvisMapSource(std::int16_t langue, const MapSourceText& text, int grid,
                                       const objGraminImport& options);

/// Items that are not checked and those without a position come as dropped. The text, the options
/// and the header must outlive the reader. A column of dates that is not in the file gives no date,
/// one of altitudes no altitude. Failures are those of OriginalDePosition, with waypoint and line.
class MapSourceReader final : public ImportReader {
 public:
  MapSourceReader(const MapSourceText& text, MapSourceChoice choice, const objGraminImport& options,
                  const DistributionHeader& entete);

  bool Suivant(ImportRecord& record) override;
  double Part() const override;
  const WaypointDoubts& Doutes() const { return doubts_; }  ///< of the records read until now

 private:
  void Remplit(std::size_t item, ImportRecord& record) const;
  std::string Original(std::size_t item) const;
  void Date(std::size_t item, ImportRecord& record) const;
  std::optional<std::string> Altitude(std::size_t item) const;
  std::string Commentaire(std::size_t item) const;

  const MapSourceText& text_;
  const MapSourceChoice choice_;
  const objGraminImport& options_;
  const DistributionHeader& entete_;
  std::string datum_;
  std::optional<std::size_t> dateColumn_;
  std::optional<std::size_t> altitudeColumn_;
  std::optional<std::size_t> altitudeField_;
  std::size_t next_ = 0;
  WaypointDoubts doubts_;
};

}  // namespace talpena
