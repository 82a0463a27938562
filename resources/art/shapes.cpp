// Signed distances, their painting on samples, and the resolving of samples into pixels.
#include "resources/art/shapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

Field Circle(Point centre, double radius) {
    return [=](double x, double y) {
        const double dx = x - centre.x;
        const double dy = y - centre.y;
        return std::sqrt(dx * dx + dy * dy) - radius;
    };
}

Field Ellipse(Point centre, double radiusX, double radiusY) {
    return [=](double x, double y) {
        const double dx = (x - centre.x) / radiusX;
        const double dy = (y - centre.y) / radiusY;
        const double length = std::sqrt(dx * dx + dy * dy);
        const double gx = dx / radiusX;
        const double gy = dy / radiusY;
        const double slope = std::sqrt(gx * gx + gy * gy);
        if (slope < 1e-9) return -std::min(radiusX, radiusY);
        return length * (length - 1) / slope;
    };
}

Field Box(double left, double top, double right, double bottom, double cornerRadius) {
    const double middleX = (left + right) / 2;
    const double middleY = (top + bottom) / 2;
    const double halfX = (right - left) / 2 - cornerRadius;
    const double halfY = (bottom - top) / 2 - cornerRadius;
    return [=](double x, double y) {
        const double dx = std::fabs(x - middleX) - halfX;
        const double dy = std::fabs(y - middleY) - halfY;
        const double outX = std::max(dx, 0.0);
        const double outY = std::max(dy, 0.0);
        return std::sqrt(outX * outX + outY * outY) + std::min(std::max(dx, dy), 0.0) -
               cornerRadius;
    };
}

static double DistanceToSegment(Point a, Point b, double x, double y) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    double along = square > 0 ? ((x - a.x) * dx + (y - a.y) * dy) / square : 0;
    along = std::clamp(along, 0.0, 1.0);
    const double ox = x - (a.x + along * dx);
    const double oy = y - (a.y + along * dy);
    return std::sqrt(ox * ox + oy * oy);
}

Field Polygon(std::vector<Point> points) {
    return [points = std::move(points)](double x, double y) {
        bool inside = false;
        double distance = 1e9;
        Point a = points.back();
        for (const Point& b : points) {
            distance = std::min(distance, DistanceToSegment(a, b, x, y));
            if ((a.y > y) != (b.y > y) && x < a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y)) {
                inside = !inside;
            }
            a = b;
        }
        return inside ? -distance : distance;
    };
}

Field Stroke(std::vector<Point> points, double width) {
    return [points = std::move(points), width](double x, double y) {
        double distance = 1e9;
        for (std::size_t i = 1; i < points.size(); ++i) {
            distance = std::min(distance, DistanceToSegment(points[i - 1], points[i], x, y));
        }
        return distance - width / 2;
    };
}

Field Arc(Point centre, double radius, double width, double fromTurn, double toTurn) {
    const Point from = {centre.x + radius * Cosine(fromTurn), centre.y + radius * Sine(fromTurn)};
    const Point to = {centre.x + radius * Cosine(toTurn), centre.y + radius * Sine(toTurn)};
    return [=](double x, double y) {
        const double dx = x - centre.x;
        const double dy = y - centre.y;
        double turn = Turn(dx, dy);
        while (turn < fromTurn)
            turn += 1;
        if (turn <= toTurn) return std::fabs(std::sqrt(dx * dx + dy * dy) - radius) - width / 2;
        return std::min(DistanceToSegment(from, from, x, y), DistanceToSegment(to, to, x, y)) -
               width / 2;
    };
}

Field Union(Field a, Field b) {
    return [a = std::move(a), b = std::move(b)](double x, double y) {
        return std::min(a(x, y), b(x, y));
    };
}

Field Minus(Field a, Field b) {
    return [a = std::move(a), b = std::move(b)](double x, double y) {
        return std::max(a(x, y), -b(x, y));
    };
}

Field Both(Field a, Field b) {
    return [a = std::move(a), b = std::move(b)](double x, double y) {
        return std::max(a(x, y), b(x, y));
    };
}

Field Moved(Field field, double x, double y) {
    return [field = std::move(field), x, y](double px, double py) { return field(px - x, py - y); };
}

Field Grown(Field field, double by) {
    return [field = std::move(field), by](double x, double y) { return field(x, y) - by; };
}

double Sine(double turns) {
    turns -= std::floor(turns);
    double sign = 1;
    if (turns >= 0.5) {
        turns -= 0.5;
        sign = -1;
    }
    if (turns > 0.25) turns = 0.5 - turns;
    const double a = turns * 6.283185307179586;
    const double q = a * a;
    return sign * a *
           (1 - q / 6 * (1 - q / 20 * (1 - q / 42 * (1 - q / 72 * (1 - q / 110 * (1 - q / 156))))));
}

double Cosine(double turns) {
    return Sine(turns + 0.25);
}

double Turn(double x, double y) {
    const double ax = std::fabs(x);
    const double ay = std::fabs(y);
    if (ax + ay < 1e-12) return 0;
    // Halving the angle twice brings the tangent below 0.2, where a few terms of the series
    // suffice.
    double t = std::min(ax, ay) / std::max(ax, ay);
    t = t / (1 + std::sqrt(1 + t * t));
    t = t / (1 + std::sqrt(1 + t * t));
    const double q = t * t;
    const double quarter = t * (1 - q * (1.0 / 3 - q * (1.0 / 5 - q * (1.0 / 7 - q / 9))));
    double turn = 4 * quarter / 6.283185307179586;
    if (ay > ax) turn = 0.25 - turn;
    if (x < 0) turn = 0.5 - turn;
    if (y < 0) turn = 1 - turn;
    return turn >= 1 ? turn - 1 : turn;
}

std::vector<Point> Curve(Point a, Point b, Point c, Point d) {
    constexpr int kSteps = 12;
    std::vector<Point> points;
    for (int i = 0; i <= kSteps; ++i) {
        const double t = static_cast<double>(i) / kSteps;
        const double s = 1 - t;
        const double wa = s * s * s;
        const double wb = 3 * s * s * t;
        const double wc = 3 * s * t * t;
        const double wd = t * t * t;
        points.push_back(
            {wa * a.x + wb * b.x + wc * c.x + wd * d.x, wa * a.y + wb * b.y + wc * c.y + wd * d.y});
    }
    return points;
}

Layer MakeLayer(int width, int height, Index fill) {
    const auto count =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kSamples * kSamples;
    return {width, height, std::vector<Index>(count, fill)};
}

// Calls `choose(x, y, distance)` for every sample inside the field; `choose` answers its colour.
template <typename Choose>
static void VisitInside(Layer& layer, const Field& field, const Choose& choose) {
    constexpr double kHalfDiagonal = 0.75;
    const int samplesPerRow = layer.width * kSamples;
    for (int row = 0; row < layer.height; ++row) {
        for (int column = 0; column < layer.width; ++column) {
            if (field(column + 0.5, row + 0.5) > kHalfDiagonal) continue;
            for (int i = 0; i < kSamples * kSamples; ++i) {
                const int sampleX = column * kSamples + i % kSamples;
                const int sampleY = row * kSamples + i / kSamples;
                const double x = (sampleX + 0.5) / kSamples;
                const double y = (sampleY + 0.5) / kSamples;
                const double distance = field(x, y);
                if (distance >= 0) continue;
                layer.samples[static_cast<std::size_t>(sampleY * samplesPerRow + sampleX)] =
                    choose(x, y, distance);
            }
        }
    }
}

void Paint(Layer& layer, const Field& field, Index index) {
    VisitInside(layer, field, [&](double, double, double) { return index; });
}

void PaintShaded(Layer& layer, const Field& field, const Shader& shader) {
    VisitInside(layer, field, [&](double x, double y, double) { return shader(x, y); });
}

void PaintBody(Layer& layer, const Field& field, const Body& body, double lineWidth,
               double bandWidth) {
    constexpr double kStep = 0.05;
    constexpr double kTowardsLight = 0.35;
    VisitInside(layer, field, [&](double x, double y, double distance) {
        if (distance > -lineWidth) return body.line;
        if (distance < -lineWidth - bandWidth) return body.fill;
        const double nx = field(x + kStep, y) - field(x - kStep, y);
        const double ny = field(x, y + kStep) - field(x, y - kStep);
        const double length = std::sqrt(nx * nx + ny * ny);
        if (length < 1e-9) return body.fill;
        const double facing = -(nx + ny) / (length * 1.4142135623730951);
        if (facing > kTowardsLight) return body.light;
        return facing < -kTowardsLight ? body.dark : body.fill;
    });
}

Index Dither(const std::vector<Index>& ramp, double value, double x, double y) {
    static constexpr int kOrder[4][4] = {
        {0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    const auto column = static_cast<std::size_t>(static_cast<int>(std::floor(x)) & 3);
    const auto row = static_cast<std::size_t>(static_cast<int>(std::floor(y)) & 3);
    const double threshold = (kOrder[row][column] + 0.5) / 16;
    const double steps = static_cast<double>(ramp.size() - 1);
    const double position = std::clamp(value, 0.0, 1.0) * steps;
    auto step = static_cast<std::size_t>(position);
    if (position - static_cast<double>(step) > threshold) ++step;
    return ramp[std::min(step, ramp.size() - 1)];
}

// Mixing must not leave the hues that meet in a pixel: between a brass edge and its dark line there
// is brown, never the green that happens to lie nearest.
enum HueClass : unsigned { kNeutral = 0, kWarm = 1, kRed = 2, kGreen = 4, kCold = 8, kViolet = 16 };

static unsigned ClassOf(const Colour& colour) {
    constexpr int kFaint = 36;
    const int least = std::min({colour.red, colour.green, colour.blue});
    const int most = std::max({colour.red, colour.green, colour.blue});
    if (most - least < kFaint) return kNeutral;
    if (colour.red == least) return kCold;
    if (colour.green == most) return kGreen;
    if (colour.red != most) return kViolet;
    return colour.red - colour.green > 3 * (colour.green - colour.blue) ? kRed : kWarm;
}

static int Nearest(const Palette& palette, unsigned classes, double red, double green,
                   double blue) {
    int best = kReservedCount;
    double bestDistance = 1e18;
    for (int i = kReservedCount; i < 16; ++i) {
        const Colour& colour = palette[static_cast<std::size_t>(i)];
        const unsigned hue = ClassOf(colour);
        if (hue != kNeutral && (hue & classes) == 0) continue;
        const double dr = colour.red - red;
        const double dg = colour.green - green;
        const double db = colour.blue - blue;
        const double distance = 3 * dr * dr + 6 * dg * dg + 2 * db * db;
        if (distance < bestDistance) {
            bestDistance = distance;
            best = i;
        }
    }
    return best;
}

static Index ResolvePixel(const std::array<int, 256>& counts, const Palette& palette,
                          EdgeRule rule) {
    constexpr int kAll = kSamples * kSamples;
    int own = 0;
    unsigned classes = kNeutral;
    double red = 0;
    double green = 0;
    double blue = 0;
    for (int i = kReservedCount; i < 16; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        if (counts[slot] == kAll) return static_cast<Index>(i);
        if (counts[slot] == 0) continue;
        own += counts[slot];
        classes |= ClassOf(palette[slot]);
        red += counts[slot] * palette[slot].red;
        green += counts[slot] * palette[slot].green;
        blue += counts[slot] * palette[slot].blue;
    }
    Index background = kClear;
    for (Index i = 0; i < kReservedCount; ++i) {
        if (counts[i] > 0 && (background == kClear || counts[i] > counts[background])) {
            background = i;
        }
    }
    if (background != kClear && counts[kClear] > counts[background]) background = kClear;
    if (own == 0) return background;
    red /= own;
    green /= own;
    blue /= own;
    if (classes == kNeutral) classes = kWarm;
    const auto nearest = static_cast<Index>(Nearest(palette, classes, red, green, blue));
    if (own >= kAll * 5 / 8) return nearest;
    if (rule == EdgeRule::kHard) return own >= kAll / 2 ? nearest : background;
    const bool dark = 2 * red + 5 * green + blue < 8 * 80;
    if (dark) return own >= kAll * 3 / 8 ? kReliefShade : background;
    return own >= kAll / 2 ? nearest : background;
}

Picture Resolve(const Layer& layer, const Palette& palette, EdgeRule rule) {
    Picture picture = MakePicture(layer.width, layer.height, kClear);
    const int samplesPerRow = layer.width * kSamples;
    for (int row = 0; row < layer.height; ++row) {
        for (int column = 0; column < layer.width; ++column) {
            std::array<int, 256> counts{};
            for (int i = 0; i < kSamples * kSamples; ++i) {
                const int sampleX = column * kSamples + i % kSamples;
                const int sampleY = row * kSamples + i / kSamples;
                ++counts[layer
                             .samples[static_cast<std::size_t>(sampleY * samplesPerRow + sampleX)]];
            }
            SetPixel(picture, column, row, ResolvePixel(counts, palette, rule));
        }
    }
    return picture;
}
