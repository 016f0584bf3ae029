// Where a Paradox table ends: its blocks, its size, the disk.
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

#include "fakes/file_limit.h"
#include "fakes/tiny_disk.h"
#include "platform/foreign/paradox/paradox_files.h"
#include "platform/foreign/paradox/px_reader.h"

namespace talpena {
namespace {

using namespace test;

MadeRows SansFin(std::size_t bytes) {
  return {std::numeric_limits<std::size_t>::max(), [bytes](std::size_t i) {
            std::string text = std::to_string(i) + ' ';
            text.resize(bytes, 'x');
            return Row{text};
          }};
}

/// All rows are there, in their order, as both readers see it.
void VerifieEntier(const WrittenTable& table, std::size_t fewest) {
  const auto rows = table.Relit();
  EXPECT_GE(rows.size(), fewest);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto& text = std::get<std::string>(rows[i][0]);
    ASSERT_TRUE(text.starts_with(std::to_string(i) + ' ')) << i;
  }
  if (!pxDump.empty()) CompareParPxlib(table.Table(), table.definition.fields, rows);
}

TEST(ParadoxLimits, GoesOnInLargeBlocks) {
  const WrittenTable table(UnTexte(100), {.blocs = 17});
  MadeRows source(5000, [](std::size_t i) {
    std::string text = std::to_string(i) + ' ';
    text.resize(100, 'x');
    return Row{text};
  });
  EXPECT_EQ(table.Ecrit(source), 5000);
  VerifieEntier(table, 5000);
  const std::string head = LitFichier(table.Table()).substr(0, 0x78);
  EXPECT_EQ(head[0x05], 32) << "blocks of 32,768 bytes";
  EXPECT_EQ(head[0x39], 0x0B) << "level 5";
  EXPECT_EQ(fs::file_size(table.Table()), 2048U + 16U * 32768U);
}

TEST(ParadoxLimits, StopsAtTheLastBlock) {
  for (const int size : {100, 255}) {
    const WrittenTable table(UnTexte(size), {.blocs = 9});
    MadeRows source = SansFin(static_cast<std::size_t>(size));
    EXPECT_EQ(Numero([&] { table.Ecrit(source); }), ErrorNumber::InvalidArgument);
    VerifieEntier(table, 9U * (32762U / static_cast<std::size_t>(size)));
  }
}

TEST(ParadoxLimits, StopsAtTheLimitOfTheFormat) {
  const WrittenTable table(UnTexte(100), {.octetsFichier = 100000});
  MadeRows source = SansFin(100);
  EXPECT_EQ(Numero([&] { table.Ecrit(source); }), ErrorNumber::InvalidArgument);
  EXPECT_LE(fs::file_size(table.Table()), 100000U);
  VerifieEntier(table, 900);
}

TEST(ParadoxLimits, StopsAtTheLimitOfItsMemos) {
  for (const std::size_t bytes : {500U, 3000U}) {
    const WrittenTable table(UnMemo(), {.octetsFichier = 200000});
    MadeRows source = SansFin(bytes);
    EXPECT_EQ(Numero([&] { table.Ecrit(source); }), ErrorNumber::InvalidArgument);
    EXPECT_LE(fs::file_size(table.Memos()), 200000U);
    VerifieEntier(table, 40);
  }
}

TEST(ParadoxLimits, AFullDiskLeavesAWholeTable) {
  const TinyDisk disk("size=2m");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of its own: " << disk.Refus();
  for (const std::size_t bytes : {50U, 1500U, 5000U}) {
    const WrittenTable table(std::make_unique<TempFolder>(fs::path(disk / "x").parent_path()),
                             UnMemo(), {});
    MadeRows source = SansFin(bytes);
    EXPECT_EQ(Numero([&] { table.Ecrit(source); }), ErrorNumber::DiskFull);
    VerifieEntier(table, 100);
  }
}

TEST(ParadoxLimits, AFullDiskLeavesNoHalfTable) {
  const TinyDisk disk("size=4k");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of its own: " << disk.Refus();
  const auto database = CreeFormatParadox()->OuvrePourEcrire(fs::path(disk / "x").parent_path());
  EXPECT_EQ(Numero([&] { database->CreeTable(UnMemo()); }), ErrorNumber::DiskFull);
  EXPECT_TRUE(disk.Noms().empty());
}

TEST(ParadoxLimits, ALimitOnFileSizesIsAFullDisk) {
  const WrittenTable table(UnTexte(100));
  MadeRows source = SansFin(100);
  {
    const FileLimit limit(std::size_t{1} << 20);
    EXPECT_EQ(Numero([&] { table.Ecrit(source); }), ErrorNumber::DiskFull);
  }
  VerifieEntier(table, 10000);
}

}  // namespace
}  // namespace talpena
