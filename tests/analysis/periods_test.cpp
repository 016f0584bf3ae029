#include "analysis/periods.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <random>

#include "common/talpena_error.h"
#include "fakes/document_states.h"
#include "fakes/fake_machine.h"
#include "fakes/temp_folder.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/table.h"

namespace talpena {
namespace {

using Periods = std::vector<std::optional<int>>;  ///< empty for Null

class PeriodsTest : public testing::Test {
 protected:
  PeriodsTest() {
    state.document.WorkingDb = engine_->CreateDatabase(folder_ / "work.mdb", NewDatabase{});
    CreateTable(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
    observed = test::ObserveLignes(
        state.document, [this](DataControl::Change change) { signaled.push_back(change); });
  }

  /// Fills the table and sets the layout of the open file.
  void Pose(const Periods& periods, int mode, std::int16_t pivot1 = 0, std::int16_t pivot2 = 0) {
    state.document.WorkingDb->Execute("DELETE FROM TALPENA");
    const auto rows = state.document.WorkingDb->OpenRecordset("TALPENA");
    for (const auto& period : periods) {
      rows->AddNew();
      if (period) rows->Set(Column::PERIOD, Cell::Of(std::int64_t{*period}));
      rows->Update();
    }
    state.document.Data1.Refresh();
    signaled.clear();
    test::Entete(state.document)->NbPivots = static_cast<std::int16_t>(mode);
    test::Entete(state.document)->Pivot1 = pivot1;
    test::Entete(state.document)->Pivot2 = pivot2;
    state.document.OublieModifications();
  }
  Periods Table() {
    Periods periods;
    const auto rows =
        state.document.WorkingDb->OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter");
    for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
      const Cell cell = rows->Get(Column::PERIOD);
      periods.push_back(cell.EstNull() ? std::nullopt
                                       : std::optional(static_cast<int>(cell.Nombre())));
    }
    return periods;
  }
  PeriodsOutcome Ok(PeriodsForm form) {
    form_ = std::move(form);
    return ValidePeriodes(state, machine.io, form_);
  }
  /// The only box shown since the last call.
  MessageBox Boite() {
    EXPECT_EQ(machine.dialogues.boxes.size(), 1U);
    const MessageBox box =
        machine.dialogues.boxes.empty() ? MessageBox{} : machine.dialogues.boxes.back();
    machine.dialogues.boxes.clear();
    return box;
  }
  std::array<int, 3> Layout() const {
    return {state.document.Entete().NbPivots, state.document.Entete().Pivot1,
            state.document.Entete().Pivot2};
  }

  test::TempFolder folder_;
  std::unique_ptr<TableEngine> engine_ = CreeMoteurSqlite();
  test::FakeMachine machine;
  StoreState state;
  std::vector<DataControl::Change> signaled;
  Subscription observed;
  PeriodsForm form_;
};

using Modes = std::array<int, 3>;

// ---- The form

TEST_F(PeriodsTest, TheFormShowsTheYearsOfTheMode) {
  Pose({}, 0, 1950, 1980);
  PeriodsForm form = RempliPeriodes(state);
  EXPECT_EQ(form.OptionPivot, 0);
  EXPECT_EQ(form.TxtPivot1 + form.TxtPivot21 + form.TxtPivot22, "");
  Pose({}, 1, 1950, 1980);
  form = RempliPeriodes(state);
  EXPECT_EQ(form.OptionPivot, 1);
  EXPECT_EQ(form.TxtPivot1, "1950");
  EXPECT_EQ(form.TxtPivot21 + form.TxtPivot22, "");
  Pose({}, 2, 1950, -1);
  form = RempliPeriodes(state);
  EXPECT_EQ(form.OptionPivot, 2);
  EXPECT_EQ(form.TxtPivot1, "");
  EXPECT_EQ(form.TxtPivot21, "1950");
  EXPECT_EQ(form.TxtPivot22, "-1");
}

TEST_F(PeriodsTest, AModeThatNoOptionHasShowsTheNearest) {
  test::Entete(state.document)->NbPivots = 7;
  EXPECT_EQ(RempliPeriodes(state).OptionPivot, 2);
  test::Entete(state.document)->NbPivots = -1;
  EXPECT_EQ(RempliPeriodes(state).OptionPivot, 0);
}

// ---- To one period

TEST_F(PeriodsTest, GoingToOnePeriodSetsEveryRowTo1) {
  Pose({1, 2, 3, std::nullopt, 0, 17}, 2, 1950, 1980);
  machine.dialogues.answers = {Answer::Ok};
  EXPECT_TRUE(Ok({.OptionPivot = 0}).ferme);
  EXPECT_EQ(Table(), (Periods{1, 1, 1, 1, 1, 1}));
  EXPECT_EQ(state.document.Entete().NbPivots, 0);
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(signaled, std::vector{DataControl::Change::Values});
  const MessageBox box = Boite();
  EXPECT_EQ(box.text, "Caution! All period values will be replace by 1");
  EXPECT_EQ(box.buttons, Buttons::OkCancel);
  EXPECT_EQ(box.icon, Icon::Exclamation);
  EXPECT_EQ(machine.sound.bips, 1);
}

TEST_F(PeriodsTest, ACancelledWarningChangesNothing) {
  for (const int mode : {1, 2}) {
    Pose({1, 2, 3, std::nullopt}, mode, 1950, 1980);
    machine.dialogues.answers = {Answer::Cancel};
    EXPECT_FALSE(Ok({.OptionPivot = 0}).ferme);
    EXPECT_EQ(form_.OptionPivot, mode) << "the option goes back";
    EXPECT_EQ(Table(), (Periods{1, 2, 3, std::nullopt}));
    EXPECT_EQ(Layout(), (Modes{mode, 1950, 1980}));
    EXPECT_FALSE(state.document.FichierModifie());
    EXPECT_TRUE(signaled.empty());
  }
}

TEST_F(PeriodsTest, AnEmptyTableGoesToOnePeriodWithoutAQuestion) {
  Pose({}, 2, 1950, 1980);
  EXPECT_TRUE(Ok({.OptionPivot = 0}).ferme);
  EXPECT_EQ(state.document.Entete().NbPivots, 0);
  EXPECT_TRUE(machine.dialogues.boxes.empty());
  EXPECT_EQ(machine.sound.bips, 0);
}

TEST_F(PeriodsTest, OnePeriodThatStaysOneAsksNothing) {
  Pose({1, 2}, 0);
  EXPECT_TRUE(Ok({.OptionPivot = 0}).ferme);
  EXPECT_EQ(Table(), (Periods{1, 2}));
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_TRUE(machine.dialogues.boxes.empty());
}

TEST_F(PeriodsTest, ANewFileGoesToOnePeriodWithoutAQuestion) {
  Pose({std::nullopt, std::nullopt}, 2, 1950, 1980);
  state.document.NouveauEnCours = true;
  EXPECT_TRUE(Ok({.OptionPivot = 0}).ferme);
  EXPECT_EQ(Table(), (Periods{std::nullopt, std::nullopt}));
  EXPECT_EQ(state.document.Entete().NbPivots, 0);
  EXPECT_FALSE(state.document.FichierModifie()) << "a new file is not modified";
  EXPECT_TRUE(machine.dialogues.boxes.empty());
}

TEST_F(PeriodsTest, OnlyTheRowsOfTheDataControlAreSet) {
  Pose({1, 2, 3, 2}, 2, 1950, 1980);
  test::MontreSelect(state.document, "SELECT * FROM TALPENA WHERE PERIOD = 2");
  machine.dialogues.answers = {Answer::Ok};
  EXPECT_TRUE(Ok({.OptionPivot = 0}).ferme);
  EXPECT_EQ(Table(), (Periods{1, 1, 3, 1}));
}

TEST_F(PeriodsTest, TheCurrentRowStaysWhereItIs) {
  Pose({3, 3, 3}, 2, 1950, 1980);
  state.document.Data1.recordset().MoveNext();
  const Bookmark row = state.document.Data1.recordset().GetBookmark();
  machine.dialogues.answers = {Answer::Ok};
  Ok({.OptionPivot = 0});
  EXPECT_EQ(state.document.Data1.recordset().GetBookmark(), row);
}

// ---- To two periods

TEST_F(PeriodsTest, GoingFromThreeToTwoTurnsEach3Into2) {
  Pose({1, 2, 3, std::nullopt, 3, 4, 33}, 2, 1950, 1980);
  machine.dialogues.answers = {Answer::Ok};
  EXPECT_TRUE(Ok({.OptionPivot = 1, .TxtPivot1 = "1960"}).ferme);
  EXPECT_EQ(Table(), (Periods{1, 2, 2, std::nullopt, 2, 4, 33}));
  EXPECT_EQ(Layout(), (Modes{1, 1960, 1980}));
  EXPECT_TRUE(state.document.FichierModifie());
  const MessageBox box = Boite();
  EXPECT_EQ(box.text, "Caution! All 3d period values will be replace by 2");
  EXPECT_EQ(box.buttons, Buttons::OkCancel);
  EXPECT_EQ(box.icon, Icon::Exclamation);
  EXPECT_EQ(machine.sound.bips, 1);
}

TEST_F(PeriodsTest, GoingFromThreeToTwoCanBeCancelled) {
  Pose({1, 2, 3}, 2, 1950, 1980);
  machine.dialogues.answers = {Answer::Cancel};
  EXPECT_FALSE(Ok({.OptionPivot = 1, .TxtPivot1 = "1960"}).ferme);
  EXPECT_EQ(form_.OptionPivot, 2);
  EXPECT_EQ(form_.TxtPivot1, "1960") << "what was typed stays";
  EXPECT_EQ(Table(), (Periods{1, 2, 3}));
  EXPECT_EQ(Layout(), (Modes{2, 1950, 1980}));
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(PeriodsTest, GoingFromOneToTwoChangesNoRow) {
  Pose({1, 3, std::nullopt}, 0);
  EXPECT_TRUE(Ok({.OptionPivot = 1, .TxtPivot1 = "1950"}).ferme);
  EXPECT_EQ(Table(), (Periods{1, 3, std::nullopt}));
  EXPECT_EQ(Layout(), (Modes{1, 1950, 0}));
  EXPECT_TRUE(machine.dialogues.boxes.empty());
}

TEST_F(PeriodsTest, TwoPeriodsNeedTheirYear) {
  for (const char* text : {"", "  "}) {
    Pose({1, 3}, 2, 1950, 1980);
    const PeriodsOutcome outcome = Ok({.OptionPivot = 1, .TxtPivot1 = text});
    EXPECT_FALSE(outcome.ferme);
    EXPECT_EQ(outcome.focus, PeriodsFocus::TxtPivot1);
    const MessageBox box = Boite();
    EXPECT_EQ(box.text, "Specify a switch year!");
    EXPECT_EQ(box.icon, Icon::Exclamation);
    EXPECT_EQ(box.buttons, Buttons::Ok);
    EXPECT_EQ(Table(), (Periods{1, 3}));
    EXPECT_EQ(Layout(), (Modes{2, 1950, 1980}));
    EXPECT_EQ(form_.OptionPivot, 1) << "the choice stays";
  }
  EXPECT_EQ(machine.sound.bips, 2);
}

// ---- To three periods

TEST_F(PeriodsTest, GoingFromOnePeriodToThreeChangesNoRow) {
  Pose({1, 1, std::nullopt}, 0);
  EXPECT_TRUE(Ok({.OptionPivot = 2, .TxtPivot21 = "1950", .TxtPivot22 = "1980"}).ferme);
  EXPECT_EQ(Table(), (Periods{1, 1, std::nullopt}));
  EXPECT_EQ(Layout(), (Modes{2, 1950, 1980}));
  EXPECT_TRUE(signaled.empty());
  EXPECT_TRUE(machine.dialogues.boxes.empty());
}

TEST_F(PeriodsTest, ThreePeriodsNeedBothYears) {
  Pose({1}, 0, 5, 6);
  PeriodsOutcome outcome = Ok({.OptionPivot = 2, .TxtPivot1 = "1950"});
  EXPECT_FALSE(outcome.ferme);
  EXPECT_EQ(outcome.focus, PeriodsFocus::TxtPivot21);
  EXPECT_EQ(Boite().text, "Specify a first switch year!");
  outcome = Ok({.OptionPivot = 2, .TxtPivot21 = "1950"});
  EXPECT_FALSE(outcome.ferme);
  EXPECT_EQ(outcome.focus, PeriodsFocus::TxtPivot22);
  EXPECT_EQ(Boite().text, "Specify a second year!");
  EXPECT_EQ(Layout(), (Modes{0, 5, 6}));
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_EQ(machine.sound.bips, 2);
}

TEST_F(PeriodsTest, EqualAndReversedPivotsAreAccepted) {
  for (const char* second : {"1950", "1900"}) {
    Pose({1}, 0);
    EXPECT_TRUE(Ok({.OptionPivot = 2, .TxtPivot21 = "1950", .TxtPivot22 = second}).ferme);
    EXPECT_EQ(state.document.Entete().Pivot1, 1950);
    EXPECT_EQ(std::to_string(state.document.Entete().Pivot2), second);
  }
  EXPECT_TRUE(machine.dialogues.boxes.empty());
}

// ---- Years

// clang-format off
struct YearCase { const char* typed; int year; };
constexpr YearCase yearCases[] = {
    {"1950.6", 1951}, {"1950,6", 1951}, {"1950.5", 1950}, {"1951.5", 1952}, {" 1950 ", 1950}, {"-44", -44},
    {"1950 or so", 1950}, {"soon", 0}, {"32767", 32767}, {"-32768", -32768},
};
// clang-format on

TEST_F(PeriodsTest, YearsAreRoundedToWholeOnes) {
  for (const YearCase& c : yearCases) {
    SCOPED_TRACE(c.typed);
    Pose({1}, 1);
    EXPECT_TRUE(Ok({.OptionPivot = 1, .TxtPivot1 = c.typed}).ferme);
    EXPECT_EQ(state.document.Entete().Pivot1, c.year);
    EXPECT_TRUE(Ok({.OptionPivot = 2, .TxtPivot21 = c.typed, .TxtPivot22 = c.typed}).ferme);
    EXPECT_EQ(Layout(), (Modes{2, c.year, c.year}));
  }
}

TEST_F(PeriodsTest, AYearBeyondItsRangeIsShownAndNothingChanges) {
  const std::pair<PeriodsForm, PeriodsFocus> forms[] = {
      {{.OptionPivot = 1, .TxtPivot1 = "32768"}, PeriodsFocus::TxtPivot1},
      {{.OptionPivot = 1, .TxtPivot1 = "1e999"}, PeriodsFocus::TxtPivot1},
      {{.OptionPivot = 2, .TxtPivot21 = "-40000", .TxtPivot22 = "1"}, PeriodsFocus::TxtPivot21},
      {{.OptionPivot = 2, .TxtPivot21 = "1950", .TxtPivot22 = "99999"}, PeriodsFocus::TxtPivot22},
  };
  for (const auto& [form, focus] : forms) {
    Pose({1, 3}, 2, 1950, 1980);
    const PeriodsOutcome outcome = Ok(form);
    EXPECT_FALSE(outcome.ferme);
    EXPECT_EQ(outcome.focus, focus);
    EXPECT_EQ(Boite().text, "Error 6\nA number is too large for its place; correct it.");
    EXPECT_EQ(Table(), (Periods{1, 3}));
    EXPECT_EQ(Layout(), (Modes{2, 1950, 1980}));
    EXPECT_FALSE(state.document.FichierModifie());
  }
}

// ---- The file

TEST_F(PeriodsTest, ANewLayoutModifiesTheFile) {
  Pose({1}, 1, 1950);
  EXPECT_TRUE(Ok({.OptionPivot = 1, .TxtPivot1 = "1950"}).ferme);
  EXPECT_FALSE(state.document.FichierModifie()) << "the same layout again";
  EXPECT_TRUE(Ok({.OptionPivot = 1, .TxtPivot1 = "1960"}).ferme);
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(PeriodsTest, ALayoutOfANewFileDoesNotModifyIt) {
  Pose({std::nullopt}, 0);
  state.document.NouveauEnCours = true;
  EXPECT_TRUE(Ok({.OptionPivot = 2, .TxtPivot21 = "1950", .TxtPivot22 = "1980"}).ferme);
  EXPECT_EQ(Layout(), (Modes{2, 1950, 1980}));
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(PeriodsTest, AFailingTableIsShownAndNothingChanges) {
  Pose({1, 2, 3}, 2, 1950, 1980);
  state.document.WorkingDb->BeginTrans();  // a second one is refused
  machine.dialogues.answers = {Answer::Ok};
  EXPECT_FALSE(Ok({.OptionPivot = 0}).ferme);
  state.document.WorkingDb->Rollback();
  EXPECT_EQ(machine.dialogues.boxes.size(), 2U) << "the question, then the failure";
  EXPECT_EQ(machine.dialogues.boxes.back().text.rfind("Error 3001", 0), 0U);
  EXPECT_EQ(Table(), (Periods{1, 2, 3}));
  EXPECT_EQ(Layout(), (Modes{2, 1950, 1980}));
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(PeriodsTest, SilentUsersHearNoBeep) {
  state.Silence = true;
  Pose({1, 3}, 2, 1950, 1980);
  Ok({.OptionPivot = 1});
  machine.dialogues.answers = {Answer::Cancel, Answer::Cancel};
  Ok({.OptionPivot = 1, .TxtPivot1 = "1950"});
  Ok({.OptionPivot = 0});
  EXPECT_EQ(machine.dialogues.boxes.size(), 3U);
  EXPECT_EQ(machine.sound.bips, 0);
}

TEST_F(PeriodsTest, MessagesFollowTheLanguage) {
  state.Langue = 3000;
  Pose({1}, 0);
  Ok({.OptionPivot = 1});
  EXPECT_EQ(Boite().text, "Geben Sie ein Grenzjahr an!");
}

/// What the rules say a row becomes; rows that are not named keep their value.
std::optional<int> Attendu(std::optional<int> period, int from, int to) {
  if (to == 0 && from > 0) return 1;
  if (to == 1 && from == 2 && period == 3) return 2;
  return period;
}

TEST_F(PeriodsTest, EveryChangeOfModeFollowsTheRulesOnAnyRows) {
  std::mt19937 random(20110303);
  for (int from = 0; from < 3; ++from) {
    for (int to = 0; to < 3; ++to) {
      Periods before;
      Periods expected;
      for (int i = 0; i < 200; ++i) {
        const int n = static_cast<int>(random() % 6);
        before.push_back(n == 5 ? std::nullopt : std::optional(n));
        expected.push_back(Attendu(before.back(), from, to));
      }
      Pose(before, from);
      if (to < from) machine.dialogues.answers = {Answer::Ok};
      EXPECT_TRUE(Ok({to, "1950", "1950", "1980"}).ferme);
      EXPECT_TRUE(machine.dialogues.answers.empty()) << "asked on the way down, not up";
      EXPECT_EQ(Table(), expected) << from << " to " << to;
    }
  }
}

// ---- VerifPivots

struct VerifCase {
  int mode;
  PeriodsForm form;
  int result;
  PeriodsFocus focus;
  const char* message;  ///< "" for none
};

const VerifCase verifCases[] = {
    {0, {}, 0, PeriodsFocus::None, ""},
    {1, {.TxtPivot1 = "1950"}, 0, PeriodsFocus::None, ""},
    {1, {.TxtPivot1 = " "}, 1, PeriodsFocus::TxtPivot1, "Specify a switch year!"},
    {2, {.TxtPivot22 = "1"}, 1, PeriodsFocus::TxtPivot21, "Specify a first switch year!"},
    {2, {.TxtPivot21 = "1"}, 1, PeriodsFocus::TxtPivot22, "Specify a second year!"},
    {2,
     {.TxtPivot21 = "2", .TxtPivot22 = "2"},
     1,
     PeriodsFocus::TxtPivot21,
     "First switch year must be lower than second!"},
    {2,
     {.TxtPivot21 = "10", .TxtPivot22 = "9"},
     1,
     PeriodsFocus::TxtPivot21,
     "First switch year must be lower than second!"},
    {2, {.TxtPivot21 = "9", .TxtPivot22 = "10"}, 0, PeriodsFocus::None, ""},
};

TEST_F(PeriodsTest, VerifPivotsLooksAtTheBoxesOfTheCurrentMode) {
  for (const VerifCase& c : verifCases) {
    SCOPED_TRACE(c.message);
    test::Entete(state.document)->NbPivots = static_cast<std::int16_t>(c.mode);
    machine.dialogues.boxes.clear();
    machine.sound.bips = 0;
    PeriodsFocus focus = PeriodsFocus::TxtPivot22;
    EXPECT_EQ(VerifPivots(state, machine.io, c.form, focus), c.result);
    EXPECT_EQ(focus, c.focus);
    EXPECT_EQ(machine.sound.bips, c.result);
    if (c.result == 0) {
      EXPECT_TRUE(machine.dialogues.boxes.empty());
    } else {
      const MessageBox box = Boite();
      EXPECT_EQ(box.text, c.message);
      EXPECT_EQ(box.icon, Icon::Exclamation);
    }
  }
}

}  // namespace
}  // namespace talpena
