#include "places/place_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "fakes/temp_folder.h"
#include "places/gzip_file.h"
#include "places/place_source.h"

namespace talpena {
namespace {

const Place saintGhislain{"Saint-Ghislain", "SAINTGHISLAIN", 5044816, 381886, "PPL", "BE",
                          "Wallonia"};
const Place gembloux{"Gembloux", "GEMBLOUX", 5056149, 469889, "PPL", "BE", "Wallonia"};
const Place quito{"Quito", "QUITO", -22985, -7852495, "PPLC", "EC", "Pichincha"};
const Place unnamed{"京都", "KYOTO", 3502107, 13575385, "PPLA", "JP", ""};

std::string Fault(const std::string& text) {
  try {
    LitLieux(text);
  } catch (const std::runtime_error& e) {
    return e.what();
  }
  return {};
}

TEST(PlaceList, GroupsPlacesAndCountsLatitudesOn) {
  EXPECT_EQ(EcritLieux({unnamed, quito, gembloux, saintGhislain}),
            "=BE\tWallonia\n"
            "Saint-Ghislain\t5044816\t381886\n"
            "Gembloux\t11333\t469889\n"
            "=EC\tPichincha\n"
            "Quito\t-22985\t-7852495\tPPLC\n"
            "=JP\t\n"
            "京都\t3502107\t13575385\tPPLA\tKYOTO\n");
}

TEST(PlaceList, ReadsWhatItWrote) {
  const std::vector<Place> places{saintGhislain, gembloux, quito, unnamed};
  EXPECT_EQ(LitLieux(EcritLieux(places)), places);
  EXPECT_TRUE(LitLieux("").empty());
}

TEST(PlaceList, NamesTheLineOfAFault) {
  EXPECT_EQ(Fault("=BE\tx\nA\t1\t2\nB\t1"), "line 3: no number");
  EXPECT_EQ(Fault("=BE\tx\nA\t1.5\t2"), "line 2: no number");
  EXPECT_EQ(Fault("=BE\tx\nA\t9000001\t0"), "line 2: no point on the earth");
  EXPECT_EQ(Fault("=BE\tx\nA\t0\t-18000001"), "line 2: no point on the earth");
  EXPECT_EQ(Fault("=BE\tx\nA\t9000000\t18000000\n"), "");
  EXPECT_EQ(Fault("A\t1\t2\n"), "line 1: a place without a country");
  EXPECT_EQ(Fault("=BE\tx\n京都\t1\t2\n"), "line 2: a place without a name");
}

TEST(GzipFile, GivesTheSameBytesForTheSameText) {
  const test::TempFolder folder;
  EcritGzip(folder / "a.gz", "a text");
  EcritGzip(folder / "b.gz", "a text");
  EXPECT_EQ(LitGzip(folder / "a.gz"), "a text");
  const auto bytes = [&](const char* name) {
    std::ifstream in(folder / name, std::ios::binary);
    return std::string{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  };
  EXPECT_EQ(bytes("a.gz"), bytes("b.gz"));
}

TEST(GzipFile, RefusesWhatIsMissingOrCut) {
  const test::TempFolder folder;
  EcritGzip(folder / "a.gz", "a text that is long enough to be cut");
  std::filesystem::resize_file(folder / "a.gz", 24);
  EXPECT_THROW(LitGzip(folder / "a.gz"), std::runtime_error);
  EXPECT_THROW(LitGzip(folder / "none.gz"), std::runtime_error);
  EXPECT_THROW(EcritGzip(folder / "no" + "/such.gz", "x"), std::runtime_error);
}

TEST(LitLieuxPublies, ReadsAPublishedTable) {
  const test::TempFolder folder;
  std::ofstream(folder / "places.csv")
      << "name,sort_name,latitude,longitude,feature_code,country_code,country_name,admin_name,"
         "admin_code\r\n"
         "Saint-Ghislain,SAINTGHISLAIN,50.44816,3.81886,PPL,BE,Belgium,Wallonia,WAL\r\n"
         "\"A, \"\"b\"\"\",AB,-0.22985,-78.52495,PPLC,EC,Ecuador,,\r\n";
  const auto places = LitLieuxPublies(folder / "places.csv");
  ASSERT_EQ(places.size(), 2U);
  EXPECT_EQ(places[0], saintGhislain);
  EXPECT_EQ(places[1], (Place{"A, \"b\"", "AB", -22985, -7852495, "PPLC", "EC", ""}));
}

}  // namespace
}  // namespace talpena
