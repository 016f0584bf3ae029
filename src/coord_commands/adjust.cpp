#include "coord_commands/adjust.h"

#include <functional>

#include "common/talpena_error.h"
#include "common/text.h"
#include "coord_commands/adjust_row.h"
#include "coord_commands/row_faults.h"
#include "coord_commands/row_walk.h"
#include "coords/datum.h"
#include "coords/globe.h"
#include "coords/original.h"
#include "coords/snap.h"
#include "coords/tokens.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/filter.h"
#include "store/table.h"

namespace talpena {
namespace {

using AjustePoint = std::function<bool(RowPoint&)>;

/// Reads a row, adjusts its point, hands it back as it is stored.
class AjusteLignes final : public RowChange {
 public:
  AjusteLignes(CommandContext c, AjustePoint adjust)
      : state_(c.state), adjust_(std::move(adjust)), datums_(c.state.Catalogue) {}

  static RowPass Passe() {
    return {{Column::DATUM, Column::ORIGINAL, Column::LATITUDE, Column::LONGITUDE},
            {Column::LATITUDE, Column::LONGITUDE}};
  }

  bool Modifie(Bookmark row, std::span<const Cell> given, std::span<Cell> changed) override {
    if (given[1].EstNull()) return false;
    row_.datum = datums_.Indice(given[0].text);
    if (row_.datum == 0 || !LitPoint(row, given[1].text) || !PlacePoint(row)) return false;
    changed[0] = Cell::Of(CinqDecimales(row_.latitude));
    changed[1] = Cell::Of(CinqDecimales(row_.longitude));
    return !DejaLa(given[2], changed[0]) || !DejaLa(given[3], changed[1]);
  }

  const LignesFautives& Fautives() const { return faults_; }
  const std::vector<std::string>& DatumsInconnus() const { return datums_.Inconnus(); }

 private:
  /// The point of ORIGINAL, where it names one.
  bool LitPoint(Bookmark row, std::string_view stored) {
    OriginalLisible(stored, original_);
    const Lecture read =
        DecodeOriginal(state_, original_, row_.datum, row_.latitude, row_.longitude, code_);
    if (read == Lecture::Aucun) return false;
    row_.original = original_;
    row_.code = code_;
    const bool there = read == Lecture::Point && RameneSurGlobe(row_.latitude, row_.longitude);
    if (!there) faults_.Note(row, FauteDeLecture(row_));
    return there;
  }

  bool PlacePoint(Bookmark row) {
    try {
      if (!adjust_(row_)) return false;
      if (RameneSurGlobe(row_.latitude, row_.longitude)) return true;
    } catch (const TalpenaError& error) {
      if (!EstFauteDeCalcul(error)) throw;
    }
    faults_.Note(row, {FauteDeLigne::Cause::SansPlace});
    return false;
  }

  static bool DejaLa(const Cell& stored, const Cell& value) {
    return stored.kind == Cell::Kind::Real &&
           static_cast<float>(stored.real) == static_cast<float>(value.real);
  }

  CoordState& state_;
  AjustePoint adjust_;
  DatumsDesLignes datums_;
  LignesFautives faults_;
  RowPoint row_;
  std::string original_;
  std::string code_;
};

std::string Jointes(const std::vector<std::string>& codes) {
  std::string text;
  for (const std::string& code : codes) text += (text.empty() ? "" : ", ") + code;
  return text;
}

std::int16_t DatumDuFichier(CommandContext c) { return c.document().Entete().DatumFichier; }

/// What is left to say once the grid shows its rows again.
void DitReste(CommandContext c, const AjusteLignes& rows) {
  rows.Fautives().Dit(c);
  const std::string unknown = Jointes(rows.DatumsInconnus());
  if (!unknown.empty()) DitDatumAbsent(c.state, c.io, unknown);
}

/// Runs `walk` with the rows to adjust; false when it failed, which was shown.
template <typename Walk>
bool Ajuste(CommandContext c, AjustePoint adjust, Walk walk) {
  AjusteLignes rows(c, std::move(adjust));
  try {
    walk(rows);
  } catch (const TalpenaError& error) {
    Bip(c.state, c.io);
    AfficheErreur(c.state, c.io, error);
    return false;
  }
  DitReste(c, rows);
  return true;
}

void AjusteTout(CommandContext c, const std::string& name, AjustePoint adjust) {
  if (DatumDuFichier(c) == 0) {
    return DitDatumAbsent(c.state, c.io, c.document().Entete().DatumFichierCode);
  }
  Ajuste(c, std::move(adjust),
         [&](AjusteLignes& rows) { ParcourtLignes(c, name, AjusteLignes::Passe(), rows); });
}

/// To the datum of the file alone.
AjustePoint Recalcule(CommandContext c) {
  return [c](RowPoint& row) {
    return AjusteEnDegres(c.state, row, DatumDuFichier(c), SansMaille, SansMaille);
  };
}

}  // namespace

void AjusteDegres(CommandContext c, double meshLat, double meshLon) {
  AjusteTout(c, "Adjust to degrees", [&](RowPoint& row) {
    return AjusteEnDegres(c.state, row, DatumDuFichier(c), meshLat, meshLon);
  });
}

void AjusteGrades(CommandContext c) {
  AjusteTout(c, "Adjust to grades",
             [&](RowPoint& row) { return AjusteEnGrades(c.state, row, DatumDuFichier(c)); });
}

// The settings keep the choice from one run of the program to the next.
void AjusteCoor(CommandContext c, AdjustDialogs& dialogues) {
  c.state.MailleChoisie = c.state.UtmAjust;
  if (c.state.GridAjust >= AjusteUtm && c.state.GridAjust <= AjusteIrish) {
    c.state.GrilleChoisie = c.state.GridAjust;
  }
  if (!dialogues.MontreAjustement()) return;
  c.state.UtmAjust = c.state.MailleChoisie;
  c.state.GridAjust = c.state.GrilleChoisie;
  AjusteTout(c, "Adjust to a grid",
             [&](RowPoint& row) { return AjusteSurGrille(c.state, row, DatumDuFichier(c)); });
}

void mnuAjustIFBL_Click(CommandContext c, int index) {
  const int level = 2 * (index + 1);
  AjusteTout(c, "Adjust to IFBL",
             [&](RowPoint& row) { return AjusteSurIfbl(c.state, row, DatumDuFichier(c), level); });
}

bool RecalculeSurDatum(CommandContext c, const std::string& name,
                       const std::function<void(Edition&)>& entete) {
  return Ajuste(c, Recalcule(c), [&](AjusteLignes& rows) {
    const TableEntiere table(c.document());
    Edition edition(c.document(), name, Edition::Etendue::Entiere);
    if (entete) entete(edition);
    if (DatumDuFichier(c) == 0) return edition.Valide();
    ParcourtLignes(c, edition, AjusteLignes::Passe(), rows);
  });
}

void ChangeDatumFichier(CommandContext c, const std::string& code) {
  const std::int16_t index = ChercheDatum(c.state.Catalogue, code);
  if (index == 0) return DitDatumAbsent(c.state, c.io, Rogne(code));
  const std::string name = "Datum of the file";
  const auto prend = [&](Edition& edition) {
    edition.Entete().DatumFichierCode = Rogne(code);
    edition.Entete().DatumFichier = index;
  };
  if (c.document().Montre().grille) {
    RecalculeSurDatum(c, name, prend);
    return;
  }
  Edition edition(c.document(), name);
  prend(edition);
  edition.Valide();
}

}  // namespace talpena
