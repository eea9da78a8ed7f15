#include "model/window_placement.h"

#include <algorithm>
#include <cmath>

#include "model/number_text.h"
#include "model/ports.h"

namespace tt {

namespace {
// A kept placement value; missing or not a number gives the fallback.
double PlacementSetting(const std::string& key, double fallback) {
    auto v = Settings().Get(key);
    if (!v) return fallback;
    auto f = ParseDoubleField(*v);
    if (v->empty() || !f || !std::isfinite(*f)) return fallback;
    return *f;
}
}  // namespace

Placement RestoreWindowPlacement(const std::string& prefix) {
    Placement p;
    p.left = PlacementSetting(prefix + "Left", 1000);
    p.top = PlacementSetting(prefix + "Top", 1000);
    p.width = std::max(0.0, PlacementSetting(prefix + "Width", 0));
    p.height = std::max(0.0, PlacementSetting(prefix + "Height", 0));
    return p;
}

void SaveWindowPlacement(const std::string& prefix, const Placement& p, bool withSize) {
    Settings().Set(prefix + "Left", NumText(p.left));
    Settings().Set(prefix + "Top", NumText(p.top));
    if (!withSize) return;
    Settings().Set(prefix + "Width", NumText(p.width));
    Settings().Set(prefix + "Height", NumText(p.height));
}

}  // namespace tt
