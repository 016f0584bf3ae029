#include <gtest/gtest.h>

#include <array>

#include "common/text.h"
#include "coords/original.h"
#include "coords/test_catalogue.h"

namespace talpena {
namespace {

using S = CoordSystem;

TEST(Assemble, JoinsTheTextsOfAForm) {
  EXPECT_EQ(AssembleTextes(S::Utm, std::array<std::string_view, 3>{"31", "616000", "5564000"}),
            "utm 31 616000 5564000");
  EXPECT_EQ(AssembleTextes(S::Ifb, std::array<std::string_view, 1>{"G3"}), "ifb G3");
  EXPECT_EQ(AssembleTextes(S::Deg, std::array<std::string_view, 2>{"+52.98555", "-003.56963"}),
            "deg +52.98555 -003.56963");
}

TEST(Assemble, FormatsTheNumbersOfAnImport) {
  const auto two = [](S system, double a, double b) {
    return AssembleNombres(system, std::array{a, b});
  };
  EXPECT_EQ(two(S::Deg, 50.41234, 3.9212), "deg +50.41234 +003.92120");
  EXPECT_EQ(two(S::Dms, 50.2530, -3.5512), "dms +50.25300 -003.55120");
  EXPECT_EQ(two(S::Grp, 54.3945, 1.3213), "grp +54.39450 +001.32130");
  EXPECT_EQ(two(S::Lmb, 112568, 128963), "lmb 112568 128963");
  EXPECT_EQ(two(S::Lf2, 600000.5, 2200000), "lf2 600000.5 2200000");
  EXPECT_EQ(two(S::Nma, 500000, 300000), "nma 500000 300000");
  EXPECT_EQ(AssembleNombres(S::Utm, std::array{31.0, 616000.0, -5564000.0}),
            "utm 31 616000 -5564000");
}

TEST(Assemble, CutsAReference) {
  EXPECT_EQ(AssembleReference(S::Mgr, "31uES12345678"), "mgr 31 U ES12345678");
  EXPECT_EQ(AssembleReference(S::Bng, "su12345678"), "bng SU 12345678");
  EXPECT_EQ(AssembleReference(S::Itm, "il2354"), "itm IL 2354");
  EXPECT_EQ(AssembleReference(S::Ifb, "g3 36"), "ifb g3 36");
}

TEST(Assemble, RefusesAReferenceThatIsTooShort) {
  EXPECT_EQ(AssembleReference(S::Mgr, "31UE"), "");
  EXPECT_EQ(AssembleReference(S::Mgr, "31UES"), "mgr 31 U ES");
  EXPECT_EQ(AssembleReference(S::Bng, "SU1"), "");
  EXPECT_EQ(AssembleReference(S::Bng, "SU12"), "bng SU 12");
  EXPECT_EQ(AssembleReference(S::Itm, ""), "");
}

// What is assembled is read back.
TEST(Assemble, MakesWhatIsDecoded) {
  CoordState state;
  state.Catalogue = test::CatalogueDesSources();
  const std::string originals[] = {
      AssembleNombres(S::Deg, std::array{50.5, -4.25}),
      AssembleNombres(S::Dms, std::array{50.3, -4.15}),
      AssembleNombres(S::Utm, std::array{31.0, 616000.0, 5564000.0}),
      AssembleReference(S::Mgr, "31UES12345678"),
      AssembleReference(S::Bng, "su12345678"),
      AssembleReference(S::Itm, "il2354"),
      AssembleNombres(S::Lmb, std::array{112568.0, 128963.0}),
      AssembleReference(S::Ifb, "G336"),
  };
  for (const std::string& original : originals) {
    double latitude = 0, longitude = 0;
    std::string code;
    DecodeOriginal(state, Majuscules(original), state.Catalogue.DatumEur, latitude, longitude,
                   code);
    EXPECT_TRUE(latitude > 49 && latitude < 56) << original << ": " << latitude;
    EXPECT_TRUE(longitude > -12 && longitude < 7) << original << ": " << longitude;
  }
}

}  // namespace
}  // namespace talpena
