// A save that is killed at any of its system calls leaves a whole file in its place, and nothing
// beside it behind the next start.
#include <unistd.h>

#include <functional>

#include "fakes/killed_child.h"
#include "store/save_fixture.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

constexpr int rowCount = 40;

/// One kind of save and what it may leave.
struct Scenario {
  std::function<void(const TempFolder&)> prepare;  ///< the disk before the save
  std::function<void(Monde&, const std::string& path)> save;
  bool refused = false;  ///< the user ends the save: only the old state is a good one
};

void Remplit(Monde& monde, int rows) {
  for (int i = 0; i < rows; ++i) {
    monde.Ajoute({.period = 1, .latitude = i, .longitude = i, .comment = std::string(9000, 'c')});
  }
}

std::string EtatAncien() {
  return "<TALPENA 2.0>\r\nthe state before\r\n" + std::string(9000, 'o');
}

/// What a save that nobody ends writes.
std::string EtatNouveau() {
  Monde monde;
  Remplit(monde, rowCount);
  const std::string path = monde.folder / "new.deg";
  EcritDeg(monde.context, path, WriteMode::Rows);
  return LitFichier(path);
}

void VideDossier(const TempFolder& folder) {
  for (const auto& entry : fs::directory_iterator(folder.path())) fs::remove_all(entry);
}

/// Files but those under the names that a user sees.
std::vector<std::string> Inconnus(const TempFolder& folder) {
  std::vector<std::string> unknown;
  for (const std::string& name : folder.Noms()) {
    if (name != "a.deg" && name != "a.BAK" && name != "real") unknown.push_back(name);
  }
  return unknown;
}

/// Kills the save at each stop in turn; the number of stops, or -1 where nothing can be traced.
int TueATousLesArrets(const Scenario& scenario, int step = 1) {
  const TempFolder folder;
  const std::string path = folder / "a.deg";
  const std::string before = EtatAncien();
  const std::string after = EtatNouveau();
  for (int n = 1; n < 100000; n += step) {
    VideDossier(folder);
    scenario.prepare(folder);
    const TempFolder childs;  // what a killed process leaves behind goes with it
    const End end = TueAuPassage(n, [&] {
      setenv("TMPDIR", childs.path().c_str(), 1);
      Monde monde;
      Remplit(monde, rowCount);
      if (scenario.refused) monde.Ajoute({.period = 1});
      monde.dialogues.answers = {Answer::No, Answer::No};
      monde.state.document.Fichier.NomFichier = path;
      ArreteToi();
      scenario.save(monde, path);
      _exit(0);
    });
    if (end == End::NotTraceable) return -1;
    EXPECT_NE(end, End::Lost) << "stop " << n;
    const std::string deg = LitFichier(path);
    const std::string bak = LitFichier(folder / "a.BAK");
    const auto good = [&](const std::string& bytes) {
      return bytes == before || (!scenario.refused && bytes == after);
    };
    EXPECT_TRUE(good(deg) || (scenario.refused && good(bak)))
        << "stop " << n << ": " << deg.size() << " bytes in .deg, " << bak.size() << " in .BAK";
    CreeSystemeDeFichiers()->SupprimeRestes(path);  // as the next start does
    EXPECT_EQ(Inconnus(folder), std::vector<std::string>{}) << "stop " << n;
    if (testing::Test::HasFailure()) return n;
    if (end == End::Completed) return n;
  }
  ADD_FAILURE() << "the save never ended";
  return 0;
}

void Verifie(const Scenario& scenario) {
  const int stops = TueATousLesArrets(scenario);
  if (stops < 0) GTEST_SKIP() << "processes cannot be traced here";
  EXPECT_GT(stops, 10);
}

void PoseDegEtBak(const TempFolder& folder) {
  EcritFichier(folder / "a.deg", EtatAncien());
  EcritFichier(folder / "a.BAK", "an older backup");
}

TEST(CrashSave, SaveWithItsBackup) {
  Verifie({.prepare = PoseDegEtBak,
           .save = [](Monde& monde, const std::string&) { MnuEnregistrer_Click(monde.context); }});
}

TEST(CrashSave, SaveWithoutABackupBefore) {
  Verifie({.prepare = [](const TempFolder& f) { EcritFichier(f / "a.deg", EtatAncien()); },
           .save = [](Monde& monde, const std::string&) { MnuEnregistrer_Click(monde.context); }});
}

TEST(CrashSave, SaveOverTheFileAlone) {
  Verifie({.prepare = PoseDegEtBak, .save = [](Monde& monde, const std::string& path) {
             EcritDeg(monde.context, path, WriteMode::Rows);
           }});
}

TEST(CrashSave, SaveThroughALink) {
  Verifie({.prepare =
               [](const TempFolder& f) {
                 fs::create_directory(f.path() / "real");
                 EcritFichier(f / "real/r.deg", EtatAncien());
                 fs::create_symlink("real/r.deg", f / "a.deg");
                 EcritFichier(f / "a.BAK", "an older backup");
               },
           .save = [](Monde& monde, const std::string&) { MnuEnregistrer_Click(monde.context); }});
}

TEST(CrashSave, SaveThroughALinkToAnotherFileSystem) {
  if (!fs::is_directory("/dev/shm")) GTEST_SKIP() << "no second file system here";
  const TempFolder there("/dev/shm");
  Verifie({.prepare =
               [&](const TempFolder& f) {
                 EcritFichier(there / "r.deg", EtatAncien());
                 fs::create_symlink(there / "r.deg", f / "a.deg");
                 EcritFichier(f / "a.BAK", "an older backup");
               },
           .save = [](Monde& monde, const std::string&) { MnuEnregistrer_Click(monde.context); }});
}

TEST(CrashSave, ARefusedSave) {
  Verifie({.prepare = PoseDegEtBak,
           .save = [](Monde& monde, const std::string&) { MnuEnregistrer_Click(monde.context); },
           .refused = true});
}

TEST(CrashSave, ARefusedSaveOverTheFileAlone) {
  Verifie({.prepare = PoseDegEtBak,
           .save = [](Monde& monde,
                      const std::string& path) { EcritDeg(monde.context, path, WriteMode::Rows); },
           .refused = true});
}

TEST(CrashSave, TwoRefusedSavesInARow) {
  Verifie({.prepare = PoseDegEtBak,
           .save =
               [](Monde& monde, const std::string& path) {
                 EcritDeg(monde.context, path, WriteMode::Rows);
                 MnuEnregistrer_Click(monde.context);
               },
           .refused = true});
}

}  // namespace
}  // namespace talpena::test
