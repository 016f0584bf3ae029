// Waypoint files with fixed columns, made up line by line.
#pragma once
#include <string>
#include <utility>
#include <vector>

namespace talpena::test {

inline const std::string wptWgs84 =
    "M  G WGS 84               121 +0.000000e+00 +0.000000e+00 +0.000000e+00 +0.000000e+00 "
    "+0.000000e+00";

/// Texts put at their columns, counted from 1, over blanks.
inline std::string EnColonnes(const std::vector<std::pair<std::size_t, std::string>>& parts) {
  std::string line;
  for (const auto& [column, text] : parts) {
    if (line.size() < column - 1 + text.size()) line.resize(column - 1 + text.size(), ' ');
    line.replace(column - 1, text.size(), text);
  }
  return line;
}

/// A waypoint at N50°30.500' W002°15.250'.
inline std::string LigneWpt(const std::string& name, const std::string& behind,
                            const std::string& symbol = "  100") {
  return EnColonnes(
      {{1, "W"}, {4, name}, {11, "N5030.500"}, {23, "W00215.250"}, {55, symbol}, {61, behind}});
}

/// A file of eleven lines and these.
inline std::string FichierWpt(const std::vector<std::string>& waypoints,
                              const std::string& datum = wptWgs84) {
  std::string bytes = "\r\nH  SOFTWARE\r\nI  PCX5\r\n\r\nH  R DATUM\r\n" + datum +
                      "\r\n\r\nH  COORDINATE SYSTEM\r\nU  LAT LON DM\r\n\r\nH  IDNT\r\n";
  for (const std::string& line : waypoints) bytes += line + "\r\n";
  return bytes;
}

}  // namespace talpena::test
