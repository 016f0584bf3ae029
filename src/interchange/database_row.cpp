#include "interchange/database_row.h"

#include <algorithm>
#include <cmath>

#include "common/numbers.h"
#include "common/text.h"
#include "coords/datum.h"
#include "interchange/export_options.h"
#include "platform/geopackage_point.h"
#include "store/row_failures.h"
#include "store/table.h"

namespace talpena {

DatabaseRow::DatabaseRow(StoreState& state, const DatabaseTarget& target)
    : state_(state),
      keepsNull_(target.style != ColumnStyle::Database),
      columns_(ColonnesExportees(state, state.document.Entete(), target.style)),
      withXY_(A(ColumnSource::X)),
      withFreeFields_(A(ColumnSource::FreeField)),
      points_(state),
      wgs84_(ChercheDatum(state.Catalogue, "WGS84")) {
  PrendMemo(target.longestMemo);
}

void DatabaseRow::PrendMemo(std::size_t longest) {
  const DistributionHeader& header = state_.document.Entete();
  memo_ = header.BoxTitre + " / " + header.Commentaire;
  if (longest == 0 || CompteCaracteres(memo_) <= longest) return;
  memo_ = PremiersCaracteres(memo_, longest);
  memoCut_ = true;
}

bool DatabaseRow::A(ColumnSource source) const {
  return std::any_of(columns_.begin(), columns_.end(),
                     [=](const ExportColumn& column) { return column.source == source; });
}

void DatabaseRow::Ligne(std::span<const Cell> cells, std::int64_t row, std::span<Cell> values) {
  if (withXY_) xy_ = CalculeXY(cells, row);
  if (withFreeFields_) {
    const DistributionHeader& header = state_.document.Entete();
    freeText_ = DecoupeTexteLibre(cells[Column::COMMENT].text, header.FreeFieldSeparator,
                                  header.FreeFieldDefs.size());
  }
  for (std::size_t i = 0; i < columns_.size(); ++i) values[i] = Valeur(columns_[i], cells);
}

std::vector<std::string> DatabaseRow::DatumsInconnus() const {
  std::vector<std::string> codes = points_.DatumsInconnus();
  const std::string& file = state_.document.Entete().DatumFichierCode;
  if (withoutDatum_ && std::find(codes.begin(), codes.end(), file) == codes.end()) {
    codes.push_back(file);
  }
  return codes;
}

LambertPoint DatabaseRow::CalculeXY(std::span<const Cell> cells, std::int64_t row) {
  const std::string_view datum = cells[Column::DATUM].text;
  if (datum.empty()) return {};
  try {
    return points_.Calcule(datum, static_cast<float>(cells[Column::LATITUDE].Nombre()),
                           static_cast<float>(cells[Column::LONGITUDE].Nombre()));
  } catch (const TalpenaError& failure) {
    throw EchecDeRangee(state_.Langue, failure, row, "X, Y");
  }
}

/// Latitude and longitude are on the datum of the file.
Cell DatabaseRow::PointDe(std::span<const Cell> cells) {
  constexpr double pole = 90;
  const Cell& latitude = cells[Column::LATITUDE];
  const Cell& longitude = cells[Column::LONGITUDE];
  if (latitude.EstNull() || longitude.EstNull() || std::abs(latitude.Nombre()) > pole) return {};
  const std::int16_t datum = state_.document.Entete().DatumFichier;
  withoutDatum_ = datum == 0 || wgs84_ == 0;
  if (withoutDatum_) return {};
  // From the decimals that the float stands for.
  double phi = Val(Str(static_cast<float>(latitude.Nombre())));
  double lambda = Val(Str(static_cast<float>(longitude.Nombre())));
  ConvertitDatum(state_.Catalogue, phi, lambda, 0, phi, lambda, datum, wgs84_);
  geometry_ = PointGeoPackage(lambda, phi);
  return Cell::Of(std::string_view(geometry_));
}

Cell DatabaseRow::Nombre(const Cell& cell, bool whole) const {
  if (cell.EstNull()) return keepsNull_ ? cell : Cell::Of(std::int64_t{0});
  return whole ? Cell::Of(std::int64_t{Arrondi32(cell.Nombre())}) : cell;
}

Cell DatabaseRow::TexteDe(const Cell& cell, bool trimmed) {
  if (cell.EstNull()) return keepsNull_ ? cell : Cell::Of(std::string_view());
  std::string_view text = cell.text;
  if (cell.kind != Cell::Kind::Text) text = number_ = cell.Texte();
  return Cell::Of(trimmed ? Rogne(text) : text);
}

Cell DatabaseRow::Valeur(const ExportColumn& column, std::span<const Cell> cells) {
  switch (column.source) {
    case ColumnSource::X:
      return Cell::Of(std::int64_t{xy_.x});
    case ColumnSource::Y:
      return Cell::Of(std::int64_t{xy_.y});
    case ColumnSource::Single:
      return Nombre(cells[column.place], false);
    case ColumnSource::Whole:
      return Nombre(cells[column.place], true);
    case ColumnSource::Text:
      return TexteDe(cells[column.place], false);
    case ColumnSource::TrimmedText:
      return TexteDe(cells[column.place], true);
    case ColumnSource::FreeField:
      return Cell::Of(std::string_view(freeText_.fields[column.place]));
    case ColumnSource::Memo:
      return Cell::Of(std::string_view(memo_));
    case ColumnSource::Point:
      return PointDe(cells);
  }
  return {};
}

}  // namespace talpena
