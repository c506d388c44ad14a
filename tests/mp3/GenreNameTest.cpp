#include <gtest/gtest.h>
#include <set>
#include <utility>

#include "mp3/GenreName.h"

namespace repvolta {
namespace {

TEST(GenreName, HasNoNameFor123AndAbove147) {
  EXPECT_EQ(GenreName(123), "");
  for (int number = 148; number <= 255; ++number) {
    EXPECT_EQ(GenreName(static_cast<Byte>(number)), "") << number;
  }
}

TEST(GenreName, Has147DifferentNames) {
  std::set<std::string> names;
  for (int number = 0; number < 148; ++number) names.insert(GenreName(static_cast<Byte>(number)));
  names.erase("");
  EXPECT_EQ(names.size(), 147U);
}

TEST(GenreName, HasFormsOfItsOwn) {
  const std::pair<Byte, const char*> kOwn[] = {
      {7, "Hip Hop"},        {25, "Euro - Techno"},       {27, "Trip Hop"},    {29, "Jazz - Funk"},
      {40, "Alt.Rock"},      {51, "Techno - Industrial"}, {53, "Pop / Folk"},  {59, "Gangsta Rap"},
      {62, "Pop / Funk"},    {67, "Psychedelic"},         {71, "Lo - fi"},     {78, "Rock 'n'Roll"},
      {81, "Folk / Rock"},   {89, "Blue Grass"},          {90, "Avant Garde"}, {109, "Pr0n Groove"},
      {124, "Euro - House"}, {128, "Club - House"},       {132, "Brit Pop"},   {147, "Synth Pop"}};
  for (const auto& [number, name] : kOwn) EXPECT_EQ(GenreName(number), name);
}

TEST(GenreName, HasTheUsualNamesElsewhere) {
  const std::pair<Byte, const char*> kUsual[] = {{0, "Blues"},
                                                 {9, "Metal"},
                                                 {10, "New Age"},
                                                 {17, "Rock"},
                                                 {20, "Alternative"},
                                                 {30, "Fusion"},
                                                 {50, "Darkwave"},
                                                 {60, "Top 40"},
                                                 {69, "Showtunes"},
                                                 {80, "Folk"},
                                                 {100, "Humour"},
                                                 {110, "Satire"},
                                                 {120, "Duet"},
                                                 {122, "Drum Solo"},
                                                 {127, "Drum & Bass"},
                                                 {130, "Terror"},
                                                 {140, "Contemporary Christian"},
                                                 {146, "JPop"}};
  for (const auto& [number, name] : kUsual) EXPECT_EQ(GenreName(number), name);
}

}  // namespace
}  // namespace repvolta
