#pragma once

#include <vector>

namespace repvolta {

/// The menus of the main window, from left to right. Their titles have no mnemonics, because the
/// tabs use nearly all letters.
enum class Menu { kFile, kWorkout, kEdit, kExercise, kMusic, kVoice, kHelp };

const char* TitleOf(Menu menu);

/// A line of a menu: the object name of a control, a tab or a QAction in the main window. `text`
/// says what Enter does to the selected row of a list, what a button without a text does, or what a
/// field without a telling label is for; all others have a text of their own. Without an object,
/// the line separates.
struct MenuLine {
  Menu menu;
  const char* object = "";
  const char* text = "";
};

/// All lines, menu by menu.
std::vector<MenuLine> MenuLines();

}  // namespace repvolta
