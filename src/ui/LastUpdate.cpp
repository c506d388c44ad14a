#include "ui/LastUpdate.h"

#include <QAccessible>
#include <utility>

namespace repvolta {

LastUpdate::LastUpdate(QWidget* window, QLabel* label, std::function<void()> showAgain)
    : QObject(window), label_(label), action_(new QAction("Show Last Update", window)) {
  action_->setObjectName("ShowLastUpdateAction");
  action_->setToolTip("Show the lines of the last update again.");
  action_->setEnabled(false);
  connect(action_, &QAction::triggered, this, [show = std::move(showAgain)] { show(); });
}

void LastUpdate::Show(const std::string& text) {
  action_->setEnabled(true);
  label_->setText(text.empty() ? QString() : "Last update: " + QString::fromStdString(text));
  label_->setVisible(!text.empty());
  if (text.empty()) return;
  QAccessibleEvent told(label_, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

}  // namespace repvolta
