// The tools of mdbtools as a second reader of Access files.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/foreign/command_output.h"
#include "platform/foreign/jet_files.h"

namespace talpena::test {

inline constexpr char columnEnd = '\x1F', rowEnd = '\x1E', nullMark = '\x1D';

/// A date serial as mdb-export writes it with the format below; the library knows only the days
/// from 1900 to the year 4637.
inline std::optional<std::string> DateTexte(double serial) {
  if (serial < 2 || serial > 1e6) return {};
  const auto seconds = static_cast<std::time_t>(std::llround((serial - 25569) * 86400));
  std::tm utc{};
  gmtime_r(&seconds, &utc);
  std::array<char, 40> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &utc);
  return text.data();
}

inline void Compare(const Value& ours, FieldType type, const std::string& theirs) {
  const std::string null(1, nullMark);
  if (std::holds_alternative<std::monostate>(ours)) {
    EXPECT_EQ(theirs, null);
  } else if (type == FieldType::Text || type == FieldType::Memo) {
    const std::string& text = std::get<std::string>(ours);
    EXPECT_EQ(theirs == null ? "" : theirs, text);
  } else if (type == FieldType::Binary) {
    EXPECT_NE(theirs, null);
  } else if (type == FieldType::Boolean) {
    EXPECT_EQ(theirs, std::get<std::int64_t>(ours) == -1 ? "1" : "0");
  } else if (type == FieldType::Date) {
    const auto date = DateTexte(std::get<double>(ours));
    EXPECT_EQ(date ? theirs : "", date.value_or(""));
  } else {
    const double digits = type == FieldType::Single ? 1e-7 : 1e-9;  // that are printed
    EXPECT_NEAR(Cell::Vue(ours).Nombre(), Val(theirs), digits * std::abs(Val(theirs)));
  }
}

/// The rows of a table as mdb-export reads them.
inline std::vector<std::vector<std::string>> LignesExportees(const std::string& path,
                                                             const std::string& table) {
  const auto out = Sortie(
      "LC_ALL=C mdb-export -H -Q -b hex -d '\x1F' -R '\x1E' -0 '\x1D'"
      " -D '%Y-%m-%d %H:%M:%S' -T '%Y-%m-%d %H:%M:%S' " +
      EntreQuotes(path) + " " + EntreQuotes(table));
  if (!out) ADD_FAILURE() << "mdb-export cannot read " << path;
  std::vector<std::vector<std::string>> rows;
  for (const std::string& row : Decoupe(out.value_or(""), rowEnd)) {
    rows.push_back(Decoupe(row, columnEnd));
  }
  rows.pop_back();
  return rows;
}

/// Holds every value of a table that our reader gives against mdb-export; how many there are.
inline std::size_t CompareAvecExport(const std::string& path, const std::string& name) {
  const auto theirs = LignesExportees(path, name);
  const auto database = CreeFormatJet()->Ouvre(path);
  const TableDef table = TableDe(*database, name);
  const auto ours = LitLignes(*database, name, table.fields.size());
  EXPECT_EQ(ours.size(), theirs.size());
  for (std::size_t r = 0; r < std::min(ours.size(), theirs.size()); ++r) {
    EXPECT_EQ(theirs[r].size(), table.fields.size());
    for (std::size_t f = 0; f < std::min(theirs[r].size(), table.fields.size()); ++f) {
      SCOPED_TRACE("row " + std::to_string(r) + " " + table.fields[f].name);
      Compare(ours[r][f], table.fields[f].type, theirs[r][f]);
    }
  }
  return ours.size() * table.fields.size();
}

#define NEEDS_MDBTOOLS() \
  if (!Sortie("command -v mdb-export")) GTEST_SKIP() << "the tools of mdbtools are not installed"

}  // namespace talpena::test
