// Paradox tables as one of the formats that the table engine knows.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/foreign_format.h"

namespace talpena {

/// What files may be at most.
struct ParadoxLimits {
  std::size_t octetsFichier = std::size_t{2} << 30;  ///< of one that is written; never more
  std::size_t octetsMemo = std::size_t{64} << 20;    ///< of one long value
  std::uint32_t blocs = 65535;                       ///< of a table that is written; never more
};

/// Folders of tables, or the file of one, by the connect strings "Paradox 3.X;" and "Paradox 4.X;";
/// without one, a file that looks like a table.
///
/// Read are levels 3.0 to 7, with and without a key, with their memo files; indexes are left alone.
/// A damaged table ends in UnrecognizedFormat (3343), from Ouvre or from its rows, and never in
/// fewer rows than it counts; so does one with a password. In a folder, tables that cannot be
/// read are left out, unless no other is there. Cells: blanks are Null, texts among them; Logical
/// is -1 and 0; dates and times are days since 1899-12-30; texts and memos are UTF-8; all other
/// long values and Bytes are bytes.
///
/// Written is level 4 without a key, in code page 1252; level 5, whose blocks are larger, once a
/// table is beyond 256 MB, and where a column is a Boolean or a date, which level 4 lacks. Whole
/// numbers above a byte, and real ones, are Numbers: a Single is the shortest decimal that gives
/// it. Each table is whole on the disk after CreeTable and after InsereLignes, and rows that find
/// the disk full, or the file at its limit, leave those before them in a whole table. CreeTable
/// raises TableExists (3010), InvalidName (3125), RecordTooLarge (3047), TooManyFields (3190),
/// NotSupported (3251) for an index, InvalidArgument (3001) without columns, for two of one name or
/// a text of no length, FileExists (58) for a memo file that is nobody's. InsereLignes raises
/// FieldTooSmall (3163), NotInCodePage (481), DataConversion (3421) for a date that the format has
/// not, DiskFull (61), InvalidArgument (3001) at the limit.
std::unique_ptr<ForeignFormat> CreeFormatParadox(const ParadoxLimits& limits = {});

}  // namespace talpena
