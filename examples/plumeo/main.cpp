// Plumeo: reads its input, calculates, and shows the outcomes or writes the report.
#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "command_line.h"
#include "dutch_numbers.h"
#include "input.h"
#include "pagivo/page_image.h"
#include "pagivo/pg_print.h"
#include "report.h"
#include "results.h"
#include "window_program.h"

namespace {

constexpr const char* kFolder = PLUMEO_FOLDER;

void WritePdf(pagivo::PgPrint& print, const std::string& path) {
  print.VSPDF(path);
  const auto size = static_cast<double>(std::filesystem::file_size(path));
  std::cout << path << ": " << print.VsPPGetPageCount() - 1 << " bladen, "
            << plumeo::Fixed(size / 1024, 0) << " kB\n";
}

// As "blad_01.png" and so on; creates the folder.
void WriteImages(const plumeo::CommandLine& commandLine, int pages) {
  std::filesystem::create_directories(commandLine.imageFolder);
  const int wanted = commandLine.imagePages == 0 ? pages : commandLine.imagePages;
  for (int page = 1; page <= std::min(wanted, pages); ++page) {
    const std::string number = (page < 10 ? "0" : "") + std::to_string(page);
    pagivo::WritePagePng(page, commandLine.imageDpi,
                         commandLine.imageFolder + "/blad_" + number + ".png");
  }
  std::cout << commandLine.imageFolder << ": " << std::min(wanted, pages) << " afbeeldingen\n";
}

void WriteFiles(const plumeo::CommandLine& commandLine, const plumeo::Project& project,
                const plumeo::Results& results, const plumeo::ReportOptions& options) {
  pagivo::PgPrint print;
  plumeo::ComposeReport(print, project, results, options);
  WritePdf(print, commandLine.pdf);
  if (!commandLine.imageFolder.empty()) {
    WriteImages(commandLine, print.VsPPGetPageCount() - 1);
  }
  print.VsPPEinde();
}

// Asks for the windows where a window is wanted; without a display that fails, which only matters
// to who insists.
bool ShowsWindow(plumeo::Output output) {
  if (output == plumeo::Output::Files) return false;
  try {
    plumeo::UseWindows();
    return true;
  } catch (const std::exception&) {
    if (output == plumeo::Output::Window) throw;
    return false;
  }
}

void Run(const plumeo::CommandLine& commandLine) {
  const std::string input =
      commandLine.input.empty() ? std::string(kFolder) + "/invoer.txt" : commandLine.input;
  const plumeo::Project project = plumeo::ReadProject(input);
  const plumeo::Results results = plumeo::Calculate(project);
  const plumeo::ReportOptions options{.pictureFolder = kFolder, .watermark = commandLine.watermark};
  if (ShowsWindow(commandLine.output)) {
    plumeo::RunMainWindow(project, results, options);
  } else {
    WriteFiles(commandLine, project, results, options);
  }
}

}  // namespace

int main(int count, char** values) {
  try {
    const auto commandLine =
        plumeo::ParseCommandLine(std::vector<std::string>(values + 1, values + count));
    if (commandLine.help) {
      std::cout << plumeo::kUsage;
    } else {
      Run(commandLine);
    }
    return 0;
  } catch (const plumeo::InputError& error) {
    std::cerr << error.what() << '\n';
  } catch (const std::exception& error) {
    std::cerr << "plumeo: " << error.what() << '\n';
  }
  return 1;
}
