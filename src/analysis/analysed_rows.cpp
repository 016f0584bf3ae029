#include "analysis/analysed_rows.h"

#include "common/msg_id_analysis.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/busy.h"
#include "store/filter.h"
#include "store/table.h"

namespace talpena {
namespace {

/// The number in characters from one on; 0 outside of 1 to `most`.
int Partie(std::string_view date, std::size_t first, std::size_t count, int most) {
  date.remove_prefix(PremiersCaracteres(date, first).size());
  const double value = Val(PremiersCaracteres(date, count));
  return value >= 1 && value <= most ? static_cast<int>(value) : 0;
}

/// Dates of plain digits are read without the parse, which takes most of the time of a chart.
int DeuxChiffres(std::string_view date, std::size_t first, int most) {
  const auto digit = [&](std::size_t i) { return static_cast<unsigned>(date[i] - '0'); };
  if (date.size() < first + 2 || digit(first) > 9 || digit(first + 1) > 9 ||
      !EstAscii(date.substr(0, first))) {
    return Partie(date, first, 2, most);
  }
  const auto value = static_cast<int>(10 * digit(first) + digit(first + 1));
  return value <= most ? value : 0;
}

constexpr std::size_t PlaceAnnee = 0, PlaceMois = 5, PlaceJour = 8;
constexpr int DerniereAnnee = 9999, DernierMois = 12, DernierJour = 31;

}  // namespace

AnalysedRows::AnalysedRows(CommandContext c) : c_(c), chosen_(c.vue.LignesSelectionnees()) {}

void AnalysedRows::Parcourt(const RowVisitor& visit) const {
  if (!c_.document().Data1.EstLie()) return;
  Busy busy(c_.attente);
  busy.Annulable();
  const auto rows = c_.document().Data1.Clone();
  if (!chosen_.empty()) return rows->LitLignes(chosen_, visit);
  std::vector<Cell> cells(Column::Count);
  rows->AnnonceParcours({});
  for (; !rows->EOF_(); rows->MoveNext()) {
    rows->LitLigne(cells);
    visit(rows->GetBookmark(), cells);
  }
}

CountedRows AnalysedRows::Lesquelles(std::int64_t sansDate) const {
  const NombresDeLignes counts = CompteLignes(c_.document());
  if (!chosen_.empty()) {
    return {MsgId::LignesChoisies, static_cast<std::int64_t>(chosen_.size()), counts.toutes,
            sansDate};
  }
  const bool filtered = c_.document().FiltreActif();
  return {filtered ? MsgId::LignesDuFiltre : MsgId::LignesToutes, counts.montrees, counts.toutes,
          sansDate};
}

std::string TexteDesLignes(std::int16_t langue, const CountedRows& rows) {
  if (rows.texte == 0) return {};
  std::string text = AvecNombres(langue, Texte(langue, rows.texte), {rows.montrees, rows.toutes});
  if (rows.sansDate == 0) return text;
  return text + ". " + AvecNombres(langue, Texte(langue, MsgId::LignesSansDate), {rows.sansDate});
}

DateParts LitDate(std::string_view date) {
  return {Partie(date, PlaceAnnee, 4, DerniereAnnee), MoisDe(date),
          DeuxChiffres(date, PlaceJour, DernierJour)};
}

int MoisDe(std::string_view date) { return DeuxChiffres(date, PlaceMois, DernierMois); }

std::vector<std::string> NomsDesMois(std::int16_t langue) {
  return Decoupe(Texte(langue, MsgId::MoisCourts), ' ');
}

std::string NomDePeriode(std::int16_t langue, const Cell& period) {
  if (period.EstNull()) return Texte(langue, MsgId::SansPeriode);
  return Remplace(Texte(langue, MsgId::PeriodeN), "%1", period.Texte());
}

}  // namespace talpena
