#include "ui/WorkWindow.h"

#include <QProgressBar>
#include <QProgressDialog>
#include <algorithm>

#include "base/Product.h"

namespace repvolta {
namespace {

constexpr int kAll = 100;
constexpr int kMoment = 400;  // milliseconds

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

void RunInSight(QWidget* owner, std::string_view text, const LongWork& work) {
  QProgressDialog window(ToQt(text), "Stop", 0, kAll, owner);
  window.setObjectName("WorkWindow");
  window.setWindowTitle(ToQt(kProductName));
  window.setWindowModality(Qt::ApplicationModal);
  window.setMinimumDuration(kMoment);
  window.setAutoClose(false);
  window.setAutoReset(false);
  for (auto* bar : window.findChildren<QProgressBar*>()) bar->setAccessibleName(ToQt(text));
  window.setValue(0);
  work([&window](int percent) {
    // This handles events, too.
    window.setValue(std::clamp(percent, 0, kAll));
    if (window.wasCanceled()) throw WorkStopped();
  });
}

}  // namespace repvolta
