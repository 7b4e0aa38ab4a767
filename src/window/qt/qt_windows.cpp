#include "window/qt/qt_windows.h"

#include <QApplication>

#include "pagivo/error.h"
#include "window/qt/control_peers.h"

namespace pagivo {

namespace {

std::unique_ptr<ControlPeer> MakePeer(qt::FormWindow& window, Control& control) {
  switch (control.Kind()) {
    case ControlKind::Frame:
      return qt::MakeFramePeer(window, control);
    case ControlKind::Label:
      return qt::MakeLabelPeer(window, control);
    case ControlKind::PictureBox:
      return qt::MakePictureBoxPeer(window, control);
    case ControlKind::Button:
      return qt::MakeButtonPeer(window, control);
    case ControlKind::TextBox:
      return qt::MakeTextBoxPeer(window, dynamic_cast<TextBox&>(control));
    case ControlKind::ComboBox:
      return qt::MakeComboBoxPeer(window, dynamic_cast<ComboBox&>(control));
    case ControlKind::OptionButton:
      return qt::MakeOptionButtonPeer(window, dynamic_cast<OptionButton&>(control));
    case ControlKind::ScrollBar:
      return qt::MakeScrollBarPeer(window, dynamic_cast<ScrollBar&>(control));
    case ControlKind::Toolbar:
      return qt::MakeToolbarPeer(window, dynamic_cast<Toolbar&>(control));
    case ControlKind::Surface:
      return qt::MakeSurfacePeer(window, dynamic_cast<Surface&>(control));
  }
  ThrowTypeMismatch();
}

}  // namespace

std::shared_ptr<FormPeer> QtWindows::MakeFormPeer(Form& form) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
    throw Error(ErrorNumber::InvalidArgument,
                "Er is geen Qt-toepassing (meer) om vensters mee te tonen");
  }
  return std::make_shared<qt::FormWindow>(form);
}

std::unique_ptr<ControlPeer> QtWindows::MakeControlPeer(FormPeer& form, Control& control) {
  std::unique_ptr<ControlPeer> peer = MakePeer(dynamic_cast<qt::FormWindow&>(form), control);
  peer->Update();
  return peer;
}

}  // namespace pagivo
