// What stands ahead of the cells of a workbook of Excel 5.0 with one sheet, and behind them.
// Sources as in biff_records.h.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena::excel {

/// Numbers of the formats (XF) that the head defines for cells.
enum class BiffFormat : std::uint16_t { General = 15, Text = 16, Heading = 17, Date = 18 };

struct BiffHead {
  std::string bytes;           ///< of the stream, to where the cells begin
  std::size_t dimensions = 0;  ///< where Dimensions stands in them
};

/// @param sheet  its name; NotInCodePage (481) for a character that code page 1252 lacks
BiffHead TeteDeClasseur(std::string_view sheet);

/// The record that says how far the cells go.
std::string Dimensions(std::int64_t rows, std::size_t columns);

std::string PiedDeFeuille();

}  // namespace talpena::excel
