#include "shell/window_fit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tt {

namespace {

long long Overlap(const QRect& a, const QRect& b) {
    const QRect i = a.intersected(b);
    return i.isEmpty() ? 0 : static_cast<long long>(i.width()) * i.height();
}

double Distance(const QRect& frame, const QRect& area) {
    // From the frame's centre to the nearest point of the area.
    const QPoint c = frame.center();
    const int dx = std::max({area.left() - c.x(), 0, c.x() - area.right()});
    const int dy = std::max({area.top() - c.y(), 0, c.y() - area.bottom()});
    return std::hypot(dx, dy);
}

}  // namespace

QRect FitOnScreens(const QRect& frame, const std::vector<QRect>& areas, QSize minimum) {
    if (areas.empty()) return frame;
    for (const QRect& a : areas)
        if (a.contains(frame)) return frame;
    const QRect* best = nullptr;
    long long most = 0;
    for (const QRect& a : areas) {
        const long long o = Overlap(frame, a);
        if (o > most) {
            most = o;
            best = &a;
        }
    }
    if (!best) {
        double nearest = std::numeric_limits<double>::max();
        for (const QRect& a : areas) {
            const double d = Distance(frame, a);
            if (d < nearest) {
                nearest = d;
                best = &a;
            }
        }
    }
    const QRect& area = *best;
    const int width = std::max(std::min(frame.width(), area.width()), minimum.width());
    const int height = std::max(std::min(frame.height(), area.height()), minimum.height());
    // Too big even so: the top left corner, and with it the title bar, stays in reach.
    const int left = std::max(std::min(frame.left(), area.right() + 1 - width), area.left());
    const int top = std::max(std::min(frame.top(), area.bottom() + 1 - height), area.top());
    return {left, top, width, height};
}

}  // namespace tt
