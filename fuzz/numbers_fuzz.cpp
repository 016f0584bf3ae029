// Numbers and code page 1252 on any bytes. The first line is a mask, the rest a text; its first
// eight bytes are also taken for a double.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace {

using namespace talpena;

void Exige(bool holds) {
  if (!holds) std::abort();
}

/// What Val gives; empty for its one failure.
std::optional<double> Lit(std::string_view text) {
  try {
    return Val(text);
  } catch (const TalpenaError& e) {
    Exige(e.number() == ErrorNumber::Overflow);
    return std::nullopt;
  }
}

void EssaieLecture(std::string_view text) {
  const std::optional<double> value = Lit(text);
  Exige(!value || std::isfinite(*value));
  std::string packed(text);
  std::erase_if(packed, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
  Exige(Lit(packed) == value);
  if (EstNumerique(text)) Exige(!packed.empty());
  if (value) {
    Exige(Val(Str(*value)) == *value);
    Exige(EstNumerique(Str(*value)));
  }
}

void EssaieEcriture(std::string_view text, std::string_view mask) {
  double value = 0;
  if (!text.empty()) std::memcpy(&value, text.data(), std::min(text.size(), sizeof value));
  Format(value, mask);
  if (!std::isfinite(value)) return;
  Exige(Val(Str(value)) == value);
  const double written = Val(Format(value, "0.00000;-0.00000"));
  Exige(std::fabs(written - value) <= 0.00000500001 + std::fabs(value) * 1e-15);
  try {
    const float single = EnSimple(value);
    Exige(EnSimple(Val(Str(single))) == single);
    Exige(std::fabs(Arrondi32(value) - value) <= 0.5);
    Exige(std::fabs(Arrondi16(value) - value) <= 0.5);
  } catch (const TalpenaError& e) {
    Exige(e.number() == ErrorNumber::Overflow && std::fabs(value) > 32767);
  }
}

void EssaieTexte(std::string_view text) {
  const std::string utf8 = Cp1252VersUtf8(text);
  Exige(Utf8VersCp1252(utf8) == std::string(text));
  Exige(CompteCaracteres(utf8) == text.size());
  Exige(Cp1252VersUtf8(Utf8VersCp1252AvecManques(utf8)) == utf8);
  std::string missing;
  if (const auto bytes = Utf8VersCp1252(text, &missing)) {
    Exige(Cp1252VersUtf8(*bytes) == text && missing.empty());
  } else {
    Exige(!missing.empty() && text.find(missing) != std::string_view::npos);
  }
  Exige(Utf8VersCp1252AvecManques(text).size() == CompteCaracteres(text));
  Exige(CompteCaracteres(PremiersCaracteres(utf8, 3)) == std::min<std::size_t>(3, text.size()));
  Exige(EgalSansCasse(text, Majuscules(text)));
  Exige(EgalSansCasse(utf8, Minuscules(utf8)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(input.find('\n'), size);
  const std::string_view mask = input.substr(0, end);
  const std::string_view text = input.substr(std::min(end + 1, size));
  EssaieLecture(text);
  EssaieEcriture(text, mask);
  EssaieTexte(text);
  return 0;
}
