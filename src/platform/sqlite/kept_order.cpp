#include "platform/sqlite/kept_order.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <numeric>

#include "platform/sqlite/collation.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/key_sorter.h"
#include "platform/sqlite/rows/record_sorter.h"

namespace talpena::sqlite {
namespace {

constexpr const char* OrderTable = "talpena_order";
constexpr std::size_t BitsPerByte = 8;
constexpr std::string_view wildcards = "*?#[";

std::string Colonnes(const TableState& table, int field) {
  return table.CleSql() + ", " + table.ChampSql(field);
}

std::string PasNull(const TableState& table, int field) {
  return table.ChampSql(field) + " IS NOT NULL";
}

struct Made {
  std::vector<RowKey> rows;
  std::vector<bool> odd;  ///< by rows
};

std::size_t NombreDeLignes(Connection& connection, const TableState& table) {
  Statement highest =
      connection.Prepare("SELECT max(" + table.CleSql() + ") FROM " + table.NomSql());
  return highest.Avance() ? static_cast<std::size_t>(highest.Entier(0)) : 0;
}

/// Reads the field once and sorts.
Made Fait(Connection& connection, const TableState& table, int field) {
  const std::size_t count = NombreDeLignes(connection, table);
  Made made{.rows = {}, .odd = std::vector<bool>(count + 1)};
  KeySorter sorter(count);
  {
    Statement lines = connection.Prepare("SELECT " + Colonnes(table, field) + " FROM " +
                                         table.NomSql() + " WHERE " + PasNull(table, field));
    std::string key;
    while (lines.Avance()) {
      const auto row = static_cast<RowKey>(lines.Entier(0));
      const std::string_view text = lines.Texte(1);
      made.odd[static_cast<std::size_t>(row)] = !connection.Ordre().EstSimple(text);
      key.clear();
      connection.Ordre().AjouteCle(text, key);
      key.append(2, '\0');  // no key begins another
      sorter.Ajoute(key, row);
    }
  }
  KeySorter::Result sorted = sorter.Trie();
  made.rows = std::move(sorted.rows);
  if (sorted.undecided.empty()) return made;
  // Long texts that begin alike: more is read of them.
  const RowList all = Trie(connection, table, PasNull(table, field), {{.field = field, .sql = {}}});
  for (std::size_t slot = 0; slot < made.rows.size(); ++slot) made.rows[slot] = all.Cle(slot);
  return made;
}

template <typename Element>
std::vector<Element> EnVecteur(std::string_view bytes) {
  std::vector<Element> elements(bytes.size() / sizeof(Element));
  std::memcpy(elements.data(), bytes.data(), elements.size() * sizeof(Element));
  return elements;
}

/// The beginning of a pattern that is written with Latin letters: what follows it in a text does
/// not change the weights of these.
std::string_view DebutLatin(std::string_view start) {
  constexpr unsigned char behindLatin = 0xC9;  // lead byte of the characters from U+0240 on
  const auto stop = std::find_if(start.begin(), start.end(), [](char c) {
    return static_cast<unsigned char>(c) >= behindLatin;
  });
  return start.substr(0, static_cast<std::size_t>(stop - start.begin()));
}

/// Letters and an asterisk behind them.
bool EstDebut(std::string_view pattern) {
  return pattern.ends_with('*') && pattern.find_first_of(wildcards) == pattern.size() - 1;
}

}  // namespace

void KeptOrder::Garde(Connection& connection, const TableState& table, int field) {
  const Made made = Fait(connection, table, field);
  std::string odd(made.rows.size() / BitsPerByte + 1, '\0');
  for (std::size_t slot = 0; slot < made.rows.size(); ++slot) {
    if (!made.odd[static_cast<std::size_t>(made.rows[slot])]) continue;
    odd[slot / BitsPerByte] |= static_cast<char>(1U << slot % BitsPerByte);
  }
  connection.Execute(std::string("CREATE TABLE ") + OrderTable + " (rows BLOB, odd BLOB) STRICT");
  Statement keep =
      connection.Prepare(std::string("INSERT INTO ") + OrderTable + " VALUES (?1, ?2)");
  const std::string_view rows(reinterpret_cast<const char*>(made.rows.data()),
                              made.rows.size() * sizeof(RowKey));
  keep.Lie(0, Cell::Of(rows), true);
  keep.Lie(1, Cell::Of(std::string_view(odd)), true);
  keep.Execute();
}

KeptOrder::KeptOrder(Connection& connection, const TableState& table, int field)
    : connection_(connection), table_(table), field_(field) {
  Statement kept = connection.Prepare(std::string("SELECT rows, odd FROM ") + OrderTable);
  if (!kept.Avance()) throw FormatInconnu(table.Nom());
  rows_ = EnVecteur<RowKey>(kept.Texte(0));
  odd_ = kept.Texte(1);
  one_ = connection.Prepare("SELECT " + table.ChampSql(field) + " FROM " + table.NomSql() +
                            " WHERE " + table.CleSql() + " = ?1");
}

/// Valid until the next call. A row that is not there is damage.
std::string_view KeptOrder::Texte(RowKey row) {
  one_.Rembobine();
  one_.Lie(0, std::int64_t{row});
  if (!one_.Avance()) throw FormatInconnu(table_.Nom());
  return one_.Texte(0);
}

/// The first slot whose text has this key or a higher one.
std::size_t KeptOrder::Premier(std::string_view key) {
  std::string other;
  const auto found = std::partition_point(rows_.begin(), rows_.end(), [&](RowKey row) {
    other.clear();
    connection_.Ordre().AjouteCle(Texte(row), other);
    return other < key;
  });
  return static_cast<std::size_t>(found - rows_.begin());
}

KeptOrder::Slots KeptOrder::Commencent(const std::string& key) {
  return {Premier(key), key.empty() ? rows_.size() : Premier(key + '\xFF')};
}

bool KeptOrder::EstSimple(std::size_t slot) const {
  const std::size_t byte = slot / BitsPerByte;
  return byte >= odd_.size() ||
         (static_cast<unsigned char>(odd_[byte]) >> slot % BitsPerByte & 1U) == 0;
}

std::vector<RowKey> KeptOrder::Egales(const std::string& text) {
  std::string key;
  connection_.Ordre().AjouteCle(text, key);
  const auto first = rows_.begin() + static_cast<std::ptrdiff_t>(Premier(key));
  key.push_back('\0');  // the next key that there can be
  return {first, rows_.begin() + static_cast<std::ptrdiff_t>(Premier(key))};
}

// A pattern of letters and an asterisk takes all simple texts that begin with its weights, or none
// of them when it is not simple itself. Whatever else is left is matched one by one.
std::vector<RowKey> KeptOrder::Semblables(const std::string& pattern) {
  const LikePattern match(pattern, connection_.Ordre());
  const std::string_view start =
      std::string_view(pattern).substr(0, pattern.find_first_of(wildcards));
  std::string key;
  connection_.Ordre().AjouteCle(DebutLatin(start), key);
  key.resize(std::min(key.find('\0'), key.size()));  // without its accents
  const bool begins = EstDebut(pattern), simple = connection_.Ordre().EstSimple(start);
  const auto [first, end] = Commencent(key);
  std::vector<RowKey> rows;
  for (std::size_t slot = first; slot < end; ++slot) {
    const bool known = begins && EstSimple(slot);
    const bool found =
        known ? simple : match.Correspond(Texte(rows_[slot]), [this](std::size_t steps) {
          connection_.Travaille(steps);
        });
    if (found) rows.push_back(rows_[slot]);
  }
  return rows;
}

// Null first, equal ones in the order of their keys.
void KeptOrder::OrdonnePar(int field, std::vector<RowKey>& rows) {
  std::sort(rows.begin(), rows.end());
  Statement one = connection_.Prepare("SELECT " + table_.ChampSql(field) + " FROM " +
                                      table_.NomSql() + " WHERE " + table_.CleSql() + " = ?1");
  std::vector<std::pair<std::string, RowKey>> keys;
  keys.reserve(rows.size());
  for (const RowKey row : rows) {
    one.Rembobine();
    one.Lie(0, std::int64_t{row});
    if (!one.Avance()) throw FormatInconnu(table_.Nom());
    std::string& key = keys.emplace_back(std::string(), row).first;
    if (one.EstNull(0)) continue;
    key.push_back('\1');
    connection_.Ordre().AjouteCle(one.Texte(0), key);
  }
  std::sort(keys.begin(), keys.end());
  std::transform(keys.begin(), keys.end(), rows.begin(), [](const auto& k) { return k.second; });
}

/// False for an order that is not known here.
bool KeptOrder::Ordonne(std::vector<RowKey>& rows, const std::vector<OrderTerm>& order) {
  if (order.empty()) {
    std::sort(rows.begin(), rows.end());
    return true;
  }
  const OrderTerm& term = order.front();
  if (order.size() > 1 || term.descending || term.field < 0) return false;
  if (term.field == field_) return true;
  if (StockageDe(table_.Def(term.field).type) != Storage::Text) return false;
  OrdonnePar(term.field, rows);
  return true;
}

std::optional<std::vector<RowKey>> KeptOrder::Cherche(const Selection& selection) {
  if (selection.table != &table_ || !selection.search || selection.search->field != field_) {
    return std::nullopt;
  }
  const TextSearch& search = *selection.search;
  std::vector<RowKey> rows = search.like ? Semblables(search.text) : Egales(search.text);
  one_.Rembobine();
  return Ordonne(rows, selection.order) ? std::optional(std::move(rows)) : std::nullopt;
}

}  // namespace talpena::sqlite
