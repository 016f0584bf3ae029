// Base ids of what the search while typing and the set-up of the gazetteer say beside their
// captions (common/msg_id.h).
#pragma once

namespace talpena::MsgId {

inline constexpr int TypedSansPoint = 579;  // "This place has no usable point: ..."
inline constexpr int TypedAilleurs = 580;  // "Nothing is written like this in the search field ..."
inline constexpr int TypedContient = 595;  // "contains it"
inline constexpr int TypedSemblable = 596;  // "similar spelling"
inline constexpr int TypedAide = 597;       // "From the second letter on, places appear here; ..."
inline constexpr int TypedLecture = 598;    // "Reading the gazetteer..."
inline constexpr int TypedIllisible = 599;  // "The gazetteer cannot be read: ..."
inline constexpr int TypedAucun = 613;      // "No place is called like this."
inline constexpr int TypedCarte = 614;      // "Map of the place and of the records around it"
inline constexpr int TypedProche = 615;     // "Nearest record of the file: %1 km"
inline constexpr int TypedAbandon = 616;    // "Reading was given up; ..."
inline constexpr int TypedOnglet = 668;     // "While typing"
inline constexpr int TypedResultat = 669;   // "Search result"
inline constexpr int TypedDistance = 670;   // "Distance (km)"
inline constexpr int TypedRencontre = 676;  // "Match"

inline constexpr int SetupCoupe = 677;          // "The set-up file ends behind line %1: ..."
inline constexpr int SetupPerdu = 678;          // "“%1” will not come back from this file: ..."
inline constexpr int SetupTexteTropLong = 679;  // "A text of this set-up file is too long ..."
inline constexpr int SetupNom = 680;            // "Name"
inline constexpr int PolicesFenetre = 681;      // "Fonts of the regions"
inline constexpr int SetupEssai = 682;          // "&Test"
inline constexpr int SetupPropose = 683;        // "Take the &proposals"
inline constexpr int SetupApercu = 684;         // "First rows, as they would be read"
inline constexpr int SetupPoint = 685;          // "Point"
inline constexpr int SetupBilan = 686;          // "%1 of %2 rows have a usable name and point."
inline constexpr int SetupProposition = 687;    // "proposed: %1"
inline constexpr int SetupSansPoint = 688;      // "no point"
inline constexpr int SetupAbsente = 689;        // "not on this computer: shown in %1"
inline constexpr int SetupReste = 988;          // "Still to be chosen: %1"

}  // namespace talpena::MsgId
