// Columns of an Access table (Jet 4): their types and where their values stand in a row.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/foreign/jet_values.h"
#include "platform/table_engine.h"

namespace talpena::jet {

struct Column {
  std::string name;
  JetType type = JetType::Text;
  std::size_t bytes = 0;  ///< of a value; the most of them where they vary, 0 for no bound
  bool autoNumber = false;
  bool userId = false;          ///< of the catalogue: who owns something, or may do something
  std::size_t fixedOffset = 0;  ///< behind the row's head; of a value of one width
  std::size_t variable = 0;     ///< values that vary in length before it

  bool Varie() const;
  bool EstLongue() const { return type == JetType::Memo || type == JetType::Ole; }
};

/// The columns of a table in their order. TooManyFields (3190) above 255.
std::vector<Column> DisposeColonnes(const std::vector<FieldDef>& fields);
/// The same for columns of the catalogue, whose places are filled in.
void DonnePlaces(std::vector<Column>& columns);

/// How many of them vary in length.
std::size_t CompteVariables(const std::vector<Column>& columns);

}  // namespace talpena::jet
