// The pen, and the things that recur from one glyph to another.
#include "resources/art/glyph_kit.h"

#include <algorithm>
#include <cmath>

static double Whole(double value) {
    return std::floor(value + 0.5);
}

static double Half(double value) {
    return std::floor(value * 2 + 0.5) / 2;
}

double X(const Pen& pen, double x) {
    return pen.left + Whole(x * pen.scale);
}

double Y(const Pen& pen, double y) {
    return pen.top + Whole(y * pen.scale);
}

static Point Free(const Pen& pen, Point point) {
    return {pen.left + point.x * pen.scale, pen.top + point.y * pen.scale};
}

static std::vector<Point> Free(const Pen& pen, std::vector<Point> points) {
    for (Point& point : points)
        point = Free(pen, point);
    return points;
}

Field BoxOf(const Pen& pen, double left, double top, double right, double bottom,
            double cornerRadius) {
    return Box(X(pen, left), Y(pen, top), X(pen, right), Y(pen, bottom), cornerRadius * pen.scale);
}

Field PolygonOf(const Pen& pen, const std::vector<Point>& points) {
    std::vector<Point> whole;
    for (const Point& point : points)
        whole.push_back({X(pen, point.x), Y(pen, point.y)});
    return Polygon(whole);
}

Field CircleOf(const Pen& pen, double x, double y, double radius) {
    return Circle({pen.left + Half(x * pen.scale), pen.top + Half(y * pen.scale)},
                  Half(radius * pen.scale));
}

Field FreePolygonOf(const Pen& pen, const std::vector<Point>& points) {
    return Polygon(Free(pen, points));
}

Field StrokeOf(const Pen& pen, const std::vector<Point>& points, double width) {
    return Stroke(Free(pen, points), width * pen.scale);
}

Field ArcOf(const Pen& pen, double x, double y, double radius, double width, double fromTurn,
            double toTurn) {
    return Arc(Free(pen, {x, y}), radius * pen.scale, width * pen.scale, fromTurn, toTurn);
}

static double LineWidth(const Pen& pen) {
    return pen.scale > 1.3 ? 1.25 : 1.0;
}

void DrawBody(const Pen& pen, const Field& field, const Body& body) {
    PaintBody(pen.layer, field, body, LineWidth(pen), 1.2 * pen.scale);
}

void DrawFlat(const Pen& pen, const Field& field, Index index) {
    Paint(pen.layer, field, index);
}

// A line of writing: one pixel high at the small size, two at the large one where there is room.
static void DrawWriting(const Pen& pen, double left, double right, double y, Index index) {
    const double top = Y(pen, y);
    DrawFlat(pen, Box(X(pen, left), top, X(pen, right), top + 1), index);
}

void DrawSheet(const Pen& pen, double left, double top, double width, double height, int lines) {
    const double right = left + width;
    const double bottom = top + height;
    const double fold = std::min(6.0, width * 0.38);
    DrawBody(pen,
             PolygonOf(pen, {{left, top},
                             {right - fold, top},
                             {right, top + fold},
                             {right, bottom},
                             {left, bottom}}),
             kPaper);
    DrawBody(pen,
             PolygonOf(pen, {{right - fold - 1, top},
                             {right, top + fold + 1},
                             {right - fold - 1, top + fold + 1}}),
             {kInk, kHoney, kHoney, kAmber});
    for (int i = 0; i < lines; ++i) {
        const double y = top + fold + 3 + 3 * i;
        DrawWriting(pen, left + 3, right - (i + 1 == lines ? 7 : 3), y, kCopper);
    }
}

void DrawCard(const Pen& pen, double left, double top, double width, double height) {
    DrawBody(pen, BoxOf(pen, left, top, left + width, top + height, 1), kPaper);
    DrawFlat(pen, BoxOf(pen, left + 2, top + 4, left + width - 2, top + 5), kTomato);
    for (double y = top + 7; y < top + height - 2; y += 3) {
        DrawWriting(pen, left + 3, left + width - 3, y, kHoney);
    }
}

void DrawDisc(const Pen& pen, double x, double y, double radius) {
    const Field rim = CircleOf(pen, x, y, radius);
    DrawBody(pen, rim, kSilver);
    const Point centre = Free(pen, {x, y});
    PaintShaded(pen.layer, Grown(rim, -1.6), [&](double px, double py) {
        double turn = Turn(px - centre.x, py - centre.y);
        if (turn >= 0.5) turn -= 0.5;
        if (turn > 0.08 && turn < 0.2) return static_cast<Index>(kCream);
        if (turn >= 0.2 && turn < 0.25) return static_cast<Index>(kHoney);
        return turn > 0.36 && turn < 0.44 ? static_cast<Index>(kTeal) : static_cast<Index>(kAqua);
    });
    DrawBody(pen, CircleOf(pen, x, y, std::max(radius * 0.36, 2.5)), kBrass);
    DrawFlat(pen, CircleOf(pen, x, y, std::max(radius * 0.14, 1.0)), kInk);
}

void DrawFolderBack(const Pen& pen, double left, double top, double right, double bottom) {
    const double tab = (right - left) * 0.42;
    DrawBody(pen,
             PolygonOf(pen, {{left, top + 1},
                             {left + 1, top},
                             {left + tab, top},
                             {left + tab + 2, top + 2},
                             {right - 1, top + 2},
                             {right - 1, bottom},
                             {left, bottom}}),
             {kInk, kHoney, kCopper, kCopper});
}

void DrawFolderFront(const Pen& pen, double left, double top, double right, double bottom) {
    DrawBody(pen,
             PolygonOf(pen, {{left, top + 5}, {right, top + 5}, {right, bottom}, {left, bottom}}),
             kBrass);
}

void DrawFolder(const Pen& pen, double left, double top, double right, double bottom) {
    DrawFolderBack(pen, left, top, right, bottom);
    DrawFolderFront(pen, left, top, right, bottom);
}

void DrawPencil(const Pen& pen, double x, double y, double length, double half) {
    constexpr double kUnit = 0.70710678;
    const auto along = [&](double distance, double side) {
        return Point{x + (distance + side) * kUnit, y - (distance - side) * kUnit};
    };
    DrawBody(pen,
             FreePolygonOf(pen, {along(0, 0), along(2.3 * half, -half), along(length, -half),
                                 along(length, half), along(2.3 * half, half)}),
             kBrass);
    DrawBody(pen,
             FreePolygonOf(pen, {along(0, 0), along(2.5 * half, -half), along(2.5 * half, half)}),
             {kInk, kCream, kCream, kHoney});
    DrawFlat(pen,
             FreePolygonOf(pen, {along(0, 0), along(1.2 * half, -0.55 * half),
                                 along(1.2 * half, 0.55 * half)}),
             kInk);
    DrawBody(pen,
             FreePolygonOf(pen, {along(length - 1.6 * half, -half), along(length, -half),
                                 along(length, half), along(length - 1.6 * half, half)}),
             kRed);
}

void DrawWaveScreen(const Pen& pen, double left, double top, double right, double bottom) {
    DrawBody(pen, BoxOf(pen, left, top, right, bottom, 1.5), kWood);
    DrawFlat(pen, BoxOf(pen, left + 2, top + 2, right - 2, bottom - 2), kInk);
    const double middle = (top + bottom) / 2;
    const double reach = (bottom - top) / 2 - 3.5;
    static constexpr double kHeights[] = {0.2, -0.5, 0.9, -1.0, 0.7, -0.4, 0.25};
    std::vector<Point> wave = {{left + 3, middle}};
    const double step = (right - left - 6) / 8;
    for (int i = 0; i < 7; ++i) {
        wave.push_back({left + 3 + step * (i + 1), middle - reach * kHeights[i]});
    }
    wave.push_back({right - 3, middle});
    DrawFlat(pen, StrokeOf(pen, wave, 1.3), kAmber);
}

void DrawKnob(const Pen& pen, double x, double y, double radius) {
    for (int i = 0; i <= 6; ++i) {
        const double turn = 0.375 + 0.125 * i;
        const double reach = radius + 4;
        DrawBody(pen, CircleOf(pen, x + reach * Cosine(turn), y + reach * Sine(turn), 2),
                 i < 5 ? Body{kInk, kAmber, kAmber, kAmber} : Body{kInk, kUmber, kUmber, kUmber});
    }
    DrawBody(pen, CircleOf(pen, x, y, radius), kWood);
    DrawBody(pen, CircleOf(pen, x, y, radius * 0.72), kBrass);
    const double turn = 0.875;
    DrawFlat(pen,
             StrokeOf(pen,
                      {{x + 0.2 * radius * Cosine(turn), y + 0.2 * radius * Sine(turn)},
                       {x + 0.8 * radius * Cosine(turn), y + 0.8 * radius * Sine(turn)}},
                      1.6),
             kInk);
}

void DrawSpeaker(const Pen& pen, double left, double middle, double size, const Body& cone) {
    const double third = size / 3;
    DrawBody(pen,
             PolygonOf(pen, {{left + third + 1, middle - third * 0.55},
                             {left + size, middle - size * 0.62},
                             {left + size, middle + size * 0.62},
                             {left + third + 1, middle + third * 0.55}}),
             cone);
    DrawBody(pen, BoxOf(pen, left, middle - third * 0.75, left + third + 2, middle + third * 0.75),
             kWood);
}

Field TickOf(const Pen& pen, double left, double top, double size) {
    const double thick = size * 0.26;
    return FreePolygonOf(pen, {{left, top + size * 0.52},
                               {left + thick * 0.75, top + size * 0.52 - thick * 0.75},
                               {left + size * 0.38, top + size * 0.56},
                               {left + size - thick * 0.7, top},
                               {left + size, top + thick * 0.8},
                               {left + size * 0.38, top + size * 0.94}});
}

Field CrossOf(const Pen& pen, double left, double top, double size) {
    const double thick = size * 0.2;
    return FreePolygonOf(pen, {{left + thick, top},
                               {left + size / 2, top + size / 2 - thick},
                               {left + size - thick, top},
                               {left + size, top + thick},
                               {left + size / 2 + thick, top + size / 2},
                               {left + size, top + size - thick},
                               {left + size - thick, top + size},
                               {left + size / 2, top + size / 2 + thick},
                               {left + thick, top + size},
                               {left, top + size - thick},
                               {left + size / 2 - thick, top + size / 2},
                               {left, top + thick}});
}

Field ArrowRightOf(const Pen& pen, double left, double middle, double length, double half) {
    const double shaft = half * 0.42;
    const double right = left + length;
    return PolygonOf(pen, {{left, middle - shaft},
                           {right - half, middle - shaft},
                           {right - half, middle - half},
                           {right, middle},
                           {right - half, middle + half},
                           {right - half, middle + shaft},
                           {left, middle + shaft}});
}

Field ArrowDownOf(const Pen& pen, double middle, double top, double length, double half) {
    const double shaft = half * 0.42;
    const double bottom = top + length;
    return PolygonOf(pen, {{middle - shaft, top},
                           {middle + shaft, top},
                           {middle + shaft, bottom - half},
                           {middle + half, bottom - half},
                           {middle, bottom},
                           {middle - half, bottom - half},
                           {middle - shaft, bottom - half}});
}

EmblemColours HouseEmblem() {
    return {kInk, {kTomato, kAmber, kHoney}, kCream, kAmber, kUmber, {kTeal, kDeepTeal}, kAqua};
}

void PaintEmblem(Layer& layer, Point centre, double radius, double lineWidth,
                 const EmblemColours& colours) {
    const Field ring = Circle(centre, radius);
    const Field inside = Circle(centre, radius - lineWidth);
    const double shore = std::floor(centre.y + radius * 0.18 + 0.5);
    Paint(layer, ring, colours.line);
    PaintShaded(layer, inside, [&](double x, double y) {
        if (y < shore) {
            const double top = centre.y - radius;
            return Dither(colours.sky, (y - top) / (shore - top) * 1.1 - 0.1, x, y);
        }
        return Dither(colours.water, (y - shore) / (centre.y + radius - shore) * 1.3, x, y);
    });
    // Hills to both sides of the water.
    const auto above = [&](double x, double y) {
        return Point{centre.x + radius * x, shore - radius * y};
    };
    for (const double side : {-1.0, 1.0}) {
        const Field hill =
            Polygon({above(side * 1.1, 0), above(side * 1.1, 0.62), above(side * 0.82, 0.4),
                     above(side * 0.66, 0.3), above(side * 0.34, 0)});
        Paint(layer, Both(hill, inside), colours.hills);
    }
    // The disc stands low over the shore; its light lies on the water in broken lines.
    const Point sun = {centre.x, shore - std::floor(radius * 0.42 + 0.5)};
    const double size = radius * 0.4;
    PaintShaded(layer, Circle(sun, size), [&](double x, double y) {
        const double dx = x - sun.x + 0.3 * size;
        const double dy = y - sun.y + 0.3 * size;
        return dx * dx + dy * dy > size * size ? colours.discShade : colours.disc;
    });
    Paint(layer, Circle(sun, std::max(size * 0.24, 0.9)), colours.sky[1]);
    const double step = std::max(2.0, std::floor(radius * 0.2));
    double width = size * 1.2;
    for (double y = shore + 1; y < centre.y + radius - 2; y += step) {
        const double thick = std::max(1.0, step / 2 - 0.5);
        Paint(layer, Both(Box(centre.x - width, y, centre.x + width, y + thick), inside),
              y < shore + step ? colours.disc : colours.glint);
        width *= 0.72;
    }
}
