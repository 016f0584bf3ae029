#include "platform/foreign/jet_values.h"

#include <bit>
#include <cmath>

#include "common/text.h"

namespace talpena {
namespace {

std::uint64_t Octet(std::string_view bytes, std::size_t i) {
  return static_cast<unsigned char>(bytes[i]);
}

/// The first `width` bytes, least significant first; the caller has checked that they are there.
std::uint64_t PetitBoutiste(std::string_view bytes, std::size_t width) {
  std::uint64_t value = 0;
  for (std::size_t i = width; i-- > 0;) value = value << 8 | Octet(bytes, i);
  return value;
}

void AjouteUtf8(std::string& out, char32_t c) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    tail(0);
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    tail(6), tail(0);
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    tail(12), tail(6), tail(0);
  }
}

std::u16string Decomprime(std::string_view bytes) {
  std::u16string units;
  bool compressed = true;
  for (std::size_t i = 0; i < bytes.size();) {
    if (bytes[i] == '\0') {
      compressed = !compressed;
      ++i;
    } else if (compressed) {
      units += static_cast<char16_t>(Octet(bytes, i++));
    } else if (i + 1 < bytes.size()) {
      units += static_cast<char16_t>(PetitBoutiste(bytes.substr(i), 2));
      i += 2;
    } else {
      break;
    }
  }
  return units;
}

std::u16string Unites(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) return Decomprime(bytes.substr(2));
  std::u16string units;
  for (; bytes.size() >= 2; bytes.remove_prefix(2)) {
    units += static_cast<char16_t>(PetitBoutiste(bytes, 2));
  }
  return units;
}

std::string Utf16VersUtf8(std::u16string_view units) {
  std::string out;
  out.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    const char32_t unit = units[i];
    const bool high = unit >= 0xD800 && unit < 0xDC00;
    if (high && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000) {
      AjouteUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (units[++i] - 0xDC00U));
    } else {
      AjouteUtf8(out, unit >= 0xD800 && unit < 0xE000 ? char32_t{0xFFFD} : unit);
    }
  }
  return out;
}

}  // namespace

std::optional<JetVersion> VersionJet(std::string_view head) {
  using namespace std::string_view_literals;
  if (head.size() < JetHeadBytes) return {};
  if (!head.starts_with("\0\1\0\0Standard Jet DB\0"sv)) return {};
  switch (PetitBoutiste(head.substr(20), 4)) {
    case 0:
      return JetVersion::Jet3;
    case 1:
      return JetVersion::Jet4;
    default:
      return {};
  }
}

std::string TexteJet(JetVersion version, std::string_view bytes) {
  return version == JetVersion::Jet3 ? Cp1252VersUtf8(bytes) : Utf16VersUtf8(Unites(bytes));
}

std::optional<std::int64_t> EntierJet(std::string_view bytes, std::size_t width) {
  if (bytes.size() < width || width < 1 || width > 8) return {};
  const int unused = static_cast<int>(64 - 8 * width);
  return static_cast<std::int64_t>(PetitBoutiste(bytes, width) << unused) >> unused;
}

std::optional<double> SimpleJet(std::string_view bytes) {
  if (bytes.size() < 4) return {};
  return std::bit_cast<float>(static_cast<std::uint32_t>(PetitBoutiste(bytes, 4)));
}

std::optional<double> DoubleJet(std::string_view bytes) {
  if (bytes.size() < 8) return {};
  return std::bit_cast<double>(PetitBoutiste(bytes, 8));
}

std::optional<double> MonnaieJet(std::string_view bytes) {
  const auto units = EntierJet(bytes, 8);
  if (!units) return {};
  return static_cast<double>(static_cast<long double>(*units) / 10000);
}

std::optional<double> NumeriqueJet(std::string_view bytes, int scale) {
  constexpr std::size_t words = 4;
  constexpr int largestScale = 28;
  if (bytes.size() < 1 + 4 * words || scale < 0 || scale > largestScale) return {};
  long double value = 0;
  for (std::size_t i = 0; i < words; ++i) {  // the most significant word comes first
    value =
        value * 4294967296.0L + static_cast<long double>(PetitBoutiste(bytes.substr(1 + 4 * i), 4));
  }
  value /= std::pow(10.0L, static_cast<long double>(scale));
  return static_cast<double>((Octet(bytes, 0) & 0x80) != 0 ? -value : value);
}

std::optional<std::string> GuidJet(std::string_view bytes) {
  if (bytes.size() < 16) return {};
  constexpr std::string_view digits = "0123456789ABCDEF";
  constexpr std::size_t order[] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
  std::string out = "{";
  for (std::size_t i = 0; i < 16; ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) out += '-';
    out += digits[Octet(bytes, order[i]) >> 4];
    out += digits[Octet(bytes, order[i]) & 15];
  }
  return out + "}";
}

}  // namespace talpena
