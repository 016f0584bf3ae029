// Sorts rows by keys of bytes, in little memory.
#pragma once
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "platform/sqlite/rows/known_rests.h"
#include "platform/sqlite/rows/row_list.h"

namespace talpena::sqlite {

/// Rows with keys that compare byte by byte. No key may be the beginning of another. Of each key
/// as many bytes are kept as the number of rows leaves room for; where many are the same, all of
/// them.
class KeySorter {
 public:
  /// @param rows  how many to expect, more or less
  explicit KeySorter(std::size_t rows);

  void Ajoute(std::string_view key, RowKey row);

  /// Rows from `first` up to before `last`.
  struct Group {
    std::size_t first;
    std::size_t last;
  };

  struct Result {
    std::vector<RowKey> rows;      ///< in the order of their keys, equal ones by the row
    std::vector<Group> undecided;  ///< rows equal in all bytes kept, where keys were longer
  };

  /// Sorts, and gives its memory back.
  Result Trie();
  /// Bytes that are kept of every key.
  std::size_t Gardes() const { return PartSize + longestRest_; }

 private:
  static constexpr std::size_t PartSize = 8;

  struct Entry {
    std::uint64_t part;    ///< eight bytes of the key, the first ones at the start
    std::uint32_t offset;  ///< of the bytes behind them; NoRest when there are none
    RowKey row;
  };

  std::uint32_t Garde(std::string_view rest);
  std::uint32_t Depose(std::string_view rest, std::uint16_t flag);
  void OuvreBloc(std::size_t need);
  static std::uint64_t Part(std::string_view bytes);
  std::string_view Reste(std::uint32_t offset, bool& cut) const;
  void TriePartie(std::span<Entry> entries, std::size_t depth);
  static void TrieParChiffres(std::span<Entry> entries);
  bool Egales(std::span<const Entry> entries) const;
  void Departage(std::span<Entry> entries, std::size_t depth);

  std::size_t expected_;  ///< rows
  std::size_t longestRest_;
  std::size_t kept_ = 0;  ///< bytes of rests
  KnownRests repeats_;
  std::vector<Entry> entries_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t blockSize_ = 0;  ///< of the last block
  std::size_t used_ = 0;       ///< of it
  std::vector<Group> undecided_;
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
