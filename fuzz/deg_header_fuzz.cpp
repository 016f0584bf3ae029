// The header behind its first line: read into an empty state, read again for a merge, compared
// with what was read.
#include <cstdint>

#include "check.h"
#include "common/talpena_error.h"
#include "fakes/document_states.h"
#include "fakes/memory_input.h"
#include "store/deg_header.h"
#include "store/free_fields.h"

namespace {

using namespace talpena;
using talpena::fuzz::Verifie;
using talpena::fuzz::VerifieTexte;

DegLines Ouvre(std::string_view bytes) {
  return DegLines(std::make_unique<test::MemoryInput>(bytes));
}

/// Runs a reader; false when it refused the text with one of the failures that it may raise.
template <typename Read>
bool Reussit(Read&& read) {
  try {
    read();
    return true;
  } catch (const TalpenaError& e) {
    Verifie(e.number() == ErrorNumber::InputPastEnd || e.number() == ErrorNumber::Overflow ||
            e.number() == ErrorNumber::SubscriptOutOfRange);
    return false;
  }
}

void VerifieEtat(const DistributionHeader& entete) {
  VerifieTexte(entete.DatumFichierCode);
  VerifieTexte(entete.FreeFieldText);
  VerifieTexte(entete.TitreFichier);
  Verifie(!entete.FreeFieldSeparator.empty());
  Verifie(entete.FreeFieldText.size() <= MaxFreeFieldText);
  for (const FreeFieldDef& field : entete.FreeFieldDefs) {
    VerifieTexte(field.Code);
    VerifieTexte(field.Label);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  DistributionHeader entete;
  DegLines lines = Ouvre(bytes);
  const bool read = Reussit([&] { LitEnTete(entete, DatumCatalogue(), lines); });
  VerifieEtat(entete);
  Verifie(!read || static_cast<std::size_t>(entete.FreeFieldCount) == entete.FreeFieldDefs.size());

  DistributionHeader merged;
  DegLines again = Ouvre(bytes);
  Reussit([&] { LitEnTeteFusion(merged, again); });
  VerifieEtat(merged);

  std::string refusal;
  DegLines compared = Ouvre(bytes);
  if (Reussit([&] { refusal = RefusDeFusion(entete, compared); })) VerifieTexte(refusal);
  return 0;
}
