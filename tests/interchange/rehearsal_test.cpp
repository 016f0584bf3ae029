#include "interchange/rehearsal.h"

#include <gtest/gtest.h>

#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "coords/datum.h"
#include "interchange/listed_records.h"
#include "interchange/rehearsal_words.h"
#include "store/coords_world.h"

namespace talpena::test {
namespace {

using Fate = RehearsedRow::Fate;

class RehearsalTest : public ::testing::Test, protected CoordsWorld {
 protected:
  Rehearsal& Repete(RehearsalPlan plan) {
    rehearsal_ = std::make_unique<Rehearsal>(state, state.document.Entete().DatumFichier,
                                             state.document.Base(), std::move(plan));
    while (rehearsal_->Travaille([] { return false; })) ++pas;
    return *rehearsal_;
  }
  std::vector<Fate> Sorts() const {
    std::vector<Fate> fates;
    for (std::int64_t i = 0; i < rehearsal_->Lignes().Nombre(); ++i) {
      fates.push_back(rehearsal_->Lignes().Ligne(i).fate);
    }
    return fates;
  }

  std::unique_ptr<Rehearsal> rehearsal_;
  int pas = 0;
};

TEST_F(RehearsalTest, CountsWhatWouldBecomeOfEachRecord) {
  const Rehearsal& r = Repete(
      PlanDe({Fiche("deg +50.00000 +004.00000"), FicheOmise(500), Fiche("deg +95.00000 +004.00000"),
              Fiche("deg +50.50000 +004.50000"), Fiche("deg -33.00000 +151.00000")}));
  EXPECT_TRUE(r.EstLue());
  EXPECT_EQ(r.Comptes(), (RehearsalCounts{4, 1, 1, 1}));
  EXPECT_EQ(Sorts(),
            (std::vector{Fate::Entre, Fate::Omise, Fate::SansPoint, Fate::Entre, Fate::Loin}));
  EXPECT_FALSE(r.Arret());
}

// The same points as AjusteDegres(999, 999) stores in rows that hold the same ORIGINAL and DATUM.
TEST_F(RehearsalTest, ShowsThePointsThatTheImportWillCompute) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"deg +50.12345 +004.98765", "EUR-M"},
      {"dms +50.30300 +004.15000", "EUR-M"},
      {"utm 31 616000 5564000", "EUR-M"},
      {"mgr 31 U FS1234567890", "EUR-M"},
      {"grp +54.00000 +003.00000", "NTF  "},
      {"bng SK 1234", "OGB-M"},
      {"itm ND 1234", "IRL  "},
      {"lmb 150000 170000", "BEL72"},
      {"ifb G3", "BEL72"},
      {"lfe 600000 2400000", "BEL72"},
      {"deg +95.00000 +004.00000", "EUR-M"}};
  Records records;
  std::vector<Row> stored;
  for (const auto& [original, datum] : rows) {
    records.push_back(Fiche(original, datum));
    stored.push_back({datum, original});
  }
  const Rehearsal& r = Repete(PlanDe(records));
  std::vector<std::string> shown;
  for (std::int64_t i = 0; i < r.Lignes().Nombre(); ++i) {
    const ReadPoint point = r.Lignes().Ligne(i).point;
    shown.push_back(point.outcome == ReadPoint::Outcome::Point
                        ? Str(static_cast<float>(point.latitude)) + " " +
                              Str(static_cast<float>(point.longitude))
                        : "1 2");
  }
  Montre(stored);
  AjusteDegres(context, 999, 999);
  EXPECT_EQ(dialogues.boxes.size(), 1U) << "the row that has no place";
  EXPECT_EQ(shown, Points());
}

TEST_F(RehearsalTest, ChangesNothing) {
  Montre({{"WGS84", "deg +50.00000 +004.00000", "50", "4"}});
  ChoisitEllipsoide(state.Catalogue, state.Catalogue.DatumWgs84);
  const double axis = state.Catalogue.DemiGrandAxe;
  const auto rows = Points();
  Repete(PlanDe({Fiche("lfe 600000 2400000", "BEL72")}));
  EXPECT_EQ(state.Catalogue.DemiGrandAxe, axis) << "the current ellipsoid";
  EXPECT_EQ(Points(), rows);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(RehearsalTest, ComparesWithTheRowsOfTheTable) {
  Montre({{"WGS84", "deg -33.00000 +151.00000", "-33", "151"}});
  const Rehearsal& r =
      Repete(PlanDe({Fiche("deg +50.00000 +004.00000"), Fiche("deg -34.00000 +150.00000")}));
  EXPECT_EQ(r.Comptes().far, 1);
  EXPECT_EQ(Sorts(), (std::vector{Fate::Loin, Fate::Entre}));
}

TEST_F(RehearsalTest, ComparesWithRowsThatAFilterHides) {
  Montre({{"WGS84", "", "-33", "151"}, {"WGS84", "", "10", "20"}});
  state.document.MontreLignes(RowsShown::Filtrees("LATITUDE > 0"));
  EXPECT_EQ(Repete(PlanDe({Fiche("deg -34.00000 +150.00000")})).Comptes().far, 0);
}

TEST_F(RehearsalTest, TellsWhereTheImportWouldEnd) {
  const TalpenaError failure = TalpenaError(ErrorNumber::Overflow, "Overflow").SurLigne(3);
  const Rehearsal& r =
      Repete(PlanDe({Fiche("deg +50.00000 +004.00000"), FicheOmise(500)}, failure));
  ASSERT_TRUE(r.Arret());
  EXPECT_EQ(r.Arret()->words().line, 3);
  EXPECT_EQ(r.Comptes(), (RehearsalCounts{1, 1, 0, 0}));
}

// The table would refuse them, which ends the import as a field without a number does.
TEST_F(RehearsalTest, EndsAtTextsThatTheirColumnsHaveNoRoomFor) {
  ImportRecord late = Fiche("deg +50.00000 +004.00000");
  late.row.date = "14 July 1998";
  for (const ImportRecord& record : {Fiche("deg +50.00000 +41234.00000"), late}) {
    const Rehearsal& r = Repete(PlanDe({Fiche("deg +50.00000 +004.00000"), record}));
    EXPECT_EQ(r.Comptes().enter, 1);
    ASSERT_TRUE(r.Arret());
    EXPECT_EQ(r.Arret()->number(), ErrorNumber::FieldTooSmall);
    EXPECT_EQ(r.Arret()->words().line, 2);
  }
  EXPECT_FALSE(Repete(PlanDe({FicheOmise(500)})).Arret());
}

// The table takes such numbers, and a save would bend their lines.
TEST_F(RehearsalTest, MarksNumbersThatALineOfTheFileHasNoRoomFor) {
  Records records(6, Fiche("deg +50.00000 +004.00000"));
  records[0].row.period = 9;
  records[0].row.n1 = 99999;
  records[1].row.n1 = 100000;
  records[2].row.n2 = -1;
  records[3].row.period = 10;
  records[4].row.period = -1;
  records[5].row.comment = "not closed\n1,50,4,1,0,,next";
  const Rehearsal& r = Repete(PlanDe(records));
  EXPECT_EQ(r.Comptes(), (RehearsalCounts{6, 0, 0, 0, 5}));
  std::vector<int> doubts;
  for (std::int64_t i = 0; i < 6; ++i) doubts.push_back(r.Lignes().Ligne(i).doubt);
  EXPECT_EQ(doubts, (std::vector{0, 475, 475, 475, 475, 476}));
  EXPECT_EQ(r.Lignes().ProchainProbleme(0), 1);
  EXPECT_TRUE(CellulesRepetition(1000, r.Lignes().Ligne(1))[1].starts_with("no room for its"));
  EXPECT_TRUE(ComptesEnMots(1000, r).ends_with("Rows that want a look: 5."));
}

// They come in, and a colleague's editor would show them as nothing.
TEST_F(RehearsalTest, MarksNulCharacters) {
  const std::string nul("a\0b", 3);
  Records records(4, Fiche("deg +50.00000 +004.00000"));
  records[1].row.comment = nul;
  records[2].row.date = nul;
  records[3].row.original = std::string("deg 50 4\0", 9);
  const Rehearsal& r = Repete(PlanDe(records));
  EXPECT_EQ(r.Comptes().doubtful, 3);
  EXPECT_EQ(r.Lignes().Ligne(0).doubt, 0);
  EXPECT_EQ(r.Lignes().Ligne(1).doubt, MsgId::SortNul);
  EXPECT_EQ(r.Lignes().Ligne(2).doubt, MsgId::SortNul);
}

// A save would write "?" for them.
TEST_F(RehearsalTest, MarksCharactersThatTheFileCannotHold) {
  Records records(4, Fiche("deg +50.00000 +004.00000"));
  records[0].row.comment = "Sauvé – 2 €";
  records[1].row.comment = "Rīga, parks";
  records[2].row.date = "Ω";
  records[3].row.comment = std::string(300, 'x') + "日";
  const Rehearsal& r = Repete(PlanDe(records));
  EXPECT_EQ(r.Comptes().doubtful, 3);
  const auto words = [&r](std::int64_t row) {
    return CellulesRepetition(1000, r.Lignes().Ligne(row))[RehearsalColumn::Fate];
  };
  EXPECT_EQ(words(0), "enters");
  EXPECT_EQ(words(1),
            "characters that a .deg file cannot hold: “ī”; they would be saved as question marks");
  EXPECT_NE(words(2).find("“Ω”"), std::string::npos);
  EXPECT_NE(words(3).find("“…”"), std::string::npos) << "where the list shows it no more";
}

TEST_F(RehearsalTest, MarksWhatTheReaderFindsOdd) {
  ImportRecord record = Fiche("itm O1 53346", "IRL  ");
  record.doubt = MsgId::IrlandaisUneLettre;
  const Rehearsal& r = Repete(PlanDe({record}));
  EXPECT_EQ(r.Comptes().doubtful, 1);
  EXPECT_EQ(r.Lignes().Ligne(0).doubt, MsgId::IrlandaisUneLettre);
}

TEST_F(RehearsalTest, ShowsTheNumbersOfIndividuals) {
  ImportRecord record = Fiche("deg +50.00000 +004.00000");
  record.row.n1 = 100000;
  const Rehearsal& r = Repete(PlanDe({record}));
  EXPECT_EQ(r.Lignes().Ligne(0).n1, 100000);
  EXPECT_FALSE(r.Lignes().Ligne(0).n2);
}

TEST_F(RehearsalTest, SaysFirstWhyARowHasNoPoint) {
  ImportRecord record = Fiche("deg +95.00000 +004.00000");
  record.row.n1 = -1;
  const Rehearsal& r = Repete(PlanDe({record}));
  EXPECT_EQ(r.Comptes(), (RehearsalCounts{1, 0, 1, 0, 1}));
  EXPECT_TRUE(
      CellulesRepetition(1000, r.Lignes().Ligne(0))[1].starts_with("enters without a point: "));
}

TEST_F(RehearsalTest, TellsThatAFileCannotBeOpened) {
  const Rehearsal& r = Repete({.ouvre = []() -> std::unique_ptr<ImportReader> {
    throw TalpenaError(ErrorNumber::FileNotFound, "File not found");
  }});
  ASSERT_TRUE(r.Arret());
  EXPECT_EQ(r.Arret()->number(), ErrorNumber::FileNotFound);
  EXPECT_TRUE(r.EstLue());
}

TEST_F(RehearsalTest, PreparesBeforeItOpens) {
  int prepared = 0;
  RehearsalPlan plan = PlanDe({Fiche("deg +50.00000 +004.00000")});
  plan.prepare = [&prepared] { return ++prepared < 5; };
  EXPECT_EQ(Repete(std::move(plan)).Comptes().enter, 1);
  EXPECT_EQ(prepared, 5);
}

TEST_F(RehearsalTest, AFileWithoutARowIsRead) {
  const Rehearsal& r = Repete(PlanDe({}));
  EXPECT_TRUE(r.EstLue());
  EXPECT_EQ(r.Comptes(), RehearsalCounts());
}

TEST_F(RehearsalTest, WithoutTheDatumOfTheFileNoRowHasAPoint) {
  Entete(state.document)->DatumFichier = 0;
  const Rehearsal& r = Repete(PlanDe({Fiche("deg +50.00000 +004.00000")}));
  EXPECT_EQ(r.Comptes(), (RehearsalCounts{1, 0, 1, 0}));
}

TEST_F(RehearsalTest, RowsOfADatumThatTheCatalogueLacksHaveNoPoint) {
  const Rehearsal& r = Repete(PlanDe({Fiche("deg +50.00000 +004.00000", "QQQ  ")}));
  EXPECT_EQ(r.Comptes().withoutPoint, 1);
  EXPECT_EQ(CellulesRepetition(1000, r.Lignes().Ligne(0))[RehearsalColumn::Fate],
            "enters without a point: the catalogue lacks the datum QQQ");
}

TEST_F(RehearsalTest, WorksInSteps) {
  Records records(600, Fiche("deg +50.00000 +004.00000"));
  Repete(PlanDe(records));
  EXPECT_GE(pas, 600) << "a step is a row";
}

TEST_F(RehearsalTest, ShowsTheFirstRowsBeforeItLooksThroughTheTable) {
  Montre(std::vector<Row>(3, Row{"WGS84", "", "10", "20"}));
  Rehearsal r(state, state.document.Entete().DatumFichier, state.document.Base(),
              PlanDe(Records(600, Fiche("deg +50.00000 +004.00000"))));
  for (int i = 0; i < 2; ++i) r.Travaille([] { return false; });
  EXPECT_EQ(r.Lignes().Nombre(), 1);
}

}  // namespace
}  // namespace talpena::test
