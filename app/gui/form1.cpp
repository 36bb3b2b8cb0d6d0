#include "app/gui/form1.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QShortcut>
#include <cmath>

#include "app/gui/form1_layout.h"
#include "app/gui/grid_clipboard_keys.h"
#include "app/gui/qt_convert.h"
#include "app/gui/result_icons.h"

namespace quillet::gui {
namespace {

// The window's fixed width and least height in pixels.
constexpr int kWidthPixels = kWindowWidth / kTwipsPerPixel;
constexpr int kMinHeightPixels = kWindowMinHeight / kTwipsPerPixel;

// The results tree's column: its width, and the three-line cook caption below the tree.
constexpr int kRightWidth = kWidthPixels - kRightX - 8;
constexpr int kCaptionHeight = 48;

const char* const kHint =
    "Shift,Ctrl,Alt to modify selection. Right click for semi-permanent range definitions. Ctrl+Alt just to "
    "see";

QFont WindowFont() {
  QFont font;
  font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")});
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(12);
  return font;
}

bool SameNodes(const std::vector<ResultNode>& a, const std::vector<ResultNode>& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i].key != b[i].key || a[i].text != b[i].text || a[i].image != b[i].image ||
        a[i].foreColour != b[i].foreColour || a[i].parent != b[i].parent) {
      return false;
    }
  }
  return true;
}

void SetTextColour(QWidget& widget, QPalette::ColorRole role, Colour colour) {
  QPalette palette = widget.palette();
  const QColor wanted = colour == kWindowTextColour ? QPalette().color(role) : ToQColor(colour, palette);
  if (palette.color(role) == wanted) return;
  palette.setColor(role, wanted);
  widget.setPalette(palette);
}

}  // namespace

Form1::Form1(Form1Model& model, QtWindowServices& services, QWidget* parent)
    : QWidget(parent), model_(model), services_(services) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QStringLiteral("Poker Quillet Hand Range Analyzer and Odds Calculator"));
  setFont(WindowFont());
  setMouseTracking(true);
  setMinimumSize(kWidthPixels, kMinHeightPixels);
  setMaximumWidth(kWidthPixels);
  resize(kWidthPixels, kMinHeightPixels);

  BuildControls();
  BuildNotationBox();
  BuildMenus();
  ConnectEvents();
  BuildRangeHistoryKeys();
  BuildTreeCheckBoxes();
  BuildKeyboard();
  services_.Attach(this);

  model_.geometry.treeTop = kTreeTop * kTwipsPerPixel;
  model_.txtMyHand.width = txtMyHand_->width();
  model_.txtBoard.width = txtBoard_->width();
  LayOutTree();
  Refresh();
}

Form1::~Form1() {
  services_.Attach(nullptr);
}

void Form1::BuildControls() {
  auto commandLabel = [this](CommandLabel id, const char* name, QRect place) {
    auto* label = new CommandLabelWidget(id, this);
    label->setObjectName(QString::fromLatin1(name));
    label->setGeometry(place);
    commandLabels_[static_cast<int>(id)] = label;
    return label;
  };
  auto caption = [this](const QString& text, QRect place,
                        Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter) {
    auto* label = new CaptionLabel(text, this);
    label->setGeometry(place);
    label->setAlignment(align);
    return label;
  };

  // The player-profile box with its Save and Delete labels; the options and the two web pages.
  caption(QStringLiteral("Player Profile:"), PlaceOf("Player Profile:"));
  cmbPlayer_ = new QComboBox(this);
  cmbPlayer_->setObjectName(QStringLiteral("cmbPlayer"));
  cmbPlayer_->setEditable(true);
  cmbPlayer_->setInsertPolicy(QComboBox::NoInsert);
  cmbPlayer_->setCompleter(nullptr);  // names are matched exactly, case and all, by the model
  cmbPlayer_->setGeometry(PlaceOf("cmbPlayer"));
  commandLabel(CommandLabel::lblSave, "lblSave", PlaceOf("lblSave"));
  commandLabel(CommandLabel::lblDelete, "lblDelete", PlaceOf("lblDelete"));
  commandLabel(CommandLabel::lblOptions, "lblOptions", PlaceOf("lblOptions"));
  commandLabel(CommandLabel::lblHelp, "lblHelp", PlaceOf("lblHelp"));
  commandLabel(CommandLabel::lblWebsite, "lblWebsite", PlaceOf("lblWebsite"));

  // The card boxes.
  lblMyHand_ = new ClickableLabel(QStringLiteral("My Hand"), this);
  lblMyHand_->setObjectName(QStringLiteral("lblMyHand"));
  lblMyHand_->setGeometry(PlaceOf("lblMyHand"));
  txtMyHand_ = new CardTextBox(this);
  txtMyHand_->setObjectName(QStringLiteral("txtMyHand"));
  txtMyHand_->setGeometry(PlaceOf("txtMyHand"));
  lblBoardCards_ = new ClickableLabel(QStringLiteral("Board Cards"), this);
  lblBoardCards_->setObjectName(QStringLiteral("lblBoardCards"));
  lblBoardCards_->setGeometry(PlaceOf("lblBoardCards"));
  txtBoard_ = new CardTextBox(this);
  txtBoard_->setObjectName(QStringLiteral("txtBoard"));
  txtBoard_->setGeometry(PlaceOf("txtBoard"));

  // Cook, Calc Equity and the two read-outs.
  commandLabel(CommandLabel::cmdCheckPossibleHands, "cmdCheckPossibleHands",
               PlaceOf("cmdCheckPossibleHands"));
  commandLabel(CommandLabel::cmdCalcEquity, "cmdCalcEquity", PlaceOf("cmdCalcEquity"));
  caption(QStringLiteral("My Equity:"), PlaceOf("My Equity:"), Qt::AlignRight | Qt::AlignVCenter);
  lblMyEquity_ = new QLabel(this);
  lblMyEquity_->setObjectName(QStringLiteral("lblMyEquity"));
  lblMyEquity_->setGeometry(PlaceOf("lblMyEquity"));
  lblMyEquity_->setAlignment(Qt::AlignCenter);
  caption(QStringLiteral("Opp Equity:"), PlaceOf("Opp Equity:"), Qt::AlignRight | Qt::AlignVCenter);
  lbloppEquity_ = new QLabel(this);
  lbloppEquity_->setObjectName(QStringLiteral("lbloppEquity"));
  lbloppEquity_->setGeometry(PlaceOf("lbloppEquity"));
  lbloppEquity_->setAlignment(Qt::AlignCenter);
  QFont readOut = WindowFont();
  readOut.setBold(true);
  lblMyEquity_->setFont(readOut);
  lbloppEquity_->setFont(readOut);
  // A read-out's value can be selected with the mouse and copied (Ctrl+C or its right-click menu, which is
  // the window's own: a label's built-in one offers only links).
  lblMyEquity_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lbloppEquity_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblMyEquity_->setContextMenuPolicy(Qt::CustomContextMenu);
  lbloppEquity_->setContextMenuPolicy(Qt::CustomContextMenu);

  // The grid with its hint, the suit matrix, the range text and slider, the quick-select commands.
  QLabel* hint = caption(QString::fromLatin1(kHint), PlaceOf("hint"), Qt::AlignLeft | Qt::AlignVCenter);
  hint->setWordWrap(true);
  QFont hintFont = WindowFont();
  hintFont.setPixelSize(11);
  hint->setFont(hintFont);
  hint->setStyleSheet(QStringLiteral("color: #404040;"));
  grid_ = new HandGridWidget(model_, this);
  grid_->setObjectName(QStringLiteral("PFHand"));
  grid_->setGeometry(PlaceOf("PFHand"));
  // While "Equity Heat Map" is ticked the rows are one pixel lower and its legend takes the room freed.
  heatLegend_ = new HeatLegendWidget(this);
  heatLegend_->setObjectName(QStringLiteral("HeatLegend"));
  heatLegend_->setGeometry(PlaceOf("HeatLegend"));
  heatLegend_->setVisible(false);

  txtRange_ = new QLineEdit(this);
  txtRange_->setObjectName(QStringLiteral("txtRange"));
  txtRange_->setGeometry(PlaceOf("txtRange"));
  caption(QStringLiteral("%"), PlaceOf("%"));
  slider_ = new QSlider(Qt::Horizontal, this);
  slider_->setObjectName(QStringLiteral("Slider1"));
  slider_->setGeometry(PlaceOf("Slider1"));
  slider_->setPageStep(10);

  commandLabel(CommandLabel::cmdAll, "cmdAll", PlaceOf("cmdAll"));
  commandLabel(CommandLabel::cmdAnyPair, "cmdAnyPair", PlaceOf("cmdAnyPair"));
  commandLabel(CommandLabel::cmdAnySuited, "cmdAnySuited", PlaceOf("cmdAnySuited"));
  commandLabel(CommandLabel::cmdAnyBroadway, "cmdAnyBroadway", PlaceOf("cmdAnyBroadway"));
  commandLabel(CommandLabel::cmdClearOnBlocks, "cmdClearOnBlocks", PlaceOf("cmdClearOnBlocks"));
  commandLabel(CommandLabel::cmdClearSeenBlocks, "cmdClearSeenBlocks", PlaceOf("cmdClearSeenBlocks"));
  commandLabel(CommandLabel::cmdClearAllBlocks, "cmdClearAllBlocks", PlaceOf("cmdClearAllBlocks"));

  lblSeen_ = new QLabel(QStringLiteral("Seen"), this);
  lblSeen_->setObjectName(QStringLiteral("lblSeen"));
  lblSeen_->setGeometry(PlaceOf("lblSeen"));
  lblSeen_->setAlignment(Qt::AlignCenter);
  lblSeen_->setAttribute(Qt::WA_TransparentForMouseEvents);
  lblSeen_->setStyleSheet(QStringLiteral("background: #0000ff; color: white; font-weight: bold;"));

  matrix_ = new SuitMatrixWidget(model_, this);
  matrix_->setObjectName(QStringLiteral("picSuit"));
  matrix_->setGeometry(PlaceOf("picSuit"));

  // The results tree and the cook's three counts beneath it.
  lblOpponentRange_ = caption(QStringLiteral("Opponent Range:"), PlaceOf("Opponent Range:"));
  tree_ = new QTreeWidget(this);
  tree_->setObjectName(QStringLiteral("TV"));
  tree_->setHeaderHidden(true);
  tree_->setColumnCount(1);
  tree_->setUniformRowHeights(true);
  tree_->setSelectionMode(QAbstractItemView::SingleSelection);
  tree_->setIconSize(QSize(16, 16));
  lblCheckPossibleHands_ = new QLabel(this);
  lblCheckPossibleHands_->setObjectName(QStringLiteral("lblCheckPossibleHands"));
  lblCheckPossibleHands_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  lblCheckPossibleHands_->setAttribute(Qt::WA_TransparentForMouseEvents);

  picker_ = new SelCardsWindow(
      model_.frmSelCards, [this](std::function<void()> handler) { Act(handler); }, this);
}

void Form1::BuildMenus() {
  auto tick = [this](QMenu* menu, const char* name, const char* text, bool MenuOptions::*option,
                     void (Form1Model::*handler)()) {
    QAction* action = menu->addAction(QString::fromLatin1(text));
    action->setObjectName(QString::fromLatin1(name));
    action->setCheckable(true);
    tickActions_.push_back({action, option});
    const std::function<void()> run = std::bind(handler, &model_);
    connect(action, &QAction::triggered, this, [this, run] { Act(run); });
    return action;
  };

  optionsMenu_ = new QMenu(QStringLiteral("Options"), this);
  optionsMenu_->setObjectName(QStringLiteral("mnuOptions"));
  QMenu* display = optionsMenu_->addMenu(QStringLiteral("Display Options"));
  display->setObjectName(QStringLiteral("mnuDisplayOptions"));
  QMenu* simplify = display->addMenu(QStringLiteral("Simplify"));
  simplify->setObjectName(QStringLiteral("mnuSimplify"));
  tick(simplify, "mnuSimplifyOutput", "Simplify Output", &MenuOptions::simplifyOutput,
       &Form1Model::mnuSimplifyOutput_Click);
  tick(simplify, "mnuSimplifyFurther", "Simplify Further for Clipboard Export", &MenuOptions::simplifyFurther,
       &Form1Model::mnuSimplifyFurther_Click);
  tick(display, "mnuHideEmptyCats", "Hide Empty Categories", &MenuOptions::hideEmptyCats,
       &Form1Model::mnuHideEmptyCats_Click);
  tick(display, "mnuCheckBoxes", "Check Boxes", &MenuOptions::checkBoxes, &Form1Model::mnuCheckBoxes_Click);
  tick(display, "mnuEquityPerCategory", "Equity per Category", &MenuOptions::equityPerCategory,
       &Form1Model::mnuEquityPerCategory_Click);
  tick(display, "mnuEquityHeatMap", "Equity Heat Map", &MenuOptions::equityHeatMap,
       &Form1Model::mnuEquityHeatMap_Click);
  QMenu* appearance = optionsMenu_->addMenu(QStringLiteral("Appearance"));
  appearance->setObjectName(QStringLiteral("mnuAppearance"));
  tick(appearance, "mnuCategoryIcons", "Category Icons", &MenuOptions::categoryIcons,
       &Form1Model::mnuCategoryIcons_Click);
  tick(appearance, "mnuWinLoseIcons", "Win Lose Icons", &MenuOptions::winLoseIcons,
       &Form1Model::mnuWinLoseIcons_Click);
  switchScheme_ = appearance->addAction(QString());
  switchScheme_->setObjectName(QStringLiteral("mnuSwitchColourScheme"));
  connect(switchScheme_, &QAction::triggered, this,
          [this] { Act([this] { model_.mnuSwitchColourScheme_Click(); }); });
  QMenu* operation = optionsMenu_->addMenu(QStringLiteral("Operation"));
  operation->setObjectName(QStringLiteral("mnuOperation"));
  tick(operation, "mnuCalcEquityOnCook", "Auto Calc Equity on Cook", &MenuOptions::calcEquityOnCook,
       &Form1Model::mnuCalcEquityOnCook_Click);
  tick(operation, "mnuAutoPFEquityCalc", "Auto Calc Equity Preflop on Range Change",
       &MenuOptions::autoPFEquityCalc, &Form1Model::mnuAutoPFEquityCalc_Click);
  tick(operation, "mnuStandardShowdownRules", "Standard Showdown Rules", &MenuOptions::standardShowdownRules,
       &Form1Model::mnuStandardShowdownRules_Click);
  // "Multiway Equity..." opens a window of its own; Ctrl+M opens it too while the menu is closed.
  QAction* multiway = optionsMenu_->addAction(QStringLiteral("Multiway Equity..."));
  multiway->setObjectName(QStringLiteral("mnuMultiwayEquity"));
  // The key is not written in the menu: the menu stays as narrow as it was, so that it still opens under
  // its label near the screen's edge.
  auto* multiwayKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_M), this);
  multiwayKey->setObjectName(QStringLiteral("keyMultiwayEquity"));
  multiwayKey->setContext(Qt::WindowShortcut);
  connect(multiwayKey, &QShortcut::activated, multiway, &QAction::trigger);
  connect(multiway, &QAction::triggered, this, [this] {
    Act([this] { model_.mnuMultiwayEquity_Click(); });
    if (multiway_ == nullptr) multiway_ = new MultiwayWindow(model_.frmMultiway, services_, this);
    multiway_->Open();
  });
  // "Boards Report..." and Ctrl+B, the same way.
  QAction* boards = optionsMenu_->addAction(QStringLiteral("Boards Report..."));
  boards->setObjectName(QStringLiteral("mnuBoardsReport"));
  auto* boardsKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_B), this);
  boardsKey->setObjectName(QStringLiteral("keyBoardsReport"));
  boardsKey->setContext(Qt::WindowShortcut);
  connect(boardsKey, &QShortcut::activated, boards, &QAction::trigger);
  connect(boards, &QAction::triggered, this, [this] {
    if (boardsReport_ == nullptr) {
      boardsReport_ = new BoardsReportWindow(model_.frmBoardsReport, services_, this, [this] { Refresh(); });
    }
    boardsReport_->Act([this] { model_.mnuBoardsReport_Click(); });
    boardsReport_->Open();
  });

  treeMenu_ = new QMenu(QStringLiteral("TV"), this);
  treeMenu_->setObjectName(QStringLiteral("mnuTV"));
  QAction* add = treeMenu_->addAction(QStringLiteral("Add to Range"));
  add->setObjectName(QStringLiteral("mnuAdd2Range"));
  connect(add, &QAction::triggered, this, [this] { Act([this] { model_.mnuAdd2Range_Click(); }); });
  // In the menu only while "Check Boxes" is ticked (ShowTreeChecks puts it in and takes it out).
  keepOnlyChecked_ = new QAction(QStringLiteral("Keep Only Checked"), treeMenu_);
  keepOnlyChecked_->setObjectName(QStringLiteral("mnuKeepOnlyChecked"));
  connect(keepOnlyChecked_, &QAction::triggered, this,
          [this] { Act([this] { model_.mnuKeepOnlyChecked_Click(); }); });
  QAction* copy = treeMenu_->addAction(QStringLiteral("Copy Results to Clipboard"));
  copy->setObjectName(QStringLiteral("mnuCopyToClipboard"));
  connect(copy, &QAction::triggered, this, [this] { Act([this] { model_.mnuCopyToClipboard_Click(); }); });

  equityMenu_ = new QMenu(QStringLiteral("Equity"), this);
  equityMenu_->setObjectName(QStringLiteral("mnuEquity"));
  QAction* copyEquity = equityMenu_->addAction(QStringLiteral("Copy"));
  copyEquity->setObjectName(QStringLiteral("mnuCopyEquity"));
  connect(copyEquity, &QAction::triggered, this, [this] { Act([this] { model_.mnuCopyEquity_Click(); }); });
  connect(lblMyEquity_, &QWidget::customContextMenuRequested, this,
          [this] { Act([this] { model_.lblMyEquity_MouseUp(kRightButton); }); });
  connect(lbloppEquity_, &QWidget::customContextMenuRequested, this,
          [this] { Act([this] { model_.lbloppEquity_MouseUp(kRightButton); }); });
}

QAction* Form1::menuAction(const char* name) const {
  for (QMenu* menu : {optionsMenu_, treeMenu_, equityMenu_}) {
    if (auto* action = menu->findChild<QAction*>(QString::fromLatin1(name))) return action;
  }
  return nullptr;
}

void Form1::ConnectEvents() {
  for (CommandLabelWidget* label : commandLabels_) {
    connect(label, &CommandLabelWidget::hovered, this, [this](CommandLabel id) {
      if (model_.highlightedLabel != id) Act([this, id] { model_.HighlightLabel(id); });
    });
    connect(label, &CommandLabelWidget::clicked, this, &Form1::CommandClicked);
  }

  // The player box: a name picked from the list, and every key released while typing one.
  connect(cmbPlayer_, &QComboBox::activated, this, [this](int index) {
    Act([this, index] {
      if (index >= 0 && index < static_cast<int>(model_.profiles().cmbPlayer.items.size())) {
        model_.profiles().cmbPlayer.listIndex = index;
        model_.profiles().cmbPlayer.text = model_.profiles().cmbPlayer.items[index];
      }
      model_.cmbPlayer_Click();
    });
  });
  connect(cmbPlayer_->lineEdit(), &QLineEdit::textEdited, this,
          [this](const QString& text) { model_.profiles().cmbPlayer.text = ToStdString(text); });
  // The keys are watched on the combo box itself: it holds the keyboard focus (its line edit only stands
  // behind it as a focus proxy) and hands each key on by calling the line edit's event() directly, a
  // route that skips any filter on the line edit.
  cmbPlayer_->installEventFilter(this);

  // The card boxes.
  connect(txtMyHand_, &CardTextBox::keyDown, this,
          [this](int key) { Act([this, key] { model_.txtMyHand_KeyDown(key); }); });
  connect(txtBoard_, &CardTextBox::keyDown, this,
          [this](int key) { Act([this, key] { model_.txtBoard_KeyDown(key); }); });
  connect(txtMyHand_, &CardTextBox::edited, this, [this] {
    model_.txtMyHand.text = txtMyHand_->Text();
    model_.txtMyHand.charColours = txtMyHand_->CharColours();
    if (model_.frmSelCards.visible) Act([this] { model_.txtMyHand_Change(); });
  });
  connect(txtBoard_, &CardTextBox::edited, this, [this] {
    model_.txtBoard.text = txtBoard_->Text();
    model_.txtBoard.charColours = txtBoard_->CharColours();
    if (model_.frmSelCards.visible) Act([this] { model_.txtBoard_Change(); });
  });
  connect(txtMyHand_, &CardTextBox::clicked, this, [this] { Act([this] { model_.txtMyHand_Click(); }); });
  connect(txtBoard_, &CardTextBox::clicked, this, [this] { Act([this] { model_.txtBoard_Click(); }); });
  connect(lblMyHand_, &ClickableLabel::clicked, this, [this] { Act([this] { model_.lblMyHand_Click(); }); });
  connect(lblBoardCards_, &ClickableLabel::clicked, this,
          [this] { Act([this] { model_.txtBoard_Click(); }); });

  // The grid and the suit matrix.
  connect(grid_, &HandGridWidget::blockMouseUp, this, [this](int index, int button, int shift) {
    Act([this, index, button, shift] { model_.PFHand_MouseUp(index, button, shift); });
  });
  connect(matrix_, &SuitMatrixWidget::cellClicked, this,
          [this](int index) { Act([this, index] { model_.picSuit_Click(index); }); });

  // The range text: every edit is the box's change; key releases and clicks go to their handlers.
  connect(txtRange_, &QLineEdit::textEdited, this, [this](const QString& text) {
    Act([this, text] { model_.grid().SetRangeText(ToStdString(text)); });
  });
  txtRange_->installEventFilter(this);

  // The slider: a move by the mouse applies at once; the keyboard moves it and the timer applies it.
  connect(slider_, &QSlider::valueChanged, this, [this](int value) {
    if (showingSlider_) return;
    model_.grid().Slider1.value = value;
    if (sliderKeyHeld_) return;
    sliderAppliedValue_ = value;
    Act([this] { model_.Slider1_MouseMove(kLeftButton); });
  });
  slider_->installEventFilter(this);

  // The tree: the right button's pop-up, F3, and the selected node.
  tree_->viewport()->installEventFilter(this);
  tree_->installEventFilter(this);
  connect(tree_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (showingTree_) return;
    model_.results().TV.selected = item != nullptr ? item->data(0, Qt::UserRole).toInt() : -1;
  });

  // The three timers, driven by the model's timer states.
  tmrSliderMoving_.setObjectName(QStringLiteral("tmrSliderMoving"));
  tmrCalcEquity_.setObjectName(QStringLiteral("tmrCalcEquity"));
  tmrTVError_.setObjectName(QStringLiteral("tmrTVError"));
  connect(&tmrSliderMoving_, &QTimer::timeout, this, [this] {
    TimerFired(tmrSliderMoving_, [this] {
      sliderAppliedValue_ = model_.grid().Slider1.value;
      model_.tmrSliderMoving_Timer();
    });
  });
  connect(&tmrCalcEquity_, &QTimer::timeout, this,
          [this] { TimerFired(tmrCalcEquity_, [this] { model_.tmrCalcEquity_Timer(); }); });
  connect(&tmrTVError_, &QTimer::timeout, this,
          [this] { TimerFired(tmrTVError_, [this] { model_.tmrTVError_Timer(); }); });
}

void Form1::CommandClicked(CommandLabel id) {
  Act([this, id] {
    switch (id) {
      case CommandLabel::cmdAll:
        model_.cmdAll_Click();
        break;
      case CommandLabel::cmdAnyPair:
        model_.cmdAnyPair_Click();
        break;
      case CommandLabel::cmdAnySuited:
        model_.cmdAnySuited_Click();
        break;
      case CommandLabel::cmdAnyBroadway:
        model_.cmdAnyBroadway_Click();
        break;
      case CommandLabel::cmdClearOnBlocks:
        model_.cmdClearOnBlocks_Click();
        break;
      case CommandLabel::cmdClearSeenBlocks:
        model_.cmdClearSeenBlocks_Click();
        break;
      case CommandLabel::cmdClearAllBlocks:
        model_.cmdClearAllBlocks_Click();
        break;
      case CommandLabel::cmdCheckPossibleHands:
        model_.cmdCheckPossibleHands_Click();
        break;
      case CommandLabel::cmdCalcEquity:
        model_.cmdCalcEquity_Click();
        break;
      case CommandLabel::lblOptions:
        model_.lblOptions_Click();
        break;
      case CommandLabel::lblHelp:
        model_.lblHelp_Click();
        break;
      case CommandLabel::lblWebsite:
        model_.lblWebsite_Click();
        break;
      case CommandLabel::lblSave:
        model_.lblSave_Click();
        break;
      case CommandLabel::lblDelete:
        model_.lblDelete_Click();
        break;
    }
  });
}

void Form1::Act(const std::function<void()>& handler) {
  ++acting_;
  handler();
  --acting_;
  Refresh();
}

void Form1::TimerFired(QTimer& timer, const std::function<void()>& handler) {
  // A handler never runs inside another one, nor under an open message box: the timer waits, and the
  // next refresh starts it again while the model still wants it.
  if (acting_ > 0 || services_.InModalBox()) {
    timer.stop();
    return;
  }
  Act(handler);
}

void Form1::Refresh() {
  for (int i = 0; i < kCommandLabelCount; ++i) commandLabels_[i]->ShowState(model_.commandLabels[i]);
  ShowPlayerBox();

  txtMyHand_->ShowState(model_.txtMyHand);
  if (const QString tip = ToQString(model_.MyHandToolTip()); txtMyHand_->toolTip() != tip) {
    txtMyHand_->setToolTip(tip);
  }
  txtBoard_->ShowState(model_.txtBoard);

  const QString rangeText = ToQString(model_.grid().txtRange.text);
  if (txtRange_->text() != rangeText) txtRange_->setText(rangeText);
  SetTextColour(*txtRange_, QPalette::Text, model_.grid().txtRange.foreColour);

  showingSlider_ = true;
  if (slider_->maximum() != model_.grid().Slider1.max) slider_->setRange(0, model_.grid().Slider1.max);
  if (slider_->value() != model_.grid().Slider1.value) slider_->setValue(model_.grid().Slider1.value);
  showingSlider_ = false;

  const int rowHeight = model_.options.equityHeatMap ? 19 : 20;
  if (grid_->height() != 13 * rowHeight + 1) grid_->setGeometry(8, 144, 13 * 34 + 1, 13 * rowHeight + 1);
  heatLegend_->setVisible(model_.options.equityHeatMap);
  grid_->update();
  matrix_->update();
  lblSeen_->setVisible(model_.grid().lblSeenVisible);

  lblMyEquity_->setText(ToQString(model_.results().lblMyEquity.caption));
  ShowLabelBackground(*lblMyEquity_, model_.results().lblMyEquity.opaque,
                      model_.results().lblMyEquity.backColour);
  lbloppEquity_->setText(ToQString(model_.results().lbloppEquity.caption));
  for (const auto& [label, mine] : {std::pair{lblMyEquity_, true}, std::pair{lbloppEquity_, false}}) {
    const QString tip = ToQString(model_.results().EquityToolTip(mine));
    if (label->toolTip() != tip) label->setToolTip(tip);
  }
  lblCheckPossibleHands_->setText(ToDisplayText(model_.results().lblCheckPossibleHands));

  ShowTree();
  ShowNotationBox();

  for (const TickAction& t : tickActions_) {
    const bool ticked = model_.options.*t.tick;
    if (t.action->isChecked() != ticked) t.action->setChecked(ticked);
  }
  switchScheme_->setText(ToQString(model_.mnuSwitchColourSchemeCaption));

  SyncTimer(tmrSliderMoving_, model_.tmrSliderMoving, shownSliderArm_);
  SyncTimer(tmrCalcEquity_, model_.tmrCalcEquity, shownCalcArm_);
  SyncTimer(tmrTVError_, model_.results().tmrTVError, shownTVErrorArm_);

  const QWidget* anchor = model_.frmSelCards.anchor == ControlId::txtBoard ? txtBoard_ : txtMyHand_;
  picker_->ShowState(anchor);
}

void Form1::ShowPlayerBox() {
  const ComboBoxState& box = model_.profiles().cmbPlayer;
  QSignalBlocker block(cmbPlayer_);
  if (shownPlayers_ != box.items) {
    cmbPlayer_->clear();
    for (const std::string& name : box.items) cmbPlayer_->addItem(ToQString(name));
    shownPlayers_ = box.items;
  }
  if (cmbPlayer_->currentIndex() != box.listIndex) cmbPlayer_->setCurrentIndex(box.listIndex);
  const QString text = ToQString(box.text);
  if (cmbPlayer_->currentText() != text) cmbPlayer_->setEditText(text);
  SetTextColour(*cmbPlayer_->lineEdit(), QPalette::Text, box.foreColour);
}

void Form1::ShowTree() {
  const ResultsTree& model = model_.results().TV;
  showingTree_ = true;
  if (!SameNodes(model.nodes, shownNodes_)) {
    tree_->clear();
    std::vector<QTreeWidgetItem*> items;
    items.reserve(model.nodes.size());
    const QPalette palette = tree_->palette();
    for (std::size_t i = 0; i < model.nodes.size(); ++i) {
      const ResultNode& node = model.nodes[i];
      QTreeWidgetItem* item = node.parent >= 0 && node.parent < static_cast<int>(i)
                                  ? new QTreeWidgetItem(items[static_cast<std::size_t>(node.parent)])
                                  : new QTreeWidgetItem(tree_);
      item->setText(0, ToQString(node.text));
      item->setData(0, Qt::UserRole, static_cast<int>(i));
      if (const std::string tip = model_.results().TreeNodeToolTip(static_cast<int>(i)); !tip.empty()) {
        item->setToolTip(0, ToWrappedToolTip(tip));
      }
      if (node.foreColour) item->setForeground(0, ToQColor(*node.foreColour, palette));
      if (!node.image.empty()) item->setIcon(0, ResultIcon(node.image));
      items.push_back(item);
    }
    shownNodes_ = model.nodes;
  }
  QTreeWidgetItem* current = tree_->currentItem();
  const int shownSelected = current != nullptr ? current->data(0, Qt::UserRole).toInt() : -1;
  if (shownSelected != model.selected) {
    QTreeWidgetItem* wanted = nullptr;
    if (model.selected >= 0) {
      for (QTreeWidgetItemIterator it(tree_); *it != nullptr; ++it) {
        if ((*it)->data(0, Qt::UserRole).toInt() == model.selected) {
          wanted = *it;
          break;
        }
      }
    }
    tree_->setCurrentItem(wanted);
  }
  showingTree_ = false;
  ShowTreeChecks();
  if (shownPointer_ != model_.results().tvMousePointer) {
    shownPointer_ = model_.results().tvMousePointer;
    if (shownPointer_ == 99) {
      tree_->viewport()->setCursor(TreeErrorCursor());
    } else {
      tree_->viewport()->unsetCursor();
    }
  }
}

void Form1::SyncTimer(QTimer& timer, const TimerState& state, uint64_t& shownArm) {
  if (!state.enabled) {
    if (timer.isActive()) timer.stop();
  } else if (!timer.isActive() || state.armCount != shownArm) {
    timer.start(state.intervalMs);  // (re)starts the delay
  }
  shownArm = state.armCount;
}

void Form1::PopUpMenu(PopupMenuId menu) {
  Refresh();
  QMenu* popup = menu == PopupMenuId::Options ? optionsMenu_
                 : menu == PopupMenuId::Tree  ? treeMenu_
                                              : equityMenu_;
  if (menuFromKey_ && menu == PopupMenuId::Options) {
    const QWidget* label = commandLabel(CommandLabel::lblOptions);
    popup->popup(label->mapToGlobal(QPoint(0, label->height())));
    return;
  }
  popup->popup(QCursor::pos());
}

void Form1::FocusControl(ControlId control) {
  switch (control) {
    case ControlId::txtMyHand:
      txtMyHand_->setFocus();
      break;
    case ControlId::txtBoard:
      if (gridKeyActing_) break;
      txtBoard_->setFocus();
      break;
    case ControlId::txtRange:
      txtRange_->setFocus();
      break;
    case ControlId::cmbPlayer:
      cmbPlayer_->setFocus();
      break;
    case ControlId::Slider1:
      slider_->setFocus();
      break;
    case ControlId::TV:
      tree_->setFocus();
      break;
  }
}

void Form1::RepaintNow() {
  Refresh();
  repaint();
}

void Form1::LayOutTree() {
  const int treeHeight = model_.geometry.treeHeight / kTwipsPerPixel;
  tree_->setGeometry(kRightX, kTreeTop, kRightWidth, std::max(0, treeHeight));
  lblCheckPossibleHands_->setGeometry(kRightX, kTreeTop + treeHeight + 2, kRightWidth, kCaptionHeight);
}

void Form1::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (resizing_ || tree_ == nullptr) return;
  WindowGeometry& g = model_.geometry;
  g.width = width() * kTwipsPerPixel;
  g.height = height() * kTwipsPerPixel;
  g.normalState = !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
  model_.Form_Resize();
  const int wantedWidth = g.width / kTwipsPerPixel;
  const int wantedHeight = (g.height + kTwipsPerPixel - 1) / kTwipsPerPixel;
  if (g.normalState && (wantedWidth != width() || wantedHeight != height())) {
    resizing_ = true;
    resize(wantedWidth, wantedHeight);
    resizing_ = false;
  }
  LayOutTree();
}

void Form1::closeEvent(QCloseEvent* event) {
  // A second close while the saves wait for another program's lock is no new request.
  if (closing_) {
    event->ignore();
    return;
  }
  closing_ = true;
  bool mayClose = true;
  Act([this, &mayClose] { mayClose = model_.Form_QueryUnload(); });
  closing_ = false;
  // Cancel at the lock question: the window stays open with its changes.
  if (!mayClose) {
    event->ignore();
    return;
  }
  event->accept();
  emit closed();
}

void Form1::EndOfSession() {
  Act([this] { model_.Form_QueryUnload(); });
}

void Form1::mouseMoveEvent(QMouseEvent* event) {
  QWidget::mouseMoveEvent(event);
  if (model_.highlightedLabel) Act([this] { model_.Form_MouseMove(); });
}

bool Form1::SliderKey(QKeyEvent* event, bool down) {
  if (event->isAutoRepeat() && !down) return false;  // a held key: only its last release counts
  // Only the keys that move the slider start the timer that puts its place into the range, and only the
  // release of the key that started it stops it. Any other key (Tab and Shift+Tab, whose press or release
  // lands here as the focus comes or goes, a modifier alone, the window's Ctrl and Alt shortcuts) moves
  // nothing and must not apply the slider's place.
  const int pressed = event->key();
  const bool moves = pressed == Qt::Key_Left || pressed == Qt::Key_Right || pressed == Qt::Key_Up ||
                     pressed == Qt::Key_Down || pressed == Qt::Key_PageUp || pressed == Qt::Key_PageDown ||
                     pressed == Qt::Key_Home || pressed == Qt::Key_End;
  if (!moves || (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) return false;
  if (down) {
    if (!sliderKeyHeld_) {
      sliderKeyHeld_ = true;
      sliderHeldKey_ = pressed;
      Act([this] { model_.Slider1_KeyDown(); });
    }
  } else if (sliderKeyHeld_ && pressed == sliderHeldKey_) {
    sliderKeyHeld_ = false;
    // A key tapped faster than the timer's first tick still moves the range.
    Act([this] {
      if (model_.tmrSliderMoving.enabled && sliderAppliedValue_ != model_.grid().Slider1.value) {
        sliderAppliedValue_ = model_.grid().Slider1.value;
        model_.tmrSliderMoving_Timer();
      }
      model_.Slider1_KeyUp();
    });
  }
  return false;
}

void Form1::SliderFocusLost() {
  // The held key's release goes to wherever the focus went: the hold ends here, and the timer with it.
  if (!sliderKeyHeld_) return;
  sliderKeyHeld_ = false;
  Act([this] { model_.Slider1_KeyUp(); });
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (watched == cmbPlayer_) {
    if (type == QEvent::KeyPress) {
      auto* key = static_cast<QKeyEvent*>(event);
      // Enter is the model's business (it saves a new name); the combo box must not act on it.
      if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) return true;
    } else if (type == QEvent::KeyRelease) {
      auto* key = static_cast<QKeyEvent*>(event);
      if (key->isAutoRepeat()) return false;
      const int code = KeyCode(*key);
      Act([this, code] {
        model_.profiles().cmbPlayer.text = ToStdString(cmbPlayer_->lineEdit()->text());
        model_.cmbPlayer_KeyUp(code);
      });
    }
  } else if (watched == txtRange_) {
    if (type == QEvent::KeyRelease) {
      auto* key = static_cast<QKeyEvent*>(event);
      if (!key->isAutoRepeat()) {
        const int code = KeyCode(*key);
        Act([this, code] { model_.txtRange_KeyUp(code); });
      }
    } else if (type == QEvent::KeyPress) {
      auto* key = static_cast<QKeyEvent*>(event);
      if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) return true;
    } else if (type == QEvent::MouseButtonRelease &&
               static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
      Act([this] { model_.txtRange_Click(); });
      txtRange_->setSelection(model_.grid().txtRange.selStart, model_.grid().txtRange.selLength);
      return true;
    }
  } else if (watched == slider_) {
    if (type == QEvent::KeyPress) return SliderKey(static_cast<QKeyEvent*>(event), true);
    if (type == QEvent::KeyRelease) return SliderKey(static_cast<QKeyEvent*>(event), false);
    if (type == QEvent::FocusOut) SliderFocusLost();
    if (type == QEvent::MouseButtonRelease) {
      auto* mouse = static_cast<QMouseEvent*>(event);
      const int button = ButtonNumber(mouse->button());
      const int shift = ShiftMask(mouse->modifiers());
      Act([this, button, shift] { model_.Slider1_MouseUp(button, shift); });
    }
  } else if (watched == tree_->viewport()) {
    if (type == QEvent::MouseButtonRelease) {
      const int button = ButtonNumber(static_cast<QMouseEvent*>(event)->button());
      Act([this, button] { model_.TV_MouseUp(button); });
    }
  } else if (watched == tree_) {
    if (type == QEvent::KeyRelease) {
      auto* key = static_cast<QKeyEvent*>(event);
      if (!key->isAutoRepeat()) {
        const int code = KeyCode(*key);
        Act([this, code] { model_.TV_KeyUp(code); });
      }
    }
  }
  return QWidget::eventFilter(watched, event);
}

// ---- The range notation box ("Range:") under the grid, the weight box ("Weight:") beside it, and the
// grid's Ctrl+C / Ctrl+V ----

void Form1::BuildNotationBox() {
  auto* caption = new CaptionLabel(QStringLiteral("Range:"), this);
  caption->setGeometry(8, 409, 46, 24);
  caption->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  txtNotation_ = new QLineEdit(this);
  txtNotation_->setObjectName(QStringLiteral("txtNotation"));
  txtNotation_->setGeometry(54, 409, 265, 24);

  // The weight the grid paints with: 0.1 to 100 % in steps of a tenth (a thousandth of a whole), the
  // arrows moving it by 5.
  auto* weightCaption = new CaptionLabel(QStringLiteral("Weight:"), this);
  weightCaption->setGeometry(324, 409, 48, 24);
  weightCaption->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  txtWeight_ = new QDoubleSpinBox(this);
  txtWeight_->setObjectName(QStringLiteral("txtWeight"));
  txtWeight_->setGeometry(372, 409, 79, 24);
  txtWeight_->setDecimals(1);
  txtWeight_->setRange(0.1, 100.0);
  txtWeight_->setSingleStep(5.0);
  txtWeight_->setSuffix(QStringLiteral(" %"));
  txtWeight_->setValue(100.0);
  weightCaption->setBuddy(txtWeight_);
  connect(txtWeight_, &QDoubleSpinBox::valueChanged, this, [this](double percent) {
    Act([this, percent] { model_.txtWeight_Change(static_cast<int32_t>(std::lround(percent * 10.0))); });
  });

  connect(txtNotation_, &QLineEdit::textEdited, this, [this](const QString& text) {
    Act([this, text] {
      model_.grid().txtNotation.text = ToStdString(text);
      model_.txtNotation_Change();
    });
  });
  // On the key's press, so that the Enter that closes an error's message box is not taken as another one.
  connect(txtNotation_, &QLineEdit::returnPressed, this,
          [this] { Act([this] { model_.txtNotation_KeyDown(kKeyEnter); }); });

  new GridClipboardKeys(
      grid_, [this](int key, int shift) { Act([this, key, shift] { model_.PFHand_KeyDown(key, shift); }); },
      this);
}

void Form1::ShowNotationBox() {
  const QString text = ToQString(model_.grid().txtNotation.text);
  if (txtNotation_->text() != text) {
    txtNotation_->setText(text);
    txtNotation_->setCursorPosition(0);  // a long range shows from its strongest hands
  }
  SetTextColour(*txtNotation_, QPalette::Text, model_.grid().txtNotation.foreColour);
  const double weight = model_.grid().txtWeight / 10.0;
  if (std::lround(txtWeight_->value() * 10.0) != model_.grid().txtWeight) {
    const QSignalBlocker block(txtWeight_);
    txtWeight_->setValue(weight);
  }
}

}  // namespace quillet::gui
