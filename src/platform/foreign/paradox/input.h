// A file of a Paradox table that is read.
#pragma once
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "platform/foreign/bytes_at.h"
#include "platform/foreign/errors.h"

namespace talpena::paradox {

class Input {
 public:
  /// @param path  what messages call the bytes
  Input(std::string path, std::unique_ptr<BytesAt> bytes)
      : path_(std::move(path)), bytes_(std::move(bytes)) {}

  std::uint64_t Taille() const { return bytes_->Taille(); }
  /// Fills the whole buffer from a place on; what is not there is a damaged file.
  void Exige(std::uint64_t place, std::span<char> into) const {
    if (bytes_->Lit(place, into) != into.size()) Echec();
  }
  /// Raises UnrecognizedFormat (3343).
  [[noreturn]] void Echec() const { throw foreign::FormatInconnu(path_); }

 private:
  std::string path_;
  std::unique_ptr<BytesAt> bytes_;
};

}  // namespace talpena::paradox
