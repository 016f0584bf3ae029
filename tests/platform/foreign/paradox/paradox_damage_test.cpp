// What is no Paradox table, and what was one.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/foreign/code_page.h"
#include "platform/foreign/paradox/paradox_files.h"

namespace talpena {
namespace {

using namespace test;
using namespace std::literals;

class ParadoxDamage : public testing::Test {
 protected:
  std::string Ecris(const std::string& bytes, const std::string& name = "t.db") const {
    const std::string path = folder_ / name;
    fs::remove(path);
    EcritFichier(path, bytes);
    return path;
  }

  const TempFolder folder_;
};

std::string Reel(const char* name) { return LitFichier((paradoxFolder / name).string()); }

TEST_F(ParadoxDamage, RefusesOtherFiles) {
  EXPECT_EQ(NumeroDeParadox("/nowhere/bees.db"), ErrorNumber::DatabaseNotFound);
  for (const std::string& bytes :
       {""s, "hello"s, std::string(5000, '\0'), std::string(5000, '\xFF')}) {
    EXPECT_EQ(NumeroDeParadox(Ecris(bytes)), ErrorNumber::UnrecognizedFormat);
  }
}

TEST_F(ParadoxDamage, DoesNotWaitForAPipe) {
  const std::string path = folder_ / "t.db";
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(NumeroDeParadox(path), ErrorNumber::UnrecognizedFormat);
  EXPECT_TRUE(CreeFormatParadox()->Ouvre(folder_.path().string())->Tables().empty());
}

TEST_F(ParadoxDamage, LeavesIndexesAlone) {
  NEEDS_PARADOX_FILES();
  EXPECT_EQ(NumeroDeParadox(Ecris(Reel("long.px"))), ErrorNumber::UnrecognizedFormat);
}

TEST_F(ParadoxDamage, SaysThatATableHasAPassword) {
  NEEDS_PARADOX_FILES();
  for (const auto& [name, place] : {std::pair{"STATES.DB", 0x25U}, std::pair{"long.db", 0x5CU}}) {
    std::string bytes = Reel(name);
    bytes[place] = 7;
    try {
      LitTableParadox(Ecris(bytes));
      ADD_FAILURE() << name;
    } catch (const TalpenaError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::UnrecognizedFormat);
      EXPECT_NE(error.description().find("password"), std::string::npos);
    }
  }
}

TEST_F(ParadoxDamage, SaysThatTheMemoFileIsMissing) {
  NEEDS_PARADOX_FILES();
  const std::string path = Ecris(Reel("memo.db"));
  try {
    LitTableParadox(path);
    ADD_FAILURE();
  } catch (const TalpenaError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::UnrecognizedFormat);
    EXPECT_NE(error.description().find("memo file"), std::string::npos);
  }
  Ecris(Reel("memo.mb"), "T.MB");
  EXPECT_EQ(LitTableParadox(path).size(), 2U) << "whatever the case of its name";
}

TEST_F(ParadoxDamage, ReadsByTheCodePageOfTheHead) {
  NEEDS_PARADOX_FILES();
  std::string bytes = Reel("CUSTOMER.DB");
  const std::size_t name = bytes.find("Luke");
  bytes[name] = '\x80';
  const auto read = [&](char low, char high) {
    bytes[0x6A] = low;
    bytes[0x6B] = high;
    fs::copy_file(paradoxFolder / "CUSTOMER.MB", folder_ / "t.mb",
                  fs::copy_options::overwrite_existing);
    return std::get<std::string>(LitTableParadox(Ecris(bytes))[0][1]);
  };
  EXPECT_EQ(read('\xE4', '\x04'), "€uke") << 1252;
  EXPECT_EQ(read('\xB5', '\x01'), "Çuke") << 437;
  EXPECT_EQ(read(0, 0), "Çuke") << "437 when none is given";
  EXPECT_EQ(read('\x62', '\x03'), "Аuke") << 866;
  EXPECT_EQ(read('\x99', '\x99'), "Çuke") << "nor when it is not known";
  bytes[name] = '\x81';
  EXPECT_EQ(read('\xE4', '\x04'), "\uFFFDuke") << "without a meaning";
}

/// A table of three blocks, the second of them emptied.
std::string TroisBlocs() {
  const WrittenTable table(
      {.name = "t", .fields = {Champ("a", FieldType::Text, 250)}, .indexes = {}});
  MadeRows rows(40, [](std::size_t i) { return Row{std::to_string(i)}; });
  table.Ecrit(rows);
  return LitFichier(table.Table());
}
constexpr std::size_t firstBlock = 2048, blockBytes = 4096, rowsInBlock = 16;

TEST_F(ParadoxDamage, FollowsTheBlocksInTheirOrder) {
  std::string bytes = TroisBlocs();
  bytes[firstBlock] = 3;  // 1, 3, 2
  bytes[firstBlock + blockBytes] = 0;
  bytes[firstBlock + 2 * blockBytes] = 2;
  const auto rows = LitTableParadox(Ecris(bytes));
  ASSERT_EQ(rows.size(), 40U);
  EXPECT_EQ(rows[16][0], Value("32"));
  EXPECT_EQ(rows[39][0], Value("31"));
}

TEST_F(ParadoxDamage, GoesOverABlockThatWasEmptied) {
  std::string bytes = TroisBlocs();
  bytes.replace(firstBlock + blockBytes + 4, 2, "\x06\xFF");  // minus one record
  bytes[6] = 24;
  EXPECT_EQ(LitTableParadox(Ecris(bytes)).size(), 24U);
}

TEST_F(ParadoxDamage, NoLoopOfBlocksHoldsIt) {
  std::string bytes = TroisBlocs();
  bytes[firstBlock + 2 * blockBytes] = 1;
  EXPECT_EQ(NumeroDeParadox(Ecris(bytes)), ErrorNumber::UnrecognizedFormat);
  bytes[firstBlock] = 1;
  EXPECT_EQ(NumeroDeParadox(Ecris(bytes)), ErrorNumber::UnrecognizedFormat);
}

TEST_F(ParadoxDamage, NeverLosesRowsInSilence) {
  const std::string whole = TroisBlocs();
  const auto changed = [&](std::size_t place, std::string_view bytes) {
    std::string table = whole;
    table.replace(place, bytes.size(), bytes);
    return NumeroDeParadox(Ecris(table));
  };
  EXPECT_EQ(changed(0, ""), 0);
  EXPECT_EQ(changed(firstBlock, "\x00"sv), ErrorNumber::UnrecognizedFormat) << "ends early";
  EXPECT_EQ(changed(firstBlock, "\x09"), ErrorNumber::UnrecognizedFormat) << "no such block";
  EXPECT_EQ(changed(firstBlock + 4, "\x00\x00"sv), ErrorNumber::UnrecognizedFormat) << "one record";
  EXPECT_EQ(changed(firstBlock + 4, "\xF0\x0F"), ErrorNumber::UnrecognizedFormat) << "beyond";
  EXPECT_EQ(changed(6, "\xFF\xFF\xFF\xFF"), ErrorNumber::UnrecognizedFormat) << "too many rows";
  EXPECT_EQ(changed(0x0C, "\x02"), ErrorNumber::UnrecognizedFormat) << "fewer blocks";
  EXPECT_EQ(changed(0x0C, "\xFF\xFF"), ErrorNumber::UnrecognizedFormat) << "more than the file";
  EXPECT_EQ(changed(0x00, "\xFB"), ErrorNumber::UnrecognizedFormat) << "width of a record";
  EXPECT_EQ(changed(0x02, "\x00\x00"sv), ErrorNumber::UnrecognizedFormat) << "no head";
  EXPECT_EQ(changed(0x02, "\xFF\xFF"), ErrorNumber::UnrecognizedFormat) << "head beyond the file";
  EXPECT_EQ(changed(0x05, "\x00"sv), ErrorNumber::UnrecognizedFormat) << "blocks of nothing";
  EXPECT_EQ(changed(0x21, "\x00"sv), ErrorNumber::UnrecognizedFormat) << "no columns";
  EXPECT_EQ(changed(0x21, "\xFF\xFF"), ErrorNumber::UnrecognizedFormat) << "too many columns";
  EXPECT_EQ(changed(0x78, "\x07"), ErrorNumber::UnrecognizedFormat) << "no such type";
  for (std::size_t size = 0; size < whole.size(); size += 97) {
    EXPECT_EQ(NumeroDeParadox(Ecris(whole.substr(0, size))), ErrorNumber::UnrecognizedFormat);
  }
}

/// A table with one memo of each kind, and its memo file.
std::pair<std::string, std::string> UneTableAvecMemos() {
  const WrittenTable table({.name = "t", .fields = {Champ("m", FieldType::Memo)}, .indexes = {}});
  table.Ecrit({{std::string(200, 'a')}, {std::string(5000, 'b')}, {std::string(300, 'c')}});
  return {LitFichier(table.Table()), LitFichier(table.Memos())};
}

TEST_F(ParadoxDamage, NoMemoIsTakenFromElsewhere) {
  const auto [table, memos] = UneTableAvecMemos();
  const std::size_t first = firstBlock + 6 + 100, second = first + 110;
  struct Change {
    bool inMemos;
    std::size_t place;
    std::string_view bytes;
  };
  constexpr std::size_t entry = 0x1000 + 12 + 5 * 63;
  const Change changes[] = {
      {false, first, "\x40"},                  // an entry that there is not
      {false, first, "\x3C"},                  // one that is free
      {false, first + 1, "\x00"sv},            // the head
      {false, first + 1, "\x20"},              // a block of one value
      {false, first + 4, "\x00\x01"sv},        // longer than its chunks
      {false, first + 4, "\xFF\xFF\xFF\xFF"},  // longer than all
      {false, second + 1, "\x10"},             // a block of small values
      {false, second + 3, "\x7F"},             // beyond the file
      {false, second + 4, "\x00\x30"sv},       // longer than its block
      {true, 0x1000, "\x04"},                  // a free block
      {true, 0x2000, "\x04"},
      {true, 0x2001, "\x01"},
      {true, entry, "\x01"},  // in the head of its block
      {true, entry, "\xFF"},  // beyond the block
  };
  const std::string path = Ecris(table);
  Ecris(memos, "t.mb");
  EXPECT_EQ(NumeroDeParadox(path), 0);
  for (const Change& change : changes) {
    std::string damaged = change.inMemos ? memos : table;
    damaged.replace(change.place, change.bytes.size(), change.bytes);
    Ecris(change.inMemos ? table : damaged);
    Ecris(change.inMemos ? damaged : memos, "t.mb");
    EXPECT_EQ(NumeroDeParadox(path), ErrorNumber::UnrecognizedFormat)
        << std::hex << change.inMemos << ' ' << change.place;
  }
}

// A million records that name one memo would fill any disk.
TEST_F(ParadoxDamage, AMemoIsNotHandedOutForEver) {
  const WrittenTable table({.name = "t", .fields = {Champ("m", FieldType::Memo)}, .indexes = {}});
  table.Ecrit({{std::string(5000, 'a')}, {"b"}, {"c"}, {"d"}});
  std::string damaged = LitFichier(table.Table());
  const std::size_t first = firstBlock + 6, bytes = 110;
  for (std::size_t row = 1; row < 4; ++row) {
    damaged.replace(first + row * bytes, bytes, damaged.substr(first, bytes));
  }
  Ecris(LitFichier(table.Memos()), "t.mb");
  EXPECT_EQ(NumeroDeParadox(Ecris(damaged)), ErrorNumber::UnrecognizedFormat);
}

TEST_F(ParadoxDamage, KeepsItsLimits) {
  const auto [table, memos] = UneTableAvecMemos();
  const std::string path = Ecris(table);
  Ecris(memos, "t.mb");
  EXPECT_EQ(NumeroDeParadox(path, {.octetsMemo = 5000}), 0);
  EXPECT_EQ(NumeroDeParadox(path, {.octetsMemo = 4999}), ErrorNumber::UnrecognizedFormat);
}

TEST_F(ParadoxDamage, AThousandFlippedFilesEndInRowsOrAMessage) {
  NEEDS_PARADOX_FILES();
  std::mt19937 random(14);
  const std::pair<std::string, std::string> files[] = {{Reel("CUSTOMER.DB"), Reel("CUSTOMER.MB")},
                                                       {Reel("memo.db"), Reel("memo.mb")},
                                                       {Reel("STATES.DB"), ""},
                                                       {Reel("AREACODE.DB"), ""}};
  const auto begun = std::chrono::steady_clock::now();
  int whole = 0;
  for (int i = 0; i < 1000; ++i) {
    auto [table, memos] = files[i % 4];
    const unsigned changes = 1U << random() % 8;
    for (unsigned c = 0; c < changes; ++c) {
      std::string& bytes = memos.empty() || random() % 4 != 0 ? table : memos;
      const std::size_t most = random() % 2 == 0 ? 600 : bytes.size();  // half of them in the head
      bytes[random() % most] = static_cast<char>(random());
    }
    Ecris(memos, "t.mb");
    const int number = NumeroDeParadox(Ecris(table));
    EXPECT_TRUE(number == 0 || number == ErrorNumber::UnrecognizedFormat) << i << ": " << number;
    whole += number == 0 ? 1 : 0;
  }
  EXPECT_GT(whole, 50);
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(60));
}

}  // namespace
}  // namespace talpena
