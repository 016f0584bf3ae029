// Base ids of the string table that the code names. Menu captions are listed with their menus.
#pragma once

namespace talpena::MsgId {

inline constexpr int Titre = 121;            // "Title"
inline constexpr int RemplaceFichier = 500;  // "File already exists! Replace?"
inline constexpr int SauveFichier = 509;     // "Save file ?"
inline constexpr int AnneeCharniere = 520;   // "Specify a switch year!"
inline constexpr int PremiereAnnee = 521;    // "Specify a first switch year!"
inline constexpr int SecondeAnnee = 522;     // "Specify a second year!"
inline constexpr int OrdreAnnees = 523;      // "First switch year must be lower than second!"
inline constexpr int PeriodesVers1 = 525;    // "Caution! All period values will be replace by 1"
inline constexpr int PeriodesVers2 = 527;    // "Caution! All 3d period values will be replace by 2"
inline constexpr int NombreLignes = 601;     // "Number of lines"
inline constexpr int FonctionAbsente = 650;  // "Feature unavailable in this version"
inline constexpr int Sauvegarde = 720;       // "Saving..."
inline constexpr int Ouverture = 721;        // "Opening..."
inline constexpr int Tri = 750;              // "Sort:"
inline constexpr int DatumMdbAbsent = 800;   // "The file DATUM.MDB cannot be found!"
inline constexpr int OuEstDatumMdb = 801;    // "Where is DATUM.MDB?"
inline constexpr int DatumAbsent = 808;      // "This datum is absent from the available datums!"
inline constexpr int ChampsStandard = 810;   // "Use standard configuration of free fields?"

}  // namespace talpena::MsgId
