#include "platform/foreign/paradox/block_writer.h"

#include <algorithm>

#include "platform/foreign/bytes_at.h"
#include "platform/foreign/errors.h"
#include "platform/foreign/little_endian.h"

namespace talpena::paradox {

BlockWriter::BlockWriter(const std::string& path, std::size_t headBytes, std::size_t recordBytes,
                         std::size_t most, std::uint32_t mostBlocks)
    : file_(path, most), headBytes_(headBytes), recordBytes_(recordBytes), mostBlocks_(mostBlocks) {
  file_.Assure(headBytes);
}

/// @param number  counted from 1
std::size_t BlockWriter::PlaceDuBloc(std::uint32_t number) const {
  return headBytes_ + std::size_t{number - 1} * units_ * blockUnit;
}

void BlockWriter::Ajoute(std::string_view record) {
  const std::size_t room = OctetsDuBloc(units_) / recordBytes_;
  if (blocks_ == 0 || inBlock_ == room) Commence();
  record.copy(block_.data() + blockHead + inBlock_ * recordBytes_, recordBytes_);
  ++inBlock_;
  ++records_;
}

/// Begins a block, for which there is room before the last one says that it follows.
void BlockWriter::Commence() {
  if (blocks_ == mostBlocks_) {
    if (units_ == largeUnits) throw foreign::FichierPlein(Chemin());
    Agrandit();
    if (inBlock_ < OctetsDuBloc(units_) / recordBytes_) return;
  }
  file_.Assure(PlaceDuBloc(blocks_ + 2));
  if (blocks_ > 0) Ecrit(blocks_ + 1);
  ++blocks_;
  block_.assign(units_ * blockUnit, '\0');
  inBlock_ = 0;
}

/// Writes the block that fills, with the number of the one behind it, 0 for none.
void BlockWriter::Ecrit(std::uint32_t next) {
  const auto last = static_cast<std::uint16_t>((inBlock_ - 1) * recordBytes_);
  PoseNombre(block_.data(), static_cast<std::uint16_t>(next));
  PoseNombre(block_.data() + 2, static_cast<std::uint16_t>(blocks_ - 1));
  PoseNombre(block_.data() + 4, last);
  file_.Ecrit(PlaceDuBloc(blocks_), block_);
}

// From the first block on, in place: a large block holds at least the records of as many bytes of
// small ones, so that it never reaches what was not read yet. The file gets no longer.
void BlockWriter::Agrandit() {
  Ecrit(0);
  const auto written = OuvreOctets(Chemin());
  const std::uint32_t smallBlocks = blocks_;
  const std::size_t inSmall = OctetsDuBloc(smallUnits) / recordBytes_;
  std::uint32_t rest = records_;
  blocks_ = records_ = 0;
  inBlock_ = 0;
  units_ = largeUnits;
  std::string small(smallUnits * blockUnit, '\0');
  for (std::uint32_t i = 0; i < smallBlocks; ++i) {
    written->Lit(headBytes_ + std::size_t{i} * small.size(), small);
    const std::size_t count = std::min<std::size_t>(inSmall, rest);
    for (std::size_t r = 0; r < count; ++r) {
      Ajoute(std::string_view(small).substr(blockHead + r * recordBytes_, recordBytes_));
    }
    rest -= static_cast<std::uint32_t>(count);
  }
}

void BlockWriter::Acheve(std::string_view head) {
  if (blocks_ > 0) Ecrit(0);
  file_.Ecrit(0, head);
  file_.Acheve(PlaceDuBloc(blocks_ + 1));
}

}  // namespace talpena::paradox
