#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// While this object exists, the program itself fills the controls, and their handlers do nothing.
class ScreenUpdate {
 public:
  explicit ScreenUpdate(ProgramState& state) : state_(state), before_(state.ScreenUpdating) {
    state_.ScreenUpdating = true;
  }
  ~ScreenUpdate() { state_.ScreenUpdating = before_; }
  ScreenUpdate(const ScreenUpdate&) = delete;
  ScreenUpdate& operator=(const ScreenUpdate&) = delete;

 private:
  ProgramState& state_;
  bool before_;
};

}  // namespace repvolta
