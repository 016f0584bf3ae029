#include "platform/qt/file_filter.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

// clang-format off
struct FilterCase { const char* name; const char* filter; const char* nameFilter; const char* suffix; };

constexpr FilterCase filterCases[] = {
    {"pattern in both places", "Distribution (*.deg)|*.deg",            "Distribution (*.deg)", "deg"},
    {"pattern behind only",    "Distribution|*.deg",                    "Distribution (*.deg)", "deg"},
    {"other brackets stay",    "Maps (old)|*.dsw",                      "Maps (old) (*.dsw)",   "dsw"},
    {"several patterns",       "Text (*.txt;*.csv)|*.txt;*.csv",        "Text (*.txt *.csv)",   "txt"},
    {"every file",             "All files (*.*)|*.*",                   "All files (*)",        ""},
    {"accents",                "Donn\u00e9es|*.deg",                    "Donn\u00e9es (*.deg)", "deg"},
    {"patterns alone",         "*.mdb",                                 "*.mdb",                "mdb"},
    {"a wild suffix",          "Grids|*.pr?",                           "Grids (*.pr?)",        ""},
};
// clang-format on

TEST(FileFilter, OnePair) {
  for (const FilterCase& c : filterCases) {
    SCOPED_TRACE(c.name);
    const auto filters = LitFiltres(c.filter);
    ASSERT_EQ(filters.size(), 1U);
    EXPECT_EQ(filters[0].nameFilter, QString::fromUtf8(c.nameFilter));
    EXPECT_EQ(filters[0].suffix, QString::fromUtf8(c.suffix));
  }
}

TEST(FileFilter, PairsKeepTheirOrder) {
  const auto filters = LitFiltres("A (*.a)|*.a|B (*.b)|*.b");
  ASSERT_EQ(filters.size(), 2U);
  EXPECT_EQ(filters[0].suffix, u"a");
  EXPECT_EQ(filters[1].nameFilter, u"B (*.b)");
}

TEST(FileFilter, HalfAPairIsNoFilter) {
  EXPECT_TRUE(LitFiltres("").empty());
  EXPECT_TRUE(LitFiltres("Distribution").empty());
  EXPECT_TRUE(LitFiltres("Distribution|").empty());
}

}  // namespace
}  // namespace talpena
