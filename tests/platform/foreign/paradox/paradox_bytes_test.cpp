// Paradox tables that are written, byte by byte.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/paradox/paradox_files.h"

namespace talpena {
namespace {

using namespace test;
using namespace std::literals;

TableDef Abeilles() {
  return {.name = "bees",
          .fields = {Champ("Sex", FieldType::Text, 2), Champ("Number 1", FieldType::Long),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

struct Known {
  std::size_t place;
  std::string_view bytes;
};

void Attend(const std::string& bytes, const std::vector<Known>& known) {
  for (const Known& k : known) {
    EXPECT_EQ(bytes.substr(k.place, k.bytes.size()), k.bytes) << std::hex << k.place;
  }
}

// Expected: worked out by hand from the published descriptions of the format; what these leave
// open is as the real tables have it.
TEST(ParadoxBytes, ASmallTableByteByByte) {
  const WrittenTable table(Abeilles());
  EXPECT_EQ(table.Ecrit({{"m", std::int64_t{1}, "two"}, {"", std::int64_t{-2}, ""}}), 2);
  std::string bytes = LitFichier(table.Table());
  ASSERT_EQ(bytes.size(), 2048U + 4096U);
  bytes.replace(0x60, 4, 4, '\0');  // the moment
  std::string expected(bytes.size(), '\0');
  const std::vector<Known> known = {
      {0x00, "\x78\x00"sv},                          // a record has 2 + 8 + 110 bytes
      {0x02, "\x00\x08"sv},                          // the head 2048
      {0x04, "\x02"sv},                              // no key
      {0x05, "\x04"sv},                              // blocks of 4096 bytes
      {0x06, "\x02\x00\x00\x00"sv},                  // records
      {0x0A, "\x01\x00\x01\x00\x01\x00\x01\x00"sv},  // blocks in use, in the file, first, last
      {0x21, "\x03\x00"sv},                          // columns
      {0x25, "\x00\xFF\x00\xFF\x11"sv},              // a later head, and its sort order
      {0x39, "\x09\x01\x00"sv},                      // level 4; blocks once more
      {0x3E, "\x1F\x0F"sv},
      {0x51, "\xFE\x00"sv},  // end of the head
      {0x56, "\x20"sv},
      {0x58, "\x09\x01\x09\x01"sv},
      {0x64, "\x04\x00"sv},                  // columns and one
      {0x66, "\x97\x00"sv},                  // numbers of the columns, from 58 on
      {0x6A, "\xE4\x04\x01\x01\x9D\x00"sv},  // code page 1252; name of the order, from 58 on
      {0x78, "\x01\x02\x06\x08\x0C\x6E"sv},  // A2, N, M100
      {0x8E, "bees.db"sv},                   // behind four pointers
      {0xDD, "Sex\0Number 1\0Memo\0"sv},     // behind 79 bytes
      {0xEF, "\x01\x00\x02\x00\x03\x00"sv},
      {0xF5, "ANSII850\0"sv},
      {0x800, "\x00\x00\x00\x00\x78\x00"sv},  // the only block: its second record ends it
      {0x806, "m\0\xBF\xF0\0\0\0\0\0\0two"sv},
      {0x806 + 110 + 4, "\x03\x00\x00\x00"sv},  // bytes of the memo, all in the record
      {0x806 + 120, "\0\0\x3F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv}};
  for (const Known& k : known) expected.replace(k.place, k.bytes.size(), k.bytes);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    ASSERT_EQ(static_cast<unsigned char>(bytes[i]), static_cast<unsigned char>(expected[i]))
        << std::hex << i;
  }
}

TEST(ParadoxBytes, AMemoFileByteByByte) {
  const WrittenTable table(UnMemo());
  const std::string small(120, 's'), large(2049, 'l'), limit(2048, 'e');
  table.Ecrit({{small}, {large}, {limit}});
  const std::string memos = LitFichier(table.Memos());
  ASSERT_EQ(memos.size(), 3U * 4096U);
  Attend(memos, {{0, "\x00\x01\x00\x01\x00"sv},
                 {0x0B, "\x00\x10\x00\x10\x00\x10\x40\x00\x00\x08"sv},
                 {0x1000, "\x03\x01\x00"sv},                        // small ones
                 {0x1000 + 12 + 5 * 63, "\x15\x08\x01\x00\x08"sv},  // the last entry first
                 {0x1000 + 12 + 5 * 62, "\x1D\x80\x01\x00\x10"sv},
                 {0x1150, small},
                 {0x11D0, limit},
                 {0x2000, "\x02\x01\x00\x01\x08\x00\x00\x01\x00"sv},
                 {0x2009, large}});
  const std::string rows = LitFichier(table.Table());
  const std::size_t first = 2048 + 6, bytes = 110;
  Attend(rows, {{first, small.substr(0, 100)},
                {first + 100, "\x3F\x10\x00\x00\x78\x00\x00\x00\x01\x00"sv},
                {first + bytes, large.substr(0, 100)},
                {first + bytes + 100, "\xFF\x20\x00\x00\x01\x08\x00\x00\x01\x00"sv},
                {first + 2 * bytes + 100, "\x3E\x10\x00\x00\x00\x08\x00\x00\x01\x00"sv}});
  EXPECT_EQ(table.Relit(), (std::vector<Row>{{small}, {large}, {limit}}));
}

TEST(ParadoxBytes, AnEmptyTableIsWhole) {
  const WrittenTable table(Abeilles());
  table.database->CreeTable(table.definition);
  EXPECT_EQ(LitFichier(table.Table()).size(), 2048U);
  EXPECT_EQ(LitFichier(table.Memos()).size(), 4096U);
  EXPECT_TRUE(table.Relit().empty());
  EXPECT_EQ(table.database->NombreLignes("BEES"), 0);
}

}  // namespace
}  // namespace talpena
