// The commands of a window as rows of a table: what stands where, under which caption and key, what
// has to be there for it, and what it runs.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "common/string_table.h"
#include "common/talpena_error.h"

namespace talpena {

/// An entry of a menu, or a button of a toolbar.
/// @tparam Window     whose procedures the rows run
/// @tparam Condition  what the commands of that window may need; its zero is nothing at all
template <typename Window, typename Condition>
struct CommandRow {
  std::string_view control;
  int index = -1;                 ///< place in an array of controls; -1 for a single one
  int base = 0;                   ///< base id of the caption; 0 for a fixed one
  std::string_view caption = {};  ///< fixed caption, the same in every language; "-": a separator
  std::string_view key = {};      ///< portable key text, "Ctrl+S"; "; " between several
  std::string_view icon = {};
  Condition condition = {};
  void (*run)(Window& window, int index) = nullptr;  ///< none: it is shown and stays disabled
  std::string_view same = {};  ///< object name of the row whose command this one repeats
  int help = 0;                ///< base id of what a button does, if its caption does not tell
  std::span<const CommandRow> children = {};

  bool EstSeparateur() const { return caption == "-"; }
};

/// "MnuLang_2" for an element of an array, else the control's own name.
template <typename Row>
std::string NomObjet(const Row& row) {
  std::string name(row.control);
  if (row.index >= 0) name += "_" + std::to_string(row.index);
  return name;
}

/// Caption in a language, with its mnemonic mark.
template <typename Row>
std::string Libelle(const Row& row, std::int16_t langue) {
  return row.base == 0 ? std::string(row.caption) : Texte(langue, row.base);
}

/// Every row of a tree, parents before children.
template <typename Row, typename Visit>
void Parcourt(std::span<const Row> rows, const Visit& visit) {
  for (const Row& row : rows) {
    visit(row);
    Parcourt(row.children, visit);
  }
}

/// Whether a row bears an object name.
template <typename Row>
bool SeNomme(const Row& row, std::string_view name) {
  return name.starts_with(row.control) && NomObjet(row) == name;
}

/// The row of an object name; InvalidCall (5) when there is none.
template <typename Row>
const Row& RangeeNommee(std::span<const Row> rows, std::string_view name) {
  const Row* found = nullptr;
  Parcourt(rows, [&](const Row& row) {
    if (found == nullptr && SeNomme(row, name)) found = &row;
  });
  if (found == nullptr) throw TalpenaError(ErrorNumber::InvalidCall, std::string(name));
  return *found;
}

/// The row whose command a row runs: another one of the tree, or itself.
template <typename Row>
const Row& RangeeDe(std::span<const Row> rows, const Row& row) {
  return row.same.empty() ? row : RangeeNommee(rows, row.same);
}

/// Whether a row can be chosen where its condition holds: it runs something or opens a menu.
template <typename Row>
bool AUneCommande(const Row& row) {
  return row.run != nullptr || !row.children.empty();
}

}  // namespace talpena
