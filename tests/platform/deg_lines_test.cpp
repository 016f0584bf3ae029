#include "platform/deg_lines.h"

#include <gtest/gtest.h>

#include <random>

#include "common/error_words.h"
#include "fakes/fake_files.h"
#include "fakes/memory_input.h"

namespace talpena {
namespace {

DegLines Ouvre(const std::string& bytes, std::size_t block = 1 << 20,
               DegLines::LineEnd end = DegLines::LineEnd::Cr) {
  static test::FakeFiles files;
  files.bloc = block;
  files.Pose("f", bytes);
  return DegLines(files.Ouvre("f"), end);
}

std::vector<std::string> Toutes(DegLines lines) {
  std::vector<std::string> all;
  for (std::string_view line; lines.Lit(line);) all.emplace_back(line);
  return all;
}

using Lines = std::vector<std::string>;

struct SplitCase {
  const char* name;
  std::string bytes;
  Lines lines;
};

const SplitCase splitCases[] = {
    {"CR LF", "a\r\nb\r\n", {"a", "b"}},
    {"CR", "a\rb\r", {"a", "b"}},
    {"both in one file", "a\rb\r\nc", {"a", "b", "c"}},
    {"LF stays in the text", "a\nb\r\nc", {"a\nb", "c"}},
    {"last line without an end", "a\r\nb", {"a", "b"}},
    {"two CR are an empty line", "a\r\rb", {"a", "", "b"}},
    {"LF CR", "a\n\rb", {"a\n", "b"}},
    {"CR LF LF", "a\r\n\nb", {"a", "\nb"}},
    {"CR as the last byte", "a\r", {"a"}},
    {"empty file", "", {}},
    {"one empty line", "\r\n", {""}},
    {"NUL is a character", std::string("a\0b\r\n\0", 6), {std::string("a\0b", 3), {"\0", 1}}},
    {"only LF", "\n\n\n", {"\n\n\n"}},
};

TEST(DegLines, EndAtCrAndCrLf) {
  for (const SplitCase& c : splitCases) {
    for (const std::size_t block : {std::size_t{1}, std::size_t{2}, std::size_t{1 << 20}}) {
      SCOPED_TRACE(std::string(c.name) + ", blocks of " + std::to_string(block));
      EXPECT_EQ(Toutes(Ouvre(c.bytes, block)), c.lines);
    }
  }
}

TEST(DegLines, EndAtLfTooWhereListsAreTypedByHand) {
  EXPECT_EQ(Toutes(Ouvre("a\nb\r\nc\rd", 3, DegLines::LineEnd::CrOrLf)),
            (Lines{"a", "b", "c", "d"}));
  EXPECT_EQ(Toutes(Ouvre("a\n\nb\n", 3, DegLines::LineEnd::CrOrLf)), (Lines{"a", "", "b"}));
}

TEST(DegLines, CountLinesAndBytes) {
  DegLines lines = Ouvre("ab\r\nc\rde");
  EXPECT_EQ(lines.Taille(), 8);
  std::string_view line;
  const std::int64_t positions[] = {4, 6, 8};
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(lines.Lit(line));
    EXPECT_EQ(lines.Numero(), i + 1);
    EXPECT_EQ(lines.Position(), positions[i]);
  }
  EXPECT_FALSE(lines.Lit(line));
  EXPECT_FALSE(lines.Lit(line)) << "the end stays the end";
}

TEST(DegLines, LongerThanABlockComeWhole) {
  const std::string longLine(700'000, 'x');
  EXPECT_EQ(Toutes(Ouvre("a\r\n" + longLine + "\r\nb\r\n")), (Lines{"a", longLine, "b"}));
}

TEST(DegLines, JoinedAgainGiveTheFile) {
  std::mt19937 random(1);
  for (int run = 0; run < 200; ++run) {
    std::string bytes;
    for (int i = 0; i < 300; ++i) bytes += "\r\nab\0"[random() % 5];
    // What a reader that looks at the file byte by byte finds.
    Lines expected;
    std::string current;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      if (bytes[i] != '\r') {
        current += bytes[i];
        continue;
      }
      expected.push_back(current);
      current.clear();
      if (i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
    }
    if (!current.empty()) expected.push_back(current);
    EXPECT_EQ(Toutes(Ouvre(bytes, 1 + random() % 40)), expected);
  }
}

std::string Echec(DegLines& lines, int number) {
  try {
    for (int i = 0; i < 100; ++i) lines.LitObligatoire();
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), number);
    return DescriptionErreur(1000, e);
  }
  ADD_FAILURE() << "nothing was raised";
  return {};
}

TEST(DegLines, SayWhereTheFileEndsTooSoon) {
  DegLines empty = Ouvre("");
  EXPECT_EQ(Echec(empty, ErrorNumber::InputPastEnd), "The file is empty; choose another one.");
  DegLines two = Ouvre("a\r\nb");
  EXPECT_EQ(Echec(two, ErrorNumber::InputPastEnd),
            "The file ends behind line 2, in its header; it is damaged, or no distribution file.");
}

TEST(DegLines, SayThatTheLinesEndInLfAlone) {
  DegLines lines = Ouvre("<TALPENA 2.0>\nWGS84\n<END>\n");
  EXPECT_EQ(Echec(lines, ErrorNumber::InputPastEnd),
            "The file ends behind line 1, in its header; it is damaged, or no distribution file.\n"
            "The lines of this file end in LF alone; those of a .deg file end in CR LF.");
}

TEST(DegLines, AboveTheLimitAreRefused) {
  DegLines lines = Ouvre("a\r\n" + std::string(MaxHeaderLine + 1, 'x') + "\r\n");
  EXPECT_EQ(Echec(lines, ErrorNumber::Overflow),
            "Line 2 of the file is longer than 1 MB; this is no distribution file.");
  DegLines onTheLimit = Ouvre(std::string(MaxHeaderLine, 'x'));
  EXPECT_EQ(onTheLimit.LitObligatoire().size(), MaxHeaderLine);
  DegLines row = Ouvre(std::string(MaxRowLine + 1, 'x'));
  row.Limite(MaxRowLine);
  EXPECT_EQ(Echec(row, ErrorNumber::Overflow),
            "Line 1 of the file is longer than 16 MB; this is no distribution file.");
}

TEST(DegLines, AboveTheLimitNameLfToo) {
  std::string bytes;
  while (bytes.size() <= MaxHeaderLine) bytes += "one more row of this file\n";
  DegLines lines = Ouvre(bytes);
  EXPECT_EQ(Echec(lines, ErrorNumber::Overflow),
            "Line 1 of the file is longer than 1 MB; this is no distribution file.\n"
            "The lines of this file end in LF alone; those of a .deg file end in CR LF.");
}

/// A file that never ends; reading all of it would never come back.
class EndlessFile : public InputFile {
 public:
  explicit EndlessFile(std::size_t& read) : read_(read) {}
  std::size_t Lit(std::span<char> buffer) override {
    std::fill(buffer.begin(), buffer.end(), 'x');
    read_ += buffer.size();
    return buffer.size();
  }
  std::int64_t Taille() const override { return 100 << 20; }

 private:
  std::size_t& read_;
};

TEST(DegLines, AboveTheLimitAreNotReadToTheirEnd) {
  std::size_t read = 0;
  DegLines lines(std::make_unique<EndlessFile>(read));
  EXPECT_NE(Echec(lines, ErrorNumber::Overflow), "");
  EXPECT_LT(read, 3 * MaxHeaderLine);
}

/// A file that another program goes on writing to.
class GrowingFile : public test::MemoryInput {
 public:
  using MemoryInput::MemoryInput;
  std::int64_t Taille() const override { return 6; }
};

TEST(DegLines, EndWhereTheFileEndedWhenItWasOpened) {
  DegLines lines(std::make_unique<GrowingFile>("a\r\nb\r\nc\r\nd\r\n", 4));
  std::string_view line;
  ASSERT_TRUE(lines.Lit(line));
  ASSERT_TRUE(lines.Lit(line));
  EXPECT_EQ(line, "b");
  EXPECT_FALSE(lines.Lit(line));
}

TEST(DegLines, TellThatTheLastOneLooksLikeManyThatEndInLf) {
  for (const auto& [text, lf] :
       {std::pair{"a\r\nb\nc\n", true}, {"a\r\nb\nc\r\n", false}, {"a\r\nb", false}}) {
    DegLines lines(std::make_unique<test::MemoryInput>(text));
    std::string_view line;
    while (lines.Lit(line)) {
    }
    EXPECT_EQ(lines.FinsLf(), lf) << text;
  }
}

TEST(DegLines, PassFailuresOfTheDiskOn) {
  test::FakeFiles files;
  files.Pose("f", "a\r\nb\r\nc\r\n");
  files.lectureJusqua = 4;
  DegLines lines(files.Ouvre("f"));
  EXPECT_NE(Echec(lines, ErrorNumber::DeviceFault), "");
}

}  // namespace
}  // namespace talpena
