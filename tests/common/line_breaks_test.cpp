// Line breaks of texts that come from outside.
#include "common/line_breaks.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

struct Broken {
  const char* given;
  const char* oneLine;
  const char* lines;
};

constexpr Broken texts[] = {
    {"", "", ""},
    {"plain \t text", "plain \t text", "plain \t text"},
    {"one\r\ntwo", "one two", "one\ntwo"},
    {"one\rtwo", "one two", "one\ntwo"},
    {"one\ntwo", "one two", "one\ntwo"},
    {"one\n\rtwo", "one  two", "one\n\ntwo"},
    {"\r\r\n\n", "   ", "\n\n\n"},
    {"one\vtwo\ftwo", "one two two", "one\ntwo\ntwo"},
    {"a\u2028b\u2029c\u0085d", "a b c d", "a\nb\nc\nd"},
    // Characters that begin with the same bytes.
    {"\u00A9 \u20AC \u2026 \u2027", "\u00A9 \u20AC \u2026 \u2027", "\u00A9 \u20AC \u2026 \u2027"},
    {"cut \xE2\x80", "cut \xE2\x80", "cut \xE2\x80"},
};

TEST(LineBreaks, BecomeBlanksInATextOfOneLine) {
  for (const Broken& text : texts) EXPECT_EQ(SurUneLigne(text.given), text.oneLine) << text.given;
}

TEST(LineBreaks, BecomeLfInATextOfSeveral) {
  for (const Broken& text : texts) EXPECT_EQ(AvecSautsLf(text.given), text.lines) << text.given;
}

}  // namespace
}  // namespace talpena
