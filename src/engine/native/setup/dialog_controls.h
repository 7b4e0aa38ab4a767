// The parts that the engine's dialogs have in common, as rows of their control tables.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "window/control_design.h"

namespace pagivo::native {

// Twips. Frames lie this far from the window's edges and from each other.
inline constexpr float kDialogGap = 120;
inline constexpr float kDialogWidth = 6612;
inline constexpr float kFrameWidth = kDialogWidth - 2 * kDialogGap;

// Two rows in a frame: a label in the left column, what it is for in the right one, over the width
// that is left. Tops allow for labels that are less high than boxes.
inline constexpr float kFrameOfTwoRows = 1212;
inline constexpr float kLabelColumn = 120;
inline constexpr float kLabelWidth = 1020;
inline constexpr float kValueColumn = 1200;
inline constexpr float kValueWidth = kFrameWidth - kValueColumn - kDialogGap;
inline constexpr float kFirstRow = 390;
inline constexpr float kSecondRow = 810;
inline constexpr float kBesideComboBox = 60;
inline constexpr float kBesideTextBox = 45;
inline constexpr float kBesideOption = 30;

// The paper and its orientation, in a frame at `top`.
constexpr auto PaperControls(float top) {
  return std::array<ControlDesign, 6>{{
      {.name = "paperFrame",
       .kind = ControlKind::Frame,
       .caption = "Papier",
       .placement = {kDialogGap, top, kFrameWidth, kFrameOfTwoRows}},
      {.name = "paperLabel",
       .kind = ControlKind::Label,
       .caption = "&Formaat:",
       .placement = {kLabelColumn, kFirstRow + kBesideComboBox, kLabelWidth, 252},
       .container = "paperFrame"},
      {.name = "paper",
       .kind = ControlKind::ComboBox,
       .placement = {kValueColumn, kFirstRow, kValueWidth, 315},
       .container = "paperFrame"},
      {.name = "orientationLabel",
       .kind = ControlKind::Label,
       .caption = "Afdrukstand:",
       .placement = {kLabelColumn, kSecondRow + kBesideOption, kLabelWidth, 252},
       .container = "paperFrame"},
      {.name = "portrait",
       .kind = ControlKind::OptionButton,
       .caption = "&Staand",
       .placement = {kValueColumn, kSecondRow, 1332, 252},
       .container = "paperFrame"},
      {.name = "landscape",
       .kind = ControlKind::OptionButton,
       .caption = "&Liggend",
       .placement = {2640, kSecondRow, 1332, 252},
       .container = "paperFrame"},
  }};
}

inline constexpr float kClosingHeight = 600 + kDialogGap;

// The message and the buttons, at the foot of the window from `top` on.
constexpr auto ClosingControls(float top) {
  return std::array<ControlDesign, 3>{{
      {.name = "message", .kind = ControlKind::Label, .placement = {kDialogGap, top, 3732, 600}},
      {.name = "ok",
       .kind = ControlKind::Button,
       .caption = "OK",
       .placement = {4017, top + 270, 1200, 330},
       .role = ButtonRole::Default},
      {.name = "cancel",
       .kind = ControlKind::Button,
       .caption = "Annuleren",
       .placement = {5292, top + 270, 1200, 330},
       .role = ButtonRole::Cancel},
  }};
}

// One table of several parts. The tab order is that of the rows; surfaces, which only show
// something here, take no part in it.
template <std::size_t... Counts>
constexpr auto JoinControls(const std::array<ControlDesign, Counts>&... parts) {
  std::array<ControlDesign, (Counts + ...)> table{};
  auto end = table.begin();
  ((end = std::ranges::copy(parts, end).out), ...);
  std::int16_t tabIndex = 0;
  for (ControlDesign& control : table) {
    if (control.kind != ControlKind::Surface) control.tabIndex = tabIndex++;
  }
  return table;
}

}  // namespace pagivo::native
