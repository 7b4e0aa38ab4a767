#include <langinfo.h>
#include <locale.h>

#include <string_view>

#include "system/regional_settings.h"

namespace pagivo {

// That of the variables LC_ALL, LC_NUMERIC and LANG. A locale that is not installed counts as "C",
// and the host's own stays as it is.
RegionalSettings RegionalSettingsOfEnvironment() {
  const locale_t locale = newlocale(LC_NUMERIC_MASK, "", locale_t{});
  if (locale == locale_t{}) return {};
  const std::string_view separator = nl_langinfo_l(RADIXCHAR, locale);
  RegionalSettings settings;
  // A separator of several bytes is none that numbers in text can be read with.
  if (separator.size() == 1) settings.decimalSeparator = separator.front();
  freelocale(locale);
  return settings;
}

}  // namespace pagivo
