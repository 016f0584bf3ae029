// What both file systems promise.
#include "platform/os/file_system.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <functional>

#include "common/talpena_error.h"
#include "fakes/temp_folder.h"
#include "platform/os/left_overs.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

struct Kind {
  const char* name;
  std::unique_ptr<FileSystem> (*make)();
};

class FileSystemTest : public testing::TestWithParam<Kind> {
 protected:
  std::unique_ptr<FileSystem> files = GetParam().make();
  TempFolder folder;

  void Ecrit(const std::string& path, const std::string& bytes) {
    const auto out = files->Cree(path);
    out->Ecrit(bytes);
    out->Remplace();
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, FileSystemTest,
                         testing::Values(Kind{"Posix", CreeSystemeDeFichiersPosix},
                                         Kind{"Portable", CreeSystemeDeFichiersPortable}),
                         [](const auto& kind) { return kind.param.name; });

/// The number of the failure, with its description checked to name the path.
int Echec(const std::string& path, const std::function<void()>& body) {
  try {
    body();
  } catch (const TalpenaError& e) {
    EXPECT_NE(e.description().find(path), std::string::npos) << e.description();
    return e.number();
  }
  return 0;
}

TEST_P(FileSystemTest, ReadsBackWhatItWrote) {
  const std::string path = folder / "a.deg";
  Ecrit(path, "one\r\ntwo");
  const auto in = files->Ouvre(path);
  EXPECT_EQ(in->Taille(), 8);
  std::array<char, 5> block{};
  EXPECT_EQ(in->Lit(block), 5U);
  EXPECT_EQ(std::string(block.data(), 5), "one\r\n");
  EXPECT_EQ(in->Lit(block), 3U);
  EXPECT_EQ(in->Lit(block), 0U);
}

TEST_P(FileSystemTest, KeepsBytesOfManyBlocksInOrder) {
  std::string bytes;
  for (int i = 0; i < 300000; ++i) bytes += std::to_string(i);
  const std::string path = folder / "long";
  const auto out = files->Cree(path);
  for (std::size_t i = 0; i < bytes.size(); i += 777) out->Ecrit(bytes.substr(i, 777));
  out->Remplace();
  EXPECT_EQ(LitFichier(path), bytes);
}

TEST_P(FileSystemTest, LeavesTheOldFileUntilItIsReplaced) {
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  const auto out = files->Cree(path);
  out->Ecrit(std::string(1'000'000, 'x'));
  EXPECT_EQ(LitFichier(path), "old");
  out->Remplace();
  EXPECT_EQ(LitFichier(path).size(), 1'000'000U);
}

TEST_P(FileSystemTest, LeavesNothingBehindWhenDropped) {
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  files->Cree(path)->Ecrit(std::string(1'000'000, 'x'));
  EXPECT_EQ(LitFichier(path), "old");
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
}

TEST_P(FileSystemTest, CallsItsTemporariesByARecognisableName) {
  const auto out = files->Cree(folder / "a.deg");
  const auto names = folder.Noms();
  ASSERT_EQ(names.size(), 1U);
  EXPECT_EQ(names[0].rfind(".talpena-", 0), 0U);
  EXPECT_EQ(fs::path(names[0]).extension(), ".tmp");
}

TEST_P(FileSystemTest, WritesAnEmptyFile) {
  Ecrit(folder / "empty", "");
  EXPECT_EQ(LitFichier(folder / "empty"), "");
}

TEST_P(FileSystemTest, KeepsTheModeOfTheOldFile) {
  const std::string path = folder / "a.deg";
  EcritFichier(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  Ecrit(path, "new");
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_P(FileSystemTest, GivesANewFileTheUsersMode) {
  const mode_t former = umask(027);
  Ecrit(folder / "a.deg", "new");
  umask(former);
  struct stat status {};
  ASSERT_EQ(stat((folder / "a.deg").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_P(FileSystemTest, ReplacesTheTargetOfALink) {
  fs::create_directory(folder.path() / "real");
  EcritFichier(folder / "real/a.deg", "old");
  fs::create_symlink("real/a.deg", folder / "link.deg");
  Ecrit(folder / "link.deg", "new");
  EXPECT_TRUE(fs::is_symlink(folder / "link.deg"));
  EXPECT_EQ(LitFichier(folder / "real/a.deg"), "new");
}

TEST_P(FileSystemTest, FindsFilesButNotFolders) {
  EcritFichier(folder / "a.deg", "");
  fs::create_directory(folder.path() / "sub");
  EXPECT_TRUE(files->Existe(folder / "a.deg"));
  EXPECT_FALSE(files->Existe(folder / "sub"));
  EXPECT_FALSE(files->Existe(folder / "none"));
  EXPECT_FALSE(files->Existe(""));
}

TEST_P(FileSystemTest, KnowsAMissingFileFromAMissingFolder) {
  for (const auto& [name, number] : {std::pair{"none.deg", ErrorNumber::FileNotFound},
                                     std::pair{"none/a.deg", ErrorNumber::PathNotFound}}) {
    SCOPED_TRACE(name);
    const std::string path = folder / name;
    EXPECT_EQ(Echec(path, [&] { files->Ouvre(path); }), number);
    EXPECT_EQ(Echec(path, [&] { files->Supprime(path); }), number);
    EXPECT_EQ(Echec(path, [&] { files->Renomme(path, folder / "b"); }), number);
  }
  const std::string path = folder / "none/a.deg";
  EXPECT_EQ(Echec(path, [&] { files->Cree(path); }), ErrorNumber::PathNotFound);
}

TEST_P(FileSystemTest, RefusesFolders) {
  const std::string path = folder / "sub";
  fs::create_directory(path);
  EXPECT_EQ(Echec(path, [&] { files->Ouvre(path); }), ErrorNumber::PathFileAccess);
  EXPECT_EQ(Echec(path, [&] { files->Cree(path); }), ErrorNumber::PathFileAccess);
  EXPECT_EQ(Echec(path, [&] { files->Supprime(path); }), ErrorNumber::PathFileAccess);
  EXPECT_EQ(Echec(path, [&] { files->Renomme(path, folder / "b"); }), ErrorNumber::PathFileAccess);
  EXPECT_TRUE(fs::is_directory(path));
}

TEST_P(FileSystemTest, DeletesAFile) {
  EcritFichier(folder / "a.deg", "x");
  files->Supprime(folder / "a.deg");
  EXPECT_TRUE(folder.Noms().empty());
}

TEST_P(FileSystemTest, Renames) {
  EcritFichier(folder / "a.deg", "x");
  files->Renomme(folder / "a.deg", folder / "a.BAK");
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.BAK"});
  EXPECT_EQ(LitFichier(folder / "a.BAK"), "x");
}

TEST_P(FileSystemTest, NeverRenamesOverAFile) {
  EcritFichier(folder / "a", "x");
  EcritFichier(folder / "b", "y");
  EXPECT_EQ(Echec(folder / "b", [&] { files->Renomme(folder / "a", folder / "b"); }),
            ErrorNumber::FileExists);
  EXPECT_EQ(LitFichier(folder / "b"), "y");
}

TEST_P(FileSystemTest, RenamingALinkMovesItsContents) {
  fs::create_directory(folder.path() / "real");
  EcritFichier(folder / "real/a.deg", "old");
  fs::create_symlink("real/a.deg", folder / "link.deg");
  files->Renomme(folder / "link.deg", folder / "link.BAK");
  EXPECT_FALSE(fs::is_symlink(folder / "link.BAK"));
  EXPECT_EQ(LitFichier(folder / "link.BAK"), "old");
  EXPECT_FALSE(fs::exists(folder / "real/a.deg"));
  EXPECT_TRUE(fs::is_symlink(folder / "link.deg"));
}

TEST_P(FileSystemTest, StampsTellChangesApart) {
  const std::string path = folder / "a.deg";
  EXPECT_FALSE(files->Empreinte(path).has_value());
  EcritFichier(path, "one");
  const auto first = files->Empreinte(path);
  ASSERT_TRUE(first.has_value());
  EXPECT_EQ(first, files->Empreinte(path));
  EXPECT_EQ(first->size, 3);
  fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(1));
  EXPECT_NE(first, files->Empreinte(path));
  Ecrit(path, "longer");
  EXPECT_NE(first, files->Empreinte(path));
}

TEST_P(FileSystemTest, PathsMayHoldAnyCharacter) {
  const std::string path = folder / "Caméléon \xE2\x82\xAC 100%.deg";
  Ecrit(path, "x");
  EXPECT_TRUE(files->Existe(path));
  EXPECT_EQ(LitFichier(path), "x");
}

// The old file under another name, and left-overs

TEST_P(FileSystemTest, KeepsTheOldFileUnderTheNameOfABackup) {
  EcritFichier(folder / "a.deg", "old");
  EcritFichier(folder / "a.BAK", "older");
  const auto out = files->Cree(folder / "a.deg");
  out->Ecrit("new");
  out->RemplaceEnGardant(folder / "a.BAK");
  EXPECT_EQ(LitFichier(folder / "a.deg"), "new");
  EXPECT_EQ(LitFichier(folder / "a.BAK"), "old");
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.BAK", "a.deg"}));
}

TEST_P(FileSystemTest, LeavesTheBackupWhereThereIsNoOldFile) {
  EcritFichier(folder / "a.BAK", "older");
  const auto out = files->Cree(folder / "a.deg");
  out->Ecrit("new");
  out->RemplaceEnGardant(folder / "a.BAK");
  EXPECT_EQ(LitFichier(folder / "a.deg"), "new");
  EXPECT_EQ(LitFichier(folder / "a.BAK"), "older");
}

TEST_P(FileSystemTest, CutsBehindTheLastLineEnd) {
  // The blocks of the writer hold 256 kB: the end lies before, across and behind their border.
  for (const std::size_t length : {std::size_t{5}, std::size_t{262142}, std::size_t{262143},
                                   std::size_t{262144}, std::size_t{700000}}) {
    for (const std::size_t rest : {std::size_t{0}, std::size_t{7}, std::size_t{600000}}) {
      SCOPED_TRACE(std::to_string(length) + " + " + std::to_string(rest));
      const auto out = files->Cree(folder / "a.deg");
      out->Ecrit("one\r\n" + std::string(length, 'x') + "\r\n" + std::string(rest, 'y'));
      out->Coupe("\r\n");
      out->Remplace();
      EXPECT_EQ(LitFichier(folder / "a.deg").size(), length + 7);
    }
  }
}

TEST_P(FileSystemTest, CutsAllOfATextWithoutALineEnd) {
  const auto out = files->Cree(folder / "a.deg");
  out->Ecrit(std::string(600000, 'x'));
  out->Coupe("\r\n");
  out->Remplace();
  EXPECT_EQ(LitFichier(folder / "a.deg"), "");
}

TEST_P(FileSystemTest, DoublesAFileButNeverOverAnother) {
  EcritFichier(folder / "a.deg", "old");
  files->Double(folder / "a.deg", folder / "copy.deg");
  EcritFichier(folder / "a.deg", "new");
  EXPECT_EQ(LitFichier(folder / "copy.deg"), "old");
  EXPECT_EQ(
      Echec(folder / "copy.deg", [&] { files->Double(folder / "a.deg", folder / "copy.deg"); }),
      ErrorNumber::FileExists);
}

TEST_P(FileSystemTest, RemovesLeftOversOfFilesThatStand) {
  EcritFichier(folder / "a.deg", "old");
  EcritFichier(folder / NomTemporaire("a.deg"), "half");
  EcritFichier(folder / NomEntier(NomTemporaire("a.deg")), "whole");
  files->SupprimeRestes(folder / "a.deg");
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
}

TEST_P(FileSystemTest, KeepsLeftOversOfAFileThatIsGone) {
  const std::string name = NomTemporaire("gone.deg");
  EcritFichier(folder / name, "half");
  files->SupprimeRestes(folder / "a.deg");
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{name});
  ASSERT_EQ(files->Restes(folder / "gone.deg").size(), 1U);
  EXPECT_EQ(files->Restes(folder / "gone.deg")[0].path, folder / name);
  EXPECT_TRUE(files->Restes(folder / "a.deg").empty());
}

TEST_P(FileSystemTest, KeepsWhatOthersMadeUnderSimilarNames) {
  std::string othersMachine = NomTemporaire("a.deg");
  othersMachine[9] = othersMachine[9] == '0' ? '1' : '0';
  std::vector<std::string> names = {".talpena-.tmp", ".talpena-0123456789abcdef.tmp",
                                    ".talpena-notes.tmp", "a.deg", othersMachine};
  for (const std::string& name : names) EcritFichier(folder / name, "theirs");
  files->SupprimeRestes(folder / "a.deg");
  std::sort(names.begin(), names.end());
  EXPECT_EQ(folder.Noms(), names);
}

}  // namespace
}  // namespace talpena::test
