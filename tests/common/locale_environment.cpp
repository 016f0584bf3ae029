// Runs a test program under the locale that TALPENA_TEST_LOCALE names, as a user's session would.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <stdexcept>
#include <string>

namespace {

class LocaleEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    const char* name = std::getenv("TALPENA_TEST_LOCALE");
    if (name == nullptr) return;
    if (std::setlocale(LC_ALL, name) == nullptr) GTEST_SKIP() << name << " is not installed";
    std::locale::global(std::locale(name));
    // Proof that the locale acts: both that are tested write a comma.
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    ASSERT_STREQ(text, "1,5");
  }
};

[[maybe_unused]] const auto* const environment =
    testing::AddGlobalTestEnvironment(new LocaleEnvironment);  // gtest owns it

}  // namespace
