#include "app/gui/result_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>
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

const QColor kPairColour(190, 220, 255);
const QColor kTwoPairColour(190, 240, 190);
const QColor kSetColour(235, 205, 250);
const QColor kDrawColour(255, 214, 160);
const QColor kWeakDrawColour(255, 240, 190);
const QColor kMadeColour(255, 236, 140);

using Painter = std::function<void(QPainter&)>;

const std::map<std::string, Painter, std::less<>>& Painters() {
  static const std::map<std::string, Painter, std::less<>> painters = [] {
    std::map<std::string, Painter, std::less<>> m;
    m["highcard"] = [](QPainter& p) {
      Background(p, QColor(235, 235, 235));
      p.setPen(QPen(QColor(60, 60, 60), 1));
      p.setBrush(Qt::white);
      p.drawRoundedRect(QRectF(4, 2, 8, 12), 1.5, 1.5);
      Glyph(p, QStringLiteral("A"), QColor(40, 40, 40), 8);
    };
    const std::pair<const char*, double> pairs[] = {
        {"pairo", kAbove},          {"pairt", kTop},    {"pairt-m", kTopMiddle}, {"pairm", kMiddle},
        {"pairm-b", kMiddleBottom}, {"pairb", kBottom}, {"pairl", kBelow}};
    for (const auto& [key, y] : pairs) {
      const double at = y;
      m[key] = [at](QPainter& p) {
        Background(p, kPairColour);
        Ladder(p);
        Dot(p, at);
      };
    }
    const std::pair<const char*, double> sets[] = {{"sett", kTop},
                                                   {"sett-m", kTopMiddle},
                                                   {"setm", kMiddle},
                                                   {"setm-b", kMiddleBottom},
                                                   {"setb", kBottom}};
    for (const auto& [key, y] : sets) {
      const double at = y;
      m[key] = [at](QPainter& p) {
        Background(p, kSetColour);
        Ladder(p);
        Triangle(p, at);
      };
    }
    struct TwoPair {
      const char* key;
      double first, second;
      bool own;
      const char* mark;
    };
    const TwoPair twoPairs[] = {
        {"own2pt-m", kTop, kMiddle, true, ""},    {"own2pt-b", kTop, kBottom, true, ""},
        {"own2pm-b", kMiddle, kBottom, true, ""}, {"2po-t", kAbove, kTop, false, ">"},
        {"2po-teqt", kAbove, kTop, false, "="},   {"2po-tnormal", kAbove, kTop, false, ""},
        {"2pt-m", kTop, kMiddle, false, ""},      {"2pt-b", kTop, kBottom, false, ""}};
    for (const TwoPair& t : twoPairs) {
      const TwoPair tp = t;
      m[tp.key] = [tp](QPainter& p) {
        Background(p, kTwoPairColour);
        Ladder(p);
        Dot(p, tp.first, tp.own, 5.2);
        Dot(p, tp.second, tp.own, 10.8);
        if (*tp.mark != '\0') CornerMark(p, QString::fromLatin1(tp.mark));
      };
    }
    m["draw8"] = [](QPainter& p) {
      Background(p, kDrawColour);
      Glyph(p, QStringLiteral("8+"), QColor(120, 50, 0), 9);
    };
    m["drawoes"] = [](QPainter& p) {
      Background(p, kDrawColour);
      p.setPen(QPen(QColor(120, 50, 0), 1.4));
      Arrow(p, QPointF(8, 8), QPointF(2.5, 8));
      Arrow(p, QPointF(8, 8), QPointF(13.5, 8));
    };
    m["drawflush"] = [](QPainter& p) {
      Background(p, kDrawColour);
      Glyph(p, QStringLiteral("\u2667"), QColor(0, 110, 0), 13, false);
    };
    m["draw"] = [](QPainter& p) {
      Background(p, kWeakDrawColour);
      Glyph(p, QStringLiteral("4"), QColor(120, 80, 0), 11);
    };
    m["drawgss"] = [](QPainter& p) {
      Background(p, kWeakDrawColour);
      p.setPen(QPen(QColor(120, 80, 0), 1.4));
      p.drawLine(QPointF(2.5, 10), QPointF(6, 10));
      p.drawLine(QPointF(10, 10), QPointF(13.5, 10));
      Arrow(p, QPointF(8, 3), QPointF(8, 9));
    };
    m["drawgsswp"] = [](QPainter& p) {
      Background(p, kWeakDrawColour);
      p.setPen(QPen(QColor(120, 80, 0), 1.4));
      p.drawLine(QPointF(2.5, 10), QPointF(6, 10));
      p.drawLine(QPointF(10, 10), QPointF(13.5, 10));
      p.drawLine(QPointF(8, 2.5), QPointF(8, 8));
      p.drawLine(QPointF(8, 8), QPointF(6, 6));
      p.drawLine(QPointF(8, 8), QPointF(10, 6));
      Dot(p, 13.2, true, 12.5);
    };
    m["drawbdf"] = [](QPainter& p) {
      Background(p, kWeakDrawColour);
      Glyph(p, QStringLiteral("\u2667"), QColor(80, 80, 80), 11, false);
    };
    m["drawbds"] = [](QPainter& p) {
      Background(p, kWeakDrawColour);
      Bars(p, {3, 5, 7, 9}, QColor(150, 150, 150));
    };
    m["trips"] = [](QPainter& p) {
      Background(p, kSetColour);
      Bars(p, {9, 9, 9}, QColor(90, 0, 90));
    };
    m["straight"] = [](QPainter& p) {
      Background(p, kMadeColour);
      Bars(p, {3, 5, 7, 9, 11}, QColor(0, 70, 160));
    };
    m["flush"] = [](QPainter& p) {
      Background(p, kMadeColour);
      Glyph(p, QStringLiteral("\u2663"), QColor(0, 130, 0), 14, false);
    };
    m["fullhouse"] = [](QPainter& p) {
      Background(p, kMadeColour);
      p.setPen(QPen(QColor(130, 40, 0), 1.2));
      p.setBrush(QColor(230, 120, 60));
      QPainterPath house;
      house.moveTo(8, 2.5);
      house.lineTo(13.5, 7.5);
      house.lineTo(12, 7.5);
      house.lineTo(12, 13.5);
      house.lineTo(4, 13.5);
      house.lineTo(4, 7.5);
      house.lineTo(2.5, 7.5);
      house.closeSubpath();
      p.drawPath(house);
    };
    m["quad"] = [](QPainter& p) {
      Background(p, kMadeColour);
      Bars(p, {10, 10, 10, 10}, QColor(160, 20, 20));
    };
    m["straightflush"] = [](QPainter& p) {
      Background(p, QColor(255, 200, 80));
      Bars(p, {3, 5, 7, 9, 11}, QColor(200, 0, 0));
    };
    m["royalflush"] = [](QPainter& p) {
      Background(p, QColor(255, 200, 80));
      p.setPen(QPen(QColor(120, 80, 0), 1));
      p.setBrush(QColor(255, 230, 40));
      QPainterPath crown;
      crown.moveTo(2.5, 12.5);
      crown.lineTo(2.5, 5);
      crown.lineTo(5.5, 8.5);
      crown.lineTo(8, 3.5);
      crown.lineTo(10.5, 8.5);
      crown.lineTo(13.5, 5);
      crown.lineTo(13.5, 12.5);
      crown.closeSubpath();
      p.drawPath(crown);
    };
    m["win"] = [](QPainter& p) {
      Disc(p, QColor(40, 170, 40));
      p.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      p.drawPolyline(QPolygonF({QPointF(4.5, 8.5), QPointF(7, 11), QPointF(11.5, 5)}));
    };
    m["tie"] = [](QPainter& p) {
      Disc(p, QColor(230, 170, 0));
      p.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap));
      p.drawLine(QPointF(4.5, 6.5), QPointF(11.5, 6.5));
      p.drawLine(QPointF(4.5, 10), QPointF(11.5, 10));
    };
    m["lose"] = [](QPainter& p) {
      Disc(p, QColor(210, 30, 30));
      p.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap));
      p.drawLine(QPointF(5, 5), QPointF(11, 11));
      p.drawLine(QPointF(11, 5), QPointF(5, 11));
    };
    return m;
  }();
  return painters;
}

}  // namespace

QIcon ResultIcon(std::string_view key) {
  static std::map<std::string, QIcon, std::less<>> cache;
  if (const auto it = cache.find(key); it != cache.end()) return it->second;
  const auto& painters = Painters();
  const auto painter = painters.find(key);
  if (painter == painters.end()) return QIcon();
  QIcon icon;
  for (const int scale : {1, 2}) {
    QPixmap pixmap(kSize * scale, kSize * scale);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(scale, scale);
    painter->second(p);
    p.end();
    pixmap.setDevicePixelRatio(scale);
    icon.addPixmap(pixmap);
  }
  return cache.emplace(std::string(key), icon).first->second;
}

const std::vector<std::string_view>& ResultIconKeys() {
  static const std::vector<std::string_view> keys = [] {
    std::vector<std::string_view> out;
    for (const auto& [key, painter] : Painters()) out.push_back(key);
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
