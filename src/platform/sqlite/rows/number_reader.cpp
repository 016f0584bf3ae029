#include "platform/sqlite/rows/number_reader.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

/// Rows of a block. A list in the order of the table, or against it, has the rows of a small block
/// side by side; of a sorted one only a block of many rows lies close enough together.
constexpr std::size_t SmallBlock = 4096;
constexpr std::size_t LargeBlock = std::size_t{1} << 20U;

/// Keys per row up to which going through all of them is quicker than looking for each.
constexpr std::int64_t WidestSpread = 6;

std::string SqlDe(const TableState& table, std::span<const int> fields, const char* which) {
  std::string sql = "SELECT " + table.CleSql();
  for (const int field : fields) {
    const Storage storage = StockageDe(table.Def(field).type);
    if (storage != Storage::Integer && storage != Storage::Real) throw ConversionImpossible();
    sql += ", " + table.ChampSql(field);
  }
  return sql + " FROM " + table.NomSql() + " WHERE " + table.CleSql() + which;
}

}  // namespace

NumberReader::NumberReader(Connection& connection, const TableState& table,
                           std::span<const int> fields, const NumberVisitor& visit)
    : fields_(fields.size()),
      visit_(visit),
      range_(connection.Prepare(SqlDe(table, fields, " BETWEEN ?1 AND ?2"))),
      one_(connection.Prepare(SqlDe(table, fields, " = ?1"))) {}

void NumberReader::LitTout(const RowList& rows) {
  auto slot = rows.Suivant(0);
  ParBlocs([&]() -> std::optional<RowKey> {
    if (!slot) return std::nullopt;
    const RowKey key = rows.Cle(*slot);
    slot = rows.Suivant(*slot + 1);
    return key;
  });
}

void NumberReader::LitNommees(const RowList& rows, std::span<const Bookmark> named) {
  std::size_t next = 0;
  ParBlocs([&]() -> std::optional<RowKey> {
    while (next < named.size()) {
      const Bookmark bookmark = named[next++];
      if (bookmark < std::numeric_limits<RowKey>::min() ||
          bookmark > std::numeric_limits<RowKey>::max()) {
        continue;
      }
      const auto slot = rows.Place(static_cast<RowKey>(bookmark));
      if (slot && rows.Vivant(*slot)) return static_cast<RowKey>(bookmark);
    }
    return std::nullopt;
  });
}

template <typename Next>
void NumberReader::ParBlocs(Next next) {
  // Whether there may be more keys behind those that were taken.
  const auto take = [&](std::size_t count) {
    while (keys_.size() < count) {
      const std::optional<RowKey> key = next();
      if (!key) return false;
      keys_.push_back(*key);
    }
    return true;
  };
  for (bool more = true; more;) {
    keys_.clear();
    more = take(SmallBlock);
    if (more && !Serrees()) more = take(LargeBlock);
    if (!keys_.empty()) LitBloc();
  }
}

/// True when the keys of the block lie close together.
bool NumberReader::Serrees() {
  const auto [low, high] = std::minmax_element(keys_.begin(), keys_.end());
  low_ = *low;
  high_ = *high;
  return std::int64_t{high_} - low_ < WidestSpread * static_cast<std::int64_t>(keys_.size());
}

void NumberReader::LitBloc() {
  values_.resize(keys_.size() * fields_);
  found_.assign(keys_.size(), false);
  Serrees() ? Parcourt() : ChercheUneAUne();
  Rend();
}

void NumberReader::Parcourt() {
  places_.assign(static_cast<std::size_t>(std::int64_t{high_} - low_) + 1, 0);
  const auto placeOf = [this](std::int64_t key) -> std::uint32_t& {
    return places_[static_cast<std::size_t>(key - low_)];
  };
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    placeOf(keys_[i]) = static_cast<std::uint32_t>(i + 1);
  }
  range_.Rembobine();
  range_.Lie(0, std::int64_t{low_});
  range_.Lie(1, std::int64_t{high_});
  while (range_.Avance()) {
    const std::uint32_t place = placeOf(range_.Entier(0));
    if (place != 0) Range(range_, place - 1);
  }
  range_.Rembobine();
}

void NumberReader::ChercheUneAUne() {
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    one_.Rembobine();
    one_.Lie(0, std::int64_t{keys_[i]});
    if (one_.Avance()) Range(one_, i);
  }
  one_.Rembobine();
}

void NumberReader::Range(const Statement& row, std::size_t place) {
  found_[place] = true;
  for (std::size_t i = 0; i < fields_; ++i) {
    const int column = static_cast<int>(i) + 1;
    values_[place * fields_ + i] =
        row.EstNull(column) ? std::numeric_limits<double>::quiet_NaN() : row.Reel(column);
  }
}

// Rows that the table no longer has leave no gap.
void NumberReader::Rend() {
  std::size_t rows = keys_.size();
  if (std::find(found_.begin(), found_.end(), false) != found_.end()) {
    rows = 0;
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      if (!found_[i]) continue;
      std::copy_n(values_.data() + i * fields_, fields_, values_.data() + rows * fields_);
      ++rows;
    }
  }
  for (std::size_t from = 0; from < rows; from += SmallBlock) {
    const std::size_t count = std::min(SmallBlock, rows - from);
    visit_({count, fields_, {values_.data() + from * fields_, count * fields_}});
  }
}

}  // namespace talpena::sqlite
