#include "interchange/other_systems.h"

#include <cmath>

#include "common/talpena_error.h"

namespace talpena {
namespace {

constexpr std::int64_t sampleRows = 1000;
/// Points that lie no further from each other are one place.
constexpr double onePlaceKm = 1;

double Corde(SpherePoint a, SpherePoint b) {
  return std::hypot(double{a.x} - b.x, double{a.y} - b.y, double{a.z} - b.z);
}

}  // namespace

OtherSystems::OtherSystems(const RehearsalPlan& plan, RowPointReader& points, const KnownArea& near)
    : plan_(plan), points_(points), near_(near) {}

bool OtherSystems::Avance() {
  if (next_ >= CoordSystemCount) return false;
  try {
    if (!reader_) {
      trial_ = {};
      reader_ = plan_.ouvreEn(next_ < 0 ? *plan_.system : static_cast<CoordSystem>(next_));
    } else if (!LitFiche()) {
      Termine();
    }
  } catch (const TalpenaError&) {  // such a system cannot read the file to its end
    trial_.ended = true;
    Termine();
  }
  return true;
}

bool OtherSystems::LitFiche() {
  ImportRecord record;
  if (!reader_->Suivant(record)) return false;
  if (trial_.rows == sampleRows) {
    trial_.beginning = true;
    return false;
  }
  ++trial_.rows;
  if (record.dropped != 0) return true;
  const ReadPoint point = points_.Lit(record.row.datum, record.row.original);
  if (point.outcome != ReadPoint::Outcome::Point) return true;
  const SpherePoint place = SurSphere(point.latitude, point.longitude);
  NotePoint(record.row, place);
  if (near_.Contient(place)) ++trial_.near;
  return true;
}

/// Degrees that are taken for metres all lie where the system begins.
void OtherSystems::NotePoint(const ImportedRow& row, SpherePoint point) {
  const std::string original = row.original.value_or("");
  if (!trial_.first) {
    trial_.first = point;
    trial_.original = original;
  }
  trial_.several = trial_.several || original != trial_.original;
  trial_.apart = trial_.apart || Corde(point, *trial_.first) > CordeDe(onePlaceKm);
}

void OtherSystems::Termine() {
  reader_.reset();
  if (next_ < 0) chosen_ = trial_;
  if (next_ >= 0 && Convient()) {
    hint_ = {static_cast<CoordSystem>(next_), trial_.near, trial_.rows, trial_.beginning};
  }
  ++next_;
  if (next_ == static_cast<int>(*plan_.system)) ++next_;
  if (Suffit()) next_ = CoordSystemCount;
}

/// Far more than the chosen system, most rows of the file, in more than one place, and better than
/// any before.
bool OtherSystems::Convient() const {
  return !trial_.ended && trial_.near > 2 * chosen_.near && 2 * trial_.near > trial_.rows &&
         (trial_.apart || !trial_.several) && EstMeilleur();
}

/// A system that puts all rows near those of the table comes before one that reads more of them.
bool OtherSystems::EstMeilleur() const {
  if (!hint_) return true;
  const bool complete = hint_->near == hint_->rows;
  return trial_.Complet() == complete ? trial_.near > hint_->near : trial_.Complet();
}

}  // namespace talpena
