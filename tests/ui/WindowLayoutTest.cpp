#include <QFileDialog>

#include "ui/WindowLayout.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

TEST(WindowLayout, HasAFileOnlyInAFolderThatKeepsAll) {
  EXPECT_EQ(WindowLayoutFile("/stick/repvolta/", "/stick/repvolta/repvolta"),
            "/stick/repvolta/window.ini");
  EXPECT_EQ(WindowLayoutFile("/home/kim/.local/share/repvolta/", "/usr/bin/repvolta"), "");
}

class PortableWindow : public FormFixture {
 protected:
  PortableWindow() {
    layoutFile = folder.Path() + "window.ini";
    OpenForm();
  }
};

TEST_F(PortableWindow, KeepsItsSizeInItsOwnFolder) {
  form->resize(form->width() + 40, form->height() + 30);
  const QSize size = form->size();
  Click("ExitButton");
  EXPECT_TRUE(fs::exists(layoutFile));
  EXPECT_FALSE(fs::exists("desktop"));

  OpenForm();
  EXPECT_EQ(form->size(), size);
}

TEST_F(PortableWindow, IsNotSizedByTheDesktopsSettings) {
  const QSize size = form->size();
  layoutFile = "";
  OpenForm();
  form->resize(size + QSize(40, 30));
  Click("ExitButton");

  layoutFile = folder.Path() + "window.ini";
  OpenForm();
  EXPECT_EQ(form->size(), size);
}

TEST_F(PortableWindow, LetsTheFileDialogKeepWhatItWillInItsFolder) {
  KeepFileDialogIn(folder.Path());
  {
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.show();
  }
  EXPECT_TRUE(fs::exists("QtProject.conf"));
}

}  // namespace
}  // namespace repvolta
