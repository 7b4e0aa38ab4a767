#include "system/regional_settings.h"

namespace pagivo {
namespace {

RegionalSettings& SettingsInUse() {
  static RegionalSettings settings = RegionalSettingsOfEnvironment();
  return settings;
}

}  // namespace

const RegionalSettings& CurrentRegionalSettings() {
  return SettingsInUse();
}

void UseRegionalSettings(RegionalSettings settings) {
  SettingsInUse() = settings;
}

}  // namespace pagivo
