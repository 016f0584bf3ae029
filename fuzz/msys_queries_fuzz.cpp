// Rows of MSysQueries from any bytes: a text comes of them or none, and the engine runs it or
// refuses it by a failure that it knows.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "check.h"
#include "common/talpena_error.h"
#include "platform/foreign/jet_queries.h"
#include "platform/sqlite/sqlite_database.h"

using namespace talpena;

namespace {

constexpr int EngineFault = 3000;      // what no input may lead to
constexpr int QueryTooComplex = 3360;  // what no short one may: its translation would be wrong
constexpr std::size_t Short = 120;
constexpr std::ptrdiff_t Deep = 12;  // parentheses and signs, from which on it may be
constexpr std::size_t Chained = 6;   // a pattern behind a pattern says its operand twice
constexpr int MostBeats = 20;

/// What texts are made of besides plain characters: bytes from 80 (hexadecimal) on.
constexpr std::array<std::string_view, 48> pieces = {
    "T1",
    "T 2",
    "[T 2]",
    "a",
    "b",
    "c",
    "T1.a",
    "[T 2].b",
    "T1.c",
    "*",
    "T1.*",
    " AND ",
    " OR ",
    "NOT ",
    "=",
    " Is Null",
    " Like '?*'",
    " In (1, 2)",
    "(",
    ")",
    ", ",
    "Count(",
    "Max(",
    "Count(*)",
    "IIf(",
    "Format(",
    "\"0.00\"",
    "\"x\"",
    "#1987-05-12#",
    "1",
    "-2.5",
    " & ",
    " + ",
    " Between 1 And ",
    "SELECT ",
    " FROM ",
    " WHERE ",
    " GROUP BY ",
    " UNION ",
    " UNION ALL ",
    "SELECT a FROM T1",
    "TOP 2 ",
    "DISTINCT ",
    " ORDER BY ",
    " DESC",
    "True",
    "CCur(",
    "Nz(",
};

/// The bytes of an input, taken off one by one; 0 behind the last.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : rest_(data, data + size) {}
  bool Fini() const { return at_ >= rest_.size(); }
  std::uint8_t Prend() { return Fini() ? std::uint8_t{0} : rest_[at_++]; }

  /// Up to the byte 0.
  std::string Texte() {
    std::string text;
    for (std::uint8_t byte = Prend(); byte != 0; byte = Prend()) {
      if (byte < 0x80) {
        text += static_cast<char>(byte);
      } else {
        text += pieces[byte % pieces.size()];
      }
    }
    return text;
  }

 private:
  std::vector<std::uint8_t> rest_;
  std::size_t at_ = 0;
};

std::vector<QueryRow> Lignes(Bytes& bytes) {
  std::vector<QueryRow> rows;
  while (!bytes.Fini()) {
    QueryRow row;
    row.attribute = bytes.Prend() & 0x0F;
    row.flag = bytes.Prend();
    row.order = std::string(1, static_cast<char>(bytes.Prend()));
    row.name1 = bytes.Texte();
    row.name2 = bytes.Texte();
    row.expression = bytes.Texte();
    rows.push_back(std::move(row));
  }
  return rows;
}

std::size_t Compte(std::string_view text, std::string_view word) {
  std::size_t count = 0;
  for (std::size_t at = text.find(word); at != std::string_view::npos; ++count) {
    at = text.find(word, at + word.size());
  }
  return count;
}

/// Two small tables.
class World final : public sqlite::SqliteDatabase {
 public:
  World()
      : SqliteDatabase(
            std::make_shared<sqlite::Connection>(std::string(), sqlite::Connection::Mode::Private),
            false) {
    for (const char* name : {"T1", "T 2"}) {
      const auto table = Declare({.name = name,
                                  .fields = {{"a", FieldType::Long},
                                             {"b", FieldType::Text, 20, true},
                                             {"c", FieldType::Single}},
                                  .indexes = {}});
      for (const std::string& sql : table->SqlCreation()) connection_->Execute(sql);
      const std::string into = "INSERT INTO [" + std::string(name) + "] VALUES ";
      Execute(into + "(1, 'x', 1.5)");
      Execute(into + "(2, 'X', NULL)");
      Execute(into + "(3, NULL, -2.5)");
    }
  }

  /// Broken off where it goes on for long: sources side by side give rows without number.
  void Lance(const std::string& text) {
    int beats = 0;
    SuitTravail([&beats] { return ++beats < MostBeats; });
    try {
      const auto rows = OuvreRequete(text);
      for (; !rows->EOF_(); rows->MoveNext()) rows->Get(0);
    } catch (const TalpenaError& error) {
      const auto open = std::ranges::count_if(text, [](char c) { return c == '(' || c == '-'; });
      const bool simple = text.size() < Short && open < Deep && Compte(text, " Like ") < Chained;
      const bool tooComplex = error.number() == QueryTooComplex && simple;
      if (error.number() != EngineFault && !tooComplex) return;
      std::fprintf(stderr, "%s\n%s\n", error.what(), text.c_str());
      std::abort();
    }
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static World world;
  Bytes bytes(data, size);
  const int kind = (bytes.Prend() & 1) != 0 ? QueryKind::Union : QueryDef::Select;
  const std::vector<QueryRow> rows = Lignes(bytes);
  const std::string text = TexteRequete(kind, rows);
  fuzz::Verifie(text.empty() || (text.back() == ';' && text.size() <= 65536));
  if (!text.empty()) world.Lance(text);
  return 0;
}
