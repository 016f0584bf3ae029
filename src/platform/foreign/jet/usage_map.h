// Which pages belong to whom: a bit a page, in a row of its own.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/foreign/jet/bytes.h"
#include "platform/foreign/jet/page_file.h"

namespace talpena::jet {

/// Pages of the rows that maps stand in, kept until they are written.
class MapRows {
 public:
  /// @param owner  that the pages name as theirs
  MapRows(PageFile& file, std::uint32_t owner) : file_(file), owner_(owner) {}

  Place Nouvelle();
  void Pose(Place place, std::string_view row);
  void Ecrit();

 private:
  PageFile& file_;
  std::uint32_t owner_;
  std::map<std::uint32_t, Page> pages_;
  std::uint32_t page_ = 0;  ///< that takes the next row
  std::uint32_t rows_ = 0;  ///< that it has
};

/// A map. One of the first 512 pages has its bits in its row; a longer one has them on pages of
/// their own, which the row names.
class UsageMap {
 public:
  UsageMap(PageFile& file, MapRows& rows) : file_(file), rows_(rows), place_(rows.Nouvelle()) {}

  Place Lieu() const { return place_; }
  /// Makes room in the map for a page; what this takes of the file it takes now.
  void Couvre(std::uint32_t page);
  /// Takes these pages for its bits.
  void Utilise(const std::vector<std::uint32_t>& bitPages);
  void Marque(std::uint32_t page);
  /// Marks the pages from one up to, but not with, another, and no others.
  void Remplace(std::uint32_t from, std::uint32_t to);
  /// The page behind the last that it has room for.
  std::uint32_t Fin() const;
  void Ecrit();

 private:
  std::string Rangee() const;

  PageFile& file_;
  MapRows& rows_;
  Place place_;
  std::vector<std::uint32_t> bitPages_;  ///< none while all fits into the row
  std::string bits_;
};

}  // namespace talpena::jet
