// Workbooks with changed bytes end in rows or in a message, soon.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "platform/foreign/excel/workbooks.h"

namespace talpena {
namespace {

using namespace test;

/// Number of the failure that reading every row ends in; 0 for none.
int NumeroDeLecture(ForeignFormat& format, const std::string& path) {
  return Numero([&] {
    const auto database = format.Ouvre(path);
    for (const TableDef& table : database->Tables()) {
      const auto rows = database->Rows(table.name);
      std::vector<Cell> cells(table.fields.size());
      while (rows->Suivante(cells)) {
      }
    }
  });
}

struct Tally {
  int read = 0, refused = 0;
};

/// Reads a workbook with bytes changed at random, the same ones each time.
void LitAbime(ForeignFormat& format, const std::string& bytes, unsigned seed,
              const std::string& path, Tally& tally) {
  std::mt19937 random(seed);
  std::string changed = bytes;
  const unsigned changes = 1U << random() % 8;
  for (unsigned i = 0; i < changes; ++i) {
    changed[random() % changed.size()] = static_cast<char>(random());
  }
  if (random() % 8 == 0) changed.resize(random() % changed.size());
  EcritFichier(path, changed);
  const auto start = std::chrono::steady_clock::now();
  const int number = NumeroDeLecture(format, path);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)) << seed;
  EXPECT_TRUE(number == 0 || number == ErrorNumber::UnrecognizedFormat ||
              number == ErrorNumber::NotSupported || number == ErrorNumber::TooManyFields)
      << number << " by " << seed;
  ++(number == 0 ? tally.read : tally.refused);
}

TEST(ExcelDamage, AThousandChangedWorkbooksEndInRowsOrAMessage) {
  NEEDS_WORKBOOKS();
  const TempFolder folder;
  const auto format = CreeFormatExcel();
  Tally tally;
  for (const auto& entry : fs::directory_iterator(xlsFolder)) {
    const std::string bytes = LitFichier(entry.path().string());
    for (unsigned seed = 0; seed < 112; ++seed) {
      LitAbime(*format, bytes, seed, folder / "changed.xls", tally);
    }
  }
  EXPECT_EQ(tally.read + tally.refused, 1008);
  EXPECT_GT(tally.read, 100);
  EXPECT_GT(tally.refused, 100);
}

TEST(ExcelDamage, SoDoXlsxFiles) {
  const TempFolder folder;
  const WrittenSheet file(CreeFormatXlsx(), folder / "good.xlsx");
  const TableDef table{.name = "T",
                       .fields = {Champ("N", FieldType::Long), Champ("Memo", FieldType::Memo)},
                       .indexes = {}};
  MadeRows source(500, [](std::size_t i) {
    return Row{static_cast<std::int64_t>(i), "memo " + std::to_string(i)};
  });
  file.Ecrit(table, source);
  const std::string bytes = LitFichier(file.path);
  Tally tally;
  for (unsigned seed = 0; seed < 500; ++seed) {
    LitAbime(*file.format, bytes, seed, folder / "changed.xlsx", tally);
  }
  EXPECT_GT(tally.refused, 100);
}

TEST(ExcelDamage, NoRowOfACutFileIsLostInSilence) {
  NEEDS_WORKBOOKS();
  const TempFolder folder;
  const auto format = CreeFormatExcel();
  const std::string bytes = LitFichier((xlsFolder / "Test97.xls").string());
  const std::string whole = CellulesDeBiff((xlsFolder / "Test97.xls").string());
  for (std::size_t size = 0; size < bytes.size(); size += 97) {
    EcritFichier(folder / "cut.xls", bytes.substr(0, size));
    // What stands behind the workbook in its file may go.
    if (NumeroDeLecture(*format, folder / "cut.xls") == 0) {
      EXPECT_EQ(CellulesDeBiff(folder / "cut.xls"), whole) << size;
    }
  }
}

}  // namespace
}  // namespace talpena
