#include "platform/foreign/jet_queries.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string_view>

#include "common/text.h"
#include "platform/foreign/jet_joins.h"

namespace talpena {
namespace {

constexpr std::size_t mostRows = 100'000;        // of MSysQueries
constexpr std::size_t mostSources = 255;         // of a query, and the depth of its joins
constexpr std::uint32_t numeroObjet = 0xFFFFFF;  // of an object's number, what the catalogue gives
constexpr std::size_t longestQuery = 65'536;     // bytes: the engine takes no longer statement

/// Bits of the options.
enum Options : int {
  AllColumns = 1,
  Distinct = 2,
  UnionDistinct = 2,
  DistinctRow = 8,
  Top = 16,
  Percent = 32,
};

/// What the rows of a query do not tell: no text is made of them.
struct SansTexte : std::runtime_error {
  SansTexte() : std::runtime_error("no text") {}
};

void Admet(bool sensible) {
  if (!sensible) throw SansTexte();
}

std::string EntreCrochets(std::string_view name) {
  Admet(!Rogne(name).empty() && name.find_first_of(std::string_view("[]\0", 3)) == name.npos);
  return "[" + std::string(name) + "]";
}

/// A SELECT without the mark at its end.
std::string_view SansFin(std::string_view text) {
  const std::size_t last = text.find_last_not_of("; \t\r\n");
  return last == text.npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view ExpressionDe(const QueryRow& row) {
  Admet(!Rogne(row.expression).empty());
  return row.expression;
}

std::size_t Octets(const QueryRow& row) {
  return row.name1.size() + row.name2.size() + row.expression.size();
}

class TextMaker {
 public:
  explicit TextMaker(std::span<const QueryRow> rows) : rows_(rows) {}

  std::string Select() {
    for (const QueryRow& other : Lignes(QueryAttribute::Database)) {
      Admet(other.name1.empty() && other.expression.empty());
    }
    text_ = "SELECT ";
    AjouteOptions();
    AjouteColonnes();
    text_ += " FROM " + Sources();
    AjouteTous(" WHERE ", QueryAttribute::Where, " AND ");
    AjouteTous(" GROUP BY ", QueryAttribute::GroupBy, ", ");
    AjouteTous(" HAVING ", QueryAttribute::Having, " AND ");
    AjouteOrdre();
    return Fin();
  }

  std::string Union() {
    const auto parts = Lignes(QueryAttribute::Source);
    Admet(!parts.empty());
    for (const QueryRow& part : parts) {
      if (!text_.empty()) text_ += (Drapeaux() & UnionDistinct) != 0 ? " UNION " : " UNION ALL ";
      text_ += SansFin(ExpressionDe(part));
    }
    AjouteOrdre();
    return Fin();
  }

 private:
  /// Those of one attribute: they stand together.
  std::span<const QueryRow> Lignes(QueryAttribute attribute) const {
    const auto is = [&](const QueryRow& row) {
      return row.attribute == static_cast<int>(attribute);
    };
    const auto first = std::find_if(rows_.begin(), rows_.end(), is);
    const auto last = std::find_if_not(first, rows_.end(), is);
    return {first, last};
  }

  int Drapeaux() const {
    const auto options = Lignes(QueryAttribute::Options);
    return options.empty() ? 0 : options.front().flag;
  }

  void AjouteOptions() {
    const int flags = Drapeaux();
    if ((flags & Distinct) != 0) text_ += "DISTINCT ";
    if ((flags & DistinctRow) != 0 && (flags & Distinct) == 0) text_ += "DISTINCTROW ";
    if ((flags & Top) == 0) return;
    const std::string& count = Lignes(QueryAttribute::Options).front().name1;
    Admet(!count.empty() && count.find_first_not_of("0123456789") == std::string::npos);
    text_ += "TOP " + count + " ";
    if ((flags & Percent) != 0) text_ += "PERCENT ";
  }

  void AjouteColonnes() {
    const auto columns = Lignes(QueryAttribute::Column);
    std::string_view between;
    for (const QueryRow& column : columns) {
      text_ += between;
      text_ += ExpressionDe(column);
      if (!column.name1.empty()) text_ += " AS " + EntreCrochets(column.name1);
      between = ", ";
    }
    if (columns.empty() || (Drapeaux() & AllColumns) != 0) text_ += std::string(between) + "*";
  }

  std::string Sources() const {
    const auto sources = Lignes(QueryAttribute::Source);
    const auto joins = Lignes(QueryAttribute::Join);
    Admet(!sources.empty() && sources.size() <= mostSources && joins.size() <= mostSources);
    JoinForest forest;
    for (const QueryRow& source : sources) {
      const bool derived = source.name1.empty();
      std::string sql = derived ? "(" + std::string(SansFin(ExpressionDe(source))) + ")"
                                : EntreCrochets(source.name1);
      if (!source.name2.empty()) sql += " AS " + EntreCrochets(source.name2);
      forest.AjouteSource(source.name2.empty() ? source.name1 : source.name2, std::move(sql));
    }
    for (const QueryRow& join : joins) {
      Admet(join.flag >= 1 && join.flag <= 3);
      Admet(forest.Joint(join.name1, join.name2, static_cast<JoinKind>(join.flag),
                         ExpressionDe(join)));
    }
    return forest.Sql();
  }

  /// A clause of all expressions of an attribute.
  void AjouteTous(std::string_view word, QueryAttribute attribute, std::string_view between) {
    for (const QueryRow& row : Lignes(attribute)) {
      text_ += word;
      text_ += ExpressionDe(row);
      word = between;
    }
  }

  void AjouteOrdre() {
    std::string_view before = " ORDER BY ";
    for (const QueryRow& row : Lignes(QueryAttribute::OrderBy)) {
      text_ += before;
      text_ += ExpressionDe(row);
      if (EgalSansCasse(row.name1, "D")) text_ += " DESC";
      before = ", ";
    }
  }

  std::string Fin() {
    Admet(text_.size() < longestQuery);
    return std::move(text_) + ";";
  }

  std::span<const QueryRow> rows_;  ///< by attribute, then in their order
  std::string text_;
};

/// The columns of MSysQueries that are looked at, by their places.
struct Places {
  enum Column : std::uint8_t { Object, Attribute, Order, Name1, Name2, Expression, Flag, Count };
  static constexpr std::array<std::string_view, Count> names = {
      "ObjectId", "Attribute", "Order", "Name1", "Name2", "Expression", "Flag"};
  std::array<std::size_t, Count> at{};
};

std::optional<Places> TrouvePlaces(const TableDef& table) {
  Places places;
  for (std::size_t i = 0; i < Places::Count; ++i) {
    const auto found = std::find_if(
        table.fields.begin(), table.fields.end(),
        [&](const FieldDef& field) { return EgalSansCasse(field.name, Places::names[i]); });
    if (found == table.fields.end()) return {};
    places.at[i] = static_cast<std::size_t>(found - table.fields.begin());
  }
  return places;
}

QueryRow LigneDe(std::span<const Cell> cells, const Places& places) {
  const auto number = [&](Places::Column column) {
    const Cell& cell = cells[places.at[column]];
    return cell.kind == Cell::Kind::Integer ? cell.integer : 0;
  };
  const auto text = [&](Places::Column column) {
    const Cell& cell = cells[places.at[column]];
    return cell.kind == Cell::Kind::Text ? std::string(cell.text.substr(0, longestQuery))
                                         : std::string();
  };
  return {.objet = static_cast<std::uint32_t>(number(Places::Object)),
          .attribute = static_cast<int>(number(Places::Attribute)),
          .order = text(Places::Order),
          .name1 = text(Places::Name1),
          .name2 = text(Places::Name2),
          .expression = text(Places::Expression),
          .flag = static_cast<int>(number(Places::Flag))};
}

}  // namespace

std::string TexteRequete(int kind, std::vector<QueryRow> rows) {
  if (kind != QueryDef::Select && kind != QueryKind::Union) return {};
  std::size_t bytes = 0;
  for (const QueryRow& row : rows) bytes += Octets(row);
  if (bytes >= longestQuery) return {};
  std::stable_sort(rows.begin(), rows.end(), [](const QueryRow& a, const QueryRow& b) {
    return a.attribute != b.attribute ? a.attribute < b.attribute : a.order < b.order;
  });
  try {
    TextMaker maker(rows);
    return kind == QueryKind::Union ? maker.Union() : maker.Select();
  } catch (const SansTexte&) {
    return {};
  }
}

std::vector<QueryRow> LitLignesRequetes(const TableDef& table, RowSource& rows) {
  constexpr std::size_t mostBytes = std::size_t{16} << 20;
  std::vector<QueryRow> read;
  const auto places = TrouvePlaces(table);
  if (!places) return read;
  std::vector<Cell> cells(table.fields.size());
  std::size_t bytes = 0;
  while (read.size() < mostRows && bytes < mostBytes && rows.Suivante(cells)) {
    read.push_back(LigneDe(cells, *places));
    bytes += Octets(read.back());
  }
  return read;
}

void DonneTextes(std::vector<RequeteJet>& queries, const std::vector<QueryRow>& rows) {
  std::map<std::uint32_t, std::vector<QueryRow>> byQuery;
  for (const QueryRow& row : rows) byQuery[row.objet & numeroObjet].push_back(row);
  for (RequeteJet& query : queries) {
    const auto found = byQuery.find(query.objet & numeroObjet);
    if (found == byQuery.end()) continue;
    query.definition.sql = TexteRequete(query.definition.kind, std::move(found->second));
    byQuery.erase(found);
  }
}

}  // namespace talpena
