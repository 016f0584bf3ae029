// Texts that cells of a workbook share: a cell holds the number of one.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace talpena::excel {

/// All in one place, so that many short texts take little more memory than their bytes.
class SharedTexts {
 public:
  /// Where the next text is added; Finit ends it. False when there are more than a workbook may
  /// have, in number or in bytes.
  std::string& Suite() { return bytes_; }
  [[nodiscard]] bool Finit() {
    ends_.push_back(static_cast<std::uint32_t>(bytes_.size()));
    return ends_.size() <= mostTexts && bytes_.size() <= mostBytes;
  }

  std::optional<std::string_view> Texte(std::size_t number) const {
    if (number >= ends_.size()) return {};
    const std::size_t from = number == 0 ? 0 : ends_[number - 1];
    return std::string_view(bytes_).substr(from, ends_[number] - from);
  }

 private:
  static constexpr std::size_t mostTexts = std::size_t{8} << 20;
  static constexpr std::size_t mostBytes = std::size_t{64} << 20;

  std::string bytes_;
  std::vector<std::uint32_t> ends_;
};

}  // namespace talpena::excel
