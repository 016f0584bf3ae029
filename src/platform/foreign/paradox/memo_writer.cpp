#include "platform/foreign/paradox/memo_writer.h"

#include <cstring>

#include "platform/foreign/little_endian.h"
#include "platform/foreign/paradox/memo_format.h"
#include "platform/foreign/paradox/memo_reader.h"

namespace talpena::paradox {
namespace {

constexpr std::uint16_t modification = 1;  // the table was never changed since it was made

struct KnownBytes {
  std::size_t place;
  std::string_view bytes;
};

/// The head as genuine programs write it. What the last three say is not published.
constexpr KnownBytes headBytes[] = {
    {0x0B, {"\x00\x10", 2}},  // bytes of a block
    {0x0D, {"\x00\x10", 2}},  // bytes of a block of small values
    {0x10, "\x10"},           // bytes of a chunk
    {0x11, {"\x40\x00", 2}},  // values in such a block
    {0x13, {"\x00\x08", 2}},  // longer ones have a block of their own
    {0x05, {"\x82\x73\x02\x00\x29", 5}},
    {0x29, "\xA1\x02"},
    {0x38, "\x02\x10"}};

/// An empty block: its kind and how long it is.
std::string Bloc(MemoBlock kind, std::size_t bytes) {
  std::string block(bytes, '\0');
  block[0] = static_cast<char>(kind);
  PoseNombre(block.data() + 1, static_cast<std::uint16_t>(bytes / memoBlockBytes));
  return block;
}

std::string TeteDesMemos() {
  std::string head = Bloc(MemoBlock::Head, memoBlockBytes);
  PoseNombre(head.data() + 3, modification);
  for (const KnownBytes& known : headBytes) {
    head.replace(known.place, known.bytes.size(), known.bytes);
  }
  return head;
}

}  // namespace

MemoWriter::MemoWriter(const std::string& path, std::size_t most) : file_(path, most) {
  const std::string head = TeteDesMemos();
  file_.Assure(head.size());
  file_.Ecrit(0, head);
  size_ = head.size();
}

std::uint32_t MemoWriter::Range(std::string_view value) {
  return value.size() > mostShared ? RangeSeule(value) : RangeCommune(value);
}

std::uint32_t MemoWriter::RangeSeule(std::string_view value) {
  const std::size_t bytes =
      (singleHead + value.size() + memoBlockBytes - 1) / memoBlockBytes * memoBlockBytes;
  file_.Assure(size_ + bytes);
  std::string block = Bloc(MemoBlock::Single, bytes);
  PoseNombre(block.data() + 3, static_cast<std::uint32_t>(value.size()));
  PoseNombre(block.data() + 7, modification);
  block.replace(singleHead, value.size(), value);
  file_.Ecrit(size_, block);
  const auto place = static_cast<std::uint32_t>(size_);
  size_ += bytes;
  return place | LongValue::singleValue;
}

std::uint32_t MemoWriter::RangeCommune(std::string_view value) {
  const std::size_t chunks = (value.size() + chunkBytes - 1) / chunkBytes;
  const bool fits = blockPlace_ != 0 && entries_ < sharedEntries &&
                    (chunk_ + chunks) * chunkBytes <= memoBlockBytes;
  if (!fits) CommenceBloc();
  const std::size_t entry = sharedEntries - ++entries_;  // the last one goes first
  char* const into = block_.data() + PlaceEntree(entry);
  PoseNombre(into, static_cast<std::uint8_t>(chunk_));
  PoseNombre(into + 1, static_cast<std::uint8_t>(chunks));
  PoseNombre(into + 2, modification);
  PoseNombre(into + 4, static_cast<std::uint8_t>(value.size() - (chunks - 1) * chunkBytes));
  block_.replace(chunk_ * chunkBytes, value.size(), value);
  chunk_ += chunks;
  return static_cast<std::uint32_t>(blockPlace_ + entry);
}

void MemoWriter::CommenceBloc() {
  file_.Assure(size_ + memoBlockBytes);
  EcritBloc();
  block_ = Bloc(MemoBlock::Shared, memoBlockBytes);
  blockPlace_ = size_;
  size_ += memoBlockBytes;
  entries_ = 0;
  chunk_ = firstChunk;
}

void MemoWriter::EcritBloc() {
  if (blockPlace_ != 0) file_.Ecrit(blockPlace_, block_);
}

void MemoWriter::Acheve() {
  EcritBloc();
  file_.Acheve(size_);
}

}  // namespace talpena::paradox
