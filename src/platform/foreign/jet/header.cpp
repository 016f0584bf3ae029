#include "platform/foreign/jet/header.h"

#include <numeric>
#include <string>
#include <utility>

namespace talpena::jet {
namespace {

constexpr std::size_t scrambledAt = 0x18;
constexpr std::size_t scrambledBytes = 128;

/// RC4: what is scrambled comes back clear.
void Brouille(char* bytes, std::size_t count, std::string_view key) {
  std::array<unsigned char, 256> state{};
  std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
  for (std::size_t i = 0, j = 0; i < state.size(); ++i) {
    j = (j + state[i] + static_cast<unsigned char>(key[i % key.size()])) % state.size();
    std::swap(state[i], state[j]);
  }
  for (std::size_t n = 0, i = 0, j = 0; n < count; ++n) {
    i = (i + 1) % state.size();
    j = (j + state[i]) % state.size();
    std::swap(state[i], state[j]);
    bytes[n] = static_cast<char>(bytes[n] ^ state[(state[i] + state[j]) % state.size()]);
  }
}

/// An empty password: the whole days of the stamp, over and over.
void PoseMotDePasse(Page& page) {
  constexpr std::size_t from = 0x42, bytes = 40;
  constexpr std::uint32_t days = 38143;
  for (std::size_t i = 0; i < bytes; i += 4) Pose32(page, from + i, days);
}

/// What is scrambled. The user ids in the catalogue are scrambled too, by the stamp, in a way that
/// is not published: the stamp here and the ids there are a pair that goes together.
void PoseReglages(Page& page) {
  constexpr std::uint64_t stamp = 0x40E29FF17D1F72BC;
  Pose32(page, 0x18, 0x0100);
  Pose32(page, 0x1C, 0x0101);
  for (std::uint32_t table = 2; table <= 5; ++table) Pose32(page, 0x18 + 4 * table, table);
  Pose16(page, 0x3C, 1252);
  PoseMotDePasse(page);
  Pose32(page, 0x6A, 0x21AA);  // of the release that wrote it
  Pose32(page, 0x6E, 0x0409);
  PoseNombre(page.data() + 0x72, stamp);
}

/// Where those who have the file open tell one another; nobody has.
void PoseUsagers(Page& page) {
  constexpr std::size_t from = 0xE00;
  for (std::size_t i = from; i < page.size(); i += 2) Pose16(page, i, i == from ? 0x0101 : 0x0100);
}

}  // namespace

Page PageDeTete() {
  using namespace std::string_view_literals;
  Page page{};
  PoseOctets(page, 0, "\0\1\0\0Standard Jet DB\0\1"sv);
  PoseReglages(page);
  Brouille(page.data() + scrambledAt, scrambledBytes, "\xC7\xDA\x39\x6B");
  Pose32(page, 0x98, 0x0654);
  PoseOctets(page, 0x9C, "4.0");
  PoseUsagers(page);
  return page;
}

}  // namespace talpena::jet
