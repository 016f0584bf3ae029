// The rows of a rehearsal, kept compactly: all of them can be looked at, in bounded memory.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "coord_commands/row_point_reader.h"

namespace talpena {

/// What would become of one record.
struct RehearsedRow {
  enum class Fate : std::uint8_t {
    Entre,
    Loin,  ///< enters, far from all others
    SansPoint,
    Omise  ///< does not enter
  };
  Fate fate = Fate::Entre;
  std::int64_t line = 0;  ///< of the file, from 1
  int dropped = 0;        ///< base id of why it does not enter
  int doubt = 0;          ///< base id of what is odd about one that enters; 0 for nothing
  std::int16_t period = 0;
  std::optional<std::int32_t> n1, n2;
  ReadPoint point;  ///< of a row without one: why
  std::string original, date, comment, datum;

  bool EstProbleme() const { return fate != Fate::Entre || doubt != 0; }
};

/// Long texts are cut. Beyond a size that files seldom have only rows with a problem are kept, then
/// none.
class RehearsedRows {
 public:
  /// @param room  bytes that rows may take; a quarter more for those with a problem
  explicit RehearsedRows(std::size_t room = std::size_t{88} << 20) : room_(room) {}

  /// False when there was no room: the row is not kept.
  bool Ajoute(const RehearsedRow& row);
  std::int64_t Nombre() const { return static_cast<std::int64_t>(rows_.size()); }
  std::int64_t NonGardees() const { return skipped_; }
  RehearsedRow Ligne(std::int64_t index) const;
  /// Whether the row, which enters with a point, is far from all others.
  void MarqueLoin(std::int64_t index, bool far);
  /// The first row with a problem from an index on; -1 when there is none.
  std::int64_t ProchainProbleme(std::int64_t from) const;

 private:
  /// Original, date and comment stand behind each other in a block.
  struct Kept {
    std::uint32_t line;
    std::uint16_t block, offset;
    float latitude, longitude;  ///< or the degrees of a fault
    std::int32_t n1, n2;
    std::int16_t period, dropped, doubt;
    std::array<std::uint8_t, 3> lengths;
    std::uint8_t datum;
    bool hasN1, hasN2;
    RehearsedRow::Fate fate;
    ReadPoint::Outcome outcome;
    FauteDeLigne::Cause cause;
  };

  void GardeTextes(const RehearsedRow& row, Kept& kept);
  std::uint8_t GardeDatum(const std::string& datum);

  std::size_t room_;
  std::size_t used_ = 0;
  std::int64_t skipped_ = 0;
  std::deque<Kept> rows_;
  std::vector<std::string> blocks_;
  std::vector<std::string> datums_;
};

}  // namespace talpena
