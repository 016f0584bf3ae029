// pxlib as a second reader of Paradox tables, by a program of its own.
#pragma once
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "platform/foreign/command_output.h"
#include "platform/foreign/foreign_rows.h"

namespace talpena::test {

#ifdef TALPENA_PX_DUMP
inline constexpr std::string_view pxDump = TALPENA_PX_DUMP;
#else
inline constexpr std::string_view pxDump;
#endif

#define NEEDS_PXLIB() \
  if (pxDump.empty()) GTEST_SKIP() << "pxlib is not installed"

inline std::string Hexadecimal(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    text += digits[static_cast<unsigned char>(byte) >> 4U];
    text += digits[static_cast<unsigned char>(byte) & 0xFU];
  }
  return text;
}

/// A number as a double, or a day as the format counts it.
inline std::string CommeDouble(double value, FieldType type, const std::string& theirs) {
  constexpr double firstDay = 693594, millisecondsOfDay = 86400000;
  if (theirs.starts_with('i')) return "i" + std::to_string(std::llround(value + firstDay));
  if (type == FieldType::Date) value = std::round((value + firstDay) * millisecondsOfDay);
  char bits[20];
  std::snprintf(bits, sizeof bits, "d%016llx",
                static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
  return bits;
}

/// A value of ours as px_dump prints it.
inline std::string CommeAilleurs(const Value& value, FieldType type, const std::string& theirs) {
  if (type == FieldType::Memo || type == FieldType::Binary) return "?";
  if (std::holds_alternative<std::monostate>(value)) return "-";
  if (const auto* const text = std::get_if<std::string>(&value)) {
    if (text->empty()) return "-";
    return "t" + Hexadecimal(Utf8VersCp1252(*text).value_or("(not in 1252)"));
  }
  if (type == FieldType::Boolean) return std::get<std::int64_t>(value) == 0 ? "i0" : "i1";
  if (const auto* const whole = std::get_if<std::int64_t>(&value)) {
    return "i" + std::to_string(*whole);
  }
  return CommeDouble(std::get<double>(value), type, theirs);
}

/// The library takes the blank of whole numbers for the least of them.
inline std::string SansSesTravers(const std::string& theirs) {
  return theirs == "i-2147483648" ? "-" : theirs;
}

/// Holds names and values, but those of memo files, against what the library reads.
inline void CompareParPxlib(const std::string& path, const std::vector<FieldDef>& fields,
                            const std::vector<Row>& rows) {
  const auto printed = Sortie(std::string(pxDump) + " " + EntreQuotes(path));
  ASSERT_TRUE(printed.has_value()) << "pxlib cannot read " << path;
  const std::vector<std::string> lines = Decoupe(*printed, '\n');
  ASSERT_EQ(lines.size(), fields.size() * (rows.size() + 1) + 1);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    EXPECT_TRUE(lines[i].starts_with("=" + fields[i].name + " ")) << lines[i];
  }
  std::size_t line = fields.size();
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i, ++line) {
      const std::string theirs = SansSesTravers(lines[line]);
      ASSERT_EQ(CommeAilleurs(row[i], fields[i].type, theirs), theirs) << "line " << line;
    }
  }
}

}  // namespace talpena::test
