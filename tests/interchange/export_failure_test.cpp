// Text exports that fail: the former file or the new one stands, never part of one without a word.
#include <functional>
#include <new>

#include "fakes/fake_files.h"
#include "fakes/file_limit.h"
#include "interchange/export_fixture.h"

namespace talpena::test {
namespace {

using Texts = std::vector<std::string>;

class ExportFailure : public TextExportTest {
 protected:
  ExportFailure() {
    state.ExportPeriod = 1;
    state.ExportFreeField = 1;
  }
  const std::string before = "\nThe file holds the rows before this one.";
};

struct NullCase {
  const char* column;
  void (*enleve)(Rangee& row);
};

// clang-format off
constexpr NullCase nullCases[] = {
    {"PERIOD",    [](Rangee& r) { r.period.reset(); }},
    {"LATITUDE",  [](Rangee& r) { r.latitude.reset(); }},
    {"LONGITUDE", [](Rangee& r) { r.longitude.reset(); }},
    {"N1",        [](Rangee& r) { r.n1.reset(); }},
    {"N2",        [](Rangee& r) { r.n2.reset(); }},
    {"DATUM",     [](Rangee& r) { r.datum.reset(); }},
    {"ORIGINAL",  [](Rangee& r) { r.original.reset(); }},
    {"DATE",      [](Rangee& r) { r.date.reset(); }},
    {"COMMENT",   [](Rangee& r) { r.comment.reset(); }},
};
// clang-format on

// Columns that are off are read too.
TEST_F(ExportFailure, ANullInAnyColumnButSexEndsItBehindTheLinesBefore) {
  state.Silence = false;
  SansColonnes();
  state.ExportSex = 1;
  Ajoute(Ligne());
  for (const NullCase& c : nullCases) {
    SCOPED_TRACE(c.column);
    Rangee row = Ligne();
    c.enleve(row);
    Ajoute(row);
    Ajoute(Ligne());
    dialogues.boxes.clear();
    sound.bips = 0;
    std::filesystem::remove(path);
    EXPECT_EQ(Exporte(), ",Sex\r\nM\r\n");
    EXPECT_EQ(Boites(),
              Texts{"Error 94\nRow 2 has no " + std::string(c.column) + "; fill it in." + before});
    EXPECT_EQ(sound.bips, 1);
    EXPECT_FALSE(vue.sablier);
    EXPECT_FALSE(vue.barre);
    EXPECT_EQ(folder.Noms(), Texts{"out.txt"});
    state.document.WorkingDb->Execute("DELETE FROM TALPENA WHERE Counter > 1");
    Relit();
  }
}

TEST_F(ExportFailure, ANullSexIsEmpty) {
  SansColonnes();
  state.ExportSex = state.ExportNumber1 = 1;
  Rangee row = Ligne();
  row.sex.reset();
  EXPECT_EQ(LignesDe(row), (Texts{",N1,Sex", "00007,"}));
}

TEST_F(ExportFailure, AFaultyRowReplacesTheFormerFileByTheLinesUntilThere) {
  EcritFichier(path, "former");
  dialogues.answers = {Answer::Yes};
  Ajoute(Ligne(1));
  Rangee row = Ligne(2);
  row.date.reset();
  Ajoute(row);
  EXPECT_EQ(Exporte(), ",Periode,Comment\r\n1,Mons/wood\r\n");
  EXPECT_EQ(dialogues.boxes.size(), 2U);
}

TEST_F(ExportFailure, ACharacterThatThePageLacksIsNamedWithItsRow) {
  Ajoute(Ligne(1));
  Rangee row = Ligne(2);
  row.comment = "L\u00F3d\u017A";
  Ajoute(row);
  EXPECT_EQ(Exporte(), ",Periode,Comment\r\n1,Mons/wood\r\n");
  EXPECT_EQ(Boites(), Texts{"Error 481\nRow 2, COMMENT: the character \"\u017A\" is not in code "
                            "page 1252." +
                            before});
}

TEST_F(ExportFailure, ACharacterInAColumnThatIsOffDoesNotMatter) {
  state.ExportFreeField = 0;
  Rangee row = Ligne();
  row.comment = "\u017A";
  EXPECT_EQ(LignesDe(row), (Texts{",Periode", "3"}));
}

// Beyond the pole the projection has no value.
TEST_F(ExportFailure, APointThatTheProjectionHasNoPlaceForIsNamedWithItsRow) {
  SansColonnes();
  state.ExportCoordSystem = 7;
  Rangee row = Ligne();
  row.latitude = 91;
  row.datum = "BEL72";
  Ajoute(row);
  EXPECT_EQ(Exporte(), "X,Y\r\n");
  EXPECT_EQ(Boites(), Texts{"Error 5\nRow 1: X, Y (Nothing can be computed from this value; check "
                            "the numbers and the coordinates.)" +
                            before});
}

TEST_F(ExportFailure, TellsUnknownDatumsBeforeTheFaultyRow) {
  state.ExportCoordSystem = 7;
  Rangee row = Ligne();
  row.datum = "QQQ";
  Ajoute(row);
  row.date.reset();
  Ajoute(row);
  Exporte();
  ASSERT_EQ(Boites().size(), 2U);
  EXPECT_NE(Boites()[0].find("QQQ"), std::string::npos);
  EXPECT_NE(Boites()[1].find("Row 2"), std::string::npos);
}

TEST_F(ExportFailure, WhoGivesUpKeepsTheFormerFile) {
  EcritFichier(path, "former");
  dialogues.answers = {Answer::Yes};
  for (int i = 0; i < 1000; ++i) Ajoute(Ligne());
  vue.abandonDans = 3;
  EXPECT_EQ(Exporte(), "former");
  EXPECT_EQ(dialogues.boxes.size(), 1U) << "the question alone";
  EXPECT_EQ(state.document.Montre().avis, "The former file stands unchanged.");
  EXPECT_EQ(folder.Noms(), Texts{"out.txt"});
  EXPECT_FALSE(vue.sablier);
}

TEST_F(ExportFailure, WhoGivesUpANewFileGetsNone) {
  for (int i = 0; i < 1000; ++i) Ajoute(Ligne());
  vue.abandonDans = 3;
  Exporte();
  EXPECT_EQ(state.document.Montre().avis, "No file was written.");
  EXPECT_TRUE(folder.Noms().empty());
}

class FullDiskExport : public ExportFailure {
 protected:
  FullDiskExport() {
    for (int i = 0; i < 30; ++i) Ajoute(Ligne());
    next = Exporte();
    std::filesystem::remove(path);
  }
  std::string next;  ///< the whole file
};

TEST_F(FullDiskExport, AtAnyStageLeavesTheFormerFile) {
  for (rlim_t limit = 0; limit < next.size(); limit += 23) {
    SCOPED_TRACE(limit);
    EcritFichier(path, "former");
    dialogues.answers = {Answer::Yes};
    dialogues.boxes.clear();
    {
      const FileLimit full(limit);
      Exporte();
    }
    EXPECT_EQ(LitFichier(path), "former");
    EXPECT_EQ(Boites().back(), "Error 61\nThe disk is full; make room on it and try again.\n" +
                                   path + "\nThe former file stands unchanged.");
    EXPECT_EQ(folder.Noms(), Texts{"out.txt"});
  }
}

TEST_F(FullDiskExport, AtAnyStageLeavesNoFileWhereThereWasNone) {
  for (rlim_t limit = 0; limit < next.size(); limit += 101) {
    dialogues.boxes.clear();
    {
      const FileLimit full(limit);
      Exporte();
    }
    EXPECT_EQ(Boites(), Texts{"Error 61\nThe disk is full; make room on it and try again.\n" +
                              path + "\nNo file was written."});
    EXPECT_TRUE(folder.Noms().empty());
  }
}

// The disk is full where the lines before a faulty row are to take their place.
TEST_F(FullDiskExport, BehindAFaultyRowLeavesTheFormerFileToo) {
  Rangee row = Ligne();
  row.date.reset();
  Ajoute(row);
  EcritFichier(path, "former");
  dialogues.answers = {Answer::Yes};
  {
    const FileLimit full(100);
    Exporte();
  }
  EXPECT_EQ(LitFichier(path), "former");
  EXPECT_EQ(Boites().back(), "Error 61\nThe disk is full; make room on it and try again.\n" + path +
                                 "\nThe former file stands unchanged.");
}

/// A disk on which the n-th call fails, and all behind it.
class FailingDisk final : public FileSystem {
 public:
  FailingDisk(FileSystem& files, int number) : files_(files), number_(number) {}
  int last = 0;  ///< the call that fails; 0 for none
  int calls = 0;

  bool Existe(const std::string& p) override { return files_.Existe(p); }
  std::unique_ptr<InputFile> Ouvre(const std::string& p) override { return files_.Ouvre(p); }
  std::unique_ptr<OutputFile> Cree(const std::string& p) override {
    Compte(p);
    return std::make_unique<Output>(*this, files_.Cree(p), p);
  }
  void Supprime(const std::string& p) override { files_.Supprime(p); }
  void Renomme(const std::string& a, const std::string& b) override { files_.Renomme(a, b); }
  void Double(const std::string& a, const std::string& b) override { files_.Double(a, b); }
  std::optional<FileStamp> Empreinte(const std::string& p) override { return files_.Empreinte(p); }

 private:
  class Output final : public OutputFile {
   public:
    Output(FailingDisk& disk, std::unique_ptr<OutputFile> file, std::string path)
        : disk_(disk), file_(std::move(file)), path_(std::move(path)) {}
    void Ecrit(std::string_view bytes) override {
      disk_.Compte(path_);
      file_->Ecrit(bytes);
    }
    void Remplace() override {
      disk_.Compte(path_);
      file_->Remplace();
    }
    void RemplaceEnGardant(const std::string&) override { ADD_FAILURE() << "no backup is wanted"; }
    void Coupe(std::string_view) override { ADD_FAILURE() << "nothing is cut"; }

   private:
    FailingDisk& disk_;
    std::unique_ptr<OutputFile> file_;
    std::string path_;
  };

  void Compte(const std::string& path) {
    if (++calls < last || last == 0) return;
    if (number_ == ErrorNumber::OutOfMemory) throw std::bad_alloc();
    throw TalpenaError(number_, "fault: " + path, {.about = {path}});
  }

  FileSystem& files_;
  int number_;
};

struct DiskCase {
  const char* name;
  int number;
  const char* words;
};

// clang-format off
constexpr DiskCase diskCases[] = {
    {"a medium that is gone", ErrorNumber::DeviceFault,
     "The disk or the device cannot be read or written; check it and try again."},
    {"a read-only folder", ErrorNumber::PermissionDenied, "Access is refused; the file or the folder"},
    {"a folder that is gone", ErrorNumber::PathNotFound, "The folder cannot be found; look whether"},
};
// clang-format on

TEST_F(ExportFailure, OfTheDiskAtEveryStageLeavesTheFormerFileAndSaysSo) {
  for (int i = 0; i < 5; ++i) Ajoute(Ligne());
  for (const DiskCase& c : diskCases) {
    for (const bool former : {true, false}) {
      int n = 1;
      for (bool failed = true; failed; ++n) {
        SCOPED_TRACE(std::string(c.name) + ", call " + std::to_string(n));
        std::filesystem::remove(path);
        if (former) EcritFichier(path, "former");
        if (former) dialogues.answers = {Answer::Yes};
        dialogues.boxes.clear();
        dialogues.paths = {path};
        FailingDisk disk(*files, c.number);
        disk.last = n;
        Platform machine{*engine, disk, settings, dialogues, clock, environment, sound};
        MnuExpAsciiMode({state, machine, vue, vue, vue}, *this, Commas);
        failed = disk.calls >= n;
        const Texts boxes = Boites();
        if (!failed) {
          EXPECT_EQ(Lignes(LitFichier(path)).size(), 6U);
          EXPECT_EQ(boxes.size(), former ? 1U : 0U);
          continue;
        }
        EXPECT_EQ(folder.Noms(), former ? Texts{"out.txt"} : Texts{});
        if (former) {
          EXPECT_EQ(LitFichier(path), "former");
        }
        ASSERT_FALSE(boxes.empty());
        EXPECT_TRUE(boxes.back().starts_with("Error " + std::to_string(c.number) + "\n" + c.words))
            << boxes.back();
        EXPECT_TRUE(boxes.back().ends_with(former ? "\nThe former file stands unchanged."
                                                  : "\nNo file was written."))
            << boxes.back();
        EXPECT_FALSE(vue.sablier);
      }
      EXPECT_EQ(n, 10) << "made, header, five lines, put in place, and once without a failure";
    }
  }
}

TEST_F(ExportFailure, OfMemoryAtEveryStageLeavesTheFormerFile) {
  EcritFichier(path, "former");
  for (int i = 0; i < 5; ++i) Ajoute(Ligne());
  for (int n = 1; n <= 8; ++n) {
    dialogues.answers = {Answer::Yes};
    dialogues.paths = {path};
    FailingDisk disk(*files, ErrorNumber::OutOfMemory);
    disk.last = n;
    Platform machine{*engine, disk, settings, dialogues, clock, environment, sound};
    EXPECT_THROW(MnuExpAsciiMode({state, machine, vue, vue, vue}, *this, Commas), std::bad_alloc);
    EXPECT_EQ(LitFichier(path), "former");
    EXPECT_EQ(folder.Noms(), Texts{"out.txt"});
    EXPECT_FALSE(vue.sablier);
  }
  EXPECT_EQ(dialogues.boxes.size(), 8U);
}

TEST_F(ExportFailure, AFolderOfThatNameStands) {
  std::filesystem::create_directory(path);
  dialogues.paths = {path};
  MnuExpAsciiMode(context, *this, Commas);
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Boites()[0].starts_with("Error 75\n")) << Boites()[0];
  EXPECT_TRUE(std::filesystem::is_directory(path));
}

// What is not there yet cannot be "not found".
TEST_F(ExportFailure, AFileThatCannotBeMadeNamesTheCause) {
  if (!std::filesystem::is_directory("/proc/self")) GTEST_SKIP() << "no /proc here";
  std::filesystem::create_symlink(folder / "gone/a.txt", folder / "link.txt");
  const std::pair<std::string, const char*> cases[] = {
      {"/proc/talpena.txt", "Error 75\nThis file or folder cannot be used here"},
      {folder / "gone/a.txt", "Error 76\nThe folder cannot be found"},
      {folder / "link.txt", "Error 76\nThe folder cannot be found"}};
  for (const auto& [asked, words] : cases) {
    dialogues.paths = {asked};
    dialogues.boxes.clear();
    MnuExpAsciiMode(context, *this, Commas);
    ASSERT_EQ(Boites().size(), 1U);
    EXPECT_TRUE(Boites()[0].starts_with(words)) << Boites()[0];
  }
}

/// Files one of which is write-protected.
class ProtectedFiles final : public FakeFiles {
 public:
  std::unique_ptr<OutputFile> CreeComme(const std::string& path, const NewFile& wanted) override {
    asked = wanted.memeProtege;
    return Cree(path);
  }
  bool EstProtege(const std::string& path) override { return Existe(path); }
  bool asked = false;
};

TEST_F(ExportFailure, AWriteProtectedFileIsAskedForOnceMore) {
  ProtectedFiles guarded;
  guarded.Pose("/d/a.txt", "former");
  Platform machine{*engine, guarded, settings, dialogues, clock, environment, sound};
  dialogues.paths = {"/d/a.txt", "/d/a.txt"};
  dialogues.answers = {Answer::Yes, Answer::No, Answer::Yes, Answer::Yes};
  MnuExpAsciiMode({state, machine, vue, vue, vue}, *this, Commas);
  EXPECT_EQ(guarded.Contenu("/d/a.txt"), ",Periode,Comment\r\n");
  EXPECT_TRUE(guarded.asked);
  EXPECT_EQ(dialogues.fileDialogs.size(), 2U);
  ASSERT_EQ(dialogues.boxes.size(), 4U);
  EXPECT_EQ(dialogues.boxes[1].text, "The file is write-protected. Replace it all the same?");
  EXPECT_EQ(dialogues.boxes[1].detail, "/d/a.txt");
}

}  // namespace
}  // namespace talpena::test
