// Saved queries of Access files: the rows of MSysQueries as a SELECT of the engine's dialect. Pure
// functions.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/foreign/jet_answer.h"

namespace talpena {

/// What a row of MSysQueries tells of its query.
enum class QueryAttribute : std::uint8_t {
  Kind = 1,       ///< by the flag: 1 select, 9 union, ...
  Parameter = 2,  ///< the first name; whoever asks for one gets no answer from the engine
  Options = 3,    ///< the flag's bits, see jet_queries.cpp; the first name counts the rows of TOP
  Database = 4,   ///< another file, by the first name
  Source = 5,     ///< a table or query and its alias; or a SELECT as expression with its alias
  Column = 6,     ///< an expression and its alias
  Join = 7,       ///< two sources, a condition; by the flag: 1 inner, 2 left, 3 right
  Where = 8,
  GroupBy = 9,
  Having = 10,
  OrderBy = 11,  ///< an expression; the first name is "D" for a falling order
};

struct QueryRow {
  std::uint32_t objet = 0;  ///< which query it belongs to
  int attribute = 0;        ///< a QueryAttribute or any other number, which means nothing here
  std::string order;        ///< rows of one attribute stand in the order of these bytes
  std::string name1;
  std::string name2;
  std::string expression;
  int flag = 0;
};

namespace QueryKind {
inline constexpr int Union = 0x80;  ///< beside QueryDef::Select
}

/// The text of a query whose rows these are, in any order.
///
/// @param kind  as QueryDef has it
/// @return a SELECT, or several with UNION between them; empty for a query that changes something
/// or
///         is made of something else, and where the rows do not make sense. Whether the engine can
///         run it is another matter: it names what it does not know.
std::string TexteRequete(int kind, std::vector<QueryRow> rows);

/// The rows of the table MSysQueries. A table that lacks one of the columns has none, and what is
/// beyond the largest of files is left out: 100,000 rows, 65,536 bytes of a text.
std::vector<QueryRow> LitLignesRequetes(const TableDef& table, RowSource& rows);

/// Gives each of the queries the text that its rows make.
void DonneTextes(std::vector<RequeteJet>& queries, const std::vector<QueryRow>& rows);

}  // namespace talpena
