#include "input.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>

#include "dutch_numbers.h"

namespace plumeo {
namespace {

constexpr double kZeroCelsius = 273.15;
// More would not fit the table of the report.
constexpr std::size_t kMostReceptors = 12;
// What the title page and the tables have room for.
constexpr std::size_t kLongestText = 60;
constexpr std::size_t kLongestReceptorName = 28;

[[noreturn]] void Fail(const KeyValueFile& file, int line, const std::string& message) {
  throw InputError(file.path, line, message);
}

std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}

struct Range {
  double lowest;
  double highest;
  const char* unit;
};

double NumberIn(const KeyValueFile& file, const KeyValue& entry, const std::string& text,
                const Range& range) {
  const auto number = ReadNumber(text);
  if (!number) Fail(file, entry.line, Quoted(entry.key) + ": " + Quoted(text) + " is geen getal");
  if (*number < range.lowest || *number > range.highest) {
    Fail(file, entry.line,
         Quoted(entry.key) + ": " + text + " ligt niet tussen " +
             Significant(range.lowest, 1 + (range.lowest >= 10)) + " en " +
             Fixed(range.highest, 0) + " " + range.unit);
  }
  return *number;
}

// A key of the file, and what its value is put into.
struct InputField {
  const char* section;
  std::string key;
  std::function<void(const KeyValueFile&, const KeyValue&)> store;
};

// In characters, of which each has one byte that is no continuation.
std::size_t LengthOf(const std::string& text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

void RefuseLonger(const KeyValueFile& file, int line, const std::string& text,
                  std::size_t longest) {
  if (LengthOf(text) <= longest) return;
  Fail(file, line, Quoted(text) + " is langer dan " + std::to_string(longest) + " tekens");
}

InputField Text(const char* section, const char* key, std::string& target) {
  return {section, key, [&target](const KeyValueFile& file, const KeyValue& entry) {
            RefuseLonger(file, entry.line, entry.value, kLongestText);
            target = entry.value;
          }};
}

InputField Number(const char* section, std::string key, Range range, double& target,
                  double offset = 0) {
  return {section, std::move(key),
          [range, &target, offset](const KeyValueFile& file, const KeyValue& entry) {
            target = NumberIn(file, entry, entry.value, range) + offset;
          }};
}

template <typename T>
InputField Choice(const char* section, const char* key,
                  std::vector<std::pair<std::string, T>> choices, T& target) {
  return {section, key,
          [choices = std::move(choices), &target](const KeyValueFile& file, const KeyValue& entry) {
            std::string names;
            for (const auto& [name, value] : choices) {
              if (name == entry.value) {
                target = value;
                return;
              }
              names += (names.empty() ? "" : ", ") + name;
            }
            Fail(file, entry.line,
                 Quoted(entry.key) + ": " + Quoted(entry.value) + " is geen van: " + names);
          }};
}

std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  for (std::size_t at = text.find_first_not_of(" \t"); at != std::string::npos;) {
    const std::size_t end = text.find_first_of(" \t", at);
    words.push_back(text.substr(at, end - at));
    at = text.find_first_not_of(" \t", end);
  }
  return words;
}

std::vector<double> NumbersIn(const KeyValueFile& file, const KeyValue& entry, std::size_t count,
                              const Range& range) {
  const std::vector<std::string> words = Words(entry.value);
  if (words.size() != count) {
    Fail(file, entry.line,
         Quoted(entry.key) + ": verwacht worden " + std::to_string(count) +
             " getallen, er staan er " + std::to_string(words.size()));
  }
  std::vector<double> numbers;
  for (const std::string& word : words) numbers.push_back(NumberIn(file, entry, word, range));
  return numbers;
}

// "000", "030" ... "330".
std::string SectorKey(std::size_t sector) {
  const std::string degrees = std::to_string(sector * 360 / kSectorCount);
  return std::string(3 - degrees.size(), '0') + degrees;
}

InputField RoseSector(std::size_t sector, WindRose& rose) {
  return {"windroos", SectorKey(sector),
          [sector, &rose](const KeyValueFile& file, const KeyValue& entry) {
            const auto percentages = NumbersIn(file, entry, kStabilityCount, {0, 100, "%"});
            for (std::size_t i = 0; i < kStabilityCount; ++i) {
              rose.frequency[sector][i] = percentages[i] / 100;
            }
          }};
}

std::vector<InputField> FieldsOf(Project& project) {
  ProjectTexts& texts = project.texts;
  Site& site = project.site;
  std::vector<InputField> fields = {
      Text("project", "naam", texts.name),
      Text("project", "nummer", texts.number),
      Text("project", "plaats", texts.place),
      Text("project", "opdrachtgever", texts.client),
      Text("project", "opsteller", texts.author),
      Text("project", "datum", texts.date),
      Text("project", "versie", texts.version),
      Text("project", "stof", texts.substance),
      Number("bron", "emissie", {0.001, 100'000, "g/s"}, site.stack.emission),
      Number("bron", "hoogte", {1, 500, "m"}, site.stack.height),
      Number("bron", "diameter", {0.1, 20, "m"}, site.stack.diameter),
      Number("bron", "uittreesnelheid", {0.1, 60, "m/s"}, site.stack.exitVelocity),
      Number("bron", "gastemperatuur", {-40, 1200, "°C"}, site.stack.gasTemperature, kZeroCelsius),
      Choice<Terrain>("omgeving", "terrein",
                      {{"open", Terrain::OpenCountry}, {"stedelijk", Terrain::Urban}},
                      site.terrain),
      Number("omgeving", "luchttemperatuur", {-40, 50, "°C"}, site.airTemperature, kZeroCelsius),
      Number("omgeving", "luchtdruk", {850, 1100, "hPa"}, site.airPressure),
      Number("omgeving", "achtergrond", {0, 1000, "µg/m³"}, project.background),
      Choice<RiseFormula>("rekenen", "pluimstijging",
                          {{"briggs", RiseFormula::Briggs}, {"holland", RiseFormula::Holland}},
                          site.riseFormula),
      Number("rekenen", "kaart", {500, 20'000, "m"}, project.mapHalfWidth),
      Number("rekenen", "grenswaarde_jaar", {0.1, 10'000, "µg/m³"}, project.yearlyLimit),
      Number("rekenen", "grenswaarde_uur", {0.1, 10'000, "µg/m³"}, project.hourlyLimit),
  };
  std::vector<std::pair<std::string, Stability>> classes;
  for (const Stability stability : kStabilities) {
    const std::string letter = LetterOf(stability);
    classes.emplace_back(letter, stability);
    fields.push_back(
        Number("windsnelheid", letter, {0.5, 40, "m/s"}, site.windSpeed[IndexOf(stability)]));
  }
  fields.push_back(Choice<Stability>("rekenen", "klasse", classes, project.designClass));
  for (std::size_t sector = 0; sector < kSectorCount; ++sector) {
    fields.push_back(RoseSector(sector, site.windRose));
  }
  return fields;
}

constexpr std::string_view kReceptorSection = "toetspunten";

std::vector<Receptor> ReceptorsOf(const KeyValueFile& file, const Section& section) {
  if (section.entries.empty()) Fail(file, section.line, "er is geen enkel toetspunt");
  std::vector<Receptor> receptors;
  for (const KeyValue& entry : section.entries) {
    if (receptors.size() == kMostReceptors) {
      Fail(file, entry.line,
           "er zijn ten hoogste " + std::to_string(kMostReceptors) + " toetspunten");
    }
    RefuseLonger(file, entry.line, entry.key, kLongestReceptorName);
    const auto position = NumbersIn(file, entry, 2, {-20'000, 20'000, "m"});
    if (std::hypot(position[0], position[1]) < 20) {
      Fail(file, entry.line, Quoted(entry.key) + " ligt minder dan 20 m van de schoorsteen");
    }
    receptors.push_back({entry.key, position[0], position[1]});
  }
  return receptors;
}

void RefuseUnknown(const KeyValueFile& file, const std::vector<InputField>& fields) {
  for (const Section& section : file.sections) {
    if (section.name == kReceptorSection) continue;
    const bool known = std::any_of(fields.begin(), fields.end(), [&](const InputField& field) {
      return field.section == section.name;
    });
    if (!known) Fail(file, section.line, "onbekende sectie [" + section.name + "]");
    for (const KeyValue& entry : section.entries) {
      const bool knownKey = std::any_of(fields.begin(), fields.end(), [&](const InputField& field) {
        return field.section == section.name && field.key == entry.key;
      });
      if (!knownKey) {
        Fail(file, entry.line,
             "onbekende sleutel " + Quoted(entry.key) + " in [" + section.name + "]");
      }
    }
  }
}

const Section& Required(const KeyValueFile& file, std::string_view name) {
  const Section* section = file.Find(name);
  if (!section) {
    Fail(file, file.lineCount, "de sectie [" + std::string(name) + "] ontbreekt");
  }
  return *section;
}

void StoreAll(const KeyValueFile& file, const std::vector<InputField>& fields) {
  for (const InputField& field : fields) {
    const Section& section = Required(file, field.section);
    const KeyValue* entry = section.Find(field.key);
    if (!entry) {
      Fail(file, section.line, "in [" + section.name + "] ontbreekt " + Quoted(field.key));
    }
    field.store(file, *entry);
  }
}

void CheckTogether(const KeyValueFile& file, const Project& project) {
  const Section& rose = Required(file, "windroos");
  const double total = project.site.windRose.Total();
  if (std::abs(total - 1) > 0.0051) {
    Fail(file, rose.line, "de windroos telt op tot " + Percent(total, 1) + " % en niet tot 100 %");
  }
  if (project.site.stack.gasTemperature < project.site.airTemperature) {
    const KeyValue* entry = Required(file, "bron").Find("gastemperatuur");
    Fail(file, entry->line, "\"gastemperatuur\": het rookgas is kouder dan de lucht");
  }
}

}  // namespace

Project ReadProject(const std::string& path) {
  const KeyValueFile file = ReadKeyValueFile(path);
  Project project;
  project.inputPath = path;
  const std::vector<InputField> fields = FieldsOf(project);
  RefuseUnknown(file, fields);
  StoreAll(file, fields);
  CheckTogether(file, project);
  project.receptors = ReceptorsOf(file, Required(file, kReceptorSection));
  return project;
}

}  // namespace plumeo
