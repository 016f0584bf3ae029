#include "maps/layer_file.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <utility>

namespace talpena {
namespace {

constexpr std::size_t headerSize = 116;
constexpr std::size_t headSize = 61;
constexpr std::size_t pointSize = 11;
constexpr std::size_t pointData = 10;  ///< the byte behind them has no meaning
constexpr std::size_t blockSize = 256 << 10;
constexpr std::size_t batchSize = 4096;

std::uint32_t Entier32(const char* bytes) {
  const auto part = [&](int i) { return std::uint32_t{static_cast<unsigned char>(bytes[i])}; };
  return part(0) | part(1) << 8 | part(2) << 16 | part(3) << 24;
}

float Simple(const char* bytes) { return std::bit_cast<float>(Entier32(bytes)); }

std::int16_t Entier16(const char* bytes) {
  const auto part = [&](int i) { return unsigned{static_cast<unsigned char>(bytes[i])}; };
  return static_cast<std::int16_t>(part(0) | part(1) << 8);
}

/// How often a loop up to this number runs: none for a negative count and for what is no number.
double Tours(float count) { return count >= 1 ? std::floor(static_cast<double>(count)) : 0; }

}  // namespace

LayerFile::LayerFile(std::unique_ptr<InputFile> file)
    : file_(std::move(file)),
      buffer_(static_cast<std::size_t>(
          std::clamp<std::int64_t>(file_->Taille() + 1, headerSize, blockSize))) {}

/// Bytes that are ready from next_ on: `wanted`, or all that the file still has.
std::size_t LayerFile::Prepare(std::size_t wanted) {
  while (filled_ - next_ < wanted) {
    if (next_ > 0) std::memmove(buffer_.data(), buffer_.data() + next_, filled_ - next_);
    filled_ -= next_;
    next_ = 0;
    const std::size_t count = file_->Lit({buffer_.data() + filled_, buffer_.size() - filled_});
    if (count == 0) break;
    filled_ += count;
  }
  return filled_ - next_;
}

bool LayerFile::Saute(std::size_t count) {
  const bool there = Prepare(count) >= count;
  next_ += std::min(count, filled_ - next_);
  return there;
}

bool LayerFile::Suivant(LayerRecord& record) {
  if (!header_ && !Saute(headerSize)) return false;
  header_ = true;
  while (remaining_ > 0 && !Points().empty()) {
  }
  if (Prepare(headSize) < headSize) return false;
  const char* head = buffer_.data() + next_;
  record.name.assign(head, 30);
  record.kind = head[30];
  record.style = head[31] >= '0' && head[31] <= '9' ? head[31] - '0' : 0;
  record.count = Simple(head + 33);
  record.north = Simple(head + 37);
  record.south = Simple(head + 41);
  record.east = Simple(head + 45);
  record.west = Simple(head + 49);
  remaining_ = Tours(record.count);
  next_ += headSize;
  return true;
}

std::span<const LayerPoint> LayerFile::Points() {
  points_.clear();
  const double most = std::min(remaining_, static_cast<double>(batchSize));
  while (static_cast<double>(points_.size()) < most && Prepare(pointSize) >= pointData) {
    const char* point = buffer_.data() + next_;
    points_.push_back({Entier16(point), Simple(point + 2), Simple(point + 6)});
    next_ += std::min(pointSize, filled_ - next_);
  }
  remaining_ -= static_cast<double>(points_.size());
  return points_;
}

}  // namespace talpena
