// The whole state of the process.
#pragma once
#include <string>

#include "gazetteer/state.h"
#include "interchange/state.h"
#include "maps/raster/raster_map.h"
#include "store/state.h"

namespace talpena {

struct ProcessState : StoreState {
  InterchangeState interchange;
  GazetteerState gazetteer;
  RasterMap raster;           ///< the raster map on show, or shown last
  std::string DossierRefuse;  ///< working folder that WorkingDir stands in for; "" when it is used
  std::string DossierCartes;  ///< copy of AppDir through which the map windows find their files
  std::string FichierAide;    ///< path of the help file of the current language
};

}  // namespace talpena
