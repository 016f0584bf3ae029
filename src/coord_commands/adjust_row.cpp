#include "coord_commands/adjust_row.h"

#include <algorithm>

#include "common/text.h"
#include "coords/datum.h"
#include "coords/ifbl.h"
#include "coords/mgrs.h"
#include "coords/national_grids.h"
#include "coords/original.h"
#include "coords/snap.h"
#include "coords/systems.h"
#include "coords/tokens.h"

namespace talpena {
namespace {

/// The grid that was chosen.
struct Cible {
  CoordSystem system;
  std::int16_t datum;
};

Cible CibleDe(const CoordState& state, std::int16_t datumFichier) {
  switch (state.GrilleChoisie) {
    case AjusteBritish:
      return {CoordSystem::Bng, DatumDuSysteme(state, CoordSystem::Bng)};
    case AjusteIrish:
      return {CoordSystem::Itm, DatumDuSysteme(state, CoordSystem::Itm)};
    default:
      return {CoordSystem::Mgr, datumFichier};
  }
}

void Deplace(const CoordState& state, double& latitude, double& longitude, std::int16_t source,
             std::int16_t target) {
  ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, source, target);
}

/// "31", "U", "ES1234567890" of an MGRS reference; "SU", "1234567890" of a national one.
struct Reference {
  std::string head;    ///< what stands before the square: zone and band, or nothing
  std::string square;  ///< two letters and the digits
};

/// The reference that ORIGINAL holds.
Reference ReferenceEcrite(const RowPoint& row) {
  if (row.code == InfoDe(CoordSystem::Mgr).code) {
    std::string_view zone, band, square;
    DecoupeTrois(row.original, zone, band, square);
    return {std::string(zone) + " " + std::string(band), std::string(square)};
  }
  std::string_view letters, digits;
  DecoupeDeux(row.original, letters, digits);
  return {{}, std::string(letters) + std::string(digits)};
}

/// The reference of the row's point on UTM, computed on the file's datum.
Reference ReferenceUtm(CoordState& state, const RowPoint& row, std::int16_t datumFichier) {
  double latitude = row.latitude, longitude = row.longitude;
  Deplace(state, latitude, longitude, row.datum, datumFichier);
  ChoisitEllipsoide(state.Catalogue, datumFichier);
  const std::string mgrs = MgrsDuPoint(state.Catalogue, latitude, longitude);
  if (EstEchecMgrs(mgrs)) return {};
  return {std::string(Rogne(mgrs.substr(0, 2))) + " " + mgrs.substr(2, 1), mgrs.substr(3)};
}

// Two slips of long standing, kept because stored coordinates went through them: the British
// forward is given radians for degrees, so that it finds no letters; the Irish one is given the
// point before its change of datum.
// Held by AjusteSurGrilleTest.BritishSkipsOtherNotations and
// AjusteSurGrilleTest.IrishTakesThePointAsDecoded.
Reference ReferenceNationale(const CoordState& state, const RowPoint& row, const Cible& target) {
  std::string letters, east, north;
  if (target.system == CoordSystem::Bng) {
    double latitude = row.latitude, longitude = row.longitude;
    Deplace(state, latitude, longitude, row.datum, target.datum);
    LatLonVersGrille(Grille::British, EnRadians(latitude), EnRadians(longitude), letters, east,
                     north);
  } else {
    LatLonVersGrille(Grille::Irish, row.latitude, row.longitude, letters, east, north);
  }
  return {{}, letters + east + north};
}

/// "MGR 31 U ES1234567890" or "BNG SU 1234567890".
std::string Ecrit(std::string_view code, const Reference& reference) {
  std::string text(code);
  if (!reference.head.empty()) return text + " " + reference.head + " " + reference.square;
  return text + " " + reference.square.substr(0, 2) + " " + reference.square.substr(2);
}

}  // namespace

bool AjusteEnDegres(const CoordState& state, RowPoint& row, std::int16_t datumFichier,
                    double meshLat, double meshLon) {
  Deplace(state, row.latitude, row.longitude, row.datum, datumFichier);
  row.latitude = CentreDeMaille(row.latitude, meshLat);
  row.longitude = CentreDeMaille(row.longitude, meshLon);
  return true;
}

bool AjusteEnGrades(const CoordState& state, RowPoint& row, std::int16_t datumFichier) {
  Deplace(state, row.latitude, row.longitude, row.datum, datumFichier);
  CentreEnGrades(row.latitude, row.longitude);
  return true;
}

bool AjusteSurGrille(CoordState& state, RowPoint& row, std::int16_t datumFichier) {
  if (state.MailleChoisie == 0) {
    return AjusteEnDegres(state, row, datumFichier, SansMaille, SansMaille);
  }
  const Cible target = CibleDe(state, datumFichier);
  const std::string_view targetCode = InfoDe(target.system).code;
  const bool written = row.code == targetCode && row.datum == target.datum;
  Reference reference = written ? ReferenceEcrite(row)
                        : target.system == CoordSystem::Mgr
                            ? ReferenceUtm(state, row, datumFichier)
                            : ReferenceNationale(state, row, target);
  if (!AjusteGrille(reference.square, state.MailleChoisie)) return false;
  std::string code;
  DecodeOriginal(state, Ecrit(targetCode, reference), target.datum, row.latitude, row.longitude,
                 code);
  if (row.latitude == EchecCoord || row.longitude == EchecCoord) return false;
  Deplace(state, row.latitude, row.longitude, target.datum, datumFichier);
  return true;
}

bool AjusteSurIfbl(const CoordState& state, RowPoint& row, std::int16_t datumFichier, int level) {
  const std::int16_t belge = DatumDuSysteme(state, CoordSystem::Ifb);
  std::string square;
  std::int16_t error = 0;
  if (row.code == InfoDe(CoordSystem::Ifb).code) {
    square = row.original.substr(std::min<std::size_t>(4, row.original.size()));
    std::erase(square, ' ');
  } else {
    double latitude = row.latitude, longitude = row.longitude, x = 0, y = 0;
    Deplace(state, latitude, longitude, row.datum, belge);
    LatLonVersLambertBelge(latitude, longitude, x, y);
    LambertVersIfbl(x, y, square, error, 6);
  }
  if (error != 0 || (square.size() != 2 && square.size() != 4 && square.size() != 6)) return false;
  square.resize(std::min(square.size(), static_cast<std::size_t>(level)));

  double x = 0, y = 0;
  IfblVersLambert(square, x, y, error);
  if (error != 0 || x < IfblOuest || x > IfblEst || y < IfblSud || y > IfblNord) return false;
  LambertBelgeVersLatLon(x, y, row.latitude, row.longitude);
  Deplace(state, row.latitude, row.longitude, belge, datumFichier);
  return true;
}

}  // namespace talpena
