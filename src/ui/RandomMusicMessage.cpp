#include "ui/RandomMusicMessage.h"

#include "ui/ShowAbove.h"

#include "ui_RandomMusicMessage.h"

namespace repvolta {

RandomMusicMessage::RandomMusicMessage() : ui_(std::make_unique<Ui::RandomMusicMessage>()) {
  ui_->setupUi(this);
  ui_->MessageLabel->setMargin(fontMetrics().height());
  layout()->setSizeConstraint(QLayout::SetFixedSize);
}

RandomMusicMessage::~RandomMusicMessage() = default;

void RandomMusicMessage::Show() {
  ShowAbove(*this, owner_);
  repaint();
}

}  // namespace repvolta
