#include "ui/PreviewListening.h"

#include <QAccessible>
#include <exception>

namespace repvolta {

PreviewListening::PreviewListening(const Preview& preview, Listening& listening,
                                   const Controls& controls, QObject* parent)
    : QObject(parent), preview_(preview), listening_(listening), controls_(controls) {
  watch_ = listening_.OnChange([this] { ShowHeard(); });
  connect(controls_.listen, &QPushButton::clicked, this, [this] {
    if (const auto selected = SelectedExercise()) Play(*selected);
  });
  connect(controls_.stop, &QPushButton::clicked, this, [this] { listening_.Stop(); });
  connect(controls_.next, &QPushButton::clicked, this, [this] { PlayNext(); });
  ShowHeard();
}

PreviewListening::~PreviewListening() {
  watch_.reset();
  if (listening_.Heard()) listening_.Stop();
}

std::optional<int> PreviewListening::SelectedExercise() const {
  const int row = controls_.files->SelectedRow();
  if (row < 0) return std::nullopt;
  return preview_.files[static_cast<std::size_t>(row)].exercise;
}

void PreviewListening::Play(int exercise) {
  try {
    listening_.Play(exercise);
  } catch (const std::exception& error) {
    Tell(error.what());
  }
}

/// The selection goes along, so that one sees what is heard, and can go on when it has ended.
void PreviewListening::PlayNext() {
  const std::optional<int> heard = listening_.Heard();
  const std::optional<int> from = heard ? heard : SelectedExercise();
  if (!from) return;
  const int after = *from + 1;
  const int next = after <= preview_.files.back().exercise ? after : 0;
  controls_.files->SelectRow(InstructionRow(next));
  Play(next);
}

void PreviewListening::Tell(const QString& notice) {
  if (notice == controls_.notice->text()) return;
  controls_.notice->setText(notice);
  controls_.notice->setVisible(!notice.isEmpty());
  if (notice.isEmpty()) return;
  QAccessibleEvent said(controls_.notice, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

int PreviewListening::InstructionRow(std::optional<int> exercise) const {
  int row = 0;
  for (const PreviewFile& file : preview_.files) {
    if (file.kind == PreviewFile::Kind::kInstruction && exercise == file.exercise) return row;
    ++row;
  }
  return -1;
}

void PreviewListening::ShowHeard() {
  controls_.rows->MarkRow(InstructionRow(listening_.Heard()), "heard now");
  controls_.listen->setEnabled(!preview_.files.empty());
  controls_.next->setEnabled(!preview_.files.empty());
  controls_.stop->setEnabled(listening_.Heard().has_value());
  Tell(QString::fromStdString(listening_.Notice()));
}

}  // namespace repvolta
