// Tables and rows that do not go into dBase IV or FoxPro 2.5, and disks that fill: what was there
// stays, and files are whole or not there.
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "fakes/file_limit.h"
#include "fakes/tiny_disk.h"
#include "platform/foreign/dbase/dbf_files.h"

namespace talpena {
namespace {

using namespace test;

// --- Refusals ------------------------------------------------------------------------------------

TEST(DbaseRefusals, ATooLongTextEndsItAtItsRow) {
  for (const Product product : products) {
    const WrittenDbf file(product);
    MadeRows rows = Source({{"ab"}, {"éœ"}, {"abc"}, {"d"}});
    EXPECT_EQ(Numero([&] { file.Ecrit(UnTexte(2), rows); }), ErrorNumber::FieldTooSmall);
    EXPECT_EQ(file.Relit(UnTexte(2)), (std::vector<Row>{{"ab"}, {"éœ"}}));
    EXPECT_EQ(LitFichier(file.Fichier("t")).size(), 32U + 32 + 1 + 2 * 3 + 1);
  }
}

TEST(DbaseRefusals, ACharacterOutsideTheCodePageEndsItAtItsRow) {
  for (const Product product : products) {
    const WrittenDbf file(product);
    MadeRows rows = Source({{std::int64_t{1}, "Œuvre"}, {std::int64_t{2}, "Łódź"}});
    EXPECT_EQ(Numero([&] { file.Ecrit(UnMemo(), rows); }), ErrorNumber::NotInCodePage);
    EXPECT_EQ(file.Relit(UnMemo()), (std::vector<Row>{{1.0, "Œuvre"}}));
  }
}

TEST(DbaseRefusals, WhatHasNoRoomInANumberEndsItAtItsRow) {
  const TableDef wide{.name = "w", .fields = {Champ("A", FieldType::Double)}, .indexes = {}};
  const TableDef day{.name = "d", .fields = {Champ("A", FieldType::Date)}, .indexes = {}};
  const WrittenDbf file(Product::DbaseIV);
  MadeRows numbers = Source({{1.5}, {-1.2345678901234567e-300}});
  EXPECT_EQ(Numero([&] { file.Ecrit(wide, numbers); }), ErrorNumber::FieldTooSmall);
  EXPECT_EQ(file.Relit(wide), (std::vector<Row>{{1.5}}));
  MadeRows days = Source({{40000.0}, {40000.25}});
  EXPECT_EQ(Numero([&] { file.Ecrit(day, days); }), ErrorNumber::FieldTooSmall);
  EXPECT_EQ(file.Relit(day), (std::vector<Row>{{40000.0}}));
}

struct NameCase {
  const char* name;
  bool accepted;
};

constexpr NameCase nameCases[] = {
    {"Number 1", true}, {"free text", true},    {"ABCDEFGHIJ", true}, {"A_B", true},
    {"", false},        {"ABCDEFGHIJK", false}, {"1A", false},        {"_A", false},
    {" A", false},      {"Né", false},          {"A.B", false},       {"A-B", false},
};

TEST(DbaseRefusals, RefusesNamesThatAColumnCannotHave) {
  for (const NameCase& c : nameCases) {
    SCOPED_TRACE(c.name);
    const WrittenDbf file(Product::DbaseIV);
    const TableDef table{.name = "t", .fields = {Champ(c.name, FieldType::Long)}, .indexes = {}};
    EXPECT_EQ(Numero([&] { file.database->CreeTable(table); }),
              c.accepted ? 0 : ErrorNumber::InvalidName);
    EXPECT_EQ(file.folder.Noms().empty(), !c.accepted);
  }
}

TEST(DbaseRefusals, RefusesNamesThatBecomeOne) {
  const WrittenDbf file(Product::FoxPro25);
  const TableDef table{
      .name = "t",
      .fields = {Champ("Free text", FieldType::Memo), Champ("FREE_TEXT", FieldType::Long)},
      .indexes = {}};
  try {
    file.database->CreeTable(table);
    ADD_FAILURE();
  } catch (const TalpenaError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::InvalidName);
    EXPECT_EQ(error.words().about, (std::vector<std::string>{"Free text", "FREE_TEXT"}));
  }
  EXPECT_TRUE(file.folder.Noms().empty());
}

TEST(DbaseRefusals, RefusesDefinitionsThatTheFormatHasNoRoomFor) {
  const WrittenDbf file(Product::DbaseIV);
  const auto refused = [&](const TableDef& table) {
    const int number = Numero([&] { file.database->CreeTable(table); });
    EXPECT_TRUE(file.folder.Noms().empty());
    return number;
  };
  EXPECT_EQ(refused(UnTexte(255)), ErrorNumber::NotSupported);
  EXPECT_EQ(refused(UnTexte(0)), ErrorNumber::InvalidArgument);
  EXPECT_EQ(refused({.name = "t", .fields = {}, .indexes = {}}), ErrorNumber::InvalidArgument);
  EXPECT_EQ(refused({.name = "t", .fields = {Champ("B", FieldType::Binary)}, .indexes = {}}),
            ErrorNumber::NotSupported);
  TableDef many{.name = "t", .fields = {}, .indexes = {}};
  for (int i = 0; i < 256; ++i) {
    many.fields.push_back(Champ(("F" + std::to_string(i)).c_str(), FieldType::Boolean));
  }
  EXPECT_EQ(refused(many), ErrorNumber::TooManyFields);
  TableDef long_{.name = "t", .fields = {}, .indexes = {}};
  for (int i = 0; i < 16; ++i) {
    long_.fields.push_back(Champ(("F" + std::to_string(i)).c_str(), FieldType::Text, 254));
  }
  EXPECT_EQ(refused(long_), ErrorNumber::RecordTooLarge);
  TableDef indexed = UnTexte(1);
  indexed.indexes = {{.name = "i", .fields = {"A"}}};
  EXPECT_EQ(refused(indexed), ErrorNumber::NotSupported);
  TableDef elsewhere = UnTexte(1);
  elsewhere.name = "../t";
  EXPECT_EQ(refused(elsewhere), ErrorNumber::InvalidName);
}

TEST(DbaseRefusals, TouchesNoTableThatIsThere) {
  for (const char* name : {"notes.dbf", "NOTES.DBF"}) {
    const WrittenDbf file(Product::DbaseIV);
    EcritFichier(file.folder / name, "no table at all");
    EXPECT_EQ(Numero([&] { file.database->CreeTable(UnMemo()); }), ErrorNumber::TableExists);
    EXPECT_EQ(file.folder.Noms(), (std::vector<std::string>{name}));
    EXPECT_EQ(LitFichier(file.folder / name), "no table at all");
  }
}

TEST(DbaseRefusals, TouchesNoMemoFileThatIsThere) {
  const WrittenDbf file(Product::FoxPro25);
  EcritFichier(file.Memos("notes"), "somebody's");
  EXPECT_EQ(Numero([&] { file.database->CreeTable(UnMemo()); }), ErrorNumber::FileExists);
  EXPECT_EQ(file.folder.Noms(), (std::vector<std::string>{"notes.fpt"}));
  EXPECT_EQ(LitFichier(file.Memos("notes")), "somebody's");
}

TEST(DbaseRefusals, NeedsItsFolder) {
  const TempFolder folder;
  EXPECT_EQ(Numero([&] { CreeFormatDbase()->OuvrePourEcrire(folder / "nowhere/deg.dbf"); }),
            ErrorNumber::PathNotFound);
}

TEST(DbaseRefusals, TakesTheFileOfATableForItsFolder) {
  const TempFolder folder;
  const auto database = CreeFormatDbase()->OuvrePourEcrire(folder / "deg.dbf");
  database->CreeTable(UnTexte(1));
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"t.dbf"}));
}

// --- Full disks ----------------------------------------------------------------------------------

/// Rows without an end.
MadeRows SansBout() {
  return {std::numeric_limits<std::size_t>::max(), [](std::size_t i) {
            return Row{static_cast<std::int64_t>(i % 1000000), std::string(i % 700, 'a')};
          }};
}

/// The rows that are there are the first ones, and whole.
void VerifieEntier(const WrittenDbf& file) {
  const std::vector<Row> read = file.Relit(UnMemo());
  ASSERT_GT(read.size(), 100U);
  for (std::size_t i = 0; i < read.size(); ++i) {
    ASSERT_EQ(read[i], (Row{static_cast<double>(i), std::string(i % 700, 'a')}));
  }
  const std::string bytes = LitFichier(file.Fichier("notes"));
  EXPECT_EQ(bytes.size(), 32U + 64 + 1 + read.size() * 22 + 1);
  EXPECT_EQ(bytes.back(), '\x1A');
}

TEST(DbaseRefusals, AFullDiskLeavesTheRowsBefore) {
  for (const Product product : products) {
    const TinyDisk disk("size=2m");
    if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of its own: " << disk.Refus();
    const WrittenDbf file(product, {}, disk / ".");
    MadeRows source = SansBout();
    EXPECT_EQ(Numero([&] { file.Ecrit(UnMemo(), source); }), ErrorNumber::DiskFull);
    VerifieEntier(file);
  }
}

TEST(DbaseRefusals, AFullDiskLeavesNoHalfTable) {
  const TinyDisk disk("size=4k");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of its own: " << disk.Refus();
  const WrittenDbf file(Product::DbaseIV, {}, disk / ".");
  EXPECT_EQ(Numero([&] { file.database->CreeTable(UnMemo()); }), ErrorNumber::DiskFull);
  EXPECT_TRUE(disk.Noms().empty());
}

TEST(DbaseRefusals, ALimitOnFileSizesIsAFullDisk) {
  const WrittenDbf file(Product::FoxPro25);
  MadeRows source = SansBout();
  {
    const FileLimit limit(std::size_t{1} << 20);
    EXPECT_EQ(Numero([&] { file.Ecrit(UnMemo(), source); }), ErrorNumber::DiskFull);
  }
  VerifieEntier(file);
}

TEST(DbaseRefusals, TheLimitOfTheFormatLeavesTheRowsBefore) {
  for (const Product product : products) {
    for (const std::size_t most : {20000U, 100000U, 1000001U}) {
      const WrittenDbf file(product, {.octetsFichier = most});
      MadeRows source = SansBout();
      EXPECT_EQ(Numero([&] { file.Ecrit(UnMemo(), source); }), ErrorNumber::InvalidArgument);
      if (most > 20000) VerifieEntier(file);
      EXPECT_LE(fs::file_size(file.Fichier("notes")), most);
      EXPECT_LE(fs::file_size(file.Memos("notes")), most);
    }
  }
}

TEST(DbaseRefusals, KeepsTheRowsBeforeWhereTheirSourceFails) {
  const WrittenDbf file(Product::DbaseIV);
  MadeRows source(10, [](std::size_t i) {
    if (i == 3) throw TalpenaError(ErrorNumber::Cancelled, "Cancel was selected.");
    return Row{static_cast<std::int64_t>(i), "m"};
  });
  EXPECT_EQ(Numero([&] { file.Ecrit(UnMemo(), source); }), ErrorNumber::Cancelled);
  EXPECT_EQ(file.Relit(UnMemo()).size(), 3U);
}

}  // namespace
}  // namespace talpena
