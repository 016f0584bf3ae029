// Accented letters as PostScript reads them from a string.
#include <string_view>

#include "common/text.h"
#include "maps/eps.h"

namespace talpena {
namespace {

/// The characters that are escaped. Each but the bar has the code of ISO Latin-1.
constexpr std::string_view Accents =
    "ÁÂÄÀÅÃÇÉÊËÈÍÎÏÌÑÓÔÖÒØÕÚÛÜÙÝáâäàåãç©°éêëèíîïìñóôöò½¼õ±®¾úûüùýÿß¹²³µ÷";

std::string Octal(unsigned code) {
  return {'\\', static_cast<char>('0' + code / 64), static_cast<char>('0' + code / 8 % 8),
          static_cast<char>('0' + code % 8)};
}

}  // namespace

void ModifieCar(std::string& text, std::string_view what, std::string_view by) {
  text = Remplace(text, what, by);
}

void ChangeAccents(std::string& text) {
  // All of them are two bytes of UTF-8: five bits of the code, then six.
  for (std::size_t i = 0; i < Accents.size(); i += 2) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(Accents[at]); };
    ModifieCar(text, Accents.substr(i, 2), Octal((byte(i) & 0x1FU) * 64U + (byte(i + 1) & 0x3FU)));
  }
  ModifieCar(text, "|", Octal(0xA6));  // the code of the broken bar, which the plain one becomes
}

}  // namespace talpena
