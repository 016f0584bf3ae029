#include "platform/foreign/dbase/memo_file.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/foreign/file_numbers.h"

namespace talpena::dbase {
namespace {

constexpr std::size_t memoHead = 8;  // before the text, in the kinds that have one
constexpr std::uint64_t usualBlock = 512;

/// Bytes of a block, as the head of the file has them.
std::uint64_t TailleBloc(MemoKind kind, std::string_view head) {
  constexpr std::size_t dbtPlace = 20, fptPlace = 6;
  if (kind == MemoKind::Dbt3 || head.size() < dbtPlace + 2) return usualBlock;
  const std::uint64_t bytes =
      kind == MemoKind::Dbt4 ? Lit16(head, dbtPlace) : Lit32Inverse(head, fptPlace - 2) & 0xFFFF;
  return bytes == 0 ? usualBlock : bytes;
}

}  // namespace

MemoFile::MemoFile(std::shared_ptr<const BytesAt> bytes, MemoKind kind, std::uint64_t most,
                   std::uint64_t mostAll)
    : bytes_(std::move(bytes)), kind_(kind), most_(most), left_(mostAll), window_(*bytes_) {
  blockBytes_ = TailleBloc(kind_, window_.Vue(0, headBytes));
}

bool MemoFile::Lit(std::uint64_t block, std::string& into) {
  constexpr std::string_view mark4("\xFF\xFF\x08\0", 4);
  into.clear();
  const std::uint64_t size = bytes_->Taille();
  if (block >= size / blockBytes_ + 1) return false;
  const std::uint64_t place = block * blockBytes_;
  const std::string_view head = window_.Vue(place, memoHead);
  if (kind_ == MemoKind::Fpt) {
    if (head.size() < memoHead) return false;
    return LitLongueur(place + memoHead, Lit32Inverse(head, 4), into);
  }
  if (head.size() < memoHead || head.substr(0, mark4.size()) != mark4) {
    return LitJusquaFin(place, into);
  }
  const std::uint64_t withHead = Lit32(head, 4);
  return withHead >= memoHead && LitLongueur(place + memoHead, withHead - memoHead, into);
}

bool MemoFile::Compte(std::uint64_t length) {
  if (length > most_ || length > left_) return false;
  left_ -= length;
  return true;
}

bool MemoFile::LitLongueur(std::uint64_t place, std::uint64_t length, std::string& into) {
  if (place > bytes_->Taille() || length > bytes_->Taille() - place || !Compte(length)) {
    return false;
  }
  constexpr std::uint64_t direct = std::uint64_t{64} << 10;  // what the window need not hold
  if (length <= direct) {
    into = window_.Vue(place, static_cast<std::size_t>(length));
  } else {
    into.resize(static_cast<std::size_t>(length));
    into.resize(bytes_->Lit(place, into));
  }
  return into.size() == length;
}

/// dBase III knows no length: a text goes to the byte 1A, or to the end of the file.
bool MemoFile::LitJusquaFin(std::uint64_t place, std::string& into) {
  while (true) {
    const std::string_view some = window_.Vue(place + into.size(), usualBlock);
    const std::string_view text = some.substr(0, some.find(endOfRows));
    if (!Compte(text.size())) return false;
    into += text;
    if (text.size() < some.size() || some.empty()) return place < bytes_->Taille();
    if (into.size() > most_) return false;
  }
}

std::optional<std::uint64_t> BlocDe(std::string_view field) {
  constexpr std::size_t binary = 4;
  if (field.size() == binary) return Lit32(field, 0);
  const auto blank = [](char c) { return c == ' ' || c == '\0'; };
  const auto* const first = std::find_if_not(field.begin(), field.end(), blank);
  if (first == field.end()) return 0;
  std::uint64_t block = 0;
  const auto [end, error] = std::from_chars(first, field.end(), block);
  if (error != std::errc{} || !std::all_of(end, field.end(), blank)) return {};
  return block;
}

}  // namespace talpena::dbase
