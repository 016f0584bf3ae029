// Rows one behind the other on data pages.
#pragma once
#include <cstdint>
#include <string_view>

#include "platform/foreign/jet/bytes.h"
#include "platform/foreign/jet/page_file.h"
#include "platform/foreign/jet/usage_map.h"

namespace talpena::jet {

class RowPages {
 public:
  /// A page takes one row of this many bytes at most.
  static constexpr std::size_t longest = 4076;
  /// Whom pages of long values name as their owner: "LVAL".
  static constexpr std::uint32_t longValues = 0x4C41564C;

  /// @param owner  page of the table's definition, or longValues
  /// @param used   takes the pages
  RowPages(PageFile& file, std::uint32_t owner, UsageMap& used)
      : file_(file), owner_(owner), used_(used) {}

  /// Puts a row down. When it throws, all rows before stay as they are.
  Place Ajoute(std::string_view row);
  /// Writes the page that still has room.
  void Ecrit();
  /// That page; 0 for none.
  std::uint32_t Courante() const { return number_; }

 private:
  bool Tient(std::size_t bytes) const;
  void Ouvre();

  PageFile& file_;
  std::uint32_t owner_;
  UsageMap& used_;
  Page page_{};
  std::uint32_t number_ = 0;
  std::uint32_t rows_ = 0;
  std::size_t start_ = taillePage;  ///< of the last row
};

}  // namespace talpena::jet
