#include "store/row_room.h"

#include <algorithm>

#include "common/grouped_number.h"
#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/commands.h"

namespace talpena {
namespace {

// What an empty row takes, on the large side; the typing that is to come has some of it too.
constexpr std::int64_t diskPerRow = 64;
constexpr std::int64_t memoryPerRow = 64;

Answer Demande(CommandContext c, const std::string& text, Icon icon, Buttons buttons) {
  Bip(c.state, c.io);
  return c.io.dialogues.Demande(
      {.text = text, .icon = icon, .buttons = buttons, .defaultButton = Answer::No});
}

}  // namespace

std::int64_t PlacePourLignes(Environment& environment, const std::string& workingDir,
                             std::int64_t rows) {
  std::int64_t room = PlusDeLignes - rows;
  if (const auto memory = environment.MemoireLibre()) {
    room = std::min(room, *memory / memoryPerRow);
  }
  if (const auto disk = environment.PlaceLibre(workingDir)) {
    room = std::min(room, *disk / diskPerRow);
  }
  return std::max<std::int64_t>(room, 0);
}

bool AccepteLignesVides(CommandContext c, std::int64_t count, std::int64_t rows) {
  const std::int16_t langue = c.state.Langue;
  const std::int64_t room = PlacePourLignes(c.io.environment, c.state.WorkingDir, rows);
  const std::string number = NombreGroupe(langue, count);
  if (count > room) {
    const std::string text = Remplace(Texte(langue, MsgId::SansPlace), "%1", number);
    Demande(c, Remplace(text, "%2", NombreGroupe(langue, room)), Icon::Exclamation, Buttons::Ok);
    return false;
  }
  if (count <= BeaucoupDeLignes) return true;
  return Demande(c, Remplace(Texte(langue, MsgId::AjouteTant), "%1", number), Icon::Question,
                 Buttons::YesNo) == Answer::Yes;
}

}  // namespace talpena
