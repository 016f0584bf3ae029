#include "store/deg_writer.h"

#include "store/save_fixture.h"

namespace talpena::test {
namespace {

class DegWriter : public testing::Test, protected Monde {
 protected:
  std::string path = folder / "a.deg";

  void Ecrit(WriteMode mode = WriteMode::Rows) { EcritDeg(context, path, mode); }
  std::vector<std::string> LignesEcrites() {
    Ecrit();
    return Lignes(LitFichier(path));
  }
  /// The row lines; the header of a file without free fields has eight.
  std::vector<std::string> RangeesEcrites() {
    auto lines = LignesEcrites();
    lines.erase(lines.begin(), lines.begin() + 8);
    return lines;
  }
};

TEST_F(DegWriter, WritesTheWholeFile) {
  Entete(state.document)->DatumFichierCode = "WGS84";
  Entete(state.document)->FreeFieldText =
      "/\r\nSTAT.TOPO,Toponyme,Nom du lieu-dit,50\r\nSTAT.LOCA,Localité,Nom de la localité,50";
  Entete(state.document)->NbPivots = 2;
  Entete(state.document)->Pivot1 = 1950;
  Entete(state.document)->Pivot2 = 1980;
  Entete(state.document)->BoxTitre = "Talpa inventa – Ardennes";
  Entete(state.document)->Commentaire = "Invented records";
  AjouteToutes(Rangee{1, 50.5, 4.25, 12, 0, "F", "WGS84", "deg 50.5 4.25", "1931/05/02",
                      "Dourbes/Viroinval/seen by two"},
               Rangee{2, -0.000001, -0.00001, 0, 0, {}, {}, {}, {}, "//"},
               Rangee{3, -45.123456, 179.99998, 99999, 345, "M", "EUR-M",
                      "utm 31 U FS 1234 5678 90", "1998", "Forêt/Ville/first line\nsecond line €"},
               Rangee{{}, 9.5, -12.75}, Rangee{},
               Rangee{3, 50.5, 4.25, 123456, -7, "W", "NTF", "grp 53.5 2.1", "1999/12/31", "/"});
  Ecrit();
  EXPECT_EQ(LitFichier(path), LitFichier(TALPENA_SOURCE_DIR "/tests/data/save_rows.deg"));
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(DegWriter, FollowsTheGridsOrder) {
  AjouteToutes(Rangee{.period = 1, .latitude = 5, .longitude = 1},
               Rangee{.period = 1, .latitude = 9, .longitude = 1});
  MontreSelect(state.document, "SELECT * FROM TALPENA ORDER BY [LATITUDE] DESC");
  const auto rows = RangeesEcrites();
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].substr(2, 9), "+ 9.00000");
  EXPECT_EQ(rows[1].substr(2, 9), "+ 5.00000");
}

TEST_F(DegWriter, LeavesTheGridsRowAlone) {
  AjouteToutes(Rangee{.period = 1, .latitude = 5, .longitude = 1},
               Rangee{.period = 1, .latitude = 9, .longitude = 1});
  Relit();
  state.document.Data1.recordset().MoveNext();
  Ecrit();
  EXPECT_EQ(state.document.Data1.recordset().AbsolutePosition(), 1);
}

TEST_F(DegWriter, AnEmptyTableWritesNothing) {
  EcritFichier(path, "old");
  MarqueModifie(state.document);
  Ecrit();
  EXPECT_EQ(LitFichier(path), "old");
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_TRUE(vue.calls.empty());
  EXPECT_EQ(sound.bips, 0);
}

TEST_F(DegWriter, ATableThatIsNotBoundWritesNothing) {
  StoreState fresh;
  EcritDeg({fresh, io, vue, vue, vue}, path, WriteMode::Rows);
  EcritDeg({fresh, io, vue, vue, vue}, path, WriteMode::Grouped);
  EXPECT_TRUE(folder.Noms().empty());
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(DegWriter, RowsThatHoldOnlyACounterVanish) {
  for (int i = 0; i < 10; ++i) Ajoute({});
  EXPECT_TRUE(RangeesEcrites().empty());
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(DegWriter, ARowWithOneValueIsWritten) {
  AjouteToutes(Rangee{.latitude = 1, .longitude = 2}, Rangee{},
               Rangee{.latitude = 3, .longitude = 4, .sex = ""});
  EXPECT_EQ(RangeesEcrites().size(), 2U);
}

TEST_F(DegWriter, AnEmptyTitleBecomesThreeBlanks) {
  Ajoute({.latitude = 1, .longitude = 2});
  EXPECT_EQ(LignesEcrites().at(3), "   ");
  Entete(state.document)->BoxTitre = " ";
  EXPECT_EQ(LignesEcrites().at(3), " ");
}

TEST_F(DegWriter, TheCommentStandsTwice) {
  Ajoute({.latitude = 1, .longitude = 2});
  Entete(state.document)->Commentaire = "été";
  const auto lines = LignesEcrites();
  EXPECT_EQ(lines.at(4), "\xE9t\xE9");
  EXPECT_EQ(lines.at(7), "\xE9t\xE9");
}

TEST_F(DegWriter, AnUnknownNumberOfPivotsLeavesThePeriodLineOut) {
  Ajoute({.latitude = 1, .longitude = 2});
  EXPECT_EQ(LignesEcrites().size(), 9U);
  Entete(state.document)->NbPivots = 3;
  EXPECT_EQ(LignesEcrites().size(), 8U);
}

TEST_F(DegWriter, ShowsWhatItDoes) {
  for (int i = 0; i < 11; ++i) Ajoute({.latitude = 1, .longitude = 2});
  Ecrit();
  EXPECT_EQ(vue.calls,
            (std::vector<std::string>{"AfficheMessage Saving...\n" + path, "FermeMessage"}));
  EXPECT_EQ(vue.progression, (std::vector<int>{0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 100}));
  EXPECT_FALSE(vue.barre);
  EXPECT_FALSE(vue.sablier);
}

TEST_F(DegWriter, ASingleRowIsTheWholeProgress) {
  Ajoute({.latitude = 1, .longitude = 2});
  Ecrit();
  EXPECT_EQ(vue.progression, (std::vector<int>{100, 100}));
}

TEST_F(DegWriter, BeepsWhenItIsDoneUnlessSilent) {
  Ajoute({.latitude = 1, .longitude = 2});
  Ecrit();
  EXPECT_EQ(sound.bips, 1);
  state.Silence = true;
  Ecrit();
  EXPECT_EQ(sound.bips, 1);
}

TEST_F(DegWriter, RemembersTheOpenFileAsItWroteIt) {
  Ajoute({.latitude = 1, .longitude = 2});
  Ecrit();
  EXPECT_FALSE(state.document.Fichier.EmpreinteFichier.has_value());  // not the open file
  state.document.Fichier.NomFichier = path;
  Ecrit();
  EXPECT_EQ(state.document.Fichier.EmpreinteFichier, files->Empreinte(path));
  EXPECT_TRUE(state.document.Fichier.EmpreinteFichier.has_value());
}

TEST_F(DegWriter, WorksInALanguageWithoutTexts) {
  Ajoute({.latitude = 1, .longitude = 2});
  state.Langue = 2000;
  dialogues.answers = {Answer::Yes};
  Ecrit();
  EXPECT_EQ(Boites(), std::vector<std::string>{
                          "Erreur pendant la sauvegarde\nResource with identifier '2720' not "
                          "found.\nContinuer?"});
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 9U);
}

class GroupedSave : public DegWriter {
 protected:
  std::vector<std::string> Groupes() {
    Ecrit(WriteMode::Grouped);
    auto lines = Lignes(LitFichier(path));
    lines.erase(lines.begin(), lines.begin() + 8);
    return lines;
  }
  static std::string Commentaire(const std::string& line) { return line.substr(71); }
};

TEST_F(GroupedSave, WritesTheWholeFile) {
  AjouteToutes(Rangee{1, 10, 20, 1, 5, "F", "EUR-M", "deg 10 20", "1990/01/01", "one"},
               Rangee{2, -10, 20, 5, {}, "W", "OGB-M", "deg -10 20", "1990/01/05", "five"},
               Rangee{1, 10, 20, 2, 10, "M", "WGS84", "deg 10 20.0", "1990/01/02", {}},
               Rangee{1, 10, 21, 4, 0, "M", "NTF", "deg 10 21", "1990/01/04", "four"}, Rangee{},
               Rangee{1, 10, 20, 3, 0, "W", "BEL72", "deg 10 20.00", "1990/01/03", "three"},
               Rangee{2, -10, 20, 6, 0, "W", "IRL", "deg -10 20.0", "1990/01/06", "six"});
  Relit();
  Ecrit(WriteMode::Grouped);
  const auto lines = Lignes(LitFichier(path));
  ASSERT_EQ(lines.size(), 11U);
  // The order within equal keys is the engine's: what does not depend on it is compared whole.
  std::string written = LitFichier(path);
  EXPECT_EQ(written, LitFichier(TALPENA_SOURCE_DIR "/tests/data/save_grouped.deg"));
}

TEST_F(GroupedSave, TheRowsAreOnShowInTheirOrderBeforeTheyAreWritten) {
  AjouteToutes(Rangee{.period = 2, .latitude = 1, .longitude = 2},
               Rangee{.period = 1, .latitude = 1, .longitude = 2});
  const Subscription bound = ObserveLignes(state.document, [this](DataControl::Change change) {
    if (change == DataControl::Change::Rows) vue.calls.emplace_back("rows");
  });
  Ecrit(WriteMode::Grouped);
  EXPECT_EQ(vue.calls,
            (std::vector<std::string>{"rows", "TraiteMessages", "AfficheMessage Saving...\n" + path,
                                      "FermeMessage"}));
}

TEST_F(GroupedSave, CountsTheFirstRowOnce) {
  Ajoute({.period = 1, .latitude = 1, .longitude = 2, .n1 = 3, .n2 = 4, .comment = "c"});
  const auto rows = Groupes();
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].substr(21, 10), "    3    4");
  EXPECT_EQ(Commentaire(rows[0]), "c");
}

TEST_F(GroupedSave, SkipsAFirstRowThatIsAllNull) {
  AjouteToutes(Rangee{}, Rangee{}, Rangee{.period = 1, .latitude = 1, .longitude = 2, .n1 = 3},
               Rangee{.period = 1, .latitude = 1, .longitude = 2, .n1 = 4});
  const auto rows = Groupes();
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].substr(21, 5), "    7");
}

TEST_F(GroupedSave, OnlyNullRowsGiveAHeader) {
  AjouteToutes(Rangee{}, Rangee{});
  EXPECT_TRUE(Groupes().empty());
}

TEST_F(GroupedSave, GroupsOnlyEqualStoredFloats) {
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2},
               Rangee{.period = 1, .latitude = 1.00000001, .longitude = 2},
               Rangee{.period = 1, .latitude = 1.0000002, .longitude = 2});
  EXPECT_EQ(Groupes().size(), 2U);
}

TEST_F(GroupedSave, ANewPeriodIsANewGroup) {
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2},
               Rangee{.period = 2, .latitude = 1, .longitude = 2});
  EXPECT_EQ(Groupes().size(), 2U);
}

TEST_F(GroupedSave, AGroupHasTheDatumOfTheRowBehindIt) {
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2, .datum = "WGS84"},
               Rangee{.period = 2, .latitude = 1, .longitude = 2, .datum = "NTF"},
               Rangee{.period = 3, .latitude = 1, .longitude = 2, .datum = "IRL"});
  const auto rows = Groupes();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].substr(42, 5), "NTF  ");
  EXPECT_EQ(rows[1].substr(42, 5), "IRL  ");
  EXPECT_EQ(rows[2].substr(42, 5), "IRL  ");
}

TEST_F(GroupedSave, SexIsThatOfTheFirstRowButOfTheLastRowInTheLastGroup) {
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2, .sex = "F"},
               Rangee{.period = 1, .latitude = 1, .longitude = 2, .sex = "M"},
               Rangee{.period = 2, .latitude = 1, .longitude = 2, .sex = "F"},
               Rangee{.period = 2, .latitude = 1, .longitude = 2, .sex = "W"});
  const auto rows = Groupes();
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0][41], 'F');
  EXPECT_EQ(rows[1][41], 'W');
}

TEST_F(GroupedSave, ANullSexIsABlank) {
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2},
               Rangee{.period = 2, .latitude = 1, .longitude = 2});
  for (const std::string& row : Groupes()) EXPECT_EQ(row[41], ' ');
}

TEST_F(GroupedSave, JoinsCommentsBySeparateurChamps) {
  state.SeparateurChamps = "; ";
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2, .comment = "a"},
               Rangee{.period = 1, .latitude = 1, .longitude = 2},
               Rangee{.period = 1, .latitude = 1, .longitude = 2, .comment = ""},
               Rangee{.period = 1, .latitude = 1, .longitude = 2, .comment = "b"});
  EXPECT_EQ(Commentaire(Groupes().at(0)), "a; ; b");
}

TEST_F(GroupedSave, RemovesALeadingSeparator) {
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2},
               Rangee{.period = 1, .latitude = 1, .longitude = 2, .comment = "b"});
  EXPECT_EQ(Commentaire(Groupes().at(0)), "b");
}

TEST_F(GroupedSave, AnEmptySeparatorJoinsWithoutOne) {
  state.SeparateurChamps = "";
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2, .comment = "a"},
               Rangee{.period = 1, .latitude = 1, .longitude = 2, .comment = "b"});
  EXPECT_EQ(Commentaire(Groupes().at(0)), "ab");
}

TEST_F(GroupedSave, CutsTheCommentTo255Characters) {
  std::string accents;
  for (int i = 0; i < 200; ++i) accents += "é";
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2, .comment = accents},
               Rangee{.period = 1, .latitude = 1, .longitude = 2, .comment = accents});
  const std::string expected = std::string(200, '\xE9') + "," + std::string(54, '\xE9');
  EXPECT_EQ(Commentaire(Groupes().at(0)), expected);
}

TEST_F(GroupedSave, ALaterGroupOfOneRowKeepsItsLongComment) {
  AjouteToutes(
      Rangee{.period = 1, .latitude = 1, .longitude = 2, .comment = std::string(300, 'a')},
      Rangee{.period = 2, .latitude = 1, .longitude = 2, .comment = std::string(300, 'b')});
  const auto rows = Groupes();
  EXPECT_EQ(Commentaire(rows.at(0)), std::string(255, 'a'));
  EXPECT_EQ(Commentaire(rows.at(1)), std::string(300, 'b'));
}

TEST_F(GroupedSave, KeepsItsOrderInTheGridButNotInSqlCourant) {
  AjouteToutes(Rangee{.period = 2, .latitude = 1, .longitude = 2},
               Rangee{.period = 1, .latitude = 1, .longitude = 2});
  Ecrit(WriteMode::Grouped);
  EXPECT_EQ(state.document.Data1.RecordSource,
            "SELECT * FROM TALPENA ORDER BY [PERIOD], [LATITUDE], [LONGITUDE]");
  EXPECT_EQ(state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY Counter");
  EXPECT_EQ(state.document.Data1.recordset().Get(Column::PERIOD).integer, 1);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(GroupedSave, ASumBeyond32BitsIsAFailureThatKeepsTheSumSoFar) {
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2, .n1 = 2147483647},
               Rangee{.period = 1, .latitude = 1, .longitude = 2, .n1 = 1},
               Rangee{.period = 1, .latitude = 1, .longitude = 2, .n1 = 0});
  dialogues.answers = {Answer::Yes};
  const auto rows = Groupes();
  EXPECT_EQ(Boites(), std::vector<std::string>{"Erreur pendant la sauvegarde\nA number is too "
                                               "large for its place; correct it.\nContinuer?"});
  EXPECT_EQ(rows.at(0).substr(21, 10), "2147483647");
}

}  // namespace
}  // namespace talpena::test
