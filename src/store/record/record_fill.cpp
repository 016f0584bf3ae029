// The record editor shows a row.
#include <utility>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/tokens.h"
#include "platform/commands.h"
#include "store/cell_text.h"
#include "store/record/date_mask.h"
#include "store/record/free_text.h"
#include "store/record/input_boxes.h"
#include "store/record/input_modes.h"
#include "store/record/record_editor.h"
#include "store/record/row_texts.h"
#include "store/table.h"

namespace talpena {
namespace {

/// Bookmark of the current row; empty off a row.
std::optional<Bookmark> RangeeCourante(StoreState& state) {
  try {
    return state.document.Data1.recordset().GetBookmark();
  } catch (const TalpenaError&) {
    return std::nullopt;
  }
}

void MontreDate(RecordScreen& ecran, std::string date) {
  const auto mask = DateEnMasque(date);
  ecran.ChampAnnee = mask.value_or(std::string(MasqueDateVide));
  ecran.anneeLue = ecran.ChampAnnee;
  if (!mask) ecran.dateAutre = std::move(date);
}

/// Takes a row's DATUM, or the default one when it has none; WGS84 for one that the catalogue
/// lacks, whose code comes back.
std::string MontreDatum(const StoreState& state, RecordScreen& ecran, std::string_view stored) {
  std::string code = Majuscules(Rogne(stored));
  const bool own = !code.empty();
  if (!own) code = Rogne(state.DatumSpheriqueCode);
  const std::int16_t datum = ChercheDatum(state.Catalogue, code);
  if (datum == 0) {
    ecran.lblDatum = "WGS84";
    PrendDatum(state, ecran, state.Catalogue.DatumWgs84);
    return code;
  }
  PrendDatum(state, ecran, datum);
  if (own) ecran.datumPropre = datum;
  return {};
}

/// Takes a row's ORIGINAL: its system becomes InputMode, its tokens fill the boxes.
void MontreOriginal(StoreState& state, RecordScreen& ecran, std::string_view stored) {
  const std::string original = Majuscules(Rogne(AvecBlancsSimples(stored)));
  const auto system = SystemeDe(PremiersCaracteres(original, 3));
  if (system) state.InputMode = static_cast<std::int16_t>(*system);
  AdapteInputbox(state, ecran);
  if (!system) return;
  if (ForceDatum(*system)) ecran.datumPropre = 0;  // DATUM came with the system
  RemplitBoites(ecran, original);
  NettoieBoites(ecran);
}

void MontreTexteLibre(const StoreState& state, RecordScreen& ecran, std::string_view comment) {
  FreeText text =
      DecoupeTexteLibre(comment, state.document.Entete().FreeFieldSeparator, ecran.Grid.size());
  ecran.Grid = std::move(text.fields);
  ecran.ChampLibre = std::move(text.remark);
}

/// Once per row, however often it is shown in a row.
void DitDatumInconnu(CommandContext c, RecordScreen& ecran, const std::string& code) {
  const std::optional<Bookmark> row = RangeeCourante(c.state);
  const bool told = row && row == ecran.datumSignale;
  ecran.datumSignale = code.empty() ? std::nullopt : row;
  if (code.empty() || told) return;
  Bip(c.state, c.io);
  c.io.dialogues.Demande(
      {.text = code + "\r" + Texte(c.state.Langue, MsgId::DatumAbsent), .icon = Icon::Exclamation});
}

}  // namespace

std::string TexteDuChamp(StoreState& state, int field) {
  try {
    Recordset& rows = state.document.Data1.recordset();
    return TexteDeCellule(rows.Fields().at(static_cast<std::size_t>(field)), rows.Get(field));
  } catch (const TalpenaError&) {
    return {};
  }
}

void MontreNombres(StoreState& state, RecordScreen& ecran) {
  ecran.ChampPeriode = TexteDuChamp(state, Column::PERIOD);
  ecran.ChampLatitude = TexteDuChamp(state, Column::LATITUDE);
  ecran.ChampLongitude = TexteDuChamp(state, Column::LONGITUDE);
  ecran.ChampCh1 = TexteDuChamp(state, Column::N1);
  ecran.ChampCh2 = TexteDuChamp(state, Column::N2);
}

void CfgFreeFields(const StoreState& state, RecordScreen& ecran) {
  ecran.Grid.assign(static_cast<std::size_t>(state.document.Entete().FreeFieldCount), {});
}

std::vector<std::string> EtiquettesChampsLibres(const StoreState& state) {
  std::vector<std::string> labels;
  for (const FreeFieldDef& field : state.document.Entete().FreeFieldDefs) {
    labels.emplace_back(RogneDroite(field.Label));
  }
  labels.resize(static_cast<std::size_t>(state.document.Entete().FreeFieldCount));
  return labels;
}

void RempliDessus(CommandContext c, RecordScreen& ecran) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    StoreState& state = c.state;
    const auto told = ecran.datumSignale;
    ecran = {};
    ecran.datumSignale = told;
    CfgFreeFields(state, ecran);

    MontreNombres(state, ecran);
    ecran.ChampSex = TexteDuChamp(state, Column::SEX);
    MontreDate(ecran, TexteDuChamp(state, Column::DATE));
    const std::string unknown = MontreDatum(state, ecran, TexteDuChamp(state, Column::DATUM));
    MontreOriginal(state, ecran, TexteDuChamp(state, Column::ORIGINAL));
    MontreTexteLibre(state, ecran, TexteDuChamp(state, Column::COMMENT));
    ecran.lblCpt = TextePosition(state.document.Data1);
    ecran.referenceLue = CleReference(ecran);

    AfficheControle(c, ecran);
    MetAvis(state, ecran);
    DitDatumInconnu(c, ecran, unknown);
  });
}

}  // namespace talpena
