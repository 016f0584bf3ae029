#include "common/line_breaks.h"

#include <algorithm>
#include <array>

namespace talpena {
namespace {

/// The longer before the shorter that it begins with.
constexpr std::array<std::string_view, 8> breaks = {
    "\r\n", "\r", "\n", "\v", "\f", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"};

/// What a break may begin with.
constexpr std::string_view firstBytes = "\r\n\v\f\xC2\xE2";

/// Bytes of the break at the head of a text; 0 when there is none.
std::size_t LongueurSaut(std::string_view text) {
  const auto* const found = std::find_if(
      breaks.begin(), breaks.end(), [text](std::string_view b) { return text.starts_with(b); });
  return found == breaks.end() ? 0 : found->size();
}

std::string RemplaceSauts(std::string_view text, char replacement) {
  std::string out;
  out.reserve(text.size());
  while (true) {
    const std::size_t at = text.find_first_of(firstBytes);
    out += text.substr(0, at);
    if (at == std::string_view::npos) return out;
    text.remove_prefix(at);
    const std::size_t length = LongueurSaut(text);
    out += length > 0 ? replacement : text.front();
    text.remove_prefix(std::max(length, std::size_t{1}));
  }
}

}  // namespace

std::string SurUneLigne(std::string_view utf8) { return RemplaceSauts(utf8, ' '); }

std::string AvecSautsLf(std::string_view utf8) { return RemplaceSauts(utf8, '\n'); }

}  // namespace talpena
