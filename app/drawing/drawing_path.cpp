#include "app/drawing/drawing_path.h"

#include <QLineF>
#include <QPointF>
#include <QRectF>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

namespace tarvolt {

namespace {

/// Adds the arc of a circle from the path's end to `end`. A radius too small for the distance grows to half of it.
void addArc(QPainterPath& path, double radius, bool large, bool clockwise, QPointF end) {
    const QPointF start = path.currentPosition();
    const QPointF half = (end - start) / 2;
    const double reach = std::hypot(half.x(), half.y());
    if (reach == 0) {
        return;
    }
    const double circle = std::max(radius, reach);
    const double aside = std::sqrt(circle * circle - reach * reach) / reach;
    const double side = large == clockwise ? -1 : 1;
    const QPointF centre = (start + end) / 2 + QPointF(-half.y(), half.x()) * (aside * side);
    const auto angle = [&](QPointF point) { return QLineF(centre, point).angle(); };
    double sweep = angle(end) - angle(start);
    constexpr double turn = 360;
    if (clockwise && sweep > 0) {
        sweep -= turn;
    } else if (!clockwise && sweep < 0) {
        sweep += turn;
    }
    const QRectF box(centre.x() - circle, centre.y() - circle, 2 * circle, 2 * circle);
    path.arcTo(box, angle(start), sweep);
}

class Reader {
public:
    explicit Reader(std::string_view data) : rest_(data) {}

    QPainterPath read() {
        skipSeparators();
        while (!rest_.empty()) {
            if (std::isalpha(static_cast<unsigned char>(rest_.front())) != 0) {
                command_ = rest_.front();
                rest_.remove_prefix(1);
            }
            step();
            skipSeparators();
        }
        return path_;
    }

private:
    void step() {
        const bool relative = std::islower(static_cast<unsigned char>(command_)) != 0;
        const QPointF from = relative ? path_.currentPosition() : QPointF();
        switch (std::toupper(static_cast<unsigned char>(command_))) {
        case 'M':
            path_.moveTo(from + point());
            command_ = relative ? 'l' : 'L';
            break;
        case 'L':
            path_.lineTo(from + point());
            break;
        case 'H':
            path_.lineTo(from.x() + number(), path_.currentPosition().y());
            break;
        case 'V':
            path_.lineTo(path_.currentPosition().x(), from.y() + number());
            break;
        case 'C':
            curve(from);
            break;
        case 'A':
            arc(from);
            break;
        default:
            path_.closeSubpath();
            break;
        }
    }

    void curve(QPointF from) {
        const QPointF first = from + point();
        const QPointF second = from + point();
        path_.cubicTo(first, second, from + point());
    }

    void arc(QPointF from) {
        const double radius = number();
        number(); // the second radius, the same
        number(); // the rotation, which a circle has not
        const bool large = flag();
        const bool clockwise = flag();
        addArc(path_, radius, large, clockwise, from + point());
    }

    QPointF point() {
        const double x = number();
        return {x, number()};
    }

    double number() {
        skipSeparators();
        double value = 0;
        const auto result = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value, std::chars_format::fixed);
        rest_.remove_prefix(static_cast<std::size_t>(result.ptr - rest_.data()));
        return value;
    }

    /// One digit, which may be followed by the next number without a break.
    bool flag() {
        skipSeparators();
        const bool set = rest_.front() == '1';
        rest_.remove_prefix(1);
        return set;
    }

    void skipSeparators() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" ,"), rest_.size())); }

    std::string_view rest_;
    QPainterPath path_;
    char command_ = 'M';
};

} // namespace

QPainterPath drawingPath(std::string_view data) {
    return Reader(data).read();
}

} // namespace tarvolt
