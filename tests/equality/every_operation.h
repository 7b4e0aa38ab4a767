// A document whose pages use every operation.
#pragma once

#include <string>

#include "pagivo/pg_print.h"

namespace pagivo::test {

// Two pages: one of figures and pictures, one of text. `pictureFolder` receives the picture files
// that the first one shows.
void ComposeEveryOperation(PgPrint& print, const std::string& pictureFolder);

// Where the page of text has single words, for measuring where their ink lies: word i stands with
// its top left at (x, y) millimetres, alone in a cell of kWordWidth x kWordHeight.
struct PlacedWord {
  double x = 0;
  double y = 0;
};
inline constexpr int kPlacedWords = 60;
inline constexpr double kWordWidth = 30;
inline constexpr double kWordHeight = 8;
PlacedWord PlaceOfWord(int i);

}  // namespace pagivo::test
