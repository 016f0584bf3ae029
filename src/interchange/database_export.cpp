#include "interchange/database_export.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/grouped_number.h"
#include "common/msg_id.h"
#include "common/msg_id_export.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"
#include "interchange/database_file.h"
#include "interchange/database_rows.h"
#include "interchange/database_targets.h"
#include "interchange/export_file.h"
#include "interchange/read_back.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/filter.h"

namespace talpena {
namespace {

class DatabaseExport {
 public:
  /// @param former  the files that go
  DatabaseExport(CommandContext c, Recordset& rows, const DatabaseTarget& target,
                 const std::string& path, std::vector<std::string> former)
      : c_(c),
        target_(target),
        place_(PlaceDe(target, path)),
        autreNom_(place_.Chemin() != path),
        former_(std::move(former)),
        row_(c.state, target),
        rows_(rows, row_) {}

  /// Every export ends in the comparison, whatever it wrote to.
  void Execute() {
    const std::optional<TalpenaError> faute = Ecrit();
    const std::vector<std::string> unknown = row_.DatumsInconnus();
    if (!unknown.empty()) DitDatumsAbsents(c_.state, c_.io, unknown);
    if (row_.MemoCoupe() && rows_.Rangee() > 0) DitMemoCoupe();
    if (faute) throw Conseillee(*faute);
    DitResultat(Relit());
  }

 private:
  /// Empty, or what the file ends before.
  std::optional<TalpenaError> Ecrit() {
    const auto former = c_.io.files.Empreinte(place_.Chemin());
    try {
      Busy busy(c_.attente);
      busy.Barre().Annulable();
      rows_.Recommence([&](std::int64_t done) { Avance(busy, Part(done), 0); });
      return EcritBase(c_, target_, place_, former_, rows_);
    } catch (const TalpenaError& failure) {
      const int hint = ConseilDuReste(c_, place_.Chemin(), former);
      if (failure.number() == ErrorNumber::Cancelled && hint != 0) {
        c_.document().DitResultat(Texte(c_.state.Langue, hint));
      }
      throw failure.AvecConseil(hint);
    }
  }

  /// False when the user did not wait for it.
  bool Relit() {
    try {
      Busy busy(c_.attente);
      c_.attente.NommeTravail(Texte(c_.state.Langue, MsgId::Relecture));
      busy.Barre().Annulable();
      RelitBase(c_, target_, place_, rows_, [&](double part) { Avance(busy, part, 1); });
      return true;
    } catch (const TalpenaError& failure) {
      if (failure.number() == ErrorNumber::Cancelled) return false;
      const bool told =
          failure.words().text == MsgId::ValeurRelue || failure.words().text == MsgId::NombreRelu;
      throw told ? failure : failure.AvecConseil(MsgId::RelectureEchouee);
    }
  }

  double Part(std::int64_t done) const {
    return rows_.Total() == 0 ? 1 : static_cast<double>(done) / static_cast<double>(rows_.Total());
  }

  /// The bar: half for the writing, half for the reading.
  static void Avance(Busy& busy, double part, int half) {
    constexpr std::int64_t steps = 1000;
    busy.Avance(static_cast<std::int64_t>((half + part) * steps), 2 * steps);
    busy.Bat();
  }

  /// Others say by themselves what is in the file.
  static TalpenaError Conseillee(const TalpenaError& faute) {
    return EstFauteDeRangee(faute) ? faute.AvecConseil(MsgId::ExportJusquIci) : faute;
  }

  void DitMemoCoupe() {
    Bip(c_.state, c_.io);
    const auto longest = static_cast<std::int64_t>(target_.longestMemo);
    const std::string text = Texte(c_.state.Langue, MsgId::MemoCoupe);
    c_.io.dialogues.Demande({.text = Remplace(text, "%1", NombreGroupe(c_.state.Langue, longest)),
                             .icon = Icon::Exclamation});
  }

  void DitResultat(bool readBack) {
    const bool some = c_.document().FiltreActif();
    const int text = readBack ? (some ? MsgId::LignesReluesSur : MsgId::LignesRelues)
                              : (some ? MsgId::LignesNonReluesSur : MsgId::LignesNonRelues);
    const NombresDeLignes rows =
        some ? CompteLignes(c_.document()) : NombresDeLignes{rows_.Total(), rows_.Total()};
    std::string notice = AvecNombres(c_.state.Langue, Texte(c_.state.Langue, text), rows);
    if (autreNom_) notice += " (" + place_.file + ")";
    c_.document().DitResultat(notice);
  }

  CommandContext c_;
  const DatabaseTarget& target_;
  DatabasePlace place_;
  bool autreNom_;  ///< the file does not bear the name that was typed
  std::vector<std::string> former_;
  DatabaseRow row_;
  DatabaseRows rows_;
};

}  // namespace

void MnuExpDB(CommandContext c, ExportDialogs& dialogues, int index) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    const DatabaseTarget& target = CibleBase(index);
    c.document().DitResultat({});
    const std::unique_ptr<Recordset> rows = c.document().Data1.Clone();
    if (!dialogues.MontreOptionsExport(ExportKind::Database)) return;
    std::vector<std::string> former;
    const std::string path = DemandeFichierExport(c, target.filter, [&](const std::string& chosen) {
      const DatabasePlace place = PlaceDe(target, chosen);
      VerifieSansUsager(target, place, c.io.files);
      return former = FichiersRemplaces(target, place, c.io.files);
    });
    if (path.empty()) return;
    DatabaseExport(c, *rows, target, path, std::move(former)).Execute();
    c.state.FichierExporte = path;
  });
}

}  // namespace talpena
