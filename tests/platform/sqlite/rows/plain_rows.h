// Work over many rows done row by row, by nothing but a cursor: what the engine's own ways are held
// against.
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "platform/table_engine.h"

namespace talpena::plain {

std::int64_t ModifieLignes(Recordset& rows, const RowPass& pass, RowChange& change);
std::int64_t RemplitLignes(Recordset& rows, std::span<const int> fields,
                           std::span<const Cell> values, const Recordset::Progress& avance);
std::int64_t RemplaceValeur(Recordset& rows, int field, const Cell& before, const Cell& value);
std::int64_t SupprimeLignes(Recordset& rows, std::span<const Bookmark> chosen);
void LitNombres(Recordset& rows, std::span<const int> fields, const std::vector<Bookmark>* only,
                const NumberVisitor& visit);

}  // namespace talpena::plain
