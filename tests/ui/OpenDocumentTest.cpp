#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>
#include <gtest/gtest.h>

#include "ui/QtDialogs.h"

namespace repvolta {
namespace {

/// Replaces the desktop and records the documents to open.
class Desktop : public QObject {
  Q_OBJECT

 public:
  Desktop() { QDesktopServices::setUrlHandler("file", this, "Open"); }
  ~Desktop() override { QDesktopServices::unsetUrlHandler("file"); }

  QList<QUrl> opened;

 public slots:
  void Open(const QUrl& url) { opened << url; }
};

TEST(OpenDocument, OpensItByItsFullPath) {
  const Desktop desktop;
  QtDialogs().OpenDocument("/player/Füße 1/#1 100%.M3U");
  ASSERT_EQ(desktop.opened.size(), 1);
  EXPECT_EQ(desktop.opened.first().toLocalFile(), "/player/Füße 1/#1 100%.M3U");
}

}  // namespace
}  // namespace repvolta

#include "OpenDocumentTest.moc"
