// edit_control_test.cpp: the edit control through typed keys, clicks and its messages: the text
// and EN_CHANGE, refusals, limit, selection messages, clipboard, lines.
#include <gmock/gmock.h>

#include <cstring>

#include "platform/ui/controls/clipboard.h"
#include "ui_controls/control_fixture.h"

namespace qmk::platform::ui::controls::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EditTest : public ControlTest {
 protected:
  void SetUp() override {
    ControlTest::SetUp();
    SetCurrentClipboard(&clipboard_);
  }
  void TearDown() override {
    SetCurrentClipboard(nullptr);
    ControlTest::TearDown();
  }
  HWND MakeEdit(uint32_t style, const char* text = "", int id = 1001) {
    HWND e = Make(kEditClass, text, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL | style,
                  {10, 10, 210, 32}, id);
    SetFocus(e);
    Pump();
    HeardLog().clear();
    return e;
  }
  static std::pair<int, int> Sel(HWND e) {
    uint32_t start = 0, end = 0;
    Send(e, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
  }
  MemoryClipboard clipboard_;
};

TEST_F(EditTest, TypedTextReachesTheWindowTextWithEnChangeForEachKey) {
  HWND e = MakeEdit(0);
  Type("COM1");
  EXPECT_EQ(GetWindowText(e), "COM1");
  std::vector<unsigned> changes;
  for (unsigned code : Commands(1001)) if (code == EN_CHANGE) changes.push_back(code);
  EXPECT_EQ(changes.size(), 4u);
  Key(VK_BACK);
  EXPECT_EQ(GetWindowText(e), "COM");
  Key(VK_LEFT, kModShift);
  Key(VK_LEFT, kModShift);
  EXPECT_EQ(Sel(e), std::make_pair(1, 3));
  Type("x");
  EXPECT_EQ(GetWindowText(e), "Cx");
}

TEST_F(EditTest, NumberOnlyAndReadOnlyRefuseTypingWithoutChange) {
  HWND digits = MakeEdit(ES_NUMBER, "", 1002);
  Type("1a2");
  EXPECT_EQ(GetWindowText(digits), "12");
  HWND fixed = MakeEdit(ES_READONLY, "kept", 1003);
  Type("zz");
  Key(VK_BACK);
  EXPECT_EQ(GetWindowText(fixed), "kept");
  EXPECT_THAT(Commands(1003), IsEmpty());
  // A program may still replace the selection of a read-only edit.
  Send(fixed, EM_SETSEL, 0, -1);
  SendText(fixed, EM_REPLACESEL, 0, "new");
  EXPECT_EQ(GetWindowText(fixed), "new");
}

TEST_F(EditTest, LimitStopsTypingAndSaysMaxText) {
  HWND e = MakeEdit(0);
  Send(e, EM_LIMITTEXT, 2);
  EXPECT_EQ(Send(e, EM_GETLIMITTEXT), 2);
  Type("605");
  EXPECT_EQ(GetWindowText(e), "60");
  EXPECT_THAT(Commands(1001), ::testing::Contains(EN_MAXTEXT));
  // Window text is not held to the limit.
  SetWindowText(e, "12345");
  EXPECT_EQ(GetWindowText(e), "12345");
}

TEST_F(EditTest, SettingTheTextTellsTheParentAsTypingDoes) {
  HWND e = MakeEdit(0);
  SetWindowText(e, "10");
  EXPECT_THAT(Commands(1001), ElementsAre(EN_UPDATE, EN_CHANGE));
  EXPECT_EQ(Send(e, EM_GETMODIFY), 0);
  EXPECT_EQ(Send(e, EM_CANUNDO), 0);
}

TEST_F(EditTest, SelectionMessagesAndTheirEdges) {
  HWND e = MakeEdit(0, "abcdef");
  struct Case { WPARAM start; LPARAM end; int want_start, want_end; };
  for (const Case& c : {Case{1, 3, 1, 3}, Case{4, 2, 2, 4}, Case{0, -1, 0, 6},
                        Case{2, 99, 2, 6}}) {
    Send(e, EM_SETSEL, c.start, c.end);
    EXPECT_EQ(Sel(e), std::make_pair(c.want_start, c.want_end)) << c.start << "," << c.end;
  }
  LRESULT packed = Send(e, EM_GETSEL);
  EXPECT_EQ(LOWORD(static_cast<uintptr_t>(packed)), 2);
  EXPECT_EQ(HIWORD(static_cast<uintptr_t>(packed)), 6);
}

TEST_F(EditTest, ClipboardKeysAndUndo) {
  HWND e = MakeEdit(0, "alpha beta");
  Send(e, EM_SETSEL, 0, 5);
  Key('C', kModControl);
  std::string got;
  ASSERT_TRUE(clipboard_.GetText(&got));
  EXPECT_EQ(got, "alpha");
  Send(e, EM_SETSEL, 10, 10);
  Key('V', kModControl);
  EXPECT_EQ(GetWindowText(e), "alpha betaalpha");
  Key('Z', kModControl);
  EXPECT_EQ(GetWindowText(e), "alpha beta");
  Send(e, EM_UNDO);
  EXPECT_EQ(GetWindowText(e), "alpha betaalpha");
  Send(e, EM_SETSEL, 0, 6);
  Send(e, WM_CUT);
  EXPECT_EQ(GetWindowText(e), "betaalpha");
  ASSERT_TRUE(clipboard_.GetText(&got));
  EXPECT_EQ(got, "alpha ");
}

TEST_F(EditTest, PasswordShowsStarsAndKeepsItsText) {
  HWND e = MakeEdit(ES_PASSWORD, "secret");
  EXPECT_EQ(Send(e, EM_GETPASSWORDCHAR), '*');
  Send(e, EM_SETSEL, 0, -1);
  clipboard_.SetText("before");
  Key('C', kModControl);
  std::string got;
  clipboard_.GetText(&got);
  EXPECT_EQ(got, "before");
  EXPECT_EQ(GetWindowText(e), "secret");
}

TEST_F(EditTest, WithoutAutoScrollASingleLineTakesOnlyWhatFits) {
  HWND e = Make(kEditClass, "", WS_BORDER, {10, 10, 60, 32}, 1004);
  SetFocus(e);
  Type(std::string(40, 'W'));
  int kept = GetWindowTextLength(e);
  EXPECT_GT(kept, 0);
  EXPECT_LT(kept, 40);
}

TEST_F(EditTest, MultiLineEnterLinesAndScrolling) {
  HWND e = Make(kEditClass, "", WS_BORDER | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL,
                {10, 10, 210, 60}, 1005);
  SetFocus(e);
  Type("one");
  Key(VK_RETURN);
  Type("two");
  for (int i = 0; i < 6; ++i) {
    Key(VK_RETURN);
    Type("more");
  }
  EXPECT_EQ(Send(e, EM_GETLINECOUNT), 8);
  EXPECT_EQ(Send(e, EM_LINEINDEX, 1), 5);
  EXPECT_EQ(Send(e, EM_LINELENGTH, 5), 3);
  EXPECT_GT(Send(e, EM_GETFIRSTVISIBLELINE), 0);  // the caret's line was scrolled into view
  char buffer[16] = {};
  uint16_t size = sizeof buffer;
  std::memcpy(buffer, &size, sizeof size);
  EXPECT_EQ(Send(e, EM_GETLINE, 1, reinterpret_cast<LPARAM>(buffer)), 3);
  EXPECT_EQ(std::string(buffer, 3), "two");
  EXPECT_EQ(GetWindowText(e).substr(0, 10), "one\r\ntwo\r\n");
  LRESULT code = Send(e, WM_GETDLGCODE);
  EXPECT_TRUE(code & DLGC_HASSETSEL);
  EXPECT_TRUE(code & DLGC_WANTCHARS);
}

TEST_F(EditTest, ClickPlacesTheCaretAndDoubleClickSelectsAWord) {
  HWND e = MakeEdit(0, "scan errors");
  ClickAt(e, {4, 10});
  EXPECT_EQ(Sel(e), std::make_pair(0, 0));
  Point p{150, 10};  // past the text's end, inside the edit
  ClientToScreen(e, &p);
  InjectMouse(MouseAction::DoubleClick, p);
  Pump();
  EXPECT_EQ(Sel(e), std::make_pair(5, 11));
}

}  // namespace
}  // namespace qmk::platform::ui::controls::testing
