// Folders of dBase and FoxPro tables as formats that the table engine knows.
#pragma once
#include <memory>

#include "platform/foreign/dbase/limits.h"
#include "platform/foreign_format.h"

namespace talpena {

/// dBase III and IV, FoxBASE and FoxPro before its visual days are read, under either connect
/// string, from the folder or the file of one table; a file that looks like such a table also
/// without one. A folder's tables are the files ".dbf" that can be read. Deleted rows are left out,
/// indexes are not looked at, and nothing is written beside a file.
///
/// Cells: numbers as real ones, Null for blanks and for what is no number; Boolean -1, 0 or Null;
/// Date in days since 1899-12-30; texts and memos as UTF-8, blanks as "". Memos are Null when their
/// file is missing. Rows raise UnrecognizedFormat (3343) where a file is damaged, never fewer than
/// the table counts.
///
/// Tables are made as files of their own, ".dbf" and, for memos, ".dbt" or ".fpt". They are whole
/// on the disk after each step, empty and with their rows; rows that find the disk full, or a file
/// at its limit, leave those before them. CreeTable raises TableExists (3010) for a name that is
/// there in any case of letters, FileExists (58) for its memo file alone, InvalidName (3125) for a
/// column whose name, in capitals and with "_" for blanks, is longer than 10 characters, has others
/// than letters from A to Z, digits and "_", does not begin with a letter or is that of another
/// column; NotSupported (3251) for an index and for columns of bytes or of texts above 254
/// characters, TooManyFields (3190), RecordTooLarge (3047). InsereLignes raises FieldTooSmall
/// (3163), NotInCodePage (481), DiskFull (61), InvalidArgument (3001) at the limit.
std::unique_ptr<ForeignFormat> CreeFormatDbase(const LimitesDbase& limits = {});   ///< dBase IV
std::unique_ptr<ForeignFormat> CreeFormatFoxPro(const LimitesDbase& limits = {});  ///< FoxPro 2.5

}  // namespace talpena
