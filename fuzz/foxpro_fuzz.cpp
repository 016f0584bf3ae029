// FoxPro tables with memos in ".fpt".
#include <cstdint>
#include <string>

#include "dbf_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kindPlace = 3;
  constexpr char foxPro = '\xF5';
  std::string input(reinterpret_cast<const char*>(data), size);
  if (size > kindPlace) input[kindPlace] = foxPro;
  talpena::fuzz::EssaieTable(input);
  return 0;
}
