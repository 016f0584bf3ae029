#include "interchange/database_columns.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "common/msg_id.h"
#include "common/msg_id_export.h"
#include "common/string_table.h"
#include "common/text.h"
#include "interchange/export_options.h"
#include "platform/field_names.h"
#include "platform/geopackage_point.h"
#include "store/table.h"

namespace talpena {
namespace {

using S = SettingsState;

/// A column that a box of OptionsExport turns on.
struct ColumnRule {
  std::string_view name;
  FieldType type;
  int size;
  ColumnSource source;
  std::size_t place;
  std::int16_t SettingsState::*flag;
};

// The names of X and Y differ in case, and those of the text export are others: files are read so.
// The sizes stay too, a period of two digits does not go in.
// clang-format off
constexpr std::array<ColumnRule, 10> databaseRules{{
    {"Period",    FieldType::Text,   1,   ColumnSource::TrimmedText, Column::PERIOD,    &S::ExportPeriod},
    {"Latitude",  FieldType::Single, 0,   ColumnSource::Single,      Column::LATITUDE,  &S::ExportLatitude},
    {"Longitude", FieldType::Single, 0,   ColumnSource::Single,      Column::LONGITUDE, &S::ExportLongitude},
    {"Number 1",  FieldType::Long,   0,   ColumnSource::Whole,       Column::N1,        &S::ExportNumber1},
    {"Number 2",  FieldType::Long,   0,   ColumnSource::Whole,       Column::N2,        &S::ExportNumber2},
    {"Ellipsoid", FieldType::Text,   5,   ColumnSource::Text,        Column::DATUM,     &S::ExportEllipsoid},
    {"Orig Coor", FieldType::Text,   24,  ColumnSource::Text,        Column::ORIGINAL,  &S::ExportOriginalCoord},
    {"Date",      FieldType::Text,   10,  ColumnSource::TrimmedText, Column::DATE,      &S::ExportDate},
    {"Sex",       FieldType::Text,   1,   ColumnSource::TrimmedText, Column::SEX,       &S::ExportSex},
    {"Free text", FieldType::Text,   150, ColumnSource::TrimmedText, Column::COMMENT,   &S::ExportFreeField},
}};
// clang-format on

/// The same columns for who reads headings: a period is a number, nothing is too long, and the
/// blanks of an empty column are no text.
ColumnRule SansLimite(ColumnRule rule) {
  if (rule.source == ColumnSource::Text) rule.source = ColumnSource::TrimmedText;
  if (rule.place == Column::PERIOD) {
    rule.type = FieldType::Long;
    rule.size = 0;
    rule.source = ColumnSource::Whole;
  } else if (rule.place == Column::COMMENT) {
    rule.type = FieldType::Memo;
    rule.size = 0;
  }
  return rule;
}

FieldDef Champ(std::string_view name, FieldType type, int size = 0) {
  const bool text = type == FieldType::Text || type == FieldType::Memo;
  return {.name = std::string(name), .type = type, .size = size, .allowZeroLength = text};
}

class ColumnList {
 public:
  ColumnList(const SettingsState& settings, const DistributionHeader& header, ColumnStyle style)
      : settings_(settings), header_(header), style_(style) {}

  std::vector<ExportColumn> Fait() {
    const bool titles = style_ != ColumnStyle::Database;
    if (ExporteXY(settings_)) {
      Ajoute(Champ("X", FieldType::Long), ColumnSource::X);
      Ajoute(Champ(titles ? "Y" : "y", FieldType::Long), ColumnSource::Y);
    }
    for (const ColumnRule& rule : databaseRules) {
      if (settings_.*rule.flag != 0) AjouteRegle(titles ? SansLimite(rule) : rule);
    }
    if (style_ == ColumnStyle::Geographic && settings_.ExportFreeField != 0) AjouteChampsLibres();
    Ajoute(Champ(titles ? Texte(settings_.Langue, MsgId::TitreEtCommentaire) : "Memo",
                 FieldType::Memo),
           ColumnSource::Memo);
    if (titles) RendDistincts();
    // Its name is the format's, whatever the others are called.
    if (style_ == ColumnStyle::Geographic) {
      Ajoute(Champ(colonneGeometrie, FieldType::Binary), ColumnSource::Point);
    }
    return std::move(columns_);
  }

 private:
  void Ajoute(FieldDef field, ColumnSource source, std::size_t place = 0) {
    columns_.push_back({std::move(field), source, place});
  }

  void AjouteRegle(const ColumnRule& rule) {
    std::string name(rule.name);
    if (style_ != ColumnStyle::Database) {
      const auto titles = TitresColonnes(settings_);
      const std::string& title = titles[rule.place - Column::FirstInGrid];
      if (!Rogne(title).empty()) name = Rogne(title);
    }
    Ajoute(Champ(name, rule.type, rule.size), rule.source, rule.place);
  }

  void AjouteChampsLibres() {
    for (std::size_t i = 0; i < header_.FreeFieldDefs.size(); ++i) {
      const FreeFieldDef& field = header_.FreeFieldDefs[i];
      std::string name(Rogne(field.Label));
      if (name.empty()) name = Rogne(field.Code);
      if (name.empty()) name = Texte(settings_.Langue, MsgId::ChampLibre);
      Ajoute(Champ(name, FieldType::Memo), ColumnSource::FreeField, i);
    }
  }

  void RendDistincts() {
    std::vector<FieldDef> fields;
    // Names that the format has for its own columns.
    fields.push_back(Champ(colonneGeometrie, FieldType::Binary));
    fields.push_back(Champ("fid", FieldType::Long));
    const std::size_t own = fields.size();
    for (const ExportColumn& column : columns_) fields.push_back(column.field);
    RendNomsDistincts(fields);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      columns_[i].field.name = std::move(fields[own + i].name);
    }
  }

  const SettingsState& settings_;
  const DistributionHeader& header_;
  ColumnStyle style_;
  std::vector<ExportColumn> columns_;
};

}  // namespace

std::vector<ExportColumn> ColonnesExportees(const SettingsState& settings,
                                            const DistributionHeader& header, ColumnStyle style) {
  return ColumnList(settings, header, style).Fait();
}

}  // namespace talpena
