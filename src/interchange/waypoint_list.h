// The waypoints of a MapSource text as its list shows them: a text for each column, held as the
// lines of the file were, so that a hundred thousand take little more memory than the file.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

class WaypointList {
 public:
  /// Most bytes that are held; one waypoint more raises OutOfMemory (7).
  static constexpr std::size_t longest = std::size_t{256} << 20;

  std::size_t Nombre() const { return items_.size(); }
  /// Column 0 is the item's own text, the others are its sub-items; "" beyond the last. Valid until
  /// the next Ajoute.
  std::string_view Texte(std::size_t item, std::size_t column) const;
  std::int64_t Ligne(std::size_t item) const { return items_[item].line; }  ///< of the file, from 1

  /// @param elements  parted by tabs
  void Ajoute(std::string_view elements, std::int64_t line);

 private:
  struct Item {
    std::size_t end;  ///< in bytes_; it begins where the one before ends
    std::int64_t line;
  };
  std::string bytes_;
  std::vector<Item> items_;
};

/// Columns whose place does not depend on their captions.
namespace WaypointColumn {
inline constexpr std::size_t Name = 1, Description = 2, Position = 4;
}

}  // namespace talpena
