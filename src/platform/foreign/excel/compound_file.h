// Constants of compound files (OLE2). Source: Microsoft, [MS-CFB] Compound File Binary File Format.
#pragma once
#include <cstddef>
#include <string_view>

namespace talpena::excel {

/// The first eight bytes.
inline constexpr std::string_view compoundMagic = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

/// A shorter stream lies in small sectors within the root's own.
inline constexpr std::size_t smallestStream = 4096;

/// Sectors of the allocation table that the head of the file names.
inline constexpr std::size_t headFatSectors = 109;

}  // namespace talpena::excel
