#include "platform/foreign/jet/row_pages.h"

namespace talpena::jet {
namespace {

constexpr std::size_t headBytes14 = 14;
constexpr std::uint32_t mostRows = 255;  // a row's number is one byte

}  // namespace

bool RowPages::Tient(std::size_t bytes) const {
  return number_ != 0 && rows_ < mostRows &&
         headBytes14 + 2 * (std::size_t{rows_} + 1) + bytes <= start_;
}

void RowPages::Ouvre() {
  const std::uint32_t next = file_.Alloue();
  used_.Marque(next);
  if (number_ != 0) Ecrit();
  page_ = NouvellePage(PageKind::Data);
  Pose32(page_, 4, owner_);
  number_ = next;
  rows_ = 0;
  start_ = taillePage;
}

Place RowPages::Ajoute(std::string_view row) {
  if (!Tient(row.size())) Ouvre();
  start_ -= row.size();
  PoseOctets(page_, start_, row);
  Pose16(page_, headBytes14 + 2 * std::size_t{rows_}, start_);
  return {number_, rows_++};
}

void RowPages::Ecrit() {
  if (number_ == 0) return;
  Pose16(page_, 2, start_ - headBytes14 - 2 * std::size_t{rows_});
  Pose16(page_, 12, rows_);
  file_.Ecrit(number_, {page_.data(), page_.size()});
}

}  // namespace talpena::jet
