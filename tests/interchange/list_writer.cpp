#include "interchange/list_writer.h"

#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/OSGB.hpp>
#include <GeographicLib/UTMUPS.hpp>
#include <array>
#include <cmath>
#include <map>
#include <stdexcept>

#include "common/numbers.h"
#include "common/text.h"
#include "coords/ifbl.h"
#include "coords/test_catalogue.h"
#include "interchange/real_lists.h"

namespace talpena::test {
namespace {

std::string Deux(double first, double second, const char* mask) {
  return Format(first, mask) + "," + Format(second, mask);
}

double Longitude(Point p) { return std::remainder(p.longitude, 360.0); }

// ---------------------------------------------------------------------------------------------
// Angles

std::string Degres(Point p) { return Deux(p.latitude, p.longitude, "0.00000"); }

/// Degrees, point, minutes and seconds of two digits each, tenths.
std::string Dms(double degrees) {
  const auto tenths = static_cast<long>(std::llround(std::fabs(degrees) * 36000));
  return (degrees < 0 ? "-" : "") + std::to_string(tenths / 36000) + "." +
         Format(static_cast<double>(tenths / 600 % 60), "00") +
         Format(static_cast<double>(tenths % 600), "000");
}
std::string DegresMinutesSecondes(Point p) { return Dms(p.latitude) + "," + Dms(p.longitude); }

std::string GradesParis(Point p) {
  constexpr double paris = 2 + 20.0 / 60 + 14.025 / 3600;
  return Deux(p.latitude / 0.9, (p.longitude - paris) / 0.9, "0.00000");
}

// ---------------------------------------------------------------------------------------------
// UTM, on ED 50

struct ZonePlane {
  int zone;
  Plane plane;  ///< from the equator: negative in the south
};

ZonePlane Utm(Point p) {
  static std::map<int, ProjOracle> zones;
  const int zone = GeographicLib::UTMUPS::StandardZone(p.latitude, Longitude(p));
  const auto [at, made] =
      zones.try_emplace(zone, "+proj=utm +zone=" + std::to_string(zone) + " +ellps=intl");
  return {zone, at->second.Projette({p.latitude, Longitude(p)})};
}

/// Metres as a map of the hemisphere has them, those of the south with a minus.
std::string UtmMetres(Point p) {
  const ZonePlane utm = Utm(p);
  const double northing = p.latitude < 0 ? -(1e7 + utm.plane.y) : utm.plane.y;
  return std::to_string(utm.zone) + "," + Deux(utm.plane.x, northing, "0");
}

template <int Digits>
std::string Mgrs(Point p) {
  const ZonePlane utm = Utm(p);
  const bool north = p.latitude >= 0;
  std::string text;
  GeographicLib::MGRS::Forward(utm.zone, north, utm.plane.x, utm.plane.y + (north ? 0 : 1e7),
                               p.latitude, Digits, text);
  return text;
}

// ---------------------------------------------------------------------------------------------
// National grids

template <int Digits>
std::string British(Point p) {
  static const ProjOracle grid(
      "+proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 +ellps=airy");
  const Plane plane = grid.Projette(p);
  std::string text;
  GeographicLib::OSGB::GridReference(plane.x, plane.y, Digits, text);
  return text;
}

/// I, the letter of the square of 100 km counted from the north-west without I, kilometres or
/// metres in it.
template <int Digits>
std::string Irish(Point p) {
  static const ProjOracle grid(
      "+proj=tmerc +lat_0=53.5 +lon_0=-8 +k=1.000035 +x_0=200000 +y_0=250000 +a=6377340.189 "
      "+rf=299.3249646");
  const Plane plane = grid.Projette(p);
  const auto east = static_cast<std::size_t>(plane.x), north = static_cast<std::size_t>(plane.y);
  const char letter = "ABCDEFGHJKLMNOPQRSTUVWXYZ"[(4 - north / 100000) * 5 + east / 100000];
  const auto unit = static_cast<std::size_t>(std::pow(10, 5 - Digits));
  const std::string mask(Digits, '0');
  return std::string("I") + letter + Format(static_cast<double>(east % 100000 / unit), mask) +
         Format(static_cast<double>(north % 100000 / unit), mask);
}

// ---------------------------------------------------------------------------------------------
// Lambert, the zones as published

const ProjOracle& BelgePublie() {
  static const ProjOracle zone(
      "+proj=lcc +lat_1=51.16666723333333 +lat_2=49.8333339 +lat_0=90 +lon_0=4.367486666666666 "
      "+x_0=150000.013 +y_0=5400088.438 +ellps=intl");
  return zone;
}

std::string EnMetres(Plane plane) { return Deux(plane.x, plane.y, "0"); }

std::string LambertBelge(Point p) {
  const Plane plane = BelgePublie().Projette(p);
  return Deux(plane.x, plane.y, "0.00");
}

template <int Length>
std::string Ifbl(Point p) {
  const Plane plane = BelgePublie().Projette(p);
  std::string code;
  std::int16_t error = 0;
  LambertVersIfbl(plane.x, plane.y, code, error, Length);
  if (error != 0) throw std::runtime_error("outside of the IFBL grid");
  return code;
}

/// Zones I to IV and, as the fifth, II étendu.
const ProjOracle& FrancePublie(int zone) {
  static const std::string paris = "+proj=lcc +a=6378249.2 +rf=293.465 +lon_0=2.33722917 ";
  static const std::array<ProjOracle, 5> zones{
      ProjOracle(paris + "+lat_1=48.598522847 +lat_2=50.395911631 +lat_0=49.5 +x_0=600000 "
                         "+y_0=200000"),
      ProjOracle(paris + "+lat_1=45.898918964 +lat_2=47.696014502 +lat_0=46.8 +x_0=600000 "
                         "+y_0=200000"),
      ProjOracle(paris + "+lat_1=43.199291275 +lat_2=44.996093814 +lat_0=44.1 +x_0=600000 "
                         "+y_0=200000"),
      ProjOracle(paris + "+lat_1=41.560387840 +lat_2=42.767663267 +lat_0=42.165 +x_0=234.358 "
                         "+y_0=185861.369"),
      ProjOracle(paris + "+lat_1=45.898918964 +lat_2=47.696014502 +lat_0=46.8 +x_0=600000 "
                         "+y_0=2200000")};
  return zones[static_cast<std::size_t>(zone - 1)];
}

template <int Zone>
std::string France(Point p) {
  return EnMetres(FrancePublie(Zone).Projette(p));
}

const ProjOracle& MarocPublie(int zone) {
  static const std::array<ProjOracle, 2> zones{
      ProjOracle("+proj=lcc +a=6378249.145 +rf=293.465 +lat_1=33.3 +lat_0=33.3 +k_0=0.999625769 "
                 "+lon_0=-5.4 +x_0=500000 +y_0=300000"),
      ProjOracle("+proj=lcc +a=6378249.145 +rf=293.465 +lat_1=29.7 +lat_0=29.7 +k_0=0.999615596 "
                 "+lon_0=-5.4 +x_0=500000 +y_0=300000")};
  return zones[static_cast<std::size_t>(zone - 1)];
}

template <int Zone>
std::string Maroc(Point p) {
  return EnMetres(MarocPublie(Zone).Projette(p));
}

// clang-format off
constexpr std::array notations{
    ListNotation{"deg",    CoordSystem::Deg, "EUR-M", Degres,                0.8},
    ListNotation{"dms",    CoordSystem::Dms, "EUR-M", DegresMinutesSecondes, 2.2},
    ListNotation{"utm",    CoordSystem::Utm, "EUR-M", UtmMetres,             0.8},
    ListNotation{"mgr",    CoordSystem::Mgr, "EUR-M", Mgrs<5>,               1.5},
    ListNotation{"mgr_km", CoordSystem::Mgr, "EUR-M", Mgrs<2>,               709},
    ListNotation{"grp",    CoordSystem::Grp, "NTF",   GradesParis,           1.5},
    ListNotation{"bng",    CoordSystem::Bng, "OGB-M", British<5>,            1.9},
    ListNotation{"bng_km", CoordSystem::Bng, "OGB-M", British<2>,            710},
    ListNotation{"itm",    CoordSystem::Itm, "IRL",   Irish<5>,              13},
    ListNotation{"itm_km", CoordSystem::Itm, "IRL",   Irish<2>,              720},
    ListNotation{"lmb",    CoordSystem::Lmb, "BEL72", LambertBelge,          0.1},
    ListNotation{"ifb_1",  CoordSystem::Ifb, "BEL72", Ifbl<6>,               708},
    ListNotation{"ifb_4",  CoordSystem::Ifb, "BEL72", Ifbl<4>,               2829},
    ListNotation{"lf1",    CoordSystem::Lf1, "NTF",   France<1>,             1.4},
    ListNotation{"lf2",    CoordSystem::Lf2, "NTF",   France<2>,             1.4},
    ListNotation{"lf3",    CoordSystem::Lf3, "NTF",   France<3>,             1.4},
    ListNotation{"lf4",    CoordSystem::Lf4, "NTF",   France<4>,             3.2},
    ListNotation{"lfe",    CoordSystem::Lfe, "NTF",   France<5>,             1.4},
    ListNotation{"nma",    CoordSystem::Nma, "MER",   Maroc<1>,              0.8},
    ListNotation{"sma",    CoordSystem::Sma, "MER",   Maroc<2>,              0.8},
};
// clang-format on

/// From WGS84 to a datum, in radians.
std::string Etapes(std::string_view code) {
  const CatalogueSource source = Sources();
  for (const DatumSource& d : source.datums) {
    if (d.code != code) continue;
    for (const EllipsoidSource& e : source.ellipsoids) {
      if (e.id != d.ellipsoid) continue;
      return "+proj=pipeline +step +proj=cart +ellps=WGS84 +step +inv +proj=helmert +x=" +
             Str(d.dx) + " +y=" + Str(d.dy) + " +z=" + Str(d.dz) +
             " +step +inv +proj=cart +a=" + Str(e.a) + " +rf=" + Str(e.fInv);
    }
  }
  throw std::runtime_error("no datum " + std::string(code));
}

Point EnPoint(const PJ_COORD& c) { return {proj_todeg(c.lp.phi), proj_todeg(c.lp.lam)}; }

}  // namespace

const ListNotation& NotationDe(std::string_view name) {
  for (const ListNotation& notation : notations) {
    if (name == notation.name) return notation;
  }
  throw std::runtime_error("no notation " + std::string(name));
}

ExactDatum::ExactDatum(std::string_view code) : oracle_(Etapes(code)) {}

Point ExactDatum::DepuisWgs84(Point p) const {
  Point out = EnPoint(oracle_.Avant(proj_torad(p.longitude), proj_torad(p.latitude)));
  if (p.longitude > 180) out.longitude += 360;
  return out;
}

Point ExactDatum::VersWgs84(Point p) const {
  return EnPoint(oracle_.Arriere(proj_torad(p.longitude), proj_torad(p.latitude)));
}

Point DeLambertBelgePublie(Plane metres) {
  static const ExactDatum datum("BEL72");
  return datum.VersWgs84(BelgePublie().Inverse(metres));
}

Plane VersLambertMarocPublie(int zone, Point onMer) { return MarocPublie(zone).Projette(onMer); }

Point DeLambertMarocPublie(int zone, Plane metres) { return MarocPublie(zone).Inverse(metres); }

}  // namespace talpena::test
