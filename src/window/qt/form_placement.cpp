// Where a form's window stands and how large it is.
#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <map>

#include "window/qt/form_window.h"
#include "window/qt/qt_conversions.h"

namespace pagivo::qt {

namespace {

std::map<bool, QMargins>& SeenFrames() {
  static std::map<bool, QMargins> frames;
  return frames;
}

QMargins GuessFrame() {
  const QString platform = QGuiApplication::platformName();
  // What Qt frames windows with that are drawn into memory.
  if (platform == QLatin1String("offscreen")) return {2, 2, 2, 2};
  if (platform != QLatin1String("xcb") && !platform.startsWith(QLatin1String("wayland"))) return {};
  return {1, QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight), 1, 1};
}

Extent ToExtent(const QMargins& margins) {
  return {.width = ToTwips(margins.left() + margins.right()),
          .height = ToTwips(margins.top() + margins.bottom())};
}

QSize ClientSizeOf(const Form& form) {
  return QSize(ToPixels(form.ClientWidth()), ToPixels(form.ClientHeight())).expandedTo(QSize(1, 1));
}

// A length that was put keeps its fraction of a pixel as long as the window shows it.
float Present(float put, int pixels) {
  return ToPixels(put) == pixels ? put : ToTwips(pixels);
}

}  // namespace

QMargins FormWindow::ExpectedFrame(bool sizable) {
  const auto frame = SeenFrames().find(sizable);
  return frame == SeenFrames().end() ? GuessFrame() : frame->second;
}

Extent FormWindow::FrameExtent() const {
  return ToExtent(frame_);
}

void FormWindow::Place() {
  Resize();
  const bool overWindow = before_ && before_->isVisible();
  const QScreen* screen = overWindow ? before_->screen() : QGuiApplication::primaryScreen();
  const QRect available = screen == nullptr ? QRect() : screen->availableGeometry();
  const QRect below = overWindow ? before_->frameGeometry() : available;
  const Placement place = form_.PlacementOver(ToTwips(below), ToTwips(available));
  window_->move(ToPixels(place.left), ToPixels(place.top));
}

void FormWindow::Resize() {
  const QSize size = ClientSizeOf(form_);
  if (!form_.Design().sizable) {
    window_->setFixedSize(size);
  } else if (window_->size() != size) {
    window_->resize(size);
  }
}

// The form was placed anew while it is shown.
void FormWindow::ShowPlacement() {
  const WindowState state = form_.GetWindowState();
  if (state != PresentState()) {
    window_->setWindowState(state == WindowState::Maximised   ? Qt::WindowMaximized
                            : state == WindowState::Minimised ? Qt::WindowMinimized
                                                              : Qt::WindowNoState);
    if (state != WindowState::Minimised) window_->activateWindow();
  }
  if (state != WindowState::Normal) return;
  Resize();
  const QPoint place(ToPixels(form_.Left()), ToPixels(form_.Top()));
  const QRect outer = window_->geometry().marginsAdded(frame_);
  if (outer.topLeft() != place) window_->move(place);
}

void FormWindow::ReportPlacement() {
  // On its way to the screen a window is here and there.
  if (!exposed_) return;
  SettleFrame();
  Report([this] { form_.TakePlacement(PresentPlacement(), ToExtent(frame_), PresentState()); });
}

// The frame may differ from what was expected: a window that the user can size keeps the size that
// was asked with its frame, a dialog that of its client area.
void FormWindow::SettleFrame() {
  const QWindow* handle = window_->windowHandle();
  if (handle->frameMargins() == frame_) return;
  frame_ = handle->frameMargins();
  SeenFrames()[form_.Design().sizable] = frame_;
  if (!form_.Design().sizable || PresentState() != WindowState::Normal) return;
  const QSize asked(ToPixels(form_.Width()), ToPixels(form_.Height()));
  window_->resize(asked.shrunkBy(frame_).expandedTo(QSize(1, 1)));
}

Placement FormWindow::PresentPlacement() const {
  const QRect outer = window_->geometry().marginsAdded(frame_);
  return {.left = Present(form_.Left(), outer.left()),
          .top = Present(form_.Top(), outer.top()),
          .width = Present(form_.Width(), outer.width()),
          .height = Present(form_.Height(), outer.height())};
}

WindowState FormWindow::PresentState() const {
  if (window_->isMinimized()) return WindowState::Minimised;
  return window_->isMaximized() ? WindowState::Maximised : WindowState::Normal;
}

}  // namespace pagivo::qt
