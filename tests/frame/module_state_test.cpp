// Every guarded export enters this library's module state and gives the caller's back on every
// way out; the forwarders enter nothing.
#include <gmock/gmock.h>

#include <functional>

#include "frame/module_state_guard.h"
#include "support/scoped_env.h"
#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

struct ExportCall {
  const char* name;
  std::function<void()> call;
  long entries;  // how often the call enters the module state
};

TEST_F(SessionTest, ExportsRestoreTheCallersStateOnSuccessAndFailure) {
  platform::ModuleState host{"host"};
  HostRecords good(Word({2, 5, 1, true, true}));
  qlkdata_rec* open_rec = nullptr;
  const ExportCall calls[] = {
      {"open, success", [&] { open_rec = good.Open(nullptr); }, 1},
      {"mode, success", [&] { ScnSetScannerMode(open_rec, 0, 0, 0, 0, 0); }, 1},
      {"close, success", [&] { ScnScanTerm(open_rec); }, 1},
      {"open, null records", [&] { ScnInitializeScanner(nullptr, nullptr, nullptr, nullptr); }, 1},
      {"open, refused", [&] { QlkSimForceResult("QlkOpen", 2, 1); good.Open(nullptr); }, 1},
      {"open, comm fails", [&] { QlkSimForceResult("QlkCommSet", -7, 1); good.Open(nullptr); }, 1},
      {"open, absent", [&] { QlkSimForceResult("QlkIsScanner", -9, 1); good.Open(nullptr); }, 1},
      {"open, warning", [&] { QlkSimForceResult("QlkBarSet", -4, 1); ScnScanTerm(good.Open(nullptr)); }, 2},
      {"mode, null record", [] { ScnSetScannerMode(nullptr, 0, 0, 0, 0, 0); }, 1},
      {"close, null record", [] { ScnScanTerm(nullptr); }, 1},
      {"read OMR, null record", [] { ScnScanForOMR(nullptr, nullptr, 1, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr); }, 1},
      {"bar code, null record", [] { char t[4]; ScnReadBarcodeBuffer(nullptr, 4, t); }, 1},
      {"image, empty hopper", [&] {
         qlkdata_rec* rec = good.Open(nullptr);
         sht_desc desc{};
         ScnScanForImage(nullptr, rec, &desc, 0, nullptr, nullptr, 0, 0);
         ScnScanToDefineFormIds(nullptr, rec, &desc, 0, nullptr, nullptr, 0, 1, 0, 0, 1);
         ScnScanTerm(rec);
       }, 4},
      {"log", [] { scan_error_log_registry* log = nullptr; char a[8] = "", b[8] = "";
                   ScnGetScannerErrorLog(log, a, b); ScnResetScannerErrorLog(a, b); }, 2},
      {"discovery, no port", [] {
         ScnCheckForNonPadLot(nullptr);
         ScnIsPadLotScannerPresentOnPort(nullptr);
         ScnGetSelfScoreScannerThreshold(nullptr, nullptr);
         char name[64];
         ScnTwainGetModel(12, name);
         int a = 0, b = 0, c = 0, d = 0;
         ScnCheckUSB(&a, &b, &c, &d);
       }, 5},
      {"scanner name", [&] { char name[64]; ScnGetScannerNameC(&good.cfg.feat_mask, name, sizeof name, nullptr); }, 1},
      {"auto name, preview", [] {
         static build_data record{};
         std::strcpy(record.autoNameTemplate, "SCAN*S.DAT");
         char out[QMK_NAME_BYTES];
         ScnMakeAutoName(nullptr, "", out, &record, 0);
       }, 1},
      {"GTK parent, headless", [] {
         ScopedEnv ui("QMK_UI", "headless");
         EXPECT_EQ(ScnSetParentGtkWindow(nullptr), 0);
       }, 1},
      {"theme", [] { ScnSetPaintManager(29765); ScnSetPaintManager(0); }, 2},
      // Plain table work and record filling enter nothing.
      {"lead edge default", [] { EXPECT_EQ(ScnGetDefaultLeadEdgeTol(12), 12); }, 0},
      {"PadLot record filling", [&] { ScnSetCfigWithPadLotInfo(3, &good.cfg, &good.comm); }, 0},
      {"forwarder, show", [] { ScnShowOptionalComponents(); }, 0},
      {"forwarder, count", [] { EXPECT_EQ(ScnOptionalComponentCount(), 0); }, 0},
  };
  for (const ExportCall& c : calls) {
    platform::SetCurrentModule(&host);
    const long before = frame::ThisModule().entries;
    c.call();
    EXPECT_EQ(platform::CurrentModule(), &host) << c.name;
    EXPECT_EQ(frame::ThisModule().entries - before, c.entries) << c.name;
  }
  platform::SetCurrentModule(nullptr);
}

TEST_F(SessionTest, NoticeIsMadeInsideTheLibrarysState) {
  platform::ModuleState host{"host"};
  platform::SetCurrentModule(&host);
  HostRecords twain(Word({12, 12, 12, true}));
  ScnScanTerm(twain.Open(nullptr));
  EXPECT_THAT(op_.modules_seen(), ::testing::Each(std::string("QmkScan")));
  EXPECT_FALSE(op_.modules_seen().empty());
  EXPECT_EQ(platform::CurrentModule(), &host);
  platform::SetCurrentModule(nullptr);
}

}  // namespace
}  // namespace qmk::testing
