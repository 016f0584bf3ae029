#include "interchange/text_export.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/msg_id.h"
#include "common/msg_id_export.h"
#include "common/string_table.h"
#include "coords/datum.h"
#include "interchange/export_file.h"
#include "interchange/export_lines.h"
#include "interchange/export_options.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/filter.h"
#include "store/row_failures.h"
#include "store/table.h"

namespace talpena {
namespace {

/// Rows between two looks at whether the user gave up: some tenths of a millisecond.
constexpr std::int64_t rowsPerBeat = 256;

class TextExport {
 public:
  TextExport(CommandContext c, Recordset& rows, std::string path, int mode)
      : c_(c), rows_(rows), path_(std::move(path)), lines_(c.state, mode), points_(c.state) {}

  /// Writes the file and puts it in its place.
  void Execute() {
    const std::optional<TalpenaError> faute = EcritFichier();
    const std::vector<std::string>& unknown = points_.DatumsInconnus();
    if (!unknown.empty()) DitDatumsAbsents(c_.state, c_.io, unknown);
    if (faute) throw faute->AvecConseil(MsgId::ExportJusquIci);
  }

 private:
  /// Empty, or what is wrong with the row that the file ends before.
  std::optional<TalpenaError> EcritFichier() {
    const auto former = c_.io.files.Empreinte(path_);
    try {
      Busy busy(c_.attente);
      c_.io.files.SupprimeRestes(path_);
      const std::unique_ptr<OutputFile> file =
          c_.io.files.CreeComme(path_, {.memeProtege = c_.io.files.EstProtege(path_)});
      std::optional<TalpenaError> faute = EcritLignes(*file, busy.Barre().Annulable());
      file->Remplace();
      return faute;
    } catch (const TalpenaError& failure) {
      const int hint = ConseilDuReste(c_, path_, former);
      if (failure.number() == ErrorNumber::Cancelled && hint != 0) {
        c_.document().DitResultat(Texte(c_.state.Langue, hint));
      }
      throw failure.AvecConseil(hint);
    }
  }

  std::optional<TalpenaError> EcritLignes(OutputFile& file, Busy& busy) {
    lines_.AjouteEnTete(line_);
    file.Ecrit(line_);
    const std::int64_t total = rows_.RecordCount();
    rows_.MoveFirst();
    rows_.AnnonceParcours({});
    for (std::int64_t row = 1;; ++row) {
      try {
        if (!FaitLigne(row)) return {};
      } catch (const TalpenaError& failure) {
        if (failure.number() == ErrorNumber::Cancelled) throw;
        return failure;
      }
      file.Ecrit(line_);
      busy.Avance(row, total);
      if (row % rowsPerBeat == 0) busy.Bat();
    }
  }

  /// The next row in line_; false behind the last.
  bool FaitLigne(std::int64_t row) {
    if (row > 1) rows_.MoveNext();
    if (rows_.EOF_()) return false;
    rows_.LitLigne(cells_);
    ExportLines::Verifie(cells_, row);
    line_.clear();
    lines_.AjouteLigne(line_, cells_, row, Point(row));
    return true;
  }

  std::optional<LambertPoint> Point(std::int64_t row) {
    if (!ExporteXY(c_.state)) return {};
    try {
      return points_.Calcule(cells_[Column::DATUM].text,
                             static_cast<float>(cells_[Column::LATITUDE].Nombre()),
                             static_cast<float>(cells_[Column::LONGITUDE].Nombre()));
    } catch (const TalpenaError& failure) {
      throw EchecDeRangee(c_.state.Langue, failure, row, "X, Y");
    }
  }

  CommandContext c_;
  Recordset& rows_;
  std::string path_;
  ExportLines lines_;
  LambertPoints points_;
  std::array<Cell, Column::Count> cells_;
  std::string line_;
};

/// A filter leaves rows out of the file.
void DitLignesEcrites(CommandContext c) {
  const bool all = !c.document().FiltreActif();
  const std::string text =
      Texte(c.state.Langue, all ? MsgId::ToutesLignesEcrites : MsgId::LignesEcrites);
  c.document().DitResultat(AvecNombres(c.state.Langue, text, CompteLignes(c.document())));
}

}  // namespace

void MnuExpAsciiMode(CommandContext c, ExportDialogs& dialogues, int index) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    c.document().DitResultat({});
    const std::unique_ptr<Recordset> rows = c.document().Data1.Clone();
    if (!dialogues.MontreOptionsExport(ExportKind::Text)) return;
    const std::string path =
        DemandeFichierExport(c, "Fichiers texte (*.txt)|*.txt", [&](const std::string& chosen) {
          return c.io.files.Existe(chosen) ? std::vector{chosen} : std::vector<std::string>();
        });
    if (path.empty()) return;
    TextExport(c, *rows, path, index).Execute();
    c.state.FichierExporte = path;
    DitLignesEcrites(c);
  });
}

}  // namespace talpena
