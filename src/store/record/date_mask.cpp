#include "store/record/date_mask.h"

#include "common/numbers.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr std::size_t monthAt = 5, dayAt = 8, partSize = 2;

/// The number in two places of the mask; 0 when they are empty.
double Nombre(std::string_view mask, std::size_t at) {
  if (mask.size() <= at) return 0;
  return Val(Remplace(mask.substr(at, partSize), "_", " "));
}

}  // namespace

std::optional<std::string> DateEnMasque(std::string_view date) {
  const std::string_view text = RogneDroite(date);
  if (text.size() > MasqueDateVide.size()) return std::nullopt;
  std::string mask(MasqueDateVide);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (mask[i] == '/') {
      if (c != '/') return std::nullopt;
    } else if (c >= '0' && c <= '9') {
      mask[i] = c;
    } else if (c != ' ' && c != '_') {
      return std::nullopt;
    }
  }
  return mask;
}

std::string MasqueEnDate(std::string_view mask) {
  return mask == MasqueDateVide ? std::string() : Remplace(mask, "_", " ");
}

bool EstDateValide(std::string_view mask) {
  const double month = Nombre(mask, monthAt), day = Nombre(mask, dayAt);
  return month >= 0 && month <= 12 && day >= 0 && day <= 31;
}

}  // namespace talpena
