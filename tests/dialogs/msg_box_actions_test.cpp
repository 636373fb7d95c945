// msg_box_actions_test.cpp: the message box's Copy and Help actions (buttons and keys), an icon
// of its own, and the scrolling text edit, played by the scripted operator on the headless back
// end.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

#include "dialogs/dialog_fixture.h"
#include "platform/ui/backend.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/controls/clipboard.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/screen.h"
#include "toolkit/dialogs/msg_box.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using namespace toolkit;

class MsgBoxActions : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    controls::SetCurrentClipboard(&clipboard_);
    SetMsgBoxHelpHandler([this](HWND box, int help_id) {
      EXPECT_TRUE(IsWindow(box));
      helped_.push_back(help_id);
    });
  }
  void TearDown() override {
    SetMsgBoxHelpHandler({});
    controls::SetCurrentClipboard(nullptr);
    DialogTest::TearDown();
  }
  static DialogScript Script() { return DialogScript(kMsgBoxTemplateId); }
  std::string Clipboard() const {
    std::string text;
    return clipboard_.GetText(&text) ? text : "(empty)";
  }
  // Runs a box and calls `look` once on it when it stands, before the script's end.
  static int WhileShown(const std::function<void(HWND box)>& look,
                        const std::function<int()>& run) {
    bool looked = false;
    const int idle = AddIdleHandler([&](int) {
      const HWND box = GetActiveWindow();
      if (box && !looked) {
        looked = true;
        look(box);
        PostMessage(box, WM_COMMAND, IDOK, 0);
      }
      return false;
    });
    const int result = run();
    RemoveIdleHandler(idle);
    EXPECT_TRUE(looked) << "the box never stood";
    return result;
  }

  controls::MemoryClipboard clipboard_;
  std::vector<int> helped_;
};

struct CopyCase {
  const char* name;
  uint32_t ex_style;
  DialogScript script;
  const char* clipboard;
};

TEST_F(MsgBoxActions, CopyPutsTheTextOnTheClipboardAndKeepsTheBoxOpen) {
  const CopyCase cases[] = {
      {"the Copy button", kMbExCopyButton, Script().Press(kMbCopyButtonId).Press(IDOK), "Sheet 4 is torn"},
      {"Enter on the Copy button", kMbExCopyButton,
       Script().Key(VK_TAB).Key(VK_RETURN).Press(IDOK), "Sheet 4 is torn"},
      {"Ctrl+C", 0, Script().Key('C', kModControl).Press(IDOK), "Sheet 4 is torn"},
      {"Ctrl+Insert", 0, Script().Key(VK_INSERT, kModControl).Press(IDOK), "Sheet 4 is torn"},
      {"no copying by keyboard", kMbExNoKeyboardCopy, Script().Key('C', kModControl).Press(IDOK), "(empty)"},
      {"C without Ctrl", 0, Script().Key('C').Press(IDOK), "(empty)"},
  };
  for (const CopyCase& c : cases) {
    clipboard_.Clear();
    QueueDialogScript(c.script);
    EXPECT_EQ(ExtMsgBox(nullptr, "Sheet 4 is torn", "Scan", kMbNoBeep, 0, nullptr, c.ex_style), IDOK)
        << c.name;
    EXPECT_EQ(Clipboard(), c.clipboard) << c.name;
    EXPECT_EQ(PendingDialogScripts(), 0) << c.name;
    ClearDialogScripts();
  }
}

TEST_F(MsgBoxActions, HelpComesFromItsButtonAndFromF1OnlyWhenAskedFor) {
  QueueDialogScript(Script().Press(kMbHelpButtonId).Press(IDCANCEL));
  EXPECT_EQ(ExtMsgBox(nullptr, "Jam", "Scan", 1 | kMbHelp | kMbNoBeep, 4711), IDCANCEL);
  EXPECT_EQ(helped_, std::vector<int>{4711}) << "the Help button must ask for help, not end the box";

  helped_.clear();
  QueueDialogScript(Script().Key(VK_F1).Press(IDOK));
  EXPECT_EQ(ExtMsgBox(nullptr, "Jam", "Scan", kMbNoBeep, 12, nullptr, kMbExHelpByF1), IDOK);
  EXPECT_EQ(helped_, std::vector<int>{12});

  helped_.clear();
  QueueDialogScript(Script().Key(VK_F1).Press(IDOK));
  EXPECT_EQ(ExtMsgBox(nullptr, "Jam", "Scan", kMbNoBeep, 12), IDOK);
  EXPECT_TRUE(helped_.empty()) << "F1 without the extended style asks for nothing";
}

TEST_F(MsgBoxActions, WithoutAHandlerHelpGoesToTheOwner) {
  SetMsgBoxHelpHandler({});
  static int asked = -1;
  WNDCLASS wc;
  wc.lpszClassName = "HelpOwner";
  wc.lpfnWndProc = [](HWND h, unsigned m, WPARAM wp, LPARAM lp) -> LRESULT {
    if (m == kMsgBoxHelpMessage) asked = static_cast<int>(wp);
    return DefWindowProc(h, m, wp, lp);
  };
  GetClassInfo(wc.lpszClassName, &wc) || RegisterClass(wc);
  const HWND owner = CreateWindowEx(0, "HelpOwner", "Owner", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100,
                                    nullptr, 0, nullptr);
  ASSERT_NE(owner, nullptr);
  QueueDialogScript(Script().Press(kMbHelpButtonId).Press(IDOK));
  EXPECT_EQ(ExtMsgBox(owner, "Jam", "Scan", kMbHelp | kMbNoBeep, 31), IDOK);
  EXPECT_EQ(asked, 31);
  DestroyWindow(owner);
}

TEST_F(MsgBoxActions, TheDisabledWaitLosesCopyKeysToo) {
  QueueDialogScript(Script().Key('C', kModControl));
  ExtMsgBox(nullptr, "Wait", "Timer", kMbNoBeep, 0, nullptr, 0, 1, true);
  EXPECT_EQ(Clipboard(), "(empty)");
}

// A solid icon of the caller's: 32 by 32 pixels of one colour (blue, green, red, alpha).
controls::HICON SolidIcon(uint8_t b, uint8_t g, uint8_t r) {
  std::vector<uint8_t> pixels(32 * 32 * 4);
  for (size_t i = 0; i < pixels.size(); i += 4) {
    pixels[i] = b;
    pixels[i + 1] = g;
    pixels[i + 2] = r;
    pixels[i + 3] = 255;
  }
  platform::PixelView view{pixels.data(), 32, 32, 32 * 4, false};
  return controls::CreateIconFromImage(platform::DeviceImage::Create(view));
}

TEST_F(MsgBoxActions, AnIconOfItsOwnIsShownInPlaceOfTheSystemIcon) {
  Rect text_with_icon{}, text_without{};
  std::unique_ptr<platform::DrawTarget> picture;
  WhileShown(
      [&](HWND box) {
        text_with_icon = ChildRect(GetDlgItem(box, kMsgBoxTextId));
        picture = RenderWindow(box);
      },
      [] {
        return ExtMsgBox(nullptr, "Done", "Icon", kMbNoBeep, 0, nullptr, 0, 0, false,
                         SolidIcon(0, 0, 255));
      });
  WhileShown([&](HWND box) { text_without = ChildRect(GetDlgItem(box, kMsgBoxTextId)); },
             [] { return ExtMsgBox(nullptr, "Done", "Icon", kMbNoBeep); });
  EXPECT_GT(text_with_icon.left, text_without.left + 32) << "the text must make room for the icon";
  ASSERT_NE(picture, nullptr);
  // The icon lies left of the text, at the top; somewhere there the picture is pure red.
  int red = 0;
  for (int y = 0; y < picture->height(); ++y)
    for (int x = 0; x < text_with_icon.left && x < picture->width(); ++x)
      red += (picture->GetPixel(x, y) & 0xFFFFFF) == 0x0000FF;
  EXPECT_GE(red, 32 * 32 / 2) << "the box's own icon is not on the screen";
}

TEST_F(MsgBoxActions, LongTextsScrollInAReadOnlyEditOfBoundedHeight) {
  std::string long_text;
  for (int i = 1; i <= 200; ++i) long_text += "Line " + std::to_string(i) + " of the scanner log\n";
  const int half_work = PrimaryMonitor().work.Height() / 2;
  WhileShown(
      [&](HWND box) {
        const HWND edit = GetDlgItem(box, kMsgBoxTextId);
        EXPECT_EQ(GetClassName(edit), "Edit");
        EXPECT_TRUE(GetWindowLongPtr(edit, GWL_STYLE) & ES_READONLY);
        EXPECT_TRUE(GetWindowLongPtr(edit, GWL_STYLE) & WS_VSCROLL);
        EXPECT_EQ(GetWindowText(edit), long_text);
        EXPECT_LE(ChildRect(edit).Height(), half_work);
      },
      [&] {
        return ExtMsgBox(nullptr, long_text.c_str(), "Log", kMbNoBeep, 0, nullptr,
                         kMbExScrollText | kMbExScrollBar);
      });

  int short_height = 0, label_height = 0;
  WhileShown([&](HWND box) { short_height = ChildRect(GetDlgItem(box, kMsgBoxTextId)).Height(); },
             [] { return ExtMsgBox(nullptr, "Short", "Log", kMbNoBeep, 0, nullptr, kMbExScrollText); });
  WhileShown([&](HWND box) { label_height = ChildRect(GetDlgItem(box, kMsgBoxTextId)).Height(); },
             [] { return ExtMsgBox(nullptr, "Short", "Log", kMbNoBeep); });
  EXPECT_GT(short_height, 3 * label_height) << "a short text still gets the minimum text height";
}

}  // namespace
}  // namespace qmk::testing
