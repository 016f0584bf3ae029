// make_datum_db DATUMS.CSV ELLIPSOIDS.CSV DATUM.MDB: makes the datum database that ships.
#include <cstdio>
#include <exception>
#include <filesystem>

#include "datum_database.h"
#include "platform/sqlite/sqlite_engine.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: make_datum_db datums.csv ellipsoids.csv DATUM.MDB\n", stderr);
    return 2;
  }
  try {
    namespace fs = std::filesystem;
    const fs::path target(argv[3]);
    fs::path made = target;
    made += ".new";  // a build broken off leaves no half database in its place
    fs::remove(made);
    const auto engine = talpena::CreeMoteurSqlite();
    talpena::EcritBaseDatums(*engine, talpena::LitSourceCatalogue(argv[1], argv[2]), made.string());
    using fs::perms;  // the engine makes files for the user alone; this one is for all
    fs::permissions(
        made, perms::owner_read | perms::owner_write | perms::group_read | perms::others_read);
    fs::rename(made, target);
    fs::remove(made += "-journal");  // of a database that nobody will open by that name
  } catch (const std::exception& e) {
    std::fprintf(stderr, "make_datum_db: %s\n", e.what());
    return 1;
  }
  return 0;
}
