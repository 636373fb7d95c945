// recog.cpp: the recognition library, a null implementation: no optional components.
#include "qmk/QmkRecog.h"

extern "C" {

QMK_API void ShowOptionalComponents(void) {}

QMK_API int OptionalComponentCount(void) { return 0; }

// The recognition library has no dialogs of its own yet, so the theme id has nothing to change.
QMK_API void QrcrSetPaintManager(int) {}

}
