#include <gtest/gtest.h>
#include <string>

#include "backup/ZipWriter.h"

namespace repvolta {
namespace {

TEST(ZipWriter, WritesNoEndWhenItIsGivenUp) {
  std::string written;
  {
    ZipWriter zip([&](std::span<const Byte> bytes) { written += AsText(bytes); });
    zip.Add({"a", 0}, AsBytes("content"), ZipWriter::Packing::kStored);
  }
  EXPECT_EQ(written.find("PK\x05\x06"), std::string::npos);
}

TEST(ZipWriter, PassesOnWhatWritingThrows) {
  const std::string content(100'000, 'x');
  ZipWriter zip([](std::span<const Byte> /*bytes*/) { throw 7; });
  EXPECT_THROW(
      {
        zip.Add({"a", 0}, AsBytes(content), ZipWriter::Packing::kStored);
        zip.Finish();
      },
      int);
}

}  // namespace
}  // namespace repvolta
