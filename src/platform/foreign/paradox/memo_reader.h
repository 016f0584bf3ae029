// Long values of a Paradox table: what a record has of them, and the memo file.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/foreign/paradox/input.h"

namespace talpena::paradox {

/// Where a long value is, as its record says.
struct LongValue {
  std::uint32_t length = 0;
  std::uint32_t place = 0;  ///< of its block in the memo file; 0 when all of it is in the record
  unsigned entry = 0;       ///< in its block: singleValue, or which of the small values
  std::string_view leader;  ///< its beginning, in the record

  static constexpr unsigned singleValue = 255;
};

/// From the bytes of a record; at least referenceBytes.
LongValue ReferenceLue(std::string_view bytes);

class MemoReader {
 public:
  using Piece = std::function<void(std::string_view bytes)>;

  /// @param most  bytes of one value
  MemoReader(Input file, std::size_t most) : file_(std::move(file)), most_(most) {}

  /// Hands a value over in pieces. One that is not there raises UnrecognizedFormat (3343), and so
  /// do more bytes, over all values, than the file has: no value of a sound file stands in two
  /// records.
  void Lit(const LongValue& value, const Piece& piece);

 private:
  std::uint64_t PlaceDe(const LongValue& value) const;
  std::uint64_t PlaceSeule(const LongValue& value) const;
  std::uint64_t PlaceCommune(const LongValue& value) const;

  Input file_;
  std::size_t most_;
  std::uint64_t handedOver_ = 0;
};

}  // namespace talpena::paradox
