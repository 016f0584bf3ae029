#include "platform/foreign/excel/xlsx_workbook.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/foreign/excel/shared_texts.h"
#include "platform/foreign/excel/xlsx_package.h"
#include "platform/foreign/excel/xlsx_texts.h"
#include "platform/foreign/excel/xml_part.h"

namespace talpena::excel {
namespace {

constexpr std::uint32_t mostRows = 1048576, mostColumns = 16384;

std::optional<std::uint32_t> Entier(std::string_view digits) {
  std::uint32_t value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
  if (error != std::errc() || stop != end) return {};
  return value;
}

/// The column of a place like "AB12", from 0.
std::optional<std::uint32_t> ColonneDe(std::string_view place) {
  constexpr std::uint32_t letters = 26;
  std::uint32_t column = 0;
  for (const char c : place) {
    if (c < 'A' || c > 'Z') break;
    column = column * letters + static_cast<std::uint32_t>(c - 'A' + 1);
    if (column > mostColumns) return {};
  }
  return column == 0 ? std::nullopt : std::optional(column - 1);
}

std::optional<double> Nombre(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\n')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\n')) text.remove_suffix(1);
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end || !std::isfinite(value)) return {};
  return value;
}

class RowHandler final : public XmlHandler {
 public:
  explicit RowHandler(const SharedTexts& shared) : shared_(shared) {}

  std::deque<SheetRow> rows;

  void Debut(std::string_view name, const XmlAttributes& attributes) override {
    if (name == "row") return CommenceLigne(attributes);
    if (name == "c" && inRow_) return CommenceCellule(attributes);
    if (inCell_) pieces_.Debut(name);
  }

  void Fin(std::string_view name) override {
    if (name == "row" && inRow_) {
      inRow_ = false;
      if (!row_.cells.empty()) rows.push_back(std::move(row_));
    } else if (name == "c" && inCell_) {
      inCell_ = false;
      FinitCellule();
    } else if (inCell_) {
      pieces_.Fin(name);
    }
  }

  void Texte(std::string_view text) override {
    if (inCell_ && !pieces_.Ajoute(text)) Echoue();
  }

 private:
  /// Without a number it is the next one.
  void CommenceLigne(const XmlAttributes& attributes) {
    const auto place = attributes.Valeur("r");
    const auto number = place ? Entier(*place) : std::optional(next_ + 1);
    if (inRow_ || !number || *number <= next_ || *number > mostRows) return Echoue();
    next_ = *number;
    row_ = {.number = *number - 1, .cells = {}};
    inRow_ = true;
    column_ = 0;
  }

  void CommenceCellule(const XmlAttributes& attributes) {
    const auto place = attributes.Valeur("r");
    const auto column = place ? ColonneDe(*place) : std::optional(column_);
    if (inCell_ || !column || *column < column_ || *column >= mostColumns) return Echoue();
    cell_ = {.column = *column, .text = {}};
    column_ = *column + 1;
    kind_ = attributes.Valeur("t").value_or("n");
    inCell_ = true;
    pieces_.Commence();
  }

  void FinitCellule() {
    std::string text = pieces_.Texte();
    if (kind_ == "e") return;
    if (kind_ == "n" || kind_ == "b" || kind_ == "s") {
      if (text.empty()) return;
      if (kind_ != "s") return FinitNombre(text);
      const auto number = Entier(text);
      const auto shared = number ? shared_.Texte(*number) : std::nullopt;
      if (!shared) return Echoue();
      text = *shared;
    }
    cell_.kind = SheetCell::Kind::Text;
    cell_.text = std::move(text);
    row_.cells.push_back(std::move(cell_));
  }

  void FinitNombre(const std::string& text) {
    const auto number = Nombre(text);
    if (!number) return Echoue();
    cell_.kind = kind_ == "b" ? SheetCell::Kind::Boolean : SheetCell::Kind::Number;
    cell_.number = *number;
    row_.cells.push_back(std::move(cell_));
  }

  const SharedTexts& shared_;
  SheetRow row_;
  SheetCell cell_;
  std::string kind_;
  TextPieces pieces_;
  std::uint32_t next_ = 0;    ///< number of the row that came last, from 1
  std::uint32_t column_ = 0;  ///< behind the cell that came last
  bool inRow_ = false, inCell_ = false;
};

class XlsxRows final : public SheetRows {
 public:
  XlsxRows(const ZipFile& file, const std::string& part, const SharedTexts& shared)
      : handler_(shared), xml_(file, file.Partie(part), handler_) {}

  bool Suivante(SheetRow& row) override {
    while (handler_.rows.empty()) {
      if (!xml_.Avance()) return false;
    }
    row = std::move(handler_.rows.front());
    handler_.rows.pop_front();
    return true;
  }

 private:
  RowHandler handler_;
  XmlPart xml_;
};

class XlsxWorkbook final : public Workbook {
 public:
  explicit XlsxWorkbook(std::shared_ptr<ByteSource> file)
      : file_(std::move(file)),
        package_(LitPaquet(file_)),
        shared_(LitTextesPartages(file_, package_.texts)) {}

  const std::vector<SheetInfo>& Feuilles() const override { return package_.sheets; }
  std::unique_ptr<SheetRows> Lignes(std::size_t sheet) override {
    return std::make_unique<XlsxRows>(file_, package_.parts[sheet], shared_);
  }
  void Refuse() const override { file_.Refuse(); }

 private:
  ZipFile file_;
  XlsxPackage package_;
  SharedTexts shared_;
};

}  // namespace

std::unique_ptr<Workbook> OuvreClasseurXlsx(std::shared_ptr<ByteSource> file) {
  return std::make_unique<XlsxWorkbook>(std::move(file));
}

}  // namespace talpena::excel
