#include "interchange/wpt_reader.h"

#include <cstddef>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/original.h"
#include "coords/tokens.h"
#include "interchange/column_cut.h"
#include "interchange/gdate.h"
#include "interchange/waypoint_row.h"
#include "store/table.h"

namespace talpena {
namespace {

constexpr std::string_view degreesAndMinutes = "U  LAT LON DM";

/// Where an angle stands; columns count from 1.
struct AngleColumns {
  char minus, plus;
  int hemisphere;
  int degrees, digits;  ///< the column, and how many digits from there on
};
constexpr AngleColumns latitudeColumns{'S', 'N', 11, 12, 2};
constexpr AngleColumns longitudeColumns{'W', 'E', 23, 24, 3};
constexpr int datumColumns[] = {31, 45, 59, 73, 87};
constexpr int datumFieldWidth = 13;

double Nombre(std::string_view line, int column, int width) {
  return NombreDe(CoupeColonne(line, column, width));
}

/// Degrees, whole minutes, and the fraction of a minute as seconds.
double Angle(std::string_view line, const AngleColumns& c) {
  const int minutes = c.degrees + c.digits, fraction = minutes + 2;
  const std::string_view hemisphere = CoupeColonne(line, c.hemisphere, 1);
  const Dms dms{.degrees = EnSimple(Nombre(line, c.degrees, c.digits)),
                .minutes = EnSimple(Nombre(line, minutes, 2)),
                .seconds = EnSimple(Nombre(line, fraction, 4) * 60),
                .sign = hemisphere.starts_with(c.minus) ? '-' : '+'};
  return DmsVersDegres(dms);
}

bool PorteDate(std::string_view line) {
  return CoupeColonne(line, 63, 1) == "-" && CoupeColonne(line, 67, 1) == "-" &&
         CoupeColonne(line, 73, 1) == ":";
}

bool SontChiffres(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// What is odd about an angle. The fraction may be missing; otherwise a point stands before it.
int DouteDAngle(std::string_view line, const AngleColumns& c) {
  const int minutes = c.degrees + c.digits;
  std::string_view fraction = Rogne(CoupeColonne(line, minutes + 2, 4));
  const bool point = fraction.starts_with('.');
  if (point) fraction.remove_prefix(1);
  const bool position = SontChiffres(Rogne(CoupeColonne(line, c.degrees, c.digits))) &&
                        SontChiffres(Rogne(CoupeColonne(line, minutes, 2))) &&
                        (fraction.empty() || (point && SontChiffres(fraction)));
  if (!position) return MsgId::DoutePosition;
  const std::string_view letter = CoupeColonne(line, c.hemisphere, 1);
  if (!letter.starts_with(c.minus) && !letter.starts_with(c.plus)) return MsgId::DouteHemisphere;
  return Nombre(line, minutes, 6) > 60 ? MsgId::DouteMinutes : 0;
}

int DouteDePosition(std::string_view line) {
  const int ofLatitude = DouteDAngle(line, latitudeColumns);
  return ofLatitude != 0 ? ofLatitude : DouteDAngle(line, longitudeColumns);
}

/// A line of another kind begins with another letter: a track with T, a heading with H.
bool EstDUneAutreSorte(std::string_view line) {
  const std::string first = Majuscules(CoupeColonne(line, 1, 1));
  return first >= "A" && first <= "Z" && first != "W";
}

int DouteDeLigne(std::string_view line) {
  const int ofPosition = DouteDePosition(line);
  return ofPosition != 0 && EstDUneAutreSorte(line) ? MsgId::DouteLigne : ofPosition;
}

/// The position that the columns of a line hold has no place on the earth.
TalpenaError SansPoint(int number, const std::string& description, std::string_view line) {
  const std::string position(CoupeColonne(line, latitudeColumns.hemisphere, 22));
  const TalpenaError error(number, description + ": " + position,
                           {.text = MsgId::PointIncalculable, .about = {position}});
  return EstDUneAutreSorte(line) ? error.AvecConseil(MsgId::ConseilLigne) : error;
}

/// The century is always the twentieth. Held by WptReader.DatesAllWaypointsInThe1900s.
std::string DateDe(std::string_view line, int month) {
  std::string date = "19";
  date.append(CoupeColonne(line, 68, 2)).append("/").append(Format(month, "00"));
  return date.append("/").append(CoupeColonne(line, 61, 2));
}

}  // namespace

WptReader::WptReader(ImportFile file, const CoordState& state, const DistributionHeader& entete)
    : lines_(std::move(file)),
      state_(state),
      entete_(entete),
      datum_(CodeDeCinq(state.DatumSpherique == 0
                            ? state.DatumSpheriqueCode
                            : state.Catalogue.Datum(state.DatumSpherique).code)) {}

bool WptReader::LitEnTete() {
  constexpr int ofDatum = 6, ofForm = 9;
  std::array<std::string, ofForm> head;  // element 0 is line 1
  for (std::string& line : head) line = lines_.LitObligatoire();
  // Other programs leave the empty first line out.
  const bool earlier = head[ofForm - 1] != degreesAndMinutes;
  if (earlier && head[ofForm - 2] != degreesAndMinutes) return false;
  LitDatum(head[ofDatum - 1 - (earlier ? 1 : 0)]);
  lines_.LitObligatoire();
  if (!earlier) lines_.LitObligatoire();
  return true;
}

void WptReader::LitDatum(std::string_view line) {
  for (std::size_t i = 0; i < shift_.size(); ++i) {
    shift_[i] = Nombre(line, datumColumns[i], datumFieldWidth);
    datumLine_ &= EstNumerique(Rogne(CoupeColonne(line, datumColumns[i], datumFieldWidth)));
  }
}

bool WptReader::Suivant(ImportRecord& record) {
  if (failure_) std::rethrow_exception(failure_);
  try {
    std::string_view line;
    do {
      if (!lines_.Lit(line)) return false;
    } while (Rogne(line).empty());
    record.line = lines_.Numero();
    record.dropped = 0;
    record.row = {};
    record.doubt = DouteDeLigne(line);
    Remplit(line, record);
    doubts_.Compte(record);
    return true;
  } catch (const TalpenaError&) {
    failure_ = std::current_exception();
    throw;
  }
}

void WptReader::Remplit(std::string_view line, ImportRecord& record) {
  ImportedRow& row = record.row;
  row.period = 1;
  row.n1 = row.n2 = 1;
  row.datum = datum_;
  row.original = Original(line);
  row.comment = AvecChamps(Texte(line, record));
}

std::string WptReader::Original(std::string_view line) const {
  try {
    double latitude = Angle(line, latitudeColumns), longitude = Angle(line, longitudeColumns);
    MolodenskyParametres(latitude, longitude, 0, shift_[0], shift_[1], shift_[2], shift_[3],
                         shift_[4], latitude, longitude);
    if (state_.DatumSpherique != 0) {
      MolodenskyDatum(state_.Catalogue, latitude, longitude, 0, latitude, longitude,
                      state_.DatumSpherique, -1);
    }
    const double point[] = {latitude, longitude};
    std::string original = AssembleNombres(CoordSystem::Deg, point);
    if (original.size() > Column::LargeurOriginal) {
      throw TalpenaError(ErrorNumber::FieldTooSmall, "ORIGINAL");
    }
    return original;
  } catch (const TalpenaError& e) {
    throw SansPoint(e.number(), e.description(), line).SurLigne(lines_.Numero());
  }
}

/// The comment without the free fields; the date of the row on the way.
std::string WptReader::Texte(std::string_view line, ImportRecord& record) {
  std::string text(CoupeColonne(line, 55, 5));
  text.append(" ").append(CoupeColonne(line, 4, 6));
  if (PorteDate(line)) {
    dates_ = true;
    const int month = MoisGarmin(CoupeColonne(line, 64, 3));
    if (month != 0) date_ = DateDe(line, month);
    if (month == 0 && record.doubt == 0) record.doubt = MsgId::DouteMois;
  } else {
    date_.clear();
    text.append(" ").append(CoupeColonne(line, 61, 40));
  }
  record.row.date = date_;
  return text;
}

/// Behind empty free fields, where there are several.
std::string WptReader::AvecChamps(std::string text) const {
  if (!entete_.FreeFieldSeparator.empty()) text = Remplace(text, entete_.FreeFieldSeparator, " ");
  const std::size_t fields = ChampsLibres(entete_).size();
  std::string separators;
  for (std::size_t i = 0; fields > 1 && i < fields; ++i) separators += entete_.FreeFieldSeparator;
  return separators + text;
}

}  // namespace talpena
