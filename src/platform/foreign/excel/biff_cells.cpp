#include "platform/foreign/excel/biff_cells.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <string>
#include <utility>

#include "platform/foreign/excel/biff_cursor.h"
#include "platform/foreign/excel/biff_text.h"

namespace talpena::excel {
namespace {

constexpr std::size_t cellHead = 6;  // row, column and format ahead of a cell's value
constexpr std::uint32_t mostBiffColumns = 256;

/// A number in 32 bits: the upper ones of a double or a whole number, with two decimals or none.
double NombreRk(std::uint32_t rk) {
  constexpr std::uint32_t percent = 1, whole = 2;
  const double value = (rk & whole) != 0 ? static_cast<double>(static_cast<std::int32_t>(rk) >> 2)
                                         : std::bit_cast<double>(std::uint64_t{rk & ~3U} << 32);
  return (rk & percent) != 0 ? value / 100 : value;
}

bool EstCellule(Biff number) {
  switch (number) {
    case Biff::Formula:
    case Biff::Formula3:
    case Biff::Formula4:
    case Biff::MulRk:
    case Biff::RString:
    case Biff::LabelSst:
    case Biff::Number:
    case Biff::Label:
    case Biff::BoolErr:
    case Biff::Rk:
      return true;
    default:
      return false;
  }
}

bool EstTexte(Biff number) {
  return number == Biff::Label || number == Biff::RString || number == Biff::LabelSst;
}

/// Cells out of the records that a cursor stands on.
class CellReader {
 public:
  CellReader(BiffCursor& record, const BiffGlobals& globals) : record_(record), globals_(globals) {}

  /// Adds the cells of the record. The cursor may go on to records that belong to it.
  void Ajoute(std::vector<SheetCell>& cells);

 private:
  void Nombre(std::vector<SheetCell>& cells, std::uint32_t column, double value) const;
  void Plusieurs(std::vector<SheetCell>& cells, std::uint32_t first) const;
  void Formule(std::vector<SheetCell>& cells, std::uint32_t column);
  bool VaAuTexte();
  std::string Texte();
  std::string TexteCompte(std::size_t at);

  BiffCursor& record_;
  const BiffGlobals& globals_;
};

SheetCell CelluleTexte(std::uint32_t column, std::string text) {
  return {.column = column, .kind = SheetCell::Kind::Text, .text = std::move(text)};
}

SheetCell CelluleBooleenne(std::uint32_t column, bool value) {
  return {
      .column = column, .kind = SheetCell::Kind::Boolean, .number = value ? 1.0 : 0.0, .text = {}};
}

void CellReader::Nombre(std::vector<SheetCell>& cells, std::uint32_t column, double value) const {
  if (column >= mostBiffColumns || !std::isfinite(value)) record_.Refuse();
  cells.push_back({.column = column, .number = value, .text = {}});
}

void CellReader::Plusieurs(std::vector<SheetCell>& cells, std::uint32_t first) const {
  constexpr std::size_t head = 4, each = 6, foot = 2;
  for (std::size_t at = head; at + each + foot <= record_.Donnees().size(); at += each) {
    Nombre(cells, first++, NombreRk(record_.Mot32(at + 2)));
  }
}

/// A text behind its length in two bytes.
std::string CellReader::TexteCompte(std::size_t at) {
  const std::size_t length = record_.Mot16(at);
  if (!globals_.unicode) return globals_.texts->EnUtf8(record_.Octets(at + 2, length));
  std::string text;
  if (length > 0) ContinuedRecord(record_, at + 2).Texte(length, text);
  return text;
}

std::string CellReader::Texte() {
  if (record_.Numero() != Biff::LabelSst) return TexteCompte(cellHead);
  const auto text = globals_.shared.Texte(record_.Mot32(cellHead));
  if (!text) record_.Refuse();
  return std::string(*text);
}

/// From a formula on to the record of its text, past those that share it with other cells.
bool CellReader::VaAuTexte() {
  constexpr int most = 3;
  for (int i = 0; i < most; ++i) {
    const Biff next = record_.Prochain();
    if (EstCellule(next) || next == Biff::Eof || next == Biff::Bof) return false;
    record_.Avance();
    if (next == Biff::String) return true;
  }
  return false;
}

/// The value that the formula had when it was last worked out.
void CellReader::Formule(std::vector<SheetCell>& cells, std::uint32_t column) {
  constexpr int noNumber = 0xFFFF, text = 0, boolean = 1;
  const int kind = record_.Octet(cellHead);
  if (record_.Mot16(cellHead + 6) != noNumber) {
    Nombre(cells, column, record_.Reel(cellHead));
  } else if (kind == boolean) {
    cells.push_back(CelluleBooleenne(column, record_.Octet(cellHead + 2) != 0));
  } else if (kind == text && VaAuTexte()) {
    cells.push_back(CelluleTexte(column, TexteCompte(0)));
  }
}

void CellReader::Ajoute(std::vector<SheetCell>& cells) {
  const std::uint32_t column = record_.Mot16(2);
  if (column >= mostBiffColumns) record_.Refuse();
  const Biff number = record_.Numero();
  if (EstTexte(number)) {
    cells.push_back(CelluleTexte(column, Texte()));
  } else if (number == Biff::Number) {
    Nombre(cells, column, record_.Reel(cellHead));
  } else if (number == Biff::Rk) {
    Nombre(cells, column, NombreRk(record_.Mot32(cellHead)));
  } else if (number == Biff::MulRk) {
    Plusieurs(cells, column);
  } else if (number != Biff::BoolErr) {
    Formule(cells, column);
  } else if (record_.Octet(cellHead + 1) == 0) {
    cells.push_back(CelluleBooleenne(column, record_.Octet(cellHead) != 0));
  }
}

/// Records of one row that follow each other.
struct Run {
  std::uint32_t row;
  std::uint32_t place;
};

class BiffRows final : public SheetRows {
 public:
  BiffRows(std::shared_ptr<ByteSource> stream, std::size_t place, const BiffGlobals& globals)
      : cursor_(std::move(stream), place, biffSheet), reader_(cursor_.Fiche(), globals) {
    TrouveLignes();
  }

  std::size_t Fin() const { return end_; }

  bool Suivante(SheetRow& row) override {
    if (next_ == runs_.size()) return false;
    row.number = runs_[next_].row;
    row.cells.clear();
    for (; next_ < runs_.size() && runs_[next_].row == row.number; ++next_) {
      LitSuite(runs_[next_], row.cells);
    }
    return true;
  }

 private:
  void TrouveLignes() {
    constexpr std::size_t mostRuns = std::size_t{1} << 18;  // four times the rows of a sheet
    while (cursor_.Avance()) {
      const BiffCursor& record = cursor_.Fiche();
      if (!EstCellule(record.Numero())) continue;
      const std::uint32_t row = record.Mot16(0);
      if (!runs_.empty() && runs_.back().row == row) continue;
      if (runs_.size() == mostRuns) record.Refuse();
      runs_.push_back({row, static_cast<std::uint32_t>(record.Place())});
    }
    end_ = cursor_.Fiche().Place();
    std::ranges::stable_sort(runs_, {}, &Run::row);
  }

  void LitSuite(const Run& run, std::vector<SheetCell>& cells) {
    cursor_.Fiche().Va(run.place);
    while (cursor_.Avance()) {
      const BiffCursor& record = cursor_.Fiche();
      if (!EstCellule(record.Numero())) continue;
      if (record.Mot16(0) != run.row) return;
      reader_.Ajoute(cells);
    }
  }

  SubstreamCursor cursor_;
  CellReader reader_;
  std::vector<Run> runs_;
  std::size_t end_ = 0;  ///< of the substream
  std::size_t next_ = 0;
};

}  // namespace

std::unique_ptr<SheetRows> LitCellules(std::shared_ptr<ByteSource> stream, std::size_t place,
                                       const BiffGlobals& globals, std::size_t& bytes) {
  auto rows = std::make_unique<BiffRows>(std::move(stream), place, globals);
  bytes = rows->Fin() - place;
  return rows;
}

}  // namespace talpena::excel
