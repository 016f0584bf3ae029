// Writes a compound file (OLE2) with one stream, sector behind sector.
// Source: Microsoft, [MS-CFB] Compound File Binary File Format.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/foreign/reserved_file.h"

namespace talpena::excel {

/// The stream goes straight to a new file; what has to stand behind it has its room set aside
/// beforehand. So a full disk, or the limit, is met by Ajoute alone (see ReservedFile), which then
/// has added nothing, and Acheve makes a whole file of what was added before.
class CompoundWriter {
 public:
  /// @param stream  name of the stream, in ASCII
  /// @param foot    bytes that Acheve will put behind it
  /// @param most    bytes that the file may have
  CompoundWriter(const std::string& path, std::string stream, std::size_t foot, std::size_t most);

  /// Bytes of the stream so far.
  std::size_t Taille() const { return written_ + pending_.size(); }
  void Ajoute(std::string_view bytes);
  /// Puts other bytes in the place of as many that were added.
  void Remplace(std::size_t place, std::string_view bytes);
  /// Makes the file whole, the foot at the end of its stream. The next bytes take the place of it.
  void Acheve(std::string_view foot);

 private:
  void Vide();

  ReservedFile file_;
  std::string name_;
  std::size_t foot_;
  std::size_t written_ = 0;  ///< bytes of the stream that are in the file
  std::string pending_;      ///< those behind them
};

}  // namespace talpena::excel
