#include <gtest/gtest.h>

#include "platform/desktop/DesktopAudioOutputs.h"

namespace repvolta {
namespace {

TEST(DesktopAudioOutputs, HaveNamesIfThereAreAny) {
  for (const std::string& name : DesktopAudioOutputs().Names()) EXPECT_NE(name, "");
}

}  // namespace
}  // namespace repvolta
