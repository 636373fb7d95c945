// msg_box_test.cpp: the message box's buttons, remembered answers, keys and timer, played by the
// scripted operator through real input.
#include <gtest/gtest.h>

#include "dialogs/dialog_fixture.h"
#include "platform/clock.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/headless_backend.h"
#include "toolkit/dialogs/dialog_profile.h"
#include "toolkit/dialogs/msg_box.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using namespace toolkit;

// ---- Button sets ----------------------------------------------------------------------------
struct SetCase {
  uint32_t style, ex_style;
  std::vector<int> ids;
  int default_id, escape_id;
};

const SetCase kSets[] = {
    {0, 0, {1}, 1, 1},
    {1, 0, {1, 2}, 1, 2},
    {2, 0, {3, 4, 5}, 3, -1},
    {3, 0, {6, 7, 2}, 6, 2},
    {3 | kMbYesToAll | kMbNoToAll, 0, {6, 14, 7, 15, 2}, 6, 2},
    {4 | kMbNoToAll, 0, {6, 7, 15}, 6, -1},
    {5, 0, {4, 2}, 4, 2},
    {6, 0, {2, 10, 11}, 2, 2},
    {7, 0, {11, 3}, 11, -1},
    {8, 0, {16, 17, 2}, 16, 2},
    {9, 0, {5, 18, 2}, 5, 2},
    {0xA, 0, {1}, 1, 1},                             // unknown sets show OK
    {3 | 0x200, 0, {6, 7, 2}, 2, 2},                 // third button is the default
    {1 | 0x300, 0, {1, 2}, 1, 2},                    // no fourth button: the first
    {2 | kMbHelp, kMbExCopyButton, {3, 4, 5, 9, 20}, 3, -1},
    {1 | 0x100, kMbExCopyButton | kMbExCopyFirst, {20, 1, 2}, 2, 2},
};

TEST(MsgBoxButtons, SetsDefaultsAndEscapes) {
  for (const SetCase& c : kSets) {
    const MsgBoxButtons b = MakeMsgBoxButtons(c.style, c.ex_style);
    std::vector<int> ids;
    for (const auto& button : b.buttons) ids.push_back(button.id);
    EXPECT_EQ(ids, c.ids) << std::hex << c.style;
    EXPECT_EQ(b.default_id, c.default_id) << std::hex << c.style;
    EXPECT_EQ(b.escape_id, c.escape_id) << std::hex << c.style;
  }
  EXPECT_EQ(MsgBoxButtonText(15), "No to a&ll");
  EXPECT_EQ(MsgBoxButtonText(20), "C&opy");
}

TEST(MsgBoxKey, ChecksumWeighsEachCharacterByItsIndex) {
  EXPECT_EQ(MsgBoxTextChecksum(""), 0);
  EXPECT_EQ(MsgBoxTextChecksum("ab"), 98);
  EXPECT_EQ(MsgBoxTextChecksum("abc"), 98 + 2 * 99);
  EXPECT_EQ(MsgBoxTextChecksum("ba"), 97);
  EXPECT_EQ(MsgBoxTextChecksum("\xC3\xA9"), -87);  // bytes count as signed
  EXPECT_EQ(MsgBoxUniqueId("", 7, "ab"), "msgbox-not-unique-helpid-7-chksum-98");
  EXPECT_EQ(MsgBoxUniqueId("save", 0, "ba"), "msgbox-save-helpid-0-chksum-97");
}

// ---- Through the window system --------------------------------------------------------------
class MsgBox : public DialogTest {
 protected:
  DialogScript Script() { return DialogScript(kMsgBoxTemplateId); }
  int Beeps() { return CurrentHeadless() ? CurrentHeadless()->beeps() : -1; }
};

TEST_F(MsgBox, ACheckedAnswerIsRememberedUntilTheTextChanges) {
  const uint32_t style = 4 | kMbCheckDontAsk;
  QueueDialogScript(Script().Check(kMbCheckBoxId).Press(IDYES));
  EXPECT_EQ(ExtMsgBox(nullptr, "Overwrite the sheet?", "Scan", style, 0, "overwrite"), IDYES);
  EXPECT_EQ(ReadDialogProfileInt(kMbProfileSection,
                                 MsgBoxUniqueId("overwrite", 0, "Overwrite the sheet?"), -1),
            IDYES);

  // No script: the stored answer comes back without a box.
  const int beeps = Beeps();
  EXPECT_EQ(ExtMsgBox(nullptr, "Overwrite the sheet?", "Scan", style, 0, "overwrite"), IDYES);
  EXPECT_EQ(Beeps(), beeps);

  QueueDialogScript(Script().Press(IDNO));
  EXPECT_EQ(ExtMsgBox(nullptr, "Overwrite the sheets?", "Scan", style, 0, "overwrite"), IDNO);
  EXPECT_EQ(PendingDialogScripts(), 0);
}

TEST_F(MsgBox, AnUncheckedAnswerOrABoxWithoutCheckIsNotRemembered) {
  QueueDialogScript(Script().Press(IDYES));
  EXPECT_EQ(ExtMsgBox(nullptr, "Go?", "Scan", 4 | kMbCheckDontDisplay), IDYES);
  QueueDialogScript(Script().Press(IDNO));
  EXPECT_EQ(ExtMsgBox(nullptr, "Go?", "Scan", 4 | kMbCheckDontDisplay), IDNO);
  EXPECT_EQ(PendingDialogScripts(), 0);
}

TEST_F(MsgBox, EmptyUniqueNamesShareTheirKey) {
  QueueDialogScript(Script().Check(kMbCheckBoxId).Press(IDRETRY));
  EXPECT_EQ(ExtMsgBox(nullptr, "Paper jam", "A", 5 | kMbCheckDontDisplay, 12), IDRETRY);
  EXPECT_EQ(ExtMsgBox(nullptr, "Paper jam", "B", 5 | kMbCheckDontDisplay, 12, ""), IDRETRY);
}

struct KeyCase {
  const char* name;
  uint32_t style;
  std::vector<unsigned> keys;
  int then_press;  // 0: nothing after the keys
  int expected;
};

const KeyCase kKeys[] = {
    {"escape presses cancel", 1, {VK_ESCAPE}, 0, IDCANCEL},
    {"escape presses the lone OK", 0, {VK_ESCAPE}, 0, IDOK},
    {"escape does nothing without a cancel-like button", 2, {VK_ESCAPE}, IDIGNORE, IDIGNORE},
    {"escape does nothing in yes/no", 4, {VK_ESCAPE}, IDNO, IDNO},
    {"enter presses the first button", 3, {VK_RETURN}, 0, IDYES},
    {"enter presses the chosen default", 3 | 0x100, {VK_RETURN}, 0, IDNO},
    {"tab then enter presses the focused button", 3, {VK_TAB, VK_RETURN}, 0, IDNO},
};

TEST_F(MsgBox, KeysEndTheBoxAsTheirButtonsSay) {
  for (const KeyCase& c : kKeys) {
    DialogScript s = Script();
    for (unsigned vk : c.keys) s.Key(vk);
    if (c.then_press) s.Press(c.then_press);
    QueueDialogScript(s);
    EXPECT_EQ(ExtMsgBox(nullptr, "Question", "Keys", c.style | kMbNoBeep), c.expected) << c.name;
    ClearDialogScripts();
  }
}

class ManualTime {
 public:
  ManualTime() { old_ = platform::SetClock(&clock_); }
  ~ManualTime() { platform::SetClock(old_); }
  ManualTime(const ManualTime&) = delete;
  ManualTime& operator=(const ManualTime&) = delete;
  platform::ManualClock clock_;

 private:
  platform::Clock* old_ = nullptr;
};

TEST_F(MsgBox, TheTimerPressesTheDefaultButtonWhenItRunsOut) {
  ManualTime time;
  const int64_t start = time.clock_.NowMs();
  EXPECT_EQ(ExtMsgBox(nullptr, "Closing soon", "Timer", 1 | 0x100, 0, nullptr, 0, 3), IDCANCEL);
  EXPECT_GE(time.clock_.NowMs() - start, 3000);
}

TEST_F(MsgBox, ADisabledWaitEatsKeysUntilTheTimeIsUp) {
  ManualTime time;
  QueueDialogScript(Script().Key(VK_RETURN).Key(VK_ESCAPE).Press(IDABORT));
  const int64_t start = time.clock_.NowMs();
  // Enter, Escape and the click all come while the buttons wait, and are lost; afterwards
  // nobody answers, and the headless host's close ends the box.
  EXPECT_EQ(ExtMsgBox(nullptr, "Read this first", "Timer", 2, 0, nullptr, 0, 2, true), IDCANCEL);
  EXPECT_GE(time.clock_.NowMs() - start, 2000);
}

TEST_F(MsgBox, TheBoxBeepsUnlessAskedNotTo) {
  const int before = Beeps();
  QueueDialogScript(Script().Press(IDOK));
  ExtMsgBox(nullptr, "Done", "Beep", 0x40);
  EXPECT_EQ(Beeps(), before + 1);
  QueueDialogScript(Script().Press(IDOK));
  ExtMsgBox(nullptr, "Done", "Beep", 0x40 | kMbNoBeep);
  EXPECT_EQ(Beeps(), before + 1);
}

}  // namespace
}  // namespace qmk::testing
