#include "platform/foreign/errors.h"

#include <string>

#include "common/msg_id_errors.h"

namespace talpena::foreign {

TalpenaError TexteTropLong(std::string_view column) {
  return {ErrorNumber::FieldTooSmall,
          "The field is too small to accept the amount of data you attempted to add. Try "
          "inserting or pasting less data.",
          {.about = {std::string(column)}}};
}

TalpenaError LigneTropLongue() { return {ErrorNumber::RecordTooLarge, "Record is too large.", {}}; }

TalpenaError NomRefuse(std::string_view name) {
  return {ErrorNumber::InvalidName,
          "'" + std::string(name) +
              "' is not a valid name. Make sure that it does not include invalid characters or "
              "punctuation and that it is not too long.",
          {.about = {std::string(name)}}};
}

TalpenaError TableExiste(std::string_view table) {
  return {ErrorNumber::TableExists,
          "Table '" + std::string(table) + "' already exists.",
          {.about = {std::string(table)}}};
}

TalpenaError DefinitionRefusee() { return {ErrorNumber::InvalidArgument, "Invalid argument.", {}}; }

TalpenaError TropDeColonnes() {
  return {ErrorNumber::TooManyFields, "Too many fields defined.", {}};
}

TalpenaError FichierPlein(std::string_view path) {
  return {ErrorNumber::InvalidArgument,
          "Invalid argument: '" + std::string(path) + "' has reached the limit of its format.",
          {.text = MsgId::FichierAccessPlein, .about = {std::string(path)}}};
}

TalpenaError NonEcrit(std::string_view what) {
  return {ErrorNumber::NotSupported,
          "Operation is not supported: " + std::string(what) + ".",
          {.about = {std::string(what)}}};
}

TalpenaError TableIntrouvable(std::string_view table) {
  return {ErrorNumber::TableNotFound,
          "The database engine cannot find the table '" + std::string(table) + "'.",
          {.about = {std::string(table)}}};
}

TalpenaError FormatInconnu(std::string_view path) {
  return {ErrorNumber::UnrecognizedFormat,
          "Unrecognized database format '" + std::string(path) + "'.",
          {.about = {std::string(path)}}};
}

}  // namespace talpena::foreign
