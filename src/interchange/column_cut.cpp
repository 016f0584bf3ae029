#include "interchange/column_cut.h"

#include <algorithm>
#include <cstddef>

#include "common/text.h"

namespace talpena {

std::string_view CoupeColonne(std::string_view text, int begin, int length) {
  const auto before = static_cast<std::size_t>(std::max(begin, 1) - 1);
  text.remove_prefix(PremiersCaracteres(text, before).size());
  return PremiersCaracteres(text, static_cast<std::size_t>(std::max(length, 0)));
}

}  // namespace talpena
