// Line breaks of texts that come from outside: typed, pasted, imported. The table knows one kind of
// break, LF, and only in remarks.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// A text of one line: each break (CR LF, CR, LF, vertical tab, form feed, and the separators of
/// lines and paragraphs U+0085, U+2028, U+2029) becomes a blank.
std::string SurUneLigne(std::string_view utf8);

/// A text that may have several lines, a COMMENT: each break becomes one LF.
std::string AvecSautsLf(std::string_view utf8);

}  // namespace talpena
