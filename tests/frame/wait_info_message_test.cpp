// The connection notice: its life is the wait, it centres over the parent, and a TWAIN open
// happens under it.
#include <gmock/gmock.h>

#include "frame/wait_notices.h"
#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;

const QMK_HWND kParent = reinterpret_cast<QMK_HWND>(16);

TEST_F(SessionTest, NoticeDisablesTheParentForItsLife) {
  op_.SetWindowRect(kParent, {10, 20, 311, 221});  // 301 x 201
  op_.SetNoticeSize(200, 60);
  {
    frame::CScnWaitInfoMessage wait(kParent);
    EXPECT_FALSE(op_.Enabled(kParent));
  }
  EXPECT_TRUE(op_.Enabled(kParent));
  EXPECT_THAT(op_.events(),
              ElementsAre("notice create \"Connecting to Scanner.\n\nPlease wait...\" cancel=0",
                          "disable 16", "notice move 60,90", "notice show 1", "enable 16",
                          "notice destroy"));
}

TEST_F(SessionTest, CentringTruncatesHalvesTowardZero) {
  // A parent smaller than the notice: (101 - 200) / 2 is -49 and (21 - 60) / 2 is -19, where
  // rounding down would give -50 and -20.
  op_.SetWindowRect(kParent, {10, 20, 111, 41});
  op_.SetNoticeSize(200, 60);
  frame::CScnWaitInfoMessage wait(kParent);
  EXPECT_EQ(op_.events()[2], "notice move -39,1");
}

TEST_F(SessionTest, NoticeThatCannotBeMadeLeavesTheParentEnabled) {
  op_.FailNextNotice();
  {
    frame::CScnWaitInfoMessage wait(kParent);
    EXPECT_EQ(wait.m_pDialog, nullptr);
    EXPECT_TRUE(op_.Enabled(kParent));
  }
  EXPECT_THAT(op_.events(), ElementsAre("notice failed"));
}

// Records how far the transport journal had come at each operator request.
class JournalWatchingOperator : public frame::ScriptedOperator {
 public:
  void EnableWindow(QMK_HWND w, bool enabled) override {
    at.push_back(QlkSimJournalSize());
    ScriptedOperator::EnableWindow(w, enabled);
  }
  std::vector<int> at;
};

TEST_F(SessionTest, TwainOpenRunsUnderTheNoticeAndOtherFamiliesShowNone) {
  JournalWatchingOperator watcher;
  frame::SetOperator(&watcher);
  HostRecords twain(Word({12, 12, 12, true}));
  qlkdata_rec* rec = twain.Open(nullptr, kParent);
  ASSERT_NE(rec, nullptr);
  EXPECT_THAT(watcher.at, ElementsAre(0, 1));  // disabled before QlkOpen, enabled right after
  EXPECT_TRUE(watcher.Enabled(kParent));
  ScnScanTerm(rec);

  watcher.ClearEvents();
  HostRecords plain(Word({2, 5, 1}));
  rec = plain.Open(nullptr, kParent);
  EXPECT_TRUE(watcher.events().empty());
  ScnScanTerm(rec);
  frame::SetOperator(&op_);
}

TEST_F(SessionTest, FailedTwainOpenStillGivesTheParentBack) {
  QlkSimForceResult("QlkOpen", 12, 1);
  HostRecords twain(Word({12, 13, 12, true}));
  int error = 0;
  EXPECT_EQ(twain.Open(&error, kParent), nullptr);
  EXPECT_EQ(error, 1154);
  EXPECT_TRUE(op_.Enabled(kParent));
  EXPECT_EQ(op_.events().back(), "notice destroy");
}

}  // namespace
}  // namespace qmk::testing
