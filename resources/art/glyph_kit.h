// What the glyphs of the buttons are built from: a pen that fits a glyph's units to the pixels of
// the size being drawn, the materials, and the things that recur from one glyph to another.
#pragma once

#include <vector>

#include "resources/art/shapes.h"

// A glyph is drawn in units of which one is a pixel of the small set. Straight edges are put on
// whole pixels at every size, so that the large set is as crisp as the small one.
struct Pen {
    Layer& layer;
    double left;   // pixels
    double top;    // pixels
    double scale;  // pixels to a unit
};

double X(const Pen& pen, double x);
double Y(const Pen& pen, double y);
Field BoxOf(const Pen& pen, double left, double top, double right, double bottom,
            double cornerRadius = 0);
Field PolygonOf(const Pen& pen, const std::vector<Point>& points);
Field CircleOf(const Pen& pen, double x, double y, double radius);
// Not put on whole pixels: for slanted and curved lines.
Field FreePolygonOf(const Pen& pen, const std::vector<Point>& points);
Field StrokeOf(const Pen& pen, const std::vector<Point>& points, double width);
Field ArcOf(const Pen& pen, double x, double y, double radius, double width, double fromTurn,
            double toTurn);

constexpr Body kBrass = {kInk, kHoney, kAmber, kCopper};
constexpr Body kPaper = {kInk, kCream, kCream, kHoney};
constexpr Body kEnamel = {kInk, kAqua, kTeal, kDeepTeal};
constexpr Body kRed = {kInk, kHoney, kTomato, kBrick};
constexpr Body kGreen = {kInk, kCream, kLeaf, kMoss};
constexpr Body kWood = {kInk, kAmber, kCopper, kUmber};
constexpr Body kSilver = {kInk, kCream, kAqua, kTeal};
constexpr Body kGlass = {kInk, kUmber, kInk, kInk};
constexpr Body kUnlit = {kInk, kCopper, kCopper, kUmber};  // brass that is switched off

// A filled shape with the house's line and light.
void DrawBody(const Pen& pen, const Field& field, const Body& body);
// A shape of one colour.
void DrawFlat(const Pen& pen, const Field& field, Index index);

// Recurring things, placed by their corners or centres in units.
void DrawSheet(const Pen& pen, double left, double top, double width, double height, int lines);
void DrawCard(const Pen& pen, double left, double top, double width, double height);
void DrawDisc(const Pen& pen, double x, double y, double radius);
void DrawFolder(const Pen& pen, double left, double top, double right, double bottom);
// Its two halves, for what lies in the folder.
void DrawFolderBack(const Pen& pen, double left, double top, double right, double bottom);
void DrawFolderFront(const Pen& pen, double left, double top, double right, double bottom);
// The point is at (x, y), the rest reaches to the upper right.
void DrawPencil(const Pen& pen, double x, double y, double length, double half = 2.6);
void DrawWaveScreen(const Pen& pen, double left, double top, double right, double bottom);
void DrawKnob(const Pen& pen, double x, double y, double radius);
void DrawSpeaker(const Pen& pen, double left, double middle, double size, const Body& cone);
Field TickOf(const Pen& pen, double left, double top, double size);
Field CrossOf(const Pen& pen, double left, double top, double size);
Field ArrowRightOf(const Pen& pen, double left, double middle, double length, double half);
Field ArrowDownOf(const Pen& pen, double middle, double top, double length, double half);

// The program's emblem: a disc that sets in a lake, inside a ring. Colours as ramps, so that the
// icon can bring its own.
struct EmblemColours {
    Index line;
    std::vector<Index> sky;  // from the top down
    Index disc;
    Index discShade;
    Index hills;
    std::vector<Index> water;  // from the shore down
    Index glint;
};
EmblemColours HouseEmblem();
void PaintEmblem(Layer& layer, Point centre, double radius, double lineWidth,
                 const EmblemColours& colours);
