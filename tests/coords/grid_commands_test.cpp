#include "coords/grid_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "common/talpena_error.h"
#include "coords/mif_files.h"
#include "fakes/fake_machine.h"
#include "fakes/fake_view.h"
#include "platform/commands.h"
#include "test_catalogue.h"

namespace talpena {
namespace {

/// A fresh machine with the catalogue loaded.
struct World : test::FakeMachine {
  CoordState state;
  test::FakeView vue;

  World() { state.Catalogue = test::CatalogueDesSources(); }

  /// The user picks the folder "/maps".
  void ChoisitDossier() { dialogues.paths = {"/maps"}; }

  /// Takes a datum out of the catalogue.
  void Efface(const std::string& code) {
    state.Catalogue.Datums[static_cast<std::size_t>(ChercheDatum(state.Catalogue, code) - 1)].code =
        "?    ";
  }

  std::string DernierMessage() const {
    return dialogues.boxes.empty() ? "" : dialogues.boxes.back().text;
  }
};

std::size_t Lignes(const std::string& bytes) {
  return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
}

TEST(GridCommands, GridMenuWritesIfblPrnAndSaysTermine) {
  World w;
  w.ChoisitDossier();
  mnuGrid_Click(w.state, w.io);
  EXPECT_EQ(Lignes(w.files.Contenu("/maps/IFBL.PRN")), 2644U);
  EXPECT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_EQ(w.DernierMessage(), "Terminé");
  EXPECT_EQ(w.sound.bips, 1);
  EXPECT_TRUE(w.dialogues.paths.empty());
}

TEST(GridCommands, MeshCommandWritesIfblPrnAndSaysTraitementTermine) {
  World w;
  w.ChoisitDossier();
  CreationIFBLGrid(w.state, w.io);
  EXPECT_EQ(Lignes(w.files.Contenu("/maps/ifbl.prn")), 41746U);
  EXPECT_EQ(w.DernierMessage(), "traitement terminé");
}

TEST(GridCommands, PolygonCommandWritesThreePairs) {
  World w;
  w.ChoisitDossier();
  CreationIFBLGridPolygon(w.state, w.io);
  EXPECT_EQ(Lignes(w.files.Contenu("/maps/ifbl01x01.mif")), 7U + 3 * 77361);
  EXPECT_EQ(Lignes(w.files.Contenu("/maps/ifbl01x01.mid")), 77361U);
  EXPECT_EQ(Lignes(w.files.Contenu("/maps/ifbl04x04.mif")), 7U + 3 * 4800);
  EXPECT_EQ(Lignes(w.files.Contenu("/maps/ifbl04x04.mid")), 4800U);
  EXPECT_EQ(Lignes(w.files.Contenu("/maps/ifbl32x20.mif")), 7U + 3 * 120);
  EXPECT_EQ(Lignes(w.files.Contenu("/maps/ifbl32x20.mid")), 120U);
  EXPECT_EQ(w.DernierMessage(), "traitement terminé");
}

TEST(GridCommands, KeepQuietUnderSilence) {
  World w;
  w.ChoisitDossier();
  w.state.Silence = true;
  mnuGrid_Click(w.state, w.io);
  EXPECT_EQ(w.DernierMessage(), "Terminé");
  EXPECT_EQ(w.sound.bips, 0);
}

using Command = void (*)(CoordState&, Platform&);
struct FolderCommand {
  const char* name;
  Command command;
  const char* file;
};
constexpr FolderCommand FolderCommands[] = {
    {"mnuGrid", mnuGrid_Click, "/maps/IFBL.PRN"},
    {"CreationIFBLGrid", CreationIFBLGrid, "/maps/ifbl.prn"},
    {"CreationIFBLGridPolygon", CreationIFBLGridPolygon, "/maps/ifbl01x01.mif"},
};

TEST(GridCommands, TheQuestionForTheFolderSaysWhatIsWrittenThere) {
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    for (const FolderCommand& c : FolderCommands) {
      SCOPED_TRACE(std::string(c.name) + ", " + std::to_string(langue));
      World w;
      w.state.Langue = static_cast<std::int16_t>(langue);
      w.ChoisitDossier();
      c.command(w.state, w.io);
      EXPECT_FALSE(w.DernierMessage().empty());
      const std::string title = w.dialogues.fileDialogs.at(0).title;
      const std::string file = std::string(c.file).substr(6, 9);  // "/maps/" is before it
      EXPECT_NE(title.find(file.substr(0, file.find('.'))), std::string::npos) << title;
      EXPECT_NE(title.find("IFBL"), std::string::npos) << title;
      EXPECT_NE(title.find(' '), std::string::npos) << "a question, no bare name: " << title;
    }
  }
}

TEST(GridCommands, EndSilentlyWhenNoFolderIsChosen) {
  for (const FolderCommand& c : FolderCommands) {
    SCOPED_TRACE(c.name);
    World w;
    w.dialogues.paths = {""};
    ExecuteCommande(w.state, w.io, "", [&] { c.command(w.state, w.io); });
    EXPECT_TRUE(w.files.journal.empty());
    EXPECT_TRUE(w.dialogues.boxes.empty());
  }
}

TEST(GridCommands, LeaveTheFormerFileWhenTheDiskIsFull) {
  for (const FolderCommand& c : FolderCommands) {
    SCOPED_TRACE(c.name);
    World w;
    w.ChoisitDossier();
    w.files.Pose(c.file, "former");
    w.files.ecritureJusqua = 10000;
    try {
      c.command(w.state, w.io);
      ADD_FAILURE() << "nothing was thrown";
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::DiskFull);
    }
    EXPECT_EQ(w.files.Contenu(c.file), "former");
    EXPECT_TRUE(w.dialogues.boxes.empty());
  }
}

TEST(GridCommands, PlaceNoPairWhenALaterOneFails) {
  World w;
  w.ChoisitDossier();
  w.files.refus["/maps/ifbl32x20.mid"] = ErrorNumber::PermissionDenied;
  EXPECT_THROW(CreationIFBLGridPolygon(w.state, w.io), TalpenaError);
  EXPECT_EQ(w.files.Contenu("/maps/ifbl01x01.mif"), "");
  EXPECT_EQ(w.files.Contenu("/maps/ifbl32x20.mif"), "");
}

TEST(GridCommands, ReportADatumThatTheCatalogueLacks) {
  for (const char* code : {"BEL72", "EUR-M"}) {
    for (const Command command : {mnuGrid_Click, CreationIFBLGrid}) {
      SCOPED_TRACE(code);
      World w;
      w.Efface(code);
      command(w.state, w.io);
      ASSERT_EQ(w.dialogues.boxes.size(), 1U);
      EXPECT_EQ(w.DernierMessage(),
                std::string("This datum is absent from the available datums!\n\n") + code);
      EXPECT_TRUE(w.files.journal.empty());
      EXPECT_TRUE(w.dialogues.fileDialogs.empty()) << "no folder was asked for";
    }
  }
}

struct NationalCase {
  Grille grid;
  const char* title;
  std::size_t lines;
};
constexpr NationalCase NationalCases[] = {
    {Grille::British, "File Name for the PRN British National Grid", 29781},
    {Grille::Irish, "File Name for the PRN Irish TM Grid", 4867},
};

TEST(GridCommands, NationalFilesAreNamedInASaveDialog) {
  for (const NationalCase& c : NationalCases) {
    SCOPED_TRACE(c.title);
    World w;
    w.dialogues.paths = {"/maps/national.prn"};
    int drawn = 0;
    CreationPrnNational(w.io, w.vue, c.grid, [&](double, double, bool) {
      EXPECT_TRUE(w.vue.sablier);
      ++drawn;
    });
    EXPECT_EQ(w.dialogues.fileDialogs.at(0).title, c.title);
    EXPECT_EQ(Lignes(w.files.Contenu("/maps/national.prn")), c.lines);
    EXPECT_FALSE(w.vue.sablier);
    EXPECT_GT(drawn, 0);
    EXPECT_TRUE(w.dialogues.boxes.empty());
  }
}

TEST(GridCommands, LeavingTheSaveDialogEndsTheNationalCommand) {
  World w;
  w.dialogues.paths = {""};
  EXPECT_THROW(CreationPrnNational(w.io, w.vue, Grille::British), TalpenaError);
  EXPECT_TRUE(w.files.journal.empty());
}

TEST(GridCommands, TheHourglassEndsWithAFailureToo) {
  World w;
  w.dialogues.paths = {"/maps/national.prn"};
  w.files.ecritureJusqua = 1000;
  EXPECT_THROW(CreationPrnNational(w.io, w.vue, Grille::Irish), TalpenaError);
  EXPECT_FALSE(w.vue.sablier);
  EXPECT_EQ(w.files.Contenu("/maps/national.prn"), "");
}

}  // namespace
}  // namespace talpena
