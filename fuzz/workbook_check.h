// Reads every sheet of a workbook: damage ends in its one failure, all else holds.
#pragma once
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "check.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/excel/workbook_database.h"

namespace talpena::fuzz {

inline void VerifieLignes(ForeignDatabase& database, const TableDef& table) {
  constexpr int most = 300;
  std::vector<Cell> cells(table.fields.size());
  const auto rows = database.Rows(table.name);
  for (int i = 0; i < most && rows->Suivante(cells); ++i) {
    Verifie(i < database.NombreLignes(table.name));
    for (std::size_t f = 0; f < cells.size(); ++f) {
      const FieldType type = table.fields[f].type;
      const bool text = type == FieldType::Text || type == FieldType::Memo;
      Verifie(cells[f].EstNull() || text == (cells[f].kind == Cell::Kind::Text));
      if (cells[f].kind == Cell::Kind::Text) Verifie(EstUtf8(cells[f].text));
    }
  }
}

inline void VerifieClasseur(const std::function<std::unique_ptr<excel::Workbook>()>& open) {
  try {
    const auto database = excel::CreeBaseDeClasseur(open());
    for (const TableDef& table : database->Tables()) {
      std::set<std::string> names;
      for (const FieldDef& field : table.fields) {
        Verifie(!field.name.empty() && EstUtf8(field.name));
        Verifie(names.insert(Majuscules(field.name)).second);
      }
      VerifieLignes(*database, table);
    }
  } catch (const TalpenaError& error) {
    Verifie(error.number() == ErrorNumber::UnrecognizedFormat ||
            error.number() == ErrorNumber::NotSupported ||
            error.number() == ErrorNumber::TooManyFields);
  }
}

}  // namespace talpena::fuzz
