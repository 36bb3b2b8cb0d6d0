// The Boards Report window through the real widgets on the offscreen platform: opened with Ctrl+B, the
// report shown in the table, a filter box and a heading click, the chart's cells, Copy, a double click that
// cooks a board in the main window, and Stop during a long report.
#include "app/gui/boards_report_window.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QShortcut>
#include <QTest>
#include <string>
#include <vector>

#include "app/gui/form1.h"
#include "app/model/form1_model.h"
#include "tests/support/model_in_folder.h"
#include "tests/support/window_session.h"

namespace quillet::gui {
namespace {

void Click(QWidget* widget) {
  QWidget* window = widget->window();
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                    widget->mapTo(window, widget->rect().center()));
}

// My Hand, the Board and the opponent's range in the main window, under the standard rules unless
// `standard` is false (the program's own rules count every flop for seconds: long enough to stop); then
// Ctrl+B.
BoardsReportWindow* OpenOn(Session& s, const char* hand, const char* board, bool standard = true) {
  s.model.profiles().list[s.model.profiles().currentIndex] =
      quillet::testing::MakeProfile("Generic", {"QQ", "JJ"}, "");
  s.model.txtMyHand.text = hand;
  s.model.txtBoard.text = board;
  s.model.options.standardShowdownRules = standard;
  s.form->Refresh();
  QTest::keyClick(s.form->windowHandle(), Qt::Key_B, Qt::ControlModifier);
  BoardsReportWindow* window = s.form->frmBoardsReport();
  if (window == nullptr) return nullptr;
  if (!QTest::qWaitForWindowExposed(window)) return nullptr;
  return window;
}

std::string Shown(BoardsReportWindow& window, int row, int column) {
  return window.grdRows()->model()->index(row, column).data().toString().toStdString();
}

}  // namespace

class BoardsReportWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void ctrlBOpensItBesideTheMainWindowAndShowsTheReport();
  void theOptionsMenuEntryOpensItAndEveryControlHasATooltip();
  void aFilterBoxAndAHeadingClickChangeTheTable();
  void theCardGridPaintsEachCardInItsColour();
  void copyAndADoubleClickThatCooksTheRowsBoard();
  void stopDuringALongReportAnswersAtOnce();
  void escClosesItAndStopsItsReport();
};

void BoardsReportWindowTest::ctrlBOpensItBesideTheMainWindowAndShowsTheReport() {
  Session s;
  QVERIFY(s.StartActive());
  QVERIFY(s.form->frmBoardsReport() == nullptr);
  BoardsReportWindow* window = OpenOn(s, "AhKd", "Tc8h3s");
  QVERIFY(window != nullptr);
  QTRY_COMPARE(window->grdRows()->model()->rowCount(), 47);
  QVERIFY(window->cmdRun()->isEnabled());
  QVERIFY(!window->cmdStop()->isEnabled());
  QCOMPARE(window->prgProgress()->value(), kBoardsProgressMax);
  QVERIFY(window->isVisible());
  QCOMPARE(window->lblAggregate()->text().toStdString(), s.model.frmBoardsReport.AggregateText());
  QCOMPARE(Shown(*window, 0, 0), s.model.frmBoardsReport.CellText(0, 0));
  QVERIFY(s.services.messages.empty());
}

void BoardsReportWindowTest::theOptionsMenuEntryOpensItAndEveryControlHasATooltip() {
  Session s;
  QVERIFY(s.Start());
  QAction* entry = s.form->menuAction("mnuBoardsReport");
  QVERIFY(entry != nullptr);
  QCOMPARE(entry->text(), QStringLiteral("Boards Report..."));
  QVERIFY(!entry->toolTip().isEmpty() && entry->toolTip() != entry->text());
  auto* key = s.form->findChild<QShortcut*>(QStringLiteral("keyBoardsReport"));
  QVERIFY(key != nullptr);
  QCOMPARE(key->key(), QKeySequence(Qt::CTRL | Qt::Key_B));
  entry->trigger();
  BoardsReportWindow* window = s.form->frmBoardsReport();
  QVERIFY(window != nullptr);
  QTRY_VERIFY(window->isVisible());
  std::vector<QWidget*> controls{window->cmdRun(),       window->cmdStop(),     window->cmdCopy(),
                                 window->cmdExportCsv(), window->prgProgress(), window->grdRows(),
                                 window->picChart()};
  for (int c = 0; c < kBoardsCheckCount; ++c)
    controls.push_back(window->chkFilter(static_cast<BoardsCheck>(c)));
  for (QWidget* widget : controls) {
    if (widget == window->picChart()) continue;  // the chart answers tooltips itself, cell by cell
    QVERIFY2(!widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
  }
}

void BoardsReportWindowTest::aFilterBoxAndAHeadingClickChangeTheTable() {
  Session s;
  QVERIFY(s.StartActive());
  BoardsReportWindow* window = OpenOn(s, "AhKd", "Tc8h3s");
  QVERIFY(window != nullptr);
  QTRY_COMPARE(window->grdRows()->model()->rowCount(), 47);
  const QString everyRow = window->lblAggregate()->text();
  Click(window->chkFilter(BoardsCheck::Paired));
  QVERIFY(window->chkFilter(BoardsCheck::Paired)->isChecked());
  QCOMPARE(window->grdRows()->model()->rowCount(), 9);
  QVERIFY(window->lblAggregate()->text() != everyRow);
  QVERIFY(window->lblAggregate()->text().contains(QStringLiteral("over 9 rows")));
  QHeaderView* header = window->grdRows()->horizontalHeader();
  const int equity = static_cast<int>(BoardsColumn::Equity);
  QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier,
                    QPoint(header->sectionViewportPosition(equity) + header->sectionSize(equity) / 2,
                           header->height() / 2));
  QCOMPARE(s.model.frmBoardsReport.sortColumn, equity);
  QCOMPARE(header->sortIndicatorSection(), equity);
  for (int r = 1; r < 9; ++r) {
    QVERIFY(std::stod(Shown(*window, r - 1, equity)) >= std::stod(Shown(*window, r, equity)));
  }
  // The high card box: queen-high turns among the paired ones are none (the ten is on the board).
  emit window->cmbHighCard()->activated(3);
  QCOMPARE(s.model.frmBoardsReport.cmbHighCard, 12);
  QCOMPARE(window->cmbHighCard()->currentText(), QStringLiteral("Q"));
  QCOMPARE(window->grdRows()->model()->rowCount(), 0);
  emit window->cmbHighCard()->activated(0);
  QCOMPARE(window->grdRows()->model()->rowCount(), 9);
}

void BoardsReportWindowTest::theCardGridPaintsEachCardInItsColour() {
  Session s;
  QVERIFY(s.StartActive());
  BoardsReportWindow* window = OpenOn(s, "AhKd", "Tc8h3s");
  QVERIFY(window != nullptr);
  QTRY_COMPARE(window->grdRows()->model()->rowCount(), 47);
  BoardsChart* chart = window->picChart();
  const QImage image = chart->grab().toImage();
  const std::vector<BoardsGridCell> cells = s.model.frmBoardsReport.CardGrid();
  QCOMPARE(cells.size(), std::size_t{52});
  for (int cell = 0; cell < 52; ++cell) {
    const QRect box = chart->CellRect(cell);
    // Inside the cell, away from its border and its caption.
    const QColor seen = image.pixelColor(box.left() + 3, box.top() + 3);
    QCOMPARE(seen, ModelColour(cells[static_cast<std::size_t>(cell)].colour));
    QCOMPARE(chart->CellAt(box.center()), cell);
  }
}

void BoardsReportWindowTest::copyAndADoubleClickThatCooksTheRowsBoard() {
  Session s;
  QVERIFY(s.StartActive());
  BoardsReportWindow* window = OpenOn(s, "AhKd", "Tc8h3s");
  QVERIFY(window != nullptr);
  QTRY_COMPARE(window->grdRows()->model()->rowCount(), 47);
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  Click(window->cmdCopy());
  QCOMPARE(QGuiApplication::clipboard()->text().toStdString(), s.model.frmBoardsReport.CopyText());
  const std::string board = Shown(*window, 3, 0);
  QVERIFY(s.model.results().lblCheckPossibleHands.empty());
  QTableView* table = window->grdRows();
  const QRect cell = table->visualRect(table->model()->index(3, 0));
  const QPoint at = table->viewport()->mapTo(window, cell.center());
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
  QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
  QCOMPARE(s.model.txtBoard.text, board);
  QCOMPARE(s.form->txtBoard()->Text(), board);
  QVERIFY(!s.model.results().lblCheckPossibleHands.empty());
}

void BoardsReportWindowTest::stopDuringALongReportAnswersAtOnce() {
  Session s;
  QVERIFY(s.StartActive());
  BoardsReportWindow* window = OpenOn(s, "AhKd", "", false);  // every flop
  QVERIFY(window != nullptr);
  QVERIFY(s.model.frmBoardsReport.Running());
  QVERIFY(window->cmdStop()->isEnabled());
  Click(window->cmdStop());
  QVERIFY(!s.model.frmBoardsReport.Running());
  QVERIFY(!window->cmdStop()->isEnabled());
  QCOMPARE(window->lblStatus()->text(), QStringLiteral("Stopped."));
  QCOMPARE(window->grdRows()->model()->rowCount(), 0);
}

void BoardsReportWindowTest::escClosesItAndStopsItsReport() {
  Session s;
  QVERIFY(s.StartActive());
  BoardsReportWindow* window = OpenOn(s, "AhKd", "", false);  // every flop
  QVERIFY(window != nullptr);
  window->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(window));
  QVERIFY(s.model.frmBoardsReport.Running());
  QTest::keyClick(window->windowHandle(), Qt::Key_Escape);
  QTRY_VERIFY(!window->isVisible());
  QVERIFY(!s.model.frmBoardsReport.Running());
  QVERIFY(!s.model.frmBoardsReport.visible);
}

}  // namespace quillet::gui

QTEST_MAIN(quillet::gui::BoardsReportWindowTest)
#include "boards_report_window_test.moc"
