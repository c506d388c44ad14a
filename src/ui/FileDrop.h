#pragma once

#include <QDropEvent>
#include <QMimeData>
#include <QObject>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace repvolta {

/// The paths of the files and folders, in the bytes of their names; none unless all of them are on
/// this computer.
std::vector<std::string> LocalPaths(const QMimeData& data);

/// Lets files and folders of this computer be dropped on a widget, which owns this object. Whatever
/// is dropped is copied or linked: an offer that would delete the files is refused.
class FileDrop : public QObject {
 public:
  /// Nothing can be dropped while `isOpen` says no. `take` is called after the drop, when the
  /// program that the files come from no longer waits.
  FileDrop(QWidget* target, std::function<bool()> isOpen,
           std::function<void(const std::vector<std::string>& paths)> take);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Answer(QDropEvent& event) const;

  std::function<bool()> isOpen_;
  std::function<void(const std::vector<std::string>&)> take_;
  std::vector<std::string> paths_;  // of what is being dragged
};

}  // namespace repvolta
