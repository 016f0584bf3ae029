#include "platform/sqlite/rows/key_sorter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace talpena::sqlite {
namespace {

constexpr std::size_t FirstBlock = 1 << 10;
constexpr std::size_t BlockSize = 1 << 20;
constexpr std::size_t Budget = 24u << 20;  // bytes of keys, all rows together
constexpr std::size_t LongestRest = 0x7000;
constexpr std::uint16_t CutFlag = 0x8000;
constexpr std::uint32_t NoRest = KnownRests::None;
constexpr std::size_t FewestByDigits = 4096;  // entries for which the tables of digits pay

std::uint64_t Retourne(std::uint64_t value) {
  value = (value >> 8 & 0x00ff00ff00ff00ff) | (value & 0x00ff00ff00ff00ff) << 8;
  value = (value >> 16 & 0x0000ffff0000ffff) | (value & 0x0000ffff0000ffff) << 16;
  return value >> 32 | value << 32;
}

}  // namespace

KeySorter::KeySorter(std::size_t rows)
    : expected_(rows),
      longestRest_(std::clamp(Budget / std::max<std::size_t>(rows, 1) / PartSize * PartSize,
                              PartSize, LongestRest)),
      repeats_(rows) {
  entries_.reserve(rows);
}

std::uint64_t KeySorter::Part(std::string_view bytes) {
  std::uint64_t part = 0;
  if (bytes.size() >= PartSize) {
    std::memcpy(&part, bytes.data(), PartSize);
    if constexpr (std::endian::native == std::endian::little) part = Retourne(part);
    return part;
  }
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    part |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * (PartSize - 1 - i));
  }
  return part;
}

void KeySorter::Ajoute(std::string_view key, RowKey row) {
  Entry entry{Part(key), NoRest, row};
  if (key.size() > PartSize) entry.offset = Garde(key.substr(PartSize));
  entries_.push_back(entry);
}

/// The place of the bytes behind the first part: of long ones all, while there is room for the
/// rows that are still to come. What repeats takes its place once.
std::uint32_t KeySorter::Garde(std::string_view rest) {
  if (rest.size() <= longestRest_) return Depose(rest, 0);
  const std::size_t coming = expected_ > entries_.size() ? expected_ - entries_.size() : 0;
  const bool room =
      rest.size() <= LongestRest && kept_ + rest.size() + coming * longestRest_ <= Budget;
  if (!room) return Depose(rest.substr(0, longestRest_), CutFlag);
  std::uint32_t* const known = repeats_.Cherche(rest, [this](std::uint32_t offset) {
    bool cut = false;
    return Reste(offset, cut);
  });
  if (known == nullptr) return Depose(rest, 0);
  if (*known == NoRest) *known = Depose(rest, 0);
  return *known;
}

std::uint32_t KeySorter::Depose(std::string_view rest, std::uint16_t flag) {
  const auto header = static_cast<std::uint16_t>(rest.size() | flag);
  const std::size_t need = sizeof header + rest.size();
  if (used_ + need > blockSize_) OuvreBloc(need);
  char* place = blocks_.back().get() + used_;
  std::memcpy(place, &header, sizeof header);
  std::memcpy(place + sizeof header, rest.data(), rest.size());
  const std::size_t offset = (blocks_.size() - 1) * BlockSize + used_;
  used_ += need;
  kept_ += rest.size();
  return static_cast<std::uint32_t>(offset);
}

// Blocks grow, so that a few rows take little; the offset counts each as a whole one.
void KeySorter::OuvreBloc(std::size_t need) {
  blockSize_ = std::min(BlockSize, std::max(need, std::max(FirstBlock, 2 * blockSize_)));
  blocks_.push_back(std::make_unique_for_overwrite<char[]>(blockSize_));
  used_ = 0;
}

std::string_view KeySorter::Reste(std::uint32_t offset, bool& cut) const {
  cut = false;
  if (offset == NoRest) return {};
  const char* place = blocks_[offset / BlockSize].get() + offset % BlockSize;
  std::uint16_t header = 0;
  std::memcpy(&header, place, sizeof header);
  cut = (header & CutFlag) != 0;
  return {place + sizeof header, static_cast<std::size_t>(header & ~CutFlag)};
}

KeySorter::Result KeySorter::Trie() {
  repeats_ = KnownRests(0);
  const auto byRow = [](const Entry& a, const Entry& b) { return a.row < b.row; };
  if (!std::is_sorted(entries_.begin(), entries_.end(), byRow)) {
    std::sort(entries_.begin(), entries_.end(), byRow);
  }
  TriePartie(entries_, 0);
  blocks_.clear();
  Result result;
  result.rows.reserve(entries_.size());
  for (const Entry& entry : entries_) result.rows.push_back(entry.row);
  entries_ = {};
  result.undecided = std::move(undecided_);
  return result;
}

// Sorts by the part that the entries hold; those that are equal in it get their next part. They
// come in the order of their rows.
void KeySorter::TriePartie(std::span<Entry> entries, std::size_t depth) {
  if (entries.size() >= FewestByDigits) {
    TrieParChiffres(entries);
  } else {
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
      return a.part != b.part ? a.part < b.part : a.row < b.row;
    });
  }
  for (std::size_t first = 0; first < entries.size();) {
    std::size_t last = first + 1;
    while (last < entries.size() && entries[last].part == entries[first].part) ++last;
    if (last - first > 1) Departage(entries.subspan(first, last - first), depth);
    first = last;
  }
}

/// Digit by digit from the lowest, those left out in which all entries are the same.
void KeySorter::TrieParChiffres(std::span<Entry> entries) {
  constexpr unsigned bits = 11;
  constexpr std::size_t places = std::size_t{1} << bits;
  std::uint64_t differing = 0;
  for (const Entry& entry : entries) differing |= entry.part ^ entries[0].part;
  std::vector<Entry> other;
  std::span<Entry> from = entries;
  while (differing != 0) {
    const auto shift = static_cast<unsigned>(std::countr_zero(differing));
    const auto digit = [shift](const Entry& entry) {
      return static_cast<std::size_t>(entry.part >> shift) & (places - 1);
    };
    std::array<std::uint32_t, places + 1> starts{};
    for (const Entry& entry : from) ++starts[digit(entry) + 1];
    for (std::size_t i = 1; i < places; ++i) starts[i] += starts[i - 1];
    other.resize(entries.size());
    const std::span<Entry> to = from.data() == entries.data() ? std::span(other) : entries;
    for (const Entry& entry : from) to[starts[digit(entry)]++] = entry;
    from = to;
    differing &= shift + bits < 64 ? ~std::uint64_t{0} << (shift + bits) : 0;
  }
  if (from.data() != entries.data()) std::copy(from.begin(), from.end(), entries.begin());
}

/// True when the keys are known to be the same from first to last byte.
bool KeySorter::Egales(std::span<const Entry> entries) const {
  bool cut = false;
  const std::string_view first = Reste(entries[0].offset, cut);
  return !cut && std::all_of(entries.begin() + 1, entries.end(), [&](const Entry& entry) {
    return entry.offset == entries[0].offset || (Reste(entry.offset, cut) == first && !cut);
  });
}

void KeySorter::Departage(std::span<Entry> entries, std::size_t depth) {
  if (Egales(entries)) return;
  const std::size_t from = depth * PartSize;
  const bool anyCut = std::any_of(entries.begin(), entries.end(), [this](const Entry& entry) {
    bool cut = false;
    Reste(entry.offset, cut);
    return cut;
  });
  // Some keys may be known beyond the bytes that are kept of all.
  if (anyCut && from >= longestRest_) {
    const auto first = static_cast<std::size_t>(entries.data() - entries_.data());
    undecided_.push_back({first, first + entries.size()});
    return;
  }
  for (Entry& entry : entries) {
    bool cut = false;
    const std::string_view rest = Reste(entry.offset, cut);
    entry.part = Part(rest.size() > from ? rest.substr(from) : std::string_view());
  }
  TriePartie(entries, depth + 1);
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
