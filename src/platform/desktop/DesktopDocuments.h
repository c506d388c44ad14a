#pragma once

#include "platform/DocumentOpener.h"

namespace repvolta {

/// The desktop's own choice of programs. Needs a QGuiApplication.
class DesktopDocuments : public DocumentOpener {
 public:
  bool Open(const std::string& path) override;
};

}  // namespace repvolta
