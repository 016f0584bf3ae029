// Base ids of the menu captions in the string table.
#pragma once

namespace talpena::MsgId {

// Menu File.
inline constexpr int MenuFichier = 1;          // "&File"
inline constexpr int MenuNouveau = 2;          // "&New"
inline constexpr int MenuOuvrir = 3;           // "&Open"
inline constexpr int MenuEnregistrer = 4;      // "&Save"
inline constexpr int MenuEnrSous = 5;          // "Save &as..."
inline constexpr int MenuFusionner = 6;        // "&Merge"
inline constexpr int MenuImporter = 7;         // "&Import..."
inline constexpr int MenuExporter = 8;         // "Ex&port..."
inline constexpr int MenuExpAscii = 9;         // "&Ascii file"
inline constexpr int MenuExpFixe = 10;         // "&Fixed format"
inline constexpr int MenuExpVirgules = 11;     // "&Comma delimited"
inline constexpr int MenuExpTabulations = 12;  // "&Tabulations"
inline constexpr int MenuExpEspaces = 13;      // "&Spaces"
inline constexpr int MenuExpAccess = 14;       // "MS-Access database"
inline constexpr int MenuExpFoxPro = 15;       // "Fox Pro database"
inline constexpr int MenuExpDBase = 16;        // "DBase IV database"
inline constexpr int MenuExpParadox = 17;      // "Paradox database"
inline constexpr int MenuQuitter = 18;         // "E&xit"
inline constexpr int MenuGrouper = 19;         // "&Group and save"

// Menu Edit.
inline constexpr int MenuEdition = 30;             // "&Edit"
inline constexpr int MenuChercher = 31;            // "&Find"
inline constexpr int MenuAjoutLigne = 32;          // "&Add line(s)"
inline constexpr int MenuEraseCol = 33;            // "&Erase column"
inline constexpr int MenuSupprimer = 34;           // "&Suppress row(s)"
inline constexpr int MenuRemplir = 35;             // "Insert in free &field..."
inline constexpr int MenuRemplirUtm = 36;          // "&UTM"
inline constexpr int MenuRemplirBritannique = 37;  // "&British National Grid"
inline constexpr int MenuRemplirIrlandaise = 38;   // "&Irish TM Grid"
inline constexpr int MenuRemplirGrades = 39;       // "&Grades Paris (centésimaux)"
inline constexpr int MenuRemplirLambert72 = 40;    // "&Lambert belge 1972"
inline constexpr int MenuRemplirTexte = 41;        // "&Text"
inline constexpr int MenuAjuster = 42;             // "A&just coordinates"
inline constexpr int MenuRemplirDms = 44;          // "&Degrees-minutes-secondes (Greenwhich)"
inline constexpr int MenuDupliquer = 45;           // "&Duplicate current line"
inline constexpr int MenuSuivant = 46;             // "Ne&xt"

// Menu View.
inline constexpr int MenuVisualiser = 50;         // "&View"
inline constexpr int MenuMonde = 51;              // "&World"
inline constexpr int MenuEurope = 52;             // "&Europe"
inline constexpr int MenuEuropeCentrale = 53;     // "&Central Europe"
inline constexpr int MenuGaule = 54;              // "&Gaul"
inline constexpr int MenuBelgique = 55;           // "&Belgium"
inline constexpr int MenuPaysBas = 56;            // "&Netherlands"
inline constexpr int MenuIlesBritanniques = 57;   // "Britis&h isles"
inline constexpr int MenuIberie = 58;             // "&Iberian peninsula"
inline constexpr int MenuTurquie = 59;            // "&Turkey"
inline constexpr int MenuAsieEurope = 60;         // "Asia + Euro&pe"
inline constexpr int MenuAfrique = 61;            // "&Africa"
inline constexpr int MenuAmeriqueNord = 62;       // "&North America"
inline constexpr int MenuAmeriqueSud = 63;        // "S&outh America"
inline constexpr int MenuAsieOceanie = 64;        // "As&ia + Oceania"
inline constexpr int MenuAutreCarte = 65;         // "O&ther..."
inline constexpr int MenuCarteVectorielle = 968;  // "&Vector map"

// Menu Options.
inline constexpr int MenuOptions = 70;        // "&Options"
inline constexpr int MenuPreferences = 71;    // "Pre&ferences"
inline constexpr int MenuCouleurs = 72;       // "&Display"
inline constexpr int MenuFondGrille = 73;     // "&Table background"
inline constexpr int MenuTexteGrille = 74;    // "Te&xt table"
inline constexpr int MenuOptionsCartes = 75;  // "&Maps"
inline constexpr int MenuLangue = 76;         // "&Language"
inline constexpr int MenuFrancais = 77;       // "&French"
inline constexpr int MenuAnglais = 78;        // "&English"
inline constexpr int MenuEspagnol = 79;       // "&Spanish"
inline constexpr int MenuAllemand = 80;       // "&German"
inline constexpr int MenuItalien = 81;        // "&Italian"
inline constexpr int MenuNeerlandais = 82;    // "&Dutch"
inline constexpr int MenuPeriodes = 85;       // "&Periods"

// Menu Options, coordinate tools.
inline constexpr int MenuOutils = 960;        // "Coordinate &tools"
inline constexpr int MenuLmbIfbl = 961;       // "Lambert - IFBL &converter..."
inline constexpr int MenuIfblLignes = 962;    // "IFBL &grid lines, 4 and 1 km (PRN)..."
inline constexpr int MenuIfblCarres = 963;    // "IFBL &squares (MIF/MID)..."
inline constexpr int MenuDatumFichier = 964;  // "&Datum of the file..."

// Menu Help.
inline constexpr int MenuAide = 90;  // "&Help"
inline constexpr int MenuInfo = 91;  // "&About"

// Menus of the map window.
inline constexpr int CarteSauveImage = 411;      // "&Save picture..."
inline constexpr int CarteApercu = 412;          // "Print pre&view..."
inline constexpr int CarteImprime = 413;         // "&Print..."
inline constexpr int CarteRetour = 414;          // "&Back to the distribution"
inline constexpr int CarteRedessine = 415;       // "&Redraw"
inline constexpr int CarteTraceMaille = 416;     // "&Grid..."
inline constexpr int CarteCouches = 417;         // "&Line layers..."
inline constexpr int CarteSymboles = 418;        // "&Symbols..."
inline constexpr int CarteChoisitOptions = 419;  // "&Options..."

}  // namespace talpena::MsgId
