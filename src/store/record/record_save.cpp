// The record editor writes its row.
#include "common/error_words.h"
#include "common/line_breaks.h"
#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/tokens.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/record/compute.h"
#include "store/record/date_mask.h"
#include "store/record/free_text.h"
#include "store/record/input_boxes.h"
#include "store/record/record_editor.h"
#include "store/record/row_texts.h"
#include "store/table.h"

namespace talpena {
namespace {

void Dit(CommandContext c, const std::string& text) {
  Bip(c.state, c.io);
  c.io.dialogues.Demande({.text = text, .icon = Icon::Exclamation});
}

/// Sets the fields of the row under edit, one by one; `at` is the one that it is at.
class RowWriter {
 public:
  RowWriter(Recordset& rows, std::optional<RecordField>& at) : rows_(rows), at_(at) {}

  void Nombre(RecordField field, int column, std::string_view text) {
    at_ = field;
    const double value = NombreDe(text);
    switch (rows_.Fields().at(static_cast<std::size_t>(column)).type) {
      case FieldType::Integer:
        return rows_.Set(column, Cell::Of(std::int64_t{Arrondi16(value)}));
      case FieldType::Long:
        return rows_.Set(column, Cell::Of(std::int64_t{Arrondi32(value)}));
      default:
        return rows_.Set(column, Cell::Of(value));
    }
  }
  /// A text that the row shows already stays as it is, Null too.
  void Texte(RecordField field, int column, const std::string& text) {
    at_ = field;
    if (rows_.Get(column).Texte() != text) rows_.Set(column, Cell::Of(std::string_view(text)));
  }
  void Date(const RecordScreen& ecran) {
    at_ = RecordField::ChampAnnee;
    const std::string date = MasqueEnDate(ecran.ChampAnnee);
    const bool untouched = ecran.ChampAnnee == ecran.anneeLue;
    if (untouched && (!date.empty() || !ecran.dateAutre.empty())) return;
    rows_.Set(Column::DATE, date.empty() ? Cell::Null() : Cell::Of(std::string_view(date)));
  }
  void Original(const RecordScreen& ecran) {
    at_ = RecordField::EditBox2;
    if (Rogne(ecran.EditBox[2]).empty()) return;
    const std::string& code = ecran.lblDatum;
    rows_.Set(Column::DATUM, code.empty() ? Cell::Null() : Cell::Of(std::string_view(code)));
    const std::string original = OriginalDesBoites(ecran);
    rows_.Set(Column::ORIGINAL, Cell::Of(std::string_view(original)));
  }

 private:
  Recordset& rows_;
  std::optional<RecordField>& at_;
};

void EcritChamps(const DistributionHeader& entete, const RecordScreen& ecran, Recordset& rows,
                 std::optional<RecordField>& at) {
  RowWriter row(rows, at);
  row.Nombre(RecordField::ChampPeriode, Column::PERIOD, ecran.ChampPeriode);
  row.Nombre(RecordField::ChampLatitude, Column::LATITUDE, ecran.ChampLatitude);
  row.Nombre(RecordField::ChampLongitude, Column::LONGITUDE, ecran.ChampLongitude);
  row.Nombre(RecordField::ChampCh1, Column::N1, ecran.ChampCh1);
  row.Nombre(RecordField::ChampCh2, Column::N2, ecran.ChampCh2);
  row.Texte(RecordField::ChampSex, Column::SEX, SurUneLigne(ecran.ChampSex));
  row.Date(ecran);
  row.Texte(RecordField::ChampLibre, Column::COMMENT,
            AssembleTexteLibre(ecran.Grid, ecran.ChampLibre, entete.FreeFieldSeparator));
  row.Original(ecran);
  at.reset();
}

/// A box that was not left yet, and boxes that are not all filled: seen before the row is written.
/// False when the reference was refused.
bool RegardeBoites(CommandContext c, RecordScreen& ecran) {
  NettoieBoites(ecran);
  if (CleReference(ecran) != ecran.referenceLue) {
    if (!CalculePoint(c, ecran)) return false;
    AfficheControle(c, ecran);
  }
  if (!ecran.EditBox[2].empty() && !BoitesRemplies(ecran)) {
    ecran.avisReference = Texte(c.state.Langue, MsgId::ReferenceSansPoint);
  }
  return true;
}

/// The tests, in their order. False, with the message shown, when one fails.
bool PasseControles(CommandContext c, RecordScreen& ecran) {
  if (!RegardeBoites(c, ecran)) return false;
  if (const auto fault = PremiereFaute(c.state, ecran)) {
    ecran.focus = fault->field;
    Dit(c, fault->text);
    return false;
  }
  if (!c.document().Data1.EstLie()) {
    Dit(c, "Erreur! [recordset is nothing]");
    return false;
  }
  const Recordset& rows = c.document().Data1.recordset();
  if (rows.BOF() || rows.EOF_()) {
    Dit(c, "Erreur! [recordset BOF or EOF]");
    return false;
  }
  return true;
}

/// What the form and the row now have in common.
void FormeSauvee(CommandContext c, RecordScreen& ecran) {
  if (ecran.ChampAnnee != ecran.anneeLue) ecran.dateAutre.clear();
  ecran.anneeLue = ecran.ChampAnnee;
  MontreNombres(c.state, ecran);
  AfficheControle(c, ecran);
  MetAvis(c.state, ecran);
  if (!ecran.layout.datumFixed && !ecran.EditBox[2].empty()) ecran.datumPropre = ecran.datum;
  ecran.modifie = ecran.ButOk = false;
}

}  // namespace

void SauveEcran(CommandContext c, RecordScreen& ecran, bool& failed) {
  if (!ecran.modifie) return;
  std::optional<RecordField> at;
  try {
    if (!PasseControles(c, ecran)) {
      MetAvis(c.state, ecran);
      failed = true;
      return;
    }
    Edition edition(c.document(), "Record editor");
    edition.ModifieLigne(c.document().Data1.recordset(), [&](Recordset& row) {
      EcritChamps(c.document().Entete(), ecran, row, at);
    });
    FormeSauvee(c, ecran);
    edition.Valide();
  } catch (const TalpenaError& error) {
    failed = true;
    if (at) ecran.focus = at;
    Dit(c, "Erreur pendant la sauvegarde.\r\n" + DescriptionErreur(c.state.Langue, error));
  }
}

}  // namespace talpena
