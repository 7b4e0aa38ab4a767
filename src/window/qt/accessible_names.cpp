#include "window/qt/accessible_names.h"

#include <QLabel>
#include <QString>

#include "window/qt/text.h"

namespace pagivo::qt {

namespace {

// The label that stands before a control in the tab order; null when another control does.
const Control* LabelBefore(const ControlSet& controls, const Control& control) {
  const Control* nearest = nullptr;
  for (const auto& other : controls.All()) {
    const std::int16_t place = other->Design().tabIndex;
    if (place < 0 || place >= control.Design().tabIndex) continue;
    if (nearest == nullptr || place > nearest->Design().tabIndex) nearest = other.get();
  }
  return nearest != nullptr && nearest->Kind() == ControlKind::Label ? nearest : nullptr;
}

// Text and combo boxes show what the user puts there, not what it is for.
bool ShowsItsName(const Control& control) {
  return control.Kind() != ControlKind::TextBox && control.Kind() != ControlKind::ComboBox;
}

// The label's own & makes its access key work and be drawn only when it belongs to a widget.
void Connect(const FormWindow& window, const Control& label, QWidget* widget) {
  auto* shown = qobject_cast<QLabel*>(window.WidgetOf(label));
  if (shown != nullptr) shown->setBuddy(widget);
}

QString NameOf(const Control& control, const Control* label) {
  if (!control.Design().accessibleName.empty()) return ToQt(control.Design().accessibleName);
  if (ShowsItsName(control) && !control.Caption().empty()) {
    return WithoutAccessKey(control.Caption());
  }
  QString name = label == nullptr ? QString() : WithoutAccessKey(label->Caption());
  if (name.endsWith(QLatin1Char(':'))) name.chop(1);
  return name;
}

}  // namespace

void NameControls(const FormWindow& window) {
  const ControlSet& controls = window.GetForm().Controls();
  for (const auto& control : controls.All()) {
    QWidget* widget = window.WidgetOf(*control);
    if (widget == nullptr) continue;
    const Control* label = ShowsItsName(*control) ? nullptr : LabelBefore(controls, *control);
    if (label != nullptr) Connect(window, *label, widget);
    widget->setAccessibleName(NameOf(*control, label));
  }
}

}  // namespace pagivo::qt
