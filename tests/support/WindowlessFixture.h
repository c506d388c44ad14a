#pragma once

#include "fakes/RecordingWindow.h"
#include "support/ProgramFixture.h"

namespace repvolta {

/// A fresh program directory, which is current, with fake services and a window that only records.
class WindowlessFixture : public ProgramFixture {
 protected:
  RecordingWindow window;
  Editor editor = window.EditorOf(program);
};

}  // namespace repvolta
