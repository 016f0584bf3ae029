#include "interchange/import_choice.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "interchange/import_choice_world.h"
#include "interchange/rehearsal_words.h"
#include "store/edition.h"

namespace talpena::test {
namespace {

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

}  // namespace
}  // namespace talpena::test
