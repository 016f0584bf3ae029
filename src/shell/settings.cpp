#include "shell/settings.h"

#include <array>
#include <utility>
#include <variant>
#include <vector>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/systems.h"
#include "platform/commands.h"

namespace talpena {
namespace {

constexpr std::string_view Application = "TALPENA";
constexpr std::string_view DatumParDefaut = "EUR-M";

/// A global as its key sees it. Colours are signed 32-bit numbers in the store.
using Champ = std::variant<std::int16_t*, bool*, float*, std::uint32_t*, std::string*>;

template <auto Membre>
Champ Global(SettingsState& s) {
  return &(s.*Membre);
}

template <auto Tableau, std::size_t Index>
Champ Element(SettingsState& s) {
  return &(s.*Tableau)[Index];
}

struct Reglage {
  std::string_view section;
  std::string_view key;
  Champ (*champ)(SettingsState&);
  bool ecrit = true;  ///< SauveReglages writes it
};

using S = SettingsState;

// clang-format off
/// Every key of application "TALPENA" that is read at start, in the order of reading.
constexpr std::array reglages = {
    Reglage{"Language",   "Language",            Global<&S::Langue>},
    Reglage{"Grid",       "Height",              Global<&S::GrilleHauteur>},
    Reglage{"Grid",       "Width",               Global<&S::GrilleLargeur>},
    Reglage{"Grid",       "Top",                 Global<&S::GrilleHaut>},
    Reglage{"Grid",       "Left",                Global<&S::GrilleGauche>},
    Reglage{"Grid",       "WindowState",         Global<&S::EtatFenetre>},
    Reglage{"Grid",       "ColWidth0",           Element<&S::LargeurColonnes, 0>},
    Reglage{"Grid",       "ColWidth1",           Element<&S::LargeurColonnes, 1>},
    Reglage{"Grid",       "ColWidth2",           Element<&S::LargeurColonnes, 2>},
    Reglage{"Grid",       "ColWidth3",           Element<&S::LargeurColonnes, 3>},
    Reglage{"Grid",       "ColWidth4",           Element<&S::LargeurColonnes, 4>},
    Reglage{"Grid",       "ColWidth5",           Element<&S::LargeurColonnes, 5>},
    Reglage{"Grid",       "ColWidth6",           Element<&S::LargeurColonnes, 6>},
    Reglage{"Grid",       "ColWidth7",           Element<&S::LargeurColonnes, 7>},
    Reglage{"Grid",       "ColWidth8",           Element<&S::LargeurColonnes, 8>},
    Reglage{"Grid",       "ColWidth9",           Element<&S::LargeurColonnes, 9>},
    Reglage{"Grid",       "GridBackColor",       Global<&S::CouleurFondGrille>},
    Reglage{"Grid",       "GridForeColor",       Global<&S::CouleurTexteGrille>},
    Reglage{"Settings",   "LabelNumeric1",       Global<&S::LabelNumeric1>},
    Reglage{"Settings",   "LabelNumeric2",       Global<&S::LabelNumeric2>},
    Reglage{"Settings",   "Separator",           Global<&S::SeparateurChamps>},
    Reglage{"Settings",   "Ellipsoid",           Global<&S::EllipsoideReglage>},
    Reglage{"Settings",   "InputMode",           Global<&S::InputMode>},
    Reglage{"Settings",   "UtmAjust",            Global<&S::UtmAjust>},
    Reglage{"Settings",   "GridAjust",           Global<&S::GridAjust>},
    Reglage{"Settings",   "ExportPeriod",        Global<&S::ExportPeriod>},
    Reglage{"Settings",   "ExportLatitude",      Global<&S::ExportLatitude>},
    Reglage{"Settings",   "ExportLongitude",     Global<&S::ExportLongitude>},
    Reglage{"Settings",   "ExportNumber1",       Global<&S::ExportNumber1>},
    Reglage{"Settings",   "ExportNumber2",       Global<&S::ExportNumber2>},
    Reglage{"Settings",   "ExportEllipsoid",     Global<&S::ExportEllipsoid>},
    Reglage{"Settings",   "ExportOriginalCoord", Global<&S::ExportOriginalCoord>},
    Reglage{"Settings",   "ExportDate",          Global<&S::ExportDate>},
    Reglage{"Settings",   "ExportFreeField",     Global<&S::ExportFreeField>},
    Reglage{"Settings",   "ExportSex",           Global<&S::ExportSex>},
    Reglage{"Settings",   "ExportCoordSystem",   Global<&S::ExportCoordSystem>},
    Reglage{"Settings",   "Silence",             Global<&S::Silence>},
    Reglage{"Settings",   "SaveInterval",        Global<&S::SaveInterval>},
    Reglage{"Settings",   "AutoSave",            Global<&S::AutoSave>},
    Reglage{"Symbols",    "SymbolColor0",        Element<&S::SymbolColor, 0>},
    Reglage{"Symbols",    "SymbolColor1",        Element<&S::SymbolColor, 1>},
    Reglage{"Symbols",    "SymbolColor2",        Element<&S::SymbolColor, 2>},
    Reglage{"Symbols",    "StrokeColor",         Global<&S::StrokeColor>},
    Reglage{"Symbols",    "DiamPoints",          Global<&S::DiamPoints>},
    Reglage{"Localities", "File",                Global<&S::GeoFile>},
    Reglage{"Localities", "Sort",                Global<&S::GeoSort>},
    Reglage{"Localities", "Table",               Global<&S::GeoTable>},
    Reglage{"Localities", "ResearchField",       Global<&S::GeoResearchField>},
    Reglage{"Localities", "LatitudeField",       Global<&S::GeoLatitudeField>},
    Reglage{"Localities", "LongitudeField",      Global<&S::GeoLongitudeField>},
    Reglage{"Localities", "FullNameField",       Global<&S::GeoFullNameField>},
    Reglage{"Localities", "FipsField",           Global<&S::GeoFipsField>},
    Reglage{"Localities", "ProvinceField",       Global<&S::GeoProvinceField>},
    Reglage{"Localities", "FeatureField",        Global<&S::GeoFeatureField>},
    Reglage{"Localities", "CoordinatesType",     Global<&S::GeoCoordType>},
    Reglage{"Localities", "CountryName",         Global<&S::GeoCountryName>},
    Reglage{"Localities", "ProvinceName",        Global<&S::GeoProvinceName>},
    Reglage{"Localities", "Datum",               Global<&S::GeoDatum>},
    Reglage{"Localities", "DbType",              Global<&S::GeoDbType>},
    Reglage{"Files",      "LastFile1",           Element<&S::LastFiles, 0>},
    Reglage{"Files",      "LastFile2",           Element<&S::LastFiles, 1>},
    Reglage{"Files",      "LastFile3",           Element<&S::LastFiles, 2>},
    Reglage{"Files",      "LastFile4",           Element<&S::LastFiles, 3>},
    Reglage{"Paths",      "LastDeg",             Global<&S::LastDeg>, false},
};
// clang-format on

/// A stored number; the whole text must be one, with a point or a comma.
double Nombre(std::string_view text) {
  if (!EstNumerique(text)) throw TalpenaError(ErrorNumber::TypeMismatch, "Type mismatch");
  return Val(Remplace(text, ",", "."));
}

void Prend(std::int16_t& global, std::string_view text) { global = Arrondi16(Nombre(text)); }
void Prend(bool& global, std::string_view text) { global = Arrondi16(Nombre(text)) != 0; }
void Prend(float& global, std::string_view text) { global = EnSimple(Nombre(text)); }
void Prend(std::uint32_t& global, std::string_view text) {
  global = static_cast<std::uint32_t>(Arrondi32(Nombre(text)));
}
void Prend(std::string& global, std::string_view text) { global = text; }

std::string EnTexte(std::int16_t value) { return Str(std::int64_t{value}); }
std::string EnTexte(bool value) { return value ? "-1" : "0"; }
std::string EnTexte(float value) { return Str(value); }
std::string EnTexte(std::uint32_t value) {
  return Str(std::int64_t{static_cast<std::int32_t>(value)});
}
std::string EnTexte(const std::string& value) { return value; }

std::string TexteDe(const Champ& champ) {
  return std::visit([](const auto* global) { return EnTexte(*global); }, champ);
}

void PrendTexte(const Champ& champ, std::string_view text) {
  std::visit([&](auto* global) { Prend(*global, text); }, champ);
}

/// What a first run gives; most of it stands in the struct itself.
SettingsState Defauts(const SharedState& state, Platform& io, ScreenSize screen) {
  SettingsState defauts;
  defauts.GrilleHauteur = screen.hauteurTwips;
  defauts.GrilleLargeur = screen.largeurTwips;
  defauts.GeoFile = io.environment.LecteurCD() + "tlpgazet.mdb";
  defauts.LastDeg = state.AppDir;
  return defauts;
}

/// Runs one statement of the reading; a failure is shown with its place and reading goes on.
template <typename Statement>
void Tolere(const SharedState& state, Platform& io, std::string_view place, Statement&& statement) {
  ExecuteCommande(state, io, place, std::forward<Statement>(statement));
}

/// Where a value stands and what it is, for the error box.
std::string Place(const Reglage& reglage, std::string_view text) {
  constexpr std::size_t shown = 80;
  std::string place = std::string(Application) + " / " + std::string(reglage.section) + " / " +
                      std::string(reglage.key) + " = \"";
  return place.append(PremiersCaracteres(text, shown)).append("\"");
}

void LitReglage(ProcessState& state, Platform& io, const Reglage& reglage, SettingsState& defauts) {
  const std::string defaut = TexteDe(reglage.champ(defauts));
  const Champ global = reglage.champ(state);
  PrendTexte(global, defaut);
  const std::string text = io.settings.Lit(Application, reglage.section, reglage.key, defaut);
  Tolere(state, io, Place(reglage, text), [&] { PrendTexte(global, text); });
}

/// A language without texts would leave no caption to show.
void ControleLangue(ProcessState& state, Platform& io) {
  const std::int16_t stored = state.Langue;
  if (!BlocDeTextes(stored).empty()) return;
  state.Langue = SettingsState{}.Langue;
  Tolere(state, io, Place(reglages.front(), EnTexte(stored)),
         [&] { Texte(stored, MsgId::Titre); });  // raises what every caption would
}

void ForceEllipsoide(SettingsState& s) {
  if (s.EllipsoideReglage == 0) s.EllipsoideReglage = 15;
  if (s.InputMode < 0 || s.InputMode >= CoordSystemCount) return;
  const std::int16_t forced = InfoDe(static_cast<CoordSystem>(s.InputMode)).ellipsoid;
  if (forced != 0) s.EllipsoideReglage = forced;
}

/// A default datum: one that the catalogue lacks gives way to "EUR-M".
void PrendDatum(const DatumCatalogue& catalogue, std::string& code, std::int16_t& index) {
  index = ChercheDatum(catalogue, code);
  if (index != 0) return;
  code = DatumParDefaut;
  index = ChercheDatum(catalogue, code);
}

void ChargeDatumsParDefaut(ProcessState& state, Platform& io) {
  const auto lit = [&io](std::string_view key) {
    return io.settings.Lit("TLP", "Datum", key, DatumParDefaut);
  };
  const std::string code = lit("DestCode");
  state.document.PrendDatumParDefaut(code, ChercheDatum(state.Catalogue, code));
  state.DatumUtmCode = lit("UTM");  // an old key, always overwritten by the next
  state.DatumUtmCode = lit("UTMCode");
  PrendDatum(state.Catalogue, state.DatumUtmCode, state.DatumUtm);
  state.DatumSpheriqueCode = lit("FromCode");
  PrendDatum(state.Catalogue, state.DatumSpheriqueCode, state.DatumSpherique);
}

/// The menu program of the same installation may name a working folder.
void ChangeDossierDuMenu(const SharedState& state, Platform& io) {
  const std::string folder = io.settings.Lit("TLPMENU.INI", "TLPMENU", "WorkingDir", "");
  if (folder.empty()) return;
  Tolere(state, io, folder, [&] {
    if (!io.environment.ChangeDossier(folder)) {
      throw TalpenaError(ErrorNumber::PathNotFound, "Path not found");
    }
  });
}

}  // namespace

void ChargeReglages(ProcessState& state, Platform& io, ScreenSize screen) {
  SettingsState defauts = Defauts(state, io, screen);
  for (const Reglage& reglage : reglages) LitReglage(state, io, reglage, defauts);
  ControleLangue(state, io);
  ForceEllipsoide(state);
  ChargeDatumsParDefaut(state, io);
  ChangeDossierDuMenu(state, io);
}

std::int16_t LangueReglee(SettingsStore& settings) {
  const Reglage& first = reglages.front();
  const std::string text = settings.Lit(Application, first.section, first.key, "");
  try {
    const std::int16_t stored = Arrondi16(Nombre(text));
    if (!BlocDeTextes(stored).empty()) return stored;
  } catch (const TalpenaError&) {  // no number
  }
  return SettingsState{}.Langue;
}

void SauveReglages(const ProcessState& state, Platform& io) {
  SettingsState copie = state;
  std::vector<SettingEntry> entries;
  for (const Reglage& reglage : reglages) {
    if (!reglage.ecrit) continue;
    entries.push_back(
        {std::string(reglage.section), std::string(reglage.key), TexteDe(reglage.champ(copie))});
  }
  io.settings.EcritTout(Application, entries);
}

}  // namespace talpena
