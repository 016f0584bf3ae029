// A folder of Paradox tables that is open.
#pragma once
#include <memory>
#include <string>

#include "platform/foreign/paradox/paradox_format.h"
#include "platform/foreign_format.h"

namespace talpena::paradox {

/// True for the file of a table, also of one with a password. Never throws.
bool EstTable(const std::string& path);

/// For reading. As ForeignFormat::Ouvre.
///
/// @param path  the folder, or the file of one table
std::unique_ptr<ForeignDatabase> OuvreDossier(const std::string& path, const ParadoxLimits& limits);

/// For reading, and for tables to be made in. What is there and cannot be read is no hindrance.
std::unique_ptr<ForeignDatabase> OuvreDossierPourEcrire(const std::string& path,
                                                        const ParadoxLimits& limits);

}  // namespace talpena::paradox
