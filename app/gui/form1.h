// The main window, Form1: every control of the program but the card picker. It draws the window model's
// state and forwards every event to the model's handlers; after each one it shows the model again.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSlider>
#include <QTimer>
#include <QTreeWidget>
#include <QWidget>
#include <array>
#include <functional>
#include <vector>

#include "app/gui/boards_report_window.h"
#include "app/gui/card_text_box.h"
#include "app/gui/command_label.h"
#include "app/gui/grid_widgets.h"
#include "app/gui/multiway_window.h"
#include "app/gui/qt_services.h"
#include "app/gui/sel_cards_window.h"
#include "app/model/form1_model.h"

namespace quillet::gui {

// One twip is 1/15 of a pixel here, as on a screen of 96 dots per inch.
inline constexpr int kTwipsPerPixel = 15;

class Form1 : public QWidget {
  Q_OBJECT

 public:
  Form1(Form1Model& model, QtWindowServices& services, QWidget* parent = nullptr);
  ~Form1() override;

  // Runs a model handler, then shows the model's state.
  void Act(const std::function<void()>& handler);
  // Shows the model's state in every control.
  void Refresh();

  // The session ends: the profiles and the preferences are written as a close writes them; the window
  // stays until the session manager ends the program.
  void EndOfSession();

  // What the model's services ask of the window.
  void PopUpMenu(PopupMenuId menu);
  void FocusControl(ControlId control);
  void RepaintNow();

  // The controls, by their names.
  QComboBox* cmbPlayer() const { return cmbPlayer_; }
  CommandLabelWidget* commandLabel(CommandLabel id) const { return commandLabels_[static_cast<int>(id)]; }
  CardTextBox* txtMyHand() const { return txtMyHand_; }
  CardTextBox* txtBoard() const { return txtBoard_; }
  QLabel* lblMyHand() const { return lblMyHand_; }
  QLabel* lblBoardCards() const { return lblBoardCards_; }
  HandGridWidget* PFHand() const { return grid_; }
  SuitMatrixWidget* picSuit() const { return matrix_; }
  QLineEdit* txtRange() const { return txtRange_; }
  QLineEdit* txtNotation() const { return txtNotation_; }
  QDoubleSpinBox* txtWeight() const { return txtWeight_; }
  QSlider* Slider1() const { return slider_; }
  QLabel* lblMyEquity() const { return lblMyEquity_; }
  QLabel* lbloppEquity() const { return lbloppEquity_; }
  QLabel* lblCheckPossibleHands() const { return lblCheckPossibleHands_; }
  QLabel* lblSeen() const { return lblSeen_; }
  QTreeWidget* TV() const { return tree_; }
  QMenu* mnuOptions() const { return optionsMenu_; }
  QMenu* mnuTV() const { return treeMenu_; }
  QMenu* mnuEquity() const { return equityMenu_; }
  QAction* menuAction(const char* name) const;
  SelCardsWindow* frmSelCards() const { return picker_; }
  // The multiway window; none until "Multiway Equity..." first opens it.
  MultiwayWindow* frmMultiway() const { return multiway_; }
  // The boards report window; none until "Boards Report..." first opens it.
  BoardsReportWindow* frmBoardsReport() const { return boardsReport_; }
  QTimer* tmrSliderMoving() { return &tmrSliderMoving_; }
  QTimer* tmrCalcEquity() { return &tmrCalcEquity_; }
  QTimer* tmrTVError() { return &tmrTVError_; }

 signals:
  // The window closed and wrote the profiles and the preferences.
  void closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildControls();  // the fixed controls, placed as form1_layout.h says
  void BuildMenus();
  void ConnectEvents();
  void CommandClicked(CommandLabel id);
  void LayOutTree();
  void ShowPlayerBox();
  void ShowTree();
  void SyncTimer(QTimer& timer, const TimerState& state, uint64_t& shownArm);
  void TimerFired(QTimer& timer, const std::function<void()>& handler);
  bool SliderKey(QKeyEvent* event, bool down);
  void SliderFocusLost();
  // The range notation box under the grid with the weight box beside it, and the grid's Ctrl+C / Ctrl+V.
  void BuildNotationBox();
  void ShowNotationBox();
  // Ctrl+Z, Ctrl+Shift+Z, Ctrl+Y for the range (form1_range_history.cpp).
  void BuildRangeHistoryKeys();
  // The results tree's check boxes (form1_tree_checks.cpp).
  void BuildTreeCheckBoxes();
  void ShowTreeChecks();
  // F9, F10, the Tab order, the grid's keys and the tooltips of the boxes and menus (form1_keyboard.cpp).
  void BuildKeyboard();

  Form1Model& model_;
  QtWindowServices& services_;
  int acting_ = 0;
  bool resizing_ = false;
  bool menuFromKey_ = false;    // the options menu opens under its label, not at the pointer
  bool gridKeyActing_ = false;  // a key on the grid acts: the focus stays on the grid
  bool closing_ = false;        // the close's saves are running (they may wait for another program's lock)

  QComboBox* cmbPlayer_ = nullptr;
  std::vector<std::string> shownPlayers_;
  std::array<CommandLabelWidget*, kCommandLabelCount> commandLabels_{};
  ClickableLabel* lblMyHand_ = nullptr;
  ClickableLabel* lblBoardCards_ = nullptr;
  CardTextBox* txtMyHand_ = nullptr;
  CardTextBox* txtBoard_ = nullptr;
  HandGridWidget* grid_ = nullptr;
  SuitMatrixWidget* matrix_ = nullptr;
  HeatLegendWidget* heatLegend_ = nullptr;
  QLineEdit* txtRange_ = nullptr;
  QLineEdit* txtNotation_ = nullptr;
  QDoubleSpinBox* txtWeight_ = nullptr;  // "Weight:", in per cent with one decimal
  QSlider* slider_ = nullptr;
  bool showingSlider_ = false;
  bool sliderKeyHeld_ = false;
  int sliderHeldKey_ = 0;
  int sliderAppliedValue_ = -1;
  QLabel* lblMyEquity_ = nullptr;
  QLabel* lbloppEquity_ = nullptr;
  QLabel* lblCheckPossibleHands_ = nullptr;
  QLabel* lblSeen_ = nullptr;
  QLabel* lblOpponentRange_ = nullptr;
  QTreeWidget* tree_ = nullptr;
  std::vector<ResultNode> shownNodes_;
  bool showingTree_ = false;
  bool showingChecks_ = false;  // whether any node may show a check box now
  int shownPointer_ = 0;

  QMenu* optionsMenu_ = nullptr;
  QMenu* treeMenu_ = nullptr;
  QMenu* equityMenu_ = nullptr;  // the read-outs' right-click menu
  QAction* switchScheme_ = nullptr;
  QAction* keepOnlyChecked_ = nullptr;
  struct TickAction {
    QAction* action;
    bool MenuOptions::*tick;
  };
  std::vector<TickAction> tickActions_;

  QTimer tmrSliderMoving_;
  QTimer tmrCalcEquity_;
  QTimer tmrTVError_;
  uint64_t shownSliderArm_ = 0;
  uint64_t shownCalcArm_ = 0;
  uint64_t shownTVErrorArm_ = 0;

  SelCardsWindow* picker_ = nullptr;
  MultiwayWindow* multiway_ = nullptr;
  BoardsReportWindow* boardsReport_ = nullptr;
};

}  // namespace quillet::gui
