// xvfb_test.cpp: the virtual X server of the live tests starts, answers, stops and skips cleanly.
#include "support/xvfb.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include "support/scoped_env.h"

namespace qmk::testing {
namespace {

bool Accepts(const std::string& display) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::snprintf(address.sun_path, sizeof address.sun_path, "/tmp/.X11-unix/X%s", display.c_str() + 1);
  int s = socket(AF_UNIX, SOCK_STREAM, 0);
  bool ok = connect(s, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(s);
  return ok;
}

TEST(Xvfb, OwnServerSetsDisplayAndPutsItBack) {
  ScopedEnv display("DISPLAY", ":4242");
  ScopedEnv wayland("WAYLAND_DISPLAY", "wayland-test");
  std::string shown;
  {
    XvfbServer server;
    if (!server.ok()) GTEST_SKIP() << "Xvfb could not start: " << server.error();
    EXPECT_EQ(getenv("DISPLAY"), server.display());
    EXPECT_EQ(getenv("WAYLAND_DISPLAY"), nullptr);
    EXPECT_TRUE(Accepts(server.display()));
    shown = server.display();
  }
  EXPECT_STREQ(getenv("DISPLAY"), ":4242");
  EXPECT_STREQ(getenv("WAYLAND_DISPLAY"), "wayland-test");
  EXPECT_FALSE(Accepts(shown)) << "the server still runs after it was stopped";
}

TEST(Xvfb, TwoServersTakeDifferentDisplays) {
  XvfbServer first;
  if (!first.ok()) GTEST_SKIP() << "Xvfb could not start: " << first.error();
  XvfbServer second;
  ASSERT_TRUE(second.ok()) << second.error();
  EXPECT_NE(first.display(), second.display());
}

TEST(Xvfb, MissingServerIsAReasonNotACrash) {
  TempDir empty;
  ScopedEnv path("PATH", empty.str());
  ScopedEnv display("DISPLAY", ":4242");
  XvfbServer server(2000);
  EXPECT_FALSE(server.ok());
  EXPECT_NE(server.error().find("Xvfb"), std::string::npos) << server.error();
  EXPECT_STREQ(getenv("DISPLAY"), ":4242") << "a server that never ran changed DISPLAY";
}

}  // namespace
}  // namespace qmk::testing
