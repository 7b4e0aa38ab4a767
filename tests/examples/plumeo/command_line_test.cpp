#include "command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace plumeo {
namespace {

TEST(ParseCommandLine, WithoutArgumentsWritesTheExampleToOneFile) {
  const CommandLine commandLine = ParseCommandLine({});
  EXPECT_EQ(commandLine.input, "");
  EXPECT_EQ(commandLine.pdf, "plumeo.pdf");
  EXPECT_EQ(commandLine.imageFolder, "");
  EXPECT_EQ(commandLine.watermark, 0);
}

TEST(ParseCommandLine, TakesEveryOption) {
  const CommandLine commandLine =
      ParseCommandLine({"a.txt", "--pdf", "b.pdf", "--png", "c", "--paginas", "3", "--dpi", "144",
                        "--watermerk", "2"});
  EXPECT_EQ(commandLine.input, "a.txt");
  EXPECT_EQ(commandLine.pdf, "b.pdf");
  EXPECT_EQ(commandLine.imageFolder, "c");
  EXPECT_EQ(commandLine.imagePages, 3);
  EXPECT_EQ(commandLine.imageDpi, 144);
  EXPECT_EQ(commandLine.watermark, 2);
}

TEST(ParseCommandLine, RefusesWhatItDoesNotUnderstand) {
  const std::vector<std::string> bad[] = {{"--pdf"},
                                          {"--onbekend"},
                                          {"a.txt", "b.txt"},
                                          {"--watermerk", "4"},
                                          {"--watermerk", "0"},
                                          {"--watermerk", "1,5"},
                                          {"--paginas", "nul"},
                                          {"--dpi", "5"}};
  for (const auto& arguments : bad) {
    EXPECT_THROW(ParseCommandLine(arguments), UsageError) << arguments.front();
  }
}

}  // namespace
}  // namespace plumeo
