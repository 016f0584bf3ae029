#include "platform/foreign/jet/table_writer.h"

#include <algorithm>
#include <utility>

#include "platform/foreign/jet/index_keys.h"

namespace talpena::jet {

TableWriter::TableWriter(PageFile& file, MapRows& maps, std::uint32_t page, TableKind kind,
                         std::vector<Column> columns, std::vector<IndexShape> indexes)
    : page_(page),
      columns_(std::move(columns)),
      indexes_(std::move(indexes)),
      used_(file, maps),
      free_(file, maps),
      rowPages_(file, page, used_),
      encoder_(columns_, longValues_, kind == TableKind::User ? TextForm::Short : TextForm::Wide),
      definition_(file, page, Forme(kind, file, maps)) {}

TableShape TableWriter::Forme(TableKind kind, PageFile& file, MapRows& maps) {
  TableShape shape{.kind = kind,
                   .columns = columns_,
                   .indexes = {},
                   .longColumns = {},
                   .used = used_.Lieu(),
                   .free = free_.Lieu()};
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!columns_[i].EstLongue()) continue;
    const LongValues& values = longValues_.try_emplace(i, file, maps).first->second;
    shape.longColumns.push_back({i, values.Pages(), values.PagesLibres()});
  }
  leaves_.reserve(indexes_.size());
  for (IndexShape& index : indexes_) {
    const IndexLeaf& leaf = leaves_.emplace_back(file, maps, page_);
    index.pages = leaf.Pages();
    index.root = leaf.NumeroDePage();
  }
  shape.indexes = indexes_;
  return shape;
}

std::string TableWriter::Cle(const IndexShape& index, std::span<const Cell> cells) const {
  std::string key;
  for (const std::size_t column : index.columns) {
    const Cell& cell = cells[column];
    if (cell.kind == Cell::Kind::Text) {
      AjouteCle(key, cell.text);
    } else {
      AjouteCle(key, static_cast<std::int32_t>(cell.integer));
    }
  }
  return key;
}

bool TableWriter::Tient(std::span<const Cell> cells) const {
  for (std::size_t i = 0; i < leaves_.size(); ++i) {
    if (!leaves_[i].Tient(Cle(indexes_[i], cells).size())) return false;
  }
  return true;
}

/// The number of an auto-number column comes from the table where the row has none.
std::span<const Cell> TableWriter::Numerotee(std::span<const Cell> cells) {
  const auto column =
      std::find_if(columns_.begin(), columns_.end(), [](const Column& c) { return c.autoNumber; });
  if (column == columns_.end()) return cells;
  numbered_.assign(cells.begin(), cells.end());
  Cell& cell = numbered_[static_cast<std::size_t>(column - columns_.begin())];
  if (cell.EstNull()) cell = Cell::Of(std::int64_t{lastNumber_} + 1);
  if (cell.integer > std::int64_t{lastNumber_}) {
    lastNumber_ = static_cast<std::uint32_t>(cell.integer);
  }
  return numbered_;
}

void TableWriter::Ajoute(std::span<const Cell> cells) {
  const Place place = rowPages_.Ajoute(encoder_.Ligne(Numerotee(cells)));
  ++rows_;
  for (std::size_t i = 0; i < leaves_.size(); ++i)
    leaves_[i].Ajoute(Cle(indexes_[i], cells), place);
}

void TableWriter::Ecrit() {
  for (auto& [column, values] : longValues_) values.Ecrit();
  rowPages_.Ecrit();
  used_.Ecrit();
  const std::uint32_t last = rowPages_.Courante();
  if (last != 0 && last < free_.Fin()) free_.Remplace(last, last + 1);
  free_.Ecrit();
  TableCounts counts{.rows = rows_, .lastNumber = lastNumber_};
  for (IndexLeaf& leaf : leaves_) {
    leaf.Ecrit();
    counts.differentKeys.push_back(leaf.ClesDifferentes());
  }
  definition_.Ecrit(counts);
}

}  // namespace talpena::jet
