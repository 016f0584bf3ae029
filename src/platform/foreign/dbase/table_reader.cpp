#include "platform/foreign/dbase/table_reader.h"

#include <algorithm>
#include <set>
#include <span>
#include <utility>
#include <vector>

#include "common/text.h"
#include "platform/foreign/code_page.h"
#include "platform/foreign/dbase/row_walk.h"
#include "platform/foreign/dbase/text_page.h"
#include "platform/foreign/dbase/values.h"
#include "platform/foreign/errors.h"

namespace talpena::dbase {
namespace {

constexpr std::size_t mostColumns = 255;  // that the engine takes over; no program of then had more
constexpr std::size_t longestText = 255;  // of a column of texts; a longer one is a memo

Header TeteExigee(const TableBytes& bytes) {
  auto header = LitEnTete(*bytes.rows);
  if (!header) throw foreign::FormatInconnu(bytes.path);
  return *std::move(header);
}

FieldType TypeDe(const Column& column) {
  switch (column.type) {
    case ColumnType::Text:
      return column.width <= longestText ? FieldType::Text : FieldType::Memo;
    case ColumnType::Number:  // also without decimals: programs write what they like into them
      return FieldType::Double;
    case ColumnType::Date:
      return FieldType::Date;
    case ColumnType::Logical:
      return FieldType::Boolean;
    case ColumnType::Memo:
      return FieldType::Memo;
    case ColumnType::Binary:
      return FieldType::Binary;
  }
  return FieldType::Text;
}

/// A name that no column before bears.
std::string NomDistinct(const std::string& name, std::set<std::string>& taken) {
  std::string candidate = name;
  for (int n = 2; !taken.insert(Minuscules(candidate)).second; ++n) {
    candidate = name + "_" + std::to_string(n);
  }
  return candidate;
}

template <typename Number>
Cell OuNull(const std::optional<Number>& value) {
  return value ? Cell::Of(*value) : Cell::Null();
}

/// The rows as cells.
class TableRows final : public RowSource {
 public:
  TableRows(RowWalk walk, const Header& header, int page)
      : walk_(std::move(walk)),
        columns_(header.columns),
        memos_(header.memos),
        page_(page),
        texts_(columns_.size()) {}

  bool Suivante(std::span<Cell> cells) override {
    const auto row = walk_.Prochaine();
    if (!row) return false;
    const std::size_t count = std::min(cells.size(), columns_.size());
    for (std::size_t i = 0; i < count; ++i) cells[i] = Valeur(i, *row);
    std::fill(cells.begin() + static_cast<std::ptrdiff_t>(count), cells.end(), Cell::Null());
    return true;
  }

 private:
  Cell Valeur(std::size_t number, std::string_view row) {
    const Column& column = columns_[number];
    const std::string_view field = row.substr(column.offset, column.width);
    switch (column.type) {
      case ColumnType::Text:
        return Texte(number, SansFin(field));
      case ColumnType::Number:
        return OuNull(LitNombre(field));
      case ColumnType::Date:
        return OuNull(LitDate(field));
      case ColumnType::Logical: {
        const auto value = LitLogique(field);
        return value ? Cell::Of(std::int64_t{*value ? -1 : 0}) : Cell::Null();
      }
      case ColumnType::Memo:
      case ColumnType::Binary:
        return Memo(number, row);
    }
    return Cell::Null();
  }

  /// ASCII stays where it is; what is decoded is kept until the next row.
  Cell Texte(std::size_t number, std::string_view bytes) {
    if (EstAscii(bytes)) return Cell::Of(bytes);
    texts_[number].clear();
    page_.Ajoute(texts_[number], bytes);
    return Cell::Of(std::string_view(texts_[number]));
  }

  Cell Memo(std::size_t number, std::string_view row) {
    if (!walk_.LitMemo(columns_[number], row, memo_)) return Cell::Null();
    if (columns_[number].type == ColumnType::Memo) {
      if (memos_ != MemoKind::Fpt && page_.Numero() != CodePage::utf8) OteFinsSouples(memo_);
      texts_[number].clear();
      page_.Ajoute(texts_[number], memo_);
    } else {
      texts_[number] = memo_;
    }
    return Cell::Of(std::string_view(texts_[number]));
  }

  RowWalk walk_;
  std::vector<Column> columns_;
  MemoKind memos_;
  CodePage page_;
  std::vector<std::string> texts_;
  std::string memo_;
};

}  // namespace

TableReader::TableReader(TableBytes bytes, const LimitesDbase& limits,
                         std::shared_ptr<const WorkBeat> attente)
    : bytes_(std::move(bytes)),
      limits_(limits),
      attente_(std::move(attente)),
      header_(TeteExigee(bytes_)) {}

TableDef TableReader::Definition(std::string_view name) {
  TableDef table{.name = std::string(name), .fields = {}, .indexes = {}};
  std::set<std::string> taken;
  for (const Column& column : header_.columns) {
    const std::string decoded =
        EstAscii(column.name) ? column.name : CodePage(Page()).EnUtf8(column.name);
    const FieldType type = TypeDe(column);
    table.fields.push_back({.name = NomDistinct(decoded, taken),
                            .type = type,
                            .size = type == FieldType::Text ? static_cast<int>(column.width) : 0,
                            .allowZeroLength = true});
  }
  return table;
}

std::unique_ptr<RowSource> TableReader::Lignes() {
  if (header_.columns.size() > mostColumns) throw foreign::TropDeColonnes();
  return std::make_unique<TableRows>(RowWalk(bytes_, header_, limits_, attente_), header_, Page());
}

int TableReader::Page() {
  if (!page_) page_ = PageDeCpg(bytes_.codePage);
  if (!page_) page_ = PageDeMarque(header_.language);
  if (!page_) page_ = Devine();
  return *page_;
}

int TableReader::Devine() const {
  PageGuess guess;
  RowWalk walk(bytes_, header_, limits_, attente_);
  std::string memo;
  while (const auto row = walk.Prochaine()) {
    for (const Column& column : header_.columns) {
      if (column.type == ColumnType::Text) {
        guess.Voit(SansFin(row->substr(column.offset, column.width)));
      } else if (column.type == ColumnType::Memo && walk.LitMemo(column, *row, memo)) {
        guess.VoitMemo(memo);
      }
    }
  }
  return guess.Page();
}

}  // namespace talpena::dbase
