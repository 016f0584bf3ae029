// What fake recordsets leave out: work over many rows.
#pragma once
#include "common/talpena_error.h"
#include "platform/table_engine.h"

namespace talpena::test {

/// A recordset for looking at row by row only.
class RefusingRows : public Recordset {
 public:
  std::int64_t PositionDe(Bookmark) const override { Refuse(); }
  std::int64_t AjouteLignes(std::span<const int>, RowSource&) override { Refuse(); }
  std::int64_t ModifieLignes(const RowPass&, RowChange&) override { Refuse(); }
  std::int64_t RemplitLignes(std::span<const int>, std::span<const Cell>,
                             const Progress&) override {
    Refuse();
  }
  std::int64_t RemplaceValeur(int, const Cell&, const Cell&, const Progress&) override { Refuse(); }
  std::int64_t SupprimeLignes(std::span<const Bookmark>) override { Refuse(); }
  void LitLignes(std::span<const Bookmark>, const RowVisitor&) override { Refuse(); }
  void RetablitLignes(std::span<const RowPlace>, RowSource&) override { Refuse(); }
  void LitNombres(std::span<const int>, const std::vector<Bookmark>*,
                  const NumberVisitor&) override {
    Refuse();
  }

 protected:
  [[noreturn]] static void Refuse() {
    throw TalpenaError(ErrorNumber::ReadOnly, "Database or object is read-only.");
  }
};

}  // namespace talpena::test
