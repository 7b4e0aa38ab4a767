// Two arrows, one above the other: a scroll bar too short for a slider.
#pragma once

#include <QAbstractSlider>
#include <QStyle>

namespace pagivo::qt {

// The upper arrow and turning the wheel away from the user step towards the minimum. Holding an
// arrow down repeats its step.
class SpinArrows final : public QAbstractSlider {
 public:
  explicit SpinArrows(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  enum class Arrow { None, Up, Down };

  QRect RectOf(Arrow arrow) const;
  void Draw(QPainter& painter, Arrow arrow) const;

  Arrow pressed_ = Arrow::None;
};

}  // namespace pagivo::qt
