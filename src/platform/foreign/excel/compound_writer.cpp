#include "platform/foreign/excel/compound_writer.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/foreign/excel/compound_file.h"
#include "platform/foreign/little_endian.h"

namespace talpena::excel {
namespace {

constexpr std::size_t sector = 512, perSector = sector / 4;
constexpr std::uint32_t freeSector = 0xFFFFFFFF, endOfChain = 0xFFFFFFFE, fatSector = 0xFFFFFFFD,
                        difatSector = 0xFFFFFFFC;

std::size_t Parts(std::size_t whole, std::size_t part) { return (whole + part - 1) / part; }

/// How many sectors there are of each kind, in the order in which they stand behind the head.
struct Layout {
  std::size_t stream = 0, fat = 0, difat = 0;

  explicit Layout(std::size_t streamBytes)
      : stream(Parts(std::max(streamBytes, smallestStream), sector)) {
    for (std::size_t before = fat + 1; fat != before;) {
      before = fat;
      difat = fat <= headFatSectors ? 0 : Parts(fat - headFatSectors, perSector - 1);
      fat = Parts(Sectors(), perSector);
    }
  }
  std::size_t Sectors() const { return stream + fat + difat + 1; }
  std::size_t Bytes() const { return (1 + Sectors()) * sector; }
  std::uint32_t Fat() const { return static_cast<std::uint32_t>(stream); }
  std::uint32_t Difat() const { return static_cast<std::uint32_t>(stream + fat); }
  std::uint32_t Directory() const { return static_cast<std::uint32_t>(stream + fat + difat); }
};

void Ajoute16(std::string& out, std::size_t value) {
  AjouteNombre(out, static_cast<std::uint16_t>(value));
}
void Ajoute32(std::string& out, std::size_t value) {
  AjouteNombre(out, static_cast<std::uint32_t>(value));
}

/// The number of the allocation table's sector, free when there is none.
std::uint32_t SecteurDeFat(const Layout& layout, std::size_t number) {
  return number < layout.fat ? layout.Fat() + static_cast<std::uint32_t>(number) : freeSector;
}

std::string Tete(const Layout& layout) {
  constexpr std::size_t version = 0x003E, versionOfSectors512 = 3, littleEndian = 0xFFFE;
  std::string head(compoundMagic);
  head.append(16, '\0');
  for (const std::size_t word :
       {version, versionOfSectors512, littleEndian, std::size_t{9}, std::size_t{6}}) {
    Ajoute16(head, word);
  }
  head.append(10, '\0');
  Ajoute32(head, layout.fat);
  Ajoute32(head, layout.Directory());
  Ajoute32(head, 0);
  Ajoute32(head, smallestStream);
  Ajoute32(head, endOfChain);  // no small streams
  Ajoute32(head, 0);
  Ajoute32(head, layout.difat == 0 ? endOfChain : layout.Difat());
  Ajoute32(head, layout.difat);
  for (std::size_t i = 0; i < headFatSectors; ++i) Ajoute32(head, SecteurDeFat(layout, i));
  return head;
}

std::string Fat(const Layout& layout) {
  std::string fat;
  fat.reserve(layout.fat * sector);
  for (std::size_t i = 1; i < layout.stream; ++i) Ajoute32(fat, i);
  Ajoute32(fat, endOfChain);
  for (std::size_t i = 0; i < layout.fat; ++i) Ajoute32(fat, fatSector);
  for (std::size_t i = 0; i < layout.difat; ++i) Ajoute32(fat, difatSector);
  Ajoute32(fat, endOfChain);  // of the directory
  fat.resize(layout.fat * sector, '\xFF');
  return fat;
}

std::string Difat(const Layout& layout) {
  std::string difat;
  std::size_t next = headFatSectors;
  for (std::size_t i = 0; i < layout.difat; ++i) {
    for (std::size_t j = 0; j + 1 < perSector; ++j) Ajoute32(difat, SecteurDeFat(layout, next++));
    Ajoute32(difat, i + 1 < layout.difat ? layout.Difat() + i + 1 : endOfChain);
  }
  return difat;
}

/// @param child  number of the entry that the root's tree begins with
std::string Entree(std::string_view name, int kind, std::uint32_t child, std::uint32_t start,
                   std::size_t size) {
  constexpr std::size_t nameBytes = 64, black = 1;
  std::string entry;
  for (const char c : name) Ajoute16(entry, static_cast<unsigned char>(c));
  entry.resize(nameBytes, '\0');
  Ajoute16(entry, name.empty() ? 0 : (name.size() + 1) * 2);
  entry += static_cast<char>(kind);
  entry += static_cast<char>(black);
  Ajoute32(entry, freeSector);  // none on its left and its right
  Ajoute32(entry, freeSector);
  Ajoute32(entry, child);
  entry.append(36, '\0');  // class, state and times
  Ajoute32(entry, start);
  Ajoute32(entry, size);
  Ajoute32(entry, 0);
  return entry;
}

std::string Repertoire(const std::string& name, std::size_t streamBytes) {
  constexpr int unused = 0, stream = 2, root = 5;
  const std::string none = Entree("", unused, freeSector, 0, 0);
  return Entree("Root Entry", root, 1, endOfChain, 0) +
         Entree(name, stream, freeSector, 0, streamBytes) + none + none;
}

}  // namespace

CompoundWriter::CompoundWriter(const std::string& path, std::string stream, std::size_t foot,
                               std::size_t most)
    : file_(path, most), name_(std::move(stream)), foot_(foot) {
  file_.Assure(Layout(foot_).Bytes());
}

void CompoundWriter::Ajoute(std::string_view bytes) {
  constexpr std::size_t block = std::size_t{64} << 10;
  file_.Assure(Layout(Taille() + bytes.size() + foot_).Bytes());
  pending_ += bytes;
  if (pending_.size() >= block) Vide();
}

void CompoundWriter::Vide() {
  file_.Ecrit(sector + written_, pending_);
  written_ += pending_.size();
  pending_.clear();
}

void CompoundWriter::Remplace(std::size_t place, std::string_view bytes) {
  Vide();
  file_.Ecrit(sector + place, bytes);
}

void CompoundWriter::Acheve(std::string_view foot) {
  Vide();
  const std::size_t streamBytes = std::max(written_ + foot.size(), smallestStream);
  const Layout layout(streamBytes);
  std::string rest(foot);
  rest.resize(layout.stream * sector - written_, '\0');
  rest += Fat(layout);
  rest += Difat(layout);
  rest += Repertoire(name_, streamBytes);
  file_.Ecrit(sector + written_, rest);
  file_.Ecrit(0, Tete(layout));
  file_.Acheve(layout.Bytes());
}

}  // namespace talpena::excel
