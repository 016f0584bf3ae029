// The commands that write grid files. Failures are thrown, the window shows them; a file that
// could not be written whole leaves the former one as it was.
#pragma once
#include "coords/prn_files.h"
#include "coords/state.h"
#include "platform/platform.h"
#include "platform/wait_view.h"

namespace talpena {

/// Asks for a folder and writes "IFBL.PRN" there, see EcritPrnGrille; message "Terminé". A
/// catalogue without BEL72 or EUR-M gives message 808 instead.
void mnuGrid_Click(CoordState& state, Platform& io);

/// The same with "ifbl.prn", see EcritPrnMailles; message "traitement terminé".
void CreationIFBLGrid(CoordState& state, Platform& io);

/// Asks for a folder and writes the three pairs "ifbl01x01", "ifbl04x04", "ifbl32x20" of .mif and
/// .mid files there; message "traitement terminé". None is put in place before all are written.
void CreationIFBLGridPolygon(CoordState& state, Platform& io);

/// Asks where to save (an empty name: nothing happens; Cancel is thrown) and writes a national grid
/// there under the hourglass, see EcritPrnNational. No message at the end.
void CreationPrnNational(Platform& io, WaitView& attente, Grille grid,
                         const DessinePoint& dessine = {});

}  // namespace talpena
