#include <gtest/gtest.h>

#include "speech/SpeechText.h"

namespace repvolta {
namespace {

using namespace std::string_literals;

struct Case {
  std::string text;
  std::string everyScript;
  std::string ascii;
};

class SpeechText : public testing::TestWithParam<Case> {};

TEST_P(SpeechText, KeepsWhatCanBeSaid) {
  EXPECT_EQ(SpokenText(GetParam().text), GetParam().everyScript);
  EXPECT_EQ(SpokenAscii(GetParam().text), GetParam().ascii);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SpeechText,
    testing::Values(Case{"Bench Press", "Bench Press", "Bench Press"},
                    Case{"  two\r\nlines\tand\vmore  ", "two lines and more", "two lines and more"},
                    Case{"null\0inside\x01\x1B[1m"s, "null inside 1m", "null inside 1m"},
                    Case{"Run 🏃\u200D♂\uFE0F fast", "Run fast", "Run fast"},
                    Case{"<speak>hi</speak>", "speak hi /speak", "speak hi /speak"},
                    Case{"[[h@'loU]] {a} | b \\ ^ ~ * # _", "h@'loU a b", "h@'loU a b"},
                    Case{"-w evil.wav", "-w evil.wav", "-w evil.wav"},
                    Case{"$(id) `id` \"x\" 'y'", "$(id) id \"x\" 'y'", "$(id) id \"x\" 'y'"},
                    Case{"Café Größe Łódź", "Café Größe Łódź", "Cafe Grosse Lodz"},
                    Case{"Cafe\u0301", "Cafe\u0301", "Cafe"}, Case{"½ ² ﬁt", "½ ² ﬁt", "1/2 2 fit"},
                    Case{"Farmer’s “walk” – 45° twist", "Farmer's \"walk\" - 45° twist",
                         "Farmer's \"walk\" - 45 degrees twist"},
                    Case{"a — b ‐ c ‑ d ‒ e", "a - b - c - d - e", "a - b - c - d - e"},
                    Case{"Жим 100", "Жим 100", "100"}, Case{"腕立て伏せ", "腕立て伏せ", ""},
                    Case{"", "", ""}, Case{"   ", "", ""}, Case{"😀 ... !?", "", ""},
                    Case{"bad \xFF\xC3 bytes", "bad bytes", "bad bytes"}));

TEST(SpeechText, EndsAtTheLimitBetweenCharacters) {
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "é";
  EXPECT_EQ(SpokenText(text), text.substr(0, kLongestSpokenText));
  EXPECT_EQ(SpokenText("a" + text), "a" + text.substr(0, kLongestSpokenText - 2));
}

}  // namespace
}  // namespace repvolta
