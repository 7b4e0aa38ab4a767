// The state that every PgPrint, the preview window and the dialogs share.
#pragma once

#include <cstdint>
#include <string>

#include "engine/print_series.h"
#include "pagivo/array.h"
#include "pagivo/object.h"

namespace pagivo {

// Entries that the contents table holds; later ones are dropped.
inline constexpr std::int16_t kMaximumContents = 50;

// PrintRange.
inline constexpr std::int16_t kPrintAllPages = 0;
inline constexpr std::int16_t kPrintShownPage = 1;
inline constexpr std::int16_t kPrintPageRange = 2;

// The component serves one document at a time, so there is one of these. The preview window, the
// remaining piece of shared state, is reached through PreviewForm() (preview/).
struct ModuleState {
  // Twips per host unit; 0 until the first PgPrint is created.
  float ScaleX = 0;
  float ScaleY = 0;
  // 0 none, 1 to 3 the watermark picture drawn on every new page.
  std::int16_t WatermarkOn = 0;
  // The host's main window, by its members "WindowState", "Left", "Top", "Width", "Height" (twips).
  ObjectRef HostForm;

  // The contents table: entries 1..ContentsCount are valid. Resetting the count keeps the texts.
  std::int16_t ContentsCount = 0;
  Array<std::string> ContentsTitle{0, kMaximumContents};
  Array<std::int16_t> ContentsPage{0, kMaximumContents};

  // The print request: what a print dialog hands over. Every field keeps its value between uses.
  std::string PrintDevice;
  std::int16_t PrintCopies = 0;
  std::int16_t PrintFromPage = 0;  // 0 = not given
  std::int16_t PrintToPage = 0;    // 0 = not given
  bool PrintCancelled = false;
  std::int16_t PrintLastPage = 0;  // the highest page that can be printed
  std::int16_t PrintRange = kPrintAllPages;

  // What became of the last print command.
  PrintCommandOutcome PrintOutcome;

  // The page chosen in the go-to-page dialog, 0 = none.
  std::int16_t GoToPageResult = 0;
};

// The one instance of the process.
ModuleState& State();

}  // namespace pagivo
