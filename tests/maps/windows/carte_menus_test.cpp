// The table of commands of the map window.
#include "maps/windows/carte_menus.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace talpena {
namespace {

std::string Actifs(std::span<const CarteEntree> entries, const CarteEtat& etat) {
  std::string names;
  Parcourt(entries, [&](const CarteEntree& entry) {
    if (EstActif(entry, etat)) names += NomObjet(entry) + " ";
  });
  return names;
}

TEST(CarteMenus, BearEachNameAndEachKeyOnce) {
  std::set<std::string> names, keys;
  Parcourt(MenusCarte(), [&](const CarteEntree& entry) {
    EXPECT_TRUE(names.insert(NomObjet(entry)).second) << NomObjet(entry);
    if (!entry.key.empty()) {
      EXPECT_TRUE(keys.insert(std::string(entry.key)).second) << entry.key;
    }
  });
}

TEST(CarteMenus, RunSomethingOrRepeatARowThatDoes) {
  for (const auto& entries : {MenusCarte(), OutilsCarte()}) {
    Parcourt(entries, [](const CarteEntree& entry) {
      if (entry.EstSeparateur()) return;
      EXPECT_TRUE(AUneCommande(RangeeDe(MenusCarte(), entry))) << NomObjet(entry);
      EXPECT_EQ(AUneCommande(entry), entry.same.empty()) << NomObjet(entry);
    });
  }
}

TEST(CarteMenus, HaveACaptionInEveryLanguage) {
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    for (const auto& entries : {MenusCarte(), OutilsCarte()}) {
      Parcourt(entries, [&](const CarteEntree& entry) {
        EXPECT_FALSE(Libelle(entry, static_cast<std::int16_t>(langue)).empty()) << NomObjet(entry);
        if (entry.help != 0) {
          EXPECT_NO_THROW(Texte(static_cast<std::int16_t>(langue), entry.help)) << NomObjet(entry);
        }
      });
    }
  }
}

TEST(CarteMenus, WithoutAPictureAMapIsOpenedOrTheViewLeft) {
  EXPECT_EQ(Actifs(OutilsCarte(), {}), "open properties distri stop ");
  EXPECT_EQ(Actifs(MenusCarte(), {}),
            "mnuFichier mnuFichier_0 mnuFichier_6 mnuAffichage mnuOptions mnuOptions_0 "
            "mnuOptions_1 mnuCache mnuCache_1 ");
}

TEST(CarteMenus, OnlyAGeoreferencedMapGoesOutAsEps) {
  EXPECT_EQ(Actifs(OutilsCarte(), {.picture = true}),
            "open save print properties grid distri stop ");
  EXPECT_EQ(Actifs(OutilsCarte(), {.picture = true, .georeference = true}),
            "open save print eps properties grid distri stop ");
}

}  // namespace
}  // namespace talpena
