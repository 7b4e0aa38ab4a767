#include <QAbstractSlider>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>
#include <QWheelEvent>
#include <algorithm>

#include "window/qt/control_peers.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

// Two arrows, one above the other: a scroll bar too short for a slider.
// The upper arrow, and a notch of the wheel away from the user, steps towards the minimum. Holding
// an arrow down repeats its step.
class SpinArrows final : public QAbstractSlider {
 public:
  explicit SpinArrows(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  enum class Arrow { None, Up, Down };

  QRect RectOf(Arrow arrow) const;
  void Draw(QPainter& painter, Arrow arrow) const;

  Arrow pressed_ = Arrow::None;
  int turned_ = 0;  // eighths of a degree that the wheel has turned since the last step
};

SpinArrows::SpinArrows(QWidget* parent) : QAbstractSlider(parent) {
  setFocusPolicy(Qt::WheelFocus);
}

QRect SpinArrows::RectOf(Arrow arrow) const {
  const int middle = height() / 2;
  return arrow == Arrow::Up ? QRect(0, 0, width(), middle)
                            : QRect(0, middle, width(), height() - middle);
}

void SpinArrows::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  Draw(painter, Arrow::Up);
  Draw(painter, Arrow::Down);
  painter.end();
  DrawFocusMark(*this);
}

void SpinArrows::Draw(QPainter& painter, Arrow arrow) const {
  const bool isUp = arrow == Arrow::Up;
  QStyleOption option;
  option.initFrom(this);
  option.rect = RectOf(arrow);
  option.state |= pressed_ == arrow ? QStyle::State_Sunken : QStyle::State_Raised;
  if (value() == (isUp ? minimum() : maximum())) option.state &= ~QStyle::State_Enabled;
  style()->drawPrimitive(QStyle::PE_PanelButtonBevel, &option, &painter, this);
  const int side = std::min(option.rect.width(), option.rect.height()) - 2;
  option.rect =
      QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, QSize(side, side), option.rect);
  style()->drawPrimitive(isUp ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowDown,
                         &option, &painter, this);
}

void SpinArrows::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = RectOf(Arrow::Up).contains(event->pos()) ? Arrow::Up : Arrow::Down;
  const SliderAction step = pressed_ == Arrow::Up ? SliderSingleStepSub : SliderSingleStepAdd;
  setRepeatAction(step);
  update();
  triggerAction(step);
}

void SpinArrows::mouseReleaseEvent(QMouseEvent*) {
  setRepeatAction(SliderNoAction);
  pressed_ = Arrow::None;
  update();
}

void SpinArrows::wheelEvent(QWheelEvent* event) {
  turned_ += event->angleDelta().y();
  const int notches = turned_ / QWheelEvent::DefaultDeltasPerStep;
  turned_ -= notches * QWheelEvent::DefaultDeltasPerStep;
  setValue(value() - notches * singleStep());
}

// Pixels: a bar of less has arrows, but nothing to drag between them.
constexpr int kShortestBar = 48;

QAbstractSlider* MakeSlider(FormWindow& window, const ScrollBar& bar) {
  QWidget* parent = window.ParentFor(bar);
  if (ToPixels(bar.Height()) < kShortestBar) return new SpinArrows(parent);
  auto* slider = new QScrollBar(Qt::Vertical, parent);
  slider->setFocusPolicy(Qt::StrongFocus);
  return slider;
}

class ScrollBarPeer final : public WidgetPeer {
 public:
  ScrollBarPeer(FormWindow& window, ScrollBar& bar)
      : ScrollBarPeer(window, bar, MakeSlider(window, bar)) {}

 private:
  ScrollBarPeer(FormWindow& window, ScrollBar& bar, QAbstractSlider* slider)
      : WidgetPeer(window, bar, slider), bar_(bar), slider_(slider) {
    slider->setRange(bar.Minimum(), bar.Maximum());
    connect(slider, &QAbstractSlider::valueChanged, this, [this](int value) {
      Report([&] { bar_.PutValue(static_cast<std::int16_t>(value)); });
    });
  }

  void Show() override {
    slider_->setValue(bar_.Value());
    slider_->update();
  }

  ScrollBar& bar_;
  QAbstractSlider* slider_;
};

}  // namespace

std::unique_ptr<ControlPeer> MakeScrollBarPeer(FormWindow& window, ScrollBar& bar) {
  return std::make_unique<ScrollBarPeer>(window, bar);
}

}  // namespace pagivo::qt
