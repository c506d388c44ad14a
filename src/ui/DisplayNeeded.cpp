#include "ui/DisplayNeeded.h"

#include <QtGlobal>
#include <cstdio>
#include <cstdlib>

namespace repvolta {
namespace {

constexpr int kNotStarted = 1;

QtMessageHandler usual = nullptr;

void Tell(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type != QtFatalMsg) {
    usual(type, context, text);
    return;
  }
  // Qt's own text asks to install the program again, which helps nobody.
  static_cast<void>(std::fputs(
      "repvolta: There is no display to show the window on. Start it on a desktop, X11 or Wayland; "
      "repvolta-update works without one.\n",
      stderr));
  std::_Exit(kNotStarted);
}

}  // namespace

DisplayNeeded::DisplayNeeded() { usual = qInstallMessageHandler(Tell); }

DisplayNeeded::~DisplayNeeded() { qInstallMessageHandler(usual); }

}  // namespace repvolta
