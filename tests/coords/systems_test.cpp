#include "coords/systems.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/msg_id.h"
#include "common/string_table.h"

namespace talpena {
namespace {

using S = CoordSystem;

TEST(CoordSystems, AreSixteenInTheOrderOfTheSelectors) {
  const char* codes[] = {"DEG", "DMS", "UTM", "MGR", "GRP", "BNG", "ITM", "LMB",
                         "IFB", "LF1", "LF2", "LF3", "LF4", "LFE", "NMA", "SMA"};
  static_assert(std::size(codes) == CoordSystemCount);
  for (int i = 0; i < CoordSystemCount; ++i) {
    EXPECT_EQ(InfoDe(static_cast<S>(i)).code, codes[i]);
    EXPECT_EQ(SystemeDe(codes[i]), static_cast<S>(i));
  }
}

TEST(CoordSystems, AreNamedExactly) {
  for (const char* code : {"deg", "Deg", "DEG ", "XYZ", "", "DE"}) {
    EXPECT_FALSE(SystemeDe(code).has_value()) << code;
  }
}

TEST(CoordSystems, NameTheirDatum) {
  CoordState state;
  state.DatumSpherique = 3;
  state.DatumUtm = 4;
  state.Catalogue.DatumsSpeciaux = {0, 11, 12, 13, 14, 15, 16};
  const std::int16_t datums[] = {3, 3, 4, 4, 12, 13, 14, 15, 15, 12, 12, 12, 12, 12, 16, 16};
  for (int i = 0; i < CoordSystemCount; ++i) {
    EXPECT_EQ(DatumDuSysteme(state, static_cast<S>(i)), datums[i]) << i;
  }
}

struct DatumsRow {
  std::string_view code;
  std::string_view system;    ///< "" for one of the two defaults
  std::string_view imported;  ///< likewise
  std::string_view file;      ///< "" for the datum that the line names
};

// clang-format off
constexpr DatumsRow datumsRows[] = {
    {"DEG", "",      "",      ""},
    {"DMS", "",      "",      ""},
    {"UTM", "",      "",      "EUR-M"},
    {"MGR", "",      "",      "EUR-M"},
    {"GRP", "NTF",   "NTF",   "NTF"},
    {"BNG", "OGB-M", "OGB-M", "OGB-M"},
    {"ITM", "IRL",   "IRL",   "IRL"},
    {"LMB", "BEL72", "BEL72", "BEL72"},
    {"IFB", "BEL72", "BEL72", "BEL72"},
    {"LF1", "NTF",   "BEL72", ""},
    {"LF2", "NTF",   "BEL72", ""},
    {"LF3", "NTF",   "BEL72", ""},
    {"LF4", "NTF",   "BEL72", ""},
    {"LFE", "NTF",   "BEL72", ""},
    {"NMA", "MER",   "BEL72", ""},
    {"SMA", "MER",   "BEL72", ""},
};
// clang-format on

TEST(CoordSystems, HaveADatumForEachUse) {
  for (const DatumsRow& row : datumsRows) {
    SCOPED_TRACE(row.code);
    const SystemDatums& datums = InfoDe(*SystemeDe(row.code)).datums;
    EXPECT_EQ(CodeSpecial(datums.system), row.system);
    EXPECT_EQ(CodeSpecial(datums.imported), row.imported);
    EXPECT_EQ(CodeSpecial(datums.file), row.file);
  }
}

TEST(CoordSystems, ImportsWriteTheBelgianDatumBesideAllLambertMetres) {
  CoordState state;
  state.DatumSpherique = 3;
  state.DatumUtm = 4;
  state.Catalogue.DatumsSpeciaux = {0, 11, 12, 13, 14, 15, 16};
  const std::int16_t datums[] = {3, 3, 4, 4, 12, 13, 14, 15, 15, 15, 15, 15, 15, 15, 15, 15};
  for (int i = 0; i < CoordSystemCount; ++i) {
    EXPECT_EQ(IndiceDatum(state, InfoDe(static_cast<S>(i)).datums.imported), datums[i]) << i;
  }
}

TEST(CoordSystems, LeaveTheDatumOfARowAlone) {
  CoordState state;
  state.DatumSpherique = state.DatumUtm = 3;
  EXPECT_EQ(IndiceDatum(state, SystemDatum::DeLaLigne), 0);
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
