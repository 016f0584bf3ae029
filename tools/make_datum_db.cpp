// make_datum_db DATUMS.CSV ELLIPSOIDS.CSV DATUM.MDB: makes the datum database that ships.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

#include "datum_database.h"
#include "platform/foreign/jet_format.h"
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
    std::vector<std::unique_ptr<talpena::ForeignFormat>> formats;
    formats.push_back(talpena::CreeFormatJet());
    const auto engine = talpena::CreeMoteurSqlite(std::move(formats));
    talpena::EcritBaseDatums(*engine, talpena::LitSourceCatalogue(argv[1], argv[2]), made.string());
    using fs::perms;
    fs::permissions(
        made, perms::owner_read | perms::owner_write | perms::group_read | perms::others_read);
    fs::rename(made, target);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "make_datum_db: %s\n", e.what());
    return 1;
  }
  return 0;
}
