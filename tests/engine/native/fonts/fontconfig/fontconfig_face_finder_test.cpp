#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "engine/native/fonts/face_finder.h"
#include "support/scratch_folder.h"

namespace pagivo::native {
namespace {

using testing::EndsWith;

FaceQuery Family(const char* name) {
  return {name, false, false, std::nullopt};
}

TEST(FontconfigFaceFinder, FindsAFaceOfTheFamilyAndTheStyle) {
  const auto finder = MakeFaceFinder();
  const FaceFile file = finder->Find({"Liberation Serif", true, true, std::nullopt}, 0).value();
  EXPECT_THAT(file.path, EndsWith("LiberationSerif-BoldItalic.ttf"));
  EXPECT_TRUE(file.bold);
  EXPECT_TRUE(file.italic);
}

TEST(FontconfigFaceFinder, TellsTheStyleThatTheFaceHasNotTheOneAskedFor) {
  const auto finder = MakeFaceFinder();
  const FaceFile file = finder->Find({"Standard Symbols PS", true, true, std::nullopt}, 0).value();
  EXPECT_THAT(file.path, EndsWith("StandardSymbolsPS.otf"));
  EXPECT_FALSE(file.bold);
  EXPECT_FALSE(file.italic);
}

TEST(FontconfigFaceFinder, FindsTheSameFaceAfterItHasForgottenTheInstallation) {
  const auto finder = MakeFaceFinder();
  const std::string path = finder->Find(Family("Arial"), 0).value().path;
  finder->Forget();
  finder->Forget();
  EXPECT_EQ(finder->Find(Family("Arial"), 0).value().path, path);
}

TEST(FontconfigFaceFinder, PutsTheFamilyBeforeTheStyle) {
  const auto finder = MakeFaceFinder();
  const FaceFile file = finder->Find({"Z003", true, false, std::nullopt}, 0).value();
  EXPECT_THAT(file.path, EndsWith("Z003-MediumItalic.otf"));
}

TEST(FontconfigFaceFinder, OffersTrueTypeAndCffFilesOnly) {
  const auto finder = MakeFaceFinder();
  std::size_t rank = 0;
  for (; const auto file = finder->Find(Family("Nimbus Sans"), rank); ++rank) {
    EXPECT_THAT(file->path, testing::Not(testing::AnyOf(EndsWith(".pfb"), EndsWith(".t1"),
                                                        EndsWith(".pcf.gz"))));
  }
  EXPECT_GT(rank, 10u);
}

TEST(FontconfigFaceFinder, OffersOnlyFacesWithTheCharacterWhenOneIsAskedFor) {
  const auto finder = MakeFaceFinder();
  const FaceFile file = finder->Find({"Arial", false, false, U'\u05D0'}, 0).value();
  EXPECT_THAT(file.path, EndsWith("DejaVuSans.ttf"));
  EXPECT_FALSE(finder->Find({"Arial", false, false, char32_t{0x10FFFD}}, 0).has_value());
}

TEST(FontconfigFaceFinder, KeepsItsOrderWhateverTheLanguageOfTheEnvironment) {
  const auto order = [](const char* language) {
    setenv("LANG", language, 1);
    setenv("FC_LANG", language, 1);
    const auto finder = MakeFaceFinder();
    std::vector<std::string> paths;
    while (const auto file = finder->Find(Family("Tahoma"), paths.size())) {
      paths.push_back(file->path);
    }
    unsetenv("FC_LANG");
    unsetenv("LANG");
    return paths;
  };
  EXPECT_EQ(order("ja_JP.UTF-8"), order("nl_NL.UTF-8"));
}

TEST(FontconfigFaceFinder, FindsTheUsualFacesWhereThereIsNoConfiguration) {
  const ScratchFolder folder;
  setenv("FONTCONFIG_FILE", folder.FileNamed("missing.conf").c_str(), 1);
  const auto finder = MakeFaceFinder();
  unsetenv("FONTCONFIG_FILE");
  EXPECT_THAT(finder->Find(Family("Liberation Sans"), 0).value().path,
              EndsWith("LiberationSans-Regular.ttf"));
}

TEST(FontconfigFaceFinder, FindsNothingOnAMachineWithoutFonts) {
  const ScratchFolder folder;
  const std::string path = folder.FileNamed("no_fonts.conf");
  std::ofstream(path) << "<?xml version=\"1.0\"?><fontconfig></fontconfig>";
  setenv("FONTCONFIG_FILE", path.c_str(), 1);
  const auto finder = MakeFaceFinder();
  unsetenv("FONTCONFIG_FILE");
  EXPECT_FALSE(finder->Find(Family("Arial"), 0).has_value());
}

}  // namespace
}  // namespace pagivo::native
