// Working folders that people really have: where the rows of the run go, and what is left alone.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "fakes/temp_folder.h"
#include "fakes/tiny_disk.h"
#include "platform/os/file_system.h"
#include "platform/sqlite/sqlite_engine.h"
#include "shell/start_machine.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;
using namespace test;

constexpr uid_t nobody = 65534;
constexpr const char* base = "talpena_tmp.mdb";

/// Whom file permissions bind: the process is somebody without rights while this lives.
class SansDroits {
 public:
  SansDroits() : former_(geteuid()) {
    if (former_ == 0) EXPECT_EQ(seteuid(nobody), 0);
  }
  SansDroits(const SansDroits&) = delete;
  SansDroits& operator=(const SansDroits&) = delete;
  ~SansDroits() { EXPECT_EQ(seteuid(former_), 0); }

 private:
  uid_t former_;
};

/// Another program that holds a file for as long as it lives.
class AutreProgramme {
 public:
  explicit AutreProgramme(const std::function<bool()>& holds) {
    int ready[2];
    EXPECT_EQ(pipe(ready), 0);
    child_ = fork();
    if (child_ == 0) {
      const char answer = holds() ? 'y' : 'n';
      if (write(ready[1], &answer, 1) == 1) pause();
      _exit(1);
    }
    char answer = 0;
    EXPECT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    close(ready[0]);
    close(ready[1]);
  }
  AutreProgramme(const AutreProgramme&) = delete;
  AutreProgramme& operator=(const AutreProgramme&) = delete;
  ~AutreProgramme() {
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
  }

 private:
  pid_t child_ = -1;
};

/// A program that comes up as far as its working database, with real files and tables.
struct Demarrage {
  explicit Demarrage(const std::string& temp, const std::string& privateFolder) {
    shell.echecDe = "FondGrilleSysteme";  // the step behind
    environment.variables["TEMP"] = temp;
    environment.prive = privateFolder;
  }
  /// Number of the failure that ended the load.
  int Charge() {
    const auto failure = ChargeForm1(contexte, {});
    return failure ? failure->number() : 0;
  }

  JournalView vue;
  std::unique_ptr<TableEngine> engine = CreeMoteurSqlite();
  std::unique_ptr<FileSystem> files = CreeSystemeDeFichiers();
  FakeSettings settings;
  FakeDialogues dialogues;
  FakeClock clock;
  FakeEnvironment environment;
  FakeSound sound;
  Platform io{*engine, *files, settings, dialogues, clock, environment, sound};
  ProcessState state;
  JournalShell shell{vue.calls, state};
  ShellContext contexte{state, io, vue, vue, vue, shell};
};

constexpr int made = ErrorNumber::DeviceFault;  ///< what ended the load came behind the database

/// Where everything of a case lies. All of it belongs to whom the permissions bind.
struct Endroit {
  Endroit() {
    fs::create_directory(here());
    fs::create_directory(prive());
    fs::permissions(root.path(), fs::perms::all);
    for (const std::string& path : {here(), prive()}) Donne(path);
  }
  static void Donne(const std::string& path) {
    if (geteuid() == 0) EXPECT_EQ(lchown(path.c_str(), nobody, nobody), 0);
  }
  std::string here() const { return root / "temp"; }
  std::string prive() const { return root / "private"; }
  std::string operator/(const std::string& name) const { return here() + "/" + name; }
  /// A file of the user's own in the working folder.
  std::string Ecris(const std::string& name, const std::string& bytes) const {
    EcritFichier(*this / name, bytes);
    Donne(*this / name);
    return *this / name;
  }

  TempFolder root;
};

/// How the place looks that a case is about: what is there, and what it is.
std::string Aspect(const std::string& path) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) return "nothing";
  return std::to_string(status.st_ino) + " " + std::to_string(status.st_mode) + " " +
         std::to_string(status.st_uid) + " " + std::to_string(status.st_size);
}

using Prepare = std::string (*)(const Endroit&);  ///< gives TEMP

struct Cas {
  const char* name;
  Prepare prepare;
};

std::string MetLien(const std::string& to, const std::string& at) {
  EXPECT_EQ(symlink(to.c_str(), at.c_str()), 0);
  return at;
}

void MetSocket(const std::string& at) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  ASSERT_LT(at.size(), sizeof address.sun_path);
  std::memcpy(address.sun_path, at.c_str(), at.size());
  const int file = socket(AF_UNIX, SOCK_STREAM, 0);
  EXPECT_EQ(bind(file, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  close(file);
}

// clang-format off
const Cas useless[] = {
    {"missing", [](const Endroit& e) { return e / "none"; }},
    {"far from anything that is there", [](const Endroit& e) { return e / "a/b/c"; }},
    {"a file", [](const Endroit& e) { return e.Ecris("file", "x"); }},
    {"below a file", [](const Endroit& e) { return e.Ecris("file", "x") + "/below"; }},
    {"a device", [](const Endroit&) { return std::string("/dev/null"); }},
    {"of the system", [](const Endroit&) { return std::string("/proc"); }},
    {"a link to nowhere", [](const Endroit& e) { return MetLien(e / "none", e / "link"); }},
    {"a link to itself", [](const Endroit& e) { return MetLien(e / "link", e / "link"); }},
    {"a name too long for the system", [](const Endroit& e) { return e / std::string(300, 'x'); }},
    {"a path too long for the system",
     [](const Endroit& e) { std::string path = e.here(); for (int i = 0; i < 400; ++i) path += "/aaaaaaaaaaaa"; return path; }},
    {"a pipe", [](const Endroit& e) { EXPECT_EQ(mkfifo((e / "pipe").c_str(), 0600), 0); return e / "pipe"; }},
    {"that may be read only", [](const Endroit& e) { EXPECT_EQ(chmod(e.here().c_str(), 0500), 0); return e.here(); }},
    {"that may not be entered", [](const Endroit& e) { EXPECT_EQ(chmod(e.here().c_str(), 0600), 0); return e.here(); }},
    {"a bare word", [](const Endroit&) { return std::string("no such folder here"); }},
    {"a drive of another system", [](const Endroit&) { return std::string("C:\\TEMP\\talpena"); }},
};

// In each, what stands in the place of the working database is nobody's to delete.
const Cas occupied[] = {
    {"a folder", [](const Endroit& e) { fs::create_directory(e / base); Endroit::Donne(e / base); return e.here(); }},
    {"a pipe", [](const Endroit& e) { EXPECT_EQ(mkfifo((e / base).c_str(), 0600), 0); Endroit::Donne(e / base); return e.here(); }},
    {"a socket", [](const Endroit& e) { MetSocket(e / base); Endroit::Donne(e / base); return e.here(); }},
    {"a link to a file of the user's", [](const Endroit& e) { MetLien(e.Ecris("thesis.txt", "years of work"), e / base); Endroit::Donne(e / base); return e.here(); }},
    {"a link to nowhere", [](const Endroit& e) { MetLien(e / "none", e / base); Endroit::Donne(e / base); return e.here(); }},
    {"a link to a device", [](const Endroit& e) { MetLien("/dev/zero", e / base); Endroit::Donne(e / base); return e.here(); }},
};

const Cas usable[] = {
    {"empty", [](const Endroit& e) { return e.here(); }},
    {"with a separator behind", [](const Endroit& e) { return e.here() + "/"; }},
    {"reached by a link", [](const Endroit& e) { return MetLien(e.here(), e.root / "way"); }},
    {"with blanks and accents",
     [](const Endroit& e) { const std::string f = e / "été à Liège"; fs::create_directory(f); Endroit::Donne(f); return f; }},
    {"with what a crash left", [](const Endroit& e) { e.Ecris(base, "rows"); e.Ecris(std::string(base) + "-journal", "x"); return e.here(); }},
    {"with what a crash left, write-protected",
     [](const Endroit& e) { EXPECT_EQ(chmod(e.Ecris(base, "rows").c_str(), 0400), 0); return e.here(); }},
    {"with an empty file", [](const Endroit& e) { e.Ecris(base, ""); return e.here(); }},
};
// clang-format on

void VerifieRemplace(const Endroit& place, const std::string& temp) {
  const std::string before = Aspect(place / base);
  const SansDroits bound;
  Demarrage start(temp, place.prive());
  EXPECT_EQ(start.Charge(), made);
  EXPECT_EQ(start.state.WorkingDir, place.prive() + "/");
  EXPECT_TRUE(fs::exists(place.prive() + "/" + base));
  EXPECT_FALSE(start.state.DossierRefuse.empty());
  EXPECT_NE(TexteDossierRefuse(start.state), "");
  EXPECT_NE(DetailDossierRefuse(start.state).find(place.prive()), std::string::npos);
  EXPECT_TRUE(start.settings.written.empty()) << "for this run only";
  EXPECT_EQ(Aspect(place / base), before) << "what stood there stays";
}

TEST(WorkingFolder, OneThatIsNoUseGivesWayToThePrivateOne) {
  for (const Cas& c : useless) {
    SCOPED_TRACE(c.name);
    const Endroit place;
    VerifieRemplace(place, c.prepare(place));
  }
}

TEST(WorkingFolder, SomebodyElsesDatabaseIsLeftAlone) {
  for (const Cas& c : occupied) {
    SCOPED_TRACE(c.name);
    const Endroit place;
    VerifieRemplace(place, c.prepare(place));
    if (fs::exists(place / "thesis.txt")) {
      EXPECT_EQ(LitFichier(place / "thesis.txt"), "years of work");
    }
  }
}

TEST(WorkingFolder, AnotherUsersDatabaseIsLeftAlone) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make files of two users";
  for (const mode_t mode : {mode_t{0777}, mode_t{01777}}) {
    SCOPED_TRACE(mode);
    const Endroit place;
    EcritFichier(place / base, "another's rows");
    EXPECT_EQ(chmod(place.here().c_str(), mode), 0);
    VerifieRemplace(place, place.here());
    EXPECT_EQ(LitFichier(place / base), "another's rows");
  }
}

TEST(WorkingFolder, AnotherUsersJournalIsNotPlayedBack) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make files of two users";
  const Endroit place;
  EcritFichier(place / (std::string(base) + "-journal"), "another's");
  EXPECT_EQ(chmod(place.here().c_str(), 01777), 0);
  EXPECT_EQ(lchown(place.here().c_str(), 0, 0), 0);
  VerifieRemplace(place, place.here());
}

TEST(WorkingFolder, OneThatARunningProgramHoldsIsLeftAlone) {
  const Endroit place;
  const std::string path = place.Ecris(base, "its rows");
  {
    const AutreProgramme other([&] {
      const int file = open(path.c_str(), O_RDWR);
      return flock(file, LOCK_EX) == 0;
    });
    VerifieRemplace(place, place.here());
  }
  {
    const AutreProgramme other([&] {
      struct flock whole {};
      whole.l_type = F_WRLCK;
      return fcntl(open(path.c_str(), O_RDWR), F_SETLK, &whole) == 0;
    });
    VerifieRemplace(place, place.here());
  }
  {
    fs::remove(path);
    const AutreProgramme other([&] {
      auto* engine = CreeMoteurSqlite().release();  // open until the end of the process
      engine->CreateDatabase(path, {}).release()->CreateTable(
          {.name = "T", .fields = {{.name = "N", .type = FieldType::Long}}, .indexes = {}});
      Endroit::Donne(path);
      return true;
    });
    VerifieRemplace(place, place.here());
  }
  const SansDroits bound;
  Demarrage start(place.here(), place.prive());
  EXPECT_EQ(start.Charge(), made);
  EXPECT_EQ(start.state.WorkingDir, place.here() + "/") << "free again when that has ended";
}

TEST(WorkingFolder, AFullDiskGivesWay) {
  const TinyDisk disk("size=64k");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of our own: " << disk.Refus();
  const TempFolder privateFolder;
  for (fsblkcnt_t blocks = 0; blocks < 4; ++blocks) {
    SCOPED_TRACE(blocks);
    disk.LaisseLibres(blocks);
    Demarrage start(disk / "", privateFolder.path().string());
    EXPECT_EQ(start.Charge(), made);
    EXPECT_EQ(start.state.WorkingDir, privateFolder.path().string() + "/");
    EXPECT_EQ(disk.Noms(), (std::vector<std::string>{"filler"})) << "nothing half made is left";
  }
}

TEST(WorkingFolder, AUsableOneIsUsed) {
  for (const Cas& c : usable) {
    SCOPED_TRACE(c.name);
    const Endroit place;
    const std::string temp = c.prepare(place);
    const SansDroits bound;
    Demarrage start(temp, place.prive());
    EXPECT_EQ(start.Charge(), made);
    EXPECT_EQ(start.state.WorkingDir, temp.back() == '/' ? temp : temp + "/");
    EXPECT_EQ(TexteDossierRefuse(start.state), "");
    EXPECT_EQ(DetailDossierRefuse(start.state), "");
    struct stat status {};
    EXPECT_EQ(stat((temp + "/" + base).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, mode_t{0600});
  }
}

TEST(WorkingFolder, WhenNothingCanBeUsedTheLoadSaysWhy) {
  const Endroit place;
  for (const std::string& privateFolder : {place / "none", std::string()}) {
    SCOPED_TRACE(privateFolder);
    Demarrage start(place / "missing", privateFolder);
    start.settings.values["TALPENA/LANGUAGE/LANGUAGE"] = "0";
    const auto failure = ChargeForm1(start.contexte, {});
    ASSERT_TRUE(failure);
    EXPECT_TRUE(start.dialogues.boxes.empty()) << "while it loads there is no message";
    EXPECT_EQ(start.state.WorkingDir, place / "missing/") << "that of the folder chosen";
    DitArretDeCharge(start.contexte, *failure);
    ASSERT_EQ(start.dialogues.boxes.size(), 1U);
    EXPECT_EQ(
        start.dialogues.boxes[0].text,
        "Talpena ne peut pas démarrer, car aucun dossier n’accepte sa base de travail. Libérez "
        "de la place sur le disque, ou indiquez un dossier à vous dans la variable "
        "d’environnement TEMP, puis recommencez.\n\nError 76\nPath not found: '" +
            (place / "missing/") + base + "'.");
    EXPECT_EQ(start.dialogues.boxes[0].icon, Icon::Exclamation);
    EXPECT_FALSE(start.vue.sablier);
  }
}

}  // namespace
}  // namespace talpena
