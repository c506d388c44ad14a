#include "speech/SpeechText.h"

#include <QString>
#include <map>

#include "base/Text.h"

namespace repvolta {
namespace {

constexpr char32_t kFractionSlash = 0x2044;

bool IsPlainPunctuation(char32_t character) {
  static constexpr std::u32string_view kPlain = U".,;:?!'\"()-&%+/$@=";
  return kPlain.find(character) != std::u32string_view::npos;
}

/// ASCII spellings of characters that Unicode decomposition does not provide.
const std::map<char32_t, std::u32string>& Spellings() {
  static const std::map<char32_t, std::u32string> kSpellings = {
      {U'ß', U"ss"}, {U'æ', U"ae"}, {U'Æ', U"Ae"}, {U'œ', U"oe"}, {U'Œ', U"Oe"},       {U'ø', U"o"},
      {U'Ø', U"O"},  {U'ł', U"l"},  {U'Ł', U"L"},  {U'đ', U"d"},  {U'Đ', U"D"},        {U'ð', U"d"},
      {U'Ð', U"D"},  {U'þ', U"th"}, {U'Þ', U"Th"}, {U'ı', U"i"},  {U'°', U" degrees "}};
  return kSpellings;
}

/// Replaces quotes and dashes by their ASCII forms; returns other characters unchanged.
char32_t PlainSign(char32_t character) {
  switch (character) {
    case 0x2018:
    case 0x2019:
      return U'\'';
    case 0x201C:
    case 0x201D:
      return U'"';
    case 0x2010:
    case 0x2011:
    case 0x2012:
    case 0x2013:
    case 0x2014:
      return U'-';
    case kFractionSlash:
      return U'/';
    default:
      return character;
  }
}

bool IsSpoken(char32_t character) {
  return QChar::isLetterOrNumber(character) || QChar::isMark(character) ||
         IsPlainPunctuation(character) || character == U'°';
}

bool IsSilentJoiner(char32_t character) {
  return QChar::category(character) == QChar::Other_Format ||
         (character >= 0xFE00 && character <= 0xFE0F);
}

/// Characters without a sound become blanks; words are separated by a single blank.
QString OneLine(const std::u32string& text) {
  QString line;
  for (const char32_t character : text) {
    if (IsSilentJoiner(character)) continue;
    line += IsSpoken(character) ? QString::fromUcs4(&character, 1) : QStringLiteral(" ");
  }
  return line.simplified();
}

std::u32string Characters(const QString& text) {
  std::u32string characters;
  for (const char32_t character : text.toStdU32String()) characters += PlainSign(character);
  return characters;
}

std::string Finished(const QString& line) {
  bool sounds = false;
  for (const char32_t character : line.toStdU32String()) {
    sounds = sounds || QChar::isLetterOrNumber(character);
  }
  return sounds ? std::string(CutUtf8(line.toStdString(), kLongestSpokenText)) : "";
}

QString Decoded(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

std::string SpokenText(std::string_view text) {
  return Finished(OneLine(Characters(Decoded(text))));
}

std::string SpokenAscii(std::string_view text) {
  std::u32string ascii;
  for (const char32_t character :
       Characters(Decoded(text).normalized(QString::NormalizationForm_KC))) {
    const auto spelling = Spellings().find(character);
    if (spelling != Spellings().end()) {
      ascii += spelling->second;
      continue;
    }
    const QString parts =
        QString::fromUcs4(&character, 1).normalized(QString::NormalizationForm_KD);
    for (const char32_t part : Characters(parts)) {
      if (QChar::isMark(part)) continue;
      ascii += part < 0x80 || IsSilentJoiner(part) ? part : U' ';
    }
  }
  return Finished(OneLine(ascii));
}

}  // namespace repvolta
