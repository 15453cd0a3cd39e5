// List widgets under Qt as the model lays them out: rows of the model's height with
// the model's top row on top, tabbed texts in columns at the tab stops, the
// extended styles as drawn, fitted column widths; and the edit's modified flag set
// by typing into the widget.
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>
#include <iterator>
#include <string>
#include <vector>

#include "vglobal/widgets.h"

namespace {

using namespace vglobal;  // kinds and style bits

enum : int { IDC_AUDIT = 7301, IDC_SAMPLES, IDC_NOTE };

constexpr ControlTemplate kControls[] = {
    {IDC_AUDIT, ControlKind::ListBox, L"", 7, 7, 260, 52, kTabStop | kUseTabStops},
    {IDC_SAMPLES, ControlKind::ListCtrl, L"", 7, 64, 260, 80, kTabStop},
    {IDC_NOTE, ControlKind::Edit, L"", 7, 150, 120, 12, kTabStop},
};
constexpr DialogTemplate kTemplate{7300, L"Lists", 274, 170, 8, kControls, std::size(kControls)};

struct ListsView : ::testing::Test {
  CDialog dlg{kTemplate};
  std::unique_ptr<QDialog> view;
  CListBox* audit = nullptr;
  CListCtrl* samples = nullptr;
  void SetUp() override {
    view = RenderDialog(dlg);
    ASSERT_NE(view, nullptr);
    view->show();
    audit = dlg.GetDlgItemAs<CListBox>(IDC_AUDIT);
    samples = dlg.GetDlgItemAs<CListCtrl>(IDC_SAMPLES);
  }
  template <typename W>
  W* Widget(int id) {
    return qobject_cast<W*>(ControlWidget(*view, id));
  }
};

// Where the ink of each column of a row begins: runs of ink apart by more than `gap`.
std::vector<int> ColumnStarts(const QImage& image, const QRect& row, int gap) {
  const QColor background = image.pixelColor(row.right() - 1, row.center().y());
  std::vector<int> starts;
  int last = -gap - 1;
  for (int x = row.left(); x <= row.right(); ++x) {
    bool ink = false;
    for (int y = row.top(); y <= row.bottom() && !ink; ++y)
      ink = image.pixelColor(x, y) != background;
    if (!ink) continue;
    if (x - last > gap) starts.push_back(x);
    last = x;
  }
  return starts;
}

TEST_F(ListsView, ListBoxDrawsTabbedTextsAtTheStopsAndKeepsTheModelsTopRow) {
  const int stops[] = {76, 170};
  audit->SetTabStops(2, stops);
  CString text;
  for (int i = 0; i < 12; ++i) {
    text.Format(L"18.03.2024 10:%02d\tjmiller\tMethod quan_%d saved", i, i);
    audit->AddString(text.GetString());
  }
  auto* list = Widget<QListWidget>(IDC_AUDIT);
  ASSERT_NE(list, nullptr);

  const QRect first = list->visualItemRect(list->item(0));
  EXPECT_EQ(first.height(), audit->GetItemHeight(0));
  const QImage picture = list->viewport()->grab().toImage();
  const std::vector<int> starts = ColumnStarts(picture, first, 12);
  ASSERT_EQ(starts.size(), 3u);
  const int stop1 = audit->NextTabStop(0), stop2 = audit->NextTabStop(stop1);
  EXPECT_NEAR(starts[1] - starts[0], stop1, 2);
  EXPECT_NEAR(starts[2] - starts[0], stop2, 2);

  audit->SetTopIndex(11);
  const int top = audit->GetTopIndex();
  EXPECT_LT(top, 11);  // the last page stays full
  EXPECT_EQ(list->indexAt(QPoint(3, 1)).row(), top);
  const int page = 12 - top;
  EXPECT_LE(list->visualItemRect(list->item(top + page - 1)).bottom(), list->viewport()->height());
  audit->SetCurSel(2);
  EXPECT_EQ(list->indexAt(QPoint(3, 1)).row(), 2);
}

TEST_F(ListsView, ListControlShowsTheModelsGeometryAndItsExtendedStyles) {
  samples->InsertColumn(0, L"Sample");
  samples->InsertColumn(1, L"Vial", LVCFMT_RIGHT, 60);
  samples->InsertColumn(2, L"Comment");
  for (int i = 0; i < 14; ++i) {
    samples->InsertItem(i, i == 3 ? L"Calibration level 10" : L"QC");
    samples->SetItemText(i, 1, std::to_wstring(i + 1).c_str());
  }
  samples->SetColumnWidth(0, LVSCW_AUTOSIZE);
  samples->SetColumnWidth(2, LVSCW_AUTOSIZE_USEHEADER);
  auto* tree = Widget<QTreeWidget>(IDC_SAMPLES);
  ASSERT_NE(tree, nullptr);
  for (int c = 0; c < 3; ++c) EXPECT_EQ(tree->columnWidth(c), samples->GetColumnWidth(c)) << c;
  EXPECT_LT(QFontMetrics(tree->font()).horizontalAdvance(QStringLiteral("Calibration level 10")),
            samples->GetColumnWidth(0) - 6);             // shown whole, not elided
  EXPECT_EQ(tree->horizontalScrollBar()->maximum(), 0);  // the last column fills, no more

  CRect row;
  samples->EnsureVisible(12, FALSE);
  ASSERT_TRUE(samples->GetItemRect(12, &row, LVIR_BOUNDS));
  const QRect shown = tree->visualItemRect(tree->topLevelItem(12));
  EXPECT_EQ(shown.height(), row.Height());
  EXPECT_EQ(tree->frameWidth() + tree->header()->height() + shown.top(), row.top);
  EXPECT_EQ(tree->itemAt(QPoint(3, 1)), tree->topLevelItem(samples->GetTopIndex()));

  // A selected row: its second column is highlighted with full-row selection only;
  // grid lines run along the cells' bottom edges.
  samples->SetItemState(samples->GetTopIndex(), LVIS_SELECTED, LVIS_SELECTED);
  const QRect cell0 = tree->visualRect(tree->model()->index(samples->GetTopIndex(), 0));
  const QRect cell2 = tree->visualRect(tree->model()->index(samples->GetTopIndex(), 2));
  const QPoint blank0(cell0.right() - 3, cell0.center().y());
  const QPoint blank2(cell2.right() - 3, cell2.center().y());
  const QPoint edge(cell2.right() - 3, cell2.bottom() + shown.height());  // the next row's bottom
  auto grab = [&] { return tree->viewport()->grab().toImage(); };
  QImage plain = grab();
  EXPECT_NE(plain.pixelColor(blank0), plain.pixelColor(blank2));
  EXPECT_EQ(plain.pixelColor(edge), plain.pixelColor(edge - QPoint(0, 4)));
  samples->SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  QImage styled = grab();
  EXPECT_EQ(styled.pixelColor(blank0), styled.pixelColor(blank2));
  EXPECT_NE(styled.pixelColor(edge), styled.pixelColor(edge - QPoint(0, 4)));
}

TEST_F(ListsView, TypingIntoTheFieldSetsTheModifiedFlag) {
  auto* note = dlg.GetDlgItemAs<CEdit>(IDC_NOTE);
  note->SetWindowText(L"from the program");
  EXPECT_FALSE(note->GetModify());
  QTest::keyClicks(Widget<QLineEdit>(IDC_NOTE), QStringLiteral("!"));
  EXPECT_TRUE(note->GetModify());
}

}  // namespace
