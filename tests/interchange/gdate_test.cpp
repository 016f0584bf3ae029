#include "interchange/gdate.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

TEST(GDate, TurnsADateOfAReceiverIntoThatOfARow) {
  EXPECT_EQ(GDate("17-APR-02"), "2002/04/17");
  EXPECT_EQ(GDate("17-APR-81"), "1981/04/17");
  EXPECT_EQ(GDate("17-APR-80"), "2080/04/17");
  EXPECT_EQ(GDate("01-JAN-99"), "1999/01/01");
  EXPECT_EQ(GDate("31-DEC-00 23:59"), "2000/12/31");
}

TEST(GDate, WritesMonth00ForAnUnknownName) {
  EXPECT_EQ(GDate("17-AVR-02"), "2002/00/17");
  EXPECT_EQ(GDate("17-apr-02"), "2002/00/17");
  EXPECT_EQ(GDate("17-AP"), "2000/00/17");
}

TEST(GDate, TakesAnyText) {
  EXPECT_EQ(GDate(""), "2000/00/00");
  EXPECT_EQ(GDate("no date"), "2000/00/00");
  EXPECT_EQ(GDate("1"), "2000/00/01");
}

TEST(GDate, KnowsTwelveMonths) {
  EXPECT_EQ(MoisGarmin("JAN"), 1);
  EXPECT_EQ(MoisGarmin("DEC"), 12);
  EXPECT_EQ(MoisGarmin("Jan"), 0);
  EXPECT_EQ(MoisGarmin(""), 0);
}

TEST(GDate, TellsDatesOfItsFormFromOthers) {
  for (const char* text : {"17-APR-02", "01-JAN-99", "31-DEC-00 23:59", "17/APR/02"}) {
    EXPECT_TRUE(CommenceParDateGarmin(text)) << text;
  }
  for (const char* text : {"", "no date", "2002-04-17", "17.04.2002", "17-AVR-02", "17-apr-02",
                           "17-APR-2002", "17-APR-0", "00-APR-02", "32-APR-02", "7-APR-02"}) {
    EXPECT_FALSE(CommenceParDateGarmin(text)) << text;
  }
}

}  // namespace
}  // namespace talpena
