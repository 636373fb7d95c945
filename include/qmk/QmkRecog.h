/* QmkRecog.h: the recognition library's entry points that QmkScan forwards to. */
#ifndef QMK_RECOG_H
#define QMK_RECOG_H

#include "QmkTypes.h"

QMK_BEGIN_DECLS

QMK_API void ShowOptionalComponents(void);
QMK_API int OptionalComponentCount(void);
/* Records the theme id the host chose, unchanged, whatever it is. */
QMK_API void QrcrSetPaintManager(int theme_id);
/* The id of the last QrcrSetPaintManager call, -1 before the first. */
QMK_API int QrcrGetPaintManager(void);

QMK_END_DECLS

#endif
