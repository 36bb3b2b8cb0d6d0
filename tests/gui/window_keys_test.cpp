// The window from the keyboard and the ways the program is ended from outside, through the real widgets on
// the offscreen platform: keys go to the window, which hands each to its focus widget, so that a Tab's
// press and release land on the widgets the focus leaves and reaches, as a keyboard's do.
#include <signal.h>

#include <QApplication>
#include <QMenu>
#include <QSessionManager>
#include <QTest>
#include <filesystem>
#include <memory>

#include "app/gui/end_requests.h"
#include "app/gui/form1.h"
#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/holding_set.h"
#include "range/range_notation.h"
#include "tests/support/window_session.h"

namespace quillet::gui {
namespace {

void Click(QWidget* widget, Qt::KeyboardModifiers modifiers = {}, QPoint at = QPoint(-1, -1)) {
  if (at == QPoint(-1, -1)) at = widget->rect().center();
  QWidget* window = widget->window();
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, modifiers, widget->mapTo(window, at));
}

void ClickBlock(Form1& form, const char* name, Qt::KeyboardModifiers modifiers = {}) {
  HandGridWidget* grid = form.PFHand();
  Click(grid, modifiers, grid->BlockRect(FindClassByName(name)).center());
}

void Key(Form1& form, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(form.windowHandle(), key, modifiers);
}

void Type(Form1& form, const char* text) {
  for (const char* c = text; *c != '\0'; ++c) QTest::keyClick(form.windowHandle(), *c);
}

std::string OnLayer(Session& s) {
  return PrintRangeNotation(HoldingsOfLayer(s.model.profiles().currentProfile()->rangeLayer));
}

std::string SeenLayer(Session& s) {
  return PrintRangeNotation(HoldingsOfLayer(s.model.profiles().currentProfile()->seenLayer));
}

// Clear All, then KK: the range is KK alone.
void KingsOnly(Session& s) {
  Click(s.form->commandLabel(CommandLabel::cmdClearAllBlocks));
  ClickBlock(*s.form, "KK");
}

}  // namespace

class WindowKeysTest : public QObject {
  Q_OBJECT

 private slots:
  void tabAndShiftTabOverTheSliderNeverApplyIt();
  void anArrowHeldOnTheSliderStopsWhenTheFocusLeaves();
  void cardsTypedWhileThePickerIsOpenAreWhatItsOkWrites();
  void tabGoesFromTheBoardToTheGridAndThenToTheRangeBox();
  void arrowsMoveTheGridsFrameAndSpaceActsAsAClick();
  void f9RunsCalcEquityAndF10OpensTheOptionsMenuUnderItsLabel();
  void theBoxesTheSliderAndEveryMenuItemHaveTooltips();
  void sigtermClosesTheWindowAndWritesBothFiles();
  void theEndOfTheSessionWritesBothFilesAndLeavesTheWindowOpen();
};

void WindowKeysTest::tabAndShiftTabOverTheSliderNeverApplyIt() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  KingsOnly(s);
  QCOMPARE(OnLayer(s), std::string("KK"));
  Click(form.txtRange());
  QCOMPARE(QApplication::focusWidget(), form.txtRange());
  Key(form, Qt::Key_Tab);  // its release lands on the slider
  QCOMPARE(QApplication::focusWidget(), form.Slider1());
  Key(form, Qt::Key_Tab);  // its press lands on the slider
  QVERIFY(QApplication::focusWidget() != form.Slider1());
  QVERIFY(!form.tmrSliderMoving()->isActive());
  QTest::qWait(50);
  QCOMPARE(OnLayer(s), std::string("KK"));
  Key(form, Qt::Key_Backtab, Qt::ShiftModifier);
  QCOMPARE(QApplication::focusWidget(), form.Slider1());
  Key(form, Qt::Key_Backtab, Qt::ShiftModifier);
  QCOMPARE(QApplication::focusWidget(), form.txtRange());
  QVERIFY(!form.tmrSliderMoving()->isActive());
  QTest::qWait(50);
  QCOMPARE(OnLayer(s), std::string("KK"));
  // The grid takes a click, and keeps it.
  ClickBlock(form, "AA", Qt::ShiftModifier);
  QTest::qWait(50);
  QCOMPARE(OnLayer(s), std::string("KK+"));
}

void WindowKeysTest::anArrowHeldOnTheSliderStopsWhenTheFocusLeaves() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  form.Slider1()->setFocus();
  QTest::keyPress(form.windowHandle(), Qt::Key_Right);
  QVERIFY(form.tmrSliderMoving()->isActive());
  // The key is still down when a click takes the focus elsewhere: its release will not come here.
  KingsOnly(s);
  QVERIFY(!form.tmrSliderMoving()->isActive());
  QTest::qWait(50);
  QCOMPARE(OnLayer(s), std::string("KK"));
}

void WindowKeysTest::cardsTypedWhileThePickerIsOpenAreWhatItsOkWrites() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  SelCardsWindow* picker = form.frmSelCards();
  Click(form.txtBoard());
  QTRY_VERIFY(picker->isVisible());
  Type(form, "Ks7d2c");
  Click(picker->cancelButton());
  QTRY_VERIFY(!picker->isVisible());
  form.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&form));

  Click(form.txtBoard());  // opens with Ks, 7d and 2c chosen
  QTRY_VERIFY(picker->isVisible());
  QVERIFY(s.model.frmSelCards.IsChosen(39 + 1));  // Ks
  Key(form, Qt::Key_A, Qt::ControlModifier);
  Type(form, "Qh9h4c");
  QCOMPARE(form.txtBoard()->toPlainText(), QStringLiteral("Qh9h4c"));
  QVERIFY(!s.model.frmSelCards.IsChosen(39 + 1));
  QVERIFY(s.model.frmSelCards.IsChosen(26 + 2));  // Qh
  QCOMPARE(s.model.frmSelCards.ChosenCount(false), 3);
  Click(picker->okButton());
  QTRY_VERIFY(!picker->isVisible());
  QCOMPARE(form.txtBoard()->toPlainText(), QStringLiteral("4cQh9h"));  // the typed cards, in cell order
}

void WindowKeysTest::tabGoesFromTheBoardToTheGridAndThenToTheRangeBox() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  ClickBlock(form, "AA");  // the click hands the focus to the Board box
  QCOMPARE(QApplication::focusWidget(), form.txtBoard());
  Key(form, Qt::Key_Tab);
  QCOMPARE(QApplication::focusWidget(), form.PFHand());
  Key(form, Qt::Key_Tab);
  QCOMPARE(QApplication::focusWidget(), form.txtNotation());
  Key(form, Qt::Key_Backtab, Qt::ShiftModifier);
  QCOMPARE(QApplication::focusWidget(), form.PFHand());
}

void WindowKeysTest::arrowsMoveTheGridsFrameAndSpaceActsAsAClick() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  HandGridWidget* grid = form.PFHand();
  KingsOnly(s);
  Key(form, Qt::Key_Tab);
  QCOMPARE(QApplication::focusWidget(), grid);
  QCOMPARE(grid->FocusBlock(), FindClassByName("AA"));
  Key(form, Qt::Key_Right);
  QCOMPARE(grid->FocusBlock(), FindClassByName("AKs"));
  Key(form, Qt::Key_Space);  // a left click on AKs
  QCOMPARE(OnLayer(s), std::string("KK, AKs"));
  QVERIFY(s.model.grid().selectedOn[FindClassByName("AKs")]);
  QCOMPARE(QApplication::focusWidget(), grid);  // the frame stays for the next key
  Key(form, Qt::Key_Space);                     // and again: AKs goes out
  QCOMPARE(OnLayer(s), std::string("KK"));
  Key(form, Qt::Key_Down);
  Key(form, Qt::Key_Left);
  Key(form, Qt::Key_Left);  // the edge stops it
  QCOMPARE(grid->FocusBlock(), FindClassByName("AK"));
  Key(form, Qt::Key_Space, Qt::ShiftModifier);  // a right click on AKo: the Seen layer
  QCOMPARE(SeenLayer(s), std::string("AKo"));   // offsuit: "AKo" in notation, "AK" by name
  QVERIFY(s.model.grid().lblSeenVisible);
  QCOMPARE(OnLayer(s), std::string("KK"));
  // The frame is drawn on the block.
  const QImage image = grid->grab().toImage();
  const QRect framed = grid->BlockRect(FindClassByName("AK"));
  QCOMPARE(image.pixelColor(framed.topLeft() + QPoint(1, 1)), QColor(0, 0, 0));
  const QRect other = grid->BlockRect(FindClassByName("AA"));
  QVERIFY(image.pixelColor(other.topLeft() + QPoint(1, 1)) != QColor(0, 0, 0));
}

void WindowKeysTest::f9RunsCalcEquityAndF10OpensTheOptionsMenuUnderItsLabel() {
  Session s;
  QVERIFY(s.StartActive());
  Form1& form = *s.form;
  KingsOnly(s);
  Click(form.txtMyHand());
  Type(form, "AhKd");
  form.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&form));
  QVERIFY(form.lblMyEquity()->text().isEmpty());
  Key(form, Qt::Key_F9);
  QVERIFY(!form.lblMyEquity()->text().isEmpty());
  QVERIFY(s.services.messages.empty());

  QMenu* menu = form.mnuOptions();
  QVERIFY(!menu->isVisible());
  Key(form, Qt::Key_F10);
  QTRY_VERIFY(menu->isVisible());
  const QWidget* label = form.commandLabel(CommandLabel::lblOptions);
  QCOMPARE(menu->pos(), label->mapToGlobal(QPoint(0, label->height())));
  menu->hide();
  QVERIFY(form.commandLabel(CommandLabel::cmdCalcEquity)->toolTip().contains(QStringLiteral("F9")));
  QVERIFY(label->toolTip().contains(QStringLiteral("F10")));
}

void WindowKeysTest::theBoxesTheSliderAndEveryMenuItemHaveTooltips() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  for (QWidget* widget :
       std::initializer_list<QWidget*>{form.txtNotation(), form.txtWeight(), form.txtRange(), form.Slider1(),
                                       form.txtMyHand(), form.txtBoard()}) {
    QVERIFY2(!widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
  }
  int items = 0;
  for (QMenu* top : {form.mnuOptions(), form.mnuTV(), form.mnuEquity()}) {
    std::vector<QMenu*> menus{top};
    for (QMenu* sub : top->findChildren<QMenu*>()) menus.push_back(sub);
    for (QMenu* menu : menus) {
      QVERIFY2(menu->toolTipsVisible(), qPrintable(menu->objectName()));
      for (QAction* action : menu->actions()) {
        if (action->isSeparator()) continue;
        ++items;
        // An action without a tooltip of its own gives its caption as one.
        QVERIFY2(!action->toolTip().isEmpty() && action->toolTip() != action->text(),
                 qPrintable(action->text()));
      }
    }
  }
  // "Keep Only Checked" is in the tree's menu only while Check Boxes is ticked.
  QAction* keepOnlyChecked = form.menuAction("mnuKeepOnlyChecked");
  QVERIFY(!keepOnlyChecked->toolTip().isEmpty() && keepOnlyChecked->toolTip() != keepOnlyChecked->text());
  QVERIFY(items >= 18);  // 11 options, 4 sub-menus, 2 items of the tree's menu, the read-outs' Copy
}

void WindowKeysTest::sigtermClosesTheWindowAndWritesBothFiles() {
  Session s;
  QVERIFY(s.StartActive());
  EndRequests ends(*s.form, s.model, s.services);
  Form1& form = *s.form;
  Click(form.txtMyHand());
  Type(form, "AhKd");
  const auto profiles = s.dir / "Player_Profiles.ini";
  const auto prefs = s.dir / "MyPrefs.ini";
  QVERIFY(!std::filesystem::exists(profiles));
  ::raise(SIGTERM);
  QTRY_VERIFY(!form.isVisible());
  QVERIFY(std::filesystem::exists(profiles));
  QVERIFY(quillet::testing::ReadBytes(prefs).find("\r\ntxtMyHand|AhKd\r\n") != std::string::npos);
}

void WindowKeysTest::theEndOfTheSessionWritesBothFilesAndLeavesTheWindowOpen() {
  Session s;
  QVERIFY(s.StartActive());
  EndRequests ends(*s.form, s.model, s.services);
  Form1& form = *s.form;
  Click(form.txtMyHand());
  Type(form, "AhKd");
  const auto prefs = s.dir / "MyPrefs.ini";
  QVERIFY(!std::filesystem::exists(prefs));
  // The session manager's request, as the platform sends it; no session manager runs here, so the request
  // carries a stand-in for the manager, which the window does not read.
  alignas(QSessionManager) unsigned char standIn[sizeof(QSessionManager)] = {};
  emit qApp->commitDataRequest(*reinterpret_cast<QSessionManager*>(standIn));
  QVERIFY(std::filesystem::exists(s.dir / "Player_Profiles.ini"));
  QVERIFY(quillet::testing::ReadBytes(prefs).find("\r\ntxtMyHand|AhKd\r\n") != std::string::npos);
  QVERIFY(form.isVisible());
}

}  // namespace quillet::gui

QTEST_MAIN(quillet::gui::WindowKeysTest)
#include "window_keys_test.moc"
