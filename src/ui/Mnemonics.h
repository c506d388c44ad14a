#pragma once

#include <QStringList>

namespace repvolta {

/// The text without the "&" of its mnemonic. "&&" stands for a sign that is shown and stays.
QString WithoutMnemonic(const QString& text);

/// The lines of a menu, each with a mnemonic that no other has, as far as their letters suffice.
/// The first line that already has a letter keeps it. What follows a tab in a line is left alone.
QStringList WithMnemonics(const QStringList& lines);

}  // namespace repvolta
