// The set-up functions behind InitProjection and InitBoite: constants by code, and boxes.
#pragma once
#include "maps/map_state.h"

namespace talpena {

/// Derives something of the map's state from what its file says.
using SetupFunction = void (*)(MapState& carte);

void ConstantesLambert(MapState& carte);
void CentreStereo(MapState& carte);
void FacteurBSAM9(MapState& carte);
void CentreOrtho(MapState& carte);

/// XGauche, YBas, XDroite and YHaut, from places that bound the map; MeridienCentral is set.
void BoiteDuMeridien(MapState& carte);  ///< its top on the central meridian
void BoiteDuCoin(MapState& carte);      ///< its top in the north-eastern corner
void BoiteSinusoidale(MapState& carte);
void BoiteDuPoleNord(MapState& carte);
void BoiteDuPoleSud(MapState& carte);
void BoiteDuGlobe(MapState& carte);

}  // namespace talpena
