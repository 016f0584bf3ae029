#include "csv_table.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "common/numbers.h"

namespace talpena {
namespace {

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

CsvTable::CsvTable(const std::string& path) : path_(path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) Echec("cannot be read");
  Lit(std::string{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()});
}

CsvTable::CsvTable(std::string path, std::string_view text) : path_(std::move(path)) { Lit(text); }

void CsvTable::Lit(std::string_view text) {
  try {
    rows_ = LitCsv(text, heading_);
  } catch (const std::runtime_error& e) {
    Echec(e.what());
  }
}

const std::string& CsvTable::Texte(std::size_t row, std::string_view column) const {
  const auto at = std::find(heading_.begin(), heading_.end(), column);
  if (at == heading_.end()) Echec("no column " + std::string(column));
  return rows_[row][static_cast<std::size_t>(at - heading_.begin())];
}

double CsvTable::Reel(std::size_t row, std::string_view column) const {
  const std::string& text = Texte(row, column);
  if (!EstNumerique(text) || text.find(',') != std::string::npos) Echec("no number: " + text);
  return Val(text);
}

int CsvTable::Entier(std::size_t row, std::string_view column) const {
  const double value = Reel(row, column);
  if (value != Fix(value)) Echec("no whole number: " + Texte(row, column));
  return static_cast<int>(value);
}

void CsvTable::Echec(const std::string& fault) const {
  throw std::runtime_error(path_ + ": " + fault);
}

}  // namespace talpena
