// The imports of the main window: what their menu entries bring up, and what is left behind them.
#include <gtest/gtest.h>

#include <QMenu>
#include <QPushButton>
#include <QTimer>

#include "fakes/dialog_driver.h"
#include "fakes/document_states.h"
#include "shell/windows/form1_machine.h"

namespace talpena::test {
namespace {

class Form1Imports : public testing::Test, protected Form1Machine {
 protected:
  void SetUp() override { ASSERT_TRUE(form->Charge(Fichier(Lignes(3)))); }
  std::string Depose(const std::string& name, const std::string& bytes) const {
    std::string path = folder / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  std::string Points() const {
    return Depose("points.txt",
                  "Grid\tLat/Lon hddd.ddddd\xB0\r\nDatum\tWGS 84\r\n\r\n"
                  "Header\tName\tDescription\tType\tPosition\t\r\n\r\n"
                  "Waypoint\tONE\tfirst\tUser\tN50.1 E4.1\t\r\n"
                  "Waypoint\tTWO\tsecond\tUser\tN50.2 E4.2\t\r\n");
  }
  std::int64_t Rangees() { return state.document.Data1.recordset().RecordCount(); }
};

TEST_F(Form1Imports, EntriesNeedAFileAndTracksStayDisabled) {
  for (const char* name : {"mnuImport_0", "mnuImport_1", "mnuImportGarmin_0"}) {
    EXPECT_TRUE(Entree(name)->isEnabled()) << name;
  }
  EXPECT_FALSE(Entree("mnuImportGarmin_1")->isEnabled());
  Form1Machine without;
  without.form->Charge({});
  EXPECT_FALSE(without.Controle<QMenu>("MnuImporter")->menuAction()->isEnabled());
  for (const char* name : {"mnuImport_0", "mnuImport_1", "mnuImportGarmin_0"}) {
    EXPECT_FALSE(without.Entree(name)->isEnabled()) << name;
  }
}

TEST_F(Form1Imports, WaypointsOfMapSourceComeInThroughTheirWindow) {
  dialogues.paths.emplace_back(Points());
  DialogDriver driver("frmImportGarmin", [](QDialog& dialog) {
    dialog.findChild<QPushButton*>("cmdImportGarmin_0")->click();
  });
  Entree("mnuImportGarmin_0")->trigger();
  EXPECT_EQ(Rangees(), 5);
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(form->LignesSelectionnees().size(), 2U) << "one key takes them out again";
}

TEST_F(Form1Imports, ATickOfTheTimerIsTakenWhenTheCommandHasEnded) {
  dialogues.paths.emplace_back(Points());
  state.AutoSave = true;
  state.SaveInterval = 1;
  MarqueModifie(state.document);
  bool savedMeanwhile = true;
  {
    const DialogDriver driver("frmImportGarmin", [&](QDialog& dialog) {
      QMetaObject::invokeMethod(Controle<QTimer>("Timer1"), "timeout");
      savedMeanwhile = !state.document.FichierModifie();
      dialog.reject();
    });
    Entree("mnuImportGarmin_0")->trigger();
  }
  EXPECT_FALSE(savedMeanwhile);
  QApplication::processEvents();
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(Form1Imports, CancelOfTheFileDialogEndsInSilence) {
  dialogues.paths.emplace_back("");
  Entree("mnuImportGarmin_0")->trigger();
  EXPECT_EQ(Rangees(), 3);
  EXPECT_TRUE(dialogues.boxes.empty());
}

}  // namespace
}  // namespace talpena::test
