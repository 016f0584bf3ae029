#include "store/record/input_modes.h"

#include <array>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"
#include "platform/commands.h"
#include "store/record/compute.h"
#include "store/record/input_boxes.h"
#include "store/record/record_editor.h"

namespace talpena {
namespace {

/// Codes of DatumsSpeciaux, for a catalogue that lacks one.
constexpr std::array<std::string_view, 7> specialCodes{"",    "EUR-M", "NTF", "OGB-M",
                                                       "IRL", "BEL72", "MER"};

/// What stands beside the boxes of a system: an id of the string table, or a text as it is.
struct Example {
  int id = 0;
  std::string_view text = {};
};
using Examples = std::array<Example, 3>;

constexpr Examples metres{{{}, {0, "x (mètres)"}, {0, "y (mètres)"}}};

Examples ExemplesDe(CoordSystem system) {
  using namespace MsgId;
  switch (system) {
    case CoordSystem::Deg:
      return {{{}, {0, "+52.98555"}, {0, "-003.56963"}}};
    case CoordSystem::Dms:
      return {{{}, {ExempleDmsLatitude}, {ExempleDmsLongitude}}};
    case CoordSystem::Utm:
      return {{{ExempleFuseau}, {ExempleEst}, {ExempleNord}}};
    case CoordSystem::Mgr:
      return {{{ExempleFuseau}, {ExempleZone}, {ExempleMgrs}}};
    case CoordSystem::Grp:
      return {{{}, {0, "+48.9552"}, {0, "+003.5423"}}};
    case CoordSystem::Bng:
      return {{{}, {0, "SM"}, {0, "2354"}}};
    case CoordSystem::Itm:
      return {{{}, {0, "IL"}, {0, "2354"}}};
    case CoordSystem::Lmb:
      return {{{}, {0, "112568"}, {0, "128963"}}};
    case CoordSystem::Ifb:
      return {{{}, {}, {0, "G3 or G336 or G33643"}}};
    default:
      return metres;
  }
}

std::string TexteExemple(std::int16_t langue, const Example& example) {
  return example.id != 0 ? Texte(langue, example.id) : std::string(example.text);
}

/// Texts that were typed for one system mean the same in the other.
bool MemeSens(CoordSystem a, CoordSystem b) {
  return a == b ||
         (InfoDe(a).notation == Notation::Metres && InfoDe(b).notation == Notation::Metres);
}

bool SertUtm(const StoreState& state, std::int16_t datum) {
  return PermetUtm(state.Catalogue.Datum(datum));
}

/// The datum that a row has in a system which implies none.
std::int16_t DatumLibre(const StoreState& state, const RecordScreen& ecran, CoordSystem system) {
  const std::int16_t own = ecran.datumPropre;
  if (own != 0 && (!EstUtm(system) || SertUtm(state, own))) return own;
  return DatumDuSysteme(state, system);
}

}  // namespace

CoordSystem SystemeCourant(const StoreState& state) {
  const bool known = state.InputMode >= 0 && state.InputMode < CoordSystemCount;
  return known ? static_cast<CoordSystem>(state.InputMode) : CoordSystem::Mgr;
}

bool ForceDatum(CoordSystem system) { return InfoDe(system).datumSlot > 0; }

bool EstUtm(CoordSystem system) { return system == CoordSystem::Utm || system == CoordSystem::Mgr; }

void PrendDatum(const StoreState& state, RecordScreen& ecran, std::int16_t datum) {
  ecran.datum = datum;
  if (datum != 0) ecran.lblDatum = Rogne(state.Catalogue.Datum(datum).code);
}

std::vector<std::string> NomsDesSystemes(std::int16_t langue) {
  constexpr int first = 8;  // systems up to LMB have their ids in one run, the others in another
  std::vector<std::string> names;
  names.reserve(CoordSystemCount);
  for (int i = 0; i < CoordSystemCount; ++i) {
    names.push_back(
        Texte(langue, i < first ? MsgId::PremierSysteme + i : MsgId::IfblBelgique + i - first));
  }
  return names;
}

void AdapteInputbox(StoreState& state, RecordScreen& ecran) {
  ecran.system = SystemeCourant(state);
  const CoordSystemInfo& info = InfoDe(ecran.system);
  ecran.lblSysteme = Minuscules(info.code);
  ecran.layout = {};
  ecran.layout.datumFixed = ForceDatum(ecran.system);
  const Examples examples = ExemplesDe(ecran.system);
  for (const int box : BoitesDe(ecran.system)) {
    const auto i = static_cast<std::size_t>(box);
    ecran.layout.boxes[i] = {true, TexteExemple(state.Langue, examples[i])};
  }
  ecran.valeurLibreVisible = ecran.layout.datumFixed;
  if (!ecran.layout.datumFixed) return;
  ecran.lblDatum = specialCodes[static_cast<std::size_t>(info.datumSlot)];
  PrendDatum(state, ecran, DatumDuSysteme(state, ecran.system));
}

void cmbSystem_Click(CommandContext c, RecordScreen& ecran, int index) {
  if (index < 0 || index >= CoordSystemCount) return;
  ExecuteCommande(c.state, c.io, {}, [&] {
    const CoordSystem before = ecran.system;
    c.state.InputMode = static_cast<std::int16_t>(index);
    AdapteInputbox(c.state, ecran);
    if (ecran.system == before) return;
    if (!ecran.layout.datumFixed) {
      PrendDatum(c.state, ecran, DatumLibre(c.state, ecran, ecran.system));
    }
    const bool kept = MemeSens(before, ecran.system);
    if (!kept) ecran.EditBox = {};
    if (kept && !ecran.EditBox[2].empty()) NoteChangement(ecran);
    CalculePoint(c, ecran);
    AfficheControle(c, ecran);
    MetAvis(c.state, ecran);
  });
}

void cmdChangeDatum_Click(CommandContext c, RecordScreen& ecran, const std::string& code) {
  if (Rogne(code).empty() || ecran.layout.datumFixed) return;
  ExecuteCommande(c.state, c.io, {}, [&] {
    const std::int16_t datum = ChercheDatum(c.state.Catalogue, code);
    if (datum == 0) return DitDatumAbsent(c.state, c.io, Rogne(code));
    if (EstUtm(ecran.system) && !SertUtm(c.state, datum)) {
      Bip(c.state, c.io);
      c.io.dialogues.Demande(
          {.text = Texte(c.state.Langue, MsgId::DatumSansUtm), .icon = Icon::Exclamation});
      return;
    }
    PrendDatum(c.state, ecran, datum);
    ecran.datumPropre = datum;
    NoteChangement(ecran);
    CalculePoint(c, ecran);
    AfficheControle(c, ecran);
    MetAvis(c.state, ecran);
  });
}

}  // namespace talpena
