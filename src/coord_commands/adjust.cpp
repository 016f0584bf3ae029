#include "coord_commands/adjust.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/talpena_error.h"
#include "common/text.h"
#include "coord_commands/adjust_row.h"
#include "coord_commands/row_faults.h"
#include "coord_commands/row_point_reader.h"
#include "coord_commands/row_walk.h"
#include "coords/datum.h"
#include "coords/snap.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/filter.h"
#include "store/table.h"

namespace talpena {
namespace {

/// Reads a row, adjusts its point, hands it back as it is stored.
class AjusteLignes final : public RowChange {
 public:
  AjusteLignes(CommandContext c, AjustePoint adjust) : points_(c.state, std::move(adjust)) {}

  static RowPass Passe() {
    return {{Column::DATUM, Column::ORIGINAL, Column::LATITUDE, Column::LONGITUDE},
            {Column::LATITUDE, Column::LONGITUDE}};
  }

  bool Modifie(Bookmark row, std::span<const Cell> given, std::span<Cell> changed) override {
    std::optional<std::string_view> original;
    if (!given[1].EstNull()) original = given[1].text;
    const ReadPoint point = points_.Lit(given[0].text, original);
    if (point.outcome == ReadPoint::Outcome::Faute) faults_.Note(row, point.faute);
    if (point.outcome != ReadPoint::Outcome::Point) return false;
    changed[0] = Cell::Of(point.latitude);
    changed[1] = Cell::Of(point.longitude);
    return !DejaLa(given[2], changed[0]) || !DejaLa(given[3], changed[1]);
  }

  const LignesFautives& Fautives() const { return faults_; }
  const std::vector<std::string>& DatumsInconnus() const { return points_.DatumsInconnus(); }

 private:
  static bool DejaLa(const Cell& stored, const Cell& value) {
    return stored.kind == Cell::Kind::Real &&
           static_cast<float>(stored.real) == static_cast<float>(value.real);
  }

  RowPointReader points_;
  LignesFautives faults_;
};

std::int16_t DatumDuFichier(CommandContext c) { return c.document().Entete().DatumFichier; }

/// What is left to say once the grid shows its rows again.
void DitReste(CommandContext c, const AjusteLignes& rows, SansPlace faults) {
  if (faults == SansPlace::Dites) rows.Fautives().Dit(c);
  const std::vector<std::string>& unknown = rows.DatumsInconnus();
  if (!unknown.empty()) DitDatumsAbsents(c.state, c.io, unknown);
}

/// Runs `walk` with the rows to adjust; false when it failed, which was shown.
template <typename Walk>
bool Ajuste(CommandContext c, AjustePoint adjust, Walk walk, SansPlace faults = SansPlace::Dites) {
  AjusteLignes rows(c, std::move(adjust));
  try {
    walk(rows);
  } catch (const TalpenaError& error) {
    Bip(c.state, c.io);
    AfficheErreur(c.state, c.io, error);
    return false;
  }
  DitReste(c, rows, faults);
  return true;
}

void AjusteTout(CommandContext c, const std::string& name, AjustePoint adjust,
                SansPlace faults = SansPlace::Dites) {
  if (DatumDuFichier(c) == 0) {
    return DitDatumAbsent(c.state, c.io, c.document().Entete().DatumFichierCode);
  }
  Ajuste(
      c, std::move(adjust),
      [&](AjusteLignes& rows) { ParcourtLignes(c, name, AjusteLignes::Passe(), rows); }, faults);
}

/// To the datum of the file alone.
AjustePoint Recalcule(CommandContext c) {
  return [c](RowPoint& row) {
    return AjusteEnDegres(c.state, row, DatumDuFichier(c), SansMaille, SansMaille);
  };
}

}  // namespace

void AjusteDegres(CommandContext c, double meshLat, double meshLon, SansPlace faults) {
  AjusteTout(
      c, "Adjust to degrees",
      [&](RowPoint& row) {
        return AjusteEnDegres(c.state, row, DatumDuFichier(c), meshLat, meshLon);
      },
      faults);
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
