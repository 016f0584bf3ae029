// Base ids of the texts of statistics and charts.
#pragma once

namespace talpena::MsgId {

inline constexpr int MoisCourts = 269;            // "Jan Feb Mar ..."
inline constexpr int TableEntiereComptee = 270;   // "All %2 rows of the table are counted, ..."
inline constexpr int LignesToutes = 271;          // "Rows counted: %1 (all)"
inline constexpr int LignesDuFiltre = 272;        // "Rows counted: %1 of %2 (filter)"
inline constexpr int LignesChoisies = 273;        // "Rows counted: %1 (selected)"
inline constexpr int Enregistrements = 274;       // "Records"
inline constexpr int PointsNouveaux = 275;        // "New points"
inline constexpr int Annee = 276;                 // "Year"
inline constexpr int SansPeriode = 277;           // "No period"
inline constexpr int GraphiqueFenetre = 278;      // "Chart"
inline constexpr int GraphiqueCopier = 279;       // "Cop&y"
inline constexpr int GraphiqueEnregistrer = 280;  // "&Save picture..."
inline constexpr int GraphiqueNombres = 281;      // "&Numbers (CSV)..."
inline constexpr int GraphiqueImprimer = 282;     // "&Print..."
inline constexpr int MenuResume = 283;            // "&Summary"
inline constexpr int MenuDecades = 284;           // "Phenology by &ten-day steps"
inline constexpr int MenuAnnees = 285;            // "&Records through the years"
inline constexpr int ResumeColonnes = 286;        // "Rows|Value|Number|Null|..."
inline constexpr int ToutesLignes = 287;          // "All rows"
inline constexpr int PeriodeN = 288;              // "Period %1"
inline constexpr int SexeN = 289;                 // "Sex %1"
inline constexpr int SansSexe = 290;              // "No sex"
inline constexpr int Mois = 291;                  // "Month"
inline constexpr int GraphiqueVide = 292;         // "No row has a value for this chart."
inline constexpr int GraphiqueClavier = 293;      // "Arrow keys go from point to point ..."
inline constexpr int FiltreImages = 294;          // "PNG picture (*.png)|*.png|..."
inline constexpr int FiltreCsv = 295;             // "Numbers (*.csv)|*.csv"
inline constexpr int LignesSansDate = 297;        // "%1 of them have no date that ..."
inline constexpr int FinDeNomInconnue = 298;  // "The ending of the name says what is written ..."

}  // namespace talpena::MsgId
