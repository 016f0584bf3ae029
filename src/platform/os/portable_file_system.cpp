// The user's files by the standard library alone, for systems without POSIX calls.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "platform/os/file_system.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;

fs::path EnChemin(const std::string& path) { return {std::u8string(path.begin(), path.end())}; }

struct StreamRefusal {
  int number;
  const char* text;
};

StreamRefusal Traduit(const std::error_code& error, const fs::path& path) {
  std::error_code ignored;
  const fs::path folder = path.parent_path();
  if (error == std::errc::no_such_file_or_directory) {
    if (folder.empty() || fs::is_directory(folder, ignored)) {
      return {ErrorNumber::FileNotFound, "File not found: "};
    }
    return {ErrorNumber::PathNotFound, "Path not found: "};
  }
  if (error == std::errc::not_a_directory) return {ErrorNumber::PathNotFound, "Path not found: "};
  if (error == std::errc::file_exists) return {ErrorNumber::FileExists, "File already exists: "};
  if (error == std::errc::no_space_on_device) return {ErrorNumber::DiskFull, "Disk full: "};
  if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted) {
    return {ErrorNumber::PermissionDenied, "Permission denied: "};
  }
  return {ErrorNumber::PathFileAccess, "Path/File access error: "};
}

[[noreturn]] void Lance(const std::error_code& error, const std::string& path) {
  const StreamRefusal refusal = Traduit(error, EnChemin(path));
  throw TalpenaError(refusal.number, refusal.text + path, {.about = {path}});
}

/// Streams do not say why they fail; the likeliest reason of a file that will not open.
[[noreturn]] void LanceOuverture(const std::string& path) {
  std::error_code ignored;
  const fs::path file = EnChemin(path);
  if (fs::is_directory(file, ignored)) {
    throw TalpenaError(ErrorNumber::PathFileAccess,
                       "Path/File access error: " + path + ", it is a folder",
                       {.text = MsgId::CheminDossier, .about = {path}});
  }
  const bool there = fs::exists(file, ignored);
  Lance(std::make_error_code(there ? std::errc::permission_denied
                                   : std::errc::no_such_file_or_directory),
        path);
}

class PortableInput final : public InputFile {
 public:
  explicit PortableInput(const std::string& path) : path_(path) {
    std::error_code error;
    if (!fs::is_regular_file(EnChemin(path), error)) LanceOuverture(path);
    stream_.open(EnChemin(path), std::ios::binary);
    if (!stream_) LanceOuverture(path);
    size_ = static_cast<std::int64_t>(fs::file_size(EnChemin(path), error));
  }
  std::size_t Lit(std::span<char> buffer) override {
    stream_.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    if (stream_.bad())
      throw TalpenaError(ErrorNumber::DeviceFault, "Device I/O error: " + path_,
                         {.about = {path_}});
    return static_cast<std::size_t>(stream_.gcount());
  }
  std::int64_t Taille() const override { return size_; }

 private:
  std::string path_;
  std::ifstream stream_;
  std::int64_t size_ = 0;
};

std::string NomAuHasard() {
  std::random_device random;
  return ".talpena-" + std::to_string(random()) + std::to_string(random()) + ".tmp";
}

/// What cannot be written is written again at the next call, from where the last whole block ended.
class PortableOutput final : public OutputFile {
 public:
  explicit PortableOutput(const std::string& path) : path_(path), target_(EnChemin(path)) {
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(target_, error))) {
      target_ = fs::weakly_canonical(target_, error);
      if (error) Lance(error, path);
    }
    const fs::file_status former = fs::status(target_, error);
    if (fs::exists(former)) {
      if (!fs::is_regular_file(former)) LanceOuverture(path);
      constexpr fs::perms writable =
          fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
      if ((former.permissions() & writable) == fs::perms::none) LanceOuverture(path);
      permissions_ = former.permissions();
    }
    temporary_ = target_.parent_path() / NomAuHasard();
    stream_.open(temporary_, std::ios::binary | std::ios::trunc);
    if (!stream_) LanceOuverture(path);
  }
  PortableOutput(const PortableOutput&) = delete;
  PortableOutput& operator=(const PortableOutput&) = delete;
  ~PortableOutput() override {
    stream_.close();
    std::error_code ignored;
    if (!inPlace_) fs::remove(temporary_, ignored);
  }

  void Ecrit(std::string_view bytes) override {
    buffer_.append(bytes);
    if (buffer_.size() >= blockBytes) Vide();
  }
  void Remplace() override {
    Vide();
    Place();
  }
  void RemplaceTronque() override {
    if (!VideCeQuiPasse()) buffer_.clear();
    Place();
  }

 private:
  static constexpr std::size_t blockBytes = std::size_t{256} * 1024;

  bool VideCeQuiPasse() {
    stream_.clear();
    stream_.seekp(static_cast<std::streamoff>(written_));
    stream_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    stream_.flush();
    if (!stream_) return false;
    written_ += buffer_.size();
    buffer_.clear();
    return true;
  }

  void Vide() {
    if (!VideCeQuiPasse())
      throw TalpenaError(ErrorNumber::DiskFull, "Disk full: " + path_, {.about = {path_}});
  }

  void Place() {
    if (inPlace_) return;
    std::error_code error;
    stream_.close();
    fs::resize_file(temporary_, written_, error);
    if (!error && permissions_) fs::permissions(temporary_, *permissions_, error);
    if (!error) fs::rename(temporary_, target_, error);
    if (!error) {
      inPlace_ = true;
      return;
    }
    stream_.open(temporary_, std::ios::binary | std::ios::in | std::ios::out);
    Lance(error, path_);
  }

  std::string path_;
  fs::path target_;
  fs::path temporary_;
  std::ofstream stream_;
  std::string buffer_;
  std::uintmax_t written_ = 0;
  std::optional<fs::perms> permissions_;
  bool inPlace_ = false;
};

class PortableFileSystem final : public FileSystem {
 public:
  bool Existe(const std::string& path) override {
    std::error_code ignored;
    const fs::file_status status = fs::status(EnChemin(path), ignored);
    return fs::exists(status) && !fs::is_directory(status);
  }
  std::unique_ptr<InputFile> Ouvre(const std::string& path) override {
    return std::make_unique<PortableInput>(path);
  }
  std::unique_ptr<OutputFile> Cree(const std::string& path) override {
    if (path.empty()) Lance(std::make_error_code(std::errc::no_such_file_or_directory), path);
    return std::make_unique<PortableOutput>(path);
  }
  void Supprime(const std::string& path) override {
    std::error_code error;
    if (fs::is_directory(EnChemin(path), error)) LanceOuverture(path);
    if (!fs::remove(EnChemin(path), error)) {
      Lance(error ? error : std::make_error_code(std::errc::no_such_file_or_directory), path);
    }
  }
  void Renomme(const std::string& from, const std::string& to) override {
    std::error_code error;
    if (fs::exists(fs::symlink_status(EnChemin(to), error))) {
      Lance(std::make_error_code(std::errc::file_exists), to);
    }
    const fs::path given = EnChemin(from);
    const fs::path source =
        fs::is_symlink(given, error) ? fs::weakly_canonical(given, error) : given;
    if (!fs::is_regular_file(source, error)) LanceOuverture(from);
    fs::rename(source, EnChemin(to), error);
    if (error == std::errc::cross_device_link) {
      fs::copy_file(source, EnChemin(to), error);
      if (!error) fs::remove(source, error);
    }
    if (error) Lance(error, from);
  }
  std::optional<FileStamp> Empreinte(const std::string& path) override {
    std::error_code error;
    const auto size = fs::file_size(EnChemin(path), error);
    if (error) return std::nullopt;
    const auto modified = fs::last_write_time(EnChemin(path), error).time_since_epoch();
    if (error) return std::nullopt;
    return FileStamp{.size = static_cast<std::int64_t>(size),
                     .modifiedNs = std::chrono::nanoseconds(modified).count(),
                     .identity = 0};
  }
};

}  // namespace

std::unique_ptr<FileSystem> CreeSystemeDeFichiersPortable() {
  return std::make_unique<PortableFileSystem>();
}

}  // namespace talpena
