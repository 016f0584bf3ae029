#include <algorithm>

#include "common/text.h"
#include "coords/datum.h"

namespace talpena {
namespace {

// As receivers send them, misspellings included. Two names stand twice; the first one wins.
// clang-format off
constexpr std::array<GpsDatum, 98> names{{
    {"EUROPEAN 1950", "EUR-M"},
    {"WGS 84", "WGS84"},
    {"NOU TRIAG FRANCE", "NTF"},
    {"ADINDAN", "ADI-M"},
    {"AFGOOYE", "AFG"},
    {"AIN EL ABD 1970", "AIN-B"},
    {"ANNA 1 ASTRO 1965", "ANO"},
    {"ARC 1950", "ARF-M"},
    {"ARC 1960", "ARS-M"},
    {"ASCENSION ISLAND '58", "ASC"},
    {"ASTRONOMIC STN '52", "ASQ"},
    {"ASTRO BEACON \"E\"", "ATF"},
    {"AUSTRALIAN GEOD '66", "AUA"},
    {"AUSTRALIAN GEOD '84", "AUG"},
    {"DJAKARTA (BATAVIA)", "BAT"},
    {"BERMUDA 1957", "BER"},
    {"BOGOTA OBSRVATRY", "BOO"},
    {"BUKIT RIMPAH", "BUR"},
    {"CAPE CANAVERAL", "CAC"},
    {"CAMPO INCHAUSPE", "CAI"},
    {"CANTON ASTRO 1966", "CAO"},
    {"CAPE", "CAP"},
    {"CAMP AREA ASTRO", "CAZ"},
    {"CARTHAGE", "CGE"},
    {"CHATHAM 1971", "CHI"},
    {"CHUA ASTRO", "CHU"},
    {"CORREGO ALEGRE", "COA"},
    {"GUX 1 ASTRO", "DOB"},
    {"EASTER ISLAND 1967", "EAS"},
    {"WAKE-ENIWETOK '60", "ENW"},
    {"EUROPEAN 1979", "EUS"},
    {"GEODETIC DATUM '49", "GEO"},
    {"DOS 1968", "GIZ"},
    {"G. SEGARA", "GSE"},
    {"GUAM 1963", "GUA"},
    {"HERAT NORTH", "HEN"},
    {"PROV SO CHILEAN '63", "HIT"},
    {"HJORSEY 1955", "HJO"},
    {"HONG KONG 1963", "HKD"},
    {"HU-TZU-SHAN", "HTN"},
    {"BELLEVUE (IGN)", "IBE"},
    {"INDONESIA 74", "IDN"},
    {"INDIAN BANGLADESH", "IND-B"},
    {"INDIAN THAILAND", "INH-A"},
    {"IRELAND 1965", "IRL"},
    {"ISTS 073 ASTRO '69", "IST"},
    {"JOHNSTON ISLAND", "JOH"},
    {"KANDAWALA", "KAN"},
    {"KERTAU 1948", "KEA"},
    {"KERGUELEN ISLAND", "KEG"},
    {"L.C. 5 ASTRO", "LCF"},
    {"LIBERIA 1964", "LIB"},
    {"LUZON PHILIPPINES", "LUZ-A"},
    {"LUZON MINDANAO", "LUZ-B"},
    {"MASSAWA", "MAS"},
    {"MERCHICH", "MER"},
    {"MIDWAY ASTRO 1961", "MID"},
    {"MAHE 1971", "MIK"},
    {"ROME 1940", "MOD"},
    {"VITI LEVU 1916", "MVS"},
    {"NAHRWN MASIRAH IS", "NAH-A"},
    {"NAHRWN UNITED ARAB", "NAH-B"},
    {"NAHRWN SAUDI ARBIA", "NAH-C"},
    {"NAPARIMA BWI", "NAP"},
    {"NAD27 CONUS", "NAS-C"},
    {"NAD27 CANADA", "NAS-E"},
    {"NAD27 MEXICO", "NAS-L"},
    {"NAD27 CANAL ZONE", "NAS-O"},
    {"NAD27 CUBA", "NAS-T"},
    {"NAD27 GREENLAND", "NAS-U"},
    {"NOU TRIAG FRANCE", "NTF"},
    {"OLD EGYPTIAN", "OEG"},
    {"ORD SRVY GRT BRITN", "OGB-M"},
    {"OLD HAWAII KAUAI", "OHA-B"},
    {"OLD HAWAII MAUI", "OHA-C"},
    {"OLD HAWAII OAHU", "OHA-D"},
    {"OLD HAWAII MEAN", "OHA-M"},
    {"PITCAIRN ASTRO 1967", "PIT"},
    {"PICO DE LAS NIEVES", "PLN"},
    {"PROV SO AMRICN '56", "PRP-M"},
    {"QATAR NATIONAL", "QAT"},
    {"QORNOQ", "QUO"},
    {"REUNION", "REU"},
    {"SANTO (DOS)", "SAE"},
    {"SOUTH AMERICAN '69", "SAN-M"},
    {"SAO BRAZ", "SAO"},
    {"SAPPER HILL 1943", "SAP"},
    {"SCHWARZECK", "SCK"},
    {"ASTRO DOS 71/4", "SHB"},
    {"SOUTH ASIA", "SOA"},
    {"TANANARIVE OBS", "TAN"},
    {"TRISTAN ASTRO 1968", "TDC"},
    {"TIMBALAI 1948", "TIL"},
    {"TOKYO", "TOY-M"},
    {"WGS 72", "WGS72"},
    {"WGS 84", "WGS84"},
    {"YACARE", "YAC"},
    {"ZANDERIJ", "ZAN"},
}};
// clang-format on

}  // namespace

const std::array<GpsDatum, 98>& NomsGps() { return names; }

std::string GpsDatumVersCode(std::string_view name) {
  const std::string wanted = Majuscules(name);
  const auto found =
      std::find_if(names.begin(), names.end(), [&](const GpsDatum& d) { return d.name == wanted; });
  return found == names.end() ? std::string() : std::string(found->code);
}

}  // namespace talpena
