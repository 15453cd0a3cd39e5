// Dialog models: controls, notifications, the message map, data exchange, focus and
// keys, run headless through DialogDriver and the scripted platform.
#include "vglobal/compat/dialog.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "support/scripted_platform.h"

namespace {

using vglobal::ControlKind;
using vglobal::ControlTemplate;
using vglobal::DialogDriver;
using vglobal::DialogTemplate;
using vglobal::testing::ScriptedPlatform;
using namespace vglobal;  // style bits

enum : int {
  IDC_NAME = 1001,
  IDC_COUNT,
  IDC_RATIO,
  IDC_NOTES,
  IDC_DIGITS,
  IDC_LIST,
  IDC_MULTI,
  IDC_COMBO,
  IDC_PICK,
  IDC_CHECK,
  IDC_TRI,
  IDC_RADIO_A,
  IDC_RADIO_B,
  IDC_RADIO_C,
  IDC_OTHER,
  IDC_TABLE,
  IDC_ADD,
  IDC_LIMITED
};

constexpr ControlTemplate kControls[] = {
    {IDC_STATIC, ControlKind::Static, L"&Name:", 7, 7, 40, 8, 0},
    {IDC_NAME, ControlKind::Edit, L"", 50, 7, 100, 12, kTabStop | kGroup},
    {IDC_COUNT, ControlKind::Edit, L"", 50, 21, 40, 12, kTabStop},
    {IDC_RATIO, ControlKind::NumericEdit, L"", 50, 35, 40, 12, kTabStop},
    {IDC_NOTES, ControlKind::Edit, L"", 50, 49, 100, 30, kTabStop | kMultiline},
    {IDC_DIGITS, ControlKind::Edit, L"", 50, 81, 40, 12, kTabStop | kNumber},
    {IDC_LIMITED, ControlKind::Edit, L"", 100, 81, 40, 12, kTabStop},
    {IDC_LIST, ControlKind::ListBox, L"", 160, 7, 60, 40, kTabStop | kSort},
    {IDC_MULTI, ControlKind::ListBox, L"", 160, 50, 60, 40, kTabStop | kMultiSelect},
    {IDC_COMBO, ControlKind::ComboBox, L"", 230, 7, 60, 50, kTabStop},
    {IDC_PICK, ControlKind::ComboBox, L"", 230, 21, 60, 50, kTabStop | kDropDownList},
    {IDC_CHECK, ControlKind::CheckBox, L"Check", 7, 100, 50, 10, kTabStop},
    {IDC_TRI, ControlKind::CheckBox, L"Tri", 60, 100, 50, 10, kTabStop | kTriState},
    {IDC_STATIC, ControlKind::GroupBox, L"Mode", 7, 112, 100, 50, 0},
    {IDC_RADIO_A, ControlKind::RadioButton, L"A", 12, 122, 40, 10, kGroup | kTabStop},
    {IDC_RADIO_B, ControlKind::RadioButton, L"B", 12, 132, 40, 10, 0},
    {IDC_STATIC, ControlKind::Static, L"between", 12, 142, 40, 8, 0},
    {IDC_RADIO_C, ControlKind::RadioButton, L"C", 12, 150, 40, 10, 0},
    {IDC_OTHER, ControlKind::RadioButton, L"Other", 60, 122, 40, 10, kGroup | kTabStop},
    {IDC_TABLE, ControlKind::ListCtrl, L"", 120, 100, 170, 60, kTabStop},
    {IDC_ADD, ControlKind::PushButton, L"&Add", 7, 170, 50, 14, kTabStop | kGroup},
    {IDOK, ControlKind::PushButton, L"OK", 180, 170, 50, 14, kDefault | kTabStop},
    {IDCANCEL, ControlKind::PushButton, L"Cancel", 240, 170, 50, 14, kTabStop},
};
constexpr DialogTemplate kProbeTemplate{
    4242, L"Probe", 300, 190, 8, kControls, std::size(kControls)};

// A dialog that logs every notification it gets.
class CProbeDlg : public CDialog {
 public:
  CProbeDlg() : CDialog(kProbeTemplate) {
    On(IDC_NAME, EN_CHANGE, &CProbeDlg::OnChangeName);
    On(IDC_NAME, EN_KILLFOCUS, &CProbeDlg::OnKillfocusName);
    On(IDC_LIMITED, EN_MAXTEXT, &CProbeDlg::OnMaxText);
    On(IDC_NOTES, EN_CHANGE, &CProbeDlg::OnChangeNotes);
    On(IDC_LIST, LBN_SELCHANGE, &CProbeDlg::OnSelchangeList);
    On(IDC_LIST, LBN_DBLCLK, &CProbeDlg::OnDblclkList);
    On(IDC_COMBO, CBN_SELCHANGE, &CProbeDlg::OnSelchangeCombo);
    On(IDC_COMBO, CBN_EDITCHANGE, &CProbeDlg::OnEditchangeCombo);
    On(IDC_ADD, BN_CLICKED, &CProbeDlg::OnAdd);
    OnRange(IDC_RADIO_A, IDC_RADIO_C, BN_CLICKED, &CProbeDlg::OnRadio);
    On(IDC_TABLE, LVN_ITEMCHANGED, &CProbeDlg::OnItemchangedTable);
  }

  std::vector<std::string> log;
  CString m_name = L"first";
  int m_count = 3;
  int m_check = 0;
  int m_mode = 1;
  bool exchangeMore = true;
  bool refocusName = false;
  CListBox m_list;

 protected:
  BOOL OnInitDialog() override {
    log.push_back("init");
    return CDialog::OnInitDialog();
  }
  void DoDataExchange(CDataExchange* dx) override {
    DDX_Text(dx, IDC_NAME, m_name);
    DDV_MaxChars(dx, m_name, 8);
    if (!exchangeMore) return;
    DDX_Control(dx, IDC_LIST, m_list);
    DDX_Text(dx, IDC_COUNT, m_count);
    DDV_MinMaxInt(dx, m_count, 1, 10);
    DDX_Check(dx, IDC_CHECK, m_check);
    DDX_Radio(dx, IDC_RADIO_A, m_mode);
  }
  void OnOK() override {
    log.push_back("OnOK");
    CDialog::OnOK();
  }
  void OnCancel() override {
    log.push_back("OnCancel");
    CDialog::OnCancel();
  }
  void OnChangeName() { log.push_back("EN_CHANGE name"); }
  void OnKillfocusName() {
    log.push_back("EN_KILLFOCUS name");
    if (refocusName) GotoDlgCtrl(GetDlgItem(IDC_NAME));
  }
  void OnMaxText() { log.push_back("EN_MAXTEXT"); }
  void OnChangeNotes() { log.push_back("EN_CHANGE notes"); }
  void OnSelchangeList() { log.push_back("LBN_SELCHANGE"); }
  void OnDblclkList() { log.push_back("LBN_DBLCLK"); }
  void OnSelchangeCombo() { log.push_back("CBN_SELCHANGE"); }
  void OnEditchangeCombo() { log.push_back("CBN_EDITCHANGE"); }
  void OnAdd() { log.push_back("Add"); }
  void OnRadio(UINT id) { log.push_back("radio " + std::to_string(id)); }
  void OnItemchangedTable(NMHDR* hdr, LRESULT*) {
    auto* lv = reinterpret_cast<NMLISTVIEW*>(hdr);
    log.push_back("item " + std::to_string(lv->iItem) + " " + std::to_string(lv->uOldState) + "->" +
                  std::to_string(lv->uNewState));
  }
};

// An open probe dialog with an empty log.
struct OpenProbe : ::testing::Test {
  CProbeDlg dlg;
  DialogDriver user{dlg};
  void SetUp() override {
    ASSERT_TRUE(user.Open());
    user.Focus(IDC_ADD);  // buttons send no focus notices: the log starts clean
    dlg.log.clear();
  }
  template <typename T>
  T& Item(int id) {
    T* item = dlg.GetDlgItemAs<T>(id);
    EXPECT_NE(item, nullptr);
    return *item;
  }
  CString Text(int id) {
    CString text;
    dlg.GetDlgItemText(id, text);
    return text;
  }
};

using Log = std::vector<std::string>;

// ---- life of a dialog -------------------------------------------------------

TEST(DialogLifecycle, ControlsExistOnlyWhileOpenAndStaleHandlesFailSafely) {
  CProbeDlg dlg;
  DialogDriver user(dlg);
  EXPECT_EQ(dlg.GetDlgItem(IDC_NAME), nullptr);
  ASSERT_TRUE(user.Open());
  EXPECT_FALSE(user.Open());  // already open
  ASSERT_NE(dlg.GetDlgItemAs<CEdit>(IDC_NAME), nullptr);
  EXPECT_EQ(dlg.GetDlgItemAs<CListBox>(IDC_NAME), nullptr);  // wrong class
  EXPECT_EQ(dlg.GetDlgItem(9999), nullptr);
  EXPECT_EQ(dlg.GetDlgItem(IDC_LIST), &dlg.m_list);  // attached by DDX_Control
  dlg.m_list.AddString(L"x");

  user.Destroy();
  EXPECT_EQ(dlg.GetDlgItem(IDC_NAME), nullptr);
  EXPECT_FALSE(dlg.m_list.IsAttached());
  EXPECT_EQ(dlg.m_list.GetCount(), LB_ERR);
  EXPECT_EQ(dlg.m_list.AddString(L"y"), LB_ERR);
  EXPECT_FALSE(user.Click(IDOK));
}

TEST(DialogLifecycle, DoModalRunsThroughThePlatformAndKeepsTheExchangedData) {
  ScriptedPlatform platform;
  platform.scripts.push_back([](DialogDriver& user, CDialog&) {
    user.Type(IDC_NAME, L"typed");
    user.Type(IDC_COUNT, L"7");
    user.Click(IDOK);
  });
  CProbeDlg dlg;
  EXPECT_EQ(dlg.DoModal(), IDOK);
  EXPECT_EQ(dlg.m_name, L"typed");
  EXPECT_EQ(dlg.m_count, 7);
  EXPECT_FALSE(dlg.IsOpen());

  // The user closing the window is a Cancel: the data members keep their values.
  CProbeDlg other;
  EXPECT_EQ(other.DoModal(), IDCANCEL);
  EXPECT_EQ(other.m_name, L"first");
}

TEST(DialogLifecycle, HeadlessPlatformAnswersCancelWithoutOpening) {
  CProbeDlg dlg;
  EXPECT_EQ(dlg.DoModal(), IDCANCEL);
  EXPECT_TRUE(dlg.log.empty());
}

TEST(DialogLifecycle, MissingTemplateCannotOpen) {
  ScriptedPlatform platform;
  CDialog dlg(31999u);
  EXPECT_EQ(dlg.DoModal(), -1);
  EXPECT_EQ(dlg.GetHelpID(), 31999u);
}

TEST_F(OpenProbe, OpeningShowsDataAndFocusesFirstTabStopWithItsTextSelected) {
  CProbeDlg fresh;
  DialogDriver freshUser(fresh);
  ASSERT_TRUE(freshUser.Open());
  EXPECT_EQ(fresh.log.front(), "init");
  CString name;
  fresh.GetDlgItemText(IDC_NAME, name);
  EXPECT_EQ(name, L"first");
  EXPECT_EQ(fresh.IsDlgButtonChecked(IDC_RADIO_B), BST_CHECKED);  // m_mode 1
  EXPECT_EQ(fresh.GetFocus(), fresh.GetDlgItem(IDC_NAME));
  int start = -1, end = -1;
  fresh.GetDlgItemAs<CEdit>(IDC_NAME)->GetSel(start, end);
  EXPECT_EQ(start, 0);
  EXPECT_EQ(end, 5);
}

// ---- edits ----------------------------------------------------------------

TEST_F(OpenProbe, EditLimitCutsTypedTextAndTextSetByCode) {
  CEdit& edit = Item<CEdit>(IDC_LIMITED);
  edit.LimitText(4);
  EXPECT_TRUE(user.Type(IDC_LIMITED, L"abcdef"));
  EXPECT_EQ(Text(IDC_LIMITED), L"abcd");
  EXPECT_EQ(dlg.log, Log{"EN_MAXTEXT"});
  edit.SetWindowText(L"123456");
  EXPECT_EQ(Text(IDC_LIMITED), L"1234");
  edit.SetSel(1, 3);
  edit.ReplaceSel(L"xyz");  // room for 2 of 3
  EXPECT_EQ(Text(IDC_LIMITED), L"1xy4");
}

TEST_F(OpenProbe, ModifiedFlagIsSetByEditingNotByTheProgramsText) {
  CEdit& edit = Item<CEdit>(IDC_NAME);
  EXPECT_FALSE(edit.GetModify());  // shown by data exchange
  user.Type(IDC_NAME, L"typed");
  EXPECT_TRUE(edit.GetModify());
  edit.SetWindowText(L"by code");
  EXPECT_FALSE(edit.GetModify());
  edit.SetSel(0, 2);
  edit.ReplaceSel(L"my");
  EXPECT_TRUE(edit.GetModify());
  EXPECT_EQ(edit.SendMessage(EM_GETMODIFY), 1);
  edit.SendMessage(EM_SETMODIFY, FALSE);
  EXPECT_FALSE(edit.GetModify());
  EXPECT_TRUE(user.Type(IDC_NAME, L"my code"));  // the same text: nothing edited
  EXPECT_FALSE(edit.GetModify());
  edit.SendMessage(EM_SETMODIFY, TRUE);
  EXPECT_EQ(edit.SendMessage(EM_GETMODIFY), 1);
}

TEST_F(OpenProbe, SetWindowTextNotifiesSingleLineEditsOnly) {
  dlg.SetDlgItemText(IDC_NAME, L"first");  // the same text still notifies
  dlg.SetDlgItemText(IDC_NOTES, L"line 1\r\nline 2");
  EXPECT_EQ(dlg.log, Log{"EN_CHANGE name"});
  EXPECT_TRUE(user.Type(IDC_NOTES, L"typed"));
  EXPECT_EQ(dlg.log.back(), "EN_CHANGE notes");
}

TEST_F(OpenProbe, TypingIsRefusedByReadOnlyAndFilteredByNumberOnlyEdits) {
  Item<CEdit>(IDC_NAME).SetReadOnly(TRUE);
  dlg.log.clear();
  EXPECT_FALSE(user.Type(IDC_NAME, L"new"));
  EXPECT_EQ(Text(IDC_NAME), L"first");
  EXPECT_TRUE(dlg.log.empty());
  EXPECT_TRUE(user.Type(IDC_DIGITS, L"1a2-3"));
  EXPECT_EQ(Text(IDC_DIGITS), L"123");
  EXPECT_TRUE(Item<CEdit>(IDC_DIGITS).GetModify());
  dlg.EnableDlgItem(IDC_DIGITS, FALSE);
  EXPECT_FALSE(user.Type(IDC_DIGITS, L"9"));
}

TEST_F(OpenProbe, NumericEditAcceptsOnlyWhatCanBecomeANumberInItsForm) {
  auto& ratio = Item<vglobal::NumericEdit>(IDC_RATIO);
  ratio.InitDouble(0.5, 0.1, 500.0, 1);
  EXPECT_EQ(Text(IDC_RATIO), L"0.5");
  EXPECT_FALSE(user.Type(IDC_RATIO, L"-1"));    // the range has no negative numbers
  EXPECT_FALSE(user.Type(IDC_RATIO, L"1.25"));  // one decimal place
  EXPECT_FALSE(user.Type(IDC_RATIO, L"1e3"));
  EXPECT_EQ(Text(IDC_RATIO), L"0.5");
  EXPECT_TRUE(user.Type(IDC_RATIO, L""));
  EXPECT_FALSE(ratio.IsValid());
  EXPECT_TRUE(user.Type(IDC_RATIO, L"600."));
  EXPECT_FALSE(ratio.IsValid());  // out of range
  EXPECT_TRUE(user.Type(IDC_RATIO, L"12.5"));
  EXPECT_TRUE(ratio.IsValid());
  EXPECT_DOUBLE_EQ(ratio.GetValue(), 12.5);
  EXPECT_EQ(ratio.GetIntValue(), 13);

  ratio.InitInt(3, -5, 5);
  EXPECT_FALSE(user.Type(IDC_RATIO, L"2."));
  EXPECT_TRUE(user.Type(IDC_RATIO, L"-4"));
  EXPECT_TRUE(ratio.IsValid());
  ratio.SetRange(0, 10);
  EXPECT_FALSE(ratio.IsValid());
}

// ---- lists ----------------------------------------------------------------

TEST_F(OpenProbe, SortedListBoxKeepsSelectionOnItsRowThroughInsertsAndDeletes) {
  CListBox& list = dlg.m_list;
  list.AddString(L"pear");
  list.AddString(L"Apple");
  list.AddString(L"banana");
  CString text;
  list.GetText(0, text);
  EXPECT_EQ(text, L"Apple");
  list.SetItemData(2, 77);
  EXPECT_EQ(list.SetCurSel(2), 2);  // pear, silently
  EXPECT_TRUE(dlg.log.empty());
  EXPECT_EQ(list.InsertString(0, L"zzz"), 0);
  EXPECT_EQ(list.GetCurSel(), 3);
  EXPECT_EQ(list.GetItemData(3), 77u);
  EXPECT_EQ(list.DeleteString(3), 3);
  EXPECT_EQ(list.GetCurSel(), LB_ERR);

  EXPECT_EQ(list.InsertString(9, L"x"), LB_ERR);
  EXPECT_EQ(list.DeleteString(9), LB_ERR);
  EXPECT_EQ(list.GetText(-1, text), LB_ERR);
  EXPECT_EQ(list.GetItemData(42), static_cast<DWORD_PTR>(LB_ERR));
  EXPECT_EQ(list.SetCurSel(42), LB_ERR);
  EXPECT_EQ(list.FindString(1, L"APP"), 1);  // wraps around, ignores case
  EXPECT_EQ(list.FindStringExact(-1, L"ban"), LB_ERR);

  EXPECT_TRUE(user.Select(IDC_LIST, 2));
  EXPECT_TRUE(user.Select(IDC_LIST, 2));  // no change, no notice
  EXPECT_TRUE(user.DoubleClick(IDC_LIST, 2));
  EXPECT_EQ(dlg.log, (Log{"LBN_SELCHANGE", "LBN_DBLCLK"}));
  EXPECT_FALSE(user.Select(IDC_LIST, 7));
}

TEST_F(OpenProbe, MultiSelectionListBoxAnswersSelectionByRow) {
  CListBox& multi = Item<CListBox>(IDC_MULTI);
  for (const wchar_t* s : {L"a", L"b", L"c", L"d"}) multi.AddString(s);
  EXPECT_EQ(multi.SetCurSel(1), LB_ERR);
  EXPECT_EQ(multi.SetSel(-1, TRUE), LB_OKAY);
  EXPECT_EQ(multi.GetSelCount(), 4);
  EXPECT_TRUE(user.SelectRows(IDC_MULTI, {1, 3}));
  int rows[4] = {};
  ASSERT_EQ(multi.GetSelItems(4, rows), 2);
  EXPECT_EQ(rows[0], 1);
  EXPECT_EQ(rows[1], 3);
  EXPECT_EQ(multi.GetCurSel(), 3);  // the caret
  EXPECT_FALSE(user.SelectRows(IDC_MULTI, {1, 9}));
  EXPECT_EQ(Item<CListBox>(IDC_LIST).GetSelCount(), LB_ERR);
}

TEST_F(OpenProbe, ComboSelectionShowsTheRowAndTypingFindsIt) {
  CComboBox& combo = Item<CComboBox>(IDC_COMBO);
  combo.AddString(L"Solenta");
  combo.AddString(L"Kiva");
  EXPECT_EQ(combo.SetCurSel(1), 1);
  EXPECT_EQ(Text(IDC_COMBO), L"Kiva");
  EXPECT_TRUE(user.Type(IDC_COMBO, L"solenta"));
  EXPECT_EQ(combo.GetCurSel(), 0);
  EXPECT_TRUE(user.Type(IDC_COMBO, L"other"));
  EXPECT_EQ(combo.GetCurSel(), CB_ERR);
  EXPECT_TRUE(user.Select(IDC_COMBO, 1));
  EXPECT_EQ(Text(IDC_COMBO), L"Kiva");
  EXPECT_EQ(dlg.log, (Log{"CBN_EDITCHANGE", "CBN_EDITCHANGE", "CBN_SELCHANGE"}));

  CComboBox& pick = Item<CComboBox>(IDC_PICK);
  pick.AddString(L"mmu");
  pick.AddString(L"ppm");
  pick.SetWindowText(L"PPM");
  EXPECT_EQ(pick.GetCurSel(), 1);
  pick.SetWindowText(L"none of them");
  EXPECT_EQ(Text(IDC_PICK), L"ppm");
  EXPECT_FALSE(user.Type(IDC_PICK, L"mmu"));
  EXPECT_EQ(pick.SetCurSel(5), CB_ERR);
  EXPECT_EQ(Text(IDC_PICK), L"");
}

TEST_F(OpenProbe, ListControlKeepsColumnsAndNotifiesEachRowWhoseStateChanges) {
  CListCtrl& table = Item<CListCtrl>(IDC_TABLE);
  EXPECT_EQ(table.InsertColumn(0, L"Command"), 0);
  EXPECT_EQ(table.InsertColumn(1, L"Tip", LVCFMT_LEFT, 80), 1);
  EXPECT_EQ(table.InsertItem(5, L"Open"), 0);  // past the end appends
  EXPECT_EQ(table.InsertItem(1, L"Save"), 1);
  EXPECT_TRUE(table.SetItemText(1, 1, L"Saves the file"));
  EXPECT_FALSE(table.SetItemText(1, 2, L"no such column"));
  EXPECT_EQ(table.GetItemText(1, 1), L"Saves the file");
  EXPECT_EQ(table.GetItemText(0, 1), L"");
  table.SetItemData(1, 0xE100);

  table.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_TRUE(user.Select(IDC_TABLE, 1));
  EXPECT_EQ(dlg.log, (Log{"item 0 0->2", "item 0 2->0", "item 1 0->3"}));
  EXPECT_EQ(table.GetNextItem(-1, LVNI_SELECTED), 1);
  EXPECT_EQ(table.GetSelectedCount(), 1u);
  EXPECT_TRUE(table.DeleteItem(0));
  EXPECT_EQ(table.GetNextItem(-1, LVNI_FOCUSED), 0);
  EXPECT_EQ(table.GetItemData(0), 0xE100u);
  EXPECT_FALSE(table.DeleteItem(3));
  EXPECT_EQ(table.GetItemText(3, 0), L"");
}

// ---- buttons ----------------------------------------------------------------

TEST_F(OpenProbe, ClicksCheckBoxesAndKeepRadioGroupsExclusive) {
  EXPECT_TRUE(user.Click(IDC_CHECK));
  EXPECT_EQ(dlg.IsDlgButtonChecked(IDC_CHECK), 1u);
  for (UINT expected : {1u, 2u, 0u}) {
    user.Click(IDC_TRI);
    EXPECT_EQ(dlg.IsDlgButtonChecked(IDC_TRI), expected);
  }
  dlg.CheckDlgButton(IDC_CHECK, BST_INDETERMINATE);  // a two-state box refuses it
  EXPECT_EQ(dlg.IsDlgButtonChecked(IDC_CHECK), 1u);

  dlg.CheckDlgButton(IDC_OTHER, BST_CHECKED);
  dlg.log.clear();
  EXPECT_TRUE(user.Click(IDC_RADIO_C));
  EXPECT_EQ(dlg.GetCheckedRadioButton(IDC_RADIO_A, IDC_RADIO_C), IDC_RADIO_C);
  EXPECT_EQ(dlg.IsDlgButtonChecked(IDC_RADIO_B), 0u);
  EXPECT_EQ(dlg.IsDlgButtonChecked(IDC_OTHER), 1u);  // another group
  EXPECT_EQ(dlg.log, Log{"radio " + std::to_string(IDC_RADIO_C)});

  dlg.CheckRadioButton(IDC_RADIO_A, IDC_RADIO_C, IDC_RADIO_A);
  EXPECT_EQ(dlg.GetCheckedRadioButton(IDC_RADIO_A, IDC_OTHER), IDC_RADIO_A);
  EXPECT_EQ(dlg.log.size(), 1u);  // by code: no notice
  EXPECT_FALSE(user.Click(IDC_NAME));
  EXPECT_FALSE(user.Click(9999));
}

// ---- message map and data exchange ---------------------------------------

TEST_F(OpenProbe, UnmappedOkTakesTheDataAndEndsOnlyWhenItIsValid) {
  ScriptedPlatform platform;
  user.Type(IDC_NAME, L"changed");
  user.Type(IDC_COUNT, L"12x");
  dlg.log.clear();
  EXPECT_TRUE(user.Click(IDOK));
  EXPECT_FALSE(dlg.IsEnded());
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, L"Please enter an integer.");
  EXPECT_EQ(platform.messages[0].owner, &dlg);
  EXPECT_EQ(dlg.GetFocus(), dlg.GetDlgItem(IDC_COUNT));
  EXPECT_EQ(dlg.m_name, L"changed");  // exchanged before the refused value
  EXPECT_EQ(dlg.m_count, 3);

  user.Type(IDC_COUNT, L"11");
  EXPECT_TRUE(user.PressEnter());  // the default button is OK
  EXPECT_EQ(platform.messages.back().text, L"Please enter an integer between 1 and 10.");
  user.Type(IDC_COUNT, L" 10 ");
  user.Click(IDC_CHECK);
  user.Click(IDC_RADIO_C);
  user.Click(IDOK);
  EXPECT_TRUE(dlg.IsEnded());
  EXPECT_EQ(dlg.GetEndCode(), IDOK);
  EXPECT_EQ(dlg.m_count, 10);
  EXPECT_EQ(dlg.m_check, 1);
  EXPECT_EQ(dlg.m_mode, 2);  // the static between B and C is not a button
}

TEST_F(OpenProbe, ShowingDataLimitsTheEditAndRefusesLongerText) {
  ScriptedPlatform platform;
  EXPECT_EQ(Item<CEdit>(IDC_NAME).GetLimitText(), 8u);
  dlg.exchangeMore = false;
  dlg.m_name = L"far too long";
  EXPECT_TRUE(dlg.UpdateData(FALSE));
  EXPECT_EQ(Text(IDC_NAME), L"far too ");
  dlg.m_name = L"unchanged";
  Item<CEdit>(IDC_NAME).LimitText(20);
  user.Type(IDC_NAME, L"twelve chars");
  EXPECT_FALSE(dlg.UpdateData(TRUE));
  EXPECT_EQ(platform.messages.back().text, L"Please enter no more than 8 characters.");
}

TEST(MessageMap, FirstRouteWinsAndMappedButtonsReplaceTheDefaults) {
  struct Dlg : CDialog {
    std::vector<std::string> log;
    Dlg() : CDialog(kProbeTemplate) {
      On(IDOK, BN_CLICKED, &Dlg::First);
      On(IDOK, BN_CLICKED, &Dlg::Second);
    }
    void First() { log.push_back("first"); }
    void Second() { log.push_back("second"); }
  } dlg;
  DialogDriver user(dlg);
  ASSERT_TRUE(user.Open());
  EXPECT_TRUE(user.Click(IDOK));
  EXPECT_EQ(dlg.log, Log{"first"});
  EXPECT_FALSE(dlg.IsEnded());  // OnOK did not run
  EXPECT_TRUE(user.PressEscape());
  EXPECT_EQ(dlg.GetEndCode(), IDCANCEL);
  EXPECT_FALSE(user.Click(IDC_ADD));  // ended: no more input
}

// ---- focus and keys --------------------------------------------------------

TEST_F(OpenProbe, ClickingAButtonTakesTheFocusFromTheEditFirst) {
  user.Focus(IDC_NAME);
  dlg.log.clear();
  user.Click(IDC_ADD);
  EXPECT_EQ(dlg.log, (Log{"EN_KILLFOCUS name", "Add"}));
  EXPECT_EQ(dlg.GetFocus(), dlg.GetDlgItem(IDC_ADD));
}

TEST_F(OpenProbe, KillFocusHandlerCanKeepTheFocus) {
  user.Focus(IDC_NAME);
  dlg.refocusName = true;
  EXPECT_FALSE(user.Focus(IDC_COUNT));
  EXPECT_EQ(dlg.GetFocus(), dlg.GetDlgItem(IDC_NAME));
}

TEST_F(OpenProbe, DisablingTheFocusedControlDropsTheFocus) {
  user.Focus(IDC_NAME);
  dlg.log.clear();
  dlg.EnableDlgItem(IDC_NAME, FALSE);
  EXPECT_EQ(dlg.GetFocus(), nullptr);
  EXPECT_EQ(dlg.log, Log{"EN_KILLFOCUS name"});
  EXPECT_FALSE(user.Focus(IDC_NAME));
  EXPECT_FALSE(dlg.EnableDlgItem(9999, TRUE));
}

TEST_F(OpenProbe, EnterPressesTheFocusedButtonElseTheDefaultOne) {
  user.Focus(IDC_ADD);
  EXPECT_TRUE(user.PressEnter());
  EXPECT_EQ(dlg.log.back(), "Add");
  user.Focus(IDC_NAME);
  dlg.SetDefID(IDC_ADD);
  dlg.log.clear();
  EXPECT_TRUE(user.PressEnter());
  EXPECT_EQ(dlg.log, Log{"Add"});
  dlg.EnableDlgItem(IDC_ADD, FALSE);
  EXPECT_FALSE(user.PressEnter());
}

TEST_F(OpenProbe, CloseActsAsCancelUnlessCancelIsDisabled) {
  dlg.EnableDlgItem(IDCANCEL, FALSE);
  EXPECT_TRUE(user.Close());
  EXPECT_FALSE(dlg.IsEnded());
  EXPECT_FALSE(user.PressEscape());
  dlg.EnableDlgItem(IDCANCEL, TRUE);
  EXPECT_TRUE(user.Close());
  EXPECT_EQ(dlg.log, Log{"OnCancel"});
  EXPECT_EQ(dlg.GetEndCode(), IDCANCEL);
}

TEST_F(OpenProbe, HelpKeyAsksTheHelpHandlerForTheHelpId) {
  static UINT asked = 0;
  vglobal::SetDialogHelpHandler([](CDialog&, UINT id) { asked = id; });
  dlg.SetHelpID(5912);
  EXPECT_TRUE(user.PressHelp());
  vglobal::SetDialogHelpHandler(nullptr);
  EXPECT_EQ(asked, 5912u);
}

TEST_F(OpenProbe, DialogItemIntegersAreWholeNumbersInRange) {
  BOOL ok = FALSE;
  dlg.SetDlgItemText(IDC_COUNT, L" 42 ");
  EXPECT_EQ(dlg.GetDlgItemInt(IDC_COUNT, &ok), 42u);
  EXPECT_TRUE(ok);
  for (const wchar_t* bad : {L"4 2", L"", L"0x10", L"99999999999"}) {
    dlg.SetDlgItemText(IDC_COUNT, bad);
    EXPECT_EQ(dlg.GetDlgItemInt(IDC_COUNT, &ok), 0u) << bad;
    EXPECT_FALSE(ok) << bad;
  }
  dlg.SetDlgItemInt(IDC_COUNT, static_cast<UINT>(-5));
  EXPECT_EQ(static_cast<int>(dlg.GetDlgItemInt(IDC_COUNT, &ok)), -5);
  EXPECT_EQ(dlg.GetDlgItemInt(IDC_COUNT, &ok, FALSE), 0u);
  EXPECT_FALSE(ok);
  EXPECT_EQ(dlg.GetDlgItemInt(9999, &ok), 0u);
}

// ---- what a view is told --------------------------------------------------

TEST(DialogObserver, SeesEveryChangeWhoeverMadeIt) {
  struct Recorder : vglobal::DialogObserver {
    std::vector<std::string> seen;
    void Opened() override { seen.push_back("opened"); }
    void ControlChanged(int index, unsigned aspects) override {
      seen.push_back("changed " + std::to_string(index) + "/" + std::to_string(aspects));
    }
    void FocusChanged(int index) override { seen.push_back("focus " + std::to_string(index)); }
    void TitleChanged() override { seen.push_back("title"); }
    void Ended(INT_PTR code) override { seen.push_back("ended " + std::to_string(code)); }
    void Closing() override { seen.push_back("closing"); }
  } recorder;
  CProbeDlg dlg;
  dlg.exchangeMore = false;
  dlg.SetObserver(&recorder);
  DialogDriver user(dlg);
  ASSERT_TRUE(user.Open());
  EXPECT_EQ(recorder.seen.front(), "opened");
  recorder.seen.clear();
  dlg.SetWindowText(L"New title");
  user.Click(IDC_CHECK);  // index 11
  user.PressEscape();
  user.Destroy();
  EXPECT_EQ(recorder.seen, (Log{"title", "focus 11", "changed 11/16", "ended 2", "closing"}));
  CString title;
  dlg.GetWindowText(title);
  EXPECT_EQ(title, L"New title");
}

}  // namespace
