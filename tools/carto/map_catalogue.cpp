#include "carto/map_catalogue.h"

namespace talpena {
namespace {

using enum Detail;

// Limits that a projection asks for:
//   code 3   its centre is half the difference of the limits, so the south one lies near the
//   equator code 9   the parallel of true scale through the middle of the map code 2   nothing
//   beyond 79 degrees 10, 13   the whole disc whatever the limits; they only choose what a line
//   layer shows, and a
//            record behind the globe would be a streak: all of the limits lies on the near side
//   11, 12   the limit towards the equator is the rim; a degree short of it for the same reason
//   all      within 180 W and 180 E, since no longitude of a row is ever moved by a full turn; but
//            globes, which project by sines, so that 190 is 170 W: there the layers of the world
//            repeat their records as far as farthestEast
// clang-format off
constexpr MapRow maps[] = {
    // name, title, detail, code, parallel, north, south, east, west, parallels, meridian, graticule
    {"world", "World, plate carrée", World, 5, 0, 90, -90, 180, -180, 0, 0, 0, 15},
    {"world_mercator", "World, Mercator", World, 2, 0, 79, -60, 180, -180, 0, 0, 0, 15},
    {"world_sinusoidal", "World, sinusoidal", World, 4, 0, 90, -90, 180, -180, 0, 0, 0, 15},
    {"world_gall", "World, stereographic cylinder (45 degrees)", World, 8, 0, 90, -90, 180, -180, 0, 0, 0, 15},
    {"globe", "Globe, Europe and Africa", World, 13, 25, 90, -37, 82, -52, 0, 0, 15, 15},
    {"globe_america", "Globe, the Americas", World, 13, 10, 80, -60, -15, -155, 0, 0, -85, 15},
    {"globe_pacific", "Globe, Pacific", World, 13, -12, 56, -80, 250, 110, 0, 0, 180, 15},
    {"equator", "Equator, the globe from the side (code 10)", World, 10, 0, 90, -90, 90, -90, 0, 0, 0, 15},
    {"north_pole", "Northern hemisphere from the pole", World, 11, 0, 90, 1, 180, -180, 0, 0, 0, 15},
    {"south_pole", "Southern hemisphere from the pole", World, 12, 0, -1, -90, 180, -180, 0, 0, 0, 15},
    {"arctic", "Arctic", Continent, 11, 0, 90, 52, 180, -180, 0, 0, 0, 10},
    {"antarctic", "Antarctic", Continent, 12, 0, -52, -90, 180, -180, 0, 0, 0, 10},
    {"europe", "Europe, conformal conic", Continent, 1, 0, 70, 34, 45, -11, 42, 62, 17, 10},
    {"africa", "Africa, sinusoidal", Continent, 4, 0, 39, -37, 60, -27, 0, 0, 17, 10},
    {"north_america", "North America, conformal conic", Continent, 1, 0, 76, 12, -60, -134, 25, 60, -97, 10},
    {"south_america", "South America, sinusoidal", Continent, 4, 0, 15, -57, -27, -93, 0, 0, -60, 10},
    {"asia", "Asia, stereographic", Continent, 3, 0, 76, -12, 148, 36, 0, 0, 92, 10},
    {"oceania", "Oceania, stereographic cylinder (30 degrees)", Continent, 7, 0, 12, -50, 180, 105, 0, 0, 142, 10},
    {"united_states", "United States and neighbours, conformal conic", Region, 1, 0, 52, 23, -67, -125, 33, 45, -96, 5},
    {"western_europe", "Western Europe, cylinder of 50.5 degrees", Region, 6, 0, 61, 35, 20, -12, 0, 0, 4, 5},
    {"british_isles", "British Isles, conformal conic", Region, 1, 0, 61, 49.5F, 2.5F, -11.5F, 51, 59, -4.5F, 2},
    {"france_belgium", "France and Belgium, conformal conic", Region, 1, 0, 51.3F, 41.2F, 9.8F, -5.2F, 43, 50, 2.3F, 2},
    {"iberia", "Iberian peninsula", Region, 9, 40, 44.2F, 35.6F, 4.6F, -10, 0, 0, -3, 2},
    {"morocco", "Morocco", Region, 9, 31, 36.3F, 27.4F, -0.8F, -13.4F, 0, 0, -7, 2},
    {"mediterranean", "Mediterranean", Region, 9, 38, 47, 29.5F, 37, -7, 0, 0, 15, 5},
};
// clang-format on

}  // namespace

std::span<const MapRow> Catalogue() { return maps; }

}  // namespace talpena
