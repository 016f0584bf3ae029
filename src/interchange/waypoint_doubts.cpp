#include "interchange/waypoint_doubts.h"

#include "common/grouped_number.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"

namespace talpena {

void WaypointDoubts::Compte(const ImportRecord& record) {
  if (record.dropped != 0 || record.doubt == 0) return;
  if (count_++ > 0) return;
  line_ = record.line;
  text_ = record.doubt;
}

std::string WaypointDoubts::EnMots(std::int16_t langue) const {
  if (count_ == 0) return {};
  std::string words =
      Remplace(Texte(langue, MsgId::PointsAVoir), "%1", NombreGroupe(langue, count_));
  words = Remplace(words, "%2", Str(line_));
  return Remplace(words, "%3", Texte(langue, text_));
}

}  // namespace talpena
