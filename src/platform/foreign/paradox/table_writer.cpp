#include "platform/foreign/paradox/table_writer.h"

#include <algorithm>
#include <ctime>
#include <string_view>

namespace talpena::paradox {
namespace {

// Programs of 32 bits count no further.
constexpr std::size_t largestFile = (std::size_t{2} << 30) - 1;
constexpr std::uint32_t mostBlocks = 65535;

std::string_view NomDuFichier(std::string_view path) {
  return path.substr(path.find_last_of('/') + 1);
}

std::size_t LimiteDe(const ParadoxLimits& limits) {
  return std::min(limits.octetsFichier, largestFile);
}

}  // namespace

TableWriter::TableWriter(const TableDef& definition, const TablePlace& place,
                         const ParadoxLimits& limits)
    : definition_(definition),
      columns_(DisposeColonnes(definition)),
      blocks_(place.table, Tete(columns_, NomDuFichier(place.table), {}).size(),
              OctetsParLigne(columns_), LimiteDe(limits), std::min(limits.blocs, mostBlocks)),
      memos_(ExigeMemos(columns_) ? std::make_unique<MemoWriter>(place.memos, LimiteDe(limits))
                                  : nullptr),
      encoder_(columns_, memos_.get(), limits.octetsMemo) {
  Acheve();
}

void TableWriter::Acheve() {
  if (memos_) memos_->Acheve();
  const bool large = blocks_.Unites() > smallUnits;
  blocks_.Acheve(Tete(columns_, NomDuFichier(Chemin()),
                      {.level5 = large || ExigeNiveau5(columns_),
                       .units = blocks_.Unites(),
                       .records = blocks_.Lignes(),
                       .blocks = blocks_.Blocs(),
                       .moment = static_cast<std::uint32_t>(std::time(nullptr))}));
}

}  // namespace talpena::paradox
