// The table of an open distribution, for tests and benchmarks that stand below the store.
#pragma once
#include "platform/table_engine.h"

namespace talpena::test {

inline TableDef TalpenaDef() {
  TableDef table;
  table.name = "TALPENA";
  table.fields = {{"Counter", FieldType::Long, 0, false, true, false},
                  {"PERIOD", FieldType::Integer},
                  {"LATITUDE", FieldType::Single},
                  {"LONGITUDE", FieldType::Single},
                  {"N1", FieldType::Long},
                  {"N2", FieldType::Long},
                  {"SEX", FieldType::Text, 1, true},
                  {"DATUM", FieldType::Text, 5},
                  {"ORIGINAL", FieldType::Text, 24},
                  {"DATE", FieldType::Text, 10, true},
                  {"COMMENT", FieldType::Memo, 0, true}};
  table.indexes = {{"PERIOD", {"PERIOD"}, false, false}};
  return table;
}

}  // namespace talpena::test
