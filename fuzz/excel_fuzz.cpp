// Workbooks of Excel 5.0 to 2003, in their container or as a stream alone.
#include <cstdint>
#include <memory>

#include "platform/foreign/excel/biff_workbook.h"
#include "workbook_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace talpena;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  fuzz::VerifieClasseur([&] {
    return excel::OuvreClasseurBiff(std::make_shared<excel::MemoryBytes>("fuzz.xls", bytes));
  });
  return 0;
}
