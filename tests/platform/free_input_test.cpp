#include "platform/free_input.h"

#include <gtest/gtest.h>

#include <cmath>

#include "common/talpena_error.h"
#include "fakes/memory_input.h"

namespace talpena {
namespace {

FreeInput Over(std::string_view text, std::size_t block = 1 << 20) {
  return FreeInput(std::make_unique<test::MemoryInput>(text, block));
}

template <typename Read>
int ErrorOf(Read&& read) {
  try {
    read();
  } catch (const TalpenaError& e) {
    return e.number();
  }
  return 0;
}

TEST(FreeInput, ReadsLinesOfAllEndsWhateverTheBlocks) {
  for (const std::size_t block : {1U, 2U, 3U, 4096U}) {
    FreeInput input = Over("one\r\ntwo\n\rfour, five\r\n1", block);
    EXPECT_EQ(input.Ligne(), "one");
    EXPECT_EQ(input.Ligne(), "two");
    EXPECT_EQ(input.Ligne(), "");
    EXPECT_EQ(input.Ligne(), "four, five");
    EXPECT_EQ(input.Simple(), 1);
    EXPECT_TRUE(input.Fini());
  }
}

TEST(FreeInput, TextIsCodePage1252) {
  FreeInput input = Over("Cr\xE8te\n\"\x80uro\"");
  EXPECT_EQ(input.Ligne(), "Crète");
  EXPECT_EQ(input.Chaine(), "€uro");
}

TEST(FreeInput, SeparatesByCommasBlanksAndLineEnds) {
  FreeInput input = Over("1,2 3\r\n4\n5\t6 , 7 \r\n\r\n  8,\n9");
  for (int i = 1; i <= 9; ++i) EXPECT_EQ(input.Simple(), i);
  EXPECT_TRUE(input.Fini());
}

TEST(FreeInput, NothingBetweenTwoCommasIsNothing) {
  FreeInput input = Over("1,,2,,\"\",,a");
  EXPECT_EQ(input.Entier(), 1);
  EXPECT_EQ(input.Simple(), 0);
  EXPECT_EQ(input.Entier(), 2);
  EXPECT_EQ(input.Chaine(), "");
  EXPECT_EQ(input.Chaine(), "");
  EXPECT_EQ(input.Chaine(), "");
  EXPECT_EQ(input.Chaine(), "a");
}

TEST(FreeInput, AQuotedTextMayHoldSeparators) {
  FreeInput input = Over("  \"a, b\r\nc\" , 5\n\"open");
  EXPECT_EQ(input.Chaine(), "a, b\r\nc");
  EXPECT_EQ(input.Simple(), 5);
  EXPECT_EQ(input.Chaine(), "open");
  EXPECT_TRUE(input.Fini());
}

TEST(FreeInput, AnUnquotedTextEndsAtACommaOrTheLineEnd) {
  FreeInput input = Over("Lambert Europe, 1\nNord \"2\"\r\n3\n\n4");
  EXPECT_EQ(input.Chaine(), "Lambert Europe");
  EXPECT_EQ(input.Entier(), 1);
  EXPECT_EQ(input.Chaine(), "Nord \"2\"");
  EXPECT_EQ(input.Entier(), 3);
  EXPECT_EQ(input.Chaine(), "") << "an empty line";
  EXPECT_EQ(input.Entier(), 4);
}

TEST(FreeInput, IntegersAreRoundedHalvesToEven) {
  FreeInput input = Over("2.5 3.5 -0.5 1E2 -32768 32767.4 1D1");
  for (const int value : {2, 4, 0, 100, -32768, 32767, 10}) EXPECT_EQ(input.Entier(), value);
}

TEST(FreeInput, RefusesWhatIsOutOfRange) {
  EXPECT_EQ(ErrorOf([] { Over("32767.5").Entier(); }), ErrorNumber::Overflow);
  EXPECT_EQ(ErrorOf([] { Over("-32769").Entier(); }), ErrorNumber::Overflow);
  EXPECT_EQ(ErrorOf([] { Over("1E39").Simple(); }), ErrorNumber::Overflow);
  EXPECT_EQ(ErrorOf([] { Over("1E999").Simple(); }), ErrorNumber::Overflow);
  EXPECT_EQ(Over("1E-60").Simple(), 0);
}

TEST(FreeInput, RefusesWhatIsNoNumber) {
  for (const char* text : {"abc", "1x", "--1", "1.2.3", "\"5\"", ".", "nan", "inf", "\x01"}) {
    EXPECT_EQ(ErrorOf([&] { Over(text).Simple(); }), ErrorNumber::TypeMismatch) << text;
    EXPECT_EQ(ErrorOf([&] { Over(text).Entier(); }), ErrorNumber::TypeMismatch) << text;
  }
}

TEST(FreeInput, RefusesToReadBehindTheEnd) {
  for (const char* text : {"", " \t", "\r\n \n"}) {
    EXPECT_EQ(ErrorOf([&] { Over(text).Simple(); }), ErrorNumber::InputPastEnd);
    EXPECT_EQ(ErrorOf([&] { Over(text).Entier(); }), ErrorNumber::InputPastEnd);
  }
  EXPECT_EQ(ErrorOf([] { Over("").Ligne(); }), ErrorNumber::InputPastEnd);
  EXPECT_EQ(ErrorOf([] { Over(" ").Chaine(); }), ErrorNumber::InputPastEnd);
}

TEST(FreeInput, BlanksBehindTheLastItemAreNoItem) {
  for (const char* rest :
       {"", " ", "\t\t", "\r\n", "\n\n\n", " \r\n \t\n", "\r\n\x1A", "\x1Ajunk"}) {
    const std::string text = std::string("7") + rest;
    FreeInput input = Over(text);
    EXPECT_EQ(input.Entier(), 7);
    EXPECT_TRUE(input.Fini()) << rest;
  }
  FreeInput input = Over("7 \r\n 8");
  EXPECT_EQ(input.Entier(), 7);
  EXPECT_FALSE(input.Fini());
}

TEST(FreeInput, CutsALineWithoutEndAndGoesOnBehindIt) {
  const std::string text = std::string(1 << 20, 'x') + "\n5";
  FreeInput line = Over(text);
  EXPECT_EQ(line.Ligne().size(), FreeInput::longest);
  EXPECT_EQ(line.Entier(), 5);
  FreeInput chaine = Over(text);
  EXPECT_EQ(chaine.Chaine().size(), FreeInput::longest);
  EXPECT_EQ(chaine.Entier(), 5);
}

}  // namespace
}  // namespace talpena
