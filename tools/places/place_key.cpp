#include "places/place_key.h"

#include "common/plain_form.h"
#include "common/text.h"

namespace talpena {
namespace {

bool EstDeCle(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

}  // namespace

std::string CleDeLieu(std::string_view nameUtf8) {
  std::string key = Majuscules(FormeSimple(nameUtf8));
  std::erase_if(key, [](char c) { return !EstDeCle(c); });
  return key;
}

}  // namespace talpena
