// What dBase and FoxPro files may be at most, for whoever reads or writes them.
#pragma once
#include <cstddef>
#include <cstdint>

namespace talpena {

struct LimitesDbase {
  /// Of a table, and of a memo file, that is written: the programs count with 32 bits and a sign.
  std::size_t octetsFichier = (std::size_t{2} << 30) - 1;
  std::uint64_t octetsMemo = std::uint64_t{64} << 20;  ///< of the memos of a row
  /// Of all memos that are read, beyond four times their file: sound ones do not lie over one
  /// another.
  std::uint64_t octetsMemos = std::uint64_t{256} << 20;
};

}  // namespace talpena
