// ProjectPoints in every code beside PROJ's proj_trans_generic with the same projection on the same
// figure, on the same points in the same run. Prints nanoseconds a point and their ratio, which is
// to stay below 1.
//
//   projection_bench [points]
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "coords/proj_oracle.h"
#include "maps/map_projection.h"
#include "maps/some_map.h"
#include "measure.h"

using namespace talpena;

namespace {

struct Sample {
  std::vector<float> lat, lon;  ///< radians
};

/// The projection of a code in the words of PROJ.
std::string ProjectionOf(int code) {
  const std::string sphere = " +R=6378388 +lon_0=10";
  switch (code) {
    case 1:
      return "+proj=lcc +lat_1=40 +lat_2=60 +lat_0=90 +lon_0=10 +a=6378388 +b=6356911.9461279465";
    case 2:
      return "+proj=merc" + sphere;
    case 3:
      return "+proj=stere +lat_0=20" + sphere;
    case 4:
      return "+proj=sinu" + sphere;
    case 5:
      return "+proj=eqc" + sphere;
    case 6:
      return "+proj=eqc +lat_ts=50.5" + sphere;
    case 7:
    case 8:
    case 9:
      return "+proj=gall" + sphere;
    case 10:
      return "+proj=ortho +lat_0=0" + sphere;
    case 11:
      return "+proj=ortho +lat_0=90" + sphere;
    case 12:
      return "+proj=ortho +lat_0=-90" + sphere;
    default:
      return "+proj=ortho +lat_0=40" + sphere;
  }
}

/// Points that both can project: on the near side of a globe.
Sample PointsOf(int code, int count) {
  const double south = code == 12 ? -75 : 15, north = code == 12 ? -15 : 75;
  Sample sample;
  for (const test::Point& p : test::PointsAuHasard(south, north, -40, 60, count)) {
    sample.lat.push_back(radian(static_cast<float>(p.latitude)));
    sample.lon.push_back(radian(static_cast<float>(p.longitude)));
  }
  return sample;
}

double Ours(const MapState& carte, const Sample& sample, double& sum) {
  std::vector<float> X(sample.lat.size()), Y(sample.lat.size());
  const double ms =
      bench::Millisecondes([&] { ProjectPoints(carte, sample.lat, sample.lon, X, Y); });
  sum += X.back() + Y.back();
  return ms;
}

double Projs(PJ* operation, const Sample& sample, double& sum) {
  std::vector<double> x(sample.lon.begin(), sample.lon.end());
  std::vector<double> y(sample.lat.begin(), sample.lat.end());
  const double ms = bench::Millisecondes([&] {
    proj_trans_generic(operation, PJ_FWD, x.data(), sizeof(double), x.size(), y.data(),
                       sizeof(double), y.size(), nullptr, 0, 0, nullptr, 0, 0);
  });
  sum += x.back() + y.back();
  return ms;
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 1000000;
  double sum = 0;
  for (int code = 1; code <= static_cast<int>(Projections().size()); ++code) {
    const MapState carte = test::CarteDe(code);
    const Sample sample = PointsOf(code, count);
    PJ* operation = proj_create(nullptr, ProjectionOf(code).c_str());
    if (operation == nullptr) return 1;
    double ours = 1e9, peer = 1e9;  // by turns, the best of each: a burst of other work hits both
    for (int round = 0; round < 5; ++round) {
      ours = std::min(ours, Ours(carte, sample, sum) * 1e6 / count);
      peer = std::min(peer, Projs(operation, sample, sum) * 1e6 / count);
    }
    proj_destroy(operation);
    std::printf("code %2d  %6.1f ns  PROJ %6.1f ns  ratio %5.2f%s\n", code, ours, peer, ours / peer,
                ours < peer ? "" : "  TOO SLOW");
    std::fflush(stdout);
  }
  return sum == 0 ? 1 : 0;
}
