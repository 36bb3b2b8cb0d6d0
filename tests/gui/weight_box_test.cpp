// The weight box ("Weight:") beside the Range box and weighted blocks on the grid, through the real widgets
// on the offscreen platform. Keys go to whichever widget has the keyboard focus, as a keyboard's would.
#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "app/gui/form1.h"
#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/grid_colours.h"
#include "range/player_profile.h"
#include "range/range_notation.h"
#include "tests/support/window_session.h"

namespace quillet::gui {
namespace {

void ClickBlock(Form1& form, const char* name, Qt::MouseButton button = Qt::LeftButton) {
  HandGridWidget* grid = form.PFHand();
  QTest::mouseClick(grid, button, Qt::NoModifier, grid->BlockRect(FindClassByName(name)).center());
}

void Keys(const QString& text) {
  QTest::keyClicks(QApplication::focusWidget(), text);
}
void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

// The colour a block shows a pixel inside its top and its bottom edge, at its left (away from the caption).
QColor BlockTop(Form1& form, const char* name) {
  const QRect rect = form.PFHand()->BlockRect(FindClassByName(name));
  return form.PFHand()->grab().toImage().pixelColor(rect.topLeft() + QPoint(3, 1));
}
QColor BlockBottom(Form1& form, const char* name) {
  const QRect rect = form.PFHand()->BlockRect(FindClassByName(name));
  return form.PFHand()->grab().toImage().pixelColor(rect.bottomLeft() + QPoint(3, -2));
}

// Types a percentage into the weight box (reached by a click), as a person does.
void TypeWeight(Form1& form, const QString& percent) {
  QTest::mouseClick(form.txtWeight(), Qt::LeftButton);
  form.txtWeight()->selectAll();
  Keys(percent);
}

}  // namespace

class WeightBoxTest : public QObject {
  Q_OBJECT

 private slots:
  void theBoxSitsBesideTheRangeBoxAndTabReachesIt();
  void aTypedWeightPaintsTheNextClickAndTheBlockShowsIt();
  void aWholeBlockIsFilledAsBefore();
  void theRangeBoxTakesWeightsAndCtrlZTakesThemBack();
  void theSeenLayerIsPaintedWholeWhateverTheBox();
  void aSuitCellShowsItsHoldingsWeight();
};

void WeightBoxTest::theBoxSitsBesideTheRangeBoxAndTabReachesIt() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  QDoubleSpinBox* weight = form.txtWeight();
  const QRect box = weight->geometry();
  const QRect range = form.txtNotation()->geometry();
  QCOMPARE(box.top(), range.top());
  QVERIFY(box.left() > range.right());
  QVERIFY(box.right() <= form.PFHand()->geometry().right());
  QVERIFY(box.bottom() < form.txtRange()->geometry().top());
  QCOMPARE(form.size(), QSize(903, 534));  // the window keeps its size
  QCOMPARE(weight->value(), 100.0);
  QCOMPARE(weight->minimum(), 0.1);
  QCOMPARE(weight->maximum(), 100.0);
  QCOMPARE(weight->decimals(), 1);
  QVERIFY(!weight->toolTip().isEmpty());
  // Tab: the Range box, then the weight box, then the percentage box.
  form.txtNotation()->setFocus();
  Key(Qt::Key_Tab);
  QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(weight));
  Key(Qt::Key_Tab);
  QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(form.txtRange()));
  Key(Qt::Key_Backtab);
  QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(weight));
  // The arrow keys step it by 5 %.
  Key(Qt::Key_Down);
  QCOMPARE(s.model.grid().txtWeight, 950);
}

void WeightBoxTest::aTypedWeightPaintsTheNextClickAndTheBlockShowsIt() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  TypeWeight(form, QStringLiteral("50"));
  QCOMPARE(s.model.grid().txtWeight, 500);
  ClickBlock(form, "AQs");
  QCOMPARE(form.txtNotation()->text(), QStringLiteral("AQs:0.5"));
  QCOMPARE(s.model.grid().BlockToolTip(FindClassByName("AQs")), std::string("AQs: 4 of 4 in range at 50 %"));
  // Half filled: the block's colour at the bottom, its base colour at the top.
  const int aqs = FindClassByName("AQs");
  QCOMPARE(BlockBottom(form, "AQs"), ModelColour(s.model.grid().ShownBlockColour(aqs)));
  QCOMPARE(BlockTop(form, "AQs"), ModelColour(s.model.grid().baseColour[aqs]));
  QVERIFY(BlockTop(form, "AQs") != BlockBottom(form, "AQs"));
  // The box keeps its value for the next click.
  QCOMPARE(form.txtWeight()->value(), 50.0);
}

void WeightBoxTest::aWholeBlockIsFilledAsBefore() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  ClickBlock(form, "AQs");
  const int aqs = FindClassByName("AQs");
  QCOMPARE(BlockTop(form, "AQs"), ModelColour(s.model.grid().ShownBlockColour(aqs)));
  QCOMPARE(BlockBottom(form, "AQs"), ModelColour(s.model.grid().ShownBlockColour(aqs)));
  QCOMPARE(form.txtNotation()->text(), QStringLiteral("AQs"));
}

void WeightBoxTest::theRangeBoxTakesWeightsAndCtrlZTakesThemBack() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  ClickBlock(form, "KK");
  QLineEdit* box = form.txtNotation();
  QTest::mouseClick(box, Qt::LeftButton);
  box->selectAll();
  Keys(QStringLiteral("KK:0.25"));
  Key(Qt::Key_Return);
  QCOMPARE(box->text(), QStringLiteral("KK:0.25"));
  QCOMPARE(s.model.grid().blockPartWeight[FindClassByName("KK")], 250);
  QVERIFY(BlockTop(form, "KK") != BlockBottom(form, "KK"));
  QTest::mouseMove(form.PFHand(), form.PFHand()->rect().center());
  form.PFHand()->setFocus();
  Key(Qt::Key_C, Qt::ControlModifier);
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("KK:0.25"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  QCOMPARE(box->text(), QStringLiteral("KK"));
  QVERIFY(!HasPartialWeights(*s.model.profiles().currentProfile()));
  QCOMPARE(BlockTop(form, "KK"), BlockBottom(form, "KK"));
}

void WeightBoxTest::theSeenLayerIsPaintedWholeWhateverTheBox() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  TypeWeight(form, QStringLiteral("20"));
  ClickBlock(form, "QQ", Qt::RightButton);
  QCOMPARE(s.model.grid().blockPartWeight[FindClassByName("QQ")], 0);
  QCOMPARE(BlockTop(form, "QQ"), BlockBottom(form, "QQ"));
  QVERIFY(!AnyWeightKept(s.model.profiles().currentProfile()->onWeights));
}

void WeightBoxTest::aSuitCellShowsItsHoldingsWeight() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  ClickBlock(form, "AKs");
  SuitMatrixWidget* matrix = form.picSuit();
  const int hearts = 4 * 2 + 2;
  const QPoint centre = matrix->CellRect(hearts).center();
  QTest::mouseClick(matrix, Qt::LeftButton, Qt::NoModifier, centre);  // AhKh out
  TypeWeight(form, QStringLiteral("50"));
  QTest::mouseClick(matrix, Qt::LeftButton, Qt::NoModifier, centre);  // and back at 50 %
  QCOMPARE(form.txtNotation()->text(), QStringLiteral("AcKc, AdKd, AsKs, AhKh:0.5"));
  const QRect cell = matrix->CellRect(hearts).adjusted(1, 1, -1, -1);
  const QImage image = matrix->grab().toImage();
  // The top half in the colour of a holding out of the layer, the bottom half as a whole holding's cell.
  const QColor top = image.pixelColor(cell.topLeft() + QPoint(2, 2));
  const QColor bottom = image.pixelColor(cell.bottomLeft() + QPoint(2, -2));
  QCOMPARE(top, ModelColour(kMatrixCellOutColour));
  const QRect spades = matrix->CellRect(15).adjusted(1, 1, -1, -1);
  const QColor wholeTop = image.pixelColor(spades.topLeft() + QPoint(2, 2));
  QCOMPARE(image.pixelColor(spades.bottomLeft() + QPoint(2, -2)), wholeTop);
  QCOMPARE(bottom, wholeTop);
}

}  // namespace quillet::gui

QTEST_MAIN(quillet::gui::WeightBoxTest)
#include "weight_box_test.moc"
