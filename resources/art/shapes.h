// Shapes as signed distances, and the painting of them on a grid finer than the pixels, from which
// a picture of sixteen colours is then resolved.
//
// Only +, -, *, / and sqrt are used, which every compiler rounds alike; the sine is our own. So the
// same picture comes out of every build.
#pragma once

#include <functional>
#include <vector>

#include "resources/art/picture.h"

struct Point {
    double x;
    double y;
};

// Distance in pixels from a point to the edge of a shape, negative inside.
using Field = std::function<double(double x, double y)>;

Field Circle(Point centre, double radius);
Field Ellipse(Point centre, double radiusX, double radiusY);
Field Box(double left, double top, double right, double bottom, double cornerRadius = 0);
// Closed, filled by the even-odd rule.
Field Polygon(std::vector<Point> points);
// An open line with round ends.
Field Stroke(std::vector<Point> points, double width);
// Part of a circle's line, angles in turns, clockwise from the right, from below to.
Field Arc(Point centre, double radius, double width, double fromTurn, double toTurn);
Field Union(Field a, Field b);
Field Minus(Field a, Field b);
Field Both(Field a, Field b);
Field Moved(Field field, double x, double y);
Field Grown(Field field, double by);

// Angle in turns.
double Sine(double turns);
double Cosine(double turns);
// The angle of (x, y) in turns, 0 to 1, clockwise on the screen from the right.
double Turn(double x, double y);

// Points of a curve from a to d with the control points b and c.
std::vector<Point> Curve(Point a, Point b, Point c, Point d);

constexpr int kSamples = 4;  // along each side of a pixel

// Samples of a picture, each the index of a colour or kClear.
struct Layer {
    int width = 0;   // pixels
    int height = 0;  // pixels
    std::vector<Index> samples;
};

Layer MakeLayer(int width, int height, Index fill = kClear);

// How a body is coloured: a line along its edge, then a band that is lighter where the edge looks
// to the light at the upper left and darker where it looks away.
struct Body {
    Index line;
    Index light;
    Index fill;
    Index dark;
};

void Paint(Layer& layer, const Field& field, Index index);
// The colour is chosen for every sample by the shader.
using Shader = std::function<Index(double x, double y)>;
void PaintShaded(Layer& layer, const Field& field, const Shader& shader);
void PaintBody(Layer& layer, const Field& field, const Body& body, double lineWidth,
               double bandWidth);

// Chooses between the colours of a ramp by a fixed pattern of dots; value from 0 to 1.
Index Dither(const std::vector<Index>& ramp, double value, double x, double y);

// What becomes of a pixel that the shape covers by half.
enum class EdgeRule {
    kRelief,  // the system's shadow colour, which suits any background
    kHard     // all or nothing
};

// One index per pixel: mixed samples take the nearest of the palette's own colours, never a
// reserved one, so that no fixed colour of the background's kind remains when that changes.
Picture Resolve(const Layer& layer, const Palette& palette, EdgeRule rule);
