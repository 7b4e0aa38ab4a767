// A form as a window of Qt.
#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMargins>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <exception>
#include <map>
#include <memory>

#include "window/form.h"
#include "window/qt/activation_watch.h"

namespace pagivo::qt {

// The window filters the events of its own widget and of the widgets that take the focus in it. An
// error of a handler never travels through Qt: it ends the showing, which passes it on.
class FormWindow final : public QObject,
                         public FormPeer,
                         public std::enable_shared_from_this<FormWindow> {
 public:
  explicit FormWindow(Form& form);
  ~FormWindow() override;

  // An estimate until a window of this kind has been seen on the screen.
  Extent FrameExtent() const override;
  void Update() override;
  void ShowModal() override;
  void Open() override;
  void Await() override;
  void HandleEvents() override;
  void Hide() override;

  // Null once the application object is gone, without which no widget can be used.
  QWidget* Window() const noexcept { return application_ ? window_.data() : nullptr; }
  Form& GetForm() const noexcept { return form_; }

  // Where the widget of a control belongs.
  QWidget* ParentFor(const Control& control) const;
  // The control has a widget now, whose keys go to the form first.
  void Add(const Control& control, QWidget& widget);
  QWidget* WidgetOf(const Control& control) const;
  // Gives the keyboard to the form's control with the focus.
  void ReturnFocus();

  // Runs what the user has done. Nothing when the form is no longer shown: its controls may be
  // gone.
  template <typename Doing>
  void Report(const Doing& doing) {
    if (!showing_) return;
    const auto self = shared_from_this();
    try {
      doing();
    } catch (...) {
      Fail(std::current_exception());
    }
  }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool FilterWindow(QEvent& event);
  void FilterNative(const QEvent& event);
  bool FilterKeys(const QObject* watched, QEvent& event);
  bool PressKey(const QKeyEvent& event);
  void MoveFocus(bool forwards);
  void Fail(std::exception_ptr failure);

  void Appear();
  void ComeBackOverOthers();
  void CloseAsTheUserDoes();
  void PassOnFailure();

  // --- Placement (form_placement.cpp) ---------------------------------------------------------
  // What title bar and borders add, logical pixels: those of the last such window that was seen,
  // else a guess.
  static QMargins ExpectedFrame(bool sizable);
  void Place();
  void Resize();
  void ShowPlacement();
  void ReportPlacement();
  void SettleFrame();
  Placement PresentPlacement() const;
  WindowState PresentState() const;

  Form& form_;
  QPointer<QCoreApplication> application_ = QCoreApplication::instance();
  QPointer<QWidget> window_;
  QPointer<QWidget> before_;                     // the window that the showing lies over
  std::unique_ptr<ActivationWatch> activation_;  // during the showing
  std::map<const Control*, QPointer<QWidget>> widgets_;
  QMargins frame_;
  bool showing_ = false;
  bool exposed_ = false;        // since the showing began
  QEventLoop* loop_ = nullptr;  // of the showing under way
  std::exception_ptr failure_;  // what ends it
};

}  // namespace pagivo::qt
