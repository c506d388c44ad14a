#include <QApplication>
#include <clocale>
#include <gtest/gtest.h>
#include <locale>

/// The main of the tests of windows: without a display, in the locale of the environment.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  std::setlocale(LC_ALL, "");
  std::locale::global(std::locale(""));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
