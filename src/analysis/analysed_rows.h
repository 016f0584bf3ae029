// The rows that an analysis goes over: those chosen in the grid or, when none is, all that it
// shows.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "platform/chart.h"
#include "store/command_context.h"

namespace talpena {

class AnalysedRows {
 public:
  explicit AnalysedRows(CommandContext c);

  /// Hands over every row with all its fields, in no promised order, under the hourglass; the user
  /// may give up.
  void Parcourt(const RowVisitor& visit) const;
  /// @param sansDate  those of them that the chart passes over
  CountedRows Lesquelles(std::int64_t sansDate = 0) const;

 private:
  CommandContext c_;
  std::vector<Bookmark> chosen_;
};

/// Which rows were counted, in words; "" where that goes without saying.
std::string TexteDesLignes(std::int16_t langue, const CountedRows& rows);

/// Parts of a DATE, "yyyy/mm/dd", by the numeric parse of the characters at their places; 0 where
/// the text is too short, has no number there, or one that no calendar has.
struct DateParts {
  int year = 0;   ///< 1 to 9999
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
};
DateParts LitDate(std::string_view date);

/// The month alone, from the two characters at position 6.
int MoisDe(std::string_view date);

/// Twelve short names, January first.
std::vector<std::string> NomsDesMois(std::int16_t langue);

/// "Period 2"; what stands for rows without one.
std::string NomDePeriode(std::int16_t langue, const Cell& period);

}  // namespace talpena
