// Base ids of the imports: their windows, what they tell beforehand and afterwards.
#pragma once

namespace talpena::MsgId {

// Text import.
inline constexpr int PremierTypeImport = 300;  // "Decimal Degrees", types 0 to 15
inline constexpr int ErreurImport = 660;       // "An error occured during importation"
inline constexpr int PremiereStructure = 690;  // ..."
inline constexpr int StructureXY = 697;        // "Period,X,Y,Number_1,Number_2,Date,Comment"
inline constexpr int FichierAImporter = 700;   // "File to import"
inline constexpr int TypesCoord = 701;         // "Types of coordinates"
inline constexpr int StructureAttendue = 702;  // "Expected structure"
inline constexpr int TroisLignes = 703;        // "3 first lines of file to be imported"

// Imports.
inline constexpr int MgrsTropCourt = 569;     // "The reference has fewer than five ..."
inline constexpr int GrilleTropCourte = 570;  // "The reference has fewer than four ..."
inline constexpr int Importation = 571;       // "Importing..."
inline constexpr int ImportAbandonne = 572;   // "The import was ended: the first %1 ..."
inline constexpr int LignesAvantEchec = 573;  // "Rows added before it: %1."
inline constexpr int ImportFini = 574;        // "Import: %1 rows added, %2 dropped, %3 ..."

inline constexpr int ListeCoupee = 575;   // "An end-of-file character (1A) stands in line %1 ..."
inline constexpr int SortHorsPage = 576;  // "characters that a .deg file cannot hold: “%1” ..."
inline constexpr int RemedePasTexte = 577;   // "This seems to be no text file but one of ..."
inline constexpr int ImportEchangees = 578;  // "... latitude and longitude seem to be exchanged"

// Waypoints that do not enter, and what the rows of the others lack.
inline constexpr int PointNonCoche = 603;      // "not checked"
inline constexpr int PointSansPosition = 604;  // "no position"
inline constexpr int ColonneDateAbsente = 609;  // "This file has no column “%1”, so the rows ..."
inline constexpr int ColonneAltitudeAbsente = 610;  // the same of the altitude
inline constexpr int IrlandaisUneLettre = 612;  // "Irish references need two letters, IO for ..."
// What is odd about waypoints that enter.
inline constexpr int DoutePosition = 490;    // "no position where one should stand"
inline constexpr int DouteMinutes = 491;     // "its minutes or seconds are more than 60"
inline constexpr int DouteHemisphere = 492;  // "its position has no N or S, or no E or W"
inline constexpr int DouteDate = 493;        // "its date is not written as 17-APR-02"
inline constexpr int DouteMois = 494;        // "the month of its date is not known, so it ..."
inline constexpr int PointsAVoir = 495;      // "Rows to look at: %1; the first, line %2 ...: %3."
inline constexpr int WptSansDatum = 496;     // "The datum line of the file lacks numbers: ..."
inline constexpr int DouteLigne = 673;       // "the line does not begin with W: it is no ..."
inline constexpr int ConseilLigne = 674;     // "This line does not begin with W: it is no ..."
inline constexpr int PointsEntres = 499;     // "Waypoints that have come in and are no longer ..."

// Waypoints that come in once more.
inline constexpr int PointsDejaImportes = 671;  // "Waypoints of this file have been imported ..."
inline constexpr int WptDejaImporte = 672;      // the same as a question
inline constexpr int PointsSansNombres = 675;   // "Numbers 1 and 2 of these rows stay empty: ..."

// What an import would do.
inline constexpr int Repetition = 450;         // "What this import would do"
inline constexpr int RepetitionComptes = 451;  // "Rows that enter: %1; left out: %2; ..."
inline constexpr int RepetitionLecture = 452;  // "Reading: %1 %."
inline constexpr int RepetitionArret = 453;    // "The import would end on the way, and ...: %1"
inline constexpr int RepetitionConseil = 454;  // "Read as %1, %2 of %3 rows lie in the area ..."
inline constexpr int RepetitionConseilDebut = 455;  // "Read as %1, %2 of the first %3 rows ..."
inline constexpr int RepetitionLigne = 456;         // "Line"
inline constexpr int RepetitionSort = 457;          // "What becomes of it"
inline constexpr int SortEntre = 458;               // "enters"
inline constexpr int SortSansPoint = 459;           // "enters without a point: %1"
inline constexpr int SortLoin = 460;                // "enters, far from all others"
inline constexpr int SortOmise = 461;               // "left out: %1"
inline constexpr int SortFin = 462;                 // "the import ends here: %1"
inline constexpr int SansOriginal = 463;            // "it has no original coordinates"
inline constexpr int SansSonDatum = 464;            // "the catalogue lacks the datum %1"
inline constexpr int OriginalSansLieu = 465;        // "its coordinates name no place"
inline constexpr int ProblemeSuivant = 466;         // "Next problem"
inline constexpr int RepetitionCopie = 467;         // "Copy"
inline constexpr int RepetitionNonGardees = 468;    // "Rows counted but no longer listed: %1."
inline constexpr int NoteDatum = 469;               // "These rows get the datum %1 (%2)."
inline constexpr int NoteDatumAbsent = 470;  // "The catalogue lacks the datum %1 of these ..."
inline constexpr int NoteBelge = 471;  // "Every import gives rows of the French ... BEL72 ..."
inline constexpr int RepetitionSansFichier = 472;  // "Choose a file: what the import would do ..."
inline constexpr int RepetitionSansDatum =
    473;  // "The catalogue lacks the datum of the open file ..."
inline constexpr int ImportationFenetre = 474;  // "Text import"
inline constexpr int SortSansPlace = 475;       // "no room for its numbers: a line of ..."
inline constexpr int SortSurPlusieurs = 476;    // "quotes over several lines of the list; ..."
inline constexpr int RepetitionAVoir = 477;     // "Rows that want a look: %1."
inline constexpr int RepetitionDejaImportee =
    484;                                         // "This list has been imported into the open ..."
inline constexpr int RepetitionSansFiche = 485;  // "The list holds no record, only empty lines ..."
inline constexpr int SortNul = 486;              // "NUL characters among its texts; ..."
inline constexpr int RepetitionArretDebut = 487;  // "The import would end with its first row: %1"

// What can be done about the record that ends an import.
inline constexpr int RemedeEnTete = 478;      // "If this line is a heading, put * before it ..."
inline constexpr int RemedeSeparateur = 479;  // "Commas alone part fields; replace ..."
inline constexpr int RemedeUtf16 = 480;       // "This file is written in UTF-16; save it as ..."
inline constexpr int RemedeGuillemets = 481;  // "What stands behind a closing quote is dropped ..."
inline constexpr int RemedeChamps = 482;      // "Every line needs exactly the fields ..."
inline constexpr int RemedeCoupee = 401;      // "An end-of-file character (1A) ends ..."
inline constexpr int RemedeEtoiles = 489;     // "Of two lines in a row that begin with * ..."

// Waypoint imports: options.
inline constexpr int OptionsGarmin = 630;     // "Options of the waypoint import"
inline constexpr int Altitude = 631;          // "Altitude"
inline constexpr int GarminSans = 632;        // "None", and the two other ways behind it
inline constexpr int PremierCaractere = 635;  // "First character:"
inline constexpr int NombreCaracteres = 636;  // "Number of characters:"
inline constexpr int GarminFormat = 637;      // "Written as:"
inline constexpr int GarminExemple = 638;     // "Sample:"

// Waypoint imports: remarks, one line each.
inline constexpr int PositionsUtmNonLues = 639;  // "Positions on grid UTM are not read: ..."
inline constexpr int GarminSansDatum = 641;      // "No datum is known for this file: ..."
inline constexpr int SiecleWpt = 642;            // "The dates of .wpt files are taken as 19xx: ..."

inline constexpr int PointsDuFichier = 643;  // "Waypoints of the file"

}  // namespace talpena::MsgId
