// The kinds of database that rows are exported to.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace talpena {

enum class TargetPlace : std::uint8_t {
  NewFile,  ///< a file that is made
  File,     ///< a file that is opened, whether or not it is there
  Folder    ///< a folder of tables that is opened
};

enum class ColumnStyle : std::uint8_t {
  Database,   ///< names, types and sizes that are the same for every database
  Headings,   ///< the words of the grid, as wide as the values
  Geographic  ///< the same, with a column for each free field and the point of the row
};

struct DatabaseTarget {
  std::string_view filter;   ///< of the file dialog
  std::string_view connect;  ///< of the table engine
  TargetPlace place = TargetPlace::Folder;
  ColumnStyle style = ColumnStyle::Database;
  /// In a folder: what the table's file ends in, then the files that belong to it alone.
  std::span<const std::string_view> endings = {};
  /// What a program that has not finished with the file keeps beside it: the endings of its path.
  std::span<const std::string_view> journals = {};
  std::size_t longestMemo = 0;  ///< characters; a longer one is cut, 0 for any number
  bool losesEndBlanks = false;  ///< of texts
};

/// 0 Access, 1 FoxPro, 2 dBase IV, 3 Paradox, 4 Excel, 5 GeoPackage, 6 Excel workbook; any other:
/// SubscriptOutOfRange (9).
const DatabaseTarget& CibleBase(int index);

/// Where the chosen path leads.
struct DatabasePlace {
  std::string folder;  ///< with the separator at its end; "" for that of the process
  std::string file;    ///< name of the file that is written
  std::string table;   ///< the name up to its first point

  std::string Chemin() const { return folder + file; }
};
DatabasePlace PlaceDe(const DatabaseTarget& target, std::string_view path);

/// The files that go when the place is written: the table's own, and those that belong to it. In a
/// folder letter case does not count, as it does not for those who read tables there.
std::vector<std::string> FichiersRemplaces(const DatabaseTarget& target, const DatabasePlace& place,
                                           FileSystem& files);

/// Raises FileInUse (3045) when a file that would go is locked by another program, or when
/// something lies beside the place that a reader would take for changes to the new file.
void VerifieSansUsager(const DatabaseTarget& target, const DatabasePlace& place, FileSystem& files);

}  // namespace talpena
