// DialogView, building: one widget per control of the template, placed as Windows
// places it. Dialog units become pixels from the dialog font: a horizontal unit is
// a quarter of the font's average character width (over the 52 Latin letters), a
// vertical unit an eighth of its height.
#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QValidator>
#include <algorithm>
#include <cmath>
#include <functional>

#include "platform/qt/dialog_view.h"
#include "platform/qt/qt_text.h"

namespace vglobal::qt {
namespace {

// Lets the user type only what the numeric field accepts (the same rule the model
// applies when the text arrives).
class NumericValidator final : public QValidator {
 public:
  NumericValidator(std::function<bool(const QString&)> accepts, QObject* parent)
      : QValidator(parent), accepts_(std::move(accepts)) {}
  State validate(QString& input, int& /*pos*/) const override {
    return accepts_(input) ? Acceptable : Invalid;
  }

 private:
  std::function<bool(const QString&)> accepts_;
};

// The control a static text's mnemonic leads to: the next one that takes the focus.
int BuddyOf(const DialogTemplate& t, std::size_t index) {
  for (std::size_t i = index + 1; i < t.controlCount; ++i) {
    ControlKind k = t.controls[i].kind;
    if (k != ControlKind::Static && k != ControlKind::GroupBox) return static_cast<int>(i);
    if (k == ControlKind::Static) break;
  }
  return -1;
}

}  // namespace

int DialogView::ToPixelsX(int dlu) const {
  return static_cast<int>(std::lround(dlu * static_cast<double>(baseX_) / 4.0));
}

int DialogView::ToPixelsY(int dlu) const {
  return static_cast<int>(std::lround(dlu * static_cast<double>(baseY_) / 8.0));
}

void DialogView::Build(const DialogTemplate& t) {
  QFont dialogFont = font();
  if (t.fontSize > 0) dialogFont.setPointSize(t.fontSize);
  setFont(dialogFont);
  QFontMetrics metrics(dialogFont);
  const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  baseX_ = std::max(1, static_cast<int>(std::lround(metrics.horizontalAdvance(letters) / 52.0)));
  baseY_ = std::max(1, metrics.height());

  setWindowTitle(FromWide(t.title));
  setFixedSize(ToPixelsX(t.cx), ToPixelsY(t.cy));

  for (std::size_t i = 0; i < t.controlCount; ++i) {
    const ControlTemplate& ct = t.controls[i];
    QWidget* widget = MakeWidget(static_cast<int>(i), ct);
    widget->setGeometry(ToPixelsX(ct.x), ToPixelsY(ct.y), ToPixelsX(ct.cx), ToPixelsY(ct.cy));
    if (auto* combo = qobject_cast<QComboBox*>(widget))  // the template's height includes the list
      combo->resize(combo->width(), std::min(combo->height(), combo->sizeHint().height()));
    widget->setProperty("vglobalControlIndex", static_cast<int>(i));
    widget->installEventFilter(this);
    widgets_.push_back(widget);
    ids_.push_back(ct.id);
    Wire(static_cast<int>(i), ct, widget);
  }
  // Group boxes frame other controls: keep them underneath, or they take the clicks.
  for (QWidget* w : widgets_)
    if (qobject_cast<QGroupBox*>(w)) w->lower();
  // A static text's mnemonic moves the focus to the control after it.
  for (std::size_t i = 0; i < t.controlCount; ++i) {
    auto* label = qobject_cast<QLabel*>(widgets_[i]);
    int buddy = label && !(t.controls[i].style & kNoPrefix) ? BuddyOf(t, i) : -1;
    if (buddy >= 0) label->setBuddy(widgets_[buddy]);
  }
}

QWidget* DialogView::MakeWidget(int index, const ControlTemplate& ct) {
  const bool multi = ct.style & kMultiSelect;
  switch (ct.kind) {
    case ControlKind::Static: {
      auto* label = new QLabel(this);
      label->setTextFormat(Qt::PlainText);
      label->setWordWrap(true);
      Qt::Alignment horizontal = (ct.style & kCenter)  ? Qt::AlignHCenter
                                 : (ct.style & kRight) ? Qt::AlignRight
                                                       : Qt::AlignLeft;
      label->setAlignment(horizontal | Qt::AlignTop);
      return label;
    }
    case ControlKind::GroupBox:
      return new QGroupBox(this);
    case ControlKind::PushButton: {
      auto* button = new QPushButton(this);
      button->setAutoDefault(false);  // Enter is the model's business (DialogDriver)
      return button;
    }
    case ControlKind::CheckBox: {
      auto* box = new QCheckBox(this);
      box->setTristate(ct.style & kTriState);
      return box;
    }
    case ControlKind::RadioButton: {
      auto* radio = new QRadioButton(this);
      radio->setAutoExclusive(false);  // groups are kept by the model
      return radio;
    }
    case ControlKind::Edit:
    case ControlKind::NumericEdit: {
      if (ct.style & kMultiline) {
        auto* edit = new QPlainTextEdit(this);
        edit->setTabChangesFocus(true);
        return edit;
      }
      auto* edit = new QLineEdit(this);
      if (ct.style & kPassword) edit->setEchoMode(QLineEdit::Password);
      if (ct.kind == ControlKind::NumericEdit) {
        edit->setValidator(new NumericValidator(
            [this, index](const QString& text) {
              auto* numeric =
                  dialog_ ? dynamic_cast<NumericEdit*>(dialog_->GetControlAt(index)) : nullptr;
              return !numeric || numeric->AcceptsInput(ToWide(text).c_str());
            },
            edit));
      }
      return edit;
    }
    case ControlKind::ListBox: {
      auto* list = new QListWidget(this);
      list->setSelectionMode(multi ? QAbstractItemView::ExtendedSelection
                                   : QAbstractItemView::SingleSelection);
      return list;
    }
    case ControlKind::ComboBox: {
      auto* combo = new QComboBox(this);
      combo->setEditable(!(ct.style & kDropDownList));
      combo->setInsertPolicy(QComboBox::NoInsert);
      if (QLineEdit* edit = combo->lineEdit()) {
        edit->setProperty("vglobalControlIndex", index);
        edit->installEventFilter(this);
      }
      return combo;
    }
    case ControlKind::ListCtrl: {
      auto* tree = new QTreeWidget(this);
      tree->setRootIsDecorated(false);
      tree->setUniformRowHeights(true);
      tree->setAllColumnsShowFocus(true);
      tree->header()->setStretchLastSection(false);
      tree->header()->setSectionsClickable(true);
      tree->setSelectionMode(multi ? QAbstractItemView::ExtendedSelection
                                   : QAbstractItemView::SingleSelection);
      return tree;
    }
  }
  return new QWidget(this);
}

void DialogView::Wire(int index, const ControlTemplate& ct, QWidget* widget) {
  const int id = ct.id;
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    connect(button, &QAbstractButton::clicked, this,
            [this, index, id] { Act(index, [this, id] { driver_.Click(id); }); });
  } else if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
    connect(edit, &QLineEdit::textEdited, this, [this, index, id](const QString& text) {
      Act(index, [this, id, &text] { driver_.Type(id, ToWide(text).c_str()); });
    });
  } else if (auto* edit = qobject_cast<QPlainTextEdit*>(widget)) {
    connect(edit, &QPlainTextEdit::textChanged, this, [this, index, id, edit] {
      Act(index, [this, id, edit] {
        driver_.Type(id, ToWide(ToWindowsLines(edit->toPlainText())).c_str());
      });
    });
  } else if (auto* list = qobject_cast<QListWidget*>(widget)) {
    const bool multi = ct.style & kMultiSelect;
    connect(list, &QListWidget::itemSelectionChanged, this, [this, index, id, list, multi] {
      std::vector<int> rows;
      for (QListWidgetItem* item : list->selectedItems()) rows.push_back(list->row(item));
      SelectRows(index, id, multi, std::move(rows));
    });
    connect(list, &QListWidget::itemDoubleClicked, this,
            [this, index, id, list](QListWidgetItem* item) {
              int row = list->row(item);
              Act(index, [this, id, row] { driver_.DoubleClick(id, row); });
            });
  } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
    connect(combo, &QComboBox::activated, this, [this, index, id](int row) {
      Act(index, [this, id, row] { driver_.Select(id, row); });
    });
    if (QLineEdit* edit = combo->lineEdit())
      connect(edit, &QLineEdit::textEdited, this, [this, index, id](const QString& text) {
        Act(index, [this, id, &text] { driver_.Type(id, ToWide(text).c_str()); });
      });
  } else if (auto* tree = qobject_cast<QTreeWidget*>(widget)) {
    const bool multi = ct.style & kMultiSelect;
    connect(tree, &QTreeWidget::itemSelectionChanged, this, [this, index, id, tree, multi] {
      std::vector<int> rows;
      for (QTreeWidgetItem* item : tree->selectedItems())
        rows.push_back(tree->indexOfTopLevelItem(item));
      SelectRows(index, id, multi, std::move(rows));
    });
    connect(tree, &QTreeWidget::itemDoubleClicked, this,
            [this, index, id, tree](QTreeWidgetItem* item, int) {
              int row = tree->indexOfTopLevelItem(item);
              Act(index, [this, id, row] { driver_.DoubleClick(id, row); });
            });
    connect(tree->header(), &QHeaderView::sectionClicked, this, [this, index, id](int column) {
      Act(index, [this, id, column] { driver_.ClickColumn(id, column); });
    });
  }
}

}  // namespace vglobal::qt
