#include "interchange/text_export.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/msg_id.h"
#include "common/msg_id_export.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "coords/datum.h"
#include "interchange/export_lines.h"
#include "interchange/export_options.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/filter.h"
#include "store/overwrite.h"
#include "store/row_failures.h"
#include "store/table.h"

namespace talpena {
namespace {

/// Rows between two looks at whether the user gave up: some tenths of a millisecond.
constexpr std::int64_t rowsPerBeat = 256;

Answer DemandeRemplacement(CommandContext c, const std::string& path) {
  Bip(c.state, c.io);
  return c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::RemplaceFichier),
                                 .icon = Icon::Exclamation,
                                 .buttons = Buttons::YesNoCancel,
                                 .defaultButton = Answer::No,
                                 .detail = path});
}

/// The rows on show would be lost with their file: it may not be replaced. Told where it is.
bool EstOuvert(CommandContext c, const std::string& path) {
  const std::string& open = c.document().Fichier.NomFichier;
  if (open.empty() || !c.io.files.MemeFichier(path, open)) return false;
  Bip(c.state, c.io);
  c.io.dialogues.Demande(
      {.text = Texte(c.state.Langue, MsgId::ExportSurOuvert), .icon = Icon::Exclamation});
  return true;
}

/// The file to write; "" when there is none. Whoever does not want a file replaced is asked for
/// another one.
std::string DemandeFichier(CommandContext c) {
  std::string folder = DossierDe(c.state.FichierExporte);
  if (folder.empty()) folder = DossierDe(c.document().Fichier.NomFichier);
  for (;;) {
    std::string path = c.io.dialogues.EnregistreFichier(
        {.filter = "Fichiers texte (*.txt)|*.txt", .folder = folder});
    if (path.empty() || !c.io.files.Existe(path)) return path;
    folder = DossierDe(path);
    if (EstOuvert(c, path)) continue;
    const Answer answer = DemandeRemplacement(c, path);
    if (answer == Answer::Cancel) return {};
    if (answer == Answer::Yes && PeutEcraser(c, path)) return path;
  }
}

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
      const int hint = Reste(former);
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

  /// What is to be said of the place of the file behind a failure to write it; 0 for nothing.
  int Reste(const std::optional<FileStamp>& former) {
    if (!c_.io.files.Existe(path_)) return former ? 0 : MsgId::ExportSansFichier;
    return c_.io.files.Empreinte(path_) == former ? MsgId::AncienFichierReste : 0;
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
    if (!dialogues.MontreOptionsExport()) return;
    const std::string path = DemandeFichier(c);
    if (path.empty()) return;
    TextExport(c, *rows, path, index).Execute();
    c.state.FichierExporte = path;
    DitLignesEcrites(c);
  });
}

}  // namespace talpena
