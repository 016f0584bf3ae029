#include "shell/settings.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/numbers.h"
#include "fakes/document_states.h"
#include "fakes/fake_machine.h"

namespace talpena {
namespace {

using test::FakeSettings;

constexpr ScreenSize screen{.largeurTwips = 28800, .hauteurTwips = 16200};

class Settings : public testing::Test {
 protected:
  Settings() {
    state.AppDir = "/opt/talpena";
    for (const char* code : {"EUR-M", "NTF  ", "WGS84"}) {
      DatumRecord datum;
      datum.code = code;
      state.Catalogue.Datums.push_back(datum);
    }
    state.Catalogue.DatumEur = 1;
  }
  void Pose(std::string_view section, std::string_view key, const std::string& text) {
    settings.values[FakeSettings::Cle("TALPENA", section, key)] = text;
  }
  void PoseDatum(std::string_view key, const std::string& code) {
    settings.values[FakeSettings::Cle("TLP", "Datum", key)] = code;
  }
  std::string Stocke(std::string_view section, std::string_view key) {
    return settings.values[FakeSettings::Cle("TALPENA", section, key)];
  }
  void Charge() { ChargeReglages(state, io, screen); }

  test::FakeMachine machine;
  Platform& io = machine.io;
  FakeSettings& settings = machine.settings;
  test::FakeDialogues& dialogues = machine.dialogues;
  test::FakeEnvironment& environment = machine.environment;
  test::FakeSound& sound = machine.sound;
  ProcessState state;
};

// clang-format off
enum class Type { Text, Integer, Boolean, Float, Colour };
struct Key { const char* section; const char* key; Type type; const char* defaultText; };

/// The store's keys of application "TALPENA" with their types and a first run's values on a screen
/// of 28800 by 16200 twips, in the order in which they are read.
const Key keys[] = {
    {"Language", "Language", Type::Integer, "1000"},
    {"Grid", "Height", Type::Float, "16200"},
    {"Grid", "Width", Type::Float, "28800"},
    {"Grid", "Top", Type::Float, "0"},
    {"Grid", "Left", Type::Float, "0"},
    {"Grid", "WindowState", Type::Integer, "2"},
    {"Grid", "ColWidth0", Type::Float, "734"},
    {"Grid", "ColWidth1", Type::Float, "945"},
    {"Grid", "ColWidth2", Type::Float, "1035"},
    {"Grid", "ColWidth3", Type::Float, "375"},
    {"Grid", "ColWidth4", Type::Float, "450"},
    {"Grid", "ColWidth5", Type::Float, "500"},
    {"Grid", "ColWidth6", Type::Float, "810"},
    {"Grid", "ColWidth7", Type::Float, "2400"},
    {"Grid", "ColWidth8", Type::Float, "1110"},
    {"Grid", "ColWidth9", Type::Float, "3570"},
    {"Grid", "GridBackColor", Type::Colour, "14745599"},
    {"Grid", "GridForeColor", Type::Colour, "-2147483640"},
    {"Settings", "LabelNumeric1", Type::Text, "Number 1"},
    {"Settings", "LabelNumeric2", Type::Text, "Number 2"},
    {"Settings", "Separator", Type::Text, ","},
    {"Settings", "Ellipsoid", Type::Integer, "15"},
    {"Settings", "InputMode", Type::Integer, "3"},
    {"Settings", "UtmAjust", Type::Integer, "0"},
    {"Settings", "GridAjust", Type::Integer, "0"},
    {"Settings", "ExportPeriod", Type::Integer, "1"},
    {"Settings", "ExportLatitude", Type::Integer, "1"},
    {"Settings", "ExportLongitude", Type::Integer, "1"},
    {"Settings", "ExportNumber1", Type::Integer, "1"},
    {"Settings", "ExportNumber2", Type::Integer, "1"},
    {"Settings", "ExportEllipsoid", Type::Integer, "1"},
    {"Settings", "ExportOriginalCoord", Type::Integer, "1"},
    {"Settings", "ExportDate", Type::Integer, "1"},
    {"Settings", "ExportFreeField", Type::Integer, "1"},
    {"Settings", "ExportSex", Type::Integer, "1"},
    {"Settings", "ExportCoordSystem", Type::Integer, "-1"},
    {"Settings", "Silence", Type::Boolean, "0"},
    {"Settings", "SaveInterval", Type::Integer, "5"},
    {"Settings", "AutoSave", Type::Boolean, "0"},
    {"Symbols", "SymbolColor0", Type::Colour, "255"},
    {"Symbols", "SymbolColor1", Type::Colour, "65535"},
    {"Symbols", "SymbolColor2", Type::Colour, "65280"},
    {"Symbols", "StrokeColor", Type::Colour, "0"},
    {"Symbols", "DiamPoints", Type::Float, "-1"},
    {"Localities", "File", Type::Text, "D:\\tlpgazet.mdb"},
    {"Localities", "Sort", Type::Integer, "0"},
    {"Localities", "Table", Type::Text, "TLPGazet_Decoding"},
    {"Localities", "ResearchField", Type::Text, "Sort_Name"},
    {"Localities", "LatitudeField", Type::Text, "Latitude"},
    {"Localities", "LongitudeField", Type::Text, "Longitude"},
    {"Localities", "FullNameField", Type::Text, "Full_Name"},
    {"Localities", "FipsField", Type::Text, "FIPS_QRN"},
    {"Localities", "ProvinceField", Type::Text, ""},
    {"Localities", "FeatureField", Type::Text, "Feature_Desig_Code"},
    {"Localities", "CoordinatesType", Type::Integer, "1"},
    {"Localities", "CountryName", Type::Text, "Country_Name"},
    {"Localities", "ProvinceName", Type::Text, "Province_Name"},
    {"Localities", "Datum", Type::Text, "WGS84"},
    {"Localities", "DbType", Type::Text, ""},
    {"Files", "LastFile1", Type::Text, ""},
    {"Files", "LastFile2", Type::Text, ""},
    {"Files", "LastFile3", Type::Text, ""},
    {"Files", "LastFile4", Type::Text, ""},
};
// clang-format on

std::string Cle(const Key& key) { return FakeSettings::Cle("TALPENA", key.section, key.key); }

/// A stored text of a key's type that is not its default; different for every i.
std::string AutreTexte(const Key& key, int i) {
  const std::int64_t n = 100 + i;
  switch (key.type) {
    case Type::Text:
      return "text, \"" + Str(n) + "\" ";
    case Type::Boolean:
      return "-1";
    case Type::Float:
      return Str(n) + ".25";
    case Type::Colour:
      return Str(std::int64_t{-2147483648} + n);
    case Type::Integer:
      break;
  }
  // Values that nothing forces: a language with texts, an input mode that leaves the ellipsoid.
  if (std::string_view(key.key) == "Language") return "3000";
  return Str(n);
}

TEST_F(Settings, AFirstRunTakesTheDefaults) {
  Charge();
  SauveReglages(state, io);
  for (const Key& key : keys) EXPECT_EQ(Stocke(key.section, key.key), key.defaultText) << key.key;
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(Settings, DefaultsAreTakenWhateverTheStateHeld) {
  state.UtmAjust = 7;
  state.LabelNumeric1 = "old";
  Charge();
  EXPECT_EQ(state.UtmAjust, 0);
  EXPECT_EQ(state.LabelNumeric1, "Number 1");
}

TEST_F(Settings, EveryKeyComesBackAsItWasStored) {
  int i = 0;
  for (const Key& key : keys) Pose(key.section, key.key, AutreTexte(key, i++));
  const std::map<std::string, std::string> stored = settings.values;
  Charge();
  settings.values.clear();
  SauveReglages(state, io);
  EXPECT_EQ(settings.values, stored);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(Settings, EveryKeyReachesAGlobalOfItsOwn) {
  // Each key in turn changes what is saved under it and nothing else.
  Charge();
  SauveReglages(state, io);
  const std::map<std::string, std::string> first = settings.values;
  int i = 0;
  for (const Key& key : keys) {
    settings.values = first;
    const std::string text = AutreTexte(key, i++);
    Pose(key.section, key.key, text);
    Charge();
    SauveReglages(state, io);
    std::map<std::string, std::string> expected = first;
    expected[Cle(key)] = text;
    EXPECT_EQ(settings.values, expected) << key.key;
  }
}

TEST_F(Settings, GlobalsTakeTheStoredValues) {
  Pose("Language", "Language", "5000");
  Pose("Grid", "Height", "8000.5");
  Pose("Grid", "ColWidth7", "1234");
  Pose("Grid", "GridForeColor", "-2147483640");
  Pose("Settings", "Silence", "-1");
  Pose("Settings", "AutoSave", "1");
  Pose("Symbols", "SymbolColor2", "16711680");
  Pose("Symbols", "DiamPoints", "0,5");
  Pose("Localities", "Datum", "NTF");
  Pose("Files", "LastFile3", "/home/bees/a.deg");
  Charge();
  EXPECT_EQ(state.Langue, 5000);
  EXPECT_EQ(state.GrilleHauteur, 8000.5F);
  EXPECT_EQ(state.LargeurColonnes[7], 1234);
  EXPECT_EQ(state.CouleurTexteGrille, 0x80000008U);
  EXPECT_TRUE(state.Silence);
  EXPECT_TRUE(state.AutoSave);
  EXPECT_EQ(state.SymbolColor[2], 0xFF0000U);
  EXPECT_EQ(state.DiamPoints, 0.5F);
  EXPECT_EQ(state.GeoDatum, "NTF");
  EXPECT_EQ(state.LastFiles[2], "/home/bees/a.deg");
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(Settings, KeysAreReadInTheOrderOfTheTables) {
  Charge();
  std::vector<std::string> expected;
  for (const Key& key : keys) expected.push_back(Cle(key));
  expected.push_back("TALPENA/PATHS/LASTDEG");
  for (const char* code : {"DESTCODE", "UTM", "UTMCODE", "FROMCODE"}) {
    expected.push_back(std::string("TLP/DATUM/") + code);
  }
  expected.emplace_back("TLPMENU.INI/TLPMENU/WORKINGDIR");
  EXPECT_EQ(settings.read, expected);
}

TEST_F(Settings, SavingWritesEveryKeyReadButLastDeg) {
  SauveReglages(state, io);
  std::vector<std::string> expected;
  for (const Key& key : keys) expected.push_back(Cle(key));
  EXPECT_EQ(settings.written, expected);
}

TEST_F(Settings, LastDegStartsAtTheProgramsFolder) {
  Charge();
  EXPECT_EQ(state.LastDeg, "/opt/talpena");
  Pose("Paths", "LastDeg", "/home/bees/");
  Charge();
  EXPECT_EQ(state.LastDeg, "/home/bees/");
}

TEST_F(Settings, TheGazetteerIsLookedForOnTheCdDrive) {
  environment.cd = "F:\\";
  Charge();
  EXPECT_EQ(state.GeoFile, "F:\\tlpgazet.mdb");
}

TEST_F(Settings, WithoutACdDriveTheGazetteerIsLookedForOnDriveD) {
  Charge();
  EXPECT_EQ(state.GeoFile, "D:\\tlpgazet.mdb");
}

// ---- Ellipsoid

// clang-format off
struct EllipsoidCase { const char* stored; const char* inputMode; int expected; };
constexpr EllipsoidCase ellipsoidCases[] = {
    {"0", "3", 15}, {"4", "3", 4}, {"4", "5", 1}, {"4", "6", 2}, {"4", "7", 15}, {"4", "8", 15},
    {"4", "4", 4}, {"4", "9", 4}, {"0", "5", 1}, {"0", "0", 15}, {"4", "-1", 4}, {"4", "16", 4},
};
// clang-format on

TEST_F(Settings, TheEllipsoidIsForcedByTheInputMode) {
  for (const EllipsoidCase& c : ellipsoidCases) {
    Pose("Settings", "Ellipsoid", c.stored);
    Pose("Settings", "InputMode", c.inputMode);
    Charge();
    EXPECT_EQ(state.EllipsoideReglage, c.expected) << c.stored << ", mode " << c.inputMode;
  }
}

// ---- Texts that a key cannot take

// clang-format off
constexpr const char* badText =
    "Error 13\nA text stands where a number or a date belongs; correct it.";
constexpr const char* tooLarge = "Error 6\nA number is too large for its place; correct it.";
struct RefusedCase { const char* section; const char* key; const char* text; const char* error; };
constexpr RefusedCase refusedCases[] = {
    {"Settings", "UtmAjust",     "abc",         badText},
    {"Settings", "UtmAjust",     "",            badText},
    {"Settings", "UtmAjust",     "12 sheep",    badText},
    {"Settings", "UtmAjust",     "32768",       tooLarge},
    {"Settings", "UtmAjust",     "-32769",      tooLarge},
    {"Settings", "UtmAjust",     "1e999",       tooLarge},
    {"Settings", "Silence",      "loud",        badText},
    {"Settings", "AutoSave",     "99999",       tooLarge},
    {"Symbols",  "StrokeColor",  "2147483648",  tooLarge},
    {"Symbols",  "StrokeColor",  "red",         badText},
    {"Grid",     "Top",          "1e39",        tooLarge},
    {"Grid",     "ColWidth4",    "wide",        badText},
    {"Grid",     "Height",       "tall",        badText},
};
// clang-format on

TEST_F(Settings, ATextThatAKeyCannotTakeIsShownAndTheDefaultTaken) {
  for (const RefusedCase& c : refusedCases) {
    SCOPED_TRACE(std::string(c.key) + " = " + c.text);
    settings.values.clear();
    dialogues.boxes.clear();
    sound.bips = 0;
    Pose(c.section, c.key, c.text);
    Pose("Files", "LastFile4", "read after it");
    Charge();
    ASSERT_EQ(dialogues.boxes.size(), 1U);
    EXPECT_EQ(dialogues.boxes[0].text, "TALPENA / " + std::string(c.section) + " / " + c.key +
                                           " = \"" + c.text + "\"\n\n" + c.error);
    EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
    EXPECT_EQ(sound.bips, 1);
    EXPECT_EQ(state.LastFiles[3], "read after it");
    SauveReglages(state, io);
    const auto* key = std::ranges::find_if(keys, [&](const Key& k) {
      return std::string_view(k.section) == c.section && std::string_view(k.key) == c.key;
    });
    EXPECT_EQ(Stocke(c.section, c.key), key->defaultText);
  }
}

TEST_F(Settings, TheLimitsOfTheTypesAreTaken) {
  for (const char* text : {"32767", "-32768", "0"}) {
    Pose("Settings", "GridAjust", text);
    Charge();
    EXPECT_EQ(Str(std::int64_t{state.GridAjust}), text);
  }
  Pose("Symbols", "StrokeColor", "2147483647");
  Charge();
  EXPECT_EQ(state.StrokeColor, 0x7FFFFFFFU);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(Settings, FractionsOfWholeNumbersAreRoundedHalvesToEven) {
  for (const auto& [text, value] : {std::pair{"2.5", 2}, {"3.5", 4}, {"2.6", 3}, {"-1.5", -2}}) {
    Pose("Settings", "UtmAjust", text);
    Charge();
    EXPECT_EQ(state.UtmAjust, value) << text;
  }
}

TEST_F(Settings, SilentUsersHearNoBeep) {
  Pose("Settings", "Silence", "-1");
  Pose("Settings", "SaveInterval", "often");
  Charge();
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(sound.bips, 0);
}

TEST_F(Settings, ALanguageWithoutTextsGivesEnglish) {
  for (const char* language : {"2000", "7000", "1"}) {
    dialogues.boxes.clear();
    Pose("Language", "Language", language);
    Charge();
    EXPECT_EQ(state.Langue, 1000);
    ASSERT_EQ(dialogues.boxes.size(), 1U) << language;
    EXPECT_NE(dialogues.boxes[0].text.find("Error 326"), std::string::npos);
  }
}

TEST_F(Settings, ALongTextIsCutInTheBoxBetweenCharacters) {
  std::string text;
  for (int i = 0; i < 200; ++i) text += "\u00e9";
  Pose("Settings", "UtmAjust", text);
  Charge();
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_NE(dialogues.boxes[0].text.find("\"" + text.substr(0, 160) + "\""), std::string::npos);
}

// ---- Datums

TEST_F(Settings, DatumsOfAFirstRunAreEuropean) {
  Charge();
  for (const std::string& code :
       {state.document.Entete().DatumFichierCode, state.DatumUtmCode, state.DatumSpheriqueCode}) {
    EXPECT_EQ(code, "EUR-M");
  }
  EXPECT_EQ(state.document.Entete().DatumFichier, 1);
  EXPECT_EQ(state.DatumUtm, 1);
  EXPECT_EQ(state.DatumSpherique, 1);
}

TEST_F(Settings, DatumsAreFoundByTheirCodes) {
  PoseDatum("DestCode", "WGS84");
  PoseDatum("UTMCode", "NTF  ");
  PoseDatum("FromCode", "NTF");
  Charge();
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "WGS84");
  EXPECT_EQ(state.document.Entete().DatumFichier, 3);
  EXPECT_EQ(state.DatumUtm, 2);
  EXPECT_EQ(state.DatumSpherique, 2);
}

TEST_F(Settings, AnUnknownDefaultDatumGivesWayToTheEuropeanOne) {
  PoseDatum("DestCode", "ZZZ");
  PoseDatum("UTMCode", "ZZZ");
  PoseDatum("FromCode", "ZZZ");
  Charge();
  EXPECT_EQ(state.DatumUtmCode, "EUR-M");
  EXPECT_EQ(state.DatumUtm, 1);
  EXPECT_EQ(state.DatumSpheriqueCode, "EUR-M");
  EXPECT_EQ(state.DatumSpherique, 1);
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "ZZZ") << "the file's datum is not replaced";
  EXPECT_EQ(state.document.Entete().DatumFichier, 0);
}

TEST_F(Settings, KeyUtmIsOverwrittenByUtmCode) {
  PoseDatum("UTM", "NTF");
  Charge();
  EXPECT_EQ(state.DatumUtmCode, "EUR-M");
  PoseDatum("UTMCode", "WGS84");
  Charge();
  EXPECT_EQ(state.DatumUtmCode, "WGS84");
}

TEST_F(Settings, SavingLeavesTheDatumsOfOtherApplicationsAlone) {
  PoseDatum("UTMCode", "ZZZ");
  Charge();
  SauveReglages(state, io);
  EXPECT_EQ((settings.values[FakeSettings::Cle("TLP", "Datum", "UTMCode")]), "ZZZ");
  for (const std::string& key : settings.written) EXPECT_EQ(key.rfind("TALPENA/", 0), 0U) << key;
}

// ---- Folder of the menu program

TEST_F(Settings, TheProcessChangesToTheFolderOfTheMenuProgram) {
  Charge();
  EXPECT_TRUE(environment.dossiers.empty());
  settings.values[FakeSettings::Cle("TLPMENU.INI", "TLPMENU", "WorkingDir")] = "C:\\BEES";
  Charge();
  EXPECT_EQ(environment.dossiers, std::vector<std::string>{"C:\\BEES"});
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(Settings, AFolderOfTheMenuProgramThatIsGoneIsShown) {
  environment.changePossible = false;
  settings.values[FakeSettings::Cle("TLPMENU.INI", "TLPMENU", "WorkingDir")] = "C:\\BEES";
  Charge();
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text,
            "C:\\BEES\n\nError 76\nThe folder cannot be found; look whether it was moved, or its "
            "disk taken away.");
}

/// A store that cannot be written.
class ReadOnlySettings : public FakeSettings {
 public:
  void Ecrit(std::string_view, std::string_view, std::string_view, std::string_view) override {
    throw TalpenaError(ErrorNumber::PathFileAccess, "Path/File access error: talpena.ini");
  }
};

TEST_F(Settings, AStoreThatRefusesIsRaised) {
  ReadOnlySettings refusing;
  Platform other{machine.engine, machine.files,       refusing, dialogues,
                 machine.clock,  machine.environment, sound};
  try {
    SauveReglages(state, other);
    ADD_FAILURE() << "nothing was raised";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::PathFileAccess);
  }
}

}  // namespace
}  // namespace talpena
