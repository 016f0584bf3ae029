// Folders that hold the tables of a maker: a file each, whose name without its ending is the
// table's. Names count without regard to letter case, as on the systems that such files come from.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

/// The file of a table.
struct TableFile {
  std::string table;
  std::string path;
};

/// Refuses a name of a new table that no file can have on some system: InvalidName (3125).
void VerifieNomDeTable(const std::string& name);

class FolderOfTables {
 public:
  /// @param path       the folder, or the file of one of its tables, which need not be there yet
  /// @param extension  what the files end in, with its point
  FolderOfTables(const std::string& path, std::string_view extension);

  const std::string& Dossier() const { return folder_; }
  /// The file of one table was named.
  bool EstUnSeul() const { return !named_.empty(); }

  /// The tables in the order of their names, each name once; that of the file alone when it was
  /// named. Raises DatabaseNotFound (3024), PermissionDenied (70) for a folder that cannot be
  /// listed.
  std::vector<TableFile> Tables() const;

  /// What is there under the name of a table, also beside a file that was named; empty when nothing
  /// is.
  std::optional<std::string> FichierDe(std::string_view table) const;

  /// Where a new file of a table goes.
  std::string Place(std::string_view table, std::string_view extension) const;

 private:
  std::string folder_;
  std::string named_;  ///< the file, if it was given instead of the folder
  std::string extension_;
};

/// The file beside another that has its name and another ending, whatever their case: a table's
/// own memo file. The very name goes first; empty when there is none, or none but a folder, a pipe
/// or a device.
std::optional<std::string> FichierVoisin(const std::string& path, std::string_view extension);

}  // namespace talpena
