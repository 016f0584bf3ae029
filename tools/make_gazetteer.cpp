// make_gazetteer PLACES.GZ COUNTRIES.CSV TLPGAZET.MDB: makes the gazetteer that ships.
#include <cstdio>
#include <exception>
#include <string>

#include "made_database.h"
#include "places/country_list.h"
#include "places/gazetteer_database.h"
#include "places/gzip_file.h"
#include "places/place_list.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: make_gazetteer places.gz countries.csv tlpgazet.mdb\n", stderr);
    return 2;
  }
  try {
    const auto places = talpena::LitLieux(talpena::LitGzip(argv[1]));
    const talpena::CountryList countries(argv[2]);
    talpena::PoseBase(argv[3], [&](talpena::TableEngine& engine, const std::string& path) {
      talpena::EcritGazetteer(engine, places, countries, path);
    });
  } catch (const std::exception& e) {
    std::fprintf(stderr, "make_gazetteer: %s\n", e.what());
    return 1;
  }
  return 0;
}
