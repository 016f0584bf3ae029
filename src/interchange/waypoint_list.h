// The waypoints of a MapSource text as its list shows them: a text for each column, held as the
// lines of the file were, so that a hundred thousand take little more memory than the file.
#pragma once
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

class WaypointList {
 public:
  /// Most bytes of memory that are taken; one waypoint more raises OutOfMemory (7).
  static constexpr std::size_t longest = std::size_t{128} << 20;

  WaypointList() = default;  // no copies: items point into the blocks
  WaypointList(WaypointList&&) = default;
  WaypointList& operator=(WaypointList&&) = default;

  std::size_t Nombre() const { return items_.size(); }
  /// Column 0 is the item's own text, the others are its sub-items; "" beyond the last. Valid as
  /// long as the list.
  std::string_view Texte(std::size_t item, std::size_t column) const;
  std::int64_t Ligne(std::size_t item) const { return items_[item].line; }  ///< of the file, from 1

  /// @param elements  parted by tabs
  void Ajoute(std::string_view elements, std::int64_t line);

 private:
  struct Item {
    const char* text;  ///< in one of the blocks, which stay where they are
    std::uint32_t length;
    std::uint32_t line;
  };
  void CommenceBloc(std::size_t bytes);

  /// Filled to their capacity: what grows in one piece takes twice its size on the way.
  std::vector<std::string> blocks_;
  std::deque<Item> items_;
  std::size_t bytes_ = 0;  ///< of all blocks
};

/// Columns whose place does not depend on their captions.
namespace WaypointColumn {
inline constexpr std::size_t Name = 1, Description = 2, Position = 4;
}

}  // namespace talpena
