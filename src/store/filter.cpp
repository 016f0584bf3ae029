#include "store/filter.h"

#include "common/grouped_number.h"
#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr std::string_view filteredSource = "SELECT * FROM TALPENA WHERE ";

std::int64_t LignesDeLaTable(Database& database) {
  return database.OpenRecordset("SELECT COUNT(*) FROM TALPENA")->Get(0).integer;
}

}  // namespace

std::string SourceFiltree(std::string_view condition) {
  return std::string(filteredSource) + std::string(condition);
}

std::string ConditionDuFiltre(const DataControl& data) {
  if (!FiltreActif(data)) return {};
  return data.RecordSource.substr(filteredSource.size());
}

bool FiltreActif(const DataControl& data) {
  return data.EstLie() && data.RecordSource.starts_with(filteredSource);
}

NombresDeLignes CompteLignes(StoreState& state) {
  if (!state.Data1.EstLie()) return {};
  const std::int64_t shown = state.Data1.recordset().RecordCount();
  if (!FiltreActif(state.Data1)) return {shown, shown};
  return {shown, LignesDeLaTable(*state.WorkingDb)};
}

std::string TexteFiltre(StoreState& state) {
  if (!FiltreActif(state.Data1)) return {};
  return AvecNombres(state.Langue, Texte(state.Langue, MsgId::LignesAffichees),
                     CompteLignes(state));
}

std::string AvecNombres(std::int16_t langue, std::string_view text, NombresDeLignes lignes) {
  return Remplace(Remplace(text, "%1", NombreGroupe(langue, lignes.montrees)), "%2",
                  NombreGroupe(langue, lignes.toutes));
}

TableEntiere::TableEntiere(DataControl& data) : data_(data) {
  if (!FiltreActif(data)) return;
  const std::string source = data.RecordSource;
  data.ChangeSource(std::string(TouteLaTable));
  filtered_ = source;
}

TableEntiere::~TableEntiere() {
  if (filtered_.empty()) return;
  try {
    data_.ChangeSource(filtered_);
  } catch (const TalpenaError&) {  // the whole table stays on show
  }
}

}  // namespace talpena
