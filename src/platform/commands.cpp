#include "platform/commands.h"

#include "common/error_words.h"
#include "common/numbers.h"

namespace talpena {

void Bip(const SharedState& state, Platform& io) {
  if (!state.Silence) io.sound.Bip();
}

void AfficheErreur(Platform& io, int number, const std::string& description,
                   std::string_view context) {
  std::string text;
  if (!context.empty()) text = std::string(context) + "\n\n";
  text += "Error " + Str(std::int64_t{number}) + "\n" + description;
  io.dialogues.Demande({.text = text, .icon = Icon::Exclamation});
}

void AfficheErreur(const SharedState& state, Platform& io, const TalpenaError& error,
                   std::string_view context) {
  AfficheErreur(io, error.number(), DescriptionErreur(state.Langue, error), context);
}

}  // namespace talpena
