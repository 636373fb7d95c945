// export_selection_test.cpp: the exported theme call installs the class of its table and tells
// the recognition library the id unchanged, which that library keeps for reading back.
#include <gtest/gtest.h>

#include "qmk/QmkRecog.h"
#include "qmk/QmkScan.h"
#include "theme/theme_fixture.h"

namespace qmk::toolkit::theme::testing {
namespace {

class ExportedSelection : public ThemeTest {};

TEST_F(ExportedSelection, TheIdReachesRecognitionUnchangedAndTheTableChoosesTheClass) {
  struct Case {
    int id;
    const CRuntimeClass* cls;
  };
  const CRuntimeClass* base = QMK_RUNTIME_CLASS(CExtPaintManager);
  const Case cases[] = {
      {29762, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Obsidian)},  // a listed id
      {0, base},
      {29750, base},
      {29765, base},  // a theme name without a case of its own
      {31337, base},  // unknown
      {29751, QMK_RUNTIME_CLASS(CExtPaintManagerXP)},
      {-5, base},
  };
  for (const Case& c : cases) {
    QrcrSetPaintManager(123456);  // a value no case uses, so a missing hand-over shows
    ScnSetPaintManager(c.id);
    EXPECT_EQ(QrcrGetPaintManager(), c.id) << "id " << c.id;
    EXPECT_EQ(g_PaintManager().GetPM()->GetRuntimeClass(), c.cls) << "id " << c.id;
  }
}

TEST_F(ExportedSelection, TheSameIdTwiceInstallsAFreshObject) {
  ScnSetPaintManager(29754);
  const CExtPaintManager* first = g_PaintManager().GetPM();
  ScnSetPaintManager(29754);
  EXPECT_NE(g_PaintManager().GetPM(), first);
  EXPECT_EQ(g_PaintManager().GetPM()->GetRuntimeClass(), QMK_RUNTIME_CLASS(CExtPaintManagerStudio2005));
  EXPECT_EQ(QrcrGetPaintManager(), 29754);
}

}  // namespace
}  // namespace qmk::toolkit::theme::testing
