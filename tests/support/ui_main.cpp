#include <QApplication>
#include <clocale>
#include <gtest/gtest.h>
#include <locale>

namespace {

QtMessageHandler printMessage = nullptr;

/// Leaves out what the platform without a display says hundreds of times, so that the lines of a
/// test that fails are seen.
void PrintUnlessOfNoDisplay(QtMsgType type, const QMessageLogContext& context,
                            const QString& message) {
  if (!message.startsWith("This plugin does not support ")) printMessage(type, context, message);
}

}  // namespace

/// The main of the tests of windows: without a display, in the locale of the environment.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  printMessage = qInstallMessageHandler(PrintUnlessOfNoDisplay);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  std::setlocale(LC_ALL, "");
  std::locale::global(std::locale(""));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
