// A new file that grows at its end, in blocks.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "platform/foreign/reserved_file.h"

namespace talpena {

class AppendedFile {
 public:
  /// As ReservedFile.
  AppendedFile(std::string path, std::size_t most) : file_(std::move(path), most) {}

  /// Bytes so far.
  std::size_t Taille() const { return written_ + waiting_.size(); }
  /// Of these, how many wait no more.
  std::size_t Ecrits() const { return written_; }
  /// Has room for so many more bytes: DiskFull (61), InvalidArgument (3001) at the limit.
  void Assure(std::size_t more) { file_.Assure(Taille() + more); }
  /// Adds bytes, which go out with others.
  void Ajoute(std::string_view bytes);
  /// Writes over what stands at a place and is on its way no more.
  void Remplace(std::size_t place, std::string_view bytes);
  /// Writes what waits.
  void Vide();
  /// Gives up all behind the first `size` bytes.
  void Recule(std::size_t size);
  /// Writes what waits and hands all of it to the disk.
  void Acheve();
  /// The file goes with this object.
  void Abandonne() { file_.Abandonne(); }

  const std::string& Chemin() const { return file_.Chemin(); }

 private:
  ReservedFile file_;
  std::string waiting_;
  std::size_t written_ = 0;
};

}  // namespace talpena
