#include "platform/sqlite/rows/insert_source.h"

#include <algorithm>

#include "platform/sqlite/errors.h"

namespace talpena::sqlite {

bool InsertSource::Suivante(std::span<const Cell>& cells) {
  std::fill(given_.begin(), given_.end(), Cell::Null());
  if (!source_.Suivante(given_)) return false;
  if (count_ >= room_) throw Debordement();
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    stored_[i] = Convertit(table_, fields_[i], given_[i], scratch_[i], check_);
  }
  ++count_;
  cells = stored_;
  return true;
}

}  // namespace talpena::sqlite
