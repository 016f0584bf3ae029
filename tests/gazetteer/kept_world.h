// The query over gazetteers on the disk, with a cache for their copies.
#pragma once
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "gazetteer/geo_query.h"
#include "gazetteer/setup_world.h"
#include "store/record/record_screen.h"

namespace talpena::test {

struct KeptWorld : SetupWorld, GazetteerDialogs {
  GazetteerState gazetteer;
  GazetteerContext geo{context, gazetteer, *this};
  GeoQueryScreen query;
  RecordScreen fiche;
  int setups = 0;

  KeptWorld() {
    environment.prive = dossier / "cache";
    std::filesystem::create_directory(environment.prive);
    ChargeGeoQuery(geo, query);
  }
  void MontreGeoSetup() override { ++setups; }

  void Cherche(const std::string& text, GeoSearch kind = GeoSearch::Exact) {
    query.txt = text;
    cmd_Click(geo, query, kind);
  }
  std::vector<std::string> Noms() {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < query.ListView1.Nombre(); ++i) {
      names.push_back(query.ListView1.Item(i).Texte(PlaceColumn::Name));
    }
    return names;
  }
  std::vector<std::string> Trouve(const std::string& text, GeoSearch kind = GeoSearch::Exact) {
    Cherche(text, kind);
    return Noms();
  }

  /// Paths of the copies, sorted.
  std::vector<std::string> Copies() const {
    std::vector<std::string> paths;
    const std::filesystem::path folder = std::filesystem::path(environment.prive) / "gazetteer";
    if (!std::filesystem::is_directory(folder)) return paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      paths.push_back(entry.path().string());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
  }

  /// A search fails with this number, says so, and leaves the record form as it was.
  void Echoue(const std::string& text, int number, GeoSearch kind = GeoSearch::Exact) {
    const std::size_t before = dialogues.boxes.size();
    Cherche(text, kind);
    ASSERT_EQ(dialogues.boxes.size(), before + 1) << text;
    const std::string& told = dialogues.boxes.back().text;
    EXPECT_TRUE(told.starts_with("Error during database Query\n")) << told;
    EXPECT_TRUE(told.ends_with(" " + std::to_string(number))) << told;
    EXPECT_EQ(query.ListView1.Nombre(), 0U);
    ListView1_DblClick(geo, query, fiche);
    EXPECT_FALSE(fiche.modifie);
    EXPECT_EQ(fiche.ChampLibre, "");
    EXPECT_EQ(fiche.EditBox, (std::array<std::string, 3>{}));
  }
};

}  // namespace talpena::test
