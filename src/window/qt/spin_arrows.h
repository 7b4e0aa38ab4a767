// Two arrows, one above the other: a scroll bar too short for a slider.
#pragma once

#include <QAbstractSlider>
#include <QStyle>

namespace pagivo::qt {

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

}  // namespace pagivo::qt
