#include "platform/sqlite/key_sorter.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace talpena::sqlite {
namespace {

constexpr std::size_t PartSize = 8;
constexpr std::size_t BlockSize = 1 << 20;
constexpr std::size_t Budget = 24u << 20;  // bytes of keys, all rows together
constexpr std::size_t LongestRest = 0x7000;
constexpr std::uint16_t CutFlag = 0x8000;
constexpr std::uint32_t NoRest = 0xffffffff;

}  // namespace

KeySorter::KeySorter(std::size_t rows, std::size_t skip)
    : skip_(skip),
      longestRest_(std::clamp(Budget / std::max<std::size_t>(rows, 1), PartSize, LongestRest)) {
  entries_.reserve(rows);
}

std::uint64_t KeySorter::Part(std::string_view bytes) {
  std::uint64_t part = 0;
  const std::size_t count = std::min(bytes.size(), PartSize);
  for (std::size_t i = 0; i < count; ++i) {
    part |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * (PartSize - 1 - i));
  }
  return part;
}

void KeySorter::Ajoute(std::string_view key, RowKey row) {
  key.remove_prefix(std::min(skip_, key.size()));
  Entry entry{Part(key), NoRest, row};
  if (key.size() > PartSize) {
    const std::string_view rest = key.substr(PartSize, longestRest_);
    const bool cut = key.size() - PartSize > longestRest_;
    const auto header = static_cast<std::uint16_t>(rest.size() | (cut ? CutFlag : 0u));
    const std::size_t need = sizeof header + rest.size();
    if (blocks_.empty() || used_ + need > BlockSize) {
      blocks_.push_back(std::make_unique_for_overwrite<char[]>(BlockSize));
      used_ = 0;
    }
    char* place = blocks_.back().get() + used_;
    std::memcpy(place, &header, sizeof header);
    std::memcpy(place + sizeof header, rest.data(), rest.size());
    entry.offset = static_cast<std::uint32_t>((blocks_.size() - 1) * BlockSize + used_);
    used_ += need;
  }
  entries_.push_back(entry);
}

std::string_view KeySorter::Reste(const Entry& entry, bool& cut) const {
  cut = false;
  if (entry.offset == NoRest) return {};
  const char* place = blocks_[entry.offset / BlockSize].get() + entry.offset % BlockSize;
  std::uint16_t header = 0;
  std::memcpy(&header, place, sizeof header);
  cut = (header & CutFlag) != 0;
  return {place + sizeof header, static_cast<std::size_t>(header & ~CutFlag)};
}

std::vector<RowKey> KeySorter::Trie(const Resolve& resolve) {
  TriePartie(entries_, 0, resolve);
  std::vector<RowKey> rows;
  rows.reserve(entries_.size());
  for (const Entry& entry : entries_) rows.push_back(entry.row);
  return rows;
}

// Sorts by the part that the entries hold; those that are equal in it get their next part.
void KeySorter::TriePartie(std::span<Entry> entries, std::size_t depth, const Resolve& resolve) {
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
    return a.part != b.part ? a.part < b.part : a.row < b.row;
  });
  for (std::size_t first = 0; first < entries.size();) {
    std::size_t last = first + 1;
    while (last < entries.size() && entries[last].part == entries[first].part) ++last;
    if (last - first > 1) Resous(entries.subspan(first, last - first), depth, resolve);
    first = last;
  }
}

void KeySorter::Resous(std::span<Entry> entries, std::size_t depth, const Resolve& resolve) {
  const std::size_t from = depth * PartSize;
  bool anyCut = false;
  bool anyMore = false;
  for (Entry& entry : entries) {
    bool cut = false;
    const std::string_view rest = Reste(entry, cut);
    anyCut = anyCut || cut;
    anyMore = anyMore || rest.size() > from;
  }
  if (anyMore) {
    for (Entry& entry : entries) {
      bool cut = false;
      const std::string_view rest = Reste(entry, cut);
      entry.part = Part(rest.size() > from ? rest.substr(from) : std::string_view());
    }
    return TriePartie(entries, depth + 1, resolve);
  }
  if (!anyCut) return;  // equal keys
  std::vector<RowKey> rows;
  for (const Entry& entry : entries) rows.push_back(entry.row);
  resolve(rows, skip_ + PartSize + longestRest_);
  for (std::size_t i = 0; i < rows.size(); ++i) entries[i].row = rows[i];
}

void NumberSorter::Trie() {
  constexpr unsigned bits = 11;
  constexpr std::size_t places = std::size_t{1} << bits;
  constexpr unsigned passes = 3;
  std::vector<std::array<std::uint32_t, places>> counts(passes);
  const auto digit = [](std::uint64_t entry, unsigned pass) {
    return static_cast<std::size_t>(entry >> (32 + bits * pass)) & (places - 1);
  };
  for (const std::uint64_t entry : entries_) {
    for (unsigned pass = 0; pass < passes; ++pass) ++counts[pass][digit(entry, pass)];
  }
  std::vector<std::uint64_t> other(entries_.size());
  for (unsigned pass = 0; pass < passes; ++pass) {
    auto& count = counts[pass];
    if (!entries_.empty() && count[digit(entries_[0], pass)] == entries_.size()) continue;
    std::uint32_t sum = 0;
    for (std::uint32_t& c : count) {
      const std::uint32_t before = sum;
      sum += c;
      c = before;
    }
    for (const std::uint64_t entry : entries_) other[count[digit(entry, pass)]++] = entry;
    entries_.swap(other);
  }
}

}  // namespace talpena::sqlite
