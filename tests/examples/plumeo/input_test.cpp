#include "input.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>

#include "support/scratch_folder.h"

namespace plumeo {
namespace {

std::string ExampleText() {
  std::ifstream stream(PLUMEO_EXAMPLE_INPUT);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The example's input with one piece of text replaced, in a file of its own.
class Input : public testing::Test {
 protected:
  std::string Changed(const std::string& from, const std::string& to) {
    std::string text = ExampleText();
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    lineOfChange_ = 1 + static_cast<int>(std::count(
                            text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    return Written(text.replace(at, from.size(), to));
  }

  std::string Written(const std::string& text) {
    std::ofstream(path_) << text;
    return path_;
  }

  std::string ErrorOf(const std::string& path) {
    try {
      ReadProject(path);
    } catch (const InputError& error) {
      return error.what();
    }
    return "no error";
  }

  // "file:line: ", `linesOn` after the line of the change.
  std::string At(int linesOn = 0) const {
    return path_ + ":" + std::to_string(lineOfChange_ + linesOn) + ": ";
  }

  const pagivo::ScratchFolder folder_;
  std::string path_ = folder_.FileNamed("invoer.txt");
  int lineOfChange_ = 0;
};

TEST_F(Input, OfTheExampleIsReadWhole) {
  const Project project = ReadProject(PLUMEO_EXAMPLE_INPUT);
  EXPECT_EQ(project.texts.name, "Biomassaketelhuis De Veenhoek");
  EXPECT_DOUBLE_EQ(project.site.stack.emission, 6.8);
  EXPECT_DOUBLE_EQ(project.site.stack.gasTemperature, 142 + 273.15);
  EXPECT_DOUBLE_EQ(project.site.windSpeed[IndexOf(Stability::C)], 4.2);
  EXPECT_DOUBLE_EQ(project.site.windRose.frequency[8][IndexOf(Stability::D)], 0.107);
  EXPECT_NEAR(project.site.windRose.Total(), 1, 1e-9);
  EXPECT_EQ(project.designClass, Stability::D);
  ASSERT_EQ(project.receptors.size(), 6u);
  EXPECT_EQ(project.receptors[0].name, "Woonwijk Oosterhof");
  EXPECT_DOUBLE_EQ(project.receptors[2].north, -480);
}

TEST_F(Input, TakesADecimalPointAsWell) {
  EXPECT_DOUBLE_EQ(ReadProject(Changed("= 6,8", "= 6.75")).site.stack.emission, 6.75);
}

TEST_F(Input, TakesLinesThatEndAsOnWindows) {
  std::string text = ExampleText();
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2) {
    text.insert(at, "\r");
  }
  EXPECT_EQ(ReadProject(Written(text)).texts.place, "Veenhoek");
}

TEST_F(Input, ThatDoesNotExistIsNamed) {
  EXPECT_EQ(ErrorOf("/nergens/invoer.txt"),
            "/nergens/invoer.txt:0: het invoerbestand bestaat niet");
}

TEST_F(Input, ThatIsAFolderIsNamed) {
  EXPECT_EQ(ErrorOf("/tmp"), "/tmp:0: dit is een map, geen invoerbestand");
}

struct BadChange {
  const char* what;
  const char* from;
  const char* to;
  int linesOn;  // from the line of the change to the one that the message names
  const char* message;
};

constexpr BadChange kBadChanges[] = {
    {"an unknown key", "hoogte          = 42", "hogte = 42", 0,
     "onbekende sleutel \"hogte\" in [bron]"},
    {"an unknown section", "[omgeving]", "[omgevng]", 0, "onbekende sectie [omgevng]"},
    {"a key given twice", "diameter        = 1,6", "diameter = 1,6\ndiameter = 1,7", 1,
     "de sleutel \"diameter\" staat ook al op regel 17"},
    {"a section given twice", "[omgeving]", "[bron]", 0, "de sectie [bron] komt twee keer voor"},
    {"a missing key", "emissie         = 6,8", "", -1, "in [bron] ontbreekt \"emissie\""},
    {"a number too low", "hoogte          = 42", "hoogte = 0,5", 0,
     "\"hoogte\": 0,5 ligt niet tussen 1 en 500 m"},
    {"a number too high", "hoogte          = 42", "hoogte = 900", 0,
     "\"hoogte\": 900 ligt niet tussen 1 en 500 m"},
    {"a text for a number", "hoogte          = 42", "hoogte = hoog", 0,
     "\"hoogte\": \"hoog\" is geen getal"},
    {"an unknown choice", "= open ", "= zee ", 0,
     "\"terrein\": \"zee\" is geen van: open, stedelijk"},
    {"a line without a sign", "hoogte          = 42", "hoogte 42", 0,
     "verwacht wordt: sleutel = waarde"},
    {"a key without a value", "hoogte          = 42 ", "hoogte = ", 0,
     "de sleutel \"hoogte\" heeft geen waarde"},
    {"a value without a key", "hoogte          = 42", "= 42", 0,
     "voor het teken = staat geen sleutel"},
    {"a section that is left open", "[bron]", "[bron", 0,
     "de naam van een sectie staat tussen [ en ]"},
    {"a line before any section", "[project]", "", 1, "deze regel staat niet in een sectie"},
    {"too few numbers in a row of the rose", "000 = 0,10  0,30", "000 = 0,30", 0,
     "\"000\": verwacht worden 6 getallen, er staan er 5"},
    {"a rose that is not whole", "240 = 0,12  0,70  2,60 10,70", "240 = 0,12  0,70  2,60  0,70", -9,
     "de windroos telt op tot 90,0 % en niet tot 100 %"},
    {"gas colder than the air", "gastemperatuur  = 142", "gastemperatuur = 5", 0,
     "\"gastemperatuur\": het rookgas is kouder dan de lucht"},
    {"a text too long for the title page", "= Veenhoek",
     "= 1234567890123456789012345678901234567890123456789012345678901", 0,
     "\"1234567890123456789012345678901234567890123456789012345678901\" is langer dan 60 tekens"},
    {"a receptor's name too long for the tables", "Basisschool De Linde ",
     "Openbare Basisschool De Linde ", 0,
     "\"Openbare Basisschool De Linde\" is langer dan 28 tekens"},
    {"a receptor at the stack", "=  780   910", "= 3 4", 0,
     "\"Basisschool De Linde\" ligt minder dan 20 m van de schoorsteen"},
    {"a receptor far away", "=  780   910", "= 780 91000", 0,
     "\"Basisschool De Linde\": 91000 ligt niet tussen −20.000 en 20.000 m"},
};

TEST_F(Input, ThatIsWrongIsToldInOneLineWithFileAndLine) {
  for (const BadChange& change : kBadChanges) {
    SCOPED_TRACE(change.what);
    const std::string error = ErrorOf(Changed(change.from, change.to));
    EXPECT_EQ(error, At(change.linesOn) + change.message);
    EXPECT_EQ(error.find('\n'), std::string::npos);
  }
}

TEST_F(Input, WithoutASectionIsToldAtItsEnd) {
  const std::string text = ExampleText();
  const std::string cut = text.substr(0, text.find("[toetspunten]"));
  const auto lines = std::count(cut.begin(), cut.end(), '\n');
  EXPECT_EQ(ErrorOf(Written(cut)),
            path_ + ":" + std::to_string(lines) + ": de sectie [toetspunten] ontbreekt");
}

TEST_F(Input, WithoutReceptorsIsToldAtTheirSection) {
  const std::string text = ExampleText();
  const std::string cut = text.substr(0, text.find("[toetspunten]"));
  const auto lines = std::count(cut.begin(), cut.end(), '\n');
  EXPECT_EQ(ErrorOf(Written(cut + "[toetspunten]\n")),
            path_ + ":" + std::to_string(lines + 1) + ": er is geen enkel toetspunt");
}

TEST_F(Input, HoldsNoMoreReceptorsThanTheTablesDo) {
  std::string more;
  for (int i = 1; i <= 7; ++i) more += "extra " + std::to_string(i) + " = 500 500\n";
  EXPECT_THAT(ErrorOf(Written(ExampleText() + more)),
              testing::EndsWith("er zijn ten hoogste 12 toetspunten"));
}

}  // namespace
}  // namespace plumeo
