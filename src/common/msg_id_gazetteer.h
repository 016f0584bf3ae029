// Base ids of what the set-up of the gazetteer says beside its captions (common/msg_id.h).
#pragma once

namespace talpena::MsgId {

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

}  // namespace talpena::MsgId
