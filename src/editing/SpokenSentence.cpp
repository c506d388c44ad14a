#include "editing/SpokenSentence.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

#include "base/File.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "instruction/Clips.h"
#include "instruction/MergeWAVfiles.h"

namespace repvolta {
namespace {

constexpr float kTooLarge = 10000;  // the instructions say smaller numbers
constexpr std::size_t kThousands = 3;
constexpr std::string_view kPunctuation = ".:!?\"'()";

struct Token {
  std::string typed;
  std::u32string folded;
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }

/// A comma between figures belongs to the number, and a hyphen before anything may be a minus sign.
bool Separates(std::string_view text, std::size_t i) {
  const char c = text[i];
  const bool isFirst = i == 0 || IsBlank(text[i - 1]);
  const bool isLast = i + 1 == text.size() || IsBlank(text[i + 1]);
  if (IsBlank(c)) return true;
  if (c == '-') return !isFirst || isLast;
  if (c != ',' && c != ';') return false;
  return isFirst || isLast || c == ';' || !IsDigit(text[i - 1]) || !IsDigit(text[i + 1]);
}

std::string_view WithoutPunctuation(std::string_view word) {
  const auto isMark = [](char c) { return kPunctuation.find(c) != std::string_view::npos; };
  while (!word.empty() && isMark(word.back())) word.remove_suffix(1);
  // ".5" is a number.
  while (!word.empty() && isMark(word.front()) &&
         !(word.size() > 1 && word.front() == '.' && IsDigit(word[1]))) {
    word.remove_prefix(1);
  }
  return word;
}

std::vector<Token> TokensOf(std::string_view text) {
  std::vector<Token> tokens;
  std::size_t begin = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i < text.size() && !Separates(text, i)) continue;
    const std::string_view word = WithoutPunctuation(text.substr(begin, i - begin));
    if (!word.empty()) tokens.push_back({std::string(word), FoldCase(word)});
    begin = i + 1;
  }
  return tokens;
}

/// The number in plain figures; nothing for anything else.
std::optional<float> NumberIn(std::string word) {
  const std::size_t comma = word.find(',');
  if (comma != std::string::npos) {
    const std::size_t end = std::min(word.find('.', comma), word.size());
    if (end - comma - 1 == kThousands) {
      word.erase(comma, 1);
    } else {
      word[comma] = '.';
    }
  }
  const bool isNumber = std::ranges::all_of(word, [](char c) { return IsDigit(c) || c == '.'; }) &&
                        std::ranges::count(word, '.') <= 1 && std::ranges::any_of(word, IsDigit);
  if (!isNumber) return std::nullopt;
  return static_cast<float>(LeadingNumber(word));
}

/// Takes a sentence apart from its beginning to its end.
class SentenceReader {
 public:
  SentenceReader(std::string_view sentence, const std::vector<SayableClip>& sayable)
      : tokens_(TokensOf(sentence)) {
    phrases_.reserve(sayable.size());
    for (const SayableClip& one : sayable) phrases_.push_back({one.clip, TokensOf(one.words)});
  }

  SpokenSentence Read() {
    std::span<const Token> left(tokens_);
    while (!left.empty()) left = left.subspan(TakeFrom(left));
    return std::move(read_);
  }

 private:
  struct Phrase {
    Clip clip;
    std::vector<Token> tokens;
  };

  /// The number of tokens that were taken.
  std::size_t TakeFrom(std::span<const Token> left) {
    const Phrase* longest = LongestAt(left);
    const std::size_t length = longest == nullptr ? 0 : longest->tokens.size();
    if (length <= 1) {
      const std::optional<float> number = NumberIn(left.front().typed);
      if (number) {
        TakeNumber(*number, left.front().typed);
        return 1;
      }
    }
    if (length == 0) {
      read_.unsaid.push_back(left.front().typed);
      return 1;
    }
    read_.clips.push_back(longest->clip);
    return length;
  }

  const Phrase* LongestAt(std::span<const Token> left) const {
    const Phrase* longest = nullptr;
    for (const Phrase& phrase : phrases_) {
      const std::size_t length = phrase.tokens.size();
      const bool isHere =
          length > 0 && length <= left.size() &&
          std::ranges::equal(phrase.tokens, left.first(length), {}, &Token::folded, &Token::folded);
      if (isHere && (longest == nullptr || length > longest->tokens.size())) longest = &phrase;
    }
    return longest;
  }

  void TakeNumber(float number, const std::string& typed) {
    const std::vector<std::string> words =
        number < kTooLarge ? WordsOfNumber(number).words : std::vector<std::string>();
    const bool areSayable = std::ranges::all_of(words, [this](const std::string& word) {
      return std::ranges::any_of(
          phrases_, [&word](const Phrase& phrase) { return phrase.clip == WordClip(word); });
    });
    if (words.empty() || !areSayable) {
      read_.unsaid.push_back(typed);
      return;
    }
    for (const std::string& word : words) read_.clips.push_back(WordClip(word));
  }

  static Clip WordClip(const std::string& word) { return {Clip::Kind::kWord, word}; }

  std::vector<Token> tokens_;
  std::vector<Phrase> phrases_;
  SpokenSentence read_;
};

}  // namespace

SpokenSentence ClipsOfSentence(std::string_view sentence, const std::vector<SayableClip>& sayable) {
  return SentenceReader(sentence, sayable).Read();
}

void JoinSentence(const std::vector<Clip>& clips, const std::string& target, ProgressLog& log) {
  bool isFirst = true;
  for (const Clip& clip : clips) {
    if (std::exchange(isFirst, false)) {
      CopyFileOver(ClipFile(clip), target);
    } else {
      MergeWAVfiles(target, ClipFile(clip), log);
    }
  }
}

}  // namespace repvolta
