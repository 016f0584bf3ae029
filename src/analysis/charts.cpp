#include "analysis/charts.h"

#include <array>
#include <cmath>
#include <string>

#include "analysis/analysed_rows.h"
#include "analysis/ogu_counter.h"
#include "common/msg_id_analysis.h"
#include "common/numbers.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/filter.h"
#include "store/table.h"

namespace talpena {
namespace {

constexpr int PlusDePoints = 3800;

/// Int(points / 2) from which on few points are labelled, and then every so many.
constexpr int BeaucoupDePoints = 1000;

int PasDesLibelles(int points) {
  return Int(points / 2.0) > BeaucoupDePoints ? BeaucoupDePoints : 2;
}

/// A maximum below 1 leaves one point, at which nothing is charted.
int NombreDePoints(double maximum) { return maximum < 1 ? 1 : Arrondi32(maximum + 1); }

void CompteUnites(Document& document, const std::string& column, Chart& graph) {
  OguCounter counter([&graph](double value, int units) {
    graph.ThisPoint(value);
    graph.GraphData(units);
  });
  const auto rows = document.Base().OpenRecordset("SELECT " + column +
                                                  ",Latitude,Longitude FROM TALPENA ORDER BY " +
                                                  column + ",Latitude,Longitude");
  const std::array fields = {0, 1, 2};
  rows->LitNombres(fields, nullptr, [&counter](const NumberBlock& block) {
    for (std::size_t at = 0; at < block.values.size(); at += block.fields) {
      const std::span row = block.values.subspan(at, block.fields);
      UnitPosition position;
      if (!std::isnan(row[1]) && !std::isnan(row[2])) {
        position.emplace(static_cast<float>(row[1]), static_cast<float>(row[2]));
      }
      std::optional<double> value;
      if (!std::isnan(row[0])) value = row[0];
      counter.Ajoute(value, position);
    }
  });
  counter.Termine();
}

/// The whole table is counted, also under a filter: then the chart says so.
CountedRows LignesComptees(Document& document) {
  const NombresDeLignes counts = CompteLignes(document);
  return {document.FiltreActif() ? MsgId::TableEntiereComptee : MsgId::LignesToutes,
          counts.montrees, counts.toutes};
}

}  // namespace

void mnuAnalyse_Click(CommandContext c, ChartPort& port, int index) {
  Chart graph(port);
  graph.DataReset();
  const std::string column = index == 0 ? "N1" : "N2";
  {
    Busy busy(c.attente);
    busy.Annulable();
    const Cell maximum = c.document()
                             .Base()
                             .OpenRecordset("SELECT MAX(" + column + ") AS Maximum FROM TALPENA")
                             ->Get("Maximum");
    if (maximum.EstNull()) return;
    if (maximum.Nombre() + 1 > PlusDePoints) {
      busy.FermeFenetres();
      Bip(c.state, c.io);
      c.io.dialogues.Demande({.text = "X axis exeeds 3800 points!", .icon = Icon::Stop});
      return;
    }
    const int points = NombreDePoints(maximum.Nombre());
    graph.NumPoints(points);
    graph.LabelEvery(PasDesLibelles(points));
    CompteUnites(c.document(), column, graph);
  }
  graph.BottomTitle(index == 0 ? c.state.LabelNumeric1 : c.state.LabelNumeric2);
  graph.LeftTitle("OGUs");
  graph.GraphTitle(c.document().Entete().BoxTitre);
  graph.Lignes(LignesComptees(c.document()));
  graph.DrawMode();
  graph.Show();
}

void mnuPhenolo_Click(CommandContext c, ChartPort& port) {
  constexpr int months = 12;
  std::array<double, months> sums{};
  const AnalysedRows rows(c);
  std::int64_t without = 0;
  rows.Parcourt([&](Bookmark, std::span<const Cell> cells) {
    const Cell& date = cells[Column::DATE];
    const Cell& n1 = cells[Column::N1];
    const int month = date.EstNull() ? 0 : MoisDe(date.text);
    if (month == 0) ++without;
    if (month != 0 && !n1.EstNull()) sums[static_cast<std::size_t>(month - 1)] += n1.Nombre();
  });
  Chart graph(port);
  graph.DataReset();
  graph.AutoInc(true);
  graph.NumPoints(months);
  graph.LabelEvery(1);
  graph.Libelles(NomsDesMois(c.state.Langue));
  for (int month = 1; month <= months; ++month) {
    graph.ThisPoint(month);
    graph.GraphData(sums[static_cast<std::size_t>(month - 1)]);
  }
  graph.BottomTitle("");
  graph.LeftTitle("N");
  graph.GraphTitle(c.document().Entete().BoxTitre);
  graph.Lignes(rows.Lesquelles(without));
  graph.DrawMode();
  graph.Show();
}

}  // namespace talpena
