// Files in memory, with the faults of a real disk on demand.
#pragma once
#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "platform/files.h"

namespace talpena::test {

/// A FileSystem over a map from path to bytes. Paths are compared as they stand.
class FakeFiles : public FileSystem {
 public:
  std::set<std::string> dossiers;             ///< paths that are folders
  std::map<std::string, int> refus;           ///< error number that opening or making a path raises
  std::optional<std::size_t> lectureJusqua;   ///< reading fails (57) behind so many bytes
  std::optional<std::size_t> ecritureJusqua;  ///< writing fails (61) behind so many bytes
  std::size_t bloc = std::size_t{1} << 20;    ///< most bytes that one read gives
  int ouverts = 0;                            ///< files open for reading at this moment
  std::vector<std::string> journal;           ///< every change, as "Renomme a b"

  void Pose(const std::string& path, std::string bytes) {
    File& file = files_[path];
    file.bytes = std::move(bytes);
    file.revision = ++revision_;
  }
  std::string Contenu(const std::string& path) const {
    const auto it = files_.find(path);
    return it == files_.end() ? std::string() : it->second.bytes;
  }

  bool Existe(const std::string& path) override { return files_.count(path) != 0; }

  std::unique_ptr<InputFile> Ouvre(const std::string& path) override {
    Refuse(path);
    if (dossiers.count(path) != 0) Echoue(ErrorNumber::PathFileAccess, path);
    if (!Existe(path)) Echoue(ErrorNumber::FileNotFound, path);
    return std::make_unique<Input>(*this, files_[path].bytes);
  }

  std::unique_ptr<OutputFile> Cree(const std::string& path) override {
    Refuse(path);
    if (dossiers.count(path) != 0) Echoue(ErrorNumber::PathFileAccess, path);
    journal.push_back("Cree " + path);
    return std::make_unique<Output>(*this, path);
  }

  void Supprime(const std::string& path) override {
    Refuse(path);
    if (files_.erase(path) == 0) Echoue(ErrorNumber::FileNotFound, path);
    journal.push_back("Supprime " + path);
  }

  void Renomme(const std::string& from, const std::string& to) override {
    Refuse(from);
    Refuse(to);
    if (!Existe(from)) Echoue(ErrorNumber::FileNotFound, from);
    if (Existe(to)) Echoue(ErrorNumber::FileExists, to);
    files_[to] = std::move(files_[from]);
    files_.erase(from);
    journal.push_back("Renomme " + from + " " + to);
  }

  void Double(const std::string& path, const std::string& copy) override {
    Refuse(copy);
    if (Existe(copy)) Echoue(ErrorNumber::FileExists, copy);
    Pose(copy, Contenu(path));
    journal.push_back("Double " + path + " " + copy);
  }

  std::optional<FileStamp> Empreinte(const std::string& path) override {
    const auto it = files_.find(path);
    if (it == files_.end()) return std::nullopt;
    return FileStamp{static_cast<std::int64_t>(it->second.bytes.size()), it->second.revision, 1};
  }

 private:
  struct File {
    std::string bytes;
    std::int64_t revision = 0;
  };

  class Input : public InputFile {
   public:
    Input(FakeFiles& owner, std::string bytes) : owner_(owner), bytes_(std::move(bytes)) {
      ++owner_.ouverts;
    }
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;
    ~Input() override { --owner_.ouverts; }
    std::size_t Lit(std::span<char> buffer) override {
      std::size_t count = std::min({buffer.size(), bytes_.size() - position_, owner_.bloc});
      if (owner_.lectureJusqua) {
        if (position_ >= *owner_.lectureJusqua && count > 0) {
          Echoue(ErrorNumber::DeviceFault, "file");
        }
        count = std::min(count, *owner_.lectureJusqua - std::min(position_, *owner_.lectureJusqua));
      }
      std::copy_n(bytes_.data() + position_, count, buffer.data());
      position_ += count;
      return count;
    }
    std::int64_t Taille() const override { return static_cast<std::int64_t>(bytes_.size()); }

   private:
    FakeFiles& owner_;
    std::string bytes_;
    std::size_t position_ = 0;
  };

  class Output : public OutputFile {
   public:
    Output(FakeFiles& owner, std::string path) : owner_(owner), path_(std::move(path)) {}
    void Ecrit(std::string_view bytes) override {
      if (owner_.ecritureJusqua && bytes_.size() + bytes.size() > *owner_.ecritureJusqua) {
        Echoue(ErrorNumber::DiskFull, path_);
      }
      bytes_ += bytes;
    }
    void Remplace() override {
      owner_.Pose(path_, bytes_);
      owner_.journal.push_back("Remplace " + path_);
    }
    void RemplaceEnGardant(const std::string& backup) override {
      if (owner_.Existe(backup)) owner_.Supprime(backup);
      if (owner_.Existe(path_)) owner_.Renomme(path_, backup);
      Remplace();
    }
    void Coupe(std::string_view end) override {
      const std::size_t found = bytes_.rfind(end);
      bytes_.resize(found == std::string::npos ? 0 : found + end.size());
    }

   private:
    FakeFiles& owner_;
    std::string path_;
    std::string bytes_;
  };

  [[noreturn]] static void Echoue(int number, const std::string& path) {
    const char* what = number == ErrorNumber::FileNotFound       ? "File not found"
                       : number == ErrorNumber::FileExists       ? "File already exists"
                       : number == ErrorNumber::DiskFull         ? "Disk full"
                       : number == ErrorNumber::PermissionDenied ? "Permission denied"
                       : number == ErrorNumber::DeviceFault      ? "Device I/O error"
                                                                 : "Path/File access error";
    throw TalpenaError(number, std::string(what) + ": " + path, {.about = {path}});
  }
  void Refuse(const std::string& path) const {
    if (const auto it = refus.find(path); it != refus.end()) Echoue(it->second, path);
  }

  std::map<std::string, File> files_;
  std::int64_t revision_ = 0;
};

}  // namespace talpena::test
