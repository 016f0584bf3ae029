#include "store/table.h"

#include "common/msg_id.h"
#include "common/string_table.h"

namespace talpena {

void CreateTable(Database& database) {
  database.CreateTable(
      {.name = "TALPENA",
       .fields = {{.name = "Counter", .type = FieldType::Long, .autoIncrement = true},
                  {.name = "PERIOD", .type = FieldType::Integer},
                  {.name = "LATITUDE", .type = FieldType::Single},
                  {.name = "LONGITUDE", .type = FieldType::Single},
                  {.name = "N1", .type = FieldType::Long},
                  {.name = "N2", .type = FieldType::Long},
                  {.name = "SEX", .type = FieldType::Text, .size = 1, .allowZeroLength = true},
                  {.name = "DATUM", .type = FieldType::Text, .size = 5},
                  {.name = "ORIGINAL", .type = FieldType::Text, .size = Column::LargeurOriginal},
                  {.name = "DATE",
                   .type = FieldType::Text,
                   .size = Column::LargeurDate,
                   .allowZeroLength = true},
                  {.name = "COMMENT", .type = FieldType::Memo, .allowZeroLength = true}},
       .indexes = {{.name = "PERIOD", .fields = {"PERIOD"}}}});
}

std::array<std::string, Column::GridCount> TitresColonnes(const SettingsState& state) {
  const auto texte = [&state](int id) { return Texte(state.Langue, id); };
  return {texte(MsgId::NumeroPeriode), texte(MsgId::Latitude),        texte(MsgId::Longitude),
          state.LabelNumeric1,         state.LabelNumeric2,           "Sex",
          texte(MsgId::Datum),         texte(MsgId::CoordOriginales), texte(MsgId::Date),
          texte(MsgId::Commentaires)};
}

}  // namespace talpena
