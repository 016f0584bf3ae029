#include "platform/foreign/dbase/row_walk.h"

#include <utility>

#include "common/talpena_error.h"
#include "platform/foreign/errors.h"

namespace talpena::dbase {

RowWalk::RowWalk(TableBytes bytes, const Header& header, const LimitesDbase& limits,
                 std::shared_ptr<const WorkBeat> attente)
    : bytes_(std::move(bytes)),
      header_(header),
      attente_(std::move(attente)),
      window_(*bytes_.rows) {
  constexpr std::uint64_t timesRead = 4;
  left_ = mostOfRow_ = limits.octetsMemo;
  if (!bytes_.memos) return;
  const std::uint64_t most = timesRead * bytes_.memos->Taille() + limits.octetsMemos;
  memos_.emplace(bytes_.memos, header_.memos, limits.octetsMemo, most);
}

std::optional<std::string_view> RowWalk::Prochaine() {
  while (next_ < header_.rows) {
    Respire();
    const std::string_view row = window_.Vue(header_.PlaceDe(next_), header_.rowBytes);
    if (row.size() < header_.rowBytes || row.front() == endOfRows) {
      throw foreign::FormatInconnu(bytes_.path);
    }
    ++next_;
    left_ = mostOfRow_;
    if (row.front() != deletedRow) return row;
  }
  return {};
}

bool RowWalk::LitMemo(const Column& column, std::string_view row, std::string& into) {
  into.clear();
  const auto block = BlocDe(row.substr(column.offset, column.width));
  if (block == 0) return true;
  if (!memos_) return false;
  if (!block || !memos_->Lit(*block, into) || into.size() > left_) {
    throw foreign::FormatInconnu(bytes_.path);
  }
  left_ -= into.size();
  return true;
}

void RowWalk::Respire() {
  constexpr std::uint32_t between = 4096;
  if (next_ % between != 0 || !attente_ || !*attente_) return;
  if (!(*attente_)()) throw TalpenaError(ErrorNumber::Cancelled, "Cancel was selected.");
}

}  // namespace talpena::dbase
