#include <QAbstractScrollArea>
#include <QContextMenuEvent>
#include <QImage>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <cmath>

#include "window/qt/control_peers.h"
#include "window/qt/keys.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

constexpr double kAnglePerNotch = QWheelEvent::DefaultDeltasPerStep;

Qt::CursorShape ShapeOf(SurfaceCursor cursor) {
  switch (cursor) {
    case SurfaceCursor::Pointing:
      return Qt::PointingHandCursor;
    case SurfaceCursor::OpenHand:
      return Qt::OpenHandCursor;
    case SurfaceCursor::ClosedHand:
      return Qt::ClosedHandCursor;
    default:
      return Qt::ArrowCursor;
  }
}

// A scroll area whose frame is left to its surroundings.
class SurfaceWidget final : public QAbstractScrollArea {
 public:
  explicit SurfaceWidget(QWidget* parent) : QAbstractScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setMouseTracking(true);
    // Every pixel is drawn.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  }
};

void ShowRange(QScrollBar& bar, const ScrollRange& range) {
  bar.setRange(0, range.maximum);
  bar.setPageStep(range.visible);
  bar.setSingleStep(range.step);
  bar.setValue(range.value);
}

// Keeps the drawn bitmap, so that an uncovered window is shown without drawing anew.
class SurfacePeer final : public WidgetPeer {
 public:
  SurfacePeer(FormWindow& window, Surface& surface)
      : SurfacePeer(window, surface, new SurfaceWidget(window.ParentFor(surface))) {}

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  SurfacePeer(FormWindow& window, Surface& surface, SurfaceWidget* area);

  void Show() override;
  SurfaceArea PresentArea() const;
  SurfaceBars PresentBars() const;
  SurfaceArea AreaBeside(const SurfaceBars& bars);
  SurfaceColors Colors() const;

  bool FilterViewport(QEvent& event);
  void Paint();
  bool Draw();
  void ReportScroll();
  void TurnWheel(const QWheelEvent& event);
  void ReportPointer(const QMouseEvent& event, void (SurfaceContent::*report)(SurfacePoint));
  void ShowMenu(const QPoint& place);

  QWidget& Viewport() const { return *area_->viewport(); }
  SurfacePoint PointOf(const QPointF& place) const;

  Surface& surface_;
  SurfaceWidget* area_;
  SurfaceArea taken_;  // by the content
  QImage bitmap_;
  bool isDrawn_ = false;
  bool isPlacing_ = false;
};

SurfacePeer::SurfacePeer(FormWindow& window, Surface& surface, SurfaceWidget* area)
    : WidgetPeer(window, surface, area), surface_(surface), area_(area) {
  Viewport().installEventFilter(this);
  for (QScrollBar* bar : {area->horizontalScrollBar(), area->verticalScrollBar()}) {
    connect(bar, &QScrollBar::valueChanged, this, [this] { ReportScroll(); });
  }
}

// Placement, content or what it shows has changed.
void SurfacePeer::Show() {
  isDrawn_ = false;
  Viewport().update();
  const auto content = surface_.Content();
  if (!content) return;
  isPlacing_ = true;
  surface_.FitBars(PresentBars(), [this](const SurfaceBars& bars) { return AreaBeside(bars); });
  isPlacing_ = false;
  ShowRange(*area_->horizontalScrollBar(), content->HorizontalRange());
  ShowRange(*area_->verticalScrollBar(), content->VerticalRange());
}

SurfaceArea SurfacePeer::PresentArea() const {
  const double scale = Viewport().devicePixelRatioF();
  return {.width = static_cast<std::int32_t>(std::lround(Viewport().width() * scale)),
          .height = static_cast<std::int32_t>(std::lround(Viewport().height() * scale)),
          .scale = scale};
}

SurfaceBars SurfacePeer::PresentBars() const {
  return {.horizontal = area_->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOn,
          .vertical = area_->verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOn};
}

SurfaceArea SurfacePeer::AreaBeside(const SurfaceBars& bars) {
  const auto policy = [](bool isThere) {
    return isThere ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
  };
  area_->setHorizontalScrollBarPolicy(policy(bars.horizontal));
  area_->setVerticalScrollBarPolicy(policy(bars.vertical));
  taken_ = PresentArea();
  return taken_;
}

// The colours of the desktop's active windows.
SurfaceColors SurfacePeer::Colors() const {
  const auto color = [this](QPalette::ColorRole role) {
    return Viewport().palette().color(QPalette::Active, role).rgb();
  };
  return SurfaceColorsFor(color(QPalette::Window), color(QPalette::WindowText),
                          color(QPalette::Highlight));
}

bool SurfacePeer::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &Viewport()) return FilterViewport(*event);
  if (event->type() == QEvent::KeyPress) {
    // The content had no use for it; nor have the scroll bars, which follow the content.
    event->ignore();
    return true;
  }
  if (event->type() == QEvent::ContextMenu) {
    const auto& menu = static_cast<const QContextMenuEvent&>(*event);
    if (menu.reason() != QContextMenuEvent::Keyboard) return false;
    ShowMenu(Viewport().mapToGlobal(Viewport().rect().center()));
    return true;
  }
  return WidgetPeer::eventFilter(watched, event);
}

bool SurfacePeer::FilterViewport(QEvent& event) {
  switch (event.type()) {
    case QEvent::Resize:
      if (!isPlacing_) Update();
      return false;
    case QEvent::PaletteChange:
      isDrawn_ = false;
      return false;
    case QEvent::Paint:
      Paint();
      return true;
    case QEvent::Wheel:
      TurnWheel(static_cast<const QWheelEvent&>(event));
      return true;
    case QEvent::MouseButtonPress:
      // The click also gives the surface the focus, which Qt does after this.
      ReportPointer(static_cast<const QMouseEvent&>(event), &SurfaceContent::PressPointer);
      return true;
    case QEvent::MouseMove:
      ReportPointer(static_cast<const QMouseEvent&>(event), &SurfaceContent::MovePointer);
      return true;
    case QEvent::MouseButtonRelease:
      ReportPointer(static_cast<const QMouseEvent&>(event), &SurfaceContent::ReleasePointer);
      return true;
    case QEvent::ContextMenu:
      ShowMenu(static_cast<const QContextMenuEvent&>(event).globalPos());
      return true;
    default:
      return false;
  }
}

void SurfacePeer::Paint() {
  // The window may have come to a screen of another density.
  if (surface_.Content() && PresentArea() != taken_) Update();
  if (!isDrawn_ && !Draw()) return;
  QPainter painter(&Viewport());
  painter.drawImage(QPoint(0, 0), bitmap_);
  if (!area_->hasFocus() || !MarksFocus(*Viewport().window())) return;
  painter.setPen(Viewport().palette().color(QPalette::Highlight));
  painter.drawRect(Viewport().rect().adjusted(0, 0, -1, -1));
}

// Tells whether there is still something to be shown.
bool SurfacePeer::Draw() {
  const SurfaceArea area = PresentArea();
  const SurfaceColors colors = Colors();
  if (bitmap_.size() != QSize(area.width, area.height)) {
    bitmap_ = QImage(area.width, area.height, QImage::Format_RGB32);
  }
  bitmap_.setDevicePixelRatio(area.scale);
  const auto content = surface_.Content();
  if (!content) {
    bitmap_.fill(colors.ground);
    return true;
  }
  const auto pixels = static_cast<std::size_t>(area.width) * static_cast<std::size_t>(area.height);
  isDrawn_ = true;
  return Report([&] {
    content->Draw({.width = area.width,
                   .height = area.height,
                   .pixels = {reinterpret_cast<std::uint32_t*>(bitmap_.bits()), pixels}},
                  colors);
  });
}

void SurfacePeer::ReportScroll() {
  Report([this] {
    if (const auto content = surface_.Content()) {
      content->ScrollTo(area_->horizontalScrollBar()->value(), area_->verticalScrollBar()->value());
    }
  });
}

void SurfacePeer::TurnWheel(const QWheelEvent& event) {
  Report([&] {
    if (const auto content = surface_.Content()) {
      content->TurnWheel(PointOf(event.position()), event.angleDelta().x() / kAnglePerNotch,
                         event.angleDelta().y() / kAnglePerNotch, ShiftStateOf(event.modifiers()));
    }
  });
}

void SurfacePeer::ReportPointer(const QMouseEvent& event,
                                void (SurfaceContent::*report)(SurfacePoint)) {
  const bool isMove = event.type() == QEvent::MouseMove;
  if (!isMove && event.button() != Qt::LeftButton) return;
  const auto content = surface_.Content();
  if (!content) return;
  const SurfacePoint at = PointOf(event.position());
  if (!Report([&] { (content.get()->*report)(at); })) return;
  Report([&] { Viewport().setCursor(ShapeOf(content->CursorAt(at))); });
}

// The content's own menu. What is chosen goes to the content that offered it.
void SurfacePeer::ShowMenu(const QPoint& place) {
  const auto content = surface_.Content();
  if (!content || content->Menu().empty()) return;
  auto* menu = new QMenu(area_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const MenuItem& item : content->Menu()) {
    QAction* action = item.text == "-" ? menu->addSeparator() : menu->addAction(ToQt(item.text));
    action->setVisible(item.visible);
    connect(action, &QAction::triggered, this,
            [this, content, key = item.key] { Report([&] { content->ClickMenu(key); }); });
  }
  menu->popup(place);
}

SurfacePoint SurfacePeer::PointOf(const QPointF& place) const {
  return {.x = place.x() * taken_.scale, .y = place.y() * taken_.scale};
}

}  // namespace

std::unique_ptr<ControlPeer> MakeSurfacePeer(FormWindow& window, Surface& surface) {
  return std::make_unique<SurfacePeer>(window, surface);
}

}  // namespace pagivo::qt
