// Base ids of the string table that the code names; those of the menus, of failures,
// of imports and of exports have files of their own.
#pragma once

namespace talpena::MsgId {

// Title lines above the grid.
inline constexpr int Titre = 121;             // "Title"
inline constexpr int CommentaireTitre = 122;  // "Title comment"

// Column headings of the grid.
inline constexpr int NumeroPeriode = 130;    // "Period number"
inline constexpr int Latitude = 131;         // "Latitude"
inline constexpr int Longitude = 132;        // "Longitude"
inline constexpr int Datum = 135;            // "Datum"
inline constexpr int CoordOriginales = 136;  // "Original coordinates"
inline constexpr int Date = 137;             // "Date"
inline constexpr int Commentaires = 138;     // "Comments"

// Period definition.
inline constexpr int PeriodesOk = 100;             // "Ok"
inline constexpr int PeriodesAnnuler = 101;        // "Cancel"
inline constexpr int PeriodesFenetre = 123;        // "Periods"
inline constexpr int UnePeriode = 124;             // "One period"
inline constexpr int DeuxPeriodes = 125;           // "Two periods"
inline constexpr int TroisPeriodes = 126;          // "Three periods"
inline constexpr int LibelleAnneeCharniere = 127;  // "Switch year:"
inline constexpr int LibellePremiereAnnee = 128;   // "First switch year:"
inline constexpr int LibelleSecondeAnnee = 129;    // "Second switch year:"

// Adjusting.
inline constexpr int AjusterFenetre = 150;     // "Coordinates adjustment"
inline constexpr int AucunAjustement = 151;    // "No adjustment", and seven meshes behind it
inline constexpr int AjusterA = 159;           // "Adjust to..."
inline constexpr int GrilleUtm = 160;          // "UTM grid"
inline constexpr int GrilleBritannique = 161;  // "British National Grid"
inline constexpr int GrilleIrlandaise = 162;   // "Irish TM Grid"
inline constexpr int Ok = 163;                 // "Ok"
inline constexpr int Annuler = 164;            // "Cancel"
inline constexpr int Maille = 165;             // "Mesh"
inline constexpr int MailleLatitudes = 166;   // "Adjust LATITUDES each ... (in decimal degrees ..."
inline constexpr int AjusterDegres = 167;     // "Adjusting to decimal degrees Greenwich "
inline constexpr int MailleLongitudes = 168;  // "Adjust LONGITUDES each ... (in decimal ..."

// Find.
inline constexpr int TexteAChercher = 170;  // "Enter text to find"
inline constexpr int Chercher = 171;        // "Find"

// Export options and sort list.
inline constexpr int ExportFenetre = 180;          // "Export options"
inline constexpr int ChampsInclus = 181;           // "Include fields:"
inline constexpr int Periode = 182;                // "Period"
inline constexpr int ExportLatitude = 183;         // "Latitude"
inline constexpr int ExportLongitude = 184;        // "Longitude"
inline constexpr int Nombre1 = 185;                // "Number 1"
inline constexpr int Nombre2 = 186;                // "Number 2"
inline constexpr int Ellipsoide = 187;             // "Ellipsoid"
inline constexpr int ExportCoordOriginales = 188;  // "Original coordinates"
inline constexpr int ChampLibre = 189;             // "Free field"
inline constexpr int ExportOk = 190;               // "Ok"
inline constexpr int ExportAnnuler = 191;          // "Cancel"

// Record editor.
inline constexpr int EditionCoord = 200;         // "Coordinates edition"
inline constexpr int EditionPeriode = 201;       // "Period:"
inline constexpr int EditionLatitude = 202;      // "Latitude:"
inline constexpr int EditionLongitude = 203;     // "Longitude:"
inline constexpr int EditionDate = 204;          // "Date:"
inline constexpr int EditionOriginales = 205;    // "Original coordinates"
inline constexpr int EditionControle = 206;      // "Control"
inline constexpr int EditionTexteLibre = 207;    // "Free text:"
inline constexpr int EditionOk = 208;            // "&Ok"
inline constexpr int EditionFermer = 209;        // "&Close"
inline constexpr int EditionNouveau = 210;       // "&New"
inline constexpr int EditionDupliquer = 211;     // "&Duplicate"
inline constexpr int SystemeDegres = 217;        // "Decimal degrees (Greenwich)"
inline constexpr int SystemeDms = 218;           // "Degrees-minutes-secondes (Greenwhich)"
inline constexpr int SystemeUtm = 219;           // "Numeric UTM in meters"
inline constexpr int SystemeMgrs = 220;          // "Alphanumeric UTM (MGRS)"
inline constexpr int SystemeGrades = 221;        // "Grades Paris (centesimal)"
inline constexpr int SystemeBritish = 222;       // "British National Grid"
inline constexpr int SystemeIrish = 223;         // "Irish TM Grid"
inline constexpr int SystemeLambertBelge = 224;  // "Lambert belge 1972 in meters"
inline constexpr int ExempleDmsLatitude = 225;   // "DD.MMSS (+50.2530)"
inline constexpr int ExempleDmsLongitude = 226;  // "DDD.MMSS (+003.5512)"
inline constexpr int ExempleFuseau = 227;        // "Fuse (31)"
inline constexpr int ExempleMgrs = 228;          // "Letter+Easting+Northing (FR1664)"
inline constexpr int EditionChercher = 767;      // "&Search..."
inline constexpr int EditionSuivant = 771;       // "Ne&xt"
inline constexpr int EditionPrecedent = 772;     // "&Previous"
inline constexpr int ExempleEst = 940;           // "Easting (616000)"
inline constexpr int ExempleNord = 941;          // "Northing (5564000)"
inline constexpr int ExempleZone = 942;          // "Zone (U)"
inline constexpr int EditionSysteme = 980;       // "System:"
inline constexpr int EditionDatum = 981;         // "Datum:"
inline constexpr int EditionSexe = 982;          // "Sex:"
inline constexpr int EditionChamps = 983;        // "Free fields:"
inline constexpr int AideRemarque = 984;         // "Enter begins a new line; Tab or ..."
inline constexpr int AideChamps = 985;           // "Typing replaces the value, F2 edits it; ..."
inline constexpr int AideDatumImpose = 986;      // "The datum is given by the coordinate system."
inline constexpr int AideRepertoire = 987;       // "Takes coordinates and name of a place ..."

// Hints of the record editor.
inline constexpr int ReferenceSansPoint = 970;  // "This reference names no point: latitude and ..."
inline constexpr int ReferenceRefusee = 971;    // "%1: this reference names no point. ..."
inline constexpr int SeparateurTape = 972;      // "%1 separates the free fields: this text ..."
inline constexpr int CaractereNonSauve = 973;   // "The character %1 is not in code page 1252: ..."
inline constexpr int PasUnNombre = 974;         // "“%1” is not a number: it counts as %2."
inline constexpr int DateAutreForme = 975;  // "The date of this row, “%1”, has another form. ..."
inline constexpr int OriginalTropLong = 976;  // "The original coordinates are longer than 24 ..."

// Names of systems; the first is that of PremierTypeImport.
inline constexpr int IfblBelgique = 308;    // "IFBL (Belgium)"
inline constexpr int LambertFrance1 = 309;  // "Lambert France I"
inline constexpr int LambertFrance2 = 310;
inline constexpr int LambertFrance3 = 311;
inline constexpr int LambertFrance4 = 312;
inline constexpr int LambertFranceEtendu = 313;  // "Lambert France II étendu"
inline constexpr int LambertNordMaroc = 314;     // "Lambert Nord Maroc"
inline constexpr int LambertSudMaroc = 315;      // "Lambert Sud Maroc"

// Converter between Lambert belge and IFBL.
inline constexpr int LmbIfblFenetre = 950;   // "Lambert belge 1972 and IFBL"
inline constexpr int LmbIfblX = 951;         // "x in metres:"
inline constexpr int LmbIfblY = 952;         // "y in metres:"
inline constexpr int LmbIfblCode = 953;      // "IFBL code:"
inline constexpr int LambertEnIfbl = 954;    // "Lambert to IFBL"
inline constexpr int IfblEnLambert = 955;    // "IFBL to Lambert"
inline constexpr int IfblRefuse = 956;       // "This is no IFBL code. ..."
inline constexpr int IfblHorsLimites = 957;  // "There is no IFBL code here: x goes from 0 ..."
inline constexpr int MetresAttendus = 958;   // "x and y are plain numbers, in metres."
inline constexpr int IfblSansCarre = 959;    // "No square of the IFBL grid has this code."

// Map view.
inline constexpr int CarteOuvrir = 410;      // "&Open map..."
inline constexpr int CarteOptions = 420;     // "Options"
inline constexpr int CarteImprimer = 421;    // "Print"
inline constexpr int CarteTableau = 422;     // "Table"
inline constexpr int CarteMaille = 423;      // "Grid"
inline constexpr int CarteFermer = 424;      // "Close"
inline constexpr int CarteEps = 425;         // "Drawing for print (EPS)"
inline constexpr int CarteFermerAide = 426;  // "Close the map"
inline constexpr int AucuneCarte = 427;      // "No map is open"
inline constexpr int CarteTouches = 428;     // "The arrow keys move a cross, ten pixels ..."

// Map options.
inline constexpr int CartesOptionsFenetre = 430;  // "Map options"
inline constexpr int OngletSymboles = 431;        // "Symbols"
inline constexpr int OngletTlp = 432;             // "Line layers"
inline constexpr int CouleurSymboles = 433;       // "Colour of the symbols:"
inline constexpr int AjouteCouche = 434;          // "Add..."
inline constexpr int RetireCouche = 435;          // "Remove"
inline constexpr int MonteCouche = 436;           // "Move up", and "Move down" behind it
inline constexpr int OrdreCouches = 438;          // "Layers in the order of drawing:"
inline constexpr int CarteSansCouches = 439;      // "This map is not georeferenced: no layer ..."
inline constexpr int ConseilDiametre = 617;  // "With “Auto” the symbols cover more than ..."

// Raster maps.
inline constexpr int DiametrePoints = 231;       // "Points diametre (in km):"
inline constexpr int RasterAnnee = 232;          // "Year:"
inline constexpr int RasterTouches = 233;        // "The arrow keys move a cross, ten pixels ..."
inline constexpr int CouleurPeriode = 234;       // "Period %1:"
inline constexpr int CouleurContour = 235;       // "Outline:"
inline constexpr int OptionsMapFenetre = 236;    // "Circles on the maps"
inline constexpr int GrillesPrn = 237;           // "PRN grids..."
inline constexpr int GrillesPrnAide = 238;       // "British and Irish grid lines as PRN files"
inline constexpr int GardeNouveauxPoints = 550;  // "Save new points?"
inline constexpr int DiametreInvalide = 555;     // "Invalid points diameter"

// Preferences.
inline constexpr int Preferences = 260;       // "Preferences"
inline constexpr int ModeSaisie = 262;        // "Coordinates input mode"
inline constexpr int ChampNumerique1 = 263;   // "Numeric field 1"
inline constexpr int ChampNumerique2 = 264;   // "Numeric field 2"
inline constexpr int SansBip = 267;           // "No beep"
inline constexpr int SeparateurChamps = 268;  // "Character separator in free field"
inline constexpr int DatumCalcul = 802;       // "Datum used to compute Latitude and Longitude"
inline constexpr int DatumSpherique = 803;    // "Default datum of original spherical coordinates"
inline constexpr int DatumChange = 804;     // "The Datum used to compute coordinates has been ..."
inline constexpr int RecalculeCoord = 805;  // "Clik Ok to compute all coordinates."
inline constexpr int DatumUtm = 806;        // "Default datum of original UTM coordinates"
inline constexpr int SauveToutesLes = 811;  // "Save file every "
inline constexpr int Minutes = 812;         // "min."
inline constexpr int ActiveAutoSave = 813;  // "Enable autosave"

inline constexpr int SectionCoordonnees = 935;     // "Coordinates"
inline constexpr int SectionChamps = 936;          // "Fields"
inline constexpr int SectionEnregistrement = 937;  // "Saving"
inline constexpr int SectionProgramme = 938;       // "Program"
inline constexpr int DossierTravail = 939;         // "Temporary working folder"
inline constexpr int Parcourir = 943;              // "Browse..."

// Selection of rows by a condition.
inline constexpr int SelectionFenetre = 944;      // "Advanced selection"
inline constexpr int ToutesLesLignes = 945;       // "All rows"
inline constexpr int LignesSelonCondition = 946;  // "Rows that meet this condition:"
inline constexpr int ColonnesTitre = 947;         // "Columns:"
inline constexpr int ExemplesTitre = 948;         // "Examples:"
inline constexpr int FiltreRetire = 931;          // "Filter off: all %1 rows shown"
inline constexpr int SauveFiltre = 932;           // "Only %1 of %2 rows are shown: the file ..."
inline constexpr int FiltreSansLigne = 933;       // "No row meets the filter, so there is ..."
inline constexpr int FiltreEtSauvegarde = 934;    // "Saving writes only the rows shown; ..."

// Questions and messages.
inline constexpr int RemplaceFichier = 500;  // "File already exists! Replace?"
inline constexpr int RemplitUtm = 502;  // "Caution.  The free fields will be completed with ..."
inline constexpr int CalculSelonEllipsoide = 503;  // "Coordinates computing depends on the ..."
inline constexpr int SupprimeLignes = 508;         // "Are you sure to delete selected rows?"
inline constexpr int SauveFichier = 509;           // "Save file ?"
inline constexpr int EffaceCellules = 515;         // "Delete all selected cells?"
inline constexpr int AnneeCharniere = 520;         // "Specify a switch year!"
inline constexpr int PremiereAnnee = 521;          // "Specify a first switch year!"
inline constexpr int SecondeAnnee = 522;           // "Specify a second year!"
inline constexpr int OrdreAnnees = 523;            // "First switch year must be lower than second!"
inline constexpr int PeriodesVers1 = 525;  // "Caution! All period values will be replace by 1"
inline constexpr int PeriodesVers2 = 527;  // "Caution! All 3d period values will be replace by 2"
inline constexpr int PeriodeHorsLimites = 530;    // "Period must be comprise between 1 and "
inline constexpr int LatitudeHorsLimites = 531;   // "Valid Latitude range: -90° +90°"
inline constexpr int LongitudeHorsLimites = 532;  // "Valid Longitude range: -180° +180°"
inline constexpr int UtmInvalide = 533;           // "Invalid UTM"
inline constexpr int ExportImpossible = 560;      // "Impossible to export!"
inline constexpr int LignesAAjouter = 600;        // "Number of line(s) to add"
inline constexpr int NombreLignes = 601;          // "Number of lines"
inline constexpr int TexteAInserer = 602;      // "Text to insert at the begin of each free field"
inline constexpr int FonctionAbsente = 650;    // "Feature unavailable in this version"
inline constexpr int DateInvalide = 710;       // "Invalid date"
inline constexpr int SelectionneLignes = 765;  // "Select row(s) before"
inline constexpr int Introuvable = 766;        // "not found"
inline constexpr int DatumSansUtm = 807;       // "This datum is not allowed for UTM or MGRS input!"
inline constexpr int DatumAbsent = 808;        // "This datum is absent from the available datums!"
inline constexpr int ChampsStandard = 810;     // "Use standard configuration of free fields?"
inline constexpr int SauveAvantFermer = 814;   // "Save before closing?"

// Wait window.
inline constexpr int Sauvegarde = 720;   // "Saving..."
inline constexpr int Ouverture = 721;    // "Opening..."
inline constexpr int Suppression = 722;  // "Supressing row(s)..."
inline constexpr int Patientez = 740;    // "Please wait..."
inline constexpr int AjouteTant = 741;   // "Add %1 empty lines?"
inline constexpr int SansPlace = 742;  // "%1 lines do not fit here; there is room for %2 at most."
inline constexpr int Ajout = 743;      // "Adding lines..."
inline constexpr int LectureAbandonnee = 744;  // "Reading was ended: the table holds the first ..."
inline constexpr int Megaoctets = 745;         // "%1 MB"
inline constexpr int LignesEnUne = 746;        // "The lines of this file end in LF alone, so ..."
inline constexpr int OuvreAvecLf = 747;        // "Open it with LF as line end"
inline constexpr int FusionAbandonnee = 748;   // "Reading was ended: the first %1 rows of the ..."

// Main window.
inline constexpr int Distribution = 120;  // "Distribution"
inline constexpr int Tri = 750;           // "Sort:"
inline constexpr int CmdOuvrir = 751;     // "Open"
inline constexpr int CmdSauver = 752;     // "Save"
inline constexpr int CmdNouveau = 753;    // "New"
inline constexpr int CmdEdition = 754;    // "Edition"
inline constexpr int CmdChercher = 755;   // "Find"
inline constexpr int CmdSupprimer = 756;  // "Delete"
inline constexpr int Croissant = 757;     // "Ascending"
inline constexpr int Decroissant = 758;   // "Descending"
inline constexpr int Editer = 760;        // "E&dit"

// Gazetteer.
inline constexpr int GeoFenetre = 768;         // "Gazetteer"
inline constexpr int GeoNom = 769;             // "Place name:"
inline constexpr int GeoNombre = 770;          // "Number of places:"
inline constexpr int GeoFichier = 780;         // "File"
inline constexpr int GeoTable = 781;           // "Table:"
inline constexpr int GeoChampRecherche = 782;  // "Search field:"
inline constexpr int GeoChampNom = 783;        // "Output field:"
inline constexpr int GeoLatitude = 784;        // "Latitude:"
inline constexpr int GeoLongitude = 785;       // "Longitude:"
inline constexpr int GeoFips = 786;            // "FIPS:"
inline constexpr int GeoProvince = 787;        // "Province:"
inline constexpr int GeoNature = 788;          // "Feature="
inline constexpr int GeoTri = 789;             // "Sort by:"
inline constexpr int GeoLocalite = 790;        // "Locality"
inline constexpr int GeoFormatDms = 791;       // "Geoname format (DMS*10000)"
inline constexpr int GeoFormatDegres = 792;    // "Decimal degrees"
inline constexpr int Changer = 793;            // "C&hange..."
inline constexpr int GeoOk = 794;              // "&Ok"
inline constexpr int GeoAnnuler = 795;         // "&Escape"
inline constexpr int GeoSauver = 796;          // "&Save"
inline constexpr int GeoOuvrir = 797;          // "&Open"

// List of datums.
inline constexpr int DatumCode = 965;   // "Code"
inline constexpr int DatumNom = 966;    // "Name"
inline constexpr int DatumUsage = 967;  // "Usage"

// Folders for grid files.
inline constexpr int DossierGrille = 969;   // "Folder for IFBL.PRN, the lines of the IFBL grid"
inline constexpr int DossierMailles = 977;  // "Folder for ifbl.prn, the IFBL grid lines of 4 ..."
inline constexpr int DossierCarres = 978;   // "Folder for the IFBL squares (ifbl01x01, ..."

// Datum database.
inline constexpr int DatumMdbAbsent = 800;  // "The file DATUM.MDB cannot be found!"
inline constexpr int OuEstDatumMdb = 801;   // "Where is DATUM.MDB?"

// Working folder.
inline constexpr int DossierRefuse = 820;    // "The working folder cannot be used ..."
inline constexpr int DossierRemplace = 821;  // "The rows of this run are kept in %2, because ..."
inline constexpr int SansDossier = 822;      // "Talpena cannot start: no folder takes ..."

// Saving, opening, status.
inline constexpr int FichierChange = 901;    // "The file has been changed by another program ..."
inline constexpr int CaractereAbsent = 902;  // "Row %1: the character %2 is not in code page 1252."
inline constexpr int LignesAffichees = 903;  // "%1 of %2 rows shown"
inline constexpr int AucunFichier = 904;     // "No file"
inline constexpr int Exemple = 905;          // "Sample distribution (invented records)"
inline constexpr int SauveSousMarche = 906;  // "Save as works for this path."
inline constexpr int BoutonAnnuler = 907;    // "Cancel"
inline constexpr int Version = 908;          // "Version %1"
inline constexpr int Avertissement = 909;    // "Warning"
inline constexpr int Ligne = 910;            // "Row"
inline constexpr int Lignes = 911;           // "Rows"

// Editing in the grid.
inline constexpr int ValeurRefusee = 912;  // "Value not accepted"
inline constexpr int EntierAttendu = 913;  // "This column takes whole numbers from %1 to %2."
inline constexpr int NombreAttendu = 914;  // "This column takes a number."
inline constexpr int TexteTropLong = 915;  // "This column takes at most %1 characters."
inline constexpr int TexteVide = 916;      // "This column cannot be empty text."
inline constexpr int FormeDate = 929;      // "The date is written year/month/day, for example ..."

// Rows that a command over coordinates leaves as they are.
inline constexpr int LignesSansPlace = 440;  // "Rows whose coordinates name no place: %1. ..."
inline constexpr int LigneFautive = 441;     // "Row %1: %2 (%3)"
inline constexpr int LigneNonMontree = 442;  // "Row not shown: %2 (%3)"
inline constexpr int FauteLatitude = 443;    // "the latitude %1° lies beyond 90°"
inline constexpr int FauteLongitude = 444;   // "the longitude %1° lies beyond 180°"
inline constexpr int FauteMinutes = 445;     // "minutes or seconds of 60 and more"
inline constexpr int FauteCarre = 446;       // "no square has these letters and digits"
inline constexpr int FauteNombres = 447;    // "these numbers lie outside of what the system covers"
inline constexpr int FauteSansPlace = 448;  // "there is no such place on the datum or grid ..."

// Buttons of message boxes.
inline constexpr int BoutonOui = 917;  // "Yes"
inline constexpr int BoutonNon = 918;  // "No"
inline constexpr int BoutonOk = 919;   // "OK"

inline constexpr int FichierPartiel = 930;      // "Only part of this file could be read. ..."
inline constexpr int AncienFichierReste = 920;  // "The former file stands unchanged."

// Files that are changed, protected or gone.
inline constexpr int FichierGarde = 860;        // "A copy of the file as it is now will stay ..."
inline constexpr int FichierProtege = 861;      // "The file is write-protected. Replace it ..."
inline constexpr int AutoSaveAttend = 862;      // "The automatic save waits: Save has a ..."
inline constexpr int AncienFichierGarde = 863;  // "The former file is now %1"
inline constexpr int BakReste = 864;      // "Beside it stands its state before the last save ..."
inline constexpr int NouveauReste = 865;  // "Beside it stands what was last saved of it, ..."
inline constexpr int EcritReste = 866;    // "Beside it stands what could be written of it ..."
inline constexpr int RetireRecent = 867;  // "Remove it from the list of recent files?"

// Accessible names, tool tips.
inline constexpr int TableDonnees = 921;   // "Table of records"
inline constexpr int OrdreTri = 922;       // "Sort order"
inline constexpr int PremiereLigne = 923;  // "First row"
inline constexpr int DerniereLigne = 924;  // "Last row"
inline constexpr int Carte = 925;          // "Map"

// About box.
inline constexpr int APropos = 926;      // "About Talpena"
inline constexpr int Description = 927;  // "A desktop editor for biological distribution files"
inline constexpr int Licence = 928;      // "Licence: GPL-3.0-or-later"

// User guide.
inline constexpr int AideFenetre = 870;      // "Talpena user guide"
inline constexpr int AideIntrouvable = 871;  // "The user guide cannot be found: %1"
inline constexpr int AideAbimee = 872;       // "The user guide is damaged: %1"
inline constexpr int AideChercher = 873;     // "Search:"
inline constexpr int AideSommaire = 874;     // "Contents"
inline constexpr int AideRetour = 875;       // "Back"
inline constexpr int AideSuite = 876;        // "Forward"
inline constexpr int AideImprimer = 877;     // "Print..."
inline constexpr int AideRien = 878;         // "Nothing found for "%1". Fewer words, ..."
inline constexpr int AideTrouvailles = 879;  // "Places found"
inline constexpr int AidePage = 880;         // "Page of the guide"
inline constexpr int AidePrecedent = 881;    // "Previous place found"
inline constexpr int AideSuivant = 882;      // "Next place found"

}  // namespace talpena::MsgId
