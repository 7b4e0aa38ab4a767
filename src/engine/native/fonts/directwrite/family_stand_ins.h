// Which families stand in for one that is not installed. Windows itself has no such rules but for
// its dialogs; these say what fontconfig's rules say elsewhere, so that lines break alike.
#pragma once

#include <string_view>
#include <vector>

namespace pagivo::native {

// The families to look for in place of `family`, the best one first: those of the same metrics,
// those that look alike, and at last the usual ones of its kind. Never empty; the family itself may
// be among them.
std::vector<std::string_view> StandInsFor(std::string_view family);

}  // namespace pagivo::native
