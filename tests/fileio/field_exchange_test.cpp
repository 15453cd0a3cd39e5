// A dialog binds record fields through their descriptors: shown from the record, saved
// back into it, and a refused entry leaves the field as it was.
#include "vglobal/fileio/field_exchange.h"

#include <gtest/gtest.h>

#include <iterator>

#include "support/scripted_platform.h"
#include "vglobal/fileio/options.h"
#include "vglobal/fileio/sequence.h"

namespace {

using vglobal::ControlKind;
using vglobal::ControlTemplate;
using vglobal::DialogDriver;
using vglobal::DialogTemplate;
using namespace vglobal;  // style bits

enum : int { IDC_WINDOW = 1001, IDC_SCANS, IDC_VOID, IDC_SAMPLE };

constexpr ControlTemplate kControls[] = {
    {IDC_WINDOW, ControlKind::Edit, L"", 7, 7, 60, 12, kTabStop},
    {IDC_SCANS, ControlKind::Edit, L"", 7, 21, 60, 12, kTabStop},
    {IDC_VOID, ControlKind::CheckBox, L"Void time", 7, 35, 60, 10, kTabStop},
    {IDC_SAMPLE, ControlKind::Edit, L"", 7, 49, 60, 12, kTabStop},
    {IDOK, ControlKind::PushButton, L"OK", 80, 7, 50, 14, kDefault | kTabStop},
    {IDCANCEL, ControlKind::PushButton, L"Cancel", 80, 23, 50, 14, kTabStop},
};
constexpr DialogTemplate kTemplate{4243, L"Options", 140, 70, 8, kControls, std::size(kControls)};

class COptionsDlg : public CDialog {
 public:
  COptionsDlg(COptions& options, CSeqRow& row) : CDialog(kTemplate), options_(options), row_(row) {}

 protected:
  void DoDataExchange(CDataExchange* dx) override {
    DDX_Field(dx, IDC_WINDOW, options_, COptions::Fields::SearchWindow());
    DDX_Field(dx, IDC_SCANS, options_, COptions::Fields::MinScansInBaseline());
    DDV_MinMaxInt(dx, options_.MinScansInBaseline(), 1, 50);
    DDX_FieldCheck(dx, IDC_VOID, options_, COptions::Fields::VoidTime());
    DDX_Field(dx, IDC_SAMPLE, row_, CSeqRow::Fields::SampleName());
  }

 private:
  COptions& options_;
  CSeqRow& row_;
};

TEST(FieldExchange, ShowsTheRecordAndSavesTheUsersEntries) {
  vglobal::testing::ScriptedPlatform platform;
  COptions options;
  options.SearchWindow(12.5);
  CSeqRow row;
  row.SampleName(L"blank");
  COptionsDlg dlg(options, row);
  DialogDriver user{dlg};
  ASSERT_TRUE(user.Open());
  CString text;
  dlg.GetDlgItemText(IDC_WINDOW, text);
  EXPECT_EQ(text, L"12.5");
  dlg.GetDlgItemText(IDC_SAMPLE, text);
  EXPECT_EQ(text, L"blank");

  user.Type(IDC_WINDOW, L"45.25");
  user.Type(IDC_SCANS, L"7");
  user.Click(IDC_VOID);
  user.Type(IDC_SAMPLE, L"std 1");
  user.PressEnter();
  EXPECT_EQ(options.SearchWindow(), 45.25);
  EXPECT_EQ(options.MinScansInBaseline(), 7);
  EXPECT_EQ(options.VoidTime(), 1);
  EXPECT_EQ(row.SampleName(), L"std 1");
}

TEST(FieldExchange, AnEntryThatIsNotANumberLeavesTheFieldAsItWas) {
  vglobal::testing::ScriptedPlatform platform;
  COptions options;
  CSeqRow row;
  COptionsDlg dlg(options, row);
  DialogDriver user{dlg};
  ASSERT_TRUE(user.Open());
  user.Type(IDC_WINDOW, L"wide");
  user.PressEnter();
  EXPECT_EQ(options.SearchWindow(), COptions().SearchWindow());
  EXPECT_TRUE(dlg.IsOpen()) << "the dialog stays open on a refused entry";
}

}  // namespace
