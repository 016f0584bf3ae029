#include "analysis/periods.h"

#include <algorithm>
#include <memory>
#include <optional>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/commands.h"
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
Layout LitLayout(const StoreState& state, const PeriodsForm& form, PeriodsFocus& focus) {
  Layout layout{static_cast<std::int16_t>(form.OptionPivot), state.Pivot1, state.Pivot2};
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

bool TableVide(StoreState& state) {
  return !state.Data1.EstLie() || state.Data1.recordset().RecordCount() == 0;
}

/// Runs over a clone of the data control's rows, in one transaction, and writes a value into
/// the column of those that `concerne` picks. True when a row was written.
template <typename Concerne>
bool RemplaceColonne(StoreState& state, int field, Cell value, Concerne&& concerne) {
  if (TableVide(state)) return false;
  bool changed = false;
  const std::unique_ptr<Recordset> rows = state.Data1.Clone();
  Transaction transaction(*state.WorkingDb);
  for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
    if (!concerne(rows->Get(field))) continue;
    rows->Edit();
    rows->Set(field, value);
    rows->Update();
    changed = true;
  }
  transaction.Valide();
  if (changed) state.Data1.SignaleValeurs();
  return changed;
}

bool MetTout(StoreState& state, int field, std::int64_t value) {
  return RemplaceColonne(state, field, Cell::Of(value), [](const Cell&) { return true; });
}

bool RemplaceValeur(StoreState& state, int field, std::string_view old, std::int64_t value) {
  return RemplaceColonne(state, field, Cell::Of(value),
                         [old](const Cell& cell) { return Rogne(cell.Texte()) == old; });
}

enum class Lignes { Restent, Refusees, Changees };

/// Asks what the change of mode asks, and cleans PERIOD.
Lignes ChangeLignes(StoreState& state, Platform& io, int mode) {
  bool changed = false;
  if (mode == UnePeriode && state.NbPivots > UnePeriode && !state.NouveauEnCours &&
      !TableVide(state)) {
    if (!Confirme(state, io, MsgId::PeriodesVers1)) return Lignes::Refusees;
    changed = MetTout(state, Column::PERIOD, 1);
  } else if (mode == DeuxPeriodes && state.NbPivots == TroisPeriodes) {
    if (!Confirme(state, io, MsgId::PeriodesVers2)) return Lignes::Refusees;
    changed = RemplaceValeur(state, Column::PERIOD, "3", 2);
  }
  return changed ? Lignes::Changees : Lignes::Restent;
}

/// The option that shows the state's mode, whatever a file's header left there.
int OptionDuMode(const StoreState& state) {
  return std::clamp<int>(state.NbPivots, UnePeriode, TroisPeriodes);
}

PeriodsOutcome Valide(StoreState& state, Platform& io, PeriodsForm& form, PeriodsFocus& focus) {
  if (const auto vide = BoiteVide(state, io, form, form.OptionPivot)) return {false, *vide};
  const Layout wanted = LitLayout(state, form, focus);  // before the rows: it may fail
  const Lignes lignes = ChangeLignes(state, io, form.OptionPivot);
  if (lignes == Lignes::Refusees) {
    form.OptionPivot = OptionDuMode(state);
    return {};
  }
  const bool sameLayout = wanted == Layout{state.NbPivots, state.Pivot1, state.Pivot2};
  if (!state.NouveauEnCours && (lignes == Lignes::Changees || !sameLayout)) {
    state.FichierModifie = true;
  }
  state.NbPivots = wanted.NbPivots;
  state.Pivot1 = wanted.Pivot1;
  state.Pivot2 = wanted.Pivot2;
  return {.ferme = true};
}

}  // namespace

PeriodsForm RempliPeriodes(const StoreState& state) {
  PeriodsForm form;
  form.OptionPivot = OptionDuMode(state);
  const auto annee = [](std::int16_t year) { return Str(std::int64_t{year}); };
  if (form.OptionPivot == DeuxPeriodes) form.TxtPivot1 = annee(state.Pivot1);
  if (form.OptionPivot == TroisPeriodes) {
    form.TxtPivot21 = annee(state.Pivot1);
    form.TxtPivot22 = annee(state.Pivot2);
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
  if (const auto vide = BoiteVide(state, io, form, state.NbPivots)) {
    focus = *vide;
    return 1;
  }
  if (state.NbPivots == TroisPeriodes && !(Annee(form.TxtPivot21) < Annee(form.TxtPivot22))) {
    Avertit(state, io, MsgId::OrdreAnnees);
    focus = PeriodsFocus::TxtPivot21;
    return 1;
  }
  return 0;
}

}  // namespace talpena
