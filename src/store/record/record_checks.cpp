// What keeps the form from being saved, and what the user should see before he saves it.
#include <cmath>
#include <limits>
#include <string_view>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/tokens.h"
#include "store/record/date_mask.h"
#include "store/record/input_boxes.h"
#include "store/record/record_editor.h"

namespace talpena {
namespace {

/// The number of a field; infinite when it is beyond all range.
double Nombre(std::string_view text) {
  try {
    return NombreDe(text);
  } catch (const TalpenaError&) {
    return std::numeric_limits<double>::infinity();
  }
}

/// The whole number that a field is tested as: halves to even.
bool EstEntre(std::string_view text, double low, double high) {
  const double whole = std::nearbyint(Nombre(text));
  return whole >= low && whole <= high;
}

// What follows are hints. Each is "" when there is nothing to say.

std::string AvisSeparateur(const StoreState& state, const RecordScreen& ecran) {
  for (const std::string& field : ecran.Grid) {
    if (field.find(state.document.Entete().FreeFieldSeparator) == std::string::npos) continue;
    return Remplace(Texte(state.Langue, MsgId::SeparateurTape), "%1",
                    state.document.Entete().FreeFieldSeparator);
  }
  return {};
}

std::string AvisCaractere(const StoreState& state, const RecordScreen& ecran) {
  std::vector<std::string_view> texts{ecran.ChampSex, ecran.ChampLibre};
  texts.insert(texts.end(), ecran.EditBox.begin(), ecran.EditBox.end());
  texts.insert(texts.end(), ecran.Grid.begin(), ecran.Grid.end());
  std::string missing;
  for (const std::string_view text : texts) {
    if (EstAscii(text) || Utf8VersCp1252(text, &missing)) continue;
    return Remplace(Texte(state.Langue, MsgId::CaractereNonSauve), "%1", missing);
  }
  return {};
}

std::string AvisNombre(const StoreState& state, const RecordScreen& ecran) {
  std::vector<std::string_view> texts{ecran.ChampPeriode, ecran.ChampLatitude, ecran.ChampLongitude,
                                      ecran.ChampCh1, ecran.ChampCh2};
  if (EstNumeriqueSysteme(ecran.system)) {
    texts.insert(texts.end(), ecran.EditBox.begin(), ecran.EditBox.end());
  }
  for (const std::string_view text : texts) {
    if (Rogne(text).empty() || EstNumerique(text)) continue;
    const double value = Nombre(text);
    if (!std::isfinite(value)) continue;  // refused, in words of its own
    const std::string hint = Texte(state.Langue, MsgId::PasUnNombre);
    return Remplace(Remplace(hint, "%2", Str(value)), "%1", text);
  }
  return {};
}

std::string AvisDate(const StoreState& state, const RecordScreen& ecran) {
  if (ecran.dateAutre.empty() || ecran.ChampAnnee != ecran.anneeLue) return {};
  return Remplace(Texte(state.Langue, MsgId::DateAutreForme), "%1", ecran.dateAutre);
}

std::string AvisOriginal(const StoreState& state, const RecordScreen& ecran) {
  constexpr std::size_t most = 24;  // characters of the column ORIGINAL
  if (CompteCaracteres(OriginalDesBoites(ecran)) <= most) return {};
  return Texte(state.Langue, MsgId::OriginalTropLong);
}

}  // namespace

void MetAvis(const StoreState& state, RecordScreen& ecran) {
  ecran.avis = ecran.avisReference;
  for (const auto& hint : {AvisOriginal, AvisSeparateur, AvisCaractere, AvisNombre, AvisDate}) {
    if (!ecran.avis.empty()) return;
    ecran.avis = hint(state, ecran);
  }
}

std::optional<RecordFault> PremiereFaute(const StoreState& state, const RecordScreen& ecran) {
  const auto fault = [&](RecordField field, int id) {
    return RecordFault{field, Texte(state.Langue, id)};
  };
  const int periods = state.document.Entete().NbPivots + 1;
  if (!EstDateValide(ecran.ChampAnnee)) return fault(RecordField::ChampAnnee, MsgId::DateInvalide);
  if (!EstEntre(ecran.ChampPeriode, 1, periods)) {
    RecordFault period = fault(RecordField::ChampPeriode, MsgId::PeriodeHorsLimites);
    period.text += Str(std::int64_t{periods});
    return period;
  }
  if (!EstEntre(ecran.ChampLatitude, -90, 90)) {
    return fault(RecordField::ChampLatitude, MsgId::LatitudeHorsLimites);
  }
  if (!EstEntre(ecran.ChampLongitude, -180, 180)) {
    return fault(RecordField::ChampLongitude, MsgId::LongitudeHorsLimites);
  }
  return std::nullopt;
}

}  // namespace talpena
