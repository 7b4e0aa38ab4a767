#include "command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace plumeo {
namespace {

TEST(ParseCommandLine, WithoutArgumentsIsAboutTheExample) {
  const CommandLine commandLine = ParseCommandLine({});
  EXPECT_EQ(commandLine.input, "");
  EXPECT_EQ(commandLine.output, Output::Automatic);
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

TEST(ParseCommandLine, WritesFilesWhenAFileIsNamed) {
  EXPECT_EQ(ParseCommandLine({"--pdf", "a.pdf"}).output, Output::Files);
  EXPECT_EQ(ParseCommandLine({"--png", "bladen"}).output, Output::Files);
  EXPECT_EQ(ParseCommandLine({"--png", "bladen", "--pdf", "a.pdf"}).output, Output::Files);
}

TEST(ParseCommandLine, OpensItsWindowWhenToldTo) {
  EXPECT_EQ(ParseCommandLine({"--venster"}).output, Output::Window);
  EXPECT_EQ(ParseCommandLine({"a.txt", "--venster", "--watermerk", "1"}).output, Output::Window);
}

TEST(ParseCommandLine, RefusesWhatItDoesNotUnderstand) {
  const std::vector<std::string> bad[] = {{"--pdf"},
                                          {"--onbekend"},
                                          {"a.txt", "b.txt"},
                                          {"--watermerk", "4"},
                                          {"--watermerk", "0"},
                                          {"--watermerk", "1,5"},
                                          {"--paginas", "nul"},
                                          {"--dpi", "5"},
                                          {"--venster", "--pdf", "a.pdf"},
                                          {"--png", "bladen", "--venster"}};
  for (const auto& arguments : bad) {
    EXPECT_THROW(ParseCommandLine(arguments), UsageError) << arguments.front();
  }
}

}  // namespace
}  // namespace plumeo
