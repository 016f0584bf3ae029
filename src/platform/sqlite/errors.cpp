#include "platform/sqlite/errors.h"

#include <sqlite3.h>

#include "common/msg_id_errors.h"
#include "common/paths.h"

namespace talpena::sqlite {
namespace {

/// A full disk is that of the database, whatever was being read meanwhile.
TalpenaError DossierPlein(sqlite3* db) {
  const char* path = db != nullptr ? sqlite3_db_filename(db, "main") : nullptr;
  if (path == nullptr || *path == 0) return {ErrorNumber::DiskFull, "Disk full."};
  std::string folder = DossierDe(path);
  if (folder.size() > 1) folder.pop_back();  // its separator
  return {ErrorNumber::DiskFull,
          std::string("Disk full: ") + path,
          {.text = MsgId::DossierPlein, .about = {folder}}};
}

std::string EntreApostrophes(std::string_view text) { return "'" + std::string(text) + "'"; }

struct ResultCode {
  int code;
  int number;
  const char* description;
};

// clang-format off
constexpr ResultCode resultCodes[] = {
    {SQLITE_INTERRUPT, ErrorNumber::Cancelled,         "Cancel was selected."},
    {SQLITE_IOERR,    ErrorNumber::DeviceFault,        "Device I/O error: the database file cannot be read or written."},
    {SQLITE_READONLY, ErrorNumber::ReadOnly,           "Cannot update. Database or object is read-only."},
    {SQLITE_AUTH,     ErrorNumber::ReadOnly,           "Cannot update. Database or object is read-only."},
    {SQLITE_CANTOPEN, ErrorNumber::PathFileAccess,     "Path/File access error: the database file cannot be opened."},
    {SQLITE_PERM,     ErrorNumber::PermissionDenied,   "Permission denied."},
    {SQLITE_BUSY,     ErrorNumber::FileInUse,          "Could not use the database; file already in use."},
    {SQLITE_LOCKED,   ErrorNumber::FileInUse,          "Could not use the database; file already in use."},
    {SQLITE_CORRUPT,  ErrorNumber::UnrecognizedFormat, "Unrecognized database format: the file is damaged."},
    {SQLITE_NOTADB,   ErrorNumber::UnrecognizedFormat, "Unrecognized database format."},
    {SQLITE_NOMEM,    ErrorNumber::OutOfMemory,        "Out of memory"},
    {SQLITE_TOOBIG,   ErrorNumber::QueryTooComplex,    "Query is too complex."},
};
// clang-format on

}  // namespace

TalpenaError DisquePlein(std::string_view path) {
  return {ErrorNumber::DiskFull, "Disk full: " + std::string(path), {.about = {std::string(path)}}};
}

TalpenaError AppelInvalide() { return {ErrorNumber::InvalidCall, "Invalid procedure call"}; }

TalpenaError Debordement() { return {ErrorNumber::Overflow, "Overflow"}; }

TalpenaError AccesRefuse(std::string_view path) {
  return {ErrorNumber::PathFileAccess,
          "Path/File access error: " + EntreApostrophes(path) + ".",
          {.about = {std::string(path)}}};
}

TalpenaError ArgumentInvalide() { return {ErrorNumber::InvalidArgument, "Invalid argument."}; }

TalpenaError TableExiste(std::string_view table) {
  return {ErrorNumber::TableExists,
          "Table " + EntreApostrophes(table) + " already exists.",
          {.about = {std::string(table)}}};
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
  return {ErrorNumber::DatabaseNotFound,
          "Could not find file " + EntreApostrophes(path) + ".",
          {.about = {std::string(path)}}};
}

TalpenaError LectureSeule() {
  return {ErrorNumber::ReadOnly, "Cannot update. Database or object is read-only."};
}

TalpenaError PasDeTransaction() {
  return {ErrorNumber::NoTransaction,
          "You tried to commit or rollback a transaction without first beginning a transaction."};
}

TalpenaError TableIntrouvable(std::string_view table) {
  return {ErrorNumber::TableNotFound,
          "The database engine cannot find the input table or query " + EntreApostrophes(table) +
              ". Make sure it exists and that its name is spelled "
              "correctly.",
          {.about = {std::string(table)}}};
}

TalpenaError SignetInvalide() { return {ErrorNumber::InvalidBookmark, "Not a valid bookmark."}; }

TalpenaError TropLong() {
  return {ErrorNumber::FieldTooSmall,
          "The field is too small to accept the amount of data you attempted to add. Try "
          "inserting or pasting less data."};
}

TalpenaError ChampFige() { return {ErrorNumber::FieldNotUpdatable, "Field cannot be updated."}; }

TalpenaError LigneSupprimee() { return {ErrorNumber::RecordDeleted, "Record is deleted."}; }

TalpenaError RequeteCirculaire(std::string_view query) {
  return {ErrorNumber::CircularReference,
          "Circular reference caused by " + EntreApostrophes(query) + ".",
          {.text = MsgId::RequeteEnCercle, .about = {std::string(query)}}};
}

TalpenaError RequeteSansTexte(std::string_view query) {
  return {
      ErrorNumber::NotSupported,
      "Operation is not supported: the saved query " + EntreApostrophes(query) + " cannot be run.",
      {.text = MsgId::RequeteImpossible, .about = {std::string(query)}}};
}

TalpenaError NonPrevu(std::string_view what) {
  return {ErrorNumber::NotSupported,
          "Operation is not supported: " + std::string(what) + ".",
          {.about = {std::string(what)}}};
}

TalpenaError ChampIntrouvable() {
  return {ErrorNumber::ItemNotFound, "Item not found in this collection."};
}

TalpenaError NullRefuse(std::string_view table, std::string_view field) {
  return {ErrorNumber::NullNotAllowed,
          "The field " + EntreApostrophes(std::string(table) + "." + std::string(field)) +
              " cannot contain a Null value because the Required property for this field is set "
              "to True. Enter a value in this field.",
          {.about = {std::string(field)}}};
}

TalpenaError VideRefuse(std::string_view table, std::string_view field) {
  return {ErrorNumber::ZeroLength,
          "Field " + EntreApostrophes(std::string(table) + "." + std::string(field)) +
              " cannot be a zero-length string.",
          {.about = {std::string(field)}}};
}

TalpenaError FormatInconnu(std::string_view path) {
  return {ErrorNumber::UnrecognizedFormat,
          "Unrecognized database format " + EntreApostrophes(path) + ".",
          {.about = {std::string(path)}}};
}

TalpenaError TropComplexe() { return {ErrorNumber::QueryTooComplex, "Query is too complex."}; }

TalpenaError ConversionImpossible() {
  return {ErrorNumber::DataConversion, "Data type conversion error."};
}

TalpenaError MotifInvalide() { return {ErrorNumber::InvalidPattern, "Invalid pattern string"}; }

TalpenaError ErreurSqlite(sqlite3* db, int resultCode) {
  const int primary = resultCode & 0xff;
  if (primary == SQLITE_CONSTRAINT) {
    const int extended = db != nullptr ? sqlite3_extended_errcode(db) : resultCode;
    if (extended == SQLITE_CONSTRAINT_DATATYPE) return ConversionImpossible();
    return CleEnDouble();
  }
  if (primary == SQLITE_FULL) return DossierPlein(db);
  for (const ResultCode& entry : resultCodes) {
    if (entry.code == primary) return {entry.number, entry.description};
  }
  const char* message = db != nullptr ? sqlite3_errmsg(db) : sqlite3_errstr(resultCode);
  return {ErrorNumber::EngineFault,
          std::string("The table engine failed: ") + message + ".",
          {.about = {message}}};
}

}  // namespace talpena::sqlite
