// The main window from the keyboard: F9 runs Calc Equity and F10 opens the options menu; Tab goes from the
// card boxes to the grid and on to the Range box; on the grid the arrows move a frame from block to block,
// Space acts as a left click on the framed block and Shift+Space as a right click. And the tooltips of the
// text boxes, the slider and every menu item.
#include <QShortcut>

#include "app/gui/form1.h"
#include "app/gui/qt_convert.h"

namespace quillet::gui {
namespace {

struct MenuTip {
  const char* name;  // the action's or the sub-menu's object name
  const char* tip;
};

constexpr MenuTip kMenuTips[] = {
    {"mnuDisplayOptions", "How the results tree shows a cook"},
    {"mnuSimplify", "Group the results by starting hand"},
    {"mnuSimplifyOutput",
     "Show the hands of each category grouped by starting hand (AKs, QQ, ...) rather than "
     "one line a holding"},
    {"mnuSimplifyFurther",
     "Leave the single holdings under each group out of the text that Copy Results to "
     "Clipboard copies (the tree still shows them)"},
    {"mnuHideEmptyCats", "Show only the categories that hold some hand of the range"},
    {"mnuCheckBoxes",
     "Put a check box on each category and group of the results tree, for Keep Only Checked"},
    {"mnuEquityPerCategory", "End each category of the results tree with My Hand's equity against its hands"},
    {"mnuEquityHeatMap", "After Calc Equity colour each block of the range by My Hand's equity against it"},
    {"mnuAppearance", "Icons and colours"},
    {"mnuCategoryIcons", "Show an icon beside each category of the results tree"},
    {"mnuWinLoseIcons",
     "Mark each hand of the results tree as beating, tying or losing to My Hand on the board"},
    {"mnuSwitchColourScheme", "Change the colours of the grid"},
    {"mnuOperation", "What runs by itself"},
    {"mnuCalcEquityOnCook", "Calculate the equity after every cook"},
    {"mnuAutoPFEquityCalc",
     "Calculate the preflop equity whenever the range changes while the board is empty"},
    {"mnuStandardShowdownRules",
     "Judge showdowns by the standard poker rules (and let My Hand hold a range) rather than the program's "
     "own rules"},
    {"mnuMultiwayEquity",
     "Open the Multiway Equity window: the equity of 2 to 10 players, each a hand or a range (Ctrl+M)"},
    {"mnuBoardsReport",
     "Open the Boards Report window: my equity on every board the next street can bring, filtered, sorted "
     "and charted (Ctrl+B)"},
    {"mnuAdd2Range", "Make the selected holding of the results tree the range"},
    {"mnuKeepOnlyChecked", "Make the range exactly the holdings under the checked categories and groups"},
    {"mnuCopyToClipboard", "Copy the results tree to the clipboard as text"},
    {"mnuCopyEquity", "Copy this equity read-out to the clipboard"},
};

}  // namespace

void Form1::BuildKeyboard() {
  auto* calcEquity = new QShortcut(QKeySequence(Qt::Key_F9), this);
  calcEquity->setContext(Qt::WindowShortcut);
  connect(calcEquity, &QShortcut::activated, this, [this] { CommandClicked(CommandLabel::cmdCalcEquity); });
  auto* options = new QShortcut(QKeySequence(Qt::Key_F10), this);
  options->setContext(Qt::WindowShortcut);
  connect(options, &QShortcut::activated, this, [this] {
    // From the keyboard the menu opens under its label, wherever the pointer is.
    menuFromKey_ = true;
    CommandClicked(CommandLabel::lblOptions);
    menuFromKey_ = false;
  });

  // The grid from the keyboard goes through the handler of a click, but keeps the focus (a click hands it
  // to the Board box, where the next cards are typed): the frame stays for the next key.
  connect(grid_, &HandGridWidget::blockKey, this, [this](int index, int button) {
    gridKeyActing_ = true;
    Act([this, index, button] { model_.PFHand_MouseUp(index, button, 0); });
    gridKeyActing_ = false;
  });

  // Tab: the player box, the two card boxes, the grid, the Range box, the weight box, the percentage box,
  // the slider, the results tree.
  QWidget* order[] = {cmbPlayer_, txtMyHand_, txtBoard_, grid_, txtNotation_,
                      txtWeight_, txtRange_,  slider_,   tree_};
  for (std::size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);

  txtMyHand_->setToolTip(ToQString(model_.MyHandToolTip()));
  txtBoard_->setToolTip(QStringLiteral(
      "The board: none, or three to five cards typed as Tc8h3s; a click opens the card picker, Enter cooks"));
  txtNotation_->setToolTip(QStringLiteral(
      "The range in notation (QQ+, AKs, T9s-65s); type or paste one and press Enter to make it the range. "
      "Ctrl+C and Ctrl+V with the pointer over the grid copy and paste it. A hand may carry a weight: "
      "AKs:0.5 or AKs:50%, or [50]AQs, AJs[/50] for several"));
  txtWeight_->setToolTip(QStringLiteral(
      "The weight, 0.1 to 100 %, that a click on the grid or the suit matrix, All, Any Pair, Any Suited, "
      "Any Broadway and a paste without weights give the hands they put into the range (the Seen layer has "
      "no weights)"));
  txtRange_->setToolTip(QStringLiteral(
      "The range's share of all starting hands, in per cent; type one and press Enter for the strongest "
      "hands up to that share"));
  slider_->setToolTip(QStringLiteral(
      "Drag it, or hold an arrow key on it, to make the range the strongest hands up to a share"));

  for (QMenu* menu : {optionsMenu_, treeMenu_, equityMenu_}) {
    menu->setToolTipsVisible(true);
    for (QMenu* sub : menu->findChildren<QMenu*>()) sub->setToolTipsVisible(true);
  }
  for (const MenuTip& entry : kMenuTips) {
    const QString name = QString::fromLatin1(entry.name);
    QAction* action = menuAction(entry.name);
    if (action == nullptr) {
      if (auto* sub = optionsMenu_->findChild<QMenu*>(name)) action = sub->menuAction();
    }
    if (action != nullptr) action->setToolTip(QString::fromLatin1(entry.tip));
  }
}

}  // namespace quillet::gui
