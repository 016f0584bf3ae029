// Values too long for a row: memos and bytes of any length.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/foreign/jet/row_pages.h"
#include "platform/foreign/jet/usage_map.h"

namespace talpena::jet {

/// Those of one column.
class LongValues {
 public:
  /// No value may be longer; what reads these files sets the bound.
  static constexpr std::size_t longest = std::size_t{64} << 20;

  LongValues(PageFile& file, MapRows& maps)
      : used_(file, maps), free_(file, maps), pages_(file, RowPages::longValues, used_) {}

  /// Puts a value down and adds to a row what stands for it there: the whole value when it is
  /// short, else where it begins.
  void Range(std::string_view value, std::string& row);
  void Ecrit();

  Place Pages() const { return used_.Lieu(); }
  Place PagesLibres() const { return free_.Lieu(); }

 private:
  Place RangeEnChaine(std::string_view value);

  UsageMap used_;
  UsageMap free_;
  RowPages pages_;
  std::string piece_;
};

}  // namespace talpena::jet
