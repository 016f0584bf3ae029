// Surfaces clipped to a frame.
#pragma once
#include "carto/plane_geometry.h"

namespace talpena {

/// The part of a surface inside the frame, in separate pieces: no ring runs along the edge of the
/// frame and back, which would have no area, but an interpreter of PostScript paints every pixel
/// that an outline touches.
Surface RogneSurface(const Surface& surface, const Frame& frame);

}  // namespace talpena
