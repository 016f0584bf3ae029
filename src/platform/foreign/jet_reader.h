// Access files (Jet 3 and Jet 4), read through libmdb.
#pragma once
#include <memory>

#include "platform/foreign_format.h"

namespace talpena {

std::unique_ptr<ForeignFormat> CreeFormatJet();

}  // namespace talpena
