// The commands of the main window: its menus and its tool buttons, as data.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/command_table.h"

namespace talpena {

class Form1;

/// What has to be there for a command.
enum class MenuCondition : std::uint8_t {
  Always,
  File,    ///< an open file; the nine of ActiveMenus
  Rows,    ///< an open file too: these go over rows, whatever menu they stand in
  Row,     ///< a row in it
  Search,  ///< an open file, and a search to go on with
};

using MenuEntry = CommandRow<Form1, MenuCondition>;

/// The top-level menus in order.
std::span<const MenuEntry> ArbreDesMenus();

/// The tool buttons in order.
std::span<const MenuEntry> OutilsForm1();

/// What is there.
struct MenuState {
  bool fileOpen = false;
  bool hasRow = false;
  bool searched = false;
  bool operator==(const MenuState&) const = default;
};

/// An entry whose caption is none of the table's: a recent file.
inline bool SansLibelle(const MenuEntry& entry) { return entry.base == 0 && entry.caption.empty(); }

/// Whether an entry can be chosen. A menu can as long as its condition holds; its entries each for
/// themselves.
bool EstActif(const MenuEntry& entry, const MenuState& state);

/// Caption of a recent file, `position` from 1: "&1 /path/file.deg".
std::string LibelleDernierFichier(int position, std::string_view path);

}  // namespace talpena
