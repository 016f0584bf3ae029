// make_datum_db DATUMS.CSV ELLIPSOIDS.CSV DATUM.MDB: makes the datum database that ships.
#include <cstdio>
#include <exception>
#include <string>

#include "datum_database.h"
#include "datum_source.h"
#include "made_database.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: make_datum_db datums.csv ellipsoids.csv DATUM.MDB\n", stderr);
    return 2;
  }
  try {
    const auto source = talpena::LitSourceCatalogue(argv[1], argv[2]);
    talpena::PoseBase(argv[3], [&](talpena::TableEngine& engine, const std::string& path) {
      talpena::EcritBaseDatums(engine, source, path);
    });
  } catch (const std::exception& e) {
    std::fprintf(stderr, "make_datum_db: %s\n", e.what());
    return 1;
  }
  return 0;
}
