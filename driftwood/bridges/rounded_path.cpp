#include "driftwood/bridges/rounded_path.hpp"

#include <algorithm>

namespace driftwood {
namespace {

/// How much of the radii fits on an edge.
double share(double edge, double a, double b) {
    return a + b > edge ? edge / (a + b) : 1;
}

void addCorner(QPainterPath& path, const QRectF& square, double startAngle) {
    if (square.isEmpty()) {
        path.lineTo(square.center());
    } else {
        path.arcTo(square, startAngle, -90); // with a line to its start
    }
}

} // namespace

QPainterPath roundedPath(const QRectF& rect, const CornerRadii& cornerRounding) {
    CornerRadii r = cornerRounding;
    for (double* const radius : {&r.topLeft, &r.topRight, &r.bottomRight, &r.bottomLeft}) {
        *radius = std::max(*radius, 0.0);
    }
    const double scale = std::min({share(rect.width(), r.topLeft, r.topRight),
                                   share(rect.width(), r.bottomLeft, r.bottomRight),
                                   share(rect.height(), r.topLeft, r.bottomLeft),
                                   share(rect.height(), r.topRight, r.bottomRight)});
    // The square around the circle of each corner.
    const auto corner = [scale](QPointF at, double radius, int x, int y) {
        const double side = 2 * scale * radius;
        return QRectF(at.x() - (x > 0 ? side : 0), at.y() - (y > 0 ? side : 0), side, side);
    };
    QPainterPath path;
    path.moveTo(rect.left() + scale * r.topLeft, rect.top());
    addCorner(path, corner(rect.topRight(), r.topRight, 1, -1), 90);
    addCorner(path, corner(rect.bottomRight(), r.bottomRight, 1, 1), 0);
    addCorner(path, corner(rect.bottomLeft(), r.bottomLeft, -1, 1), -90);
    addCorner(path, corner(rect.topLeft(), r.topLeft, -1, -1), 180);
    path.closeSubpath();
    return path;
}

} // namespace driftwood
