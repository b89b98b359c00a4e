#include "makeborder/path.h"

#include <cmath>
#include <cstdio>
#include <numbers>

namespace makeborder {

namespace {

// Micrometres are finer than any printer. There is no "-0".
double rounded(double length) {
    return std::round(length * 10) / 10 + 0.0;
}

Point onCircle(Point centre, double radius, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return {rounded(centre.x + radius * std::cos(angle)), rounded(centre.y + radius * std::sin(angle))};
}

} // namespace

void Path::add(char command, std::initializer_list<double> numbers) {
    data_ += command;
    const char* between = "";
    for (const double number : numbers) {
        char text[32];
        std::snprintf(text, sizeof text, "%s%g", between, rounded(number));
        data_ += text;
        between = " ";
    }
}

void Path::rectangle(Point corner, double width, double height) {
    add('M', {corner.x, corner.y});
    add('h', {width});
    add('v', {height});
    add('h', {-width});
    add('z', {});
}

void Path::ellipse(Point centre, double width, double height, double tilt) {
    const Point left = onCircle(centre, width / 2, 180 - tilt), right = onCircle(centre, width / 2, -tilt);
    add('M', {left.x, left.y});
    for (const double way : {1.0, -1.0})
        add('a', {width / 2, height / 2, -tilt, 1, 1, way * (right.x - left.x), way * (right.y - left.y)});
    add('z', {});
}

void Path::rosette(Point centre, double reach, double petal) {
    constexpr int petals = 8;
    Point from = onCircle(centre, reach, 0);
    add('M', {from.x, from.y});
    for (int i = 1; i <= petals; ++i) {
        const Point to = onCircle(centre, reach, i * 360.0 / petals);
        add('a', {petal, petal, 0, 0, 1, to.x - from.x, to.y - from.y});
        from = to;
    }
    add('z', {});
}

void Path::wave(Point start, int count, double step, double height, bool down) {
    add('M', {start.x, start.y});
    if (down)
        add('q', {-height, step / 2, 0, step});
    else
        add('q', {step / 2, -height, step, 0});
    // A smooth curve mirrors the control point of the one before.
    for (int i = 1; i < count; ++i)
        add('t', {down ? 0 : step, down ? step : 0});
}

void Path::beam(Point corner, double width, double rise, double thickness) {
    add('M', {corner.x, corner.y});
    add('l', {width, -rise});
    add('v', {thickness});
    add('l', {-width, rise});
    add('z', {});
}

} // namespace makeborder
