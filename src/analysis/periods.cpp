#include "analysis/periods.h"

#include <algorithm>
#include <array>
#include <optional>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/table.h"

namespace talpena {
namespace {

constexpr int UnePeriode = 0, DeuxPeriodes = 1, TroisPeriodes = 2;

/// The period layout of a file.
struct Layout {
  std::int16_t NbPivots = 0;
  std::int16_t Pivot1 = 0;
  std::int16_t Pivot2 = 0;
  bool operator==(const Layout&) const = default;
};

struct Box {
  const std::string& texte;
  int siVide;  ///< message when it is empty
  PeriodsFocus focus;
};

bool EstVide(std::string_view text) { return Rogne(text).empty(); }

double Annee(std::string_view text) { return Val(Remplace(text, ",", ".")); }

void Avertit(const StoreState& state, Platform& io, int message) {
  Bip(state, io);
  io.dialogues.Demande({.text = Texte(state.Langue, message), .icon = Icon::Exclamation});
}

bool Confirme(const StoreState& state, Platform& io, int message) {
  Bip(state, io);
  return io.dialogues.Demande({.text = Texte(state.Langue, message),
                               .icon = Icon::Exclamation,
                               .buttons = Buttons::OkCancel}) == Answer::Ok;
}

/// The first box that is empty is complained of.
std::optional<PeriodsFocus> PremierVide(const StoreState& state, Platform& io,
                                        std::initializer_list<Box> boxes) {
  for (const Box& box : boxes) {
    if (!EstVide(box.texte)) continue;
    Avertit(state, io, box.siVide);
    return box.focus;
  }
  return std::nullopt;
}

/// The boxes that a mode needs, filled; else where the focus goes.
std::optional<PeriodsFocus> BoiteVide(const StoreState& state, Platform& io,
                                      const PeriodsForm& form, int mode) {
  if (mode == DeuxPeriodes) {
    return PremierVide(state, io,
                       {{form.TxtPivot1, MsgId::AnneeCharniere, PeriodsFocus::TxtPivot1}});
  }
  if (mode == TroisPeriodes) {
    return PremierVide(state, io,
                       {{form.TxtPivot21, MsgId::PremiereAnnee, PeriodsFocus::TxtPivot21},
                        {form.TxtPivot22, MsgId::SecondeAnnee, PeriodsFocus::TxtPivot22}});
  }
  return std::nullopt;
}

/// The layout that the form asks for; years that its mode does not use stay as they are.
/// Overflow (6) with `focus` on the box for a year beyond 16 bits.
Layout LitLayout(const DistributionHeader& entete, const PeriodsForm& form, PeriodsFocus& focus) {
  Layout layout{static_cast<std::int16_t>(form.OptionPivot), entete.Pivot1, entete.Pivot2};
  const auto lit = [&focus](const std::string& text, PeriodsFocus box) {
    focus = box;
    return Arrondi16(Annee(text));
  };
  if (form.OptionPivot == DeuxPeriodes)
    layout.Pivot1 = lit(form.TxtPivot1, PeriodsFocus::TxtPivot1);
  if (form.OptionPivot == TroisPeriodes) {
    layout.Pivot1 = lit(form.TxtPivot21, PeriodsFocus::TxtPivot21);
    layout.Pivot2 = lit(form.TxtPivot22, PeriodsFocus::TxtPivot22);
  }
  focus = PeriodsFocus::None;
  return layout;
}

bool TableVide(Document& document) {
  return !document.Data1.EstLie() || document.Data1.recordset().RecordCount() == 0;
}

bool MetTout1(Edition& edition) {
  const std::array fields = {Column::PERIOD};
  const std::array values = {Cell::Of(std::int64_t{1})};
  return edition.RemplitLignes(fields, values, {}) > 0;
}

bool Remplace3par2(Edition& edition) {
  return edition.RemplaceValeur(Column::PERIOD, Cell::Of(std::int64_t{3}),
                                Cell::Of(std::int64_t{2}), {}) > 0;
}

/// How a change of mode cleans PERIOD, and what the user is asked before.
struct Menage {
  int question = 0;  ///< 0: nothing is asked
  bool (*nettoie)(Edition& edition) = nullptr;
};

Menage MenageDe(Document& document, int mode) {
  const int before = document.Entete().NbPivots;
  const bool empty = TableVide(document);
  if (mode == UnePeriode && before > UnePeriode && !document.NouveauEnCours && !empty) {
    return {MsgId::PeriodesVers1, MetTout1};
  }
  if (mode == DeuxPeriodes && before == TroisPeriodes) {
    return {MsgId::PeriodesVers2, empty ? nullptr : Remplace3par2};
  }
  return {};
}

/// The option that shows the state's mode, whatever a file's header left there.
int OptionDuMode(const DistributionHeader& entete) {
  return std::clamp<int>(entete.NbPivots, UnePeriode, TroisPeriodes);
}

PeriodsOutcome Valide(StoreState& state, Platform& io, PeriodsForm& form, PeriodsFocus& focus) {
  if (const auto vide = BoiteVide(state, io, form, form.OptionPivot)) return {false, *vide};
  const Layout wanted =
      LitLayout(state.document.Entete(), form, focus);  // before the rows: it may fail
  Document& document = state.document;
  const Menage menage = MenageDe(document, form.OptionPivot);
  if (menage.question != 0 && !Confirme(state, io, menage.question)) {
    form.OptionPivot = OptionDuMode(document.Entete());
    return {};
  }
  Edition edition(document, "Periods", Edition::Etendue::Entiere);
  const bool cleaned = menage.nettoie != nullptr && menage.nettoie(edition);
  const DistributionHeader& now = document.Entete();
  const bool sameLayout = wanted == Layout{now.NbPivots, now.Pivot1, now.Pivot2};
  if (document.NouveauEnCours || (!cleaned && sameLayout)) {
    edition.LaisseNonModifie();
  }
  DistributionHeader& entete = edition.Entete();
  entete.NbPivots = wanted.NbPivots;
  entete.Pivot1 = wanted.Pivot1;
  entete.Pivot2 = wanted.Pivot2;
  edition.Valide();
  return {.ferme = true};
}

}  // namespace

PeriodsForm RempliPeriodes(const StoreState& state) {
  PeriodsForm form;
  const DistributionHeader& entete = state.document.Entete();
  form.OptionPivot = OptionDuMode(entete);
  const auto annee = [](std::int16_t year) { return Str(std::int64_t{year}); };
  if (form.OptionPivot == DeuxPeriodes) form.TxtPivot1 = annee(entete.Pivot1);
  if (form.OptionPivot == TroisPeriodes) {
    form.TxtPivot21 = annee(entete.Pivot1);
    form.TxtPivot22 = annee(entete.Pivot2);
  }
  return form;
}

PeriodsOutcome ValidePeriodes(StoreState& state, Platform& io, PeriodsForm& form) {
  PeriodsOutcome outcome;
  PeriodsFocus fautif = PeriodsFocus::None;
  ExecuteCommande(state, io, {}, [&] { outcome = Valide(state, io, form, fautif); });
  if (fautif != PeriodsFocus::None) outcome.focus = fautif;
  return outcome;
}

int VerifPivots(const StoreState& state, Platform& io, const PeriodsForm& form,
                PeriodsFocus& focus) {
  focus = PeriodsFocus::None;
  if (const auto vide = BoiteVide(state, io, form, state.document.Entete().NbPivots)) {
    focus = *vide;
    return 1;
  }
  if (state.document.Entete().NbPivots == TroisPeriodes &&
      !(Annee(form.TxtPivot21) < Annee(form.TxtPivot22))) {
    Avertit(state, io, MsgId::OrdreAnnees);
    focus = PeriodsFocus::TxtPivot21;
    return 1;
  }
  return 0;
}

}  // namespace talpena
