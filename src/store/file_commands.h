// The commands of the File menu.
#pragma once
#include <cstdint>
#include <string>

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

/// Asks to save when the table differs from its file. True when the user cancelled.
bool CheckSauvegarde(FileContext c);

/// New: `lines` empty rows; 0 asks for their number.
void CreationNouveau(FileContext c, std::int32_t lines);

void MnuNouveau_Click(FileContext c);
void MnuOuvrir_Click(FileContext c);
void MnuEnregistrer_Click(FileContext c);
void MnuEnrSous_Click(FileContext c);
void MnuFusionner_Click(FileContext c);
void MnuGrouper_Click(FileContext c);
/// `index` 0 to 3: the entry of LastFiles.
void MnuLastFile_Click(FileContext c, int index);

/// Puts a path first in LastFiles and rebuilds the menu.
void MajLastFiles(FileContext c, const std::string& path);

/// One tick of the automatic save.
void Timer1_Timer(FileContext c);

/// Where Save keeps the file's former state: the path up to its first ".", then "BAK".
std::string CheminBak(const std::string& path);

}  // namespace talpena
