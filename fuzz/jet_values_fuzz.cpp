// Values of Access files: whatever the bytes, a text is UTF-8 and a number has its width.
#include <cstdint>

#include "check.h"
#include "common/text.h"
#include "platform/foreign/jet_values.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace talpena;
  using fuzz::Verifie;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::string jet3 = TexteJet(JetVersion::Jet3, bytes);
  Verifie(EstUtf8(jet3) && Utf8VersCp1252(jet3) == bytes);
  const std::string jet4 = TexteJet(JetVersion::Jet4, bytes);
  Verifie(EstUtf8(jet4) && CompteCaracteres(jet4) <= size);
  for (const std::size_t width : {1U, 2U, 4U, 8U}) {
    Verifie(EntierJet(bytes, width).has_value() == (size >= width));
  }
  Verifie(SimpleJet(bytes).has_value() == (size >= 4));
  Verifie(DoubleJet(bytes).has_value() == (size >= 8));
  Verifie(MonnaieJet(bytes).has_value() == (size >= 8));
  Verifie(NumeriqueJet(bytes, 4).has_value() == (size >= 17));
  const auto guid = GuidJet(bytes);
  Verifie(guid.has_value() == (size >= 16) && (!guid || guid->size() == 38));
  Verifie(!VersionJet(bytes) || bytes.substr(4, 15) == "Standard Jet DB");
  return 0;
}
