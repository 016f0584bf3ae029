#include "interchange/rehearsed_rows.h"

#include <algorithm>
#include <array>

#include "common/text.h"

namespace talpena {
namespace {

/// Blocks and places in them are named by 16 bits.
constexpr std::size_t blockBytes = (std::size_t{64} << 10) - 1;
/// Of original, date and comment; lengths are kept in a byte each.
constexpr std::array<std::size_t, 3> mostBytes{100, 40, 200};
constexpr std::string_view ellipsis = "…";
/// Codes that a file brings are few; those beyond are not told apart.
constexpr std::size_t mostDatums = 250;

/// The text, or as many whole characters of it as there is room for.
std::string Coupe(const std::string& text, std::size_t most) {
  if (text.size() <= most) return text;
  std::size_t end = most - ellipsis.size();
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return text.substr(0, end).append(ellipsis);
}

}  // namespace

bool RehearsedRows::Ajoute(const RehearsedRow& row) {
  const std::size_t room = row.EstProbleme() ? room_ + room_ / 4 : room_;
  if (used_ >= room) {
    ++skipped_;
    return false;
  }
  Kept kept{};
  kept.line = static_cast<std::uint32_t>(row.line);
  kept.period = row.period;
  kept.n1 = row.n1.value_or(0);
  kept.n2 = row.n2.value_or(0);
  kept.hasN1 = row.n1.has_value();
  kept.hasN2 = row.n2.has_value();
  kept.dropped = static_cast<std::int16_t>(row.dropped);
  kept.doubt = static_cast<std::int16_t>(row.doubt);
  kept.fate = row.fate;
  kept.outcome = row.point.outcome;
  kept.cause = row.point.faute.cause;
  const bool fault = row.point.outcome == ReadPoint::Outcome::Faute;
  kept.latitude = static_cast<float>(fault ? row.point.faute.degres : row.point.latitude);
  kept.longitude = static_cast<float>(row.point.longitude);
  kept.datum = GardeDatum(row.datum);
  GardeTextes(row, kept);
  rows_.push_back(kept);
  used_ += sizeof(Kept);
  return true;
}

void RehearsedRows::GardeTextes(const RehearsedRow& row, Kept& kept) {
  const std::array<std::string, 3> texts{Coupe(row.original, mostBytes[0]),
                                         Coupe(row.date, mostBytes[1]),
                                         Coupe(row.comment, mostBytes[2])};
  std::size_t size = 0;
  for (const std::string& text : texts) size += text.size();
  if (blocks_.empty() || blocks_.back().size() + size > blockBytes) {
    blocks_.emplace_back().reserve(blockBytes);
  }
  std::string& block = blocks_.back();
  kept.block = static_cast<std::uint16_t>(blocks_.size() - 1);
  kept.offset = static_cast<std::uint16_t>(block.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    kept.lengths[i] = static_cast<std::uint8_t>(texts[i].size());
    block += texts[i];
  }
  used_ += size;
}

std::uint8_t RehearsedRows::GardeDatum(const std::string& datum) {
  auto found = std::ranges::find(datums_, datum);
  if (found == datums_.end() && datums_.size() >= mostDatums) found = datums_.end() - 1;
  if (found == datums_.end()) found = datums_.insert(datums_.end(), datum);
  return static_cast<std::uint8_t>(found - datums_.begin());
}

RehearsedRow RehearsedRows::Ligne(std::int64_t index) const {
  const Kept& kept = rows_.at(static_cast<std::size_t>(index));
  RehearsedRow row;
  row.fate = kept.fate;
  row.line = kept.line;
  row.dropped = kept.dropped;
  row.doubt = kept.doubt;
  row.period = kept.period;
  if (kept.hasN1) row.n1 = kept.n1;
  if (kept.hasN2) row.n2 = kept.n2;
  row.point = {kept.outcome, kept.latitude, kept.longitude, {kept.cause, kept.latitude}};
  row.datum = datums_[kept.datum];
  std::size_t at = kept.offset;
  std::size_t field = 0;
  for (std::string* text : {&row.original, &row.date, &row.comment}) {
    *text = blocks_[kept.block].substr(at, kept.lengths.at(field));
    at += kept.lengths.at(field++);
  }
  return row;
}

void RehearsedRows::MarqueLoin(std::int64_t index, bool far) {
  rows_.at(static_cast<std::size_t>(index)).fate =
      far ? RehearsedRow::Fate::Loin : RehearsedRow::Fate::Entre;
}

std::int64_t RehearsedRows::ProchainProbleme(std::int64_t from) const {
  const auto begin = rows_.begin() + std::min(from, Nombre());
  const auto found = std::find_if(begin, rows_.end(), [](const Kept& kept) {
    return kept.fate != RehearsedRow::Fate::Entre || kept.doubt != 0;
  });
  return found == rows_.end() ? -1 : found - rows_.begin();
}

}  // namespace talpena
