#include "interchange/rehearsal_words.h"

#include <string_view>

#include "common/error_words.h"
#include "common/grouped_number.h"
#include "common/line_breaks.h"
#include "common/msg_id.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coord_commands/row_faults.h"

namespace talpena {
namespace {

using Fate = RehearsedRow::Fate;
using Outcome = ReadPoint::Outcome;

std::string SansPointParceQue(std::int16_t langue, const RehearsedRow& row) {
  switch (row.point.outcome) {
    case Outcome::SansOriginal:
      return Texte(langue, MsgId::SansOriginal);
    case Outcome::DatumInconnu:
      return Remplace(Texte(langue, MsgId::SansSonDatum), "%1", Rogne(row.datum));
    case Outcome::Faute:
      return TexteDeFaute(langue, row.point.faute);
    default:
      return Texte(langue, MsgId::OriginalSansLieu);
  }
}

/// The first character that code page 1252 lacks; "…" where it was cut off with the end of a text.
std::string HorsPage(const RehearsedRow& row) {
  std::string missing;
  for (const std::string* text : {&row.original, &row.date, &row.comment}) {
    if (!Utf8VersCp1252(*text, &missing)) return missing;
  }
  return "…";
}

std::string SortEnMots(std::int16_t langue, const RehearsedRow& row) {
  const bool enters = row.fate == Fate::Entre || row.fate == Fate::Loin;
  if (enters && row.doubt != 0) return Remplace(Texte(langue, row.doubt), "%1", HorsPage(row));
  switch (row.fate) {
    case Fate::Omise:
      return Remplace(Texte(langue, MsgId::SortOmise), "%1", Texte(langue, row.dropped));
    case Fate::SansPoint:
      return Remplace(Texte(langue, MsgId::SortSansPoint), "%1", SansPointParceQue(langue, row));
    case Fate::Loin:
      return Texte(langue, MsgId::SortLoin);
    default:
      return Texte(langue, MsgId::SortEntre);
  }
}

/// What stands in one cell of a line.
std::string EnCellule(std::string_view text) { return Remplace(SurUneLigne(text), "\t", " "); }

}  // namespace

RehearsalCells TitresRepetition(const SettingsState& state) {
  const auto texte = [&state](int id) { return Texte(state.Langue, id); };
  return {texte(MsgId::RepetitionLigne), texte(MsgId::RepetitionSort), texte(MsgId::Periode),
          texte(MsgId::CoordOriginales), texte(MsgId::Latitude),       texte(MsgId::Longitude),
          state.LabelNumeric1,           state.LabelNumeric2,          texte(MsgId::Date),
          texte(MsgId::Commentaires)};
}

RehearsalCells CellulesRepetition(std::int16_t langue, const RehearsedRow& row) {
  RehearsalCells cells;
  cells[RehearsalColumn::Line] = Str(row.line);
  cells[RehearsalColumn::Fate] = SortEnMots(langue, row);
  if (row.fate == Fate::Omise) return cells;
  cells[RehearsalColumn::Period] = Str(std::int64_t{row.period});
  cells[RehearsalColumn::Original] = row.original;
  if (row.point.outcome == Outcome::Point) {
    cells[RehearsalColumn::Latitude] = Format(row.point.latitude, "0.00000");
    cells[RehearsalColumn::Longitude] = Format(row.point.longitude, "0.00000");
  }
  if (row.n1) cells[RehearsalColumn::Number1] = Str(std::int64_t{*row.n1});
  if (row.n2) cells[RehearsalColumn::Number2] = Str(std::int64_t{*row.n2});
  cells[RehearsalColumn::Date] = row.date;
  cells[RehearsalColumn::Comment] = row.comment;
  return cells;
}

RehearsalCells CellulesArret(std::int16_t langue, const TalpenaError& failure) {
  RehearsalCells cells;
  const std::int64_t line = failure.words().line;
  if (line != 0) cells[RehearsalColumn::Line] = Str(line);
  cells[RehearsalColumn::Fate] =
      Remplace(Texte(langue, MsgId::SortFin), "%1", EnCellule(DescriptionErreur(langue, failure)));
  return cells;
}

std::string ComptesEnMots(std::int16_t langue, const Rehearsal& rehearsal) {
  const RehearsalCounts& counts = rehearsal.Comptes();
  const std::array<std::int64_t, 4> numbers{counts.enter, counts.dropped, counts.withoutPoint,
                                            counts.far};
  std::string text = Texte(langue, MsgId::RepetitionComptes);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    text = Remplace(text, "%" + std::to_string(i + 1), NombreGroupe(langue, numbers[i]));
  }
  if (counts.doubtful > 0) {
    text += " " + Remplace(Texte(langue, MsgId::RepetitionAVoir), "%1",
                           NombreGroupe(langue, counts.doubtful));
  }
  const std::int64_t skipped = rehearsal.Lignes().NonGardees();
  if (skipped > 0) {
    text += " " + Remplace(Texte(langue, MsgId::RepetitionNonGardees), "%1",
                           NombreGroupe(langue, skipped));
  }
  if (rehearsal.EstLue()) return text;
  const auto percent = static_cast<std::int64_t>(rehearsal.Part() * 100);
  return Remplace(Texte(langue, MsgId::RepetitionLecture), "%1", Str(percent)) + " " + text;
}

std::string ArretEnMots(std::int16_t langue, const TalpenaError& failure, std::int64_t before) {
  std::string text =
      Texte(langue, before > 0 ? MsgId::RepetitionArret : MsgId::RepetitionArretDebut);
  text = Remplace(text, "%2", NombreGroupe(langue, before));
  return Remplace(text, "%1", DescriptionErreur(langue, failure));
}

std::string ConseilEnMots(std::int16_t langue, const SystemHint& hint) {
  const int words = hint.beginning ? MsgId::RepetitionConseilDebut : MsgId::RepetitionConseil;
  std::string text = Texte(langue, words);
  text =
      Remplace(text, "%1", Texte(langue, MsgId::PremierTypeImport + static_cast<int>(hint.system)));
  text = Remplace(text, "%2", NombreGroupe(langue, hint.near));
  return Remplace(text, "%3", NombreGroupe(langue, hint.rows));
}

std::string EnLigne(const RehearsalCells& cells) {
  std::string line;
  for (const std::string& cell : cells)
    line += (&cell == cells.data() ? "" : "\t") + EnCellule(cell);
  return line;
}

}  // namespace talpena
