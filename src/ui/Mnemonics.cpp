#include "ui/Mnemonics.h"

#include <QSet>
#include <utility>
#include <vector>

namespace repvolta {
namespace {

constexpr qsizetype kNone = -1;

qsizetype PlaceOfSign(const QString& text) {
  for (qsizetype i = 0; i + 1 < text.size(); ++i) {
    if (text[i] != '&') continue;
    if (text[i + 1] != '&') return i;
    ++i;
  }
  return kNone;
}

/// The place of a letter that is not taken: at the start of a word if possible.
qsizetype FreePlace(const QString& text, const QSet<QChar>& taken) {
  const qsizetype end = text.indexOf('\t') < 0 ? text.size() : text.indexOf('\t');
  qsizetype found = kNone;
  for (qsizetype i = 0; i < end; ++i) {
    if (!text[i].isLetterOrNumber() || taken.contains(text[i].toUpper())) continue;
    if (i == 0 || text[i - 1].isSpace()) return i;
    if (found == kNone) found = i;
  }
  return found;
}

}  // namespace

QString WithoutMnemonic(const QString& text) {
  const qsizetype sign = PlaceOfSign(text);
  return sign == kNone ? text : text.left(sign) + text.mid(sign + 1);
}

QStringList WithMnemonics(const QStringList& lines) {
  QSet<QChar> taken;
  QStringList plain;
  std::vector<qsizetype> places;
  places.reserve(static_cast<std::size_t>(lines.size()));
  for (const QString& line : lines) {
    qsizetype place = PlaceOfSign(line);
    plain.append(WithoutMnemonic(line));
    if (place != kNone && taken.contains(plain.last()[place].toUpper())) place = kNone;
    if (place != kNone) taken.insert(plain.last()[place].toUpper());
    places.push_back(place);
  }
  for (std::size_t i = 0; i < places.size(); ++i) {
    QString& line = plain[static_cast<qsizetype>(i)];
    if (places[i] == kNone) places[i] = FreePlace(line, taken);
    if (places[i] == kNone) continue;
    taken.insert(line[places[i]].toUpper());
    line.insert(places[i], '&');
  }
  return plain;
}

}  // namespace repvolta
