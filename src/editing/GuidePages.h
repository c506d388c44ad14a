#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// A page of the user's guide: its file without ".html", and its title.
struct GuidePage {
  const char* name;
  const char* title;
};

/// The pages in their order, without the list of contents.
std::vector<GuidePage> GuidePages();

/// The list of contents.
inline constexpr std::string_view kGuideContents = "index.html";

/// The page that helps in a tab or box, with the anchor of its part: "music.html#random-music".
/// `place` is the object name of the tab or box, `title` the title of the box. The list of contents
/// for a place that has no page.
std::string GuidePageOf(std::string_view place, std::string_view title);

/// A place and its page. Without a title, the line is for all titles that have no line above it.
struct HelpPlace {
  std::string_view place;
  std::string_view title;
  std::string_view page;
};

std::vector<HelpPlace> HelpPlaces();

}  // namespace repvolta
