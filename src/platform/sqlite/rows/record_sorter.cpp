#include "platform/sqlite/rows/record_sorter.h"

#include <algorithm>
#include <array>
#include <bit>

#include "platform/sqlite/rows/key_sorter.h"

namespace talpena::sqlite {
namespace {

std::string Ou(const std::string& condition) {
  return condition.empty() ? std::string() : " WHERE " + condition;
}

std::int64_t UnNombre(Connection& connection, const std::string& sql) {
  Statement statement = connection.Prepare(sql);
  return statement.Avance() ? statement.Entier(0) : 0;
}

RowList DeCles(std::vector<RowKey> keys) {
  keys.shrink_to_fit();
  return RowList(std::move(keys));
}

class RecordSorter {
 public:
  RecordSorter(Connection& connection, const TableState& table, const std::string& condition,
               const std::vector<OrderTerm>& order)
      : connection_(connection), table_(table), condition_(condition), order_(order) {
    // Nothing is left to order behind the key.
    for (std::size_t i = 0; i < order_.size(); ++i) {
      if (table.ChampCle() >= 0 && order_[i].field == table.ChampCle()) order_.resize(i + 1);
    }
  }

  RowList Trie() {
    const bool byKey =
        order_.size() == 1 && order_[0].field >= 0 && order_[0].field == table_.ChampCle();
    if (order_.empty() || byKey) return ParCle(byKey && order_[0].descending);
    const bool columns = std::all_of(order_.begin(), order_.end(),
                                     [](const OrderTerm& term) { return term.field >= 0; });
    if (!columns) return ParSqlite();
    if (order_.size() == 1 && Est32Bits(order_[0].field)) return ParNombre();
    return ParOctets();
  }

 private:
  bool Est32Bits(int field) const {
    const FieldType type = table_.Def(field).type;
    return type == FieldType::Single || StockageDe(type) == Storage::Integer;
  }

  std::string Select(const std::string& columns) const {
    return "SELECT " + columns + " FROM " + table_.NomSql();
  }

  Statement Lignes(const std::string& columns, const std::string& behind = {}) {
    return connection_.Prepare(Select(columns) + Ou(condition_) + behind, Access::Read);
  }

  std::size_t NombreAttendu() {
    if (!condition_.empty()) return 0;
    return static_cast<std::size_t>(UnNombre(connection_, Select("count(*)")));
  }

  RowList ParCle(bool falling) {
    if (condition_.empty()) {
      const std::int64_t count = UnNombre(connection_, Select("count(*)"));
      const std::int64_t low = UnNombre(connection_, Select("min(" + table_.CleSql() + ")"));
      const std::int64_t high = UnNombre(connection_, Select("max(" + table_.CleSql() + ")"));
      if (count == 0) return RowList::Etendue(1, 0);
      if (high - low + 1 == count) {
        return RowList::Etendue(static_cast<RowKey>(low), static_cast<RowKey>(high), falling);
      }
    }
    std::vector<RowKey> keys;
    keys.reserve(NombreAttendu());
    Statement rows = Lignes(table_.CleSql());
    while (rows.Avance()) keys.push_back(static_cast<RowKey>(rows.Entier(0)));
    if (!std::is_sorted(keys.begin(), keys.end())) std::sort(keys.begin(), keys.end());
    if (falling) std::reverse(keys.begin(), keys.end());
    return DeCles(std::move(keys));
  }

  RowList ParSqlite() {
    std::string behind;
    for (const OrderTerm& term : order_) {
      behind +=
          (behind.empty() ? " ORDER BY " : ", ") + term.sql + (term.descending ? " DESC" : "");
    }
    std::vector<RowKey> keys;
    Statement rows = Lignes(table_.CleSql(), behind + ", " + table_.CleSql());
    while (rows.Avance()) keys.push_back(static_cast<RowKey>(rows.Entier(0)));
    return DeCles(std::move(keys));
  }

  /// A number of 32 bits that orders as the column's value does.
  static std::uint32_t Ordonne(const Statement& rows, int column, bool single) {
    if (!single) return static_cast<std::uint32_t>(rows.Entier(column)) ^ 0x80000000u;
    const float value = static_cast<float>(rows.Reel(column)) + 0.0f;  // -0 becomes 0
    const auto bits = std::bit_cast<std::uint32_t>(value);
    return (bits & 0x80000000u) != 0 ? ~bits : bits | 0x80000000u;
  }

  RowList ParNombre() {
    const OrderTerm& term = order_[0];
    const bool single = table_.Def(term.field).type == FieldType::Single;
    std::vector<RowKey> nulls;
    NumberSorter sorter;
    sorter.Reserve(NombreAttendu());
    // Equal numbers keep the order in which they come, so that keys have to rise.
    Statement rows = Lignes(table_.CleSql() + ", " + table_.ChampSql(term.field),
                            " ORDER BY " + table_.CleSql());
    while (rows.Avance()) {
      const auto key = static_cast<RowKey>(rows.Entier(0));
      if (rows.EstNull(1)) {
        nulls.push_back(key);
        continue;
      }
      const std::uint32_t number = Ordonne(rows, 1, single);
      sorter.Ajoute(term.descending ? ~number : number, key);
    }
    rows = Statement();
    sorter.Trie();
    std::vector<RowKey> keys;
    keys.reserve(nulls.size() + sorter.Nombre());
    if (!term.descending) keys.insert(keys.end(), nulls.begin(), nulls.end());
    for (std::size_t i = 0; i < sorter.Nombre(); ++i) keys.push_back(sorter.Ligne(i));
    if (term.descending) keys.insert(keys.end(), nulls.begin(), nulls.end());
    return RowList(std::move(keys));
  }

  // Null below every value; numbers as four or eight bytes, texts by their comparison's key.
  void AjouteCle(const Statement& rows, int column, const OrderTerm& term, std::string& key) const {
    const std::size_t start = key.size();
    const FieldType type = table_.Def(term.field).type;
    const Storage storage = StockageDe(type);
    if (storage == Storage::Integer || type == FieldType::Single) {
      AjouteNombre32(rows, column, type == FieldType::Single, key);
    } else if (rows.EstNull(column)) {
      key.push_back('\1');
    } else {
      key.push_back('\2');
      if (storage == Storage::Text) {
        connection_.Ordre().AjouteCle(rows.Texte(column), key);
        key.append(2, '\0');
      } else if (storage == Storage::Blob) {
        AjouteOctets(rows.Texte(column), key);
      } else {
        AjouteNombre(rows.Reel(column), key);
      }
    }
    if (!term.descending) return;
    for (std::size_t i = start; i < key.size(); ++i) key[i] = static_cast<char>(~key[i]);
  }

  // A whole number may be the lowest of 32 bits, a single never has that pattern.
  static void AjouteNombre32(const Statement& rows, int column, bool single, std::string& key) {
    const bool null = rows.EstNull(column);
    if (!single) key.push_back(null ? '\1' : '\2');
    AjouteBits(null ? 0 : Ordonne(rows, column, single), key);
  }

  template <typename Bits>
  static void AjouteBits(Bits bits, std::string& key) {
    std::array<char, sizeof bits> bytes;
    for (std::size_t i = bytes.size(); i-- > 0; bits >>= 8) bytes[i] = static_cast<char>(bits);
    key.append(bytes.data(), bytes.size());
  }

  static void AjouteNombre(double value, std::string& key) {
    const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);
    AjouteBits((bits >> 63) != 0 ? ~bits : bits | (std::uint64_t{1} << 63), key);
  }

  // A zero byte is doubled with a mark, so that two zeros end the bytes.
  static void AjouteOctets(std::string_view bytes, std::string& key) {
    for (const char c : bytes) {
      key.push_back(c);
      if (c == '\0') key.push_back('\1');
    }
    key.append(2, '\0');
  }

  std::string ColonnesTriees() const {
    std::string columns = table_.CleSql();
    for (const OrderTerm& term : order_) columns += ", " + table_.ChampSql(term.field);
    return columns;
  }

  void CleDe(const Statement& rows, std::string& key) const {
    key.clear();
    for (std::size_t i = 0; i < order_.size(); ++i) {
      AjouteCle(rows, static_cast<int>(i) + 1, order_[i], key);
    }
  }

  RowList ParOctets() {
    KeySorter sorter(static_cast<std::size_t>(UnNombre(connection_, Select("count(*)"))));
    {
      Statement rows = Lignes(ColonnesTriees());
      std::string key;
      while (rows.Avance()) {
        CleDe(rows, key);
        sorter.Ajoute(key, static_cast<RowKey>(rows.Entier(0)));
      }
    }
    KeySorter::Result result = sorter.Trie();
    std::size_t known = sorter.Gardes();
    while (!result.undecided.empty()) known += Departage(result, known);
    return RowList(std::move(result.rows));
  }

  // Rows that are equal as far as their keys were kept are read once more, with the table, for
  // the next bytes. Answers how many those are.
  std::size_t Departage(KeySorter::Result& result, std::size_t known) {
    struct Pending {
      RowKey row;
      std::uint32_t group;
    };
    std::vector<Pending> pending;
    for (std::size_t group = 0; group < result.undecided.size(); ++group) {
      const auto [first, last] = result.undecided[group];
      for (std::size_t i = first; i < last; ++i) {
        pending.push_back({result.rows[i], static_cast<std::uint32_t>(group)});
      }
    }
    std::sort(pending.begin(), pending.end(),
              [](const Pending& a, const Pending& b) { return a.row < b.row; });
    KeySorter sorter(pending.size());
    {
      Statement rows = Lignes(ColonnesTriees(), " ORDER BY " + table_.CleSql());
      std::string key;
      auto next = pending.begin();
      while (next != pending.end() && rows.Avance()) {
        if (rows.Entier(0) != next->row) continue;
        CleDe(rows, key);
        key.replace(0, std::min(known, key.size()), NumeroDeGroupe(next->group));
        sorter.Ajoute(key, next->row);
        ++next;
      }
    }
    const std::size_t more = sorter.Gardes() - sizeof(std::uint32_t);
    Replace(result, sorter.Trie());
    return more;
  }

  // The group goes first, so that rows stay within theirs.
  static std::string NumeroDeGroupe(std::uint32_t group) {
    std::string bytes;
    AjouteBits(group, bytes);
    return bytes;
  }

  /// Puts the rows of the groups, sorted anew, in their places.
  static void Replace(KeySorter::Result& result, const KeySorter::Result& sorted) {
    const std::vector<KeySorter::Group> groups = std::move(result.undecided);
    result.undecided.clear();
    auto still = sorted.undecided.begin();
    std::size_t from = 0;
    for (const auto& [first, last] : groups) {
      const std::size_t end = from + (last - first);
      std::copy(sorted.rows.begin() + static_cast<std::ptrdiff_t>(from),
                sorted.rows.begin() + static_cast<std::ptrdiff_t>(end),
                result.rows.begin() + static_cast<std::ptrdiff_t>(first));
      for (; still != sorted.undecided.end() && still->last <= end; ++still) {
        result.undecided.push_back({still->first - from + first, still->last - from + first});
      }
      from = end;
    }
  }

  Connection& connection_;
  const TableState& table_;
  const std::string& condition_;
  std::vector<OrderTerm> order_;
};

}  // namespace

RowList Trie(Connection& connection, const TableState& table, const std::string& condition,
             const std::vector<OrderTerm>& order) {
  return RecordSorter(connection, table, condition, order).Trie();
}

}  // namespace talpena::sqlite
