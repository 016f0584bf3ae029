#include "store/deg_file_rows.h"

#include <algorithm>

namespace talpena {
namespace {

Cell EnCellule(const std::string& text) { return Cell::Of(std::string_view(text)); }

void Remplit(const DegRow& row, std::span<Cell> cells) {
  cells[0] = Cell::Of(std::int64_t{row.period});
  cells[1] = Cell::Of(double{row.latitude});
  cells[2] = Cell::Of(double{row.longitude});
  cells[3] = Cell::Of(std::int64_t{row.n1});
  cells[4] = Cell::Of(std::int64_t{row.n2});
  cells[5] = row.sex.empty() ? Cell::Null() : EnCellule(row.sex);
  cells[6] = EnCellule(row.datum);
  cells[7] = EnCellule(row.original);
  cells[8] = EnCellule(row.date);
  cells[9] = EnCellule(row.comment);
}

}  // namespace

DegFileRows::DegFileRows(const DistributionHeader& entete, DegLines& lines)
    : lines_(lines),
      reader_(entete.FreeFieldSeparator,
              entete.FreeFieldCount > 0 ? entete.FreeFieldDefs.size() : 0) {
  lines.Limite(MaxRowLine);
}

bool DegFileRows::Suivante(std::span<Cell> cells) {
  line_ = 0;
  std::string_view line;
  if (!lines_.Lit(line)) return false;
  line_ = lines_.Numero();
  const RowKind kind = reader_.Lit(line);
  if (kind == RowKind::End) return false;
  if (kind == RowKind::BarePoint && SurPointNu) SurPointNu();
  Remplit(reader_.Ligne(), cells);
  DitAvance();
  if (SurLigne) SurLigne();
  return true;
}

void DegFileRows::DitAvance() {
  const std::int64_t size = std::max(lines_.Taille(), std::int64_t{1});
  const auto percent =
      static_cast<int>(std::min(lines_.Position() * 100 / size, std::int64_t{100}));
  if (percent % 10 != 0 || percent == shown_) return;
  if (SurAvance) SurAvance(percent);
  shown_ = percent;
}

}  // namespace talpena
