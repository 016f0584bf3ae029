#include "store/record/input_modes.h"

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

std::string TexteExemple(std::int16_t langue, const Example& example) {
  return example.id != 0 ? Texte(langue, example.id) : std::string(example.text);
}

/// Texts that were typed for one system mean the same in the other.
bool MemeSens(CoordSystem a, CoordSystem b) {
  const auto plane = [](CoordSystem system) { return InfoDe(system).plane.versMetres != nullptr; };
  return a == b || (plane(a) && plane(b));
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

bool ForceDatum(CoordSystem system) { return EstSpecial(InfoDe(system).datums.system); }

bool EstUtm(CoordSystem system) { return InfoDe(system).datums.system == SystemDatum::Utm; }

void PrendDatum(const StoreState& state, RecordScreen& ecran, std::int16_t datum) {
  ecran.datum = datum;
  if (datum != 0) ecran.lblDatum = Rogne(state.Catalogue.Datum(datum).code);
}

std::vector<std::string> NomsDesSystemes(std::int16_t langue) {
  std::vector<std::string> names;
  names.reserve(CoordSystemCount);
  for (int i = 0; i < CoordSystemCount; ++i) {
    names.push_back(Texte(langue, InfoDe(static_cast<CoordSystem>(i)).caption));
  }
  return names;
}

void AdapteInputbox(StoreState& state, RecordScreen& ecran) {
  ecran.system = SystemeCourant(state);
  const CoordSystemInfo& info = InfoDe(ecran.system);
  ecran.lblSysteme = Minuscules(info.code);
  ecran.layout = {};
  ecran.layout.datumFixed = ForceDatum(ecran.system);
  std::size_t token = 0;
  for (const int box : BoitesDe(ecran.system)) {
    const Example& example = info.form.examples[token++];
    ecran.layout.boxes[static_cast<std::size_t>(box)] = {true, TexteExemple(state.Langue, example)};
  }
  ecran.valeurLibreVisible = ecran.layout.datumFixed;
  if (!ecran.layout.datumFixed) return;
  ecran.lblDatum = CodeSpecial(info.datums.system);
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
