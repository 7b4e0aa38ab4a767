#include "window/qt/spin_arrows.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <QWheelEvent>
#include <algorithm>

#include "window/qt/focus_mark.h"

namespace pagivo::qt {

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

}  // namespace pagivo::qt
