// selection_test.cpp: theme ids to classes at the edges of the table, the names of the ids,
// and the hand-over of the id to the recognition library.
#include <gtest/gtest.h>

#include <climits>
#include <utility>
#include <vector>

#include "theme/theme_fixture.h"
#include "toolkit/theme/selection.h"

namespace qmk::toolkit::theme::testing {
namespace {

class Selection : public ThemeTest {};

TEST_F(Selection, IdsToClassesAtTheEdges) {
  struct Case { int id; const CRuntimeClass* cls; };
  const Case cases[] = {
      {0, QMK_RUNTIME_CLASS(CExtPaintManager)},
      {-1, QMK_RUNTIME_CLASS(CExtPaintManager)},
      {INT_MIN, QMK_RUNTIME_CLASS(CExtPaintManager)},
      {INT_MAX, QMK_RUNTIME_CLASS(CExtPaintManager)},
      {29749, QMK_RUNTIME_CLASS(CExtPaintManager)},
      {29750, QMK_RUNTIME_CLASS(CExtPaintManager)},
      {29751, QMK_RUNTIME_CLASS(CExtPaintManagerXP)},
      {29753, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003NoThemes)},
      {29756, QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP)},
      {29757, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1)},
      {29759, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian)},
      {29760, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Silver)},
      {29763, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Silver)},
      {29764, QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R1)},
      // Theme names without a case of their own select the base class.
      {29765, QMK_RUNTIME_CLASS(CExtPaintManager)},
      {29768, QMK_RUNTIME_CLASS(CExtPaintManager)},
      {29771, QMK_RUNTIME_CLASS(CExtPaintManager)},
  };
  for (const Case& c : cases) EXPECT_EQ(PaintManagerClassForId(c.id), c.cls) << "id " << c.id;
}

TEST_F(Selection, DisplayNamesCoverTheResourceRange) {
  struct Case { int id; const char* name; };
  for (const Case c : {Case{29750, "Office 2000"}, {29753, "Office 2003 (without Windows XP theme colors)"},
                       {29764, "Office 2010 (Release 1)"}, {29765, "Office 2010 (Release 2) Blue"},
                       {29768, "Visual Studio 2010"}, {29771, "Load Skin From .SKIN File"},
                       {29749, ""}, {29772, ""}, {0, ""}})
    EXPECT_EQ(ThemeDisplayName(c.id), c.name) << "id " << c.id;
  EXPECT_EQ(ThemeChoices().size(), 15u);
}

TEST_F(Selection, EveryIdInstallsItsClassAndIsToldUnchanged) {
  const CRuntimeClass* base = QMK_RUNTIME_CLASS(CExtPaintManager);
  std::vector<std::pair<int, const CRuntimeClass*>> ids = {{0, base}, {-7, base}, {29765, base}};
  for (const ThemeChoice& c : ThemeChoices()) ids.emplace_back(c.id, c.cls);
  for (const auto& [id, cls] : ids) {
    std::vector<int> told;
    EXPECT_TRUE(SelectPaintManagerById(id, [&](int t) { told.push_back(t); }));
    EXPECT_EQ(told, std::vector<int>{id});
    EXPECT_EQ(g_PaintManager().GetPM()->GetRuntimeClass(), cls) << "id " << id;
  }
}

TEST_F(Selection, TheSameIdTwiceInstallsTwoFreshObjects) {
  SelectPaintManagerById(29752, nullptr);
  CExtPaintManager* first = g_PaintManager().GetPM();
  first->InstallColor(0x123456);
  const size_t marked = first->ColorCount();
  SelectPaintManagerById(29752, nullptr);
  CExtPaintManager* second = g_PaintManager().GetPM();
  EXPECT_TRUE(second->IsKindOf(QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003)));
  EXPECT_EQ(second->ColorCount(), marked - 1) << "the second object starts from its own table";
}

TEST(ClassTree, BasesAsTheTreeHasThem) {
  struct Case { const CRuntimeClass* cls; const CRuntimeClass* base; };
  const Case cases[] = {
      {QMK_RUNTIME_CLASS(CExtPaintManager), &CObject::classCObject},
      {QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP), QMK_RUNTIME_CLASS(CExtPaintManager)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003), QMK_RUNTIME_CLASS(CExtPaintManagerXP)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerStudio2010), QMK_RUNTIME_CLASS(CExtPaintManagerStudio2005)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Obsidian), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Black), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Obsidian)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_Impl), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Impl)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R2_Black), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_Impl)},
  };
  for (const Case& c : cases) EXPECT_EQ(c.cls->m_pBaseClass, c.base) << c.cls->m_lpszClassName;
  for (const CRuntimeClass* cls : AllPaintManagerClasses()) {
    EXPECT_TRUE(cls->IsDerivedFrom(QMK_RUNTIME_CLASS(CExtPaintManager))) << cls->m_lpszClassName;
    EXPECT_EQ(FindPaintManagerClass(cls->m_lpszClassName), cls);
    std::unique_ptr<CObject> made(cls->CreateObject());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), cls) << "each class makes an object of itself";
  }
  EXPECT_EQ(AllPaintManagerClasses().size(), 24u);
  EXPECT_EQ(FindPaintManagerClass("CObject"), nullptr);
  EXPECT_FALSE(QMK_RUNTIME_CLASS(CExtPaintManagerXP)->IsDerivedFrom(QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP)));
}

}  // namespace
}  // namespace qmk::toolkit::theme::testing
