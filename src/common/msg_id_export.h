// Base ids of what the exports say beside the captions of OptionsExport (common/msg_id.h).
#pragma once

namespace talpena::MsgId {

inline constexpr int LignesEcrites = 661;        // "%1 of %2 rows written"
inline constexpr int ToutesLignesEcrites = 488;  // "%1 rows written"
inline constexpr int ExportXY = 662;             // "X and Y:"
inline constexpr int ExportSansSud = 663;        // "Southern latitudes lose their sign ..."
inline constexpr int ExportDatumXY = 664;        // "X and Y are computed as if the latitude ..."
inline constexpr int ExportJusquIci = 665;       // "The file holds the rows before this one."
inline constexpr int ExportSansFichier = 666;    // "No file was written."
inline constexpr int ExportSurOuvert = 667;      // "This is the distribution that is open: ..."

}  // namespace talpena::MsgId
