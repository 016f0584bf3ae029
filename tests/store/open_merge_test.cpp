// Open, and Merge, which opens a second file.
#include <sys/stat.h>

#include <filesystem>

#include "platform/os/left_overs.h"
#include "store/file_commands_fixture.h"
#include "store/free_fields.h"

namespace talpena::test {
namespace {

TEST_F(FileCommands, OpenReadsTheChosenFile) {
  PoseFichier(path, 3);
  dialogues.paths = {path};
  state.AppDir = "/somewhere";
  MnuOuvrir_Click(context);
  ASSERT_EQ(dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(dialogues.fileDialogs[0].filter, "Distribution (*.deg)|*.deg");
  EXPECT_EQ(dialogues.fileDialogs[0].folder, "/somewhere");
  EXPECT_EQ(NombreLignes(), 3);
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_EQ(settings.values["TALPENA/PATHS/LASTDEG"], folder.path().string() + "/");
  EXPECT_EQ(state.document.Fichier.EmpreinteFichier, files->Empreinte(path));
  EXPECT_TRUE(vue.menusActifs);
  EXPECT_EQ(vue.calls.back(), "CacheLbl1");
}

TEST_F(FileCommands, OpenStartsInTheFolderOfTheLastFile) {
  settings.Ecrit("TALPENA", "Paths", "LastDeg", "/last/");
  dialogues.paths = {""};
  MnuOuvrir_Click(context);
  EXPECT_EQ(dialogues.fileDialogs.at(0).folder, "/last/");
}

TEST_F(FileCommands, CancelInOpenLeavesNameAndTable) {
  OuvreA(2);
  dialogues.paths = {""};
  MnuOuvrir_Click(context);
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_EQ(NombreLignes(), 2);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(FileCommands, CancelInTheSaveQuestionOfOpenStops) {
  Modifie();
  dialogues.answers = {Answer::Cancel};
  MnuOuvrir_Click(context);
  EXPECT_TRUE(dialogues.fileDialogs.empty());
}

TEST_F(FileCommands, AFileThatCannotBeOpenedLeavesTheOpenOneWithItsName) {
  OuvreA(2);
  const std::string title = vue.titre;
  class Locked final : public FileSystem {
   public:
    Locked(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}
    bool Existe(const std::string& p) override { return files_.Existe(p); }
    std::unique_ptr<InputFile> Ouvre(const std::string& p) override {
      if (p == path_)
        throw TalpenaError(
            ErrorNumber::PermissionDenied,
            "Access is refused; the file or the folder may be protected or in use.\n" + p);
      return files_.Ouvre(p);
    }
    std::unique_ptr<OutputFile> Cree(const std::string& p) override { return files_.Cree(p); }
    void Supprime(const std::string& p) override { files_.Supprime(p); }
    void Renomme(const std::string& a, const std::string& b) override { files_.Renomme(a, b); }
    void Double(const std::string& a, const std::string& b) override { files_.Double(a, b); }
    std::optional<FileStamp> Empreinte(const std::string& p) override {
      return files_.Empreinte(p);
    }

   private:
    FileSystem& files_;
    std::string path_;
  } locked(*files, folder / "b.deg");
  PoseFichier(folder / "b.deg", 3);
  Platform other{*engine, locked, settings, dialogues, clock, environment, sound};
  dialogues.paths = {folder / "b.deg"};
  MnuOuvrir_Click({state, other, vue, vue, vue});
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(NombreLignes(), 2);
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_FALSE(state.document.Fichier.LecturePartielle);
  EXPECT_EQ(vue.titre, title);
  EXPECT_TRUE(vue.menusActifs);
}

// A file that is gone

class GoneFile : public FileCommands {
 protected:
  GoneFile() { OuvreA(2); }

  void Perd() { std::filesystem::rename(path, bak); }
  void Ouvre() {
    dialogues.paths = {path};
    MnuOuvrir_Click(context);
  }
};

TEST_F(GoneFile, WithoutAnythingBesideItIsNotFound) {
  const std::string other = folder / "gone.deg";
  const std::string title = vue.titre;
  dialogues.paths = {other};
  MnuOuvrir_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{"File not found"});
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_EQ(vue.titre, title);
  EXPECT_EQ(NombreLignes(), 2);
}

TEST_F(GoneFile, IsOpenedFromItsBackup) {
  const std::string former = LitFichier(path);
  Perd();
  dialogues.answers = {Answer::Yes};
  Ouvre();
  EXPECT_EQ(
      Boites(),
      std::vector<std::string>{
          "File not found\n\nBeside it stands its state before the last save. Open that?\n" + bak});
  EXPECT_EQ(NombreLignes(), 2);
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_EQ(vue.titre, "Talpena - " + path);
  EXPECT_EQ(state.LastFiles[0], path);
  EXPECT_TRUE(state.document.FichierModifie()) << "its rows are in no file of that name";
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LitFichier(path), former);
  EXPECT_EQ(LitFichier(bak), former) << "the last whole state stays";
}

TEST_F(GoneFile, StaysGoneOnNo) {
  Perd();
  dialogues.answers = {Answer::No};
  Ouvre();
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.BAK"});
}

TEST_F(GoneFile, IsOpenedFromAWholeTextRatherThanFromTheBackup) {
  const std::string reste = folder / NomEntier(NomTemporaire("a.deg"));
  Perd();
  PoseFichier(reste, 3);
  dialogues.answers = {Answer::Yes};
  Ouvre();
  EXPECT_EQ(NombreLignes(), 3);
  EXPECT_EQ(dialogues.boxes[0].text,
            "File not found\n\nBeside it stands what was last saved of it, complete. Open that?\n" +
                reste);
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 11U);
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.BAK", "a.deg"}));
}

TEST_F(GoneFile, IsOpenedFromWhatAKilledProgramWroteOfIt) {
  const std::string reste = folder / NomTemporaire("b.deg");
  PoseFichier(reste, 1);
  dialogues.paths = {folder / "b.deg"};
  dialogues.answers = {Answer::Yes};
  MnuOuvrir_Click(context);
  EXPECT_EQ(NombreLignes(), 1);
  EXPECT_EQ(state.document.Fichier.NomFichier, folder / "b.deg");
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  MnuEnregistrer_Click(context);
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.deg", "b.deg"}));
}

TEST_F(GoneFile, APipeInItsPlaceIsAnErrorAndNoWait) {
  std::filesystem::remove(path);
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  Ouvre();
  EXPECT_EQ(Boites(), std::vector<std::string>{"This file or folder cannot be used here or under "
                                               "this name; choose another one.\n" +
                                               path});
  EXPECT_EQ(NombreLignes(), 2);
  Modifie();
  state.document.Fichier.EmpreinteFichier.reset();
  dialogues.answers = {Answer::No};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(dialogues.boxes.size(), 2U);
  EXPECT_TRUE(std::filesystem::is_fifo(path));
}

TEST_F(GoneFile, LeavesNoTraceWhereItStandsAgain) {
  EcritFichier(folder / NomTemporaire("a.deg"), "half");
  Ouvre();
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
}

// Merge

TEST_F(FileCommands, AMergeThatEndsInTheHeaderKeepsTheName) {
  OuvreA(2);
  PoseFichier(folder / "b.deg", 3);
  // A merge reads free fields behind the header; without any it runs into the end.
  dialogues.paths = {folder / "b.deg"};
  MnuFusionner_Click(context);
  EXPECT_EQ(dialogues.fileDialogs.at(0).filter, "Distribution (*.deg)|*.deg");
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(
      dialogues.boxes[0].text,
      "This file has no free fields, and a merge takes only files that have some; nothing was "
      "added to the table.");
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_TRUE(vue.menusActifs);
}

TEST_F(FileCommands, AMergeOfAFileWithFreeFieldsAddsItsRowsAndKeepsTheName) {
  const auto definit = [](Document& document) {
    CommenceChampsLibres(*Entete(document).operator->(), "/");
    AjouteTexteChampsLibres(*Entete(document).operator->(), "STAT.TOPO,Toponyme,50");
    AjouteChampLibre(*Entete(document).operator->(), "STAT.TOPO,Toponyme,50");
    CompteChampsLibres(*Entete(document).operator->());
  };
  OuvreA(2);
  definit(state.document);
  Monde other;
  definit(other.state.document);
  Entete(other.state.document)->BoxTitre = "Other";
  for (int i = 0; i < 3; ++i) other.Ajoute({.period = 1, .latitude = i, .longitude = i});
  EcritDeg(other.context, folder / "b.deg", WriteMode::Rows);

  dialogues.paths = {folder / "b.deg"};
  MnuFusionner_Click(context);
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(NombreLignes(), 5);
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_EQ(state.document.Entete().TitreFichier, "Other");
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(FileCommands, MergeAsksNothingBefore) {
  OuvreA(1);
  Modifie();
  dialogues.paths = {""};
  MnuFusionner_Click(context);
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(NombreLignes(), 2);
}

}  // namespace
}  // namespace talpena::test
