#include "platform/os/left_overs.h"

#ifdef _WIN32
#include <cstdlib>
#else
#include <unistd.h>
#endif

#include <array>
#include <cstdint>
#include <random>

namespace talpena {
namespace {

constexpr std::string_view head = ".talpena-";
constexpr std::string_view unfinished = ".tmp";
constexpr std::string_view whole = ".new";
constexpr std::string_view folderEnd = ".dir";
constexpr std::size_t digits = 8;

std::string EnHexa(std::uint32_t number) {
  std::string text(digits, '0');
  for (std::size_t i = digits; i-- > 0; number >>= 4) text[i] = "0123456789abcdef"[number & 15];
  return text;
}

/// FNV-1a, with 32 bits.
std::string Marque(std::string_view text) {
  std::uint32_t hash = 2166136261U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return EnHexa(hash);
}

std::string NomDeMachine() {
#ifdef _WIN32
  const char* name = std::getenv("COMPUTERNAME");
  return name == nullptr ? std::string() : std::string(name);
#else
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
#endif
}

std::string Debut() { return std::string(head) + Marque(NomDeMachine()); }

bool FinitPar(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

}  // namespace

std::string NomTemporaire(std::string_view name) {
  std::random_device random;
  return Debut() + Marque(name) + EnHexa(random()) + std::string(unfinished);
}

std::string NomEntier(std::string_view temporary) {
  return std::string(temporary.substr(0, temporary.size() - unfinished.size())) +
         std::string(whole);
}

bool EstNomEntier(std::string_view name) { return FinitPar(name, whole); }

bool EstNomTemporaire(std::string_view name) {
  const std::string start = Debut();
  if (name.size() != start.size() + 2 * digits + unfinished.size()) return false;
  const std::string_view middle = name.substr(start.size(), 2 * digits);
  return name.substr(0, start.size()) == start &&
         middle.find_first_not_of("0123456789abcdef") == std::string_view::npos &&
         (FinitPar(name, unfinished) || FinitPar(name, whole));
}

std::string NomDeDossier(std::string_view name) {
  const std::string temporary = NomTemporaire(name);
  return temporary.substr(0, temporary.size() - unfinished.size()) + std::string(folderEnd);
}

bool EstNomDeDossier(std::string_view name) {
  if (!FinitPar(name, folderEnd)) return false;
  name.remove_suffix(folderEnd.size());
  return EstNomTemporaire(std::string(name) + std::string(unfinished));
}

bool EstTemporaireDe(std::string_view name, std::string_view wanted) {
  return EstNomTemporaire(name) && name.substr(head.size() + digits, digits) == Marque(wanted);
}

}  // namespace talpena
