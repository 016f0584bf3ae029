#include "platform/foreign/jet/index_leaf.h"

#include <algorithm>
#include <string_view>

namespace talpena::jet {
namespace {

constexpr std::size_t placeBytes = 4;
constexpr std::size_t maskStart = 0x1B;  // a bit for each byte that an entry ends before
constexpr std::size_t entriesStart = 0x1E0;
constexpr std::size_t room = taillePage - entriesStart;

std::string_view Cle(const std::string& entry) {
  return std::string_view(entry).substr(0, entry.size() - placeBytes);
}

}  // namespace

IndexLeaf::IndexLeaf(PageFile& file, MapRows& maps, std::uint32_t table)
    : file_(file), table_(table), page_(file.Alloue()), used_(file, maps) {
  used_.Marque(page_);
}

bool IndexLeaf::Tient(std::size_t keyBytes) const { return bytes_ + keyBytes + placeBytes <= room; }

void IndexLeaf::Ajoute(const std::string& key, Place row) {
  std::string entry = key;
  const std::uint32_t place = row.Mot();  // here the most significant byte comes first
  for (int shift = 24; shift >= 0; shift -= 8) entry += static_cast<char>(place >> shift);
  bytes_ += entry.size();
  const auto less = [](const std::string& a, const std::string& b) {
    return std::string_view(a) < std::string_view(b);  // bytes, not signed characters
  };
  entries_.insert(std::upper_bound(entries_.begin(), entries_.end(), entry, less),
                  std::move(entry));
}

std::uint32_t IndexLeaf::ClesDifferentes() const {
  std::uint32_t different = 0;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (i == 0 || Cle(entries_[i]) != Cle(entries_[i - 1])) ++different;
  }
  return different;
}

void IndexLeaf::Ecrit() {
  Page page = NouvellePage(PageKind::Leaf);
  Pose16(page, 2, room - bytes_);
  Pose32(page, 4, table_);
  std::size_t end = 0;
  for (const std::string& entry : entries_) {
    PoseOctets(page, entriesStart + end, entry);
    end += entry.size();
    page[maskStart + end / 8] = static_cast<char>(page[maskStart + end / 8] | 1 << end % 8);
  }
  file_.Ecrit(page_, {page.data(), page.size()});
  used_.Ecrit();
}

}  // namespace talpena::jet
