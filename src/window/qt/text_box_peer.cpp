#include <QFontMetrics>
#include <QLineEdit>
#include <QMouseEvent>
#include <algorithm>
#include <functional>
#include <utility>

#include "window/qt/control_peers.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

constexpr int kEdges = 8;  // pixels on both sides together, between the text and the outside
// Percent of a font's own width: what can be read well, and what can be made out at all.
constexpr int kWellRead = 65;
constexpr int kNarrowest = 30;

// Tells when it is clicked.
class ClickableLineEdit final : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

  // Null for nobody.
  void WhenClicked(std::function<void()> clicked) { clicked_ = std::move(clicked); }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    QLineEdit::mouseReleaseEvent(event);
    const bool isClick = event->button() == Qt::LeftButton && rect().contains(event->pos());
    if (!isClick || !clicked_) return;
    const std::function<void()> clicked = clicked_;
    clicked();
  }

 private:
  std::function<void()> clicked_;
};

class TextBoxPeer final : public WidgetPeer {
 public:
  TextBoxPeer(FormWindow& window, TextBox& box);
  ~TextBoxPeer() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  TextBoxPeer(FormWindow& window, TextBox& box, ClickableLineEdit* edit);

  void Show() override;
  bool TakeFocusByPress(const QMouseEvent& event);
  void FitText();
  void ShowSelection();
  void ReportEdit(const QString& text);
  void ReportSelection();

  TextBox& box_;
  QPointer<ClickableLineEdit> edit_;
  bool bringsFocus_ = false;  // the press under way
};

TextBoxPeer::TextBoxPeer(FormWindow& window, TextBox& box)
    : TextBoxPeer(window, box, new ClickableLineEdit(window.ParentFor(box))) {}

TextBoxPeer::TextBoxPeer(FormWindow& window, TextBox& box, ClickableLineEdit* edit)
    : WidgetPeer(window, box, edit), box_(box), edit_(edit) {
  if (box.Design().maximumLength > 0) edit->setMaxLength(box.Design().maximumLength);
  edit->setReadOnly(box.Design().readOnly);
  edit->WhenClicked([this] { Report([this] { box_.Click(); }); });
  connect(edit, &QLineEdit::textEdited, this, [this](const QString& text) { ReportEdit(text); });
  connect(edit, &QLineEdit::cursorPositionChanged, this, [this] { ReportSelection(); });
  connect(edit, &QLineEdit::selectionChanged, this, [this] { ReportSelection(); });
}

TextBoxPeer::~TextBoxPeer() {
  if (edit_) edit_->WhenClicked(nullptr);
}

void TextBoxPeer::Show() {
  const QString text = ToQt(box_.Text());
  if (edit_->text() != text) edit_->setText(text);
  FitText();
  ShowSelection();
}

// The press that brings the focus is the box's own matter, as is the selection that comes with it:
// the widget would put the insertion point under the pointer.
bool TextBoxPeer::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::FocusIn:
      // The press follows.
      if (static_cast<const QFocusEvent*>(event)->reason() == Qt::MouseFocusReason) return false;
      break;
    case QEvent::MouseButtonPress:
      return TakeFocusByPress(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseMove:
      // The pointer trembles: nobody drags yet.
      return bringsFocus_;
    case QEvent::MouseButtonRelease:
      bringsFocus_ = false;
      return false;
    default:
      break;
  }
  return WidgetPeer::eventFilter(watched, event);
}

bool TextBoxPeer::TakeFocusByPress(const QMouseEvent& event) {
  bringsFocus_ = !box_.HasFocus();
  if (!bringsFocus_) return false;
  const int place = edit_->cursorPositionAt(event.position().toPoint());
  Report([&] { box_.Press(CharactersBefore(edit_->text(), place)); });
  return true;
}

// A text that is wider than its box, such as the pages shown of a long document, is set narrower so
// that it stands there whole; the tool tip has it in a width that can be read well.
void TextBoxPeer::FitText() {
  QFont font = edit_->font();
  const int width = QFontMetrics(font).horizontalAdvance(edit_->text());
  const int room = edit_->width() - kEdges;
  if (width > room) font.setStretch(std::max(kNarrowest, 100 * room / width));
  edit_->setFont(font);
  edit_->setToolTip(width * kWellRead > 100 * room ? edit_->text() : QString());
}

void TextBoxPeer::ShowSelection() {
  const QString text = edit_->text();
  const int start = UnitsBefore(text, box_.SelectionStart());
  const int end = UnitsBefore(text, box_.SelectionStart() + box_.SelectionLength());
  if (start == end) {
    edit_->deselect();
    edit_->setCursorPosition(start);
  } else if (edit_->selectionStart() != start || edit_->selectionEnd() != end) {
    edit_->setSelection(start, end - start);
  }
}

void TextBoxPeer::ReportEdit(const QString& text) {
  Report([&] { box_.Edit(FromQt(text), CharactersBefore(text, edit_->cursorPosition())); });
}

void TextBoxPeer::ReportSelection() {
  Report([this] {
    const QString text = edit_->text();
    // While the user's edit is under way the box does not have its text yet.
    if (FromQt(text) != box_.Text()) return;
    const bool isSelected = edit_->hasSelectedText();
    const int start = isSelected ? edit_->selectionStart() : edit_->cursorPosition();
    const int end = isSelected ? edit_->selectionEnd() : start;
    const std::size_t before = CharactersBefore(text, start);
    box_.PutSelection(before, CharactersBefore(text, end) - before);
  });
}

}  // namespace

std::unique_ptr<ControlPeer> MakeTextBoxPeer(FormWindow& window, TextBox& box) {
  return std::make_unique<TextBoxPeer>(window, box);
}

}  // namespace pagivo::qt
