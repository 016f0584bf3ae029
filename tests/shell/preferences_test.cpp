// The preferences: what the form shows, what OK takes, in which order, and what it refuses.
#include "shell/preferences.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "coords/systems.h"
#include "store/coords_world.h"
#include "store/filter.h"

namespace talpena::test {
namespace {

class PreferTest : public testing::Test, protected CoordsWorld {
 protected:
  PreferTest() {
    for (auto [code, index] : {std::pair{&state.DatumUtmCode, &state.DatumUtm},
                               {&state.DatumSpheriqueCode, &state.DatumSpherique}}) {
      *index = ChercheDatum(state.Catalogue, *code);
    }
    vue.calls.clear();
    form = RempliPrefer(state, io);
  }
  bool Ok() {
    const PreferencesOutcome outcome = ValidePrefer(Contexte(), form);
    focus = outcome.focus;
    return outcome.ferme;
  }
  std::string Entree(const char* code) {
    return EntreeDatum(state.Catalogue.Datum(ChercheDatum(state.Catalogue, code)));
  }
  // New points: both steps worked out by hand from the shifts of the catalogue.
  /// Two rows on show whose points are not those of their ORIGINAL.
  void MontreLignes() {
    Montre({{"WGS84", "deg +50.00000 +004.00000"}, {"WGS84", "deg +40.00000 +003.00000"}});
    state.document.AjusteGrille();
    state.Silence = false;
  }

  PreferencesForm form;
  PreferencesFocus focus = PreferencesFocus::None;
};

// What the form shows

TEST_F(PreferTest, ShowsTheSettings) {
  state.InputMode = 9;
  state.LabelNumeric1 = "Males";
  state.LabelNumeric2 = "Females";
  state.SeparateurChamps = ";";
  state.Silence = true;
  state.AutoSave = true;
  state.SaveInterval = 12;
  state.DatumSpheriqueCode = "NTF";
  settings.values["TALPENA/CONFIG/WORKINGDIR"] = "/var/work";
  form = RempliPrefer(state, io);
  EXPECT_EQ(form.Combo2, 9);
  EXPECT_EQ(form.cmbDatum.substr(0, 8), "WGS84 - ");
  EXPECT_EQ(form.lblDatumOrig, "NTF");
  EXPECT_EQ(form.cmbDatumUTM, "EUR-M - EUROPEAN 1950 (Mean (3 Param))");
  EXPECT_EQ(form.ChampNumerique, (std::array<std::string, 2>{"Males", "Females"}));
  EXPECT_TRUE(form.OptSilence);
  EXPECT_EQ(form.TxtSepar, ";");
  EXPECT_TRUE(form.ChkAutoSave);
  EXPECT_EQ(form.txtSaveInterval, "12");
  EXPECT_EQ(form.txtWorkingDir, "/var/work");
}

TEST_F(PreferTest, ShowsTheTemporaryFolderUntilAnotherIsStored) {
  environment.variables["TEMP"] = "/tmp";
  EXPECT_EQ(RempliPrefer(state, io).txtWorkingDir, "/tmp");
}

TEST_F(PreferTest, AnInputModeThatIsNoneShowsNothingAndStays) {
  for (const int mode : {-1, CoordSystemCount, 99}) {
    state.InputMode = static_cast<std::int16_t>(mode);
    form = RempliPrefer(state, io);
    EXPECT_EQ(form.Combo2, -1);
    EXPECT_TRUE(Ok());
    EXPECT_EQ(state.InputMode, mode);
  }
}

TEST_F(PreferTest, ListsEveryDatumByCodeNameAndUsage) {
  const std::vector<std::string> entries = EntreesDatums(state.Catalogue);
  ASSERT_EQ(entries.size(), state.Catalogue.Datums.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const DatumRecord& datum = state.Catalogue.Datums[i];
    EXPECT_EQ(entries[i], datum.code + " - " + datum.name + " (" + datum.application + ")");
    EXPECT_EQ(entries[i].substr(0, 5), datum.code);
  }
}

TEST_F(PreferTest, OffersForUtmWhatUtmAllowsAndThePresentDatum) {
  auto refused = std::find_if(state.Catalogue.Datums.begin(), state.Catalogue.Datums.end(),
                              [](const DatumRecord& d) { return d.use < 2; });
  if (refused == state.Catalogue.Datums.end()) {
    refused = state.Catalogue.Datums.begin();
    refused->use = 1;
  }
  const auto offered = [&] {
    const std::vector<std::string> entries = EntreesDatumsUtm(state);
    return std::count(entries.begin(), entries.end(), EntreeDatum(*refused)) == 1;
  };
  EXPECT_FALSE(offered());
  state.DatumUtm = static_cast<std::int16_t>(refused - state.Catalogue.Datums.begin() + 1);
  EXPECT_TRUE(offered());
}

TEST_F(PreferTest, FindsADatumByEntryOrCodeOnly) {
  const std::int16_t ntf = ChercheDatum(state.Catalogue, "NTF");
  for (const std::string& text : {Entree("NTF"), std::string("NTF"), std::string(" ntf ")}) {
    EXPECT_EQ(DatumDuTexte(state.Catalogue, text), ntf) << text;
  }
  for (const char* text : {"", "N", "NTF  - and so on", "Nouvelle"}) {
    EXPECT_EQ(DatumDuTexte(state.Catalogue, text), 0) << text;
  }
}

// The interval of the automatic save

struct IntervalCase {
  const char* typed;
  const char* shown;
  int taken;
};

constexpr IntervalCase intervals[] = {
    {"0", "5", 5},         {"101", "100", 100},   {"five", "5", 5},  {"", "5", 5},
    {"-3", "5", 5},        {"0.9", "5", 5},       {"1", "1", 1},     {"100", "100", 100},
    {"12", "12", 12},      {"7 min", "7 min", 7}, {"2,6", "2,6", 3}, {"1E20", "100", 100},
    {"99999", "100", 100},
};

TEST_F(PreferTest, PutsTheIntervalRight) {
  for (const IntervalCase& c : intervals) {
    SCOPED_TRACE(c.typed);
    form.txtSaveInterval = c.typed;
    EXPECT_TRUE(Ok());
    EXPECT_EQ(form.txtSaveInterval, c.shown);
    EXPECT_EQ(state.SaveInterval, c.taken);
  }
  EXPECT_TRUE(dialogues.boxes.empty());
}

// OK without a file

TEST_F(PreferTest, OkTakesWhatTheFormShows) {
  form.Combo2 = 5;
  form.ChampNumerique = {"Nests", "Eggs"};
  form.OptSilence = true;
  form.TxtSepar = "|";
  form.txtSaveInterval = "8";
  form.ChkAutoSave = true;
  EXPECT_TRUE(Ok());
  EXPECT_EQ(state.InputMode, 5);
  EXPECT_EQ(state.LabelNumeric1, "Nests");
  EXPECT_EQ(state.LabelNumeric2, "Eggs");
  EXPECT_TRUE(state.Silence);
  EXPECT_EQ(state.SeparateurChamps, "|");
  EXPECT_EQ(state.SaveInterval, 8);
  EXPECT_TRUE(state.AutoSave);
  EXPECT_EQ(state.EllipsoideReglage, 15) << "the input mode forces it at the next start only";
}

TEST_F(PreferTest, AnotherDatumWithoutAFileIsStoredWithoutAQuestion) {
  form.cmbDatum = Entree("NTF");
  EXPECT_TRUE(Ok());
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_EQ(state.document.Entete().DatumFichier, ChercheDatum(state.Catalogue, "NTF"));
  EXPECT_EQ(settings.values["TLP/DATUM/DESTCODE"], "NTF");
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_TRUE(vue.calls.empty()) << "no rows, nothing to compute";
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(PreferTest, TheDatumsAreStoredAtOnceInTheirOrder) {
  form.cmbDatumUTM = Entree("WGS84");
  form.lblDatumOrig = "NTF";
  settings.written.clear();
  EXPECT_TRUE(Ok());
  EXPECT_EQ(settings.written,
            (Lines{"TLP/DATUM/DESTCODE", "TLP/DATUM/FROMCODE", "TLP/DATUM/UTMCODE"}));
  EXPECT_EQ(settings.values["TLP/DATUM/UTMCODE"], "WGS84");
  EXPECT_EQ(settings.values["TLP/DATUM/FROMCODE"], "NTF");
  EXPECT_EQ(state.DatumUtmCode, "WGS84");
  EXPECT_EQ(state.DatumUtm, state.Catalogue.DatumWgs84);
  EXPECT_EQ(state.DatumSpheriqueCode, "NTF");
  EXPECT_EQ(state.DatumSpherique, ChercheDatum(state.Catalogue, "NTF"));
}

TEST_F(PreferTest, AnEmptySphericalDatumStaysAsItWas) {
  form.lblDatumOrig = " ";
  EXPECT_TRUE(Ok());
  EXPECT_EQ(settings.values.count("TLP/DATUM/FROMCODE"), 0U);
  EXPECT_EQ(state.DatumSpheriqueCode, "EUR-M");
}

class RefusingSettings : public FakeSettings {
 public:
  void Ecrit(std::string_view, std::string_view, std::string_view, std::string_view) override {
    throw TalpenaError(ErrorNumber::PathFileAccess, "read-only");
  }
};

TEST_F(PreferTest, AStoreThatRefusesIsToldOfOnceAndTheSessionGoesOn) {
  RefusingSettings refusing;
  Platform other{*engine, files, refusing, dialogues, clock, environment, sound};
  form.cmbDatum = Entree("NTF");
  form.OptSilence = true;
  EXPECT_TRUE(ValidePrefer({state, other, vue, vue, vue}, form).ferme);
  EXPECT_EQ(Boites(), (Lines{"Error 75\nread-only"}));
  EXPECT_TRUE(state.Silence);
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
}

// Texts that are no datum

TEST_F(PreferTest, ATextThatIsNoDatumStoresNothing) {
  form.cmbDatum = "European";
  form.OptSilence = !state.Silence;
  const bool before = state.Silence;
  EXPECT_FALSE(Ok());
  EXPECT_EQ(focus, PreferencesFocus::cmbDatum);
  EXPECT_EQ(Boites(), (Lines{"This datum is absent from the available datums!\n\nEuropean"}));
  form.cmbDatum = Entree("WGS84");
  form.cmbDatumUTM = "";
  EXPECT_FALSE(Ok());
  EXPECT_EQ(focus, PreferencesFocus::cmbDatumUTM);
  EXPECT_EQ(Boites(), (Lines{"This datum is absent from the available datums!\n\n"}));
  EXPECT_EQ(state.Silence, before);
  EXPECT_TRUE(settings.written.empty());
}

TEST_F(PreferTest, ADatumWithoutUtmUseIsRefusedForUtm) {
  state.Catalogue.Datums.at(0).use = 1;
  const std::string code(Rogne(state.Catalogue.Datums.at(0).code));
  form.cmbDatumUTM = code;
  EXPECT_FALSE(Ok());
  EXPECT_EQ(focus, PreferencesFocus::cmbDatumUTM);
  EXPECT_EQ(Boites(), (Lines{"This datum is not allowed for UTM or MGRS input!\n\n" + code}));
  state.DatumUtm = 1;  // one that is there already may stay
  EXPECT_TRUE(Ok());
}

TEST_F(PreferTest, AFileDatumThatTheCatalogueLacksMayStay) {
  Entete(state.document)->DatumFichierCode = "XXXXX";
  Entete(state.document)->DatumFichier = 0;
  MontreLignes();
  form = RempliPrefer(state, io);
  EXPECT_EQ(form.cmbDatum, "XXXXX");
  EXPECT_TRUE(Ok());
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "XXXXX");
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(Points(), (Lines{"1 2", "1 2"}));
}

// OK with a file

TEST_F(PreferTest, AnotherDatumOfAFileIsAskedForAndComputesEveryRow) {
  MontreLignes();
  form.cmbDatum = Entree("EUR-M");
  form.OptSilence = false;
  dialogues.answers = {Answer::Ok};
  vue.calls.clear();
  EXPECT_TRUE(Ok());
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text,
            "The Datum used to compute coordinates has been changed.\r"
            "Clik Ok to compute all coordinates.");
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::OkCancel);
  EXPECT_EQ(Points(), (Lines{"50.00086 4.00128", "40.00111 3.00109"}));
  EXPECT_EQ(vue.panneauDatum, "EUR-M");
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_GT(sound.bips, 0);
}

TEST_F(PreferTest, CancelInTheQuestionLeavesTheFormOpenWithNothingStored) {
  MontreLignes();
  form.cmbDatum = Entree("EUR-M");
  form.ChampNumerique[0] = "Nests";
  form.txtSaveInterval = "0";
  dialogues.answers = {Answer::Cancel};
  EXPECT_FALSE(Ok());
  EXPECT_EQ(focus, PreferencesFocus::None);
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "WGS84");
  EXPECT_EQ(state.LabelNumeric1, "Number 1");
  EXPECT_TRUE(settings.written.empty());
  EXPECT_EQ(Points(), (Lines{"1 2", "1 2"}));
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_EQ(form.txtSaveInterval, "5");
  EXPECT_EQ(form.cmbDatum, Entree("EUR-M")) << "what was chosen stays";
}

TEST_F(PreferTest, OkComputesTheRowsAnewAlsoOnTheSameDatum) {
  MontreLignes();
  EXPECT_TRUE(Ok());
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(Points(), (Lines{"50 4", "40 3"}));
  EXPECT_EQ(vue.panneauDatum, "WGS84");
  EXPECT_TRUE(state.document.FichierModifie());
}

// A datum whose ellipsoid the catalogue lacks stands for a failure in the middle of the rows.
TEST_F(PreferTest, OkChangesDatumAndRowsOrNeither) {
  state.Catalogue.Datums.push_back({0, 0, 0, 0, 0, 9999, "BROKE", "", "", 1});
  Montre({{"WGS84", "deg +50.00000 +004.00000"}, {"BROKE", "deg 1 1"}});
  state.document.AjusteGrille();
  form.cmbDatum = Entree("EUR-M");
  dialogues.answers = {Answer::Ok};
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Boites().size(), 2U) << "the question and the failure";
  EXPECT_EQ(Points(), (Lines{"1 2", "1 2"}));
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "WGS84");
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(PreferTest, OkOnRowsThatAreRightLeavesTheFileUnmodified) {
  Montre({{"WGS84", "deg +50.00000 +004.00000", "50", "4"}});
  state.document.AjusteGrille();
  EXPECT_TRUE(Ok());
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(PreferTest, OkTakesTheBlanksOffTheCodeOfTheSameDatum) {
  Montre({{"NTF", "deg +50.00000 +004.00000", "50", "4"}});
  state.document.AjusteGrille();
  Entete(state.document)->DatumFichierCode = "NTF  ";
  Entete(state.document)->DatumFichier = ChercheDatum(state.Catalogue, "NTF");
  form = RempliPrefer(state, io);
  EXPECT_TRUE(Ok());
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_EQ(settings.values.at("TLP/DATUM/DESTCODE"), "NTF");
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(PreferTest, RowsThatAFilterHidesAreComputedToo) {
  MontreLignes();
  state.document.MontreLignes(RowsShown::Filtrees("ORIGINAL LIKE 'deg +40*'"));
  form.cmbDatum = Entree("EUR-M");
  dialogues.answers = {Answer::Ok};
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Points(), (Lines{"50.00086 4.00128", "40.00111 3.00109"}));
  EXPECT_EQ(state.document.LignesMontrees().Condition(), "ORIGINAL LIKE 'deg +40*'");
  EXPECT_EQ(state.document.Data1.recordset().RecordCount(), 1);
}

// The working folder

TEST_F(PreferTest, AnotherWorkingFolderIsStoredAtOnceForTheNextStart) {
  settings.values["DLV/PATHS/DATA"] = "/data";
  form.txtWorkingDir = "/tmp";
  state.WorkingDir = "/tmp/";
  state.Silence = false;
  dialogues.paths = {"/var/work"};
  ChoisitWorkingDir(state, io, form);
  ASSERT_EQ(dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(dialogues.fileDialogs[0].title, "Please choose a folder");
  EXPECT_EQ(dialogues.fileDialogs[0].folder, "/data");
  EXPECT_EQ(form.txtWorkingDir, "/var/work");
  EXPECT_EQ(settings.values["TALPENA/CONFIG/WORKINGDIR"], "/var/work");
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text,
            "You have to restart Talpena in order to change the temporary working folder");
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(state.WorkingDir, "/tmp/") << "the running process keeps its database";
}

TEST_F(PreferTest, TheSameFolderInOtherLettersIsNoChange) {
  form.txtWorkingDir = "/TMP/Été";
  dialogues.paths = {"/tmp/été"};
  ChoisitWorkingDir(state, io, form);
  EXPECT_EQ(form.txtWorkingDir, "/TMP/Été");
  EXPECT_TRUE(settings.written.empty());
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(PreferTest, ACancelledFolderDialogChangesNothing) {
  form.txtWorkingDir = "/tmp";
  dialogues.paths = {""};
  ChoisitWorkingDir(state, io, form);
  EXPECT_EQ(form.txtWorkingDir, "/tmp");
  EXPECT_TRUE(settings.written.empty());
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(PreferTest, AFolderThatCannotBeStoredIsNotShown) {
  RefusingSettings refusing;
  Platform other{*engine, files, refusing, dialogues, clock, environment, sound};
  form.txtWorkingDir = "/tmp";
  dialogues.paths = {"/var/work"};
  ChoisitWorkingDir(state, other, form);
  EXPECT_EQ(Boites(), (Lines{"Error 75\nread-only"}));
  EXPECT_EQ(form.txtWorkingDir, "/tmp");
}

}  // namespace
}  // namespace talpena::test
