// The peers of the controls, one function a kind.
#pragma once

#include <memory>

#include "window/combo_box.h"
#include "window/option_button.h"
#include "window/qt/form_window.h"
#include "window/scroll_bar.h"
#include "window/surface.h"
#include "window/text_box.h"
#include "window/toolbar.h"

namespace pagivo::qt {

std::unique_ptr<ControlPeer> MakeFramePeer(FormWindow& window, Control& frame);
std::unique_ptr<ControlPeer> MakeLabelPeer(FormWindow& window, Control& label);
std::unique_ptr<ControlPeer> MakePictureBoxPeer(FormWindow& window, Control& box);
std::unique_ptr<ControlPeer> MakeButtonPeer(FormWindow& window, Control& button);
std::unique_ptr<ControlPeer> MakeTextBoxPeer(FormWindow& window, TextBox& box);
std::unique_ptr<ControlPeer> MakeComboBoxPeer(FormWindow& window, ComboBox& box);
std::unique_ptr<ControlPeer> MakeOptionButtonPeer(FormWindow& window, OptionButton& option);
std::unique_ptr<ControlPeer> MakeScrollBarPeer(FormWindow& window, ScrollBar& bar);
std::unique_ptr<ControlPeer> MakeToolbarPeer(FormWindow& window, Toolbar& toolbar);
std::unique_ptr<ControlPeer> MakeSurfacePeer(FormWindow& window, Surface& surface);

}  // namespace pagivo::qt
