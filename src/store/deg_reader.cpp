#include "store/deg_reader.h"

#include <memory>
#include <new>
#include <optional>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/commands.h"
#include "store/deg_file_rows.h"
#include "store/deg_header.h"
#include "store/file_commands.h"
#include "store/free_fields.h"

namespace talpena {
namespace {

/// What a header takes over from a file, to be put back when a merge fails before its rows.
class HeaderGuard {
 public:
  HeaderGuard(StoreState& state, MainWindowView& vue)
      : state_(state),
        vue_(vue),
        datumCode_(state.DatumFichierCode),
        datum_(state.DatumFichier),
        fields_(state.FreeFieldDefs),
        count_(state.FreeFieldCount),
        separator_(state.FreeFieldSeparator),
        text_(state.FreeFieldText) {}
  HeaderGuard(const HeaderGuard&) = delete;
  HeaderGuard& operator=(const HeaderGuard&) = delete;
  ~HeaderGuard() {
    if (kept_) return;
    const bool datumShown = state_.DatumFichierCode != datumCode_;
    state_.DatumFichierCode.swap(datumCode_);
    state_.DatumFichier = datum_;
    state_.FreeFieldDefs.swap(fields_);
    state_.FreeFieldCount = count_;
    state_.FreeFieldSeparator.swap(separator_);
    state_.FreeFieldText.swap(text_);
    if (datumShown) vue_.AffichePanneauDatum(state_.DatumFichierCode);
  }
  void Garde() { kept_ = true; }

 private:
  StoreState& state_;
  MainWindowView& vue_;
  std::string datumCode_;
  std::int16_t datum_;
  std::vector<FreeFieldDef> fields_;
  std::int16_t count_;
  std::string separator_;
  std::string text_;
  bool kept_ = false;
};

/// One run of LitDeg: Execute, and Abandonne when it threw.
class Load {
 public:
  Load(StoreState& state, Platform& io, MainWindowView& vue, const std::string& fileName,
       MergeMode merge)
      : state_(state), io_(io), vue_(vue), fileName_(fileName), merge_(merge == MergeMode::Merge) {}
  Load(const Load&) = delete;
  Load& operator=(const Load&) = delete;

  void Execute() {
    if (!io_.files.Existe(fileName_)) return Refuse("File not found");
    std::optional<HeaderGuard> guard;
    if (merge_) guard.emplace(state_, vue_);
    state_.FreeFieldText.clear();
    if (merge_ && !FusionPermise()) {
      guard->Garde();  // a refused merge leaves FreeFieldText empty, as it always did
      return;
    }
    Annonce();
    if (!merge_) VideTable();
    OuvreFichier();
    LitEnTetes();
    if (guard) guard->Garde();
    LitLignes();
    if (!merge_) {
      state_.EmpreinteFichier = empreinte_;
      state_.LecturePartielle = false;
    }
    MajLastFiles({state_, io_, vue_}, fileName_);
    Lie();
    vue_.ChangeSablier(false);
    if (ancienne_ && !merge_) {
      vue_.RecalculeCoordonnees();
      vue_.AffichePanneauDatum(state_.DatumFichierCode);
    }
  }

  /// After a failure: the rows read so far stay, and are shown; all else is closed.
  void Abandonne() noexcept {
    lines_.reset();
    const auto essaie = [](auto&& step) {
      try {
        step();
      } catch (...) {  // the first failure is the one that the user is told
      }
    };
    essaie([this] {
      if (state_.WorkingDb && state_.WorkingDb->EnTransaction()) state_.WorkingDb->CommitTrans();
    });
    essaie([this] {
      if (rowsChanged_) Lie();
    });
    vue_.MontreBarre(false);
    vue_.FermeMessage();
  }

 private:
  void Refuse(const std::string& text) {
    Bip(state_, io_);
    io_.dialogues.Demande({.text = text, .icon = Icon::Stop});
  }

  /// The compatibility test of a merge; a table without free fields takes the file's layout.
  bool FusionPermise() {
    DegLines lines(io_.files.Ouvre(fileName_));
    if (!EstForme2(lines.LitObligatoire())) return true;
    if (state_.FreeFieldCount == 0) {
      LitEnTete(state_, vue_, lines);
      return true;
    }
    const std::string refusal = RefusDeFusion(state_, lines);
    if (!refusal.empty()) Refuse(refusal);
    return refusal.empty();
  }

  void Annonce() {
    vue_.ChangeTitreFenetre("Talpena - " + fileName_);
    vue_.AfficheMessage(Texte(state_.Langue, MsgId::Ouverture) + "\n" + fileName_);
    vue_.ChangeSablier(true);
  }

  void VideTable() {
    state_.EmpreinteFichier.reset();
    state_.LecturePartielle = true;
    rowsChanged_ = true;
    Base().Execute("DELETE FROM TALPENA");
    if (state_.Data1.EstLie()) state_.Data1.Refresh();
  }

  void OuvreFichier() {
    empreinte_ = io_.files.Empreinte(fileName_);
    lines_.emplace(io_.files.Ouvre(fileName_));
  }

  /// The header up to the title, then the five lines behind it.
  void LitEnTetes() {
    const std::string first = LitTexte(*lines_);
    ancienne_ = !EstForme2(first);
    if (ancienne_) {
      if (!merge_) DemandeChampsStandard();
      state_.TitreFichier = first;
    } else if (merge_) {
      LitEnTeteFusion(state_, *lines_);
    } else {
      LitEnTete(state_, vue_, *lines_);
    }
    state_.CommentaireFichier = LitTexte(*lines_);
    const std::string_view periods = lines_->LitObligatoire();
    if (!merge_) LitPivots(state_, periods);
    lines_->LitObligatoire();  // statistics
    lines_->LitObligatoire();  // second copy of the comment
    MontreTitres();
    state_.FichierModifie = merge_;
  }

  /// A file of the old form has no free fields of its own.
  void DemandeChampsStandard() {
    const std::string path = CheminStandardHdr(state_, io_);
    state_.FreeFieldCount = 0;
    if (path.empty()) return;
    const Answer answer =
        io_.dialogues.Demande({.text = Texte(state_.Langue, MsgId::ChampsStandard),
                               .icon = Icon::Question,
                               .buttons = Buttons::YesNo});
    if (answer == Answer::Yes) LitStandardHdr(state_, io_, path);
  }

  void MontreTitres() {
    const std::string& titre = state_.TitreFichier;
    const std::string& commentaire = state_.CommentaireFichier;
    vue_.ChangeBoxTitre(merge_ ? vue_.BoxTitre() + " - " + titre : titre);
    vue_.ChangeCommentaire(merge_ ? vue_.Commentaire() + "-" + commentaire : commentaire);
    vue_.MontreTitres();
    vue_.AjusteGrille();
  }

  void LitLignes() {
    vue_.MontreBarre(true);
    vue_.MontreProgression(0);
    Base().BeginTrans();
    rowsChanged_ = true;
    DegFileRows rows(state_, vue_, *lines_);
    Insere(rows);
    if (rows.DernierPourcent() != 100) vue_.MontreProgression(100);
    lines_.reset();
    Base().CommitTrans();
    vue_.MontreBarre(false);
    vue_.FermeMessage();
    vue_.PlaceFocusGrille();
  }

  /// Says of a refused row on which line it stands.
  void Insere(DegFileRows& rows) {
    try {
      Base().InsertRows("TALPENA", DegFileRows::Columns, rows);
    } catch (const TalpenaError& e) {
      if (rows.LigneEnMain() == 0) throw;
      throw TalpenaError(e.number(), "Line " + Str(rows.LigneEnMain()) + ": " + e.description());
    }
  }

  Database& Base() {
    if (state_.WorkingDb) return *state_.WorkingDb;
    throw TalpenaError(ErrorNumber::DatabaseNotFound, "The working database is not open.");
  }

  void Lie() {
    state_.Data1.Lie(Base());
    state_.Data1.RecordSource = state_.SqlCourant;
    state_.Data1.Refresh();
  }

  StoreState& state_;
  Platform& io_;
  MainWindowView& vue_;
  const std::string& fileName_;
  const bool merge_;
  std::optional<DegLines> lines_;
  std::optional<FileStamp> empreinte_;
  bool ancienne_ = false;     ///< a file of form 1
  bool rowsChanged_ = false;  ///< the table is no longer what the grid shows
};

}  // namespace

void LitDeg(StoreState& state, Platform& io, MainWindowView& vue, const std::string& fileName,
            MergeMode merge) {
  Load load(state, io, vue, fileName, merge);
  const auto echoue = [&](const std::string& description) {
    load.Abandonne();
    Bip(state, io);
    io.dialogues.Demande({.text = description});
    vue.ChangeSablier(false);
  };
  try {
    load.Execute();
  } catch (const TalpenaError& e) {
    echoue(e.description());
  } catch (const std::bad_alloc&) {
    echoue("Out of memory");
  }
}

}  // namespace talpena
