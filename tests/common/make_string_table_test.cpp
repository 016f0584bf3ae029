// The build tool's refusals: every fault of a text file is named with its file and line.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "fakes/temp_folder.h"

namespace talpena {
namespace {

class MakeStringTable : public testing::Test {
 protected:
  /// The exit code of the tool over two files; what it printed goes to `printed_`.
  int Run(const std::string& first, const std::string& second) {
    test::EcritFichier(folder_ / "a.txt", first);
    test::EcritFichier(folder_ / "b.txt", second);
    const std::string command = "cd '" + folder_.path().string() +
                                "' && '" TALPENA_MAKE_STRING_TABLE
                                "' out.cpp 0=a.txt 1000=b.txt 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    printed_.clear();
    for (int c = 0; (c = std::fgetc(pipe)) != EOF;) printed_ += static_cast<char>(c);
    return WEXITSTATUS(pclose(pipe));
  }

  std::string Written() const { return test::LitFichier(folder_ / "out.cpp"); }

  test::TempFolder folder_;
  std::string printed_;
};

TEST_F(MakeStringTable, WritesBothBlocks) {
  EXPECT_EQ(Run("# heading\n\n1 = un\n2 = \xC3\xA9t\xC3\xA9\n", "1 = one\r\n2 = a \"b\"\\s\n"), 0);
  EXPECT_EQ(printed_, "");
  const std::string source = Written();
  EXPECT_NE(source.find("block0[] = {\n    {1, \"un\"},\n    {2, \"\\303\\251t\\303\\251\"},\n}"),
            std::string::npos);
  EXPECT_NE(source.find("block1000[] = {\n    {1, \"one\"},\n    {2, \"a \\\"b\\\" \"},\n}"),
            std::string::npos);
}

TEST_F(MakeStringTable, ResolvesTheEscapes) {
  EXPECT_EQ(Run("1 = \\sa\\nb\\_c\\\\d", "1 = x"), 0);
  EXPECT_NE(Written().find("{1, \" a\\012b\\302\\240c\\\\d\"}"), std::string::npos);
}

struct RefusedCase {
  const char* name;
  const char* first;
  const char* second;
  const char* message;
};

constexpr RefusedCase refusedCases[] = {
    {"no id", "1 = a\nb = c\n", "1 = a\n", "a.txt:2: a line begins with an id from 1 to 999\n"},
    {"id 0", "0 = a\n", "1 = a\n", "a.txt:1: a line begins with an id from 1 to 999\n"},
    {"id too high", "1000 = a\n", "1 = a\n", "a.txt:1: a line begins with an id from 1 to 999\n"},
    {"blank first", " 1 = a\n", "1 = a\n", "a.txt:1: a line begins with an id from 1 to 999\n"},
    {"no equals sign", "# c\n1 a\n", "1 = a\n", "a.txt:2: expected \"id = text\"\n"},
    {"no blank", "1 =a\n", "1 = a\n", "a.txt:1: expected \"id = text\"\n"},
    {"no text", "1 = \n", "1 = a\n", "a.txt:1: the text is empty\n"},
    {"blank behind", "1 = a \n", "1 = a\n",
     "a.txt:1: a blank at an end of the text is written \\s\n"},
    {"blank ahead", "1 =  a\n", "1 = a\n",
     "a.txt:1: a blank at an end of the text is written \\s\n"},
    {"unknown escape", "1 = a\\q\n", "1 = a\n", "a.txt:1: an escape is one of \\n \\s \\_ \\\\\n"},
    {"escape cut off", "1 = a\\\n", "1 = a\n", "a.txt:1: an escape is one of \\n \\s \\_ \\\\\n"},
    {"code page 1252", "1 = \xE9t\xE9\n", "1 = a\n",
     "a.txt:1: not UTF-8 text, or a control character\n"},
    {"control character", "1 = a\tb\n", "1 = a\n",
     "a.txt:1: not UTF-8 text, or a control character\n"},
    {"twice", "1 = a\n1 = b\n", "1 = a\n", "a.txt:2: id 1 does not ascend\n"},
    {"out of order", "2 = a\n1 = b\n", "1 = a\n", "a.txt:2: id 1 does not ascend\n"},
    {"missing in the second", "1 = a\n2 = b\n", "1 = a\n", "a.txt:2: id 2 is absent from b.txt\n"},
    {"missing in the first", "1 = a\n", "1 = a\n3 = b\n", "b.txt:2: id 3 is absent from a.txt\n"},
    {"nothing", "# only a comment\n", "1 = a\n", "a.txt: holds no text\n"},
};

TEST_F(MakeStringTable, NamesFileAndLineOfAFault) {
  for (const RefusedCase& c : refusedCases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Run(c.first, c.second), 1);
    EXPECT_EQ(printed_, c.message);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "out.cpp"));
  }
}

}  // namespace
}  // namespace talpena
