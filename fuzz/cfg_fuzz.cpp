// A set-up file of the gazetteer of any bytes: texts of bounded length, and what was read comes
// back from what is written of it.
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "check.h"
#include "fakes/memory_input.h"
#include "gazetteer/setup_file.h"
#include "platform/import_file.h"

using namespace talpena;
using fuzz::Verifie;

namespace {

SetupRead Lit(std::string_view bytes) {
  return LitSetup(PrendImport(std::make_unique<test::MemoryInput>(bytes), Encodage::Cp1252));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const SetupRead read = Lit({reinterpret_cast<const char*>(data), size});
  Verifie(read.valeurs <= SetupValue::Count);
  Verifie(read.echec.has_value() == (read.valeurs < SetupValue::Count));
  fuzz::VerifieTexte(read.setup.File);
  for (const std::string& name : read.setup.Noms) fuzz::VerifieTexte(name);
  const std::string lines = LignesSetup(read.setup);
  const SetupRead again = Lit(lines);
  if (SetupPerdu(read.setup)) return 0;
  Verifie(!again.ancien && again.setup == read.setup);
  return 0;
}
