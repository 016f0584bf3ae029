#include "coord_commands/row_faults.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <tuple>
#include <unordered_map>

#include "common/grouped_number.h"
#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/systems.h"
#include "coords/tokens.h"
#include "store/table.h"

namespace talpena {
namespace {

using Cause = FauteDeLigne::Cause;

constexpr std::size_t mostTold = 10;
constexpr std::array textOfCause{MsgId::FauteLatitude, MsgId::FauteLongitude,
                                 MsgId::FauteMinutes,  MsgId::FauteCarre,
                                 MsgId::FauteNombres,  MsgId::FauteSansPlace};

/// Minutes or seconds of 60 and more in either coordinate.
bool DepasseSoixante(std::string_view original) {
  std::string_view latitude, longitude;
  DecoupeDeux(original, latitude, longitude);
  for (const std::string_view text : {latitude, longitude}) {
    Dms dms;
    DecoupeDms(text, dms);
    if (dms.minutes >= 60 || dms.seconds >= 60) return true;
  }
  return false;
}

/// A fault and where its row stands in the grid, from 0.
struct Placee {
  std::int64_t position;
  Bookmark row;
  FauteDeLigne fault;
};

/// The first ones from above; rows that the grid does not show come behind those that it does.
std::vector<Placee> Premieres(Document& document,
                              const std::vector<std::pair<Bookmark, FauteDeLigne>>& rows) {
  const Recordset& grid = document.Data1.recordset();
  std::vector<Placee> placed;
  placed.reserve(rows.size());
  for (const auto& [row, fault] : rows) placed.push_back({grid.PositionDe(row), row, fault});
  const auto told = static_cast<std::ptrdiff_t>(std::min(mostTold, placed.size()));
  std::partial_sort(placed.begin(), placed.begin() + told, placed.end(),
                    [](const Placee& a, const Placee& b) {
                      return std::tuple(a.position < 0, a.position, a.row) <
                             std::tuple(b.position < 0, b.position, b.row);
                    });
  placed.resize(static_cast<std::size_t>(told));
  return placed;
}

/// ORIGINAL of rows, whether the grid shows them or not.
std::unordered_map<Bookmark, std::string> Originaux(Document& document,
                                                    const std::vector<Placee>& rows) {
  std::vector<Bookmark> names;
  names.reserve(rows.size());
  for (const Placee& placed : rows) names.push_back(placed.row);
  std::unordered_map<Bookmark, std::string> originals;
  document.Base().OpenRecordset("TALPENA")->LitLignes(
      names, [&](Bookmark row, std::span<const Cell> cells) {
        originals[row] = cells[static_cast<std::size_t>(Column::ORIGINAL)].text;
      });
  return originals;
}

/// The first of them becomes the current row, so that the grid shows it, and all are chosen.
void MontreDansLaGrille(CommandContext c, const Placee& first, const std::vector<Bookmark>& all) {
  DataControl& data = c.document().Data1;
  if (first.position >= 0) {
    data.recordset().SetBookmark(first.row);
    data.SignalePosition();
  }
  c.vue.ChoisitLignes(all);
}

/// "Row 2: deg 5041.234 3.9 (the latitude 5041.234° lies beyond 90°)".
std::string LigneDeFaute(std::int16_t langue, const Placee& placed, const std::string& original) {
  std::string line =
      Texte(langue, placed.position < 0 ? MsgId::LigneNonMontree : MsgId::LigneFautive);
  line = Remplace(line, "%1", Str(placed.position + 1));
  line = Remplace(line, "%3", TexteDeFaute(langue, placed.fault));
  const std::string_view shown = Rogne(original);
  return Remplace(line, "%2", shown.empty() ? "-" : shown);
}

}  // namespace

bool EstFauteDeCalcul(const TalpenaError& error) {
  return error.number() == ErrorNumber::InvalidCall || error.number() == ErrorNumber::Overflow ||
         error.number() == ErrorNumber::DivisionByZero;
}

std::optional<FauteDeLigne> FauteDuPoint(double latitude, double longitude) {
  if (!(std::fabs(latitude) <= 90)) return FauteDeLigne{Cause::Latitude, latitude};
  if (!(std::fabs(longitude) <= 180)) return FauteDeLigne{Cause::Longitude, longitude};
  return std::nullopt;
}

FauteDeLigne FauteDeLecture(const RowPoint& row) {
  const auto system = SystemeDe(row.code);
  const Content content = system ? InfoDe(*system).content : Content::Metres;
  if (content == Content::Reference) return {Cause::Carre};
  if (content == Content::Metres) return {Cause::Nombres};
  try {
    if (system == CoordSystem::Dms && DepasseSoixante(row.original)) return {Cause::Minutes};
  } catch (const TalpenaError&) {  // numbers beyond all range
    return {Cause::Nombres};
  }
  if (row.latitude == EchecCoord) return {Cause::Nombres};
  return FauteDuPoint(row.latitude, row.longitude).value_or(FauteDeLigne{Cause::Nombres});
}

std::string TexteDeFaute(std::int16_t langue, const FauteDeLigne& fault) {
  const std::string text = Texte(langue, textOfCause.at(static_cast<std::size_t>(fault.cause)));
  return Remplace(text, "%1", StrSimple(static_cast<float>(fault.degres)));
}

void LignesFautives::Dit(CommandContext c) const {
  if (rows_.empty()) return;
  const std::int16_t langue = c.state.Langue;
  const std::vector<Placee> first = Premieres(c.document(), rows_);
  const auto originals = Originaux(c.document(), first);
  std::vector<Bookmark> all;
  for (const auto& [row, fault] : rows_) all.push_back(row);
  MontreDansLaGrille(c, first.front(), all);

  const auto count = static_cast<std::int64_t>(rows_.size());
  std::string text =
      Remplace(Texte(langue, MsgId::LignesSansPlace), "%1", NombreGroupe(langue, count)) + "\n";
  for (const Placee& placed : first) {
    text += "\n" + LigneDeFaute(langue, placed, originals.at(placed.row));
  }
  if (rows_.size() > first.size()) text += "\n...";
  c.io.dialogues.Demande({.text = text, .icon = Icon::Exclamation});
}

}  // namespace talpena
