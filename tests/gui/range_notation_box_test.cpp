// The range notation box ("Range:") and the grid's Ctrl+C / Ctrl+V, through the real widgets on the offscreen
// platform. Keys go to whichever widget has the keyboard focus, as a keyboard's would.
#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <memory>

#include "app/gui/form1.h"
#include "app/gui/qt_services.h"
#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/holding_set.h"
#include "range/range_notation.h"
#include "tests/support/window_session.h"

namespace quillet::gui {
namespace {

void ClickBlock(Form1& form, const char* name) {
  HandGridWidget* grid = form.PFHand();
  QTest::mouseClick(grid, Qt::LeftButton, Qt::NoModifier, grid->BlockRect(FindClassByName(name)).center());
}

// Keys as a keyboard sends them: to the widget that has the focus.
void Keys(const QString& text) {
  QTest::keyClicks(QApplication::focusWidget(), text);
}
void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

std::string OnLayerNotation(Session& s) {
  return PrintRangeNotation(HoldingsOfLayer(s.model.profiles().currentProfile()->rangeLayer));
}

}  // namespace

class RangeNotationBoxTest : public QObject {
  Q_OBJECT

 private slots:
  void theBoxSitsUnderTheGridInsideTheWindow();
  void typedNotationAndEnterBecomeTheOnLayer();
  void aBadTextTurnsRedShowsItsErrorOnceAndLeavesTheGridAlone();
  void ctrlCAndCtrlVOverTheGridCopyAndPasteTheNotation();
};

void RangeNotationBoxTest::theBoxSitsUnderTheGridInsideTheWindow() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  const QRect box = form.txtNotation()->geometry();
  const QRect grid = form.PFHand()->geometry();
  QVERIFY(box.top() > grid.bottom());
  QVERIFY(box.bottom() < form.txtRange()->geometry().top());
  QVERIFY(box.right() <= grid.right());
  QCOMPARE(form.size(), QSize(903, 534));  // the window keeps its size
}

void RangeNotationBoxTest::typedNotationAndEnterBecomeTheOnLayer() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  QLineEdit* box = form.txtNotation();
  QTest::mouseClick(box, Qt::LeftButton);
  QCOMPARE(QApplication::focusWidget(), box);
  Keys(QStringLiteral("qq+ aks AhQh"));
  QCOMPARE(box->palette().color(QPalette::Text), QColor(255, 0, 0));  // not accepted yet
  Key(Qt::Key_Return);
  QCOMPARE(box->text(), QStringLiteral("QQ+, AKs, AhQh"));
  QCOMPARE(box->palette().color(QPalette::Text), QPalette().color(QPalette::Text));
  QCOMPARE(OnLayerNotation(s), std::string("QQ+, AKs, AhQh"));
  QCOMPARE(form.txtRange()->text(), QStringLiteral("~1.7"));    // 23 of 1326
  QCOMPARE(BlockOnScreen(form, "QQ"), ModelColour(0x00FFFF));   // On layer, whole block
  QCOMPARE(BlockOnScreen(form, "AQs"), ModelColour(0xC0FFFF));  // On layer, part of the block
  QCOMPARE(BlockOnScreen(form, "JJ"), ModelColour(0xC0FFC0));   // the pair colour
  QVERIFY(s.services.messages.empty());
}

void RangeNotationBoxTest::aBadTextTurnsRedShowsItsErrorOnceAndLeavesTheGridAlone() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  ClickBlock(form, "AA");
  QCOMPARE(form.txtNotation()->text(), QStringLiteral("AA"));
  const PlayerProfile before = *s.model.profiles().currentProfile();
  QLineEdit* box = form.txtNotation();
  QTest::mouseClick(box, Qt::LeftButton);
  Key(Qt::Key_End);
  Keys(QStringLiteral(", AKx"));
  Key(Qt::Key_Return);
  Key(Qt::Key_Return);
  QCOMPARE(s.services.messages, std::vector<std::string>{"unknown token 'AKx' at column 5"});
  QCOMPARE(box->text(), QStringLiteral("AA, AKx"));
  QCOMPARE(box->palette().color(QPalette::Text), QColor(255, 0, 0));
  QVERIFY(*s.model.profiles().currentProfile() == before);
  QCOMPARE(form.txtRange()->text(), QStringLiteral("~0.5"));
}

void RangeNotationBoxTest::ctrlCAndCtrlVOverTheGridCopyAndPasteTheNotation() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  for (const char* name : {"AA", "KK", "QQ", "AKs", "AK"}) ClickBlock(form, name);
  QCOMPARE(form.txtNotation()->text(), QStringLiteral("QQ+, AK"));
  // A click hands the focus to the Board box; the pointer stays over the grid.
  QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(form.txtBoard()));
  QTest::mouseMove(form.PFHand(), form.PFHand()->rect().center());  // a real pointer moves before it clicks
  QVERIFY(form.PFHand()->underMouse());
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  Key(Qt::Key_C, Qt::ControlModifier);
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("QQ+, AK"));

  QGuiApplication::clipboard()->setText(QStringLiteral("TT+, AQs+"));
  Key(Qt::Key_V, Qt::ControlModifier);
  QCOMPARE(form.txtNotation()->text(), QStringLiteral("TT+, AQs+"));
  QCOMPARE(OnLayerNotation(s), std::string("TT+, AQs+"));
  QCOMPARE(form.txtBoard()->Text(), std::string());  // nothing was pasted into the Board box

  // Away from the grid the keys are the focused box's own again.
  QTest::mouseMove(form.TV(), form.TV()->rect().center());
  QVERIFY(!form.PFHand()->underMouse());
  form.txtNotation()->setFocus();
  form.txtNotation()->selectAll();
  Keys(QStringLiteral("22"));  // typed, not applied
  form.txtNotation()->selectAll();
  Key(Qt::Key_C, Qt::ControlModifier);
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("22"));  // the box's own copy
  QCOMPARE(OnLayerNotation(s), std::string("TT+, AQs+"));
}

}  // namespace quillet::gui

QTEST_MAIN(quillet::gui::RangeNotationBoxTest)
#include "range_notation_box_test.moc"
