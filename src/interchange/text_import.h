// The import of text files: the command and what its dialog is made of.
#pragma once
#include <cstdint>
#include <string>

#include "interchange/import_context.h"

namespace talpena {

/// The first three lines of a file for the dialog, joined by CR; those that it lacks are empty. A
/// line is cut behind 500 characters. InputPastEnd (62) for an empty file, else the failures of the
/// file system.
std::string TroisPremieresLignes(FileSystem& files, const std::string& path);

/// The import of FichierImportation, on the system of that index, 0 to 15. Nothing without a file.
/// Failures are shown, not thrown: the rows before stay, without coordinates.
void ImportCoord(ImportContext c, std::int16_t type);

/// `mnuImport`: 0 asks for a file and its system (frmImportation) and imports it, 1 imports
/// waypoints.
void mnuImport_Click(ImportContext c, int index);

}  // namespace talpena
