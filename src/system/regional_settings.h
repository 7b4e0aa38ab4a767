// The user's regional settings, as far as numbers in texts are concerned.
#pragma once

#include <cstdint>

namespace pagivo {

struct RegionalSettings {
  char decimalSeparator = '.';
  // The locale by whose rules Windows reads texts, by its number there; the user's own, changes of
  // the separator included. Other systems have no use for it.
  std::uint32_t locale = 0x400;
};

// The settings in use: those of the user's environment, unless UseRegionalSettings has replaced
// them. The environment is read at the first use, and the host's locale stays as it is.
const RegionalSettings& CurrentRegionalSettings();

// Replaces the settings in use for the whole process.
void UseRegionalSettings(RegionalSettings settings);

// Reads the environment now: the variables LC_ALL, LC_NUMERIC and LANG.
RegionalSettings RegionalSettingsOfEnvironment();

}  // namespace pagivo
