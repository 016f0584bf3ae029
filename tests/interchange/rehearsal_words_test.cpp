#include "interchange/rehearsal_words.h"

#include <gtest/gtest.h>

#include <array>

#include "common/msg_id_import.h"
#include "common/string_table.h"

namespace talpena {
namespace {

using Fate = RehearsedRow::Fate;

RehearsedRow Row(Fate fate, ReadPoint point = {}) {
  RehearsedRow row;
  row.fate = fate;
  row.line = 1234;
  row.period = -2;
  row.n1 = 12;
  row.original = "bng SK 1234";
  row.date = "1998/07/14";
  row.comment = "two\nlines\tand a tab";
  row.datum = "OGB-M";
  row.point = point;
  return row;
}

TEST(RehearsalWords, ARowThatEntersShowsAllOfItsColumns) {
  const RehearsalCells cells =
      CellulesRepetition(1000, Row(Fate::Entre, {ReadPoint::Outcome::Point, 52.5, -1.00001, {}}));
  EXPECT_EQ(cells, (RehearsalCells{"1234", "enters", "-2", "bng SK 1234", "52.50000", "-1.00001",
                                   "12", "", "1998/07/14", "two\nlines\tand a tab"}));
  EXPECT_EQ(
      EnLigne(cells),
      "1234\tenters\t-2\tbng SK 1234\t52.50000\t-1.00001\t12\t\t1998/07/14\ttwo lines and a tab");
}

TEST(RehearsalWords, ARowWithoutAPointTellsWhy) {
  using enum ReadPoint::Outcome;
  const std::pair<ReadPoint, const char*> cases[] = {
      {{SansOriginal, 0, 0, {}}, "it has no original coordinates"},
      {{DatumInconnu, 0, 0, {}}, "the catalogue lacks the datum OGB-M"},
      {{Illisible, 0, 0, {}}, "its coordinates name no place"},
      {{Faute, 0, 0, {FauteDeLigne::Cause::Carre, 0}}, "no square has these letters and digits"}};
  for (const auto& [point, why] : cases) {
    const RehearsalCells cells = CellulesRepetition(1000, Row(Fate::SansPoint, point));
    EXPECT_EQ(cells[RehearsalColumn::Fate], std::string("enters without a point: ") + why);
    EXPECT_EQ(cells[RehearsalColumn::Latitude], "");
  }
}

TEST(RehearsalWords, ALineThatIsLeftOutTellsWhyAndNothingElse) {
  RehearsedRow row = Row(Fate::Omise);
  row.dropped = MsgId::GrilleTropCourte;
  const RehearsalCells cells = CellulesRepetition(1000, row);
  EXPECT_EQ(cells[RehearsalColumn::Fate], "left out: " + Texte(1000, MsgId::GrilleTropCourte));
  EXPECT_EQ(cells[RehearsalColumn::Period], "");
}

TEST(RehearsalWords, WhereTheImportEndsStandsInTheList) {
  const auto failure = TalpenaError(ErrorNumber::Overflow, "Overflow").SurLigne(17);
  const RehearsalCells cells = CellulesArret(1000, failure);
  EXPECT_EQ(cells[RehearsalColumn::Line], "17");
  EXPECT_TRUE(cells[RehearsalColumn::Fate].starts_with("the import ends here: Line 17"))
      << cells[RehearsalColumn::Fate];
}

TEST(RehearsalWords, HaveNoPlaceLeftUnfilledInAnyLanguage) {
  const auto failure = TalpenaError(ErrorNumber::Overflow, "Overflow").SurLigne(17);
  for (const std::int16_t langue : std::array<std::int16_t, 5>{0, 1000, 3000, 4000, 5000}) {
    for (const std::string& text :
         {ConseilEnMots(langue, {CoordSystem::Lfe, 3, 4, false}),
          ConseilEnMots(langue, {CoordSystem::Lfe, 3, 4, true}), ArretEnMots(langue, failure, 0),
          ArretEnMots(langue, failure, 7)}) {
      EXPECT_EQ(text.find('%'), std::string::npos) << text;
    }
    SettingsState state;
    state.Langue = langue;
    state.LabelNumeric1 = "Males";
    state.LabelNumeric2 = "Females";
    for (const std::string& title : TitresRepetition(state)) EXPECT_FALSE(title.empty());
    EXPECT_EQ(TitresRepetition(state)[RehearsalColumn::Number1], "Males");
  }
}

}  // namespace
}  // namespace talpena
