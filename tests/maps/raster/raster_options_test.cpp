// OptionsMap over the texts of its controls.
#include "maps/raster/raster_options.h"

#include <gtest/gtest.h>

#include <optional>

#include "common/talpena_error.h"
#include "store/world.h"

namespace talpena {
namespace {

// clang-format off
struct DiameterCase { const char* text; std::optional<float> diameter; };
const DiameterCase diameters[] = {
    {"auto", -1.F}, {"AUTO", -1.F}, {"Auto", -1.F},
    {"10", 10.F}, {"2.5", 2.5F}, {"2,5", 2.5F}, {".25", .25F},
    {"0", {}}, {"-1", {}}, {"", {}}, {" auto", {}}, {"auto ", {}}, {"large", {}}, {"12 km", {}},
    {"1E39", {}}, {"1E400", {}}, {"1E-60", {}},
};
// clang-format on

TEST(RasterOptions, ADiameterIsAutoOrANumberAbove0) {
  for (const DiameterCase& c : diameters) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(DiametreRasterDe(c.text), c.diameter);
  }
}

TEST(RasterOptions, ShowTheSettings) {
  SettingsState state;
  state.StrokeColor = 7;
  EXPECT_EQ(LitOptionsRaster(state).Combo1, "auto");
  EXPECT_EQ(LitOptionsRaster(state).LabelCoulFill,
            (std::array<std::uint32_t, 4>{255, 65535, 65280, 7}));
  state.DiamPoints = 2.5F;
  EXPECT_EQ(LitOptionsRaster(state).Combo1, "2.5");
}

TEST(RasterOptions, OkCopiesColoursAndDiameter) {
  test::World w;
  EXPECT_TRUE(ValideOptionsRaster({{1, 2, 3, 4}, "3,5"}, w.state, w.io));
  EXPECT_EQ(w.state.SymbolColor, (std::array<std::uint32_t, 3>{1, 2, 3}));
  EXPECT_EQ(w.state.StrokeColor, 4U);
  EXPECT_EQ(w.state.DiamPoints, 3.5F);
}

TEST(RasterOptions, AnInvalidDiameterIsToldAndChangesNothing) {
  test::World w;
  EXPECT_FALSE(ValideOptionsRaster({{1, 2, 3, 4}, "0"}, w.state, w.io));
  EXPECT_EQ(w.Boites(), (std::vector<std::string>{"Invalid points diameter"}));
  EXPECT_EQ(w.sound.bips, 1);
  EXPECT_EQ(w.state.DiamPoints, -1.F);
  EXPECT_EQ(w.state.SymbolColor[0], 255U);
}

TEST(RasterOptions, AColourDialogChangesOneColour) {
  test::World w;
  OptionsRaster options = LitOptionsRaster(w.state);
  w.dialogues.colours = {0x00ABCD, std::nullopt};
  ChoisitCouleurRaster(options, 3, w.io);
  EXPECT_EQ(options.LabelCoulFill[3], 0x00ABCDU);
  EXPECT_THROW(ChoisitCouleurRaster(options, 0, w.io), TalpenaError);
  EXPECT_EQ(options.LabelCoulFill[0], 255U);
}

}  // namespace
}  // namespace talpena
