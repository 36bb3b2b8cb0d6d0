#include "app/gui/result_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <map>
#include <string>
#include <vector>

namespace quillet::gui {
namespace {

constexpr int kSize = 16;

// The heights of the three board ranks in a "ladder" picture (top, middle, bottom board card), and the
// places between, above and below them.
constexpr double kAbove = 3.0, kTop = 5.6, kTopMiddle = 7.1, kMiddle = 8.6, kMiddleBottom = 10.1,
                 kBottom = 11.6, kBelow = 13.5;

void Background(QPainter& p, QColor colour) {
  p.setPen(QPen(colour.darker(150), 1));
  p.setBrush(colour);
  p.drawRoundedRect(QRectF(0.5, 0.5, kSize - 1, kSize - 1), 3, 3);
}

void Ladder(QPainter& p) {
  p.setPen(QPen(QColor(110, 110, 110), 1));
  for (double y : {kTop, kMiddle, kBottom}) p.drawLine(QPointF(3, y), QPointF(13, y));
}

// A card of the holding at height y; two of them (two pair) stand side by side.
void Dot(QPainter& p, double y, bool filled = true, double x = 8) {
  p.setPen(QPen(QColor(20, 20, 90), 1.1));
  p.setBrush(filled ? QColor(20, 20, 90) : QColor(255, 255, 255));
  p.drawEllipse(QPointF(x, y), 1.8, 1.8);
}

void Triangle(QPainter& p, double y) {
  p.setPen(QPen(QColor(90, 0, 90), 1));
  p.setBrush(QColor(90, 0, 90));
  QPainterPath path;
  path.moveTo(8, y - 2.4);
  path.lineTo(10.6, y + 1.8);
  path.lineTo(5.4, y + 1.8);
  path.closeSubpath();
  p.drawPath(path);
}

void Glyph(QPainter& p, const QString& text, QColor colour, int pixelSize, bool bold = true) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(pixelSize);
  font.setBold(bold);
  p.setFont(font);
  p.setPen(colour);
  p.drawText(QRectF(0, 0, kSize, kSize), Qt::AlignCenter, text);
}

// A small sign in the lower right corner, on a white patch so that it reads over the ladder.
void CornerMark(QPainter& p, const QString& text) {
  p.setPen(Qt::NoPen);
  p.setBrush(Qt::white);
  p.drawRect(QRectF(10, 10, 5, 5));
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(7);
  font.setBold(true);
  p.setFont(font);
  p.setPen(QColor(20, 20, 90));
  p.drawText(QRectF(9.5, 9, 6, 7), Qt::AlignCenter, text);
}

void Bars(QPainter& p, const std::vector<double>& heights, QColor colour) {
  const double width = 12.0 / static_cast<double>(heights.size());
  p.setPen(Qt::NoPen);
  p.setBrush(colour);
  for (std::size_t i = 0; i < heights.size(); ++i) {
    const double x = 2 + width * static_cast<double>(i);
    p.drawRect(QRectF(x + 0.4, 14 - heights[i], width - 0.8, heights[i]));
  }
}

void Arrow(QPainter& p, QPointF from, QPointF to) {
  p.drawLine(from, to);
  const double dx = to.x() > from.x() ? -3 : 3;
  p.drawLine(to, QPointF(to.x() + dx, to.y() - 2.5));
  p.drawLine(to, QPointF(to.x() + dx, to.y() + 2.5));
}

void Disc(QPainter& p, QColor colour) {
  p.setPen(QPen(colour.darker(140), 1));
  p.setBrush(colour);
  p.drawEllipse(QRectF(0.8, 0.8, kSize - 1.6, kSize - 1.6));
}

// An icon is drawn as a list of steps on a background. The marks of the "ladder" pictures (Ladder, Dot,
// Triangle, CornerMark), the glyphs and the bars are the functions above; the rest set the pen or the brush
// and draw lines and shapes through the points given.
struct Rgb {
  int r, g, b;
};
QColor ToColour(Rgb c) {
  return QColor(c.r, c.g, c.b);
}

enum class Back { kTile, kDisc };
enum class Mark {
  kLadder,      // the three board ranks
  kDot,         // a card of the holding: {y} or {y, x}
  kHollowDot,   // the same, not filled in (a pair of the board's in two pair)
  kTriangle,    // a set: {y}
  kCornerMark,  // text in the lower right corner
  kGlyph,       // text centred, bold, of `size` pixels
  kPlainGlyph,  // the same, not bold
  kBars,        // bars of the heights given, side by side
  kPen,         // the pen: colour, width `size`, `cap` and `join`
  kBrush,       // the brush: colour
  kLine,        // {x1, y1, x2, y2}
  kArrow,       // a line with an arrowhead at its end: {x1, y1, x2, y2}
  kPolyline,    // lines through the points
  kPolygon,     // a closed shape through the points, outlined and filled
  kRoundedRect  // {x, y, width, height, corner radius}
};

struct Step {
  Mark mark;
  std::vector<double> numbers{};
  Rgb colour{};
  double size = 0;
  const char* text = "";
  Qt::PenCapStyle cap = Qt::SquareCap;
  Qt::PenJoinStyle join = Qt::BevelJoin;
};

struct Drawing {
  const char* key;
  Back back;
  Rgb colour;
  std::vector<Step> steps;
};

constexpr Rgb kPairColour{190, 220, 255};
constexpr Rgb kTwoPairColour{190, 240, 190};
constexpr Rgb kSetColour{235, 205, 250};
constexpr Rgb kDrawColour{255, 214, 160};
constexpr Rgb kWeakDrawColour{255, 240, 190};
constexpr Rgb kMadeColour{255, 236, 140};
constexpr Rgb kRoyalColour{255, 200, 80};
constexpr Rgb kWhite{255, 255, 255};
constexpr Rgb kDrawInk{120, 50, 0};
constexpr Rgb kWeakDrawInk{120, 80, 0};

Drawing Pair(const char* key, double y) {
  return {key, Back::kTile, kPairColour, {{Mark::kLadder}, {Mark::kDot, {y}}}};
}
Drawing Set(const char* key, double y) {
  return {key, Back::kTile, kSetColour, {{Mark::kLadder}, {Mark::kTriangle, {y}}}};
}
// Two pair: both cards of the holding paired (own) or pairs of the board's, with an optional corner sign.
Drawing TwoPair(const char* key, double first, double second, bool own, const char* mark = "") {
  const Mark dot = own ? Mark::kDot : Mark::kHollowDot;
  Drawing d{key, Back::kTile, kTwoPairColour, {{Mark::kLadder}, {dot, {first, 5.2}}, {dot, {second, 10.8}}}};
  if (*mark != '\0') d.steps.push_back({Mark::kCornerMark, {}, {}, 0, mark});
  return d;
}

const std::vector<Drawing>& Drawings() {
  static const std::vector<Drawing> drawings = {
      {"highcard",
       Back::kTile,
       {235, 235, 235},
       {{Mark::kPen, {}, {60, 60, 60}, 1},
        {Mark::kBrush, {}, kWhite},
        {Mark::kRoundedRect, {4, 2, 8, 12, 1.5}},
        {Mark::kGlyph, {}, {40, 40, 40}, 8, "A"}}},
      Pair("pairo", kAbove),
      Pair("pairt", kTop),
      Pair("pairt-m", kTopMiddle),
      Pair("pairm", kMiddle),
      Pair("pairm-b", kMiddleBottom),
      Pair("pairb", kBottom),
      Pair("pairl", kBelow),
      Set("sett", kTop),
      Set("sett-m", kTopMiddle),
      Set("setm", kMiddle),
      Set("setm-b", kMiddleBottom),
      Set("setb", kBottom),
      TwoPair("own2pt-m", kTop, kMiddle, true),
      TwoPair("own2pt-b", kTop, kBottom, true),
      TwoPair("own2pm-b", kMiddle, kBottom, true),
      TwoPair("2po-t", kAbove, kTop, false, ">"),
      TwoPair("2po-teqt", kAbove, kTop, false, "="),
      TwoPair("2po-tnormal", kAbove, kTop, false),
      TwoPair("2pt-m", kTop, kMiddle, false),
      TwoPair("2pt-b", kTop, kBottom, false),
      {"draw8", Back::kTile, kDrawColour, {{Mark::kGlyph, {}, kDrawInk, 9, "8+"}}},
      {"drawoes",
       Back::kTile,
       kDrawColour,
       {{Mark::kPen, {}, kDrawInk, 1.4}, {Mark::kArrow, {8, 8, 2.5, 8}}, {Mark::kArrow, {8, 8, 13.5, 8}}}},
      {"drawflush", Back::kTile, kDrawColour, {{Mark::kPlainGlyph, {}, {0, 110, 0}, 13, "\u2667"}}},
      {"draw", Back::kTile, kWeakDrawColour, {{Mark::kGlyph, {}, kWeakDrawInk, 11, "4"}}},
      {"drawgss",
       Back::kTile,
       kWeakDrawColour,
       {{Mark::kPen, {}, kWeakDrawInk, 1.4},
        {Mark::kLine, {2.5, 10, 6, 10}},
        {Mark::kLine, {10, 10, 13.5, 10}},
        {Mark::kArrow, {8, 3, 8, 9}}}},
      {"drawgsswp",
       Back::kTile,
       kWeakDrawColour,
       {{Mark::kPen, {}, kWeakDrawInk, 1.4},
        {Mark::kLine, {2.5, 10, 6, 10}},
        {Mark::kLine, {10, 10, 13.5, 10}},
        {Mark::kLine, {8, 2.5, 8, 8}},
        {Mark::kLine, {8, 8, 6, 6}},
        {Mark::kLine, {8, 8, 10, 6}},
        {Mark::kDot, {13.2, 12.5}}}},
      {"drawbdf", Back::kTile, kWeakDrawColour, {{Mark::kPlainGlyph, {}, {80, 80, 80}, 11, "\u2667"}}},
      {"drawbds", Back::kTile, kWeakDrawColour, {{Mark::kBars, {3, 5, 7, 9}, {150, 150, 150}}}},
      {"trips", Back::kTile, kSetColour, {{Mark::kBars, {9, 9, 9}, {90, 0, 90}}}},
      {"straight", Back::kTile, kMadeColour, {{Mark::kBars, {3, 5, 7, 9, 11}, {0, 70, 160}}}},
      {"flush", Back::kTile, kMadeColour, {{Mark::kPlainGlyph, {}, {0, 130, 0}, 14, "\u2663"}}},
      {"fullhouse",
       Back::kTile,
       kMadeColour,
       {{Mark::kPen, {}, {130, 40, 0}, 1.2},
        {Mark::kBrush, {}, {230, 120, 60}},
        {Mark::kPolygon, {8, 2.5, 13.5, 7.5, 12, 7.5, 12, 13.5, 4, 13.5, 4, 7.5, 2.5, 7.5}}}},
      {"quad", Back::kTile, kMadeColour, {{Mark::kBars, {10, 10, 10, 10}, {160, 20, 20}}}},
      {"straightflush", Back::kTile, kRoyalColour, {{Mark::kBars, {3, 5, 7, 9, 11}, {200, 0, 0}}}},
      {"royalflush",
       Back::kTile,
       kRoyalColour,
       {{Mark::kPen, {}, {120, 80, 0}, 1},
        {Mark::kBrush, {}, {255, 230, 40}},
        {Mark::kPolygon, {2.5, 12.5, 2.5, 5, 5.5, 8.5, 8, 3.5, 10.5, 8.5, 13.5, 5, 13.5, 12.5}}}},
      {"win",
       Back::kDisc,
       {40, 170, 40},
       {{Mark::kPen, {}, kWhite, 2.0, "", Qt::RoundCap, Qt::RoundJoin},
        {Mark::kPolyline, {4.5, 8.5, 7, 11, 11.5, 5}}}},
      {"tie",
       Back::kDisc,
       {230, 170, 0},
       {{Mark::kPen, {}, kWhite, 2.0, "", Qt::RoundCap},
        {Mark::kLine, {4.5, 6.5, 11.5, 6.5}},
        {Mark::kLine, {4.5, 10, 11.5, 10}}}},
      {"lose",
       Back::kDisc,
       {210, 30, 30},
       {{Mark::kPen, {}, kWhite, 2.0, "", Qt::RoundCap},
        {Mark::kLine, {5, 5, 11, 11}},
        {Mark::kLine, {11, 5, 5, 11}}}},
  };
  return drawings;
}

// The points of a step, taken two numbers at a time.
std::vector<QPointF> Points(const std::vector<double>& numbers) {
  std::vector<QPointF> points;
  for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) points.emplace_back(numbers[i], numbers[i + 1]);
  return points;
}

void Draw(QPainter& p, const Drawing& drawing) {
  if (drawing.back == Back::kTile) {
    Background(p, ToColour(drawing.colour));
  } else {
    Disc(p, ToColour(drawing.colour));
  }
  for (const Step& step : drawing.steps) {
    const std::vector<double>& n = step.numbers;
    const std::vector<QPointF> points = Points(n);
    switch (step.mark) {
      case Mark::kLadder:
        Ladder(p);
        break;
      case Mark::kDot:
      case Mark::kHollowDot:
        Dot(p, n[0], step.mark == Mark::kDot, n.size() > 1 ? n[1] : 8);
        break;
      case Mark::kTriangle:
        Triangle(p, n[0]);
        break;
      case Mark::kCornerMark:
        CornerMark(p, QString::fromUtf8(step.text));
        break;
      case Mark::kGlyph:
      case Mark::kPlainGlyph:
        Glyph(p, QString::fromUtf8(step.text), ToColour(step.colour), static_cast<int>(step.size),
              step.mark == Mark::kGlyph);
        break;
      case Mark::kBars:
        Bars(p, n, ToColour(step.colour));
        break;
      case Mark::kPen:
        p.setPen(QPen(ToColour(step.colour), step.size, Qt::SolidLine, step.cap, step.join));
        break;
      case Mark::kBrush:
        p.setBrush(ToColour(step.colour));
        break;
      case Mark::kLine:
        p.drawLine(points[0], points[1]);
        break;
      case Mark::kArrow:
        Arrow(p, points[0], points[1]);
        break;
      case Mark::kPolyline:
        p.drawPolyline(QPolygonF(QList<QPointF>(points.begin(), points.end())));
        break;
      case Mark::kPolygon: {
        QPainterPath path;
        path.moveTo(points[0]);
        for (std::size_t i = 1; i < points.size(); ++i) path.lineTo(points[i]);
        path.closeSubpath();
        p.drawPath(path);
        break;
      }
      case Mark::kRoundedRect:
        p.drawRoundedRect(QRectF(n[0], n[1], n[2], n[3]), n[4], n[4]);
        break;
    }
  }
}

// The drawings by key.
const std::map<std::string, const Drawing*, std::less<>>& DrawingsByKey() {
  static const std::map<std::string, const Drawing*, std::less<>> byKey = [] {
    std::map<std::string, const Drawing*, std::less<>> m;
    for (const Drawing& drawing : Drawings()) m[drawing.key] = &drawing;
    return m;
  }();
  return byKey;
}

}  // namespace

QIcon ResultIcon(std::string_view key) {
  static std::map<std::string, QIcon, std::less<>> cache;
  if (const auto it = cache.find(key); it != cache.end()) return it->second;
  const auto& drawings = DrawingsByKey();
  const auto drawing = drawings.find(key);
  if (drawing == drawings.end()) return QIcon();
  QIcon icon;
  for (const int scale : {1, 2}) {
    QPixmap pixmap(kSize * scale, kSize * scale);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(scale, scale);
    Draw(p, *drawing->second);
    p.end();
    pixmap.setDevicePixelRatio(scale);
    icon.addPixmap(pixmap);
  }
  return cache.emplace(std::string(key), icon).first->second;
}

const std::vector<std::string_view>& ResultIconKeys() {
  static const std::vector<std::string_view> keys = [] {
    std::vector<std::string_view> out;
    for (const auto& [key, drawing] : DrawingsByKey()) out.push_back(key);
    return out;
  }();
  return keys;
}

QCursor TreeErrorCursor() {
  QPixmap pixmap(32, 32);
  pixmap.fill(Qt::transparent);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(QColor(200, 0, 0), 3));
  p.setBrush(QColor(255, 255, 255, 200));
  p.drawEllipse(QRectF(4, 4, 24, 24));
  p.drawLine(QPointF(8.5, 8.5), QPointF(23.5, 23.5));
  p.end();
  return QCursor(pixmap, 16, 16);
}

}  // namespace quillet::gui
