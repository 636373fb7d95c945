// font_cache_release.cpp: frees the font caches once every test has run, so that the leak
// checker of the sanitizer build reports only what the library itself keeps.
#include <gtest/gtest.h>

#include "platform/draw/text.h"

namespace {

class ReleaseFontCachesAtExit : public ::testing::Environment {
 public:
  void TearDown() override { qmk::platform::ReleaseFontCaches(); }
};

const ::testing::Environment* const kRelease =
    ::testing::AddGlobalTestEnvironment(new ReleaseFontCachesAtExit);

}  // namespace
