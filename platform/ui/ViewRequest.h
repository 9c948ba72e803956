// How the user wants to look at the drawing, for the host that shows it.
#pragma once
#include <functional>
#include <string>

namespace KxPlat {

struct ViewRequest {
    enum class Kind { All, Extents, Previous, Window, Center, Scale };
    Kind kind = Kind::Extents;
    double points[2][2] = {{0, 0}, {0, 0}};   // world; of Window both corners, of Center the first
    // Of Scale and Center: a number, or with an "x" behind it how much larger things become.
    double number = 0;
    bool isRelative = false;
};

using ViewHandler = std::function<void(const ViewRequest&)>;
// Of the host's window; an empty one takes it away. Without one, requests go nowhere.
void SetViewHandler(ViewHandler handler);
void RequestView(const ViewRequest& request);

}   // namespace KxPlat
