// The commands of the File menu.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "store/command_context.h"

namespace talpena {

/// Asks to save when the table differs from its file. True when the user cancelled, and when he
/// wanted to save and rows remain unsaved. A cancelled file dialog is thrown on (32755).
bool CheckSauvegarde(CommandContext c);

/// New: `lines` empty rows; 0 asks for their number. Failures are thrown.
void CreationNouveau(CommandContext c, std::int32_t lines);

// The menu entries. Failures are shown, not thrown.
void MnuNouveau_Click(CommandContext c);
void MnuOuvrir_Click(CommandContext c);
void MnuEnregistrer_Click(CommandContext c);
void MnuEnrSous_Click(CommandContext c);
void MnuFusionner_Click(CommandContext c);
void MnuGrouper_Click(CommandContext c);
/// Reads the open file once more, where its rows made one row, with LF as the end of a line too.
void RouvreEnLf(CommandContext c);
/// `index` 0 to 3: the entry of LastFiles.
void MnuLastFile_Click(CommandContext c, int index);

/// Puts a path first in LastFiles, compared without regard to case. An entry that moves up keeps
/// its spelling.
void MajLastFiles(SettingsState& settings, const std::string& path);

/// One tick of the automatic save. Failures are shown, not thrown.
void Timer1_Timer(CommandContext c);

/// Where Save keeps the file's former state: the path up to its first ".", then "BAK"; "BAK" in
/// the current folder for a path without one.
std::string CheminBak(std::string_view path);

}  // namespace talpena
