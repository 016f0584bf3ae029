#include "common/string_table.h"

#include <algorithm>

#include "common/string_blocks.h"
#include "common/talpena_error.h"

namespace talpena {

std::span<const StringEntry> BlocDeTextes(std::int16_t langue) {
  const auto texts = TousLesBlocs();
  const auto found = std::ranges::find(texts, langue, &StringBlock::langue);
  return found == texts.end() ? std::span<const StringEntry>{} : found->entries;
}

std::string Texte(std::int16_t langue, int base) {
  const auto block = BlocDeTextes(langue);
  const auto found = std::ranges::lower_bound(block, base, {}, &StringEntry::id);
  if (found == block.end() || found->id != base) {
    throw TalpenaError(
        ErrorNumber::ResourceNotFound,
        "Resource with identifier '" + std::to_string(base + langue) + "' not found.");
  }
  return std::string(found->text);
}

std::string SansMnemonique(std::string_view caption) {
  std::string text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    const bool mark = caption[i] == '&';
    if (mark && ++i == caption.size()) break;
    text += caption[i];
  }
  return text;
}

}  // namespace talpena
