#pragma once

namespace repvolta {

/// While it exists, a failure to reach a display ends the program with status 1 and a line that
/// says what is missing and what works without one, instead of an abort. For the making of the
/// QApplication.
class DisplayNeeded {
 public:
  DisplayNeeded();
  ~DisplayNeeded();
  DisplayNeeded(const DisplayNeeded&) = delete;
  DisplayNeeded& operator=(const DisplayNeeded&) = delete;
};

}  // namespace repvolta
