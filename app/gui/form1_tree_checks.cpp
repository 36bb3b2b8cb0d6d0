// The results tree's check boxes: a user's tick goes to the model, and the model's ticks (and whether the
// boxes are shown at all, with "Keep Only Checked" in the tree's menu) come back to the tree.
#include <QTreeWidgetItemIterator>

#include "app/gui/form1.h"

namespace quillet::gui {

void Form1::BuildTreeCheckBoxes() {
  connect(tree_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
    if (showingTree_ || column != 0) return;
    const QVariant state = item->data(0, Qt::CheckStateRole);
    if (!state.isValid()) return;
    const int node = item->data(0, Qt::UserRole).toInt();
    const bool checked = state.toInt() == Qt::Checked;
    Act([this, node, checked] { model_.TV_NodeCheck(node, checked); });
  });
}

void Form1::ShowTreeChecks() {
  // "Keep Only Checked" follows "Add to Range" while the option is ticked; unticked, the menu is as it
  // always was.
  const bool inMenu = treeMenu_->actions().contains(keepOnlyChecked_);
  if (model_.options.checkBoxes && !inMenu) {
    const QList<QAction*> actions = treeMenu_->actions();
    treeMenu_->insertAction(actions.size() > 1 ? actions[1] : nullptr, keepOnlyChecked_);
  } else if (!model_.options.checkBoxes && inMenu) {
    treeMenu_->removeAction(keepOnlyChecked_);
  }
  if (!model_.options.checkBoxes && !showingChecks_) return;  // no box shown, none wanted
  showingChecks_ = model_.options.checkBoxes;
  const bool wasShowingTree = showingTree_;
  showingTree_ = true;  // the boxes set here are no user's check
  const std::vector<bool>& checked = model_.results().tvChecked;
  for (QTreeWidgetItemIterator it(tree_); *it != nullptr; ++it) {
    QTreeWidgetItem* item = *it;
    const int node = item->data(0, Qt::UserRole).toInt();
    const QVariant shown = item->data(0, Qt::CheckStateRole);
    if (model_.results().NodeCheckable(node)) {
      const bool on = node < static_cast<int>(checked.size()) && checked[static_cast<std::size_t>(node)];
      const int wanted = on ? Qt::Checked : Qt::Unchecked;
      if (!shown.isValid() || shown.toInt() != wanted)
        item->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
    } else if (shown.isValid()) {
      item->setData(0, Qt::CheckStateRole, QVariant());  // no box at all
    }
  }
  showingTree_ = wasShowingTree;
}

}  // namespace quillet::gui
