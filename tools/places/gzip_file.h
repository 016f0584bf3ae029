// Texts in gzip files.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// The whole text; a file that is not compressed is read as it is. Throws std::runtime_error naming
/// the path when it cannot be read or is damaged.
std::string LitGzip(const std::string& path);

/// The same text gives the same bytes whenever it is written. Throws std::runtime_error.
void EcritGzip(const std::string& path, std::string_view text);

}  // namespace talpena
