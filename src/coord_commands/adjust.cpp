#include "coord_commands/adjust.h"

#include <functional>

#include "common/talpena_error.h"
#include "common/text.h"
#include "coord_commands/adjust_row.h"
#include "coord_commands/row_walk.h"
#include "coords/datum.h"
#include "coords/original.h"
#include "coords/snap.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/filter.h"
#include "store/table.h"

namespace talpena {
namespace {

using Ajuste = std::function<bool(RowPoint&)>;

/// Reads a row, adjusts its point, hands it back as it is stored.
class AjusteLignes final : public RowChange {
 public:
  AjusteLignes(CommandContext c, Ajuste adjust)
      : state_(c.state), adjust_(std::move(adjust)), datums_(c.state.Catalogue) {}

  static RowPass Passe() {
    return {{Column::DATUM, Column::ORIGINAL, Column::LATITUDE, Column::LONGITUDE},
            {Column::LATITUDE, Column::LONGITUDE}};
  }

  bool Modifie(Bookmark, std::span<const Cell> given, std::span<Cell> changed) override {
    if (given[1].EstNull()) return false;
    row_.datum = datums_.Indice(given[0].text);
    if (row_.datum == 0) return false;
    LitOriginal(given[1].text);
    DecodeOriginal(state_, original_, row_.datum, row_.latitude, row_.longitude, code_);
    if (row_.latitude == EchecCoord || row_.longitude == EchecCoord) return false;
    row_.original = original_;
    row_.code = code_;
    if (!adjust_(row_)) return false;
    changed[0] = Cell::Of(CinqDecimales(row_.latitude));
    changed[1] = Cell::Of(CinqDecimales(row_.longitude));
    return !DejaLa(given[2], changed[0]) || !DejaLa(given[3], changed[1]);
  }

  const std::string& DernierOriginal() const { return original_; }
  const std::vector<std::string>& DatumsInconnus() const { return datums_.Inconnus(); }

 private:
  // ASCII, as nearly all are, without a detour.
  void LitOriginal(std::string_view stored) {
    original_ = Rogne(stored);
    bool ascii = true;
    for (char& letter : original_) {
      ascii = ascii && static_cast<unsigned char>(letter) < 0x80;
      if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    if (!ascii) original_ = Majuscules(original_);
  }
  static bool DejaLa(const Cell& stored, const Cell& value) {
    return stored.kind == Cell::Kind::Real &&
           static_cast<float>(stored.real) == static_cast<float>(value.real);
  }

  CoordState& state_;
  Ajuste adjust_;
  DatumsDesLignes datums_;
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

void AjusteTout(CommandContext c, const std::string& name, Ajuste adjust) {
  if (DatumDuFichier(c) == 0) {
    return DitDatumAbsent(c.state, c.io, c.document().Entete().DatumFichierCode);
  }
  AjusteLignes rows(c, std::move(adjust));
  try {
    ParcourtLignes(c, name, AjusteLignes::Passe(), rows);
  } catch (const TalpenaError& error) {
    Bip(c.state, c.io);
    AfficheErreur(c.state, c.io, error, rows.DernierOriginal());
  }
  const std::string unknown = Jointes(rows.DatumsInconnus());
  if (!unknown.empty()) DitDatumAbsent(c.state, c.io, unknown);
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

void RecalculeSurDatum(CommandContext c) {
  if (DatumDuFichier(c) == 0) return;
  const TableEntiere table(c.document());
  AjusteDegres(c, SansMaille, SansMaille);
}

void ChangeDatumFichier(CommandContext c, const std::string& code) {
  const std::int16_t index = ChercheDatum(c.state.Catalogue, code);
  if (index == 0) return DitDatumAbsent(c.state, c.io, Rogne(code));
  {
    Edition edition(c.document(), "Datum of the file");
    edition.Entete().DatumFichierCode = Rogne(code);
    edition.Entete().DatumFichier = index;
    edition.Valide();
  }
  if (c.document().Montre().grille) RecalculeSurDatum(c);
}

}  // namespace talpena
