#include "platform/foreign/excel/xlsx_writer.h"

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "platform/foreign/excel/cell_number.h"
#include "platform/foreign/excel/xlsx_texts.h"
#include "platform/foreign/isolated_process.h"
#include "platform/os/posix_error.h"
#include "platform/os/posix_size_signal.h"

namespace talpena::excel {
namespace {

/// Takes a name that nothing bears.
/// @param shown  the path that messages name
void ReserveNom(const std::string& path, const std::string& shown) {
  constexpr mode_t anyone = 0666;  // less what the user's mask takes off
  const Descripteur file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, anyone));
  if (!file.Ouvert()) LanceErreurFichier(errno, shown);
}

/// Takes a name beside a path.
std::string NomVoisin(const std::string& path) {
  constexpr int most = 100;
  for (int i = 1;; ++i) {
    std::string name = path + "~" + std::to_string(i);
    try {
      ReserveNom(name, path);
      return name;
    } catch (const TalpenaError& error) {
      if (error.number() != ErrorNumber::FileExists || i == most) throw;
    }
  }
}

void Synchronise(const std::string& path, const std::string& shown) {
  const Descripteur file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
  if (!file.Ouvert() || (fsync(file.Numero()) != 0 && errno != EINVAL && errno != EROFS)) {
    LanceErreurFichier(errno, shown);
  }
}

/// A workbook on its way, at most one row of which is in memory.
class BookInProgress {
 public:
  /// @param shown  the path that messages name
  BookInProgress(const std::string& path, std::string shown, const std::vector<FieldDef>& fields,
                 const std::string& sheet)
      : shown_(std::move(shown)) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    book_ = workbook_new_opt(path.c_str(), &options);
    sheet_ = book_ == nullptr ? nullptr : workbook_add_worksheet(book_, sheet.c_str());
    if (sheet_ == nullptr) {
      lxw_workbook_free(book_);
      LanceErreurFichier(ENOSPC, shown_);  // no temporary file
    }
    text_ = workbook_add_format(book_);
    format_set_num_format(text_, "@");
    date_ = workbook_add_format(book_);
    format_set_num_format(date_, "yyyy-mm-dd");
    EcritTitres(fields);
  }
  BookInProgress(const BookInProgress&) = delete;
  BookInProgress& operator=(const BookInProgress&) = delete;
  ~BookInProgress() { lxw_workbook_free(book_); }

  void Ecrit(std::uint32_t row, std::size_t column, const Cell& cell, FieldType type) {
    const auto place = static_cast<lxw_col_t>(column);
    if (cell.EstNull()) return;
    if (type == FieldType::Text || type == FieldType::Memo) {
      const std::string text = AvecEchappement(cell.Texte());
      if (!text.empty()) worksheet_write_string(sheet_, row, place, text.c_str(), text_);
    } else if (type == FieldType::Boolean) {
      worksheet_write_boolean(sheet_, row, place, cell.Nombre() != 0 ? 1 : 0, nullptr);
    } else {
      worksheet_write_number(sheet_, row, place, NombreDeCellule(cell, type),
                             type == FieldType::Date ? date_ : nullptr);
    }
  }

  /// Raises DiskFull when the rows could not all be kept.
  void Verifie() const {
    if (std::ferror(sheet_->optimize_tmpfile) != 0) LanceErreurFichier(ENOSPC, shown_);
  }

  /// Makes the file of what was written.
  void Ferme() {
    std::fflush(sheet_->optimize_tmpfile);
    Verifie();
    VerifiePlace();
    errno = 0;
    lxw_workbook* const book = std::exchange(book_, nullptr);
    if (workbook_close(book) != LXW_NO_ERROR) {
      LanceErreurFichier(errno == 0 ? ENOSPC : errno, shown_);
    }
  }

 private:
  void EcritTitres(const std::vector<FieldDef>& fields) {
    lxw_format* const bold = workbook_add_format(book_);
    format_set_bold(bold);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      worksheet_write_string(sheet_, 0, static_cast<lxw_col_t>(i),
                             AvecEchappement(fields[i].name).c_str(), bold);
    }
  }

  /// Closing copies the rows beside themselves and does not see whether that disk has the room.
  void VerifiePlace() const {
    constexpr std::uint64_t others = std::uint64_t{1} << 20;
    struct statvfs disk {};
    const off_t rows = ftello(sheet_->optimize_tmpfile);
    if (rows < 0 || fstatvfs(fileno(sheet_->optimize_tmpfile), &disk) != 0) return;
    if (std::uint64_t{disk.f_bavail} * disk.f_frsize < static_cast<std::uint64_t>(rows) + others) {
      LanceErreurFichier(ENOSPC, shown_);
    }
  }

  std::string shown_;
  lxw_workbook* book_ = nullptr;
  lxw_worksheet* sheet_ = nullptr;
  lxw_format* text_ = nullptr;
  lxw_format* date_ = nullptr;
};

class XlsxSheet final : public SheetWriter {
 public:
  XlsxSheet(std::string path, const TableDef& table, std::string sheet)
      : path_(std::move(path)), sheet_(std::move(sheet)), fields_(table.fields) {
    const SansSignalDeTaille guard;
    ReserveNom(path_, path_);
    try {
      BookInProgress(path_, path_, fields_, sheet_).Ferme();
      Synchronise(path_, path_);
    } catch (...) {
      unlink(path_.c_str());
      throw;
    }
  }
  XlsxSheet(const XlsxSheet&) = delete;
  XlsxSheet& operator=(const XlsxSheet&) = delete;
  ~XlsxSheet() override { Abandonne(); }

  void Ajoute(std::span<const Cell> cells) override {
    const SansSignalDeTaille guard;
    if (workbook_ == nullptr) Commence();
    VerifieNombres(cells);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      workbook_->Ecrit(rows_ + 1, i, cells[i], fields_[i].type);
    }
    workbook_->Verifie();
    ++rows_;
  }

  void Acheve() override {
    if (workbook_ == nullptr) return;
    const SansSignalDeTaille guard;
    try {
      workbook_->Ferme();
      workbook_.reset();
      Synchronise(beside_, path_);
      if (std::rename(beside_.c_str(), path_.c_str()) != 0) LanceErreurFichier(errno, path_);
    } catch (...) {
      workbook_.reset();
      unlink(beside_.c_str());
      throw;
    }
  }

 private:
  /// Before a cell of the row is written: none can be taken back.
  void VerifieNombres(std::span<const Cell> cells) const {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (cells[i].kind == Cell::Kind::Real) NombreDeCellule(cells[i], fields_[i].type);
    }
  }

  void Commence() {
    beside_ = NomVoisin(path_);
    workbook_ = std::make_unique<BookInProgress>(beside_, path_, fields_, sheet_);
  }

  void Abandonne() {
    if (workbook_ == nullptr) return;
    workbook_.reset();
    unlink(beside_.c_str());
  }

  std::string path_, sheet_;
  std::vector<FieldDef> fields_;
  std::string beside_;  ///< the file with the rows, until it takes the place of the other
  std::unique_ptr<BookInProgress> workbook_;
  std::uint32_t rows_ = 0;
};

}  // namespace

std::unique_ptr<SheetWriter> CreeFeuilleXlsx(const std::string& path, const TableDef& table,
                                             const std::string& sheet) {
  return std::make_unique<XlsxSheet>(path, table, sheet);
}

}  // namespace talpena::excel
