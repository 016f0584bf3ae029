// The question behind every failure of a save.
#pragma once
#include <utility>

#include "common/talpena_error.h"
#include "platform/commands.h"

namespace talpena {

/// Thrown when the user does not want to go on with a save.
struct SauvegardeRefusee {};

class SaveQuestions {
 public:
  SaveQuestions(const SharedState& state, Platform& io) : state_(state), io_(io) {}

  /// Shows a failure and asks whether to go on; No throws SauvegardeRefusee.
  void Continuer(const TalpenaError& failure) {
    Bip(state_, io_);
    const std::string text =
        "Erreur pendant la sauvegarde\n" + failure.description() + "\nContinuer?";
    const Answer answer = io_.dialogues.Demande({.text = text, .buttons = Buttons::YesNo});
    if (answer != Answer::Yes) throw SauvegardeRefusee{};
  }

  /// Runs one statement of a save. False when it failed and the user goes on behind it.
  template <typename Statement>
  bool Tente(Statement&& statement) {
    try {
      std::forward<Statement>(statement)();
      return true;
    } catch (const TalpenaError& failure) {
      Continuer(failure);
      return false;
    }
  }

  /// The same for a statement without which there is nothing behind it: tried until it works.
  template <typename Statement>
  void TenteJusquaReussite(Statement&& statement) {
    while (!Tente(statement)) {
    }
  }

 private:
  const SharedState& state_;
  Platform& io_;
};

}  // namespace talpena
