#include "platform/import_file.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <optional>
#include <span>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr char fileEnd = 0x1A;  ///< old editors put it behind the last line
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
/// What may stand behind the mark of the end, and so much of it is looked at.
constexpr std::string_view nothing(" \t\r\n\x1A\0", 6);
constexpr std::size_t lookedAt = 1 << 20;

/// Bytes before the mark of the end; all where there is none.
std::size_t AvantFin(std::span<const char> bytes) {
  if (bytes.empty()) return 0;
  const void* const found = std::memchr(bytes.data(), fileEnd, bytes.size());
  if (found == nullptr) return bytes.size();
  return static_cast<std::size_t>(static_cast<const char*>(found) - bytes.data());
}

/// How many bytes a character takes that begins with this one; 1 for what begins none.
std::size_t LongueurAnnoncee(char first) {
  const auto lead = static_cast<unsigned char>(first);
  return lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
}

/// The text up to a character at its end that more bytes may complete.
std::size_t SansCaractereCoupe(std::string_view text) {
  for (std::size_t back = 1; back <= 3 && back <= text.size(); ++back) {
    const char c = text[text.size() - back];
    if ((static_cast<unsigned char>(c) & 0xC0) == 0x80) continue;
    return LongueurAnnoncee(c) > back ? text.size() - back : text.size();
  }
  return text.size();
}

/// A file up to its byte 1A.
class UpToMark : public InputFile {
 public:
  UpToMark(std::unique_ptr<InputFile> file, std::shared_ptr<ImportEnd> end)
      : file_(std::move(file)), end_(std::move(end)) {}

  std::size_t Lit(std::span<char> buffer) override {
    if (ended_) return 0;
    const std::size_t count = file_->Lit(buffer);
    const std::size_t kept = AvantFin(buffer.first(count));
    if (kept > 0) last_ = buffer[kept - 1];
    if (kept < count) Finit({buffer.data() + kept, count - kept});
    return kept;
  }
  std::int64_t Taille() const override { return file_->Taille(); }

 private:
  void Finit(std::string_view behind) {
    ended_ = true;
    end_->enTete = last_ == '\n' || last_ == '\r';
    std::array<char, 4096> block;
    for (std::size_t seen = 0; seen < lookedAt; seen += behind.size()) {
      end_->coupe = behind.find_first_not_of(nothing) != std::string_view::npos;
      if (end_->coupe) return;
      behind = {block.data(), file_->Lit(block)};
      if (behind.empty()) return;
    }
  }

  std::unique_ptr<InputFile> file_;
  std::shared_ptr<ImportEnd> end_;
  char last_ = '\n';
  bool ended_ = false;
};

/// The same without the mark of UTF-8.
class WithoutMark final : public InputFile {
 public:
  explicit WithoutMark(std::unique_ptr<InputFile> file) : file_(std::move(file)) {}

  std::size_t Lit(std::span<char> buffer) override {
    if (!begun_) LitDebut();
    if (start_.empty()) return file_->Lit(buffer);
    const std::size_t count = std::min(start_.size(), buffer.size());
    std::copy_n(start_.data(), count, buffer.data());
    start_.erase(0, count);
    return count;
  }
  std::int64_t Taille() const override { return file_->Taille(); }

 private:
  void LitDebut() {
    begun_ = true;
    std::array<char, utf8Mark.size()> bytes{};
    while (start_.size() < bytes.size()) {
      const std::size_t count = file_->Lit(std::span(bytes).first(bytes.size() - start_.size()));
      if (count == 0) break;
      start_.append(bytes.data(), count);
    }
    if (start_ == utf8Mark) start_.clear();
  }

  std::unique_ptr<InputFile> file_;
  std::string start_;
  bool begun_ = false;
};

/// A file that may not change while it is read. One that was put in its place meanwhile, or taken
/// away, leaves what is read as it was.
class UnchangedFile final : public InputFile {
 public:
  UnchangedFile(std::unique_ptr<InputFile> file, FileSystem& files, std::string path,
                std::optional<FileStamp> before)
      : file_(std::move(file)), files_(files), path_(std::move(path)), before_(before) {}

  std::size_t Lit(std::span<char> buffer) override {
    const std::size_t count = file_->Lit(buffer);
    const auto now = files_.Empreinte(path_);
    if (now && before_ && now->identity == before_->identity && now != before_) {
      throw TalpenaError(ErrorNumber::PathFileAccess, "The file was changed while it was read",
                         {.text = MsgId::FichierChangeEnLecture});
    }
    return count;
  }
  std::int64_t Taille() const override { return file_->Taille(); }

 private:
  std::unique_ptr<InputFile> file_;
  FileSystem& files_;
  std::string path_;
  std::optional<FileStamp> before_;
};

}  // namespace

bool EncodageCherche::Avance(std::int64_t bytes) {
  while (!known_ && bytes > 0) {
    const std::span<char> room = std::span(block_).subspan(kept_);
    const std::size_t count = file_->Lit(room);
    const std::size_t before = AvantFin(room.first(count));
    const bool ended = count == 0 || before < count;
    bytes -= static_cast<std::int64_t>(count);
    Juge({block_.data(), kept_ + before}, ended);
  }
  return !known_;
}

/// What the block, with what was kept before it, tells.
void EncodageCherche::Juge(std::string_view block, bool ended) {
  if (!begun_ && block.size() < utf8Mark.size() && !ended) {
    kept_ = block.size();
    return;
  }
  if (!std::exchange(begun_, true) && block.starts_with(utf8Mark)) return Decide(true);
  const std::size_t whole = ended ? block.size() : SansCaractereCoupe(block);
  const std::string_view text = block.substr(0, whole);
  if (!EstUtf8(text)) return Decide(false);
  accented_ = accented_ || !EstAscii(text);
  if (ended) return Decide(accented_);
  kept_ = block.size() - whole;
  std::memmove(block_.data(), block.data() + whole, kept_);
}

void EncodageCherche::Decide(bool utf8) {
  known_ = true;
  utf8_ = utf8;
  file_.reset();
}

Encodage ChercheEncodage(std::unique_ptr<InputFile> file) {
  EncodageCherche search(std::move(file));
  while (search.Avance(INT64_MAX)) {
  }
  return search.Resultat();
}

ImportFile PrendImport(std::unique_ptr<InputFile> file, Encodage encodage) {
  const auto end = std::make_shared<ImportEnd>();
  std::unique_ptr<InputFile> bytes = std::make_unique<UpToMark>(std::move(file), end);
  if (encodage == Encodage::Utf8) bytes = std::make_unique<WithoutMark>(std::move(bytes));
  return {std::move(bytes), encodage, end};
}

ImportFile OuvreImport(FileSystem& files, const std::string& path, Encodage encodage) {
  const auto before = files.Empreinte(path);
  return PrendImport(std::make_unique<UnchangedFile>(files.Ouvre(path), files, path, before),
                     encodage);
}

ImportFile OuvreImport(FileSystem& files, const std::string& path) {
  const auto before = files.Empreinte(path);
  const Encodage encodage = ChercheEncodage(files.Ouvre(path));
  return PrendImport(std::make_unique<UnchangedFile>(files.Ouvre(path), files, path, before),
                     encodage);
}

std::string_view TexteImporte(std::string_view bytes, Encodage encodage, std::string& kept) {
  if (EstAscii(bytes) || (encodage == Encodage::Utf8 && EstUtf8(bytes))) return bytes;
  return kept = Cp1252VersUtf8(bytes);
}

}  // namespace talpena
