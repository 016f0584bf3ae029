#include "datum_source.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "common/numbers.h"

namespace talpena {
namespace {

/// One table with its columns found by name.
class Table {
 public:
  explicit Table(const std::string& path) : path_(path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error(path + ": cannot be read");
    const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    try {
      rows_ = LitCsv(text, heading_);
    } catch (const std::runtime_error& e) {
      throw std::runtime_error(path + ": " + e.what());
    }
  }
  std::size_t Nombre() const { return rows_.size(); }
  const std::string& Texte(std::size_t row, std::string_view column) const {
    const auto at = std::find(heading_.begin(), heading_.end(), column);
    if (at == heading_.end()) Echec("no column " + std::string(column));
    return rows_[row][static_cast<std::size_t>(at - heading_.begin())];
  }
  double Reel(std::size_t row, std::string_view column) const {
    const std::string& text = Texte(row, column);
    if (!EstNumerique(text) || text.find(',') != std::string::npos) Echec("no number: " + text);
    return Val(text);
  }
  int Entier(std::size_t row, std::string_view column) const {
    const double value = Reel(row, column);
    if (value != Fix(value)) Echec("no whole number: " + Texte(row, column));
    return static_cast<int>(value);
  }
  [[noreturn]] void Echec(const std::string& fault) const {
    throw std::runtime_error(path_ + ": " + fault);
  }

 private:
  std::string path_;
  std::vector<std::string> heading_;
  std::vector<std::vector<std::string>> rows_;
};

std::vector<std::string> DecoupeLigne(std::string_view line) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"') {
      fields.back() += '"';
      ++i;
    } else if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  if (quoted) throw std::runtime_error("a quote is not closed: " + std::string(line));
  return fields;
}

}  // namespace

std::vector<std::vector<std::string>> LitCsv(std::string_view text,
                                             std::vector<std::string>& heading) {
  std::vector<std::vector<std::string>> rows;
  heading.clear();
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.empty()) continue;
    auto fields = DecoupeLigne(line);
    if (heading.empty()) {
      heading = std::move(fields);
    } else if (fields.size() != heading.size()) {
      throw std::runtime_error("wrong number of fields: " + std::string(line));
    } else {
      rows.push_back(std::move(fields));
    }
  }
  return rows;
}

int CatalogueSource::Use(const DatumSource& datum) const {
  constexpr int mgrs = 2, degreesOnly = 1;
  return ellipsoids.at(static_cast<std::size_t>(datum.ellipsoid) - 1).mgrs ? mgrs : degreesOnly;
}

CatalogueSource LitSourceCatalogue(const std::string& datumsCsv, const std::string& ellipsoidsCsv) {
  CatalogueSource all;
  const Table ellipsoids(ellipsoidsCsv);
  for (std::size_t i = 0; i < ellipsoids.Nombre(); ++i) {
    const EllipsoidSource e{.id = ellipsoids.Entier(i, "id"),
                            .code = ellipsoids.Texte(i, "code"),
                            .name = ellipsoids.Texte(i, "name"),
                            .a = ellipsoids.Reel(i, "a"),
                            .fInv = ellipsoids.Reel(i, "f_inv"),
                            .mgrs = ellipsoids.Entier(i, "mgrs") != 0};
    // The program takes an id for a position in the table.
    if (e.id != static_cast<int>(i) + 1) ellipsoids.Echec("id out of order: " + e.code);
    all.ellipsoids.push_back(e);
  }
  const Table datums(datumsCsv);
  for (std::size_t i = 0; i < datums.Nombre(); ++i) {
    const DatumSource d{.code = datums.Texte(i, "code"),
                        .name = datums.Texte(i, "name"),
                        .applic = datums.Texte(i, "applic"),
                        .ellipsoid = datums.Entier(i, "ellipsoid_id"),
                        .da = datums.Entier(i, "da"),
                        .df = datums.Reel(i, "df"),
                        .dx = datums.Reel(i, "dx"),
                        .dy = datums.Reel(i, "dy"),
                        .dz = datums.Reel(i, "dz")};
    if (d.ellipsoid < 1 || d.ellipsoid > static_cast<int>(all.ellipsoids.size())) {
      datums.Echec("unknown ellipsoid of " + d.code);
    }
    all.datums.push_back(d);
  }
  return all;
}

}  // namespace talpena
