#include "window/qt/form_window.h"

#include <QApplication>
#include <QLabel>
#include <QWindow>
#include <algorithm>
#include <functional>
#include <utility>

#include "pagivo/error.h"
#include "window/qt/keys.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

// None can be minimised: it would keep the host's window from use and be out of sight.
Qt::WindowFlags FlagsFor(const FormDesign& design) {
  if (design.sizable) {
    return Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
           Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint;
  }
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
         Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint;
}

// What our window is shown over: the active window or, while the user is in another program, one
// that is visible. Qt may call a window active that has just been hidden, our own or one that lay
// over it; Qt would go round for ever among windows that lie over each other.
QWidget* WindowBelow() {
  for (QWidget* window : {QApplication::activeWindow(), QApplication::activeModalWidget()}) {
    if (window != nullptr && window->isVisible()) return window;
  }
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto visible = std::ranges::find_if(windows, [](const QWidget* window) {
    return window->isVisible() && window->windowType() == Qt::Window;
  });
  return visible == windows.end() ? nullptr : *visible;
}

// Qt takes "[*]" in a title for the mark of unsaved changes unless it stands there twice.
QString TitleOf(const Form& form) {
  return ToQt(form.Caption()).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

// Qt would begin with marking the focus when it moves the focus itself; here the form does.
void MarkFocus(QWidget& window) {
  if (MarksFocus(window)) return;
  window.setAttribute(Qt::WA_KeyboardFocusChange);
  if (QWidget* focused = window.focusWidget()) focused->update();
}

// The name of a control is told to whoever cannot see it. A label's & is drawn, and makes its
// access key work, only when the label belongs to a widget.
void NameControls(const FormWindow& window) {
  const ControlSet& controls = window.GetForm().Controls();
  for (const auto& control : controls.All()) {
    QWidget* widget = window.WidgetOf(*control);
    if (widget == nullptr) continue;
    widget->setAccessibleName(ToQt(controls.AccessibleNameOf(*control)));
    const Control* label = controls.LabelOf(*control);
    auto* shown = label == nullptr ? nullptr : qobject_cast<QLabel*>(window.WidgetOf(*label));
    if (shown != nullptr) shown->setBuddy(widget);
  }
}

// The widget of a form's window.
class FormWidget final : public QWidget {
 public:
  // `moveFocus` is asked when Qt wants the focus to go on by itself, because the control that had
  // it was disabled or hidden; its argument tells the direction.
  FormWidget(Qt::WindowFlags flags, std::function<void(bool forwards)> moveFocus)
      : QWidget(nullptr, flags), moveFocus_(std::move(moveFocus)) {}

 protected:
  bool focusNextPrevChild(bool next) override {
    const QWidget* before = focusWidget();
    moveFocus_(next);
    return focusWidget() != before;
  }

 private:
  std::function<void(bool forwards)> moveFocus_;
};

}  // namespace

FormWindow::FormWindow(Form& form)
    : form_(form),
      window_(new FormWidget(FlagsFor(form.Design()),
                             [self = QPointer(this)](bool forwards) {
                               if (self) self->MoveFocus(forwards);
                             })),
      frame_(ExpectedFrame(form.Design().sizable)) {
  window_->setAttribute(Qt::WA_QuitOnClose, false);
  window_->setWindowModality(Qt::ApplicationModal);
  window_->installEventFilter(this);
}

FormWindow::~FormWindow() {
  if (Window() == nullptr) return;
  // Not now: one of its events may be on the way.
  window_->hide();
  window_->deleteLater();
}

void FormWindow::Update() {
  if (Window() == nullptr) return;
  window_->setWindowTitle(TitleOf(form_));
  if (showing_) ShowPlacement();
}

void FormWindow::ShowModal() {
  Appear();
  Await();
}

void FormWindow::Await() {
  QEventLoop loop;
  loop_ = &loop;
  // Appearing may already have ended the showing.
  if (showing_) loop.exec(QEventLoop::DialogExec);
  loop_ = nullptr;
  if (showing_) CloseAsTheUserDoes();
  PassOnFailure();
}

void FormWindow::Open() {
  Appear();
  PassOnFailure();
}

void FormWindow::HandleEvents() {
  QCoreApplication::processEvents();
  PassOnFailure();
}

void FormWindow::PassOnFailure() {
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void FormWindow::Appear() {
  if (Window() == nullptr) {
    throw Error(ErrorNumber::InvalidArgument,
                "De vensters van het hoofdprogramma zijn al gesloten");
  }
  failure_ = nullptr;
  before_ = WindowBelow();
  // Placed before it gets its native window, without which Qt knows that the place is the frame's.
  Place();
  window_->winId();
  QWindow* handle = window_->windowHandle();
  handle->installEventFilter(this);
  handle->setTransientParent(before_ ? before_->windowHandle() : nullptr);
  NameControls(*this);
  showing_ = true;
  const QWidget* active = QApplication::activeWindow();
  activation_ = std::make_unique<ActivationWatch>(active == nullptr ? 0 : active->winId(),
                                                  [this] { ComeBackOverOthers(); });
  switch (form_.GetWindowState()) {
    case WindowState::Maximised:
      window_->showMaximized();
      break;
    case WindowState::Minimised:
      window_->showMinimized();
      break;
    default:
      window_->showNormal();
  }
  // Qt forgets this when a window is shown.
  window_->setAttribute(Qt::WA_KeyboardFocusChange, before_ && MarksFocus(*before_));
  window_->raise();
  window_->activateWindow();
  ReturnFocus();
}

// The keyboard and the change of state come in any order when the user minimises the window.
void FormWindow::ComeBackOverOthers() {
  const WId active = activation_ ? activation_->Active() : 0;
  if (active != 0 && active != window_->winId()) Report([this] { form_.ComeBack(); });
}

void FormWindow::CloseAsTheUserDoes() {
  // The application quits: it has ended every loop.
  Report([this] { form_.Unload(UnloadMode::ControlMenu); });
  form_.Hide();
}

void FormWindow::Hide() {
  showing_ = false;
  exposed_ = false;
  activation_.reset();
  if (loop_ != nullptr) loop_->quit();
  if (Window() == nullptr) return;
  window_->hide();
  if (before_ && before_->isVisible()) before_->activateWindow();
}

void FormWindow::Fail(std::exception_ptr failure) {
  if (!failure_) failure_ = std::move(failure);
  form_.Hide();
}

QWidget* FormWindow::ParentFor(const Control& control) const {
  return control.Container() == nullptr ? window_.data() : WidgetOf(*control.Container());
}

void FormWindow::Add(const Control& control, QWidget& widget) {
  widgets_[&control] = &widget;
  widget.installEventFilter(this);
}

QWidget* FormWindow::WidgetOf(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second.data();
}

void FormWindow::ReturnFocus() {
  if (!form_.IsLoaded()) return;
  const Control* focused = form_.Controls().Focused();
  if (focused == nullptr) return;
  if (QWidget* widget = WidgetOf(*focused)) widget->setFocus();
}

void FormWindow::MoveFocus(bool forwards) {
  Report([&] { form_.MoveFocus(!forwards); });
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  // Held: the form may give up its window meanwhile.
  const auto self = weak_from_this().lock();
  if (watched->isWindowType()) {
    FilterNative(*event);
    return false;
  }
  if (watched == window_ && FilterWindow(*event)) return true;
  return FilterKeys(watched, *event);
}

bool FormWindow::FilterWindow(QEvent& event) {
  switch (event.type()) {
    case QEvent::Close:
      // The form decides whether its window goes.
      event.ignore();
      Report([this] { form_.Unload(UnloadMode::ControlMenu); });
      return true;
    case QEvent::WindowStateChange:
      ReportPlacement();
      // Not within the change itself.
      QMetaObject::invokeMethod(this, &FormWindow::ComeBackOverOthers, Qt::QueuedConnection);
      return false;
    case QEvent::Move:
    case QEvent::Resize:
      ReportPlacement();
      return false;
    default:
      return false;
  }
}

// The window system asks for the window's contents. Not so when a control merely draws itself anew:
// that would go round in circles with a form that changes its controls when it is painted.
void FormWindow::FilterNative(const QEvent& event) {
  if (event.type() != QEvent::Expose || !window_->windowHandle()->isExposed()) return;
  exposed_ = true;
  ReportPlacement();
  Report([this] { form_.Paint(); });
}

bool FormWindow::FilterKeys(const QObject* watched, QEvent& event) {
  if (event.type() != QEvent::KeyPress && event.type() != QEvent::ShortcutOverride) return false;
  // A key that a widget has no use for comes by again at each of its parents.
  const QWidget* focused = window_->focusWidget();
  if (watched != (focused == nullptr ? window_.data() : focused)) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (event.type() == QEvent::KeyPress) {
    MarkFocus(*window_);
    return PressKey(key);
  }
  // The form knows the access keys; Qt must not take them for its own.
  if (AccessLetterOf(key) == 0) return false;
  event.accept();
  return true;
}

bool FormWindow::PressKey(const QKeyEvent& event) {
  if (const char letter = AccessLetterOf(event); letter != 0) {
    Report([&] { form_.PressAccessKey(letter); });
    return true;
  }
  const std::int16_t code = KeyCodeOf(event.key(), event.modifiers());
  if (code == 0) return false;
  bool used = false;
  Report([&] { used = form_.PressKey(code, ShiftStateOf(event.modifiers())); });
  // Nor does a widget get the key that has closed its window.
  return used || !showing_;
}

}  // namespace pagivo::qt
