// The menu tree: what stands where, under which caption, and what can be chosen.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <set>
#include <sstream>

#include "common/string_table.h"
#include "common/talpena_error.h"
#include "shell/windows/menus.h"

namespace talpena {
namespace {

constexpr std::array<std::int16_t, 5> menuLanguages = {0, 1000, 3000, 4000, 5000};

std::string Dessine(std::span<const MenuEntry> entries, std::int16_t langue,
                    const std::string& indent = {}) {
  std::string out;
  for (const MenuEntry& entry : entries) {
    if (SansLibelle(entry)) continue;
    out += indent + NomObjet(entry) + " " + Libelle(entry, langue) + "\n";
    out += Dessine(entry.children, langue, indent + "  ");
  }
  return out;
}

const MenuEntry* Cherche(const std::string& name) {
  const MenuEntry* found = nullptr;
  Parcourt(ArbreDesMenus(), [&](const MenuEntry& entry) {
    if (NomObjet(entry) == name) found = &entry;
  });
  return found;
}

TEST(Menus, StandAsTheyAreGivenInEnglish) {
  std::ifstream file(TALPENA_SOURCE_DIR "/tests/data/menus_english.txt");
  std::stringstream expected;
  expected << file.rdbuf();
  EXPECT_EQ(Dessine(ArbreDesMenus(), 1000), expected.str());
}

TEST(Menus, HaveACaptionInEveryLanguage) {
  for (const std::int16_t langue : menuLanguages) {
    EXPECT_NO_THROW(Dessine(ArbreDesMenus(), langue)) << langue;
  }
}

TEST(Menus, KeepFixedCaptionsInEveryLanguage) {
  for (const std::int16_t langue : menuLanguages) {
    EXPECT_EQ(Libelle(*Cherche("MnuSelection"), langue), "Sélection a&vancée...");
    EXPECT_EQ(Libelle(*Cherche("mnuGrid"), langue), "Grille");
    EXPECT_EQ(Libelle(*Cherche("MnuExpDB_4"), langue), "Fichier Excel");
  }
}

TEST(Menus, BearEachNameOnce) {
  std::set<std::string> names;
  Parcourt(ArbreDesMenus(), [&](const MenuEntry& entry) {
    EXPECT_TRUE(names.insert(NomObjet(entry)).second) << NomObjet(entry);
  });
  EXPECT_GT(names.size(), 90U);
}

TEST(Menus, GiveNoKeyTwice) {
  std::set<std::string_view> keys;
  Parcourt(ArbreDesMenus(), [&](const MenuEntry& entry) {
    if (!entry.key.empty()) {
      EXPECT_TRUE(keys.insert(entry.key).second) << entry.key;
    }
  });
}

TEST(Menus, NineEntriesNeedAFile) {
  std::set<std::string> names;
  Parcourt(ArbreDesMenus(), [&](const MenuEntry& entry) {
    if (entry.condition == MenuCondition::File) names.insert(NomObjet(entry));
  });
  EXPECT_EQ(names, (std::set<std::string>{"MnuEnregistrer", "MnuEnrSous", "MnuFusionner",
                                          "MnuGrouper", "MnuExporter", "MnuImporter", "MnuEdition",
                                          "MnuVisualiser", "MnuOptionsPeriodes"}));
}

/// Entries that can be chosen, menus left out.
std::set<std::string> Actifs(bool fileOpen) {
  std::set<std::string> names;
  Parcourt(ArbreDesMenus(), [&](const MenuEntry& entry) {
    if (entry.children.empty() && !entry.EstSeparateur() &&
        EstActif(entry, {fileOpen, true, true})) {
      names.insert(NomObjet(entry));
    }
  });
  return names;
}

const std::set<std::string> always = {
    "MnuNouveau",         "MnuOuvrir",      "MnuLastFile_1",   "MnuLastFile_2", "MnuLastFile_3",
    "MnuLastFile_4",      "MnuQuitter",     "MnuGrille",       "MnuTxtGrille",  "MnuLang_0",
    "MnuLang_1",          "MnuLang_2",      "MnuLang_3",       "MnuLang_4",     "MnuLang_5",
    "MnuAideTexte",       "MnuInfo",        "mnuGrid",         "MnuLmbIfbl",    "MnuIFBLGrid",
    "MnuIFBLGridPolygon", "MnuPreferences", "MnuOptionsCartes"};

TEST(Menus, WithoutAFileOnlyWhatNeedsNoneCanBeChosen) { EXPECT_EQ(Actifs(false), always); }

TEST(Menus, WithAFileEntriesWithoutACommandStayDisabled) {
  std::set<std::string> expected = always;
  expected.insert(
      {"MnuEnregistrer", "MnuEnrSous", "MnuGrouper", "MnuFusionner", "MnuOptionsPeriodes"});
  expected.insert({"MnuRemplirCoo_0", "MnuRemplirCoo_1", "MnuRemplirCoo_2", "MnuRemplirXY_0",
                   "MnuRemplirXY_1", "MnuRemplirXY_2", "MnuRemplirXY_3", "MnuRemplirXY_4",
                   "MnuRemplirXY_5", "MnuRemplirTexte", "mnuAjustGrid_0", "mnuAjustGrid_1",
                   "mnuAjustGrid_2", "mnuAjustIFBL_0", "mnuAjustIFBL_1", "mnuAjustIFBL_2",
                   "MnuDatumFichier"});
  expected.insert({"mnuChercher_0", "mnuChercher_1", "MnuAjoutLigne", "mnuDuplic", "MnuEraseCol",
                   "MnuSupprimer", "MnuSelection", "MnuVisAutre", "MnuVisCarte"});
  expected.insert({"mnuEurope_0", "mnuEurope_1", "mnuEurope_2", "mnuEurope_3", "mnuEurope_4",
                   "mnuEurope_5", "mnuEurope_6", "mnuEurope_7", "MnuVisAfrica", "MnuVisAsiEur",
                   "MnuVisAsiocea", "MnuVisMonde", "MnuVisNamer", "MnuVisSamer"});
  expected.insert(
      {"MnuExpAsciiMode_0", "MnuExpAsciiMode_1", "MnuExpAsciiMode_2", "MnuExpAsciiMode_3"});
  expected.insert({"MnuExpDB_0", "MnuExpDB_1", "MnuExpDB_2", "MnuExpDB_3", "MnuExpDB_4",
                   "MnuExpDB_5", "MnuExpDB_6"});
  expected.insert({"mnuImport_0", "mnuImport_1", "mnuImportGarmin_0"});
  expected.insert({"MnuParametres", "mnustd_0", "mnustd_1", "mnuAnalyse_0", "mnuAnalyse_1",
                   "mnuPhenolo", "mnuResume", "mnuDecades", "mnuAnnees"});
  EXPECT_EQ(Actifs(true), expected);
}

TEST(Menus, MenusThatNeedAFileOpenWithIt) {
  for (const char* name : {"MnuEdition", "MnuVisualiser", "MnuImporter", "MnuExporter"}) {
    EXPECT_FALSE(EstActif(*Cherche(name), {})) << name;
    EXPECT_TRUE(EstActif(*Cherche(name), {.fileOpen = true})) << name;
  }
}

TEST(Menus, ToolButtonsRepeatRowsThatAreThere) {
  std::set<std::string> repeated;
  for (const MenuEntry& tool : OutilsForm1()) {
    if (!tool.same.empty()) repeated.insert(NomObjet(RangeeDe(ArbreDesMenus(), tool)));
    EXPECT_EQ(tool.same.empty(), tool.run != nullptr) << NomObjet(tool);
  }
  EXPECT_EQ(repeated, (std::set<std::string>{"MnuOuvrir", "MnuEnregistrer", "MnuNouveau",
                                             "mnuChercher_0", "MnuSupprimer", "MnuVisCarte"}));
}

TEST(Menus, ToolButtonsNeedWhatTheirCommandNeeds) {
  const auto actifs = [](const MenuState& state) {
    std::string names;
    for (const MenuEntry& tool : OutilsForm1()) {
      if (EstActif(tool, state)) names += NomObjet(tool) + " ";
    }
    return names;
  };
  EXPECT_EQ(actifs({}), "cmd_0 cmd_2 ");
  EXPECT_EQ(actifs({.fileOpen = true}), "cmd_0 cmd_1 cmd_2 cmd_4 cmd_5 cmdMap ");
  EXPECT_EQ(actifs({.fileOpen = true, .hasRow = true}),
            "cmd_0 cmd_1 cmd_2 cmd_3 cmd_4 cmd_5 cmdMap ");
}

TEST(Menus, TheNextHitNeedsASearch) {
  EXPECT_FALSE(EstActif(*Cherche("mnuChercher_1"), {.fileOpen = true}));
  EXPECT_TRUE(EstActif(*Cherche("mnuChercher_1"), {.fileOpen = true, .searched = true}));
}

TEST(Menus, ANameThatNoRowHasIsAFault) {
  EXPECT_THROW(RangeeNommee(ArbreDesMenus(), "MnuNothing"), TalpenaError);
}

TEST(Menus, NumberTheRecentFiles) {
  EXPECT_EQ(LibelleDernierFichier(1, "/data/a.deg"), "&1 /data/a.deg");
  EXPECT_EQ(LibelleDernierFichier(4, "C:\\Moles & co.deg"), "&4 C:\\Moles & co.deg");
}

/// Letters behind single ampersands among the captions of one menu.
void VerifieLettres(std::span<const MenuEntry> entries, std::int16_t langue) {
  std::set<char> letters;
  for (const MenuEntry& entry : entries) {
    if (entry.base == 0) continue;
    const std::string caption = Libelle(entry, langue);
    const std::size_t mark = caption.find('&');
    if (mark == std::string::npos || mark + 1 >= caption.size()) continue;
    const char letter = static_cast<char>(std::tolower(caption[mark + 1]));
    EXPECT_TRUE(letters.insert(letter).second) << langue << ": " << caption;
  }
  for (const MenuEntry& entry : entries) VerifieLettres(entry.children, langue);
}

TEST(Menus, TranslatedMnemonicsDoNotCollideWithinAMenu) {
  for (const std::int16_t langue : menuLanguages) {
    if (langue != 1000) VerifieLettres(ArbreDesMenus(), langue);
  }
}

}  // namespace
}  // namespace talpena
