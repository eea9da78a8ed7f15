#pragma once
// Where a window placed from stored settings may stand: on a screen that is still there, whole,
// with its title bar in reach.

#include <QRect>
#include <QSize>
#include <vector>

namespace tt {

// FRAME moved, and shrunk no further than MINIMUM, so that it lies whole on one of AREAS: the
// one it overlaps most, or when it overlaps none (a monitor unplugged, a smaller screen), the
// nearest. A frame already whole on an area is left as it is; no areas leave it too.
QRect FitOnScreens(const QRect& frame, const std::vector<QRect>& areas, QSize minimum = {});

}  // namespace tt
