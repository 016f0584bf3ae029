// Sorts rows by keys of bytes, in little memory.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "platform/sqlite/row_list.h"

namespace talpena::sqlite {

/// Rows with keys that compare byte by byte. No key may be the beginning of another. Keys are
/// kept up to a length that the number of rows leaves room for; `Resolve` is asked to order
/// rows whose keys are equal up to there.
class KeySorter {
 public:
  /// Puts rows in order whose keys are equal in their first `skip` bytes.
  using Resolve = std::function<void(std::span<RowKey> rows, std::size_t skip)>;

  /// @param rows  how many to expect, more or less
  /// @param skip  bytes at the head of every key that are known to be equal
  explicit KeySorter(std::size_t rows, std::size_t skip = 0);

  void Ajoute(std::string_view key, RowKey row);
  /// The rows in the order of their keys, equal ones in rising order of the row.
  std::vector<RowKey> Trie(const Resolve& resolve);

 private:
  struct Entry {
    std::uint64_t part;    ///< eight bytes of the key, the first ones at the start
    std::uint32_t offset;  ///< of the bytes behind them; NoRest when there are none
    RowKey row;
  };

  static std::uint64_t Part(std::string_view bytes);
  std::string_view Reste(const Entry& entry, bool& cut) const;
  void TriePartie(std::span<Entry> entries, std::size_t depth, const Resolve& resolve);
  void Resous(std::span<Entry> entries, std::size_t depth, const Resolve& resolve);

  std::size_t skip_;
  std::size_t longestRest_;
  std::vector<Entry> entries_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t used_ = 0;  ///< of the last block
};

/// Rows by one 32-bit number each, lower numbers first; rows with the same number keep the order
/// in which they were added.
class NumberSorter {
 public:
  void Reserve(std::size_t rows) { entries_.reserve(rows); }
  void Ajoute(std::uint32_t number, RowKey row) {
    entries_.push_back(std::uint64_t{number} << 32 | static_cast<std::uint32_t>(row));
  }
  void Trie();
  std::size_t Nombre() const { return entries_.size(); }
  RowKey Ligne(std::size_t i) const {
    return static_cast<RowKey>(static_cast<std::uint32_t>(entries_[i]));
  }

 private:
  std::vector<std::uint64_t> entries_;
};

}  // namespace talpena::sqlite
