/* QmkRecog.h: the recognition library's entry points that QmkScan forwards to. */
#ifndef QMK_RECOG_H
#define QMK_RECOG_H

#include "QmkTypes.h"

QMK_BEGIN_DECLS

QMK_API void ShowOptionalComponents(void);
QMK_API int OptionalComponentCount(void);
QMK_API void QrcrSetPaintManager(int theme_id);

QMK_END_DECLS

#endif
