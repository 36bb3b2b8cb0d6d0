// A range in My Hand through the real widgets on the offscreen platform: the option ticked from the
// Options menu, "QQ+, AKs" typed into My Hand, Calc Equity clicked; the read-outs, the box's colours, the
// picker and a refused text. Mouse and keys go to the window, as the platform delivers them.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QTest>
#include <memory>

#include "app/gui/card_text_box.h"
#include "app/gui/form1.h"
#include "app/gui/qt_services.h"
#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "equity/equity_display.h"
#include "equity/range_equity.h"
#include "equity/tally_text.h"
#include "range/colour.h"
#include "range/range_notation.h"
#include "tests/support/window_session.h"

namespace quillet::gui {
namespace {

void Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton, QPoint at = QPoint(-1, -1)) {
  if (at == QPoint(-1, -1)) at = widget->rect().center();
  QWidget* window = widget->window();
  QTest::mouseClick(window->windowHandle(), button, Qt::NoModifier, widget->mapTo(window, at));
}

// The box takes the focus (as a click or Tab gives it), then the keys come from the window.
void TypeInto(QWidget* box, const QString& text) {
  box->setFocus();
  for (const QChar ch : text) QTest::keyClick(box->window()->windowHandle(), ch.toLatin1());
}

// Ticks "Standard Showdown Rules" as the Options menu's item does.
void TickStandardRules(Form1& form) {
  QAction* item = form.findChild<QAction*>(QStringLiteral("mnuStandardShowdownRules"));
  QVERIFY(item != nullptr);
  QVERIFY(!item->isChecked());
  item->trigger();
  QVERIFY(item->isChecked());
}

// The opponent's range typed into the "Range:" box and entered.
void OpponentRange(Form1& form, const QString& notation) {
  form.txtNotation()->selectAll();
  TypeInto(form.txtNotation(), notation);
  QTest::keyClick(form.windowHandle(), Qt::Key_Return);
}

BoardCards TenEightThree() {
  BoardCards board;
  board[0] = {10, 0};
  board[1] = {8, 2};
  board[2] = {3, 3};
  return board;
}

}  // namespace

class MyHandRangeTest : public QObject {
  Q_OBJECT

 private slots:
  void aRangeTypedIntoMyHandGivesItsEquityAgainstTheOpponentsRange();
  void aBadRangeShowsItsErrorAndTurnsItsTokenRed();
  void untickedTheSameTextIsRefusedAsAHandAlwaysWas();
  void theBoxKeepsThePickerShutForARangeAndTheLabelOpensIt();
  void aReadOutCanBeSelectedAndCopied();
  void aReadOutsRightClickMenuCopiesIt();
};

void MyHandRangeTest::aRangeTypedIntoMyHandGivesItsEquityAgainstTheOpponentsRange() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  TickStandardRules(form);
  OpponentRange(form, QStringLiteral("22+, A7s+, KQo"));
  TypeInto(form.txtMyHand(), QStringLiteral("QQ+, AKs"));
  TypeInto(form.txtBoard(), QStringLiteral("Tc8h3s"));
  Click(form.commandLabel(CommandLabel::cmdCalcEquity));
  QVERIFY(s.services.messages.empty());

  const RangeEquityResult expected =
      StandardRangeEquity(ParseRangeNotation("QQ+, AKs").holdings,
                          ParseRangeNotation("22+, A7s+, KQo").holdings, TenEightThree(), kFlop);
  QVERIFY(expected.tally.Showdowns() > 0);
  const double my = expected.tally.EquityPercent();
  QCOMPARE(form.lblMyEquity()->text().toStdString(), FormatEquityReadOut(my));
  QCOMPARE(form.lbloppEquity()->text().toStdString(), FormatEquityReadOut(100.0 - my));
  QVERIFY(form.lblMyEquity()->autoFillBackground());
  const Colour band = EquityColour(EquityToInteger(my));
  QCOMPARE(form.lblMyEquity()->palette().color(QPalette::Window),
           QColor(static_cast<int>(band & 0xFF), static_cast<int>((band >> 8) & 0xFF),
                  static_cast<int>((band >> 16) & 0xFF)));
  const QString tip = form.lblMyEquity()->toolTip();
  QVERIFY2(tip.startsWith(QStringLiteral("My Hand's range's equity against the opponent's range: ")),
           qPrintable(tip));
  QVERIFY2(tip.endsWith(QString::fromStdString("standard rules: " + ShowdownTallyText(expected.tally))),
           qPrintable(tip));
  // The range stays as typed, in the plain text colour (no card colours for classes).
  QCOMPARE(form.txtMyHand()->toPlainText(), QStringLiteral("QQ+, AKs"));
  for (const Colour c : form.txtMyHand()->CharColours()) QCOMPARE(c, kWindowTextColour);
}

void MyHandRangeTest::aBadRangeShowsItsErrorAndTurnsItsTokenRed() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  TickStandardRules(form);
  TypeInto(form.txtMyHand(), QStringLiteral("QQ+, AKx"));
  QTest::keyClick(form.windowHandle(), Qt::Key_Return);  // Enter cooks, which reads My Hand first
  QCOMPARE(s.services.messages,
           std::vector<std::string>{
               "My hand is invalid: unknown token 'AKx' at column 6. Valid Eg: AhAd or QQ+, AKs"});
  const std::vector<Colour> colours = form.txtMyHand()->CharColours();
  QCOMPARE(colours.size(), std::size_t{8});
  for (std::size_t i = 0; i < colours.size(); ++i) {
    QCOMPARE(colours[i], i >= 5 ? kRejectedTextColour : kWindowTextColour);
  }
  QCOMPARE(form.lblMyEquity()->text(), QString());
}

void MyHandRangeTest::untickedTheSameTextIsRefusedAsAHandAlwaysWas() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  TypeInto(form.txtMyHand(), QStringLiteral("QQ+, AKs"));
  TypeInto(form.txtBoard(), QStringLiteral("Tc8h3s"));
  Click(form.commandLabel(CommandLabel::cmdCalcEquity));
  QCOMPARE(s.services.messages,
           (std::vector<std::string>{"My hand is invalid. Valid Eg: AhAd", "Bad Input"}));
  QCOMPARE(form.lblMyEquity()->text(), QString());
  // The box itself says what would take the range.
  QVERIFY2(
      form.txtMyHand()->toolTip().contains(QStringLiteral("Options > Operation > Standard Showdown Rules")),
      qPrintable(form.txtMyHand()->toolTip()));
  TickStandardRules(form);
  QVERIFY2(!form.txtMyHand()->toolTip().contains(QStringLiteral("Options > Operation")),
           qPrintable(form.txtMyHand()->toolTip()));
  QVERIFY(!form.txtMyHand()->toolTip().isEmpty());
}

void MyHandRangeTest::theBoxKeepsThePickerShutForARangeAndTheLabelOpensIt() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  TickStandardRules(form);
  TypeInto(form.txtMyHand(), QStringLiteral("QQ+, AKs"));
  Click(form.txtMyHand());
  QVERIFY(!form.frmSelCards()->isVisible());
  Click(form.lblMyHand());
  QVERIFY(form.frmSelCards()->isVisible());
  CardCellsWidget* cells = form.frmSelCards()->cells();
  Click(cells, Qt::LeftButton, cells->CellRect(26).center());  // Ah
  Click(cells, Qt::LeftButton, cells->CellRect(14).center());  // Kd
  Click(form.frmSelCards()->okButton());
  QVERIFY(!form.frmSelCards()->isVisible());
  // Only the two cards picked: the range's "Ks" was no card chosen.
  QCOMPARE(form.txtMyHand()->toPlainText(), QStringLiteral("KdAh"));
}

void MyHandRangeTest::aReadOutCanBeSelectedAndCopied() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  TickStandardRules(form);
  OpponentRange(form, QStringLiteral("random"));
  TypeInto(form.txtMyHand(), QStringLiteral("random"));
  Click(form.commandLabel(CommandLabel::cmdCalcEquity));
  QLabel* readOut = form.lblMyEquity();
  QCOMPARE(readOut->text(), QStringLiteral("50.0%"));
  // A drag across the read-out selects its text; Ctrl+C copies it.
  QWindow* window = form.windowHandle();
  const QPoint from = readOut->mapTo(&form, QPoint(1, readOut->height() / 2));
  const QPoint to = readOut->mapTo(&form, QPoint(readOut->width() - 1, readOut->height() / 2));
  QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, from);
  QTest::mouseMove(window, to);
  QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, to);
  QCOMPARE(readOut->selectedText(), QStringLiteral("50.0%"));
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  QTest::keyClick(window, Qt::Key_C, Qt::ControlModifier);
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("50.0%"));
}

void MyHandRangeTest::aReadOutsRightClickMenuCopiesIt() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  OpponentRange(form, QStringLiteral("AA"));
  TypeInto(form.txtMyHand(), QStringLiteral("KhKd"));
  TypeInto(form.txtBoard(), QStringLiteral("Tc8h3s"));
  Click(form.commandLabel(CommandLabel::cmdCalcEquity));
  QLabel* opp = form.lbloppEquity();
  QVERIFY(!opp->text().isEmpty());
  QVERIFY(opp->text() != form.lblMyEquity()->text());
  // A right click on Opp Equity pops up the menu with "Copy", which copies that read-out.
  Click(opp, Qt::RightButton);
  auto* menu = form.findChild<QMenu*>(QStringLiteral("mnuEquity"));
  QVERIFY(menu != nullptr);
  QTRY_VERIFY(menu->isVisible());
  QStringList titles;
  for (QAction* action : menu->actions()) titles << action->text();
  QCOMPARE(titles, QStringList{QStringLiteral("Copy")});
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  menu->actions().front()->trigger();
  menu->hide();
  QCOMPARE(QGuiApplication::clipboard()->text(), opp->text());
}

}  // namespace quillet::gui

QTEST_MAIN(quillet::gui::MyHandRangeTest)
#include "my_hand_range_test.moc"
