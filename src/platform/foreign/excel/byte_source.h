// The bytes of a file that is read and not trusted: a file, a part of one, or memory.
#pragma once
#include <chrono>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/foreign/bytes_at.h"
#include "platform/table_engine.h"

namespace talpena::excel {

class ByteSource {
 public:
  /// @param path  of the file, for what messages say
  explicit ByteSource(std::string path);
  virtual ~ByteSource() = default;

  virtual std::size_t Taille() const = 0;
  /// Fills the whole span from a place on; beyond the end the file is damaged (see Refuse).
  void Lit(std::size_t place, std::span<char> into);

  const std::string& Chemin() const { return path_; }
  /// Raises UnrecognizedFormat (3343): the file is damaged, or none of the format.
  [[noreturn]] void Refuse() const;

 private:
  /// As many bytes are there.
  virtual void LitDedans(std::size_t place, std::span<char> into) = 0;

  std::string path_;
};

/// A file as long as it was when it was opened; one that loses bytes meanwhile is damaged.
class FileBytes final : public ByteSource {
 public:
  /// Raises DatabaseNotFound (3024), PermissionDenied (70), UnrecognizedFormat (3343) for what is
  /// no ordinary file or longer than `most`.
  ///
  /// @param attente  called now and then while the file is read, which ends in Cancelled when it
  ///                 says no
  FileBytes(const std::string& path, std::size_t most,
            std::shared_ptr<const WorkBeat> attente = {});
  std::size_t Taille() const override { return static_cast<std::size_t>(bytes_->Taille()); }

 private:
  void LitDedans(std::size_t place, std::span<char> into) override;

  void Bat();

  std::unique_ptr<BytesAt> bytes_;
  std::shared_ptr<const WorkBeat> attente_;
  std::chrono::steady_clock::time_point bat_{};  ///< when it was called last
};

/// Bytes in memory, which have to last.
class MemoryBytes final : public ByteSource {
 public:
  MemoryBytes(std::string path, std::string_view bytes)
      : ByteSource(std::move(path)), bytes_(bytes) {}
  std::size_t Taille() const override { return bytes_.size(); }

 private:
  void LitDedans(std::size_t place, std::span<char> into) override;

  std::string_view bytes_;
};

}  // namespace talpena::excel
