// What a file that is imported gives, one record after another. The import and its rehearsal read
// with the same reader, so that what is shown beforehand is what will happen.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

namespace talpena {

/// The columns that an import writes; those left empty stay Null, and so do LATITUDE, LONGITUDE
/// and SEX.
struct ImportedRow {
  std::int16_t period = 0;
  std::optional<std::int32_t> n1;
  std::optional<std::int32_t> n2;
  std::string datum;                    ///< DatumCode, five characters
  std::optional<std::string> original;  ///< code and tokens
  std::optional<std::string> date;
  std::optional<std::string> comment;
};

struct ImportRecord {
  std::int64_t line = 0;  ///< of the file, where the record begins; from 1
  int dropped = 0;        ///< base id of the text that says why it does not enter; 0 when it enters
  int doubt = 0;          ///< base id of what is odd about one that enters; 0 for nothing
  ImportedRow row;
};

class ImportReader {
 public:
  virtual ~ImportReader() = default;
  /// The next record; false behind the last. What ends an import before the end of the file is
  /// thrown, with its line, and every further call throws it again.
  virtual bool Suivant(ImportRecord& record) = 0;
  /// Behind the last record: the line whose byte 1A ended the file though more stands behind it; 0
  /// for none.
  virtual std::int64_t LigneCoupee() const { return 0; }
  /// How much of the file was read, 0 to 1.
  virtual double Part() const = 0;
};

}  // namespace talpena
