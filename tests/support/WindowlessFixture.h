#pragma once

#include "fakes/RecordingWindow.h"
#include "support/ProgramFixture.h"

namespace repvolta {

/// A program directory of its own, current, with fake services, and a window that only records.
class WindowlessFixture : public ProgramFixture {
 protected:
  RecordingWindow window;
  Editor editor = window.EditorOf(program);
};

}  // namespace repvolta
