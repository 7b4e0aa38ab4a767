// The buttons, the zoom menu and the images of the preview's toolbar.
#pragma once

#include <array>
#include <string_view>

#include "preview/embedded_pictures.h"
#include "window/toolbar.h"

namespace pagivo {

inline constexpr std::array<std::string_view, 7> kImageKeys{
    "Sluiten", "Eerste", "Vorige", "Volgende", "Laatste", "Zoom", "Afdrukken"};
inline constexpr ImageList kImageList1{.name = "ImageList1",
                                       .keys = kImageKeys,
                                       .files = kToolbarImages16,
                                       .doubleFiles = kToolbarImages32};
inline constexpr ImageList kImageList2{.name = "ImageList2",
                                       .keys = kImageKeys,
                                       .files = kToolbarImages16,
                                       .doubleFiles = kToolbarImages32};

inline constexpr std::array<MenuItem, 10> kZoomMenu{{
    {.text = "&Hele pagina", .key = "Heel"},
    {.text = "&Paginabreedte", .key = "Breedte"},
    {.text = "&Twee pagina's", .key = "Twee"},
    {.text = "&Overzicht", .key = "Overzicht", .visible = false},
    {.text = "-", .key = "Streep"},
    {.text = "15&0%", .key = "P150"},
    {.text = "&100%", .key = "P100"},
    {.text = "&75%", .key = "P75"},
    {.text = "&50%", .key = "P50"},
    {.text = "&25%", .key = "P25"},
}};

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
    {.key = "Zoom", .style = ToolbarButton::Style::DropDown, .toolTip = "Zoom", .menu = kZoomMenu},
    {.key = "AfdrukkenSep", .style = ToolbarButton::Style::Separator},
    {.key = "Afdrukken", .toolTip = "Afdrukken"},
}};

}  // namespace pagivo
