// The projections of the systems in metres, in the one form that the table of systems takes.
#include "coords/lambert.h"
#include "coords/notations.h"

namespace talpena {

void VersLambertBelge(CoordState&, int, double latitude, double longitude, double& x, double& y) {
  LatLonVersLambertBelge(latitude, longitude, x, y);
}

void DeLambertBelge(CoordState&, int, double x, double y, double& latitude, double& longitude) {
  LambertBelgeVersLatLon(x, y, latitude, longitude);
}

void VersLambertFrance(CoordState& state, int zone, double latitude, double longitude, double& x,
                       double& y) {
  LatLonVersLambertFrance(state.LambertFrance, latitude, longitude, x, y, zone);
}

void DeLambertFrance(CoordState& state, int zone, double x, double y, double& latitude,
                     double& longitude) {
  LambertFranceVersLatLon(state.LambertFrance, x, y, latitude, longitude, zone);
}

void VersLambertMaroc(CoordState& state, int zone, double latitude, double longitude, double& x,
                      double& y) {
  LatLonVersLambertUnParallele(state.LambertUnParallele, latitude, longitude, x, y, zone);
}

void DeLambertMaroc(CoordState& state, int zone, double x, double y, double& latitude,
                    double& longitude) {
  LambertUnParalleleVersLatLon(state.LambertUnParallele, x, y, latitude, longitude, zone);
}

}  // namespace talpena
