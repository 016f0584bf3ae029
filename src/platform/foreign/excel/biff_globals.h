// What a workbook stream says of the whole workbook.
#pragma once
#include <cstddef>
#include <memory>
#include <vector>

#include "platform/foreign/excel/biff_text.h"
#include "platform/foreign/excel/byte_source.h"
#include "platform/foreign/excel/shared_texts.h"
#include "platform/foreign/excel/workbook.h"

namespace talpena::excel {

struct BiffGlobals {
  bool unicode = false;              ///< BIFF8
  std::unique_ptr<ByteTexts> texts;  ///< of BIFF5
  std::vector<SheetInfo> sheets;
  std::vector<std::size_t> places;  ///< of their substreams
  SharedTexts shared;
};

/// Failures as of OuvreClasseurBiff.
BiffGlobals LitGlobales(const std::shared_ptr<ByteSource>& stream);

}  // namespace talpena::excel
