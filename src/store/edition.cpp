#include "store/edition.h"

#include <algorithm>
#include <utility>

#include "store/open_edit.h"

namespace talpena {
namespace {

/// A transaction that ends with what was done in it, whatever becomes of the rest.
class KeptTransaction {
 public:
  explicit KeptTransaction(Database& database) : database_(database) {
    if (database_.EnTransaction()) database_.CommitTrans();  // one that failed to end
    database_.BeginTrans();
  }
  KeptTransaction(const KeptTransaction&) = delete;
  KeptTransaction& operator=(const KeptTransaction&) = delete;
  ~KeptTransaction() {
    if (!open_) return;
    try {
      if (database_.EnTransaction()) database_.CommitTrans();
    } catch (const TalpenaError&) {  // the failure under way is the one to report
    }
  }
  void Valide() {
    database_.CommitTrans();
    open_ = false;
  }

 private:
  Database& database_;
  bool open_ = true;
};

/// Notes whether any row was changed, also when the walk ends by a failure.
class Witness final : public RowChange {
 public:
  Witness(RowChange& change, bool& changed) : change_(change), changed_(changed) {}
  bool Modifie(Bookmark row, std::span<const Cell> given, std::span<Cell> changed) override {
    const bool changes = change_.Modifie(row, given, changed);
    changed_ = changed_ || changes;
    return changes;
  }
  void Avance(std::int64_t done, std::int64_t total) override { change_.Avance(done, total); }

 private:
  RowChange& change_;
  bool& changed_;
};

Recordset::Progress OuRien(const Recordset::Progress& avance) {
  return avance ? avance : [](std::int64_t, std::int64_t) {};
}

}  // namespace

Edition::Edition(Document& document, std::string name, Etendue etendue)
    : document_(document), name_(std::move(name)), entire_(etendue == Etendue::Entiere) {
  if (!entire_) return;
  headerBefore_ = document_.header_;
  if (document_.WorkingDb) transaction_.emplace(*document_.WorkingDb);
}

Edition::~Edition() {
  if (ended_) return;
  try {
    if (entire_) {
      Annule();
    } else {
      Termine();
    }
  } catch (...) {  // the failure under way is the one to report
  }
}

void Edition::Valide() {
  if (ended_) return;
  if (transaction_) transaction_->Valide();
  Termine();
}

/// Rows and header are as before. The grid may have been painted meanwhile: it reads again.
void Edition::Annule() {
  ended_ = true;
  cursor_.reset();
  transaction_.reset();
  document_.header_ = std::move(*headerBefore_);
  const bool rows = changes_.Touche(Aspect::Rows) || changes_.Touche(Aspect::Values);
  if (rows) document_.Signale(Aspect::Values);
}

void Edition::Termine() {
  ended_ = true;
  cursor_.reset();
  if (modified_ && marks_ && !std::exchange(document_.modified_, true)) {
    changes_ |= Aspect::Modified;
  }
  const auto dit = [this] {
    if (!changes_.Aucun()) document_.Signale(changes_);
  };
  try {
    if (goTo_) goTo_(document_.Data1.recordset());
  } catch (...) {  // what was changed is told all the same
    dit();
    throw;
  }
  dit();
}

Bookmark Edition::AjouteLigne(const Remplissage& remplit) {
  Recordset& rows = Curseur();
  rows.AddNew();
  try {
    if (remplit) remplit(rows);
    rows.Update();
  } catch (...) {
    rows.CancelUpdate();
    throw;
  }
  Note(Aspect::Rows);
  return rows.LastModified();
}

std::int64_t Edition::AjouteLignes(std::span<const int> fields, RowSource& source) {
  std::optional<KeptTransaction> own;
  if (!transaction_) own.emplace(document_.Base());
  const std::int64_t before = Curseur().RecordCount();
  const auto note = [&] {
    if (Curseur().RecordCount() > before) Note(Aspect::Rows);
  };
  try {
    const std::int64_t count = Curseur().AjouteLignes(fields, source);
    note();
    if (own) own->Valide();
    return count;
  } catch (...) {
    note();
    throw;
  }
}

Bookmark Edition::AjouteLignesVides(std::int64_t count, const Recordset::Progress& avance) {
  constexpr std::int64_t step = 1000;
  std::optional<Transaction> own;
  if (!transaction_) own.emplace(document_.Base());
  Recordset& rows = Curseur();
  for (std::int64_t i = 0; i < count; ++i) {
    rows.AddNew();
    rows.Update();
    if (avance && (i + 1) % step == 0) avance(i + 1, count);
  }
  if (own) own->Valide();
  if (count > 0) Note(Aspect::Rows);
  return count > 0 ? rows.LastModified() : 0;
}

void Edition::ModifieLigne(Recordset& rows, const Remplissage& remplit) {
  OpenEdit edit(rows);
  remplit(rows);
  edit.Valide();
  Note(Aspect::Values);
}

std::int64_t Edition::ModifieLignes(const RowPass& pass, RowChange& change) {
  bool changed = false;
  Witness witness(change, changed);
  const auto note = [&] {
    if (changed) Note(Aspect::Values);
  };
  try {
    const std::int64_t count = Curseur().ModifieLignes(pass, witness);
    note();
    return count;
  } catch (...) {
    note();
    throw;
  }
}

std::int64_t Edition::RemplitLignes(std::span<const int> fields, std::span<const Cell> values,
                                    const Recordset::Progress& avance) {
  const std::int64_t count = Curseur().RemplitLignes(fields, values, OuRien(avance));
  if (count > 0) Note(Aspect::Values);
  return count;
}

std::int64_t Edition::RemplaceValeur(int field, const Cell& before, const Cell& value,
                                     const Recordset::Progress& avance) {
  const std::int64_t count = Curseur().RemplaceValeur(field, before, value, OuRien(avance));
  if (count > 0) Note(Aspect::Values);
  return count;
}

std::int64_t Edition::SupprimeLignes(std::span<const Bookmark> rows) {
  const std::int64_t count = Curseur().SupprimeLignes(rows);
  if (count > 0) Note(Aspect::Rows);
  return count;
}

void Edition::VideTable() {
  document_.Base().Execute("DELETE FROM TALPENA");
  ++document_.contents_;
  modified_ = true;
}

std::int64_t Edition::InsereLignes(std::span<const std::string_view> columns, RowSource& source) {
  std::optional<KeptTransaction> own;
  if (!transaction_) own.emplace(document_.Base());
  modified_ = true;
  const std::int64_t count = document_.Base().InsertRows("TALPENA", columns, source);
  if (own) own->Valide();
  return count;
}

DistributionHeader& Edition::Entete() {
  Note(Aspect::Header);
  return document_.header_;
}

void Edition::VaA(Bookmark row) {
  goTo_ = [row](Recordset& rows) { rows.SetBookmark(row); };
  changes_ |= Aspect::Position;
}

void Edition::VaAPosition(std::int64_t position) {
  goTo_ = [position](Recordset& rows) {
    const std::int64_t last = rows.RecordCount() - 1;
    if (last < 0) {
      rows.MoveFirst();
    } else {
      rows.SetAbsolutePosition(std::clamp<std::int64_t>(position, 0, last));
    }
  };
  changes_ |= Aspect::Position;
}

void Edition::Note(Aspect aspect) {
  changes_ |= aspect;
  modified_ = true;
}

Recordset& Edition::Curseur() {
  if (!cursor_) cursor_ = document_.Data1.Clone();
  return *cursor_;
}

}  // namespace talpena
