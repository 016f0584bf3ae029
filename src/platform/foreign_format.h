// Other makers' table files, as the table engine reads and writes them.
#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/table_engine.h"

namespace talpena {

/// How a format is asked for. Regard is paid neither to letter case nor to what stands behind the
/// first semicolon.
namespace Connect {
inline constexpr std::string_view Access;                       ///< ""
inline constexpr std::string_view DBase4 = "dBase IV;";         ///< a folder of tables
inline constexpr std::string_view FoxPro25 = "FoxPro 2.5;";     ///< a folder
inline constexpr std::string_view Paradox3 = "Paradox 3.X;";    ///< a folder
inline constexpr std::string_view Paradox4 = "Paradox 4.X;";    ///< a folder
inline constexpr std::string_view Excel5 = "Excel 5.0;";        ///< a file
inline constexpr std::string_view GeoPackage = "GeoPackage;";   ///< a file
inline constexpr std::string_view Excel12 = "Excel 12.0 Xml;";  ///< a file
}  // namespace Connect

/// True when two connect strings ask for the same format.
bool MemeFormat(std::string_view connect, std::string_view other);

/// A file (or folder of files) of another maker that is open.
class ForeignDatabase {
 public:
  virtual ~ForeignDatabase() = default;

  /// The tables whose rows can be read, with their attributes.
  virtual std::vector<TableDef> Tables() = 0;
  /// Tables that are there and whose rows cannot be read, with names and attributes: the maker's
  /// own, and damaged ones of a folder.
  virtual std::vector<TableDef> SystemTables() { return {}; }
  /// Saved queries; `fields` is not looked at.
  virtual std::vector<QueryDef> Queries() { return {}; }

  /// All rows of a table, one cell per field of its definition, in file order. A date is a number
  /// of days (FieldType::Date) or a text "yyyy-mm-dd" or "yyyy-mm-dd hh:mm:ss".
  virtual std::unique_ptr<RowSource> Rows(std::string_view table) = 0;
  /// How many there will be at most; -1 when only reading them tells.
  virtual std::int64_t NombreLignes(std::string_view table);

  // Writing. As they stand, both raise NotSupported (3251): the file is for reading.

  /// Makes an empty table. FieldDefs that the format has no type for raise NotSupported.
  virtual void CreeTable(const TableDef& table);
  /// Puts rows into a table that CreeTable has made, once: one cell per field, already checked
  /// against its definition. When the source throws, or a value does not go into the format
  /// (FieldTooSmall 3163, ...), the rows before stay, in a file that is whole, and the failure is
  /// thrown on. Returns the number of rows.
  virtual std::int64_t InsereLignes(std::string_view table, RowSource& rows);
};

class ForeignFormat {
 public:
  virtual ~ForeignFormat() = default;

  /// Who is called while files are read, those that are open already too. A format whose files
  /// are read in no time calls nobody.
  virtual void SuitAttente(const WorkBeat&) {}

  /// True when the file's head (or the connect string) is this format's.
  virtual bool Reconnait(const std::string& path, std::string_view connect) = 0;
  /// Opens for reading. Raises DatabaseNotFound (3024), UnrecognizedFormat (3343) for a damaged
  /// file.
  virtual std::unique_ptr<ForeignDatabase> Ouvre(const std::string& path) = 0;

  /// True when this format answers to the connect string and can be written. A format that is only
  /// read leaves this and the two below as they stand, which raise NotSupported (3251).
  virtual bool EstEcrit(std::string_view connect) const;
  /// Opens a folder, or the place of a file, for tables to be made in.
  virtual std::unique_ptr<ForeignDatabase> OuvrePourEcrire(const std::string& path);
  /// Makes a new, empty file for that.
  virtual std::unique_ptr<ForeignDatabase> Cree(const std::string& path,
                                                const NewDatabase& settings);
};

}  // namespace talpena
