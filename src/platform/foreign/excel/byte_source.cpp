#include "platform/foreign/excel/byte_source.h"

#include <cstring>
#include <utility>

#include "common/talpena_error.h"
#include "platform/foreign/errors.h"

namespace talpena::excel {

ByteSource::ByteSource(std::string path) : path_(std::move(path)) {}

void ByteSource::Lit(std::size_t place, std::span<char> into) {
  const std::size_t size = Taille();
  if (place > size || into.size() > size - place) Refuse();
  if (!into.empty()) LitDedans(place, into);
}

void ByteSource::Refuse() const { throw foreign::FormatInconnu(path_); }

FileBytes::FileBytes(const std::string& path, std::size_t most,
                     std::shared_ptr<const WorkBeat> attente)
    : ByteSource(path), bytes_(OuvreOctets(path)), attente_(std::move(attente)) {
  if (bytes_->Taille() > most) Refuse();
}

void FileBytes::LitDedans(std::size_t place, std::span<char> into) {
  Bat();
  if (bytes_->Lit(place, into) != into.size()) Refuse();
}

void FileBytes::Bat() {
  constexpr std::chrono::milliseconds between{20};
  if (attente_ == nullptr || !*attente_) return;
  const auto now = std::chrono::steady_clock::now();
  if (now - bat_ < between) return;
  bat_ = now;
  if (!(*attente_)()) throw TalpenaError(ErrorNumber::Cancelled, "Cancel.");
}

void MemoryBytes::LitDedans(std::size_t place, std::span<char> into) {
  std::memcpy(into.data(), bytes_.data() + place, into.size());
}

}  // namespace talpena::excel
