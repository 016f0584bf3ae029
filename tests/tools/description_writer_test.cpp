#include "carto/description_writer.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

TEST(EcritDescription, WritesThreeLinesAndTheItemsInTheirOrder) {
  const MapRow row{"test", "Carte d'été", Detail::Region, 9, 40.5F, 44, 35.5F, 4, -10.25F, 1, 2, -3,
                   2};
  EXPECT_EQ(EcritDescription(row),
            "Carte d'\xE9t\xE9\r\n"
            "test.ps\r\n"
            "test.png\r\n"
            "9\r\n"
            "40.5\r\n"
            "\"test\"\r\n"
            "44, 35.5\r\n"
            "4, -10.25\r\n"
            "1, 2\r\n"
            "0\r\n"
            "-3\r\n"
            "0, 0\r\n"
            "0, 0, 0, 0\r\n"
            "0\r\n");
}

}  // namespace
}  // namespace talpena
