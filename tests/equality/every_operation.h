// A document whose pages use every operation.
#pragma once

#include <string>

#include "pagivo/pg_print.h"

namespace pagivo::test {

// Four pages: figures and pictures, text, a small one of single words, and figures with pens that
// are very wide or thin, or that run far off the page. `pictureFolder` receives the picture files
// that the first one shows.
void ComposeEveryOperation(PgPrint& print, const std::string& pictureFolder);

// The page of single words, for measuring where their ink lies: word i stands with its top left at
// (x, y) millimetres, alone in a cell of kWordWidth x kWordHeight.
struct PlacedWord {
  double x = 0;
  double y = 0;
};
inline constexpr int kPlacedWords = 36;
inline constexpr double kWordPageWidth = 190;
inline constexpr double kWordPageHeight = 56;
inline constexpr double kWordWidth = 30;
inline constexpr double kWordHeight = 8;
PlacedWord PlaceOfWord(int i);

}  // namespace pagivo::test
