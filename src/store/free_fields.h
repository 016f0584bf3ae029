// The free-field layout of the open file: how COMMENT is divided.
#pragma once
#include <array>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/settings_state.h"
#include "store/distribution_header.h"

namespace talpena {

/// Most bytes of separator and definition lines together.
inline constexpr std::size_t MaxFreeFieldText = std::size_t{16} << 20;

/// The eleven definition lines of a file made without standard.hdr, as they stand.
const std::array<std::string_view, 11>& ChampsLibresInternes();

/// Takes a separator line as the start of a new layout without fields: FreeFieldSeparator ("/"
/// for an empty line) and FreeFieldText, which stays empty for an empty line.
void CommenceChampsLibres(DistributionHeader& entete, std::string_view separator);

/// Adds CR LF and a line to FreeFieldText. Above MaxFreeFieldText: Overflow (6).
void AjouteTexteChampsLibres(DistributionHeader& entete, std::string_view line);

/// Adds one definition line (items parted by commas: code, label, width) to FreeFieldDefs.
/// Fewer than three items raise SubscriptOutOfRange (9); a width beyond 16 bits, or a field
/// beyond the 32767th, Overflow (6). Neither FreeFieldText nor FreeFieldCount changes.
void AjouteChampLibre(DistributionHeader& entete, std::string_view line);

/// FreeFieldCount from the number of FreeFieldDefs.
void CompteChampsLibres(DistributionHeader& entete);

/// Path of standard.hdr in the program's folder, in any letter case; "" when it is not there.
std::string CheminStandardHdr(const SharedState& state, Platform& io);

/// Reads standard.hdr into an empty layout: its first line into FreeFieldSeparator and
/// FreeFieldText, each further one behind CR LF and through AjouteChampLibre; sets
/// FreeFieldCount. A line may end in LF alone too.
void LitStandardHdr(DistributionHeader& entete, FileSystem& files, const std::string& path);

}  // namespace talpena
