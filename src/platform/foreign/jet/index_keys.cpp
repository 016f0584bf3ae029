#include "platform/foreign/jet/index_keys.h"

#include <algorithm>
#include <array>

#include "common/text.h"

namespace talpena::jet {
namespace {

constexpr char present = 0x7F;  // before a value that is not Null, in rising order
constexpr char endOfPart = 0x01;
constexpr char endOfText = 0x00;
constexpr char noAccent = 0x02;

struct Weight {
  char character;  ///< of code page 1252; letters in capitals
  std::string_view bytes;
};

// clang-format off
constexpr std::array weights = {
    Weight{' ', "\x07"}, Weight{'!', "\x09"}, Weight{'"', "\x0A"}, Weight{'#', "\x0C"},
    Weight{'$', "\x0E"}, Weight{'%', "\x10"}, Weight{'&', "\x12"}, Weight{'(', "\x14"},
    Weight{')', "\x16"}, Weight{'*', "\x18"}, Weight{',', "\x1A"}, Weight{'.', "\x1C"},
    Weight{'/', "\x1E"}, Weight{':', "\x20"}, Weight{';', "\x22"}, Weight{'?', "\x24"},
    Weight{'@', "\x26"}, Weight{'[', "\x27"}, Weight{'\\', "\x29"}, Weight{']', "\x2A"},
    Weight{'^', "\x2B\x02"}, Weight{'_', "\x2B\x03"}, Weight{'`', "\x2B\x07"},
    Weight{'{', "\x2B\x09"}, Weight{'|', "\x2B\x0B"}, Weight{'}', "\x2B\x0D"},
    Weight{'~', "\x2B\x0F"}, Weight{'+', "\x2C"}, Weight{'<', "\x2E"}, Weight{'=', "\x30"},
    Weight{'>', "\x32"},
    Weight{'0', "\x36"}, Weight{'1', "\x38"}, Weight{'2', "\x3A"}, Weight{'3', "\x3C"},
    Weight{'4', "\x3E"}, Weight{'5', "\x40"}, Weight{'6', "\x42"}, Weight{'7', "\x44"},
    Weight{'8', "\x46"}, Weight{'9', "\x48"},
    Weight{'A', "\x4A"}, Weight{'B', "\x4C"}, Weight{'C', "\x4D"}, Weight{'D', "\x4F"},
    Weight{'E', "\x51"}, Weight{'F', "\x53"}, Weight{'G', "\x55"}, Weight{'H', "\x57"},
    Weight{'I', "\x59"}, Weight{'J', "\x5B"}, Weight{'K', "\x5C"}, Weight{'L', "\x5E"},
    Weight{'M', "\x60"}, Weight{'N', "\x62"}, Weight{'O', "\x64"}, Weight{'P', "\x66"},
    Weight{'Q', "\x68"}, Weight{'R', "\x69"}, Weight{'S', "\x6B"}, Weight{'T', "\x6D"},
    Weight{'U', "\x6F"}, Weight{'V', "\x71"}, Weight{'W', "\x73"}, Weight{'X', "\x75"},
    Weight{'Y', "\x76"}, Weight{'Z', "\x78"},
    // AE, OE, ss and thorn count as two letters, but as one character.
    Weight{'\xC6', "\x4A\x51"}, Weight{'\x8C', "\x64\x51"}, Weight{'\xDF', "\x6B\x6B"},
    Weight{'\xDE', "\x6D\x57"},
    Weight{'\xB9', "\x38"}, Weight{'\xB2', "\x3A"}, Weight{'\xB3', "\x3C"},  // raised 1, 2, 3
    Weight{'\xBC', "\x37\x12"}, Weight{'\xBD', "\x37\x16"}, Weight{'\xBE', "\x37\x1A"},
    Weight{'\xA0', "\x08\x02"}, Weight{'\xA1', "\x2B\x10"}, Weight{'\xA6', "\x2B\x11"},
    Weight{'\xA8', "\x2B\x12"}, Weight{'\xAF', "\x2B\x13"}, Weight{'\xB4', "\x2B\x14"},
    Weight{'\xB8', "\x2B\x15"}, Weight{'\xBF', "\x2B\x16"}, Weight{'\x98', "\x2B\x1C"},
    Weight{'\x91', "\x2B\x37"}, Weight{'\x92', "\x2B\x38"}, Weight{'\x82', "\x2B\x39"},
    Weight{'\x93', "\x2B\x3B"}, Weight{'\x94', "\x2B\x3C"}, Weight{'\x84', "\x2B\x3D"},
    Weight{'\x8B', "\x2B\x46"}, Weight{'\x9B', "\x2B\x47"},
    Weight{'\xB1', "\x33\x04"}, Weight{'\xAB', "\x33\x05"}, Weight{'\xBB', "\x33\x07"},
    Weight{'\xD7', "\x33\x09"}, Weight{'\xF7', "\x33\x0A"},
    Weight{'\xA2', "\x34\xA6"}, Weight{'\xA3', "\x34\xA7"}, Weight{'\xA4', "\x34\xA8"},
    Weight{'\xA5', "\x34\xA9"}, Weight{'\xA7', "\x34\xAA"}, Weight{'\xA9', "\x34\xAB"},
    Weight{'\xAC', "\x34\xAC"}, Weight{'\xAE', "\x34\xAD"}, Weight{'\xB0', "\x34\xAE"},
    Weight{'\xB5', "\x34\xAF"}, Weight{'\xB6', "\x34\xB0"}, Weight{'\xB7', "\x34\xB1"},
    Weight{'\x86', "\x34\xB3"}, Weight{'\x87', "\x34\xB4"}, Weight{'\x95', "\x34\xB5"},
    Weight{'\x85', "\x34\xB9"}, Weight{'\x89', "\x34\xBA"}, Weight{'\x80', "\x35\xA1"},
    Weight{'\x99', "\x6E\x04"},
};

/// Characters that are others with a mark, and the weight of the mark.
struct Accented { std::string_view characters; std::string_view plain; char accent; };
constexpr std::array accents = {
    Accented{"\xC1\xC9\xCD\xD3\xDA\xDD", "AEIOUY", 0x0E},      // acute
    Accented{"\xC0\xC8\xCC\xD2\xD9", "AEIOU", 0x0F},           // grave
    Accented{"\xC2\xCA\xCE\xD4\xDB", "AEIOU", 0x12},           // circumflex
    Accented{"\xC4\xCB\xCF\xD6\xDC\x9F", "AEIOUY", 0x13},      // diaeresis
    Accented{"\x8A\x8E", "SZ", 0x14},                          // caron
    Accented{"\xC3\xD1\xD5", "ANO", 0x19},                     // tilde
    Accented{"\xC5", "A", 0x1A},                               // ring
    Accented{"\xC7", "C", 0x1C},                               // cedilla
    Accented{"\xD8", "O", 0x21},                               // stroke
    Accented{"\xD0", "D", 0x68},                               // eth
    Accented{"\x83", "F", 0x7B},                               // florin
    Accented{"\xAA\xBA\x88", "AO^", 0x03},                     // raised a, o; circumflex alone
};

/// Characters that count last of all: where they stand, and which it is.
struct Weightless { char character; char code; };
constexpr std::array weightless = {
    Weightless{'\'', '\x80'}, Weightless{'-', '\x82'}, Weightless{'\xAD', '\x83'},
    Weightless{'\x96', '\x89'}, Weightless{'\x97', '\x8B'},  // dashes
};
// clang-format on

/// The capital of a letter of code page 1252.
char Capitale(char character) {
  const auto c = static_cast<unsigned char>(character);
  const bool latin = c >= 0xE0 && c <= 0xFE && c != 0xF7;
  if ((c >= 'a' && c <= 'z') || latin) return static_cast<char>(c - 0x20);
  if (c == 0x9A || c == 0x9C || c == 0x9E) return static_cast<char>(c - 0x10);
  return c == 0xFF ? '\x9F' : character;
}

/// The parts of a key while its characters go by.
class TextKey {
 public:
  void Ajoute(char character) {
    const auto hidden = std::ranges::find(weightless, character, &Weightless::character);
    if (hidden != weightless.end()) return AjouteSansPoids(hidden->code);
    for (const Accented& a : accents) {
      const std::size_t at = a.characters.find(character);
      if (at != std::string_view::npos) return AjoutePoids(a.plain[at], a.accent);
    }
    AjoutePoids(character, noAccent);
  }

  std::string Fin() {
    accents_.erase(accents_.find_last_not_of(noAccent) + 1);
    std::string key = weights_ + endOfPart + accents_;
    if (!rest_.empty()) key += std::string(3, endOfPart) + rest_;
    return key + endOfText;
  }

 private:
  void AjoutePoids(char character, char accent) {
    const auto weight = std::ranges::find(weights, character, &Weight::character);
    if (weight == weights.end()) return;
    weights_ += weight->bytes;
    accents_ += accent;
  }

  void AjouteSansPoids(char code) {
    constexpr std::size_t first = 0x8007;
    const std::size_t where = first + 4 * accents_.size();  // of the characters that have a weight
    rest_ += static_cast<char>(where >> 8);
    rest_ += static_cast<char>(where);
    rest_ += '\x06';
    rest_ += code;
  }

  std::string weights_;
  std::string accents_;
  std::string rest_;
};

}  // namespace

void AjouteCle(std::string& key, std::int32_t value) {
  key += present;
  const std::uint32_t shifted = static_cast<std::uint32_t>(value) ^ 0x80000000U;
  for (int shift = 24; shift >= 0; shift -= 8) key += static_cast<char>(shifted >> shift);
}

void AjouteCle(std::string& key, std::string_view utf8) {
  key += present;
  TextKey text;
  const std::size_t last = utf8.find_last_not_of(' ');
  utf8 = utf8.substr(0, last == std::string_view::npos ? 0 : last + 1);
  for (const char c : Utf8VersCp1252AvecManques(utf8)) text.Ajoute(Capitale(c));
  key += text.Fin();
}

}  // namespace talpena::jet
