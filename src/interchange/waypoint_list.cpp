#include "interchange/waypoint_list.h"

#include <algorithm>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"

namespace talpena {
namespace {

constexpr std::size_t waypointBlockBytes = std::size_t{1} << 20;

}  // namespace

std::string_view WaypointList::Texte(std::size_t item, std::size_t column) const {
  std::string_view left(items_[item].text, items_[item].length);
  for (; column > 0; --column) {
    const std::size_t tab = left.find('\t');
    if (tab == std::string_view::npos) return {};
    left.remove_prefix(tab + 1);
  }
  return left.substr(0, left.find('\t'));
}

/// With room for so many bytes.
void WaypointList::CommenceBloc(std::size_t bytes) {
  const std::size_t taken = bytes_ + (items_.size() + 1) * sizeof(Item);
  const std::size_t room = std::max(waypointBlockBytes, bytes);
  if (taken > longest || room > longest - taken) {
    throw TalpenaError(ErrorNumber::OutOfMemory, "Out of memory", {.text = MsgId::TropDePoints});
  }
  blocks_.emplace_back().reserve(room);
  bytes_ += room;
}

void WaypointList::Ajoute(std::string_view elements, std::int64_t line) {
  if (blocks_.empty() || blocks_.back().capacity() - blocks_.back().size() < elements.size()) {
    CommenceBloc(elements.size());
  }
  std::string& block = blocks_.back();
  const std::size_t begin = block.size();
  block.append(elements);
  items_.push_back({block.data() + begin, static_cast<std::uint32_t>(elements.size()),
                    static_cast<std::uint32_t>(line)});
}

}  // namespace talpena
