#include "store/deg_writer.h"

#include "common/msg_id.h"
#include "common/string_table.h"
#include "store/deg_line_writer.h"
#include "store/deg_row_writer.h"
#include "store/save_file.h"
#include "store/save_questions.h"

namespace talpena {
namespace {

constexpr std::string_view groupedSource =
    "SELECT * FROM TALPENA ORDER BY [PERIOD], [LATITUDE], [LONGITUDE]";

/// The wait window, the hourglass and the progress bar, put back when the save ends.
class WaitDisplay {
 public:
  explicit WaitDisplay(MainWindowView& vue) : vue_(vue) {}
  WaitDisplay(const WaitDisplay&) = delete;
  WaitDisplay& operator=(const WaitDisplay&) = delete;
  ~WaitDisplay() {
    vue_.MontreBarre(false);
    vue_.FermeMessage();
    vue_.ChangeSablier(false);
  }

 private:
  MainWindowView& vue_;
};

/// The lines before the first row.
class DegHeader {
 public:
  DegHeader(const StoreState& state, SaveQuestions& questions, SaveFile& file)
      : state_(state), questions_(questions), file_(file) {}

  void Ecrit(const std::string& title, const std::string& comment, int anneeCourante) {
    EcritLigne("<TALPENA 2.0>");
    EcritLigne(Encode("Datum", state_.DatumFichierCode));
    if (!state_.FreeFieldText.empty()) EcritLigne(Encode("Free fields", state_.FreeFieldText));
    EcritLigne("<END>");
    EcritLigne(title.empty() ? "   " : Encode("Title", title));
    const std::string commentBytes = Encode("Comment", comment);
    EcritLigne(commentBytes);
    if (const auto periods =
            LignePeriodes(state_.NbPivots, state_.Pivot1, state_.Pivot2, anneeCourante)) {
      EcritLigne(*periods);
    }
    EcritLigne(LigneStatistiques);
    EcritLigne(commentBytes);
  }

 private:
  std::string Encode(const std::string& what, const std::string& text) {
    std::string bytes;
    const std::string absent = AjouteCp1252(bytes, text);
    if (!absent.empty()) {
      questions_.Continuer(
          TalpenaError(ErrorNumber::NotInCodePage,
                       what + ": the character " + absent + " is not in code page 1252."));
    }
    return bytes;
  }

  void EcritLigne(std::string_view bytes) {
    questions_.Tente([&] { file_.Ecrit(std::string(bytes) + "\r\n"); });
  }

  const StoreState& state_;
  SaveQuestions& questions_;
  SaveFile& file_;
};

/// The data control's rows, from their own cursor; empty when there are none to write.
std::unique_ptr<Recordset> PrendLignes(StoreState& state, SaveQuestions& questions,
                                       WriteMode mode) {
  if (!state.Data1.EstLie()) return nullptr;
  if (mode == WriteMode::Grouped) {
    state.Data1.RecordSource = groupedSource;
    questions.Tente([&] { state.Data1.Refresh(); });
  }
  std::unique_ptr<Recordset> rows;
  questions.Tente([&] {
    rows = state.Data1.Clone();
    rows->MoveLast();
    if (rows->RecordCount() < 1) rows.reset();
  });
  return rows;
}

}  // namespace

void EcritDeg(StoreState& state, Platform& io, MainWindowView& vue, const std::string& fileName,
              WriteMode mode, const std::string& modele) {
  SaveQuestions questions(state, io);
  SaveFile file(state, io, fileName);
  try {
    const std::unique_ptr<Recordset> rows = PrendLignes(state, questions, mode);
    if (!rows) return;
    const WaitDisplay wait(vue);
    questions.Tente(
        [&] { vue.AfficheMessage(Texte(state.Langue, MsgId::Sauvegarde) + "\n" + fileName); });
    vue.ChangeSablier(true);
    questions.TenteJusquaReussite([&] { file.Ouvre(modele); });
    DegHeader(state, questions, file)
        .Ecrit(vue.BoxTitre(), vue.Commentaire(), io.clock.AnneeCourante());
    vue.MontreBarre(true);
    DegRowWriter lines(state, vue, questions, file, *rows);
    mode == WriteMode::Grouped ? lines.EcritGroupees() : lines.EcritUneParUne();
    vue.MontreProgression(100);
    questions.TenteJusquaReussite([&] { file.Termine(); });
  } catch (const SauvegardeRefusee&) {
    file.Tronque();
    return;
  }
  state.FichierModifie = false;
  Bip(state, io);
}

}  // namespace talpena
