// One row line of a .deg file as the values of a row.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena {

/// The values of a row line. Texts are UTF-8.
struct DegRow {
  std::int16_t period = 0;
  float latitude = 0;   ///< decimal degrees, north positive
  float longitude = 0;  ///< decimal degrees, east positive
  std::int32_t n1 = 0;
  std::int32_t n2 = 0;
  std::string sex;  ///< empty for Null
  std::string datum;
  std::string original;
  std::string date;
  std::string comment;  ///< with the separators of all free fields
};

enum class RowKind {
  Row,        ///< a line of more than 31 characters
  BarePoint,  ///< a shorter one: a point with the datum EUR-M and its degrees as ORIGINAL
  End,        ///< a short line with "FIN DU": the data end here
};

/// Reads row lines one behind the other. Date, sex, datum, original and comment stay from line
/// to line where a line is too short to hold them.
class DegRowReader {
 public:
  /// @param separator   between the free fields, UTF-8
  /// @param freeFields  their number; 0 leaves comments as they stand
  /// Separators for all fields that would take more than 128 KB a row raise Overflow (6).
  DegRowReader(std::string separator, std::size_t freeFields);

  /// Takes a line, in bytes, into Ligne(). A number that its column cannot hold raises
  /// Overflow (6). Constant time but for copying the comment; memory is used again.
  RowKind Lit(std::string_view line);

  const DegRow& Ligne() const { return row_; }

 private:
  void LitNombres(std::string_view line);
  void LitOrigine(std::string_view line);
  void LitPoint(std::string_view line);
  void CompleteCommentaire();

  std::string separator_;
  std::size_t freeFields_;
  std::string padding_;  ///< the separators of an empty comment
  DegRow row_;
};

}  // namespace talpena
