#include "key_values.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace plumeo {
namespace {

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

class Reader {
 public:
  explicit Reader(const std::string& path) { file_.path = path; }

  void Take(std::string_view line) {
    ++file_.lineCount;
    const std::string_view text = Trimmed(line.substr(0, line.find('#')));
    if (text.empty()) return;
    if (text.front() == '[') {
      OpenSection(text);
    } else {
      AddEntry(text);
    }
  }

  KeyValueFile Result() && { return std::move(file_); }

 private:
  [[noreturn]] void Fail(const std::string& message) const {
    throw InputError(file_.path, file_.lineCount, message);
  }

  void OpenSection(std::string_view text) {
    if (text.back() != ']') Fail("de naam van een sectie staat tussen [ en ]");
    const std::string name(Trimmed(text.substr(1, text.size() - 2)));
    if (file_.Find(name)) Fail("de sectie [" + name + "] komt twee keer voor");
    file_.sections.push_back({name, file_.lineCount, {}});
  }

  void AddEntry(std::string_view text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) Fail("verwacht wordt: sleutel = waarde");
    if (file_.sections.empty()) Fail("deze regel staat niet in een sectie");
    const std::string key(Trimmed(text.substr(0, equals)));
    const std::string value(Trimmed(text.substr(equals + 1)));
    Section& section = file_.sections.back();
    if (key.empty()) Fail("voor het teken = staat geen sleutel");
    if (value.empty()) Fail("de sleutel \"" + key + "\" heeft geen waarde");
    if (const KeyValue* earlier = section.Find(key)) {
      Fail("de sleutel \"" + key + "\" staat ook al op regel " + std::to_string(earlier->line));
    }
    section.entries.push_back({key, value, file_.lineCount});
  }

  KeyValueFile file_;
};

}  // namespace

const KeyValue* Section::Find(std::string_view key) const {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [key](const KeyValue& entry) { return entry.key == key; });
  return found == entries.end() ? nullptr : &*found;
}

const Section* KeyValueFile::Find(std::string_view name) const {
  const auto found = std::find_if(sections.begin(), sections.end(),
                                  [name](const Section& section) { return section.name == name; });
  return found == sections.end() ? nullptr : &*found;
}

KeyValueFile ReadKeyValueFile(const std::string& path) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) {
    throw InputError(path, 0, "dit is een map, geen invoerbestand");
  }
  std::ifstream stream(path, std::ios::binary);
  if (!stream) {
    const bool missing = !std::filesystem::exists(path, ignored);
    throw InputError(
        path, 0,
        missing ? "het invoerbestand bestaat niet" : "het invoerbestand kan niet worden gelezen");
  }
  Reader reader(path);
  for (std::string line; std::getline(stream, line);) reader.Take(line);
  return std::move(reader).Result();
}

}  // namespace plumeo
