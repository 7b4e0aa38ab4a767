#include "command_line.h"

#include <cmath>
#include <cstddef>

#include "dutch_numbers.h"

namespace plumeo {
namespace {

// The arguments one by one, with what belongs to an option.
class Arguments {
 public:
  explicit Arguments(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  bool AtEnd() const { return next_ == arguments_.size(); }
  const std::string& Next() { return arguments_[next_++]; }

  const std::string& ValueOf(const std::string& option) {
    if (AtEnd()) throw UsageError("achter " + option + " hoort een waarde");
    return Next();
  }

  double NumberOf(const std::string& option, double lowest, double highest) {
    const std::string& text = ValueOf(option);
    const auto number = ReadNumber(text);
    if (!number || *number < lowest || *number > highest) {
      throw UsageError(option + " \"" + text + "\": verwacht wordt een getal van " +
                       Fixed(lowest, 0) + " tot en met " + Fixed(highest, 0));
    }
    return *number;
  }

  int WholeNumberOf(const std::string& option, int lowest, int highest) {
    const double number = NumberOf(option, lowest, highest);
    if (number != std::floor(number)) throw UsageError(option + ": verwacht wordt een heel getal");
    return static_cast<int>(number);
  }

 private:
  const std::vector<std::string>& arguments_;
  std::size_t next_ = 0;
};

void PutOutput(CommandLine& commandLine, Output output) {
  if (commandLine.output != Output::Automatic && commandLine.output != output) {
    throw UsageError("--venster gaat niet samen met --pdf of --png");
  }
  commandLine.output = output;
}

}  // namespace

const char* const kUsage =
    "Gebruik: plumeo [invoer.txt] [opties]\n"
    "Berekent de verspreiding van de pluim van een schoorsteen en toont de uitkomsten in een\n"
    "venster. Zonder beeldscherm, of met --pdf of --png, schrijft het programma het rapport.\n"
    "\n"
    "  --venster          het venster, en een foutmelding als er geen beeldscherm is\n"
    "  --pdf BESTAND      het rapport (plumeo.pdf)\n"
    "  --png MAP          ook de bladen als PNG-afbeeldingen, in deze map\n"
    "  --paginas N        alleen de eerste N bladen als afbeelding\n"
    "  --dpi D            beeldpunten per inch van de afbeeldingen (96)\n"
    "  --watermerk 1|2|3  een watermerk op elk blad\n"
    "  --help             deze tekst\n";

CommandLine ParseCommandLine(const std::vector<std::string>& texts) {
  CommandLine commandLine;
  Arguments arguments(texts);
  while (!arguments.AtEnd()) {
    const std::string& argument = arguments.Next();
    if (argument == "--help") {
      commandLine.help = true;
    } else if (argument == "--venster") {
      PutOutput(commandLine, Output::Window);
    } else if (argument == "--pdf") {
      PutOutput(commandLine, Output::Files);
      commandLine.pdf = arguments.ValueOf(argument);
    } else if (argument == "--png") {
      PutOutput(commandLine, Output::Files);
      commandLine.imageFolder = arguments.ValueOf(argument);
    } else if (argument == "--paginas") {
      commandLine.imagePages = arguments.WholeNumberOf(argument, 1, 32'766);
    } else if (argument == "--dpi") {
      commandLine.imageDpi = arguments.NumberOf(argument, 10, 600);
    } else if (argument == "--watermerk") {
      commandLine.watermark = static_cast<std::int16_t>(arguments.WholeNumberOf(argument, 1, 3));
    } else if (argument.starts_with("-")) {
      throw UsageError("onbekende optie " + argument);
    } else if (!commandLine.input.empty()) {
      throw UsageError("er is meer dan één invoerbestand genoemd");
    } else {
      commandLine.input = argument;
    }
  }
  return commandLine;
}

}  // namespace plumeo
