// msg_box_layout_test.cpp: the message box's parts are toolkit controls drawn by the theme, and
// its text gets the room the label needs to show every row of it.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "dialogs/dialog_fixture.h"
#include "platform/ui/message_loop.h"
#include "toolkit/dialogs/ext_button.h"
#include "toolkit/dialogs/ext_check_box.h"
#include "toolkit/dialogs/ext_label.h"
#include "toolkit/dialogs/label_text.h"
#include "toolkit/dialogs/msg_box.h"
#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/dialogs/themed_control.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using namespace toolkit;

class MsgBoxLayout : public DialogTest {
 protected:
  // Shows a box, hands it to `look` once it is up, then answers it with `answer`.
  int ShowAndLook(const std::string& text, uint32_t style, int answer, const std::function<void(HWND)>& look) {
    bool seen = false;
    const int idle = AddIdleHandler([&](int) {
      const HWND box = GetActiveWindow();
      if (!seen && box) {
        seen = true;
        look(box);
        PostMessage(box, WM_COMMAND, static_cast<WPARAM>(answer), 0);
      }
      return false;
    });
    const int result = ExtMsgBox(nullptr, text.c_str(), "Scan", style | kMbNoBeep);
    RemoveIdleHandler(idle);
    EXPECT_TRUE(seen);
    return result;
  }
};

template <class T>
bool IsA(HWND h) {
  return dynamic_cast<T*>(ThemedControl::FromHandle(h)) != nullptr;
}

TEST_F(MsgBoxLayout, EveryPartOfTheBoxIsAThemedControl) {
  const uint32_t style = 3 | 0x20 | kMbCheckDontAsk;
  ShowAndLook("Replace the answers?", style, IDNO, [](HWND box) {
    for (int id : {IDYES, IDNO, IDCANCEL}) EXPECT_TRUE(IsA<CExtButton>(GetDlgItem(box, id))) << id;
    EXPECT_TRUE(IsA<CExtCheckBox>(GetDlgItem(box, kMbCheckBoxId)));
    EXPECT_TRUE(IsA<CExtLabel>(GetDlgItem(box, kMsgBoxTextId)));
    for (HWND child : GetChildren(box)) {
      if (GetClassName(child) == "Corvid-SizeGripper") continue;  // the toolkit's own window
      EXPECT_NE(ThemedControl::FromHandle(child), nullptr) << GetClassName(child) << " stayed plain";
    }
  });
}

// A dialog whose children are themed by its set-up exactly when the subclass flag asks.
class FlaggedDialog : public CExtResizableDialog {
 public:
  explicit FlaggedDialog(bool subclass) : CExtResizableDialog(kAnchorTemplate) {
    if (subclass) m_nFlags |= kWsSubclassChildren;
  }
};

TEST_F(MsgBoxLayout, TheSubclassFlagThemesTheChildrenAtInitialisation) {
  for (bool flag : {false, true}) {
    FlaggedDialog dlg(flag);
    ASSERT_TRUE(dlg.Create(kAnchorTemplate, nullptr));
    EXPECT_EQ(ThemedControl::FromHandle(GetDlgItem(dlg.GetSafeHwnd(), 101)) != nullptr, flag);
    EXPECT_EQ(IsA<CExtButton>(GetDlgItem(dlg.GetSafeHwnd(), 102)), flag);
    dlg.DestroyWindow();
  }
}

struct TextCase {
  const char* name;
  std::string text;
  size_t min_rows;
};

TEST_F(MsgBoxLayout, TheTextLabelHoldsEveryRowItWraps) {
  const std::string word(40, 'w');
  std::string path = "/home/operator/scans";
  while (path.size() < 400) path += "/batch-of-answer-sheets";
  const TextCase cases[] = {
      {"five long words", word + "a " + word + "b " + word + "c " + word + "d " + word + "e", 3},
      {"path without blanks", path, 2},
      {"line breaks", "First line\n\nThird line\r\nFourth", 4},
  };
  for (const TextCase& c : cases) {
    ShowAndLook(c.text, 0, IDOK, [&](HWND box) {
      const HWND label = GetDlgItem(box, kMsgBoxTextId);
      Rect r;
      GetClientRect(label, &r);
      const LabelTextLayout shown = LayOutLabelText(label, r.Width());
      EXPECT_GE(shown.lines.size(), c.min_rows) << c.name;
      EXPECT_GE(r.Height(), shown.Height()) << c.name << ": the last rows are cut off";
      EXPECT_LE(shown.Width(), r.Width()) << c.name << ": a row runs past the edge";
      // Nothing is lost between the rows: joined with what the breaks took, they are the text.
      std::string joined;
      for (const std::string& row : shown.lines) joined += row;
      std::string plain;
      for (char ch : c.text)
        if (ch != ' ' && ch != '\n' && ch != '\r') plain += ch;
      std::string rows_plain;
      for (char ch : joined)
        if (ch != ' ') rows_plain += ch;
      EXPECT_EQ(rows_plain, plain) << c.name;
      // The box stands on the screen whole.
      Rect whole;
      GetWindowRect(box, &whole);
      EXPECT_LE(whole.Width(), PrimaryMonitor().bounds.Width()) << c.name;
    });
  }
}

TEST(LabelWrapWords, LongWordsBreakBetweenCharactersOnlyWhenAsked) {
  const TextWidth measure = [](const std::string& line) {
    int n = 0;  // ten pixels a character, counting UTF-8 sequences once
    for (char ch : line) n += (static_cast<unsigned char>(ch) & 0xC0) != 0x80;
    return n * 10;
  };
  struct Case {
    std::string text;
    int width;
    bool break_words;
    std::vector<std::string> want;
  };
  const Case cases[] = {
      {"/a/b/c/d/e", 40, true, {"/a/b", "/c/d", "/e"}},
      {"/a/b/c/d/e", 40, false, {"/a/b/c/d/e"}},
      {"go /tmp/answers.csv now", 60, true, {"go", "/tmp/a", "nswers", ".csv", "now"}},
      {"\xC3\xA9\xC3\xA9\xC3\xA9", 20, true, {"\xC3\xA9\xC3\xA9", "\xC3\xA9"}},  // whole characters
      {"abc", 5, true, {"a", "b", "c"}},  // narrower than a character: one each, no hang
      {"ab\ncd", 10, true, {"a", "b", "c", "d"}},
  };
  for (const Case& c : cases) EXPECT_EQ(WrapLabelText(c.text, measure, c.width, true, c.break_words), c.want) << c.text;
}

}  // namespace
}  // namespace qmk::testing
