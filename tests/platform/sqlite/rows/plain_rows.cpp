#include "platform/sqlite/rows/plain_rows.h"

#include <algorithm>
#include <limits>

#include "common/talpena_error.h"

namespace talpena::plain {
namespace {

std::vector<Bookmark> LignesDe(Recordset& rows, const RowPass& pass) {
  std::vector<Bookmark> keys;
  if (pass.only != nullptr) {
    keys = *pass.only;
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
  }
  for (rows.MoveFirst(); !rows.EOF_(); rows.MoveNext()) keys.push_back(rows.GetBookmark());
  return keys;
}

/// False when the row was deleted meanwhile.
bool VaALaLigne(Recordset& rows, Bookmark key) {
  try {
    rows.SetBookmark(key);
    return true;
  } catch (const TalpenaError& error) {
    if (error.number() != ErrorNumber::InvalidBookmark) throw;
    return false;
  }
}

bool ModifieLigne(Recordset& rows, const RowPass& pass, RowChange& change) {
  std::vector<Cell> given(pass.read.size());
  std::vector<Cell> changed(pass.written.size());
  for (std::size_t i = 0; i < given.size(); ++i) given[i] = rows.Get(pass.read[i]);
  if (!change.Modifie(rows.GetBookmark(), given, changed)) return false;
  rows.Edit();
  for (std::size_t i = 0; i < changed.size(); ++i) rows.Set(pass.written[i], changed[i]);
  rows.Update();
  return true;
}

/// Numbers of rows that were looked at, handed on a block at a time.
class Numbers {
 public:
  Numbers(std::span<const int> fields, const NumberVisitor& visit)
      : fields_(fields), visit_(visit) {}

  void Ajoute(Recordset& rows) {
    for (const int field : fields_) {
      const Cell cell = rows.Get(field);
      if (cell.kind == Cell::Kind::Text) {
        throw TalpenaError(ErrorNumber::DataConversion, "Data type conversion error.");
      }
      values_.push_back(cell.EstNull() ? std::numeric_limits<double>::quiet_NaN() : cell.Nombre());
    }
    if (++rows_ == BlockRows) Rend();
  }
  void Rend() {
    if (rows_ > 0) visit_({rows_, fields_.size(), values_});
    rows_ = 0;
    values_.clear();
  }

 private:
  static constexpr std::size_t BlockRows = 4096;

  std::span<const int> fields_;
  const NumberVisitor& visit_;
  std::vector<double> values_;
  std::size_t rows_ = 0;
};

/// The same values for every row.
class Constant final : public RowChange {
 public:
  Constant(std::span<const Cell> values, const Recordset::Progress& avance)
      : values_(values), avance_(avance) {}
  bool Modifie(Bookmark, std::span<const Cell>, std::span<Cell> changed) override {
    std::copy(values_.begin(), values_.end(), changed.begin());
    return true;
  }
  void Avance(std::int64_t done, std::int64_t total) override { avance_(done, total); }

 private:
  std::span<const Cell> values_;
  const Recordset::Progress& avance_;
};

/// One value for another. Texts of the test have no letters in two cases.
class Exchange final : public RowChange {
 public:
  Exchange(const Cell& before, const Cell& value) : before_(before), value_(value) {}
  bool Modifie(Bookmark, std::span<const Cell> given, std::span<Cell> changed) override {
    if (given[0].EstNull() || given[0].Texte() != before_.Texte()) return false;
    changed[0] = value_;
    return true;
  }

 private:
  const Cell& before_;
  const Cell& value_;
};

}  // namespace

std::int64_t RemplitLignes(Recordset& rows, std::span<const int> fields,
                           std::span<const Cell> values, const Recordset::Progress& avance) {
  Constant change(values, avance);
  return ModifieLignes(rows, {.read = {}, .written = {fields.begin(), fields.end()}}, change);
}

std::int64_t RemplaceValeur(Recordset& rows, int field, const Cell& before, const Cell& value) {
  Exchange change(before, value);
  return ModifieLignes(rows, {.read = {field}, .written = {field}}, change);
}

std::int64_t ModifieLignes(Recordset& rows, const RowPass& pass, RowChange& change) {
  const auto clone = rows.Clone();
  const std::vector<Bookmark> keys = LignesDe(*clone, pass);
  const auto total = static_cast<std::int64_t>(keys.size());
  std::int64_t count = 0;
  std::int64_t done = 0;
  for (const Bookmark key : keys) {
    if (VaALaLigne(*clone, key) && ModifieLigne(*clone, pass, change)) ++count;
    change.Avance(++done, total);
  }
  return count;
}

void LitNombres(Recordset& rows, std::span<const int> fields, const std::vector<Bookmark>* only,
                const NumberVisitor& visit) {
  const auto clone = rows.Clone();
  Numbers numbers(fields, visit);
  if (only != nullptr) {
    for (const Bookmark row : *only) {
      if (VaALaLigne(*clone, row)) numbers.Ajoute(*clone);
    }
  } else {
    for (clone->MoveFirst(); !clone->EOF_(); clone->MoveNext()) numbers.Ajoute(*clone);
  }
  numbers.Rend();
}

std::int64_t SupprimeLignes(Recordset& rows, std::span<const Bookmark> chosen) {
  const auto clone = rows.Clone();
  std::int64_t count = 0;
  for (const Bookmark row : chosen) {
    if (!VaALaLigne(*clone, row)) continue;
    clone->Delete();
    ++count;
  }
  return count;
}

}  // namespace talpena::plain
