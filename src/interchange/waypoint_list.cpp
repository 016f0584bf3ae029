#include "interchange/waypoint_list.h"

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"

namespace talpena {

std::string_view WaypointList::Texte(std::size_t item, std::size_t column) const {
  const std::size_t first = item == 0 ? 0 : items_[item - 1].end;
  std::string_view left(bytes_.data() + first, items_[item].end - first);
  for (; column > 0; --column) {
    const std::size_t tab = left.find('\t');
    if (tab == std::string_view::npos) return {};
    left.remove_prefix(tab + 1);
  }
  return left.substr(0, left.find('\t'));
}

void WaypointList::Ajoute(std::string_view elements, std::int64_t line) {
  if (elements.size() > longest - bytes_.size()) {
    throw TalpenaError(ErrorNumber::OutOfMemory, "Out of memory", {.text = MsgId::TropDePoints});
  }
  bytes_.append(elements);
  items_.push_back({bytes_.size(), line});
}

}  // namespace talpena
