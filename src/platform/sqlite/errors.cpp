#include "platform/sqlite/errors.h"

#include <sqlite3.h>

namespace talpena::sqlite {
namespace {

std::string EntreApostrophes(std::string_view text) { return "'" + std::string(text) + "'"; }

struct ResultCode {
  int code;
  int number;
  const char* description;
};

// clang-format off
constexpr ResultCode resultCodes[] = {
    {SQLITE_INTERRUPT, ErrorNumber::Cancelled,         "Cancel was selected."},
    {SQLITE_FULL,     ErrorNumber::DiskFull,           "Disk full."},
    {SQLITE_IOERR,    ErrorNumber::DeviceFault,        "Device I/O error: the database file cannot be read or written."},
    {SQLITE_READONLY, ErrorNumber::ReadOnly,           "Cannot update. Database or object is read-only."},
    {SQLITE_AUTH,     ErrorNumber::ReadOnly,           "Cannot update. Database or object is read-only."},
    {SQLITE_CANTOPEN, ErrorNumber::PathFileAccess,     "Path/File access error: the database file cannot be opened."},
    {SQLITE_PERM,     ErrorNumber::PermissionDenied,   "Permission denied."},
    {SQLITE_BUSY,     EngineError::FileInUse,          "Could not use the database; file already in use."},
    {SQLITE_LOCKED,   EngineError::FileInUse,          "Could not use the database; file already in use."},
    {SQLITE_CORRUPT,  ErrorNumber::UnrecognizedFormat, "Unrecognized database format: the file is damaged."},
    {SQLITE_NOTADB,   ErrorNumber::UnrecognizedFormat, "Unrecognized database format."},
    {SQLITE_NOMEM,    EngineError::OutOfMemory,        "Out of memory"},
    {SQLITE_TOOBIG,   EngineError::QueryTooComplex,    "Query is too complex."},
};
// clang-format on

}  // namespace

TalpenaError AppelInvalide() {
  return {EngineError::InvalidProcedureCall, "Invalid procedure call"};
}

TalpenaError Debordement() { return {ErrorNumber::Overflow, "Overflow"}; }

TalpenaError AccesRefuse(std::string_view path) {
  return {ErrorNumber::PathFileAccess, "Path/File access error: " + EntreApostrophes(path) + "."};
}

TalpenaError ArgumentInvalide() { return {ErrorNumber::InvalidArgument, "Invalid argument."}; }

TalpenaError TableExiste(std::string_view table) {
  return {ErrorNumber::TableExists, "Table " + EntreApostrophes(table) + " already exists."};
}

TalpenaError SansEdition() {
  return {ErrorNumber::UpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit."};
}

TalpenaError PasDeLigne() { return {ErrorNumber::NoCurrentRecord, "No current record."}; }

TalpenaError CleEnDouble() {
  return {ErrorNumber::DuplicateKey,
          "The changes you requested to the table were not successful because they would create "
          "duplicate values in the index, primary key, or relationship."};
}

TalpenaError FichierIntrouvable(std::string_view path) {
  return {ErrorNumber::DatabaseNotFound, "Could not find file " + EntreApostrophes(path) + "."};
}

TalpenaError LectureSeule() {
  return {ErrorNumber::ReadOnly, "Cannot update. Database or object is read-only."};
}

TalpenaError PasDeTransaction() {
  return {ErrorNumber::NoTransaction,
          "You tried to commit or rollback a transaction without first beginning a transaction."};
}

TalpenaError TableIntrouvable(std::string_view table) {
  return {ErrorNumber::TableNotFound, "The database engine cannot find the input table or query " +
                                          EntreApostrophes(table) +
                                          ". Make sure it exists and that its name is spelled "
                                          "correctly."};
}

TalpenaError SignetInvalide() { return {ErrorNumber::InvalidBookmark, "Not a valid bookmark."}; }

TalpenaError TropLong() {
  return {ErrorNumber::FieldTooSmall,
          "The field is too small to accept the amount of data you attempted to add. Try "
          "inserting or pasting less data."};
}

TalpenaError ChampFige() { return {EngineError::FieldNotUpdatable, "Field cannot be updated."}; }

TalpenaError LigneSupprimee() { return {EngineError::RecordDeleted, "Record is deleted."}; }

TalpenaError RequeteCirculaire(std::string_view query) {
  return {EngineError::CircularReference,
          "Circular reference caused by " + EntreApostrophes(query) + "."};
}

TalpenaError NonPrevu(std::string_view what) {
  return {ErrorNumber::NotSupported, "Operation is not supported: " + std::string(what) + "."};
}

TalpenaError ChampIntrouvable() {
  return {ErrorNumber::ItemNotFound, "Item not found in this collection."};
}

TalpenaError NullRefuse(std::string_view table, std::string_view field) {
  return {ErrorNumber::NullNotAllowed,
          "The field " + EntreApostrophes(std::string(table) + "." + std::string(field)) +
              " cannot contain a Null value because the Required property for this field is set "
              "to True. Enter a value in this field."};
}

TalpenaError VideRefuse(std::string_view table, std::string_view field) {
  return {ErrorNumber::ZeroLength,
          "Field " + EntreApostrophes(std::string(table) + "." + std::string(field)) +
              " cannot be a zero-length string."};
}

TalpenaError FormatInconnu(std::string_view path) {
  return {ErrorNumber::UnrecognizedFormat,
          "Unrecognized database format " + EntreApostrophes(path) + "."};
}

TalpenaError TropComplexe() { return {EngineError::QueryTooComplex, "Query is too complex."}; }

TalpenaError ConversionImpossible() {
  return {ErrorNumber::DataConversion, "Data type conversion error."};
}

TalpenaError MotifInvalide() { return {EngineError::InvalidPattern, "Invalid pattern string"}; }

TalpenaError ErreurSqlite(sqlite3* db, int resultCode) {
  const int primary = resultCode & 0xff;
  if (primary == SQLITE_CONSTRAINT) {
    const int extended = db != nullptr ? sqlite3_extended_errcode(db) : resultCode;
    if (extended == SQLITE_CONSTRAINT_DATATYPE) return ConversionImpossible();
    return CleEnDouble();
  }
  for (const ResultCode& entry : resultCodes) {
    if (entry.code == primary) return {entry.number, entry.description};
  }
  const char* message = db != nullptr ? sqlite3_errmsg(db) : sqlite3_errstr(resultCode);
  return {EngineError::EngineFault, std::string("The table engine failed: ") + message + "."};
}

}  // namespace talpena::sqlite
