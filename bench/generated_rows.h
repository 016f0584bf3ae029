// Rows as distributions have them, for benchmarks.
#pragma once
#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <random>
#include <string>

#include "bare_table.h"
#include "platform/table_engine.h"

namespace talpena::bench {

inline constexpr std::array<std::string_view, 10> generatedColumns = {
    "PERIOD", "LATITUDE", "LONGITUDE", "N1", "N2", "SEX", "DATUM", "ORIGINAL", "DATE", "COMMENT"};

/// Rows as distributions have them, about 115 bytes each as a line of a file.
class Generator final : public RowSource {
 public:
  explicit Generator(std::int64_t rows) : rows_(rows) {}

  bool Suivante(std::span<Cell> cells) override {
    if (done_ == rows_) return false;
    ++done_;
    Remplit();
    cells[0] = Cell::Of(std::int64_t{1 + done_ % 3});
    cells[1] = Cell::Of(double{latitude});
    cells[2] = Cell::Of(double{longitude});
    cells[3] = Cell::Of(n1);
    cells[4] = Cell::Of(std::int64_t{0});
    cells[5] = Cell::Of(std::string_view(done_ % 2 == 0 ? "M" : "F"));
    cells[6] = Cell::Of(std::string_view("WGS84"));
    cells[7] = Cell::Of(std::string_view(original));
    cells[8] = Cell::Of(std::string_view(date));
    cells[9] = Cell::Of(std::string_view(comment));
    return true;
  }

 private:
  void Remplit() {
    latitude = static_cast<float>(static_cast<double>(random_() % 18000000) / 100000 - 90);
    longitude = static_cast<float>(static_cast<double>(random_() % 36000000) / 100000 - 180);
    n1 = static_cast<std::int64_t>(random_() % 1000);
    const auto number = static_cast<unsigned>(random_() % 100000);
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%s 31U ES %05u %05u", done_ % 2 == 0 ? "utm" : "mgr",
                  number, number / 2);
    original = text.data();
    std::snprintf(text.data(), text.size(), "%04u/%02u/%02u", 1880 + number % 140, 1 + number % 12,
                  1 + number % 28);
    date = text.data();
    std::snprintf(text.data(), text.size(), "Locality %u/%u m/Collector %u//////////", number,
                  number % 2500, number % 77);
    comment = text.data();
  }

  std::int64_t rows_;
  std::int64_t done_ = 0;
  std::mt19937_64 random_{7};

 public:
  float latitude = 0;
  float longitude = 0;
  std::int64_t n1 = 0;
  std::string original;
  std::string date;
  std::string comment;
};

/// The floor of filling a table: a loop that binds and steps.
inline void InsereNu(BareTable& bare, std::int64_t rows) {
  bare.Execute("BEGIN");
  sqlite3_stmt* insert = bare.Prepare(
      "INSERT INTO TALPENA (PERIOD, LATITUDE, LONGITUDE, N1, N2, SEX, DATUM, ORIGINAL, DATE, "
      "COMMENT) VALUES (?,?,?,?,?,?,?,?,?,?)");
  Generator generator(rows);
  std::array<Cell, generatedColumns.size()> cells;
  while (generator.Suivante(cells)) {
    for (int i = 0; i < static_cast<int>(cells.size()); ++i) {
      const Cell& cell = cells[static_cast<std::size_t>(i)];
      if (cell.kind == Cell::Kind::Integer) {
        sqlite3_bind_int64(insert, i + 1, cell.integer);
      } else if (cell.kind == Cell::Kind::Real) {
        sqlite3_bind_double(insert, i + 1, cell.real);
      } else {
        sqlite3_bind_text(insert, i + 1, cell.text.data(), static_cast<int>(cell.text.size()),
                          SQLITE_STATIC);
      }
    }
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  bare.Execute("COMMIT");
}

}  // namespace talpena::bench
