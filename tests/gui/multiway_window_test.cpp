// The Multiway Equity window through the real widgets on the offscreen platform: opened with Ctrl+M and
// from the Options menu, its rows added and removed with the buttons, texts typed and Enter, Stop during a
// long count, the results table, Copy, Esc, its tooltips and Tab order, and its place in the preferences.
#include "app/gui/multiway_window.h"

#include <QApplication>
#include <QClipboard>
#include <QShortcut>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "app/gui/form1.h"
#include "app/model/form1_model.h"
#include "tests/support/window_session.h"

namespace quillet::gui {
namespace {

void Click(QWidget* widget) {
  QWidget* window = widget->window();
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                    widget->mapTo(window, widget->rect().center()));
}

// The box takes the focus (as a click or Tab gives it), its text is selected, then the keys come from the
// window.
void TypeInto(CardTextBox* box, const char* text) {
  box->setFocus();
  box->selectAll();
  for (const char* c = text; *c != '\0'; ++c) QTest::keyClick(box->window()->windowHandle(), *c);
}

// Ctrl+M on the main window: the multiway window opens and takes the keyboard.
MultiwayWindow* OpenWithCtrlM(Session& s) {
  QTest::keyClick(s.form->windowHandle(), Qt::Key_M, Qt::ControlModifier);
  MultiwayWindow* window = s.form->frmMultiway();
  if (window == nullptr) return nullptr;
  if (!QTest::qWaitForWindowExposed(window)) return nullptr;
  window->activateWindow();
  if (!QTest::qWaitForWindowActive(window)) return nullptr;
  return window;
}

std::string Cell(MultiwayWindow& window, int row, int column) {
  const QTableWidgetItem* item = window.grdResults()->item(row, column);
  return item == nullptr ? std::string() : item->text().toStdString();
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace

class MultiwayWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void ctrlMOpensItWithThreeRowsStartingFromTheMainWindow();
  void theOptionsMenuEntryOpensItToo();
  void addPlayerStopsAtTenAndRemoveAtTwo();
  void enterCalculatesAndCopyPutsTheTableOnTheClipboard();
  void aBadTextIsNamedInAMessageAndNothingRuns();
  void stopDuringALongCountAnswersAtOnce();
  void escClosesItAndStopsItsRun();
  void everyControlHasATooltipAndTabGoesDownTheRows();
  void itsPlaceIsWrittenToThePreferencesWhenTheProgramCloses();
  void closingTheMainWindowDuringARunClosesBothAndEndsTheRun();
};

void MultiwayWindowTest::ctrlMOpensItWithThreeRowsStartingFromTheMainWindow() {
  Session s;
  QVERIFY(s.StartActive());
  QVERIFY(s.form->frmMultiway() == nullptr);
  s.form->txtMyHand()->setFocus();
  for (const char c : std::string("AhKd")) QTest::keyClick(s.form->windowHandle(), c);
  MultiwayWindow* window = OpenWithCtrlM(s);
  QVERIFY(window != nullptr);
  QCOMPARE(window->windowTitle(), QStringLiteral("Multiway Equity"));
  QVERIFY(window->isWindow());
  QCOMPARE(window->rowCount(), 3);
  QCOMPARE(window->txtPlayer(0)->toPlainText(), QStringLiteral("AhKd"));
  QCOMPARE(window->txtPlayer(2)->toPlainText(), QString());
  QVERIFY(s.form->isVisible());
  // The first box takes the keyboard.
  QTRY_VERIFY(window->txtPlayer(0)->hasFocus());
}

void MultiwayWindowTest::theOptionsMenuEntryOpensItToo() {
  Session s;
  QVERIFY(s.Start());
  QAction* entry = s.form->menuAction("mnuMultiwayEquity");
  QVERIFY(entry != nullptr);
  QCOMPARE(entry->text(), QStringLiteral("Multiway Equity..."));
  auto* key = s.form->findChild<QShortcut*>(QStringLiteral("keyMultiwayEquity"));
  QVERIFY(key != nullptr);
  QCOMPARE(key->key(), QKeySequence(Qt::CTRL | Qt::Key_M));
  entry->trigger();
  QVERIFY(s.form->frmMultiway() != nullptr);
  QTRY_VERIFY(s.form->frmMultiway()->isVisible());
}

void MultiwayWindowTest::addPlayerStopsAtTenAndRemoveAtTwo() {
  Session s;
  QVERIFY(s.StartActive());
  MultiwayWindow* window = OpenWithCtrlM(s);
  QVERIFY(window != nullptr);
  for (int i = 0; i < 7; ++i) Click(window->cmdAddPlayer());
  QCOMPARE(window->rowCount(), 10);
  QVERIFY(!window->cmdAddPlayer()->isEnabled());
  TypeInto(window->txtPlayer(9), "QQ");
  Click(window->cmdRemovePlayer(0));
  QCOMPARE(window->rowCount(), 9);
  QCOMPARE(s.model.frmMultiway.txtPlayer[8].text, std::string("QQ"));
  QVERIFY(window->cmdAddPlayer()->isEnabled());
  while (window->rowCount() > 2) Click(window->cmdRemovePlayer(0));
  QCOMPARE(window->rowCount(), 2);
  QVERIFY(!window->cmdRemovePlayer(0)->isEnabled());
  QVERIFY(!window->cmdRemovePlayer(1)->isEnabled());
  QCOMPARE(window->txtPlayer(1)->toPlainText(), QStringLiteral("QQ"));
}

void MultiwayWindowTest::enterCalculatesAndCopyPutsTheTableOnTheClipboard() {
  Session s;
  QVERIFY(s.StartActive());
  MultiwayWindow* window = OpenWithCtrlM(s);
  QVERIFY(window != nullptr);
  TypeInto(window->txtPlayer(0), "AhAd");
  TypeInto(window->txtPlayer(1), "KsKc");
  TypeInto(window->txtPlayer(2), "QQ");
  TypeInto(window->txtBoard(), "Tc8h3s");
  QTest::keyClick(window->windowHandle(), Qt::Key_Return);
  QTRY_COMPARE(window->grdResults()->rowCount(), 3);
  QVERIFY(!s.model.frmMultiway.Running());
  QVERIFY(window->cmdCalculate()->isEnabled());
  QVERIFY(!window->cmdStop()->isEnabled());
  QCOMPARE(window->prgProgress()->value(), window->prgProgress()->maximum());
  const auto& results = s.model.frmMultiway.results;
  for (int r = 0; r < 3; ++r) {
    QCOMPARE(Cell(*window, r, 0), results[r].player);
    QCOMPARE(Cell(*window, r, 1), results[r].equity);
    QCOMPARE(Cell(*window, r, 2), results[r].win);
    QCOMPARE(Cell(*window, r, 3), results[r].tie);
    QCOMPARE(Cell(*window, r, 4), results[r].liveCombos);
    QCOMPARE(Cell(*window, r, 5), results[r].text);
    QVERIFY(results[r].equity.ends_with(" exact"));
  }
  QCOMPARE(Cell(*window, 2, 4), std::string("6"));
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  Click(window->cmdCopy());
  QCOMPARE(QGuiApplication::clipboard()->text().toStdString(), s.model.frmMultiway.CopyText());
  QVERIFY(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("Multiway equity, board Tc8h3s")));
}

void MultiwayWindowTest::aBadTextIsNamedInAMessageAndNothingRuns() {
  Session s;
  QVERIFY(s.StartActive());
  MultiwayWindow* window = OpenWithCtrlM(s);
  QVERIFY(window != nullptr);
  TypeInto(window->txtPlayer(0), "AhAd");
  TypeInto(window->txtPlayer(1), "KK");
  TypeInto(window->txtPlayer(2), "QQ+, AKx");
  QTest::keyClick(window->windowHandle(), Qt::Key_Return);
  QCOMPARE(s.services.messages.size(), std::size_t{1});
  QCOMPARE(s.services.messages[0],
           std::string("Player 3 is invalid: unknown token 'AKx' at column 6. Valid Eg: AhAd or QQ+, AKs"));
  QVERIFY(!s.model.frmMultiway.Running());
  QVERIFY(window->cmdCalculate()->isEnabled());
  QCOMPARE(window->grdResults()->rowCount(), 0);
}

void MultiwayWindowTest::stopDuringALongCountAnswersAtOnce() {
  Session s;
  QVERIFY(s.StartActive());
  MultiwayWindow* window = OpenWithCtrlM(s);
  QVERIFY(window != nullptr);
  // AhAd against two whole ranges preflop, every deal counted: minutes of work.
  s.model.frmMultiway.options.method = MultiwayMethod::Exact;
  TypeInto(window->txtPlayer(0), "AhAd");
  TypeInto(window->txtPlayer(1), "random");
  TypeInto(window->txtPlayer(2), "random");
  TypeInto(window->txtBoard(), "");
  QTest::keyClick(window->windowHandle(), Qt::Key_Backspace);
  Click(window->cmdCalculate());
  QVERIFY(s.model.frmMultiway.Running());
  QVERIFY(!window->cmdCalculate()->isEnabled());
  QVERIFY(window->cmdStop()->isEnabled());
  QVERIFY(window->tmrProgress()->isActive());
  QTest::qWait(300);  // the window goes on answering meanwhile
  QVERIFY(s.model.frmMultiway.Running());
  Click(window->cmdStop());
  QVERIFY(!s.model.frmMultiway.Running());
  QVERIFY(window->cmdCalculate()->isEnabled());
  QVERIFY(!window->cmdStop()->isEnabled());
  QCOMPARE(window->lblStatus()->text(), QStringLiteral("Stopped."));
  // The stopped count ends on its own; its timer then stops.
  QTRY_COMPARE_WITH_TIMEOUT(s.model.frmMultiway.RunsWindingDown(), std::size_t{0}, 60000);
  QTRY_VERIFY(!window->tmrProgress()->isActive());
  QCOMPARE(window->grdResults()->rowCount(), 0);
}

void MultiwayWindowTest::escClosesItAndStopsItsRun() {
  Session s;
  QVERIFY(s.StartActive());
  MultiwayWindow* window = OpenWithCtrlM(s);
  QVERIFY(window != nullptr);
  s.model.frmMultiway.options.method = MultiwayMethod::Exact;
  TypeInto(window->txtPlayer(0), "random");
  TypeInto(window->txtPlayer(1), "random");
  TypeInto(window->txtPlayer(2), "random");
  TypeInto(window->txtBoard(), "Tc8h3s");
  QTest::keyClick(window->windowHandle(), Qt::Key_Return);
  QVERIFY(s.model.frmMultiway.Running());
  QTest::keyClick(window->windowHandle(), Qt::Key_Escape);
  QTRY_VERIFY(!window->isVisible());
  QVERIFY(!s.model.frmMultiway.Running());
  QVERIFY(!s.model.frmMultiway.visible);
}

void MultiwayWindowTest::everyControlHasATooltipAndTabGoesDownTheRows() {
  Session s;
  QVERIFY(s.StartActive());
  MultiwayWindow* window = OpenWithCtrlM(s);
  QVERIFY(window != nullptr);
  for (QWidget* widget : std::initializer_list<QWidget*>{
           window->txtPlayer(0), window->cmdRemovePlayer(0), window->txtBoard(), window->cmdAddPlayer(),
           window->cmdFromMainWindow(), window->cmdCalculate(), window->cmdStop(), window->cmdCopy(),
           window->prgProgress(), window->grdResults()}) {
    QVERIFY2(!widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
  }
  QAction* entry = s.form->menuAction("mnuMultiwayEquity");
  QVERIFY(!entry->toolTip().isEmpty() && entry->toolTip() != entry->text());
  window->txtPlayer(0)->setFocus();
  QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
  QTRY_VERIFY(window->cmdRemovePlayer(0)->hasFocus());
  QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
  QTRY_VERIFY(window->txtPlayer(1)->hasFocus());
}

void MultiwayWindowTest::itsPlaceIsWrittenToThePreferencesWhenTheProgramCloses() {
  Session s;
  QVERIFY(s.StartActive());
  MultiwayWindow* window = OpenWithCtrlM(s);
  QVERIFY(window != nullptr);
  window->resize(640, 500);
  QTRY_VERIFY(s.model.frmMultiway.place.has_value() && s.model.frmMultiway.place->width == 640);
  TypeInto(window->txtPlayer(2), "JJ");
  s.form->close();
  const std::string prefs = ReadFile(s.dir.path() / "MyPrefs.ini");
  QVERIFY2(prefs.find("\r\nMultiwayWindow|") != std::string::npos, prefs.c_str());
  QVERIFY(prefs.find(",640,500\r\n") != std::string::npos);
  QVERIFY(prefs.find("\r\nMultiwayPlayer3|JJ\r\n") != std::string::npos);
}

void MultiwayWindowTest::closingTheMainWindowDuringARunClosesBothAndEndsTheRun() {
  auto s = std::make_unique<Session>();
  QVERIFY(s->StartActive());
  MultiwayWindow* window = OpenWithCtrlM(*s);
  QVERIFY(window != nullptr);
  s->model.frmMultiway.options.method = MultiwayMethod::Exact;
  TypeInto(window->txtPlayer(0), "random");
  TypeInto(window->txtPlayer(1), "random");
  TypeInto(window->txtPlayer(2), "random");
  TypeInto(window->txtBoard(), "Tc8h3s");
  Click(window->cmdCalculate());
  QVERIFY(s->model.frmMultiway.Running());
  s->form->close();
  QVERIFY(!s->form->isVisible());
  QVERIFY(std::filesystem::exists(s->dir.path() / "MyPrefs.ini"));
  // The window goes with the main window, and the model stops its run and waits for it on the way out.
  s.reset();
}

}  // namespace quillet::gui

QTEST_MAIN(quillet::gui::MultiwayWindowTest)
#include "multiway_window_test.moc"
