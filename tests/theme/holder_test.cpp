// holder_test.cpp: the holder's start-up steps, its install order, sinks and change message,
// the window bridge, and saving the theme through an archive.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/archive.h"
#include "theme/theme_fixture.h"
#include "toolkit/theme/pm_bridge.h"

namespace qmk::toolkit::theme::testing {

std::vector<std::string>& Journal() {
  static std::vector<std::string> journal;
  return journal;
}

// A theme that writes its life into the journal.
class JournalTheme : public CExtPaintManager {
  QMK_DECLARE_DYNCREATE(JournalTheme)
 public:
  JournalTheme() : m_nSerial(++s_nMade) {}
  ~JournalTheme() override { Journal().push_back("delete " + std::to_string(m_nSerial)); }
  void SyncSysColors() override {
    Journal().push_back("fonts " + std::to_string(m_nSerial));
    CExtPaintManager::SyncSysColors();
  }
  void InitTranslatedColors() override {
    Journal().push_back("colours " + std::to_string(m_nSerial) + " at " + std::to_string(m_nColorDepth));
    CExtPaintManager::InitTranslatedColors();
  }
  int m_nSerial;
  static inline int s_nMade = 0;
};
QMK_IMPLEMENT_DYNCREATE(JournalTheme, CExtPaintManager)

// Something with a class record that is not a theme.
class NotATheme : public CObject {
  QMK_DECLARE_DYNCREATE(NotATheme)
 public:
  ~NotATheme() override { Journal().push_back("delete not a theme"); }
};
QMK_IMPLEMENT_DYNCREATE(NotATheme, CObject)

namespace {

const CRuntimeClass kNoMaker{"NoMaker", QMK_RUNTIME_CLASS(CExtPaintManager), nullptr};

class JournalSink : public CExtPmSynchronizeSink {
 public:
  explicit JournalSink(std::string name) : name_(std::move(name)) {}
  void PmBridge_OnPaintManagerChanged(CExtPaintManagerAutoPtr* sender) override {
    auto* pm = dynamic_cast<JournalTheme*>(sender->m_pPaintManager);
    Journal().push_back(name_ + " told of " + (pm ? std::to_string(pm->m_nSerial) : "base"));
    if (remove_on_call) sender->RemoveSink(remove_on_call);
  }
  void PmBridge_OnSysColorChange(CExtPaintManagerAutoPtr*) override { Journal().push_back(name_ + " colours"); }
  CExtPmSynchronizeSink* remove_on_call = nullptr;

 private:
  std::string name_;
};

class Holder : public ThemeTest {
 protected:
  void SetUp() override {
    ThemeTest::SetUp();
    Journal().clear();
    JournalTheme::s_nMade = 0;
  }
};

PlatformQueries FakeDesktop(int depth, bool layered) {
  PlatformQueries q = DefaultPlatformQueries();
  q.screen_dpi = [](int axis) { return 120 + axis; };
  q.color_depth = [depth] { return depth; };
  q.os_version = [] { return OsVersionInfo{"Linux", 6, 1, 55, "#1 SMP"}; };
  q.visual_style = [] { return VisualStyle{"luna.msstyles", "homestead"}; };
  q.resolve = [layered](const char* library, const char* name) -> void* {
    static int marker;
    if (std::string(name) == "UpdateLayeredWindow" && layered) return &marker;
    if (std::string(library) == "image" && std::string(name) == "AlphaBlend") return &marker;
    return nullptr;
  };
  return q;
}

TEST_F(Holder, StartUpRecordsTheDesktop) {
  CExtPaintManagerAutoPtr holder(FakeDesktop(32, true));
  EXPECT_EQ(holder.m_strOsVer, "Linux v.6.1 (build 55) #1 SMP");
  EXPECT_EQ(holder.m_dwOsFamily, kOsFamilyLinux);
  EXPECT_EQ(holder.Dpi(0), 120);
  EXPECT_EQ(holder.Dpi(1), 121);
  EXPECT_EQ(holder.Dpi(2), 122);
  EXPECT_EQ(holder.m_dwDpiScaling, 15u);
  EXPECT_EQ(holder.m_visualStyle.color_scheme, "homestead");
  EXPECT_NE(holder.OptionalCallAddress("AlphaBlend"), nullptr);
  EXPECT_EQ(holder.OptionalCallAddress("GradientFill"), nullptr) << "a missing call answers not available";
  EXPECT_EQ(holder.OptionalCallAddress("NoSuchCall"), nullptr);
  EXPECT_TRUE(holder.m_bLayeredHighColorAvailable);
  EXPECT_FALSE(holder.HasPM()) << "no theme is made before someone asks";
}

TEST_F(Holder, LayeredWindowsNeedDepthAndTheCall) {
  struct Case { int depth; bool call; bool want; };
  for (const Case c : {Case{15, true, true}, {14, true, false}, {32, false, false}, {8, true, false}})
    EXPECT_EQ(CExtPaintManagerAutoPtr(FakeDesktop(c.depth, c.call)).m_bLayeredHighColorAvailable, c.want)
        << "depth " << c.depth;
}

int g_nDpiAwareCalls = 0;
int MarkDpiAware() { return ++g_nDpiAwareCalls; }

TEST_F(Holder, DefaultsAnswerForAnUndescribedDesktopAndCallDpiAwareAtOnce) {
  CExtPaintManagerAutoPtr plain;
  EXPECT_EQ(plain.Dpi(1), 96);
  EXPECT_EQ(plain.m_nDesktopColorDepth, 32);
  EXPECT_FALSE(plain.m_bLayeredHighColorAvailable);
  for (const OptionalCall& call : kOptionalCalls) EXPECT_EQ(plain.OptionalCallAddress(call.name), nullptr);

  PlatformQueries q = DefaultPlatformQueries();
  q.os_version = [] { return OsVersionInfo{}; };
  q.resolve = [](const char*, const char* name) -> void* {
    return std::string(name) == "SetProcessDPIAware" ? reinterpret_cast<void*>(&MarkDpiAware) : nullptr;
  };
  g_nDpiAwareCalls = 0;
  CExtPaintManagerAutoPtr aware(q);
  EXPECT_EQ(g_nDpiAwareCalls, 1);
  EXPECT_EQ(aware.m_strOsVer, "Unknown v.0.0 (build 0) ");
}

TEST_F(Holder, InstallOrderFontsColoursThenSinksThenWindows) {
  CExtPaintManagerAutoPtr holder(FakeDesktop(24, false));
  JournalSink a("a"), b("b");
  holder.AddSink(&a);
  holder.AddSink(&b);
  holder.AddSink(&a);  // once only
  holder.SetBroadcast([](const char* name) { Journal().push_back(std::string("broadcast ") + name); });
  ASSERT_TRUE(holder.InstallPaintManagerByClass(QMK_RUNTIME_CLASS(JournalTheme)));
  ASSERT_TRUE(holder.InstallPaintManagerByClass(QMK_RUNTIME_CLASS(JournalTheme)));
  const std::string msg = std::string("broadcast ") + kMsgPaintManagerChangedName;
  EXPECT_EQ(Journal(), (std::vector<std::string>{
                           "fonts 1", "colours 1 at 24", "a told of 1", "b told of 1", msg,
                           "delete 1", "fonts 2", "colours 2 at 24", "a told of 2", "b told of 2", msg}));
}

TEST_F(Holder, RefusedClassesChangeNothing) {
  CExtPaintManagerAutoPtr holder;
  JournalSink sink("sink");
  holder.AddSink(&sink);
  ASSERT_TRUE(holder.InstallPaintManagerByClass(QMK_RUNTIME_CLASS(JournalTheme)));
  CExtPaintManager* kept = holder.GetPM();
  Journal().clear();
  EXPECT_FALSE(holder.InstallPaintManagerByClass(QMK_RUNTIME_CLASS(NotATheme)));
  EXPECT_FALSE(holder.InstallPaintManagerByClass(&kNoMaker));
  EXPECT_FALSE(holder.InstallPaintManager(nullptr));
  EXPECT_EQ(holder.GetPM(), kept);
  EXPECT_EQ(Journal(), std::vector<std::string>{"delete not a theme"}) << "made, found wrong, deleted, nobody told";
}

TEST_F(Holder, NullClassInstallsTheBase) {
  CExtPaintManagerAutoPtr holder;
  ASSERT_TRUE(holder.InstallPaintManagerByClass(QMK_RUNTIME_CLASS(CExtPaintManagerXP)));
  ASSERT_TRUE(holder.InstallPaintManagerByClass(nullptr));
  EXPECT_EQ(holder.GetPM()->GetRuntimeClass(), QMK_RUNTIME_CLASS(CExtPaintManager));
}

TEST_F(Holder, TheSameObjectAndALoadKeepTheOldTheme) {
  CExtPaintManagerAutoPtr holder;
  auto* first = new JournalTheme;
  holder.InstallPaintManager(first);
  holder.InstallPaintManager(first);
  EXPECT_EQ(std::count(Journal().begin(), Journal().end(), "delete 1"), 0) << "installing the present theme again";
  holder.m_bPaintManagerLoading = true;
  auto* second = new JournalTheme;
  holder.InstallPaintManager(second);
  EXPECT_EQ(std::count(Journal().begin(), Journal().end(), "delete 1"), 0) << "a load doesn't delete";
  holder.m_bPaintManagerLoading = false;
  delete first;  // the loader's to free
}

TEST_F(Holder, SinksMayLeaveWhileTheyAreTold) {
  CExtPaintManagerAutoPtr holder;
  JournalSink a("a"), b("b");
  a.remove_on_call = &b;
  holder.AddSink(&a);
  holder.AddSink(&b);
  holder.InstallPaintManagerByClass(QMK_RUNTIME_CLASS(JournalTheme));
  EXPECT_EQ(std::count(Journal().begin(), Journal().end(), "b told of 1"), 0);
  EXPECT_FALSE(holder.HasSink(&b));
  holder.OnSysColorChange();
  EXPECT_EQ(Journal().back(), "a colours");
}

TEST_F(Holder, ArchiveKeepsTheClass) {
  CExtPaintManagerAutoPtr holder;
  holder.InstallPaintManagerByClass(QMK_RUNTIME_CLASS(CExtPaintManagerStudio2008));
  platform::Archive out = platform::Archive::ToMemory();
  ASSERT_TRUE(holder.Serialize(out));
  const std::vector<uint8_t> bytes = out.TakeStored();

  CExtPaintManagerAutoPtr other;
  platform::Archive in = platform::Archive::FromMemory(bytes.data(), bytes.size());
  ASSERT_TRUE(other.Serialize(in));
  EXPECT_EQ(other.GetPM()->GetRuntimeClass(), QMK_RUNTIME_CLASS(CExtPaintManagerStudio2008));

  // A name that is no theme, and a cut archive, leave the present theme.
  for (const std::string& name : {std::string("NotATheme"), std::string("CObject")}) {
    platform::Archive bad = platform::Archive::ToMemory();
    bad.WriteString(name);
    const std::vector<uint8_t> b = bad.TakeStored();
    platform::Archive read = platform::Archive::FromMemory(b.data(), b.size());
    EXPECT_FALSE(other.Serialize(read)) << name;
  }
  platform::Archive cut = platform::Archive::FromMemory(bytes.data(), 3);
  EXPECT_FALSE(other.Serialize(cut));
  EXPECT_EQ(other.GetPM()->GetRuntimeClass(), QMK_RUNTIME_CLASS(CExtPaintManagerStudio2008));
}

// A window that has a handle once it is created.
class Window : public CExtPmBridge {
 public:
  WindowHandle PmBridge_GetSafeHwnd() const override { return hwnd; }
  WindowHandle hwnd = 0;
};
class FramedWindow : public CExtPmBridgeNC {
 public:
  WindowHandle PmBridge_GetSafeHwnd() const override { return 42; }
};

TEST_F(Holder, BridgeRepaintsItsWindowWhenTheHolderSpeaks) {
  std::vector<std::string> calls;
  SetBridgeWindowCalls({[&](WindowHandle h, unsigned f) { calls.push_back("pos " + std::to_string(h) + " " + std::to_string(f)); return true; },
                        [&](WindowHandle h, unsigned f) { calls.push_back("redraw " + std::to_string(h) + " " + std::to_string(f)); return true; }});
  CExtPaintManagerAutoPtr holder, stranger;
  Window w;
  w.PmBridge_Install(&holder);
  holder.InstallPaintManagerByClass(nullptr);
  EXPECT_TRUE(calls.empty()) << "no window yet";
  w.hwnd = 7;
  holder.InstallPaintManagerByClass(nullptr);
  EXPECT_EQ(calls, (std::vector<std::string>{"pos 7 567", "redraw 7 133"}));
  calls.clear();
  w.PmBridge_OnPaintManagerChanged(&stranger);
  w.PmBridge_OnSettingChange(&holder);
  w.PmBridge_OnDisplayChange(&holder);
  EXPECT_TRUE(calls.empty()) << "another sender, and the hooks with empty bodies";
  w.PmBridge_OnThemeChanged(&holder);
  EXPECT_EQ(calls.size(), 2u);
  calls.clear();
  {
    FramedWindow f;
    f.PmBridge_Install(&holder);
    holder.OnSysColorChange();
    EXPECT_EQ(calls, (std::vector<std::string>{"pos 7 567", "redraw 7 133", "pos 42 567", "redraw 42 1157"}));
  }
  EXPECT_EQ(holder.m_sinks.size(), 1u) << "a destroyed window leaves the sinks";
  w.PmBridge_Uninstall();
  EXPECT_TRUE(holder.m_sinks.empty());
  SetBridgeWindowCalls({});
}

}  // namespace
}  // namespace qmk::toolkit::theme::testing
