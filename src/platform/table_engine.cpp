#include "platform/table_engine.h"

#include <algorithm>

#include "common/talpena_error.h"

namespace talpena {
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

}  // namespace

std::int64_t Recordset::RemplitLignes(std::span<const int> fields, std::span<const Cell> values,
                                      const Progress& avance) {
  Constant change(values, avance);
  return Recordset::ModifieLignes({.read = {}, .written = {fields.begin(), fields.end()}}, change);
}

// Row by row; an engine that can do better does.
std::int64_t Recordset::ModifieLignes(const RowPass& pass, RowChange& change) {
  const auto rows = Clone();
  const std::vector<Bookmark> keys = LignesDe(*rows, pass);
  const auto total = static_cast<std::int64_t>(keys.size());
  std::int64_t count = 0;
  std::int64_t done = 0;
  for (const Bookmark key : keys) {
    if (VaALaLigne(*rows, key) && ModifieLigne(*rows, pass, change)) ++count;
    change.Avance(++done, total);
  }
  return count;
}

std::int64_t Recordset::SupprimeLignes(std::span<const Bookmark> rows) {
  const auto clone = Clone();
  std::int64_t count = 0;
  for (const Bookmark row : rows) {
    if (!VaALaLigne(*clone, row)) continue;
    clone->Delete();
    ++count;
  }
  return count;
}

}  // namespace talpena
