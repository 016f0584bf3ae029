#include "coords/datum_choice.h"

#include <cstddef>
#include <cstdint>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/systems.h"

namespace talpena {
namespace {

constexpr std::size_t codeLength = 5;
bool EstEnUtm(std::int16_t inputMode) {
  return inputMode == static_cast<int>(CoordSystem::Utm) ||
         inputMode == static_cast<int>(CoordSystem::Mgr);
}

}  // namespace

std::string CodeDuLabel(std::string_view label) {
  return std::string(Rogne(PremiersCaracteres(label, codeLength)));
}

DatumChoisi ChoisitDatum(const CoordState& state, Platform& io, const std::string& label,
                         std::string_view code) {
  const std::int16_t index =
      Rogne(code).empty() ? std::int16_t{0} : ChercheDatum(state.Catalogue, code);
  if (index == 0) return {label};
  const DatumRecord& datum = state.Catalogue.Datum(index);
  const std::string chosen(Rogne(datum.code));
  if (!EstEnUtm(state.InputMode) || PermetUtm(datum)) return {chosen};
  io.dialogues.Demande(
      {.text = Texte(state.Langue, MsgId::DatumSansUtm) + "\n" + chosen, .icon = Icon::Stop});
  return {label, false};
}

}  // namespace talpena
