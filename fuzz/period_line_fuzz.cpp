// The period line.
#include <cstdint>

#include "check.h"
#include "common/talpena_error.h"
#include "store/period_line.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using talpena::fuzz::Verifie;
  const std::string_view line(reinterpret_cast<const char*>(data), size);
  talpena::DistributionHeader entete;
  entete.NbPivots = 7;
  try {
    talpena::LitPivots(entete, line);
    const std::size_t absent = line.find("0 - 0");
    const bool elsewhere = absent != line.npos && absent != 15 && absent != 29;
    Verifie((entete.NbPivots == 7) == elsewhere);
    Verifie(entete.NbPivots == 7 || (entete.NbPivots >= 0 && entete.NbPivots <= 2));
  } catch (const talpena::TalpenaError& e) {
    Verifie(e.number() == talpena::ErrorNumber::Overflow);
  }
  return 0;
}
