// Reading the environment, with real locales that are built for the test.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <tuple>

#include "system/regional_settings.h"

// The C library loses a few bytes for every locale that it looks up through LOCPATH.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:argz_add_sep";
}

namespace pagivo {
namespace {

// Environment variables for the length of a test.
class Environment {
 public:
  explicit Environment(const std::map<std::string, std::string>& variables) {
    for (const char* name : {"LC_ALL", "LC_NUMERIC", "LANG", "LOCPATH"}) {
      const char* value = getenv(name);
      before_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
      unsetenv(name);
    }
    for (const auto& [name, value] : variables) setenv(name.c_str(), value.c_str(), 1);
  }
  ~Environment() {
    for (const auto& [name, value] : before_) {
      if (value) {
        setenv(name.c_str(), value->c_str(), 1);
      } else {
        unsetenv(name.c_str());
      }
    }
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  std::map<std::string, std::optional<std::string>> before_;
};

class RegionalSettingsOfTheEnvironment : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    std::string pattern = std::filesystem::temp_directory_path() / "pagivo-locales-XXXXXX";
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    locales = pattern;
  }

  static void TearDownTestSuite() { std::filesystem::remove_all(locales); }

  // The name of a locale that has the numbers of the country's locale and nothing else: building a
  // whole one takes seconds, most of them for the order of letters.
  static std::string Locale(const std::string& country) {
    const std::string name = country + ".UTF-8";
    const std::filesystem::path source = locales / (country + ".source");
    if (std::filesystem::exists(source)) return name;
    std::ofstream(source) << "LC_NUMERIC\ncopy \"" << country << "\"\nEND LC_NUMERIC\n";
    // Reports the categories that are left out, and with them a failure.
    const std::string command = "localedef -c --no-archive -f UTF-8 -i " + source.string() + " " +
                                (locales / name).string() + " 2>/dev/null";
    std::ignore = std::system(command.c_str());
    EXPECT_TRUE(std::filesystem::exists(locales / name / "LC_NUMERIC"))
        << "is the package with the sources of the locales installed?";
    return name;
  }

  static char SeparatorWith(std::map<std::string, std::string> variables) {
    variables["LOCPATH"] = locales;
    const Environment environment(variables);
    return RegionalSettingsOfEnvironment().decimalSeparator;
  }

  static inline std::filesystem::path locales;
};

TEST_F(RegionalSettingsOfTheEnvironment, KnowTheDutchComma) {
  EXPECT_EQ(SeparatorWith({{"LC_ALL", Locale("nl_NL")}}), ',');
  EXPECT_EQ(SeparatorWith({{"LC_NUMERIC", Locale("nl_NL")}}), ',');
  EXPECT_EQ(SeparatorWith({{"LANG", Locale("nl_NL")}}), ',');
}

TEST_F(RegionalSettingsOfTheEnvironment, KnowTheEnglishPoint) {
  EXPECT_EQ(SeparatorWith({{"LC_ALL", Locale("en_GB")}}), '.');
}

TEST_F(RegionalSettingsOfTheEnvironment, PreferTheNarrowerVariable) {
  EXPECT_EQ(SeparatorWith({{"LANG", Locale("en_GB")}, {"LC_NUMERIC", Locale("nl_NL")}}), ',');
  EXPECT_EQ(SeparatorWith({{"LC_NUMERIC", Locale("nl_NL")}, {"LC_ALL", Locale("en_GB")}}), '.');
}

TEST_F(RegionalSettingsOfTheEnvironment, HaveAPointWithoutAnyVariable) {
  EXPECT_EQ(SeparatorWith({}), '.');
}

TEST_F(RegionalSettingsOfTheEnvironment, HaveAPointWhenTheLocaleIsNotInstalled) {
  EXPECT_EQ(SeparatorWith({{"LC_ALL", "xx_XX.UTF-8"}}), '.');
  EXPECT_EQ(SeparatorWith({{"LC_ALL", "../../etc/passwd"}}), '.');
}

TEST_F(RegionalSettingsOfTheEnvironment, HaveAPointWhenTheSeparatorIsNoSingleByte) {
  EXPECT_EQ(SeparatorWith({{"LC_ALL", Locale("ps_AF")}}), '.');
}

TEST_F(RegionalSettingsOfTheEnvironment, LeaveTheHostsLocaleAlone) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  SeparatorWith({{"LC_ALL", Locale("nl_NL")}});
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
  char text[8];
  std::snprintf(text, sizeof text, "%.1f", 2.5);
  EXPECT_STREQ(text, "2.5");
}

}  // namespace
}  // namespace pagivo
