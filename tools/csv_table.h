// A comma-separated source table of data/, with its columns found by name.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

/// The records of a comma-separated text with a heading line, fields in double quotes where they
/// hold a comma. Throws std::runtime_error when a record has not as many fields as the heading.
std::vector<std::vector<std::string>> LitCsv(std::string_view text,
                                             std::vector<std::string>& heading);

/// Rows count from 0. Whatever is wrong throws std::runtime_error that names the file.
class CsvTable {
 public:
  explicit CsvTable(const std::string& path);
  /// @param path  what faults are told of
  CsvTable(std::string path, std::string_view text);

  std::size_t Nombre() const { return rows_.size(); }
  const std::string& Texte(std::size_t row, std::string_view column) const;
  /// Numbers with a decimal point; a comma is none.
  double Reel(std::size_t row, std::string_view column) const;
  int Entier(std::size_t row, std::string_view column) const;
  [[noreturn]] void Echec(const std::string& fault) const;

 private:
  void Lit(std::string_view text);

  std::string path_;
  std::vector<std::string> heading_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace talpena
