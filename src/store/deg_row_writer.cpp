#include "store/deg_row_writer.h"

#include <algorithm>

#include "common/numbers.h"
#include "common/text.h"
#include "store/row_failures.h"

namespace talpena {
namespace {

constexpr std::size_t longestGroupComment = 255;

std::int32_t Entier(const Cell& cell) {
  if (cell.kind == Cell::Kind::Integer) return static_cast<std::int32_t>(cell.integer);
  return Arrondi32(cell.Nombre());
}

std::int32_t Somme(std::int32_t a, std::int32_t b) {
  const std::int64_t sum = std::int64_t{a} + b;
  if (sum != static_cast<std::int32_t>(sum)) throw TalpenaError(ErrorNumber::Overflow, "Overflow");
  return static_cast<std::int32_t>(sum);
}

float Simple(const Cell& cell) { return static_cast<float>(cell.Nombre()); }

}  // namespace

void DegRowWriter::EcritUneParUne() {
  Cells cells;
  DegLine line;  // outlives the rows: a coordinate that fails keeps the value of the one before
  ParcourtLignes([&](std::int64_t row) {
    if (!LitRangee(cells)) return false;
    LitPoint(cells, row, line.latitude, line.longitude);
    line.period = Entier(cells[Column::PERIOD]);
    line.n1 = Entier(cells[Column::N1]);
    line.n2 = Entier(cells[Column::N2]);
    line.date = cells[Column::DATE].text;
    line.sex = cells[Column::SEX].text;
    line.datum = cells[Column::DATUM].text;
    line.original = cells[Column::ORIGINAL].text;
    line.comment = cells[Column::COMMENT].text;
    Ecrit(line, row);
    return true;
  });
}

void DegRowWriter::EcritGroupees() {
  Cells cells;
  bool loaded = false;
  ParcourtLignes([&](std::int64_t row) {
    if (!LitRangee(cells)) return false;
    if (!loaded) {
      LitGroupe(cells, row);
      RogneCommentaire();
      loaded = true;
    } else if (EstDuGroupe(cells)) {
      AjouteAuGroupe(cells);
    } else {
      // The recordset stands behind the group: files have always held this row's datum.
      // Held by GroupedSave.AGroupHasTheDatumOfTheRowBehindIt.
      EcritGroupe(group_.sex, cells[Column::DATUM].text);
      LitGroupe(cells, row);
    }
    return true;
  });
  if (!loaded) return;
  rows_.MoveLast();
  EcritGroupe(rows_.Get(Column::SEX).text, rows_.Get(Column::DATUM).text);
}

/// `row` gets the number of each row, from 1, and says whether it was written.
template <typename Row>
void DegRowWriter::ParcourtLignes(Row&& row) {
  total_ = rows_.RecordCount();
  std::int64_t number = 0;
  sink_.TenteJusquaReussite([&] { rows_.MoveFirst(); });
  rows_.AnnonceParcours({});
  while (!rows_.EOF_()) {
    ++number;
    sink_.Tente([&] {
      if (row(number)) DitAvance(number);
    });
    sink_.TenteJusquaReussite([&] { rows_.MoveNext(); });
  }
}

/// The current row; false when it is Null in all ten columns.
bool DegRowWriter::LitRangee(Cells& cells) {
  rows_.LitLigne(cells);
  return !std::all_of(cells.begin() + Column::FirstInGrid, cells.end(),
                      [](const Cell& cell) { return cell.EstNull(); });
}

void DegRowWriter::LitPoint(const Cells& cells, std::int64_t row, float& latitude,
                            float& longitude) {
  const auto lit = [&](int column, const char* name, float& value) {
    const Cell& cell = cells[static_cast<std::size_t>(column)];
    if (!cell.EstNull()) {
      value = Simple(cell);
      return;
    }
    sink_.Doute(RangeeSansValeur(row, name));
  };
  lit(Column::LATITUDE, "LATITUDE", latitude);
  lit(Column::LONGITUDE, "LONGITUDE", longitude);
}

void DegRowWriter::LitGroupe(const Cells& cells, std::int64_t row) {
  group_.period = Entier(cells[Column::PERIOD]);
  LitPoint(cells, row, group_.latitude, group_.longitude);
  group_.n1 = Entier(cells[Column::N1]);
  group_.n2 = Entier(cells[Column::N2]);
  group_.sex = cells[Column::SEX].text;
  group_.date = cells[Column::DATE].text;
  group_.original = cells[Column::ORIGINAL].text;
  group_.comment = cells[Column::COMMENT].text;
  group_.row = row;
}

bool DegRowWriter::EstDuGroupe(const Cells& cells) const {
  const Cell& latitude = cells[Column::LATITUDE];
  const Cell& longitude = cells[Column::LONGITUDE];
  return !latitude.EstNull() && !longitude.EstNull() &&
         Entier(cells[Column::PERIOD]) == group_.period && Simple(latitude) == group_.latitude &&
         Simple(longitude) == group_.longitude;
}

void DegRowWriter::AjouteAuGroupe(const Cells& cells) {
  sink_.Tente([&] { group_.n1 = Somme(group_.n1, Entier(cells[Column::N1])); });
  sink_.Tente([&] { group_.n2 = Somme(group_.n2, Entier(cells[Column::N2])); });
  const Cell& comment = cells[Column::COMMENT];
  if (!comment.EstNull()) {
    group_.comment += settings_.SeparateurChamps;
    group_.comment += comment.text;
  }
  RogneCommentaire();
}

void DegRowWriter::RogneCommentaire() {
  const std::string& separator = settings_.SeparateurChamps;
  if (!separator.empty() && group_.comment.starts_with(separator)) {
    group_.comment.erase(0, separator.size());
  }
  group_.comment.resize(PremiersCaracteres(group_.comment, longestGroupComment).size());
}

void DegRowWriter::EcritGroupe(std::string_view sex, std::string_view datum) {
  Ecrit({.period = group_.period,
         .latitude = group_.latitude,
         .longitude = group_.longitude,
         .n1 = group_.n1,
         .n2 = group_.n2,
         .date = group_.date,
         .sex = sex,
         .datum = datum,
         .original = group_.original,
         .comment = group_.comment},
        group_.row);
}

void DegRowWriter::Ecrit(const DegLine& line, std::int64_t row) {
  bytes_.clear();
  lacking_.clear();
  EcritLigne(bytes_, line, lacking_);
  for (const LackingCharacters& lack : lacking_) {
    sink_.Tente([&] { throw RangeeHorsPage(row, lack.column, lack.characters); });
  }
  sink_.Tente([&] { sink_.Ecrit(bytes_); });
}

/// At each tenth of the work.
void DegRowWriter::DitAvance(std::int64_t row) {
  const std::int64_t percent = total_ > 1 ? (row - 1) * 100 / (total_ - 1) : 100;
  if (percent % 10 != 0 || percent == shown_) return;
  shown_ = percent;
  sink_.Avance(static_cast<int>(percent));
}

}  // namespace talpena
