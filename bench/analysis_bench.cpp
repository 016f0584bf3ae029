// Statistics and charts over a generated distribution, each beside the bare SQL that yields the
// same numbers from the same rows in the same run.
//
//   analysis_bench [rows] [folder]      default 1000000
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "analysis/charts.h"
#include "analysis/statistics.h"
#include "analysis/summary.h"
#include "analysis/year_charts.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "generated_rows.h"
#include "measure.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/table.h"

using namespace talpena;
using bench::BareTable;
using bench::Meilleur;
using bench::Millisecondes;
using bench::Rapporte;

namespace {

/// The box with the mean is read in no time.
class ReadBoxes final : public test::NoDialogues {
 public:
  Answer Demande(const MessageBox&) override { return Answer::Ok; }
};

/// A chart that nobody looks at.
class NoCharts final : public ChartPort {
 public:
  void MontreGraphique(const ChartPicture& picture) override { points = picture.numPoints; }
  int points = 0;
};

double Lit(BareTable& bare, const char* sql) {
  sqlite3_stmt* rows = bare.Prepare(sql);
  double sum = 0;
  while (sqlite3_step(rows) == SQLITE_ROW) {
    for (int i = 0; i < sqlite3_column_count(rows); ++i) {
      if (sqlite3_column_type(rows, i) == SQLITE_TEXT) {
        sum += static_cast<double>(sqlite3_column_text(rows, i)[0]);
      } else {
        sum += sqlite3_column_double(rows, i);
      }
    }
  }
  sqlite3_finalize(rows);
  return sum;
}

void CompareLectures(CommandContext c, BareTable& bare) {
  NoCharts charts;
  const auto compare = [&](const char* task, double bound, const char* sql, const auto& ours) {
    const double floor = Meilleur([&] { Lit(bare, sql); });
    Rapporte(task, Meilleur(ours), floor, bound);
  };
  compare("mnuPhenolo", 1.2, "SELECT substr(DATE, 6, 2), SUM(N1) FROM TALPENA GROUP BY 1",
          [&] { mnuPhenolo_Click(c, charts); });
  compare("mnuAnalyse, N1", 1.2,
          "SELECT N1, COUNT(*) FROM (SELECT DISTINCT N1, LATITUDE, LONGITUDE FROM TALPENA) "
          "GROUP BY N1",
          [&] { mnuAnalyse_Click(c, charts, 0); });
  const char* scan = "SELECT PERIOD, N1, N2, SEX, DATE FROM TALPENA";
  compare("Summary", 3, scan, [&] { ResumeLignes(c); });
  compare("Phenology by ten-day steps", 0, scan, [&] { mnuDecades_Click(c, charts); });
  compare("Records through the years", 0, scan, [&] { mnuAnnees_Click(c, charts); });
}

/// A column less its mean, divided by its deviation, both by SQLite's own means.
std::string Reduit(const std::string& column) {
  const auto of = [](const std::string& what) { return "(SELECT " + what + " FROM TALPENA)"; };
  const std::string deviation = "sqrt((sum(" + column + " * " + column + ") - sum(" + column +
                                ") * 1.0 * sum(" + column + ") / count(" + column + ")) / (count(" +
                                column + ") - 1))";
  return column + " = ifnull(round((" + column + " - " + of("avg(" + column + ")") + ") / nullif(" +
         of(deviation) + ", 0)), " + column + ")";
}

void CompareEcritures(CommandContext c, BareTable& bare) {
  const auto compare = [&](const char* task, const char* sql, int index) {
    const double floor = Millisecondes([&] {
      bare.Execute("BEGIN");
      bare.Execute(sql);
      bare.Execute("COMMIT");
    });
    Rapporte(task, Millisecondes([&] { mnustd_Click(c, index); }), floor, 1.2);
  };
  const std::string reduced = "UPDATE TALPENA SET " + Reduit("N1") + ", " + Reduit("N2");
  compare("mnustd, Valeurs normales réduites", reduced.c_str(), ValeursNormalesReduites);
  c.document().Base().Execute("UPDATE TALPENA SET N1 = 10 + Counter Mod 990, N2 = 10");
  bare.Execute("UPDATE TALPENA SET N1 = 10 + Counter % 990, N2 = 10");
  compare("mnustd, Logarithme",
          "UPDATE TALPENA SET N1 = round(1 + log10(N1)), N2 = round(1 + log10(N2))", Logarithme);
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t rows = argc > 1 ? std::atoll(argv[1]) : 1000000;
  namespace fs = std::filesystem;
  const fs::path folder = argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path();
  const fs::path ours = folder / "analysis_bench_ours.mdb", bareFile = folder / "analysis_bench.db";
  fs::remove(ours), fs::remove(bareFile);
  test::SilentPlatform machine;
  ReadBoxes boxes;
  Platform io{*machine.engine, *machine.files,      machine.settings, boxes,
              machine.clock,   machine.environment, machine.sound};
  StoreState state;
  test::SilentView view;
  const CommandContext c = view.Contexte(state, io);
  state.document.WorkingDb = machine.engine->CreateDatabase(ours.string(), NewDatabase{});
  CreateTable(*state.document.WorkingDb);
  bench::Generator source(rows);
  state.document.WorkingDb->InsertRows("TALPENA", bench::generatedColumns, source);
  state.document.Data1.Lie(*state.document.WorkingDb);
  state.document.RelieSqlCourant();
  state.Langue = 1000;
  {
    BareTable bare(bareFile.string());
    bench::InsereNu(bare, rows);
    std::printf("%lld rows\n", static_cast<long long>(rows));
    CompareLectures(c, bare);
    CompareEcritures(c, bare);
  }
  fs::remove(ours), fs::remove(bareFile);
}
