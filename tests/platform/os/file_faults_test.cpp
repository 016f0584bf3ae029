// Faults and oddities that only the POSIX file system meets: full disks, links, owners, pipes.
#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <functional>

#include "common/talpena_error.h"
#include "fakes/file_limit.h"
#include "fakes/temp_folder.h"
#include "platform/os/file_system.h"
#include "platform/os/left_overs.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

const std::unique_ptr<FileSystem> files = CreeSystemeDeFichiersPosix();

std::string Echec(const std::function<void()>& body) {
  try {
    body();
  } catch (const TalpenaError& e) {
    return std::to_string(e.number()) + " " + e.description();
  }
  return {};
}

void Ecrit(const std::string& path, const std::string& bytes) {
  const auto out = files->Cree(path);
  out->Ecrit(bytes);
  out->Remplace();
}

struct stat Etat(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status;
}

TEST(FullDisk, IsAFailureAndNoSignal) {
  const TempFolder folder;
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  {
    const FileLimit limit(1000);
    EXPECT_EQ(Echec([&] { Ecrit(path, std::string(5000, 'x')); }), "61 Disk full: " + path);
  }
  EXPECT_EQ(LitFichier(path), "old");
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
}

TEST(FullDisk, LeavesNoSignalWaiting) {
  const TempFolder folder;
  {
    const FileLimit limit(0);
    EXPECT_NE(Echec([&] { Ecrit(folder / "a", "x"); }), "");
  }
  sigset_t pending;
  ASSERT_EQ(sigpending(&pending), 0);
  EXPECT_EQ(sigismember(&pending, SIGXFSZ), 0);
  sigset_t blocked;
  ASSERT_EQ(pthread_sigmask(SIG_SETMASK, nullptr, &blocked), 0);
  EXPECT_EQ(sigismember(&blocked, SIGXFSZ), 0);
}

TEST(FullDisk, LosesNothingOnceThereIsRoom) {
  const TempFolder folder;
  const std::string path = folder / "a.deg";
  std::string bytes;
  for (int i = 0; i < 200000; ++i) bytes += std::to_string(i) + '\n';
  const auto out = files->Cree(path);
  {
    const FileLimit limit(300'000);
    int failures = 0;
    for (std::size_t i = 0; i < bytes.size(); i += 100'000) {
      failures += Echec([&] { out->Ecrit(bytes.substr(i, 100'000)); }).empty() ? 0 : 1;
    }
    EXPECT_GT(failures, 5);
    EXPECT_NE(Echec([&] { out->Remplace(); }), "");
  }
  out->Remplace();
  EXPECT_EQ(LitFichier(path), bytes);
}

TEST(FullDisk, ACutFileTakesThePlaceWithWhatFitted) {
  const TempFolder folder;
  const std::string path = folder / "a.deg";
  const auto out = files->Cree(path);
  {
    const FileLimit limit(1000);
    EXPECT_NE(Echec([&] { out->Ecrit(std::string(500'000, 'x')); }), "");
    out->RemplaceTronque();
  }
  EXPECT_EQ(LitFichier(path), std::string(1000, 'x'));
}

TEST(FullDisk, TheDeviceThatIsAlwaysFullIsNoFile) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  EXPECT_EQ(Echec([] { files->Cree("/dev/full"); }),
            "75 Path/File access error: /dev/full, it is not an ordinary file");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(Pipes, AreRefusedWithoutWaiting) {
  const TempFolder folder;
  const std::string path = folder / "pipe";
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(Echec([&] { files->Ouvre(path); }),
            "75 Path/File access error: " + path + ", it is not an ordinary file");
  EXPECT_NE(Echec([&] { files->Cree(path); }), "");
  EXPECT_TRUE(fs::is_fifo(path));
}

TEST(Names, ThatNoFileCanHaveAreRefused) {
  const TempFolder folder;
  const std::string nul = folder / std::string("a\0b", 3);
  EXPECT_FALSE(files->Existe(nul));
  EXPECT_FALSE(files->Empreinte(nul).has_value());
  EXPECT_NE(Echec([&] { files->Ouvre(nul); }).find("75 "), std::string::npos);
  EXPECT_NE(Echec([&] { files->Cree(nul); }).find("75 "), std::string::npos);
  EXPECT_EQ(Echec([&] { files->Cree(""); }), "53 File not found: ");
  const std::string tooLong = folder / std::string(300, 'n');
  EXPECT_EQ(Echec([&] { files->Ouvre(tooLong); }),
            "75 Path/File access error: " + tooLong + ", the name is too long");
}

TEST(Links, ThatLeadInACircleAreRefused) {
  const TempFolder folder;
  const std::string path = folder / "a";
  fs::create_symlink("b", folder / "a");
  fs::create_symlink("a", folder / "b");
  const std::string expected =
      "75 Path/File access error: " + path + ", its links lead in a circle";
  EXPECT_EQ(Echec([&] { files->Cree(path); }), expected);
  EXPECT_EQ(Echec([&] { files->Ouvre(path); }), expected);
}

TEST(Links, AMissingTargetIsMadeAnew) {
  const TempFolder folder;
  fs::create_directory(folder.path() / "real");
  fs::create_symlink(folder / "real/a.deg", folder / "one");
  fs::create_symlink("one", folder / "two");
  Ecrit(folder / "two", "new");
  EXPECT_TRUE(fs::is_symlink(folder / "one"));
  EXPECT_TRUE(fs::is_symlink(folder / "two"));
  EXPECT_EQ(LitFichier(folder / "real/a.deg"), "new");
}

TEST(Links, ALeadingPathThroughALinkedFolderHolds) {
  const TempFolder folder;
  fs::create_directories(folder.path() / "deep/real");
  fs::create_symlink("deep/real", folder / "short");
  fs::create_symlink("../a.deg", folder / "deep/real/up.deg");
  Ecrit(folder / "short/up.deg", "new");
  EXPECT_EQ(LitFichier(folder / "deep/a.deg"), "new");
}

TEST(Renames, WorkBetweenFileSystems) {
  if (!fs::is_directory("/dev/shm")) GTEST_SKIP() << "no second file system here";
  const TempFolder here;
  const TempFolder there("/dev/shm");
  if (Etat(here.path().string()).st_dev == Etat(there.path().string()).st_dev) {
    GTEST_SKIP() << "no second file system here";
  }
  EcritFichier(here / "a.deg", "x");
  ASSERT_EQ(chmod((here / "a.deg").c_str(), 0604), 0);
  files->Renomme(here / "a.deg", there / "a.BAK");
  EXPECT_TRUE(here.Noms().empty());
  EXPECT_EQ(LitFichier(there / "a.BAK"), "x");
  EXPECT_EQ(Etat(there / "a.BAK").st_mode & 07777, 0604U);
}

TEST(Renames, ATooSmallDiskOverThereLosesNothing) {
  if (!fs::is_directory("/dev/shm")) GTEST_SKIP() << "no second file system here";
  const TempFolder here;
  const TempFolder there("/dev/shm");
  if (Etat(here.path().string()).st_dev == Etat(there.path().string()).st_dev) {
    GTEST_SKIP() << "no second file system here";
  }
  EcritFichier(here / "a.deg", std::string(5000, 'x'));
  {
    const FileLimit limit(1000);
    EXPECT_EQ(Echec([&] { files->Renomme(here / "a.deg", there / "a.BAK"); }),
              "61 Disk full: " + there / "a.BAK");
  }
  EXPECT_EQ(LitFichier(here / "a.deg").size(), 5000U);
  EXPECT_TRUE(there.Noms().empty());
}

// The old file under another name

TEST(Backups, StandBeforeTheNewFileDoes) {
  const TempFolder folder;
  EcritFichier(folder / "a.deg", "old");
  EcritFichier(folder / "a.BAK", "older");
  const ino_t former = Etat(folder / "a.deg").st_ino;
  const auto out = files->Cree(folder / "a.deg");
  out->Ecrit("new");
  out->RemplaceEnGardant(folder / "a.BAK");
  EXPECT_EQ(Etat(folder / "a.BAK").st_ino, former) << "moved, not copied";
  EXPECT_EQ(LitFichier(folder / "a.deg"), "new");
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.BAK", "a.deg"}));
}

TEST(Backups, OfAFileThatHasTwoNamesAlreadyAreMade) {
  const TempFolder folder;
  EcritFichier(folder / "a.deg", "old");
  fs::create_hard_link(folder / "a.deg", folder / "a.BAK");  // a save that was killed
  EXPECT_FALSE(files->MemeFichier(folder / "a.deg", folder / "a.BAK"));
  const auto out = files->Cree(folder / "a.deg");
  out->Ecrit("new");
  out->RemplaceEnGardant(folder / "a.BAK");
  EXPECT_EQ(LitFichier(folder / "a.BAK"), "old");
  EXPECT_EQ(LitFichier(folder / "a.deg"), "new");
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.BAK", "a.deg"}));
}

TEST(Backups, OtherNamesOfTheOldFileKeepIt) {
  const TempFolder folder;
  EcritFichier(folder / "a.deg", "old");
  fs::create_hard_link(folder / "a.deg", folder / "other.deg");
  const auto out = files->Cree(folder / "a.deg");
  out->Ecrit("new");
  out->RemplaceEnGardant(folder / "a.BAK");
  EXPECT_EQ(LitFichier(folder / "other.deg"), "old");
}

TEST(Backups, AreCopiesOnAnotherFileSystem) {
  if (!fs::is_directory("/dev/shm")) GTEST_SKIP() << "no second file system here";
  const TempFolder here;
  const TempFolder there("/dev/shm");
  EcritFichier(there / "r.deg", "old");
  ASSERT_EQ(chmod((there / "r.deg").c_str(), 0604), 0);
  fs::create_symlink(there / "r.deg", here / "a.deg");
  const auto out = files->Cree(here / "a.deg");
  out->Ecrit("new");
  out->RemplaceEnGardant(here / "a.BAK");
  EXPECT_TRUE(fs::is_symlink(here / "a.deg"));
  EXPECT_EQ(LitFichier(here / "a.BAK"), "old");
  EXPECT_EQ(Etat(here / "a.BAK").st_mode & 07777, 0604U);
  EXPECT_EQ(LitFichier(there / "r.deg"), "new");
  EXPECT_EQ(there.Noms(), std::vector<std::string>{"r.deg"});
}

TEST(Backups, AFolderInTheirPlaceIsInTheWay) {
  const TempFolder folder;
  EcritFichier(folder / "a.deg", "old");
  fs::create_directory(folder / "a.BAK");
  const std::string refusal = "58 File already exists: " + folder / "a.BAK";
  EXPECT_EQ(Echec([&] { files->VerifieGarde(folder / "a.deg", folder / "a.BAK"); }), refusal);
  const auto out = files->Cree(folder / "a.deg");
  EXPECT_EQ(Echec([&] { out->RemplaceEnGardant(folder / "a.BAK"); }), refusal);
  EXPECT_EQ(LitFichier(folder / "a.deg"), "old");
}

TEST(LeftOvers, ThatAreBeingWrittenStay) {
  const TempFolder folder;
  EcritFichier(folder / "a.deg", "old");
  const auto out = files->Cree(folder / "a.deg");
  out->Ecrit("new");
  files->SupprimeRestes(folder / "a.deg");
  EXPECT_EQ(folder.Noms().size(), 2U);
  out->Remplace();
  EXPECT_EQ(LitFichier(folder / "a.deg"), "new");
}

TEST(LeftOvers, ThatAreNoFilesStay) {
  const TempFolder folder;
  EcritFichier(folder / "a.deg", "old");
  ASSERT_EQ(mkfifo((folder / NomTemporaire("a.deg")).c_str(), 0600), 0);
  fs::create_directory(folder / NomTemporaire("a.deg"));
  fs::create_symlink("a.deg", folder / NomTemporaire("a.deg"));
  files->SupprimeRestes(folder / "a.deg");
  EXPECT_EQ(folder.Noms().size(), 4U);
}

TEST(Attributes, ANewFileMayTakeThoseOfAModel) {
  const TempFolder folder;
  EcritFichier(folder / "a.BAK", "old");
  ASSERT_EQ(chmod((folder / "a.BAK").c_str(), 0660), 0);
  const auto out = files->CreeComme(folder / "a.deg", {.modele = folder / "a.BAK"});
  out->Remplace();
  EXPECT_EQ(Etat(folder / "a.deg").st_mode & 07777, 0660U);
}

TEST(Attributes, TheTemporaryIsNotReadableBeforeItHasItsMode) {
  const TempFolder folder;
  EcritFichier(folder / "a.deg", "old");
  ASSERT_EQ(chmod((folder / "a.deg").c_str(), 0600), 0);
  const auto out = files->Cree(folder / "a.deg");
  for (const std::string& name : folder.Noms()) {
    EXPECT_EQ(Etat(folder / name).st_mode & 077, 0U) << name;
  }
}

// What only root can set up; the rest of the cases runs in a child that gave its rights away.
class AsNobody : public testing::Test {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "needs root to become another user";
    nobody_ = getpwnam("nobody");
    if (nobody_ == nullptr) GTEST_SKIP() << "there is no user called nobody";
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
  }

  /// What the body says in a process of the user "nobody", who is also in group `group`.
  std::string Dit(const std::function<std::string()>& body, gid_t group) const {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
      const bool changed =
          setgroups(1, &group) == 0 && setgid(nobody_->pw_gid) == 0 && setuid(nobody_->pw_uid) == 0;
      const std::string said = changed ? body() : "cannot become nobody";
      if (write(ends[1], said.data(), said.size()) < 0) _exit(1);
      _exit(0);
    }
    close(ends[1]);
    std::string said(4096, '\0');
    const ssize_t length = read(ends[0], said.data(), said.size());
    said.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return said;
  }
  std::string Dit(const std::function<std::string()>& body) const {
    return Dit(body, nobody_->pw_gid);
  }

  TempFolder folder;
  const passwd* nobody_ = nullptr;
};

TEST_F(AsNobody, AReadOnlyFolderIsSaidSo) {
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0666), 0);
  EXPECT_EQ(Dit([&] { return Echec([&] { Ecrit(path, "new"); }); }),
            "70 Permission denied: " + path);
  EXPECT_EQ(Dit([&] { return Echec([&] { files->Renomme(path, folder / "a.BAK"); }); }),
            "70 Permission denied: " + path);
  EXPECT_EQ(Dit([&] { return Echec([&] { files->Supprime(path); }); }),
            "70 Permission denied: " + path);
  EXPECT_EQ(LitFichier(path), "old");
}

TEST_F(AsNobody, AWriteProtectedFileIsNotReplaced) {
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0444), 0);
  ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
  EXPECT_EQ(Dit([&] { return Echec([&] { Ecrit(path, "new"); }); }),
            "70 Permission denied: " + path);
  EXPECT_EQ(LitFichier(path), "old");
}

TEST_F(AsNobody, AWriteProtectedFileIsReplacedWhereThatIsWanted) {
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0444), 0);
  ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
  EXPECT_EQ(Dit([&] { return files->EstProtege(path) ? "protected" : "free"; }), "protected");
  // Nobody may give a second name to a file of somebody else's: the names change in two steps.
  EXPECT_EQ(Dit([&] {
              return Echec([&] {
                const auto out = files->CreeComme(path, {.memeProtege = true});
                out->Ecrit("new");
                out->RemplaceEnGardant(folder / "a.BAK");
              });
            }),
            "");
  EXPECT_EQ(LitFichier(path), "new");
  EXPECT_EQ(LitFichier(folder / "a.BAK"), "old");
  EXPECT_EQ(Etat(path).st_mode & 07777, 0444U);
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.BAK", "a.deg"}));
}

TEST_F(AsNobody, AFolderThatTakesNoBackupIsSaidSo) {
  EcritFichier(folder / "a.deg", "old");
  ASSERT_EQ(chmod((folder / "a.deg").c_str(), 0666), 0);
  EXPECT_EQ(
      Dit([&] { return Echec([&] { files->VerifieGarde(folder / "a.deg", folder / "a.BAK"); }); }),
      "70 Permission denied: " + folder / "a.deg");
}

TEST_F(AsNobody, AnUnreadableFileIsSaidSo) {
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0600), 0);
  EXPECT_EQ(Dit([&] { return Echec([&] { files->Ouvre(path); }); }),
            "70 Permission denied: " + path);
}

TEST_F(AsNobody, AGroupIsKeptByItsMembers) {
  constexpr gid_t group = 12345;
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  ASSERT_EQ(chown(path.c_str(), 0, group), 0);
  ASSERT_EQ(chmod(path.c_str(), 0664), 0);
  ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
  EXPECT_EQ(Dit([&] { return Echec([&] { Ecrit(path, "new"); }); }, group), "");
  EXPECT_EQ(LitFichier(path), "new");
  EXPECT_EQ(Etat(path).st_gid, group);
  EXPECT_EQ(Etat(path).st_mode & 07777, 0664U);
}

TEST_F(AsNobody, NobodyGainsRightsWhenTheGroupIsLost) {
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  ASSERT_EQ(chown(path.c_str(), 0, 12345), 0);
  ASSERT_EQ(chmod(path.c_str(), 0662), 0);
  ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
  EXPECT_EQ(Dit([&] { return Echec([&] { Ecrit(path, "new"); }); }), "");
  EXPECT_EQ(Etat(path).st_mode & 07777, 0622U);
}

TEST_F(AsNobody, RootKeepsTheOwner) {
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  ASSERT_EQ(chown(path.c_str(), nobody_->pw_uid, nobody_->pw_gid), 0);
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  Ecrit(path, "new");
  EXPECT_EQ(Etat(path).st_uid, nobody_->pw_uid);
  EXPECT_EQ(Etat(path).st_gid, nobody_->pw_gid);
  EXPECT_EQ(Etat(path).st_mode & 07777, 0640U);
}

}  // namespace
}  // namespace talpena::test
