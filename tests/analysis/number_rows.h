// A table of numbers, dates and points that tests of statistics and charts are made over.
#pragma once
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "analysis/analysed_rows.h"
#include "analysis/selection.h"
#include "fakes/fake_charts.h"
#include "store/world.h"

namespace talpena::test {

/// One row; what is not given is Null.
struct NumberRow {
  std::optional<std::int64_t> n1 = {}, n2 = {};
  std::optional<double> latitude = {}, longitude = {};
  const char* date = nullptr;
  std::optional<std::int64_t> period = {};
  const char* sex = nullptr;
};

struct NumberWorld : World {
  FakeCharts charts;

  void Montre(const std::vector<NumberRow>& rows) {
    const auto table = state.document.WorkingDb->OpenRecordset("TALPENA");
    const auto nombre = [&](const char* field, const auto& value) {
      if (value) table->Set(field, Cell::Of(*value));
    };
    const auto texte = [&](const char* field, const char* value) {
      if (value != nullptr) table->Set(field, Cell::Of(std::string_view(value)));
    };
    for (const NumberRow& row : rows) {
      table->AddNew();
      nombre("N1", row.n1);
      nombre("N2", row.n2);
      nombre("LATITUDE", row.latitude);
      nombre("LONGITUDE", row.longitude);
      nombre("PERIOD", row.period);
      texte("DATE", row.date);
      texte("SEX", row.sex);
      table->Update();
    }
    state.document.Data1.Lie(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
    state.Langue = 1000;
  }
  void Filtre(const std::string& condition) { ValideSelection(state, io, {1, condition}); }
  /// The first rows in file order are chosen in the grid.
  void Choisit(std::initializer_list<std::int64_t> positions) {
    const auto rows = state.document.WorkingDb->OpenRecordset("TALPENA");
    for (const std::int64_t position : positions) {
      rows->SetAbsolutePosition(position);
      vue.selection.push_back(rows->GetBookmark());
    }
  }
  /// "N1/N2" of every row in file order, Null as "-".
  std::vector<std::string> Nombres() {
    std::vector<std::string> all;
    const auto rows =
        state.document.WorkingDb->OpenRecordset("SELECT N1, N2 FROM TALPENA ORDER BY Counter");
    const auto texte = [](const Cell& cell) { return cell.EstNull() ? "-" : cell.Texte(); };
    for (; !rows->EOF_(); rows->MoveNext()) {
      all.push_back(texte(rows->Get(0)) + "/" + texte(rows->Get(1)));
    }
    return all;
  }
};

}  // namespace talpena::test
