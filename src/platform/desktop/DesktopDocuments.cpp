#include "platform/desktop/DesktopDocuments.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace repvolta {

bool DesktopDocuments::Open(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

}  // namespace repvolta
