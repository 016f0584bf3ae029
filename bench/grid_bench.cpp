// The commands of the grid against the bare SQL that does the same, in the same run; and choosing
// rows in the grid against a bare table view over the same model.
//
//   grid_bench [rows] [folder]
#include <QApplication>
#include <QTableView>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <numeric>
#include <string>

#include "analysis/periods.h"
#include "bare_table.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "generated_rows.h"
#include "measure.h"
#include "store/edition.h"
#include "store/erase_column.h"
#include "store/find.h"
#include "store/row_commands.h"
#include "store/table.h"
#include "store/windows/tdb_grid.h"

using namespace talpena;
using bench::Meilleur;
using bench::Millisecondes;
using bench::Rapporte;

namespace {

constexpr std::int64_t chosenRows = 100000;
constexpr int addedLines = 1000;

/// A user who types one text and says yes.
class Agreeing final : public test::NoDialogues {
 public:
  std::string typed;
  Answer Demande(const MessageBox& box) override {
    if (box.buttons == Buttons::Ok && !box.text.ends_with("introuvable!")) {
      return NoDialogues::Demande(box);
    }
    return box.buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
  }
  std::string Saisie(const InputBox&) override { return typed; }
};

class View final : public test::SilentView {
 public:
  std::vector<Bookmark> chosen;
  ColumnRange columns;
  std::vector<Bookmark> LignesSelectionnees() override { return chosen; }
  std::optional<ColumnRange> ColonnesSelectionnees() override { return columns; }
};

/// A distribution of generated rows, bound as a file is.
struct Opened {
  Opened(const std::string& path, std::int64_t rows) {
    state.Silence = true;
    state.document.WorkingDb = machine.engine->CreateDatabase(path, {});
    CreateTable(*state.document.WorkingDb);
    bench::Generator generator(rows);
    state.document.WorkingDb->InsertRows("TALPENA", bench::generatedColumns, generator);
    state.document.Data1.Lie(*state.document.WorkingDb);
    Ordonne(state.document.SqlCourant());
  }
  void Ordonne(const std::string& sql) {
    state.document.Data1.RecordSource = sql;
    state.document.Data1.Refresh();
  }
  ~Opened() { state.document.Data1 = DataControl(); }

  test::SilentPlatform machine;
  Agreeing user;
  Platform io{*machine.engine, *machine.files,      machine.settings, user,
              machine.clock,   machine.environment, machine.sound};
  View vue;
  StoreState state;
  CommandContext context{state, io, vue, vue, vue};
};

void Parcourt(bench::BareTable& bare, const std::string& sql) {
  sqlite3_stmt* statement = bare.Prepare(sql.c_str());
  while (sqlite3_step(statement) == SQLITE_ROW) {
  }
  sqlite3_finalize(statement);
}

void CompareRecherche(Opened& ours, bench::BareTable& bare) {
  const auto scan = [&](const std::string& x) {
    std::string sql = "SELECT Counter FROM TALPENA WHERE ";
    for (const char* column : {"SEX", "DATUM", "ORIGINAL", "DATE", "COMMENT"}) {
      sql += (column[0] == 'S' ? "" : " OR ") + std::string(column) + " LIKE '%" + x + "%'";
    }
    Parcourt(bare, sql);
  };
  for (const char* x : {"zzy", "Bruxelles", "é"}) {
    const double floor = Meilleur([&] { scan(x); });
    for (const char* order : {"Counter", "LATITUDE"}) {
      ours.Ordonne(std::string("SELECT * FROM TALPENA ORDER BY ") + order);
      int run = 0;  // the rows that the last search found in a sorted grid are remembered
      const double time = Meilleur([&] {
        ours.user.typed = x + std::string(static_cast<std::size_t>(run++), 'x');
        mnuChercher_Click(ours.context, 0);
      });
      const std::string task = std::string("find ") + x + (order[0] == 'C' ? "" : ", sorted");
      Rapporte(task.c_str(), time, floor, 1.2);
    }
  }
  ours.Ordonne(ours.state.document.SqlCourant());
}

void CompareAjout(Opened& ours, bench::BareTable& bare) {
  ours.user.typed = std::to_string(addedLines);
  // One command is over in no time at all: twenty of them, in turn.
  double time = 0, floor = 0;
  for (int i = 0; i < 20; ++i) {
    floor += Millisecondes([&] {
      bare.Execute("BEGIN");
      sqlite3_stmt* insert = bare.Prepare("INSERT INTO TALPENA DEFAULT VALUES");
      for (int line = 0; line < addedLines; ++line) {
        sqlite3_step(insert);
        sqlite3_reset(insert);
      }
      sqlite3_finalize(insert);
      bare.Execute("COMMIT");
    });
    time += Millisecondes([&] { MnuAjoutLigne_Click(ours.context); });
  }
  Rapporte("20 times: add 1,000 lines", time, floor, 1.3);
}

double EffaceEnBoucle(bench::BareTable& bare, const std::vector<Bookmark>& rows) {
  return Millisecondes([&] {
    bare.Execute("BEGIN");
    sqlite3_stmt* one = bare.Prepare("DELETE FROM TALPENA WHERE Counter = ?");
    for (const Bookmark row : rows) {
      sqlite3_bind_int64(one, 1, row);
      sqlite3_step(one);
      sqlite3_reset(one);
    }
    sqlite3_finalize(one);
    bare.Execute("COMMIT");
  });
}

double EffaceParListe(bench::BareTable& bare, const std::vector<Bookmark>& rows) {
  bare.Execute("CREATE TEMP TABLE chosen (id INTEGER PRIMARY KEY)");
  for (const Bookmark row : rows) {
    bare.Execute(("INSERT INTO chosen VALUES (" + std::to_string(row) + ")").c_str());
  }
  const double time = Millisecondes(
      [&] { bare.Execute("DELETE FROM TALPENA WHERE Counter IN (SELECT id FROM chosen)"); });
  bare.Execute("DROP TABLE chosen");
  return time;
}

/// Deletes the same rows on both sides.
void CompareSuppression(Opened& ours, bench::BareTable& bare, const char* task, std::int64_t first,
                        std::int64_t step) {
  double time = 1e9, floor = 1e9;
  for (int run = 0; run < 2; ++run) {
    std::vector<Bookmark> rows;
    const std::int64_t start = step == 1 ? first + run * chosenRows : first + run;
    for (std::int64_t i = 0; i < chosenRows; ++i) rows.push_back(start + i * step);
    floor = std::min(floor, run == 0 ? EffaceEnBoucle(bare, rows) : EffaceParListe(bare, rows));
    ours.vue.chosen = rows;
    time = std::min(time, Millisecondes([&] { MnuSupprimer_Click(ours.context); }));
  }
  Rapporte(task, time, floor, 1.3);
}

void CompareEffacement(Opened& ours, bench::BareTable& bare) {
  struct Column {
    const char* task;
    ColumnRange columns;
    const char* set;
  };
  for (const Column& c :
       {Column{"erase PERIOD", {0, 0}, "PERIOD = 0"}, Column{"erase N1", {3, 3}, "N1 = 0"},
        Column{"erase DATE", {7, 7}, "DATE = ''"},
        Column{"erase five columns",
               {0, 4},
               "PERIOD = 0, LATITUDE = 0, LONGITUDE = 0, N1 = 0, N2 = 0"},
        Column{"erase COMMENT", {8, 8}, "COMMENT = ''"}}) {
    const std::string sql = std::string("UPDATE TALPENA SET ") + c.set;
    double time = 1e9, floor = 1e9;
    ours.vue.columns = c.columns;
    for (int run = 0; run < 3; ++run) {
      floor = std::min(floor, Millisecondes([&] { bare.Execute(sql.c_str()); }));
      time = std::min(time, Millisecondes([&] { MnuEraseCol_Click(ours.context); }));
    }
    Rapporte(c.task, time, floor, 1.3);
  }
  ours.Ordonne("SELECT * FROM TALPENA ORDER BY LONGITUDE");
  const double floor = Millisecondes([&] { bare.Execute("UPDATE TALPENA SET N2 = 0"); });
  ours.vue.columns = {4, 4};
  Rapporte("erase N2, sorted", Millisecondes([&] { MnuEraseCol_Click(ours.context); }), floor, 0);
  ours.Ordonne(ours.state.document.SqlCourant());
}

/// A change of the number of periods, in a table whose rows have three in turn.
void ComparePeriodes(Opened& ours, bench::BareTable& bare) {
  struct Change {
    const char* task;
    int before;
    int after;
    const char* sql;
  };
  for (const Change& c :
       {Change{"three periods to one", 2, 0, "UPDATE TALPENA SET PERIOD = 1"},
        Change{"three periods to two", 2, 1, "UPDATE TALPENA SET PERIOD = 2 WHERE PERIOD = 3"},
        Change{"two periods to one", 1, 0, "UPDATE TALPENA SET PERIOD = 1"}}) {
    const std::string spread =
        "UPDATE TALPENA SET PERIOD = 1 + Counter % " + std::to_string(c.before + 1);
    double time = 1e9, floor = 1e9;
    for (int run = 0; run < 3; ++run) {
      bare.Execute(spread.c_str());
      floor = std::min(floor, Millisecondes([&] { bare.Execute(c.sql); }));
      ours.state.document.WorkingDb->Execute("UPDATE TALPENA SET PERIOD = 1 + Counter Mod " +
                                             std::to_string(c.before + 1));
      {
        Edition edition(ours.state.document, "Periods");
        edition.Entete().NbPivots = static_cast<std::int16_t>(c.before);
      }
      PeriodsForm form{.OptionPivot = c.after, .TxtPivot1 = "1950"};
      time = std::min(time, Millisecondes([&] { ValidePeriodes(ours.state, ours.io, form); }));
    }
    Rapporte(c.task, time, floor, 1.2);
  }
}

void RapporteEcart(const char* task, double ours, double floor, double bound) {
  std::printf("%-34s %8.1f ms  floor %8.1f ms  more  %5.1f ms  (at most %.0f)%s\n", task, ours,
              floor, ours - floor, bound, ours - floor <= bound ? "" : "  TOO SLOW");
}

void CompareChoix(Opened& ours) {
  TDBGrid grid(ours.state, ours.io);
  grid.InitTDBgrid();
  grid.resize(1200, 600);
  grid.show();
  ours.state.document.Data1.Refresh();
  QTableView bare;
  bare.setModel(grid.model());
  bare.resize(1200, 600);
  bare.show();
  QApplication::processEvents();
  const int last = static_cast<int>(chosenRows) - 1;
  const auto floor = [&](int from, int to) {
    return Millisecondes([&] {
      bare.selectionModel()->select(
          QItemSelection(bare.model()->index(from, 0), bare.model()->index(to, 9)),
          QItemSelectionModel::ClearAndSelect);
      bare.selectionModel()->setCurrentIndex(bare.model()->index(to, 0),
                                             QItemSelectionModel::NoUpdate);
      QApplication::processEvents();
    });
  };
  grid.ChoisitLigne(0, {});
  QApplication::processEvents();
  const double shift = Millisecondes([&] {
    grid.ChoisitLigne(last, Qt::ShiftModifier);
    QApplication::processEvents();
  });
  RapporteEcart("choose 100,000 rows with Shift", shift, floor(0, last), 100);
  std::vector<Bookmark> chosen;
  std::printf("%-34s %8.1f ms\n", "list them",
              Millisecondes([&] { chosen = grid.LignesChoisies(); }));
  if (static_cast<std::int64_t>(chosen.size()) != chosenRows) std::printf("rows are missing\n");
  // One step of the drag after another, as the mouse makes them.
  grid.ChoisitLigne(0, {});
  std::printf("%-34s %8.1f ms\n", "choose 2,000 rows by dragging", Millisecondes([&] {
                for (int row = 1; row < 2000; ++row) grid.ChoisitLigne(row, Qt::ShiftModifier);
              }));
  const double choose = Millisecondes([&] {
    grid.ChoisitColonne(4, {});
    QApplication::processEvents();
  });
  RapporteEcart("choose a column", choose, floor(0, grid.model()->rowCount() - 1), 100);
  std::printf("%-34s %8.2f ms a row\n", "go from row to row",
              Millisecondes([&] {
                for (int row = 0; row < 1000; ++row) {
                  grid.setCurrentIndex(grid.model()->index(row, 3));
                  QApplication::processEvents();
                }
              }) / 1000);
  std::printf("%-34s %8.1f ms\n", "show that a row was added", Millisecondes([&] {
                ours.user.typed = "1";
                MnuAjoutLigne_Click(ours.context);
                QApplication::processEvents();
              }));
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const std::int64_t rows =
      std::max<std::int64_t>(argc > 1 ? std::atoll(argv[1]) : 1000000, 10 * chosenRows);
  namespace fs = std::filesystem;
  const fs::path folder = argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path();
  const std::string bareFile = (folder / "grid_bench_bare.db").string();
  const std::string ourFile = (folder / "grid_bench_ours.mdb").string();
  const auto clean = [&] {
    for (const std::string& file : {bareFile, ourFile}) {
      fs::remove(file);
      fs::remove(file + "-journal");
    }
  };
  clean();
  {
    bench::BareTable bare(bareFile);
    bench::InsereNu(bare, rows);
    Opened ours(ourFile, rows);
    CompareRecherche(ours, bare);
    ComparePeriodes(ours, bare);
    CompareChoix(ours);
    CompareAjout(ours, bare);
    CompareSuppression(ours, bare, "delete 100,000 neighbours", 1, 1);
    CompareSuppression(ours, bare, "delete 100,000 scattered rows", 2 * chosenRows + 1, 5);
    CompareEffacement(ours, bare);
    std::printf("peak memory %ld MB\n", bench::MemoireMaximale());
  }
  clean();
}
