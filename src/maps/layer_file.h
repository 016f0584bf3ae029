// Line layers (.tlp): a header, then line records with their points, little-endian.
#pragma once
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/files.h"

namespace talpena {

/// The head of a line record. Limits are degrees.
struct LayerRecord {
  std::string name;  ///< 30 bytes, code page 1252, blank padded
  char kind = ' ';   ///< "R" river, "L" lake, others are drawn black
  int style = 0;     ///< 1 and 2 solid, others dashed
  float count = 0;   ///< of points, as the file has it
  float north = 0, south = 0, east = 0, west = 0;
};

struct LayerPoint {
  std::int16_t pen = 0;  ///< -1 ends the stroke
  float latitude = 0;    ///< degrees
  float longitude = 0;
};

/// Reads a layer from its start to its end in blocks: memory does not depend on the file. A record
/// or point that the end of the file cuts short is left out.
class LayerFile {
 public:
  explicit LayerFile(std::unique_ptr<InputFile> file);

  /// The next record, behind the points of the last one; false at the end of the file.
  bool Suivant(LayerRecord& record);

  /// Further points of the record, empty behind the last; valid until the next call.
  std::span<const LayerPoint> Points();

 private:
  std::size_t Prepare(std::size_t wanted);
  bool Saute(std::size_t count);

  std::unique_ptr<InputFile> file_;
  std::vector<char> buffer_;
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
  bool header_ = false;   ///< it was skipped
  double remaining_ = 0;  ///< points of the record that were not handed out
  std::vector<LayerPoint> points_;
};

}  // namespace talpena
