#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>
#include <gtest/gtest.h>

#include "platform/desktop/DesktopAudioOutputs.h"
#include "platform/desktop/DesktopDocuments.h"

namespace repvolta {
namespace {

/// Stands in for the desktop and keeps what it was asked to open.
class Desktop : public QObject {
  Q_OBJECT

 public:
  Desktop() { QDesktopServices::setUrlHandler("file", this, "Open"); }
  ~Desktop() override { QDesktopServices::unsetUrlHandler("file"); }

  QList<QUrl> opened;

 public slots:
  void Open(const QUrl& url) { opened << url; }
};

TEST(DesktopDocuments, AreOpenedByTheirFullPath) {
  const Desktop desktop;
  EXPECT_TRUE(DesktopDocuments().Open("/player/Füße 1/#1 100%.M3U"));
  ASSERT_EQ(desktop.opened.size(), 1);
  EXPECT_EQ(desktop.opened.first().toLocalFile(), "/player/Füße 1/#1 100%.M3U");
}

TEST(DesktopAudioOutputs, HaveNamesIfThereAreAny) {
  for (const std::string& name : DesktopAudioOutputs().Names()) EXPECT_NE(name, "");
}

}  // namespace
}  // namespace repvolta

#include "DesktopDocumentsTest.moc"
