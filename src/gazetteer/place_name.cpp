#include "gazetteer/place_name.h"

#include "common/numbers.h"
#include "common/text.h"
#include "gazetteer/state.h"

namespace talpena {

void GeoFormat(std::string& text) {
  for (std::size_t n = 1; n <= RegionCount && text.find('<') != std::string::npos; ++n) {
    const std::string end = std::to_string(n) + ">";
    for (const char* start : {"<B", "</B", "<N", "</N", "<I", "</I"}) {
      text = Remplace(text, start + end, "");
    }
  }
  text = Remplace(text, "/", "-");
}

int NumeroPolice(std::string_view name) {
  constexpr std::size_t behind = 2;
  const std::size_t tag = name.find('<');
  if (tag == std::string_view::npos) return 1;
  if (name.size() - tag <= behind) return 0;
  return static_cast<int>(Val(name.substr(tag + behind, 1)));
}

}  // namespace talpena
