#include "coords/mgrs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "common/numbers.h"
#include "common/talpena_error.h"

namespace talpena {
namespace {

constexpr double deg = DegUtm;
constexpr double epsilon = 4.85e-10;   // 3 mm that points may lie beyond a limit, radians
constexpr double tolerance = 1.56e-7;  // 1 m, the rounding of references, radians
constexpr double squareM = 100000;     // side of the lettered squares
constexpr double cycleM = 2000000;     // height after which the row letters start again

constexpr int letterC = 3, letterI = 9, letterN = 14, letterO = 15, letterV = 22, letterX = 24;
constexpr int lastRow = 22;

int PartieEntiere(double value) { return Arrondi32(Fix(value)); }

/// Whole metres, halves away from zero.
double ArrondiMetre(double value) { return Fix(value < 0 ? value - 0.5 : value + 0.5); }

/// Less cycleM while at or above it.
double DansCycle(double metres) { return metres < cycleM ? metres : std::fmod(metres, cycleM); }

/// Band letter of a latitude.
int BandeDe(double latitude) {
  int letter = PartieEntiere((latitude + 80 * deg) / (8 * deg)) + letterC;
  if (letter >= letterI) ++letter;
  if (letter >= letterO) ++letter;
  if (letter > letterX) letter = letterX;
  if (letter == letterN - 1 && latitude == 0) letter = letterN;
  return letter;
}

bool EstBande(int letter) {
  return letter >= letterC && letter <= letterX && letter != letterI && letter != letterO;
}

/// A field of Norway or Svalbard, whose limits differ from those of its zone. In degrees.
struct FieldException {
  int letter;
  std::int16_t zone;
  int west, east;
};

constexpr std::array<FieldException, 6> fieldExceptions{{
    {letterV, 31, 0, 3},
    {letterV, 32, 3, 12},
    {letterX, 31, 0, 9},
    {letterX, 33, 9, 21},
    {letterX, 35, 21, 33},
    {letterX, 37, 33, 42},
}};

/// Groups of letter sets by the ellipsoid's id; 0 for ellipsoids without MGRS.
// clang-format off
constexpr std::array<int, 24> groups{0,
    /* 1 Airy      */ 1, 1, 1,  /*  4 Bessel, Clarke     */ 2, 2, 2,
    /* 7 Everest   */ 1, 1, 0,  /* 10 Fischer, Helmert   */ 1, 0, 1,
    /* 13          */ 0, 0, 1,  /* 16 Krassovsky, S. Am. */ 0, 1, 1,
    /* 19 GRS, WGS */ 1, 1, 1,  /* 22 Bessel of Namibia  */ 2, 1};
// clang-format on
constexpr std::int16_t clarke1866 = 5;

int Groupe(std::int16_t ellipsoid) {
  const auto id = static_cast<std::size_t>(std::max<int>(ellipsoid, 0));
  return id < groups.size() ? groups[id] : 0;
}

}  // namespace

bool EstEchecMgrs(std::string_view mgrs) {
  using namespace MgrsFailure;
  constexpr std::array texts{SouthPolar, NorthPolar,   Invalid, NoEllipsoid,
                             NotValid,   OutsideRange, UtmError};
  return std::find(texts.begin(), texts.end(), mgrs) != texts.end();
}

void JeuLettres(std::int16_t zone, int& low, int& high, double& falseNorthing,
                std::int16_t ellipsoid, int& error) {
  const int group = Groupe(ellipsoid);
  error = group == 0 ? 1 : 0;
  const bool philippines = ellipsoid == clarke1866 && zone >= 47 && zone <= 55;
  const bool second = group == 2 && !philippines;

  const int set = ((zone - 1) % 6 + 6) % 6;  // counted from 0
  constexpr std::array<int, 3> firsts{1, 10, 19}, lasts{8, 18, 26};
  low = firsts[static_cast<std::size_t>(set % 3)];
  high = lasts[static_cast<std::size_t>(set % 3)];
  if (set % 2 == 0) {
    falseNorthing = second ? 1000000 : 0;
  } else {
    falseNorthing = second ? 500000 : 1500000;
  }
}

void LimitesBande(int& letter, double latitude, std::int16_t zone, double& south, double& north,
                  double& east, double& west) {
  if (letter == 0) letter = BandeDe(latitude);
  int rank = letter - letterC;
  if (letter >= letterI) --rank;
  if (letter >= letterO) --rank;
  south = (8 * rank - 80) * deg;
  north = south + (letter == letterX ? 12 : 8) * deg;
  east = MeridienCentral(zone) + 3 * deg;
  west = MeridienCentral(zone) - 3 * deg;
  for (const FieldException& field : fieldExceptions) {
    if (field.letter != letter || field.zone != zone) continue;
    east = field.east * deg;
    west = field.west * deg;
  }
}

std::int16_t ZoneMgrs(double latitude, double longitude) {
  const std::int16_t zone = ZoneUtm(longitude);
  if (zone < 31 || zone > 37) return zone;
  // The limit of band X belongs to it. Without the second condition it would bear 32X, 34X and
  // 36X, which do not exist. Held by ZoneMgrs.KnowsNoEvenZoneOnTheEdgeOfBandX.
  if (latitude - epsilon > 72 * deg || BandeDe(latitude) >= letterX) {
    if (longitude > 33 * deg) return 37;
    if (longitude > 21 * deg) return 35;
    return longitude > 9 * deg ? 33 : 31;
  }
  if (latitude - epsilon > 56 * deg && latitude <= 64 * deg && zone <= 32) {
    return longitude < 3 * deg ? 31 : 32;
  }
  return zone;
}

namespace {

// Writing.

char Lettre(int index) {
  if (index < 1 || index > 26) {
    throw TalpenaError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  }
  return static_cast<char>('A' + index - 1);
}

/// Row letter of a northing in whole metres.
char LettreRangee(double northing, double falseNorthing) {
  double metres = DansCycle(northing) - falseNorthing;
  if (metres < 0) metres += cycleM;
  int index = PartieEntiere((metres + 0.1) / squareM) + 1;
  if (index >= letterI) ++index;
  if (index >= letterO) ++index;
  return Lettre(index);
}

/// Column letter of an easting in whole metres.
char LettreColonne(double easting, int low) {
  int index = low + PartieEntiere((easting + 0.1) / squareM) - 1;
  if (low == 10 && index >= letterO) ++index;
  return Lettre(index);
}

/// The last five digits of whole metres; negative ones count down from 10,000,000.
void EcritChiffres(double metres, char* place) {
  int rest = PartieEntiere(metres + 10000000);
  for (int i = 4; i >= 0; --i) {
    place[i] = static_cast<char>('0' + rest % 10);
    rest /= 10;
  }
}

/// The last two characters of a zone, a blank before a single digit.
void EcritZone(int zone, char* place) {
  const int size = std::abs(zone);
  const char ahead = zone < 0 ? '-' : ' ';
  place[0] = size < 10 ? ahead : static_cast<char>('0' + size / 10 % 10);
  place[1] = static_cast<char>('0' + size % 10);
}

void EcritReference(double latitude, std::int16_t zone, double northing, double easting,
                    std::string& mgrs, std::int16_t ellipsoid) {
  int low = 0, high = 0, error = 0;
  double falseNorthing = 0;
  JeuLettres(zone, low, high, falseNorthing, ellipsoid, error);
  if (error != 0) {
    mgrs = MgrsFailure::NotValid;
    return;
  }
  const int band = BandeDe(latitude);
  const double wholeNorthing = ArrondiMetre(northing);
  double wholeEasting = ArrondiMetre(easting);
  // The east limit of 31V, which is the west limit of 32V, would have the next column's letter.
  if (wholeEasting == 500000 && band == letterV && zone == 31) wholeEasting -= 1;

  std::array<char, 15> text{};
  EcritZone(zone, text.data());
  text[2] = Lettre(band);
  text[3] = LettreColonne(wholeEasting, low);
  text[4] = LettreRangee(wholeNorthing, falseNorthing);
  EcritChiffres(wholeEasting, text.data() + 5);
  EcritChiffres(wholeNorthing, text.data() + 10);
  mgrs.assign(text.data(), text.size());
}

/// EcritReference, its faults as the text for them.
void EcritMgrs(double latitude, std::int16_t zone, double northing, double easting,
               std::string& mgrs, std::int16_t ellipsoid) {
  try {
    EcritReference(latitude, zone, northing, easting, mgrs, ellipsoid);
  } catch (const TalpenaError&) {
    mgrs = MgrsFailure::UtmError;
  }
}

}  // namespace

void UtmVersMgrs(double a, double f, double latitude, double /*longitude*/, std::int16_t zone,
                 double northing, double easting, std::string& mgrs, std::int16_t ellipsoid) {
  try {
    static_cast<void>(UtmSeries(a, f));  // an ellipsoid without series is a fault here too
  } catch (const TalpenaError&) {
    mgrs = MgrsFailure::UtmError;
    return;
  }
  EcritMgrs(latitude, zone, northing, easting, mgrs, ellipsoid);
}

void LatLonVersMgrs(const UtmSeries& series, double latitude, double longitude, std::int16_t& zone,
                    double& northing, double& easting, std::string& mgrs, std::int16_t ellipsoid) {
  const bool south = latitude < -80 * deg - epsilon;
  if (south || latitude > 84 * deg + epsilon) {
    mgrs = south ? MgrsFailure::SouthPolar : MgrsFailure::NorthPolar;
    zone = 0;
    northing = easting = 0;
    return;
  }
  zone = ZoneMgrs(latitude, longitude);
  LatLonVersUtm(series, latitude, longitude, zone, northing, easting, 1);
  EcritMgrs(latitude, zone, northing, easting, mgrs, ellipsoid);
}

void LatLonVersMgrs(double a, double f, double latitude, double longitude, std::int16_t& zone,
                    double& northing, double& easting, std::string& mgrs, std::int16_t ellipsoid) {
  LatLonVersMgrs(UtmSeries(a, f), latitude, longitude, zone, northing, easting, mgrs, ellipsoid);
}

namespace {

// Reading.

struct Reference {
  std::int16_t zone = 0;
  int band = 0, column = 0, row = 0;  ///< letters, from A = 1
  double easting = 0, northing = 0;   ///< inside the square
};

bool EstChiffre(char c) { return c >= '0' && c <= '9'; }

double LitChiffres(std::string_view digits) {
  int value = 0;
  for (const char c : digits) value = 10 * value + (c - '0');
  return value;
}

/// Number of the first two characters, blanks among them not counted; 0 when there is none.
std::int16_t LitZone(std::string_view mgrs) {
  int zone = 0;
  for (const char c : mgrs.substr(0, 2)) {
    if (c == ' ') continue;
    if (!EstChiffre(c)) return 0;
    zone = 10 * zone + (c - '0');
  }
  return static_cast<std::int16_t>(zone);
}

/// The parts of a text in the form of a reference; empty for any other text.
std::optional<Reference> LitReference(std::string_view mgrs) {
  if (mgrs.size() != 15) return std::nullopt;
  const std::string_view letters = mgrs.substr(2, 3), digits = mgrs.substr(5);
  if (!std::all_of(letters.begin(), letters.end(), [](char c) { return c >= 'A' && c <= 'Z'; }) ||
      !std::all_of(digits.begin(), digits.end(), EstChiffre)) {
    return std::nullopt;
  }
  Reference r;
  r.zone = LitZone(mgrs);
  r.band = letters[0] - 'A' + 1;
  r.column = letters[1] - 'A' + 1;
  r.row = letters[2] - 'A' + 1;
  r.easting = LitChiffres(digits.substr(0, 5));
  r.northing = LitChiffres(digits.substr(5));
  return r;
}

bool ExisteChamp(const Reference& r) {
  const bool overSvalbard = r.band == letterX && (r.zone == 32 || r.zone == 34 || r.zone == 36);
  return r.zone >= 1 && r.zone <= 60 && EstBande(r.band) && !overSvalbard;
}

/// Northing of the 100 km row, whose letter stands for one of every 2000 km: the first one that
/// the band reaches.
///
/// @param southNorthing  of the band's south limit on the central meridian
double NordDeRangee(int row, double falseNorthing, double southNorthing, bool southern) {
  const double lower = Fix(southNorthing / squareM) * squareM;
  double offset = (row - 1) * squareM + falseNorthing;
  if (row > letterO) offset -= squareM;
  if (row > letterI) offset -= squareM;
  // From 2000000 on, not only above: rows 0 to 0.9 degrees north in even zones start there.
  // Held by MgrsVersLatLon.ReadsTheFirstRowsNorthOfTheEquator.
  if (offset >= cycleM) offset -= cycleM;
  double metres = offset - DansCycle(lower);
  if (metres < 0) metres += cycleM;
  // In the south parallels bend down beside the meridian, so that a limit may reach into the row
  // below (that of band E does). The band itself is never 1900 km high.
  // Held by MgrsVersLatLon.ReadsTheRowBelowTheLimitOnTheMeridian.
  if (southern && metres >= cycleM - squareM) metres -= cycleM;
  return metres + lower;
}

double EstDeColonne(int column, int low) {
  const double offset = (column - low + 1) * squareM;
  return low == 10 && column > letterO ? offset - squareM : offset;
}

/// True for letters that the squares of the zone bear.
bool EstCarre(const Reference& r, int low, int high) {
  return r.column >= low && r.column <= high && r.column != letterO && r.row <= lastRow &&
         r.row != letterI && r.row != letterO;
}

struct Field {
  double south = 0, north = 0, east = 0, west = 0;
};

bool EstDansChamp(const Field& field, double latitude, double longitude) {
  if (latitude < field.south - tolerance || latitude > field.north + tolerance) return false;
  if (longitude >= field.west && longitude <= field.east) return true;
  const double margin = tolerance / std::cos(latitude);
  return longitude >= field.west - margin && longitude <= field.east + margin;
}

}  // namespace

void MgrsVersLatLon(std::string& mgrs, std::int16_t ellipsoid, const UtmSeries& series,
                    double& latitude, double& longitude, std::int16_t& zone, double& northing,
                    double& easting, int& error) {
  const auto refuse = [&](std::string_view text) {
    mgrs = text;
    latitude = longitude = northing = easting = 0;
    error = 1;
  };
  const std::optional<Reference> reference = LitReference(mgrs);
  zone = reference ? reference->zone : LitZone(mgrs);
  if (!reference || !ExisteChamp(*reference)) return refuse(MgrsFailure::Invalid);

  int low = 0, high = 0;
  double falseNorthing = 0;
  JeuLettres(zone, low, high, falseNorthing, ellipsoid, error);
  if (error != 0) return refuse(MgrsFailure::NoEllipsoid);

  int band = reference->band;
  Field field;
  LimitesBande(band, 0, zone, field.south, field.north, field.east, field.west);
  // The south limit on the central meridian, as LatLonVersUtm would give it there.
  const bool southern = band < letterN;
  const double southNorthing =
      (southern ? FauxNordSudUtm : 0) + EchelleUtm * ArcMeridien(series, field.south);

  easting = reference->easting + EstDeColonne(reference->column, low);
  northing =
      reference->northing + NordDeRangee(reference->row, falseNorthing, southNorthing, southern);
  if (southern) northing = -northing;
  UtmVersLatLon(series, latitude, longitude, zone, northing, easting);
  if (!EstCarre(*reference, low, high) || !EstDansChamp(field, latitude, longitude)) {
    mgrs = MgrsFailure::OutsideRange;
    error = 1;
  }
}

void MgrsVersLatLon(std::string& mgrs, std::int16_t ellipsoid, double a, double f, double& latitude,
                    double& longitude, std::int16_t& zone, double& northing, double& easting,
                    int& error) {
  MgrsVersLatLon(mgrs, ellipsoid, UtmSeries(a, f), latitude, longitude, zone, northing, easting,
                 error);
}

}  // namespace talpena
