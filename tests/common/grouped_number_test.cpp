#include "common/grouped_number.h"

#include <gtest/gtest.h>

#include <limits>

namespace talpena {
namespace {

struct GroupCase {
  std::int16_t langue;
  std::int64_t value;
  const char* text;
};

constexpr GroupCase cases[] = {
    {1000, 0, "0"},
    {1000, 999, "999"},
    {1000, 1000, "1,000"},
    {1000, 3245, "3,245"},
    {1000, 123456, "123,456"},
    {1000, 1000000, "1,000,000"},
    {1000, -999, "-999"},
    {1000, -1234567, "-1,234,567"},
    {1000, std::numeric_limits<std::int64_t>::min(), "-9,223,372,036,854,775,808"},
    {0, 3245, "3\u202F245"},
    {0, 1000000, "1\u202F000\u202F000"},
    {3000, 3245, "3.245"},
    {4000, 3245, "3.245"},
    {5000, 3245, "3.245"},
};

TEST(NombreGroupe, SeparatesAsTheLanguageDoes) {
  for (const GroupCase& c : cases) EXPECT_EQ(NombreGroupe(c.langue, c.value), c.text) << c.langue;
}

}  // namespace
}  // namespace talpena
