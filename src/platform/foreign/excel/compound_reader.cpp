#include "platform/foreign/excel/compound_reader.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "platform/foreign/excel/compound_file.h"
#include "platform/foreign/little_endian.h"

namespace talpena::excel {
namespace {

constexpr std::size_t headBytes = 512, entryBytes = 128;
constexpr std::uint32_t lastSector = 0xFFFFFFFA;  // above it stand marks
constexpr std::uint32_t noEntry = 0xFFFFFFFF;
constexpr unsigned miniShift = 6;

/// A stream: sectors of another source, one behind the other.
class ChainBytes final : public ByteSource {
 public:
  /// @param before  sectors ahead of the first that has a number
  ChainBytes(std::shared_ptr<ByteSource> base, std::vector<std::uint32_t> sectors, unsigned shift,
             std::uint32_t before, std::size_t size)
      : ByteSource(base->Chemin()),
        base_(std::move(base)),
        sectors_(std::move(sectors)),
        shift_(shift),
        before_(before),
        size_(size) {
    if (size_ > sectors_.size() << shift_) Refuse();
  }
  std::size_t Taille() const override { return size_; }

 private:
  void LitDedans(std::size_t place, std::span<char> into) override {
    while (!into.empty()) {
      const std::size_t first = place >> shift_;
      const std::size_t within = place - (first << shift_);
      const std::size_t bytes = std::min(into.size(), Voisins(first, into.size()) - within);
      base_->Lit(((std::size_t{sectors_[first]} + before_) << shift_) + within, into.first(bytes));
      into = into.subspan(bytes);
      place += bytes;
    }
  }

  /// Bytes of the sectors that stand side by side in the file from this one on, enough for some.
  std::size_t Voisins(std::size_t first, std::size_t wanted) const {
    std::size_t last = first + 1;
    while (last < sectors_.size() && sectors_[last] == sectors_[last - 1] + 1 &&
           (last - first - 1) << shift_ < wanted) {
      ++last;
    }
    return (last - first) << shift_;
  }

  std::shared_ptr<ByteSource> base_;
  std::vector<std::uint32_t> sectors_;
  unsigned shift_;
  std::uint32_t before_;
  std::size_t size_;
};

std::uint32_t Mot(const std::vector<char>& bytes, std::size_t place) {
  return NombreLu<std::uint32_t>(bytes.data() + place);
}

bool MemeNomDeFlux(const std::u16string& name, std::string_view other) {
  return std::equal(name.begin(), name.end(), other.begin(), other.end(), [](char16_t a, char b) {
    const auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? c + 32 : c; };
    return lower(a) == lower(static_cast<unsigned char>(b));
  });
}

}  // namespace

CompoundFile::CompoundFile(std::shared_ptr<ByteSource> file) : file_(std::move(file)) {
  LitTete();
  Sectors chain = Chaine(directoryStart_);
  if (chain.empty()) file_->Refuse();
  const std::size_t size = chain.size() << shift_;
  directory_ = std::make_shared<ChainBytes>(file_, std::move(chain), shift_, 1, size);
}

void CompoundFile::LitTete() {
  std::vector<char> head(headBytes);
  file_->Lit(0, head);
  if (std::string_view(head.data(), compoundMagic.size()) != compoundMagic) file_->Refuse();
  shift_ = NombreLu<std::uint16_t>(head.data() + 30);
  if ((shift_ != 9 && shift_ != 12) || NombreLu<std::uint16_t>(head.data() + 32) != miniShift) {
    file_->Refuse();
  }
  const std::size_t bytes = std::size_t{1} << shift_;
  sectors_ = static_cast<std::uint32_t>(
      std::min<std::size_t>((file_->Taille() + bytes - 1) / bytes - 1, lastSector));
  directoryStart_ = Mot(head, 48);
  if (Mot(head, 56) != smallestStream) file_->Refuse();
  miniFatStart_ = Mot(head, 60);
  LitFat(SecteursDeFat(head));
}

/// The sectors of the allocation table: some in the head, the rest in a chain of their own.
CompoundFile::Sectors CompoundFile::SecteursDeFat(const std::vector<char>& head) {
  const std::size_t perSector = (std::size_t{1} << shift_) / 4;
  const std::size_t most = (sectors_ + perSector - 1) / perSector;
  Sectors found;
  const auto add = [&](std::uint32_t sector) {
    if (sector < sectors_ && found.size() < most) found.push_back(sector);
  };
  for (std::size_t i = 0; i < headFatSectors; ++i) add(Mot(head, 76 + 4 * i));
  std::vector<char> block(perSector * 4);
  std::uint32_t next = Mot(head, 68);
  for (std::size_t seen = 0; next < sectors_ && found.size() < most && seen < most; ++seen) {
    file_->Lit((std::size_t{next} + 1) << shift_, block);
    for (std::size_t i = 0; i + 1 < perSector; ++i) add(Mot(block, 4 * i));
    next = Mot(block, 4 * (perSector - 1));
  }
  return found;
}

void CompoundFile::LitFat(const Sectors& fatSectors) {
  std::vector<char> block(std::size_t{1} << shift_);
  for (const std::uint32_t sector : fatSectors) {
    file_->Lit((std::size_t{sector} + 1) << shift_, block);
    for (std::size_t i = 0; i < block.size() && fat_.size() < sectors_; i += 4) {
      fat_.push_back(Mot(block, i));
    }
  }
}

CompoundFile::Sectors CompoundFile::Chaine(std::uint32_t start) const {
  Sectors chain;
  for (std::uint32_t sector = start; sector < lastSector; sector = fat_[sector]) {
    if (sector >= fat_.size() || chain.size() >= fat_.size()) file_->Refuse();
    chain.push_back(sector);
  }
  return chain;
}

CompoundFile::Entry CompoundFile::LitEntree(std::uint32_t number) {
  std::array<char, entryBytes> bytes{};
  directory_->Lit(std::size_t{number} * entryBytes, bytes);
  const auto word = [&](std::size_t place) {
    return NombreLu<std::uint32_t>(bytes.data() + place);
  };
  Entry entry;
  constexpr std::size_t mostNameBytes = 64;
  const std::size_t nameBytes = NombreLu<std::uint16_t>(bytes.data() + 64);
  if (nameBytes > mostNameBytes) file_->Refuse();
  for (std::size_t i = 0; i + 2 < nameBytes; i += 2) {
    entry.name += static_cast<char16_t>(NombreLu<std::uint16_t>(bytes.data() + i));
  }
  entry.kind = static_cast<unsigned char>(bytes[66]);
  entry.left = word(68);
  entry.right = word(72);
  entry.child = word(76);
  entry.start = word(116);
  entry.size = word(120);  // no workbook has 4 GB
  return entry;
}

std::shared_ptr<ByteSource> CompoundFile::Flux(std::string_view name) {
  constexpr int stream = 2;
  const std::size_t entries = directory_->Taille() / entryBytes;
  std::vector<bool> seen(entries);
  std::vector<std::uint32_t> open = {LitEntree(0).child};
  while (!open.empty()) {
    const std::uint32_t number = open.back();
    open.pop_back();
    if (number == noEntry) continue;
    if (number >= entries || seen[number]) file_->Refuse();
    seen[number] = true;
    const Entry entry = LitEntree(number);
    if (entry.kind == stream && MemeNomDeFlux(entry.name, name)) return Flux(entry);
    open.push_back(entry.left);
    open.push_back(entry.right);
  }
  return nullptr;
}

std::shared_ptr<ByteSource> CompoundFile::Flux(const Entry& entry) {
  if (entry.size < smallestStream) return PetitFlux(entry);
  return std::make_shared<ChainBytes>(file_, Chaine(entry.start), shift_, 1, entry.size);
}

std::shared_ptr<ByteSource> CompoundFile::PetitFlux(const Entry& entry) {
  const Entry root = LitEntree(0);
  const auto all = std::make_shared<ChainBytes>(file_, Chaine(root.start), shift_, 1, root.size);
  Sectors links = Chaine(miniFatStart_);
  const std::size_t bytes = links.size() << shift_;
  ChainBytes table(file_, std::move(links), shift_, 1, bytes);
  Sectors chain;
  std::uint32_t sector = entry.start;
  while (chain.size() << miniShift < entry.size) {
    const std::size_t place = std::size_t{sector} << miniShift;
    if (place >= root.size || chain.size() << miniShift >= root.size) file_->Refuse();
    chain.push_back(sector);
    std::array<char, 4> link{};
    table.Lit(std::size_t{sector} * 4, link);
    sector = NombreLu<std::uint32_t>(link.data());
  }
  return std::make_shared<ChainBytes>(all, std::move(chain), miniShift, 0, entry.size);
}

}  // namespace talpena::excel
