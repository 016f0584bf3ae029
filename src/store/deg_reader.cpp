#include "store/deg_reader.h"

#include <array>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string_view>

#include "common/error_words.h"
#include "common/grouped_number.h"
#include "common/msg_id.h"
#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/deg_file.h"
#include "store/deg_header.h"
#include "store/edition.h"
#include "store/file_commands.h"
#include "store/free_fields.h"

namespace talpena {
namespace {

/// A file whose first lines end in LF alone.
bool CommenceSansCr(FileSystem& files, const std::string& path) {
  std::array<char, 4096> start{};
  const std::size_t size = files.Ouvre(path)->Lit(start);
  const std::string_view text(start.data(), size);
  return text.find('\n') != std::string_view::npos && text.find('\r') == std::string_view::npos;
}

/// Rows that are shown while the others are read: more than a window has.
constexpr int PremieresLignes = 200;

/// Up to so many rows of another source.
class Premieres final : public RowSource {
 public:
  Premieres(RowSource& rows, int count) : rows_(rows), left_(count) {}
  bool Suivante(std::span<Cell> cells) override { return left_-- > 0 && rows_.Suivante(cells); }

 private:
  RowSource& rows_;
  int left_;
};

/// One run of LitDeg: Execute, and Abandonne when it threw.
class Load {
 public:
  Load(CommandContext c, const std::string& fileName, MergeMode merge, DegLines::LineEnd end)
      : c_(c), fileName_(fileName), merge_(merge == MergeMode::Merge), end_(end) {}
  Load(const Load&) = delete;
  Load& operator=(const Load&) = delete;

  LoadOutcome Execute() {
    if (!c_.io.files.Existe(fileName_)) return Refuse("File not found");
    avant_ = entete_ = Ouvert().Entete();
    entete_.FreeFieldText.clear();
    if (merge_) {
      const std::string refusal = FusionRefusee();
      if (!refusal.empty()) {
        // A refused merge leaves FreeFieldText empty, as it always did.
        // Held by LitDegTest.RefusesAMergeOfAnotherDatum.
        MetEntete();
        return Refuse(refusal);
      }
    }
    Annonce();
    OuvreFichier();
    if (!merge_) VideTable();
    LitEnTetes();
    LitLignes();
    if (!merge_) {
      Ouvert().Fichier.EmpreinteFichier = empreinte_;
      Ouvert().Fichier.LecturePartielle = false;
    }
    MajLastFiles(c_.state, fileName_);
    Ouvert().RelieSqlCourant();
    busy_.reset();
    if (ancienne_ && !merge_) c_.port.RecalculeCoordonnees();
    return LoadOutcome::Loaded;
  }

  /// After a failure: the rows read so far stay, and are shown; all else is closed but the
  /// hourglass.
  void Abandonne() noexcept {
    const auto essaie = [](auto&& step) {
      try {
        step();
      } catch (...) {  // the first failure is the one that the user is told
      }
    };
    essaie([this] { NoteFins(); });
    reader_.reset();
    essaie([this] {
      const bool shown = enteteEnPlace_ || (rowsChanged_ && !merge_);
      if (shown && !lignesCommencees_) RemetChamps();
    });
    essaie([this] {
      if (!rowsChanged_) return;
      Ouvert().RelieSqlCourant();
      c_.vue.PlaceFocusGrille();
    });
    essaie([this] {
      if (busy_) busy_->FermeFenetres();
    });
  }

  bool ALaisseLesLignes() const { return !rowsChanged_; }
  /// What the user is told who gave up.
  std::string TexteAbandon() {
    const int text = merge_ ? MsgId::FusionAbandonnee : MsgId::LectureAbandonnee;
    return Remplace(Texte(c_.state.Langue, text), "%1", NombreGroupe(c_.state.Langue, read_));
  }

 private:
  Document& Ouvert() { return c_.document(); }
  std::string NomEdition() const { return merge_ ? "Merge" : "Open"; }

  LoadOutcome Refuse(const std::string& text) {
    Bip(c_.state, c_.io);
    c_.io.dialogues.Demande({.text = text, .icon = Icon::Stop});
    return LoadOutcome::Refused;
  }

  /// The compatibility test of a merge; a table without free fields takes the file's layout.
  std::string FusionRefusee() {
    DegLines lines(c_.io.files.Ouvre(fileName_));
    if (!EstForme2(lines.LitObligatoire())) return {};
    if (entete_.FreeFieldCount != 0) return RefusDeFusion(entete_, lines);
    LitEnTete(entete_, c_.state.Catalogue, lines);
    return {};
  }

  void Annonce() {
    Ouvert().ChangeTitreFenetre("Talpena - " + fileName_);
    busy_.emplace(c_.attente);
    busy_->Message(Texte(c_.state.Langue, MsgId::Ouverture) + "\n" + fileName_ + Taille());
  }

  /// A file that takes its time is announced with its size.
  std::string Taille() {
    constexpr std::int64_t megabyte = 1'000'000, large = 100 * megabyte;
    const auto stamp = c_.io.files.Empreinte(fileName_);
    if (!stamp || stamp->size < large) return {};
    return "\n" + Remplace(Texte(c_.state.Langue, MsgId::Megaoctets), "%1",
                           NombreGroupe(c_.state.Langue, stamp->size / megabyte));
  }

  void OuvreFichier() {
    empreinte_ = c_.io.files.Empreinte(fileName_);
    file_ = c_.io.files.Ouvre(fileName_);
    if (merge_) return;
    Ouvert().Fichier.EmpreinteFichier.reset();
    Ouvert().Fichier.FinsLf = false;
    Ouvert().Fichier.LecturePartielle = true;
  }

  void VideTable() {
    rowsChanged_ = true;
    Edition edition(Ouvert(), NomEdition());
    edition.LaisseNonModifie();
    edition.VideTable();
    // Those of the file before are not to be seen, or saved, with what can be read of this one.
    for (DistributionHeader* entete : {&edition.Entete(), &entete_}) {
      entete->BoxTitre.clear();
      entete->Commentaire.clear();
    }
    edition.Valide();
    if (Ouvert().Data1.EstLie()) Ouvert().Data1.Refresh();
  }

  /// The header, up to the rows.
  void LitEnTetes() {
    reader_.emplace(std::move(file_), end_);
    ancienne_ = !reader_->EstForme2();
    if (merge_) {
      reader_->LitEnTeteFusion(entete_);
    } else {
      if (ancienne_) DemandeChampsStandard();
      reader_->LitEnTete(entete_, c_.state.Catalogue);
    }
    PrendEntete();
    Ouvert().MontreTitres();
    Ouvert().AjusteGrille();
  }

  /// A file of the old form has no free fields of its own.
  void DemandeChampsStandard() {
    const std::string path = CheminStandardHdr(c_.state, c_.io);
    entete_.FreeFieldCount = 0;
    if (path.empty()) return;
    const Answer answer =
        c_.io.dialogues.Demande({.text = Texte(c_.state.Langue, MsgId::ChampsStandard),
                                 .icon = Icon::Question,
                                 .buttons = Buttons::YesNo});
    if (answer == Answer::Yes) LitStandardHdr(entete_, c_.io.files, path);
  }

  /// A file that was refused before its rows leaves no fields to the next one, which may have none
  /// of its own: those of the file before are in force again.
  void RemetChamps() {
    entete_.FreeFieldSeparator = avant_.FreeFieldSeparator;
    entete_.FreeFieldDefs = avant_.FreeFieldDefs;
    entete_.FreeFieldCount = avant_.FreeFieldCount;
    MetEntete();
  }

  /// The header was read: it becomes that of the document, which a merge modifies.
  void PrendEntete() {
    if (!merge_) Ouvert().OublieModifications();
    MetEntete(merge_);
  }

  /// What was read of the header becomes that of the document, without a word of modifications.
  void MetEntete(bool modifie = false) {
    enteteEnPlace_ = true;
    Edition edition(Ouvert(), NomEdition());
    edition.Entete() = entete_;
    if (!modifie) edition.LaisseNonModifie();
    edition.Valide();
  }

  void LitLignes() {
    busy_->Barre();
    busy_->Montre(0);
    rowsChanged_ = true;
    DegFileRows rows = reader_->Lignes(entete_);
    lignesCommencees_ = true;
    Insere(rows);
    busy_->Annulable(Annulation::Aucune);
    if (rows.DernierPourcent() != 100) busy_->Montre(100);
    NoteFins();
    reader_.reset();
    busy_->FermeFenetres();
    c_.vue.PlaceFocusGrille();
  }

  /// Rows that end in LF alone made one row, as they must: the file can be opened otherwise.
  void NoteFins() {
    if (merge_ || !rowsChanged_ || read_ > 1) return;
    Ouvert().Fichier.FinsLf = reader_ ? reader_->FinsLf() : CommenceSansCr(c_.io.files, fileName_);
  }

  /// The first rows are on show while the others are read.
  void Insere(DegFileRows& rows) {
    Edition edition(Ouvert(), NomEdition());
    edition.LaisseNonModifie();
    rows.SurPointNu = [&] {
      edition.MarqueModifie();  // the row is not what the file says
      busy_->Respire();
    };
    rows.SurLigne = [&] {
      busy_->Bat();
      ++read_;
    };
    rows.SurAvance = [&](int percent) { busy_->Montre(percent); };
    busy_->Annulable(Annulation::Boucle);
    if (MontrePremieres()) {
      Premieres first(rows, PremieresLignes);
      if (Insere(edition, rows, first) == PremieresLignes) {
        Ouvert().RelieSqlCourant();
        busy_->Respire();
        Insere(edition, rows, rows);
      }
    } else {
      Insere(edition, rows, rows);
    }
    edition.Valide();
  }

  /// In the order of the file the first rows stay where they are when the others come. The
  /// end of a filter is told once, when all are there.
  bool MontrePremieres() {
    const RowOrder& order = Ouvert().Ordre();
    return !merge_ && order.index == 0 && order.direction != Direction::Descending &&
           !Ouvert().FiltreActif();
  }

  /// Says of a refused row on which line it stands. A disk that is full is not the file's.
  static std::int64_t Insere(Edition& edition, const DegFileRows& rows, RowSource& source) {
    try {
      return edition.InsereLignes(DegFileRows::Columns, source);
    } catch (const TalpenaError& e) {
      const std::int64_t line = rows.LigneEnMain();
      if (line == 0 || e.number() == ErrorNumber::DiskFull) throw;
      // The texts of a row that no line has given yet are empty.
      const bool cut = e.number() == ErrorNumber::ZeroLength;
      throw cut ? TalpenaError(e.number(), e.SurLigne(line).description(),
                               {.text = MsgId::LigneTropCourte, .about = {Str(line)}})
                : e.SurLigne(line);
    }
  }

  CommandContext c_;
  const std::string& fileName_;
  const bool merge_;
  const DegLines::LineEnd end_;
  DistributionHeader entete_;
  DistributionHeader avant_;  ///< the header before
  std::optional<Busy> busy_;
  std::unique_ptr<InputFile> file_;
  std::optional<DegFileReader> reader_;
  std::optional<FileStamp> empreinte_;
  std::int64_t read_ = 0;          ///< lines of the rows
  bool ancienne_ = false;          ///< a file of form 1
  bool enteteEnPlace_ = false;     ///< the document has what was read of the header
  bool lignesCommencees_ = false;  ///< there is a reader of rows
  bool rowsChanged_ = false;       ///< the table is no longer what the grid shows
};

}  // namespace

LoadOutcome LitDeg(CommandContext c, const std::string& fileName, MergeMode merge,
                   DegLines::LineEnd end) {
  Load load(c, fileName, merge, end);
  const auto echoue = [&](const std::string& description) {
    load.Abandonne();
    Bip(c.state, c.io);
    c.io.dialogues.Demande({.text = description});
    return load.ALaisseLesLignes() ? LoadOutcome::NotOpened : LoadOutcome::Failed;
  };
  try {
    return load.Execute();
  } catch (const TalpenaError& e) {
    return echoue(e.number() == ErrorNumber::Cancelled ? load.TexteAbandon()
                                                       : DescriptionErreur(c.state.Langue, e));
  } catch (const std::bad_alloc&) {
    const TalpenaError failure(ErrorNumber::OutOfMemory, "Out of memory");
    return echoue(DescriptionErreur(c.state.Langue, failure));
  }
}

}  // namespace talpena
