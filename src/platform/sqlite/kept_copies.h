// The folder in which copies of other makers' tables are kept: which files, and how many.
#pragma once
#include <string>

#include "platform/table_engine.h"

namespace talpena::sqlite {

/// Where the copy of a table is, whether it is there or not.
std::string CheminCopie(const KeptTable& kept);
/// A path in that folder for a copy that is being made; the folder is made, for the user alone.
/// PathFileAccess (75).
std::string CheminNouvelleCopie(const KeptTable& kept);
/// Puts a copy that was made in its place, then takes the oldest away until all fit: this one too
/// when it is larger than all may be. False when it could not be put there.
bool PlaceCopie(const KeptTable& kept, const std::string& made);
/// A copy that was read is the youngest.
void NoteLecture(const std::string& copy);
/// Takes a copy away, and what stands beside it. Never fails.
void OteCopie(const std::string& copy);

}  // namespace talpena::sqlite
