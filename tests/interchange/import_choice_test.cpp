#include "interchange/import_choice.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>

#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "interchange/rehearsal.h"
#include "interchange/rehearsal_words.h"
#include "interchange/text_import.h"
#include "store/coords_world.h"
#include "store/edition.h"

namespace talpena::test {
namespace {

constexpr std::int16_t english = 1000;
constexpr const char* path = "/data/list.txt";
const std::string twoRows = "1,50.5,4.5,1,2,,\n1,50.6,4.6,1,2,,\n";

class ImportChoiceTest : public ::testing::Test, protected CoordsWorld {
 protected:
  ImportChoiceTest() {
    state.Langue = english;
    state.DatumSpherique = state.Catalogue.DatumEur;
    state.DatumUtm = state.Catalogue.DatumEur;
  }
  ImportChoice Choix() { return {state, interchange, io}; }
  ImportChoice ChoixDe(const std::string& bytes, CoordSystem system = CoordSystem::Deg) {
    files.Pose(path, bytes);
    interchange.FichierImportation = path;
    interchange.TypeImportation = static_cast<std::int16_t>(system);
    return Choix();
  }
  /// What Ok does with the list in hand.
  void Importe() { ImportCoord({Contexte(), interchange, vue}, interchange.TypeImportation); }
  std::unique_ptr<Rehearsal> Repete(const ImportChoice& choice) {
    auto r = std::make_unique<Rehearsal>(state, state.document.Entete().DatumFichier,
                                         state.document.Base(), *choice.Plan());
    while (r->Travaille([] { return true; })) {
    }
    return r;
  }

  InterchangeState interchange;
};

TEST_F(ImportChoiceTest, ListsTheSixteenSystemsInEveryLanguage) {
  const auto captions = Choix().Systemes();
  EXPECT_EQ(captions[0], "Decimal Degrees");
  EXPECT_EQ(captions[3], "Alphanumeric UTM (MGRS)");
  EXPECT_EQ(captions[13], "Lambert France II étendu");
  EXPECT_EQ(captions[15], "Lambert Sud Maroc");
  for (const std::int16_t langue : std::array<std::int16_t, 4>{0, 3000, 4000, 5000}) {
    state.Langue = langue;
    for (const std::string& caption : Choix().Systemes()) EXPECT_FALSE(caption.empty());
  }
}

TEST_F(ImportChoiceTest, TellsTheStructureExpectedOfEachSystem) {
  const auto structures = Choix().StructureAttendue();
  const std::string angles = "Period,Latitude,Longitude,Number_1,Number_2,Date,Comment";
  const std::string letters = "Period,Lettre,Eastern,Northern,Number_1,Number_2,Date,Comment";
  const std::string metres = "Period,X,Y,Number_1,Number_2,Date,Comment";
  const ImportChoice::Texts expected{
      angles,
      angles,
      "Period,Fuseau,Eastern,Northern,Number_1,Number_2,Date,Comment",
      "Period,Fuseau+Zone+E+N,Number_1,Number_2,Date,Comment",
      angles,
      letters,
      letters,
      metres,
      "Period,IFBL,Number_1,Number_2,Date,Comment",
      metres,
      metres,
      metres,
      metres,
      metres,
      metres,
      metres};
  EXPECT_EQ(structures, expected);
}

TEST_F(ImportChoiceTest, OpensOnTheChoiceOfBefore) {
  const ImportChoice choice = ChoixDe("a\nb\nc\nd\n", CoordSystem::Lmb);
  EXPECT_EQ(choice.Indice(), 7);
  EXPECT_EQ(choice.Fichier(), path);
  EXPECT_EQ(choice.Apercu(), "a\rb\rc");
}

TEST_F(ImportChoiceTest, OpensQuietlyWhenTheFileOfBeforeIsGone) {
  interchange.FichierImportation = "/data/gone.txt";
  const ImportChoice choice = Choix();
  EXPECT_EQ(choice.Apercu(), "");
  ASSERT_TRUE(choice.Plan());
  EXPECT_TRUE(Repete(choice)->Arret());
}

TEST_F(ImportChoiceTest, OkHandsTheChoiceOver) {
  ImportChoice choice = Choix();
  files.Pose(path, "1,2,3\n");
  dialogues.paths = {path};
  EXPECT_TRUE(choice.Parcourt());
  choice.ChoisitSysteme(5);
  choice.Ok();
  EXPECT_EQ(interchange.TypeImportation, 5);
  EXPECT_EQ(interchange.FichierImportation, path);
  EXPECT_EQ(interchange.Variable, "5");
}

TEST_F(ImportChoiceTest, CancelKeepsTheSystemAndTheFileOfBefore) {
  interchange.FichierImportation = "/data/before.txt";
  ImportChoice choice = Choix();
  files.Pose(path, "1,2,3\n");
  dialogues.paths = {path};
  choice.Parcourt();
  choice.ChoisitSysteme(9);
  choice.Annule();
  EXPECT_EQ(interchange.TypeImportation, 9);
  EXPECT_EQ(interchange.FichierImportation, "/data/before.txt");
  EXPECT_EQ(interchange.Variable, "-1");
}

TEST_F(ImportChoiceTest, OkWithoutAFileHandsOverNone) {
  ImportChoice choice = Choix();
  EXPECT_FALSE(choice.Plan());
  choice.Ok();
  EXPECT_EQ(interchange.FichierImportation, "");
  EXPECT_EQ(interchange.Variable, "0");
}

TEST_F(ImportChoiceTest, AsksForTextFilesInFrenchAndOffersTheFileOfBefore) {
  ImportChoice choice = ChoixDe("a\n");
  state.Langue = english;
  dialogues.paths = {""};
  EXPECT_FALSE(choice.Parcourt()) << "Cancel";
  ASSERT_EQ(dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(dialogues.fileDialogs[0].filter,
            "Fichiers texte (*.txt)|*.txt|Tous les fichiers (*.*)|*.*");
  EXPECT_EQ(dialogues.fileDialogs[0].name, path);
  EXPECT_EQ(choice.Fichier(), path);
}

TEST_F(ImportChoiceTest, LooksForTheFirstListBesideTheOpenDistribution) {
  state.document.Fichier.NomFichier = "/moles/belgium.deg";
  ImportChoice choice = Choix();
  dialogues.paths = {""};
  choice.Parcourt();
  EXPECT_EQ(dialogues.fileDialogs[0].folder, "/moles/");
}

TEST_F(ImportChoiceTest, SaysThatAListHoldsNoRecord) {
  for (const char* bytes : {"*only a remark\n", "\n  \n*x\n\n", ""}) {
    const auto r = Repete(ChoixDe(bytes));
    EXPECT_EQ(r->SansFiche(), MsgId::RepetitionSansFiche) << bytes;
  }
  EXPECT_EQ(Repete(ChoixDe(twoRows))->SansFiche(), 0);
  EXPECT_EQ(Repete(ChoixDe("1,31u,1,1,d,c\n", CoordSystem::Mgr))->SansFiche(), 0) << "left out";
  EXPECT_EQ(Repete(ChoixDe("x\n"))->SansFiche(), 0);
}

// As many as the import then leaves, whose points are not computed.
TEST_F(ImportChoiceTest, CountsTheRowsBeforeAnEndOnTheWayAsTheImportDoes) {
  const std::pair<const char*, std::int64_t> lists[] = {
      {"1,31ufs1234,1,1,d,c\n1,31u,1,1,d,c\n1,9UXA12,1,1,d,c\nx\n", 2},
      {"1,31u,1,1,d,c\nx\n", 0},
      {"1,31ufs1234,1,1,late in July,c\n", 0},
      {"x\n", 0}};
  for (const auto& [bytes, before] : lists) {
    const auto r = Repete(ChoixDe(bytes, CoordSystem::Mgr));
    ASSERT_TRUE(r->Arret());
    const std::string words = ArretEnMots(english, *r->Arret(), r->Comptes().enter);
    const std::string number = std::to_string(before);
    EXPECT_TRUE(words.starts_with(before == 0 ? "No row would enter, since the import would end"
                                              : "The import would end on the way, and the rows "
                                                "before (" +
                                                    number + ") would stay without coordinates: "))
        << words;
    dialogues.boxes.clear();
    Importe();
    EXPECT_TRUE(Boites().at(0).ends_with("Rows added before it: " + number + "."));
  }
}

TEST_F(ImportChoiceTest, AnEmptyFileIsToldAndStaysChosen) {
  ImportChoice choice = ChoixDe("before\n");
  files.Pose("/data/empty.txt", "");
  dialogues.paths = {"/data/empty.txt"};
  EXPECT_TRUE(choice.Parcourt());
  const auto told = Boites();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_TRUE(told[0].starts_with("Error 62\n")) << told[0];
  EXPECT_EQ(choice.Fichier(), "/data/empty.txt");
  EXPECT_EQ(choice.Apercu(), "");
}

TEST_F(ImportChoiceTest, OneLineLeavesTheOthersOfThePreviewEmpty) {
  EXPECT_EQ(ChoixDe("only\n").Apercu(), "only\r\r");
}

TEST_F(ImportChoiceTest, NoticesThatTheFileChanges) {
  ImportChoice choice = ChoixDe("a\n");
  EXPECT_FALSE(choice.FichierAChange());
  files.Pose(path, "b\n");
  EXPECT_TRUE(choice.FichierAChange());
  EXPECT_EQ(choice.Apercu(), "b\r\r");
  EXPECT_FALSE(choice.FichierAChange());
  files.Supprime(path);
  EXPECT_TRUE(choice.FichierAChange());
  EXPECT_EQ(choice.Apercu(), "");
  EXPECT_FALSE(choice.FichierAChange());
}

// ---- lists that have come in already

TEST_F(ImportChoiceTest, SaysThatTheListHasComeInAlready) {
  ImportChoice choice = ChoixDe(twoRows);
  EXPECT_FALSE(choice.DejaImportee());
  Importe();
  const ImportChoice again = Choix();
  EXPECT_TRUE(again.DejaImportee());
  EXPECT_EQ(again.Notes()[0],
            "This list has been imported into the open file already; Ok would add its rows once "
            "more.");
}

TEST_F(ImportChoiceTest, AListThatWasMendedIsAnotherOne) {
  ChoixDe(twoRows);
  Importe();
  EXPECT_FALSE(ChoixDe(twoRows + "1,50.7,4.7,1,0,,\n").DejaImportee());
}

TEST_F(ImportChoiceTest, AListWhoseRowsWereDeletedMayComeInAgain) {
  ChoixDe(twoRows);
  Importe();
  Edition edition(state.document, "Delete");
  edition.SupprimeLignes(vue.selection);
  edition.Valide();
  EXPECT_FALSE(Choix().DejaImportee());
}

TEST_F(ImportChoiceTest, AnotherDistributionHasNotGotTheList) {
  ChoixDe(twoRows);
  Importe();
  Edition edition(state.document, "New");
  edition.VideTable();
  edition.Valide();
  Montre(std::vector<Row>(5, Row{"WGS84", "", "10", "20"}));
  EXPECT_FALSE(Choix().DejaImportee());
}

TEST_F(ImportChoiceTest, AListThatEndedOnTheWayHasNotComeIn) {
  ChoixDe("1,50.5,4.5,1,2,,\nx\n");
  Importe();
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_FALSE(Choix().DejaImportee());
}

// ---- what an import says in the status bar

TEST_F(ImportChoiceTest, TheNoticeOfAnImportGoesWithTheNextEditOfARow) {
  const std::function<void(Edition&)> edits[] = {
      [this](Edition& e) { e.SupprimeLignes(vue.selection); },
      [](Edition& e) { e.AjouteLigne({}); },
      [this](Edition& e) {
        const auto rows = state.document.Data1.Clone();
        rows->MoveFirst();
        e.ModifieLigne(*rows,
                       [](Recordset& row) { row.Set(Column::N1, Cell::Of(std::int64_t{5})); });
      }};
  for (const auto& edit : edits) {
    ChoixDe(twoRows);
    Importe();
    ASSERT_TRUE(state.document.Montre().avis.starts_with("Import: 2 rows added"));
    Edition edition(state.document, "Edit");
    edit(edition);
    edition.Valide();
    EXPECT_EQ(state.document.Montre().avis, "");
  }
}

TEST_F(ImportChoiceTest, NamesTheDatumThatTheRowsWillGet) {
  ImportChoice choice = Choix();
  const auto& catalogue = state.Catalogue;
  const std::string name = catalogue.Datum(catalogue.DatumEur).name;
  EXPECT_EQ(choice.Notes(), Lines{"These rows get the datum " + name + " (EUR-M)."});
  choice.ChoisitSysteme(static_cast<int>(CoordSystem::Lmb));
  ASSERT_EQ(choice.Notes().size(), 1U);
  EXPECT_TRUE(choice.Notes()[0].ends_with("(BEL72).")) << choice.Notes()[0];
}

TEST_F(ImportChoiceTest, SaysThatFrenchAndMoroccanRowsGetTheBelgianDatum) {
  ImportChoice choice = Choix();
  for (int i = 0; i < CoordSystemCount; ++i) {
    choice.ChoisitSysteme(i);
    const auto notes = choice.Notes();
    EXPECT_EQ(notes.size(), i >= 9 ? 2U : 1U) << i;
    if (i >= 9) {
      EXPECT_NE(notes[1].find("BEL72"), std::string::npos);
    }
  }
}

TEST_F(ImportChoiceTest, SaysThatTheCatalogueLacksTheDatum) {
  state.DatumSpherique = 0;
  state.DatumSpheriqueCode = "QQQ";
  EXPECT_EQ(
      Choix().Notes(),
      Lines{"The catalogue lacks the datum QQQ of these rows, so they stay without a point."});
}

TEST_F(ImportChoiceTest, RehearsesTheFileThatItNames) {
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
TEST_F(ImportChoiceTest, HintsAtTheSystemThatSuitsTheTable) {
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

TEST_F(ImportChoiceTest, HintsAtASystemWhenTheChosenOneCannotReadTheFile) {
  Montre({{"WGS84", "", "50.5", "4.5"}});
  const auto r = Repete(ChoixDe("1,50.5,4.5,1,1,,\n1,50.6,4.6,1,1,,\n", CoordSystem::Utm));
  EXPECT_TRUE(r->Arret());
  ASSERT_TRUE(r->Conseil());
  EXPECT_EQ(r->Conseil()->system, CoordSystem::Deg);
}

// Another system reads a file that is gone no better.
TEST_F(ImportChoiceTest, AFileThatIsGoneIsToldAndReadInNoOtherSystem) {
  Montre({{"WGS84", "", "50", "4"}, {"WGS84", "", "50", "4.1"}});
  const ImportChoice choice = ChoixDe("1,50,4,1,1,,\n");
  files.Supprime(path);
  const auto r = Repete(choice);
  ASSERT_TRUE(r->Arret());
  EXPECT_EQ(r->Arret()->number(), ErrorNumber::FileNotFound);
  EXPECT_FALSE(r->Conseil());
}

// Taken for metres, they all lie where Lambert begins.
TEST_F(ImportChoiceTest, HintsAtNoSystemThatMakesOnePlaceOfAll) {
  Montre({{"WGS84", "", "49.29", "2.31"}});
  std::string bytes, same;
  for (int i = 0; i < 20; ++i) {
    bytes += "1,60." + std::to_string(10 + i) + ",24.5,1,1,,\n";
    same += "1,60.5,24.5,1,1,,\n";
  }
  EXPECT_FALSE(Repete(ChoixDe(bytes))->Conseil());
  EXPECT_TRUE(Repete(ChoixDe(same))->Conseil()) << "a list of one place";
}

TEST_F(ImportChoiceTest, TellsThatMoreStandsBehindAnEndMark) {
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

TEST_F(ImportChoiceTest, HintsAtNothingWhereTheRowsLieInTheAreaOrThereIsNone) {
  const std::string bytes = "1,50.5,4.5,1,1,,\n1,50.6,4.6,1,1,,\n";
  EXPECT_FALSE(Repete(ChoixDe(bytes))->Conseil()) << "an empty table";
  Montre({{"WGS84", "", "50.5", "4.5"}});
  EXPECT_FALSE(Repete(ChoixDe(bytes))->Conseil());
}

TEST_F(ImportChoiceTest, HintsFromTheBeginningOfALongFile) {
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
TEST_F(ImportChoiceTest, TellsThatTheFileChangedUnderItsReading) {
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
TEST_F(ImportChoiceTest, RehearsesAnyBytesInEverySystem) {
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
