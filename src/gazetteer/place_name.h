// Display names of a gazetteer: they hold font tags such as <B3>.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// Removes the tags <Bn>, </Bn>, <Nn>, </Nn>, <In>, </In> of the fonts 1 to 6, in this order, each
/// everywhere, and makes every "/" left a "-". Small letters are no tags.
void GeoFormat(std::string& text);

/// The font that a name asks for: the value of the character two places behind its first "<"; 1
/// without one. May be outside 1 to 6.
int NumeroPolice(std::string_view name);

/// The most characters that are taken of a name.
inline constexpr std::size_t LongestPlaceName = 200;

}  // namespace talpena
