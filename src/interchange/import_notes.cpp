#include "interchange/import_notes.h"

#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"

namespace talpena {

std::string NoteDuDatum(const CoordState& state, std::string_view code) {
  const std::string_view name = Rogne(code);
  const std::int16_t index = ChercheDatum(state.Catalogue, name);
  if (index == 0) {
    return Remplace(Texte(state.Langue, MsgId::NoteDatumAbsent), "%1", name);
  }
  const std::string note = Texte(state.Langue, MsgId::NoteDatum);
  return Remplace(Remplace(note, "%2", name), "%1", Rogne(state.Catalogue.Datum(index).name));
}

std::string NoteDeCoupe(std::int16_t langue, std::int64_t line) {
  return Remplace(Texte(langue, MsgId::ListeCoupee), "%1", Str(line));
}

}  // namespace talpena
