// What the preview's toolbar and its zoom menu do.
#include <algorithm>
#include <array>

#include "preview/frm_afdrukken.h"

namespace pagivo {

namespace {

constexpr double kFullSize = 100;

// A choice of the zoom menu: a mode, and for the mode of percents how many.
struct ZoomChoice {
  std::string_view key;
  std::int32_t mode;
  double percent = 0;
};

constexpr std::array<ZoomChoice, 9> kZoomChoices{{
    {"Heel", kZoomWholePage},
    {"Breedte", kZoomPageWidth},
    {"Twee", kZoomTwoPages},
    {"Overzicht", kZoomOverview},
    {"P150", kZoomPercent, 150},
    {"P100", kZoomPercent, kFullSize},
    {"P75", kZoomPercent, 75},
    {"P50", kZoomPercent, 50},
    {"P25", kZoomPercent, 25},
}};

void Zoom(PrintEngine& engine, const ZoomChoice& choice) {
  engine.PutZoomMode(choice.mode);
  if (choice.mode == kZoomPercent) engine.PutZoom(choice.percent);
}

// Pages that a button turns to, as BladerNaar counts them.
constexpr std::array<std::string_view, 4> kTurningButtons{"Eerste", "Vorige", "Volgende",
                                                          "Laatste"};

}  // namespace

void frmAfdrukken::tbAfdrukken_ButtonClick(std::string_view key) {
  const auto self = shared_from_this();
  const auto turning = std::ranges::find(kTurningButtons, key);
  if (key == "Sluiten") {
    HideWithFocusOnEngine();
  } else if (turning != kTurningButtons.end()) {
    BladerNaar(static_cast<std::int16_t>(turning - kTurningButtons.begin()));
  } else if (key == "Zoom") {
    ToggleZoom();
  } else if (key == "Afdrukken") {
    DrukAf();
  }
  // A host may have discarded the window meanwhile.
  if (IsLoaded()) AfterPageChange();
}

void frmAfdrukken::tbAfdrukken_ButtonMenuClick(std::string_view key) {
  const auto self = shared_from_this();
  const auto choice = std::ranges::find(kZoomChoices, key, &ZoomChoice::key);
  if (choice != kZoomChoices.end()) Zoom(*vsPrint(), *choice);
  if (IsLoaded()) AfterPageChange();
}

void frmAfdrukken::ToggleZoom() {
  const auto engine = vsPrint();
  if (engine->GetZoomMode() == kZoomWholePage) {
    engine->PutZoomMode(kZoomPercent);
    engine->PutZoom(kFullSize);
  } else {
    engine->PutZoomMode(kZoomWholePage);
  }
}

}  // namespace pagivo
