// dBase IV and FoxPro 2.5 tables written, and read back by our own reader.
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "platform/foreign/dbase/dbf_files.h"

namespace talpena {
namespace {

using namespace test;
using namespace std::string_literals;

/// The table that an export of all columns makes.
TableDef TableExportee(const char* name = "deg") {
  return {.name = name,
          .fields = {Champ("X", FieldType::Long), Champ("y", FieldType::Long),
                     Champ("Period", FieldType::Text, 1), Champ("Latitude", FieldType::Single),
                     Champ("Longitude", FieldType::Single), Champ("Number 1", FieldType::Long),
                     Champ("Number 2", FieldType::Long), Champ("Ellipsoid", FieldType::Text, 5),
                     Champ("Orig Coor", FieldType::Text, 24), Champ("Date", FieldType::Text, 10),
                     Champ("Sex", FieldType::Text, 1), Champ("Free text", FieldType::Text, 150),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

Row LigneExportee(const std::string& comment, const std::string& memo) {
  return {std::int64_t{150000},
          std::int64_t{-170000},
          "3",
          double{50.41234F},
          double{-179.99998F},
          std::int64_t{12},
          std::int64_t{-2147483648LL},
          "BEL72",
          "31UFS69",
          "12/5/1998",
          "f",
          comment,
          memo};
}

/// So many bytes of a file from a place on, NUL as ".".
std::string Morceau(const std::string& bytes, std::size_t place, std::size_t count) {
  std::string part = bytes.substr(place, count);
  for (char& c : part) c = c == '\0' ? '.' : c;
  return part;
}

// --- The bytes -----------------------------------------------------------------------------------

TEST(DbaseWriter, WritesTheTableByteByByte) {
  for (const Product product : products) {
    const bool dbase = product == Product::DbaseIV;
    SCOPED_TRACE(dbase ? "dBase" : "FoxPro");
    const WrittenDbf file(product);
    MadeRows rows = Source({LigneExportee("Dunes", "Title / Comment")});
    EXPECT_EQ(file.Ecrit(TableExportee(), rows), 1);
    const std::string bytes = LitFichier(file.Fichier("deg"));
    constexpr std::size_t head = 32 + 13 * 32 + 1;
    constexpr std::size_t row = 1 + 11 + 11 + 1 + 19 + 19 + 11 + 11 + 5 + 24 + 10 + 1 + 150 + 10;
    ASSERT_EQ(bytes.size(), head + row + 1);
    EXPECT_EQ(bytes[0], dbase ? '\x8B' : '\xF5');
    EXPECT_EQ(Lit32(bytes, 4), 1U);
    EXPECT_EQ(Lit16(bytes, 8), head);
    EXPECT_EQ(Lit16(bytes, 10), row);
    EXPECT_EQ(bytes[29], '\x03');
    EXPECT_EQ(Morceau(bytes, 32 + 11 * 32, 12), "FREE_TEXT..C");
    EXPECT_EQ(Morceau(bytes, 32 + 3 * 32, 12), "LATITUDE...N");
    EXPECT_EQ(Morceau(bytes, 32 + 32, 12), "Y..........N");
    EXPECT_EQ(bytes.substr(32 + 3 * 32 + 16, 2), "\x13\x0E");
    EXPECT_EQ(Lit32(bytes, 32 + 3 * 32 + 12), dbase ? 0U : 24U);
    EXPECT_EQ(bytes[head - 1], '\r');
    EXPECT_EQ(bytes.back(), '\x1A');
    EXPECT_EQ(bytes.substr(head, row),
              "      150000    -1700003  50.41234000000000-179.99998000000000"
              "         12-2147483648BEL7231UFS69                 12/5/1998 fDunes" +
                  std::string(145, ' ') + "         " + (dbase ? "1" : "8"));
  }
}

TEST(DbaseWriter, WritesTheDayOfTheLastChange) {
  const std::time_t now = std::time(nullptr);
  std::tm today{};
  localtime_r(&now, &today);
  for (const Product product : products) {
    const WrittenDbf file(product);
    file.database->CreeTable(UnTexte(1));
    const std::string bytes = LitFichier(file.Fichier("t"));
    EXPECT_EQ(bytes[1], product == Product::DbaseIV ? today.tm_year : today.tm_year % 100);
    EXPECT_EQ(bytes[2], today.tm_mon + 1);
    EXPECT_EQ(bytes[3], today.tm_mday);
  }
}

TEST(DbaseWriter, WritesMemosOfDbaseByteByByte) {
  const WrittenDbf file(Product::DbaseIV);
  MadeRows rows = Source({{std::int64_t{1}, "Bees"}, {std::int64_t{2}, std::string(504, 'x')}});
  file.Ecrit(UnMemo(), rows);
  const std::string bytes = LitFichier(file.Memos("notes"));
  ASSERT_EQ(bytes.size(), 512U + 512 + 1024);
  EXPECT_EQ(Lit32(bytes, 0), 4U);
  EXPECT_EQ(Morceau(bytes, 8, 8), "NOTES...");
  EXPECT_EQ(Lit16(bytes, 20), 512U);
  EXPECT_EQ(bytes.substr(512, 14), "\xFF\xFF\x08\0\x0C\0\0\0Bees\x1F\0"s);
  EXPECT_EQ(bytes.substr(1024, 10), "\xFF\xFF\x08\0\0\x02\0\0xx"s);
}

TEST(DbaseWriter, WritesMemosOfFoxProByteByByte) {
  const WrittenDbf file(Product::FoxPro25);
  MadeRows rows = Source({{std::int64_t{1}, "Bees"}, {std::int64_t{2}, std::string(57, 'x')}});
  file.Ecrit(UnMemo(), rows);
  const std::string bytes = LitFichier(file.Memos("notes"));
  ASSERT_EQ(bytes.size(), 512U + 64 + 128);
  EXPECT_EQ(bytes.substr(0, 8), "\0\0\0\x0B\0\0\0\x40"s);
  EXPECT_EQ(bytes.substr(512, 14), "\0\0\0\1\0\0\0\4Bees\0\0"s);
  EXPECT_EQ(bytes.substr(576, 9), "\0\0\0\1\0\0\0\x39x"s);
}

TEST(DbaseWriter, MakesNoMemoFileForATableWithoutMemos) {
  for (const Product product : products) {
    const WrittenDbf file(product);
    file.database->CreeTable(UnTexte(3));
    EXPECT_EQ(file.folder.Noms(), (std::vector<std::string>{"t.dbf"}));
    EXPECT_EQ(LitFichier(file.Fichier("t"))[0], '\x03');
  }
}

// --- Round trips ---------------------------------------------------------------------------------

TEST(DbaseWriter, ReadsBackTheRowsOfAnExport) {
  for (const Product product : products) {
    const WrittenDbf file(product);
    const std::vector<Row> rows = {LigneExportee("Pélodyte, œ €", "T / C"),
                                   LigneExportee("", " / "),
                                   LigneExportee(std::string(150, 'x'), std::string(100000, 'y'))};
    MadeRows source = Source(rows);
    EXPECT_EQ(file.Ecrit(TableExportee(), source), 3);
    const std::vector<Row> read = file.Relit(TableExportee());
    ASSERT_EQ(read.size(), 3U);
    for (std::size_t r = 0; r < rows.size(); ++r) {
      for (std::size_t f = 0; f < rows[r].size(); ++f) {
        const bool number = std::holds_alternative<double>(read[r][f]);
        if (!number) {
          EXPECT_EQ(read[r][f], rows[r][f]) << f;
        } else if (TableExportee().fields[f].type == FieldType::Single) {
          EXPECT_EQ(static_cast<float>(std::get<double>(read[r][f])),
                    static_cast<float>(std::get<double>(rows[r][f])));
        } else {
          EXPECT_EQ(std::get<double>(read[r][f]), Cell::Vue(rows[r][f]).Nombre()) << f;
        }
      }
    }
  }
}

TEST(DbaseWriter, StoresEveryType) {
  const TableDef table{
      .name = "all",
      .fields = {Champ("Flag", FieldType::Boolean), Champ("Tiny", FieldType::Byte),
                 Champ("Small", FieldType::Integer), Champ("Money", FieldType::Currency),
                 Champ("Wide", FieldType::Double), Champ("Seen on", FieldType::Date)},
      .indexes = {}};
  const std::vector<Row> rows = {
      {std::int64_t{-1}, std::int64_t{255}, std::int64_t{-32768}, 922337203685477.5, 1.0 / 3,
       36526.0},
      {std::int64_t{0}, std::int64_t{0}, std::int64_t{32767}, -12.3456, -1e-300, -693593.0},
      {Value(), Value(), Value(), Value(), Value(), Value()},
      {std::int64_t{-1}, std::int64_t{1}, std::int64_t{1}, 0.0, 12345678901234567.0, 2958465.0}};
  for (const Product product : products) {
    const WrittenDbf file(product);
    MadeRows source = Source(rows);
    EXPECT_EQ(file.Ecrit(table, source), 4);
    const std::vector<Row> read = file.Relit(table);
    ASSERT_EQ(read.size(), rows.size());
    for (std::size_t r = 0; r < rows.size(); ++r) {
      EXPECT_EQ(read[r][0], rows[r][0]);
      for (std::size_t f = 1; f < rows[r].size(); ++f) {
        const Value& wanted = rows[r][f];
        const bool null = std::holds_alternative<std::monostate>(wanted);
        EXPECT_EQ(read[r][f], null ? Value() : Value(Cell::Vue(wanted).Nombre())) << r << " " << f;
      }
    }
  }
}

/// Random bits of a float; none that is no number.
float AuHasard(std::mt19937& random) {
  float value = std::numeric_limits<float>::quiet_NaN();
  while (!std::isfinite(value)) value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
  return value;
}

TEST(DbaseWriter, EveryFloatComesBackAsItself) {
  std::mt19937 random(14);
  std::vector<Row> rows;
  for (int i = 0; i < 20000; ++i) rows.push_back({double{AuHasard(random)}});
  for (int i = -1800000; i <= 1800000; i += 127) {
    rows.push_back({double{static_cast<float>(i) / 10000.0F}});
  }
  const TableDef table{.name = "f", .fields = {Champ("A", FieldType::Single)}, .indexes = {}};
  const WrittenDbf file(Product::DbaseIV);
  MadeRows source = Source(rows);
  file.Ecrit(table, source);
  const std::vector<Row> read = file.Relit(table);
  ASSERT_EQ(read.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    ASSERT_EQ(static_cast<float>(std::get<double>(read[i][0])), std::get<double>(rows[i][0])) << i;
  }
}

TEST(DbaseWriter, AnyTextComesBackWithoutTheBlanksBehind) {
  std::mt19937 random(5);
  std::string page;
  for (int c = 0x20; c < 0x100; ++c) {
    if (c != 0x7F && c != 0x81 && c != 0x8D && c != 0x8F && c != 0x90 && c != 0x9D) {
      page += static_cast<char>(c);
    }
  }
  const TableDef table{.name = "x",
                       .fields = {Champ("A", FieldType::Text, 40), Champ("M", FieldType::Memo)},
                       .indexes = {}};
  for (const Product product : products) {
    std::vector<Row> rows;
    for (std::size_t i = 0; i < 300; ++i) {
      std::string text, memo;
      for (std::size_t n = random() % 41; n > 0; --n) text += page[random() % page.size()];
      for (std::size_t n = random() % 1500; n > 0; --n) memo += page[random() % page.size()];
      rows.push_back({std::string(RogneDroite(Cp1252VersUtf8(text))), Cp1252VersUtf8(memo)});
    }
    const WrittenDbf file(product);
    MadeRows source = Source(rows);
    file.Ecrit(table, source);
    EXPECT_EQ(file.Relit(table), rows);
  }
}

TEST(DbaseWriter, AnEmptyTextAndNullAreBlanks) {
  const WrittenDbf file(Product::FoxPro25);
  MadeRows source = Source({{Value(), Value()}, {std::int64_t{1}, ""}});
  file.Ecrit(UnMemo(), source);
  EXPECT_EQ(file.Relit(UnMemo()), (std::vector<Row>{{Value(), ""}, {1.0, ""}}));
  EXPECT_EQ(fs::file_size(file.Memos("notes")), 512U);
}

}  // namespace
}  // namespace talpena
