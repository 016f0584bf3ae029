// The list of layers and the look of the symbols.
#include "maps/map_option.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

TEST(MapOption, StartsWithoutLayersAndWithAnAutomaticRedSymbol) {
  const MapOption options;
  EXPECT_EQ(options.LayerCount(), 0);
  EXPECT_EQ(options.Cancel, 0);
  EXPECT_EQ(options.SymbolColor, 255);
  EXPECT_EQ(options.SymbolDiameter, -1);
}

TEST(MapOption, LayersCountFromOne) {
  MapOption options;
  options.Add("a.tlp");
  options.Add("b.tlp");
  EXPECT_EQ(options.LayerCount(), 2);
  EXPECT_EQ(options.Couche(1), "a.tlp");
  EXPECT_EQ(options.Couche(2), "b.tlp");
}

TEST(MapOption, ALayerBeyondTheListIsEmpty) {
  MapOption options;
  options.Add("a.tlp");
  EXPECT_EQ(options.Couche(0), "");
  EXPECT_EQ(options.Couche(2), "");
  EXPECT_EQ(options.Couche(-1), "");
}

TEST(MapOption, RazEmptiesTheList) {
  MapOption options;
  options.Add("a.tlp");
  options.Raz();
  EXPECT_EQ(options.LayerCount(), 0);
  EXPECT_EQ(options.Couche(1), "");
}

}  // namespace
}  // namespace talpena
