// The commands of the File menu.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/main_window_view.h"
#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

/// Everything that a file command works with.
struct FileContext {
  StoreState& state;
  Platform& io;
  MainWindowView& vue;
};

/// Asks to save when the table differs from its file. True when the user cancelled, and when he
/// wanted to save and rows remain unsaved. A cancelled file dialog is thrown on (32755).
bool CheckSauvegarde(FileContext c);

/// New: `lines` empty rows; 0 asks for their number. Failures are thrown.
void CreationNouveau(FileContext c, std::int32_t lines);

// The menu entries. Failures are shown, not thrown.
void MnuNouveau_Click(FileContext c);
void MnuOuvrir_Click(FileContext c);
void MnuEnregistrer_Click(FileContext c);
void MnuEnrSous_Click(FileContext c);
void MnuFusionner_Click(FileContext c);
void MnuGrouper_Click(FileContext c);
/// `index` 0 to 3: the entry of LastFiles.
void MnuLastFile_Click(FileContext c, int index);

/// Puts a path first in LastFiles, compared without regard to case, and rebuilds the menu. An
/// entry that moves up keeps its spelling.
void MajLastFiles(FileContext c, const std::string& path);

/// One tick of the automatic save. Failures are shown, not thrown.
void Timer1_Timer(FileContext c);

/// Where Save keeps the file's former state: the path up to its first ".", then "BAK"; "BAK" in
/// the current folder for a path without one.
std::string CheminBak(std::string_view path);

}  // namespace talpena
