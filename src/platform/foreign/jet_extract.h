// What the child process does: walks an Access file with libmdb and hands its bytes on, as they
// stand in the file, for the parent to check and decode.
//
// The answer to ExtraitTables is, for each user table, 'T', its page, its attributes, its name, the
// number of its rows and that of its columns; for each column its type, size (bytes), scale,
// auto-number flag and name. For each system table it is 'S' with page, attributes and name, and
// for each saved query 'Q' with the last 24 bits of its number in the page's place. To
// ExtraitLignes, for each row, 'R', the length of all that follows, and for each column the length
// of its value and the value; Null is the length absentJet, a Boolean one byte. To ExtraitTable it
// is the definition of one table, named "?", and its rows behind that. Between any two of these a
// 'V' may stand, which means nothing but that the work goes on. Both end
// with 'F': an answer without it comes from a damaged file. Lengths, pages and counts are 32 bits
// wide in the machine's own order.
//
// No page and no byte of a sound file is part of two tables or of two rows, so an answer is never
// larger than the file that it comes from: what would be ends the work, as all that is damaged
// does.
#pragma once
#include <cstdint>

#include "platform/foreign/isolated_process.h"
#include "platform/foreign/jet_limits.h"

namespace talpena {

enum class TrameJet : char {
  Table = 'T',
  Systeme = 'S',
  Requete = 'Q',
  Ligne = 'R',
  Vie = 'V',
  Fin = 'F'
};
inline constexpr std::uint32_t absentJet = 0xFFFFFFFF;

/// The file, open for reading, and its size when it was checked.
struct FichierJet {
  int fd = -1;
  std::size_t taille = 0;
};

void ExtraitTables(const FichierJet& file, const LimitesJet& limits, Tuyau& out);

/// @param page  that ExtraitTables gave for the table
void ExtraitLignes(const FichierJet& file, std::uint32_t page, const LimitesJet& limits,
                   Tuyau& out);

/// The definition of a table that is not the user's, and its rows.
///
/// @param page  that ExtraitTables gave for the system table
void ExtraitTable(const FichierJet& file, std::uint32_t page, const LimitesJet& limits, Tuyau& out);

}  // namespace talpena
