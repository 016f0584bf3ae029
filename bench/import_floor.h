// What an import costs at least: one read of its file, and a bare loop of INSERTs.
#pragma once
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "bare_table.h"

namespace talpena::bench {

/// One read of the file in blocks, its lines split: `take` gets each.
template <typename Take>
void LitLignes(const std::string& path, Take&& take) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  std::vector<char> buffer(1 << 20);
  std::size_t kept = 0;
  for (std::size_t count = 0;
       (count = std::fread(buffer.data() + kept, 1, buffer.size() - kept, file)) > 0;) {
    const char* from = buffer.data();
    const char* end = from + kept + count;
    while (const auto* cr = static_cast<const char*>(
               std::memchr(from, '\r', static_cast<std::size_t>(end - from)))) {
      if (cr + 1 == end) break;
      take(std::string_view(from, static_cast<std::size_t>(cr - from)));
      from = cr + 2;
    }
    kept = static_cast<std::size_t>(end - from);
    std::memmove(buffer.data(), from, kept);
  }
  std::fclose(file);
}

/// As many rows as the file has, bound from memory.
inline void InsereNu(const std::string& path, std::int64_t rows) {
  BareTable bare(path);
  bare.Execute("BEGIN");
  sqlite3_stmt* insert = bare.Prepare(
      "INSERT INTO TALPENA (PERIOD, N1, N2, DATUM, ORIGINAL, DATE, COMMENT) "
      "VALUES (?,?,?,?,?,?,?)");
  const auto text = [&](int place, std::string_view value) {
    sqlite3_bind_text(insert, place, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
  };
  for (std::int64_t row = 0; row < rows; ++row) {
    for (int place = 1; place <= 3; ++place) sqlite3_bind_int64(insert, place, row % 100);
    text(4, "EUR-M");
    text(5, "deg +50.50000 +004.25000");
    text(6, "1990/05/01");
    text(7, "Place 123, number 123456");
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  bare.Execute("COMMIT");
}

}  // namespace talpena::bench
