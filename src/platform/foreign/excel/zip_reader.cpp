#include "platform/foreign/excel/zip_reader.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "platform/foreign/little_endian.h"

namespace talpena::excel {
namespace {

constexpr std::uint32_t endMark = 0x06054B50, entryMark = 0x02014B50, partMark = 0x04034B50;
constexpr std::size_t endBytes = 22, entryBytes = 46, partHead = 30;
constexpr std::size_t longestComment = 65535;
constexpr unsigned stored = 0, deflated = 8;

std::uint16_t Mot16(const char* at) { return NombreLu<std::uint16_t>(at); }
std::uint32_t Mot32(const char* at) { return NombreLu<std::uint32_t>(at); }

class PartReader final : public ZipPart {
 public:
  PartReader(std::shared_ptr<ByteSource> file, std::size_t place, std::size_t packed,
             std::size_t size, std::uint32_t check, unsigned method)
      : file_(std::move(file)),
        place_(place),
        packed_(packed),
        left_(size),
        check_(check),
        deflated_(method == deflated) {
    // Without a head of its own; the sum is checked here.
    if (deflated_ && inflateInit2(&stream_, -MAX_WBITS) != Z_OK) file_->Refuse();
  }
  PartReader(const PartReader&) = delete;
  PartReader& operator=(const PartReader&) = delete;
  ~PartReader() override {
    if (deflated_) inflateEnd(&stream_);
  }

  std::size_t Lit(std::span<char> into) override {
    into = into.first(std::min(into.size(), left_));
    if (!into.empty()) {
      if (deflated_) {
        Gonfle(into);
      } else {
        Copie(into);
      }
      left_ -= into.size();
      sum_ =
          crc32(sum_, reinterpret_cast<const Bytef*>(into.data()), static_cast<uInt>(into.size()));
    }
    if (left_ == 0 && sum_ != check_) file_->Refuse();
    return into.size();
  }

 private:
  void Copie(std::span<char> into) {
    if (into.size() > packed_) file_->Refuse();
    file_->Lit(place_, into);
    place_ += into.size();
    packed_ -= into.size();
  }

  void Gonfle(std::span<char> into) {
    stream_.next_out = reinterpret_cast<Bytef*>(into.data());
    stream_.avail_out = static_cast<uInt>(into.size());
    while (stream_.avail_out > 0) {
      if (stream_.avail_in == 0) Remplit();
      const int result = inflate(&stream_, Z_NO_FLUSH);
      if (result == Z_STREAM_END && stream_.avail_out == 0) return;
      if (result != Z_OK) file_->Refuse();
    }
  }

  /// A few bytes at a time, since they may become a thousand times as many.
  void Remplit() {
    const std::size_t bytes = std::min(packed_, block_.size());
    if (bytes == 0) file_->Refuse();
    file_->Lit(place_, std::span(block_).first(bytes));
    place_ += bytes;
    packed_ -= bytes;
    stream_.next_in = reinterpret_cast<Bytef*>(block_.data());
    stream_.avail_in = static_cast<uInt>(bytes);
  }

  std::shared_ptr<ByteSource> file_;
  std::size_t place_, packed_;
  std::size_t left_;  ///< bytes still to come
  std::uint32_t check_;
  bool deflated_;
  uLong sum_ = 0;
  z_stream stream_{};
  std::array<char, 4096> block_{};
};

}  // namespace

ZipFile::ZipFile(std::shared_ptr<ByteSource> file) : file_(std::move(file)) {
  const std::size_t size = file_->Taille();
  if (size < endBytes) Refuse();
  std::vector<char> tail(std::min(size, endBytes + longestComment));
  file_->Lit(size - tail.size(), tail);
  for (std::size_t at = tail.size() - endBytes + 1; at > 0; --at) {
    const char* const end = tail.data() + at - 1;
    if (Mot32(end) != endMark) continue;
    LitRepertoire(Mot32(end + 16), Mot32(end + 12));
    return;
  }
  Refuse();
}

void ZipFile::LitRepertoire(std::size_t place, std::size_t bytes) {
  constexpr std::size_t mostBytes = std::size_t{8} << 20;
  if (bytes > mostBytes || bytes > file_->Taille()) Refuse();
  std::vector<char> all(bytes);
  file_->Lit(place, all);
  std::size_t at = 0, packed = 0;
  while (bytes - at >= entryBytes && Mot32(all.data() + at) == entryMark) {
    const char* const head = all.data() + at;
    constexpr unsigned encrypted = 1;
    const std::size_t name = Mot16(head + 28);
    const std::size_t rest = std::size_t{Mot16(head + 30)} + Mot16(head + 32);
    if (bytes - at - entryBytes < name + rest || (Mot16(head + 8) & encrypted) != 0) Refuse();
    entries_.try_emplace(std::string(head + entryBytes, name), Entry{.method = Mot16(head + 10),
                                                                     .check = Mot32(head + 16),
                                                                     .packed = Mot32(head + 20),
                                                                     .size = Mot32(head + 24),
                                                                     .place = Mot32(head + 42)});
    at += entryBytes + name + rest;
    // Parts that lie within each other would take for ever.
    packed += Mot32(head + 20);
    if (packed > file_->Taille()) Refuse();
  }
}

std::unique_ptr<ZipPart> ZipFile::Partie(const std::string& name) const {
  const auto found = entries_.find(name);
  if (found == entries_.end()) return nullptr;
  const Entry& entry = found->second;
  if (entry.method != stored && entry.method != deflated) Refuse();
  std::array<char, partHead> head{};
  file_->Lit(entry.place, head);
  if (Mot32(head.data()) != partMark) Refuse();
  const std::size_t place =
      std::size_t{entry.place} + partHead + Mot16(head.data() + 26) + Mot16(head.data() + 28);
  return std::make_unique<PartReader>(file_, place, entry.packed, entry.size, entry.check,
                                      entry.method);
}

}  // namespace talpena::excel
