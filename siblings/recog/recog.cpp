// recog.cpp: the recognition library, a null implementation: no optional components, and the
// theme id it is told kept for reading back.
#include "qmk/QmkRecog.h"

namespace {

// The id of the last QrcrSetPaintManager call; -1 before the first.
int g_paintManagerId = -1;

}  // namespace

extern "C" {

QMK_API void ShowOptionalComponents(void) {}

QMK_API int OptionalComponentCount(void) { return 0; }

// The recognition library has no dialogs of its own yet; it records the theme id so that they
// can follow it once they exist, and so that a caller can see what it was told.
QMK_API void QrcrSetPaintManager(int theme_id) { g_paintManagerId = theme_id; }

QMK_API int QrcrGetPaintManager(void) { return g_paintManagerId; }

}
