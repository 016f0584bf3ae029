#include "platform/foreign/excel/byte_source.h"

#include <cstring>
#include <utility>

#include "platform/foreign/errors.h"

namespace talpena::excel {

ByteSource::ByteSource(std::string path) : path_(std::move(path)) {}

void ByteSource::Lit(std::size_t place, std::span<char> into) {
  const std::size_t size = Taille();
  if (place > size || into.size() > size - place) Refuse();
  if (!into.empty()) LitDedans(place, into);
}

void ByteSource::Refuse() const { throw foreign::FormatInconnu(path_); }

FileBytes::FileBytes(const std::string& path, std::size_t most)
    : ByteSource(path), bytes_(OuvreOctets(path)) {
  if (bytes_->Taille() > most) Refuse();
}

void FileBytes::LitDedans(std::size_t place, std::span<char> into) {
  if (bytes_->Lit(place, into) != into.size()) Refuse();
}

void MemoryBytes::LitDedans(std::size_t place, std::span<char> into) {
  std::memcpy(into.data(), bytes_.data() + place, into.size());
}

}  // namespace talpena::excel
