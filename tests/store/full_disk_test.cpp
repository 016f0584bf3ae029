// A real disk that fills while a save writes onto it, or while the rows of a file come into the
// working database.
#include "fakes/tiny_disk.h"
#include "store/deg_reader.h"
#include "store/file_commands_fixture.h"

namespace talpena::test {
namespace {

class TinyDiskSave : public FileCommands {
 protected:
  void SetUp() override {
    if (!disk.Refus().empty()) GTEST_SKIP() << "cannot mount a disk here: " << disk.Refus();
    for (int i = 0; i < 300; ++i) {
      Ajoute({.period = 1, .latitude = i % 90, .longitude = -i, .comment = std::string(60, 'c')});
    }
    EcritDeg(context, path, WriteMode::Rows);
    whole = LitFichier(path);
    state.document.Fichier.NomFichier = path;
    Ajoute({.period = 2, .latitude = 1, .longitude = 1});
  }

  /// Blocks that the next save fills beside the file that stands.
  fsblkcnt_t BlocsVoulus() const { return (whole.size() + 100) / disk.TailleBloc() + 1; }

  /// Back to the whole file alone, with so many blocks free.
  void Prepare(fsblkcnt_t blocks) {
    std::filesystem::remove(disk / "filler");
    std::filesystem::remove(bak);
    EcritFichier(path, whole);
    disk.LaisseLibres(blocks);
    state.document.Fichier.FichierIncomplet.clear();
    state.document.Fichier.EmpreinteFichier.reset();
    MarqueModifie(state.document);
    dialogues.boxes.clear();
  }

  TinyDisk disk{"size=256k,nr_inodes=20"};
  std::string path = disk / "a.deg";
  std::string bak = disk / "a.BAK";
  std::string whole;
  const std::string full =
      "Erreur pendant la sauvegarde\nThe disk is full; make room on it and try again.\n" + path +
      "\nContinuer?";
};

TEST_F(TinyDiskSave, LeavesTheLastGoodStateWhereverTheDiskFills) {
  ASSERT_GT(BlocsVoulus(), 5U);
  for (fsblkcnt_t blocks = 0; blocks < BlocsVoulus(); ++blocks) {
    SCOPED_TRACE(blocks);
    Prepare(blocks);
    dialogues.answers = {Answer::No};
    MnuEnregistrer_Click(context);
    EXPECT_EQ(Boites(), std::vector<std::string>{full});
    EXPECT_EQ(LitFichier(bak), whole);
    const std::string cut = LitFichier(path);
    EXPECT_EQ(cut, LignesEntieres(cut));
    EXPECT_LE(cut.size(), blocks * disk.TailleBloc());
    EXPECT_GE(cut.size() + 140, blocks * disk.TailleBloc()) << "as far as the disk goes";
    EXPECT_EQ(disk.Noms(), (std::vector<std::string>{"a.BAK", "a.deg", "filler"}));
    EXPECT_TRUE(state.document.FichierModifie());
  }
}

TEST_F(TinyDiskSave, SucceedsOnTheLastFreeBlock) {
  Prepare(BlocsVoulus());
  MnuEnregistrer_Click(context);
  EXPECT_TRUE(Boites().empty());
  EXPECT_EQ(LitFichier(bak), whole);
  EXPECT_GT(LitFichier(path).size(), whole.size());
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(TinyDiskSave, GoesOnOnceTheUserMadeRoom) {
  Prepare(1);
  class RoomMaker : public FakeDialogues {
   public:
    explicit RoomMaker(std::string filler) : filler_(std::move(filler)) {}
    Answer Demande(const MessageBox& box) override {
      boxes.Ajoute(box, true);
      if (boxes.size() == 2) std::filesystem::remove(filler_);
      return Answer::Yes;
    }

   private:
    std::string filler_;
  } maker(disk / "filler");
  Platform withRoom{*engine, *files, settings, maker, clock, environment, sound};
  EcritDeg({state, withRoom, vue, vue, vue}, path, WriteMode::Rows);
  EXPECT_EQ(maker.boxes.size(), 2U);
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 8U + 301U);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(TinyDiskSave, ChangesNothingWhereNoFileCanBeMade) {
  Prepare(BlocsVoulus());
  // Every file takes an inode of the disk: here they run out before the blocks do.
  int made = 0;
  while (std::ofstream(disk / ("n" + std::to_string(made)))) ++made;
  ASSERT_GT(made, 0);
  dialogues.answers = {Answer::No};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{full});
  EXPECT_EQ(LitFichier(path), whole);
  EXPECT_FALSE(std::filesystem::exists(bak));
  EXPECT_TRUE(state.document.FichierModifie());
  std::filesystem::remove(disk / "n0");
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_EQ(LitFichier(bak), whole);
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 8U + 301U);
  EXPECT_FALSE(state.document.FichierModifie());
}

/// The working database on a disk with room for some hundred rows.
class TinyWorkingFolder : public FileCommands {
 protected:
  void SetUp() override {
    if (!disk.Refus().empty()) GTEST_SKIP() << "cannot mount a disk here: " << disk.Refus();
    PoseFichier(path, 5000);
    state.WorkingDbPath = disk / "talpena_tmp.mdb";
    state.document.WorkingDb = engine->CreateDatabase(state.WorkingDbPath, NewDatabase{});
    CreateTable(*state.document.WorkingDb);
    Relit();
  }

  TinyDisk disk{"size=256k"};
};

TEST_F(TinyWorkingFolder, IsNamedWhenItIsFull) {
  LitDeg(context, path, MergeMode::Replace);
  const std::string database = disk / "talpena_tmp.mdb";
  const std::string onDisk = database.substr(0, database.rfind('/'));
  EXPECT_EQ(Boites(), std::vector<std::string>{
                          "The disk of the working folder " + onDisk +
                          " is full; make room on it, or choose another working folder in the "
                          "preferences."});
}

}  // namespace
}  // namespace talpena::test
