#include "store/deg_writer.h"

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/busy.h"
#include "store/deg_file.h"
#include "store/deg_row_writer.h"
#include "store/save_file.h"
#include "store/save_questions.h"

namespace talpena {
namespace {

/// The rows in the order of their groups, on show before they are written: while a statement is
/// under way the grid reads none.
void MetEnGroupes(Document& document, DegSink& sink, Busy& busy) {
  sink.Tente([&] {
    document.Relie(RowsShown::Groupables());
    busy.Respire();
  });
}

/// The data control's rows, from their own cursor; empty when there are none to write.
std::unique_ptr<Recordset> PrendLignes(Document& document, DegSink& sink, WriteMode mode,
                                       Busy& busy) {
  if (!document.Data1.EstLie()) return nullptr;
  if (mode == WriteMode::Grouped) MetEnGroupes(document, sink, busy);
  std::unique_ptr<Recordset> rows;
  sink.Tente([&] {
    rows = document.Data1.Clone();
    rows->MoveLast();
    if (rows->RecordCount() < 1) rows.reset();
  });
  return rows;
}

}  // namespace

void EcritDeg(CommandContext c, const std::string& fileName, WriteMode mode, const SavePlan& plan) {
  Document& document = c.document();
  SaveFile file(document.Fichier, c.state, c.io, fileName, plan);
  SaveQuestions sink(c.state, c.io, c.attente, file);
  try {
    Busy busy(c.attente);
    const std::unique_ptr<Recordset> rows = PrendLignes(document, sink, mode, busy);
    if (!rows) return;
    sink.Tente([&] { busy.Message(Texte(c.state.Langue, MsgId::Sauvegarde) + "\n" + fileName); });
    sink.TenteJusquaReussite([&] { file.Ouvre(); });
    EcritEnTete(document.Entete(), c.io.clock.AnneeCourante(), sink);
    busy.Barre();
    DegRowWriter lines(c.state, *rows, sink);
    mode == WriteMode::Grouped ? lines.EcritGroupees() : lines.EcritUneParUne();
    busy.Montre(100);
    sink.TenteJusquaReussite([&] { file.Termine(); });
  } catch (const SauvegardeRefusee&) {
    file.Tronque();
    document.ChangeAvis(file.DitGarde());
    return;
  }
  document.OublieModifications();
  Bip(c.state, c.io);
}

}  // namespace talpena
