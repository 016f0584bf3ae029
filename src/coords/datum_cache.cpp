#include "coords/datum_cache.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "common/paths.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

// A line for the file that was read, one for each row, one with their number; values are parted by
// tabulators.
constexpr std::string_view version = "Talpena datums 1";
constexpr char separator = '\t';
constexpr std::size_t largest = std::size_t{4} << 20;

/// Values of a line, one behind the other.
class LineWriter {
 public:
  explicit LineWriter(std::string& out, std::string_view kind) : out_(out) { out_ += kind; }
  ~LineWriter() { out_ += '\n'; }
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;

  LineWriter& operator<<(std::string_view text) {
    out_ += separator;
    out_ += text;
    return *this;
  }
  template <typename Number>
  requires std::integral<Number> || std::floating_point<Number> LineWriter& operator<<(
      Number number) {
    std::array<char, 40> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return *this << std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()));
  }

 private:
  std::string& out_;
};

/// The same way back; once a value is none, all that follow are.
class LineReader {
 public:
  explicit LineReader(const std::string& line) : values_(Decoupe(line, separator)) {}

  std::string_view Genre() const { return values_[0]; }
  LineReader& operator>>(std::string& text) {
    if (++at_ < values_.size()) {
      text = values_[at_];
    } else {
      sound_ = false;
    }
    return *this;
  }
  template <typename Number>
  requires std::integral<Number> || std::floating_point<Number> LineReader& operator>>(
      Number& number) {
    std::string text;
    *this >> text;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    sound_ = sound_ && error == std::errc() && end == text.data() + text.size();
    return *this;
  }
  bool Fini() const { return sound_ && at_ + 1 == values_.size(); }

 private:
  std::vector<std::string> values_;
  std::size_t at_ = 0;
  bool sound_ = true;
};

/// Where the catalogue is kept; "" when there is no such folder.
std::string CheminGarde(Platform& io) {
  const std::string folder = io.environment.DossierPrive();
  return folder.empty() ? folder : folder + SeparateurChemin() + "datums.txt";
}

/// What tells this state of a file from all others; empty when there is no file.
std::string Origine(Platform& io, const std::string& path) {
  const auto stamp = io.files.Empreinte(path);
  std::string line;
  if (stamp) {
    LineWriter(line, version) << path << stamp->size << stamp->modifiedNs << stamp->identity;
  }
  return line;
}

std::string EnLignes(const DatumCatalogue& catalogue) {
  std::string text;
  for (const DatumRecord& d : catalogue.Datums) {
    LineWriter(text, "D") << d.da << d.df << d.dx << d.dy << d.dz << d.ellipsoid << d.code << d.name
                          << d.application << d.use;
  }
  for (const EllipsoidRecord& e : catalogue.Ellipsoides) {
    LineWriter(text, "E") << e.id << e.code << e.name << e.a << e.inverseFlattening;
  }
  LineWriter(text, "F") << catalogue.Datums.size() << catalogue.Ellipsoides.size();
  return text;
}

/// A text that holds what parts lines or values cannot be kept.
bool EstGardable(const DatumCatalogue& catalogue) {
  const auto plain = [](const std::string& text) {
    return text.find_first_of("\t\r\n") == std::string::npos;
  };
  return std::ranges::all_of(catalogue.Datums,
                             [&](const DatumRecord& d) {
                               return plain(d.code) && plain(d.name) && plain(d.application);
                             }) &&
         std::ranges::all_of(catalogue.Ellipsoides, [&](const EllipsoidRecord& e) {
           return plain(e.code) && plain(e.name);
         });
}

std::optional<std::string> LitTout(FileSystem& files, const std::string& path) {
  if (!files.Existe(path)) return {};
  const auto file = files.Ouvre(path);
  if (file->Taille() < 0 || static_cast<std::size_t>(file->Taille()) > largest) return {};
  std::string text(static_cast<std::size_t>(file->Taille()), '\0');
  std::size_t done = 0;
  while (done < text.size()) {
    const std::size_t count = file->Lit(std::span(text).subspan(done));
    if (count == 0) return {};
    done += count;
  }
  return text;
}

bool LitLigne(LineReader& line, DatumCatalogue& catalogue) {
  if (line.Genre() == "D") {
    DatumRecord& d = catalogue.Datums.emplace_back();
    line >> d.da >> d.df >> d.dx >> d.dy >> d.dz >> d.ellipsoid >> d.code >> d.name >>
        d.application >> d.use;
  } else if (line.Genre() == "E") {
    EllipsoidRecord& e = catalogue.Ellipsoides.emplace_back();
    line >> e.id >> e.code >> e.name >> e.a >> e.inverseFlattening;
  }
  return line.Fini();
}

std::optional<DatumCatalogue> Comprend(std::string_view text) {
  DatumCatalogue catalogue;
  for (const std::string& content : Decoupe(text, '\n')) {
    LineReader line(content);
    if (line.Genre() == "F") {
      std::size_t datums = 0;
      std::size_t ellipsoids = 0;
      line >> datums >> ellipsoids;
      const bool whole = line.Fini() && datums == catalogue.Datums.size() &&
                         ellipsoids == catalogue.Ellipsoides.size();
      return whole ? std::optional(std::move(catalogue)) : std::nullopt;
    }
    if (!LitLigne(line, catalogue)) return {};
  }
  return {};
}

}  // namespace

KeptCatalogue::KeptCatalogue(Platform& io, const std::string& path) : files_(io.files) {
  try {
    origin_ = Origine(io, path);
    if (!origin_.empty()) kept_ = CheminGarde(io);
  } catch (const TalpenaError&) {  // without a cache the file is read each time
  }
}

bool KeptCatalogue::Lit(DatumCatalogue& catalogue) const {
  try {
    const auto text = kept_.empty() ? std::nullopt : LitTout(files_, kept_);
    if (!text || !text->starts_with(origin_)) return false;
    auto read = Comprend(std::string_view(*text).substr(origin_.size()));
    if (!read) return false;
    catalogue.Datums = std::move(read->Datums);
    catalogue.Ellipsoides = std::move(read->Ellipsoides);
    return true;
  } catch (const TalpenaError&) {  // the file itself is read
    return false;
  }
}

void KeptCatalogue::Garde(const DatumCatalogue& catalogue) const {
  if (kept_.empty() || !EstGardable(catalogue)) return;
  try {
    const auto file = files_.Cree(kept_);
    file->Ecrit(origin_ + EnLignes(catalogue));
    file->Remplace();
  } catch (const TalpenaError&) {  // the next start reads the file again
  }
}

}  // namespace talpena
