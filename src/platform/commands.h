// The frame around every command: one place where a failure becomes a box.
#pragma once
#include <string>
#include <string_view>
#include <utility>

#include "common/talpena_error.h"
#include "platform/platform.h"
#include "platform/settings_state.h"

namespace talpena {

/// Beeps unless the setting Silence is on.
void Bip(const SharedState& state, Platform& io);

/// The common box for a run-time failure: the context and two line breaks when there is one,
/// then "Error ", the number, a line break and the description; exclamation icon. No beep.
void AfficheErreur(Platform& io, int number, const std::string& description,
                   std::string_view context = {});

/// The same in the words of the interface's language.
void AfficheErreur(const SharedState& state, Platform& io, const TalpenaError& error,
                   std::string_view context = {});

/// Runs a command's body: a cancelled dialog ends it silently, any other failure beeps and is
/// shown. What the body leaves open is put back by its own destructors.
template <typename Body>
void ExecuteCommande(const SharedState& state, Platform& io, std::string_view context,
                     Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const TalpenaError& e) {
    if (e.number() == ErrorNumber::Cancelled) return;
    Bip(state, io);
    AfficheErreur(state, io, e, context);
  }
}

}  // namespace talpena
