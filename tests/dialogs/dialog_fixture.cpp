// dialog_fixture.cpp: set-up of the dialog tests.
#include "dialogs/dialog_fixture.h"

#include "platform/ui/backend.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/message_loop.h"
#include "toolkit/dialogs/builtin_resources.h"
#include "toolkit/dialogs/dialog_profile.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmk::testing {

using namespace platform::ui;

namespace {

constexpr const char* kAnchorText = R"(dialog 9901
caption "Anchors"
position 0 0 200 100
style WS_POPUP | WS_CAPTION | WS_THICKFRAME
edit   101 ""        8 8 150 12
button 102 "Browse"  162 8 30 14
end
)";

constexpr const char* kPageText = R"(dialog 9902
position 0 0 100 60
style WS_CHILD
edit 201 "" 4 4 60 12
end
)";

}  // namespace

void DialogTest::SetUp() {
  ASSERT_TRUE(InstallBackend(MakeHeadlessBackend().release()));
  toolkit::InstallToolkitSeams();
  static const bool added = [] {
    auto& module = toolkit::BuiltinResources();
    return toolkit::AddDialogTemplate(module, kAnchorTemplate, "en", kAnchorText) &&
           toolkit::AddDialogTemplate(module, kPageTemplate, "en", kPageText);
  }();
  ASSERT_TRUE(added);
  toolkit::SetDialogProfilePath("");
  ClearDialogScripts();
}

void DialogTest::TearDown() {
  for (HWND t : GetChildren(nullptr))
    if (!NativeWindowId(t)) DestroyWindow(t);
  Pump();
  ClearDialogScripts();
}

void DialogTest::Pump() {
  MSG msg;
  for (int i = 0; i < 10; ++i)
    while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessage(&msg);
}

Rect DialogTest::ChildRect(HWND child) {
  Rect r;
  GetWindowRect(child, &r);
  MapWindowRect(nullptr, GetParent(child), &r);
  return r;
}

}  // namespace qmk::testing
