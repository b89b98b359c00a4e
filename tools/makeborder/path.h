#pragma once
// Outlines as the data of an SVG path. All lengths are hundredths of a millimetre, x to the right and y down.

#include <string>

namespace makeborder {

struct Point {
    double x, y;
};

class Path {
public:
    // Clockwise from its upper left corner.
    void rectangle(Point corner, double width, double height);
    // `tilt` in degrees, anticlockwise.
    void ellipse(Point centre, double width, double height, double tilt = 0);
    void circle(Point centre, double radius) { ellipse(centre, 2 * radius, 2 * radius); }
    // Eight arcs of radius `petal` between points on a circle of radius `reach`.
    void rosette(Point centre, double reach, double petal);
    // Half waves to both sides of a straight line in turn, each `step` long: across, or down. `height` is
    // that of the curve's control points, twice the wave's; a negative one begins on the other side.
    void wave(Point start, int count, double step, double height, bool down);
    // A parallelogram: from the corner along (width, rise), and `thickness` high.
    void beam(Point corner, double width, double rise, double thickness);

    const std::string& data() const { return data_; }

private:
    void add(char command, std::initializer_list<double> numbers);

    std::string data_;
};

} // namespace makeborder
