// Numbers of the records of a workbook stream (BIFF5 to BIFF8).
// Sources: Microsoft, [MS-XLS] Excel Binary File Format (.xls) Structure; Microsoft, Excel 97
// Developer's Kit, "File Format"; D. Rentz, OpenOffice.org's Documentation of the Microsoft Excel
// File Format.
#pragma once
#include <cstddef>
#include <cstdint>

namespace talpena::excel {

enum class Biff : std::uint16_t {
  Formula = 0x0006,
  Eof = 0x000A,
  DateMode = 0x0022,
  FilePass = 0x002F,
  Font = 0x0031,
  Continue = 0x003C,
  Window1 = 0x003D,
  CodePage = 0x0042,
  BoundSheet = 0x0085,
  MulRk = 0x00BD,
  RString = 0x00D6,
  Xf = 0x00E0,
  Sst = 0x00FC,
  LabelSst = 0x00FD,
  Dimensions = 0x0200,
  Number = 0x0203,
  Label = 0x0204,
  BoolErr = 0x0205,
  Formula3 = 0x0206,
  String = 0x0207,
  Window2 = 0x023E,
  Rk = 0x027E,
  Style = 0x0293,
  Formula4 = 0x0406,
  Bof = 0x0809
};

/// What a substream is, in its BOF.
inline constexpr int biffGlobals = 0x0005, biffSheet = 0x0010;

inline constexpr int versionBiff5 = 0x0500, versionBiff8 = 0x0600;

inline constexpr std::size_t biffHead = 4;  ///< number and length ahead of each record's bytes

}  // namespace talpena::excel
