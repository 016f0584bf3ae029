// Pages of an Access file (Jet 4) as bytes: numbers least significant byte first, places of rows.
#pragma once
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/foreign/little_endian.h"

namespace talpena::jet {

inline constexpr std::size_t taillePage = 4096;
using Page = std::array<char, taillePage>;

// A map of pages has a bit for each of the first pages in its row, or all bits on pages of bits.
inline constexpr std::uint32_t pagesInRow = 512;
inline constexpr std::size_t bitPageHead = 4;
inline constexpr std::uint32_t pagesPerBitPage = (taillePage - bitPageHead) * 8;

/// What a page is, in its first byte. A one follows in all of them.
enum class PageKind : std::uint8_t { Data = 1, Definition = 2, Leaf = 4, Map = 5 };

/// Where a row stands.
struct Place {
  std::uint32_t page = 0;
  std::uint32_t row = 0;  ///< on its page; below 256

  /// As other rows point at it.
  std::uint32_t Mot() const { return page << 8 | row; }
};

inline void Pose16(Page& page, std::size_t place, std::size_t value) {
  PoseNombre(page.data() + place, static_cast<std::uint16_t>(value));
}
inline void Pose32(Page& page, std::size_t place, std::uint32_t value) {
  PoseNombre(page.data() + place, value);
}
inline void Ajoute16(std::string& out, std::size_t value) {
  AjouteNombre(out, static_cast<std::uint16_t>(value));
}
inline void Ajoute32(std::string& out, std::uint32_t value) { AjouteNombre(out, value); }

inline void PoseOctets(Page& page, std::size_t place, std::string_view bytes) {
  std::memcpy(page.data() + place, bytes.data(), bytes.size());
}

inline Page NouvellePage(PageKind kind) {
  Page page{};
  page[0] = static_cast<char>(kind);
  page[1] = 1;
  return page;
}

}  // namespace talpena::jet
