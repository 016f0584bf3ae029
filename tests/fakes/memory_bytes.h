// A file that lies in memory.
#pragma once
#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "platform/foreign/bytes_at.h"

namespace talpena::test {

class MemoryBytes final : public BytesAt {
 public:
  explicit MemoryBytes(std::string bytes) : bytes_(std::move(bytes)) {}
  std::uint64_t Taille() const override { return bytes_.size(); }
  std::size_t Lit(std::uint64_t place, std::span<char> into) const override {
    if (place >= bytes_.size()) return 0;
    const std::size_t count = std::min<std::size_t>(into.size(), bytes_.size() - place);
    if (count > 0) std::memcpy(into.data(), bytes_.data() + place, count);
    return count;
  }

 private:
  std::string bytes_;
};

}  // namespace talpena::test
