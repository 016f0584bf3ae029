// A whole .deg file of either form, from its first byte to the cells that go to the table. The
// first input byte gives the size of the blocks in which the file is read.
#include <cmath>
#include <cstdint>

#include "check.h"
#include "common/talpena_error.h"
#include "fakes/document_states.h"
#include "fakes/memory_input.h"
#include "store/deg_file.h"

namespace {

using namespace talpena;
using talpena::fuzz::Verifie;
using talpena::fuzz::VerifieTexte;

void VerifieCellules(const std::array<Cell, 10>& cells, std::size_t fields) {
  Verifie(cells[0].integer >= 0 && cells[0].integer <= 9);
  for (const std::size_t i : {1U, 2U}) {
    Verifie(std::isfinite(cells[i].real));
    Verifie(static_cast<double>(static_cast<float>(cells[i].real)) == cells[i].real);
  }
  for (const std::size_t i : {3U, 4U}) {
    Verifie(cells[i].integer >= INT32_MIN && cells[i].integer <= INT32_MAX);
  }
  Verifie(cells[5].EstNull() || !cells[5].text.empty());
  VerifieTexte(cells[5].text, 1);
  VerifieTexte(cells[6].text, 5);
  VerifieTexte(cells[7].text, 24);
  VerifieTexte(cells[8].text, 10);
  VerifieTexte(cells[9].text);
  Verifie(cells[9].text.size() >= fields);
}

void LitFichier(std::string_view bytes, std::size_t block) {
  DegFileReader reader(std::make_unique<test::MemoryInput>(bytes, block));
  DistributionHeader entete;
  reader.LitEnTete(entete, DatumCatalogue());
  DegFileRows rows = reader.Lignes(entete);
  int told = 0;
  rows.SurAvance = [&told](int) { ++told; };
  std::array<Cell, 10> cells;
  std::size_t count = 0;
  while (rows.Suivante(cells)) {
    ++count;
    VerifieCellules(cells, entete.FreeFieldDefs.size());
  }
  Verifie(count <= bytes.size());
  Verifie(told <= 11);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  try {
    LitFichier({reinterpret_cast<const char*>(data) + 1, size - 1},
               std::size_t{1} << (data[0] % 13));
  } catch (const TalpenaError& e) {
    Verifie(e.number() == ErrorNumber::InputPastEnd || e.number() == ErrorNumber::Overflow ||
            e.number() == ErrorNumber::SubscriptOutOfRange);
    Verifie(!e.description().empty());
  }
  return 0;
}
