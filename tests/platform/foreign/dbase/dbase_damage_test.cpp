// What is no dBase table, and what was one.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

#include "platform/foreign/dbase/dbf_files.h"

namespace talpena {
namespace {

using namespace test;
using namespace std::string_literals;

/// Goes over all values of a table without keeping them.
void Parcourt(const std::string& table, const std::string* memos) {
  dbase::TableBytes bytes{.path = "t.dbf", .rows = std::make_shared<MemoryBytes>(table)};
  if (memos != nullptr) bytes.memos = std::make_shared<MemoryBytes>(*memos);
  dbase::TableReader reader(bytes, {}, nullptr);
  std::vector<Cell> cells(reader.Definition("t").fields.size());
  const auto rows = reader.Lignes();
  while (rows->Suivante(cells)) {
  }
}

/// Number of the failure that reading a table ends in; 0 for none.
int NumeroDe(const std::string& table, const std::string* memos = nullptr,
             const LimitesDbase& limits = {}) {
  return Numero([&] { LitOctets(table, memos, {}, limits); });
}

MadeDbf Simple() { return {.fields = {{"A", 'C', 4}, {"N", 'N', 5}}, .rows = {" abcd   12"}}; }

TEST(DbaseDamage, RefusesOtherFiles) {
  EXPECT_EQ(NumeroDe(""), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe("\x03"), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(std::string(100000, '\0')), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(std::string(100000, '\x03')), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe("SQLite format 3\0"s + std::string(1000, '\0')),
            ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(Simple().Octets()), 0);
}

struct HeadCase {
  const char* name;
  std::size_t place;
  std::string bytes;
};

TEST(DbaseDamage, RefusesAHeadThatMakesNoSense) {
  const std::vector<HeadCase> cases = {
      {"Visual FoxPro", 0, "\x30"},
      {"an unknown kind", 0, "\x99"},
      {"rows beyond the file", 4, "\x02"},
      {"four thousand million rows", 4, "\xFF\xFF\xFF\xFF"},
      {"a head without columns", 8, "\x21\0"s},
      {"a head beyond the file", 8, "\xFF\xFF"},
      {"a head of no length", 8, "\0\0"s},
      {"rows of no length", 10, "\0\0"s},
      {"rows shorter than their columns", 10, "\x09\0"s},
      {"an unknown type", 32 + 11, "I"},
      {"a column without a name", 32, "\0"s},
      {"a name of blanks", 32, "  "},
      {"a column of no width", 32 + 32 + 16, "\0"s},
      {"the end mark first", 32, "\r"},
  };
  for (const HeadCase& c : cases) {
    SCOPED_TRACE(c.name);
    std::string bytes = Simple().Octets();
    bytes.replace(c.place, c.bytes.size(), c.bytes);
    EXPECT_EQ(NumeroDe(bytes), ErrorNumber::UnrecognizedFormat);
  }
}

TEST(DbaseDamage, RefusesATableThatWasCutShort) {
  const MadeDbf table{.fields = {{"A", 'C', 4}}, .rows = {" abcd", " efgh"}};
  const std::string whole = table.Octets();
  for (std::size_t size = 0; size < whole.size() - 1; ++size) {
    EXPECT_EQ(NumeroDe(whole.substr(0, size)), ErrorNumber::UnrecognizedFormat) << size;
  }
  EXPECT_EQ(NumeroDe(whole.substr(0, whole.size() - 1)), 0) << "the end mark may be missing";
}

TEST(DbaseDamage, RefusesAnEndMarkAmongTheRows) {
  const MadeDbf table{.fields = {{"A", 'C', 1}},
                      .rows = {" a",
                               "\x1A"
                               "b",
                               " c"}};
  EXPECT_EQ(NumeroDe(table.Octets()), ErrorNumber::UnrecognizedFormat);
}

MadeDbf TableAMemo(unsigned char version, const std::string& field) {
  return {.version = version, .fields = {{"M", 'M', 10}}, .rows = {" " + field}};
}

struct MemoCase {
  const char* name;
  unsigned char version;
  const char* field;
  std::string memos;
};

TEST(DbaseDamage, RefusesMemosThatCannotBe) {
  const std::string head3(512, '\0'), head4 = Rempli(std::string(20, '\0') + "\0\2"s, 512);
  const std::string headF = Rempli("\0\0\0\0\0\0\0\x40"s, 512);
  const std::vector<MemoCase> cases = {
      {"a block beyond the file", 0x83, "         7", head3 + "text\x1A"},
      {"the block right behind the file", 0x83, "         1", head3},
      {"a block that no number counts", 0x83, "9999999999", head3 + "text\x1A"},
      {"no number", 0x83, "     1a   ", head3 + "text\x1A"},
      {"a negative number", 0x83, "        -1", head3 + "text\x1A"},
      {"an empty file", 0x83, "         1", ""},
      {"a length beyond the file", 0x8B, "         1", head4 + "\xFF\xFF\x08\0\xFF\0\0\0text"s},
      {"a length of four thousand million", 0x8B, "         1",
       head4 + "\xFF\xFF\x08\0\xFF\xFF\xFF\xFFtext"s},
      {"a length below that of the head", 0x8B, "         1",
       head4 + "\xFF\xFF\x08\0\7\0\0\0text"s},
      {"FoxPro, a length beyond the file", 0xF5, "         8", headF + "\0\0\0\1\0\0\0\5text"s},
      {"FoxPro, a length of four thousand million", 0xF5, "         8",
       headF + "\0\0\0\1\xFF\xFF\xFF\xFFtext"s},
      {"FoxPro, half a head", 0xF5, "         8", headF + "\0\0\0\1\0"s},
      {"FoxPro, an empty file", 0xF5, "         8", ""},
  };
  for (const MemoCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(NumeroDe(TableAMemo(c.version, c.field).Octets(), &c.memos),
              ErrorNumber::UnrecognizedFormat);
  }
}

TEST(DbaseDamage, MemosThatLieOverOneAnotherHaveAnEnd) {
  const std::string memos = std::string(512, '\0') + std::string(100000, 'x') + "\x1A";
  MadeDbf table = TableAMemo(0x83, "         1");
  table.rows.resize(1000, table.rows.front());
  EXPECT_EQ(NumeroDe(table.Octets(), &memos, {.octetsMemos = 1000000}),
            ErrorNumber::UnrecognizedFormat);
  table.rows.resize(12);
  EXPECT_EQ(NumeroDe(table.Octets(), &memos, {.octetsMemos = 1000000}), 0);
}

TEST(DbaseDamage, TheMemosOfARowHaveABoundTogether) {
  const std::string memos = std::string(512, '\0') + std::string(60000, 'x') + "\x1A";
  const MadeDbf table{.version = 0x83,
                      .fields = {{"M", 'M', 10}, {"O", 'M', 10}},
                      .rows = {"          1         1"}};
  EXPECT_EQ(NumeroDe(table.Octets(), &memos, {.octetsMemo = 100000}),
            ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(NumeroDe(table.Octets(), &memos, {.octetsMemo = 120000}), 0);
}

// Every byte of a file may be any other: it is read, or it is damaged, and nothing else happens.
TEST(DbaseDamage, SurvivesChangedBytes) {
  NEEDS_DBF_FILES();
  struct Sample {
    const char* table;
    const char* memos;
  };
  constexpr Sample samples[] = {{"PYACFL.DBF", nullptr},
                                {"dbase_03.dbf", nullptr},
                                {"dbase_83.dbf", "dbase_83.dbt"},
                                {"dbase_8b.dbf", "dbase_8b.dbt"},
                                {"dbase_f5_redacted.dbf", "dbase_f5_redacted.fpt"},
                                {"provincias_es.dbf", nullptr}};
  std::mt19937 random(1);
  const auto abime = [&](std::string bytes, std::size_t head) {
    for (std::size_t n = 1 + random() % 8; n > 0; --n) {
      const std::size_t most = random() % 2 == 0 ? head : bytes.size();
      bytes[random() % most] = static_cast<char>(random());
    }
    return bytes;
  };
  const auto start = std::chrono::steady_clock::now();
  int damaged = 0;
  for (int i = 0; i < 1000; ++i) {
    const Sample& sample = samples[static_cast<std::size_t>(i) % std::size(samples)];
    const std::string table = abime(LitFichier((dbfFolder / sample.table).string()), 200);
    std::string memos;
    if (sample.memos != nullptr) {
      memos = abime(LitFichier((dbfFolder / sample.memos).string()), 24);
    }
    const int number = Numero([&] { Parcourt(table, sample.memos == nullptr ? nullptr : &memos); });
    EXPECT_TRUE(number == 0 || number == ErrorNumber::UnrecognizedFormat) << number;
    damaged += number != 0 ? 1 : 0;
  }
  EXPECT_GT(damaged, 100);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(120));
}

// --- Files on the disk ---------------------------------------------------------------------------

TEST(DbaseDamage, NamesAMissingFile) {
  EXPECT_EQ(Numero([] { CreeFormatDbase()->Ouvre("/nowhere/bees.dbf")->Tables(); }),
            ErrorNumber::DatabaseNotFound);
  EXPECT_FALSE(CreeFormatDbase()->Reconnait("/nowhere/bees.dbf", ""));
}

TEST(DbaseDamage, KnowsItsFilesWithoutBeingTold) {
  const TempFolder folder;
  EcritFichier(folder / "a", Simple().Octets());
  EcritFichier(folder / "b", "hello");
  EXPECT_TRUE(CreeFormatDbase()->Reconnait(folder / "a", ""));
  EXPECT_FALSE(CreeFormatDbase()->Reconnait(folder / "b", ""));
  EXPECT_FALSE(CreeFormatDbase()->Reconnait(folder.path(), ""));
  EXPECT_TRUE(CreeFormatDbase()->Reconnait(folder.path(), "dbase iv"));
  EXPECT_TRUE(CreeFormatFoxPro()->Reconnait(folder.path(), "FoxPro 2.5;"));
  EXPECT_FALSE(CreeFormatFoxPro()->Reconnait(folder.path(), "dBase IV;"));
}

TEST(DbaseDamage, AFolderShowsWhatCanBeRead) {
  const TempFolder folder;
  EcritFichier(folder / "good.dbf", Simple().Octets());
  EcritFichier(folder / "bad.dbf", "hello");
  EXPECT_EQ(mkfifo((folder / "pipe.dbf").c_str(), 0600), 0);
  const auto database = CreeFormatDbase()->Ouvre(folder.path());
  ASSERT_EQ(database->Tables().size(), 1U);
  EXPECT_EQ(database->Tables()[0].name, "good");
  EXPECT_EQ(Numero([&] { database->Rows("bad"); }), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(Numero([&] { database->Rows("none"); }), ErrorNumber::TableNotFound);
}

TEST(DbaseDamage, DoesNotWaitForAPipe) {
  const TempFolder folder;
  EXPECT_EQ(mkfifo((folder / "pipe.dbf").c_str(), 0600), 0);
  EXPECT_EQ(Numero([&] { CreeFormatDbase()->Ouvre(folder / "pipe.dbf")->Tables(); }),
            ErrorNumber::UnrecognizedFormat);
}

TEST(DbaseDamage, WritesNothingBesideAFileThatIsRead) {
  const TempFolder folder;
  EcritFichier(folder / "a.dbf", Simple().Octets());
  EcritFichier(folder / "a.mdx", "an index");
  fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
  const auto database = CreeFormatDbase()->Ouvre(folder.path());
  EXPECT_EQ(LitLignes(*database, "a", 2), (std::vector<Row>{{"abcd", 12.0}}));
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.dbf", "a.mdx"}));
  fs::permissions(folder.path(), fs::perms::owner_all);
}

TEST(DbaseDamage, LeavesNoFileOpen) {
  NEEDS_DBF_FILES();
  const auto open = [] {
    const fs::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
  };
  if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "no list of open files";
  const auto before = open();
  const auto database = CreeFormatDbase()->Ouvre(dbfFolder.string());
  for (const TableDef& table : database->Tables()) {
    std::vector<Cell> cells(table.fields.size());
    const auto rows = database->Rows(table.name);
    rows->Suivante(cells);
  }
  EXPECT_EQ(open(), before);
}

TEST(DbaseDamage, WhoWaitsIsCalledAndEndsTheReading) {
  const TempFolder folder;
  EcritFichier(folder / "a.dbf", Simple().Octets());
  const auto format = CreeFormatDbase();
  const auto database = format->Ouvre(folder.path());
  int calls = 0;
  format->SuitAttente([&] { return ++calls > 0; });
  EXPECT_EQ(LitLignes(*database, "a", 2).size(), 1U);
  EXPECT_GE(calls, 1);
  format->SuitAttente([] { return false; });
  EXPECT_EQ(Numero([&] { LitLignes(*database, "a", 2); }), ErrorNumber::Cancelled);
}

}  // namespace
}  // namespace talpena
