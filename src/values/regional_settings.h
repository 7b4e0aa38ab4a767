// The user's regional settings, as far as numbers in text are concerned.
#pragma once

namespace pagivo {

struct RegionalSettings {
  char decimalSeparator = '.';
};

// The settings in use: those of the environment (LC_ALL, LC_NUMERIC, LANG), read once at first
// use without touching the host's locale, unless UseRegionalSettings replaced them.
const RegionalSettings& CurrentRegionalSettings();

// Replaces the settings in use for the whole process.
void UseRegionalSettings(RegionalSettings settings);

// Reads the environment now. A locale that is not installed counts as "C".
RegionalSettings RegionalSettingsOfEnvironment();

}  // namespace pagivo
