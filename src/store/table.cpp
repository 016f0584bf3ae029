#include "store/table.h"

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
                  {.name = "ORIGINAL", .type = FieldType::Text, .size = 24},
                  {.name = "DATE", .type = FieldType::Text, .size = 10, .allowZeroLength = true},
                  {.name = "COMMENT", .type = FieldType::Memo, .allowZeroLength = true}},
       .indexes = {{.name = "PERIOD", .fields = {"PERIOD"}}}});
}

std::array<std::string, Column::GridCount> TitresColonnes(const SettingsState& state) {
  const auto texte = [&state](int id) { return Texte(state.Langue, id); };
  return {texte(130), texte(131), texte(132), state.LabelNumeric1, state.LabelNumeric2,
          "Sex",      texte(135), texte(136), texte(137),          texte(138)};
}

}  // namespace talpena
