#include "platform/foreign/appended_file.h"

#include <algorithm>

namespace talpena {

void AppendedFile::Ajoute(std::string_view bytes) {
  constexpr std::size_t block = std::size_t{256} << 10;
  Assure(bytes.size());
  waiting_ += bytes;
  if (waiting_.size() >= block) Vide();
}

void AppendedFile::Remplace(std::size_t place, std::string_view bytes) {
  Vide();
  file_.Ecrit(place, bytes);
}

void AppendedFile::Vide() {
  file_.Ecrit(written_, waiting_);
  written_ += waiting_.size();
  waiting_.clear();
}

void AppendedFile::Recule(std::size_t size) {
  waiting_.resize(size > written_ ? std::min(waiting_.size(), size - written_) : 0);
  written_ = std::min(written_, size);
}

void AppendedFile::Acheve() {
  Vide();
  file_.Acheve(written_);
}

}  // namespace talpena
