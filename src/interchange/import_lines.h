// The lines of a file that is imported, in UTF-8.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/deg_lines.h"
#include "platform/import_file.h"

namespace talpena {

/// CR LF, LF and CR end a line; the last one needs no end. A line above 16 MB raises Overflow (6).
/// Only a block of the file is in memory.
class ImportLines {
 public:
  explicit ImportLines(ImportFile file);

  /// The next line, valid until the next call; false at the end of the file.
  bool Lit(std::string_view& line);
  /// The next line above the waypoints of a file; InputPastEnd (62) at the end of the file.
  std::string_view LitObligatoire();

  std::int64_t Numero() const { return lines_.Numero(); }  ///< of the line read last, from 1
  double Part() const;                                     ///< of the file that was read, 0 to 1

 private:
  DegLines lines_;
  Encodage encodage_;
  std::string kept_;
};

}  // namespace talpena
