#include "platform/sqlite/rows/key_sorter.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace talpena::sqlite {
namespace {

constexpr std::size_t FirstBlock = 1 << 10;
constexpr std::size_t BlockSize = 1 << 20;
constexpr std::size_t Budget = 24u << 20;  // bytes of keys, all rows together
constexpr std::size_t LongestRest = 0x7000;
constexpr std::uint16_t CutFlag = 0x8000;
constexpr std::uint32_t NoRest = 0xffffffff;

}  // namespace

KeySorter::KeySorter(std::size_t rows)
    : longestRest_(std::clamp(Budget / std::max<std::size_t>(rows, 1), PartSize, LongestRest)) {
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
  Entry entry{Part(key), NoRest, row};
  if (key.size() > PartSize) {
    const std::string_view rest = key.substr(PartSize, longestRest_);
    const bool cut = key.size() - PartSize > longestRest_;
    const auto header = static_cast<std::uint16_t>(rest.size() | (cut ? CutFlag : 0u));
    const std::size_t need = sizeof header + rest.size();
    if (used_ + need > blockSize_) OuvreBloc(need);
    char* place = blocks_.back().get() + used_;
    std::memcpy(place, &header, sizeof header);
    std::memcpy(place + sizeof header, rest.data(), rest.size());
    entry.offset = static_cast<std::uint32_t>((blocks_.size() - 1) * BlockSize + used_);
    used_ += need;
  }
  entries_.push_back(entry);
}

// Blocks grow, so that a few rows take little; the offset counts each as a whole one.
void KeySorter::OuvreBloc(std::size_t need) {
  blockSize_ = std::min(BlockSize, std::max(need, std::max(FirstBlock, 2 * blockSize_)));
  blocks_.push_back(std::make_unique_for_overwrite<char[]>(blockSize_));
  used_ = 0;
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

KeySorter::Result KeySorter::Trie() {
  TriePartie(entries_, 0);
  blocks_.clear();
  Result result;
  result.rows.reserve(entries_.size());
  for (const Entry& entry : entries_) result.rows.push_back(entry.row);
  entries_ = {};
  result.undecided = std::move(undecided_);
  return result;
}

// Sorts by the part that the entries hold; those that are equal in it get their next part.
void KeySorter::TriePartie(std::span<Entry> entries, std::size_t depth) {
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
    return a.part != b.part ? a.part < b.part : a.row < b.row;
  });
  for (std::size_t first = 0; first < entries.size();) {
    std::size_t last = first + 1;
    while (last < entries.size() && entries[last].part == entries[first].part) ++last;
    if (last - first > 1) Departage(entries.subspan(first, last - first), depth);
    first = last;
  }
}

void KeySorter::Departage(std::span<Entry> entries, std::size_t depth) {
  const std::size_t from = depth * PartSize;
  bool anyCut = false;
  bool anyMore = false;
  for (const Entry& entry : entries) {
    bool cut = false;
    anyMore = Reste(entry, cut).size() > from || anyMore;
    anyCut = anyCut || cut;
  }
  if (anyMore) {
    for (Entry& entry : entries) {
      bool cut = false;
      const std::string_view rest = Reste(entry, cut);
      entry.part = Part(rest.size() > from ? rest.substr(from) : std::string_view());
    }
    return TriePartie(entries, depth + 1);
  }
  if (!anyCut) return;  // equal keys
  const auto first = static_cast<std::size_t>(entries.data() - entries_.data());
  undecided_.push_back({first, first + entries.size()});
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
