// What is no Access file, and what was one.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "platform/foreign/jet_files.h"
#include "platform/foreign/jet_format.h"
#include "platform/foreign/written_files.h"

namespace talpena {
namespace {

using namespace test;

/// Times that each file is damaged; TALPENA_DAMAGE=170 makes a thousand of them.
const int roundsOfDamage = [] {
  const char* asked = std::getenv("TALPENA_DAMAGE");
  return asked == nullptr ? 20 : std::max(std::atoi(asked), 1);
}();

class JetReaderDamage : public testing::Test {
 protected:
  std::string Ecris(const std::string& bytes) const {
    std::ofstream out(path_, std::ios::binary | std::ios::trunc);
    out << bytes;
    return path_;
  }
  void TearDown() override { fs::remove(path_); }

  const std::string path_ = testing::TempDir() + "jet_damage_" + std::to_string(getpid()) + ".mdb";
};

TEST_F(JetReaderDamage, NamesAMissingFile) {
  try {
    CreeFormatJet()->Ouvre("/nowhere/DATUM.MDB");
    ADD_FAILURE();
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::DatabaseNotFound);
    EXPECT_EQ(e.description(), "Could not find file '/nowhere/DATUM.MDB'.");
  }
  EXPECT_FALSE(CreeFormatJet()->Reconnait("/nowhere/DATUM.MDB", ""));
}

TEST_F(JetReaderDamage, RefusesOtherFiles) {
  EXPECT_EQ(NumeroDe(Ecris("")), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(Ecris("hello")), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(Ecris(std::string(100000, '\0'))), ErrorNumber::UnrecognizedFormat);
  EXPECT_FALSE(CreeFormatJet()->Reconnait(path_, ""));
  EXPECT_EQ(NumeroDe(testing::TempDir()), ErrorNumber::UnrecognizedFormat);
  try {
    CreeFormatJet()->Ouvre(Ecris("x"));
    ADD_FAILURE();
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.description(), "Unrecognized database format '" + path_ + "'.");
  }
}

TEST_F(JetReaderDamage, DoesNotWaitForAPipe) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  EXPECT_FALSE(CreeFormatJet()->Reconnait(path_, ""));
  EXPECT_EQ(NumeroDe(path_), ErrorNumber::UnrecognizedFormat);
}

TEST_F(JetReaderDamage, RefusesAHeadWithoutABody) {
  NEEDS_SHARED_DATA();
  const std::string head = Lis(mdbFolder / "testV1997.mdb").substr(0, 2048);
  EXPECT_EQ(NumeroDe(Ecris(head)), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(Ecris(head + std::string(60 * 2048, '\0'))), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(Ecris(head + std::string(60 * 2048, '\xFF'))),
            ErrorNumber::UnrecognizedFormat);
}

TEST_F(JetReaderDamage, KeepsItsLimits) {
  NEEDS_SHARED_DATA();
  const std::string path = (mdbFolder / "testIndexPropertiesV2000.mdb").string();
  EXPECT_EQ(NumeroDe(path), 0);
  EXPECT_EQ(NumeroDe(path, {.octetsFichier = 200000}), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(path, {.tables = 5}), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(path, {.tables = 6}), 0);
  EXPECT_EQ(NumeroDe(path, {.autres = 3}), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(path, {.colonnes = 2}), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(path, {.colonnes = 3}), 0);
  EXPECT_EQ(NumeroDe(path, {.lignes = 10}), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(path, {.lignes = 11}), 0);
  const std::string memos = (mdbFolder / "DateTestDatabase.mdb").string();
  EXPECT_EQ(NumeroDe(memos, {.octetsMemo = 4}), ErrorNumber::UnrecognizedFormat);
}

TEST_F(JetReaderDamage, NeverLosesRowsOfACutFileInSilence) {
  NEEDS_SHARED_DATA();
  for (const char* name : {"compIndexTestV2000.mdb", "indexTestV1997.mdb"}) {
    const std::string whole = Lis(mdbFolder / name);
    const std::size_t page = TaillePage(name);
    for (std::size_t pages = 0; pages * page < whole.size(); pages += 2) {
      const int number = NumeroDe(Ecris(whole.substr(0, pages * page)));
      // A page behind the last that is in use may go.
      if (number == 0) {
        EXPECT_EQ(Empreinte(path_), Empreinte((mdbFolder / name).string())) << name << ' ' << pages;
      } else {
        EXPECT_EQ(number, ErrorNumber::UnrecognizedFormat) << name << ' ' << pages;
      }
    }
    EXPECT_EQ(NumeroDe(Ecris(whole.substr(0, whole.size() - 1))), ErrorNumber::UnrecognizedFormat);
  }
}

/// A file with bytes changed at random, always the same ones for a seed.
std::string Abime(std::string bytes, unsigned seed, int changes) {
  std::mt19937 random(seed);
  for (int i = 0; i < changes; ++i) {
    const std::size_t at = random() % bytes.size();
    bytes[at] = static_cast<char>(random());
  }
  return bytes;
}

struct Runaway {
  const char* file;
  unsigned seed;
  int changes;
};

// Each sends the library round in circles, taking more memory with every turn.
constexpr Runaway runaways[] = {
    {"queryTestV1997.mdb", 82, 128},
    {"test2V2000.mdb", 96, 512},
};

TEST_F(JetReaderDamage, ADamagedFileTakesNeitherTimeNorMemory) {
  NEEDS_SHARED_DATA();
  for (const Runaway& c : runaways) {
    SCOPED_TRACE(c.file);
    const std::string path = Ecris(Abime(Lis(mdbFolder / c.file), c.seed, c.changes));
    const auto start = std::chrono::steady_clock::now();
    const int number = NumeroDe(path);  // what the library reads behind its own ends may save it
    EXPECT_TRUE(number == 0 || number == ErrorNumber::UnrecognizedFormat) << number;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8))
        << "five without progress, and what a busy machine adds";
  }
#ifndef TALPENA_SANITIZED  // that build gives the process four times as much
  rusage children{};
  getrusage(RUSAGE_CHILDREN, &children);
  rusage self{};
  getrusage(RUSAGE_SELF, &self);
  EXPECT_LT(children.ru_maxrss, self.ru_maxrss + 320 * 1024) << "kilobytes";
#endif
}

/// Number of columns in the definition of a table, which begins with 2, 1: page 2 is the catalogue.
void MetColonnes(std::string& bytes, std::size_t page, std::size_t pageSize, char columns) {
  const std::size_t at = page * pageSize + (pageSize == 4096 ? 45 : 25);
  bytes[at] = columns;
  bytes[at + 1] = 0;
}

TEST_F(JetReaderDamage, ATableWithoutColumnsIsDamaged) {
  NEEDS_SHARED_DATA();
  int damaged = 0;
  for (const char* name : {"indexTestV2003.mdb", "testV1997.mdb"}) {
    const std::string whole = Lis(mdbFolder / name);
    const std::size_t size = TaillePage(name);
    for (std::size_t page = 3; page * size < whole.size(); ++page) {
      if (whole.compare(page * size, 2, "\2\1") != 0) continue;
      std::string bytes = whole;
      MetColonnes(bytes, page, size, 0);
      const int number = NumeroDe(Ecris(bytes));
      EXPECT_TRUE(number == 0 || number == ErrorNumber::UnrecognizedFormat) << number;
      damaged += number != 0 ? 1 : 0;
      if (number != 0) continue;
      for (const TableDef& table : CreeFormatJet()->Ouvre(path_)->Tables()) {
        EXPECT_FALSE(table.fields.empty()) << table.name;
      }
    }
  }
  EXPECT_GE(damaged, 7) << "every user table";
}

TEST_F(JetReaderDamage, TwoColumnsOfOneNameAreDamaged) {
  NEEDS_SHARED_DATA();
  std::string bytes = Lis(mdbFolder / "testV1997.mdb");
  const auto tables = CreeFormatJet()->Ouvre((mdbFolder / "testV1997.mdb").string())->Tables();
  const std::string first = tables.front().fields[0].name;
  const std::string second = tables.front().fields[1].name;
  ASSERT_EQ(first.size(), second.size()) << first << ' ' << second;
  const std::string before(1, static_cast<char>(second.size()));
  for (std::size_t at = 0; (at = bytes.find(before + second, at)) != std::string::npos; ++at) {
    bytes.replace(at + 1, second.size(), first);
  }
  EXPECT_EQ(NumeroDe(Ecris(bytes)), ErrorNumber::UnrecognizedFormat);
}

TEST_F(JetReaderDamage, WhoWaitsIsCalledAndEndsTheReading) {
  NEEDS_SHARED_DATA();
  const auto format = CreeFormatJet();
  int calls = 0;
  format->SuitAttente([&] { return ++calls > 0; });
  const auto database = format->Ouvre((mdbFolder / "testV1997.mdb").string());
  EXPECT_GE(calls, 1);
  format->SuitAttente([] { return false; });
  std::vector<Cell> cells(9);
  try {
    database->Rows("Table1")->Suivante(cells);
    ADD_FAILURE();
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::Cancelled);
  }
  format->SuitAttente({});
  EXPECT_TRUE(database->Rows("Table1")->Suivante(cells)) << "it can be read anew";
}

/// Files of all kinds that are read, and one that the program wrote.
std::vector<std::string> Fichiers(const TempFolder& folder) {
  std::vector<std::string> files;
  for (const char* name : {"testV1997.mdb", "DateTestDatabase.mdb", "fixedTextTestV2000.mdb",
                           "queryTestV1997.mdb", "queryTestV2003.mdb"}) {
    files.push_back(Lis(mdbFolder / name));
  }
  const WrittenFile written(folder / "written.mdb");
  std::vector<Row> rows = LignesExtremes();
  for (Row& row : rows) row.back() = std::string(20'000, 'x');  // a memo on several pages
  MadeRows source = Source(rows);
  written.Ecrit(TousLesTypes(), source);
  files.push_back(Lis(written.path));
  return files;
}

// Every byte of a file may be any other: it is read, or it is damaged, and nothing else happens.
TEST_F(JetReaderDamage, SurvivesChangedBytes) {
  NEEDS_SHARED_DATA();
  const TempFolder folder;
  const std::vector<std::string> files = Fichiers(folder);
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  std::mt19937 random(1);
  const LimitesJet impatient{.processus = {.silence = std::chrono::milliseconds(500)}};
  int damaged = 0;
  for (const std::string& whole : files) {
    for (int round = 0; round < roundsOfDamage; ++round) {
      std::string bytes = whole;
      for (int k = 0; k <= round * 160 / roundsOfDamage; ++k) {
        const std::size_t at = 24 + random() % (bytes.size() - 24);
        bytes[at] = static_cast<char>(random());
      }
      const int number = NumeroDe(Ecris(bytes), impatient);
      EXPECT_TRUE(number == 0 || number == ErrorNumber::UnrecognizedFormat) << number;
      if (number != 0) ++damaged;
    }
  }
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_GT(damaged, 5);
}

}  // namespace
}  // namespace talpena
