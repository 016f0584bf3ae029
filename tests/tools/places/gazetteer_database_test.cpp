#include "places/gazetteer_database.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "fakes/temp_folder.h"
#include "platform/foreign/jet_format.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena {
namespace {

std::unique_ptr<TableEngine> Moteur() {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  return CreeMoteurSqlite(std::move(formats));
}

const CountryList& Pays() {
  static const CountryList countries(TALPENA_SOURCE_DIR "/data/gazetteer/countries.csv");
  return countries;
}

/// The rows of a written file, field after field, parted by a bar.
std::vector<std::string> Ecrites(const std::vector<Place>& places) {
  const test::TempFolder folder;
  const auto engine = Moteur();
  EcritGazetteer(*engine, places, Pays(), folder / "g.mdb");
  const auto base = engine->OpenDatabase(folder / "g.mdb", true);
  const auto rows = base->OpenRecordset(ShippedGazetteerTable);
  std::vector<std::string> lines;
  for (; !rows->EOF_(); rows->MoveNext()) {
    std::string line;
    for (int f = 0; f < 8; ++f) line += rows->Get(f).Texte() + '|';
    lines.push_back(line);
  }
  return lines;
}

TEST(EcritGazetteer, WritesTheFieldsOfAPlace) {
  EXPECT_EQ(Ecrites({{"Łódź", "LODZ", 5177058, 1947395, "PPLA", "PL", ""}}),
            (std::vector<std::string>{"LODZ|Łódź|51.77058|19.47395|PL|PPLA|Poland||"}));
}

TEST(EcritGazetteer, OrdersByKeyThenBySeatThenByCountry) {
  const auto lines = Ecrites({{"Paris", "PARIS", 1, 1, "PPL", "CA", "x"},
                              {"Paris", "PARIS", 1, 1, "PPLA2", "US", "x"},
                              {"Paris", "PARIS", 1, 1, "PPLC", "FR", "x"},
                              {"Pari", "PARI", 1, 1, "PPL", "US", "x"},
                              {"Paris", "PARIS", 1, 1, "PPL", "BE", "x"}});
  std::vector<std::string> countries;
  for (const std::string& line : lines) {
    const std::size_t at = line.find("00001|0.00001|");
    countries.push_back(line.substr(at + 14, 2));
  }
  EXPECT_EQ(countries, (std::vector<std::string>{"US", "FR", "US", "BE", "CA"}));
}

TEST(EcritGazetteer, RefusesWhatDoesNotFit) {
  const test::TempFolder folder;
  const auto engine = Moteur();
  EXPECT_THROW(EcritGazetteer(*engine, {{"A", "A", 1, 1, "PPL", "QQ", ""}}, Pays(), folder / "a"),
               std::runtime_error);
  const std::string longName(81, 'A');
  EXPECT_THROW(
      EcritGazetteer(*engine, {{longName, longName, 1, 1, "PPL", "BE", ""}}, Pays(), folder / "b"),
      TalpenaError);
}

}  // namespace
}  // namespace talpena
