#include "store/cp1252_decode.h"

#include <gtest/gtest.h>

#include <random>

#include "common/text.h"

namespace talpena {
namespace {

TEST(DecodeCp1252, GivesTheTextOfTheCodePageForEveryByteAndLength) {
  std::mt19937 random(5);
  std::string text = "what was there before";
  for (int run = 0; run < 20'000; ++run) {
    std::string bytes;
    const std::size_t length = random() % 40;
    const unsigned top = run % 2 == 0 ? 256 : 128;
    for (std::size_t i = 0; i < length; ++i) bytes += static_cast<char>(random() % top);
    DecodeCp1252(bytes, text);
    ASSERT_EQ(text, Cp1252VersUtf8(bytes));
  }
}

}  // namespace
}  // namespace talpena
