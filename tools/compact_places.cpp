// compact_places PLACES.CSV[.gz] PLACES.GZ: makes data/gazetteer/places.gz of the published places;
// run by hand when there are new ones.
#include <cstdio>
#include <exception>

#include "places/gzip_file.h"
#include "places/place_list.h"
#include "places/place_source.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: compact_places places.csv places.gz\n", stderr);
    return 2;
  }
  try {
    talpena::EcritGzip(argv[2], talpena::EcritLieux(talpena::LitLieuxPublies(argv[1])));
  } catch (const std::exception& e) {
    std::fprintf(stderr, "compact_places: %s\n", e.what());
    return 1;
  }
  return 0;
}
