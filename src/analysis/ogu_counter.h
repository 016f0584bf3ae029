// Operational geographic units: the distinct points at which a number was recorded.
#pragma once
#include <functional>
#include <optional>
#include <utility>

namespace talpena {

/// Latitude and longitude as they are stored, 32-bit floats; empty when one of them is Null.
using UnitPosition = std::optional<std::pair<float, float>>;

/// Counts distinct positions for each value, over rows that come ordered by value, latitude and
/// longitude, with Null before everything.
class OguCounter {
 public:
  /// Not called for a value that is Null, 0 or negative.
  using Receiver = std::function<void(double value, int units)>;
  explicit OguCounter(Receiver send) : send_(std::move(send)) {}

  void Ajoute(std::optional<double> value, const UnitPosition& position) {
    if (!begun_ || value != value_) {
      Termine();
      begun_ = true;
      value_ = value;
      units_ = 1;  // also for a row without a position
    } else if (position && position != last_) {
      ++units_;
    }
    // A missing position leaves the one before, also that of another value: the first position
    // behind it is a unit more unless it is that one.
    // Held by OguCounter.APositionBehindAMissingOneIsAUnitMore.
    if (position) last_ = position;
  }

  /// Behind the last row.
  void Termine() {
    if (begun_ && value_ && *value_ > 0) send_(*value_, units_);
    begun_ = false;
  }

 private:
  Receiver send_;
  bool begun_ = false;
  std::optional<double> value_;
  UnitPosition last_;
  int units_ = 0;
};

}  // namespace talpena
