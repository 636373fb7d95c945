// module_backend_test.cpp: the built module as the window system's loader sees it: its entry
// point, the back-end interface over real GTK windows, and its calls into the window system.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <thread>
#include <string>
#include <vector>

#include "platform/ui/backend.h"
#include "platform/ui/gtk3/host_parent.h"
#include "ui_gtk/gtk_session.h"

#include <gdk/gdkx.h>  // after GoogleTest: Xlib's macros clash with its names

namespace qmk::platform::ui {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace qmk::testing;  // NOLINT: input and screenshot helpers

HWND Handle(uintptr_t n) { return reinterpret_cast<HWND>(n); }

// The window system's side, writing each call as a line.
class RecordingHost : public BackendHost {
 public:
  std::vector<std::string> log;
  void OnKey(HWND top, bool down, unsigned vk, unsigned mods, bool repeat) override {
    Add("%p key %s %02X mods %u%s", top, down ? "down" : "up", vk, mods, repeat ? " repeat" : "");
  }
  void OnChar(HWND top, char32_t ch, unsigned mods) override { Add("%p char %u", top, unsigned(ch)); }
  void OnMouse(HWND top, MouseAction action, MouseButton button, Point at, unsigned mods,
               int wheel) override {
    Add("%p mouse %d button %d at %d,%d", top, int(action), int(button), at.x, at.y);
  }
  void OnExpose(HWND top, const Rect& r) override { Add("%p expose %dx%d", top, r.Width(), r.Height()); }
  void OnConfigure(HWND top, const Rect& r) override {
    Add("%p configure %d,%d %dx%d", top, r.left, r.top, r.Width(), r.Height());
  }
  void OnCloseRequest(HWND top) override { Add("%p close", top); }
  void OnFocus(HWND top, bool gained) override { Add("%p focus %d", top, gained); }
  void OnScreenChanged() override { Add("screen"); }

 private:
  template <typename... Args>
  void Add(const char* format, Args... args) {
    char buffer[160];
    std::snprintf(buffer, sizeof buffer, format, args...);
    log.push_back(buffer);
  }
};

class ModuleBackendTest : public GtkSession {
 protected:
  void SetUp() override {
    GtkSession::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    module_ = dlopen(QMK_UI_GTK3_MODULE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module_, nullptr) << dlerror();
    create_ = reinterpret_cast<CreateBackendFn>(dlsym(module_, kCreateBackendSymbol));
    ASSERT_NE(create_, nullptr);
    backend_.reset(create_(kBackendAbiVersion));
    ASSERT_NE(backend_, nullptr);
    ASSERT_TRUE(backend_->Start(&host_));
  }
  void TearDown() override {
    if (backend_) backend_->Stop();
    backend_.reset();
    GtkSession::TearDown();
  }

  // Creates and shows a surface, and waits until the server has mapped it.
  void Open(HWND top, const Rect& r, SurfaceParams params = {}) {
    params.screen_rect = r;
    ASSERT_TRUE(backend_->CreateSurface(top, params));
    backend_->ShowSurface(top, true, true);
    ASSERT_TRUE(PumpUntil([&] {
      for (auto& line : host_.log)
        if (line.find("expose") != std::string::npos) return true;
      return false;
    })) << "the surface was never shown";
    Drain();
  }
  GtkWidget* NativeOf(HWND top) {
    // Each surface is the only GtkWindow with its title.
    GList* all = gtk_window_list_toplevels();
    GtkWidget* found = nullptr;
    for (GList* l = all; l; l = l->next)
      if (g_strcmp0(gtk_window_get_title(GTK_WINDOW(l->data)), TitleOf(top).c_str()) == 0)
        found = GTK_WIDGET(l->data);
    g_list_free(all);
    return found;
  }
  static std::string TitleOf(HWND top) { return "surface " + std::to_string(reinterpret_cast<uintptr_t>(top)); }
  SurfaceParams Titled(HWND top) {
    SurfaceParams p;
    p.title = TitleOf(top);
    return p;
  }

  void* module_ = nullptr;
  CreateBackendFn create_ = nullptr;
  RecordingHost host_;
  std::unique_ptr<Backend> backend_;
};

TEST_F(ModuleBackendTest, EntryPointRefusesAnotherInterfaceVersion) {
  EXPECT_EQ(create_(kBackendAbiVersion + 1), nullptr);
  EXPECT_EQ(create_(0), nullptr);
  EXPECT_STREQ(backend_->Name(), "gtk3");
}

TEST_F(ModuleBackendTest, SurfacesAreCreatedOncePerWindowAndNeverEmpty) {
  SurfaceParams params;
  params.screen_rect = {10, 10, 110, 60};
  EXPECT_TRUE(backend_->CreateSurface(Handle(0x10), params));
  EXPECT_FALSE(backend_->CreateSurface(Handle(0x10), params)) << "a second surface for one window";
  EXPECT_FALSE(backend_->CreateSurface(nullptr, params));
  params.screen_rect = {10, 10, 10, 60};
  EXPECT_FALSE(backend_->CreateSurface(Handle(0x11), params));
  // Calls on windows without a surface do nothing.
  backend_->MoveSurface(Handle(0x99), {0, 0, 5, 5});
  backend_->ShowSurface(Handle(0x99), true, true);
  backend_->Present(Handle(0x99), nullptr, {0, 0, 5, 5});
  backend_->DestroySurface(Handle(0x99));
  backend_->DestroySurface(Handle(0x10));
  params.screen_rect = {0, 0, 5, 5};
  EXPECT_TRUE(backend_->CreateSurface(Handle(0x10), params));
}

TEST_F(ModuleBackendTest, InputReachesTheWindowSystemWithItsWindow) {
  HWND top = Handle(0x20);
  Open(top, {200, 150, 400, 300}, Titled(top));
  GtkWidget* native = NativeOf(top);
  ASSERT_NE(native, nullptr);
  host_.log.clear();
  PutKey(native, true, GDK_KEY_Tab);
  PutKey(native, false, GDK_KEY_Tab);
  PutButton(gtk_bin_get_child(GTK_BIN(native)), GDK_BUTTON_PRESS, 1, 30, 40);
  // One native event a pump, so that the window system dispatches each before the next.
  EXPECT_TRUE(backend_->PumpEvents(0));
  EXPECT_THAT(host_.log, ElementsAre("0x20 key down 09 mods 0", "0x20 char 9"));
  while (backend_->PumpEvents(0)) {
  }
  EXPECT_THAT(host_.log, ElementsAre("0x20 key down 09 mods 0", "0x20 char 9", "0x20 key up 09 mods 0",
                                     "0x20 mouse 1 button 1 at 30,40"));
  host_.log.clear();
  EXPECT_FALSE(backend_->PumpEvents(0)) << "nothing was pending";
  EXPECT_THAT(host_.log, IsEmpty());
}

TEST_F(ModuleBackendTest, OwnMovesAreNotReportedBackButTheWindowManagersAre) {
  HWND top = Handle(0x30);
  Open(top, {100, 100, 300, 200}, Titled(top));
  host_.log.clear();
  backend_->MoveSurface(top, {150, 120, 400, 260});
  ASSERT_TRUE(PumpUntil([&] {
    gint w = 0, h = 0;
    gtk_window_get_size(GTK_WINDOW(NativeOf(top)), &w, &h);
    return w == 250 && h == 140;
  }));
  Drain();
  EXPECT_THAT(host_.log, IsEmpty());
  // The user (through the window manager) moves it: the window system hears of it.
  gtk_window_move(GTK_WINDOW(NativeOf(top)), 40, 30);
  ASSERT_TRUE(PumpUntil([&] { return !host_.log.empty(); }));
  EXPECT_THAT(host_.log, ElementsAre("0x30 configure 40,30 250x140"));
}

TEST_F(ModuleBackendTest, PresentedPictureIsWhatTheScreenShows) {
  HWND top = Handle(0x40);
  Open(top, {300, 200, 460, 300}, Titled(top));
  cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 160, 100);
  cairo_t* cr = cairo_create(image);
  cairo_set_source_rgb(cr, 0.94, 0.94, 0.94);
  cairo_paint(cr);
  cairo_set_source_rgb(cr, 0, 0, 0.6);
  cairo_rectangle(cr, 10, 10, 140, 20);
  cairo_fill(cr);
  cairo_destroy(cr);
  backend_->Present(top, image, {0, 0, 160, 100});
  ASSERT_TRUE(PumpUntil([&] {
    Drain();
    GdkPixbuf* shot = Screenshot(300, 200, 160, 100);
    bool blue = PixelAt(shot, 80, 20) == 0x000099;
    g_object_unref(shot);
    return blue;
  }));
  GdkPixbuf* shot = Screenshot(300, 200, 160, 100);
  EXPECT_EQ(PixelAt(shot, 80, 60), 0xF0F0F0u);
  g_object_unref(shot);
  cairo_surface_destroy(image);
}

TEST_F(ModuleBackendTest, OwnedSurfacesAreTransientForTheirOwnerAndListsArePopups) {
  HWND dialog = Handle(0x50), list = Handle(0x51), nested = Handle(0x52);
  SurfaceParams modal = Titled(dialog);
  modal.modal = true;
  Open(dialog, {100, 100, 400, 300}, modal);
  SurfaceParams drop = Titled(list);
  drop.decorated = false;
  drop.owner = dialog;
  drop.screen_rect = {150, 180, 250, 260};
  ASSERT_TRUE(backend_->CreateSurface(list, drop));
  SurfaceParams inner = Titled(nested);
  inner.owner = dialog;
  inner.screen_rect = {120, 120, 220, 200};
  ASSERT_TRUE(backend_->CreateSurface(nested, inner));

  GtkWindow* native_dialog = GTK_WINDOW(NativeOf(dialog));
  GtkWindow* native_list = GTK_WINDOW(NativeOf(list));
  ASSERT_TRUE(native_dialog && native_list);
  EXPECT_TRUE(gtk_window_get_modal(native_dialog));
  EXPECT_EQ(gtk_window_get_transient_for(native_list), native_dialog);
  EXPECT_EQ(gtk_window_get_window_type(native_list), GTK_WINDOW_POPUP);
  EXPECT_EQ(gtk_window_get_transient_for(GTK_WINDOW(NativeOf(nested))), native_dialog);
  EXPECT_EQ(gtk_window_get_window_type(GTK_WINDOW(NativeOf(nested))), GTK_WINDOW_TOPLEVEL);
  // The owner goes first: what it owned is no longer transient for a dead window.
  backend_->DestroySurface(dialog);
  EXPECT_EQ(gtk_window_get_transient_for(native_list), nullptr);
}

TEST_F(ModuleBackendTest, AModalDialogsListStillGetsItsClicksButTheHostDoesNot) {
  // The host's window counts the presses that reach it.
  GtkWidget* host_window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  int host_clicks = 0;
  g_signal_connect(host_window, "button-press-event",
                   G_CALLBACK(+[](GtkWidget*, GdkEvent* e, gpointer n) -> gboolean {
                     if (e->type == GDK_BUTTON_PRESS) ++*static_cast<int*>(n);
                     return FALSE;
                   }),
                   &host_clicks);
  gtk_widget_show_all(host_window);
  Drain();
  HWND dialog = Handle(0x58), list = Handle(0x59);
  SurfaceParams modal = Titled(dialog);
  modal.modal = true;
  Open(dialog, {100, 100, 400, 300}, modal);
  SurfaceParams drop = Titled(list);
  drop.decorated = false;
  drop.owner = dialog;
  drop.screen_rect = {150, 180, 250, 260};
  ASSERT_TRUE(backend_->CreateSurface(list, drop));
  backend_->ShowSurface(list, true, false);
  EXPECT_FALSE(gtk_window_get_focus_on_map(GTK_WINDOW(NativeOf(list))));
  ASSERT_TRUE(PumpUntil([&] { return gtk_widget_get_mapped(NativeOf(list)); }));
  Drain();
  host_.log.clear();
  GtkWidget* list_area = gtk_bin_get_child(GTK_BIN(NativeOf(list)));
  PutButton(list_area, GDK_BUTTON_PRESS, 1, 7, 9);
  PutButton(list_area, GDK_BUTTON_RELEASE, 1, 7, 9, GDK_BUTTON1_MASK);
  PutButton(host_window, GDK_BUTTON_PRESS, 1, 5, 5);
  PutButton(host_window, GDK_BUTTON_RELEASE, 1, 5, 5, GDK_BUTTON1_MASK);
  Drain();
  EXPECT_THAT(host_.log, ElementsAre("0x59 mouse 1 button 1 at 7,9", "0x59 mouse 2 button 1 at 7,9"));
  EXPECT_EQ(host_clicks, 0) << "the host's window took a click under our modal dialog";
  backend_->DestroySurface(list);
  backend_->DestroySurface(dialog);
  // With the dialog gone, the host works again.
  PutButton(host_window, GDK_BUTTON_PRESS, 1, 5, 5);
  PutButton(host_window, GDK_BUTTON_RELEASE, 1, 5, 5, GDK_BUTTON1_MASK);
  Drain();
  EXPECT_GT(host_clicks, 0);
  gtk_widget_destroy(host_window);
}

TEST_F(ModuleBackendTest, PointerGrabFollowsTheCapture) {
  HWND top = Handle(0x5A);
  Open(top, {100, 100, 200, 200}, Titled(top));
  GdkDisplay* display = gdk_display_get_default();
  GdkDevice* pointer = gdk_seat_get_pointer(gdk_display_get_default_seat(display));
  backend_->SetPointerGrab(top, true);
  Drain();
  EXPECT_TRUE(gdk_display_device_is_grabbed(display, pointer));
  backend_->SetPointerGrab(top, false);
  Drain();
  EXPECT_FALSE(gdk_display_device_is_grabbed(display, pointer));
  backend_->SetPointerGrab(Handle(0x5B), true);  // no such surface
  Drain();
  EXPECT_FALSE(gdk_display_device_is_grabbed(display, pointer));
}

TEST_F(ModuleBackendTest, HostGtkWindowGivenThroughTheModuleCallIsTheParent) {
  auto set_parent = reinterpret_cast<gtk3::SetParentWindowFn>(dlsym(module_, gtk3::kSetParentWindowSymbol));
  ASSERT_NE(set_parent, nullptr);
  GtkWidget* host_window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  GtkWidget* not_a_window = gtk_label_new("x");
  g_object_ref_sink(not_a_window);
  EXPECT_EQ(set_parent(not_a_window), 0);
  EXPECT_EQ(set_parent(host_window), 1);
  HWND top = Handle(0x70), owned = Handle(0x71), later = Handle(0x72);
  SurfaceParams params = Titled(top);
  params.screen_rect = {0, 0, 50, 50};
  ASSERT_TRUE(backend_->CreateSurface(top, params));
  EXPECT_EQ(gtk_window_get_transient_for(GTK_WINDOW(NativeOf(top))), GTK_WINDOW(host_window));
  // A window with an owner of ours keeps that owner.
  params = Titled(owned);
  params.owner = top;
  params.screen_rect = {0, 0, 20, 20};
  ASSERT_TRUE(backend_->CreateSurface(owned, params));
  EXPECT_EQ(gtk_window_get_transient_for(GTK_WINDOW(NativeOf(owned))), GTK_WINDOW(NativeOf(top)));
  backend_->DestroySurface(owned);
  backend_->DestroySurface(top);
  // The host's window is held weakly: once destroyed, new dialogs have no parent.
  gtk_widget_destroy(host_window);
  params = Titled(later);
  params.screen_rect = {0, 0, 20, 20};
  ASSERT_TRUE(backend_->CreateSurface(later, params));
  EXPECT_EQ(gtk_window_get_transient_for(GTK_WINDOW(NativeOf(later))), nullptr);
  EXPECT_EQ(set_parent(nullptr), 1);
  g_object_unref(not_a_window);
}

TEST_F(ModuleBackendTest, ClipboardAndMonitorsThroughTheInterface) {
  ASSERT_TRUE(backend_->SetClipboardText("copied \xE2\x82\xAC"));
  std::string text;
  ASSERT_TRUE(backend_->GetClipboardText(&text));
  EXPECT_EQ(text, "copied \xE2\x82\xAC");
  auto monitors = backend_->Monitors();
  ASSERT_EQ(monitors.size(), 1u);
  EXPECT_EQ(monitors[0].bounds, (Rect{0, 0, 1280, 1024}));
}

TEST_F(ModuleBackendTest, WakeEndsAnEndlessPumpFromAnotherThread) {
  Drain();
  std::thread waker([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    backend_->Wake();
  });
  EXPECT_FALSE(backend_->PumpEvents(-1)) << "woken, but nothing was delivered";
  waker.join();
}

}  // namespace
}  // namespace qmk::platform::ui
