// Memo files of dBase IV (".dbt") and FoxPro 2.5 (".fpt"), written.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/foreign/appended_file.h"
#include "platform/foreign/dbase/columns.h"

namespace talpena::dbase {

std::string_view FinDesMemos(Product product);

class MemoWriter {
 public:
  /// @param table  name of the table, which dBase notes in the file
  MemoWriter(Product product, std::string path, std::string_view table, std::size_t most);

  /// Adds a memo; returns its block. Failures leave those before.
  std::size_t Ajoute(std::string_view text);
  /// Writes the head and hands the file to the disk.
  void Acheve();
  /// The file goes with this object.
  void Abandonne() { file_.Abandonne(); }

 private:
  std::string Tete() const;

  Product product_;
  std::string table_;
  AppendedFile file_;
  std::string block_;
};

}  // namespace talpena::dbase
