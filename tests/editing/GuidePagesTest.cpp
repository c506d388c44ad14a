#include <QRegularExpression>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

#include "editing/GuidePages.h"

namespace repvolta {
namespace {

using testing::HasSubstr;

/// The built page; "" when there is none.
std::string PageText(const std::string& file) {
  std::ostringstream text;
  text << std::ifstream(REPVOLTA_GUIDE + file).rdbuf();
  return text.str();
}

TEST(GuidePages, HasThePageAndThePartOfEachPlace) {
  for (const HelpPlace& place : HelpPlaces()) {
    const std::string page(place.page);
    const std::string text = PageText(page.substr(0, page.find('#')));
    EXPECT_THAT(text, HasSubstr("<main>")) << page;
    if (page.find('#') == std::string::npos) continue;
    EXPECT_THAT(text, HasSubstr(" id=\"" + page.substr(page.find('#') + 1) + "\"")) << page;
  }
}

TEST(GuidePages, HasThePagesOfTheMenuInTheirOrder) {
  const QString contents = QString::fromStdString(PageText(std::string(kGuideContents)));
  const QRegularExpression link("<li><a href=\"([a-z-]+)\\.html\">([^<]+)</a>");
  QStringList listed;
  for (auto found = link.globalMatch(contents.section("<ol>", 1)); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    listed.append(match.captured(1) + " " + match.captured(2));
  }
  QStringList pages;
  for (const GuidePage& page : GuidePages()) {
    pages.append(QString(page.name) + " " + page.title);
    EXPECT_THAT(PageText(std::string(page.name) + ".html"),
                HasSubstr(std::string(">") + page.title + "</h1>"));
  }
  EXPECT_EQ(listed.join('\n').toStdString(), pages.join('\n').toStdString());
}

TEST(GuidePages, KnowsAPlaceByItsTitleBeforeItsKind) {
  EXPECT_EQ(GuidePageOf("InputBox", "New Workout"), "first-workout.html#set-it-up");
  EXPECT_EQ(GuidePageOf("InputBox", "Weight"), "first-workout.html#kinds-of-sets");
}

TEST(GuidePages, HasNoPlaceTwice) {
  for (const HelpPlace& place : HelpPlaces()) {
    EXPECT_EQ(GuidePageOf(place.place, place.title), place.page) << place.place;
  }
}

TEST(GuidePages, OpensTheContentsForAPlaceWithoutAPage) {
  EXPECT_EQ(GuidePageOf("", "anything"), "index.html");
}

}  // namespace
}  // namespace repvolta
