#pragma once

#include <string>

namespace repvolta {

/// What a file is chosen for.
struct FileQuestion {
  std::string name;    // of the dialog, under which its size and last folder are kept
  std::string title;   // "Back Up"
  std::string file;    // the suggested name; "": none
  std::string filter;  // "Backups (*.zip)"
  std::string suffix;  // ".zip", added to a name without one

  bool operator==(const FileQuestion&) const = default;
};

}  // namespace repvolta
