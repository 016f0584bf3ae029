// An index whose entries fit on one page: those of the catalogue.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/foreign/jet/bytes.h"
#include "platform/foreign/jet/page_file.h"
#include "platform/foreign/jet/usage_map.h"

namespace talpena::jet {

class IndexLeaf {
 public:
  /// @param table  page of the definition of the table that it belongs to
  IndexLeaf(PageFile& file, MapRows& maps, std::uint32_t table);

  /// True when an entry for a key of this length still fits.
  bool Tient(std::size_t keyBytes) const;
  void Ajoute(const std::string& key, Place row);
  void Ecrit();

  std::uint32_t NumeroDePage() const { return page_; }
  Place Pages() const { return used_.Lieu(); }
  std::uint32_t ClesDifferentes() const;

 private:
  PageFile& file_;
  std::uint32_t table_;
  std::uint32_t page_;
  UsageMap used_;
  std::vector<std::string> entries_;  ///< key and place of the row; they ascend
  std::size_t bytes_ = 0;
};

}  // namespace talpena::jet
