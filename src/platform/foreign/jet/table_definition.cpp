#include "platform/foreign/jet/table_definition.h"

#include <algorithm>
#include <numeric>

#include "platform/foreign/jet/text.h"

namespace talpena::jet {
namespace {

constexpr std::uint32_t mark = 1625;       // stands wherever a definition begins a record
constexpr std::uint32_t indexMark = 1923;  // and where an index does
constexpr std::size_t pageHead = 8;        // of each page of a definition
constexpr std::size_t rowsAt = 0x10;
constexpr std::size_t lastNumberAt = 0x14;
constexpr std::size_t countsAt = 0x3F;
constexpr std::size_t countBytes = 12;
constexpr std::size_t indexColumns = 10;
constexpr std::uint32_t general = 0x0409;  // sort order of texts, in its first version
constexpr std::size_t none = 0xFFFF;

void AjouteNom(std::string& out, const std::string& name) {
  std::string wide;
  AjouteTexte(wide, name, TextForm::Wide);
  Ajoute16(out, wide.size());
  out += wide;
}

void AjouteTete(std::string& out, const TableShape& shape) {
  Ajoute32(out, mark);
  Ajoute32(out, 0);  // rows
  Ajoute32(out, 0);  // last number
  Ajoute32(out, 1);  // numbers are given
  out.append(12, '\0');
  out += static_cast<char>(shape.kind);
  Ajoute16(out, shape.columns.size());
  Ajoute16(out, CompteVariables(shape.columns));
  Ajoute16(out, shape.columns.size());
  Ajoute32(out, static_cast<std::uint32_t>(shape.indexes.size()));
  Ajoute32(out, static_cast<std::uint32_t>(shape.indexes.size()));
  Ajoute32(out, shape.used.Mot());
  Ajoute32(out, shape.free.Mot());
  out.append(shape.indexes.size() * countBytes, '\0');
}

std::uint8_t Drapeaux(const Column& column, TableKind kind) {
  constexpr std::uint8_t fixed = 0x01, nullable = 0x02, numbered = 0x04, system = 0x10,
                         userId = 0x20;
  std::uint8_t flags = nullable;
  if (!column.Varie()) flags |= fixed;
  if (column.autoNumber) flags |= numbered;
  if (kind == TableKind::System) flags |= system;
  if (column.userId) flags |= userId;
  return flags;
}

void AjouteColonne(std::string& out, const Column& column, std::size_t number, TableKind kind) {
  const bool user = kind == TableKind::User;
  const bool text = column.type == JetType::Text || column.type == JetType::Memo;
  out += static_cast<char>(column.type);
  Ajoute32(out, mark);
  Ajoute16(out, number);
  Ajoute16(out, column.variable);
  Ajoute16(out, user ? number : 0);
  Ajoute32(out, general);
  out += static_cast<char>(Drapeaux(column, kind));
  out += static_cast<char>(user && text ? 1 : 0);  // may be in the short form
  Ajoute32(out, 0);
  Ajoute16(out, column.fixedOffset);
  Ajoute16(out, column.bytes);
}

/// A user's columns in their order; those of the catalogue, and all indexes, by their names.
template <typename Named>
std::vector<std::size_t> Ordre(const std::vector<Named>& items, bool byName) {
  std::vector<std::size_t> order(items.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  if (byName) {
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return items[a].name < items[b].name; });
  }
  return order;
}

void AjouteIndexReel(std::string& out, const IndexShape& index) {
  Ajoute32(out, indexMark);
  for (std::size_t i = 0; i < indexColumns; ++i) {
    Ajoute16(out, i < index.columns.size() ? index.columns[i] : none);
    out += static_cast<char>(i < index.columns.size() ? 1 : 0);  // rising
  }
  Ajoute32(out, index.pages.Mot());
  Ajoute32(out, index.root);
  Ajoute32(out, 0);
  out += static_cast<char>(index.flags);
  out.append(5, '\0');
}

void AjouteIndexNomme(std::string& out, const IndexShape& index, std::size_t number) {
  constexpr std::uint32_t noOther = 0xFFFFFFFF;
  Ajoute32(out, mark);
  Ajoute32(out, static_cast<std::uint32_t>(number));
  Ajoute32(out, static_cast<std::uint32_t>(number));
  out += '\0';
  Ajoute32(out, noOther);
  Ajoute32(out, 0);
  out += "\x04\x04";
  out += static_cast<char>(index.primary ? 1 : 0);
  Ajoute32(out, 0);
}

/// The maps of a column with long values.
void AjouteCartes(std::string& out, const std::vector<LongColumnMaps>& all, std::size_t column) {
  const auto maps = std::ranges::find(all, column, &LongColumnMaps::column);
  if (maps == all.end()) return;
  Ajoute16(out, column);
  Ajoute32(out, maps->used.Mot());
  Ajoute32(out, maps->free.Mot());
}

/// The definition behind the head that each of its pages has.
std::string Corps(const TableShape& shape) {
  std::string out;
  AjouteTete(out, shape);
  const auto columns = Ordre(shape.columns, shape.kind == TableKind::System);
  for (const std::size_t i : columns) AjouteColonne(out, shape.columns[i], i, shape.kind);
  for (const std::size_t i : columns) AjouteNom(out, shape.columns[i].name);
  for (const IndexShape& index : shape.indexes) AjouteIndexReel(out, index);
  const auto indexes = Ordre(shape.indexes, true);
  for (const std::size_t i : indexes) AjouteIndexNomme(out, shape.indexes[i], i);
  for (const std::size_t i : indexes) AjouteNom(out, shape.indexes[i].name);
  for (const std::size_t i : columns) AjouteCartes(out, shape.longColumns, i);
  Ajoute16(out, none);
  return out;
}

}  // namespace

TableDefinition::TableDefinition(PageFile& file, std::uint32_t first, const TableShape& shape)
    : file_(file), pages_{first} {
  const std::string body = Corps(shape);
  Ajoute32(bytes_, static_cast<std::uint32_t>(pageHead + 4 + body.size()));
  bytes_ += body;
  constexpr std::size_t room = taillePage - pageHead;
  while (pages_.size() * room < bytes_.size()) pages_.push_back(file_.Alloue());
}

void TableDefinition::Ecrit(const TableCounts& counts) {
  const auto set = [&](std::size_t place, std::uint32_t value) {
    PoseNombre(bytes_.data() + place - pageHead, value);
  };
  set(rowsAt, counts.rows);
  set(lastNumberAt, counts.lastNumber);
  for (std::size_t i = 0; i < counts.differentKeys.size(); ++i) {
    set(countsAt + i * countBytes + 4, counts.differentKeys[i]);
  }
  constexpr std::size_t room = taillePage - pageHead;
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    const std::string_view part = std::string_view(bytes_).substr(i * room, room);
    const std::size_t left = room - part.size();
    Page page = NouvellePage(PageKind::Definition);
    Pose16(page, 2, left - std::min(left, pageHead));
    Pose32(page, 4, i + 1 < pages_.size() ? pages_[i + 1] : 0);
    PoseOctets(page, pageHead, part);
    file_.Ecrit(pages_[i], {page.data(), page.size()});
  }
}

}  // namespace talpena::jet
