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

// Exports to databases.
inline constexpr int LignesRelues = 581;        // "%1 rows written and read back"
inline constexpr int LignesReluesSur = 582;     // "%1 of %2 rows written and read back"
inline constexpr int LignesNonRelues = 583;     // "%1 rows written, not read back"
inline constexpr int LignesNonReluesSur = 584;  // "%1 of %2 rows written, not read back"
inline constexpr int ValeurRelue = 585;       // "Row %1, column “%2”: the file gives back ..."
inline constexpr int NombreRelu = 586;        // "The file gives back %1 rows where %2 were ..."
inline constexpr int RelectureEchouee = 587;  // "The rows were written, but the file could ..."
inline constexpr int RangeeFautive = 588;     // "Row %1: %2"
inline constexpr int ExportJusqualors = 589;  // "The file holds the rows that were written ..."
inline constexpr int MemoCoupe = 590;         // "The title and the comment of the file are ..."
inline constexpr int MenuExpXlsx = 591;       // "Excel workbook (.xlsx)"
inline constexpr int TitreEtCommentaire = 592;  // "Title and comment"
inline constexpr int Relecture = 593;           // "Reading back..."
inline constexpr int TableDansDossier = 594;    // "There is a table “%1” in this folder ..."
inline constexpr int JournalACote = 404;        // "“%1” lies beside this place, so another ..."
inline constexpr int AnciensRendus = 405;    // "An export into this folder was ...; the former ..."
inline constexpr int NouveauxPlaces = 408;   // "An export into this folder was ... while its ..."
inline constexpr int ExportPremieres = 409;  // "The file holds the first %1 of %2 rows."

}  // namespace talpena::MsgId
