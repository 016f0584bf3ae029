#include "platform/foreign/excel/biff_cursor.h"

#include <algorithm>
#include <utility>

#include "platform/foreign/little_endian.h"

namespace talpena::excel {
namespace {

constexpr std::size_t windowSize = std::size_t{128} * 1024;  // above that of the longest record

}  // namespace

BiffCursor::BiffCursor(std::shared_ptr<ByteSource> stream, std::size_t place)
    : stream_(std::move(stream)), next_(place) {}

/// Bytes of the stream, which last until the next call.
const char* BiffCursor::Vers(std::size_t place, std::size_t bytes) {
  const bool here = place >= windowPlace_ && place - windowPlace_ <= windowBytes_ &&
                    bytes <= windowBytes_ - (place - windowPlace_);
  if (!here) {
    const std::size_t size = stream_->Taille();
    if (place > size || bytes > size - place) Refuse();
    windowBytes_ = std::min(windowSize, size - place);
    window_.resize(std::max(window_.size(), windowBytes_));
    stream_->Lit(place, std::span(window_).first(windowBytes_));
    windowPlace_ = place;
  }
  return window_.data() + (place - windowPlace_);
}

void BiffCursor::Avance() {
  place_ = next_;
  const char* const head = Vers(place_, biffHead);
  number_ = static_cast<Biff>(NombreLu<std::uint16_t>(head));
  const std::size_t length = NombreLu<std::uint16_t>(head + 2);
  data_ = {Vers(place_, biffHead + length) + biffHead, length};
  next_ = place_ + biffHead + length;
}

Biff BiffCursor::Prochain() {
  if (next_ >= stream_->Taille()) return Biff::Eof;
  const std::size_t bytes = data_.size();
  const Biff found = static_cast<Biff>(NombreLu<std::uint16_t>(Vers(next_, biffHead)));
  data_ = {Vers(place_, biffHead + bytes) + biffHead, bytes};
  return found;
}

void BiffCursor::Va(std::size_t place) { next_ = place; }

std::string_view BiffCursor::Octets(std::size_t at, std::size_t count) const {
  if (at > data_.size() || count > data_.size() - at) Refuse();
  return data_.substr(at, count);
}

std::uint8_t BiffCursor::Octet(std::size_t at) const {
  return NombreLu<std::uint8_t>(Octets(at, 1).data());
}
std::uint16_t BiffCursor::Mot16(std::size_t at) const {
  return NombreLu<std::uint16_t>(Octets(at, 2).data());
}
std::uint32_t BiffCursor::Mot32(std::size_t at) const {
  return NombreLu<std::uint32_t>(Octets(at, 4).data());
}
double BiffCursor::Reel(std::size_t at) const { return DoubleLu(Octets(at, 8).data()); }

SubstreamCursor::SubstreamCursor(std::shared_ptr<ByteSource> stream, std::size_t place, int kind)
    : cursor_(std::move(stream), place) {
  cursor_.Avance();
  if (cursor_.Numero() != Biff::Bof) cursor_.Refuse();
  version_ = cursor_.Mot16(0);
  const bool known = version_ == versionBiff5 || version_ == versionBiff8;
  if (!known || cursor_.Mot16(2) != kind) cursor_.Refuse();
}

bool SubstreamCursor::Avance() {
  cursor_.Avance();
  while (cursor_.Numero() == Biff::Bof) Passe();
  return cursor_.Numero() != Biff::Eof;
}

/// Over a substream within this one, to the record behind it.
void SubstreamCursor::Passe() {
  for (int depth = 1; depth > 0;) {
    cursor_.Avance();
    if (cursor_.Numero() == Biff::Bof) ++depth;
    if (cursor_.Numero() == Biff::Eof) --depth;
  }
  cursor_.Avance();
}

}  // namespace talpena::excel
