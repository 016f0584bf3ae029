// Line layers (.tlp) of the map view.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "carto/plane_geometry.h"

namespace talpena {

/// Lines of one kind for a layer.
struct LayerLines {
  char kind = 'C';   ///< C coast, L lake, R river, U border
  char style = '1';  ///< 1 solid, 3 dashed
  std::vector<Line> lines;
};

/// A layer as bytes. A line becomes records of at most `degrees` across, since the view leaves out
/// every record that is not wholly inside its map; two records that follow on each other share
/// a point. No record closes on itself: a closed one would be filled.
///
/// Each begins with a point of pen -1 on its own start, because the view drops the first point that
/// it meets, and ends with one, which draws what was collected.
std::string EcritCouche(std::string_view title, const std::vector<LayerLines>& content,
                        double degrees);

}  // namespace talpena
