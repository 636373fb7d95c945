// picture_compare.h: rendered pictures against reference PNG files, within a tolerance.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/draw/draw_target.h"

namespace qmk::testing {

// Where the references live (tests/ui/reference) and where failing runs leave their pictures
// (ui-pictures beside the test program).
std::filesystem::path ReferenceDir();
std::filesystem::path PictureOutputDir();
std::unique_ptr<platform::DrawTarget> LoadPng(const std::string& path);
// Compares with reference/<name>.png; on failure writes <name>.actual.png and <name>.diff.png
// beside the test program. QMK_UPDATE_REFERENCE=1 rewrites the reference first.
::testing::AssertionResult MatchesReference(const platform::DrawTarget& actual,
                                            const std::string& name);

}  // namespace qmk::testing
