// Memo files of dBase and FoxPro, read.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foreign/bytes_at.h"
#include "platform/foreign/dbase/header.h"

namespace talpena::dbase {

class MemoFile {
 public:
  /// @param most     bytes that one memo may have
  /// @param mostAll  bytes of all that are read: memos that lie over one another have no end
  MemoFile(std::shared_ptr<const BytesAt> bytes, MemoKind kind, std::uint64_t most,
           std::uint64_t mostAll);

  /// Reads the memo that begins at a block; false when it is damaged or beyond the bounds.
  bool Lit(std::uint64_t block, std::string& into);

 private:
  bool LitLongueur(std::uint64_t place, std::uint64_t length, std::string& into);
  bool LitJusquaFin(std::uint64_t place, std::string& into);
  bool Compte(std::uint64_t length);

  std::shared_ptr<const BytesAt> bytes_;
  MemoKind kind_;
  std::uint64_t most_;
  std::uint64_t left_;
  std::uint64_t blockBytes_ = 0;
  ByteWindow window_;
};

/// The block that a memo column names: 0 for none, empty when it is no number. Ten digits, or four
/// bytes.
std::optional<std::uint64_t> BlocDe(std::string_view field);

}  // namespace talpena::dbase
