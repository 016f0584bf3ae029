// Saves that run out of disk or memory.
#include <sys/stat.h>

#include <functional>
#include <new>

#include "fakes/fake_files.h"
#include "fakes/file_limit.h"
#include "store/deg_writer.h"
#include "store/save_failure_fixture.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

class FullDisk : public SaveFailure {
 protected:
  FullDisk() {
    for (int i = 0; i < 30; ++i) {
      Ajoute({.period = 1, .latitude = i, .longitude = -i, .comment = "invented"});
    }
    Ecrit();
    whole = LitFichier(path);
    state.document.Fichier.NomFichier = path;
    sound.bips = 0;
  }
  std::string whole;
  std::string next;  ///< what the save under way would write

  /// A file that holds the rows as they are now.
  std::string FichierNouveau() {
    const TempFolder elsewhere;
    EcritDeg(context, elsewhere / "b.deg", WriteMode::Rows);
    MarqueModifie(state.document);
    return LitFichier(elsewhere / "b.deg");
  }

  /// Runs a command with a disk that is full ever later in a save, each time from the whole file.
  template <typename Command>
  void AChaqueEtape(Command&& command) {
    Ajoute({.period = 2, .latitude = 1, .longitude = 1});
    next = FichierNouveau();
    for (rlim_t limit = 0; limit < next.size(); limit += 61) {
      SCOPED_TRACE(limit);
      EcritFichier(path, whole);
      fs::remove(bak);
      state.document.Fichier.FichierIncomplet.clear();
      state.document.Fichier.EmpreinteFichier.reset();
      dialogues.boxes.clear();
      command(limit);
      EXPECT_EQ(LitFichier(bak), whole);
    }
  }

  /// More rows than one block of the writer holds, so that it fails before the end.
  void AjouteBeaucoup() {
    for (int i = 0; i < 300; ++i) {
      Ajoute({.period = 1, .latitude = 1, .longitude = 1, .comment = std::string(2000, 'c')});
    }
  }
};

TEST_F(FullDisk, AtAnyStageOfASaveLeavesAWholeFile) {
  AChaqueEtape([this](rlim_t limit) {
    dialogues.answers = {Answer::No};
    {
      const FileLimit full(limit);
      MnuEnregistrer_Click(context);
    }
    EXPECT_EQ(Boites(), std::vector<std::string>{Question("Disk full: " + path)});
    EXPECT_EQ(LitFichier(path), LignesEntieres(next.substr(0, limit)));
    EXPECT_TRUE(state.document.FichierModifie());
  });
}

TEST_F(FullDisk, AtAnyStageOfAnAutomaticSaveLeavesAWholeFile) {
  state.AutoSave = true;
  state.SaveInterval = 1;
  AChaqueEtape([this](rlim_t limit) {
    dialogues.answers = {Answer::Yes, Answer::No};
    const FileLimit full(limit);
    Timer1_Timer(context);
    EXPECT_EQ(state.document.Fichier.FichierIncomplet, path);
  });
}

TEST_F(FullDisk, LosesNothingWhenRoomIsMade) {
  AjouteBeaucoup();
  std::string expected;
  {
    EcritDeg(context, folder / "b.deg", WriteMode::Rows);
    expected = LitFichier(folder / "b.deg");
  }
  // The third answer comes once there is room again.
  class RoomMaker : public FakeDialogues {
   public:
    std::unique_ptr<FileLimit> full;
    int asked = 0;
    Answer Demande(const MessageBox&) override {
      if (++asked == 3) full.reset();
      return Answer::Yes;
    }
  } maker;
  Platform withRoom{*engine, *files, settings, maker, clock, environment, sound};
  maker.full = std::make_unique<FileLimit>(100'000);
  EcritDeg({state, withRoom, vue, vue, vue}, path, WriteMode::Rows);
  EXPECT_EQ(maker.asked, 3);
  EXPECT_EQ(LitFichier(path), expected);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(FullDisk, LinksAndModesSurviveARefusedSave) {
  fs::create_directory(folder.path() / "real");
  fs::rename(path, folder / "real/r.deg");
  fs::create_symlink("real/r.deg", path);
  ASSERT_EQ(chmod((folder / "real/r.deg").c_str(), 0640), 0);
  Ajoute({.period = 2, .latitude = 1, .longitude = 1});
  dialogues.answers = {Answer::No};
  {
    const FileLimit full(300);
    Ecrit();
  }
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(LitFichier(bak), whole);
  EXPECT_EQ(LitFichier(folder / "real/r.deg"), LignesEntieres(whole.substr(0, 300)));
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(FullDisk, ACutFileEndsBehindAWholeLineWhereverTheDiskFills) {
  AjouteBeaucoup();
  next = FichierNouveau();
  for (rlim_t limit = 100'000; limit < next.size(); limit += 33'333) {
    SCOPED_TRACE(limit);
    dialogues.answers = {Answer::No};
    {
      const FileLimit full(limit);
      Ecrit();
    }
    const std::string cut = LitFichier(path);
    EXPECT_EQ(cut, LignesEntieres(cut));
    EXPECT_EQ(next.substr(0, cut.size()), cut);
    EXPECT_GT(cut.size(), limit - 2100) << "no more is lost than a line";
  }
  EXPECT_FALSE(dialogues.boxes.empty());
}

/// Files on a disk where nothing can take its place any more, from a moment on.
class StuckDisk : public FullDisk {
 protected:
  class Stuck final : public OutputFile {
   public:
    explicit Stuck(std::function<void()> beforeFailure) : before_(std::move(beforeFailure)) {}
    void Ecrit(std::string_view) override {}
    void Remplace() override { Echoue(); }
    void RemplaceEnGardant(const std::string&) override { Echoue(); }
    void Coupe(std::string_view) override {}

   private:
    void Echoue() {
      before_();
      throw TalpenaError(ErrorNumber::DiskFull, "Disk full");
    }
    std::function<void()> before_;
  };

  class Files final : public FakeFiles {
   public:
    std::function<void()> before = [] {};
    std::unique_ptr<OutputFile> Cree(const std::string&) override {
      return std::make_unique<Stuck>(before);
    }
  } stuck;

  /// What the second box of a refused save says.
  std::string SecondeBoite() {
    Platform full{*engine, stuck, settings, dialogues, clock, environment, sound};
    dialogues.answers = {Answer::No};
    EcritDeg({state, full, vue, vue, vue}, "/d/a.deg", WriteMode::Rows);
    const std::vector<std::string> boxes = Boites();
    EXPECT_EQ(boxes.size(), 2U);
    return boxes.back();
  }
};

TEST_F(StuckDisk, TheSecondBoxSaysThatTheFormerFileStands) {
  stuck.Pose("/d/a.deg", "former");
  EXPECT_EQ(SecondeBoite(), "Error 61\nDisk full\nThe former file stands unchanged.");
}

TEST_F(StuckDisk, TheSecondBoxNamesTheBackupThatTheFormerFileHasBecome) {
  stuck.Pose("/d/a.deg", "former");
  stuck.before = [this] {
    if (stuck.Existe("/d/a.deg")) stuck.Renomme("/d/a.deg", "/d/a.BAK");
  };
  EXPECT_EQ(SecondeBoite(), "Error 61\nDisk full\nThe former file is now /d/a.BAK");
}

TEST_F(StuckDisk, TheSecondBoxSaysNothingOfAFileThatNeverWas) {
  EXPECT_EQ(SecondeBoite(), "Error 61\nDisk full");
}

/// Runs out of memory at the n-th call to the files of a save.
class NoMemory : public FullDisk {
 protected:
  struct Counter {
    int calls = 0;
    int last = 0;
    void Compte() {
      if (++calls == last) throw std::bad_alloc();
    }
  };
  class Output final : public OutputFile {
   public:
    Output(std::unique_ptr<OutputFile> file, Counter& counter)
        : file_(std::move(file)), counter_(counter) {}
    void Ecrit(std::string_view bytes) override {
      counter_.Compte();
      file_->Ecrit(bytes);
    }
    void Remplace() override {
      counter_.Compte();
      file_->Remplace();
    }
    void RemplaceEnGardant(const std::string& backup) override {
      counter_.Compte();
      file_->RemplaceEnGardant(backup);
    }
    void Coupe(std::string_view end) override { file_->Coupe(end); }

   private:
    std::unique_ptr<OutputFile> file_;
    Counter& counter_;
  };
  class Files final : public FileSystem {
   public:
    explicit Files(FileSystem& files) : files_(files) {}
    Counter counter;
    bool Existe(const std::string& p) override { return files_.Existe(p); }
    std::unique_ptr<InputFile> Ouvre(const std::string& p) override { return files_.Ouvre(p); }
    std::unique_ptr<OutputFile> Cree(const std::string& p) override {
      counter.Compte();
      return std::make_unique<Output>(files_.Cree(p), counter);
    }
    void Supprime(const std::string& p) override { files_.Supprime(p); }
    void Renomme(const std::string& a, const std::string& b) override { files_.Renomme(a, b); }
    void Double(const std::string& a, const std::string& b) override { files_.Double(a, b); }
    std::optional<FileStamp> Empreinte(const std::string& p) override {
      return files_.Empreinte(p);
    }

   private:
    FileSystem& files_;
  };
};

TEST_F(NoMemory, AtAnyStageOfASaveLeavesTheFileAsItWas) {
  Ajoute({.period = 2, .latitude = 1, .longitude = 1});
  for (int n = 1;; ++n) {
    ASSERT_LT(n, 1000);
    Files poor(*files);
    poor.counter.last = n;
    Platform machine{*engine, poor, settings, dialogues, clock, environment, sound};
    try {
      MnuEnregistrer_Click({state, machine, vue, vue, vue});
      EXPECT_GT(n, 30);
      break;
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(LitFichier(path), whole) << n;
      EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"}) << n;
      EXPECT_TRUE(state.document.FichierModifie());
    }
  }
  EXPECT_EQ(LitFichier(bak), whole);
}

}  // namespace
}  // namespace talpena::test
