// The buttons of the preview's toolbar.
#pragma once

#include <array>

#include "window/toolbar.h"

namespace pagivo {

inline constexpr std::array<ToolbarButton, 11> kToolbarButtons{{
    {.key = "Sluiten", .toolTip = "Afdrukvoorbeeldvenster sluiten"},
    {.key = "", .style = ToolbarButton::Style::Separator},
    {.key = "Eerste", .toolTip = "Eerste pagina"},
    {.key = "Vorige", .toolTip = "Vorige pagina"},
    {.key = "Paginanummer",
     .style = ToolbarButton::Style::Placeholder,
     .width = 600,
     .enabled = false},
    {.key = "Volgende", .toolTip = "Volgende pagina"},
    {.key = "Laatste", .toolTip = "Laatste pagina"},
    {.key = "", .style = ToolbarButton::Style::Separator},
    {.key = "Zoom", .style = ToolbarButton::Style::DropDown, .toolTip = "Zoom"},
    {.key = "AfdrukkenSep", .style = ToolbarButton::Style::Separator},
    {.key = "Afdrukken", .toolTip = "Afdrukken"},
}};

}  // namespace pagivo
