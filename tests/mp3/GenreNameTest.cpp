#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <taglib/id3v1genres.h>

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

const std::map<int, std::string> kOwnForms{
    {7, "Hip Hop"},        {25, "Euro - Techno"},       {27, "Trip Hop"},    {29, "Jazz - Funk"},
    {40, "Alt.Rock"},      {51, "Techno - Industrial"}, {53, "Pop / Folk"},  {59, "Gangsta Rap"},
    {62, "Pop / Funk"},    {67, "Psychedelic"},         {71, "Lo - fi"},     {78, "Rock 'n'Roll"},
    {81, "Folk / Rock"},   {89, "Blue Grass"},          {90, "Avant Garde"}, {109, "Pr0n Groove"},
    {124, "Euro - House"}, {128, "Club - House"},       {132, "Brit Pop"},   {147, "Synth Pop"}};

/// Names that the judging program spells in a newer way.
const std::map<int, std::string> kFormsOfTheList{
    {125, "Dance Hall"}, {129, "Hardcore"}, {133, "Afro-Punk"}, {146, "JPop"}};

TEST(GenreName, HasFormsOfItsOwn) {
  for (const auto& [number, name] : kOwnForms) {
    EXPECT_EQ(GenreName(static_cast<Byte>(number)), name) << number;
  }
}

TEST(GenreName, HasTheNamesOfAnotherProgramElsewhere) {
  for (const auto& [number, name] : kFormsOfTheList) {
    EXPECT_EQ(GenreName(static_cast<Byte>(number)), name) << number;
  }
  for (int number = 0; number < 148; ++number) {
    if (number == 123 || kOwnForms.contains(number) || kFormsOfTheList.contains(number)) continue;
    EXPECT_EQ(GenreName(static_cast<Byte>(number)), TagLib::ID3v1::genre(number).to8Bit(true));
  }
}

}  // namespace
}  // namespace repvolta
