#include "analysis/year_charts.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "analysis/analysed_rows.h"
#include "common/msg_id_analysis.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "platform/commands.h"
#include "store/table.h"

namespace talpena {
namespace {

constexpr int steps = 36;
constexpr int stepsInMonth = 3;
constexpr int daysInStep = 10;

using StepSums = std::array<double, steps>;

/// From 0; empty without month or day.
std::optional<std::size_t> PasDe(const DateParts& date) {
  if (date.month == 0 || date.day == 0) return {};
  const int inMonth = std::min((date.day - 1) / daysInStep, stepsInMonth - 1);
  return static_cast<std::size_t>((date.month - 1) * stepsInMonth + inMonth);
}

/// "1 Jan", "11 Jan", "21 Jan", ...: the first day of each step.
std::vector<std::string> NomsDesPas(std::int16_t langue) {
  std::vector<std::string> names;
  for (const std::string& month : NomsDesMois(langue)) {
    for (int step = 0; step < stepsInMonth; ++step) {
      names.push_back(Str(std::int64_t{1 + step * daysInStep}) + " " + month);
    }
  }
  return names;
}

/// A period keeps its colour whatever else is shown; the line of the records has the fourth.
constexpr int lineOfRecords = 3, others = 5;
int CouleurDe(std::optional<std::int64_t> period) {
  if (!period || *period < 1) return others;
  const std::int64_t place = *period <= lineOfRecords ? *period - 1 : *period;
  return place < others ? static_cast<int>(place) : others;
}

struct StepsOfYear {
  std::map<std::optional<std::int64_t>, StepSums> sums;  ///< of N1, by period; Null comes first
  StepSums rows{};
  std::int64_t sansDate = 0;
};

StepsOfYear CompteDecades(const AnalysedRows& rows) {
  StepsOfYear year;
  std::optional<std::int64_t> last;
  StepSums* sums = nullptr;
  rows.Parcourt([&](Bookmark, std::span<const Cell> cells) {
    const Cell& date = cells[Column::DATE];
    const auto step = date.EstNull() ? std::nullopt : PasDe(LitDate(date.text));
    if (!step) {
      ++year.sansDate;
      return;
    }
    const Cell& cell = cells[Column::PERIOD];
    const auto period = cell.EstNull() ? std::nullopt : std::optional(cell.integer);
    if (sums == nullptr || period != last) sums = &year.sums[last = period];
    (*sums)[*step] += cells[Column::N1].Nombre();  // Null as 0
    ++year.rows[*step];
  });
  return year;
}

void AjouteSerie(Chart& graph, const std::string& name, std::span<const double> values,
                 bool aDroite = false, int couleur = -1) {
  graph.Serie(name, aDroite, couleur);
  for (const double value : values) graph.GraphData(value);
}

void Acheve(CommandContext c, Chart& graph, const CountedRows& rows) {
  graph.GraphTitle(c.document().Entete().BoxTitre);
  graph.Lignes(rows);
  graph.DrawMode();
  graph.Show();
}

/// Rows and new points, year after year.
struct YearCounts {
  int first = 0;  ///< a year
  std::vector<double> rows, points;
};

struct Sighting {
  float latitude = 0, longitude = 0;
  int year = 0;
  bool operator<(const Sighting& other) const {
    return std::tie(latitude, longitude, year) <
           std::tie(other.latitude, other.longitude, other.year);
  }
};

/// What the rows give before anything is counted.
struct Sightings {
  std::map<int, double> rows;  ///< by year
  std::int64_t sansDate = 0;
  std::vector<Sighting> points;
};

Sightings LitAnnees(const AnalysedRows& rows) {
  Sightings seen;
  rows.Parcourt([&seen](Bookmark, std::span<const Cell> cells) {
    const int year = cells[Column::DATE].EstNull() ? 0 : LitDate(cells[Column::DATE].text).year;
    if (year == 0) {
      ++seen.sansDate;
      return;
    }
    ++seen.rows[year];
    const Cell& latitude = cells[Column::LATITUDE];
    const Cell& longitude = cells[Column::LONGITUDE];
    if (latitude.EstNull() || longitude.EstNull()) return;
    if (latitude.Nombre() == 0 && longitude.Nombre() == 0) return;  // as on a map: no point
    seen.points.push_back(
        {static_cast<float>(latitude.Nombre()), static_cast<float>(longitude.Nombre()), year});
  });
  return seen;
}

/// Each year between the first and the last, also those without rows; empty without any.
std::optional<YearCounts> CompteAnnees(Sightings seen) {
  if (seen.rows.empty()) return {};
  YearCounts counts;
  counts.first = seen.rows.begin()->first;
  const auto place = [&counts](int year) { return static_cast<std::size_t>(year - counts.first); };
  counts.rows.resize(place(seen.rows.rbegin()->first) + 1);
  counts.points.resize(counts.rows.size());
  for (const auto& [year, rows] : seen.rows) counts.rows[place(year)] = rows;
  std::sort(seen.points.begin(), seen.points.end());
  const Sighting* before = nullptr;  // of equal points the earliest year comes first
  for (const Sighting& point : seen.points) {
    const bool known = before != nullptr && before->latitude == point.latitude &&
                       before->longitude == point.longitude;
    if (!known) ++counts.points[place(point.year)];
    before = &point;
  }
  return counts;
}

}  // namespace

void mnuDecades_Click(CommandContext c, ChartPort& port) {
  const std::int16_t langue = c.state.Langue;
  const AnalysedRows rows(c);
  const StepsOfYear year = CompteDecades(rows);
  Chart graph(port);
  graph.DataReset();
  graph.AutoInc(true);
  graph.NumPoints(steps);
  graph.LabelEvery(1);
  graph.Libelles(NomsDesPas(langue));
  graph.Empile();
  for (const auto& [period, sums] : year.sums) {
    AjouteSerie(graph, NomDePeriode(langue, period ? Cell::Of(*period) : Cell::Null()), sums, false,
                CouleurDe(period));
  }
  if (!year.sums.empty()) {
    AjouteSerie(graph, Texte(langue, MsgId::Enregistrements), year.rows, true, lineOfRecords);
  }
  graph.LeftTitle(c.state.LabelNumeric1);
  graph.RightTitle(Texte(langue, MsgId::Enregistrements));
  Acheve(c, graph, rows.Lesquelles(year.sansDate));
}

void mnuAnnees_Click(CommandContext c, ChartPort& port) {
  const std::int16_t langue = c.state.Langue;
  const AnalysedRows rows(c);
  Sightings seen = LitAnnees(rows);
  const CountedRows counted = rows.Lesquelles(seen.sansDate);
  const auto counts = CompteAnnees(std::move(seen));
  if (!counts) {
    Bip(c.state, c.io);
    c.io.dialogues.Demande(
        {.text = Texte(langue, MsgId::GraphiqueVide), .icon = Icon::Information});
    return;
  }
  Chart graph(port);
  graph.DataReset();
  graph.AutoInc(true);
  graph.NumPoints(static_cast<int>(counts->rows.size()));
  graph.LabelEvery(1);
  graph.PremierPoint(counts->first);
  AjouteSerie(graph, Texte(langue, MsgId::Enregistrements), counts->rows);
  AjouteSerie(graph, Texte(langue, MsgId::PointsNouveaux), counts->points);
  graph.BottomTitle(Texte(langue, MsgId::Annee));
  graph.LeftTitle(Texte(langue, MsgId::Enregistrements));
  Acheve(c, graph, counted);
}

}  // namespace talpena
