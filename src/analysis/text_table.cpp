#include "analysis/text_table.h"

#include <algorithm>

#include "common/numbers.h"

namespace talpena {
namespace {

std::string EntreGuillemets(const std::string& field) {
  if (field.find_first_of(",\"\r\n") == std::string::npos) return field;
  std::string quoted = "\"";
  for (const char c : field) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string SansCassure(std::string field) {
  std::replace_if(
      field.begin(), field.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
  return field;
}

template <typename Write>
std::string Joint(const TextTable& table, char separator, const char* lineEnd, Write write) {
  std::string text;
  for (const auto& line : table) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (i > 0) text += separator;
      text += write(line[i]);
    }
    text += lineEnd;
  }
  return text;
}

}  // namespace

std::string AvecTabulations(const TextTable& table) {
  return Joint(table, '\t', "\n", SansCassure);
}

std::string AvecVirgules(const TextTable& table) {
  return Joint(table, ',', "\r\n", EntreGuillemets);
}

TextTable NombresDe(const ChartPicture& picture) {
  TextTable table;
  auto& headings = table.emplace_back();
  headings.push_back(picture.bottomTitle);
  for (const ChartSeries& series : picture.series) {
    headings.push_back(series.name.empty() ? picture.leftTitle : series.name);
  }
  for (int point = 1; point <= picture.numPoints; ++point) {
    std::vector<std::string> line{NomDuPoint(picture, point)};
    bool charted = false;
    for (const ChartSeries& series : picture.series) {
      const auto& value = series.values[static_cast<std::size_t>(point - 1)];
      charted = charted || value.has_value();
      line.push_back(value ? Str(*value) : std::string());
    }
    if (charted) table.push_back(std::move(line));
  }
  return table;
}

}  // namespace talpena
