// The date of a receiver as any text: a date of the form of a row, whatever it holds.
#include <cstdint>
#include <string>
#include <string_view>

#include "check.h"
#include "common/numbers.h"
#include "common/text.h"
#include "interchange/gdate.h"

using namespace talpena;
using fuzz::Verifie;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::string date = GDate(text);
  const auto parts = Decoupe(date, '/');
  Verifie(parts.size() == 3 && EstAscii(date));
  Verifie(parts[0].size() == 4 && Val(parts[0]) > 1900 && Val(parts[0]) <= 2080);
  Verifie(parts[1].size() == 2 && Val(parts[1]) >= 0 && Val(parts[1]) <= 12);
  Verifie(parts[2].size() >= 2 && parts[2].size() <= 3 && Val(parts[2]) <= 99);
  Verifie(MoisGarmin(text) >= 0 && MoisGarmin(text) <= 12);
  return 0;
}
