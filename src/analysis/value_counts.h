// How often each value occurs, and what follows from that: order statistics, mean, deviation.
#pragma once
#include <cstdint>
#include <optional>
#include <vector>

namespace talpena {

/// Minimum, quartiles and so on of whole numbers; all empty without values.
struct ValueSummary {
  std::int64_t count = 0;
  std::int64_t nulls = 0;
  std::optional<double> minimum, quartile1, median, quartile3, maximum, mean;
  std::optional<double> deviation;  ///< of the sample; empty below two values
};

class ValueCounts {
 public:
  void Ajoute(std::int64_t value) {
    if (value >= 0 && value < SmallValues) {
      const auto place = static_cast<std::size_t>(value);
      if (place >= small_.size()) small_.resize(place + 1);
      ++small_[place];
    } else {
      others_.push_back(value);
    }
  }
  void AjouteNull() { ++nulls_; }
  void Ajoute(const ValueCounts& more);

  /// Quartiles lie between the values, in proportion, as most programs of statistics have them.
  /// Source: Hyndman and Fan, The American Statistician 50 (1996), p. 361, definition 7.
  ValueSummary Resume() const;

 private:
  static constexpr std::int64_t SmallValues = 4096;

  std::vector<std::int64_t> small_;   ///< how often each from 0 on
  std::vector<std::int64_t> others_;  ///< below 0 and from SmallValues on, one by one
  std::int64_t nulls_ = 0;
};

}  // namespace talpena
