// What an Access file may be at most, for whoever reads it.
#pragma once
#include <cstddef>

#include "platform/foreign/isolated_process.h"

namespace talpena {

/// What a file may be at most. The first five are the format's own bounds or beyond them.
struct LimitesJet {
  std::size_t octetsFichier = std::size_t{2} << 30;
  std::size_t tables = 32768;                      ///< whose rows can be read
  std::size_t autres = 32768;                      ///< system tables and saved queries
  std::size_t colonnes = 255;                      ///< of a table; never above 255
  std::size_t lignes = 50'000'000;                 ///< of a table
  std::size_t octetsMemo = std::size_t{64} << 20;  ///< of one long value
  LimitesProcessus processus{};                    ///< that reads the file
};

}  // namespace talpena
