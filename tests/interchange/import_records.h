// What a reader gives, as texts.
#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/numbers.h"
#include "fakes/memory_input.h"
#include "interchange/import_reader.h"
#include "platform/import_file.h"
#include "store/distribution_header.h"

namespace talpena::test {

/// Borrowed bytes as an import file.
inline ImportFile EnMemoire(std::string_view bytes) {
  return PrendImport(std::make_unique<MemoryInput>(bytes),
                     ChercheEncodage(std::make_unique<MemoryInput>(bytes)));
}

inline std::string OuNull(const std::optional<std::string>& text) { return text.value_or("-"); }
inline std::string OuNull(const std::optional<std::int32_t>& number) {
  return number ? Str(std::int64_t{*number}) : "-";
}

/// Period, N1, N2, datum, ORIGINAL, date and comment, "-" for Null.
inline std::string Texte(const ImportedRow& row) {
  return Str(std::int64_t{row.period}) + "|" + OuNull(row.n1) + "|" + OuNull(row.n2) + "|" +
         row.datum + "|" + OuNull(row.original) + "|" + OuNull(row.date) + "|" +
         OuNull(row.comment);
}

/// All records: "line: row", or "line: dropped ID".
inline std::vector<std::string> Fiches(ImportReader& reader) {
  std::vector<std::string> all;
  ImportRecord record;
  while (reader.Suivant(record)) {
    all.push_back(
        Str(record.line) + ": " +
        (record.dropped != 0 ? "dropped " + std::to_string(record.dropped) : Texte(record.row)));
  }
  return all;
}

/// What is odd about the records, 0 for nothing.
inline std::vector<int> Doutes(ImportReader& reader) {
  std::vector<int> all;
  for (ImportRecord record; reader.Suivant(record);) all.push_back(record.doubt);
  return all;
}

/// A header whose free fields have these codes.
inline DistributionHeader EnteteAvec(const std::vector<std::string>& codes,
                                     std::string separator = "/") {
  DistributionHeader entete;
  for (const std::string& code : codes) entete.FreeFieldDefs.push_back({code, code, 10});
  entete.FreeFieldCount = static_cast<std::int16_t>(codes.size());
  entete.FreeFieldSeparator = std::move(separator);
  return entete;
}

}  // namespace talpena::test
