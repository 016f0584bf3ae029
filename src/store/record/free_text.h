// COMMENT: the free fields and the remark that it holds.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

struct FreeText {
  std::vector<std::string> fields;  ///< as many as the file defines
  std::string remark;               ///< lines end in CR LF
};

/// Splits a COMMENT at `count` separators at most: the remark keeps all further ones. A text
/// without a separator is the remark; one with fewer than `count` has none.
FreeText DecoupeTexteLibre(std::string_view comment, std::string_view separator, std::size_t count);

/// The COMMENT: each field, on one line, with a separator behind it, then the remark with LF as its
/// line end.
std::string AssembleTexteLibre(const std::vector<std::string>& fields, std::string_view remark,
                               std::string_view separator);

}  // namespace talpena
