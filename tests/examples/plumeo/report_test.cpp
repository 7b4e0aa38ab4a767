// The built program, its PDF read back by an independent reader.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "support/scratch_folder.h"

namespace plumeo {
namespace {

using testing::HasSubstr;

struct Outcome {
  int exitCode = -1;
  std::string output;  // standard output and error together
};

Outcome RunCommand(const std::string& command) {
  Outcome outcome;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (!pipe) return outcome;
  std::array<char, 4096> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
    outcome.output.append(buffer.data(), count);
  }
  const int status = pclose(pipe);
  if (WIFEXITED(status)) outcome.exitCode = WEXITSTATUS(status);
  return outcome;
}

Outcome RunPlumeo(const std::string& arguments) {
  return RunCommand(std::string("'") + PLUMEO_PROGRAM + "' " + arguments);
}

// The texts of the pages of a PDF file, in the order in which the reader finds them.
std::vector<std::string> PagesOf(const std::string& pdf) {
  const std::string text = RunCommand("pdftotext -layout '" + pdf + "' -").output;
  std::vector<std::string> pages;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find('\f', from)) != std::string::npos; from = at + 1) {
    pages.push_back(text.substr(from, at - from));
  }
  return pages;
}

class ReportProgram : public testing::Test {
 protected:
  // The report on the example's input, made once for all tests.
  static void SetUpTestSuite() {
    folder_ = std::make_unique<pagivo::ScratchFolder>();
    outcome_ = RunPlumeo("--pdf '" + Folder() + "/rapport.pdf'");
    pages_ = PagesOf(Folder() + "/rapport.pdf");
  }
  static void TearDownTestSuite() { folder_.reset(); }

  static std::string Folder() { return folder_->Path(); }

  static inline std::unique_ptr<pagivo::ScratchFolder> folder_;
  static inline Outcome outcome_;
  static inline std::vector<std::string> pages_;
};

TEST_F(ReportProgram, SaysWhatItWroteAndHowLargeItIs) {
  EXPECT_EQ(outcome_.exitCode, 0) << outcome_.output;
  EXPECT_THAT(outcome_.output, testing::ContainsRegex("rapport\\.pdf: [0-9]+ bladen, [0-9]+ kB"));
}

TEST_F(ReportProgram, WritesAtLeastTwelvePages) {
  EXPECT_GE(pages_.size(), 12u);
}

TEST_F(ReportProgram, NumbersEveryPageOfAll) {
  ASSERT_FALSE(pages_.empty());
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    EXPECT_THAT(pages_[i], HasSubstr("Blad " + std::to_string(i + 1) + " van " +
                                     std::to_string(pages_.size())));
  }
}

TEST_F(ReportProgram, ListsHeadingsOnThePagesOnWhichTheyStand) {
  ASSERT_GE(pages_.size(), 2u);
  std::smatch match;
  const std::regex entry(" *([0-9]+(?:\\.[0-9]+)?) +([^0-9\n]*[^0-9\n ]) +([0-9]+)");
  int entries = 0;
  std::string rest = pages_[1].substr(pages_[1].find("Inhoud"));
  for (; std::regex_search(rest, match, entry); rest = match.suffix()) {
    const std::size_t page = std::stoul(match[3]);
    if (match[2].str() == "van") continue;  // the foot of the page
    ++entries;
    ASSERT_LE(page, pages_.size()) << match[0];
    const std::regex heading(match[1].str() + " +" + match[2].str());
    EXPECT_TRUE(std::regex_search(pages_[page - 1], heading)) << match[0];
  }
  EXPECT_GE(entries, 20);
}

TEST_F(ReportProgram, HeadsEveryPageButTheFirstWithTheProject) {
  for (std::size_t i = 1; i < pages_.size(); ++i) {
    EXPECT_EQ(pages_[i].substr(pages_[i].find_first_not_of(" \n"), 29),
              "Biomassaketelhuis De Veenhoek");
  }
}

TEST_F(ReportProgram, SetsItsWideTableOnALandscapePage) {
  const std::string sizes =
      RunCommand("pdfinfo -l 99 '" + Folder() + "/rapport.pdf' | grep 'size:'").output;
  EXPECT_THAT(sizes, testing::ContainsRegex("841\\.[0-9]+ x 595"));
  EXPECT_THAT(sizes, testing::ContainsRegex("595\\.[0-9]+ x 841"));
}

TEST_F(ReportProgram, CarriesTheWatermarkThatWasChosen) {
  const std::string marked = Folder() + "/merk.pdf";
  ASSERT_EQ(RunPlumeo("--watermerk 2 --pdf '" + marked + "'").exitCode, 0);
  // One stock picture more than without, on as many pages.
  const std::string images = "pdfimages -list '" + marked + "' | awk '$4 == 288' | wc -l";
  EXPECT_EQ(std::stoul(RunCommand(images).output), pages_.size());
  EXPECT_EQ(PagesOf(marked), pages_);
}

TEST_F(ReportProgram, IsTheSameFileEveryTime) {
  const std::string again = Folder() + "/nogmaals.pdf";
  ASSERT_EQ(RunPlumeo("--pdf '" + again + "'").exitCode, 0);
  EXPECT_EQ(RunCommand("cmp '" + again + "' '" + Folder() + "/rapport.pdf'").exitCode, 0);
}

TEST_F(ReportProgram, DrawsItsPagesAsImages) {
  const std::string images = Folder() + "/bladen";
  const Outcome outcome =
      RunPlumeo("--pdf '" + Folder() + "/beeld.pdf' --png '" + images + "' --paginas 2 --dpi 48");
  EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
  EXPECT_THAT(RunCommand("file '" + images + "'/*.png").output,
              testing::ContainsRegex("PNG image data, 39[67] x 56[12]"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(images), {}), 2);
}

TEST_F(ReportProgram, ShowsItsUsage) {
  const Outcome outcome = RunPlumeo("--help");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_THAT(outcome.output, HasSubstr("--watermerk"));
}

// Bad input: one line and exit code 1.
struct BadCall {
  const char* arguments;
  const char* message;
};

TEST_F(ReportProgram, TellsWhatIsWrongInOneLineAndFails) {
  std::ofstream(Folder() + "/fout.txt") << "[bron]\nhogte = 3\n";
  const BadCall calls[] = {
      {"/nergens.txt", "/nergens.txt:0: het invoerbestand bestaat niet\n"},
      {"fout.txt", "fout.txt:2: onbekende sleutel \"hogte\" in [bron]\n"},
      {"--watermerk 7", "plumeo: --watermerk \"7\": verwacht wordt een getal van 1 tot en met 3\n"},
  };
  for (const BadCall& call : calls) {
    const Outcome outcome =
        RunCommand("cd '" + Folder() + "' && '" + PLUMEO_PROGRAM + "' " + call.arguments);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, call.message);
  }
}

// Without the display of whoever runs the tests.
Outcome RunPlumeoWithoutDisplay(const std::string& folder, const std::string& arguments) {
  return RunCommand("cd '" + folder +
                    "' && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM '" + PLUMEO_PROGRAM +
                    "' " + arguments);
}

TEST_F(ReportProgram, WritesItsReportWhereThereIsNoDisplay) {
  const pagivo::ScratchFolder elsewhere;
  const Outcome outcome = RunPlumeoWithoutDisplay(elsewhere.Path(), "");
  EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
  EXPECT_THAT(outcome.output, testing::StartsWith("plumeo.pdf: "));
  EXPECT_TRUE(std::filesystem::exists(elsewhere.FileNamed("plumeo.pdf")));
}

TEST_F(ReportProgram, TellsInOneLineThatItsWindowNeedsADisplay) {
  const pagivo::ScratchFolder elsewhere;
  const Outcome outcome = RunPlumeoWithoutDisplay(elsewhere.Path(), "--venster");
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_THAT(outcome.output, testing::StartsWith("plumeo: "));
  EXPECT_EQ(std::count(outcome.output.begin(), outcome.output.end(), '\n'), 1) << outcome.output;
  EXPECT_TRUE(std::filesystem::is_empty(elsewhere.Path()));
}

TEST_F(ReportProgram, TellsInOneLineWhereItCouldNotWrite) {
  const Outcome outcome = RunPlumeo("--pdf /nergens/rapport.pdf");
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_THAT(outcome.output, testing::StartsWith("plumeo: "));
  EXPECT_THAT(outcome.output, HasSubstr("/nergens/rapport.pdf"));
  EXPECT_EQ(std::count(outcome.output.begin(), outcome.output.end(), '\n'), 1);
}

}  // namespace
}  // namespace plumeo
