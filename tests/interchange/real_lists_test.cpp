// Real records, written as lists in the sixteen systems by PROJ and GeographicLib, come in by the
// import and lie where the tables have them.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "common/numbers.h"
#include "coord_commands/adjust.h"
#include "coords/snap.h"
#include "interchange/imported_world.h"
#include "interchange/list_writer.h"
#include "interchange/real_lists.h"

namespace talpena {
namespace {

using test::Metres;
using test::Point;
using test::RealArea;
using test::RealRecord;

// clang-format off
constexpr std::array tables{
    test::RealTable{"albatross",    "occurrences/albatross_shared.csv",       "lat", "lon", "gmt", "tag_ID"},
    test::RealTable{"balsam",       "occurrences/anb_plants_shared.csv",      "decimalLatitude", "decimalLongitude", "eventDate", "locationRemarks"},
    test::RealTable{"chameleons",   "occurrences/chameleons_shared.csv",      "Latitude", "Longitude", "Date collected", "Locality"},
    test::RealTable{"beetles",      "occurrences/dendroctonus_us_shared.csv", "decimalLatitude", "decimalLongitude", "eventDate", "locality"},
    test::RealTable{"bees",         "occurrences/iberian_bees_shared.csv",    "Latitude", "Longitude", "Start.date", "Locality"},
    test::RealTable{"fishes",       "occurrences/nzffd_shared.csv",           "decimalLongitude", "decimalLatitude", "eventDate", "site"},  // exchanged there
    test::RealTable{"penguins",     "occurrences/penguins_shared.csv",        "latitude", "longitude", "year", "site_name"},
    test::RealTable{"muskrats",     "occurrences/rato_shared.csv",            "y", "x", "date", "materials_nl"},
    test::RealTable{"walrus",       "occurrences/walrus_shared.csv",          "lat", "lon", "gmt", "species"},
    test::RealTable{"french_places",   "gazetteer/places.csv.gz", "latitude", "longitude", "", "name", "FR"},
    test::RealTable{"british_places",  "gazetteer/places.csv.gz", "latitude", "longitude", "", "name", "GB"},
    test::RealTable{"irish_places",    "gazetteer/places.csv.gz", "latitude", "longitude", "", "name", "IE"},
    test::RealTable{"moroccan_places", "gazetteer/places.csv.gz", "latitude", "longitude", "", "name", "MA"},
};
// clang-format on

const test::RealTable& TableDe(std::string_view name) {
  return *std::ranges::find_if(tables, [&](const auto& table) { return name == table.name; });
}

/// Half the last bit of a 32-bit float.
double DemiBit(double value) {
  const auto single = static_cast<float>(std::fabs(value));
  return double{std::nextafter(single, 1e9F) - single} / 2;
}

/// How far two floats for latitude and longitude may lie from a point, metres.
double Flottants(Point p) {
  return Metres(p.latitude, p.longitude, p.latitude + DemiBit(p.latitude),
                p.longitude + DemiBit(std::remainder(p.longitude, 360.0)));
}

/// The program's step between datums from the exact one, metres.
double PasDeDatum(Point p) { return std::fabs(p.latitude) < 60 ? 0.4 : 3; }

std::string EntreGuillemets(const std::string& text) {
  return text.find(',') == std::string::npos ? text : '"' + text + '"';
}

/// The list of these records, with the number of the record as second number.
std::string Liste(const std::vector<RealRecord>& records, const test::ListNotation& notation) {
  const test::ExactDatum datum(notation.datum);
  std::string list;
  for (std::size_t i = 0; i < records.size(); ++i) {
    list += std::to_string(1 + i % 3) + "," + notation.ecrit(datum.DepuisWgs84(records[i].place)) +
            ",1," + std::to_string(i + 1) + "," + records[i].date + "," +
            EntreGuillemets(records[i].comment) + "\r\n";
  }
  return list;
}

/// A table, a notation and the part of the table that is written in it.
struct Case {
  const char* table;
  const char* notation;
  RealArea area = {};
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.table << ' ' << c.notation; }

class RealLists : public ::testing::TestWithParam<Case> {
 protected:
  void SetUp() override {
    const test::RealTable& table = TableDe(GetParam().table);
    if (!std::filesystem::exists(test::CheminReel(table))) {
      GTEST_SKIP() << test::CheminReel(table) << " is not there";
    }
    records = test::LitTableReelle(table, GetParam().area);
    ASSERT_GT(records.size(), 10U);
    world.Importe(notation.system, Liste(records, notation));
    ASSERT_TRUE(world.dialogues.boxes.empty()) << world.dialogues.boxes[0].text;
    rows = world.Rows();
    ASSERT_EQ(rows.size(), records.size());
  }

  /// How far an imported row lies from a place, metres.
  double Ecart(std::size_t i, Point place) const {
    return Metres(rows[i].latitude, rows[i].longitude, place.latitude, place.longitude);
  }

  const test::ListNotation& notation = test::NotationDe(GetParam().notation);
  test::ImportedWorld world;
  std::vector<RealRecord> records;
  std::vector<test::ImportedWorld::Row> rows;
};

TEST_P(RealLists, ComeInWholeAndWhereTheyWere) {
  double worst = 0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const Point place = records[i].place;
    SCOPED_TRACE(std::to_string(i + 1) + ": " + rows[i].original);
    const double allowed = notation.metres + 2 * Flottants(place) + PasDeDatum(place);
    ASSERT_LT(Ecart(i, place), allowed);
    worst = std::max(worst, Ecart(i, place));
    ASSERT_EQ(rows[i].period, static_cast<std::int64_t>(1 + i % 3));
    ASSERT_EQ(rows[i].n1, 1);
    ASSERT_EQ(rows[i].n2, static_cast<std::int64_t>(i + 1));
    ASSERT_EQ(rows[i].date, records[i].date);
    ASSERT_EQ(rows[i].comment, records[i].comment);
  }
  RecordProperty("worst_metres", Format(worst, "0.00"));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, RealLists, ::testing::Values(
    Case{"albatross", "deg"}, Case{"albatross", "utm"}, Case{"albatross", "mgr"}, Case{"albatross", "mgr_km"},
    Case{"balsam", "deg"}, Case{"balsam", "dms"}, Case{"balsam", "utm"}, Case{"balsam", "mgr"},
    Case{"balsam", "lmb"}, Case{"balsam", "ifb_1"}, Case{"balsam", "ifb_4"},
    Case{"chameleons", "deg"}, Case{"chameleons", "dms"}, Case{"chameleons", "utm"}, Case{"chameleons", "mgr"},
    Case{"beetles", "deg"}, Case{"beetles", "dms"}, Case{"beetles", "utm"}, Case{"beetles", "mgr"},
    Case{"bees", "deg"}, Case{"bees", "dms"}, Case{"bees", "utm"}, Case{"bees", "mgr"}, Case{"bees", "mgr_km"},
    Case{"fishes", "deg"}, Case{"fishes", "utm"}, Case{"fishes", "mgr"},
    Case{"penguins", "deg"}, Case{"penguins", "utm"}, Case{"penguins", "mgr"},
    Case{"muskrats", "deg"}, Case{"muskrats", "dms"}, Case{"muskrats", "utm"}, Case{"muskrats", "mgr"},
    Case{"muskrats", "lmb"}, Case{"muskrats", "ifb_1"}, Case{"muskrats", "ifb_4"},
    Case{"walrus", "deg"}, Case{"walrus", "utm"}, Case{"walrus", "mgr"},
    Case{"french_places", "grp", {41.3, 51.2, -5.2, 9.7}}, Case{"british_places", "bng", {49.9, 61, -8, 2}},
    Case{"british_places", "bng_km", {49.9, 61, -8, 2}},
    Case{"irish_places", "itm"}, Case{"irish_places", "itm_km"}));
// clang-format on

// ---------------------------------------------------------------------------------------------
// Minutes and seconds beyond 128 degrees: a 32-bit float has no digit left for the tenths, and what
// comes out below a full minute reads as 99 seconds. The text of the file says it exactly, the
// column of the import does not.

class FarLongitudes : public RealLists {};

TEST_P(FarLongitudes, InMinutesAndSecondsAreOffByAtMostFortySeconds) {
  int off = 0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const Point place = records[i].place;
    SCOPED_TRACE(std::to_string(i + 1) + ": " + rows[i].original);
    const double allowed = notation.metres + 2 * Flottants(place) + PasDeDatum(place);
    if (Ecart(i, place) < allowed + 10) continue;
    ++off;
    ASSERT_GT(std::fabs(place.longitude), 128);
    constexpr double fortySeconds = 40.1 / 3600;
    ASSERT_NEAR(rows[i].latitude, place.latitude, 1e-4);
    ASSERT_NEAR(std::remainder(rows[i].longitude - place.longitude, 360.0), 0, fortySeconds);
  }
  RecordProperty("off", off);
}

INSTANTIATE_TEST_SUITE_P(Dms, FarLongitudes,
                         ::testing::Values(Case{"albatross", "dms"}, Case{"fishes", "dms"},
                                           Case{"penguins", "dms"}, Case{"walrus", "dms"}));

// ---------------------------------------------------------------------------------------------
// Rows of the French and Moroccan zones get BEL72 beside metres that stand on NTF and MER. That is
// how they have always come in: the points lie off by what the two datums differ, and come home
// when the rows get their own datum.

class ZonesOfBel72 : public RealLists {
 protected:
  bool Maroc() const { return notation.system >= CoordSystem::Nma; }

  /// Where the metres of a row lie on their own datum as the program reads them: the zones of
  /// Morocco some kilometres to the south of the printed ones (docs/coordinates.md).
  Point SurSonDatum(Point place) const {
    Point own = datum.DepuisWgs84(place);
    if (Maroc()) own = AuSud(own, notation.system == CoordSystem::Nma ? 1 : 2);
    return own;
  }

  static Point AuSud(Point own, int zone) {
    test::Plane metres = test::VersLambertMarocPublie(zone, own);
    metres.y -= zone == 1 ? 3637.4984 : 4302.0999;
    return test::DeLambertMarocPublie(zone, metres);
  }

  /// Gives all rows another datum and computes their points anew.
  void CorrigeDatum(const std::string& code) {
    Edition(world.state.document, "")
        .RemplaceValeur(Column::DATUM, Cell::Of(std::string_view("BEL72")),
                        Cell::Of(std::string_view(code)), {});
    world.state.document.RelieSqlCourant();
    AjusteDegres(world.context, SansMaille, SansMaille);
    rows = world.Rows();
  }

  const test::ExactDatum datum{notation.datum};
};

TEST_P(ZonesOfBel72, LieOffByTheDifferenceOfTheDatums) {
  const test::ExactDatum belgian("BEL72");
  for (std::size_t i = 0; i < records.size(); ++i) {
    const Point place = records[i].place;
    SCOPED_TRACE(std::to_string(i + 1) + ": " + rows[i].original);
    ASSERT_EQ(rows[i].datum, "BEL72");
    const Point expected = belgian.VersWgs84(SurSonDatum(place));
    ASSERT_LT(Ecart(i, expected), notation.metres + 2 * Flottants(place) + PasDeDatum(place));
    ASSERT_GT(Ecart(i, place), Maroc() ? 3000 : 100);
    ASSERT_LT(Ecart(i, place), Maroc() ? 5000 : 1000);
  }
}

TEST_P(ZonesOfBel72, ComeHomeWithTheirOwnDatum) {
  CorrigeDatum(notation.datum);
  for (std::size_t i = 0; i < records.size(); ++i) {
    const Point place = records[i].place;
    SCOPED_TRACE(std::to_string(i + 1) + ": " + rows[i].original);
    const Point expected = datum.VersWgs84(SurSonDatum(place));
    ASSERT_LT(Ecart(i, expected), notation.metres + 2 * Flottants(place) + PasDeDatum(place));
    if (!Maroc())
      ASSERT_LT(Metres(expected.latitude, expected.longitude, place.latitude, place.longitude),
                0.01);
  }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lambert, ZonesOfBel72, ::testing::Values(
    Case{"french_places", "lf1", {48.2, 51.2, -5.2, 8.3}}, Case{"french_places", "lf2", {45.5, 48.1, -4, 7.5}},
    Case{"french_places", "lf3", {42.4, 45.4, -2, 7.8}}, Case{"french_places", "lf4", {41.3, 43.1, 8.4, 9.7}},
    Case{"french_places", "lfe", {42.3, 51.2, -5.2, 8.3}},
    Case{"moroccan_places", "nma", {31.5, 36, -10, -1}}, Case{"moroccan_places", "sma", {27.6, 31.5, -13, -4}}));
// clang-format on

}  // namespace
}  // namespace talpena
