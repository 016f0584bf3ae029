// Access files (Jet 3 and Jet 4), read through libmdb.
#pragma once
#include <memory>
#include <string>

#include "platform/foreign/jet_limits.h"
#include "platform/foreign_format.h"

namespace talpena {

/// True for a file that begins as one of these versions does.
bool EstFichierJet(const std::string& path);

/// Opens one for reading; it is read in a process of its own. Raises DatabaseNotFound (3024),
/// PermissionDenied (70), UnrecognizedFormat (3343).
///
/// @param attente  who waits for what is read
std::unique_ptr<ForeignDatabase> OuvreJet(const std::string& path, const LimitesJet& limits,
                                          std::shared_ptr<const WorkBeat> attente);

}  // namespace talpena
