#include "interchange/real_lists.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "common/numbers.h"
#include "interchange/list_writer.h"

namespace talpena::test {
namespace {

using Fields = std::vector<std::string>;

/// All bytes of a file, unpacked when its name ends in .gz.
std::string Contenu(const std::string& path) {
  std::stringstream bytes;
  if (!path.ends_with(".gz")) {
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
  }
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(
      popen(("gzip -dc '" + path + "'").c_str(), "r"), pclose);
  char block[1 << 16];
  while (const std::size_t count = fread(block, 1, sizeof block, pipe.get())) {
    bytes.write(block, static_cast<std::streamsize>(count));
  }
  return bytes.str();
}

/// A record of a table with commas: fields in double quotes may hold commas, line ends and doubled
/// quotes. Moves behind its line end.
Fields LitFiche(std::string_view text, std::size_t& at) {
  Fields fields(1);
  bool quoted = false;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '"') {
      const bool doubled = quoted && at + 1 < text.size() && text[at + 1] == '"';
      if (doubled) fields.back() += text[at++];
      if (!doubled) quoted = !quoted;
    } else if (quoted || (c != ',' && c != '\n')) {
      if (quoted || c != '\r') fields.back() += c;
    } else if (c == ',') {
      fields.emplace_back();
    } else {
      break;
    }
  }
  ++at;
  return fields;
}

std::size_t Colonne(const Fields& header, std::string_view name) {
  const auto found = std::ranges::find(header, name);
  if (found == header.end()) throw std::runtime_error("no column " + std::string(name));
  return static_cast<std::size_t>(found - header.begin());
}

/// "2014-10-14T00:00:00" and "20/02/2018" as 2014/10/14 and 2018/02/20, a year alone as 1993/00/00,
/// anything else as "".
std::string DateReelle(const std::string& text) {
  const auto digits = [&](std::size_t from, std::size_t count) {
    if (text.size() < from + count) return false;
    const auto first = text.begin() + static_cast<std::ptrdiff_t>(from);
    return std::all_of(first, first + static_cast<std::ptrdiff_t>(count),
                       [](unsigned char c) { return std::isdigit(c) != 0; });
  };
  if (text.size() >= 10 && digits(0, 4) && text[4] == '-' && digits(5, 2) && digits(8, 2)) {
    return text.substr(0, 4) + "/" + text.substr(5, 2) + "/" + text.substr(8, 2);
  }
  if (text.size() == 10 && text[2] == '/' && digits(6, 4)) {
    return text.substr(6, 4) + "/" + text.substr(3, 2) + "/" + text.substr(0, 2);
  }
  return text.size() == 4 && digits(0, 4) ? text + "/00/00" : std::string();
}

std::string CommentaireReel(std::string text) {
  for (char& c : text) {
    if (c == '\r' || c == '\n' || c == '\t') c = ' ';
    if (c == '"') c = '\'';
  }
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string() : text.substr(first);
}

std::optional<Point> Lieu(const std::string& latitude, const std::string& longitude) {
  if (!EstNumerique(latitude) || !EstNumerique(longitude)) return std::nullopt;
  return Point{Val(latitude), Val(longitude)};
}

}  // namespace

std::string CheminReel(const RealTable& table) {
  return std::string(TALPENA_SHARED_DATA) + "/" + table.file;
}

std::vector<RealRecord> LitTableReelle(const RealTable& table, const RealArea& area) {
  const std::string text = Contenu(CheminReel(table));
  std::size_t at = 0;
  const Fields header = LitFiche(text, at);
  const std::size_t latitude = Colonne(header, table.latitude);
  const std::size_t longitude = Colonne(header, table.longitude);
  const std::size_t comment = Colonne(header, table.comment);
  const std::string_view country = table.country;
  const bool metres = std::string_view(table.latitude) == "y";
  std::vector<RealRecord> records;
  while (at < text.size()) {
    const Fields fields = LitFiche(text, at);
    if (fields.size() < header.size()) continue;
    if (!country.empty() && fields[Colonne(header, "country_code")] != country) continue;
    auto place = Lieu(fields[latitude], fields[longitude]);
    if (!place) continue;
    if (metres) place = DeLambertBelgePublie({place->longitude, place->latitude});
    if (place->latitude < area.south || place->latitude > area.north ||
        place->longitude < area.west || place->longitude > area.east) {
      continue;
    }
    const std::string_view date = table.date;
    records.push_back({*place, date.empty() ? "" : DateReelle(fields[Colonne(header, date)]),
                       CommentaireReel(fields[comment])});
  }
  return records;
}

}  // namespace talpena::test
