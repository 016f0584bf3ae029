// A file of five rows, open in a program without windows.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "store/world.h"

namespace talpena::test {

using Strings = std::vector<std::string>;
using Numbers = std::vector<std::int64_t>;

class GridCommands : public ::testing::Test, protected World {
 protected:
  /// Rows with N1 = 1 to `count` and what else a test needs, bound as a file is.
  void Ouvre(int count = 5) {
    const auto rows = state.document.WorkingDb->OpenRecordset("TALPENA");
    for (int n = 1; n <= count; ++n) {
      rows->AddNew();
      rows->Set("PERIOD", Cell::Of(std::int64_t{1}));
      rows->Set("LATITUDE", Cell::Of(50.5));
      rows->Set("LONGITUDE", Cell::Of(4.25));
      rows->Set("N1", Cell::Of(std::int64_t{n}));
      rows->Set("N2", Cell::Of(std::int64_t{10 * n}));
      rows->Set("SEX", Cell::Of(std::string_view("M")));
      rows->Set("DATUM", Cell::Of(std::string_view("WGS84")));
      rows->Set("ORIGINAL", Cell::Of(std::string_view("deg +50.5 +4.25")));
      rows->Set("DATE", Cell::Of(std::string_view("1990/01/01")));
      rows->Set("COMMENT", Cell::Of(std::string_view("seen")));
      rows->Update();
    }
    state.document.RelieSqlCourant();
  }
  void Montre(const std::string& source) { MontreSelect(state.document, source); }
  /// Changes a field of the row with this N1.
  void Pose(std::int64_t n1, std::string_view field, std::string_view value) {
    const auto rows = state.document.Data1.Clone();
    ASSERT_TRUE(rows->FindFirst("N1 = " + Str(n1)));
    rows->Edit();
    rows->Set(field, Cell::Of(value));
    rows->Update();
  }
  void Va(std::int64_t position) { Rows().SetAbsolutePosition(position); }

  Recordset& Rows() { return state.document.Data1.recordset(); }
  std::int64_t Ici() { return Rows().Get("N1").integer; }
  /// N1 of the rows that the grid shows, Null as 0.
  Numbers N1() {
    Numbers values;
    const auto rows = state.document.Data1.Clone();
    for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
      values.push_back(rows->Get("N1").integer);
    }
    return values;
  }
  int Appels(const std::string& call) const {
    return static_cast<int>(std::count(vue.calls.begin(), vue.calls.end(), call));
  }
  void NoteChangements() {
    observed = ObserveLignes(state.document,
                             [this](DataControl::Change change) { changes.push_back(change); });
  }

  std::vector<DataControl::Change> changes;
  Subscription observed;
};

}  // namespace talpena::test
