// The real widgets of the main window and the card picker, driven with mouse and keys on the offscreen
// platform. Message boxes, questions and the browser are caught by a recording service; menus, focus,
// repaints and the clipboard are Qt's own.
#include "app/gui/form1.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <filesystem>
#include <memory>

#include "app/gui/qt_convert.h"
#include "app/gui/qt_services.h"
#include "app/gui/result_icons.h"
#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "categorise/categories.h"
#include "range/heat_colours.h"
#include "range/holding_set.h"
#include "results/tree_actions.h"
#include "storage/file_lock.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/window_session.h"

namespace quillet::gui {
namespace {

// Input as the platform delivers it: mouse and keys go to the window, which hands a click to the widget
// under the pointer and a key to its focus widget, through every proxy and filter on the way. A key sent
// straight to a widget skips that route (the player box's line edit, say, gets its keys from the combo
// box, never from the window), so no test sends one there.
void Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {},
           QPoint at = QPoint(-1, -1)) {
  if (at == QPoint(-1, -1)) at = widget->rect().center();
  QWidget* window = widget->window();
  QTest::mouseClick(window->windowHandle(), button, modifiers, widget->mapTo(window, at));
}

void PressKey(QWidget* inWindow, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(inWindow->window()->windowHandle(), key, modifiers);
}

void ClickBlock(Form1& form, const char* name, Qt::MouseButton button,
                Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  HandGridWidget* grid = form.PFHand();
  Click(grid, button, modifiers, grid->BlockRect(FindClassByName(name)).center());
}

void ClickLabel(Form1& form, CommandLabel label) {
  Click(form.commandLabel(label));
}

// The box takes the focus (as a click or Tab gives it), then the keys come from the window.
void TypeInto(QWidget* box, const QString& text) {
  box->setFocus();
  for (const QChar ch : text) QTest::keyClick(box->window()->windowHandle(), ch.toLatin1());
}

// Opens the combo box's list with a click on its arrow and clicks the name at `index`.
bool PickFromList(QComboBox* box, int index) {
  Click(box, Qt::LeftButton, Qt::NoModifier, QPoint(box->width() - 8, box->height() / 2));
  QAbstractItemView* list = box->view();
  if (!QTest::qWaitFor([list] { return list->isVisible(); })) return false;
  Click(list->viewport(), Qt::LeftButton, Qt::NoModifier,
        list->visualRect(box->model()->index(index, 0)).center());
  return QTest::qWaitFor([list] { return !list->isVisible(); });
}

std::vector<QString> TopLevelTexts(QTreeWidget* tree) {
  std::vector<QString> texts;
  for (int i = 0; i < tree->topLevelItemCount(); ++i) texts.push_back(tree->topLevelItem(i)->text(0));
  return texts;
}

}  // namespace

class Form1Test : public QObject {
  Q_OBJECT

 private slots:
  void aLeftClickAShiftClickAndARightClickChangeTheBlockColoursAndTheRangeText();
  void ctrlAltClickShowsTheBlockWithoutChangingTheRange();
  void typingABoardAndPressingEnterFillsTheTreeAndTheCaption();
  void calcEquityShowsTheReadOutsOnTheirBackgroundColour();
  void calcEquityOnTheFlopColoursAStrongResultGreen();
  void thePickerOpensBesideMyHandWithoutBlockingAndWritesTheCardsInCellOrder();
  void thePickerFillsTheBoardAndCancelWritesNothing();
  void aNewNameIsSavedSelectedAndDeleted();
  void closingTheWindowWritesBothFiles();
  void closingWhileAnotherProgramHoldsTheLockAsksAndCancelKeepsTheWindowOpen();
  void theWindowKeepsItsWidthAndMinimumHeightAndTheTreeFillsItDownwards();
  void theHoverHighlightMovesBetweenLabelsAndLeavesOnTheBareWindow();
  void theOptionsMenuShowsItsCaptionsAndTicksAndSwitchesTheScheme();
  void equityPerCategoryFromTheDisplayOptionsEndsEachCategoryWithItsEquity();
  void equityHeatMapColoursTheBlocksAfterCalcEquityAndUntickedLeavesTheWindowAsItWas();
  void theSliderAppliesTheRangeWhenDraggedAndWhenAnArrowKeyIsHeld();
  void typingAPercentageAndEnterSnapsItToAStep();
  void theTreePopUpMenuOpensOnARightClickOnlyWhenTheTreeHasNodes();
  void theTreeShowsTheErrorPointerWhileTheModelSignalsAnError();
  void addToRangeOnAHoldingReplacesTheRangeAndOnACategoryOfGroupsFlashesTheErrorPointer();
  void f3InTheTreeAsksForACardAndNamesItsCategory();
  void theTimersFollowTheModel();
  void everyIconKeyHasAPicture();
  void helpAndVisitWebsiteOpenTheTwoPages();
  void ctrlCInAMessageBoxCopiesItsText();
  void toolTipsNameTheBlocksCellsLabelsReadOutsAndCategories();
  void checkBoxesKeepOnlyCheckedAndCtrlZOnTheWindow();
};

void Form1Test::aLeftClickAShiftClickAndARightClickChangeTheBlockColoursAndTheRangeText() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  QCOMPARE(BlockOnScreen(form, "AA"), ModelColour(0xC0FFC0));

  ClickBlock(form, "AA", Qt::LeftButton);
  QCOMPARE(BlockOnScreen(form, "AA"), ModelColour(0xFF80FF));  // On selection
  QCOMPARE(form.txtRange()->text(), QStringLiteral("~0.5"));
  QVERIFY(!form.lblSeen()->isVisible());

  ClickBlock(form, "KK", Qt::LeftButton, Qt::ShiftModifier);
  QCOMPARE(BlockOnScreen(form, "AA"), ModelColour(0xFF80FF));
  QCOMPARE(BlockOnScreen(form, "KK"), ModelColour(0xFF80FF));
  QCOMPARE(form.txtRange()->text(), QStringLiteral("~0.9"));  // 12 of 1326

  ClickBlock(form, "AKs", Qt::RightButton);
  QCOMPARE(BlockOnScreen(form, "AKs"), ModelColour(0xFF0000));  // Seen selection
  QCOMPARE(BlockOnScreen(form, "AA"), ModelColour(0x00FFFF));   // On layer, whole block, no longer selected
  QCOMPARE(BlockOnScreen(form, "KK"), ModelColour(0x00FFFF));
  QCOMPARE(form.txtRange()->text(), QStringLiteral("~1.2"));  // 16 of 1326
  QVERIFY(form.lblSeen()->isVisible());
}

void Form1Test::ctrlAltClickShowsTheBlockWithoutChangingTheRange() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  ClickBlock(form, "QQ", Qt::LeftButton, Qt::ControlModifier | Qt::AltModifier);
  QCOMPARE(BlockOnScreen(form, "QQ"), ModelColour(0xFF80FF));
  QCOMPARE(s.model.profiles().currentProfile()->rangeLayer[FindClassByName("QQ")].count, 0);
}

void Form1Test::typingABoardAndPressingEnterFillsTheTreeAndTheCaption() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  ClickBlock(form, "AA", Qt::LeftButton);
  TypeInto(form.txtBoard(), QStringLiteral("Kc8h3s"));
  QCOMPARE(s.model.txtBoard.text, std::string("Kc8h3s"));
  PressKey(form.txtBoard(), Qt::Key_Return);
  QCOMPARE(form.txtBoard()->toPlainText(), QStringLiteral("Kc8h3s"));  // Enter is not typed into the box
  QCOMPARE(form.lblCheckPossibleHands()->text(),
           QStringLiteral("6 Hands in Opponent's Range\n6 Possible Hands\n6 Hands in categories"));
  // Aces over a king-high board: an over pair, the one category shown, after its spacer line.
  const std::vector<QString> top = TopLevelTexts(form.TV());
  QCOMPARE(top.size(), std::size_t{2});
  QCOMPARE(top[0], QString());
  QCOMPARE(top[1], QStringLiteral("One pair (6) 100%"));
  QCOMPARE(form.TV()->topLevelItem(1)->childCount(), 1);
  QCOMPARE(form.TV()->topLevelItem(1)->child(0)->text(0), QStringLiteral("O pair (6) 100%"));
}

void Form1Test::calcEquityShowsTheReadOutsOnTheirBackgroundColour() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  ClickBlock(form, "KK", Qt::LeftButton);
  TypeInto(form.txtMyHand(), QStringLiteral("AhAd"));
  TypeInto(form.txtBoard(), QStringLiteral("2c7d9sJh4c"));
  ClickLabel(form, CommandLabel::cmdCalcEquity);
  // On the river no enumeration runs: both read-outs show 0.0% and mine is red.
  QCOMPARE(form.lblMyEquity()->text(), QStringLiteral("0.0%"));
  QCOMPARE(form.lbloppEquity()->text(), QStringLiteral("0.0%"));
  QVERIFY(form.lblMyEquity()->autoFillBackground());
  QCOMPARE(form.lblMyEquity()->palette().color(QPalette::Window), QColor(255, 0, 0));
  // Any key in My Hand clears them again.
  PressKey(form.txtMyHand(), Qt::Key_End);
  QCOMPARE(form.lblMyEquity()->text(), QString());
  QVERIFY(!form.lblMyEquity()->autoFillBackground());
}

void Form1Test::calcEquityOnTheFlopColoursAStrongResultGreen() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  ClickBlock(form, "KK", Qt::LeftButton);
  TypeInto(form.txtMyHand(), QStringLiteral("AhAd"));
  TypeInto(form.txtBoard(), QStringLiteral("2c7d9s"));
  ClickLabel(form, CommandLabel::cmdCalcEquity);
  // Aces against kings on a low rainbow flop win about nine times in ten: above 70 the colour is green.
  const QString mine = form.lblMyEquity()->text();
  QVERIFY2(mine.endsWith(QLatin1Char('%')), qPrintable(mine));
  QVERIFY2(mine.chopped(1).toDouble() > 85.0, qPrintable(mine));
  const double opp = form.lbloppEquity()->text().chopped(1).toDouble();
  QVERIFY(std::abs(mine.chopped(1).toDouble() + opp - 100.0) < 0.11);
  QCOMPARE(form.lblMyEquity()->palette().color(QPalette::Window), QColor(0, 255, 0));
  QCOMPARE(form.commandLabel(CommandLabel::cmdCalcEquity)->text(), QStringLiteral("Calc Equity"));
}

void Form1Test::thePickerOpensBesideMyHandWithoutBlockingAndWritesTheCardsInCellOrder() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  Click(form.lblMyHand(), Qt::LeftButton);
  SelCardsWindow* picker = form.frmSelCards();
  QVERIFY(picker->isVisible());
  QCOMPARE(picker->windowTitle(), QStringLiteral("Select Card"));
  QVERIFY(QApplication::activeModalWidget() == nullptr);
  QVERIFY(!picker->isModal());
  // Just right of the box: its right edge and 5 pixels, 24 pixels below its top.
  const QPoint box = form.txtMyHand()->mapToGlobal(QPoint(0, 0));
  QTRY_COMPARE(picker->pos(), box + QPoint(form.txtMyHand()->width() + 5, 24));

  CardCellsWidget* cells = picker->cells();
  Click(cells, Qt::LeftButton, Qt::NoModifier, cells->CellRect(26).center());  // Ah
  Click(cells, Qt::LeftButton, Qt::NoModifier, cells->CellRect(14).center());  // Kd
  // The main window still takes clicks while the picker is open.
  ClickBlock(form, "AA", Qt::LeftButton);
  QCOMPARE(form.txtRange()->text(), QStringLiteral("~0.5"));
  Click(picker->okButton(), Qt::LeftButton);
  QVERIFY(!picker->isVisible());
  QCOMPARE(form.txtMyHand()->toPlainText(), QStringLiteral("KdAh"));
  QCOMPARE(s.model.txtMyHand.text, std::string("KdAh"));
}

void Form1Test::thePickerFillsTheBoardAndCancelWritesNothing() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  Click(form.lblBoardCards(), Qt::LeftButton);
  SelCardsWindow* picker = form.frmSelCards();
  QVERIFY(picker->isVisible());
  const QPoint box = form.txtBoard()->mapToGlobal(QPoint(0, 0));
  QTRY_COMPARE(picker->pos(), box + QPoint(form.txtBoard()->width() + 5, 24));
  CardCellsWidget* cells = picker->cells();
  Click(cells, Qt::LeftButton, Qt::NoModifier, cells->CellRect(51).center());  // 2s
  Click(picker->okButton(), Qt::LeftButton);
  QCOMPARE(s.services.messages, std::vector<std::string>{"You have not selected enough cards"});
  QVERIFY(picker->isVisible());
  Click(picker->cancelButton(), Qt::LeftButton);
  QVERIFY(!picker->isVisible());
  QCOMPARE(form.txtBoard()->toPlainText(), QString());
}

void Form1Test::aNewNameIsSavedSelectedAndDeleted() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  QComboBox* box = form.cmbPlayer();
  QCOMPARE(box->currentText(), QStringLiteral("Generic"));
  CommandLabelWidget* save = form.commandLabel(CommandLabel::lblSave);
  CommandLabelWidget* remove = form.commandLabel(CommandLabel::lblDelete);
  QVERIFY(remove->isVisible());
  QVERIFY(!save->isVisible());

  box->lineEdit()->selectAll();
  TypeInto(box, QStringLiteral("Villain"));
  QVERIFY(save->isVisible());
  QVERIFY(!remove->isVisible());
  QCOMPARE(box->lineEdit()->palette().color(QPalette::Text), QColor(255, 0, 0));
  ClickLabel(form, CommandLabel::lblSave);
  QCOMPARE(box->count(), 2);
  QCOMPARE(box->itemText(1), QStringLiteral("Villain"));
  QCOMPARE(box->currentText(), QStringLiteral("Villain"));
  QVERIFY(remove->isVisible());
  QVERIFY(!save->isVisible());
  QCOMPARE(s.model.profiles().currentProfile()->name, std::string("Villain"));

  // Give Villain a range, go to Generic and back: the range comes back with the profile.
  ClickBlock(form, "AKs", Qt::LeftButton);
  QVERIFY(PickFromList(box, 0));
  QCOMPARE(s.model.profiles().currentProfile()->name, std::string("Generic"));
  QCOMPARE(BlockOnScreen(form, "AKs"), ModelColour(0x8080FF));
  QVERIFY(PickFromList(box, 1));
  QCOMPARE(s.model.profiles().currentProfile()->name, std::string("Villain"));
  QCOMPARE(BlockOnScreen(form, "AKs"), ModelColour(0x00FFFF));
  QCOMPARE(form.txtRange()->text(), QStringLiteral("~0.3"));

  ClickLabel(form, CommandLabel::lblDelete);
  QCOMPARE(box->count(), 1);
  QCOMPARE(box->currentText(), QStringLiteral("Generic"));
  QCOMPARE(s.model.profiles().currentProfile()->name, std::string("Generic"));

  // Enter saves a new name as well.
  box->lineEdit()->selectAll();
  TypeInto(box, QStringLiteral("Fish"));
  PressKey(box, Qt::Key_Return);
  QCOMPARE(box->count(), 2);
  QCOMPARE(box->currentText(), QStringLiteral("Fish"));
  QCOMPARE(box->lineEdit()->palette().color(QPalette::Text), QPalette().color(QPalette::Text));
}

void Form1Test::closingTheWindowWritesBothFiles() {
  Session s;
  QVERIFY(s.Start());
  const auto profiles = s.dir / "Player_Profiles.ini";
  const auto prefs = s.dir / "MyPrefs.ini";
  QVERIFY(!std::filesystem::exists(profiles));
  QVERIFY(!std::filesystem::exists(prefs));
  TypeInto(s.form->txtMyHand(), QStringLiteral("AhKd"));
  QVERIFY(s.form->close());
  QVERIFY(std::filesystem::exists(profiles));
  QVERIFY(std::filesystem::exists(prefs));
  QVERIFY(quillet::testing::ReadBytes(prefs).find("\r\ntxtMyHand|AhKd\r\n") != std::string::npos);
}

void Form1Test::closingWhileAnotherProgramHoldsTheLockAsksAndCancelKeepsTheWindowOpen() {
  Session s;
  QVERIFY(s.Start());
  const auto profiles = s.dir / "Player_Profiles.ini";
  const auto prefs = s.dir / "MyPrefs.ini";
  TypeInto(s.form->txtMyHand(), QStringLiteral("AhKd"));
  s.model.profiles().writeLockWait = std::chrono::milliseconds(300);
  bool eventRan = false;
  bool eventHadRunWhenAsked = false;
  s.services.onRetryQuestion = [&] { eventHadRunWhenAsked = eventRan; };
  {
    const WriteLock otherProgram(profiles);
    QTimer::singleShot(0, s.form.get(), [&] { eventRan = true; });
    QVERIFY(!s.form->close());
  }
  QVERIFY(eventHadRunWhenAsked);  // the window went on handling its events while it waited for the lock
  QCOMPARE(s.services.retryQuestions.size(), std::size_t{1});
  QVERIFY(s.services.retryQuestions[0].find("locked for 300 milliseconds") != std::string::npos);
  QVERIFY(s.form->isVisible());
  QCOMPARE(s.form->txtMyHand()->Text(), std::string("AhKd"));
  QVERIFY(!std::filesystem::exists(profiles));
  QVERIFY(!std::filesystem::exists(prefs));
  // The lock is free again: the next close saves the changes the window kept.
  QVERIFY(s.form->close());
  QVERIFY(quillet::testing::ReadBytes(prefs).find("\r\ntxtMyHand|AhKd\r\n") != std::string::npos);
}

void Form1Test::theWindowKeepsItsWidthAndMinimumHeightAndTheTreeFillsItDownwards() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  QCOMPARE(form.size(), QSize(903, 534));
  form.resize(1200, 300);
  QTRY_COMPARE(form.size(), QSize(903, 534));
  form.resize(903, 800);
  QTRY_COMPARE(form.size(), QSize(903, 800));
  // 800 pixels are 12000 twips: the tree is as high as the window less its top and 777 twips.
  const QRect tree = form.TV()->geometry();
  QCOMPARE(tree.height(), (12000 - tree.top() * 15 - 777) / 15);
  QVERIFY(form.lblCheckPossibleHands()->geometry().bottom() < 800);
  QCOMPARE(s.model.geometry.height, 12000);
  QCOMPARE(s.model.geometry.width, 13545);
}

void Form1Test::theHoverHighlightMovesBetweenLabelsAndLeavesOnTheBareWindow() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  CommandLabelWidget* all = form.commandLabel(CommandLabel::cmdAll);
  CommandLabelWidget* pair = form.commandLabel(CommandLabel::cmdAnyPair);
  form.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&form));
  QTest::mouseMove(&form, QPoint(440, 60));
  QTest::mouseMove(all, all->rect().center());
  QTRY_VERIFY(all->autoFillBackground());
  QTest::mouseMove(pair, pair->rect().center());
  QTRY_VERIFY(pair->autoFillBackground());
  QVERIFY(!all->autoFillBackground());
  // The bare window between the controls.
  QTest::mouseMove(&form, QPoint(440, 60));
  QTRY_VERIFY(!pair->autoFillBackground());
}

void Form1Test::theOptionsMenuShowsItsCaptionsAndTicksAndSwitchesTheScheme() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  ClickLabel(form, CommandLabel::lblOptions);
  QTRY_VERIFY(form.mnuOptions()->isVisible());
  QStringList titles;
  for (QAction* action : form.mnuOptions()->actions()) titles << action->text();
  // The three sub-menus and the entries that open the multiway window and the boards report.
  QCOMPARE(titles, (QStringList{"Display Options", "Appearance", "Operation", "Multiway Equity...",
                                "Boards Report..."}));
  QCOMPARE(form.menuAction("mnuSimplifyOutput")->text(), QStringLiteral("Simplify Output"));
  QVERIFY(form.menuAction("mnuSimplifyOutput")->isChecked());
  QCOMPARE(form.menuAction("mnuSimplifyFurther")->text(),
           QStringLiteral("Simplify Further for Clipboard Export"));
  QVERIFY(!form.menuAction("mnuSimplifyFurther")->isChecked());
  QVERIFY(form.menuAction("mnuHideEmptyCats")->isChecked());
  QVERIFY(!form.menuAction("mnuCategoryIcons")->isChecked());
  QVERIFY(!form.menuAction("mnuWinLoseIcons")->isChecked());
  QCOMPARE(form.menuAction("mnuCalcEquityOnCook")->text(), QStringLiteral("Auto Calc Equity on Cook"));
  QCOMPARE(form.menuAction("mnuAutoPFEquityCalc")->text(),
           QStringLiteral("Auto Calc Equity Preflop on Range Change"));
  form.mnuOptions()->hide();

  form.menuAction("mnuCategoryIcons")->trigger();
  QVERIFY(s.model.options.categoryIcons);
  QVERIFY(form.menuAction("mnuCategoryIcons")->isChecked());
  form.menuAction("mnuCategoryIcons")->trigger();
  QVERIFY(!s.model.options.categoryIcons);
  QVERIFY(!form.menuAction("mnuCategoryIcons")->isChecked());

  QAction* scheme = form.menuAction("mnuSwitchColourScheme");
  QCOMPARE(scheme->text(), QStringLiteral("Switch to New Colour Scheme"));
  scheme->trigger();
  QCOMPARE(scheme->text(), QStringLiteral("Switch to Default Colour Scheme"));
  QCOMPARE(BlockOnScreen(form, "AA"), ModelColour(0xC0C0C0));
  QCOMPARE(BlockOnScreen(form, "AKs"), ModelColour(0xA2A2A2));
  QCOMPARE(BlockOnScreen(form, "AK"), ModelColour(0x808080));
}

// Opens the options menu with a click on its label, then "Display Options", and clicks the item `name`.
void ClickDisplayOption(Form1& form, const char* name) {
  ClickLabel(form, CommandLabel::lblOptions);
  QMenu* options = form.mnuOptions();
  QTRY_VERIFY(options->isVisible());
  QMenu* display = options->findChild<QMenu*>(QStringLiteral("mnuDisplayOptions"));
  QVERIFY(display != nullptr);
  Click(options, Qt::LeftButton, Qt::NoModifier, options->actionGeometry(display->menuAction()).center());
  QTRY_VERIFY(display->isVisible());
  Click(display, Qt::LeftButton, Qt::NoModifier, display->actionGeometry(form.menuAction(name)).center());
  QTRY_VERIFY(!options->isVisible());
}

// Every item of the tree, depth first.
std::vector<QTreeWidgetItem*> AllItems(QTreeWidget* tree) {
  std::vector<QTreeWidgetItem*> items;
  std::vector<QTreeWidgetItem*> stack;
  for (int i = tree->topLevelItemCount() - 1; i >= 0; --i) stack.push_back(tree->topLevelItem(i));
  while (!stack.empty()) {
    QTreeWidgetItem* item = stack.back();
    stack.pop_back();
    items.push_back(item);
    for (int i = item->childCount() - 1; i >= 0; --i) stack.push_back(item->child(i));
  }
  return items;
}

// Types 20 into the range box and Enter, then AhKd into My Hand and Tc8h3s into the Board box and Enter:
// the tree is cooked.
void CookTwentyPercentOnTheFlop(Form1& form) {
  QLineEdit* range = form.txtRange();
  Click(range, Qt::LeftButton);
  TypeInto(range, QStringLiteral("20"));
  PressKey(range, Qt::Key_Return);
  TypeInto(form.txtMyHand(), QStringLiteral("AhKd"));
  TypeInto(form.txtBoard(), QStringLiteral("Tc8h3s"));
  PressKey(form.txtBoard(), Qt::Key_Return);
}

void Form1Test::equityPerCategoryFromTheDisplayOptionsEndsEachCategoryWithItsEquity() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  CookTwentyPercentOnTheFlop(form);
  QTreeWidget* tree = form.TV();
  QVERIFY(tree->topLevelItemCount() > 0);
  std::vector<QString> before;
  for (QTreeWidgetItem* item : AllItems(tree)) before.push_back(item->text(0));
  QAction* option = form.menuAction("mnuEquityPerCategory");
  QCOMPARE(option->text(), QStringLiteral("Equity per Category"));
  QVERIFY(!option->isChecked());

  ClickDisplayOption(form, "mnuEquityPerCategory");
  QVERIFY(option->isChecked());
  QVERIFY(s.model.options.equityPerCategory);
  // The tree is cooked again: the same nodes, each category and group ending with " eq " and a share
  // with one decimal, the holdings as they were.
  const std::vector<QTreeWidgetItem*> items = AllItems(tree);
  QCOMPARE(items.size(), before.size());
  const QRegularExpression category(QStringLiteral("^.+ \\(\\d+\\) \\d+% eq \\d{1,3}\\.\\d%$"));
  const QRegularExpression group(QStringLiteral("^(\u2022|~).+ \\(\\d+\\)( \\*)? eq \\d{1,3}\\.\\d%$"));
  int categories = 0;
  int groups = 0;
  for (std::size_t k = 0; k < items.size(); ++k) {
    const QString text = items[k]->text(0);
    const bool isCategory = before[k].contains(QStringLiteral("%"));  // its count text
    if (before[k].isEmpty()) {
      QCOMPARE(text, before[k]);  // a spacer line
    } else if (isCategory) {
      QVERIFY2(category.match(text).hasMatch(), qPrintable(text));
      QVERIFY(text.startsWith(before[k] + QStringLiteral(" eq ")));
      ++categories;
    } else if (items[k]->childCount() > 0) {
      QVERIFY2(group.match(text).hasMatch(), qPrintable(text));
      QVERIFY(text.startsWith(before[k] + QStringLiteral(" eq ")));
      ++groups;
    } else {
      QCOMPARE(text, before[k]);
    }
  }
  QVERIFY(categories >= 10);
  QVERIFY(groups >= 5);
  // What the tree shows is what the model built, and the export text carries it.
  for (QTreeWidgetItem* item : items) {
    if (item->text(0).contains(QStringLiteral(" eq ")))
      QVERIFY(QString::fromStdString(s.model.results().exportText)
                  .contains(item->text(0) + QStringLiteral("\r\n")));
  }

  ClickDisplayOption(form, "mnuEquityPerCategory");
  QVERIFY(!option->isChecked());
  std::vector<QString> after;
  for (QTreeWidgetItem* item : AllItems(tree)) after.push_back(item->text(0));
  QCOMPARE(after, before);
}

void Form1Test::equityHeatMapColoursTheBlocksAfterCalcEquityAndUntickedLeavesTheWindowAsItWas() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  CookTwentyPercentOnTheFlop(form);
  HandGridWidget* grid = form.PFHand();
  QWidget* legend = form.findChild<QWidget*>(QStringLiteral("HeatLegend"));
  QVERIFY(legend != nullptr);
  QVERIFY(!legend->isVisible());
  const QRect gridPlace = grid->geometry();
  QAction* option = form.menuAction("mnuEquityHeatMap");
  QCOMPARE(option->text(), QStringLiteral("Equity Heat Map"));
  QVERIFY(!option->isChecked());

  // Unticked, Calc Equity leaves the grid as it was.
  const QImage gridBefore = grid->grab().toImage();
  ClickLabel(form, CommandLabel::cmdCalcEquity);
  QVERIFY(!form.lblMyEquity()->text().isEmpty());
  QCOMPARE(grid->grab().toImage(), gridBefore);
  const QImage windowBefore = form.grab().toImage();
  const QRect below(0, 106, windowBefore.width(), windowBefore.height() - 106);

  ClickDisplayOption(form, "mnuEquityHeatMap");
  QVERIFY(option->isChecked());
  QVERIFY(legend->isVisible());
  ClickLabel(form, CommandLabel::cmdCalcEquity);
  // Each block of the range shows the colour of my equity against it, counted by the model; the others
  // keep theirs.
  QVERIFY(s.model.results().heatMap.has_value());
  for (const char* name : {"AA", "QQ", "AKs", "JTs"}) {
    const auto& heat = (*s.model.results().heatMap)[FindClassByName(name)];
    QVERIFY2(heat.has_value(), name);
    QCOMPARE(BlockOnScreen(form, name), ModelColour(HeatMapColour(heat->equity)));
  }
  QCOMPARE(BlockOnScreen(form, "72"), ModelColour(s.model.grid().blockColour[FindClassByName("72")]));
  // The block text is white on the deep red and green ends of the scale, black on its yellow middle.
  QCOMPARE(ReadableTextOn(ToQColor(HeatMapColour(0.0), form.palette())), QColor(Qt::white));
  QCOMPARE(ReadableTextOn(ToQColor(HeatMapColour(50.0), form.palette())), QColor(Qt::black));
  QCOMPARE(ReadableTextOn(ToQColor(HeatMapColour(100.0), form.palette())), QColor(Qt::white));
  // The tooltip of a block carries my equity against it.
  QVERIFY(s.model.grid().BlockToolTip(FindClassByName("AA")).find("live holdings") != std::string::npos);

  ClickDisplayOption(form, "mnuEquityHeatMap");
  QVERIFY(!option->isChecked());
  QVERIFY(!legend->isVisible());
  QCOMPARE(grid->geometry(), gridPlace);
  QCOMPARE(grid->grab().toImage(), gridBefore);
  // Every pixel of the window under the command labels (whose highlight follows the last click) as it was.
  QCOMPARE(form.grab().toImage().copy(below), windowBefore.copy(below));
}

void Form1Test::theSliderAppliesTheRangeWhenDraggedAndWhenAnArrowKeyIsHeld() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  QSlider* slider = form.Slider1();
  QCOMPARE(slider->maximum(), 146);
  // A drag to the first step: AA alone, "0.5".
  slider->setSliderDown(true);
  slider->setSliderPosition(1);
  slider->setSliderPosition(0);
  slider->setSliderDown(false);
  QCOMPARE(form.txtRange()->text(), QStringLiteral("0.5"));
  QCOMPARE(BlockOnScreen(form, "AA"), ModelColour(0xFF80FF));
  QCOMPARE(BlockOnScreen(form, "KK"), ModelColour(0xC0FFC0));
  // An arrow key held on the slider: the timer applies each step.
  slider->setFocus();
  QTest::keyPress(form.windowHandle(), Qt::Key_Right);
  QVERIFY(form.tmrSliderMoving()->isActive());
  QCOMPARE(form.tmrSliderMoving()->interval(), 10);
  QTRY_COMPARE(BlockOnScreen(form, "KK"), ModelColour(0xFF80FF));
  QTest::keyRelease(form.windowHandle(), Qt::Key_Right);
  QVERIFY(!form.tmrSliderMoving()->isActive());
  QCOMPARE(slider->value(), 1);
  QCOMPARE(s.model.grid().Slider1.value, 1);
}

void Form1Test::typingAPercentageAndEnterSnapsItToAStep() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  QLineEdit* range = form.txtRange();
  Click(range, Qt::LeftButton);
  TypeInto(range, QStringLiteral("10"));
  QCOMPARE(range->palette().color(QPalette::Text), QColor(255, 0, 0));
  PressKey(range, Qt::Key_Return);
  QCOMPARE(range->text(), QStringLiteral("9.8"));
  QCOMPARE(range->palette().color(QPalette::Text), QPalette().color(QPalette::Text));
  QCOMPARE(form.Slider1()->value(), 14);
  // A click selects the whole text, so that typing replaces it.
  Click(range, Qt::LeftButton);
  QCOMPARE(range->selectedText(), QStringLiteral("9.8"));
}

void Form1Test::theTreePopUpMenuOpensOnARightClickOnlyWhenTheTreeHasNodes() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  QWidget* viewport = form.TV()->viewport();
  Click(viewport, Qt::RightButton, Qt::NoModifier, QPoint(20, 10));
  QTest::qWait(50);
  QVERIFY(!form.mnuTV()->isVisible());

  ClickBlock(form, "AA", Qt::LeftButton);
  TypeInto(form.txtBoard(), QStringLiteral("Kc8h3s"));
  PressKey(form.txtBoard(), Qt::Key_Return);
  QVERIFY(form.TV()->topLevelItemCount() > 0);
  Click(viewport, Qt::RightButton, Qt::NoModifier, QPoint(20, 10));
  QTRY_VERIFY(form.mnuTV()->isVisible());
  QStringList titles;
  for (QAction* action : form.mnuTV()->actions()) titles << action->text();
  QCOMPARE(titles, (QStringList{"Add to Range", "Copy Results to Clipboard"}));
  form.mnuTV()->hide();
  form.menuAction("mnuCopyToClipboard")->trigger();
  QVERIFY(QGuiApplication::clipboard()->text().contains(QStringLiteral("One pair (6) 100%")));
}

void Form1Test::theTreeShowsTheErrorPointerWhileTheModelSignalsAnError() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  QVERIFY(!form.TV()->viewport()->testAttribute(Qt::WA_SetCursor));
  form.Act([&] { s.model.results().tvMousePointer = 99; });
  QCOMPARE(form.TV()->viewport()->cursor().shape(), Qt::BitmapCursor);
  form.Act([&] { s.model.results().tvMousePointer = 0; });
  QVERIFY(!form.TV()->viewport()->testAttribute(Qt::WA_SetCursor));
}

// Cooks AA alone on Kc8h3s and opens every node of the tree.
void CookAcesOnAKingHighBoard(Form1& form) {
  ClickBlock(form, "AA", Qt::LeftButton);
  TypeInto(form.txtBoard(), QStringLiteral("Kc8h3s"));
  PressKey(form.txtBoard(), Qt::Key_Return);
  form.TV()->expandAll();
}

void RightClickItem(QTreeWidget* tree, QTreeWidgetItem* item) {
  const QPoint at = tree->visualItemRect(item).center();
  Click(tree->viewport(), Qt::RightButton, Qt::NoModifier, at);
}

void Form1Test::addToRangeOnAHoldingReplacesTheRangeAndOnACategoryOfGroupsFlashesTheErrorPointer() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  ClickBlock(form, "KK", Qt::LeftButton, Qt::ShiftModifier);
  CookAcesOnAKingHighBoard(form);
  QTreeWidget* tree = form.TV();
  // One pair > O pair > the group of all six aces > its holdings.
  QTreeWidgetItem* group = tree->topLevelItem(1)->child(0)->child(0);
  QCOMPARE(group->text(0), QStringLiteral("\u2022AA  (6)"));
  QTreeWidgetItem* holding = group->child(0);
  RightClickItem(tree, holding);
  QTRY_VERIFY(form.mnuTV()->isVisible());
  form.mnuTV()->hide();
  form.menuAction("mnuAdd2Range")->trigger();
  // One holding of the aces is the range now: part of a block, 1 of 1326.
  QCOMPARE(BlockOnScreen(form, "AA"), ModelColour(0xC0FFFF));
  QCOMPARE(BlockOnScreen(form, "KK"), ModelColour(0xC0FFC0));
  QCOMPARE(form.txtRange()->text(), QStringLiteral("~0.1"));

  // A category whose first child is a group: the group is no holding, so the tree's pointer signals the
  // error for a moment.
  RightClickItem(tree, tree->topLevelItem(1)->child(0));
  QTRY_VERIFY(form.mnuTV()->isVisible());
  form.mnuTV()->hide();
  form.menuAction("mnuAdd2Range")->trigger();
  QCOMPARE(tree->viewport()->cursor().shape(), Qt::BitmapCursor);
  QVERIFY(form.tmrTVError()->isActive());
  QCOMPARE(form.tmrTVError()->interval(), 550);
  QTRY_VERIFY(!tree->viewport()->testAttribute(Qt::WA_SetCursor));
  QVERIFY(!form.tmrTVError()->isActive());
}

void Form1Test::f3InTheTreeAsksForACardAndNamesItsCategory() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  CookAcesOnAKingHighBoard(form);
  form.TV()->setFocus();
  s.services.inputAnswers = {"Ah", "2c"};
  PressKey(form.TV(), Qt::Key_F3);
  PressKey(form.TV(), Qt::Key_F3);
  QCOMPARE(s.services.messages,
           (std::vector<std::string>{"Found Ah in category >*O pair", "2c not found in categories."}));
}

void Form1Test::theTimersFollowTheModel() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  QVERIFY(!form.tmrCalcEquity()->isActive());
  QVERIFY(!form.tmrTVError()->isActive());
  form.Act([&] { s.model.results().tmrTVError.Enable(); });
  QVERIFY(form.tmrTVError()->isActive());
  QCOMPARE(form.tmrTVError()->interval(), 550);
  form.Act([&] { s.model.results().tmrTVError.Disable(); });
  QVERIFY(!form.tmrTVError()->isActive());

  // The automatic preflop equity: a range change arms the 1 ms timer, whose event runs the calculation.
  form.Act([&] {
    s.model.options.autoPFEquityCalc = true;
    s.model.txtMyHand.text = "2c7d";
  });
  QSignalSpy fired(form.tmrCalcEquity(), &QTimer::timeout);
  ClickBlock(form, "AA", Qt::LeftButton);
  QCOMPARE(form.tmrCalcEquity()->interval(), 1);
  QTRY_VERIFY(!form.lblMyEquity()->text().isEmpty());
  QCOMPARE(fired.count(), 1);
  QVERIFY(!form.tmrCalcEquity()->isActive());
}

void Form1Test::everyIconKeyHasAPicture() {
  for (const CategoryDefinition& definition : CategoryDefinitions()) {
    if (definition.iconKey.empty()) continue;
    QVERIFY2(!ResultIcon(definition.iconKey).isNull(), std::string(definition.iconKey).c_str());
  }
  for (const char* key : {"win", "tie", "lose"}) QVERIFY2(!ResultIcon(key).isNull(), key);
  QVERIFY(ResultIcon("no such key").isNull());
}

void Form1Test::helpAndVisitWebsiteOpenTheTwoPages() {
  Session s;
  QVERIFY(s.Start());
  s.services.opened.clear();
  ClickLabel(*s.form, CommandLabel::lblHelp);
  ClickLabel(*s.form, CommandLabel::lblWebsite);
  QCOMPARE(s.services.opened.size(), std::size_t{2});
  QVERIFY(QString::fromStdString(s.services.opened[0])
              .endsWith(QStringLiteral("free_online_poker_quillet_guide.php")));
  QVERIFY(s.services.opened[1] != s.services.opened[0]);
}

void Form1Test::ctrlCInAMessageBoxCopiesItsText() {
  QtWindowServices services;
  QGuiApplication::clipboard()->clear();
  bool answered = false;
  QTimer::singleShot(0, [&answered] {
    QWidget* box = QApplication::activeModalWidget();
    QVERIFY(box != nullptr);
    QTest::keyClick(box->windowHandle(), Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    answered = true;
  });
  services.MsgBox("Found Ah in category >*O pair");
  QVERIFY(answered);
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Found Ah in category >*O pair"));
}

// The tooltip a widget shows when the pointer rests at `at` (Qt sends the widget a tooltip event then).
QString ToolTipAt(QWidget* widget, QPoint at) {
  QHelpEvent help(QEvent::ToolTip, at, widget->mapToGlobal(at));
  QApplication::sendEvent(widget, &help);
  return QToolTip::isVisible() ? QToolTip::text() : QString();
}

void Form1Test::toolTipsNameTheBlocksCellsLabelsReadOutsAndCategories() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  HandGridWidget* grid = form.PFHand();
  ClickBlock(form, "AKs", Qt::LeftButton);
  QCOMPARE(ToolTipAt(grid, grid->BlockRect(FindClassByName("AKs")).center()),
           QStringLiteral("AKs: 4 of 4 in range"));
  QCOMPARE(ToolTipAt(grid, grid->BlockRect(FindClassByName("KK")).center()),
           QStringLiteral("KK: 0 of 6 in range"));
  SuitMatrixWidget* matrix = form.picSuit();
  QCOMPARE(
      ToolTipAt(matrix, matrix->CellRect(0).center()),
      QStringLiteral("Both clubs: in the range for the selected blocks; a click takes these holdings out"));
  ToolTipAt(matrix, matrix->CellRect(1).center());  // no offsuit block selected: no cell there
  QTRY_VERIFY(!QToolTip::isVisible());

  QVERIFY(form.commandLabel(CommandLabel::cmdCheckPossibleHands)
              ->toolTip()
              .endsWith(QStringLiteral("(Enter in My Hand or Board Cards)")));
  for (int i = 0; i < kCommandLabelCount; ++i) {
    QVERIFY(!form.commandLabel(static_cast<CommandLabel>(i))->toolTip().isEmpty());
  }
  QCOMPARE(form.lblMyEquity()->toolTip(),
           QStringLiteral("My Hand's equity against the opponent's range (Calc Equity shows it here)"));

  TypeInto(form.txtBoard(), QStringLiteral("Kc8h3s"));
  PressKey(form.txtBoard(), Qt::Key_Return);
  QTreeWidgetItem* category = form.TV()->topLevelItem(1);
  QVERIFY(category->text(0).startsWith(QStringLiteral("One pair")));
  QVERIFY(!category->toolTip(0).isEmpty());
  QTreeWidgetItem* topPair = category->child(0);
  QVERIFY(topPair->text(0).startsWith(QStringLiteral("T pair")));
  QCOMPARE(topPair->toolTip(0), QStringLiteral("<p>Top pair: a pair with the highest board rank.</p>"));
  QCOMPARE(topPair->child(0)->toolTip(0), QString());  // a holding's caption says all
}

// The node's check box, where the tree's style draws it.
QPoint CheckBoxOf(QTreeWidget* tree, QTreeWidgetItem* item) {
  QStyleOptionViewItem option;
  option.initFrom(tree->viewport());
  option.rect = tree->visualItemRect(item);
  option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
  option.text = item->text(0);
  option.font = tree->font();
  option.fontMetrics = QFontMetrics(tree->font());
  return tree->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, tree).center();
}

QTreeWidgetItem* TopLevelStartingWith(QTreeWidget* tree, const QString& text) {
  for (int i = 0; i < tree->topLevelItemCount(); ++i) {
    if (tree->topLevelItem(i)->text(0).startsWith(text)) return tree->topLevelItem(i);
  }
  return nullptr;
}

void Form1Test::checkBoxesKeepOnlyCheckedAndCtrlZOnTheWindow() {
  Session s;
  QVERIFY(s.Start());
  Form1& form = *s.form;
  CookTwentyPercentOnTheFlop(form);
  QLineEdit* range = form.txtRange();
  QTreeWidget* tree = form.TV();
  QTreeWidgetItem* onePair = TopLevelStartingWith(tree, QStringLiteral("One pair ("));
  QTreeWidgetItem* draws = TopLevelStartingWith(tree, QStringLiteral("Gutshot and backdoor draws ("));
  QVERIFY(onePair != nullptr && draws != nullptr);
  QVERIFY(!onePair->data(0, Qt::CheckStateRole).isValid());  // no boxes while the option is unticked

  form.menuAction("mnuCheckBoxes")->trigger();
  QVERIFY(form.menuAction("mnuCheckBoxes")->isChecked());
  QCOMPARE(form.menuAction("mnuCheckBoxes")->text(), QStringLiteral("Check Boxes"));
  tree->expandAll();
  // Categories and groups carry a box, holdings do not.
  QCOMPARE(onePair->checkState(0), Qt::Unchecked);
  QTreeWidgetItem* group = onePair->child(0)->child(0);
  QVERIFY(group->childCount() > 0);
  QVERIFY(group->data(0, Qt::CheckStateRole).isValid());
  QVERIFY(!group->child(0)->data(0, Qt::CheckStateRole).isValid());

  const RangeLayer before = s.model.profiles().currentProfile()->rangeLayer;
  const QString notationBefore = form.txtNotation()->text();
  tree->collapseAll();
  Click(tree->viewport(), Qt::LeftButton, Qt::NoModifier, CheckBoxOf(tree, onePair));
  Click(tree->viewport(), Qt::LeftButton, Qt::NoModifier, CheckBoxOf(tree, draws));
  QCOMPARE(onePair->checkState(0), Qt::Checked);
  QCOMPARE(draws->checkState(0), Qt::Checked);
  const int pairNode = onePair->data(0, Qt::UserRole).toInt();
  const int drawNode = draws->data(0, Qt::UserRole).toInt();
  QVERIFY(s.model.results().tvChecked[pairNode] && s.model.results().tvChecked[drawNode]);
  const HoldingSet wanted = HoldingsUnderNodes(s.model.results().TV, s.model.results().categories,
                                               std::vector<int>{pairNode, drawNode});

  RightClickItem(tree, onePair);
  QTRY_VERIFY(form.mnuTV()->isVisible());
  QStringList titles;
  for (QAction* action : form.mnuTV()->actions()) titles << action->text();
  QCOMPARE(titles, (QStringList{"Add to Range", "Keep Only Checked", "Copy Results to Clipboard"}));
  form.mnuTV()->hide();
  form.menuAction("mnuKeepOnlyChecked")->trigger();
  QVERIFY(s.services.messages.empty());
  QCOMPARE(HoldingsOfLayer(s.model.profiles().currentProfile()->rangeLayer), wanted);
  QCOMPARE(form.lblCheckPossibleHands()->text().section('\n', 0, 0),
           QStringLiteral("%1 Hands in Opponent's Range").arg(wanted.size()));
  QVERIFY(form.txtNotation()->text() != notationBefore);
  // The rebuilt tree starts unchecked.
  QCOMPARE(TopLevelStartingWith(tree, QStringLiteral("One pair ("))->checkState(0), Qt::Unchecked);

  // Ctrl+Z on the window takes the whole step back; Ctrl+Shift+Z makes it again.
  tree->setFocus();
  PressKey(tree, Qt::Key_Z, Qt::ControlModifier);
  QVERIFY(s.model.profiles().currentProfile()->rangeLayer == before);
  QCOMPARE(form.txtNotation()->text(), notationBefore);
  PressKey(tree, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  QCOMPARE(HoldingsOfLayer(s.model.profiles().currentProfile()->rangeLayer), wanted);

  // A click on the grid hands the focus to the Board box; with no edit of its own to undo, the box leaves
  // Ctrl+Z to the window.
  const RangeLayer narrowed = s.model.profiles().currentProfile()->rangeLayer;
  ClickBlock(form, "72", Qt::LeftButton);
  QVERIFY(form.txtBoard()->hasFocus());
  QVERIFY(s.model.profiles().currentProfile()->rangeLayer != narrowed);
  PressKey(form.txtBoard(), Qt::Key_Z, Qt::ControlModifier);
  QVERIFY(s.model.profiles().currentProfile()->rangeLayer == narrowed);
  QCOMPARE(form.txtBoard()->toPlainText(), QStringLiteral("Tc8h3s"));

  // A text box with an edit of its own keeps Ctrl+Z for it: the range stays.
  Click(range, Qt::LeftButton);
  TypeInto(range, QStringLiteral("5"));
  const QString typed = range->text();
  PressKey(range, Qt::Key_Z, Qt::ControlModifier);
  QVERIFY(range->text() != typed);
  QCOMPARE(HoldingsOfLayer(s.model.profiles().currentProfile()->rangeLayer), wanted);
  // Unticked, the boxes and the menu item go.
  form.menuAction("mnuCheckBoxes")->trigger();
  QVERIFY(!TopLevelStartingWith(tree, QStringLiteral("One pair ("))->data(0, Qt::CheckStateRole).isValid());
  QVERIFY(!form.mnuTV()->actions().contains(form.menuAction("mnuKeepOnlyChecked")));
}

}  // namespace quillet::gui

QTEST_MAIN(quillet::gui::Form1Test)
#include "form1_test.moc"
