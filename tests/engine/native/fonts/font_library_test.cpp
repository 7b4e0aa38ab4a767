#include "engine/native/fonts/font_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "engine/native/fonts/face_catalog.h"
#include "engine/native/fonts/face_support.h"
#include "support/scratch_folder.h"

namespace pagivo::native {
namespace {

using testing::HasSubstr;

ShapedRun RunOf(Font& font, const char* text) {
  ShapedLine line;
  font.Shape(text, line);
  return line.runs.at(0);
}

std::string FaceNameOf(FontLibrary& library, const char* name, bool bold, bool italic) {
  return RunOf(library.Find(name, bold, italic), "a").face->PostScriptName();
}

FontLibrary MachineWith(std::vector<FaceFile> files) {
  return FontLibrary(std::make_unique<ListedFaces>(std::move(files)));
}

TEST(FontLibrary, ReplacesCommonFamiliesByOnesOfTheSameMetrics) {
  struct Replacement {
    const char* name;
    bool bold;
    bool italic;
    const char* face;
  };
  constexpr Replacement kReplacements[] = {
      {"Arial", false, false, "LiberationSans"},
      {"Arial", true, false, "LiberationSans-Bold"},
      {"Arial", false, true, "LiberationSans-Italic"},
      {"Arial", true, true, "LiberationSans-BoldItalic"},
      {"arial", false, false, "LiberationSans"},
      {"Arial Narrow", false, false, "LiberationSansNarrow"},
      {"Times New Roman", false, false, "LiberationSerif"},
      {"Times New Roman", true, false, "LiberationSerif-Bold"},
      {"Courier New", false, false, "LiberationMono"},
  };
  for (const Replacement& wanted : kReplacements) {
    EXPECT_EQ(FaceNameOf(FontLibrary::Instance(), wanted.name, wanted.bold, wanted.italic),
              wanted.face);
  }
}

TEST(FontLibrary, NeverFailsForAnUnknownName) {
  for (const char* name :
       {"Tahoma", "MS Sans Serif", "No Such Font 123", "", "\xFF\xFE", "a:b=c"}) {
    Font& font = FontLibrary::Instance().Find(name, true, false);
    EXPECT_NE(RunOf(font, "a").glyphEnd, 0u) << name;
    EXPECT_GT(font.Width("a"), 0) << name;
  }
}

TEST(FontLibrary, AlwaysGivesTheSameFontForTheSameName) {
  FontLibrary& library = FontLibrary::Instance();
  Font& font = library.Find("Arial", false, false);
  library.Find("Courier New", true, true);
  EXPECT_EQ(&library.Find("Arial", false, false), &font);
  EXPECT_NE(&library.Find("Arial", true, false), &font);
}

TEST(FontLibrary, OpensAFaceOnceForAllNamesThatItStandsInFor) {
  FontLibrary& library = FontLibrary::Instance();
  EXPECT_EQ(RunOf(library.Find("Arial", false, false), "a").face,
            RunOf(library.Find("Liberation Sans", false, false), "a").face);
}

TEST(FontLibrary, KeepsTheFontsThatWereAskedForLast) {
  FontLibrary library = MachineWith({FileFor("Arial")});
  const std::weak_ptr<Font> once = library.Find("Een keer", false, false).weak_from_this();
  const std::weak_ptr<Font> often = library.Find("Telkens", false, false).weak_from_this();
  for (std::size_t i = 1; i < FontLibrary::kMostFonts; ++i) {
    library.Find("Naam " + std::to_string(i), i % 2 == 0, i % 3 == 0);
    library.Find("Telkens", false, false);
  }
  EXPECT_TRUE(once.expired());
  EXPECT_FALSE(often.expired());
}

TEST(FontLibrary, LeavesAFontToWhoeverHoldsIt) {
  FontLibrary library = MachineWith({FileFor("Arial")});
  const std::shared_ptr<Font> held = library.Find("Held", false, false).shared_from_this();
  for (std::size_t i = 0; i < 2 * FontLibrary::kMostFonts; ++i) {
    library.Find("Naam " + std::to_string(i), false, false);
  }
  EXPECT_GT(held->Width("abc"), 0);
}

// A machine whose families are the files of one folder.
class FacesByPath final : public FaceFinder {
 public:
  std::optional<FaceFile> Find(const FaceQuery& query, std::size_t rank) override {
    if (rank > 0) return std::nullopt;
    return FaceFile{query.family, 0, false, false};
  }
};

TEST(FaceCatalog, ClosesFacesThatNobodyHoldsBeyondABound) {
  const ScratchFolder folder;
  const std::string font = folder.FileNamed("font.ttf");
  std::filesystem::copy_file(FileFor("Arial").path, font);
  FaceCatalog catalog(std::make_unique<FacesByPath>());
  const auto open = [&](std::size_t number) {
    const std::string path = folder.FileNamed(std::to_string(number) + ".ttf");
    std::filesystem::create_hard_link(font, path);
    return catalog.Find({path, false, false, std::nullopt})->face->shared_from_this();
  };
  const std::weak_ptr<const Face> idle = open(0);
  const std::shared_ptr<const Face> held = open(1);
  for (std::size_t i = 2; i <= FaceCatalog::kMostIdleFaces; ++i) open(i);
  EXPECT_TRUE(idle.expired());
  EXPECT_EQ(catalog.Find({folder.FileNamed("1.ttf"), false, false, std::nullopt})->face,
            held.get());
}

TEST(FontLibrary, TellsWhichStylesAFaceLacks) {
  struct Case {
    bool askedBold, askedItalic, hasBold, hasItalic, emboldened, slanted;
  };
  constexpr Case kCases[] = {
      {false, false, false, false, false, false}, {true, false, false, false, true, false},
      {false, true, false, false, false, true},   {true, true, false, false, true, true},
      {true, true, true, false, false, true},     {true, true, false, true, true, false},
      {true, true, true, true, false, false},     {false, false, true, true, false, false},
  };
  for (const Case& c : kCases) {
    FaceFile file = FileFor("Arial");
    file.bold = c.hasBold;
    file.italic = c.hasItalic;
    FontLibrary library = MachineWith({file});
    Font& font = library.Find("Arial", c.askedBold, c.askedItalic);
    for (const char* text : {"simple", "\u0416"}) {
      const ShapedRun run = RunOf(font, text);
      EXPECT_EQ(run.emboldened, c.emboldened);
      EXPECT_EQ(run.slanted, c.slanted);
    }
  }
}

TEST(FontLibrary, SaysInDutchWhatToInstallOnAMachineWithoutFonts) {
  FontLibrary library = MachineWith({});
  try {
    library.Find("Arial", false, false);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::FileAccess);
    EXPECT_THAT(error.what(), HasSubstr("geen bruikbaar lettertype"));
    EXPECT_THAT(error.what(), HasSubstr("fonts-liberation"));
  }
}

class BrokenFontFile : public testing::Test {
 protected:
  BrokenFontFile() {
    std::ifstream whole(FileFor("Arial").path, std::ios::binary);
    std::string bytes(5000, '\0');
    whole.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    std::ofstream(path_, std::ios::binary) << bytes;
  }

  const ScratchFolder folder_;
  const std::string path_ = folder_.FileNamed("broken.ttf");
};

TEST_F(BrokenFontFile, IsPassedOverForTheNextFace) {
  FontLibrary library = MachineWith(
      {{path_, 0, false, false}, {"/no/such/file.ttf", 0, false, false}, FileFor("Courier New")});
  EXPECT_EQ(FaceNameOf(library, "Arial", false, false), "LiberationMono");
}

TEST_F(BrokenFontFile, CannotBeOpenedAsAFace) {
  EXPECT_THROW(Face(path_, 0), Error);
  EXPECT_THROW(Face("/no/such/file.ttf", 0), Error);
  EXPECT_THROW(Face("/", 0), Error);
  EXPECT_THROW(Face(FileFor("Arial").path, 7), Error);
}

TEST(FontLibrary, TakesMissingCharactersFromTheClosestFaceThatHasThem) {
  FontLibrary library =
      MachineWith({FileFor("Liberation Sans"), FileFor("Nimbus Sans"), FileFor("DejaVu Sans")});
  Font& font = library.Find("Arial", false, false);
  ShapedLine line;
  font.Shape("a\u05D0b", line);
  ASSERT_EQ(line.runs.size(), 3u);
  EXPECT_EQ(line.runs[0].face->PostScriptName(), "LiberationSans");
  EXPECT_EQ(line.runs[1].face->PostScriptName(), "DejaVuSans");
  EXPECT_EQ(line.runs[2].face, line.runs[0].face);
  EXPECT_NE(line.glyphs.at(1).glyph, 0u);
}

TEST(FontLibrary, ShowsTheMissingGlyphOfTheFontsOwnFaceForACharacterThatNoFaceHas) {
  FontLibrary library = MachineWith({FileFor("Liberation Sans"), FileFor("DejaVu Sans")});
  ShapedLine line;
  library.Find("Arial", false, false).Shape("a\U000E1234", line);
  ASSERT_EQ(line.runs.size(), 1u);
  EXPECT_EQ(line.runs[0].face->PostScriptName(), "LiberationSans");
  EXPECT_EQ(line.glyphs.at(1).glyph, 0u);
  EXPECT_EQ(line.glyphs.at(1).textEnd, 5u);
}

TEST(FontLibrary, PrefersAFallbackOfTheSameStyle) {
  ShapedLine line;
  FontLibrary::Instance().Find("Arial", true, false).Shape("\u05D0", line);
  EXPECT_EQ(line.runs.at(0).face->PostScriptName(), "DejaVuSans-Bold");
  EXPECT_FALSE(line.runs.at(0).emboldened);
}

FontMetrics MetricsOf(const FaceFile& file) {
  return ReadFontMetrics(Face(file.path, file.index));
}

TEST(FontMetrics, TakesTheLinesOfTheHorizontalHeader) {
  const FontMetrics metrics = MetricsOf(FileFor("Arial"));
  EXPECT_DOUBLE_EQ(metrics.ascent, 1854 / 2048.0);
  EXPECT_DOUBLE_EQ(metrics.lineSpacing, (1854 + 434 + 67) / 2048.0);  // with the line gap
}

TEST(FontMetrics, TakesTheCentreOfTheUnderline) {
  const FontMetrics metrics = MetricsOf(FileFor("Arial"));
  EXPECT_DOUBLE_EQ(metrics.underlineThickness, 150 / 2048.0);
  EXPECT_DOUBLE_EQ(metrics.underlinePosition, (67 + 75) / 2048.0);
}

TEST(FontMetrics, AreSaneForEveryInstalledFace) {
  for (const FaceFile& file : InstalledFaces()) {
    SCOPED_TRACE(file.path);
    const FontMetrics metrics = MetricsOf(file);
    EXPECT_GT(metrics.ascent, 0.4);
    EXPECT_LT(metrics.ascent, 2.5);
    EXPECT_GT(metrics.lineSpacing, 0.8);
    EXPECT_LT(metrics.lineSpacing, 5);
    EXPECT_GT(metrics.underlineThickness, 0);
    EXPECT_LT(metrics.underlineThickness, 0.25);
    EXPECT_GT(metrics.underlinePosition, 0);
    EXPECT_LT(metrics.underlinePosition, 0.5);
  }
}

}  // namespace
}  // namespace pagivo::native
