#pragma once

#include <QTreeView>

namespace repvolta {

/// From now on the tree, which has its model, is laid out as soon as rows come or go. A layout that
/// is put off until an assistive program asks for a row ends the program: Qt 6.8 then deletes the
/// row's description while it answers from it.
void KeepReadable(QTreeView& tree);

}  // namespace repvolta
