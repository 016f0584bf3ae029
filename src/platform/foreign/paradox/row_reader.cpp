#include "platform/foreign/paradox/row_reader.h"

#include <utility>

#include "common/msg_id_errors.h"
#include "common/text.h"
#include "platform/foreign/little_endian.h"

namespace talpena::paradox {
namespace {

TalpenaError SansMemos(const std::string& path) {
  return {ErrorNumber::UnrecognizedFormat,
          "Unrecognized database format '" + path + "': its memo file is missing.",
          {.text = MsgId::MemosAbsents, .about = {path}}};
}

}  // namespace

RowReader::RowReader(Input file, TableHead head, std::optional<MemoReader> memos, std::string path)
    : file_(std::move(file)),
      head_(std::move(head)),
      memos_(std::move(memos)),
      path_(std::move(path)),
      page_(head_.codePage),
      block_(head_.blockBytes),
      next_(head_.records == 0 ? 0 : head_.firstBlock),
      texts_(head_.columns.size()) {}

bool RowReader::Suivante(std::span<Cell> cells) {
  while (records_ == 0) {
    if (!ProchainBloc()) return false;
  }
  std::string_view record(block_.data() + place_, head_.recordBytes);
  for (std::size_t i = 0; i < head_.columns.size(); ++i) {
    const std::size_t bytes = head_.columns[i].bytes;
    if (i < cells.size()) cells[i] = Valeur(i, record.substr(0, bytes));
    record.remove_prefix(bytes);
  }
  for (std::size_t i = head_.columns.size(); i < cells.size(); ++i) cells[i] = Cell::Null();
  place_ += head_.recordBytes;
  --records_;
  ++given_;
  return true;
}

/// False behind the last one.
bool RowReader::ProchainBloc() {
  if (next_ == 0) {
    if (given_ < head_.records) file_.Echec();
    return false;
  }
  if (next_ > head_.blocks || ++blocksRead_ > head_.blocks) file_.Echec();
  file_.Exige(head_.headBytes + std::uint64_t{next_ - 1} * head_.blockBytes, block_);
  next_ = NombreLu<std::uint16_t>(block_.data());
  const auto last = static_cast<std::int16_t>(NombreLu<std::uint16_t>(block_.data() + 4));
  if (last < 0) return true;  // emptied
  const auto end = static_cast<std::size_t>(last) + head_.recordBytes;
  if (end > head_.blockBytes - blockHead) file_.Echec();
  records_ = end / head_.recordBytes;
  place_ = blockHead;
  return true;
}

Cell RowReader::Valeur(std::size_t number, std::string_view bytes) {
  const Column& column = head_.columns[number];
  if (EstLong(column.type)) return ValeurLongue(number, bytes);
  if (column.type != ParadoxType::Alpha) return ValeurFixe(column, bytes);
  const std::string_view text = TexteAlpha(bytes);
  if (EstAscii(text)) return Cell::Of(text);
  page_.Ajoute(TexteVide(number), text);
  return Cell::Of(std::string_view(texts_[number]));
}

Cell RowReader::ValeurLongue(std::size_t number, std::string_view bytes) {
  const LongValue value = ReferenceLue(bytes);
  const bool isText = EstTexteLong(head_.columns[number].type);
  if (value.length == 0) return isText ? Cell::Of(std::string_view()) : Cell::Null();
  std::string& kept = TexteVide(number);
  const auto add = [&](std::string_view piece) {
    if (isText) {
      page_.Ajoute(kept, piece);
    } else {
      kept += piece;
    }
  };
  if (value.length <= value.leader.size()) {
    add(value.leader.substr(0, value.length));
  } else {
    if (!memos_) throw SansMemos(path_);
    memos_->Lit(value, add);
  }
  return Cell::Of(std::string_view(kept));
}

std::string& RowReader::TexteVide(std::size_t number) {
  texts_[number].clear();
  return texts_[number];
}

}  // namespace talpena::paradox
