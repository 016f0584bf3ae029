#include "store/deg_reader.h"

#include <memory>
#include <new>
#include <optional>

#include "common/error_words.h"
#include "common/msg_id.h"
#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/deg_file.h"
#include "store/deg_header.h"
#include "store/edition.h"
#include "store/file_commands.h"
#include "store/free_fields.h"

namespace talpena {
namespace {

/// One run of LitDeg: Execute, and Abandonne when it threw.
class Load {
 public:
  Load(CommandContext c, const std::string& fileName, MergeMode merge)
      : c_(c), fileName_(fileName), merge_(merge == MergeMode::Merge) {}
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
    reader_.reset();
    const auto essaie = [](auto&& step) {
      try {
        step();
      } catch (...) {  // the first failure is the one that the user is told
      }
    };
    essaie([this] {
      const bool shown = enteteEnPlace_ || (rowsChanged_ && !merge_);
      if (shown && !lignesCommencees_) RemetChamps();
    });
    essaie([this] {
      if (rowsChanged_) Ouvert().RelieSqlCourant();
    });
    essaie([this] {
      if (busy_) busy_->FermeFenetres();
    });
  }

  bool ALaisseLesLignes() const { return !rowsChanged_; }

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
    busy_->Message(Texte(c_.state.Langue, MsgId::Ouverture) + "\n" + fileName_);
  }

  void OuvreFichier() {
    empreinte_ = c_.io.files.Empreinte(fileName_);
    file_ = c_.io.files.Ouvre(fileName_);
    if (merge_) return;
    Ouvert().Fichier.EmpreinteFichier.reset();
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
    reader_.emplace(std::move(file_));
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
    if (rows.DernierPourcent() != 100) busy_->Montre(100);
    reader_.reset();
    busy_->FermeFenetres();
    c_.vue.PlaceFocusGrille();
  }

  /// Says of a refused row on which line it stands.
  void Insere(DegFileRows& rows) {
    Edition edition(Ouvert(), NomEdition());
    edition.LaisseNonModifie();
    rows.SurPointNu = [&] {
      edition.MarqueModifie();  // the row is not what the file says
      busy_->Respire();
    };
    rows.SurAvance = [&](int percent) { busy_->Montre(percent); };
    try {
      edition.InsereLignes(DegFileRows::Columns, rows);
    } catch (const TalpenaError& e) {
      const std::int64_t line = rows.LigneEnMain();
      if (line == 0) throw;
      // The texts of a row that no line has given yet are empty.
      const bool cut = e.number() == ErrorNumber::ZeroLength;
      throw cut ? TalpenaError(e.number(), e.SurLigne(line).description(),
                               {.text = MsgId::LigneTropCourte, .about = {Str(line)}})
                : e.SurLigne(line);
    }
    edition.Valide();
  }

  CommandContext c_;
  const std::string& fileName_;
  const bool merge_;
  DistributionHeader entete_;
  DistributionHeader avant_;  ///< the header before
  std::optional<Busy> busy_;
  std::unique_ptr<InputFile> file_;
  std::optional<DegFileReader> reader_;
  std::optional<FileStamp> empreinte_;
  bool ancienne_ = false;          ///< a file of form 1
  bool enteteEnPlace_ = false;     ///< the document has what was read of the header
  bool lignesCommencees_ = false;  ///< there is a reader of rows
  bool rowsChanged_ = false;       ///< the table is no longer what the grid shows
};

}  // namespace

LoadOutcome LitDeg(CommandContext c, const std::string& fileName, MergeMode merge) {
  Load load(c, fileName, merge);
  const auto echoue = [&](const std::string& description) {
    load.Abandonne();
    Bip(c.state, c.io);
    c.io.dialogues.Demande({.text = description});
    return load.ALaisseLesLignes() ? LoadOutcome::NotOpened : LoadOutcome::Failed;
  };
  try {
    return load.Execute();
  } catch (const TalpenaError& e) {
    return echoue(DescriptionErreur(c.state.Langue, e));
  } catch (const std::bad_alloc&) {
    const TalpenaError failure(ErrorNumber::OutOfMemory, "Out of memory");
    return echoue(DescriptionErreur(c.state.Langue, failure));
  }
}

}  // namespace talpena
