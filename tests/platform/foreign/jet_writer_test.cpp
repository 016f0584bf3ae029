// Access files written, and read back by our own reader.
#include "platform/foreign/jet_writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "fakes/file_limit.h"
#include "fakes/tiny_disk.h"
#include "platform/foreign/written_files.h"

namespace talpena {
namespace {

using namespace test;

constexpr std::size_t page = 4096;

TableDef UnMemo(const char* name = "Notes") {
  return {.name = name,
          .fields = {Champ("N", FieldType::Long), Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

TEST(JetWriter, ReadsBackEveryValueOfEveryType) {
  const TempFolder folder;
  const WrittenFile file(folder / "all.mdb");
  const TableDef table = TousLesTypes();
  const std::vector<Row> rows = LignesExtremes();
  MadeRows source = Source(rows);
  EXPECT_EQ(file.Ecrit(table, source), 5);
  const std::vector<Row> read = file.Relit(table);
  ASSERT_EQ(read.size(), rows.size());
  for (std::size_t r = 0; r < rows.size(); ++r) {
    const Row expected = Relue(rows[r]);
    for (std::size_t f = 0; f < expected.size(); ++f) {
      EXPECT_EQ(read[r][f], expected[f]) << "row " << r << " " << table.fields[f].name;
    }
  }
}

TEST(JetWriter, DeclaresTheColumnsThatWereAskedFor) {
  const TempFolder folder;
  const WrittenFile file(folder / "all.mdb");
  file.database->CreeTable(TousLesTypes());
  const auto read = CreeFormatJet()->Ouvre(file.path);
  const TableDef table = TableDe(*read, "All types");
  const TableDef wanted = TousLesTypes();
  ASSERT_EQ(table.fields.size(), wanted.fields.size());
  for (std::size_t i = 0; i < wanted.fields.size(); ++i) {
    EXPECT_EQ(table.fields[i].name, wanted.fields[i].name);
    EXPECT_EQ(table.fields[i].type, wanted.fields[i].type) << wanted.fields[i].name;
    EXPECT_EQ(table.fields[i].size, wanted.fields[i].size) << wanted.fields[i].name;
  }
  EXPECT_EQ(table.attributes, 0U);
  std::vector<std::string> system;
  for (const TableDef& s : read->SystemTables()) system.push_back(s.name);
  EXPECT_EQ(system, (std::vector<std::string>{"MSysObjects", "MSysACEs", "MSysQueries",
                                              "MSysRelationships"}));
  EXPECT_TRUE(read->Queries().empty());
}

TEST(JetWriter, WritesTablesOfAnyLength) {
  const TempFolder folder;
  for (const std::size_t count : {0U, 1U, 254U, 255U, 256U, 10000U}) {
    SCOPED_TRACE(count);
    const WrittenFile file(folder / (std::to_string(count) + ".mdb"));
    MadeRows source(count, [](std::size_t i) {
      return Row{static_cast<std::int64_t>(i), std::string(i % 300, 'a')};
    });
    EXPECT_EQ(file.Ecrit(UnMemo(), source), static_cast<std::int64_t>(count));
    const std::vector<Row> read = file.Relit(UnMemo());
    ASSERT_EQ(read.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_EQ(read[i], (Row{static_cast<std::int64_t>(i), std::string(i % 300, 'a')}));
    }
    EXPECT_EQ(fs::file_size(file.path) % page, 0U);
  }
}

TEST(JetWriter, KeepsMemosOfAnyLength) {
  const TempFolder folder;
  const WrittenFile file(folder / "memo.mdb");
  std::vector<Row> rows;
  const auto add = [&](std::size_t units, const std::string& character) {
    const std::size_t each = character == "🦔" ? 2 : 1;
    std::string text;
    for (std::size_t i = 0; i < units; i += each) text += character;
    rows.push_back({static_cast<std::int64_t>(units), text});
  };
  for (const std::size_t units :
       {0U,  1U,    2U,    3U,    31U,   32U,   33U,   62U,   63U,   64U,
        65U, 1023U, 1024U, 1025U, 2000U, 2038U, 2039U, 4074U, 5000U, 100000U}) {
    for (const char* character : {"a", "é", "Ł", "🦔"}) add(units, character);
  }
  add(5'000'000, "🦔");
  MadeRows source = Source(rows);
  file.Ecrit(UnMemo(), source);
  const std::vector<Row> read = file.Relit(UnMemo());
  ASSERT_EQ(read.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_TRUE(read[i] == rows[i]) << "row " << i;  // the texts are too long to be shown
  }
}

TEST(JetWriter, KeepsATextThatLooksLikeTheShortForm) {
  const TempFolder folder;
  const WrittenFile file(folder / "bom.mdb");
  const std::vector<Row> rows = {{std::int64_t{1}, "\uFEFFbee"}, {std::int64_t{2}, "\uFEFF"}};
  MadeRows source = Source(rows);
  file.Ecrit(UnMemo(), source);
  EXPECT_EQ(file.Relit(UnMemo()), rows);
}

// More pages than a map has bits on one page.
TEST(JetWriter, FindsThePagesOfALargeFile) {
  const TempFolder folder;
  const WrittenFile file(folder / "large.mdb");
  const TableDef table{
      .name = "Pictures", .fields = {Champ("Bytes", FieldType::Binary)}, .indexes = {}};
  constexpr std::size_t count = 70, length = 2'000'000;
  const auto bytes = [](std::size_t i) { return std::string(length, static_cast<char>(i)); };
  MadeRows source(count, [&](std::size_t i) { return Row{bytes(i)}; });
  file.Ecrit(table, source);
  EXPECT_GT(fs::file_size(file.path), 32736 * page);
  const auto read = CreeFormatJet()->Ouvre(file.path);
  const auto rows = read->Rows("Pictures");
  std::vector<Cell> cells(1);
  for (std::size_t i = 0; i < count; ++i) {
    ASSERT_TRUE(rows->Suivante(cells));
    EXPECT_TRUE(cells[0].text == bytes(i)) << i;
  }
  EXPECT_FALSE(rows->Suivante(cells));
}

TEST(JetWriter, HoldsSeveralTables) {
  const TempFolder folder;
  const WrittenFile file(folder / "several.mdb");
  for (const char* name : {"Datum", "Ellipsoid"}) {
    MadeRows source = Source({{std::int64_t{1}, name}});
    file.Ecrit(UnMemo(name), source);
  }
  EXPECT_EQ(file.Relit(UnMemo("Datum")), (std::vector<Row>{{std::int64_t{1}, "Datum"}}));
  EXPECT_EQ(file.Relit(UnMemo("Ellipsoid")), (std::vector<Row>{{std::int64_t{1}, "Ellipsoid"}}));
}

TEST(JetWriter, HoldsAsManyColumnsAsTheFormat) {
  const TempFolder folder;
  const WrittenFile file(folder / "columns.mdb");
  TableDef table{.name = "Wide", .fields = {}, .indexes = {}};
  Row row;
  for (int i = 0; i < 255; ++i) {
    table.fields.push_back(Champ(("Column number " + std::to_string(i)).c_str(),
                                 i % 2 == 0 ? FieldType::Text : FieldType::Memo,
                                 i % 2 == 0 ? 20 : 0));
    row.emplace_back(std::to_string(i));
  }
  MadeRows source = Source({row, Row(255), row});
  file.Ecrit(table, source);
  EXPECT_EQ(file.Relit(table), (std::vector<Row>{row, Row(255), row}));
  table.name = "Wider";
  table.fields.push_back(Champ("One more", FieldType::Long));
  EXPECT_EQ(Numero([&] { file.database->CreeTable(table); }), ErrorNumber::TooManyFields);
}

TEST(JetWriter, NumbersRowsOfAnAutoNumberColumn) {
  const TempFolder folder;
  const WrittenFile file(folder / "numbered.mdb");
  TableDef table = UnMemo();
  table.fields[0].autoIncrement = true;
  MadeRows source = Source({{Value(), "a"}, {std::int64_t{10}, "b"}, {Value(), "c"}});
  file.Ecrit(table, source);
  EXPECT_EQ(
      file.Relit(table),
      (std::vector<Row>{{std::int64_t{1}, "a"}, {std::int64_t{10}, "b"}, {std::int64_t{11}, "c"}}));
}

// --- refusals --------------------------------------------------------------------------------

TEST(JetWriter, RowsBeforeARefusedOneStay) {
  const TempFolder folder;
  const TableDef table{.name = "T", .fields = {Champ("A", FieldType::Text, 5)}, .indexes = {}};
  const WrittenFile file(folder / "refused.mdb");
  // Five characters, but ten of the units that the format counts.
  MadeRows source = Source({{"first"}, {"two"}, {"🦔🦔🦔🦔🦔"}, {"four"}});
  EXPECT_EQ(Numero([&] { file.Ecrit(table, source); }), ErrorNumber::FieldTooSmall);
  EXPECT_EQ(file.Relit(table), (std::vector<Row>{{"first"}, {"two"}}));
}

TEST(JetWriter, RowsBeforeAFailureOfTheSourceStay) {
  const TempFolder folder;
  const WrittenFile file(folder / "source.mdb");
  MadeRows source(100, [](std::size_t i) -> Row {
    if (i == 70) throw TalpenaError(ErrorNumber::Cancelled, "Cancel.");
    return {static_cast<std::int64_t>(i), "memo"};
  });
  EXPECT_EQ(Numero([&] { file.Ecrit(UnMemo(), source); }), ErrorNumber::Cancelled);
  EXPECT_EQ(file.Relit(UnMemo()).size(), 70U);
  EXPECT_EQ(file.database->NombreLignes("notes"), 70);
}

TEST(JetWriter, RefusesARowThatFitsOnNoPage) {
  const TempFolder folder;
  const WrittenFile file(folder / "wide.mdb");
  TableDef table{.name = "T", .fields = {}, .indexes = {}};
  Row row;
  for (int i = 0; i < 20; ++i) {
    table.fields.push_back(Champ(std::to_string(i).c_str(), FieldType::Text, 255));
    row.emplace_back(std::string(255, 'x'));
  }
  MadeRows source = Source({Row(20), row});
  EXPECT_EQ(Numero([&] { file.Ecrit(table, source); }), ErrorNumber::RecordTooLarge);
  EXPECT_EQ(file.Relit(table).size(), 1U);
}

TEST(JetWriter, RefusesNamesThatTheFormatCannotHave) {
  EXPECT_TRUE(EstNomJet("my bees 2003"));
  EXPECT_TRUE(EstNomJet(std::string(64, 'x')));
  EXPECT_TRUE(EstNomJet("Papillons de l'été"));
  const TempFolder folder;
  const WrittenFile file(folder / "names.mdb");
  const std::string before = LitFichier(file.path);
  for (const std::string& name : {std::string(65, 'x'), std::string("a!"), std::string("a`"),
                                  std::string("[a"), std::string("a]"), std::string(" a"),
                                  std::string("a.b"), std::string("a\tb"), std::string()}) {
    EXPECT_EQ(Numero([&] { file.database->CreeTable(UnMemo(name.c_str())); }),
              ErrorNumber::InvalidName)
        << name;
  }
  EXPECT_TRUE(LitFichier(file.path) == before) << "before anything is written";
}

TEST(JetWriter, RefusesColumnsThatMakeNoSense) {
  const TempFolder folder;
  const WrittenFile file(folder / "columns.mdb");
  const auto number = [&](std::vector<FieldDef> fields) {
    return Numero([&] {
      file.database->CreeTable({.name = "T", .fields = std::move(fields), .indexes = {}});
    });
  };
  EXPECT_EQ(number({}), ErrorNumber::InvalidArgument);
  EXPECT_EQ(number({Champ("X", FieldType::Long), Champ("x", FieldType::Long)}),
            ErrorNumber::InvalidArgument);
  EXPECT_EQ(number({Champ("A", FieldType::Text, 0)}), ErrorNumber::InvalidArgument);
  EXPECT_EQ(number({Champ("A", FieldType::Text, 256)}), ErrorNumber::InvalidArgument);
  EXPECT_EQ(number({Champ("a!", FieldType::Long)}), ErrorNumber::InvalidName);
  EXPECT_TRUE(file.database->Tables().empty());
}

TEST(JetWriter, MakesATableOnce) {
  const TempFolder folder;
  const WrittenFile file(folder / "once.mdb");
  file.database->CreeTable(UnMemo("Bees"));
  EXPECT_EQ(Numero([&] { file.database->CreeTable(UnMemo("BEES")); }), ErrorNumber::TableExists);
}

TEST(JetWriter, MakesNoIndexes) {
  const TempFolder folder;
  const WrittenFile file(folder / "index.mdb");
  TableDef table = UnMemo();
  table.indexes = {{"PrimaryKey", {"N"}, true, true}};
  EXPECT_EQ(Numero([&] { file.database->CreeTable(table); }), ErrorNumber::NotSupported);
}

TEST(JetWriter, RefusesMoreTablesThanTheCatalogueHolds) {
  const TempFolder folder;
  const WrittenFile file(folder / "many.mdb");
  int made = 0;
  const int number = Numero([&] {
    for (; made < 1000; ++made) {
      file.database->CreeTable(UnMemo(("A table of the number " + std::to_string(made)).c_str()));
    }
  });
  EXPECT_EQ(number, ErrorNumber::NotSupported);
  EXPECT_GT(made, 20);
  EXPECT_EQ(CreeFormatJet()->Ouvre(file.path)->Tables().size(), static_cast<std::size_t>(made));
}

TEST(JetWriter, LeavesAFileThatIsThereAlone) {
  const TempFolder folder;
  EcritFichier(folder / "there.mdb", "mine");
  EXPECT_EQ(Numero([&] { WrittenFile(folder / "there.mdb"); }), ErrorNumber::FileExists);
  EXPECT_EQ(LitFichier(folder / "there.mdb"), "mine");
  EXPECT_EQ(Numero([&] { WrittenFile(folder / "no/folder.mdb"); }), ErrorNumber::PathNotFound);
}

TEST(JetWriter, KnowsTheGeneralOrderOnly) {
  const TempFolder folder;
  EXPECT_EQ(Numero([&] { CreeFormatJet()->Cree(folder / "x.mdb", {.langId = 0x0406}); }),
            ErrorNumber::InvalidArgument);
  EXPECT_TRUE(folder.Noms().empty());
}

// --- no more room ----------------------------------------------------------------------------

MadeRows SansFin() {
  return {1'000'000, [](std::size_t i) {
            return Row{static_cast<std::int64_t>(i), std::string(1500, 'x')};
          }};
}

/// That the rows which were taken are all there, and the last of them whole.
void VerifieEntier(const WrittenFile& file) {
  const std::vector<Row> read = file.Relit(UnMemo());
  EXPECT_EQ(static_cast<std::int64_t>(read.size()), file.database->NombreLignes("Notes"));
  ASSERT_GT(read.size(), 10U);
  EXPECT_EQ(read.back(), (Row{static_cast<std::int64_t>(read.size() - 1), std::string(1500, 'x')}));
  EXPECT_EQ(fs::file_size(file.path) % page, 0U);
}

TEST(JetWriter, StopsAtTheLimitOfTheFormat) {
  const TempFolder folder;
  constexpr std::size_t most = 800 * page;
  const WrittenFile file(folder / "limit.mdb", {.octetsFichier = most});
  MadeRows source = SansFin();
  EXPECT_EQ(Numero([&] { file.Ecrit(UnMemo(), source); }), ErrorNumber::InvalidArgument);
  EXPECT_EQ(fs::file_size(file.path), most);
  VerifieEntier(file);
}

TEST(JetWriter, AFullDiskLeavesAWholeFile) {
  const TinyDisk disk("size=2m");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of its own: " << disk.Refus();
  const WrittenFile file(disk / "full.mdb");
  MadeRows source = SansFin();
  EXPECT_EQ(Numero([&] { file.Ecrit(UnMemo(), source); }), ErrorNumber::DiskFull);
  EXPECT_GT(fs::file_size(file.path), std::size_t{1} << 20);
  VerifieEntier(file);
}

TEST(JetWriter, AFullDiskLeavesNoHalfDatabase) {
  const TinyDisk disk("size=32k");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of its own: " << disk.Refus();
  EXPECT_EQ(Numero([&] { WrittenFile(disk / "full.mdb"); }), ErrorNumber::DiskFull);
  EXPECT_TRUE(disk.Noms().empty());
}

TEST(JetWriter, ALimitOnFileSizesIsAFullDisk) {
  const TempFolder folder;
  const WrittenFile file(folder / "limited.mdb");
  MadeRows source = SansFin();
  {
    const FileLimit limit(std::size_t{1} << 20);
    EXPECT_EQ(Numero([&] { file.Ecrit(UnMemo(), source); }), ErrorNumber::DiskFull);
  }
  VerifieEntier(file);
}

}  // namespace
}  // namespace talpena
