#include "gazetteer/setup_sample.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "common/text.h"
#include "gazetteer/followed_reading.h"
#include "gazetteer/geo_settings.h"
#include "gazetteer/place_name.h"
#include "gazetteer/place_point.h"
#include "platform/busy.h"
#include "platform/commands.h"

namespace talpena {
namespace {

constexpr std::array optionalLists{GeoList::Fips, GeoList::Province, GeoList::Feature,
                                   GeoList::CountryName, GeoList::ProvinceName};
constexpr std::array optionalFields{&PlaceFields::fips, &PlaceFields::province,
                                    &PlaceFields::feature, &PlaceFields::country,
                                    &PlaceFields::provinceName};

std::vector<Value> Garde(std::span<const Cell> cells) {
  std::vector<Value> row;
  std::ranges::transform(cells, std::back_inserter(row), &Cell::Garde);
  return row;
}

std::vector<Cell> Vue(const std::vector<Value>& row) {
  std::vector<Cell> cells;
  std::ranges::transform(row, std::back_inserter(cells), &Cell::Vue);
  return cells;
}

/// Something of it would stand in the list.
bool EstNom(const Cell& cell) {
  std::string name(PremiersCaracteres(cell.Texte(), LongestPlaceName));
  if (name.find('<') != std::string::npos) GeoFormat(name);
  return !Rogne(name).empty();
}

/// Of a row no more is looked at than that asks for: a table may have a million of them.
bool EstUtilisable(const PlaceFields& fields, std::span<const Cell> row) {
  const auto cell = [&](int field) { return row[static_cast<std::size_t>(field)]; };
  return EstNom(cell(fields.name)) &&
         PointDuLieu(cell(fields.latitude), cell(fields.longitude), fields.coordType).has_value();
}

}  // namespace

void SetupSample::Oublie() {
  base_.Ferme();
  champs_.clear();
  rows_.clear();
  guess_ = {};
}

void SetupSample::Lit() {
  Oublie();
  champs_ = setup_.Champs();
  guess_ = DevineChamps(champs_, rows_);
  if (champs_.empty()) return;
  lus_ = Reglages();
  ExecuteCommande(c_.state, c_.io, {}, [&] {
    Busy busy(c_.attente);
    busy.Annulable();
    base_.Lit(lus_, c_.io, [&](Database& base) { LitLignes(base); });
  });
}

/// As Ok would store them; what is searched stands by its proposal.
SharedState SetupSample::Reglages() const {
  SharedState settings = c_.state;
  PrendReglages(settings, setup_.Releve());
  settings.GeoResearchField = Champ(GeoList::Research);
  return settings;
}

void SetupSample::LitLignes(Database& base) {
  const FollowedReading reading(base, c_.attente);
  const auto rows = base.OpenRecordset(ToutesLesLignes(lus_));
  champs_ = rows->Fields();
  rows_.clear();
  std::vector<Cell> cells(champs_.size());
  for (; !rows->EOF_() && rows_.size() < most; rows->MoveNext()) {
    rows->LitLigne(cells);
    rows_.push_back(Garde(cells));
  }
  guess_ = DevineChamps(champs_, rows_);
}

std::string SetupSample::Propose(GeoList list) const {
  const GeoChoices& choices = setup_.Form().Liste(list);
  return choices.choix >= 0 ? std::string() : guess_.Noms[static_cast<std::size_t>(list)];
}

bool SetupSample::Propose() const {
  for (std::size_t i = 1; i < GeoListCount; ++i) {
    if (!Propose(static_cast<GeoList>(i)).empty()) return true;
  }
  return false;
}

std::optional<int> SetupSample::ProposeOption2() const {
  const bool both = !Propose(GeoList::Latitude).empty() && !Propose(GeoList::Longitude).empty();
  return both ? guess_.Option2 : std::nullopt;
}

std::string SetupSample::Champ(GeoList list) const {
  const std::string proposed = Propose(list);
  return proposed.empty() ? setup_.Form().Liste(list).Texte() : proposed;
}

std::int16_t SetupSample::CoordType() const {
  return static_cast<std::int16_t>(ProposeOption2().value_or(setup_.Form().Option2));
}

std::optional<PlaceFields> SetupSample::Champs(const std::vector<FieldDef>& given) const {
  const auto place = [&](GeoList list) {
    const auto found = std::ranges::find(given, Champ(list), &FieldDef::name);
    return found == given.end() ? -1 : static_cast<int>(found - given.begin());
  };
  PlaceFields fields{.name = place(GeoList::FullName),
                     .latitude = place(GeoList::Latitude),
                     .longitude = place(GeoList::Longitude),
                     .coordType = CoordType()};
  if (fields.name < 0 || fields.latitude < 0 || fields.longitude < 0) return {};
  for (std::size_t i = 0; i < optionalLists.size(); ++i) {
    fields.*optionalFields[i] = place(optionalLists[i]);
  }
  return fields;
}

std::vector<SampleRow> SetupSample::Lignes() const {
  std::vector<SampleRow> lines;
  const auto fields = Champs(champs_);
  if (!fields) return lines;
  for (const std::vector<Value>& row : rows_) {
    const std::vector<Cell> cells = Vue(row);
    PlaceItem item = FaitItem(*fields, cells);
    const bool usable = EstUtilisable(*fields, cells);
    lines.push_back({std::move(item), usable});
  }
  return lines;
}

std::optional<SampleTally> SetupSample::Essaie() {
  std::optional<SampleTally> tally;
  if (!PeutEssayer()) return tally;
  ExecuteCommande(c_.state, c_.io, {}, [&] {
    base_.Lit(lus_, c_.io, [&](Database& base) {
      if (rows_.empty()) LitLignes(base);
      tally = Compte(base);
    });
  });
  return tally;
}

/// The file may have changed since the first rows were read, with other fields.
std::optional<SampleTally> SetupSample::Compte(Database& base) {
  const auto rows = [&] {
    const FollowedReading reading(base, c_.attente);
    return base.OpenRecordset(ToutesLesLignes(lus_));
  }();
  const auto fields = Champs(rows->Fields());
  if (!fields) return {};
  SampleTally count;
  Busy busy(c_.attente);
  busy.Annulable(Annulation::Boucle).Barre();
  const std::int64_t total = rows->RecordCount();
  std::vector<Cell> cells(rows->Fields().size());
  for (; !rows->EOF_(); rows->MoveNext()) {
    rows->LitLigne(cells);
    count.utilisables += EstUtilisable(*fields, cells) ? 1 : 0;
    busy.Avance(++count.lignes, total);
    busy.Bat();
  }
  return count;
}

}  // namespace talpena
