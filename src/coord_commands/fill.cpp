#include "coord_commands/fill.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coord_commands/row_faults.h"
#include "coord_commands/row_walk.h"
#include "coords/datum.h"
#include "coords/dms_text.h"
#include "coords/forward_text.h"
#include "coords/lambert.h"
#include "coords/original.h"
#include "platform/commands.h"
#include "store/table.h"

namespace talpena {
namespace {

/// The new text for a point on the file's datum, decimal degrees.
using TexteDuPoint = std::function<std::string(double latitude, double longitude)>;

/// Puts a text behind each row's COMMENT.
class RemplitLignes final : public RowChange {
 public:
  RemplitLignes(std::string joiner, TexteDuPoint text)
      : joiner_(std::move(joiner)), text_(std::move(text)) {}

  static RowPass Passe() {
    return {{Column::LATITUDE, Column::LONGITUDE, Column::COMMENT}, {Column::COMMENT}};
  }

  bool Modifie(Bookmark row, std::span<const Cell> given, std::span<Cell> changed) override {
    if (given[0].EstNull() || given[1].EstNull()) return false;
    const std::string added = TexteDe(row, given[0].real, given[1].real);
    if (added.empty()) return false;
    comment_ = given[2].text;  // "" for Null
    if (!comment_.empty()) comment_ += joiner_;
    comment_ += added;
    changed[0] = Cell::Of(std::string_view(comment_));
    return true;
  }

  const LignesFautives& Fautives() const { return faults_; }

 private:
  /// "" where the arithmetic has no result.
  std::string TexteDe(Bookmark row, double latitude, double longitude) {
    try {
      return text_(latitude, longitude);
    } catch (const TalpenaError& error) {
      if (!EstFauteDeCalcul(error)) throw;
    }
    faults_.Note(row, FauteDuPoint(latitude, longitude).value_or(FauteDeLigne{}));
    return {};
  }

  std::string joiner_;
  TexteDuPoint text_;
  LignesFautives faults_;
  std::string comment_;
};

void Remplit(CommandContext c, const std::string& name, std::string joiner, TexteDuPoint text) {
  RemplitLignes rows(std::move(joiner), std::move(text));
  const std::vector<Bookmark> chosen = c.vue.LignesSelectionnees();
  RowPass pass = RemplitLignes::Passe();
  if (!chosen.empty()) pass.only = &chosen;
  ParcourtLignes(c, name, pass, rows);
  rows.Fautives().Dit(c);
}

bool ConfirmeMgrs(CommandContext c) {
  Bip(c.state, c.io);
  return c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::RemplitUtm) + "\r" +
                                         Texte(c.state.Langue, MsgId::CalculSelonEllipsoide),
                                 .icon = Icon::Exclamation,
                                 .buttons = Buttons::OkCancel}) == Answer::Ok;
}

std::string TexteGrades(double latitude, double longitude) {
  double g = 0, h = 0;
  LatLonVersGradesParis(latitude, longitude, g, h);
  return StrSimple(EnSimple(g)) + "," + StrSimple(EnSimple(h));
}

/// The point on the datum of a system.
std::pair<double, double> SurDatum(const CoordState& state, CoordSystem system,
                                   std::int16_t datumFichier, double latitude, double longitude) {
  ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, datumFichier,
                 DatumDuSysteme(state, system));
  return {latitude, longitude};
}

std::string TexteLambert(CoordState& state, CoordSystem system, std::int16_t datumFichier,
                         double latitude, double longitude) {
  const auto [phi, lambda] = SurDatum(state, system, datumFichier, latitude, longitude);
  double x = 0, y = 0;
  MetresDuPoint(state, system, phi, lambda, x, y);
  return Str(Fix(x)) + "," + Str(Fix(y));
}

/// What MnuRemplirCoo writes. An MGRS reference has its fifteen characters, the blank before a zone
/// below 10 among them, without which it could not be read again; so has a text of failure.
std::string TexteCoo(StoreState& state, int index, double latitude, double longitude) {
  if (index == 0) return MgrsDuPoint(state.Catalogue, latitude, longitude);
  const Grille grid = index == 1 ? Grille::British : Grille::Irish;
  return std::string(Rogne(TexteGrille(grid, latitude, longitude)));
}

/// What MnuRemplirXY writes.
std::string TexteXY(StoreState& state, int index, std::int16_t datumFichier, double latitude,
                    double longitude) {
  switch (index) {
    case 0:
      return TexteDms(latitude) + state.document.Entete().FreeFieldSeparator + TexteDms(longitude);
    case 1:
      return TexteGrades(latitude, longitude);
    case 2:
      return TexteLambert(state, CoordSystem::Lmb, datumFichier, latitude, longitude);
    case 3: {
      const auto [phi, lambda] =
          SurDatum(state, CoordSystem::Ifb, datumFichier, latitude, longitude);
      return TexteIfbl(phi, lambda);
    }
    case 4:
      return TexteLambert(state, CoordSystem::Nma, datumFichier, latitude, longitude);
    case 5:
      return TexteLambert(state, CoordSystem::Sma, datumFichier, latitude, longitude);
    default:
      return {};
  }
}

}  // namespace

void MnuRemplirCoo_Click(CommandContext c, int index) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    if (index == 0 && !ConfirmeMgrs(c)) return;
    ChoisitEllipsoide(c.state.Catalogue, c.document().Entete().DatumFichier);
    Remplit(c, "Fill coordinates", " ", [&](double latitude, double longitude) {
      return TexteCoo(c.state, index, latitude, longitude);
    });
  });
}

void MnuRemplirXY_Click(CommandContext c, int index) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    Remplit(c, "Fill coordinates", ",", [&](double latitude, double longitude) {
      return std::string(
          Rogne(TexteXY(c.state, index, c.document().Entete().DatumFichier, latitude, longitude)));
    });
  });
}

void MnuRemplirTexte_Click(CommandContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    std::string answer =
        c.io.dialogues.Saisie({.prompt = Texte(c.state.Langue, MsgId::TexteAInserer)});
    if (answer.empty()) return;
    Remplit(c, "Fill text", c.state.document.Entete().FreeFieldSeparator,
            [&](double, double) { return answer; });
  });
}

}  // namespace talpena
