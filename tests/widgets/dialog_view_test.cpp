// The Qt rendering of dialog models: one widget per control, and the binder that
// keeps model and widgets in step both ways.
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
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QValidator>
#include <string>
#include <vector>

#include "support/qt_application.h"
#include "vglobal/widgets.h"

namespace {

using vglobal::ControlKind;
using vglobal::ControlTemplate;
using vglobal::ControlWidget;
using vglobal::DialogTemplate;
using namespace vglobal;  // style bits

enum : int {
  IDC_LABEL = 2001,
  IDC_EDIT,
  IDC_NUMBER,
  IDC_NOTES,
  IDC_LIST,
  IDC_COMBO,
  IDC_PICK,
  IDC_GROUP,
  IDC_RADIO_A,
  IDC_RADIO_B,
  IDC_CHECK,
  IDC_TABLE,
  IDC_ADD
};

constexpr ControlTemplate kControls[] = {
    {IDC_LABEL, ControlKind::Static, L"&Name:", 7, 9, 40, 8, 0},
    {IDC_EDIT, ControlKind::Edit, L"", 50, 7, 120, 12, kTabStop},
    {IDC_NUMBER, ControlKind::NumericEdit, L"", 50, 23, 50, 12, kTabStop},
    {IDC_NOTES, ControlKind::Edit, L"", 50, 39, 120, 30, kTabStop | kMultiline},
    {IDC_LIST, ControlKind::ListBox, L"", 180, 7, 70, 62, kTabStop},
    {IDC_COMBO, ControlKind::ComboBox, L"", 50, 74, 120, 60, kTabStop},
    {IDC_PICK, ControlKind::ComboBox, L"", 180, 74, 70, 60, kTabStop | kDropDownList},
    {IDC_GROUP, ControlKind::GroupBox, L"Mode", 7, 92, 100, 40, 0},
    {IDC_RADIO_A, ControlKind::RadioButton, L"Fast", 14, 104, 80, 10, kGroup | kTabStop},
    {IDC_RADIO_B, ControlKind::RadioButton, L"Careful", 14, 116, 80, 10, 0},
    {IDC_CHECK, ControlKind::CheckBox, L"Remember", 114, 104, 80, 10, kGroup | kTabStop},
    {IDC_TABLE, ControlKind::ListCtrl, L"", 7, 136, 243, 50, kTabStop},
    {IDC_ADD, ControlKind::PushButton, L"&Add", 7, 192, 50, 14, kTabStop | kGroup},
    {IDOK, ControlKind::PushButton, L"OK", 146, 192, 50, 14, kDefault | kTabStop},
    {IDCANCEL, ControlKind::PushButton, L"Cancel", 200, 192, 50, 14, kTabStop},
};
constexpr DialogTemplate kTemplate{7001,      L"Every Control",    257, 213, 8,
                                   kControls, std::size(kControls)};

class CEveryControlDlg : public CDialog {
 public:
  CEveryControlDlg() : CDialog(kTemplate) {
    On(IDC_EDIT, EN_CHANGE, &CEveryControlDlg::OnChangeEdit);
    On(IDC_LIST, LBN_SELCHANGE, &CEveryControlDlg::OnSelchangeList);
    On(IDC_PICK, CBN_SELCHANGE, &CEveryControlDlg::OnSelchangePick);
    On(IDC_CHECK, BN_CLICKED, &CEveryControlDlg::OnCheck);
    On(IDC_TABLE, LVN_ITEMCHANGED, &CEveryControlDlg::OnItemchangedTable);
    On(IDC_ADD, BN_CLICKED, &CEveryControlDlg::OnAdd);
  }
  std::vector<std::string> log;
  CString m_name;

 protected:
  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    auto* list = GetDlgItemAs<CListBox>(IDC_LIST);
    for (const wchar_t* s : {L"Solenta", L"Kiva", L"Tamsin"}) list->AddString(s);
    auto* pick = GetDlgItemAs<CComboBox>(IDC_PICK);
    pick->AddString(L"mmu");
    pick->AddString(L"ppm");
    pick->SetCurSel(0);
    auto* table = GetDlgItemAs<CListCtrl>(IDC_TABLE);
    table->InsertColumn(0, L"Command", LVCFMT_LEFT, 120);
    table->InsertColumn(1, L"Tip", LVCFMT_LEFT, 200);
    table->InsertItem(0, L"Open");
    table->SetItemText(0, 1, L"Opens a file");
    table->InsertItem(1, L"Save");
    return TRUE;
  }
  void DoDataExchange(CDataExchange* dx) override { DDX_Text(dx, IDC_EDIT, m_name); }
  void OnChangeEdit() { log.push_back("EN_CHANGE"); }
  void OnSelchangeList() { log.push_back("LBN_SELCHANGE"); }
  void OnSelchangePick() { log.push_back("CBN_SELCHANGE"); }
  void OnCheck() { log.push_back("check"); }
  void OnItemchangedTable() { log.push_back("LVN_ITEMCHANGED"); }
  void OnAdd() {
    log.push_back("add");
    GetDlgItemAs<CListBox>(IDC_LIST)->AddString(L"Selfset");
  }
};

template <typename W>
W* Widget(QDialog& view, int id) {
  auto* w = qobject_cast<W*>(ControlWidget(view, id));
  EXPECT_NE(w, nullptr) << "control " << id;
  return w;
}

TEST(DialogView, EveryControlGetsAWidgetInsideTheDialog) {
  CEveryControlDlg dlg;
  std::unique_ptr<QDialog> view = vglobal::RenderDialog(dlg);
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(vglobal::RenderDialog(dlg), nullptr);  // open already
  EXPECT_EQ(view->windowTitle(), "Every Control");
  for (const ControlTemplate& ct : kControls) {
    QWidget* w = ControlWidget(*view, ct.id);
    ASSERT_NE(w, nullptr) << ct.id;
    EXPECT_TRUE(view->rect().contains(w->geometry())) << ct.id;
  }
  EXPECT_EQ(dlg.GetDlgItem(IDC_EDIT)->PlatformWindow(), ControlWidget(*view, IDC_EDIT));
  EXPECT_EQ(dlg.PlatformWindow(), view.get());
  auto* label = Widget<QLabel>(*view, IDC_LABEL);
  EXPECT_EQ(label->buddy(), ControlWidget(*view, IDC_EDIT));
  EXPECT_FALSE(Widget<QComboBox>(*view, IDC_PICK)->isEditable());
  EXPECT_TRUE(Widget<QComboBox>(*view, IDC_COMBO)->isEditable());
  EXPECT_TRUE(Widget<QPushButton>(*view, IDOK)->isDefault());

  view.reset();  // closing the view closes the model
  EXPECT_FALSE(dlg.IsOpen());
  EXPECT_EQ(dlg.PlatformWindow(), nullptr);
}

TEST(DialogView, ModelChangesShowInTheWidgets) {
  CEveryControlDlg dlg;
  std::unique_ptr<QDialog> view = vglobal::RenderDialog(dlg);
  ASSERT_NE(view, nullptr);

  dlg.SetDlgItemText(IDC_EDIT, L"Method 1");
  EXPECT_EQ(Widget<QLineEdit>(*view, IDC_EDIT)->text(), "Method 1");
  dlg.GetDlgItemAs<vglobal::NumericEdit>(IDC_NUMBER)->InitDouble(2.5, 0.0, 10.0, 1);
  EXPECT_EQ(Widget<QLineEdit>(*view, IDC_NUMBER)->text(), "2.5");
  dlg.SetDlgItemText(IDC_NOTES, L"line 1\r\nline 2");
  EXPECT_EQ(Widget<QPlainTextEdit>(*view, IDC_NOTES)->toPlainText(), "line 1\nline 2");

  auto* list = Widget<QListWidget>(*view, IDC_LIST);
  ASSERT_EQ(list->count(), 3);
  dlg.GetDlgItemAs<CListBox>(IDC_LIST)->SetCurSel(2);
  EXPECT_EQ(list->currentRow(), 2);
  EXPECT_EQ(Widget<QComboBox>(*view, IDC_PICK)->currentText(), "mmu");
  dlg.GetDlgItemAs<CComboBox>(IDC_COMBO)->SetWindowText(L"free text");
  EXPECT_EQ(Widget<QComboBox>(*view, IDC_COMBO)->currentText(), "free text");

  dlg.CheckDlgButton(IDC_CHECK, BST_CHECKED);
  dlg.CheckRadioButton(IDC_RADIO_A, IDC_RADIO_B, IDC_RADIO_B);
  EXPECT_TRUE(Widget<QCheckBox>(*view, IDC_CHECK)->isChecked());
  EXPECT_TRUE(Widget<QRadioButton>(*view, IDC_RADIO_B)->isChecked());
  EXPECT_FALSE(Widget<QRadioButton>(*view, IDC_RADIO_A)->isChecked());

  auto* table = Widget<QTreeWidget>(*view, IDC_TABLE);
  EXPECT_EQ(table->headerItem()->text(1), "Tip");
  ASSERT_EQ(table->topLevelItemCount(), 2);
  EXPECT_EQ(table->topLevelItem(0)->text(1), "Opens a file");
  dlg.GetDlgItemAs<CListCtrl>(IDC_TABLE)->SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_TRUE(table->topLevelItem(1)->isSelected());

  dlg.EnableDlgItem(IDC_ADD, FALSE);
  dlg.ShowDlgItem(IDC_GROUP, SW_HIDE);
  dlg.GetDlgItem(IDC_GROUP)->SetWindowText(L"Speed");
  EXPECT_FALSE(ControlWidget(*view, IDC_ADD)->isEnabled());
  EXPECT_TRUE(ControlWidget(*view, IDC_GROUP)->isHidden());
  EXPECT_EQ(Widget<QGroupBox>(*view, IDC_GROUP)->title(), "Speed");
  dlg.SetDefID(IDCANCEL);
  EXPECT_TRUE(Widget<QPushButton>(*view, IDCANCEL)->isDefault());
  EXPECT_FALSE(Widget<QPushButton>(*view, IDOK)->isDefault());
  dlg.SetWindowText(L"Renamed");
  EXPECT_EQ(view->windowTitle(), "Renamed");
}

TEST(DialogView, UserActionsOnWidgetsReachTheModelAndItsHandlers) {
  CEveryControlDlg dlg;
  std::unique_ptr<QDialog> view = vglobal::RenderDialog(dlg);
  ASSERT_NE(view, nullptr);
  view->show();
  dlg.log.clear();

  auto* edit = Widget<QLineEdit>(*view, IDC_EDIT);
  dlg.GetDlgItemAs<CEdit>(IDC_EDIT)->LimitText(4);
  QTest::keyClicks(edit, "abcdef");
  CString text;
  dlg.GetDlgItemText(IDC_EDIT, text);
  EXPECT_EQ(text, L"abcd");
  EXPECT_EQ(edit->text(), "abcd");
  EXPECT_EQ(dlg.log, (std::vector<std::string>(4, "EN_CHANGE")));

  auto* number = Widget<QLineEdit>(*view, IDC_NUMBER);
  dlg.GetDlgItemAs<vglobal::NumericEdit>(IDC_NUMBER)->InitInt(0, 0, 100);
  number->selectAll();
  QTest::keyClicks(number, "1x2.");
  dlg.GetDlgItemText(IDC_NUMBER, text);
  EXPECT_EQ(text, L"12");

  dlg.log.clear();
  Widget<QCheckBox>(*view, IDC_CHECK)->click();
  EXPECT_EQ(dlg.IsDlgButtonChecked(IDC_CHECK), 1u);
  Widget<QRadioButton>(*view, IDC_RADIO_A)->click();
  Widget<QRadioButton>(*view, IDC_RADIO_B)->click();
  EXPECT_EQ(dlg.GetCheckedRadioButton(IDC_RADIO_A, IDC_RADIO_B), IDC_RADIO_B);
  EXPECT_FALSE(Widget<QRadioButton>(*view, IDC_RADIO_A)->isChecked());
  Widget<QRadioButton>(*view, IDC_RADIO_B)->click();  // a checked radio stays checked
  EXPECT_TRUE(Widget<QRadioButton>(*view, IDC_RADIO_B)->isChecked());

  Widget<QListWidget>(*view, IDC_LIST)->setCurrentRow(1);
  EXPECT_EQ(dlg.GetDlgItemAs<CListBox>(IDC_LIST)->GetCurSel(), 1);
  QTest::keyClick(ControlWidget(*view, IDC_PICK), Qt::Key_Down);
  EXPECT_EQ(dlg.GetDlgItemAs<CComboBox>(IDC_PICK)->GetCurSel(), 1);
  auto* table = Widget<QTreeWidget>(*view, IDC_TABLE);
  table->setCurrentItem(table->topLevelItem(1));
  EXPECT_EQ(dlg.GetDlgItemAs<CListCtrl>(IDC_TABLE)->GetNextItem(-1, LVNI_SELECTED), 1);
  EXPECT_EQ(dlg.log, (std::vector<std::string>{"check", "LBN_SELCHANGE", "CBN_SELCHANGE",
                                               "LVN_ITEMCHANGED"}));

  Widget<QPushButton>(*view, IDC_ADD)->click();  // its handler adds a row
  EXPECT_EQ(Widget<QListWidget>(*view, IDC_LIST)->count(), 4);
}

TEST(DialogView, RunsModallyWithEnterAndEscapeGoingToTheModel) {
  CEveryControlDlg dlg;
  QTimer::singleShot(0, [] {
    auto* view = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(view, nullptr);
    QTest::keyClicks(ControlWidget(*view, IDC_EDIT), "typed");
    QTest::keyClick(ControlWidget(*view, IDC_EDIT), Qt::Key_Return);
  });
  EXPECT_EQ(dlg.DoModal(), IDOK);
  EXPECT_EQ(dlg.m_name, L"typed");
  EXPECT_FALSE(dlg.IsOpen());

  CEveryControlDlg other;
  QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
  EXPECT_EQ(other.DoModal(), IDCANCEL);

  CEveryControlDlg closed;
  QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
  EXPECT_EQ(closed.DoModal(), IDCANCEL);
}

}  // namespace
