#include "coords/systems.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/msg_id.h"
#include "common/string_table.h"

namespace talpena {
namespace {

using S = CoordSystem;

// Datums that a state can have; those of the six slots count from 11.
constexpr std::int16_t spherical = 3, utm = 4, ntf = 12, ogb = 13, irl = 14, bel72 = 15, mer = 16;

struct SystemRow {
  std::string_view code;
  std::int16_t system;
  std::int16_t imported;
  std::string_view file;  ///< "" where the line of the file names it
};

// clang-format off
constexpr SystemRow systemRows[] = {
    {"DEG", spherical, spherical, ""},
    {"DMS", spherical, spherical, ""},
    {"UTM", utm,       utm,       "EUR-M"},
    {"MGR", utm,       utm,       "EUR-M"},
    {"GRP", ntf,       ntf,       "NTF"},
    {"BNG", ogb,       ogb,       "OGB-M"},
    {"ITM", irl,       irl,       "IRL"},
    {"LMB", bel72,     bel72,     "BEL72"},
    {"IFB", bel72,     bel72,     "BEL72"},
    {"LF1", ntf,       bel72,     ""},
    {"LF2", ntf,       bel72,     ""},
    {"LF3", ntf,       bel72,     ""},
    {"LF4", ntf,       bel72,     ""},
    {"LFE", ntf,       bel72,     ""},
    {"NMA", mer,       bel72,     ""},
    {"SMA", mer,       bel72,     ""},
};
// clang-format on
static_assert(std::size(systemRows) == CoordSystemCount);

CoordState Etat() {
  CoordState state;
  state.DatumSpherique = spherical;
  state.DatumUtm = utm;
  state.Catalogue.DatumsSpeciaux = {0, 11, ntf, ogb, irl, bel72, mer};
  return state;
}

TEST(CoordSystems, StandInTheOrderOfTheSelectors) {
  for (int i = 0; i < CoordSystemCount; ++i) {
    EXPECT_EQ(InfoDe(static_cast<S>(i)).code, systemRows[i].code);
    EXPECT_EQ(SystemeDe(systemRows[i].code), static_cast<S>(i));
  }
}

TEST(CoordSystems, AreNamedExactly) {
  for (const char* code : {"deg", "Deg", "DEG ", "XYZ", "", "DE"}) {
    EXPECT_FALSE(SystemeDe(code).has_value()) << code;
  }
}

TEST(CoordSystems, HaveADatumForEachUse) {
  const CoordState state = Etat();
  for (int i = 0; i < CoordSystemCount; ++i) {
    const SystemRow& expected = systemRows[i];
    SCOPED_TRACE(expected.code);
    const SystemDatums& datums = InfoDe(static_cast<S>(i)).datums;
    EXPECT_EQ(DatumDuSysteme(state, static_cast<S>(i)), expected.system);
    EXPECT_EQ(IndiceDatum(state, datums.imported), expected.imported);
    EXPECT_EQ(CodeSpecial(datums.file), expected.file);
  }
}

TEST(CoordSystems, ImportsWriteTheBelgianDatumBesideAllLambertMetres) {
  for (int i = 0; i < CoordSystemCount; ++i) {
    const CoordSystemInfo& info = InfoDe(static_cast<S>(i));
    if (info.plane.versMetres == nullptr) continue;
    EXPECT_EQ(CodeSpecial(info.datums.imported), "BEL72") << info.code;
  }
}

TEST(CoordSystems, LeaveTheDatumOfARowAlone) {
  EXPECT_EQ(IndiceDatum(Etat(), SystemDatum::DeLaLigne), 0);
}

TEST(CoordSystems, HaveAllThatARowNeeds) {
  constexpr std::int16_t english = 1000;
  for (int i = 0; i < CoordSystemCount; ++i) {
    const CoordSystemInfo& info = InfoDe(static_cast<S>(i));
    SCOPED_TRACE(info.code);
    EXPECT_NE(info.lit, nullptr);
    EXPECT_EQ(info.ecrit != nullptr, EstSpecial(info.datums.system));
    EXPECT_EQ(info.plane.versMetres == nullptr, info.plane.versLatLon == nullptr);
    EXPECT_NE(Texte(english, info.caption), "");
    const auto isSet = [](const Example& e) { return e.id != 0 || !e.text.empty(); };
    EXPECT_EQ(std::ranges::count_if(info.form.examples, isSet), info.tokens);
  }
}

}  // namespace
}  // namespace talpena
