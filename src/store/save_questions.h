// The question behind every failure of a save.
#pragma once
#include <string_view>

#include "common/error_words.h"
#include "platform/commands.h"
#include "platform/wait_view.h"
#include "store/deg_sink.h"
#include "store/save_file.h"

namespace talpena {

/// Thrown when the user does not want to go on with a save.
struct SauvegardeRefusee {};

/// The file under way. Each doubt and each failure is shown, with the question whether to go on; No
/// throws SauvegardeRefusee.
class SaveQuestions final : public DegSink {
 public:
  SaveQuestions(const SharedState& state, Platform& io, WaitView& attente, SaveFile& file)
      : state_(state), io_(io), attente_(attente), file_(file) {}

  void Ecrit(std::string_view bytes) override { file_.Ecrit(bytes); }

  void Doute(const TalpenaError& doubt) override {
    Bip(state_, io_);
    const std::string text =
        "Erreur pendant la sauvegarde\n" + DescriptionErreur(state_.Langue, doubt) + "\nContinuer?";
    const Answer answer = io_.dialogues.Demande({.text = text, .buttons = Buttons::YesNo});
    if (answer != Answer::Yes) throw SauvegardeRefusee{};
  }

  void Avance(int percent) override { attente_.MontreProgression(percent); }

 private:
  const SharedState& state_;
  Platform& io_;
  WaitView& attente_;
  SaveFile& file_;
};

}  // namespace talpena
