#include "shell/preferences.h"

#include <algorithm>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coord_commands/adjust.h"
#include "coords/datum.h"
#include "coords/systems.h"
#include "platform/commands.h"
#include "store/edition.h"

namespace talpena {
namespace {

constexpr std::size_t codeWidth = 5;

// The same words in every language.
constexpr const char* titreDossier = "Please choose a folder";
constexpr const char* redemarrer =
    "You have to restart Talpena in order to change the temporary working folder";

/// The entry of a code; the code itself when the catalogue lacks it.
std::string EntreeDuCode(const DatumCatalogue& catalogue, const std::string& code) {
  const std::int16_t index = ChercheDatum(catalogue, code);
  return index == 0 ? code : EntreeDatum(catalogue.Datum(index));
}

/// The text of txtSaveInterval put right: what is below 1, or no number, is 5; 100 is the most.
std::string CorrigeIntervalle(const std::string& text) {
  const double minutes = Val(Remplace(text, ",", "."));
  if (!(minutes >= 1)) return "5";
  return minutes > 100 ? "100" : text;
}

/// The datums that the form names.
struct DatumsChoisis {
  std::int16_t fichier = 0;  ///< 0: the present one, which the catalogue lacks
  std::int16_t utm = 0;
};

void Refuse(CommandContext c, int message, std::string_view text) {
  Bip(c.state, c.io);
  c.io.dialogues.Demande({.text = Texte(c.state.Langue, message) + "\n\n" + std::string(text),
                          .icon = Icon::Exclamation});
}

/// Empty, and the focus set, when a text is no datum that can be taken.
std::optional<DatumsChoisis> LitDatums(CommandContext c, const PreferencesForm& form,
                                       PreferencesFocus& focus) {
  const DatumCatalogue& catalogue = c.state.Catalogue;
  const DatumsChoisis datums{DatumDuTexte(catalogue, form.cmbDatum),
                             DatumDuTexte(catalogue, form.cmbDatumUTM)};
  const bool unchanged = c.document().Entete().DatumFichier == 0 &&
                         form.cmbDatum == c.document().Entete().DatumFichierCode;
  if (datums.fichier == 0 && !unchanged) {
    focus = PreferencesFocus::cmbDatum;
    DitDatumAbsent(c.state, c.io, form.cmbDatum);
    return std::nullopt;
  }
  if (datums.utm == c.state.DatumUtm && datums.utm != 0) return datums;
  if (datums.utm != 0 && PermetUtm(catalogue.Datum(datums.utm))) return datums;
  focus = PreferencesFocus::cmbDatumUTM;
  if (datums.utm == 0) {
    DitDatumAbsent(c.state, c.io, form.cmbDatumUTM);
  } else {
    Refuse(c, MsgId::DatumSansUtm, form.cmbDatumUTM);
  }
  return std::nullopt;
}

bool ConfirmeDatum(CommandContext c) {
  const std::int16_t langue = c.state.Langue;
  Bip(c.state, c.io);
  return c.io.dialogues.Demande({.text = Texte(langue, MsgId::DatumChange) + "\r" +
                                         Texte(langue, MsgId::RecalculeCoord),
                                 .icon = Icon::Question,
                                 .buttons = Buttons::OkCancel}) == Answer::Ok;
}

void PrendReglages(StoreState& state, const PreferencesForm& form) {
  state.LabelNumeric1 = form.ChampNumerique[0];
  state.LabelNumeric2 = form.ChampNumerique[1];
  if (form.Combo2 >= 0) state.InputMode = static_cast<std::int16_t>(form.Combo2);
  state.Silence = form.OptSilence;
  state.SeparateurChamps = form.TxtSepar;
  state.SaveInterval = Arrondi16(Val(Remplace(form.txtSaveInterval, ",", ".")));
  state.AutoSave = form.ChkAutoSave;
}

/// Takes a datum into a pair of globals; 0 leaves them.
void PrendDatum(const DatumCatalogue& catalogue, std::int16_t datum, std::string& code,
                std::int16_t& index) {
  if (datum == 0) return;
  code = Rogne(catalogue.Datum(datum).code);
  index = datum;
}

/// That of the rows: a change of the open file while they are on show, by which they are computed
/// anew.
void PrendDatumFichier(CommandContext c, std::int16_t datum) {
  Document& document = c.document();
  if (datum == 0) return;
  const std::string code(Rogne(c.state.Catalogue.Datum(datum).code));
  if (!document.Montre().grille) return document.PrendDatumParDefaut(code, datum);
  const std::string name = "Preferences";
  const auto prend = [&](Edition& change) {
    change.Entete().DatumFichierCode = code;
    change.Entete().DatumFichier = datum;
  };
  if (datum != document.Entete().DatumFichier) {
    RecalculeSurDatum(c, name, prend);
    return;
  }
  if (code != document.Entete().DatumFichierCode) {  // in other blanks
    Edition change(document, name);
    change.LaisseNonModifie();
    prend(change);
    change.Valide();
  }
  // Not only behind a change of datum: OK has always computed the rows that are shown anew.
  // Held by PreferTest.OkComputesTheRowsAnewAlsoOnTheSameDatum.
  RecalculeSurDatum(c, name);
}

void PrendDatums(CommandContext c, const DatumsChoisis& datums, const std::string& spherique) {
  StoreState& state = c.state;
  const DatumCatalogue& catalogue = state.Catalogue;
  PrendDatumFichier(c, datums.fichier);
  PrendDatum(catalogue, datums.utm, state.DatumUtmCode, state.DatumUtm);
  std::vector<SettingEntry> entries = {
      {"Datum", "DestCode", c.document().Entete().DatumFichierCode}};
  if (!Rogne(spherique).empty()) {
    PrendDatum(catalogue, ChercheDatum(catalogue, spherique), state.DatumSpheriqueCode,
               state.DatumSpherique);
    entries.push_back({"Datum", "FromCode", state.DatumSpheriqueCode});
  }
  entries.push_back({"Datum", "UTMCode", state.DatumUtmCode});
  ExecuteCommande(state, c.io, {}, [&] { c.io.settings.EcritTout("TLP", entries); });
}

PreferencesOutcome Valide(CommandContext c, PreferencesForm& form) {
  form.txtSaveInterval = CorrigeIntervalle(form.txtSaveInterval);
  PreferencesOutcome outcome;
  const auto datums = LitDatums(c, form, outcome.focus);
  if (!datums) return outcome;
  const bool montree = c.document().Montre().grille;
  const bool autre = datums->fichier != c.document().Entete().DatumFichier;
  if (autre && montree && !ConfirmeDatum(c)) return {};
  PrendReglages(c.state, form);
  PrendDatums(c, *datums, form.lblDatumOrig);
  return {.ferme = true};
}

}  // namespace

std::string EntreeDatum(const DatumRecord& datum) {
  return datum.code + " - " + datum.name + " (" + datum.application + ")";
}

std::vector<std::string> EntreesDatums(const DatumCatalogue& catalogue) {
  std::vector<std::string> entries;
  for (const DatumRecord& datum : catalogue.Datums) entries.push_back(EntreeDatum(datum));
  return entries;
}

std::vector<std::string> EntreesDatumsUtm(const CoordState& state) {
  std::vector<std::string> entries;
  std::int16_t index = 0;
  for (const DatumRecord& datum : state.Catalogue.Datums) {
    if (++index == state.DatumUtm || PermetUtm(datum)) entries.push_back(EntreeDatum(datum));
  }
  return entries;
}

std::int16_t DatumDuTexte(const DatumCatalogue& catalogue, std::string_view text) {
  const std::int16_t listed = ChercheDatum(catalogue, PremiersCaracteres(text, codeWidth));
  if (listed != 0 && text == EntreeDatum(catalogue.Datum(listed))) return listed;
  const auto typed = std::find_if(
      catalogue.Datums.begin(), catalogue.Datums.end(),
      [&](const DatumRecord& datum) { return EgalSansCasse(Rogne(datum.code), Rogne(text)); });
  if (typed == catalogue.Datums.end()) return 0;
  return static_cast<std::int16_t>(typed - catalogue.Datums.begin() + 1);
}

PreferencesForm RempliPrefer(const StoreState& state, Platform& io) {
  PreferencesForm form;
  if (state.InputMode >= 0 && state.InputMode < CoordSystemCount) form.Combo2 = state.InputMode;
  form.cmbDatum = EntreeDuCode(state.Catalogue, state.document.Entete().DatumFichierCode);
  form.lblDatumOrig = state.DatumSpheriqueCode;
  form.cmbDatumUTM = EntreeDuCode(state.Catalogue, state.DatumUtmCode);
  form.ChampNumerique = {state.LabelNumeric1, state.LabelNumeric2};
  form.OptSilence = state.Silence;
  form.TxtSepar = state.SeparateurChamps;
  form.ChkAutoSave = state.AutoSave;
  form.txtSaveInterval = Str(std::int64_t{state.SaveInterval});
  form.txtWorkingDir =
      io.settings.Lit("Talpena", "Config", "WorkingDir", io.environment.DossierTemporaire());
  return form;
}

PreferencesOutcome ValidePrefer(CommandContext c, PreferencesForm& form) {
  PreferencesOutcome outcome;
  ExecuteCommande(c.state, c.io, {}, [&] { outcome = Valide(c, form); });
  return outcome;
}

void ChoisitWorkingDir(StoreState& state, Platform& io, PreferencesForm& form) {
  ExecuteCommande(state, io, {}, [&] {
    const std::string folder =
        io.dialogues.ChoisitDossier(titreDossier, io.settings.Lit("DLV", "Paths", "Data", ""));
    if (Minuscules(folder) == Minuscules(form.txtWorkingDir)) return;
    io.settings.Ecrit("Talpena", "Config", "WorkingDir", folder);
    form.txtWorkingDir = folder;
    Bip(state, io);
    io.dialogues.Demande({.text = redemarrer, .icon = Icon::Exclamation});
  });
}

}  // namespace talpena
