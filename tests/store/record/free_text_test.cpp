#include "store/record/free_text.h"

#include <gtest/gtest.h>

#include "store/record/date_mask.h"

namespace talpena::test {
namespace {

using Texts = std::vector<std::string>;

struct FreeTextCase {
  const char* name;
  const char* comment;
  std::size_t count;
  Texts fields;
  const char* remark;
};

TEST(DecoupeTexteLibre, PartsFieldsAndRemark) {
  const FreeTextCase cases[] = {
      {"whole", "a/b/c", 2, {"a", "b"}, "c"},
      {"no separator: all is remark", "abc", 2, {"", ""}, "abc"},
      {"surplus separators stay in the remark", "a/b/c/d/e", 2, {"a", "b"}, "c/d/e"},
      {"fewer separators: no remark", "a/b", 3, {"a", "b", ""}, ""},
      {"all empty", "//", 2, {"", ""}, ""},
      {"no free fields: all is remark", "a/b/c", 0, {}, "a/b/c"},
      {"blanks around it go", "  a/b/c  ", 2, {"a", "b"}, "c"},
      {"line breaks of the remark", "a//c\nd", 2, {"a", ""}, "c\r\nd"},
      {"line breaks without a separator", "c\nd", 2, {"", ""}, "c\r\nd"},
      {"empty", "", 2, {"", ""}, ""},
  };
  for (const FreeTextCase& c : cases) {
    SCOPED_TRACE(c.name);
    const FreeText text = DecoupeTexteLibre(c.comment, "/", c.count);
    EXPECT_EQ(text.fields, c.fields);
    EXPECT_EQ(text.remark, c.remark);
  }
}

TEST(DecoupeTexteLibre, TakesAnySeparator) {
  EXPECT_EQ(DecoupeTexteLibre("a§b§c", "§", 2).fields, (Texts{"a", "b"}));
  EXPECT_EQ(DecoupeTexteLibre("  remark", " ", 2).fields, (Texts{"", ""}));
  EXPECT_EQ(DecoupeTexteLibre("  remark", " ", 2).remark, "remark");
}

TEST(AssembleTexteLibre, JoinsFieldsAndRemark) {
  EXPECT_EQ(AssembleTexteLibre({"a", "b"}, "c\r\nd", "/"), "a/b/c\nd");
  EXPECT_EQ(AssembleTexteLibre({"", ""}, "", "/"), "//");
  EXPECT_EQ(AssembleTexteLibre({}, "a/b", "/"), "a/b");
}

TEST(AssembleTexteLibre, KnowsOneBreakAndOnlyInTheRemark) {
  EXPECT_EQ(AssembleTexteLibre({"a\r\nb", "c\rd\ne"}, "f\r\ng\nh\u2028i", "/"),
            "a b/c d e/f\ng\nh\ni");
}

TEST(AssembleTexteLibre, IsTheInverseOfDecoupe) {
  for (const char* comment : {"a/b/c\nd", "//", "a/b/c/d", "x//"}) {
    const FreeText text = DecoupeTexteLibre(comment, "/", 2);
    EXPECT_EQ(AssembleTexteLibre(text.fields, text.remark, "/"), comment);
  }
}

TEST(DateEnMasque, ShowsBlanksAsEmptyPlaces) {
  EXPECT_EQ(DateEnMasque("1998/07/14"), "1998/07/14");
  EXPECT_EQ(DateEnMasque("1998/07/  "), "1998/07/__");
  EXPECT_EQ(DateEnMasque("1998"), "1998/__/__");
  EXPECT_EQ(DateEnMasque(""), "____/__/__");
  EXPECT_EQ(DateEnMasque("    /  /  "), "____/__/__");
  EXPECT_EQ(DateEnMasque("1998/_7/1_"), "1998/_7/1_");
}

TEST(DateEnMasque, RefusesOtherForms) {
  for (const char* date : {"summer 98", "14.7.1998", "1998-07-14", "1998/07/145", "août"}) {
    EXPECT_FALSE(DateEnMasque(date).has_value()) << date;
  }
}

TEST(MasqueEnDate, StoresBlanks) {
  EXPECT_EQ(MasqueEnDate("1998/07/__"), "1998/07/  ");
  EXPECT_EQ(MasqueEnDate("____/__/__"), "");
}

TEST(EstDateValide, AcceptsMonthAndDayZero) {
  for (const char* date :
       {"1998/00/00", "1998/12/31", "1998/__/__", "1998/_7/1_", "____/__/__", ""}) {
    EXPECT_TRUE(EstDateValide(date)) << date;
  }
  for (const char* date : {"1998/13/01", "1998/01/32", "1998/99/__", "____/13/__"}) {
    EXPECT_FALSE(EstDateValide(date)) << date;
  }
}

}  // namespace
}  // namespace talpena::test
