#include "interchange/other_systems.h"

#include "common/talpena_error.h"

namespace talpena {
namespace {

constexpr std::int64_t sampleRows = 1000;

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
  const bool there = point.outcome == ReadPoint::Outcome::Point;
  if (there && near_.Contient(SurSphere(point.latitude, point.longitude))) ++trial_.near;
  return true;
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

/// Far more than the chosen system, most rows of the file, and more than any before.
bool OtherSystems::Convient() const {
  return !trial_.ended && trial_.near > 2 * chosen_.near && 2 * trial_.near > trial_.rows &&
         (!hint_ || trial_.near > hint_->near);
}

}  // namespace talpena
