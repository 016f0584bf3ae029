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
};

/// Letters with accents: the plain letter and the weight of the accent.
struct Accented { std::string_view letters; std::string_view plain; char accent; };
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
};

/// Characters that are two letters.
struct Ligature { char character; std::string_view letters; };
constexpr std::array ligatures = {
    Ligature{'\xC6', "AE"}, Ligature{'\x8C', "OE"}, Ligature{'\xDF', "SS"},
};
// clang-format on

/// The parts of a key while its characters go by.
class TextKey {
 public:
  void Ajoute(char character) {
    const auto ligature = std::ranges::find(ligatures, character, &Ligature::character);
    if (ligature != ligatures.end()) {
      for (const char letter : ligature->letters) AjouteLettre(letter, noAccent);
    } else if (character == '\'' || character == '-') {
      AjouteSansPoids(character);
    } else {
      AjouteAccentuee(character);
    }
  }

  std::string Fin() {
    accents_.erase(accents_.find_last_not_of(noAccent) + 1);
    std::string key = weights_ + endOfPart + accents_;
    if (!rest_.empty()) key += std::string(3, endOfPart) + rest_;
    return key + endOfText;
  }

 private:
  void AjouteAccentuee(char character) {
    for (const Accented& a : accents) {
      const std::size_t at = a.letters.find(character);
      if (at != std::string_view::npos) return AjouteLettre(a.plain[at], a.accent);
    }
    AjouteLettre(character, noAccent);
  }

  void AjouteLettre(char letter, char accent) {
    const auto weight = std::ranges::find(weights, letter, &Weight::character);
    if (weight == weights.end()) return;
    weights_ += weight->bytes;
    accents_ += accent;
    ++letters_;
  }

  /// A hyphen and an apostrophe count last of all: where they stand, and which it is.
  void AjouteSansPoids(char character) {
    constexpr std::size_t first = 0x8007;
    const std::size_t where = first + 4 * letters_;
    rest_ += static_cast<char>(where >> 8);
    rest_ += static_cast<char>(where);
    rest_ += '\x06';
    rest_ += character == '-' ? '\x82' : '\x80';
    ++letters_;
  }

  std::string weights_;
  std::string accents_;
  std::string rest_;
  std::size_t letters_ = 0;
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
  for (const char c : Utf8VersCp1252AvecManques(Majuscules(utf8))) text.Ajoute(c);
  key += text.Fin();
}

}  // namespace talpena::jet
