// A text as an open file.
#pragma once
#include <algorithm>
#include <span>
#include <string_view>

#include "platform/files.h"

namespace talpena::test {

/// Reads borrowed bytes, at most `block` at a time.
class MemoryInput : public InputFile {
 public:
  explicit MemoryInput(std::string_view bytes, std::size_t block = 1 << 20)
      : bytes_(bytes), size_(static_cast<std::int64_t>(bytes.size())), block_(block) {}
  std::size_t Lit(std::span<char> buffer) override {
    const std::size_t count = std::min({buffer.size(), bytes_.size(), block_});
    std::copy_n(bytes_.data(), count, buffer.data());
    bytes_.remove_prefix(count);
    return count;
  }
  std::int64_t Taille() const override { return size_; }

 private:
  std::string_view bytes_;
  std::int64_t size_;
  std::size_t block_;
};

}  // namespace talpena::test
