#pragma once

#include <QListWidget>

#include "app/ProblemCount.h"

namespace repvolta {

// What a person can do with the lines of an update.

/// Lets several lines be selected, and copied with Ctrl+C or from the list's menu.
void OfferCopy(QListWidget& list);

/// Shows the whole line in the item's tool tip.
void ShowWholeInToolTip(QListWidgetItem& item);

/// Selects the next line of this kind, after the last one again the first, scrolls to it, and gives
/// it the focus. Does nothing when there is none.
void SelectNext(QListWidget& list, LineKind kind);

}  // namespace repvolta
