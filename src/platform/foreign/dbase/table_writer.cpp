#include "platform/foreign/dbase/table_writer.h"

#include <ctime>
#include <utility>

#include "common/talpena_error.h"
#include "platform/foreign/dbase/folder_reader.h"
#include "platform/foreign/dbase/header.h"
#include "platform/foreign/file_numbers.h"

namespace talpena::dbase {
namespace {

constexpr char mark1252 = 0x03;  // readers know this one best

std::size_t OctetsDeTete(const std::vector<WrittenColumn>& columns) {
  return headBytes + columnBytes * columns.size() + 1;
}

/// The day of the last change. dBase counts the years from 1900, FoxPro writes two digits.
std::string Aujourdhui(Product product) {
  constexpr int century = 100;
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  const int y = product == Product::DbaseIV ? local.tm_year : local.tm_year % century;
  return {static_cast<char>(y), static_cast<char>(local.tm_mon + 1),
          static_cast<char>(local.tm_mday)};
}

char Version(Product product, bool withMemo) {
  if (!withMemo) return '\x03';
  return product == Product::DbaseIV ? '\x8B' : '\xF5';
}

std::string Description(const WrittenColumn& column, Product product) {
  std::string bytes(columnBytes, '\0');
  bytes.replace(0, column.name.size(), column.name);
  bytes[11] = column.mark;
  if (product == Product::FoxPro25) Pose(bytes, 12, static_cast<std::uint32_t>(column.offset));
  bytes[16] = static_cast<char>(column.width);
  bytes[17] = static_cast<char>(column.decimals);
  return bytes;
}

}  // namespace

TableWriter::TableWriter(Product product, const FolderOfTables& folder, const TableDef& table,
                         const LimitesDbase& limits)
    : definition_(table),
      product_(product),
      columns_(DisposeColonnes(table.fields, product)),
      memos_(OuvreMemos(folder, limits)),
      file_(folder.Place(table.name, tableEnd), limits.octetsFichier),
      encoder_(columns_, memos_ ? &*memos_ : nullptr, limits.octetsMemo) {
  try {
    file_.Ajoute(Tete());
    Acheve();
  } catch (...) {
    if (memos_) memos_->Abandonne();
    file_.Abandonne();
    throw;
  }
}

std::optional<MemoWriter> TableWriter::OuvreMemos(const FolderOfTables& folder,
                                                  const LimitesDbase& limits) const {
  if (!AvecMemo(columns_)) return {};
  return std::optional<MemoWriter>(std::in_place, product_,
                                   folder.Place(definition_.name, FinDesMemos(product_)),
                                   definition_.name, limits.octetsFichier);
}

void TableWriter::Ajoute(RowSource& rows) {
  try {
    AjouteLignes(rows);
    Acheve();
  } catch (...) {
    GardeEcrites();
    throw;
  }
}

void TableWriter::AjouteLignes(RowSource& rows) {
  file_.Recule(FinDesLignes());  // before the end mark
  std::vector<Cell> cells(columns_.size());
  while (rows.Suivante(cells)) {
    file_.Assure(OctetsDeLigne(columns_) + 1);
    file_.Ajoute(encoder_.Ligne(cells));
    ++rows_;
  }
}

/// Where room could not be set aside beforehand, rows that wait may find none: they go.
void TableWriter::GardeEcrites() {
  try {
    Acheve();
  } catch (const TalpenaError&) {
    const std::size_t head = OctetsDeTete(columns_);
    rows_ = static_cast<std::uint32_t>((file_.Ecrits() - head) / OctetsDeLigne(columns_));
    file_.Recule(FinDesLignes());
    Acheve();
  }
}

void TableWriter::Acheve() {
  if (memos_) memos_->Acheve();  // before the rows that name its blocks
  if (file_.Taille() == FinDesLignes()) file_.Ajoute({&endOfRows, 1});
  file_.Remplace(0, Tete());
  file_.Acheve();
}

std::size_t TableWriter::FinDesLignes() const {
  return OctetsDeTete(columns_) + rows_ * OctetsDeLigne(columns_);
}

std::string TableWriter::Tete() const {
  std::string head(headBytes, '\0');
  head[0] = Version(product_, memos_.has_value());
  head.replace(1, 3, Aujourdhui(product_));
  Pose(head, 4, rows_);
  Pose(head, 8, static_cast<std::uint16_t>(OctetsDeTete(columns_)));
  Pose(head, 10, static_cast<std::uint16_t>(OctetsDeLigne(columns_)));
  head[29] = mark1252;
  for (const WrittenColumn& column : columns_) head += Description(column, product_);
  return head + endOfColumns;
}

}  // namespace talpena::dbase
