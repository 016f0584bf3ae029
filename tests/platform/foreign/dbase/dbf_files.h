// dBase and FoxPro tables in tests: real ones, ones put together byte by byte, ones that were
// written, and what other readers make of them.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "common/text.h"
#include "fakes/memory_bytes.h"
#include "fakes/temp_folder.h"
#include "platform/foreign/command_output.h"
#include "platform/foreign/dbase/columns.h"
#include "platform/foreign/dbase/dbase_format.h"
#include "platform/foreign/dbase/table_reader.h"
#include "platform/foreign/file_numbers.h"
#include "platform/foreign/foreign_rows.h"

namespace talpena::test {

namespace fs = std::filesystem;
using dbase::Product;

inline const fs::path dbfFolder = fs::path(TALPENA_SHARED_DATA) / "db" / "dbf";

#define NEEDS_DBF_FILES() \
  if (!fs::exists(dbfFolder)) GTEST_SKIP() << "no dBase files under " << dbfFolder
#define NEEDS_DBFREAD()                                            \
  if (!Sortie("/usr/bin/python3 -c 'import dbfread' 2>/dev/null")) \
  GTEST_SKIP() << "python3-dbfread is not installed"
#define NEEDS_OGR() \
  if (!Sortie("command -v ogr2ogr")) GTEST_SKIP() << "ogr2ogr (gdal-bin) is not installed"

inline constexpr Product products[] = {Product::DbaseIV, Product::FoxPro25};

/// A text with NUL bytes behind it, or cut, to a length.
inline std::string Rempli(std::string text, std::size_t size) {
  text.resize(size);
  return text;
}

/// A table put together byte by byte.
struct MadeDbf {
  struct Field {
    std::string name;
    char type = 'C';
    int width = 1;
    int decimals = 0;
  };

  unsigned char version = 0x03;
  unsigned char language = 0x03;
  std::vector<Field> fields = {};
  std::vector<std::string> rows = {};  ///< with their marks

  std::size_t OctetsTete() const { return 32 + 32 * fields.size() + 1; }
  std::string Octets() const {
    std::size_t width = 1;
    std::string columns;
    for (const Field& field : fields) {
      std::string bytes(32, '\0');
      bytes.replace(0, field.name.size(), field.name);
      bytes[11] = field.type;
      bytes[16] = static_cast<char>(field.width);
      bytes[17] = static_cast<char>(field.decimals);
      columns += bytes;
      width += static_cast<std::size_t>(field.width);
    }
    std::string out(32, '\0');
    out[0] = static_cast<char>(version);
    Pose(out, 4, static_cast<std::uint32_t>(rows.size()));
    Pose(out, 8, static_cast<std::uint16_t>(OctetsTete()));
    Pose(out, 10, static_cast<std::uint16_t>(rows.empty() ? width : rows.front().size()));
    out[29] = static_cast<char>(language);
    out += columns + '\r';
    for (const std::string& row : rows) out += row;
    return out + '\x1A';
  }
};

/// The rows of a table whose files lie in memory.
inline std::vector<Row> LitOctets(const std::string& table, const std::string* memos = nullptr,
                                  const std::string& codePage = {},
                                  const LimitesDbase& limits = {}) {
  dbase::TableBytes bytes{.path = "t.dbf",
                          .rows = std::make_shared<MemoryBytes>(table),
                          .memos = nullptr,
                          .codePage = codePage};
  if (memos != nullptr) bytes.memos = std::make_shared<MemoryBytes>(*memos);
  dbase::TableReader reader(bytes, limits, nullptr);
  const std::size_t width = reader.Definition("t").fields.size();
  const auto source = reader.Lignes();
  std::vector<Row> rows;
  std::vector<Cell> cells(width);
  while (source->Suivante(cells)) {
    Row row;
    for (const Cell& cell : cells) row.push_back(cell.Garde());
    rows.push_back(std::move(row));
  }
  return rows;
}

inline std::unique_ptr<ForeignFormat> Format(Product product, const LimitesDbase& limits = {}) {
  return product == Product::DbaseIV ? CreeFormatDbase(limits) : CreeFormatFoxPro(limits);
}

inline const char* FinMemo(Product product) {
  return product == Product::DbaseIV ? ".dbt" : ".fpt";
}

/// A folder of its own with one table, its rows put in.
struct WrittenDbf {
  explicit WrittenDbf(Product made, const LimitesDbase& limits = {}, std::string where = {})
      : product(made),
        path(where.empty() ? folder.path().string() : std::move(where)),
        format(Format(made, limits)),
        database(format->OuvrePourEcrire(path)) {}

  std::int64_t Ecrit(const TableDef& table, RowSource& rows) const {
    database->CreeTable(table);
    return database->InsereLignes(table.name, rows);
  }
  std::string Fichier(const std::string& table) const { return path + "/" + table + ".dbf"; }
  std::string Memos(const std::string& table) const {
    return path + "/" + table + FinMemo(product);
  }
  /// The rows as they are read from the finished file.
  std::vector<Row> Relit(const TableDef& table) const {
    const auto read = Format(product)->Ouvre(path);
    return LitLignes(*read, table.name, table.fields.size());
  }

  TempFolder folder;
  Product product;
  std::string path;
  std::unique_ptr<ForeignFormat> format;
  std::unique_ptr<ForeignDatabase> database;
};

inline TableDef UnMemo(const char* name = "notes") {
  return {.name = name,
          .fields = {Champ("N", FieldType::Long), Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

inline TableDef UnTexte(int size) {
  return {.name = "t", .fields = {Champ("A", FieldType::Text, size)}, .indexes = {}};
}

// --- Other readers -------------------------------------------------------------------------------

/// The rows of a file as another program reads them, behind a row of names.
inline std::vector<std::vector<std::string>> LuPar(const std::string& reader,
                                                   const std::string& path,
                                                   const std::string& encoding) {
  const std::string script = TALPENA_SOURCE_DIR "/tests/platform/foreign/dbase/read_dbf.py";
  const auto out = Sortie("/usr/bin/python3 " + EntreQuotes(script) + " " + reader + " " +
                          EntreQuotes(path) + " " + encoding);
  if (!out) ADD_FAILURE() << reader << " cannot read " << path;
  std::vector<std::vector<std::string>> rows;
  for (const std::string& row : Decoupe(out.value_or(""), '\x1E')) {
    rows.push_back(Decoupe(row, '\x1F'));
  }
  rows.pop_back();
  return rows;
}

/// Days since 1899-12-30 as "yyyy-mm-dd".
inline std::string DateIso(double days) {
  using namespace std::chrono;
  const year_month_day date(sys_days(year(1899) / December / 30) +
                            std::chrono::days(static_cast<int>(days)));
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text;
}

/// One value against what another reader printed: blanks may be Null there.
inline void CompareDbf(const Value& ours, FieldType type, std::string theirs) {
  if (theirs == "\x1D") theirs.clear();
  if (std::holds_alternative<std::monostate>(ours)) {
    EXPECT_EQ(theirs, "");
  } else if (const auto* text = std::get_if<std::string>(&ours)) {
    EXPECT_EQ(theirs, *text);
  } else if (type == FieldType::Date) {
    EXPECT_EQ(Remplace(theirs, "/", "-"), DateIso(std::get<double>(ours)));
  } else if (type == FieldType::Boolean) {
    const bool set = std::get<std::int64_t>(ours) != 0;
    EXPECT_TRUE(theirs == (set ? "T" : "F") || theirs == (set ? "Y" : "N")) << theirs;
  } else {
    double value = 0;
    std::from_chars(theirs.data(), theirs.data() + theirs.size(), value);
    EXPECT_EQ(value, Cell::Vue(ours).Nombre()) << theirs;
  }
}

/// What python3-dbfread makes of a memo of dBase IV without an end mark: it takes the eight bytes
/// of its head for more of the text.
inline void CoupeMemo(std::string& theirs, const Value& ours) {
  constexpr std::size_t head = 8;
  const auto* const text = std::get_if<std::string>(&ours);
  if (text != nullptr && theirs.size() - text->size() <= head) theirs.resize(text->size());
}

/// Holds every value that our reader gives against another's, memos only where it has them; how
/// many values that are.
///
/// @param tooLong  memos may be too long in the other's eyes
inline std::size_t CompareAvec(const std::string& reader, const std::string& path,
                               const std::string& encoding, bool tooLong = false) {
  auto theirs = LuPar(reader, path, encoding);
  const auto database = CreeFormatDbase()->Ouvre(path);
  const TableDef table = database->Tables().front();
  const auto ours = LitLignes(*database, table.name, table.fields.size());
  if (!theirs.empty()) theirs.erase(theirs.begin());
  EXPECT_EQ(ours.size(), theirs.size());
  std::size_t compared = 0;
  for (std::size_t r = 0; r < std::min(ours.size(), theirs.size()); ++r) {
    EXPECT_EQ(theirs[r].size(), table.fields.size());
    for (std::size_t f = 0; f < std::min(theirs[r].size(), table.fields.size()); ++f) {
      SCOPED_TRACE("row " + std::to_string(r) + " " + table.fields[f].name);
      const bool memo = table.fields[f].type == FieldType::Memo;
      if (reader == "ogr" && memo) continue;
      if (tooLong && memo) CoupeMemo(theirs[r][f], ours[r][f]);
      Value value = ours[r][f];
      auto* const text = std::get_if<std::string>(&value);
      if (reader == "ogr" && text != nullptr) *text = Rogne(*text);  // it does so itself
      CompareDbf(value, table.fields[f].type, theirs[r][f]);
      ++compared;
    }
  }
  return compared;
}

}  // namespace talpena::test
