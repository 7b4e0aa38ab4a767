// The module state: what every PgPrint, the preview window and the dialogs share.
#pragma once

#include <cstdint>
#include <string>

#include "engine/print_engine.h"
#include "pagivo/array.h"
#include "pagivo/object.h"

namespace pagivo {

// The contents table lists the pages that a host has named, for the go-to-page dialog.
struct ContentsTable {
  // Later entries are dropped.
  static constexpr std::int16_t kMostEntries = 50;

  // Entries 1..ContentsCount are valid. Resetting the count keeps the texts.
  std::int16_t ContentsCount = 0;
  Array<std::string> ContentsTitle{0, kMostEntries};
  Array<std::int16_t> ContentsPage{0, kMostEntries};
};

// PrintRange.
inline constexpr std::int16_t kPrintAllPages = 0;
inline constexpr std::int16_t kPrintShownPage = 1;
inline constexpr std::int16_t kPrintPageRange = 2;

// The print request is what a print dialog hands over. Every field keeps its value between uses.
struct PrintDialogRequest {
  std::string PrintDevice;
  std::int16_t PrintCopies = 0;
  std::int16_t PrintFromPage = 0;  // 0 = not given
  std::int16_t PrintToPage = 0;    // 0 = not given
  bool PrintCancelled = false;
  std::int16_t PrintLastPage = 0;  // the highest page that can be printed
  std::int16_t PrintRange = kPrintAllPages;
};

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

  ContentsTable contents;
  // The page chosen in the go-to-page dialog, 0 = none.
  std::int16_t GoToPageResult = 0;

  PrintDialogRequest request;
  // What became of the last print command.
  PrintCommandOutcome PrintOutcome;
};

// Answers the one instance of the process. PgPrint and the preview window reach it and pass its
// parts to those who work on them.
ModuleState& State();

}  // namespace pagivo
