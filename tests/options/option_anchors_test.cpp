// The conversion and edit options dialogs keep their buttons hung on the top right as they grow.
#include <gtest/gtest.h>

#include <map>

#include "options/conversion_options_view.h"
#include "options/scanning_options_model.h"
#include "platform/ui/dialog.h"
#include "view_fixture.h"

namespace qmk::options::testing {
namespace {

using namespace platform::ui;

class AnchorViewTest : public OptionViewTest {
 protected:
  // Shows the dialog, notes where `ids` lie, widens and heightens it, and returns where they
  // lie then, with the client sizes before and after.
  std::map<int, std::pair<Rect, Rect>> Grow(frame::CCorvidDialog& dialog, int template_id,
                                            std::initializer_list<int> ids) {
    std::map<int, std::pair<Rect, Rect>> at;
    if (!dialog.Create(template_id, nullptr)) {
      ADD_FAILURE() << "dialog " << template_id << " not made";
      return at;
    }
    const HWND hwnd = dialog.GetSafeHwnd();
    ShowWindow(hwnd, SW_SHOW);
    Rect frame;
    GetWindowRect(hwnd, &frame);
    GetClientRect(hwnd, &client_before_);
    for (int id : ids) at[id].first = ChildRect(GetDlgItem(hwnd, id));
    SetWindowPos(hwnd, nullptr, 0, 0, frame.Width() + kGrowX, frame.Height() + kGrowY,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    GetClientRect(hwnd, &client_after_);
    for (int id : ids) at[id].second = ChildRect(GetDlgItem(hwnd, id));
    // The dialog's place and size are remembered when it closes: leave them as they were.
    SetWindowPos(hwnd, nullptr, 0, 0, frame.Width(), frame.Height(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    dialog.DestroyWindow();
    return at;
  }
  static Rect ChildRect(HWND child) {
    Rect r;
    GetWindowRect(child, &r);
    MapWindowRect(nullptr, GetParent(child), &r);
    return r;
  }
  // A control hung on the top right: same size, same distance from the right edge and the top.
  void ExpectHungTopRight(int id, const Rect& before, const Rect& after) {
    EXPECT_EQ(after.Width(), before.Width()) << id;
    EXPECT_EQ(after.Height(), before.Height()) << id;
    EXPECT_EQ(client_after_.right - after.right, client_before_.right - before.right) << id;
    EXPECT_EQ(after.top, before.top) << id;
  }

  static constexpr int kGrowX = 57, kGrowY = 31;
  Rect client_before_, client_after_;
};

TEST_F(AnchorViewTest, ConversionStretchesTheEditAndHangsItsButtonsTopRight) {
  int choice = 1;
  std::string name = "/out/a.txt";
  bool replace = false;
  CConvertOptionsDialog model(choice, name, replace, services_);
  view::CConvertOptionsDialog dialog(model);
  const auto at = Grow(dialog, CConvertOptionsDialog::kIdd, {kIdcOutputFile, kIdcBrowse, IDOK, IDCANCEL});
  ASSERT_EQ(at.size(), 4u);
  ASSERT_EQ(client_after_.Width(), client_before_.Width() + kGrowX);
  ASSERT_EQ(client_after_.Height(), client_before_.Height() + kGrowY);
  for (int id : {kIdcBrowse, IDOK, IDCANCEL}) ExpectHungTopRight(id, at.at(id).first, at.at(id).second);
  const auto& [edit_before, edit_after] = at.at(kIdcOutputFile);
  EXPECT_EQ(edit_after.left, edit_before.left);
  EXPECT_EQ(edit_after.top, edit_before.top);
  EXPECT_EQ(edit_after.Width(), edit_before.Width() + kGrowX);
  EXPECT_EQ(edit_after.Height(), edit_before.Height());
}

TEST_F(AnchorViewTest, EditOptionsHangsOkAndCancelTopRight) {
  uint16_t mode = 2;
  CEditOptionsDialog model(mode);
  view::CEditOptionsDialog dialog(model);
  const auto at = Grow(dialog, CEditOptionsDialog::kIdd, {kIdcEditNormally, IDOK, IDCANCEL});
  ASSERT_EQ(at.size(), 3u);
  ASSERT_EQ(client_after_.Height(), client_before_.Height() + kGrowY);
  for (int id : {IDOK, IDCANCEL}) ExpectHungTopRight(id, at.at(id).first, at.at(id).second);
  EXPECT_EQ(at.at(kIdcEditNormally).second, at.at(kIdcEditNormally).first);  // not anchored
}

}  // namespace
}  // namespace qmk::options::testing
