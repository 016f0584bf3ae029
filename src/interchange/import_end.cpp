#include "interchange/import_end.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include "common/error_words.h"
#include "common/grouped_number.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coord_commands/adjust.h"
#include "coords/snap.h"
#include "interchange/column_room.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/row_commands.h"
#include "store/table.h"

namespace talpena {
namespace {

Cell CelluleDe(const std::optional<std::string>& text) {
  return text ? Cell::Of(std::string_view(*text)) : Cell::Null();
}

Cell CelluleDe(const std::optional<std::int32_t>& number) {
  return number ? Cell::Of(std::int64_t{*number}) : Cell::Null();
}

/// The records of a reader as rows of the table.
class ImportRows final : public RowSource {
 public:
  static constexpr std::array fields = {Column::PERIOD, Column::N1,       Column::N2,
                                        Column::DATUM,  Column::ORIGINAL, Column::DATE,
                                        Column::COMMENT};

  ImportRows(ImportReader& reader, Busy& busy) : reader_(reader), busy_(busy) {}

  bool Suivante(std::span<Cell> cells) override {
    line_ = 0;
    do {
      if (!reader_.Suivant(record_)) return false;
      if (record_.dropped != 0) ++dropped_;
      DitAvance();
    } while (record_.dropped != 0);
    RefuseTropLong(record_);
    line_ = record_.line;
    const ImportedRow& row = record_.row;
    cells[0] = Cell::Of(std::int64_t{row.period});
    cells[1] = CelluleDe(row.n1);
    cells[2] = CelluleDe(row.n2);
    cells[3] = Cell::Of(std::string_view(row.datum));
    cells[4] = CelluleDe(row.original);
    cells[5] = CelluleDe(row.date);
    cells[6] = CelluleDe(row.comment);
    return true;
  }

  std::int64_t Ecartees() const { return dropped_; }

  /// A failure that does not say where it happened gets the line of the row in hand.
  TalpenaError SurLaLigne(const TalpenaError& error) const {
    return line_ == 0 || error.words().line != 0 ? error : error.SurLigne(line_);
  }

 private:
  void DitAvance() {
    constexpr int step = 256, whole = 1000;
    busy_.Bat();
    if (++read_ % step == 0) busy_.Avance(static_cast<int>(whole * reader_.Part()), whole);
  }

  ImportReader& reader_;
  Busy& busy_;
  ImportRecord record_;
  std::int64_t line_ = 0;  ///< of the row that the table is given; 0 while reading
  std::int64_t read_ = 0;
  std::int64_t dropped_ = 0;
};

std::vector<Bookmark> SignetsDepuis(DataControl& data, std::int64_t position) {
  std::vector<Bookmark> names;
  if (position == data.recordset().RecordCount()) return names;
  names.reserve(static_cast<std::size_t>(data.recordset().RecordCount() - position));
  const auto rows = data.Clone();
  for (rows->SetAbsolutePosition(position); !rows->EOF_(); rows->MoveNext()) {
    names.push_back(rows->GetBookmark());
  }
  return names;
}

void Marque(CommandContext c, const std::string& name) {
  Edition edition(c.document(), name);
  edition.MarqueModifie();
  edition.Valide();
}

/// The grid stands on the first of the new rows, and they are chosen.
void MontreAjoutees(CommandContext c, const ImportedRows& rows) {
  if (rows.added.empty()) return;
  DataControl& data = c.document().Data1;
  data.recordset().SetBookmark(rows.added.front());
  data.SignalePosition();
  c.vue.PlaceFocusGrille();
  c.vue.ChoisitLignes(rows.added);
}

void Ajoute(CommandContext c, const std::string& name, ImportReader& reader, ImportedRows& rows) {
  Busy busy(c.attente);
  busy.Message(Texte(c.state.Langue, MsgId::Importation)).Barre().Annulable(Annulation::Boucle);
  ImportRows source(reader, busy);
  Edition edition(c.document(), name);
  edition.LaisseNonModifie();
  try {
    edition.AjouteLignes(ImportRows::fields, source);
  } catch (const TalpenaError& error) {
    rows.dropped = source.Ecartees();
    throw source.SurLaLigne(error);
  }
  rows.dropped = source.Ecartees();
  edition.Valide();
}

void DitAbandon(CommandContext c, const std::string& name, const ImportedRows& rows) {
  if (rows.added.empty()) return;
  Marque(c, name);
  const auto count = static_cast<std::int64_t>(rows.added.size());
  c.io.dialogues.Demande({.text = Remplace(Texte(c.state.Langue, MsgId::ImportAbandonne), "%1",
                                           NombreGroupe(c.state.Langue, count))});
}

/// A bookmark is the row's key, and the rows of an import follow each other.
std::int64_t SansPoint(Document& document, const ImportedRows& rows) {
  if (rows.added.empty()) return 0;
  return document.Base()
      .OpenRecordset("SELECT COUNT(*) FROM TALPENA WHERE Counter >= " + Str(rows.added.front()) +
                     " AND Counter <= " + Str(rows.added.back()) + " AND LATITUDE IS NULL")
      ->Get(0)
      .integer;
}

}  // namespace

void AjouteImportees(CommandContext c, const std::string& name, ImportReader& reader,
                     ImportedRows& rows) {
  LieTable(c.document());
  c.document().DitResultat({});  // that of an import before
  DataControl& data = c.document().Data1;
  const std::int64_t before = data.recordset().RecordCount();
  try {
    Ajoute(c, name, reader, rows);
    rows.added = SignetsDepuis(data, before);
  } catch (const TalpenaError& error) {
    rows.added = SignetsDepuis(data, before);
    MontreAjoutees(c, rows);
    if (error.number() == ErrorNumber::Cancelled) DitAbandon(c, name, rows);
    throw;
  }
}

void TermineImport(CommandContext c, const std::string& name, const ImportedRows& rows) {
  if (c.document().FiltreActif()) c.document().MontreLignes(RowsShown::Toutes());
  AjusteDegres(c, SansMaille, SansMaille, SansPlace::Tues);
  Marque(c, name);
  c.document().DitResultat(AvisImport(c.state.Langue, static_cast<std::int64_t>(rows.added.size()),
                                      rows.dropped, SansPoint(c.document(), rows)));
  MontreAjoutees(c, rows);
}

bool ImporteTout(CommandContext c, const std::string& name, ImportReader& reader,
                 ImportedRows& rows) {
  try {
    AjouteImportees(c, name, reader, rows);
  } catch (const TalpenaError& error) {
    if (error.number() == ErrorNumber::Cancelled) return false;
    Bip(c.state, c.io);
    AfficheErreur(c.io, error.number(), DescriptionEchec(c.state.Langue, error, rows));
    return false;
  }
  TermineImport(c, name, rows);
  return true;
}

std::string DescriptionEchec(std::int16_t langue, const TalpenaError& error,
                             const ImportedRows& rows) {
  const auto added = static_cast<std::int64_t>(rows.added.size());
  return DescriptionErreur(langue, error) + "\n" +
         Remplace(Texte(langue, MsgId::LignesAvantEchec), "%1", NombreGroupe(langue, added));
}

std::string AvisImport(std::int16_t langue, std::int64_t added, std::int64_t dropped,
                       std::int64_t withoutPoint) {
  std::string text = Texte(langue, MsgId::ImportFini);
  text = Remplace(text, "%1", NombreGroupe(langue, added));
  text = Remplace(text, "%2", NombreGroupe(langue, dropped));
  return Remplace(text, "%3", NombreGroupe(langue, withoutPoint));
}

}  // namespace talpena
