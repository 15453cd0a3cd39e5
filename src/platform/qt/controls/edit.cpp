// The edits' widgets: a line edit (with a validator for numeric edits, which lets
// the user type only what the model accepts) or, for kMultiline, a plain text edit.
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QValidator>
#include <algorithm>
#include <climits>

#include "platform/qt/controls/control_binding.h"
#include "platform/qt/qt_text.h"

namespace vglobal::qt {
namespace {

// Lets the user type only what the numeric field accepts (the same rule the model
// applies when the text arrives).
class NumericValidator final : public QValidator {
 public:
  NumericValidator(BindingHost& host, int index, QObject* parent)
      : QValidator(parent), host_(host), index_(index) {}
  State validate(QString& input, int& /*pos*/) const override {
    CDialog* dialog = host_.Model();
    auto* numeric = dialog ? dynamic_cast<NumericEdit*>(dialog->GetControlAt(index_)) : nullptr;
    return !numeric || numeric->AcceptsInput(ToWide(input).c_str()) ? Acceptable : Invalid;
  }

 private:
  BindingHost& host_;
  int index_;
};

class LineEditBinding final : public ControlBinding {
 public:
  LineEditBinding(BindingHost& host, int index, int id, UINT style, bool numeric)
      : ControlBinding(host, index, id, style), edit_(new QLineEdit(host.Surface())) {
    if (style & kPassword) edit_->setEchoMode(QLineEdit::Password);
    if (numeric) edit_->setValidator(new NumericValidator(host, index, edit_));
    QObject::connect(edit_, &QLineEdit::textEdited, edit_, [this](const QString& text) {
      Act([this, &text] { driver().Type(id_, ToWide(text).c_str()); });
    });
  }
  QWidget* Widget() const override { return edit_; }
  void Sync(CWnd& control, unsigned aspects) override {
    auto* model = dynamic_cast<CEdit*>(&control);
    if (!model || !(aspects & (kAspectText | kAspectLimits | kAspectSelection))) return;
    const QString text = WindowText(control);
    const qsizetype limit = std::max<qsizetype>(model->GetLimitText(), text.size());
    edit_->setMaxLength(static_cast<int>(std::min<qsizetype>(limit, INT_MAX)));
    edit_->setReadOnly(model->IsReadOnly());
    if (edit_->text() != text) {
      const int cursor = edit_->cursorPosition();
      edit_->setText(text);
      edit_->setCursorPosition(std::min(cursor, static_cast<int>(text.size())));
    }
    int start = 0, end = 0;
    model->GetSel(start, end);
    if (end > start) edit_->setSelection(start, end - start);
  }

 private:
  QLineEdit* edit_;
};

class TextEditBinding final : public ControlBinding {
 public:
  TextEditBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), edit_(new QPlainTextEdit(host.Surface())) {
    edit_->setTabChangesFocus(true);
    QObject::connect(edit_, &QPlainTextEdit::textChanged, edit_, [this] {
      Act([this] { driver().Type(id_, ToWide(ToWindowsLines(edit_->toPlainText())).c_str()); });
    });
  }
  QWidget* Widget() const override { return edit_; }
  void Sync(CWnd& control, unsigned aspects) override {
    auto* model = dynamic_cast<CEdit*>(&control);
    if (!model || !(aspects & (kAspectText | kAspectLimits))) return;
    edit_->setReadOnly(model->IsReadOnly());
    const QString shown = FromWindowsLines(WindowText(control));
    if (edit_->toPlainText() != shown) edit_->setPlainText(shown);
  }
  // Enter presses the default button unless the edit wants it.
  bool KeyPressed(QKeyEvent* key) override {
    if ((key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) || (style_ & kWantReturn))
      return false;
    Act([this] { driver().PressEnter(); });
    return true;
  }

 private:
  QPlainTextEdit* edit_;
};

std::unique_ptr<ControlBinding> MakeEditOf(BindingHost& host, int index, int id, UINT style,
                                           bool numeric) {
  if (style & kMultiline) return std::make_unique<TextEditBinding>(host, index, id, style);
  return std::make_unique<LineEditBinding>(host, index, id, style, numeric);
}

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakeEdit(BindingHost& host, int index, int id, UINT style) {
  return MakeEditOf(host, index, id, style, false);
}
std::unique_ptr<ControlBinding> MakeNumericEdit(BindingHost& host, int index, int id, UINT style) {
  return MakeEditOf(host, index, id, style, true);
}
}  // namespace bindings

}  // namespace vglobal::qt
