#include "gazetteer/place_index.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <utility>

#include "common/plain_form.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr std::uint32_t SameAsPlain = std::numeric_limits<std::uint32_t>::max();
constexpr SphereDirection nowhere{std::numeric_limits<float>::quiet_NaN(), 0, 0};

/// The most bytes of names that are taken up: what offsets of 32 bits reach.
constexpr std::size_t mostBytes = std::size_t{1} << 31;

bool EstQuelquePart(const SphereDirection& d) { return !std::isnan(d[0]); }

/// The first place from `from` on where a piece of at least two bytes stands; npos when there is
/// none. Looks at 64 places at once for its first two bytes and its last, in a loop that compilers
/// turn into wide comparisons.
std::size_t ChercheOctets(std::string_view text, std::string_view piece, std::size_t from) {
  constexpr std::size_t block = 64;
  const std::size_t gap = piece.size() - 1;
  const char first = piece[0], second = piece[1], last = piece.back();
  for (; from + block + gap <= text.size(); from += block) {
    const char* at = text.data() + from;
    unsigned char any = 0;
    for (std::size_t i = 0; i < block; ++i) {
      any |= static_cast<unsigned char>((at[i] == first) & (at[i + 1] == second) &
                                        (at[i + gap] == last));
    }
    if (any == 0) continue;
    for (std::size_t i = 0; i < block; ++i) {
      if (at[i] == first && at[i + gap] == last && std::memcmp(at + i, piece.data(), gap) == 0) {
        return from + i;
      }
    }
  }
  return text.find(piece, std::min(from, text.size()));
}

/// The first of rising numbers above `value`, from `from` on, near which it is expected.
std::size_t PremierAuDessus(const std::vector<std::uint32_t>& numbers, std::size_t from,
                            std::size_t value) {
  std::size_t step = 1;
  while (from + step < numbers.size() && numbers[from + step] <= value) step *= 2;
  const auto at = [&](std::size_t i) {
    return numbers.begin() + static_cast<std::ptrdiff_t>(std::min(i, numbers.size()));
  };
  const auto next = std::upper_bound(at(from + step / 2), at(from + step + 1), value);
  return static_cast<std::size_t>(next - numbers.begin());
}

/// Puts an array into the order of `rows`; the former one goes before the next is made.
template <typename Element>
void Range(std::vector<Element>& array, const std::vector<std::uint32_t>& rows) {
  std::vector<Element> sorted;
  sorted.reserve(rows.size());
  for (const std::uint32_t row : rows) sorted.push_back(array[row]);
  array = std::move(sorted);
}

}  // namespace

/// A place that meets the search, and by what it is ordered.
struct PlaceIndex::Candidate {
  std::uint32_t rank = 0;
  PlaceMatch match = PlaceMatch::Plain;
  bool exact = false;      ///< the whole name, its plain form taken
  bool beginning = false;  ///< the beginning of that form
  float away = 0;          ///< what orders as the distance does; infinite without a point

  bool operator<(const Candidate& other) const {
    if (match != other.match) return match < other.match;
    if (exact != other.exact) return exact;
    if (beginning != other.beginning) return beginning;
    return away != other.away ? away < other.away : rank < other.rank;
  }
};

struct PlaceIndex::Search {
  std::string typed;  ///< small letters
  std::string plain;
  std::optional<SphereDirection> near = std::nullopt;
  bool nearest = false;  ///< first, by that point or by the measures
  std::size_t most = 0;
  std::pair<std::uint32_t, std::uint32_t> begins{};  ///< ranks whose plain forms begin with it
  std::vector<Candidate> found{};
  std::size_t better = 0;  ///< found that begin with it or contain it as typed

  /// In alphabetical order the first ones are the best: no more are needed.
  bool Assez() const { return !nearest && better >= most; }
};

void PlaceIndex::Ajoute(std::string_view name, std::optional<GeoPoint> point) {
  const std::string small = Minuscules(name);
  const std::string plain = FormeSimple(name);
  const bool room =
      plain_.size() + plain.size() < mostBytes && names_.size() + small.size() < mostBytes;
  starts_.push_back(static_cast<std::uint32_t>(plain_.size()));
  if (room) plain_ += plain;
  plain_ += '\0';
  const bool same = !room || small == plain;
  nameAt_.push_back(same ? SameAsPlain : static_cast<std::uint32_t>(names_.size()));
  if (!same) names_.append(small).push_back('\0');
  points_.push_back(point ? DirectionDe(*point) : nowhere);
}

void PlaceIndex::Termine() {
  rows_.resize(starts_.size());
  std::iota(rows_.begin(), rows_.end(), 0U);
  const auto plain = [this](std::uint32_t row) {
    return std::string_view(plain_.c_str() + starts_[row]);
  };
  std::stable_sort(rows_.begin(), rows_.end(),
                   [&](std::uint32_t a, std::uint32_t b) { return plain(a) < plain(b); });
  Range(nameAt_, rows_);
  Range(points_, rows_);
  std::string texts;
  texts.reserve(plain_.size());
  for (const std::uint32_t row : rows_) texts.append(plain(row)).push_back('\0');
  plain_ = std::move(texts);
  starts_.clear();
  for (std::size_t at = 0; at < plain_.size(); at = plain_.find('\0', at) + 1) {
    starts_.push_back(static_cast<std::uint32_t>(at));
  }
  starts_.push_back(static_cast<std::uint32_t>(plain_.size()));
  names_.shrink_to_fit();
}

std::string_view PlaceIndex::Simple(std::uint32_t rank) const {
  return std::string_view(plain_).substr(starts_[rank], starts_[rank + 1] - starts_[rank] - 1);
}

std::string_view PlaceIndex::Nom(std::uint32_t rank) const {
  return nameAt_[rank] == SameAsPlain ? Simple(rank)
                                      : std::string_view(names_.c_str() + nameAt_[rank]);
}

// Accents stand for themselves in the text as typed: only there do they have to be the same.
PlaceMatch PlaceIndex::Correspond(std::uint32_t rank, const Search& search) const {
  const std::size_t at = Nom(rank).find(search.typed);
  if (at == std::string_view::npos) return PlaceMatch::Plain;
  return at == 0 ? PlaceMatch::Begins : PlaceMatch::Contains;
}

std::pair<std::uint32_t, std::uint32_t> PlaceIndex::Debuts(const std::string& plain) const {
  const auto count = static_cast<std::uint32_t>(rows_.size());
  const auto partition = [&](auto before) {
    std::uint32_t low = 0, high = count;
    while (low < high) {
      const std::uint32_t middle = low + (high - low) / 2;
      if (before(Simple(middle))) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return low;
  };
  return {partition([&](std::string_view name) { return name < plain; }),
          partition([&](std::string_view name) { return name.substr(0, plain.size()) <= plain; })};
}

void PlaceIndex::Trouve(Search& search, std::uint32_t rank) const {
  const PlaceMatch match = Correspond(rank, search);
  float away = 0;
  if (search.near) {
    const SphereDirection& point = points_[rank];
    away = EstQuelquePart(point) ? Corde2(point, *search.near)
                                 : std::numeric_limits<float>::infinity();
  } else if (search.nearest) {
    away = kms_[rank];
  }
  const bool beginning = rank >= search.begins.first && rank < search.begins.second;
  const bool exact = beginning && Simple(rank).size() == search.plain.size();
  search.found.push_back({rank, match, exact, beginning, away});
  if (match != PlaceMatch::Plain) ++search.better;
}

bool PlaceIndex::Mesure(const NearestRecord& records, std::size_t count) {
  for (const std::size_t end = std::min(kms_.size() + count, rows_.size()); kms_.size() < end;) {
    const SphereDirection& point = points_[kms_.size()];
    const auto km = EstQuelquePart(point) ? records.DistanceKm(PointDe(point)) : std::nullopt;
    kms_.push_back(km ? static_cast<float>(*km) : std::numeric_limits<float>::infinity());
  }
  return kms_.size() < rows_.size();
}

void PlaceIndex::AjouteDebuts(Search& search) const {
  for (std::uint32_t rank = search.begins.first; rank < search.begins.second; ++rank) {
    if (search.Assez()) return;
    Trouve(search, rank);
  }
}

void PlaceIndex::AjouteContenus(Search& search) const {
  const std::string_view text = plain_;
  std::uint32_t rank = 0;
  std::size_t at = 0;
  while ((at = ChercheOctets(text, search.plain, at)) != std::string_view::npos) {
    const std::size_t next = PremierAuDessus(starts_, rank, at);
    rank = static_cast<std::uint32_t>(next) - 1;
    const bool known = rank >= search.begins.first && rank < search.begins.second;
    if (!known) Trouve(search, rank);
    if (search.Assez()) return;
    at = starts_[next];
  }
}

std::vector<PlaceHit> PlaceIndex::Cherche(std::string_view typed, std::optional<GeoPoint> near,
                                          std::size_t most) const {
  Search search{.typed = Minuscules(Rogne(typed)), .plain = FormeSimple(typed), .most = most};
  if (search.plain.size() < FewestLetters || rows_.empty()) return {};
  if (near) search.near = DirectionDe(*near);
  search.nearest = near || EstMesure();
  search.begins = Debuts(search.plain);
  AjouteDebuts(search);
  const auto begin = [](const Candidate& c) { return c.match == PlaceMatch::Begins; };
  // A page of places that begin with the text leaves no room for those that contain it.
  const auto begun = std::count_if(search.found.begin(), search.found.end(), begin);
  if (static_cast<std::size_t>(begun) < most) AjouteContenus(search);
  const std::size_t count = std::min(most, search.found.size());
  std::partial_sort(search.found.begin(), search.found.begin() + static_cast<std::ptrdiff_t>(count),
                    search.found.end());
  std::vector<PlaceHit> hits;
  for (std::size_t i = 0; i < count; ++i) {
    const Candidate& c = search.found[i];
    PlaceHit& hit = hits.emplace_back(PlaceHit{rows_[c.rank], c.match, std::nullopt});
    if (near && EstQuelquePart(points_[c.rank]))
      hit.km = DistanceKm(*near, PointDe(points_[c.rank]));
  }
  return hits;
}

}  // namespace talpena
