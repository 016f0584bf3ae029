#include "interchange/export_options.h"

#include <algorithm>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/commands.h"

namespace talpena {
namespace {

using S = SettingsState;

constexpr std::array<ExportBox, 10> boxes{{
    {&S::ExportPeriod, MsgId::Periode},
    {&S::ExportLatitude, MsgId::ExportLatitude},
    {&S::ExportLongitude, MsgId::ExportLongitude},
    {&S::ExportNumber1, MsgId::Nombre1},
    {&S::ExportNumber2, MsgId::Nombre2},
    {&S::ExportEllipsoid, MsgId::Ellipsoide},
    {&S::ExportOriginalCoord, MsgId::ExportCoordOriginales},
    {&S::ExportDate, MsgId::Date},
    {&S::ExportFreeField, MsgId::ChampLibre},
    {&S::ExportSex, 0, "Sex"},
}};

/// The nine without Sex, which alone is no export.
constexpr std::ptrdiff_t boxesThatCount = 9;

}  // namespace

const std::array<ExportBox, 10>& CasesExport() { return boxes; }

ExportForm RempliOptionsExport(const SettingsState& settings) {
  ExportForm form;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    form.IncludeField[i] = settings.*boxes[i].flag != 0;
  }
  if (settings.ExportCoordSystem == SystemesExport[1].value) form.cmbSystem = 1;
  return form;
}

void ValideOptionsExport(SharedState& state, Platform& io, const ExportForm& form) {
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    state.*boxes[i].flag = form.IncludeField[i] ? 1 : 0;
  }
  const auto* const first = form.IncludeField.begin();
  if (std::none_of(first, first + boxesThatCount, [](bool on) { return on; })) {
    Bip(state, io);
    io.dialogues.Demande(
        {.text = Texte(state.Langue, MsgId::ExportImpossible), .icon = Icon::Exclamation});
  }
  state.ExportCoordSystem = SystemesExport.at(form.cmbSystem).value;
}

}  // namespace talpena
