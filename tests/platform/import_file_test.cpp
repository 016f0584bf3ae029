// The bytes of files that are imported: characters, end, changes while they are read.
#include "platform/import_file.h"

#include <gtest/gtest.h>

#include "common/msg_id_errors.h"
#include "fakes/fake_files.h"
#include "fakes/import_texts.h"
#include "fakes/temp_folder.h"
#include "platform/os/file_system.h"

namespace talpena {
namespace {

using test::FauteDe;
using test::TextInput;

std::string ToutLire(InputFile& file, std::size_t room = 7) {
  std::string all, buffer(room, '\0');
  while (const std::size_t count = file.Lit(buffer)) all.append(buffer, 0, count);
  return all;
}

struct EncodingCase {
  const char* name;
  std::string bytes;
  Encodage expected;
  std::string read;  ///< without mark and end
};

// clang-format off
const EncodingCase encodingCases[] = {
    {"empty", "", Encodage::Cp1252, ""},
    {"plain", "1,2\r\n", Encodage::Cp1252, "1,2\r\n"},
    {"mark alone", "\xEF\xBB\xBF", Encodage::Utf8, ""},
    {"mark and plain text", "\xEF\xBB\xBF" "1,2", Encodage::Utf8, "1,2"},
    {"mark and bytes that are no UTF-8", "\xEF\xBB\xBF" "\xE9", Encodage::Utf8, "\xE9"},
    {"accent in UTF-8", "\xC3\xA9", Encodage::Utf8, "\xC3\xA9"},
    {"accent in the code page", "\xE9t\xE9", Encodage::Cp1252, "\xE9t\xE9"},
    {"both", "\xC3\xA9\xE9", Encodage::Cp1252, "\xC3\xA9\xE9"},
    {"cut at its end", "\xC3\xA9\xC3", Encodage::Cp1252, "\xC3\xA9\xC3"},
    {"half a mark", "\xEF\xBB", Encodage::Cp1252, "\xEF\xBB"},
    {"a character that begins as the mark", "\xEF\xBB\xA9", Encodage::Utf8, "\xEF\xBB\xA9"},
    {"four bytes", "\xF0\x9F\xA6\x94", Encodage::Utf8, "\xF0\x9F\xA6\x94"},
    {"what stands behind 1A is not looked at", "\xC3\xA9\x1A\xE9", Encodage::Utf8, "\xC3\xA9"},
    {"nothing before 1A", "\x1A\xC3\xA9", Encodage::Cp1252, ""},
    {"NUL", std::string("a\0\xC3\xA9", 4), Encodage::Utf8, std::string("a\0\xC3\xA9", 4)},
};
// clang-format on

TEST(ImportFile, KnowsTheCharactersAndEndsAt1A) {
  for (const EncodingCase& c : encodingCases) {
    for (const std::size_t block : {1U, 2U, 3U, 1000U}) {
      SCOPED_TRACE(c.name + (" " + std::to_string(block)));
      ImportFile file = test::Fichier(c.bytes, block);
      EXPECT_EQ(file.encodage, c.expected);
      EXPECT_EQ(ToutLire(*file.file), c.read);
    }
  }
}

TEST(ImportFile, CharactersAcrossBlocksAreWhole) {
  for (std::size_t before = (32 << 10) - 5; before < (32 << 10) + 3; ++before) {
    const std::string text = std::string(before, 'x') + "\xF0\x9F\xA6\x94 end";
    EXPECT_EQ(test::Fichier(text).encodage, Encodage::Utf8) << before;
    EXPECT_EQ(test::Fichier(text + "\xE9").encodage, Encodage::Cp1252) << before;
  }
}

TEST(ImportFile, TheSearchCanBeSliced) {
  const std::string text = std::string(200 << 10, 'x') + "\xC3\xA9";
  EncodageCherche search(std::make_unique<TextInput>(text));
  int slices = 1;
  while (search.Avance(16 << 10)) ++slices;
  EXPECT_GT(slices, 5);
  EXPECT_EQ(search.Resultat(), Encodage::Utf8);
  EXPECT_FALSE(search.Avance(1));
}

TEST(ImportFile, BytesOfAnUtf8FileThatAreNoneAreReadAsCodePage1252) {
  std::string kept;
  EXPECT_EQ(TexteImporte("\xC3\xA9", Encodage::Utf8, kept), "\xC3\xA9");
  EXPECT_EQ(TexteImporte("\xE9", Encodage::Utf8, kept), "\xC3\xA9");
  EXPECT_EQ(TexteImporte("\xC3\xA9", Encodage::Cp1252, kept), "\xC3\x83\xC2\xA9");
  EXPECT_EQ(TexteImporte("plain", Encodage::Cp1252, kept), "plain");
}

TEST(ImportFile, AFileThatChangesBetweenTwoBlocksIsRefused) {
  test::FakeFiles files;
  files.bloc = 4;
  files.Pose("/list.txt", "1,2,3,4,5,6");
  ImportFile file = OuvreImport(files, "/list.txt");
  std::string buffer(4, '\0');
  EXPECT_EQ(file.file->Lit(buffer), 4U);
  files.Pose("/list.txt", "1,2,3,4,5,7");
  EXPECT_EQ(FauteDe([&] { file.file->Lit(buffer); }),
            (test::Faute{ErrorNumber::PathFileAccess, 0, MsgId::FichierChangeEnLecture, {}}));
}

TEST(ImportFile, AFileThatIsGoneOrReplacedIsReadAsItWas) {
  const auto os = CreeSystemeDeFichiers();
  test::TempFolder folder;
  const std::string path = folder / "list.txt", other = folder / "other.txt";
  test::EcritFichier(path, "1,2,3\r\n");
  ImportFile file = OuvreImport(*os, path);
  std::filesystem::remove(path);
  test::EcritFichier(path, "something longer than before\r\n");
  EXPECT_EQ(ToutLire(*file.file), "1,2,3\r\n");
}

TEST(ImportFile, WhatIsNoFileIsRefused) {
  const auto os = CreeSystemeDeFichiers();
  test::TempFolder folder;
  EXPECT_EQ(FauteDe([&] { OuvreImport(*os, folder / "none.txt"); }).number,
            ErrorNumber::FileNotFound);
  EXPECT_EQ(FauteDe([&] { OuvreImport(*os, folder.path().string()); }).number,
            ErrorNumber::PathFileAccess);
  EXPECT_NE(FauteDe([&] { OuvreImport(*os, "/dev/zero"); }).number, 0);
}

}  // namespace
}  // namespace talpena
