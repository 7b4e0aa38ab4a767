// Chapters: the literature, and the input file as it was read.
#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

#include "report_chapters.h"

namespace plumeo {
namespace {

struct Reference {
  const char* author;
  const char* work;
};

constexpr Reference kReferences[] = {
    {"Briggs 1971",
     "Some recent analyses of plume rise observation. In: Proceedings of the "
     "Second International Clean Air Congress, Academic Press."},
    {"Briggs 1973",
     "Diffusion estimation for small emissions. ATDL Contribution File No. 79, "
     "Atmospheric Turbulence and Diffusion Laboratory, Oak Ridge."},
    {"Briggs 1974",
     "Diffusion estimation for small emissions. In: ERL, ARL USAEC Report "
     "ATDL-106, Oak Ridge."},
    {"Briggs 1975",
     "Plume rise predictions. In: Lectures on Air Pollution and Environmental "
     "Impact Analyses, American Meteorological Society, Boston."},
    {"Gifford 1961",
     "Use of routine meteorological observations for estimating atmospheric "
     "dispersion. Nuclear Safety 2, 47–51."},
    {"Gifford 1976", "Turbulent diffusion-typing schemes: a review. Nuclear Safety 17, 68–86."},
    {"Irwin 1979",
     "A theoretical variation of the wind profile power-law exponent as a function "
     "of surface roughness and stability. Atmospheric Environment 13, 191–194."},
    {"Pasquill 1961",
     "The estimation of the dispersion of windborne material. The "
     "Meteorological Magazine 90, 33–49."},
    {"Turner 1970",
     "Workbook of Atmospheric Dispersion Estimates. Public Health Service "
     "Publication 999-AP-26, Cincinnati."},
};

// A line of the file as lines of the listing, at least one.
std::vector<std::string> PiecesOf(const std::string& line) {
  constexpr std::size_t kMostCharacters = 95;
  std::vector<std::string> pieces(1);
  std::size_t characters = 0;
  for (const char byte : line) {
    const bool begins = (byte & 0xC0) != 0x80;
    if (begins && ++characters > kMostCharacters) {
      pieces.emplace_back();
      characters = 1;
    }
    pieces.back() += byte;
  }
  return pieces;
}

}  // namespace

void ComposeReferences(Report& report) {
  Flow& flow = report.flow;
  constexpr double kAuthorWidth = 30;
  flow.Chapter("Literatuur");
  for (const Reference& reference : kReferences) {
    Sheet& sheet = flow.Paper();
    const auto lines =
        BreakLines(sheet, ParseMarkup(reference.work), kBody, kTextWidth - kAuthorWidth);
    sheet.Text(reference.author, kTextLeft, flow.Top(), kBodyBold);
    for (const RichText& line : lines) {
      RichLine(sheet, line, kBody).Draw(sheet, kTextLeft + kAuthorWidth, flow.Top());
      flow.Space(kBodyLeading);
    }
    flow.Space(2);
  }
}

void ComposeInputListing(Report& report) {
  Flow& flow = report.flow;
  constexpr double kLeading = 3.4;
  const Style listing{.font = kFixedWidth, .size = 7.5};
  const Style lineNumber{.font = kFixedWidth, .size = 7.5, .colour = kMuted};
  flow.Chapter("Invoerbestand");
  flow.Paragraph("De berekening in dit rapport is met de volgende invoer gemaakt.");
  std::ifstream stream(report.project.inputPath);
  int number = 0;
  for (std::string line; std::getline(stream, line);) {
    std::string label = std::to_string(++number);
    for (const std::string& piece : PiecesOf(line)) {
      flow.Need(kLeading);
      flow.Paper().TextRight(label, kTextLeft - 2, flow.Top(), lineNumber);
      flow.Paper().Text(piece, kTextLeft, flow.Top(), listing);
      flow.Space(kLeading);
      label.clear();
    }
  }
}

}  // namespace plumeo
