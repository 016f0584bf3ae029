// What starting, stopping and switching the language ask of the windows.
#pragma once
#include "shell/settings.h"

namespace talpena {

class ShellView {
 public:
  virtual ~ShellView() = default;

  virtual ScreenSize TailleEcran() const = 0;
  virtual void DesactiveMenus() = 0;  ///< the nine entries of ActiveMenus
  virtual void FondGrilleSysteme() = 0;
  /// Window's place and state, column widths, colours and recent files as the state has them.
  virtual void AppliqueReglages() = 0;
  /// The other way round: place, column widths into the state, before they are saved.
  virtual void ReleveReglages() = 0;

  virtual void AppliqueLangue() = 0;  ///< captions of the main window
  virtual void InitFenetres() = 0;    ///< captions of the other windows
  virtual void InitTDBgrid() = 0;     ///< headings of the grid
  virtual void ColoreOptTri() = 0;    ///< both OptTri take the background of Picture1
  virtual void ColoreFenetres() = 0;  ///< windows and labels take the button-face colour
  virtual void MontreFenetre() = 0;   ///< the main window
  virtual void FermeSplash() = 0;
  virtual void Termine() = 0;  ///< ends the process, and all windows with it
};

}  // namespace talpena
