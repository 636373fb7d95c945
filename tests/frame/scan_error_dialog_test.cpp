// The scan error dialog answering failed sheets on the headless back end: its texts, the list in
// the array's order, its help context, OK repeating the read and Cancel ending the call with 7.
#include <gmock/gmock.h>

#include "dialog_session_fixture.h"
#include "frame/corvid_app.h"
#include "frame/dlg_scan_error.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "qmk/QmkGen.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using ::testing::ElementsAre;

// What one scan error dialog showed, read when its loop first fell idle.
struct Shown {
  std::string title;
  std::vector<std::string> texts;  // the static texts, top to bottom
  std::vector<std::string> items;  // the list
  int help_id = 0;
  HWND owner = nullptr;
};

class ScanErrorWatcher {
 public:
  ScanErrorWatcher() : id_(AddIdleHandler([this](int) { return Look(), false; })) {}
  ~ScanErrorWatcher() { RemoveIdleHandler(id_); }
  std::vector<Shown> shown;

 private:
  void Look() {
    const HWND dlg = GetActiveWindow();
    if (!dlg || GetDialogTemplateId(dlg) != frame::kScanErrorTemplate || dlg == last_) return;
    last_ = dlg;
    Shown s{GetWindowText(dlg), {}, {}, GenGetHelpId(), GetParent(dlg)};
    for (HWND c : GetChildren(dlg))
      if (GetDlgCtrlID(c) == -1 || GetDlgCtrlID(c) == 0xFFFF) s.texts.push_back(GetWindowText(c));
    const auto count = SendDlgItemMessage(dlg, frame::kScanErrorListId, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
      char text[256] = "";
      SendDlgItemMessage(dlg, frame::kScanErrorListId, LB_GETTEXT, static_cast<WPARAM>(i),
                         reinterpret_cast<LPARAM>(text));
      s.items.emplace_back(text);
    }
    shown.push_back(s);
  }
  int id_;
  HWND last_ = nullptr;
};

int Picks(const std::vector<std::string>& journal) {
  int n = 0;
  for (const std::string& call : journal) n += call.rfind("QlkPick(", 0) == 0;
  return n;
}

class ScanErrorDialog : public DialogSessionTest {
 protected:
  void TearDown() override {
    GenSetHelpId(0);
    DialogSessionTest::TearDown();
  }
  int ScanOmr(qlkdata_rec* rec) {
    std::vector<char> front(QMK_OMR_BYTES), back(QMK_OMR_BYTES);
    int ints[4];
    return ScnScanForOMR(host_, rec, 0, QMK_OMR_BYTES, front.data(), back.data(), &ints[0],
                         &ints[1], &ints[2], &ints[3]);
  }
};

TEST_F(ScanErrorDialog, OkReadsTheSheetAgainAndCancelEndsTheCallWith7) {
  LoadBatch("sheet\n status1 0x40\nend\nsheet\n status1 0x40\nend\n");
  qlkdata_rec* rec = OpenReader({2, 5, 1});
  ASSERT_NE(rec, nullptr);
  QueueDialogScript(DialogScript(frame::kScanErrorTemplate).Press(IDOK));
  QueueDialogScript(DialogScript(frame::kScanErrorTemplate).Press(IDCANCEL));
  GenSetHelpId(55);
  ScanErrorWatcher watch;
  const int first = QlkSimJournalSize();

  EXPECT_EQ(ScanOmr(rec), 7);

  EXPECT_EQ(PendingDialogScripts(), 0);
  EXPECT_THAT(DialogScriptLog(), ElementsAre("101: click 1", "101: click 2"));
  EXPECT_EQ(Picks(Journal(first)), 2) << "OK reads again; Cancel reads no more";
  ASSERT_EQ(watch.shown.size(), 2u);
  const std::string advice =
      "Correct conditions described above and rescan sheet if necessary.  Make sure you are "
      "scanning the proper sheet.";
  for (const Shown& s : watch.shown) {
    EXPECT_EQ(s.title, "Scan Error");
    EXPECT_THAT(s.texts, ElementsAre("The Following Errors Occurred:", advice));
    EXPECT_THAT(s.items, ElementsAre("Sheet too thick"));
    EXPECT_EQ(s.help_id, 101);
  }
  EXPECT_EQ(GenGetHelpId(), 55) << "the help context comes back when the dialog closes";
  ScnScanTerm(rec);
}

TEST_F(ScanErrorDialog, ListKeepsTheArrayOrderAndOpensOverTheMainWindow) {
  const std::vector<std::string> faults = {"Sheet jammed", "Double feed", "All sheets ahead"};
  frame::TheApp().m_pMainWnd = host_;
  QueueDialogScript(DialogScript(frame::kScanErrorTemplate).Press(IDOK));
  ScanErrorWatcher watch;
  EXPECT_EQ(frame::RunScanErrorDialog(faults), 1);
  frame::TheApp().m_pMainWnd = nullptr;
  ASSERT_EQ(watch.shown.size(), 1u);
  EXPECT_EQ(watch.shown[0].items, faults);
  EXPECT_EQ(watch.shown[0].owner, host_);
}

TEST_F(ScanErrorDialog, EveryWayOutButOkStops) {
  struct Case {
    const char* how;
    DialogScript script;
    int want;
  };
  const Case cases[] = {
      {"OK", DialogScript(101).Press(IDOK), 1},
      {"Enter on the default button", DialogScript(101).Key(VK_RETURN), 1},
      {"Cancel", DialogScript(101).Press(IDCANCEL), 2},
      {"Escape", DialogScript(101).Key(VK_ESCAPE), 2},
      // With nothing queued the headless screen closes the window, as a person might.
      {"closed", DialogScript(0), 2},
  };
  for (const Case& c : cases) {
    QueueDialogScript(c.script);
    EXPECT_EQ(frame::RunScanErrorDialog({"Sheet jammed"}), c.want) << c.how;
    ClearDialogScripts();
  }
}

}  // namespace
}  // namespace qmk::testing
