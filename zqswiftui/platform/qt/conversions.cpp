// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/qt/conversions.hpp>

namespace zq::qt {

QPainterPath toPainterPath(const Path& path, Point offset, double scaleX, double scaleY) {
  QPainterPath result;
  result.reserve(static_cast<int>(path.elements().size() * 3));
  result.setFillRule(Qt::WindingFill);
  const auto at = [&](Point p) {
    return QPointF(p.x * scaleX + offset.x, p.y * scaleY + offset.y);
  };
  for (const Path::Element& e : path.elements()) {
    switch (e.verb) {
      case Path::Verb::move:
        result.moveTo(at(e.p3));
        break;
      case Path::Verb::line:
        result.lineTo(at(e.p3));
        break;
      case Path::Verb::cubic:
        result.cubicTo(at(e.p1), at(e.p2), at(e.p3));
        break;
      case Path::Verb::close:
        result.closeSubpath();
        break;
    }
  }
  return result;
}

}  // namespace zq::qt
