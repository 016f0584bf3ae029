// The user's files by the standard library alone, for systems without POSIX calls.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "platform/os/file_system.h"
#include "platform/os/left_overs.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;

fs::path EnChemin(const std::string& path) { return {std::u8string(path.begin(), path.end())}; }

std::string EnTexte(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

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
    if (stream_.bad()) {
      throw TalpenaError(ErrorNumber::DeviceFault, "Device I/O error: " + path_,
                         {.about = {path_}});
    }
    return static_cast<std::size_t>(stream_.gcount());
  }
  std::int64_t Taille() const override { return size_; }

 private:
  std::string path_;
  std::ifstream stream_;
  std::int64_t size_ = 0;
};

bool EstProtegeEnEcriture(const fs::file_status& status) {
  constexpr fs::perms writable =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return fs::is_regular_file(status) && (status.permissions() & writable) == fs::perms::none;
}

/// What cannot be written is written again at the next call, from where the last whole block ended.
class PortableOutput final : public OutputFile {
 public:
  PortableOutput(const std::string& path, bool evenProtected)
      : path_(path), target_(EnChemin(path)) {
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(target_, error))) {
      target_ = fs::weakly_canonical(target_, error);
      if (error) Lance(error, path);
    }
    const fs::file_status former = fs::status(target_, error);
    if (fs::exists(former)) {
      if (!fs::is_regular_file(former)) LanceOuverture(path);
      if (!evenProtected && EstProtegeEnEcriture(former)) LanceOuverture(path);
      permissions_ = former.permissions();
    }
    temporary_ = target_.parent_path() / EnChemin(NomTemporaire(EnTexte(target_.filename())));
    stream_.open(temporary_, openMode | std::ios::trunc);
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
    Place({});
  }
  void RemplaceEnGardant(const std::string& backup) override {
    Vide();
    Place(EnChemin(backup));
  }
  void Coupe(std::string_view end) override {
    if (!VideCeQuiPasse()) buffer_.clear();
    if (!end.empty()) written_ = LongueurJusqua(end);
  }

 private:
  static constexpr std::size_t blockBytes = std::size_t{256} * 1024;
  static constexpr std::ios::openmode openMode = std::ios::binary | std::ios::in | std::ios::out;

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

  /// The bytes on the disk up to and with the last `end`; 0 when there is none.
  std::uintmax_t LongueurJusqua(std::string_view end) {
    std::uintmax_t kept = 0;
    std::string tail;
    for (std::uintmax_t read = 0; read < written_;) {
      std::string block(
          static_cast<std::size_t>(std::min<std::uintmax_t>(blockBytes, written_ - read)), '\0');
      stream_.seekg(static_cast<std::streamoff>(read));
      if (!stream_.read(block.data(), static_cast<std::streamsize>(block.size()))) break;
      const std::string text = tail + block;
      const std::size_t found = text.rfind(end);
      if (found != std::string::npos) kept = read - tail.size() + found + end.size();
      tail = block.substr(block.size() - std::min(block.size(), end.size() - 1));
      read += block.size();
    }
    stream_.clear();
    return kept;
  }

  void Place(const fs::path& backup) {
    if (inPlace_) return;
    std::error_code error;
    stream_.close();
    fs::resize_file(temporary_, written_, error);
    if (!error && permissions_) fs::permissions(temporary_, *permissions_, error);
    const bool kept = !error && !backup.empty() && GardeAncien(backup, error);
    if (!error) fs::rename(temporary_, target_, error);
    if (!error) {
      inPlace_ = true;
      return;
    }
    std::error_code ignored;
    if (kept) fs::rename(backup, target_, ignored);
    stream_.open(temporary_, openMode);
    Lance(error, path_);
  }

  /// The old file takes the name of the backup; false when there is none, or when it cannot.
  bool GardeAncien(const fs::path& backup, std::error_code& error) const {
    if (!fs::exists(target_)) return false;
    fs::remove(backup, error);
    if (!error) fs::rename(target_, backup, error);
    return !error;
  }

  std::string path_;
  fs::path target_;
  fs::path temporary_;
  std::fstream stream_;
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
  std::unique_ptr<OutputFile> Cree(const std::string& path) override { return CreeComme(path, {}); }
  std::unique_ptr<OutputFile> CreeComme(const std::string& path, const NewFile& wanted) override {
    if (path.empty()) Lance(std::make_error_code(std::errc::no_such_file_or_directory), path);
    return std::make_unique<PortableOutput>(path, wanted.memeProtege);
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
  bool EstProtege(const std::string& path) override {
    std::error_code ignored;
    return EstProtegeEnEcriture(fs::status(EnChemin(path), ignored));
  }
  bool MemeFichier(const std::string& a, const std::string& b) override {
    std::error_code ignored;
    return a == b || fs::equivalent(EnChemin(a), EnChemin(b), ignored);
  }
  void VerifieGarde(const std::string&, const std::string& backup) override {
    std::error_code error;
    if (fs::is_directory(EnChemin(backup), error)) {
      Lance(std::make_error_code(std::errc::file_exists), backup);
    }
  }
  void Double(const std::string& path, const std::string& copy) override {
    std::error_code error;
    fs::copy_file(EnChemin(path), EnChemin(copy), error);
    if (error) Lance(error, copy);
  }
  std::vector<LeftOver> Restes(const std::string& path) override {
    std::vector<LeftOver> found;
    const fs::path wanted = EnChemin(path);
    ParcourtDossier(wanted.parent_path(), [&](const fs::path& entry) {
      if (EstTemporaireDe(EnTexte(entry.filename()), EnTexte(wanted.filename()))) {
        found.push_back({EnTexte(entry), false});
      }
    });
    return found;
  }
  // An open file cannot be removed on the systems that this is for.
  void SupprimeRestes(const std::string& path) noexcept override {
    try {
      std::vector<fs::path> names;
      ParcourtDossier(EnChemin(path).parent_path(),
                      [&](const fs::path& entry) { names.push_back(entry); });
      for (const fs::path& reste : names) {
        const bool stands = std::any_of(names.begin(), names.end(), [&](const fs::path& name) {
          return EstTemporaireDe(EnTexte(reste.filename()), EnTexte(name.filename()));
        });
        std::error_code ignored;
        if (stands) fs::remove(reste, ignored);
      }
    } catch (...) {  // they may stay until the next time
    }
  }

 private:
  template <typename Visit>
  static void ParcourtDossier(const fs::path& folder, Visit&& visit) {
    std::error_code ended;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, ended), last;
         !ended && entry != last; entry.increment(ended)) {
      visit(entry->path());
    }
  }
};

}  // namespace

std::unique_ptr<FileSystem> CreeSystemeDeFichiersPortable() {
  return std::make_unique<PortableFileSystem>();
}

}  // namespace talpena
