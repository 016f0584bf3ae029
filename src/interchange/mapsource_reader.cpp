#include "interchange/mapsource_reader.h"

#include <algorithm>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "interchange/column_cut.h"
#include "interchange/garmin_position.h"
#include "interchange/gdate.h"
#include "interchange/waypoint_row.h"
#include "store/table.h"

namespace talpena {
namespace {

constexpr std::string_view nameAndDescription = " - ";

GarminSource Source(std::int16_t import) {
  if (import <= 0) return GarminSource::None;
  return import == 1 ? GarminSource::Fixed : GarminSource::Column;
}

/// The digits of "123 M"; "" for what is no number.
std::string AltitudeLue(std::string_view cut) {
  const std::string digits = Remplace(Remplace(Majuscules(cut), "M", ""), " ", "");
  return EstNumerique(digits) ? digits : std::string();
}

/// A position begins with a single character.
bool AUneLettre(const MapSourceText& text) {
  for (std::size_t i = 0; i < text.items.Nombre(); ++i) {
    const auto position = RogneGauche(text.items.Texte(i, WaypointColumn::Position));
    if (position.find(' ') == 1) return true;
  }
  return false;
}

}  // namespace

std::vector<WaypointChoice> TousLesPoints(const MapSourceText& text) {
  std::vector<WaypointChoice> all(text.items.Nombre());
  for (std::size_t i = 0; i < all.size(); ++i) all[i].item = static_cast<std::uint32_t>(i);
  return all;
}

std::optional<std::size_t> ChampAltitude(const DistributionHeader& entete) {
  const auto fields = ChampsLibres(entete);
  const auto found = std::ranges::find_if(fields, [](const FreeFieldDef& field) {
    return EgalSansCasse(field.Code, "STAT.ALTI") || EgalSansCasse(field.Code, "ALTI");
  });
  if (found == fields.end()) return {};
  return static_cast<std::size_t>(found - fields.begin());
}

std::optional<std::size_t> ColonneDe(const MapSourceText& text, std::string_view caption) {
  const auto found = std::ranges::find(text.captions, caption);
  if (caption.empty() || found == text.captions.end()) return {};
  return static_cast<std::size_t>(found - text.captions.begin());
}

std::vector<std::string> AvisMapSource(std::int16_t langue, const MapSourceText& text, int grid,
                                       const objGraminImport& options) {
  std::vector<std::string> all;
  const auto dit = [&](std::int16_t import, const std::string& caption, int id) {
    if (Source(import) != GarminSource::Column || ColonneDe(text, caption)) return;
    all.push_back(Remplace(Texte(langue, id), "%1", caption));
  };
  dit(options.DateImport, options.DateField, MsgId::ColonneDateAbsente);
  dit(options.AltitudeImport, options.AltitudeField, MsgId::ColonneAltitudeAbsente);
  if (grid == GarminGrid::Irish && AUneLettre(text)) {
    all.push_back(Texte(langue, MsgId::IrlandaisUneLettre));
  }
  return all;
}

MapSourceReader::MapSourceReader(const MapSourceText& text, MapSourceChoice choice,
                                 const objGraminImport& options, const DistributionHeader& entete)
    : text_(text),
      choice_(std::move(choice)),
      options_(options),
      entete_(entete),
      datum_(CodeDeCinq(choice_.datum)),
      dateColumn_(ColonneDe(text, options.DateField)),
      altitudeColumn_(ColonneDe(text, options.AltitudeField)),
      altitudeField_(ChampAltitude(entete)) {}

double MapSourceReader::Part() const {
  const std::size_t count = choice_.items.size();
  return count == 0 ? 1 : static_cast<double>(next_) / static_cast<double>(count);
}

bool MapSourceReader::Suivant(ImportRecord& record) {
  if (next_ >= choice_.items.size()) return false;
  const WaypointChoice& chosen = choice_.items[next_];
  const bool somewhere = !text_.items.Texte(chosen.item, WaypointColumn::Position).empty();
  record.line = text_.items.Ligne(chosen.item);
  record.dropped = !chosen.checked ? MsgId::PointNonCoche
                   : !somewhere    ? MsgId::PointSansPosition
                                   : 0;
  record.row = {};
  record.doubt = 0;
  Remplit(chosen.item, record);
  doubts_.Compte(record);
  ++next_;  // a failure comes again
  return true;
}

void MapSourceReader::Remplit(std::size_t item, ImportRecord& record) const {
  ImportedRow& row = record.row;
  row.period = options_.Period;
  row.datum = datum_;
  if (record.dropped == 0) {
    std::string original = Original(item);
    if (!original.empty()) row.original = std::move(original);
    record.doubt = DouteDePosition(choice_.grid, text_.items.Texte(item, WaypointColumn::Position));
  }
  Date(item, record);
  row.comment = Commentaire(item);
}

std::string MapSourceReader::Original(std::size_t item) const {
  try {
    std::string original =
        OriginalDePosition(choice_.grid, text_.items.Texte(item, WaypointColumn::Position));
    if (CompteCaracteres(Rogne(original)) > Column::LargeurOriginal) {
      throw TalpenaError(ErrorNumber::FieldTooSmall, "ORIGINAL");
    }
    return original;
  } catch (const TalpenaError& e) {
    const auto said = [&](std::size_t column) {
      constexpr std::size_t characters = 80;
      return std::string(PremiersCaracteres(text_.items.Texte(item, column), characters));
    };
    const std::string position = said(WaypointColumn::Position);
    const TalpenaError named(
        e.number(), e.description() + ": " + position,
        {.text = MsgId::PositionIllisible, .about = {position, said(WaypointColumn::Name)}});
    throw named.SurLigne(text_.items.Ligne(item));
  }
}

void MapSourceReader::Date(std::size_t item, ImportRecord& record) const {
  const GarminSource source = Source(options_.DateImport);
  if (source == GarminSource::Fixed) record.row.date = options_.DateFixed;
  if (source != GarminSource::Column || !dateColumn_) return;
  const std::string_view cell = text_.items.Texte(item, *dateColumn_);
  const int begin = options_.DateBegin, length = options_.DateLength;
  const std::string_view cut = CoupeColonne(cell, begin, length);
  record.row.date = GDate(cut);
  // One character more: of a year of four digits the cut may hold the first two.
  const bool read =
      CommenceParDateGarmin(cut) && CommenceParDateGarmin(CoupeColonne(cell, begin, length + 1));
  if (record.doubt == 0 && !read) record.doubt = MsgId::DouteDate;
}

/// Empty when the row gets none, which leaves the separators of the free fields away too.
std::optional<std::string> MapSourceReader::Altitude(std::size_t item) const {
  const GarminSource source = Source(options_.AltitudeImport);
  if (!altitudeField_ || source == GarminSource::None) return {};
  if (source == GarminSource::Fixed) return options_.AltitudeFixed;
  if (!altitudeColumn_) return {};
  return AltitudeLue(CoupeColonne(text_.items.Texte(item, *altitudeColumn_), options_.AltitudeBegin,
                                  options_.AltitudeLength));
}

// Without an altitude there are no separators: name and description then stand in the first free
// field. Held by MapSourceReaderTest.WritesNoSeparatorsWithoutAnAltitude.
std::string MapSourceReader::Commentaire(std::size_t item) const {
  std::string text;
  if (const auto altitude = Altitude(item)) {
    for (std::size_t i = 0; i < ChampsLibres(entete_).size(); ++i) {
      if (i == *altitudeField_) text += *altitude;
      text += entete_.FreeFieldSeparator;
    }
  }
  text.append(text_.items.Texte(item, WaypointColumn::Name)).append(nameAndDescription);
  return text.append(text_.items.Texte(item, WaypointColumn::Description));
}

}  // namespace talpena
