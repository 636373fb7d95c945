// A host's own operator through ScnSetOperator, and the answers when nobody can be asked.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "frame/operator.h"
#include "frame/unattended_operator.h"
#include "qmk/QmkLinkSim.h"
#include "qmk/QmkScan.h"
#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;

// What the host's callbacks saw, and what they answer.
struct HostLog {
  std::vector<std::string> seen;
  std::vector<int> fault_answers;
  bool cancel = false;
};

HostLog* Log(void* context) { return static_cast<HostLog*>(context); }

ScnOperator Callbacks(HostLog* log) {
  ScnOperator op{};
  op.size = sizeof op;
  op.context = log;
  op.message_box = [](void* c, QMK_HWND, const char* text, const char* caption, unsigned flags,
                      int) {
    Log(c)->seen.push_back(std::string("box ") + caption + ": " + text + " " + std::to_string(flags));
    return 1;
  };
  op.fault_list = [](void* c, const char* title, const char* heading, const char* const* faults,
                     int count, const char* advice) {
    std::string line = std::string("faults ") + title + "|" + heading + "|";
    for (int i = 0; i < count; ++i) line += std::string(faults[i]) + "|";
    Log(c)->seen.push_back(line + advice + (faults[count] ? " unterminated" : ""));
    const int answer = Log(c)->fault_answers.empty() ? 2 : Log(c)->fault_answers.front();
    if (!Log(c)->fault_answers.empty()) Log(c)->fault_answers.erase(Log(c)->fault_answers.begin());
    return answer;
  };
  return op;
}

class HostOperator : public ::testing::Test {
 protected:
  void SetUp() override {
    QlkSimReset();
    previous_ = frame::SetOperator(nullptr);  // the default choice, as a host sees it
  }
  void TearDown() override {
    ScnSetOperator(nullptr);
    frame::SetOperator(previous_);
    QlkSimReset();
  }
  frame::Operator* previous_ = nullptr;
};

TEST_F(HostOperator, RefusedSetsLeaveTheInstalledOneInPlace) {
  HostLog log;
  ScnOperator good = Callbacks(&log);
  ASSERT_EQ(ScnSetOperator(&good), 0);

  ScnOperator small = good;
  small.size = 8;
  ScnOperator no_box = good;
  no_box.message_box = nullptr;
  ScnOperator half_notices = good;
  half_notices.notice_create = [](void*, QMK_HWND, const char*, int) -> void* { return nullptr; };
  EXPECT_EQ(ScnSetOperator(&small), QMK_ERROR_BAD_OPERATOR);
  EXPECT_EQ(ScnSetOperator(&no_box), QMK_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(ScnSetOperator(&half_notices), QMK_ERROR_BAD_OPERATOR);

  frame::CurrentOperator().MessageBox(nullptr, "still here", "Host", 0x30, 0);
  EXPECT_THAT(log.seen, ElementsAre("box Host: still here 48"));
}

TEST_F(HostOperator, FaultListGetsTheDialogTextsAndDecidesTheRepeat) {
  HostLog log;
  log.fault_answers = {1, 5};  // read again, then an answer that is not "again": stop
  ScnOperator op = Callbacks(&log);
  ASSERT_EQ(ScnSetOperator(&op), 0);
  LoadBatch("sheet\n status1 0x40\nend\nsheet\n status1 0x40\nend\n");
  qlkdata_rec* rec = OpenReader({2, 5, 1});
  ASSERT_NE(rec, nullptr);
  std::vector<char> front(QMK_OMR_BYTES), back(QMK_OMR_BYTES);
  int cells[2], lengths[2];
  EXPECT_EQ(ScnScanForOMR(nullptr, rec, 0, QMK_OMR_BYTES, front.data(), back.data(), &cells[0],
                          &cells[1], &lengths[0], &lengths[1]),
            7);
  const std::string shown =
      "faults Scan Error|The Following Errors Occurred:|Sheet too thick|Correct conditions "
      "described above and rescan sheet if necessary.  Make sure you are scanning the proper sheet.";
  EXPECT_THAT(log.seen, ElementsAre(shown, shown));
  ScnScanTerm(rec);
}

TEST_F(HostOperator, NoticesGoThroughTheHostWhenItGivesThem) {
  struct Notices : HostLog {
    int made = 0, destroyed = 0;
  } log;
  ScnOperator op = Callbacks(&log);
  op.notice_create = [](void* c, QMK_HWND, const char* text, int cancel) -> void* {
    auto* l = static_cast<Notices*>(c);
    l->seen.push_back(std::string("notice ") + text + (cancel ? " +cancel" : ""));
    return &++l->made;
  };
  op.notice_text = [](void* c, void*, const char* text) { Log(c)->seen.push_back(std::string("text ") + text); };
  op.notice_show = [](void* c, void*, int on) { Log(c)->seen.push_back("show " + std::to_string(on)); };
  op.notice_cancelled = [](void* c, void*) { return Log(c)->cancel ? 1 : 0; };
  op.notice_destroy = [](void* c, void*) { ++static_cast<Notices*>(c)->destroyed; };
  ASSERT_EQ(ScnSetOperator(&op), 0);
  {
    auto notice = frame::CurrentOperator().CreateNotice(nullptr, "Warming up", true);
    ASSERT_NE(notice, nullptr);
    notice->Show(true);
    notice->SetText("0:42");
    EXPECT_FALSE(notice->Cancelled());
    log.cancel = true;
    EXPECT_TRUE(notice->Cancelled());
  }
  EXPECT_EQ(log.destroyed, 1);
  EXPECT_THAT(log.seen, ElementsAre("notice Warming up +cancel", "show 1", "text 0:42"));
}

TEST(UnattendedOperator, StopsOnFaultsAndAnswersBoxesAsAClosedBox) {
  frame::UnattendedOperator op;
  EXPECT_EQ(op.ShowScanErrorList({"Sheet jammed"}), 2);
  struct Case { unsigned flags; int answer; };
  for (Case c : {Case{0x00, 1}, {0x01, 2}, {0x02, 3}, {0x03, 2}, {0x04, 7}, {0x05, 2}, {0x36, 1}})
    EXPECT_EQ(op.MessageBox(nullptr, "t", "c", c.flags, 0), c.answer) << c.flags;
  auto notice = op.CreateNotice(nullptr, "Connecting", true);
  ASSERT_NE(notice, nullptr);
  EXPECT_FALSE(notice->Cancelled());
}

}  // namespace
}  // namespace qmk::testing
