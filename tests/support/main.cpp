#include <QCoreApplication>
#include <clocale>
#include <gtest/gtest.h>
#include <locale>

/// Uses the locale of the environment, as the programs do: the suite also runs with a decimal
/// comma.
int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  std::setlocale(LC_ALL, "");
  std::locale::global(std::locale(""));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
