// Plumeo: reads its input, calculates, and hands over the report.
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "command_line.h"
#include "dutch_numbers.h"
#include "input.h"
#include "pagivo/pg_print.h"
#include "report.h"
#include "results.h"

namespace {

constexpr const char* kFolder = PLUMEO_FOLDER;

void WritePdf(pagivo::PgPrint& print, const std::string& path) {
  print.VSPDF(path);
  const auto size = static_cast<double>(std::filesystem::file_size(path));
  std::cout << path << ": " << print.VsPPGetPageCount() - 1 << " bladen, "
            << plumeo::Fixed(size / 1024, 0) << " kB\n";
}

void Run(const plumeo::CommandLine& commandLine) {
  const std::string input =
      commandLine.input.empty() ? std::string(kFolder) + "/invoer.txt" : commandLine.input;
  const plumeo::Project project = plumeo::ReadProject(input);
  const plumeo::Results results = plumeo::Calculate(project);
  pagivo::PgPrint print;
  plumeo::ComposeReport(print, project, results,
                        {.pictureFolder = kFolder, .watermark = commandLine.watermark});
  WritePdf(print, commandLine.pdf);
  print.VsPPEinde();
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
