#include "ui/SongMarks.h"

#include <QAccessible>
#include <QApplication>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "editing/MissingFiles.h"

namespace repvolta {
namespace {

/// Within this time a disk at work answers, so that its rows are marked when they first show.
constexpr std::chrono::milliseconds kInstant(200);

Presence PresenceOf(std::optional<bool> answer) {
  if (!answer) return Presence::kUnknown;
  return *answer ? Presence::kThere : Presence::kGone;
}

}  // namespace

SongMarks::SongMarks(RowList* list, QLabel* label, Answers<bool>::Look look)
    : list_(list), label_(label), answers_(std::move(look), [this] { Mark(); }) {}

void SongMarks::Show(std::vector<std::string> paths) {
  paths_ = std::move(paths);
  const bool isSilent = answers_.AreOwed();
  for (const std::string& path : paths_) answers_.Ask(path);
  if (!isSilent) answers_.Wait(kInstant);
  Mark();
}

void SongMarks::Mark() {
  const int size = list_->fontMetrics().height();
  list_->setIconSize({size, size});
  std::vector<MusicRow> rows;
  const int count = std::min(list_->count(), static_cast<int>(paths_.size()));
  for (int i = 0; i < count; ++i) {
    const std::string& path = paths_[static_cast<std::size_t>(i)];
    rows.push_back({.path = path, .presence = PresenceOf(answers_.Of(path))});
    const bool isGone = rows.back().presence == Presence::kGone;
    list_->item(i)->setIcon(
        isGone ? QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning) : QIcon());
    list_->SetRemark(i, QString::fromStdString(RemarkOf(rows.back())));
  }
  const QString text = QString::fromStdString(GoneSongsText(rows));
  if (text == label_->text()) return;
  label_->setText(text);
  if (text.isEmpty()) return;
  QAccessibleEvent told(label_, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

}  // namespace repvolta
