#include "platform/foreign/jet_answer.h"

#include <algorithm>
#include <cstring>
#include <set>

#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr std::size_t octetsNom = 1024;  // of a table or column; the format allows 64 characters
constexpr std::size_t octetsLigne = std::size_t{256} << 20;

std::optional<FieldType> TypeDeChamp(JetType type) {
  switch (type) {
    case JetType::Boolean:
      return FieldType::Boolean;
    case JetType::Byte:
      return FieldType::Byte;
    case JetType::Integer:
      return FieldType::Integer;
    case JetType::Long:
      return FieldType::Long;
    case JetType::Currency:
      return FieldType::Currency;
    case JetType::Single:
      return FieldType::Single;
    case JetType::Double:
    case JetType::Numeric:
      return FieldType::Double;
    case JetType::Date:
      return FieldType::Date;
    case JetType::Text:
    case JetType::Guid:
      return FieldType::Text;
    case JetType::Memo:
      return FieldType::Memo;
    case JetType::Binary:
    case JetType::Ole:
      return FieldType::Binary;
  }
  return {};
}

/// Characters that a column of a size in bytes can hold; 0 for all but texts.
int Caracteres(JetType type, JetVersion version, std::uint32_t bytes) {
  constexpr int guid = 38, longest = 255;
  if (type == JetType::Guid) return guid;
  if (type != JetType::Text) return 0;
  const std::uint32_t characters = version == JetVersion::Jet3 ? bytes : bytes / 2;
  return std::clamp(static_cast<int>(characters), 1, longest);
}

void LitColonne(ReponseJet& answer, JetVersion version, TableJet& table) {
  const auto type = static_cast<JetType>(answer.Nombre());
  const std::uint32_t size = answer.Nombre();
  const auto scale = static_cast<int>(answer.Nombre());
  const bool automatic = answer.Nombre() != 0;
  const auto fieldType = TypeDeChamp(type);
  if (!fieldType) answer.Echoue();
  table.colonnes.push_back({type, scale});
  table.definition.fields.push_back({.name = answer.Nom(),
                                     .type = *fieldType,
                                     .size = Caracteres(type, version, size),
                                     .allowZeroLength = true,
                                     .autoIncrement = automatic && type == JetType::Long});
}

/// A sound table has none: such a name would stand for one column or the other.
bool NomEnDouble(const std::vector<FieldDef>& fields) {
  std::set<std::string> names;
  return !std::all_of(fields.begin(), fields.end(), [&](const FieldDef& field) {
    return names.insert(Minuscules(field.name)).second;
  });
}

/// A catalogue that does not list itself has lost rows.
bool EstEntier(const CatalogueJet& catalogue) {
  return std::any_of(catalogue.systeme.begin(), catalogue.systeme.end(),
                     [](const TableDef& table) { return table.name == "MSysObjects"; });
}

}  // namespace

[[noreturn]] void EchecFormatJet(const std::string& path) {
  throw TalpenaError(ErrorNumber::UnrecognizedFormat,
                     "Unrecognized database format '" + path + "'.", {.about = {path}});
}

TrameJet ReponseJet::Marque() {
  auto mark = TrameJet::Vie;
  while (mark == TrameJet::Vie) {
    char byte = 0;
    Lit(&byte, 1);
    mark = static_cast<TrameJet>(byte);
  }
  return mark;
}

std::uint32_t ReponseJet::Nombre() {
  std::uint32_t value = 0;
  char bytes[sizeof value];
  Lit(bytes, sizeof bytes);
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

// A length that is not true costs no more memory than the bytes that there are.
void ReponseJet::Octets(std::string& into, std::size_t most) {
  constexpr std::size_t piece = std::size_t{1} << 20;
  std::size_t left = Nombre();
  if (left > most) Echoue();
  into.clear();
  while (left > 0) {
    const std::size_t part = std::min(left, piece);
    const std::size_t from = into.size();
    into.resize(from + part);
    Lit(into.data() + from, part);
    left -= part;
  }
}

std::string ReponseJet::Nom() {
  std::string name;
  Octets(name, octetsNom);
  if (name.empty() || !EstUtf8(name)) Echoue();
  return name;
}

void ReponseJet::Lit(char* buffer, std::size_t count) {
  if (!lecture_(buffer, count)) Echoue();
}

TableJet LitTableJet(ReponseJet& answer, JetVersion version, const LimitesJet& limits) {
  TableJet table;
  table.page = answer.Nombre();
  table.definition.attributes = answer.Nombre();
  table.definition.name = answer.Nom();
  table.lignes = answer.Nombre();
  const std::size_t columns = answer.Nombre();
  if (columns == 0 || columns > limits.colonnes) answer.Echoue();
  for (std::size_t i = 0; i < columns; ++i) LitColonne(answer, version, table);
  if (NomEnDouble(table.definition.fields)) answer.Echoue();
  return table;
}

CatalogueJet LitCatalogueJet(ReponseJet& answer, JetVersion version, const LimitesJet& limits) {
  constexpr std::uint32_t kind = 0xF0;  // of a query, among its attributes
  CatalogueJet catalogue;
  while (!catalogue.Depasse(limits)) {
    const TrameJet mark = answer.Marque();
    if (mark == TrameJet::Fin && EstEntier(catalogue)) return catalogue;
    if (mark == TrameJet::Table) {
      catalogue.tables.push_back(LitTableJet(answer, version, limits));
      continue;
    }
    if (mark != TrameJet::Systeme && mark != TrameJet::Requete) break;
    const std::uint32_t place = answer.Nombre();
    const std::uint32_t attributes = answer.Nombre();
    const std::string name = answer.Nom();
    if (mark == TrameJet::Systeme) {
      if (name == "MSysQueries") catalogue.pageRequetes = place;
      catalogue.systeme.push_back(
          {.name = name, .fields = {}, .indexes = {}, .attributes = attributes});
    } else {
      catalogue.requetes.push_back({.definition = {.name = name,
                                                   .kind = static_cast<int>(attributes & kind),
                                                   .sql = {},
                                                   .fields = {}},
                                    .objet = place});
    }
  }
  answer.Echoue();
}

bool LignesJet::Suivante(std::span<Cell> cells) {
  if (finie_) return false;
  const TrameJet mark = reponse_.Marque();
  if (mark == TrameJet::Fin) {
    finie_ = true;
    return false;
  }
  if (mark != TrameJet::Ligne) reponse_.Echoue();
  reponse_.Octets(ligne_, octetsLigne);
  std::string_view rest = ligne_;
  for (std::size_t i = 0; i < colonnes_.size(); ++i) {
    const Cell cell = Valeur(i, Prochaine(rest));
    if (i < cells.size()) cells[i] = cell;
  }
  for (std::size_t i = colonnes_.size(); i < cells.size(); ++i) cells[i] = Cell::Null();
  return true;
}

// Takes one value off the row; empty for Null.
LignesJet::Octets LignesJet::Prochaine(std::string_view& rest) const {
  std::uint32_t length = 0;
  if (rest.size() < sizeof length) reponse_.Echoue();
  std::memcpy(&length, rest.data(), sizeof length);
  rest.remove_prefix(sizeof length);
  if (length == absentJet) return {};
  if (length > rest.size()) reponse_.Echoue();
  const std::string_view bytes = rest.substr(0, length);
  rest.remove_prefix(length);
  return bytes;
}

Cell LignesJet::Valeur(std::size_t column, const Octets& bytes) {
  if (!bytes) return Cell::Null();
  switch (colonnes_[column].type) {
    case JetType::Boolean:
      return Cell::Of(std::int64_t{*bytes == std::string_view("\1") ? -1 : 0});
    case JetType::Byte:  // the only unsigned one
      return Cell::Of(Exige(EntierJet(*bytes, 1)).integer & 0xFF);
    case JetType::Integer:
      return Exige(EntierJet(*bytes, 2));
    case JetType::Long:
      return Exige(EntierJet(*bytes, 4));
    case JetType::Currency:
      return Exige(MonnaieJet(*bytes));
    case JetType::Single:
      return Exige(SimpleJet(*bytes));
    case JetType::Double:
    case JetType::Date:
      return Exige(DoubleJet(*bytes));
    case JetType::Numeric:
      return Exige(NumeriqueJet(*bytes, colonnes_[column].echelle));
    case JetType::Guid:
      return Texte(column, GuidJet(*bytes));
    case JetType::Text:
    case JetType::Memo:
      return Texte(column, TexteJet(version_, *bytes));
    case JetType::Binary:
    case JetType::Ole:
      return Cell::Of(*bytes);
  }
  reponse_.Echoue();
}

Cell LignesJet::Texte(std::size_t column, std::optional<std::string> text) {
  if (!text) reponse_.Echoue();
  textes_[column] = std::move(*text);
  return Cell::Of(std::string_view(textes_[column]));
}

}  // namespace talpena
