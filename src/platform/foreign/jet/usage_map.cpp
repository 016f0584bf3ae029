#include "platform/foreign/jet/usage_map.h"

namespace talpena::jet {
namespace {

constexpr std::size_t rowBytes = 69;
constexpr std::size_t headBytes = 14;      // of a page of rows
constexpr std::uint32_t rowsPerPage = 57;  // each takes two bytes at the head too
constexpr char inlineKind = 0;
constexpr char referenceKind = 1;

}  // namespace

Place MapRows::Nouvelle() {
  if (pages_.empty() || rows_ == rowsPerPage) {
    page_ = file_.Alloue();
    rows_ = 0;
    Page& page = pages_[page_] = NouvellePage(PageKind::Data);
    Pose32(page, 4, owner_);
  }
  Page& page = pages_[page_];
  const std::uint32_t row = rows_++;
  const std::size_t start = taillePage - rows_ * rowBytes;
  Pose16(page, headBytes + std::size_t{2} * row, start);
  Pose16(page, 12, rows_);
  Pose16(page, 2, start - headBytes - std::size_t{2} * rows_);
  return {page_, row};
}

void MapRows::Pose(Place place, std::string_view row) {
  PoseOctets(pages_[place.page], taillePage - (place.row + 1) * rowBytes, row);
}

void MapRows::Ecrit() {
  for (const auto& [number, page] : pages_) file_.Ecrit(number, {page.data(), page.size()});
}

std::uint32_t UsageMap::Fin() const {
  if (bitPages_.empty()) return pagesInRow;
  return static_cast<std::uint32_t>(bitPages_.size()) * pagesPerBitPage;
}

void UsageMap::Couvre(std::uint32_t page) {
  while (page >= Fin()) bitPages_.push_back(file_.Alloue());
  if (bits_.size() * 8 < Fin()) bits_.resize(Fin() / 8);
}

void UsageMap::Utilise(const std::vector<std::uint32_t>& bitPages) {
  bitPages_ = bitPages;
  bits_.resize(Fin() / 8);
}

void UsageMap::Marque(std::uint32_t page) {
  Couvre(page);
  bits_[page / 8] = static_cast<char>(bits_[page / 8] | 1 << page % 8);
}

void UsageMap::Remplace(std::uint32_t from, std::uint32_t to) {
  bits_.assign(bits_.size(), '\0');
  for (std::uint32_t page = from; page < to; ++page) Marque(page);
}

std::string UsageMap::Rangee() const {
  std::string row(1, bitPages_.empty() ? inlineKind : referenceKind);
  if (bitPages_.empty()) {
    Ajoute32(row, 0);  // the page that the first bit stands for
    row += bits_;
  }
  for (const std::uint32_t page : bitPages_) Ajoute32(row, page);
  row.resize(rowBytes);
  return row;
}

void UsageMap::Ecrit() {
  rows_.Pose(place_, Rangee());
  for (std::size_t i = 0; i < bitPages_.size(); ++i) {
    Page page = NouvellePage(PageKind::Map);
    constexpr std::size_t bytes = pagesPerBitPage / 8;
    PoseOctets(page, bitPageHead, std::string_view(bits_).substr(i * bytes, bytes));
    file_.Ecrit(bitPages_[i], {page.data(), page.size()});
  }
}

}  // namespace talpena::jet
