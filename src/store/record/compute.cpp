#include "store/record/compute.h"

#include <optional>
#include <span>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/original.h"
#include "platform/commands.h"
#include "store/record/input_boxes.h"
#include "store/record/record_editor.h"

namespace talpena {
namespace {

struct Point {
  double latitude = 0;
  double longitude = 0;
};

/// False for boxes that the arithmetic would take for some other place without a word.
bool NommeUnePlace(const RecordScreen& ecran) {
  const CoordSystemInfo& info = InfoDe(ecran.system);
  return info.form.nommeUnePlace == nullptr ||
         info.form.nommeUnePlace(std::span(ecran.EditBox).last(info.tokens));
}

/// The point on the file's datum. Empty when the boxes name none; `failure` then takes the text
/// of failure, if there is one.
std::optional<Point> PointDesBoites(CoordState& state, const RecordScreen& ecran,
                                    std::string& failure) {
  const std::string original = Majuscules(OriginalDesBoites(ecran));
  if (const auto refus = InfoDe(ecran.system).form.refus) {
    failure = Rogne(refus(state, original, ecran.datum));
    if (!failure.empty()) return std::nullopt;
  }
  if (!NommeUnePlace(ecran)) return std::nullopt;
  Point point;
  std::string code;
  DecodeOriginal(state, original, ecran.datum, point.latitude, point.longitude, code);
  if (point.latitude == EchecCoord || point.longitude == EchecCoord) return std::nullopt;
  ConvertitDatum(state.Catalogue, point.latitude, point.longitude, 0, point.latitude,
                 point.longitude, ecran.datum, state.DatumFichier);
  return point;
}

/// The same, with faults of the arithmetic as points that do not exist.
std::optional<Point> PointSansFaute(CoordState& state, const RecordScreen& ecran,
                                    std::string& failure) {
  try {
    return PointDesBoites(state, ecran, failure);
  } catch (const TalpenaError&) {
    return std::nullopt;
  }
}

/// Tells of digits that no reference has.
bool RefuseChiffres(CommandContext c, RecordScreen& ecran) {
  constexpr std::size_t squareLetters = 2;
  const std::size_t size = CompteCaracteres(ecran.EditBox[2]);
  if (!InfoDe(ecran.system).form.chiffresPairs || size <= squareLetters || size % 2 == 0) {
    return false;
  }
  Bip(c.state, c.io);
  c.io.dialogues.Demande(
      {.text = Texte(c.state.Langue, MsgId::UtmInvalide), .icon = Icon::Exclamation});
  ecran.focus = RecordField::EditBox2;
  return true;
}

/// Code of a datum that the computation needs and the catalogue lacks; "" when it has both.
std::string DatumManquant(const CoordState& state, const RecordScreen& ecran) {
  if (ecran.datum == 0) return ecran.lblDatum;
  return state.DatumFichier == 0 ? state.DatumFichierCode : std::string();
}

std::string AvisSansPoint(std::int16_t langue, const std::string& failure) {
  if (failure.empty()) return Texte(langue, MsgId::ReferenceSansPoint);
  return Remplace(Texte(langue, MsgId::ReferenceRefusee), "%1", failure);
}

bool MontrePoint(const RecordScreen& ecran) {
  return !Rogne(ecran.ChampLatitude).empty() && !Rogne(ecran.ChampLongitude).empty();
}

void PrendPoint(RecordScreen& ecran, const Point& point) {
  const auto place = [&](std::string& field, double degrees, std::string_view mask) {
    const std::string text = Format(degrees, mask);
    if (EstNumerique(field) && Val(Remplace(field, ",", ".")) == Val(text)) return;
    field = text;
    NoteChangement(ecran);
  };
  place(ecran.ChampLatitude, point.latitude, "+##.#####;-##.#####");
  place(ecran.ChampLongitude, point.longitude, "+###.#####;-###.#####");
}

}  // namespace

void NoteChangement(RecordScreen& ecran) { ecran.modifie = ecran.ButOk = true; }

bool CalculePoint(CommandContext c, RecordScreen& ecran) {
  ecran.avisReference.clear();
  if (BoitesRemplies(ecran)) {
    if (RefuseChiffres(c, ecran)) return false;
    std::string failure = DatumManquant(c.state, ecran);
    if (!failure.empty()) {
      ecran.avisReference = failure + ": " + Texte(c.state.Langue, MsgId::DatumAbsent);
    } else if (const auto point = PointSansFaute(c.state, ecran, failure)) {
      PrendPoint(ecran, *point);
    } else {
      ecran.avisReference = AvisSansPoint(c.state.Langue, failure);
    }
  }
  ecran.referenceLue = CleReference(ecran);
  return true;
}

void QuitteEditBox(CommandContext c, RecordScreen& ecran, int box) {
  if (box < 0 || box >= static_cast<int>(ecran.EditBox.size())) return;
  ExecuteCommande(c.state, c.io, {}, [&] {
    NettoieBoites(ecran);
    // Keys that only pass through the boxes leave a point alone that was snapped to a grid.
    // Held by QuitteEditBoxTest.LeavesASnappedPointWhereItIs.
    const bool passedThrough = CleReference(ecran) == ecran.referenceLue && MontrePoint(ecran);
    if (!passedThrough && CalculePoint(c, ecran)) AfficheControle(c, ecran);
    MetAvis(c.state, ecran);
  });
}

}  // namespace talpena
