// What other readers make of the dBase and FoxPro tables that are written.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/text.h"
#include "platform/foreign/dbase/dbf_files.h"
#include "platform/os/file_system.h"
#include "store/deg_file.h"

namespace talpena {
namespace {

using namespace test;

const char* const degFiles[] = {"andrena_flavipes.deg", "bombus_hortorum_form1.deg",
                                "chameleons_east_africa.deg", "dendroctonus_frontalis_us.deg"};

TableDef TableDeg() {
  return {.name = "deg",
          .fields = {Champ("Period", FieldType::Text, 2), Champ("Latitude", FieldType::Single),
                     Champ("Longitude", FieldType::Single), Champ("Number 1", FieldType::Long),
                     Champ("Number 2", FieldType::Long), Champ("Ellipsoid", FieldType::Text, 5),
                     Champ("Orig Coor", FieldType::Text, 24), Champ("Date", FieldType::Text, 10),
                     Champ("Sex", FieldType::Text, 1), Champ("Free text", FieldType::Text, 254),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

/// A text as an export hands it over: without blanks at its ends, what the column holds of it.
std::string Taille(const std::string& text, std::size_t size) {
  return std::string(Rogne(PremiersCaracteres(text, size)));
}

Row EnLigne(const DegRow& row, const std::string& memo) {
  return {std::to_string(row.period % 100),
          double{row.latitude},
          double{row.longitude},
          std::int64_t{row.n1},
          std::int64_t{row.n2},
          row.datum,
          row.original,
          Taille(row.date, 10),
          Taille(row.sex, 1),
          Taille(row.comment, 254),
          memo};
}

/// The rows of a real distribution.
std::vector<Row> LignesDe(const char* name) {
  const DegContents deg = LitFichierDeg(
      CreeSystemeDeFichiers()->Ouvre((fs::path(TALPENA_SHARED_DATA) / name).string()), {});
  std::vector<Row> rows;
  for (const DegRow& row : deg.lignes) {
    rows.push_back(EnLigne(row, deg.entete.BoxTitre + " / " + deg.entete.Commentaire));
  }
  return rows;
}

/// A value as it went in against one that came out of our reader or another's. The format fills
/// texts up with blanks, so that those at their ends are lost.
void Compare(const Value& in, FieldType type, std::string out) {
  if (const auto* text = std::get_if<std::string>(&in)) {
    EXPECT_EQ(out == "\x1D" ? "" : RogneDroite(out), RogneDroite(*text));
    return;
  }
  double number = 0;
  out.erase(0, out.find_first_not_of(' '));
  const auto [end, error] = std::from_chars(out.data(), out.data() + out.size(), number);
  EXPECT_TRUE(error == std::errc{} && end == out.data() + out.size()) << out;
  if (type == FieldType::Single) {
    EXPECT_EQ(static_cast<float>(number), static_cast<float>(std::get<double>(in))) << out;
  } else {
    EXPECT_EQ(number, Cell::Vue(in).Nombre()) << out;
  }
}

void CompareTout(const std::vector<Row>& in, const std::vector<std::vector<std::string>>& out,
                 bool memos) {
  const TableDef table = TableDeg();
  ASSERT_EQ(out.size(), in.size());
  for (std::size_t r = 0; r < in.size(); ++r) {
    ASSERT_EQ(out[r].size(), table.fields.size());
    for (std::size_t f = 0; f < table.fields.size() - (memos ? 0 : 1); ++f) {
      SCOPED_TRACE("row " + std::to_string(r) + " " + table.fields[f].name);
      Compare(in[r][f], table.fields[f].type, out[r][f]);
    }
  }
}

TEST(DbaseTools, RealRowsGoThereAndBack) {
  NEEDS_DBF_FILES();
  for (const char* name : degFiles) {
    const std::vector<Row> rows = LignesDe(name);
    ASSERT_GT(rows.size(), 10U) << name;
    for (const Product product : products) {
      SCOPED_TRACE(name);
      const WrittenDbf file(product);
      MadeRows source = Source(rows);
      file.Ecrit(TableDeg(), source);
      std::vector<std::vector<std::string>> read;
      for (const Row& row : file.Relit(TableDeg())) {
        read.emplace_back();
        for (const Value& value : row) read.back().push_back(Cell::Vue(value).Texte());
      }
      CompareTout(rows, read, true);
    }
  }
}

TEST(DbaseTools, RealRowsAreReadByAnotherReader) {
  NEEDS_DBF_FILES();
  NEEDS_DBFREAD();
  for (const char* name : degFiles) {
    const std::vector<Row> rows = LignesDe(name);
    for (const Product product : products) {
      SCOPED_TRACE(name);
      const WrittenDbf file(product);
      MadeRows source = Source(rows);
      file.Ecrit(TableDeg(), source);
      auto read = LuPar("dbfread", file.Fichier("deg"), "cp1252");
      EXPECT_EQ(read.front(), (std::vector<std::string>{
                                  "PERIOD", "LATITUDE", "LONGITUDE", "NUMBER_1", "NUMBER_2",
                                  "ELLIPSOID", "ORIG_COOR", "DATE", "SEX", "FREE_TEXT", "MEMO"}));
      read.erase(read.begin());
      CompareTout(rows, read, true);
    }
  }
}

TEST(DbaseTools, RealRowsAreReadByAThirdReader) {
  NEEDS_DBF_FILES();
  NEEDS_OGR();
  for (const char* name : degFiles) {
    const std::vector<Row> rows = LignesDe(name);
    for (const Product product : products) {
      SCOPED_TRACE(name);
      const WrittenDbf file(product);
      MadeRows source = Source(rows);
      file.Ecrit(TableDeg(), source);
      auto read = LuPar("ogr", file.Fichier("deg"), "own");  // by the byte in the head
      read.erase(read.begin());
      CompareTout(rows, read, false);
    }
  }
}

TEST(DbaseTools, EveryCharacterOfTheCodePageIsReadByTheOthers) {
  NEEDS_DBFREAD();
  NEEDS_OGR();
  std::vector<Row> rows;
  for (int c = 0x21; c < 0x100; ++c) {
    const char byte = static_cast<char>(c);
    const bool meaningless = c == 0x81 || c == 0x8D || c == 0x8F || c == 0x90 || c == 0x9D;
    if (!meaningless) rows.push_back({Cp1252VersUtf8({&byte, 1}) + "x"});
  }
  const TableDef table{.name = "c", .fields = {Champ("A", FieldType::Text, 3)}, .indexes = {}};
  for (const Product product : products) {
    const WrittenDbf file(product);
    MadeRows source = Source(rows);
    file.Ecrit(table, source);
    const auto first = LuPar("dbfread", file.Fichier("c"), "cp1252");
    const auto second = LuPar("ogr", file.Fichier("c"), "own");
    ASSERT_EQ(first.size(), rows.size() + 1);
    ASSERT_EQ(second.size(), rows.size() + 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      EXPECT_EQ(Value(first[i + 1][0]), rows[i][0]);
      EXPECT_EQ(Value(second[i + 1][0]), rows[i][0]);
    }
  }
}

TEST(DbaseTools, MemosOfAnyLengthAreReadByAnotherReader) {
  NEEDS_DBFREAD();
  const TableDef table{.name = "m", .fields = {Champ("M", FieldType::Memo)}, .indexes = {}};
  std::vector<Row> rows;
  for (const std::size_t length : {0U, 1U, 55U, 56U, 57U, 495U, 503U, 504U, 505U, 5000U, 300000U}) {
    rows.push_back({std::string(length, 'e')});
  }
  for (const Product product : products) {
    const WrittenDbf file(product);
    MadeRows source = Source(rows);
    file.Ecrit(table, source);
    auto read = LuPar("dbfread", file.Fichier("m"), "cp1252");
    ASSERT_EQ(read.size(), rows.size() + 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const std::string& theirs = read[i + 1][0];
      EXPECT_TRUE(Value(theirs == "\x1D" ? "" : theirs) == rows[i][0]) << i << ' ' << theirs.size();
    }
  }
}

}  // namespace
}  // namespace talpena
