#include "platform/foreign/excel/biff_writer.h"

#include <bit>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "platform/foreign/code_page.h"
#include "platform/foreign/excel/biff_head.h"
#include "platform/foreign/excel/biff_records.h"
#include "platform/foreign/excel/cell_number.h"
#include "platform/foreign/excel/compound_writer.h"
#include "platform/foreign/little_endian.h"

namespace talpena::excel {
namespace {

BiffFormat FormatDe(FieldType type) {
  switch (type) {
    case FieldType::Text:
    case FieldType::Memo:
      return BiffFormat::Text;
    case FieldType::Date:
      return BiffFormat::Date;
    default:
      return BiffFormat::General;
  }
}

class BiffSheet final : public SheetWriter {
 public:
  BiffSheet(const std::string& path, std::size_t most, const TableDef& table,
            const std::string& sheet)
      : fields_(table.fields),
        head_(TeteDeClasseur(sheet)),
        stream_(path, "Book", PiedDeFeuille().size(), most) {
    AjouteTitres(head_.bytes);
    stream_.Ajoute(head_.bytes);
    rows_ = 1;
    Acheve();
  }

  void Ajoute(std::span<const Cell> cells) override {
    row_.clear();
    for (std::size_t i = 0; i < cells.size(); ++i) AjouteCellule(i, cells[i]);
    if (row_.empty()) AjouteTexte(row_, 0, BiffFormat::Text, "");
    stream_.Ajoute(row_);
    ++rows_;
  }

  void Acheve() override {
    stream_.Remplace(head_.dimensions, Dimensions(rows_, fields_.size()));
    stream_.Acheve(PiedDeFeuille());
  }

 private:
  void AjouteTitres(std::string& out) const {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      AjouteTexte(out, i, BiffFormat::Heading,
                  PremiersCaracteres(fields_[i].name, limitsBiff5.characters));
    }
  }

  void AjouteCellule(std::size_t column, const Cell& cell) {
    const FieldType type = fields_[column].type;
    const BiffFormat format = FormatDe(type);
    if (cell.EstNull()) return;
    if (format == BiffFormat::Text) {
      const std::string text = cell.Texte();
      if (!text.empty()) AjouteTexte(row_, column, format, text);
    } else if (type == FieldType::Boolean) {
      AjouteTeteDeCellule(row_, Biff::BoolErr, 8, column, format);
      row_ += cell.Nombre() != 0 ? '\1' : '\0';
      row_ += '\0';
    } else {
      AjouteTeteDeCellule(row_, Biff::Number, 14, column, format);
      AjouteNombre(row_, std::bit_cast<std::uint64_t>(NombreDeCellule(cell, type)));
    }
  }

  void AjouteTexte(std::string& out, std::size_t column, BiffFormat format,
                   std::string_view text) const {
    constexpr std::size_t head = 8;
    const std::size_t start = out.size();
    AjouteTeteDeCellule(out, Biff::Label, head, column, format);
    AjouteNombre(out, std::uint16_t{0});
    const std::size_t from = out.size();
    try {
      AjouteEn1252(out, text);
    } catch (...) {
      out.resize(start);
      throw;
    }
    const std::size_t length = out.size() - from;
    PoseNombre(out.data() + from - 2, static_cast<std::uint16_t>(length));
    PoseNombre(out.data() + start + 2, static_cast<std::uint16_t>(head + length));
  }

  /// The number and length of a record, then row, column and format of its cell.
  void AjouteTeteDeCellule(std::string& out, Biff number, std::size_t length, std::size_t column,
                           BiffFormat format) const {
    const std::size_t row = static_cast<std::size_t>(rows_);
    for (const std::size_t word : {static_cast<std::size_t>(number), length, row, column,
                                   static_cast<std::size_t>(format)}) {
      AjouteNombre(out, static_cast<std::uint16_t>(word));
    }
  }

  std::vector<FieldDef> fields_;
  BiffHead head_;
  CompoundWriter stream_;
  std::string row_;
  std::int64_t rows_ = 0;  ///< with that of the headings
};

}  // namespace

std::unique_ptr<SheetWriter> CreeFeuilleBiff5(const std::string& path, std::size_t most,
                                              const TableDef& table, const std::string& sheet) {
  return std::make_unique<BiffSheet>(path, most, table, sheet);
}

}  // namespace talpena::excel
