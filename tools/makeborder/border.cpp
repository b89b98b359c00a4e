#include "makeborder/border.h"

#include <sstream>
#include <stdexcept>
#include <vector>

#include "makeborder/path.h"

namespace makeborder {

namespace {

constexpr double pageWidth = 29700, pageHeight = 21000;
constexpr Point pageCentre{pageWidth / 2, pageHeight / 2};

// The middle line of the band runs that far inside the page; between flowers in the corners it is filled with
// half waves.
constexpr double band = 1750, cornerRoom = 775, step = 725;
constexpr int stepsAcross = 34, stepsDown = 22;
constexpr int stepsForMedallion = 4; // left out in the middle of the upper side
static_assert(2 * (band + cornerRoom) + stepsAcross * step == pageWidth);
static_assert(2 * (band + cornerRoom) + stepsDown * step == pageHeight);

constexpr Point corners[] = {
    {band, band}, {pageWidth - band, band}, {band, pageHeight - band}, {pageWidth - band, pageHeight - band}};
constexpr Point medallion{pageWidth / 2, band};

struct Side {
    Point start;
    int steps;
    bool down;
};
constexpr int stepsBeside = (stepsAcross - stepsForMedallion) / 2;
constexpr Side sides[] = {{{band + cornerRoom, band}, stepsBeside, false},
                          {{medallion.x + stepsForMedallion / 2 * step, band}, stepsBeside, false},
                          {{band + cornerRoom, pageHeight - band}, stepsAcross, false},
                          {{band, band + cornerRoom}, stepsDown, true},
                          {{pageWidth - band, band + cornerRoom}, stepsDown, true}};

constexpr const char* gold = "#b08d3c";
constexpr const char* paleGold = "#e3d3a4";
constexpr const char* bronze = "#7a5c1e";
constexpr const char* ivory = "#fdfaf1";
constexpr const char* deepIvory = "#f5ecd3";
constexpr const char* white = "#ffffff";

struct Style {
    const char* name;
    const char* line; // its colour; null: none
    const char* width;
    const char* fill; // null: none
};
constexpr Style styles[] = {
    {"wash", nullptr, "", ivory},
    {"washline", deepIvory, "0.25mm", nullptr},
    {"ruleThick", gold, "1.1mm", nullptr},
    {"ruleThin", bronze, "0.25mm", nullptr},
    {"rule", gold, "0.5mm", nullptr},
    {"waveLight", paleGold, "0.2mm", nullptr},
    {"wave", gold, "0.4mm", nullptr},
    {"dot", nullptr, "", bronze},
    {"plate", nullptr, "", white},
    {"petal", bronze, "0.3mm", paleGold},
    {"petalInner", bronze, "0.25mm", white},
    {"ring", gold, "0.5mm", ivory},
    {"note", nullptr, "", bronze},
};

// A flower behind the text, too pale to be in its way.
void wash(Path& path) {
    path.rosette(pageCentre, 5040, 2080);
}
void washLines(Path& path) {
    for (int i = 0; i < 3; ++i)
        path.rosette(pageCentre, 4256 - 784 * i, 1750 - 320 * i);
}

// A rectangle that far inside the page.
void rule(Path& path, double inset) {
    path.rectangle({inset, inset}, pageWidth - 2 * inset, pageHeight - 2 * inset);
}
void thickRule(Path& path) {
    rule(path, 950);
}
void thinRules(Path& path) {
    rule(path, 1160);
    rule(path, 2340);
}
void innerRule(Path& path) {
    rule(path, 2560);
}

void waves(Path& path, double height) {
    for (const Side& side : sides)
        for (const double way : {height, -height})
            path.wave(side.start, side.steps, step, way, side.down);
}
void lightWaves(Path& path) {
    waves(path, 420);
}
void strongWaves(Path& path) {
    waves(path, 860);
}
void eyes(Path& path) {
    for (const Side& side : sides)
        for (int i = 0; i < side.steps; ++i) {
            const double along = (i + 0.5) * step;
            path.circle({side.start.x + (side.down ? 0 : along), side.start.y + (side.down ? along : 0)}, 85);
        }
}

// Room for what stands on the band.
void plates(Path& path) {
    for (const Point& corner : corners)
        path.circle(corner, 740);
    path.circle(medallion, 1260);
}
void flowers(Path& path) {
    for (const Point& corner : corners)
        path.rosette(corner, 560, 235);
}
void flowerHearts(Path& path) {
    for (const Point& corner : corners)
        path.rosette(corner, 308, 130);
}
void flowerEyes(Path& path) {
    for (const Point& corner : corners)
        path.circle(corner, 110);
}
void ring(Path& path) {
    path.circle(medallion, 1100);
}

// Two quavers joined by a beam that rises to the right. What overlaps is filled by one path each: within one,
// it would be a hole.
constexpr double rise = 145, between = 756, stem = 86, stemHeight = 912;
Point headOf(int note) {
    return {medallion.x - 392 + note * between, medallion.y + 500 - note * rise};
}
Point stemOf(int note) {
    const Point head = headOf(note);
    return {head.x + 120, head.y - 58 - stemHeight};
}
void heads(Path& path) {
    for (const int i : {0, 1})
        path.ellipse(headOf(i), 434, 312, 18);
}
void stems(Path& path) {
    for (const int i : {0, 1})
        path.rectangle(stemOf(i), stem, stemHeight);
}
void beam(Path& path) {
    path.beam(stemOf(0), between + stem, rise * (between + stem) / between, 210);
}

// From the back to the front.
struct Drawing {
    const char* style;
    void (*draw)(Path& path);
};
constexpr Drawing drawings[] = {
    {"wash", wash},
    {"washline", washLines},
    {"ruleThick", thickRule},
    {"ruleThin", thinRules},
    {"rule", innerRule},
    {"waveLight", lightWaves},
    {"wave", strongWaves},
    {"dot", eyes},
    {"plate", plates},
    {"petal", flowers},
    {"petalInner", flowerHearts},
    {"dot", flowerEyes},
    {"ring", ring},
    {"note", heads},
    {"note", stems},
    {"note", beam},
};

std::string styleElements() {
    std::ostringstream out;
    for (const Style& style : styles) {
        out << "    <style:style style:name=\"" << style.name << "\" style:family=\"graphic\">\n"
            << "      <style:graphic-properties draw:stroke=\"" << (style.line ? "solid" : "none") << "\"";
        if (style.line)
            out << " svg:stroke-width=\"" << style.width << "\" svg:stroke-color=\"" << style.line
                << "\" draw:stroke-linejoin=\"miter\"";
        out << " draw:fill=\"" << (style.fill ? "solid" : "none") << "\"";
        if (style.fill) out << " draw:fill-color=\"" << style.fill << "\"";
        out << " style:run-through=\"background\" style:wrap=\"run-through\""
               " style:number-wrapped-paragraphs=\"no-limit\""
               " style:vertical-pos=\"from-top\" style:vertical-rel=\"page\""
               " style:horizontal-pos=\"from-left\" style:horizontal-rel=\"page\""
               " draw:wrap-influence-on-position=\"once-concurrent\" style:flow-with-text=\"false\"/>\n"
            << "    </style:style>\n";
    }
    return out.str();
}

std::string drawingElements() {
    std::ostringstream out;
    int depth = 0;
    for (const Drawing& drawing : drawings) {
        Path path;
        drawing.draw(path);
        // A path is placed by its bounds: with two corners of the page in it these are the page.
        out << "          <draw:path text:anchor-type=\"paragraph\" draw:z-index=\"" << depth++
            << "\" draw:style-name=\"" << drawing.style
            << "\" svg:x=\"0mm\" svg:y=\"0mm\" svg:width=\"297mm\" svg:height=\"210mm\""
            << " svg:viewBox=\"0 0 " << pageWidth << " " << pageHeight << "\" svg:d=\"M0 0zM" << pageWidth
            << " " << pageHeight << "z" << path.data() << "\"/>\n";
    }
    return out.str();
}

// Replaces the lines between two marks.
std::string replaced(std::string_view text, const std::string& mark, const std::string& lines) {
    const std::string first = "<!-- border: " + mark + " -->\n", last = "<!-- border: end -->";
    const std::size_t found = text.find(first), from = found + first.size();
    const std::size_t end = found == text.npos ? found : text.find(last, from);
    if (end == text.npos) throw std::runtime_error("the mark \"border: " + mark + "\" or its end is lacking");
    const std::size_t to = text.rfind('\n', end) + 1; // the indent of the last mark stays
    return std::string(text.substr(0, from)) + lines + std::string(text.substr(to));
}

} // namespace

std::string withBorder(std::string_view text) {
    return replaced(replaced(text, "styles", styleElements()), "drawings", drawingElements());
}

} // namespace makeborder
