// What the dialog of the text import says beforehand of a list.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "common/msg_id_import.h"
#include "interchange/import_choice_world.h"
#include "interchange/rehearsal_words.h"

namespace talpena::test {
namespace {

using ImportRehearsal = ImportChoiceTest;

TEST_F(ImportRehearsal, RehearsesTheFileThatItNames) {
  const auto r = Repete(ChoixDe("*a comment\n1,50.5,4.5,1,1,1998/07/14,Spa\n2,95,4,0,0,,\n"));
  EXPECT_EQ(r->Comptes(), (RehearsalCounts{2, 0, 1, 0}));
  const RehearsalCells first = CellulesRepetition(english, r->Lignes().Ligne(0));
  EXPECT_EQ(first[RehearsalColumn::Line], "2");
  EXPECT_EQ(first[RehearsalColumn::Original], "deg +50.50000 +004.50000");
  EXPECT_EQ(first[RehearsalColumn::Comment], "Spa");
  EXPECT_EQ(CellulesRepetition(english, r->Lignes().Ligne(1))[RehearsalColumn::Fate],
            "enters without a point: the latitude 95° lies beyond 90°");
}

// Lambert II etendu read as Lambert II: the rows lie 2000 km off, and the hint names the system.
TEST_F(ImportRehearsal, HintsAtTheSystemThatSuitsTheTable) {
  Montre({{"WGS84", "", "47", "2.3"}, {"WGS84", "", "46.5", "3"}});
  std::string bytes;
  for (int i = 0; i < 20; ++i)
    bytes += "1," + std::to_string(600000 + i * 1000) + ",2200000,1,1,,\n";
  bytes += "1,600000,1200000,1,1,,\n";
  const auto r = Repete(ChoixDe(bytes, CoordSystem::Lf2));
  ASSERT_TRUE(r->Conseil());
  EXPECT_EQ(r->Conseil()->system, CoordSystem::Lfe);
  EXPECT_EQ(ConseilEnMots(english, *r->Conseil()),
            "Read as Lambert France II étendu, 20 of 21 rows lie in the area of this file.");
}

TEST_F(ImportRehearsal, HintsAtASystemWhenTheChosenOneCannotReadTheFile) {
  Montre({{"WGS84", "", "50.5", "4.5"}});
  const auto r = Repete(ChoixDe("1,50.5,4.5,1,1,,\n1,50.6,4.6,1,1,,\n", CoordSystem::Utm));
  EXPECT_TRUE(r->Arret());
  ASSERT_TRUE(r->Conseil());
  EXPECT_EQ(r->Conseil()->system, CoordSystem::Deg);
}

// Another system reads a file that is gone no better.
TEST_F(ImportRehearsal, AFileThatIsGoneIsToldAndReadInNoOtherSystem) {
  Montre({{"WGS84", "", "50", "4"}, {"WGS84", "", "50", "4.1"}});
  const ImportChoice choice = ChoixDe("1,50,4,1,1,,\n");
  files.Supprime(path);
  const auto r = Repete(choice);
  ASSERT_TRUE(r->Arret());
  EXPECT_EQ(r->Arret()->number(), ErrorNumber::FileNotFound);
  EXPECT_FALSE(r->Conseil());
}

// Taken for metres, they all lie where Lambert begins.
TEST_F(ImportRehearsal, HintsAtNoSystemThatMakesOnePlaceOfAll) {
  Montre({{"WGS84", "", "49.29", "2.31"}});
  std::string bytes, same;
  for (int i = 0; i < 20; ++i) {
    bytes += "1,60." + std::to_string(10 + i) + ",24.5,1,1,,\n";
    same += "1,60.5,24.5,1,1,,\n";
  }
  EXPECT_FALSE(Repete(ChoixDe(bytes))->Conseil());
  EXPECT_TRUE(Repete(ChoixDe(same))->Conseil()) << "a list of one place";
}

TEST_F(ImportRehearsal, TellsThatMoreStandsBehindAnEndMark) {
  const auto coupee = [this](const std::string& bytes) {
    return Repete(ChoixDe(bytes))->LigneCoupee();
  };
  EXPECT_EQ(coupee("1,50,4,1,1,,\n1,50,4,1,1,,a\x1A\n1,50,4,1,1,,\n"), 2);
  EXPECT_EQ(coupee("1,50,4,1,1,,\n1,50,4,1,1,,\n\x1A"
                   "1,50,4,1,1,,\n"),
            3)
      << "at its start";
  EXPECT_EQ(coupee("1,50,4,1,1,,\n1,50\x1A,4,1,1,,\n"), 2) << "within a record";
  EXPECT_EQ(coupee("1,50,4,1,1,,\nx,50,4,1,1,,\n\x1A"
                   "1"),
            0)
      << "the import ends before it";
  EXPECT_EQ(coupee("1,50,4,1,1,,\n\x1A" + std::string(9000, ' ') + "\r\n\x1A"), 0);
  EXPECT_EQ(coupee("1,50,4,1,1,,\n\x1A" + std::string(9000, ' ') + "1"), 2);
}

TEST_F(ImportRehearsal, HintsAtNothingWhereTheRowsLieInTheAreaOrThereIsNone) {
  const std::string bytes = "1,50.5,4.5,1,1,,\n1,50.6,4.6,1,1,,\n";
  EXPECT_FALSE(Repete(ChoixDe(bytes))->Conseil()) << "an empty table";
  Montre({{"WGS84", "", "50.5", "4.5"}});
  EXPECT_FALSE(Repete(ChoixDe(bytes))->Conseil());
}

TEST_F(ImportRehearsal, HintsFromTheBeginningOfALongFile) {
  Montre({{"WGS84", "", "47", "2.3"}});
  std::string bytes;
  for (int i = 0; i < 1500; ++i) bytes += "1,600000,2200000,1,1,,\n";
  const auto r = Repete(ChoixDe(bytes, CoordSystem::Lf2));
  ASSERT_TRUE(r->Conseil());
  EXPECT_EQ(ConseilEnMots(english, *r->Conseil()),
            "Read as Lambert France II étendu, 1,000 of the first 1,000 rows lie in the area of "
            "this file.");
}

// A file that another program writes while it is read ends the rehearsal with words, not a crash.
TEST_F(ImportRehearsal, TellsThatTheFileChangedUnderItsReading) {
  std::string bytes;
  while (bytes.size() < 3 << 20) bytes += "1,50.5,4.5,1,1,,\n";
  const ImportChoice choice = ChoixDe(bytes);
  Rehearsal r(state, state.document.Entete().DatumFichier, state.document.Base(), *choice.Plan());
  while (r.Lignes().Nombre() < 100) r.Travaille([] { return false; });
  files.Pose(path, "1,50.5,4.5,1,1,,\n");
  while (r.Travaille([] { return true; })) {
  }
  ASSERT_TRUE(r.Arret());
  EXPECT_EQ(r.Arret()->number(), ErrorNumber::PathFileAccess);
}

// What the reader makes of a file is held elsewhere; here, that its rehearsal ends and counts it.
TEST_F(ImportRehearsal, RehearsesAnyBytesInEverySystem) {
  std::mt19937 random(11);
  const std::string alphabet = "0123456789.,+-\"* \r\n\x1aSKfs\xe9";
  Montre({{"WGS84", "", "47", "2.3"}});
  for (int i = 0; i < CoordSystemCount * 6; ++i) {
    std::string bytes;
    for (std::size_t k = random() % 300; k > 0; --k) bytes += alphabet[random() % alphabet.size()];
    const auto r = Repete(ChoixDe(bytes, static_cast<CoordSystem>(i % CoordSystemCount)));
    EXPECT_TRUE(r->EstLue());
    EXPECT_EQ(r->Comptes().enter + r->Comptes().dropped, r->Lignes().Nombre());
  }
}

}  // namespace
}  // namespace talpena::test
