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
#include "window/qt/focus_mark.h"
#include "window/qt/text.h"
#include "window/qt/units.h"
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

// The buttons stand where the portable toolbar says, with room left for placeholders. F10 or F6
// takes the keyboard into the toolbar: arrows, Home and End move along its buttons, Enter and space
// press, arrow down opens a menu, Tab, F10 and F6 leave, and so does every command. Esc is the
// form's, whoever has the keyboard.
class ToolbarPeer final : public WidgetPeer {
 public:
  ToolbarPeer(FormWindow& window, Toolbar& toolbar)
      : ToolbarPeer(window, toolbar, new QWidget(window.ParentFor(toolbar))) {}

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  ToolbarPeer(FormWindow& window, Toolbar& toolbar, QWidget* bar);

  QWidget* MakePart(const ToolbarButton& design);
  QToolButton* MakeButton(const ToolbarButton& design);
  QMenu* MakeMenu(const ToolbarButton& design, QWidget* owner);
  void Show() override;
  void Place(QWidget& part, const ToolbarButton& button) const;
  void Command(std::string_view key, void (Toolbar::*click)(std::string_view));

  std::vector<QToolButton*> ReachableButtons() const;
  bool Enter();
  bool PressKey(QToolButton* button, int key);
  bool MoveFrom(QToolButton* button, int key);

  Toolbar& toolbar_;
  QWidget* bar_;
  std::vector<QWidget*> parts_;  // one for each button
};

ToolbarPeer::ToolbarPeer(FormWindow& window, Toolbar& toolbar, QWidget* bar)
    : WidgetPeer(window, toolbar, bar), toolbar_(toolbar), bar_(bar) {
  for (const ToolbarButton& design : toolbar.Buttons()) parts_.push_back(MakePart(design));
  // Keys that nobody in the window has a use for come by there.
  window.Window()->installEventFilter(this);
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
  Window().ReturnFocus();
  Report([&toolbar = toolbar_, key, click] { (toolbar.*click)(key); });
}

std::vector<QToolButton*> ToolbarPeer::ReachableButtons() const {
  std::vector<QToolButton*> reachable;
  for (QWidget* part : parts_) {
    auto* button = qobject_cast<QToolButton*>(part);
    if (button != nullptr && button->isEnabled() && button->isVisible())
      reachable.push_back(button);
  }
  return reachable;
}

bool ToolbarPeer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool isPlain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (auto* button = qobject_cast<QToolButton*>(watched)) return PressKey(button, key.key());
    const bool enters = key.key() == Qt::Key_F10 || key.key() == Qt::Key_F6;
    if (watched == Window().Window() && isPlain && enters) return Enter();
  }
  return watched == bar_ && WidgetPeer::eventFilter(watched, event);
}

bool ToolbarPeer::Enter() {
  const std::vector<QToolButton*> reachable = ReachableButtons();
  if (reachable.empty()) return false;
  reachable.front()->setFocus(Qt::TabFocusReason);
  return true;
}

bool ToolbarPeer::PressKey(QToolButton* button, int key) {
  switch (key) {
    case Qt::Key_Escape:
      Window().ReturnFocus();
      Report([this] { Window().GetForm().PressKey(kKeyEscape); });
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_F6:
    case Qt::Key_F10:
      Window().ReturnFocus();
      return true;
    case Qt::Key_Enter:
    case Qt::Key_Return:
      button->click();
      return true;
    case Qt::Key_Down:
      if (button->menu() != nullptr) button->showMenu();
      return true;
    case Qt::Key_Up:
      return true;
    default:
      return MoveFrom(button, key);
  }
}

bool ToolbarPeer::MoveFrom(QToolButton* button, int key) {
  const std::vector<QToolButton*> reachable = ReachableButtons();
  const auto here = std::ranges::find(reachable, button);
  if (here == reachable.end()) return false;
  auto target = here;
  if (key == Qt::Key_Home) {
    target = reachable.begin();
  } else if (key == Qt::Key_End) {
    target = reachable.end() - 1;
  } else if (key == Qt::Key_Left) {
    target = (here == reachable.begin() ? reachable.end() : here) - 1;
  } else if (key == Qt::Key_Right) {
    target = here + 1 == reachable.end() ? reachable.begin() : here + 1;
  } else {
    return false;
  }
  (*target)->setFocus(Qt::TabFocusReason);
  return true;
}

}  // namespace

std::unique_ptr<ControlPeer> MakeToolbarPeer(FormWindow& window, Toolbar& toolbar) {
  return std::make_unique<ToolbarPeer>(window, toolbar);
}

}  // namespace pagivo::qt
