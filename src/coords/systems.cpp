#include "coords/systems.h"

#include <algorithm>

#include "common/msg_id.h"
#include "coords/notations.h"
#include "coords/original.h"

namespace talpena {
namespace {
namespace table {

using namespace MsgId;
using enum Content;
using enum SystemDatum;
using Info = CoordSystemInfo;
using Examples = std::array<Example, 3>;

constexpr ReferenceCut mgrsCut{.atLeast = 5, .heads = {2, 1}};
constexpr ReferenceCut lettersCut{.atLeast = 4, .heads = {2}};

/// Examples that are the same in every language.
constexpr Examples Textes(std::string_view first, std::string_view second) {
  return {{{0, first}, {0, second}}};
}

constexpr Plane France(int zone) { return {VersLambertFrance, DeLambertFrance, zone}; }
constexpr Plane Maroc(int zone) { return {VersLambertMaroc, DeLambertMaroc, zone}; }

/// A zone of France or Morocco. Imports write BEL72 beside these metres too, and files keep what
/// the line names. Held by CoordSystems.ImportsWriteTheBelgianDatumBesideAllLambertMetres and
/// CoordSystems.HaveADatumForEachUse.
constexpr Info Lambert(std::string_view code, int caption, SystemDatum datum, Plane plane) {
  return {.code = code,
          .caption = caption,
          .datums = {datum, Bel72, DeLaLigne},
          .lit = LitMetres,
          .ecrit = EcritMetres,
          .form = {.examples = Textes("x (mètres)", "y (mètres)")},
          .plane = plane};
}

/// Everything that there is to say about a system, in the order of CoordSystem. The datums are that
/// of conversions and the form, that of imports and that of the lines of a file.
constexpr std::array<Info, CoordSystemCount> systems{{
    {.code = "DEG",
     .caption = SystemeDegres,
     .content = Angles,
     .datums = {Spherique, Spherique, DeLaLigne},
     .lit = LitDegres,
     .form = {.examples = Textes("+52.98555", "-003.56963")}},
    {.code = "DMS",
     .caption = SystemeDms,
     .content = Angles,
     .datums = {Spherique, Spherique, DeLaLigne},
     .lit = LitDms,
     .form = {.examples = {{{ExempleDmsLatitude}, {ExempleDmsLongitude}}}}},
    {.code = "UTM",
     .caption = SystemeUtm,
     .tokens = 3,
     .datums = {Utm, Utm, EurM},
     .lit = LitUtm,
     .form = {.examples = {{{ExempleFuseau}, {ExempleEst}, {ExempleNord}}}}},
    {.code = "MGR",
     .caption = SystemeMgrs,
     .tokens = 3,
     .content = Reference,
     .datums = {Utm, Utm, EurM},
     .lit = LitMgrs,
     .form = {.examples = {{{ExempleFuseau}, {ExempleZone}, {ExempleMgrs}}},
              .refus = EchecMgrs,
              .chiffresPairs = true},
     .cut = mgrsCut},
    {.code = "GRP",
     .caption = SystemeGrades,
     .content = Angles,
     .datums = {Ntf, Ntf, Ntf},
     .lit = LitGrades,
     .ecrit = EcritGrades,
     .form = {.examples = Textes("+48.9552", "+003.5423")}},
    {.code = "BNG",
     .caption = SystemeBritish,
     .content = Reference,
     .datums = {Ogb, Ogb, Ogb},
     .ellipsoid = 1,
     .lit = LitBritish,
     .ecrit = EcritBritish,
     .form = {.examples = Textes("SM", "2354"), .nommeUnePlace = NommeCarreBritish},
     .cut = lettersCut},
    {.code = "ITM",
     .caption = SystemeIrish,
     .content = Reference,
     .datums = {Irl, Irl, Irl},
     .ellipsoid = 2,
     .lit = LitIrish,
     .ecrit = EcritIrish,
     .form = {.examples = Textes("IL", "2354"), .nommeUnePlace = NommeCarreIrish},
     .cut = lettersCut},
    {.code = "LMB",
     .caption = SystemeLambertBelge,
     .datums = {Bel72, Bel72, Bel72},
     .ellipsoid = 15,
     .lit = LitMetres,
     .ecrit = EcritMetres,
     .form = {.examples = Textes("112568", "128963")},
     .plane = {VersLambertBelge, DeLambertBelge}},
    {.code = "IFB",
     .caption = IfblBelgique,
     .tokens = 1,
     .content = Reference,
     .datums = {Bel72, Bel72, Bel72},
     .ellipsoid = 15,
     .lit = LitIfbl,
     .ecrit = EcritIfbl,
     .form = {.examples = {{{0, "G3 or G336 or G33643"}}}, .nommeUnePlace = NommeCarreBelge}},
    Lambert("LF1", LambertFrance1, Ntf, France(1)),
    Lambert("LF2", LambertFrance2, Ntf, France(2)),
    Lambert("LF3", LambertFrance3, Ntf, France(3)),
    Lambert("LF4", LambertFrance4, Ntf, France(4)),
    Lambert("LFE", LambertFranceEtendu, Ntf, France(5)),
    Lambert("NMA", LambertNordMaroc, Mer, Maroc(1)),
    Lambert("SMA", LambertSudMaroc, Mer, Maroc(2)),
}};
static_assert(!systems.back().code.empty(), "a system has no row");

}  // namespace table

using table::systems;

/// The three letters of a code as one number.
constexpr std::uint32_t Cle(std::string_view code) {
  std::uint32_t key = 0;
  for (const char letter : code) key = key << 8 | static_cast<unsigned char>(letter);
  return key;
}

}  // namespace

const CoordSystemInfo& InfoDe(CoordSystem system) {
  return systems[static_cast<std::size_t>(system)];
}

std::optional<CoordSystem> SystemeDe(std::string_view code) {
  constexpr auto keys = [] {
    std::array<std::uint32_t, CoordSystemCount> all{};
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = Cle(systems[i].code);
    return all;
  }();
  if (code.size() != 3) return std::nullopt;
  const auto found = std::find(keys.begin(), keys.end(), Cle(code));
  if (found == keys.end()) return std::nullopt;
  return static_cast<CoordSystem>(found - keys.begin());
}

std::int16_t IndiceDatum(const CoordState& state, SystemDatum datum) {
  if (EstSpecial(datum)) return state.Catalogue.DatumsSpeciaux[static_cast<std::size_t>(datum)];
  if (datum == SystemDatum::Spherique) return state.DatumSpherique;
  return datum == SystemDatum::Utm ? state.DatumUtm : std::int16_t{0};
}

std::int16_t DatumDuSysteme(const CoordState& state, CoordSystem system) {
  return IndiceDatum(state, InfoDe(system).datums.system);
}

}  // namespace talpena
