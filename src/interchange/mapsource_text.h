// The tab-separated waypoint text of MapSource, as the dialog of its import shows it.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/waypoint_list.h"
#include "platform/files.h"
#include "platform/import_file.h"

namespace talpena {

/// The entries of cmbGrid, by their places.
namespace GarminGrid {
inline constexpr int Degrees = 0, Minutes = 1, Seconds = 2, Mgrs = 3, Utm = 4, British = 5,
                     Irish = 6;
}
inline constexpr std::array<std::string_view, 7> GrillesGarmin{
    "Lat/Lon hddd.ddddd°",   "Lat/Lon hddd°mm.mmm'", "Lat/Lon hddd°mm'ss.s\"", "MGRS", "UTM",
    "British National Grid", "Irish National Grid"};

struct MapSourceText {
  std::optional<FileStamp> file;  ///< before it was read; empty when it was read from elsewhere
  std::string header;       ///< txtHeader: path and first lines, CR LF each; long ones are cut
  std::optional<int> grid;  ///< of GrillesGarmin; empty when the file's grid is not there
  std::string datum;        ///< lblDatum: not padded, "" for a name that is not known
  std::vector<std::string> captions;  ///< of the columns, the first one too
  WaypointList items;
  bool wrongType = false;  ///< "Wrong file type!"
};

/// Fills a text that is empty. The datum may stand on line 2 or 3, the captions behind it:
///
/// - on line 2: the captions are on the next line that is not empty, and the last element of these
///   and of a waypoint is dropped only when it is empty;
/// - otherwise on line 3, with the captions on line 5, and the last element is always dropped.
///
/// A file that is neither has `wrongType`. What fails is thrown; the text then holds what was
/// filled until there: InputPastEnd (62) in the first lines, SubscriptOutOfRange (9) where grid
/// or datum have no name, TooManyFields (3190) above 1000 columns, those of the file.
void RempliLV(FileSystem& files, const std::string& path, MapSourceText& text);
/// The same from an open file.
void RempliLV(ImportFile file, const std::string& path, MapSourceText& text);

}  // namespace talpena
