// Bytes of a file that nothing is known of, wherever they stand in it.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

class BytesAt {
 public:
  virtual ~BytesAt() = default;
  /// How many there were when it was opened.
  virtual std::uint64_t Taille() const = 0;
  /// Reads bytes from a place on; how many there are, fewer than asked for at the end alone.
  virtual std::size_t Lit(std::uint64_t place, std::span<char> into) const = 0;
};

/// Opens a file for reading; neither a pipe nor a device can hold the program. Raises
/// DatabaseNotFound (3024), PermissionDenied (70), UnrecognizedFormat (3343) for what is no file;
/// reading it raises DeviceFault (57).
std::unique_ptr<BytesAt> OuvreOctets(const std::string& path);

/// A part of the bytes, kept in memory: values that follow each other are read together, the more
/// the longer they do.
class ByteWindow {
 public:
  explicit ByteWindow(const BytesAt& bytes) : bytes_(bytes) {}

  /// The bytes from a place on, at most so many and fewer at the end; valid until the next call.
  /// What is asked for is allocated: only as much as the file has.
  std::string_view Vue(std::uint64_t place, std::size_t count);

 private:
  const BytesAt& bytes_;
  std::vector<char> kept_;
  std::uint64_t from_ = 0;  ///< place of the first byte that is kept
  std::size_t block_ = 0;   ///< bytes that were read last
};

}  // namespace talpena
