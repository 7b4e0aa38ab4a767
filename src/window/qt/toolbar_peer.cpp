#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QFrame>
#include <QIcon>
#include <QKeyEvent>
#include <QMargins>
#include <QMenu>
#include <QPixmap>
#include <QPointer>
#include <QToolButton>
#include <algorithm>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "window/key_codes.h"
#include "window/qt/control_peers.h"
#include "window/qt/keys.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

// Pixels: an image of 16 with an edge, and what is left free around a separator's line.
constexpr int kButtonHeight = 22;
constexpr QMargins kAroundLine{2, 3, 2, 3};

QPixmap PixmapOf(FileBytes png) {
  QPixmap pixmap;
  pixmap.loadFromData(png.data(), static_cast<uint>(png.size()), "PNG");
  return pixmap;
}

// Qt takes the file that fits the screen's density.
QIcon LoadIcon(const ImageList& images, std::string_view key) {
  QIcon icon;
  for (const int pixels : {images.size, 2 * images.size}) {
    const FileBytes png = images.Png(key, pixels);
    if (!png.empty()) icon.addPixmap(PixmapOf(png));
  }
  return icon;
}

// Loaded once, as long as there is the application: forms come and go.
class Icons : public QObject {
 public:
  static QIcon Find(const ImageList& images, std::string_view key) {
    static QPointer<Icons> icons;
    if (!icons) icons = new Icons(QCoreApplication::instance());
    const auto [entry, isNew] = icons->icons_.try_emplace({&images, key});
    if (isNew) entry->second = LoadIcon(images, key);
    return entry->second;
  }

 private:
  using QObject::QObject;

  std::map<std::pair<const ImageList*, std::string_view>, QIcon> icons_;  // designs are for ever
};

// The buttons stand where the portable toolbar says, with room left for placeholders, and the one
// that has the keyboard has Qt's focus.
class ToolbarPeer final : public WidgetPeer {
 public:
  ToolbarPeer(FormWindow& window, Toolbar& toolbar)
      : ToolbarPeer(window, toolbar, new QWidget(window.ParentFor(toolbar))) {}

  void OpenMenu(const ToolbarButton& button) override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  ToolbarPeer(FormWindow& window, Toolbar& toolbar, QWidget* bar);

  QWidget* MakePart(const ToolbarButton& design);
  QToolButton* MakeButton(const ToolbarButton& design);
  QMenu* MakeMenu(const ToolbarButton& design, QWidget* owner);
  void Show() override;
  void Place(QWidget& part, const ToolbarButton& button) const;
  void Command(std::string_view key, void (Toolbar::*click)(std::string_view));

  // The place of a button's widget among the parts; their number for any other widget.
  std::size_t PlaceOf(const QObject* part) const;
  QWidget* PartOf(const ToolbarButton& button) const;
  void ShowKeyboard();
  bool PressKey(const QKeyEvent& event);

  Toolbar& toolbar_;
  QWidget* bar_;
  std::vector<QWidget*> parts_;  // one for each button
};

ToolbarPeer::ToolbarPeer(FormWindow& window, Toolbar& toolbar, QWidget* bar)
    : WidgetPeer(window, toolbar, bar), toolbar_(toolbar), bar_(bar) {
  for (const ToolbarButton& design : toolbar.Buttons()) parts_.push_back(MakePart(design));
}

QWidget* ToolbarPeer::MakePart(const ToolbarButton& design) {
  switch (design.style) {
    case ToolbarButton::Style::Placeholder:
      return new QWidget(bar_);
    case ToolbarButton::Style::Separator: {
      auto* line = new QFrame(bar_);
      line->setFrameStyle(QFrame::VLine | QFrame::Plain);
      line->setForegroundRole(QPalette::Mid);
      return line;
    }
    default:
      return MakeButton(design);
  }
}

QToolButton* ToolbarPeer::MakeButton(const ToolbarButton& design) {
  auto* button = new FocusMarkingButton<QToolButton>(bar_);
  button->setObjectName(ToQt(design.key));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  if (const ImageList* images = toolbar_.Design().images) {
    button->setIcon(Icons::Find(*images, design.key));
    button->setIconSize(QSize(images->size, images->size));
  }
  if (!design.menu.empty()) {
    button->setPopupMode(QToolButton::MenuButtonPopup);
    button->setMenu(MakeMenu(design, button));
  }
  button->installEventFilter(this);
  connect(button, &QToolButton::clicked, this,
          [this, key = design.key] { Command(key, &Toolbar::ClickButton); });
  return button;
}

QMenu* ToolbarPeer::MakeMenu(const ToolbarButton& design, QWidget* owner) {
  auto* menu = new QMenu(owner);
  for (const MenuItem& item : design.menu) {
    QAction* action = item.text == "-" ? menu->addSeparator() : menu->addAction(ToQt(item.text));
    action->setObjectName(ToQt(item.key));
    action->setVisible(item.visible);
    connect(action, &QAction::triggered, this,
            [this, key = item.key] { Command(key, &Toolbar::ClickMenu); });
  }
  return menu;
}

void ToolbarPeer::Show() {
  const auto buttons = toolbar_.Buttons();
  for (std::size_t i = 0; i < parts_.size(); ++i) Place(*parts_[i], buttons[i]);
  ShowKeyboard();
}

std::size_t ToolbarPeer::PlaceOf(const QObject* part) const {
  return static_cast<std::size_t>(std::ranges::find(parts_, part) - parts_.begin());
}

QWidget* ToolbarPeer::PartOf(const ToolbarButton& button) const {
  return parts_[static_cast<std::size_t>(&button - toolbar_.Buttons().data())];
}

void ToolbarPeer::ShowKeyboard() {
  const QWidget* focused = Window().Window()->focusWidget();
  if (const ToolbarButton* button = toolbar_.ButtonWithKeyboard()) {
    QWidget* part = PartOf(*button);
    if (part != focused) part->setFocus(Qt::TabFocusReason);
  } else if (PlaceOf(focused) < parts_.size()) {
    Window().ReturnFocus();
  }
}

void ToolbarPeer::OpenMenu(const ToolbarButton& button) {
  auto* shown = qobject_cast<QToolButton*>(PartOf(button));
  if (shown != nullptr) shown->showMenu();
}

void ToolbarPeer::Place(QWidget& part, const ToolbarButton& button) const {
  const int left = ToPixels(toolbar_.LeftOf(button));
  const int width = ToPixels(Toolbar::WidthOf(button));
  const int top = (bar_->height() - kButtonHeight) / 2;
  const QRect place(left, top, width, kButtonHeight);
  const bool isLine = button.style == ToolbarButton::Style::Separator;
  part.setGeometry(isLine ? place.marginsRemoved(kAroundLine) : place);
  part.setEnabled(button.enabled);
  part.setVisible(button.visible);
  part.setToolTip(ToQt(button.toolTip));
  part.setAccessibleName(ToQt(button.toolTip));
}

// The key outlives the toolbar: it stands in the design. The toolbar is not reached through `this`
// in the call, for which GCC 12's undefined-behaviour sanitizer makes code that reads a pointer
// before it is set.
void ToolbarPeer::Command(std::string_view key, void (Toolbar::*click)(std::string_view)) {
  Report([&toolbar = toolbar_, key, click] { (toolbar.*click)(key); });
}

bool ToolbarPeer::eventFilter(QObject* watched, QEvent* event) {
  const std::size_t place = PlaceOf(watched);
  if (place == parts_.size()) return WidgetPeer::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) return PressKey(static_cast<const QKeyEvent&>(*event));
  if (event->type() == QEvent::FocusIn) {
    Report([&toolbar = toolbar_, place] { toolbar.TakeKeyboard(toolbar.Buttons()[place]); });
  }
  return false;
}

// The form knows which button the key is for. The space bar is left to Qt, which presses the button
// when it comes up again.
bool ToolbarPeer::PressKey(const QKeyEvent& event) {
  const std::int16_t code = KeyCodeOf(event.key(), event.modifiers());
  if (code == 0 || code == kKeySpace) return false;
  bool used = false;
  const bool isAlive =
      Report([&used, &form = Window().GetForm(), code, shift = ShiftStateOf(event.modifiers())] {
        used = form.PressKey(code, shift);
      });
  return used || !isAlive;
}

}  // namespace

std::unique_ptr<ControlPeer> MakeToolbarPeer(FormWindow& window, Toolbar& toolbar) {
  return std::make_unique<ToolbarPeer>(window, toolbar);
}

}  // namespace pagivo::qt
