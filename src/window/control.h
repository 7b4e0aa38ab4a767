// The controls of a form: their state, their events, and how the keyboard goes from one to the
// next.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "pagivo/export.h"
#include "pagivo/object.h"
#include "window/control_design.h"
#include "window/window_system.h"

namespace pagivo {

class ControlSet;
class Toolbar;

// Frames, labels, picture boxes, buttons and surfaces are plain controls; the other kinds have
// classes of their own. A change of state is shown by the peer at once. Handlers may unload the
// form: a control lives until its own handler has returned.
class PAGIVO_EXPORT Control : public std::enable_shared_from_this<Control> {
 public:
  using Handler = std::function<void()>;

  // `design` and `controls`, to which it belongs, outlive its use.
  Control(ControlSet& controls, const ControlDesign& design);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const ControlDesign& Design() const noexcept { return design_; }
  std::string_view Name() const noexcept { return design_.name; }
  ControlKind Kind() const noexcept { return design_.kind; }
  // The control that it lies in; null when it lies on the form itself.
  Control* Container() const noexcept { return container_; }

  const std::string& Caption() const noexcept { return caption_; }
  void PutCaption(std::string caption);
  // The letter or digit behind the caption's first single &, in lower case; 0 when there is none.
  char AccessKey() const noexcept;
  // The caption as it is read: without the & of its access key.
  std::string PlainCaption() const;

  // Twips, relative to the container.
  float Left() const noexcept { return placement_.left; }
  float Top() const noexcept { return placement_.top; }
  float Width() const noexcept { return placement_.width; }
  float Height() const noexcept { return placement_.height; }
  void PutLeft(float left);
  void PutTop(float top);
  void PutWidth(float width);
  void PutHeight(float height);

  bool Enabled() const noexcept { return enabled_; }
  void PutEnabled(bool enabled);
  bool Visible() const noexcept { return visible_; }
  void PutVisible(bool visible);
  // Enabled and visible, and all its containers too.
  bool IsReachable() const noexcept;
  // Reachable, and of a kind that takes the focus.
  bool CanTakeFocus() const noexcept;
  bool HasFocus() const noexcept;

  const std::string& FontName() const noexcept { return fontName_; }
  void PutFontName(std::string name);
  float FontSize() const noexcept { return fontSize_; }  // points
  void PutFontSize(float points);

  void WhenClicked(Handler handler) { clicked_ = std::move(handler); }
  void WhenChanged(Handler handler) { changed_ = std::move(handler); }
  void WhenFocused(Handler handler) { focused_ = std::move(handler); }

  // What a click of the user does: raises click, unless a kind has more to it.
  virtual void Click();
  // A key that the form has no use for itself. Returns whether the control had a use for it; a peer
  // whose own widget edits text leaves the other keys to that.
  virtual bool PressKey(std::int16_t keyCode, std::int16_t shift);
  // Gives it the focus, and raises focus gained when it did not have it. A toolbar that had the
  // keyboard gives it back. Raises Error when the control cannot take the focus.
  void Focus();

  void Attach(std::unique_ptr<ControlPeer> peer) { peer_ = std::move(peer); }
  // Draws it anew.
  void Refresh();

 protected:
  ControlSet& Siblings() const noexcept { return controls_; }
  ControlPeer* Peer() const noexcept { return peer_.get(); }
  // Runs a handler. The last thing that an operation does: the form may be gone afterwards.
  void RaiseClick();
  void RaiseChange();

 private:
  friend class ControlSet;

  template <typename Value>
  void Put(Value& property, Value value);
  void Raise(const Handler& handler);

  ControlSet& controls_;
  const ControlDesign& design_;
  Control* container_;
  std::string caption_;
  Placement placement_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string fontName_;
  float fontSize_;
  Handler clicked_;
  Handler changed_;
  Handler focused_;
  std::unique_ptr<ControlPeer> peer_;
};

// The controls of one loaded form.
class PAGIVO_EXPORT ControlSet {
 public:
  // Makes the controls in the order of their table.
  explicit ControlSet(std::span<const ControlDesign> designs);
  ControlSet(const ControlSet&) = delete;
  ControlSet& operator=(const ControlSet&) = delete;

  std::span<const std::shared_ptr<Control>> All() const noexcept { return controls_; }
  // Raises Error when no control has this name (exactly).
  Control& Find(std::string_view name) const;
  // The button that has this role; null when there is none.
  Control* ButtonWith(ButtonRole role) const;

  // The control with the focus; null as long as none had it.
  Control* Focused() const noexcept { return focused_; }
  // The toolbar that has taken the keyboard from the control with the focus; null when none has.
  Toolbar* ToolbarWithKeyboard() const noexcept { return toolbarWithKeyboard_; }
  // The next control in the tab order that takes the focus, from `from` (null: from the start)
  // onwards or backwards and round the end. Of a group of options with one set only that one
  // counts. Null when no control takes the focus.
  Control* NextInTabOrder(const Control* from, bool backwards = false) const;

  // The label that says what a control is for, when the control shows something else: text and
  // combo boxes belong to the label before them in the tab order. Null when there is none.
  const Control* LabelOf(const Control& control) const;
  // What a screen reader calls a control: the name in its design, its caption, or its label's
  // caption without the colon.
  std::string AccessibleNameOf(const Control& control) const;

 private:
  friend class Control;
  friend class Toolbar;

  std::vector<Control*> TabOrder() const;

  std::vector<std::shared_ptr<Control>> controls_;
  Control* focused_ = nullptr;
  Toolbar* toolbarWithKeyboard_ = nullptr;
};

// A picture that a form holds without showing it.
class PictureBox {
 public:
  // Null when there is none.
  const ObjectRef& Picture() const noexcept { return picture_; }
  void PutPicture(ObjectRef picture) { picture_ = std::move(picture); }

 private:
  ObjectRef picture_;
};

}  // namespace pagivo
