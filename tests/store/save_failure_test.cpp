// What a save does when something fails, and what it leaves on disk.
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "store/deg_writer.h"
#include "store/save_failure_fixture.h"
#include "store/save_file.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

TEST_F(SaveFailure, IsAskedWithYesAndNo) {
  Ajoute({.latitude = 1});
  dialogues.answers = {Answer::Yes};
  Ecrit();
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(sound.bips, 2);  // the failure, then the end
}

TEST_F(SaveFailure, YesWritesThePreviousRowsValueForANullPoint) {
  AjouteToutes(Rangee{.latitude = 1, .longitude = 2}, Rangee{.period = 1},
               Rangee{.latitude = 3, .longitude = 4});
  dialogues.answers = {Answer::Yes, Answer::Yes};
  Ecrit();
  EXPECT_EQ(Boites(), (std::vector<std::string>{Question("Row 2 has no LATITUDE; fill it in."),
                                                Question("Row 2 has no LONGITUDE; fill it in.")}));
  const auto rows = Rangees();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[1].substr(0, 21), "1K+ 1.00000   2.00000");
  EXPECT_EQ(rows[2].substr(2, 19), "+ 3.00000   4.00000");
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(SaveFailure, TheFirstRowHasNoneBeforeItAndWritesZero) {
  Ajoute({.latitude = {}, .longitude = 4});
  dialogues.answers = {Answer::Yes};
  Ecrit();
  EXPECT_EQ(Rangees().at(0).substr(2, 19), "+ 0.00000   4.00000");
}

TEST_F(SaveFailure, GroupedYesKeepsThePreviousGroupsPoint) {
  AjouteToutes(Rangee{.period = 1, .latitude = 1, .longitude = 2},
               Rangee{.period = 2, .latitude = {}, .longitude = 3});
  dialogues.answers = {Answer::Yes};
  EcritDeg(context, path, WriteMode::Grouped);
  EXPECT_EQ(Rangees().at(1).substr(0, 21), "2K+ 1.00000   3.00000");
}

TEST_F(SaveFailure, NoLeavesTheFileCutAndTheRowsModified) {
  AjouteToutes(Rangee{.latitude = 1, .longitude = 2}, Rangee{.period = 1},
               Rangee{.latitude = 3, .longitude = 4});
  dialogues.answers = {Answer::No};
  Ecrit();
  EXPECT_EQ(Rangees().size(), 1U);
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_FALSE(vue.barre);
  EXPECT_FALSE(vue.sablier);
  EXPECT_EQ(vue.calls.back(), "FermeMessage");
  EXPECT_EQ(sound.bips, 1);  // the failure alone
}

TEST_F(SaveFailure, NoKeepsAWholeFormerFileAsBak) {
  EcritFichier(path, "whole");
  EcritFichier(bak, "older");
  Ajoute({.period = 1});
  dialogues.answers = {Answer::No};
  Ecrit();
  EXPECT_EQ(LitFichier(bak), "whole");
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 8U);
  EXPECT_EQ(state.document.Fichier.FichierIncomplet, path);
  EXPECT_EQ(state.document.Montre().avis, "The former file is now " + bak);
}

TEST_F(SaveFailure, ACutFileNeverTakesThePlaceOfItsWholeBackup) {
  EcritFichier(path, "whole");
  Ajoute({.period = 1});
  for (int i = 0; i < 3; ++i) {
    dialogues.answers = {Answer::No};
    Ecrit();
    EXPECT_EQ(LitFichier(bak), "whole");
  }
  state.document.Fichier.NomFichier = path;
  dialogues.answers = {Answer::No};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LitFichier(bak), "whole");
}

TEST_F(SaveFailure, ThenAWholeSaveMakesTheFileWholeAgain) {
  state.document.Fichier.NomFichier = path;
  Ajoute({.period = 1});
  EcritFichier(path, "whole");
  dialogues.answers = {Answer::No};
  Ecrit();
  dialogues.answers = {Answer::Yes, Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_TRUE(state.document.Fichier.FichierIncomplet.empty());
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_EQ(LitFichier(bak), "whole");
  const std::string first = LitFichier(path);
  dialogues.answers = {Answer::Yes, Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LitFichier(bak), first);
}

TEST_F(SaveFailure, WhereNoBackupCanBeMadeTheFormerFileStays) {
  EcritFichier(path, "whole");
  fs::create_directory(bak);
  Ajoute({.period = 1});
  dialogues.answers = {Answer::No};
  Ecrit();
  EXPECT_EQ(LitFichier(path), "whole");
  EXPECT_TRUE(state.document.Fichier.FichierIncomplet.empty());
  EXPECT_EQ(Boites().back(),
            "Error 58\nThere is a file of this name already; choose another name.\n" + bak +
                "\nThe former file stands unchanged.");
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.BAK", "a.deg"}));
}

TEST_F(SaveFailure, AFileThatIsItsOwnBackupStays) {
  path = bak;
  EcritFichier(path, "whole");
  Ajoute({.period = 1});
  dialogues.answers = {Answer::No};
  Ecrit();
  EXPECT_EQ(LitFichier(path), "whole");
  ASSERT_FALSE(dialogues.boxes.empty());
  EXPECT_EQ(dialogues.boxes.back().text,
            "Error 58\nThere is a file of this name already; choose another name.\n" + bak +
                "\nThe former file stands unchanged.");
}

TEST_F(SaveFailure, TheBackupStandsBesideTheFile) {
  EXPECT_EQ(CheminSecours("/a.b/c.deg"), "/a.b/c.BAK");
  EXPECT_EQ(CheminSecours("/a/c.d.deg"), "/a/c.BAK");
  EXPECT_EQ(CheminSecours("/a/c"), "/a/c.BAK");
  EXPECT_EQ(CheminSecours("c.deg"), "c.BAK");
}

TEST_F(SaveFailure, ACharacterOutsideTheCodePageIsNamedWithItsRow) {
  AjouteToutes(Rangee{.latitude = 1, .longitude = 2, .comment = "fine é"},
               Rangee{.latitude = 1, .longitude = 2, .comment = "Łódź"});
  dialogues.answers = {Answer::Yes};
  Ecrit();
  EXPECT_EQ(Boites(), std::vector<std::string>{Question(
                          "Row 2, COMMENT: the character \"Ł\", \"ź\" is not in code page 1252.")});
  EXPECT_EQ(Rangees().at(1).substr(71),
            "?\xF3"
            "d?");
}

TEST_F(SaveFailure, NoAtSuchACharacterWritesNothingOfTheRow) {
  AjouteToutes(Rangee{.latitude = 1, .longitude = 2, .comment = "fine"},
               Rangee{.latitude = 1, .longitude = 2, .comment = "Łódź"});
  dialogues.answers = {Answer::No};
  Ecrit();
  EXPECT_EQ(Rangees().size(), 1U);
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(SaveFailure, TheHeaderIsAskedForToo) {
  Ajoute({.latitude = 1, .longitude = 2});
  Entete(state.document)->BoxTitre = "Talpa α";
  Entete(state.document)->Commentaire = "β";
  dialogues.answers = {Answer::Yes, Answer::Yes};
  Ecrit();
  EXPECT_EQ(Boites(),
            (std::vector<std::string>{
                Question("The title holds the character \"α\", which is not in code page 1252."),
                Question("The comment of the file holds the character \"β\", which is not in code "
                         "page 1252.")}));
  const auto lines = Lignes(LitFichier(path));
  EXPECT_EQ(lines.at(3), "Talpa ?");
  EXPECT_EQ(lines.at(4), "?");
  EXPECT_EQ(lines.at(7), "?");
}

TEST_F(SaveFailure, AFolderInTheFilesPlaceIsSaidSo) {
  fs::create_directory(path);
  Ajoute({.latitude = 1, .longitude = 2});
  dialogues.answers = {Answer::Yes, Answer::No};
  Ecrit();
  const std::string said = Question("This is a folder, not a file; choose a file.\n" + path);
  EXPECT_EQ(Boites(), (std::vector<std::string>{said, said}));
  EXPECT_TRUE(fs::is_directory(path));
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(SaveFailure, AMissingFolderIsSaidSo) {
  path = folder / "none/a.deg";
  Ajoute({.latitude = 1, .longitude = 2});
  dialogues.answers = {Answer::No};
  Ecrit();
  EXPECT_EQ(Boites(),
            std::vector<std::string>{Question(
                "The folder cannot be found; look whether it was moved, or its disk taken away.\n" +
                path)});
}

TEST_F(SaveFailure, AReadOnlyFolderIsSaidSo) {
  const passwd* nobody = geteuid() == 0 ? getpwnam("nobody") : nullptr;
  if (nobody == nullptr) GTEST_SKIP() << "needs root, to become the user nobody";
  EcritFichier(path, "whole");
  ASSERT_EQ(chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
  Ajoute({.latitude = 1, .longitude = 2});
  state.document.Fichier.NomFichier = path;
  dialogues.answers = {Answer::No};
  ASSERT_EQ(seteuid(nobody->pw_uid), 0);
  Ecrit();
  MnuEnregistrer_Click(context);
  ASSERT_EQ(seteuid(0), 0);
  EXPECT_EQ(
      Boites(),
      (std::vector<std::string>{
          Question("Access is refused; the file or the folder may be protected or in use.\n" +
                   path),
          "Error 70\nAccess is refused; the file or the folder may be protected or in use.\n" +
              path}));
  EXPECT_EQ(LitFichier(path), "whole");
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
}

}  // namespace
}  // namespace talpena::test
