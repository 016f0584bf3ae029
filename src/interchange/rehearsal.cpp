#include "interchange/rehearsal.h"

#include "common/msg_id_import.h"
#include "common/text.h"
#include "coords/snap.h"
#include "interchange/column_room.h"

namespace talpena {
namespace {

/// Rows that are read before those of the table.
constexpr std::int64_t firstRows = 500;

using Outcome = ReadPoint::Outcome;
using Fate = RehearsedRow::Fate;

bool Contient(const std::optional<std::string>& text, char c) {
  return text && text->find(c) != std::string::npos;
}

bool TientEnPage(const std::optional<std::string>& text) {
  return !text || EstAscii(*text) || Utf8VersCp1252(*text).has_value();
}

/// What the user is to look at though the row enters; 0 for nothing.
int DouteDe(const ImportRecord& record) {
  const ImportedRow& row = record.row;
  if (!TientEnLigne(row)) return MsgId::SortSansPlace;
  if (Contient(row.comment, '\n')) return MsgId::SortSurPlusieurs;
  const bool nul =
      Contient(row.original, '\0') || Contient(row.date, '\0') || Contient(row.comment, '\0');
  if (nul || record.doubt != 0) return nul ? MsgId::SortNul : record.doubt;
  const bool holds = TientEnPage(row.original) && TientEnPage(row.date) && TientEnPage(row.comment);
  return holds ? 0 : MsgId::SortHorsPage;
}

std::optional<std::string_view> TexteDe(const std::optional<std::string>& column) {
  if (!column) return std::nullopt;
  return *column;
}

}  // namespace

Rehearsal::Rehearsal(const CoordState& state, std::int16_t datumFichier, Database& database,
                     RehearsalPlan plan)
    : state_(state),
      plan_(std::move(plan)),
      table_(database),
      isolated_(LoinKm, [this](IsolatedPoints::Name name, bool alone) {
        counts_.far += alone ? 1 : -1;
        if (name >= 0) rows_.MarqueLoin(name, alone);
      }) {
  if (datumFichier == 0) return;
  points_.emplace(state_, [this, datumFichier](RowPoint& row) {
    return AjusteEnDegres(state_, row, datumFichier, SansMaille, SansMaille);
  });
}

bool Rehearsal::Travaille(const std::function<bool()>& encore) {
  while (step_ != Step::Fin) {
    try {
      FaitUnPas();
    } catch (const TalpenaError& error) {
      Interrompt(error);
    }
    if (!encore()) break;
  }
  return step_ != Step::Fin;
}

int Rehearsal::SansFiche() const {
  return EstLue() && !failure_ && counts_.enter + counts_.dropped == 0 ? plan_.sansFiche : 0;
}

void Rehearsal::FaitUnPas() {
  switch (step_) {
    case Step::Preparation:
      return Prepare();
    case Step::Debut:
    case Step::Lecture:
      return LitFiche();
    case Step::Table:
      return ParcourtTable();
    case Step::Essais:
      if (!others_ || !others_->Avance()) step_ = Step::Fin;
      return;
    case Step::Fin:
      return;
  }
}

/// What the file raises ends it, what the table raises leaves its other rows out of the comparison.
void Rehearsal::Interrompt(const TalpenaError& error) {
  if (step_ == Step::Table) return QuitteTable();
  failure_ = error;
  fileEnded_ = true;
  if (reader_ && error.number() == ErrorNumber::InputPastEnd) cutLine_ = reader_->LigneCoupee();
  if (step_ == Step::Lecture) return CommenceEssais();
  step_ = Step::Table;
}

void Rehearsal::Prepare() {
  if (plan_.prepare && plan_.prepare()) return;
  reader_ = plan_.ouvre();
  step_ = Step::Debut;
}

void Rehearsal::LitFiche() {
  ImportRecord record;
  fileEnded_ = !reader_->Suivant(record);
  if (fileEnded_) {
    cutLine_ = reader_->LigneCoupee();
  } else {
    RefuseTropLong(record);
    Ajoute(record);
  }
  const bool table =
      step_ == Step::Debut && (fileEnded_ || counts_.enter + counts_.dropped >= firstRows);
  if (table) {
    step_ = Step::Table;
  } else if (fileEnded_) {
    CommenceEssais();
  }
}

void Rehearsal::ParcourtTable() {
  const bool more = table_.Suivants([this](double latitude, double longitude) {
    const SpherePoint point = SurSphere(latitude, longitude);
    isolated_.Ajoute(point);
    near_.Ajoute(point);
  });
  if (!more) QuitteTable();
}

void Rehearsal::QuitteTable() {
  step_ = Step::Lecture;
  if (fileEnded_) CommenceEssais();
}

void Rehearsal::CommenceEssais() {
  step_ = Step::Essais;
  if (!reader_) return;  // the file could not be opened
  if (!near_.EstVide() && points_ && plan_.system && plan_.ouvreEn) {
    others_.emplace(plan_, *points_, near_);
  }
}

void Rehearsal::Ajoute(const ImportRecord& record) {
  RehearsedRow row;
  row.line = record.line;
  row.dropped = record.dropped;
  row.period = record.row.period;
  row.n1 = record.row.n1;
  row.n2 = record.row.n2;
  row.datum = record.row.datum;
  row.original = record.row.original.value_or("");
  row.date = record.row.date.value_or("");
  row.comment = record.row.comment.value_or("");
  row.doubt = record.dropped == 0 ? DouteDe(record) : 0;
  counts_.doubtful += row.doubt != 0 ? 1 : 0;
  row.point.outcome = Outcome::DatumInconnu;
  if (record.dropped != 0) {
    row.fate = Fate::Omise;
  } else {
    if (points_) row.point = points_->Lit(row.datum, TexteDe(record.row.original));
    row.fate = row.point.outcome == Outcome::Point ? Fate::Entre : Fate::SansPoint;
  }
  (row.fate == Fate::Omise ? counts_.dropped : counts_.enter) += 1;
  counts_.withoutPoint += row.fate == Fate::SansPoint ? 1 : 0;
  const bool kept = rows_.Ajoute(row);
  if (row.fate != Fate::Entre) return;
  const IsolatedPoints::Name name = kept ? rows_.Nombre() - 1 : -rows_.NonGardees();
  isolated_.AjouteNomme(SurSphere(row.point.latitude, row.point.longitude), name);
}

}  // namespace talpena
