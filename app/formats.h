// Other makers' table files that the engine knows.
#pragma once
#include <memory>
#include <vector>

#include "platform/foreign/dbase/dbase_format.h"
#include "platform/foreign/excel/excel_format.h"
#include "platform/foreign/jet_format.h"
#include "platform/foreign/paradox/paradox_format.h"
#include "platform/foreign_format.h"
#include "platform/sqlite/geopackage/geopackage_format.h"

namespace talpena {

inline std::vector<std::unique_ptr<ForeignFormat>> TousLesFormats() {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  formats.push_back(CreeFormatDbase());
  formats.push_back(CreeFormatFoxPro());
  formats.push_back(CreeFormatParadox());
  formats.push_back(CreeFormatExcel());
  formats.push_back(CreeFormatXlsx());
  formats.push_back(CreeFormatGeoPackage());
  return formats;
}

}  // namespace talpena
