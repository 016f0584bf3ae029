#include "platform/foreign/dbase/memo_writer.h"

#include <utility>

#include "common/text.h"
#include "platform/foreign/file_numbers.h"

namespace talpena::dbase {
namespace {

constexpr std::size_t headOfFile = 512;
constexpr std::size_t headOfMemo = 8;

std::size_t TailleBloc(Product product) { return product == Product::DbaseIV ? 512 : 64; }

/// The first letters of a name as systems with short names have it.
std::string NomCourt(std::string_view table) {
  constexpr std::size_t longest = 8;
  std::string name;
  for (const char c : Majuscules(table).substr(0, longest)) {
    if (c < ' ' || c > '~') break;
    name += c;
  }
  return name;
}

}  // namespace

std::string_view FinDesMemos(Product product) {
  return product == Product::DbaseIV ? ".dbt" : ".fpt";
}

MemoWriter::MemoWriter(Product product, std::string path, std::string_view table, std::size_t most)
    : product_(product), table_(NomCourt(table)), file_(std::move(path), most) {
  file_.Ajoute(std::string(headOfFile, '\0'));
}

std::size_t MemoWriter::Ajoute(std::string_view text) {
  // Programs that pay no regard to the length find this mark behind the text.
  constexpr char endMark = '\x1F';
  block_.assign(headOfMemo, '\0');
  if (product_ == Product::DbaseIV) {
    constexpr std::uint32_t mark = 0x0008FFFF;
    Pose(block_, 0, mark);
    Pose(block_, 4, static_cast<std::uint32_t>(headOfMemo + text.size()));
    block_ += text;
    block_ += endMark;
  } else {
    constexpr std::uint32_t kindText = 1;
    PoseInverse(block_, 0, kindText);
    PoseInverse(block_, 4, static_cast<std::uint32_t>(text.size()));
    block_ += text;
  }
  const std::size_t unit = TailleBloc(product_);
  block_.resize((block_.size() + unit - 1) / unit * unit);
  const std::size_t number = file_.Taille() / unit;
  file_.Ajoute(block_);
  return number;
}

std::string MemoWriter::Tete() const {
  const std::size_t unit = TailleBloc(product_);
  const auto next = static_cast<std::uint32_t>(file_.Taille() / unit);
  std::string head(headOfFile, '\0');
  if (product_ == Product::FoxPro25) {
    PoseInverse(head, 0, next);
    PoseInverse(head, 6, static_cast<std::uint16_t>(unit));
    return head;
  }
  constexpr std::uint16_t version = 0x0102;
  Pose(head, 0, next);
  head.replace(8, table_.size(), table_);
  Pose(head, 18, version);
  Pose(head, 20, static_cast<std::uint16_t>(unit));
  return head;
}

void MemoWriter::Acheve() {
  file_.Remplace(0, Tete());
  file_.Acheve();
}

}  // namespace talpena::dbase
