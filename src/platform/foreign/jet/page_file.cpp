#include "platform/foreign/jet/page_file.h"

namespace talpena::jet {

std::uint32_t PageFile::Alloue() {
  const auto covered = bitPages_.empty()
                           ? pagesInRow
                           : static_cast<std::uint32_t>(bitPages_.size()) * pagesPerBitPage;
  if (pages_ == covered) bitPages_.push_back(Prochaine());
  return Prochaine();
}

std::uint32_t PageFile::Prochaine() {
  file_.Assure((std::size_t{pages_} + 1) * taillePage);
  return pages_++;
}

}  // namespace talpena::jet
