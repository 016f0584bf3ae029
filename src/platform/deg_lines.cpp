#include "platform/deg_lines.h"

#include <algorithm>
#include <cstring>

#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/talpena_error.h"

namespace talpena {
namespace {

constexpr std::int64_t blockSize = 256 << 10;

/// No more than the file and its end need.
std::size_t TailleDeBloc(const InputFile& file) {
  constexpr std::int64_t smallest = 4096;
  return static_cast<std::size_t>(std::clamp(file.Taille() + 1, smallest, blockSize));
}

bool Contient(const char* text, std::size_t length, char c) {
  return length > 0 && std::memchr(text, c, length) != nullptr;
}

/// The first CR or LF from here on. Piece by piece, so that a file with one of the two alone is not
/// searched to its end for the other at each line.
std::size_t CrOuLf(std::string_view text, std::size_t from) {
  constexpr std::size_t piece = 128;
  for (; from < text.size(); from += piece) {
    const std::string_view some = text.substr(from, piece);
    const std::size_t lf = some.find('\n');
    const std::size_t cr = some.substr(0, lf).find('\r');
    const std::size_t found = std::min(cr, lf);
    if (found != std::string_view::npos) return from + found;
  }
  return std::string_view::npos;
}

}  // namespace

DegLines::DegLines(std::unique_ptr<InputFile> file, LineEnd end)
    : file_(std::move(file)), end_(end), buffer_(TailleDeBloc(*file_)), unread_(file_->Taille()) {}

bool DegLines::Lit(std::string_view& line) {
  std::size_t length = 0;
  const bool ended = TrouveFin(length);
  if (length > limit_) RefuseLongueur();
  if (!ended && length == 0) return false;
  const std::size_t taken = length + (ended ? LongueurFin(length) : 0);
  line = {buffer_.data() + first_, length};
  lfOnly_ = !ended && Contient(line.data(), length, '\n');
  first_ += taken;
  position_ += static_cast<std::int64_t>(taken);
  ++number_;
  return true;
}

std::string_view DegLines::LitObligatoire() {
  std::string_view line;
  if (Lit(line)) return line;
  const int hint = lfOnly_ && number_ == 1 ? MsgId::LignesLf : 0;
  const std::string description = "Input past end of file: behind line " + Str(number_);
  if (number_ == 0) {
    throw TalpenaError(ErrorNumber::InputPastEnd, description, {.text = MsgId::FichierVide});
  }
  throw TalpenaError(ErrorNumber::InputPastEnd, description,
                     {.text = MsgId::FichierSansEnTete, .about = {Str(number_)}, .hint = hint});
}

/// Length of the line that starts at first_; false when the file ends before the line does.
/// Stops early once the line is above the limit.
bool DegLines::TrouveFin(std::size_t& length) {
  length = 0;
  do {
    const std::string_view text(buffer_.data() + first_, last_ - first_);
    const std::size_t found = end_ == LineEnd::Cr ? text.find('\r', length) : CrOuLf(text, length);
    if (found != std::string_view::npos) {
      length = found;
      return true;
    }
    length = text.size();
  } while (length <= limit_ && Remplit());
  return false;
}

/// Bytes of the line end that stands `length` behind first_.
std::size_t DegLines::LongueurFin(std::size_t length) {
  if (buffer_[first_ + length] == '\n') return 1;
  if (first_ + length + 1 == last_ && !Remplit()) return 1;
  return buffer_[first_ + length + 1] == '\n' ? 2 : 1;
}

/// Reads the next block behind what is still to be handed out; false at the end of the file.
bool DegLines::Remplit() {
  if (unread_ <= 0) return false;
  if (last_ == buffer_.size()) FaitPlace();
  const std::size_t room = std::min(buffer_.size() - last_, static_cast<std::size_t>(unread_));
  const std::size_t count = file_->Lit({buffer_.data() + last_, room});
  last_ += count;
  unread_ -= static_cast<std::int64_t>(count);
  return count > 0;
}

/// Room behind what is still to be handed out: it moves to the front, or the buffer grows.
void DegLines::FaitPlace() {
  std::copy(buffer_.data() + first_, buffer_.data() + last_, buffer_.data());
  last_ -= first_;
  first_ = 0;
  if (last_ == buffer_.size()) buffer_.resize(std::min(2 * last_, last_ + limit_));
}

void DegLines::RefuseLongueur() {
  const std::string line = Str(number_ + 1);
  const std::string megabytes = Str(static_cast<std::int64_t>(limit_ >> 20));
  lfOnly_ = Contient(buffer_.data() + first_, last_ - first_, '\n');
  throw TalpenaError(ErrorNumber::Overflow, "Line " + line + " is longer than " + megabytes + " MB",
                     {.text = MsgId::LigneTropLongue,
                      .about = {line, megabytes},
                      .hint = lfOnly_ && number_ == 0 ? MsgId::LignesLf : 0});
}

}  // namespace talpena
