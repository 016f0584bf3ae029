// Files of the user: read in blocks, written so that a crash or a full disk loses nothing.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

class InputFile {
 public:
  virtual ~InputFile() = default;
  virtual std::size_t Lit(std::span<char> buffer) = 0;  ///< bytes read; 0 at the end
  virtual std::int64_t Taille() const = 0;              ///< bytes, when it was opened
};

/// A file being written beside its place; it takes the place of the old one in one step.
/// Destroyed without Remplace it leaves the old file as it was.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Adds bytes. A failure (disk full) loses none of them: what could not be written waits and
  /// goes out before the next bytes, so that a caller may go on once there is room.
  virtual void Ecrit(std::string_view bytes) = 0;
  /// Puts what was written in the place of the old file: synced before, folder synced after,
  /// mode, owner and link target kept. May be tried again after a failure.
  virtual void Remplace() = 0;
  /// The same; the old file is kept under the name `backup`, in place of what stood there. When the
  /// program is killed on the way the old file or the new one stands whole under its name; where
  /// files cannot have two names there are two renames between the one and the other.
  virtual void RemplaceEnGardant(const std::string& backup) = 0;
  /// Gives up the bytes that still wait and cannot be written, and all behind the last `end`.
  virtual void Coupe(std::string_view end) = 0;
  /// Remplace for a file cut short.
  void RemplaceTronque() {
    Coupe({});
    Remplace();
  }
};

/// A folder of a program's own beside a place, for files that are made under their names and take
/// their places together. It goes with whatever was not put in place.
class SideFolder {
 public:
  virtual ~SideFolder() = default;
  virtual const std::string& Chemin() const = 0;  ///< with a separator at its end
  /// Puts all files of it in their places; the files of `former`, names there, go. Mode and owner
  /// of a former file of the same name are kept. All of it or, with a failure, nothing: a file in
  /// the way that `former` does not name is FileExists (58). One file takes the place of one of its
  /// name in one step. A program killed in the middle of several leaves it to AcheveEchanges.
  virtual void MetEnPlace(const std::vector<std::string>& former) = 0;
};

/// Tells two states of a file apart; equal when nothing touched the file between.
struct FileStamp {
  std::int64_t size = -1;
  std::int64_t modifiedNs = 0;
  std::uint64_t identity = 0;
  bool operator==(const FileStamp&) const = default;
};

/// A text that did not come to bear its name.
struct LeftOver {
  std::string path;
  bool entier = false;  ///< nothing of it is missing
};

/// A file that a killed program kept from its place, and that stands there now.
struct PlacedFile {
  std::string path;
  bool nouveau = false;  ///< one that was to take the place, not the former one
  bool operator==(const PlacedFile&) const = default;
};

/// What a new file takes over, and what it may replace.
struct NewFile {
  std::string modele = {};   ///< mode and owner of a file that is not there yet, if this one is
  bool memeProtege = false;  ///< also in place of a file that this user may not write into
};

/// Paths are UTF-8, taken as they stand. Failures are TalpenaErrors in the numbers of the
/// language's run time: 53 not found, 58 exists, 61 disk full, 70 permission denied, 75 path or
/// file access, 76 path not found, 57 device fault; the description names the path.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  virtual bool Existe(const std::string& path) = 0;  ///< a file (not a folder) is there
  virtual std::unique_ptr<InputFile> Ouvre(const std::string& path) = 0;
  virtual std::unique_ptr<OutputFile> Cree(const std::string& path) = 0;
  virtual std::unique_ptr<OutputFile> CreeComme(const std::string& path,
                                                [[maybe_unused]] const NewFile& wanted) {
    return Cree(path);
  }
  /// A folder beside `path`. What was left of others goes as by SupprimeRestes.
  virtual std::unique_ptr<SideFolder> CreeDossierACote(const std::string& path);
  /// The path behind all links at the end of a path; the file itself need not be there.
  virtual std::string SansLiens(const std::string& path) { return path; }
  virtual void Supprime(const std::string& path) = 0;
  /// True when nothing is there, or an ordinary file of this user's own that no program holds
  /// locked: what may be deleted without asking whose it is. A link, a pipe and a folder never are.
  virtual bool EstLibre(const std::string& path) { return !Empreinte(path) || Existe(path); }
  /// True when another program holds a lock on the file that a path leads to.
  virtual bool EstVerrouille([[maybe_unused]] const std::string& path) { return false; }
  /// Refuses (58) when the target exists. On a symbolic link the contents move; the link stays
  /// and names a file that Cree will make anew.
  virtual void Renomme(const std::string& from, const std::string& to) = 0;
  virtual std::optional<FileStamp> Empreinte(const std::string& path) = 0;

  /// A file is there, and this user may not write into it.
  virtual bool EstProtege([[maybe_unused]] const std::string& path) { return false; }
  /// One file that two paths lead to; two names of the same contents (hard links) are two files.
  virtual bool MemeFichier(const std::string& a, const std::string& b) {
    const auto stamp = Empreinte(a);
    return a == b || (stamp && stamp == Empreinte(b));
  }
  /// Raises what would keep RemplaceEnGardant from putting the file `path` under `backup`: a folder
  /// there (58), a folder that this user may not write into (70).
  virtual void VerifieGarde([[maybe_unused]] const std::string& path,
                            [[maybe_unused]] const std::string& backup) {}
  /// Makes `copy`, with the contents, mode and owner of `path`. Refuses (58) when it exists.
  virtual void Double(const std::string& path, const std::string& copy) = 0;

  /// What a killed program left of a file that it was writing, the whole texts first.
  virtual std::vector<LeftOver> Restes([[maybe_unused]] const std::string& path) { return {}; }
  /// Removes such left-overs from the folder of `path` and that of the file behind a link, but
  /// those that a program is writing now and those whose file is not there: they may be all that is
  /// left of it. Never fails.
  virtual void SupprimeRestes([[maybe_unused]] const std::string& path) noexcept {}
  /// Ends what programs were killed in beside `path` while SideFolder::MetEnPlace ran: once all
  /// former files are out of the way the new ones take their places, before that the former ones
  /// go back. Where another file has come into one of these places, all stays as it is. Gives the
  /// files that stand again. Never fails.
  virtual std::vector<PlacedFile> AcheveEchanges(
      [[maybe_unused]] const std::string& path) noexcept {
    return {};
  }
};

}  // namespace talpena
