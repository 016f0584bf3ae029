// Brings the process up and down.
#pragma once
#include <optional>
#include <span>
#include <string>

#include "common/talpena_error.h"
#include "platform/platform.h"
#include "shell/process_state.h"
#include "shell/shell_view.h"
#include "store/command_context.h"

namespace talpena {

/// Everything that the shell's procedures work with.
struct ShellContext {
  ProcessState& state;
  Platform& io;
  MainWindowView& vue;
  WaitView& attente;
  StorePort& port;
  ShellView& shell;

  Document& document() const { return state.document; }
  CommandContext Commandes() const { return {state, io, vue, attente, port}; }
};

/// The arguments behind the program's name, joined by blanks, nothing else done to them.
std::string LigneDeCommande(std::span<const char* const> arguments);

/// Load of the main window, in the order that everything later relies on: working database and
/// table, datums, settings, captions, the window shown, the file of the command line. AppDir is
/// set before. A failure ends the load in silence where it stands, the hourglass stays, and what
/// was done stands; it is given back. Failure 3028 deletes TALPENA.MDB in TEMP and goes on with the
/// step that failed. A working folder that cannot be used, or holds somebody else's working
/// database, is replaced for this run by the user's private one. Without a datum catalogue the
/// process is ended.
std::optional<TalpenaError> ChargeForm1(ShellContext c, const std::string& commandLine);

/// The common box for a failure that ended the load, once it has ended.
void DitArretDeCharge(ShellContext c, const TalpenaError& failure);

/// For the status bar: that another working folder is used for this run than the one chosen; ""
/// when it is not.
std::string TexteDossierRefuse(const ProcessState& state);
/// The same with both folders.
std::string DetailDossierRefuse(const ProcessState& state);

/// Asks to save, saves the settings and ends the process; on Cancel nothing of the last two.
void MnuQuitter_Click(ShellContext c);

/// The close box: the same command, but the window closes whatever the answer. So Cancel loses
/// the changes and skips the settings.
void Form1_Unload(ShellContext c);

/// Sets the language by its index (0 French, 1 English, 2 Spanish, 3 German, 4 Italian, 5 Dutch)
/// and switches every caption. Spanish has no texts: it says so and changes nothing.
void MnuLang_Click(ShellContext c, int index);

/// Path of the help file of a language, in the program's folder.
std::string CheminAide(const ProcessState& state);

}  // namespace talpena
