#include "store/filter.h"

#include "common/grouped_number.h"
#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

std::int64_t LignesDeLaTable(Database& database) {
  return database.OpenRecordset("SELECT COUNT(*) FROM TALPENA")->Get(0).integer;
}

}  // namespace

NombresDeLignes CompteLignes(Document& document) {
  if (!document.Data1.EstLie()) return {};
  const std::int64_t shown = document.Data1.recordset().RecordCount();
  if (!document.FiltreActif()) return {shown, shown};
  return {shown, LignesDeLaTable(document.Base())};
}

std::string TexteFiltre(Document& document, std::int16_t langue) {
  if (!document.FiltreActif()) return {};
  return AvecNombres(langue, Texte(langue, MsgId::LignesAffichees), CompteLignes(document));
}

std::string AvecNombres(std::int16_t langue, std::string_view text, NombresDeLignes lignes) {
  return Remplace(Remplace(text, "%1", NombreGroupe(langue, lignes.montrees)), "%2",
                  NombreGroupe(langue, lignes.toutes));
}

TableEntiere::TableEntiere(Document& document) : document_(document) {
  if (!document.FiltreActif()) return;
  const RowsShown before = document.LignesMontrees();
  document.MontreLignes(RowsShown::Toutes());
  filtered_ = before;
}

TableEntiere::~TableEntiere() {
  if (!filtered_) return;
  try {
    document_.MontreLignes(*filtered_);
  } catch (const TalpenaError&) {  // the whole table stays on show
  }
}

}  // namespace talpena
