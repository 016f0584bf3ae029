#include "interchange/waypoint_doubts.h"

#include "common/grouped_number.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"

namespace talpena {

void WaypointDoubts::Compte(const ImportRecord& record) {
  if (record.dropped != 0 || record.doubt == 0) return;
  Kind& kind = record.doubt == MsgId::DouteLigne ? noWaypoints_ : odd_;
  if (kind.count++ > 0) return;
  kind.line = record.line;
  kind.text = record.doubt;
}

std::vector<std::string> WaypointDoubts::EnMots(std::int16_t langue) const {
  std::vector<std::string> all;
  for (const Kind& kind : {odd_, noWaypoints_}) {
    if (kind.count == 0) continue;
    const std::string words =
        Remplace(Texte(langue, MsgId::PointsAVoir), "%1", NombreGroupe(langue, kind.count));
    all.push_back(Remplace(Remplace(words, "%2", Str(kind.line)), "%3", Texte(langue, kind.text)));
  }
  return all;
}

}  // namespace talpena
